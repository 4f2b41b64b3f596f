#pragma once
#include <memory>
#include <string>

#include "app/Configurator.hpp"

namespace pendulon {

class clsPLL;
class clsReference;
class cls4860Die;
class clsQX4860;
class clsGraphics;
class clsEntryFile4860;

// What the QX6105A and QX4860 windows share: the die, loop, reference, device, drawing and
// entry-file objects of the family, created on first use; the entry-file operations, the limit
// exchange between die, reference and limit fields, and the wiring of the reference and limit
// fields, which give the same hints on both windows.
class frm4860Family : public Configurator {
  public:
    frm4860Family(AppServices& app, std::string formName);
    ~frm4860Family() override;

    // Configurator
    std::string Checksum() override;
    const clsEntryFile* MadeEntryImage() override;
    bool MakeEntryFile(const std::string& path) override;
    bool MakeEPROMVector(const std::string& path, bool fromForm) override;

    // Colours an output field against 0.5 MHz and the device's output maximum.
    void CheckOutputLimits(Field& field);

    // The objects the window owns, created on first use.
    clsPLL& PLL();
    clsReference& Reference();
    cls4860Die& Die();
    clsQX4860& DeviceRules();
    clsGraphics& Graphics();
    clsEntryFile4860& EntryFile();

  protected:
    double DieVoltage() const override;
    void SetDieVoltage(double voltage) override;
    void GetCurrentPLLLimits() override;
    void SetNewPLLLimits() override;
    bool LimitsEqualDefaults() override;
    double ReferenceMinimum() const override;
    double ReferenceMaximum() const override;

    // Sets the die's voltage from opt3V and its VCO defaults by the device shown in lblDevice:
    // the plain and industrial parts run 4-150 MHz at 3.3 V and 4-200 MHz at 5 V, the fast
    // part 4-120 MHz and 4-160 MHz. Any other device is reported as invalid.
    void InitializeDieDefaults(const std::string& plain, const std::string& industrial,
                               const std::string& fast);

    // Highest output frequency of the device at the present voltage.
    virtual double OutputMaximum() const = 0;

    // Connects cboFRef's got-focus hint and click, and the limit fields' got-focus hints and
    // key filters. Runs after the fields are registered, as it replaces the reference click.
    void ConnectFamilyEvents();
    // Element i of a PLL frequency array shows the range hint with word when it gets the focus
    // (its text highlighted) and takes only keys of a number.
    void ConnectPLLFieldHelp(ControlArray<TextField>& txtPLL, int i, const std::string& word);
    // Releases the family objects, in the order they are declared.
    void ReleaseFamilyObjects();

  private:
    std::unique_ptr<clsPLL> mclsPLL;
    std::unique_ptr<clsReference> mclsReference;
    std::unique_ptr<cls4860Die> mclsDie;
    std::unique_ptr<clsQX4860> mclsDevice;
    std::unique_ptr<clsGraphics> mclsGraphics;
    std::unique_ptr<clsEntryFile4860> mclsEntryFile;
};

}  // namespace pendulon
