#pragma once
#include <array>
#include <string>
#include <vector>

#include "configurators/frm4860Family.hpp"

namespace pendulon {

// The QX6105A, QX6105AF and QX6105AI: one PLL that runs at two frequencies chosen by pin 8
// (FS), or at one when pin 8 is an output enable; three outputs with one divisor each for both
// states. Six-element output arrays run CLKA, CLKB, CLKC of state 0, then of state 1: index k
// is state k / 3, output k % 3.
class frmQX6105A : public frm4860Family {
  public:
    explicit frmQX6105A(AppServices& app);
    ~frmQX6105A() override;

    static constexpr int kStates = 2;
    static constexpr int kOutputs = 3;

    // Configurator
    void SetDevice(const std::string& device) override;
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
    void cboPLLData_Click(int Index) override;
    void cboActual_Click(int Index);

    void DisplayPinout();
    void FindPLLs() override;

    // Fields.
    Frame fraPin8;
    OptionButton optFS;
    OptionButton optOE;
    ControlArray<Label> lblFS{kStates};
    ControlArray<Label> lblPllData{kStates};
    ControlArray<Label> lblClkOutput{kStates * kOutputs};
    ControlArray<Label> lblDesired{kStates * kOutputs};
    ControlArray<ListField> cboClkDiv{kOutputs};
    ControlArray<ListField> cboActual{kStates * kOutputs};
    Frame fraOption;

  protected:
    void InitializeControls() override;
    void SetDefaultOptions() override;
    void FillFromEntryFile(clsEntryFile& data) override;

  private:
    void RegisterFields();
    void ConnectEvents();

    std::array<bool, kStates> mablnPreScale{};
};

}  // namespace pendulon
