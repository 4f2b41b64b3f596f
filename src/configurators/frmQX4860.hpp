#pragma once
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "configurators/frm4860Family.hpp"
#include "platform/ScrollBar.hpp"

namespace pendulon {

class clsPower4860;

// The QX4860, QX4860F and QX4860I: one PLL whose frequency is picked by the select lines (FS1..FS0
// in the 8-pin package, FS3..FS0 in the 14-pin package) and two outputs, Clock A and the
// reference clock, each fed from the PLL or the reference through one divider for all rows.
// Each row has its own counters; a row may run its VCO at twice the frequency behind a
// divide-by-two prescaler.
class frmQX4860 : public frm4860Family {
  public:
    explicit frmQX4860(AppServices& app);
    ~frmQX4860() override;

    static constexpr int kRows = 16;
    // Height of a row of the two row panels, in twips; four rows are visible at a time.
    static constexpr int kRowHeight = 360;
    static constexpr int kVisibleRows = 4;

    // Configurator
    void CalculatePower() override;
    void DisplayAllActuals() override;
    bool PreScale(int index) const override;
    void SetPreScale(int index, bool value) override;
    void cmdCalculate_Click() override;
    void CheckPLLLimits() override;
    void CalculateAllDesiredClocks() override;
    void FindPLLs() override;

    // Procedures of the window.
    void UpdateFormControls();
    void FillBlankPLLs();
    void CalculateDesiredClock(int i);
    void DisplayActualOutput(ListField& divider, double desired, ListField& actual, int i);
    void EnablePLLTextboxes();
    void AdjustScrollBar(int i);
    void DisplayPinout();
    // Highest output frequency of the device at the present voltage.

    // Event procedures.
    void opt8Pin_Click();
    void opt14Pin_Click();
    void cboClkADiv_Click();
    void cboRefClkDiv_Click();
    void cboPLLData_Click(int Index) override;
    void cboActualClkA_Click(int Index);
    void cboActualRefClk_Click(int Index);
    void vsbOutput_Change();
    void vsbPLLData_Change();
    void chkPLLStop_Click();
    void chkPLLAndOscillatorStop_Click();
    void chkOEClockA_Click();
    void chkOEReference_Click();
    void chkPowerDown_Click();

    // State the tests and the entry file look at.
    int PLLCount() const { return mintPLLCount; }
    bool FormReady() const { return mblnFormReady; }
    const std::string& PLLText(int i) const;

    // The power model of the window, created on first use.
    clsPower4860& PowerModel();

    // Fields, one row per frequency selection.
    ControlArray<Label> lblSelectIndex{kRows};
    ControlArray<Label> lblDesiredClkA{kRows};
    ControlArray<ListField> cboActualClkA{kRows};
    ControlArray<Label> lblDesiredRefClk{kRows};
    ControlArray<ListField> cboActualRefClk{kRows};
    ControlArray<Label> lblPLLDataIndex{kRows};

    Frame fraPackage;
    OptionButton opt8Pin;
    OptionButton opt14Pin;
    Frame fraOptions;
    CheckBox chkOEClockA;
    CheckBox chkOEReference;
    CheckBox chkPowerDown;
    Frame fraOERPDControl;
    CheckBox chkPLLStop;
    CheckBox chkPLLAndOscillatorStop;
    Frame fraFrequencies;
    Label lblClkADiv;
    ListField cboClkADiv;
    Label lblRefClkDiv;
    ListField cboRefClkDiv;
    Label lblDesiredPLL;
    Label lblActualRefClk;
    Label lblActualClkA;
    Label lblPLL;
    Label lblMinimum;
    Label lblMaximum;
    Label lblLimitFrequency;
    Label lblLimitP;
    Label lblLimitQ;
    ScrollBar vsbOutput;
    ScrollBar vsbPLLData;
    PictureBox picOutputDisplay;
    PictureBox picPLLData;

  protected:
    void InitializeControls() override;
    void InitializePLLClass() override;
    void SetDefaultOptions() override;
    void FillFromEntryFile(clsEntryFile& data) override;
    void ReleaseObjects() override;

  private:
    void RegisterFields();
    void ConnectEvents();
    void LayOutRows();
    // The list and its row fields of one output.
    void DesiredClock(ListField& divider, Label& desired, int i);
    void ActualClick(ListField& divider, ListField& actual, int i);
    // The row panels end at the bottom of row last.
    void SizePanels(int last);

    int mintPLLCount = 16;
    bool mblnFormReady = false;
    std::vector<bool> mablnPreScale;
    std::vector<std::string> mastrPLLText;
    std::array<int, 3> mintSavedCheck{1, 1, 1};

    std::unique_ptr<clsPower4860> mclsPower;
};

}  // namespace pendulon
