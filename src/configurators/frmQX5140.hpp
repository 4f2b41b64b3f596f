#pragma once
#include <memory>
#include <string>
#include <vector>

#include "configurators/clsCaseSearch.hpp"
#include "configurators/frm7311Family.hpp"
#include "platform/ScrollBar.hpp"

namespace pendulon {

class clsPLL;

// The QX5140: three loops (CPLL, SPLL, UPLL) and three outputs (CLKA, CLKB, CLKC). The engineer
// gives only the frequencies; Calculate finds the cases, the assignments of loops, dividers and
// the reference to the outputs, and each further press shows the next case. CLKA has a second
// frequency for the other state of the select pin in Select/Suspend mode, where it sits on
// CPLL.
class frmQX5140 : public frm7311Family {
  public:
    explicit frmQX5140(AppServices& app);
    ~frmQX5140() override;

    // Configurator
    void SetDevice(const std::string& device) override;
    bool MakeEPROMVector(const std::string& path, bool fromForm) override;
    // Fills the window from a read entry file: the desired values, a fresh search, and the
    // stored case looked up among the cases found now. False when the file's reference cannot
    // be taken, and the window is not shown.
    bool FillForm(clsEntryFile& data, const std::string& path) override;
    void CalculatePower() override;
    void DisplayAllActuals() override;
    void CheckPLLLimits() override;
    void cmdApplyLimits_Click() override;
    void cmdCalculate_Click() override;
    void Form_Load() override;

    // The search results: one row per case, the case on show, the last desired frequencies.
    const std::vector<clsCaseSearch::Row>& mstrSources() const { return mclsSearch->mstrSources; }
    clsCaseSearch& Search() { return *mclsSearch; }

    // Event procedures.
    void optOE_Click();
    void optShutdown_Click();
    void optSelect_Click();
    void optSuspendOutputsOnly_Click();
    void optSuspendOutputsAndPLLs_Click();
    void opt3V_Click();
    void opt5V_Click();
    void chkSuspendClockA_Click();
    void chkSuspendClockB_Click();
    void chkSuspendClockC_Click();
    void chkUseDefault_Click();
    void vsbPPM_Change();
    void txtPPM_LostFocus();
    void txtClkA_LostFocus(int Index);
    void txtClkB_LostFocus();
    void txtClkC_LostFocus();
    void cboCPLLData_Click(int Index);
    void cboSPLLData_Click();
    void cboUPLLData_Click();
    void cboClkA_Click(int Index);
    void cboClkB_Click();
    void cboClkC_Click();
    // Draws the chip with the present use of pin 8.
    void DisplayPinout();

    // Fields, in the window's control order.
    Frame fraPin8Option;
    OptionButton optOE;
    OptionButton optShutdown;
    OptionButton optSelect;
    Frame fraSuspend;
    OptionButton optSuspendOutputsOnly;
    OptionButton optSuspendOutputsAndPLLs;
    Frame fraSensitivity;
    TextField txtPPM;
    ScrollBar vsbPPM;
    Label lblSensitivity;
    ControlArray<Label> lblClkA{2};
    Label lblClkB;
    Label lblClkC;
    ControlArray<TextField> txtClkA{2};
    TextField txtClkB;
    TextField txtClkC;
    ControlArray<ListField> cboClkA{2};
    ListField cboClkB;
    ListField cboClkC;
    Label lblClkASrc;
    Label lblClkBSrc;
    Label lblClkCSrc;
    Frame fraPllAssignment;
    ControlArray<Label> lblClkSrcDiv{3};
    Label lblClkASrcDiv;
    Label lblClkBSrcDiv;
    Label lblClkCSrcDiv;
    CheckBox chkSuspendClockA;
    CheckBox chkSuspendClockB;
    CheckBox chkSuspendClockC;
    Label lblPrivatePLL;
    CheckBox chkPrivatePLLClockA;
    CheckBox chkPrivatePLLClockB;
    CheckBox chkPrivatePLLClockC;
    Frame fraSuspenPlls;
    ControlArray<Label> lblSuspendPLL{3};
    // chkSuspendCPLL, chkSuspendSPLL, chkSuspendUPLL and the loops' data lists cboCPLLData (two
    // select states), cboSPLLData, cboUPLLData are the family's.
    Frame fraPLLData;
    ControlArray<Label> lblPLLData{4};
    ControlArray<Label> lblLimits{4};
    Label lblMin;
    Label lblMax;
    Label lblCaseMessage;
    Frame fraPinout;

    // State read by name by other parts of the program.
    bool mblnInputsChanged = false;
    double mdblMaximumOutput = 0;
    double mdblMinimumOutput = 0;
    bool mblnSelectWasLast = false;
    bool mblnSuspendOutputsOnly = true;

  protected:
    void ReleaseObjects() override;
    void AttachEntryFile() override;

  private:
    void RegisterFields();
    void ConnectEvents();
    // Load steps.
    bool InitializeDieClass5140();
    void InitializeControls5140();
    void InitializeAllPLLClasses();
    // Calculate steps.
    void InitializeAllVCOPAndQ();
    void SetPLLValues();
    void FindClockSources();
    void StorePLLPandQ(double dblFrequency, const std::string& strS, int intWhichCase);
    std::string DisplayClockSource(const std::string& strSource);
    void DisplayActualOutput(const TextField& txtDesired, const std::string& strSource,
                             ListField& cboDestination, int intWhichCase);
    void SetActualListIndex(const std::string& strSource, ListField& cboDestination, int intIndex,
                            const std::string& strPLL);
    void MatchOutputSelects(int intIndex, const std::string& strSource, int varIndex = -1);
    void OutputClick(ListField& cboOutput, const TextField& txtDesired, const Label& lblSource,
                     int Index);
    // Suspend state.
    void SetAllSuspends();
    void SetSuspendState();
    void SetSuspendClockA();
    void SetPLLSuspends();
    void LeaveClockField(TextField& field, bool selectBranch);
    // The reference as the divided-reference outputs see it: the list entry, or the typed
    // text when no entry is selected.
    double ReferenceEntry() const;
    // Minimum / 16 and maximum of a loop by its label name ("PLL1", "PLL2", "PLL3").
    bool LoopRange(const std::string& label, double& minimum, double& maximum);
    clsPLL* LoopOfLetter(char letter);

    std::unique_ptr<clsCaseSearch> mclsSearch;

    // One-shot flags of the suspend routines: in which state each last acted.
    bool mblnSuspendFieldsShown = false;
    bool mblnSuspendFieldsHidden = false;
    bool mblnClockASuspended = false;
    bool mblnClockARunning = false;
    bool mblnSelectRowHidden = false;
    bool mblnSelectRowShown = false;
    // Set while the suspend checks are forced by a change of mode: CLKA's frequency follows only
    // the user's own click on its check.
    bool mblnForcingSuspendChecks = false;
};

}  // namespace pendulon
