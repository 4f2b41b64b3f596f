#include "configurators/frmQX6105A.hpp"

#include "app/AppServices.hpp"
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

namespace {

const char* const kOutputNames[] = {"CLKA", "CLKB", "CLKC"};

}  // namespace

frmQX6105A::frmQX6105A(AppServices& app)
    : frm4860Family(app, "frmQX6105A", kStates, {"QX6105A", "QX6105AI", "QX6105AF"}) {
    CaptionOptionPair(fraPin8, "Pin 8", optFS, "Frequency &Select", optOE, "&Output Enable",
                      "Pin8");
    fraOption.SetCaption("Option");
    for (int i = 0; i < kStates; ++i) {
        lblFS[i].SetCaption("FS = " + std::to_string(i));
        lblPllData[i].SetCaption("PLL[" + std::to_string(i) + "]");
    }
    for (int k = 0; k < kStates * kOutputs; ++k) {
        lblClkOutput[k].SetCaption(std::string(kOutputNames[k % kOutputs]) + " [" +
                                   std::to_string(k / kOutputs) + "]");
    }
    RegisterFields();
    ConnectEvents();
}

frmQX6105A::~frmQX6105A() = default;

void frmQX6105A::RegisterFields() {
    RegisterArray("lblFS", lblFS);
    RegisterArray("txtPLL", txtPLL);
    RegisterArray("lblPllData", lblPllData);
    RegisterArray("cboPLLData", cboPLLData);
    RegisterArray("lblClkOutput", lblClkOutput);
    RegisterArray("lblDesired", lblDesired);
    RegisterArray("cboClkDiv", cboClkDiv);
    RegisterArray("cboActual", cboActual);
    Register("fraPin8", fraPin8);
    Register("optFS", optFS);
    Register("optOE", optOE);
    Register("fraOption", fraOption);
    Register("chkSmoothSlew", chkSmoothSlew);
    RegisterVoltageAndReference();
    RegisterLimitFields();
    RegisterCommonTail();
}

void frmQX6105A::ConnectEvents() {
    optFS.OnClick = [this] { optFS_Click(); };
    optOE.OnClick = [this] { optOE_Click(); };
    for (int i = 0; i < kStates; ++i) {
        ConnectPLLRow(i, "PLL");
    }
    for (int j = 0; j < kOutputs; ++j) {
        cboClkDiv[j].OnClick = [this, j] {
            cboClkDiv_Click(j);
            MarkCalculateDue();
        };
        cboClkDiv[j].OnGotFocus = [this] { mHelp::ShowDeviceHint(12, *this); };
        cboClkDiv[j].OnLostFocus = [this] { mHelp::ShowHint(0, *this); };
    }
    for (int k = 0; k < kStates * kOutputs; ++k) {
        cboActual[k].OnClick = [this, k] { cboActual_Click(k); };
    }
    ConnectFamilyEvents();
}

// ---------------------------------------------------------------- objects

// ---------------------------------------------------------------- device and load

void frmQX6105A::SetDevice(const std::string& device) {
    frm4860Family::SetDevice(device);
    opt5V.SetEnabled(device != "QX6105AI");
}

void frmQX6105A::DisplayPinout() {
    const std::string device = lblDevice.Caption();
    if (device != "QX6105A" && device != "QX6105AF" && device != "QX6105AI") {
        RaiseError(10301, "DisplayPinout", "Invalid device: " + device);
        return;
    }
    mAsciiPrintout::GetPinout6105A(mastrPinName, optFS.Value() ? "Select" : "OE");
    Graphics().DrawChip(picPinout, device, mastrPinName, 1.0);
    picPinout.Refresh();
}

