#pragma once
#include <functional>
#include <string>
#include <vector>

#include "core/LimitForm.hpp"
#include "platform/CheckBox.hpp"
#include "platform/CommandButton.hpp"
#include "platform/ControlArray.hpp"
#include "platform/Frame.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/PictureBox.hpp"
#include "platform/TextField.hpp"

namespace pendulon {

class AppServices;
class clsEntryFile;

// Unload modes, as the classic query-unload passes them.
inline constexpr int kUnloadFormControlMenu = 0;  // the user closed the window
inline constexpr int kUnloadFormCode = 1;         // the program unloads it
inline constexpr int kUnloadAppWindows = 2;
inline constexpr int kUnloadMDIForm = 4;  // the main window is closing

// A document: one child window of a device type. These are the members the shell, the entry
// files and the reports reach; each device's window adds its own fields and logic.
//
// The behaviour every device window shares (load order, voltage change, the Calculate flow,
// marking a Calculate due, leaving frequency and limit fields, applying user limits, filling
// from an entry file, the close question) is written here once. A device window supplies the
// device-specific steps through the protected hooks.
class Configurator : public LimitForm {
  public:
    Configurator(AppServices& app, std::string formName);
    ~Configurator() override;

    AppServices& App() const { return app_; }

    // Device name, such as "QX6105AF". Writing it sets lblDevice, selects the device's option
    // in frmDevice and hands the window to the entry-file object.
    virtual std::string Device() const;
    virtual void SetDevice(const std::string& device);
    // The family checksum of the configuration as it stands, as text.
    virtual std::string Checksum() = 0;
    // Reads the fields from a read entry file and runs Calculate; false refuses the load.
    virtual bool FillForm(clsEntryFile& data, const std::string& path);
    // Writes the entry file to txtFilePath; true when it was written.
    virtual bool Save();
    // Writes the entry file of the configuration as it stands to path; true when it was
    // written (a failure has been reported, and what was on disk is as it was).
    virtual bool MakeEntryFile(const std::string& path) = 0;
    // The entry image of the configuration as it stands, made as for a save; null for a window
    // without one.
    virtual const clsEntryFile* MadeEntryImage() { return nullptr; }
    // Writes the EPROM vector to path, from the window's own image or from the saved file;
    // true when it was written.
    virtual bool MakeEPROMVector(const std::string& path, bool fromForm) = 0;
    // Pin table: element 0 is the pin count as text, 1..n the pin names.
    virtual std::string PinName(int index) const;
    virtual void CalculatePower() = 0;
    virtual void DisplayAllActuals() = 0;
    // Prescale of a PLL row or output; only the QX6105A and QX4860 windows have it.
    virtual bool PreScale(int index) const;
    virtual void SetPreScale(int index, bool value);
    // Applies the user limits (public so that voltage options and entry files can run it).
    virtual void cmdApplyLimits_Click();
    virtual void cmdCalculate_Click();
    // Paints the debug window: the reference and the solution each loop holds, under its title
    // bar, the window sized to its lines. It follows the loops while it is shown.
    void DrawDebugWindow();
    // Colours every loop frequency and output against the limits.
    virtual void CheckPLLLimits() {}
    // Brings every desired-frequency label up to date with the inputs.
    virtual void CalculateAllDesiredClocks() {}

    // Life cycle. Form_Load runs the load steps; Form_QueryUnload returns true to cancel.
    virtual void Form_Load();
    virtual bool Form_QueryUnload(int unloadMode);
    virtual void Form_Unload();

    // Events of the shared fields.
    void opt3V_Click();
    void opt5V_Click();
    void cboFRef_LostFocus();
    void chkUseDefault_Click();
    void txtPLLMin_Change(int index);
    void txtPLLMax_Change(int index);
    void txtPLLMin_LostFocus(int index);
    void txtPLLMax_LostFocus(int index);
    void txtFRefMin_LostFocus();
    void txtFRefMax_LostFocus();

    // Any change of an input: a Calculate is due.
    void MarkCalculateDue();
    bool CalculatePending() const;

