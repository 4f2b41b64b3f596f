#pragma once
#include <memory>
#include <string>
#include <vector>

#include "configurators/DeviceWindow.hpp"
#include "core/cls3350Die.hpp"
#include "core/clsQX3350.hpp"
#include "entryfile/clsEntryFile3350.hpp"

namespace pendulon {


// The QX3350 and QX3350I: a small eight-lead chip with one PLL and one output, whose divider
// runs from 1 to 128 and whose source is the PLL or the reference. Pin 4 is either output
// enable or power down. The number in txtPLL is the VCO frequency itself, not doubled, and the
// die's VCO limits apply to it directly. The device has no power model.
class frmQX3350 : public DeviceWindow<cls3350Die, clsQX3350, clsEntryFile3350> {
  public:
    explicit frmQX3350(AppServices& app);
    ~frmQX3350() override;

    // Output limits of the PLL source, by voltage.
    static constexpr double kOutputMinimum = 0.39;
    static constexpr double kOutputMaximum5V = 133;
    static constexpr double kOutputMaximum3V = 100;
    // Reference limits by clock source.
    static constexpr double kCrystalMinimum = 10;
    static constexpr double kCrystalMaximum = 30;
    static constexpr double kExternalMinimum = 1;
    static constexpr double kExternalMaximum = 75;

    // Configurator
    void SetDevice(const std::string& device) override;
    // The QX3350 has no power model.
    void CalculatePower() override {}
    // The actual output, from the PLL data or the reference.
    void DisplayAllActuals() override { DisplayActualOutput(); }
    void CheckPLLLimits() override { CheckAllLimits(); }
    void CalculateAllDesiredClocks() override { CalculateDesiredClock(); }
    void Form_Load() override;

    // Event procedures and the steps they run.
    void opt3V_Click();
    void opt5V_Click();
    void optCrystal_Click();
    void optExternal_Click();
    void optPowerDown_Click();
    void optOutputEnable_Click();
    void cboClockDivisors_Click();
    void cboPLLData_Click();
    void cboActual_Click();
    void cboFRef_Click();
    void cboFRef_LostFocus();
    void txtPLL_Change();
    void txtPLL_LostFocus();
    void SetPLLValues();
    void CalculateDesiredClock();
    void DisplayActualOutput();
    void CheckAllLimits();
    void DisplayPinout();
    void FindPLLs() override { SetPLLValues(); }

    // Highest output frequency from the PLL at the present voltage.
    double OutputMaximum() const;

    // The objects the window owns, created on first use.
    clsPLL& PLL() { return Loop(0); }

    // Fields, in the window's control order.
    Frame fraClockSource;
    OptionButton optCrystal;
    OptionButton optExternal;
    Frame fraReference;
    Frame fraVoltage;
    Frame fraTTLCMOS;
    OptionButton optTTL;
    OptionButton optCMOS;
    Frame fraOptions;
    Frame fraPin4;
    OptionButton optPowerDown;
    OptionButton optOutputEnable;
    Frame fraSynchronous;
    CheckBox chkSynchronous;
    Frame fraPackage;
    OptionButton optSOIC;
    OptionButton optTSSOP;
    Frame fraPLLFrequency;
    Label lblPLL;
    TextField txtPLL;
    Label lblMHz;
    Frame fraPLLData;
    ListField cboPLLData;
    Frame fraOutputs;
    Label lblClkOutDivide;
    ListField cboClockDivisors;
    Label lblDesired;
    Label lblDesiredClock;
    Label lblActual;
    ListField cboActual;
    Label lblMin;
    Label lblMax;
    Frame fraPinout;
    Label lblNoPowerCalculation;

  protected:
    void InitializeControls() override;
    void InitializeDieClass() override;
    void InitializePLLClass() override;
    void GetCurrentPLLLimits() override;
    void SetNewPLLLimits() override;
    double ReferenceMinimum() const override;
    double ReferenceMaximum() const override;
    void FillFromEntryFile(clsEntryFile& data) override;
    void ReleaseObjects() override;

  private:
    void RegisterFields();
    void ConnectEvents();
    void VoltageChange(bool threeVolt);
    // The reference limits of the chosen clock source.
    double SourceMinimum() const;
    double SourceMaximum() const;
    // The hidden reference-limit fields follow the clock source, so that applying the user
    // limits never widens the source's range.
    void ShowSourceLimits();
    // Paints the divisor list, the desired label and the actual list in one colour.
    void PaintOutput(Color color);
    // The power panel holds only the note that the device has no power model.
    void ShowNoPowerNote();
    void Paint(Field& field, Color color);

};

}  // namespace pendulon
