#pragma once
#include <string>

#include "platform/CommandButton.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/PictureBox.hpp"
#include "platform/TextField.hpp"
#include "core/LimitForm.hpp"

namespace pendulon {

class Application;
class clsEntryFile;

// Unload modes, as the classic query-unload passes them.
inline constexpr int kUnloadFormControlMenu = 0;  // the user closed the window
inline constexpr int kUnloadFormCode = 1;         // the program unloads it
inline constexpr int kUnloadAppWindows = 2;
inline constexpr int kUnloadMDIForm = 4;          // the main window is closing

// A document: one child window of a device type. These are the members the shell, the entry
// files and the reports reach; each device's window adds its own fields and logic.
class Configurator : public LimitForm {
public:
    Configurator(Application& app, std::string formName);
    ~Configurator() override;

    Application& App() const { return app_; }

    // Device name, such as "QX6105AF". Writing it sets lblDevice, selects the device's option
    // in frmDevice and hands the window to the entry-file object.
    virtual std::string Device() const = 0;
    virtual void SetDevice(const std::string& device) = 0;
    // The family checksum of the configuration as it stands, as text.
    virtual std::string Checksum() = 0;
    // Reads the fields from a read entry file and runs Calculate; false refuses the load.
    virtual bool FillForm(clsEntryFile& data, const std::string& path) = 0;
    // Writes the entry file to txtFilePath.
    virtual void Save() = 0;
    // Writes the entry file of the configuration as it stands to path.
    virtual void MakeEntryFile(const std::string& path) = 0;
    // Writes the EPROM vector to path, from the window's own image or from the saved file.
    virtual void MakeEPROMVector(const std::string& path, bool fromForm) = 0;
    // Pin table: element 0 is the pin count as text, 1..n the pin names.
    virtual std::string PinName(int index) const = 0;
    virtual void CalculatePower() = 0;
    virtual void DisplayAllActuals() = 0;
    // Prescale of a PLL row or output; only the QX6105A and QX4860 windows have it.
    virtual bool PreScale(int index) const;
    virtual void SetPreScale(int index, bool value);
    // Applies the user limits (public so that voltage options and entry files can run it).
    virtual void cmdApplyLimits_Click() = 0;
    virtual void cmdCalculate_Click() = 0;

    // Life cycle. Form_Load runs the load steps; Form_QueryUnload returns true to cancel.
    virtual void Form_Load() = 0;
    virtual bool Form_QueryUnload(int unloadMode);
    virtual void Form_Unload() {}

    // Common fields, registered by each device window in its own control order.
    TextField txtFilePath;
    Label lblDevice;
    ListField cboFRef;
    CommandButton cmdCalculate;
    PictureBox picPower;
    PictureBox picDebugWindow;
    PictureBox picPinout;

    bool mUnloadRequired = false;

private:
    Application& app_;
};

}  // namespace pendulon
