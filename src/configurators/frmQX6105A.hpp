#pragma once
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "configurators/Configurator.hpp"

namespace pendulon {

class clsPLL;
class clsReference;
class cls4860Die;
class clsQX4860;
class clsGraphics;
class clsEntryFile4860;

// The QX6105A, QX6105AF and QX6105AI: one PLL that runs at two frequencies chosen by pin 8
// (FS), or at one when pin 8 is an output enable; three outputs with one divisor each for both
// states. Six-element output arrays run CLKA, CLKB, CLKC of state 0, then of state 1: index k
// is state k / 3, output k % 3.
class frmQX6105A : public Configurator {
  public:
    explicit frmQX6105A(Application& app);
    ~frmQX6105A() override;

    static constexpr int kStates = 2;
    static constexpr int kOutputs = 3;

    // Configurator
    void SetDevice(const std::string& device) override;
    std::string Checksum() override;
    void MakeEntryFile(const std::string& path) override;
    void MakeEPROMVector(const std::string& path, bool fromForm) override;
    std::string PinName(int index) const override;
    void CalculatePower() override;
    void DisplayAllActuals() override;
    bool PreScale(int index) const override;
    void SetPreScale(int index, bool value) override;
    void CheckPLLLimits() override;
    void CalculateAllDesiredClocks() override;

    // Event procedures.
    void optFS_Click();
    void optOE_Click();
    void cboClkDiv_Click(int Index);
    void cboPLLData_Click(int Index);
    void cboActual_Click(int Index);
    void txtPLL_Change(int Index);
    void txtPLL_LostFocus(int Index);
    void chkSmoothSlew_Click();

    void CheckOutputLimits(Field& field);
    void DisplayPinout();
    void FindPLLs() override;

    // The objects the window owns, created on first use.
    clsPLL& PLL();
    clsReference& Reference();
    cls4860Die& Die();
    clsQX4860& DeviceRules();
    clsGraphics& Graphics();
    clsEntryFile4860& EntryFile();

    // Fields.
    Frame fraPin8;
    OptionButton optFS;
    OptionButton optOE;
    ControlArray<Label> lblFS{kStates};
    ControlArray<TextField> txtPLL{kStates};
    ControlArray<Label> lblPllData{kStates};
    ControlArray<ListField> cboPLLData{kStates};
    ControlArray<Label> lblClkOutput{kStates * kOutputs};
    ControlArray<Label> lblDesired{kStates * kOutputs};
    ControlArray<ListField> cboClkDiv{kOutputs};
    ControlArray<ListField> cboActual{kStates * kOutputs};
    Frame fraOption;
    CheckBox chkSmoothSlew;
    Frame fraVoltage;
    Frame fraReference;
    Label lblFRefMin;
    Label lblFRefMax;

  protected:
    void InitializeControls() override;
    void InitializeDieClass() override;
    void InitializePLLClass() override;
    void SetDefaultOptions() override;
    double DieVoltage() const override;
    void SetDieVoltage(double voltage) override;
    void GetCurrentPLLLimits() override;
    void SetNewPLLLimits() override;
    bool LimitsEqualDefaults() override;
    double ReferenceMinimum() const override;
    double ReferenceMaximum() const override;
    void FillFromEntryFile(clsEntryFile& data) override;
    void ReleaseObjects() override;

  private:
    void RegisterFields();
    void ConnectEvents();
    // The output maximum of the device at the present voltage.
    double OutputMaximum() const;
    double Frequency(int state) const;

    std::array<bool, kStates> mablnPreScale{};
    std::vector<std::string> mastrPinName;

    std::unique_ptr<clsPLL> mclsPLL;
    std::unique_ptr<clsReference> mclsReference;
    std::unique_ptr<cls4860Die> mclsDie;
    std::unique_ptr<clsQX4860> mclsDevice;
    std::unique_ptr<clsGraphics> mclsGraphics;
    std::unique_ptr<clsEntryFile4860> mclsEntryFile;
};

}  // namespace pendulon