void frmQX6105A::InitializeControls() {
    mablnPreScale = {};
    Reference().InitializeReferenceComboBox(cboFRef);
    for (int j = 0; j < kOutputs; ++j) DeviceRules().InitializeClockDivisors(cboClkDiv[j]);
    for (int i = 0; i < kStates; ++i) {
        cboPLLData[i].Clear();
        if (txtPLL[i].Text().empty())
            txtPLL[i].SetText("Off");
        txtPLL[i].SetTag(txtPLL[i].Text());
    }
    for (int k = 0; k < kStates * kOutputs; ++k) cboActual[k].Clear();
}

void frmQX6105A::SetDefaultOptions() {
    chkSmoothSlew.SetValue(0);
    // Pin 8 starts as output enable; run its step even when the option is already set.
    if (optOE.Value()) {
        optOE_Click();
    } else {
        optOE.SetValue(true);
    }
}

// ---------------------------------------------------------------- prescale

bool frmQX6105A::PreScale(int index) const {
    if (index < 0 || index >= kStates)
        return false;
    return mablnPreScale[static_cast<size_t>(index)];
}

void frmQX6105A::SetPreScale(int index, bool value) {
    if (index < 0 || index >= kStates) {
        App().Errors().Raise(errors::SubscriptOutOfRange, "frmQX6105A.PreScale [Property Let]");
        return;
    }
    mablnPreScale[static_cast<size_t>(index)] = value;
}

// ---------------------------------------------------------------- Calculate

void frmQX6105A::FindPLLs() {
    clsPLL& pll = PLL();
    cls4860Die& die = Die();
    const double reference = Val(cboFRef.Text());
    pll.mdblReferenceFrequency = reference;
    pll.mdblMinP = die.MinimumP();
    pll.mdblMinQ = die.MinimumQ();
    pll.mdblMaxP = die.MaximumP();
    pll.mdblVCOMax = die.MaximumPLLVoltage();
    pll.mdblVCOMin = die.MinimumPLLVoltage();
    const auto maximumQ = static_cast<std::int32_t>(RoundHalfEven(die.MaximumQ()));
    for (int i = txtPLL.LBound(); i <= txtPLL.UBound(); ++i) {
        if (chkSmoothSlew.Value() == 0) {
            mablnPreScale[static_cast<size_t>(i)] = 2 * Frequency(i) < pll.mdblVCOMax;
        } else {
            // Both states must share one prescale setting for the slew to stay smooth.
            bool all = true;
            for (int j = txtPLL.LBound(); j <= txtPLL.UBound(); ++j) {
                if (!(2 * Frequency(j) < pll.mdblVCOMax))
                    all = false;
            }
            mablnPreScale.fill(all);
        }
        pll.mdblTargetVCO = PreScale(i) ? Frequency(i) * 2 : Frequency(i);
        if (chkSmoothSlew.Value() != 0) {
            const auto divisor =
                static_cast<std::int16_t>(mShared::GetNonZeroDivisor(cboClkDiv[0].Text()));
            pll.mdblMaxQ = DeviceRules().GetMaximumQWithSmoothSlew(*this, Frequency(i), reference,
                                                                   maximumQ, divisor);
        } else {
            pll.mdblMaxQ = DeviceRules().GetMaximumQ(reference, maximumQ);
        }
        pll.FindPAndQ();
        pll.StorePLLData(cboPLLData[i]);
    }
}

void frmQX6105A::DisplayAllActuals() {
    const double reference = Val(cboFRef.Text());
    for (int k = cboActual.LBound(); k <= cboActual.UBound(); ++k) {
        const int t = k / kOutputs;
        const int j = k % kOutputs;
        const std::string source = cboClkDiv[j].Text();
        const std::int32_t divisor = mShared::GetNonZeroDivisor(source);
        ListField& actual = cboActual[k];
        actual.Clear();
        if (ContainsNoCase(source, "Off")) {
            actual.AddItem("Off");
            actual.SetListIndex(0);
            continue;
        }
        if (StartsWith(source, 'R') && !StartsWith(cboFRef.Text(), 'O')) {
            actual.AddItem(PLL().GetActualFrequencyPPM(reference / divisor, 0));
            actual.SetListIndex(0);
            mShared::CheckLimits(actual, 0.5, Die().MaximumPLLVoltage());
            continue;
        }
        const std::int32_t factor = PreScale(t) ? 2 : 1;
        PLL().DisplayActualPPM(cboPLLData[t], actual, Frequency(t) / divisor, divisor * factor);
        if (!StartsWith(txtPLL[t].Text(), 'O')) {
            if (txtPLL[t].ForeColor() == colors::Red || lblDesired[k].ForeColor() == colors::Red) {
                actual.SetForeColor(colors::Red);
            } else {
                CheckOutputLimits(actual);
            }
        }
    }
}

