#include "configurators/frmQX4860.hpp"

#include <cstdint>

#include "app/AppServices.hpp"
#include "app/MainFace.hpp"
#include "app/mHelp.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/cls4860Die.hpp"
#include "core/clsPLL.hpp"
#include "core/clsQX4860.hpp"
#include "core/clsReference.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile4860.hpp"
#include "graphics/clsGraphics.hpp"
#include "power/clsPower4860.hpp"
#include "power/frmPower.hpp"
#include "reports/mAsciiPrintout.hpp"

namespace pendulon {

frmQX4860::frmQX4860(AppServices& app)
    : frm4860Family(app, "frmQX4860", kRows, {"QX4860", "QX4860I", "QX4860F"}) {
    CaptionOptionPair(fraPackage, "Package", opt8Pin, "8 Pin", opt14Pin, "14 Pin", "Package");
    fraOptions.SetCaption("Options");
    chkOEClockA.SetCaption("OE Clock A");
    chkOEReference.SetCaption("OE Ref Clock");
    chkPowerDown.SetCaption("Power Down");
    fraOERPDControl.SetCaption("OER PD Control");
    chkPLLStop.SetCaption("PLL only");
    chkPLLAndOscillatorStop.SetCaption("PLL && Osc.");
    fraFrequencies.SetCaption("PLL/Output Frequencies (FS3..FS0)");
    lblClkADiv.SetCaption("Clock A");
    lblRefClkDiv.SetCaption("Reference Clock");
    lblDesiredPLL.SetCaption("Desired PLL");
    lblActualRefClk.SetCaption("Actual Reference Clock");
    lblActualClkA.SetCaption("Actual Clock A");
    lblPLL.SetCaption("PLL");
    lblMinimum.SetCaption("Minimum");
    lblMaximum.SetCaption("Maximum");
    lblLimitFrequency.SetCaption("PLL");
    lblLimitP.SetCaption("P");
    lblLimitQ.SetCaption("Q");
    for (int i = 0; i < kRows; ++i) {
        txtPLL[i].SetText("Off");
        lblSelectIndex[i].SetCaption("0000");
        lblPLLDataIndex[i].SetCaption("0000");
    }
    RegisterFields();
    ConnectEvents();
}

frmQX4860::~frmQX4860() = default;

void frmQX4860::RegisterFields() {
    // Control order: the row panels first, row by row, then the options and the limits.
    for (int i = 0; i < kRows; ++i) {
        Register(ElementName("lblSelectIndex", i), lblSelectIndex[i]);
        Register(ElementName("txtPLL", i), txtPLL[i]);
        Register(ElementName("lblDesiredClkA", i), lblDesiredClkA[i]);
        Register(ElementName("cboActualClkA", i), cboActualClkA[i]);
        Register(ElementName("lblDesiredRefClk", i), lblDesiredRefClk[i]);
        Register(ElementName("cboActualRefClk", i), cboActualRefClk[i]);
        Register(ElementName("lblPLLDataIndex", i), lblPLLDataIndex[i]);
        Register(ElementName("cboPLLData", i), cboPLLData[i]);
    }
    Register("fraPackage", fraPackage);
    Register("opt8Pin", opt8Pin);
    Register("opt14Pin", opt14Pin);
    RegisterVoltageAndReference();
    Register("fraOptions", fraOptions);
    Register("chkSmoothSlew", chkSmoothSlew);
    Register("chkOEClockA", chkOEClockA);
    Register("chkOEReference", chkOEReference);
    Register("chkPowerDown", chkPowerDown);
    Register("fraOERPDControl", fraOERPDControl);
    Register("chkPLLStop", chkPLLStop);
    Register("chkPLLAndOscillatorStop", chkPLLAndOscillatorStop);
    Register("fraFrequencies", fraFrequencies);
    Register("lblClkADiv", lblClkADiv);
    Register("cboClkADiv", cboClkADiv);
    Register("lblRefClkDiv", lblRefClkDiv);
    Register("cboRefClkDiv", cboRefClkDiv);
    Register("lblDesiredPLL", lblDesiredPLL);
    Register("lblActualRefClk", lblActualRefClk);
    Register("lblActualClkA", lblActualClkA);
    Register("lblPLL", lblPLL);
    Register("vsbOutput", vsbOutput);
    Register("vsbPLLData", vsbPLLData);
    Register("picOutputDisplay", picOutputDisplay);
    Register("picPLLData", picPLLData);
    Register("lblMinimum", lblMinimum);
    Register("lblMaximum", lblMaximum);
    Register("lblLimitFrequency", lblLimitFrequency);
    Register("lblLimitP", lblLimitP);
    Register("lblLimitQ", lblLimitQ);
    RegisterLimitFields();
    RegisterCommonTail();
}

void frmQX4860::ConnectEvents() {
    opt8Pin.OnClick = [this] { opt8Pin_Click(); };
    opt14Pin.OnClick = [this] { opt14Pin_Click(); };
    chkPLLStop.OnClick = [this] { chkPLLStop_Click(); };
    chkPLLAndOscillatorStop.OnClick = [this] { chkPLLAndOscillatorStop_Click(); };
    chkOEClockA.OnClick = [this] { chkOEClockA_Click(); };
    chkOEReference.OnClick = [this] { chkOEReference_Click(); };
    chkPowerDown.OnClick = [this] { chkPowerDown_Click(); };
    cboClkADiv.OnClick = [this] { cboClkADiv_Click(); };
    cboRefClkDiv.OnClick = [this] { cboRefClkDiv_Click(); };
    for (ListField* divider : {&cboClkADiv, &cboRefClkDiv}) {
        divider->OnGotFocus = [this] { mHelp::ShowDeviceHint(12, *this); };
        divider->OnLostFocus = [this] { mHelp::ShowHint(0, *this); };
    }
    vsbOutput.OnChange = [this] { vsbOutput_Change(); };
    vsbPLLData.OnChange = [this] { vsbPLLData_Change(); };
    for (int i = 0; i < kRows; ++i) {
        // The word is CPLL on this window as well.
        ConnectPLLRow(i, "CPLL");
        cboActualClkA[i].OnClick = [this, i] { cboActualClkA_Click(i); };
        cboActualRefClk[i].OnClick = [this, i] { cboActualRefClk_Click(i); };
    }
    ConnectFamilyEvents();
}

// ---------------------------------------------------------------- objects

clsPower4860& frmQX4860::PowerModel() {
    return MadeOnFirstUse(mclsPower, App().Errors());
}

void frmQX4860::ReleaseObjects() {
    DeviceWindow::ReleaseObjects();
    mclsPower.reset();
}

// ---------------------------------------------------------------- contract operations

void frmQX4860::FillFromEntryFile(clsEntryFile& data) {
    EntryFile().Fill4860Form(data);
}

bool frmQX4860::PreScale(int index) const {
    if (index < 0 || index >= static_cast<int>(mablnPreScale.size())) {
        App().Errors().Raise(errors::SubscriptOutOfRange, "frmQX4860.PreScale [Property Get]");
        return false;
    }
    return mablnPreScale[static_cast<size_t>(index)];
}

void frmQX4860::SetPreScale(int index, bool value) {
    if (index < 0 || index >= static_cast<int>(mablnPreScale.size())) {
        App().Errors().Raise(errors::SubscriptOutOfRange, "frmQX4860.PreScale [Property Let]");
        return;
    }
    mablnPreScale[static_cast<size_t>(index)] = value;
}

const std::string& frmQX4860::PLLText(int i) const {
    return mastrPLLText.at(static_cast<size_t>(i));
}

// ---------------------------------------------------------------- load

void frmQX4860::LayOutRows() {
    for (int i = 0; i < kRows; ++i) {
        const double top = static_cast<double>(i) * kRowHeight;
        lblSelectIndex[i].Move(0, top, 600, 300);
        txtPLL[i].Move(660, top, 1200, 300);
        lblDesiredClkA[i].Move(1920, top, 1200, 300);
        cboActualClkA[i].Move(3180, top, 2400, 300);
        lblDesiredRefClk[i].Move(5640, top, 1200, 300);
        cboActualRefClk[i].Move(6900, top, 2400, 300);
        lblPLLDataIndex[i].Move(0, top, 600, 300);
        cboPLLData[i].Move(660, top, 2600, 300);
    }
}

void frmQX4860::InitializeControls() {
    lblDesiredClkA[0].SetCaption("");
    lblDesiredRefClk[0].SetCaption("");
    for (int i = 0; i < kRows; ++i) {
        txtPLL[i].SetText("Off");
        txtPLL[i].SetTag(txtPLL[i].Text());
        lblDesiredClkA[i].SetCaption("");
        lblDesiredRefClk[i].SetCaption("");
        cboActualClkA[i].Clear();
        cboActualRefClk[i].Clear();
        cboPLLData[i].Clear();
    }
    LayOutRows();
    // The defaults of the three pin options; the package step below gives them back in 14 pin
    // and keeps them aside in 8 pin.
    chkOEClockA.SetValue(1);
    chkPLLStop.SetTag(IntegerText(chkPLLStop.Value()));
    chkPLLAndOscillatorStop.SetTag(IntegerText(chkPLLAndOscillatorStop.Value()));
    chkOEReference.SetValue(1);
    chkPowerDown.SetValue(1);
    mintSavedCheck = {1, 1, 1};
    if (App().gblnWizard8Pin) {
        App().gblnWizard8Pin = false;
        if (opt8Pin.Value()) {
            UpdateFormControls();
        } else {
            opt8Pin.SetValue(true);
        }
    } else if (opt14Pin.Value()) {
        UpdateFormControls();
    } else {
        opt14Pin.SetValue(true);
    }
    Reference().InitializeReferenceComboBox(cboFRef);
    DeviceRules().InitializeClockDivisors(cboClkADiv);
    DeviceRules().InitializeClockDivisors(cboRefClkDiv);
}

void frmQX4860::InitializePLLClass() {
    frm4860Family::InitializePLLClass();
    if (lblDevice.Caption() == "QX4860F") {
        // Unbounded here; the search itself sets the die's range at every Calculate.
        PLL().mdblVCOMin = 0;
        PLL().mdblVCOMax = 10000000000.0;
    }
}

void frmQX4860::SetDefaultOptions() {
    mblnFormReady = true;
    DisplayPinout();
}

// ---------------------------------------------------------------- package

void frmQX4860::SizePanels(int last) {
    const double height = static_cast<double>(last + 1) * kRowHeight;
    picOutputDisplay.SetHeight(height);
    picPLLData.SetHeight(height);
}

void frmQX4860::UpdateFormControls() {
    Status("Updating form...");
    mblnFormReady = false;
    CheckBox* const saved[3] = {&chkOEClockA, &chkOEReference, &chkPowerDown};
    if (opt14Pin.Value()) {
        mintPLLCount = kRows;
        for (ScrollBar* bar : {&vsbOutput, &vsbPLLData}) {
            bar->SetMin(0);
            bar->SetMax(kRows - kVisibleRows);
            bar->SetVisible(true);
        }
        fraFrequencies.SetCaption("PLL/Output Frequencies (FS3..FS0)");
        SizePanels(kRows - 1);
        for (int k = 0; k < 3; ++k) {
            saved[k]->SetEnabled(true);
            saved[k]->SetValue(mintSavedCheck[static_cast<size_t>(k)]);
        }
        for (int i = 0; i < kRows; ++i) {
            const std::string bits = mShared::DisplayBinary(static_cast<std::int16_t>(i), 4);
            lblSelectIndex[i].SetCaption(bits);
            lblPLLDataIndex[i].SetCaption(bits);
            lblSelectIndex[i].SetVisible(true);
            txtPLL[i].SetVisible(true);
            lblDesiredClkA[i].SetVisible(true);
            cboActualClkA[i].SetVisible(true);
            lblDesiredRefClk[i].SetVisible(true);
            cboActualRefClk[i].SetVisible(true);
            lblPLLDataIndex[i].SetVisible(true);
            cboPLLData[i].SetVisible(true);
        }
    } else {
        for (int k = 0; k < 3; ++k) mintSavedCheck[static_cast<size_t>(k)] = saved[k]->Value();
        mintPLLCount = 4;
        for (ScrollBar* bar : {&vsbOutput, &vsbPLLData}) {
            bar->SetValue(0);
            bar->SetVisible(false);
        }
        fraFrequencies.SetCaption("PLL/Output Frequencies (FS1..FS0)");
        SizePanels(3);
        chkOEClockA.SetValue(0);
        chkOEClockA.SetEnabled(false);
        chkOEReference.SetValue(0);
        chkOEReference.SetEnabled(false);
        chkPowerDown.SetValue(1);
        chkPowerDown.SetEnabled(false);
        chkPLLStop.SetValue(0);
        chkPLLStop.SetEnabled(false);
        chkPLLAndOscillatorStop.SetValue(0);
        chkPLLAndOscillatorStop.SetEnabled(false);
        for (int i = 0; i < kRows; ++i) {
            const bool inUse = i < 4;
            if (inUse) {
                const std::string bits = mShared::DisplayBinary(static_cast<std::int16_t>(i), 2);
                lblSelectIndex[i].SetCaption(bits);
                lblPLLDataIndex[i].SetCaption(bits);
            }
            lblSelectIndex[i].SetVisible(inUse);
            txtPLL[i].SetVisible(inUse);
            lblDesiredClkA[i].SetVisible(inUse);
            cboActualClkA[i].SetVisible(inUse);
            lblDesiredRefClk[i].SetVisible(inUse);
            cboActualRefClk[i].SetVisible(inUse);
            lblPLLDataIndex[i].SetVisible(inUse);
            cboPLLData[i].SetVisible(inUse);
        }
    }
    mablnPreScale.resize(static_cast<size_t>(mintPLLCount), false);
    // The saved texts of rows beyond the package stay, so that they come back with 14 pin.
    if (mastrPLLText.size() < static_cast<size_t>(mintPLLCount))
        mastrPLLText.resize(static_cast<size_t>(mintPLLCount));
    // Rows that come into use follow the dividers as the rows already in use do.
    EnablePLLTextboxes();
    mblnFormReady = true;
    DisplayPinout();
    Status("");
}

void frmQX4860::opt8Pin_Click() {
    UpdateFormControls();
    MarkCalculateDue();
}

void frmQX4860::opt14Pin_Click() {
    UpdateFormControls();
    MarkCalculateDue();
}

// ---------------------------------------------------------------- scrolling

void frmQX4860::vsbOutput_Change() {
    picOutputDisplay.SetTop(-static_cast<double>(kRowHeight) * vsbOutput.Value());
    if (vsbPLLData.Value() != vsbOutput.Value())
        vsbPLLData.SetValue(vsbOutput.Value());
}

void frmQX4860::vsbPLLData_Change() {
    picPLLData.SetTop(-static_cast<double>(kRowHeight) * vsbPLLData.Value());
    if (vsbOutput.Value() != vsbPLLData.Value())
        vsbOutput.SetValue(vsbPLLData.Value());
}

void frmQX4860::AdjustScrollBar(int i) {
    ScrollBar& bar = vsbPLLData;
    if (i == 0) {
        bar.SetValue(bar.Min());
    } else if (i == kRows - 1) {
        bar.SetValue(bar.Max());
    } else if (bar.Value() < i - (kVisibleRows - 1)) {
        bar.SetValue(bar.Value() + 1);
    } else if (bar.Value() > i) {
        bar.SetValue(bar.Value() - 1);
    }
}

// ---------------------------------------------------------------- Calculate

void frmQX4860::cmdCalculate_Click() {
    const bool wasEnabled = Enabled();
    SetEnabled(false);
    Status("Calculating...");
    const int scrolled = vsbPLLData.Value();
    FillBlankPLLs();
    FindPLLs();
    CalculateAllDesiredClocks();
    DisplayAllActuals();
    CalculatePower();
    App().Main().FileChange();
    vsbPLLData.SetValue(scrolled);
    Status("");
    App().gblnNeedsCalculate = false;
    cmdCalculate.SetBackColor(colors::Grey);
    SetEnabled(wasEnabled);
    if (Enabled())
        SetFocus();
}

void frmQX4860::FillBlankPLLs() {
    double first = 0;
    for (int i = 0; i < mintPLLCount; ++i) {
        if (Frequency(i) > 0) {
            first = Frequency(i);
            break;
        }
    }
    if (!(first > 0))
        return;
    const std::string text = mShared::FormatFrequencyLong(first);
    for (int i = 0; i < mintPLLCount; ++i) {
        if (Frequency(i) <= 0)
            txtPLL[i].SetText(text);
    }
}

void frmQX4860::FindPLLs() {
    clsPLL& pll = PLL();
    cls4860Die& die = Die();
    pll.mdblReferenceFrequency = Val(cboFRef.Text());
    pll.mdblVCOMax = die.MaximumPLLVoltage();
    pll.mdblVCOMin = die.MinimumPLLVoltage();
    const auto maximumQ = static_cast<std::int32_t>(RoundHalfEven(die.MaximumQ()));
    for (int i = 0; i < mintPLLCount; ++i) {
        // Each row decides its own prescale. A shared prescale for smooth slew was once meant to
        // apply, but its guard never holds, so the per-row rule always decides.
        const int scale = 2 * Frequency(i) < die.MaximumPLLVoltage() ? 2 : 1;
        SetPreScale(i, scale == 2);
        const double target = Frequency(i) * scale;
        if (chkSmoothSlew.Value() != 0) {
            pll.mdblMaxQ = DeviceRules().GetMaximumQWithSmoothSlew(
                *this, target, pll.mdblReferenceFrequency, maximumQ,
                static_cast<std::int16_t>(mintPLLCount));
        } else {
            pll.mdblMaxQ = DeviceRules().GetMaximumQ(pll.mdblReferenceFrequency, maximumQ);
        }
        pll.mdblTargetVCO = target;
        bool cpll = false;
        pll.FindPAndQ(false, 0.15, cpll);
        pll.StorePLLData(cboPLLData[i]);
    }
}

void frmQX4860::DesiredClock(ListField& divider, Label& desired, int i) {
    const std::string source = divider.Text();
    double value = 0;
    if (Trim(source) == "Off") {
        value = 0;
    } else if (StartsWith(source, 'R')) {
        value = Val(cboFRef.Text());
    } else {
        value = Frequency(i);
    }
    if (value <= 0) {
        desired.SetCaption(" Off");
        desired.SetForeColor(colors::WindowText);
        return;
    }
    const std::int32_t divisor = mShared::GetNonZeroDivisor(source);
    std::string caption = " ";
    caption += mShared::FormatFrequencyFixed(value / divisor, -9999);
    desired.SetCaption(caption);
    if (txtPLL[i].ForeColor() == colors::Red) {
        desired.SetForeColor(colors::Red);
    } else {
        CheckOutputLimits(desired);
    }
}

void frmQX4860::CalculateDesiredClock(int i) {
    DesiredClock(cboClkADiv, lblDesiredClkA[i], i);
    DesiredClock(cboRefClkDiv, lblDesiredRefClk[i], i);
}

void frmQX4860::CalculateAllDesiredClocks() {
    for (int i = 0; i < kRows; ++i) CalculateDesiredClock(i);
}

void frmQX4860::DisplayAllActuals() {
    for (int i = 0; i < mintPLLCount; ++i) {
        DisplayActualOutput(cboClkADiv, Val(lblDesiredClkA[i].Caption()), cboActualClkA[i], i);
        DisplayActualOutput(cboRefClkDiv, Val(lblDesiredRefClk[i].Caption()), cboActualRefClk[i],
                            i);
    }
}

void frmQX4860::DisplayActualOutput(ListField& divider, double desired, ListField& actual, int i) {
    const std::string source = divider.Text();
    if (Trim(source) == "Off") {
        actual.Clear();
        actual.AddItem("Off");
        actual.SetListIndex(0);
        return;
    }
    const std::int32_t divisor = mShared::GetNonZeroDivisor(source);
    if (StartsWith(source, 'R')) {
        actual.Clear();
        actual.AddItem(PLL().GetActualFrequencyPPM(Val(cboFRef.Text()) / divisor, 0));
        actual.SetListIndex(0);
    } else {
        const std::int32_t factor = PreScale(i) ? 2 : 1;
        PLL().DisplayActualPPM(cboPLLData[i], actual, desired, divisor * factor);
    }
    if (txtPLL[i].ForeColor() == colors::Red) {
        actual.SetForeColor(colors::Red);
    } else {
        mShared::CheckLimits(actual, 0.5, OutputMaximum());
    }
}

void frmQX4860::CheckPLLLimits() {
    const bool clockAFromPLL = StartsWith(cboClkADiv.Text(), 'P');
    const bool referenceFromPLL = StartsWith(cboRefClkDiv.Text(), 'P');
    for (int i = 0; i < kRows; ++i) {
        mShared::CheckLimits(txtPLL[i], Die().MinimumPLLVoltage(), Die().MaximumPLLVoltage());
        if (txtPLL[i].ForeColor() != colors::Red)
            continue;
        if (clockAFromPLL) {
            lblDesiredClkA[i].SetForeColor(colors::Red);
            cboActualClkA[i].SetForeColor(colors::Red);
        }
        if (referenceFromPLL) {
            lblDesiredRefClk[i].SetForeColor(colors::Red);
            cboActualRefClk[i].SetForeColor(colors::Red);
        }
    }
}

// ---------------------------------------------------------------- dividers and lists

void frmQX4860::EnablePLLTextboxes() {
    if (cboClkADiv.ListCount() == 0 || cboRefClkDiv.ListCount() == 0)
        return;
    if (StartsWith(cboClkADiv.Text(), 'R') && StartsWith(cboRefClkDiv.Text(), 'R')) {
        for (int i = 0; i < mintPLLCount; ++i) {
            if (!txtPLL[i].Enabled())
                continue;
            mastrPLLText[static_cast<size_t>(i)] = txtPLL[i].Text();
            txtPLL[i].SetText("Off");
            txtPLL[i].SetEnabled(false);
        }
    } else {
        for (int i = 0; i < mintPLLCount; ++i) {
            if (txtPLL[i].Enabled())
                continue;
            txtPLL[i].SetEnabled(true);
            const std::string& saved = mastrPLLText[static_cast<size_t>(i)];
            txtPLL[i].SetText(saved.empty() ? "Off" : saved);
        }
    }
}

void frmQX4860::cboClkADiv_Click() {
    EnablePLLTextboxes();
    CalculateAllDesiredClocks();
    MarkCalculateDue();
}

void frmQX4860::cboRefClkDiv_Click() {
    EnablePLLTextboxes();
    CalculateAllDesiredClocks();
    MarkCalculateDue();
}

void frmQX4860::cboPLLData_Click(int Index) {
    const int n = cboPLLData[Index].ListIndex();
    if (StartsWith(cboClkADiv.Text(), 'P') && cboActualClkA[Index].ListCount() > n &&
        cboActualClkA[Index].ListIndex() != n) {
        cboActualClkA[Index].SetListIndex(n);
    }
    if (StartsWith(cboRefClkDiv.Text(), 'P') && cboActualRefClk[Index].ListCount() > n &&
        cboActualRefClk[Index].ListIndex() != n) {
        cboActualRefClk[Index].SetListIndex(n);
    }
}

void frmQX4860::ActualClick(ListField& divider, ListField& actual, int i) {
    const bool fromPLL = StartsWith(divider.Text(), 'P');
    const int n = actual.ListIndex();
    if (fromPLL && cboPLLData[i].ListIndex() != n) {
        if (n >= 0 && n < cboPLLData[i].ListCount())
            cboPLLData[i].SetListIndex(n);
        AdjustScrollBar(i);
    }
    if (fromPLL && txtPLL[i].ForeColor() == colors::Red) {
        actual.SetForeColor(colors::Red);
    } else {
        CheckOutputLimits(actual);
    }
}

void frmQX4860::cboActualClkA_Click(int Index) {
    ActualClick(cboClkADiv, cboActualClkA[Index], Index);
}

void frmQX4860::cboActualRefClk_Click(int Index) {
    ActualClick(cboRefClkDiv, cboActualRefClk[Index], Index);
}

// ---------------------------------------------------------------- inputs and options

void frmQX4860::chkPLLStop_Click() {
    if (chkPLLStop.Value() == 1)
        chkPLLAndOscillatorStop.SetValue(0);
}

void frmQX4860::chkPLLAndOscillatorStop_Click() {
    if (chkPLLAndOscillatorStop.Value() == 1)
        chkPLLStop.SetValue(0);
}

void frmQX4860::chkOEClockA_Click() {
    DisplayPinout();
}

void frmQX4860::chkPowerDown_Click() {
    DisplayPinout();
}

void frmQX4860::chkOEReference_Click() {
    CheckBox* const stops[2] = {&chkPLLStop, &chkPLLAndOscillatorStop};
    if (chkOEReference.Value() == 1) {
        fraOERPDControl.SetEnabled(true);
        for (CheckBox* stop : stops) {
            stop->SetEnabled(true);
            stop->SetValue(static_cast<int>(Val(stop->Tag())));
        }
    } else {
        for (CheckBox* stop : stops) {
            stop->SetTag(IntegerText(stop->Value()));
            stop->SetValue(0);
            stop->SetEnabled(false);
        }
        fraOERPDControl.SetEnabled(false);
    }
    DisplayPinout();
}

// ---------------------------------------------------------------- pinout and power

void frmQX4860::DisplayPinout() {
    Graphics().mintPackage = Graphics().SOIC();
    if (!mblnFormReady)
        return;
    if (opt8Pin.Value()) {
        mAsciiPrintout::GetPinout4860p8(mastrPinName, "");
    } else {
        mAsciiPrintout::GetPinout4860p14(mastrPinName, "powerdown");
        if (mastrPinName.size() > 10) {
            if (chkPowerDown.Value() != 1)
                mastrPinName[6] = "OE";
            if (chkOEClockA.Value() != 1)
                mastrPinName[10] = "NC";
            if (chkOEReference.Value() != 1)
                mastrPinName[9] = "NC";
        }
    }
    Graphics().DrawChip(picPinout, lblDevice.Caption(), mastrPinName, 1.0);
}

void frmQX4860::CalculatePower() {
    frmPower& power = App().Power();
    power.SetParentForm(this);
    power.SetColCount(3);
    const bool pins14 = opt14Pin.Value();
    power.SetRowCount(mintPLLCount);
    power.SetHead(0, pins14 ? "FS3:FS0" : "FS1:FS0");
    power.SetHead(1, "Typical");
    power.SetHead(2, "Worst");
    power.SetUnit(0, "");
    power.SetUnit(1, "mA ");
    power.SetUnit(2, "mA");
    clsPower4860& model = PowerModel();
    model.SetVDD(opt3V.Value() ? 3.3 : 5.0);
    model.mdblFClock3 = 0;
    model.mdblReferenceFrequency = Val(cboFRef.Text());
    const int width = pins14 ? 4 : 2;
    for (int r = 0; r < mintPLLCount; ++r) {
        model.mdblFCore = Val(cboPLLData[r].Text());
        model.mdblFClock1 = Val(cboActualClkA[r].Text());
        model.mdblFClock2 = Val(cboActualRefClk[r].Text());
        power.SetCell(
            r, 0,
            mShared::DisplayBinary(static_cast<std::int16_t>(r), static_cast<std::int16_t>(width)) +
                std::string(static_cast<size_t>(5 - width), ' '));
        power.SetCell(r, 1, GeneralNumber(model.CalculateICC(1)));
        power.SetCell(r, 2, GeneralNumber(model.CalculateICC(0)));
    }
    power.ShowPower();
}

}  // namespace pendulon
