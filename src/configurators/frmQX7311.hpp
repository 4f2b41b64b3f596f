#pragma once
#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "configurators/frm7311Family.hpp"

namespace pendulon {

class clsPower7311;

// The QX7311, QX7311F, QX7311I, QX7312, QX7312F and QX7312I: three loops (CPLL with eight
// frequencies picked by the select lines S2:S0, SPLL feeding a long divider chain, UPLL) and the
// outputs CPU, CLKA to CLKD, CLKF and XBUF, each with its own source and divisor. The QX7312
// models have no CLKF and no 32.768 kHz output.
class frmQX7311 : public frm7311Family {
  public:
    explicit frmQX7311(AppServices& app);
    ~frmQX7311() override;

    static constexpr int kRows = 8;
    static constexpr int kClocks = 4;

    // Configurator
    void SetDevice(const std::string& device) override;
    void CalculatePower() override;
    void DisplayAllActuals() override;
    void CheckPLLLimits() override;
    void FindPLLs() override;

    // Procedures of the window.
    void SetPLLValues();
    void InitializeAllPLLClasses();
    void InitializePLLDataComboBoxes();
    void InitializeCPUDivisorComboBox();
    void InitializeXBuffDivisorComboBox();
    void InitializeClockFDivisorComboBox();
    void InitializeClockDivisors(ListField& list, int index);
    void ResetForm();
    void ResetDesiredLabels();
    void DisplayDesired(ListField& source, Label& label);
    void DisplayPinout();
    void ResetCPLL(int index);
    void MatchListIndex(ListField& target, ListField& source);
    void MatchActualClockIndex(ListField& source, const std::string& letter);
    void MatchSourceIndex(const std::string& text, ListField& list);
    void DisableSuspendCheckBox(CheckBox& box);
    void EnableSuspendCheckBox(CheckBox& box, const std::string& text);
    void CheckSuspend(const std::string& text, CheckBox& box);

    // Event procedures.
    void opt7311_Click();
    void opt7312_Click();
    void cboFRef_Click();
    void cboCPU_Click();
    void cboClk_Click(int Index);
    void cboClkF_Click();
    void cboXBuff_Click();
    void cboSPLL_Click();
    void cboUPLL_Click();
    void cboCPLL_Click(int Index);
    void cboSPLLData_Click();
    void cboUPLLData_Click();
    void cboCPLLData_Click(int Index);
    void cboActualClk_Click(int Index);
    void cboActualClkF_Click();
    void chkSuspend_Click();
    void chkOffCPLL_Click();
    void chkSuspendCPLL_Click();
    void chkShutdown_Click();
    void txtCPLL_Change(int Index);
    void txtSPLL_Change();
    void txtUPLL_Change();
    void txtCPLL_LostFocus(int Index);
    void txtSPLL_LostFocus();
    void txtUPLL_LostFocus();

    // The saved value of a suspend box, kept while the box is disabled.
    int SavedCheck(const CheckBox& box) const;
    // True for a CPLL row that the suspend logic itself turned "Off".
    bool CPLLTurnedOff(int row) const { return mablnCPLLOff.at(static_cast<size_t>(row)); }
    // The power model of the window, created on first use.
    clsPower7311& PowerModel();
    // The loop limits of the present voltage, in MHz.
    double CPLLMinimum();
    double CPLLMaximum();
    double SPLLMinimum();
    double SPLLMaximum();
    double UPLLMinimum();
    double UPLLMaximum();

    // Fields.
    Frame fraModel;
    OptionButton opt7311;
    OptionButton opt7312;
    Frame fraVoltage;
    Frame fraReference;
    Label lblFRefMin;
    Label lblFRefMax;
    Frame fraOptions;
    CheckBox chkSuspend;
    CheckBox chkShutdown;

    Frame fraCPLL;
    ControlArray<Label> lblSelect{kRows};
    ControlArray<TextField> txtCPLL{kRows};
    ControlArray<ListField> cboCPLL{kRows};
    CheckBox chkOffCPLL;
    Frame fraSPLL;
    TextField txtSPLL;
    ListField cboSPLL;
    Frame fraUPLL;
    TextField txtUPLL;
    ListField cboUPLL;

    Frame fraPLLData;
    ControlArray<Label> lblCPLLData{kRows};
    Label lblSPLLData;
    Label lblPllData;

    Frame fraOutputs;
    Label lblOutputSuspend;
    Label lblOutputActual;
    Label lblOutputDesired;
    Label lblCPU;
    ListField cboCPU;
    Label lblDesiredCPU;
    ListField cboActualCPU;
    CheckBox chkSusCPU;
    ControlArray<Label> lblClk{kClocks};
    ControlArray<ListField> cboClk{kClocks};
    ControlArray<Label> lblDesiredClk{kClocks};
    ControlArray<ListField> cboActualClk{kClocks};
    ControlArray<CheckBox> chkSusClk{kClocks};
    Label lblXBuff;
    ListField cboXBuff;
    Label lblDesiredXBuff;
    ListField cboActualXBuff;
    CheckBox chkSusXbuff;
    PictureBox pic7311Only;
    Label lblClkF;
    ListField cboClkF;
    Label lblDesiredClkF;
    ListField cboActualClkF;
    CheckBox chkSusClkF;
    Label lbl32k;
    Label lblDesired32K;

    Frame fraPinout;
    Label lblMinimum;
    Label lblMaximum;
    ControlArray<Label> lblLimit{4};

  protected:
    void InitializeControls() override;
    void InitializeDieClass() override;
    void InitializePLLClass() override;
    void SetDefaultOptions() override;
    void FillFromEntryFile(clsEntryFile& data) override;
    void ReleaseObjects() override;

  private:
    void RegisterFields();
    void ConnectEvents();
    void LeaveLoopField(TextField& field, double minimum, double maximum);
    void TurnOff(int row);
    void TurnOn(int row);
    // Output list click: the desired label, the suspend box, the colours.
    void OutputClicked(ListField& source, Label& desired, CheckBox& box);
    void PaintLikeLoop(ListField& source, Label& desired);

    std::map<const CheckBox*, int> mintSavedCheck;
    std::array<bool, kRows> mablnCPLLOff{};
    int mvarOffCPLL = 0;
    int mvarSuspend = 0;
    // The device-form option being changed by this window; stops the echo of its click.
    bool mblnSettingDevice = false;

    std::unique_ptr<clsPower7311> mclsPower;
};

}  // namespace pendulon