void frmQX6105A::CalculateAllDesiredClocks() {
    for (int j = cboClkDiv.LBound(); j <= cboClkDiv.UBound(); ++j) cboClkDiv_Click(j);
}

void frmQX6105A::cboClkDiv_Click(int Index) {
    const std::string source = cboClkDiv[Index].Text();
    const int second = Index + kOutputs;
    double base[2] = {0, 0};
    bool boundToPLL = false;
    if (StartsWith(source, 'R')) {
        base[0] = base[1] = Val(cboFRef.Text());
    } else if (StartsWith(source, 'P')) {
        base[0] = Frequency(0);
        base[1] = Frequency(1);
        boundToPLL = true;
    }
    const std::int32_t divisor = mShared::GetNonZeroDivisor(source);
    const int indices[2] = {Index, second};
    for (int n = 0; n < 2; ++n) {
        const int k = indices[n];
        if (k > lblDesired.UBound())
            continue;
        Label& desired = lblDesired[k];
        if (base[n] == 0) {
            desired.SetCaption("Off");
            // An "Off" text is never out of limits.
            mShared::CheckLimits(desired, 0.5, OutputMaximum());
            continue;
        }
        std::string caption(1, ' ');
        caption += mShared::FormatFrequencyFixed(base[n] / divisor, -9999);
        desired.SetCaption(caption);
        if (boundToPLL && txtPLL[k / kOutputs].ForeColor() == colors::Red) {
            desired.SetForeColor(colors::Red);
        } else {
            CheckOutputLimits(desired);
        }
    }
    cmdCalculate.SetBackColor(colors::Yellow);
}

void frmQX6105A::CheckPLLLimits() {
    for (int i = txtPLL.LBound(); i <= txtPLL.UBound(); ++i) {
        mShared::CheckLimits(txtPLL[i], Die().MinimumPLLVoltage(), Die().MaximumPLLVoltage());
    }
    for (int j = cboClkDiv.LBound(); j <= cboClkDiv.UBound(); ++j) {
        if (!StartsWith(cboClkDiv[j].Text(), 'P'))
            continue;
        for (int t = 0; t < kStates; ++t) {
            if (!mShared::IsOff(txtPLL[t]))
                continue;
            const int k = kOutputs * t + j;
            lblDesired[k].SetCaption("Off");
            cboActual[k].Clear();
            cboActual[k].AddItem("Off");
            cboActual[k].SetListIndex(0);
        }
    }
}

// ---------------------------------------------------------------- lists kept in step

void frmQX6105A::cboPLLData_Click(int Index) {
    const int n = cboPLLData[Index].ListIndex();
    for (int j = cboClkDiv.LBound(); j <= cboClkDiv.UBound(); ++j) {
        if (!StartsWith(cboClkDiv[j].Text(), 'P'))
            continue;
        ListField& actual = cboActual[kOutputs * Index + j];
        if (actual.ListCount() > n && actual.ListIndex() != n)
            actual.SetListIndex(n);
    }
}