    // Common fields, registered by each device window in its own control order.
    TextField txtFilePath;
    Label lblDevice;
    ListField cboFRef;
    TextField txtFRefMin;
    TextField txtFRefMax;
    OptionButton opt3V;
    OptionButton opt5V;
    CommandButton cmdCalculate;
    Frame fraLimits;
    ControlArray<TextField> txtPLLMin;
    ControlArray<TextField> txtPLLMax;
    CheckBox chkUseDefault;
    CommandButton cmdApplyLimits;
    PictureBox picPower;
    PictureBox picDebugWindow;
    PictureBox picPinout;

    bool mUnloadRequired = false;
    int mintCalculateCounter = 0;

  protected:
    // Device steps the shared flows call. The defaults suit a window without loops or limits;
    // every device window overrides those its device has.
    virtual void InitializeControls() {}
    virtual void InitializeDieClass() {}
    virtual void InitializePLLClass() {}
    // Default device options at load, before the voltage is chosen.
    virtual void SetDefaultOptions() {}
    virtual double DieVoltage() const { return mdblVoltage; }
    virtual void SetDieVoltage(double voltage) { mdblVoltage = voltage; }
    // Limit exchange between the die, the reference and the limit fields.
    virtual void GetCurrentPLLLimits() {}
    virtual void SetNewPLLLimits() {}
    // True when every current limit of the die equals its default.
    virtual bool LimitsEqualDefaults() { return true; }
    virtual double ReferenceMinimum() const { return 1; }
    virtual double ReferenceMaximum() const { return 30; }
    virtual void FindPLLs() {}
    // The entry-file object's form fill.
    virtual void FillFromEntryFile(clsEntryFile&) {}
    // Releases the objects the window owns.
    virtual void ReleaseObjects() {}

    // Registers the shared fields and connects their events; each device window calls these
    // where the fields belong in its control order.
    void RegisterReferenceFields();
    void RegisterVoltageFields();
    void RegisterLimitFields();
    void RegisterCommonTail();
    // The debug window draws itself when it is shown and again when a loop's solution
    // changes while it is shown.
    void ConnectDebugWindow();
    // The user-limit fields show the two limit hints when they get the focus (their text
    // highlighted) and take only keys of a number.
    void ConnectLimitFieldHelp();
    // A frequency field shows the range hint with word and the range of the present voltage
    // when it gets the focus (its text highlighted), and takes only keys of a number.
    void ConnectFrequencyFieldHelp(TextField& field, const std::string& word,
                                   std::function<double()> minimum,
                                   std::function<double()> maximum);

    // A typed frequency leaves its field: empty becomes "Off", out of range is clamped.
    void LeaveFrequencyField(TextField& field, double minimum, double maximum);
    // The text a typed frequency becomes: "Off" stays, empty or 0 becomes "Off", a value is
    // clamped to minimum and maximum (asked only for a value) in the short frequency form.
    static std::string FrequencyFieldText(const std::string& typed, double minimum,
                                          const std::function<double()>& maximum);
    // Puts that text in the field and shows it in the window text colour.
    static void ClampFrequencyField(TextField& field, double minimum,
                                    const std::function<double()>& maximum);
    // The uniform error report with this window's source text.
    void RaiseError(long number, const std::string& operation, const std::string& description);

    // Status and hint lines of the main window.
    void Status(const std::string& text);
    void Hint(const std::string& text);

    // The pin table PinName reads, as the window's pinout last drew it.
    std::vector<std::string> mastrPinName;
    // Guards the load against the voltage option firing the Apply flow twice.
    bool mblnLoading = false;
    // Apply also calculates: it marks a Calculate due, shows the limits as the die took them
    // when they are not the defaults, and runs Calculate, in place of bringing the desired
    // frequencies up to date.
    bool mblnApplyCalculates = false;

  private:
    bool drawingDebugWindow_ = false;
    bool debugWindowConnected_ = false;
    double mdblVoltage = 5.0;
    void VoltageChange(double voltage);
    void LeaveLimit(TextField& field, int index, bool isMaximum);
    // Runs a flow with the window disabled, then restores it and gives it the focus.
    template <class F>
    void WithWindowDisabled(F&& flow);

    AppServices& app_;
};

}  // namespace pendulon
