#pragma once
#include <memory>
#include <string>

#include "configurators/DeviceWindow.hpp"
#include "core/cls4860Die.hpp"
#include "core/clsQX4860.hpp"
#include "entryfile/clsEntryFile4860.hpp"

namespace pendulon {

// The device names of one window of the family: the plain, industrial and fast parts.
struct FamilyDevices4860 {
    std::string plain;
    std::string industrial;
    std::string fast;
};

// What the QX6105A and QX4860 windows share: the die, loop, reference, device, drawing and
// entry-file objects of the family, created on first use; the entry-file operations, the limit
// exchange between die, reference and limit fields; the rows of PLL frequencies with their data
// lists, the smooth slew option, and the wiring of the reference, limit and PLL fields, which
// give the same hints and take the same steps on both windows.
class frm4860Family : public DeviceWindow<cls4860Die, clsQX4860, clsEntryFile4860> {
  public:
    // rows is the number of PLL frequencies: the select states of the window.
    frm4860Family(AppServices& app, std::string formName, int rows, FamilyDevices4860 devices);
    ~frm4860Family() override;

    // Configurator: the window is its entry file's form.
    void SetDevice(const std::string& device) override;

    // Lowest output frequency of the family's devices.
    static constexpr double kOutputMinimum = 0.5;
    // Highest output frequency of the device at the present voltage: 100 MHz at 3.3 V and
    // 130 MHz at 5 V, the fast part 80 MHz and 100 MHz.
    double OutputMaximum() const;
    // Colours an output field against the output minimum and the device's output maximum.
    void CheckOutputLimits(Field& field);

    // The objects the window owns, created on first use.
    clsPLL& PLL() { return Loop(0); }

    // Event procedures of the shared fields.
    void txtPLL_Change(int Index);
    void txtPLL_LostFocus(int Index);
    void chkSmoothSlew_Click();
    virtual void cboPLLData_Click(int Index) = 0;

    // Shared fields; each window registers them in its own control order.
    ControlArray<TextField> txtPLL;
    ControlArray<ListField> cboPLLData;
    CheckBox chkSmoothSlew;
    Frame fraVoltage;
    Frame fraReference;
    Label lblFRefMin;
    Label lblFRefMax;

  protected:
    // Sets the die's voltage from opt3V and its VCO defaults by the device shown in lblDevice:
    // the plain and industrial parts run 4-150 MHz at 3.3 V and 4-200 MHz at 5 V, the fast
    // part 4-120 MHz and 4-160 MHz. Any other device is reported as invalid.
    void InitializeDieClass() override;
    // The counter and VCO limits of the die at the present voltage.
    void InitializePLLClass() override;

    // The PLL frequency of row i as typed.
    double Frequency(int i) const;

    // Captions a frame and its two options, which make one group.
    static void CaptionOptionPair(Frame& frame, const char* caption, OptionButton& first,
                                  const char* firstCaption, OptionButton& second,
                                  const char* secondCaption, const char* group);
    // Registers the voltage frame and options, then the reference frame, list and limit labels.
    void RegisterVoltageAndReference();
    // Connects cboFRef's got-focus hint and click, the limit fields' got-focus hints and key
    // filters, and the smooth slew option. Runs after the fields are registered, as it
    // replaces the reference click.
    void ConnectFamilyEvents();
    // Row i of the PLL frequencies: its change, its leaving, and its data list's click; the
    // field shows the range hint with word when it gets the focus (its text highlighted) and
    // takes only keys of a number.
    void ConnectPLLRow(int i, const std::string& word);

    const FamilyDevices4860 mDevices;
};

}  // namespace pendulon