void frmQX6105A::cboActual_Click(int Index) {
    const int t = Index / kOutputs;
    const int j = Index % kOutputs;
    ListField& actual = cboActual[Index];
    const int n = actual.ListIndex();
    const bool fromPLL = StartsWith(cboClkDiv[j].Text(), 'P');
    if (fromPLL && actual.ListCount() > 0) {
        if (cboPLLData[t].ListCount() > n && cboPLLData[t].ListIndex() != n) {
            cboPLLData[t].SetListIndex(n);
        }
    }
    if (fromPLL &&
        (txtPLL[t].ForeColor() == colors::Red || lblDesired[Index].ForeColor() == colors::Red)) {
        actual.SetForeColor(colors::Red);
        return;
    }
    CheckOutputLimits(actual);
}

// ---------------------------------------------------------------- inputs

void frmQX6105A::optFS_Click() {
    MarkCalculateDue();
    for (int k = 0; k < kStates * kOutputs; ++k) {
        lblClkOutput[k].SetCaption(std::string(kOutputNames[k % kOutputs]) + " [" +
                                   std::to_string(k / kOutputs) + "]");
        lblClkOutput[k].SetVisible(true);
        lblDesired[k].SetVisible(true);
        cboActual[k].SetVisible(true);
    }
    txtPLL[1].SetEnabled(true);
    // The second frequency comes back as the user last left it.
    if (txtPLL[1].Text() == "N/A") {
        txtPLL[1].SetText(txtPLL[1].Tag().empty() || txtPLL[1].Tag() == "N/A" ? "Off"
                                                                              : txtPLL[1].Tag());
    }
    chkSmoothSlew.SetEnabled(true);
    CalculateAllDesiredClocks();
    DisplayPinout();
}

void frmQX6105A::optOE_Click() {
    MarkCalculateDue();
    for (int k = 0; k < kStates * kOutputs; ++k) {
        const bool inUse = k < kOutputs;
        if (inUse)
            lblClkOutput[k].SetCaption(kOutputNames[k]);
        lblClkOutput[k].SetVisible(inUse);
        lblDesired[k].SetVisible(inUse);
        cboActual[k].SetVisible(inUse);
    }
    if (txtPLL[1].Text() != "N/A")
        txtPLL[1].SetTag(txtPLL[1].Text());
    txtPLL[1].SetText("N/A");
    txtPLL[1].SetEnabled(false);
    chkSmoothSlew.SetValue(0);
    chkSmoothSlew.SetEnabled(false);
    CalculateAllDesiredClocks();
    DisplayPinout();
}

void frmQX6105A::CalculatePower() {
    frmPower& power = App().Power();
    power.SetParentForm(this);
    power.SetColCount(3);
    const int rows = optOE.Value() ? 1 : 2;
    power.SetRowCount(rows);
    power.SetHead(0, optOE.Value() ? "" : "  FS");
    power.SetHead(1, "Typical");
    power.SetHead(2, " Worst");
    power.SetUnit(0, "");
    power.SetUnit(1, "mA ");
    power.SetUnit(2, "mA ");
    clsPower4860 model(App().Errors());
    model.SetVDD(opt3V.Value() ? 3.3 : 5.0);
    model.mdblReferenceFrequency = Val(cboFRef.Text());
    for (int r = 0; r < rows; ++r) {
        model.mdblFCore = Val(cboPLLData[r].Text());
        // Row 0 reads outputs 0 to 2 and row 1 outputs 2 to 4: the third output of row 0 is
        // also the first of row 1, as the current tables were measured.
        model.mdblFClock1 = Val(cboActual[2 * r].Text());
        model.mdblFClock2 = Val(cboActual[2 * r + 1].Text());
        model.mdblFClock3 = Val(cboActual[2 * r + 2].Text());
        power.SetCell(r, 0, optFS.Value() ? std::to_string(r) : "");
        power.SetCell(r, 1, GeneralNumber(model.CalculateICC(1)));
        power.SetCell(r, 2, GeneralNumber(model.CalculateICC(0)));
    }
    power.ShowPower();
}

void frmQX6105A::FillFromEntryFile(clsEntryFile& data) {
    EntryFile().Fill6105AForm(data);
}

}  // namespace pendulon
