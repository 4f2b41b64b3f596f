#include "configurators/frmQX7311.hpp"

#include <algorithm>
#include <cstdint>

#include "app/AppServices.hpp"
#include "app/MainFace.hpp"
#include "app/mHelp.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/cls7311Die.hpp"
#include "core/clsPLL.hpp"
#include "core/clsQX7311.hpp"
#include "core/clsReference.hpp"
#include "core/mShared.hpp"
#include "graphics/clsGraphics.hpp"
#include "power/clsPower7311.hpp"
#include "power/frmPower.hpp"
#include "reports/mAsciiPrintout.hpp"

namespace pendulon {

namespace {

constexpr long kInvalidDieDevice = 10351;
constexpr long kInvalidDevice = 10352;
// Rows 0 to 3 have S2 low; under SUSPEND the S2 pin forces them.
constexpr int kHighRow = 4;

bool Is7311Model(const std::string& device) {
    return device == "QX7311" || device == "QX7311F" || device == "QX7311I";
}

bool Is7312Model(const std::string& device) {
    return device == "QX7312" || device == "QX7312F" || device == "QX7312I";
}

}  // namespace

frmQX7311::frmQX7311(AppServices& app) : frm7311Family(app, "frmQX7311", kRows) {
    SetCaption("QX7311");
    // Apply calculates at once on this window.
    mblnApplyCalculates = true;
    fraModel.SetCaption("Device");
    opt7311.SetCaption("QX7311");
    opt7312.SetCaption("QX7312");
    opt7311.SetGroup("Model");
    opt7312.SetGroup("Model");
    fraVoltage.SetCaption("Voltage");
    fraReference.SetCaption("Reference");
    lblFRefMin.SetCaption("FRef Min");
    lblFRefMax.SetCaption("FRef Max");
    fraOptions.SetCaption("Options");
    chkSuspend.SetCaption("Suspend");
    chkShutdown.SetCaption("Shutdown");
    fraCPLL.SetCaption("CPLL Frequencies (S2..S0)");
    for (int i = 0; i < kRows; ++i) {
        lblSelect[i].SetCaption(mShared::ConvertDecimalToBinary(i, 3));
        txtCPLL[i].SetText("Off");
        lblCPLLData[i].SetCaption("CPLL[" + std::to_string(i) + "]");
    }
    chkOffCPLL.SetCaption("Off");
    chkSuspendCPLL.SetEnabled(false);
    fraSPLL.SetCaption("SPLL Frequency");
    fraUPLL.SetCaption("UPLL Frequency");
    txtSPLL.SetText("Off");
    txtUPLL.SetText("Off");
    fraPLLData.SetCaption("PLL Data");
    lblSPLLData.SetCaption("SPLL");
    lblPllData.SetCaption("UPLL");
    fraOutputs.SetCaption("Outputs");
    lblOutputSuspend.SetCaption("Suspend");
    lblOutputActual.SetCaption("Actual");
    lblOutputDesired.SetCaption("Desired");
    lblCPU.SetCaption("CPU");
    static const char* const kClockNames[kClocks] = {"CLKA", "CLKB", "CLKC", "CLKD"};
    for (int i = 0; i < kClocks; ++i) lblClk[i].SetCaption(kClockNames[i]);
    lblXBuff.SetCaption("XBUF");
    lblClkF.SetCaption("CLKF");
    lbl32k.SetCaption("32K");
    lblDesired32K.SetCaption(" 32.768 kHz");
    fraPinout.SetCaption("Pinout");
    lblMinimum.SetCaption("Minimum");
    lblMaximum.SetCaption("Maximum");
    // The die keeps its limit rows in the order CPLL, UPLL, SPLL.
    static const char* const kLimitNames[4] = {"CPLL", "UPLL", "SPLL", "FRef"};
    for (int i = 0; i < 4; ++i) lblLimit[i].SetCaption(kLimitNames[i]);
    // Every output suspend box waits for SUSPEND, and so do the loops' boxes.
    for (CheckBox* box : {&chkSusCPU, &chkSusClkF, &chkSusXbuff, &chkSuspendSPLL, &chkSuspendUPLL,
                          &chkSuspendCPLL}) {
        box->SetEnabled(false);
        box->SetCaption("");
    }
    for (int i = 0; i < kClocks; ++i) chkSusClk[i].SetEnabled(false);
    for (CheckBox* box : {&chkSuspendSPLL, &chkSuspendUPLL, &chkSuspendCPLL})
        box->SetCaption("Suspend");
    RegisterFields();
    ConnectEvents();
}

frmQX7311::~frmQX7311() = default;

void frmQX7311::RegisterFields() {
    // Control order: device and options, the loops, their data, the outputs, the limits.
    Register("fraModel", fraModel);
    Register("opt7311", opt7311);
    Register("opt7312", opt7312);
    Register("fraVoltage", fraVoltage);
    RegisterVoltageFields();
    Register("fraReference", fraReference);
    RegisterReferenceFields();
    Register("fraOptions", fraOptions);
    Register("chkSuspend", chkSuspend);
    Register("chkShutdown", chkShutdown);
    Register("fraCPLL", fraCPLL);
    for (int i = 0; i < kRows; ++i) {
        Register(ElementName("lblSelect", i), lblSelect[i]);
        Register(ElementName("txtCPLL", i), txtCPLL[i]);
        Register(ElementName("cboCPLL", i), cboCPLL[i]);
    }
    Register("chkOffCPLL", chkOffCPLL);
    Register("chkSuspendCPLL", chkSuspendCPLL);
    Register("fraSPLL", fraSPLL);
    Register("txtSPLL", txtSPLL);
    Register("cboSPLL", cboSPLL);
    Register("chkSuspendSPLL", chkSuspendSPLL);
    Register("fraUPLL", fraUPLL);
    Register("txtUPLL", txtUPLL);
    Register("cboUPLL", cboUPLL);
    Register("chkSuspendUPLL", chkSuspendUPLL);
    Register("fraPLLData", fraPLLData);
    for (int i = 0; i < kRows; ++i) {
        Register(ElementName("lblCPLLData", i), lblCPLLData[i]);
        Register(ElementName("cboCPLLData", i), cboCPLLData[i]);
    }
    Register("lblSPLLData", lblSPLLData);
    Register("cboSPLLData", cboSPLLData);
    Register("lblPllData", lblPllData);
    Register("cboUPLLData", cboUPLLData);
    Register("fraOutputs", fraOutputs);
    Register("lblOutputDesired", lblOutputDesired);
    Register("lblOutputActual", lblOutputActual);
    Register("lblOutputSuspend", lblOutputSuspend);
    Register("lblCPU", lblCPU);
    Register("cboCPU", cboCPU);
    Register("lblDesiredCPU", lblDesiredCPU);
    Register("cboActualCPU", cboActualCPU);
    Register("chkSusCPU", chkSusCPU);
    for (int i = 0; i < kClocks; ++i) {
        Register(ElementName("lblClk", i), lblClk[i]);
        Register(ElementName("cboClk", i), cboClk[i]);
        Register(ElementName("lblDesiredClk", i), lblDesiredClk[i]);
        Register(ElementName("cboActualClk", i), cboActualClk[i]);
        Register(ElementName("chkSusClk", i), chkSusClk[i]);
    }
    Register("lblXBuff", lblXBuff);
    Register("cboXBuff", cboXBuff);
    Register("lblDesiredXBuff", lblDesiredXBuff);
    Register("cboActualXBuff", cboActualXBuff);
    Register("chkSusXbuff", chkSusXbuff);
    Register("pic7311Only", pic7311Only);
    Register("lblClkF", lblClkF);
    Register("cboClkF", cboClkF);
    Register("lblDesiredClkF", lblDesiredClkF);
    Register("cboActualClkF", cboActualClkF);
    Register("chkSusClkF", chkSusClkF);
    Register("lbl32k", lbl32k);
    Register("lblDesired32K", lblDesired32K);
    Register("fraPinout", fraPinout);
    Register("lblMinimum", lblMinimum);
    Register("lblMaximum", lblMaximum);
    for (int i = 0; i < 4; ++i) Register(ElementName("lblLimit", i), lblLimit[i]);
    RegisterLimitFields();
    RegisterCommonTail();
}

void frmQX7311::ConnectEvents() {
    opt7311.OnClick = [this] { opt7311_Click(); };
    opt7312.OnClick = [this] { opt7312_Click(); };
    cboFRef.OnClick = [this] { cboFRef_Click(); };
    cboFRef.OnGotFocus = [this] { mHelp::ShowDeviceHint(1, *this); };
    cboFRef.OnLostFocus = [this] {
        cboFRef_LostFocus();
        ResetDesiredLabels();
    };
    chkSuspend.OnClick = [this] { chkSuspend_Click(); };
    chkSuspend.OnGotFocus = [this] { mHelp::ShowHint(5, *this); };
    chkSuspend.OnLostFocus = [this] { Hint(""); };
    chkShutdown.OnClick = [this] { chkShutdown_Click(); };
    chkOffCPLL.OnClick = [this] { chkOffCPLL_Click(); };
    chkSuspendCPLL.OnClick = [this] { chkSuspendCPLL_Click(); };
    for (int i = 0; i < kRows; ++i) {
        txtCPLL[i].OnChange = [this, i] { txtCPLL_Change(i); };
        txtCPLL[i].OnLostFocus = [this, i] { txtCPLL_LostFocus(i); };
        txtCPLL[i].OnGotFocus = [this, i] {
            mShared::HighLightText(txtCPLL[i]);
            mHelp::ShowHint(6, *this, "CPLL", GeneralNumber(CPLLMinimum()),
                            GeneralNumber(CPLLMaximum()));
        };
        cboCPLL[i].OnClick = [this, i] { cboCPLL_Click(i); };
        cboCPLLData[i].OnClick = [this, i] { cboCPLLData_Click(i); };
    }
    txtSPLL.OnChange = [this] { txtSPLL_Change(); };
    txtUPLL.OnChange = [this] { txtUPLL_Change(); };
    txtSPLL.OnLostFocus = [this] { txtSPLL_LostFocus(); };
    txtUPLL.OnLostFocus = [this] { txtUPLL_LostFocus(); };
    txtSPLL.OnGotFocus = [this] {
        mShared::HighLightText(txtSPLL);
        mHelp::ShowHint(6, *this, "SPLL", GeneralNumber(SPLLMinimum()),
                        GeneralNumber(SPLLMaximum()));
    };
    txtUPLL.OnGotFocus = [this] {
        mShared::HighLightText(txtUPLL);
        mHelp::ShowHint(6, *this, "UPLL", GeneralNumber(UPLLMinimum()),
                        GeneralNumber(UPLLMaximum()));
    };
    auto numbersOnly = [this](int& key) {
        mShared::MaskKeystrokeForNumbers(key, 0, App().Services());
    };
    for (TextField* field : {&txtSPLL, &txtUPLL}) field->OnKeyPress = numbersOnly;
    for (int i = 0; i < kRows; ++i) txtCPLL[i].OnKeyPress = numbersOnly;
    cboSPLL.OnClick = [this] { cboSPLL_Click(); };
    cboUPLL.OnClick = [this] { cboUPLL_Click(); };
    cboSPLLData.OnClick = [this] { cboSPLLData_Click(); };
    cboUPLLData.OnClick = [this] { cboUPLLData_Click(); };
    cboCPU.OnClick = [this] { cboCPU_Click(); };
    cboXBuff.OnClick = [this] { cboXBuff_Click(); };
    cboClkF.OnClick = [this] { cboClkF_Click(); };
    cboActualClkF.OnClick = [this] { cboActualClkF_Click(); };
    for (int i = 0; i < kClocks; ++i) {
        cboClk[i].OnClick = [this, i] { cboClk_Click(i); };
        cboActualClk[i].OnClick = [this, i] { cboActualClk_Click(i); };
    }
    cboClk[3].OnGotFocus = [this] { mHelp::ShowHint(2, *this); };
    cboClk[3].OnLostFocus = [this] { Hint(""); };
    ConnectLimitFieldHelp();
}

// ---------------------------------------------------------------- objects and contract

clsPower7311& frmQX7311::PowerModel() {
    return MadeOnFirstUse(mclsPower, App().Errors());
}

void frmQX7311::ReleaseObjects() {
    DeviceWindow::ReleaseObjects();
    mclsPower.reset();
}

void frmQX7311::SetDevice(const std::string& device) {
    const bool model7311 = Is7311Model(device);
    if (!model7311 && !Is7312Model(device)) {
        RaiseError(kInvalidDevice, "Device [Property Let]", "Invalid device: " + device);
        return;
    }
    mblnSettingDevice = true;
    Configurator::SetDevice(device);
    if (model7311) {
        opt7311.SetValue(true);
    } else {
        opt7312.SetValue(true);
    }
    mblnSettingDevice = false;
    SetCaption(device);
    AttachEntryFile();
    ResetForm();
}

void frmQX7311::FillFromEntryFile(clsEntryFile& data) {
    Fill7311FromEntryFile(data);
    ResetDesiredLabels();
}

void frmQX7311::ResetForm() {
    if (Is7311Model(lblDevice.Caption())) {
        pic7311Only.SetVisible(true);
    } else {
        pic7311Only.SetVisible(false);
        if (cboClkF.ListCount() > 0)
            cboClkF.SetListIndex(cboClkF.ListCount() - 1);
    }
    DisplayPinout();
}

void frmQX7311::opt7311_Click() {
    if (mblnSettingDevice)
        return;
    const std::string device = Device();
    if (device == "QX7312F") {
        SetDevice("QX7311F");
    } else if (device == "QX7312I") {
        SetDevice("QX7311I");
    } else if (device == "QX7312") {
        SetDevice("QX7311");
    }
}

void frmQX7311::opt7312_Click() {
    if (mblnSettingDevice)
        return;
    const std::string device = Device();
    if (device == "QX7311F") {
        SetDevice("QX7312F");
    } else if (device == "QX7311I") {
        SetDevice("QX7312I");
    } else if (device == "QX7311") {
        SetDevice("QX7312");
    }
}

// ---------------------------------------------------------------- load

void frmQX7311::InitializeControls() {
    Reference().InitializeReferenceComboBox(cboFRef);
    InitializePLLDataComboBoxes();
    InitializeCPUDivisorComboBox();
    InitializeXBuffDivisorComboBox();
    InitializeClockFDivisorComboBox();
    for (int i = 0; i < kClocks; ++i) InitializeClockDivisors(cboClk[i], i);
    // A QX7312 has no CLKF: the load of its lists must not give it back a source.
    if (!Is7311Model(lblDevice.Caption()))
        cboClkF.SetListIndex(cboClkF.ListCount() - 1);
    for (int i = 0; i < kRows; ++i) txtCPLL[i].SetTag(txtCPLL[i].Text());
}

void frmQX7311::InitializeDieClass() {
    const std::string device = lblDevice.Caption();
    if (device == "QX7311" || device == "QX7312") {
        SetDieDefaults(8, 80, 8, 100);
    } else if (device == "QX7311F" || device == "QX7312F" || device == "QX7311I" ||
               device == "QX7312I") {
        SetDieDefaults(8, 66.66667, 8, 90);
    } else {
        RaiseError(kInvalidDieDevice, "InitializeDieClass", "Invalid device: " + device);
    }
}

void frmQX7311::InitializePLLClass() {
    InitializeAllPLLClasses();
}

void frmQX7311::InitializeAllPLLClasses() {
    SetLoopCounters();
    const std::string device = lblDevice.Caption();
    const bool unbounded = device == "QX7311F" || device == "QX7312F";
    // A loop's VCO runs at twice its output.
    struct Bounds {
        clsPLL* pll;
        double minimum;
        double maximum;
    };
    const Bounds loops[3] = {{&CPLL(), CPLLMinimum(), CPLLMaximum()},
                             {&SPLL(), SPLLMinimum(), SPLLMaximum()},
                             {&UPLL(), UPLLMinimum(), UPLLMaximum()}};
    for (const Bounds& loop : loops) {
        if (unbounded) {
            loop.pll->mdblVCOMax = 10000000000.0;
            loop.pll->mdblVCOMin = 0;
        } else {
            loop.pll->mdblVCOMax = 2 * loop.maximum;
            loop.pll->mdblVCOMin = 2 * loop.minimum;
        }
    }
}

void frmQX7311::SetDefaultOptions() {
    ResetCPLL(-1);
}

void frmQX7311::InitializePLLDataComboBoxes() {
    // The data lists stand one below the other, as the rows of the CPLL do.
    for (int i = 1; i < kRows; ++i) {
        lblCPLLData[i].SetCaption("CPLL[" + std::to_string(i) + "]");
        lblCPLLData[i].SetVisible(true);
        cboCPLLData[i].SetVisible(true);
        cboCPLLData[i].Move(cboCPLLData[i - 1].Left(),
                            cboCPLLData[i - 1].Top() + cboCPLLData[i - 1].Height(),
                            cboCPLLData[i - 1].Width(), cboCPLLData[i - 1].Height());
        lblCPLLData[i].Move(lblCPLLData[i - 1].Left(),
                            lblCPLLData[i - 1].Top() + cboCPLLData[i - 1].Height(),
                            lblCPLLData[i - 1].Width(), lblCPLLData[i - 1].Height());
    }
}

void frmQX7311::InitializeCPUDivisorComboBox() {
    clsQX7311::InitializeCPUDivisorComboBox(cboCPU);
}

void frmQX7311::InitializeXBuffDivisorComboBox() {
    cboXBuff.Clear();
    cboXBuff.AddItem("Ref");
    if (chkSuspend.Value() == 0)
        cboXBuff.AddItem("Off");
    cboXBuff.SetListIndex(0);
}

void frmQX7311::InitializeClockFDivisorComboBox() {
    clsQX7311::InitializeClockFDivisorComboBox(cboClkF);
}

void frmQX7311::InitializeClockDivisors(ListField& list, int index) {
    clsQX7311::InitializeClockDivisors(list, index);
}

// ---------------------------------------------------------------- limits

double frmQX7311::CPLLMinimum() {
    return Die().MinimumCPLLVoltage();
}
double frmQX7311::CPLLMaximum() {
    return Die().MaximumCPLLVoltage();
}
double frmQX7311::SPLLMinimum() {
    return Die().MinimumSPLLVoltage();
}
double frmQX7311::SPLLMaximum() {
    return Die().MaximumSPLLVoltage();
}
double frmQX7311::UPLLMinimum() {
    return Die().MinimumUPLLVoltage();
}
double frmQX7311::UPLLMaximum() {
    return Die().MaximumUPLLVoltage();
}

void frmQX7311::CheckPLLLimits() {
    mShared::CheckLimits(txtSPLL, SPLLMinimum(), SPLLMaximum());
    mShared::CheckLimits(txtUPLL, UPLLMinimum(), UPLLMaximum());
    for (int i = 0; i < kRows; ++i) mShared::CheckLimits(txtCPLL[i], CPLLMinimum(), CPLLMaximum());
}

// ---------------------------------------------------------------- Calculate

void frmQX7311::FindPLLs() {
    SetPLLValues();
}

void frmQX7311::SetPLLValues() {
    const double reference = Val(cboFRef.Text());
    cls7311Die& die = Die();
    const bool v3 = die.mdblVoltage == 3.3;
    auto largestQ = [](double q) { return static_cast<std::int32_t>(RoundHalfEven(q)); };
    CPLL().mdblMaxQ = DeviceRules().GetMaximumQ(
        reference, largestQ(v3 ? die.mdblCPLLMaxQ3V : die.mdblCPLLMaxQ5V));
    SPLL().mdblMaxQ = DeviceRules().GetMaximumQ(
        reference, largestQ(v3 ? die.mdblSPLLMaxQ3V : die.mdblSPLLMaxQ5V));
    UPLL().mdblMaxQ = DeviceRules().GetMaximumQ(
        reference, largestQ(v3 ? die.mdblUPLLMaxQ3V : die.mdblUPLLMaxQ5V));

    SPLL().mdblReferenceFrequency = reference;
    SPLL().mdblTargetVCO = 2 * Val(txtSPLL.Text());
    SPLL().FindPAndQ(false, 0, nullptr);
    SPLL().StorePLLData(cboSPLLData);

    UPLL().mdblReferenceFrequency = reference;
    UPLL().mdblTargetVCO = 2 * Val(txtUPLL.Text());
    UPLL().FindPAndQ(false, 0, nullptr);
    UPLL().StorePLLData(cboUPLLData);

    std::vector<double> adblPLLFreq(kRows);
    for (int i = 0; i < kRows; ++i)
        adblPLLFreq[static_cast<size_t>(i)] = 2 * Val(txtCPLL[i].Text());
    clsPLL& cpll = CPLL();
    cpll.mdblReferenceFrequency = reference;
    for (int i = 0; i < kRows; ++i) {
        cpll.mdblTargetVCO = 2 * Val(txtCPLL[i].Text());
        // The CPLL's Q bound is the 5 V figure at either voltage.
        cpll.mdblMaxQ = die.mdblCPLLMaxQ5V;
        cpll.mdblMaxQ =
            DeviceRules().GetCPLLQMax(cpll.mdblTargetVCO, reference, cpll.mdblMaxQ, adblPLLFreq);
        bool cpllRatio = true;
        cpll.FindPAndQ(false, 0.15, cpllRatio);
        cpll.StorePLLData(cboCPLLData[i]);
    }
}

// ---------------------------------------------------------------- desired values

void frmQX7311::DisplayDesired(ListField& source, Label& label) {
    const std::string text = source.Text();
    if (text == "Off") {
        label.SetCaption(" Off");
        return;
    }
    const std::int32_t divisor = mShared::GetNonZeroDivisor(text);
    double value = 0;
    switch (FirstLetter(text)) {
        case 'C':
            label.SetCaption(" " + text);
            return;
        case 'R':
            value = Val(cboFRef.Text()) / divisor;
            break;
        case 'S':
            value = Val(txtSPLL.Text()) / divisor;
            break;
        case 'U':
            value = Val(txtUPLL.Text()) / divisor;
            break;
        default:
            // An empty list (while its entries are built) shows nothing yet.
            label.SetCaption("");
            return;
    }
    std::string caption = " ";
    caption += mShared::FormatFrequencyFixed(value);
    label.SetCaption(caption);
}

void frmQX7311::PaintLikeLoop(ListField& source, Label& desired) {
    Color color = colors::WindowText;
    if (FirstLetter(source.Text()) == 'S') {
        color = txtSPLL.ForeColor();
    } else if (FirstLetter(source.Text()) == 'U') {
        color = txtUPLL.ForeColor();
    }
    desired.SetForeColor(color);
    source.SetForeColor(color);
}

void frmQX7311::OutputClicked(ListField& source, Label& desired, CheckBox& box) {
    DisplayDesired(source, desired);
    CheckSuspend(source.Text(), box);
}

void frmQX7311::cboCPU_Click() {
    OutputClicked(cboCPU, lblDesiredCPU, chkSusCPU);
    MarkCalculateDue();
}

void frmQX7311::cboXBuff_Click() {
    OutputClicked(cboXBuff, lblDesiredXBuff, chkSusXbuff);
    MarkCalculateDue();
}

void frmQX7311::cboClkF_Click() {
    OutputClicked(cboClkF, lblDesiredClkF, chkSusClkF);
    // CLKF has only SPLL sources; any other text takes the window text colour.
    const Color color = FirstLetter(cboClkF.Text()) == 'S' ? txtSPLL.ForeColor() : colors::WindowText;
    lblDesiredClkF.SetForeColor(color);
    cboClkF.SetForeColor(color);
    MarkCalculateDue();
}

void frmQX7311::cboClk_Click(int Index) {
    OutputClicked(cboClk[Index], lblDesiredClk[Index], chkSusClk[Index]);
    PaintLikeLoop(cboClk[Index], lblDesiredClk[Index]);
    MarkCalculateDue();
}

void frmQX7311::ResetDesiredLabels() {
    cboCPU_Click();
    for (int i = 0; i < kClocks; ++i) cboClk_Click(i);
    cboXBuff_Click();
    cboClkF_Click();
    // Rows locked by the suspend logic cannot lose the focus, so their texts stay out of Tag.
    for (int i = 0; i < kRows; ++i)
        if (txtCPLL[i].Enabled())
            txtCPLL_LostFocus(i);
}

void frmQX7311::cboFRef_Click() {
    MarkCalculateDue();
    ResetDesiredLabels();
}

// ---------------------------------------------------------------- loop fields

void frmQX7311::LeaveLoopField(TextField& field, double minimum, double maximum) {
    ClampFrequencyField(field, minimum, [maximum] { return maximum; });
    field.SetSelLength(0);
}

void frmQX7311::txtCPLL_Change(int) {
    MarkCalculateDue();
}

void frmQX7311::txtSPLL_Change() {
    MarkCalculateDue();
    if (chkSuspend.Value() == 1)
        EnableSuspendCheckBox(chkSuspendSPLL, txtSPLL.Text());
}

void frmQX7311::txtUPLL_Change() {
    MarkCalculateDue();
    if (chkSuspend.Value() == 1)
        EnableSuspendCheckBox(chkSuspendUPLL, txtUPLL.Text());
}

void frmQX7311::txtCPLL_LostFocus(int Index) {
    LeaveLoopField(txtCPLL[Index], CPLLMinimum(), CPLLMaximum());
    txtCPLL[Index].SetTag(txtCPLL[Index].Text());
    Hint("");
}

void frmQX7311::txtSPLL_LostFocus() {
    LeaveLoopField(txtSPLL, SPLLMinimum(), SPLLMaximum());
    CheckSuspend(txtSPLL.Text(), chkSuspendSPLL);
    ResetDesiredLabels();
    Hint("");
}

void frmQX7311::txtUPLL_LostFocus() {
    LeaveLoopField(txtUPLL, UPLLMinimum(), UPLLMaximum());
    CheckSuspend(txtUPLL.Text(), chkSuspendUPLL);
    ResetDesiredLabels();
    Hint("");
}

// ---------------------------------------------------------------- actual values

void frmQX7311::DisplayAllActuals() {
    SPLL().DisplayActualPPM(cboSPLLData, cboSPLL, Val(txtSPLL.Text()), 2);
    UPLL().DisplayActualPPM(cboUPLLData, cboUPLL, Val(txtUPLL.Text()), 2);
    for (int i = 0; i < kRows; ++i) {
        const bool suspended =
            i < kHighRow && chkSuspend.Value() != 0 && chkSuspendCPLL.Value() != 0;
        CPLL().DisplayActualPPM(cboCPLLData[i], cboCPLL[i], suspended ? 0 : Val(txtCPLL[i].Text()),
                                2);
    }
    const double reference = Val(cboFRef.Text());
    for (int i = 0; i < kClocks; ++i) {
        ListField& actual = cboActualClk[i];
        const std::string source = cboClk[i].Text();
        const auto divisor = static_cast<std::int16_t>(mShared::GetNonZeroDivisor(source));
        actual.Clear();
        const char letter = FirstLetter(source);
        if (letter == 'S' || letter == 'U') {
            TextField& loopText = letter == 'S' ? txtSPLL : txtUPLL;
            ListField& loopActual = letter == 'S' ? cboSPLL : cboUPLL;
            clsPLL& pll = letter == 'S' ? SPLL() : UPLL();
            if (loopText.Text() == "Off") {
                actual.AddItem("Off");
                actual.SetListIndex(0);
            } else {
                pll.DisplayActual(loopActual, actual, divisor);
            }
            lblDesiredClk[i].SetForeColor(loopText.ForeColor());
            cboClk[i].SetForeColor(loopText.ForeColor());
        } else if (letter == 'R') {
            if (cboFRef.Text() == "Off") {
                actual.AddItem("Off");
            } else {
                actual.AddItem(mShared::FormatFrequencyFixed(reference / divisor));
            }
            actual.SetListIndex(0);
        } else {
            actual.AddItem(source);
            actual.SetListIndex(0);
        }
    }
    cboActualClkF.Clear();
    if (FirstLetter(cboClkF.Text()) == 'S' && txtSPLL.Text() != "Off") {
        SPLL().DisplayActual(cboSPLL, cboActualClkF,
                             static_cast<std::int16_t>(mShared::GetNonZeroDivisor(cboClkF.Text())));
        lblDesiredClkF.SetForeColor(txtSPLL.ForeColor());
        cboClkF.SetForeColor(txtSPLL.ForeColor());
    } else {
        cboActualClkF.AddItem("Off");
        cboActualClkF.SetListIndex(0);
    }
    cboActualXBuff.Clear();
    const std::string xbuff = Trim(lblDesiredXBuff.Caption());
    if (xbuff != "Off") {
        cboActualXBuff.AddItem(mShared::FormatFrequencyFixed(Val(xbuff)));
    } else {
        cboActualXBuff.AddItem("Off");
    }
    cboActualXBuff.SetListIndex(0);
    cboActualCPU.Clear();
    cboActualCPU.AddItem(cboCPU.Text());
    cboActualCPU.SetListIndex(0);
}

// ---------------------------------------------------------------- lists kept in step

void frmQX7311::MatchListIndex(ListField& target, ListField& source) {
    if (target.ListCount() >= source.ListCount() && target.ListIndex() != source.ListIndex())
        target.SetListIndex(source.ListIndex());
}

void frmQX7311::MatchActualClockIndex(ListField& source, const std::string& letter) {
    for (int i = 0; i < kClocks; ++i)
        if (ContainsNoCase(cboClk[i].Text(), letter))
            MatchListIndex(cboActualClk[i], source);
    if (ContainsNoCase(cboClkF.Text(), letter))
        MatchListIndex(cboActualClkF, source);
}

void frmQX7311::MatchSourceIndex(const std::string& text, ListField& list) {
    switch (FirstLetter(text)) {
        case 'U':
            MatchListIndex(cboUPLL, list);
            break;
        case 'S':
            MatchListIndex(cboSPLL, list);
            break;
        default:
            break;
    }
}

void frmQX7311::cboSPLL_Click() {
    MatchListIndex(cboSPLLData, cboSPLL);
    MatchActualClockIndex(cboSPLL, "S");
    if (txtSPLL.ForeColor() == colors::Red) {
        cboSPLL.SetForeColor(colors::Red);
    } else {
        mShared::CheckLimits(cboSPLL, SPLLMinimum(), SPLLMaximum());
    }
}

void frmQX7311::cboUPLL_Click() {
    MatchListIndex(cboUPLLData, cboUPLL);
    MatchActualClockIndex(cboUPLL, "U");
    if (txtUPLL.ForeColor() == colors::Red) {
        cboUPLL.SetForeColor(colors::Red);
    } else {
        mShared::CheckLimits(cboUPLL, UPLLMinimum(), UPLLMaximum());
    }
}

void frmQX7311::cboCPLL_Click(int Index) {
    MatchListIndex(cboCPLLData[Index], cboCPLL[Index]);
    if (txtCPLL[Index].ForeColor() == colors::Red) {
        cboCPLL[Index].SetForeColor(colors::Red);
    } else {
        mShared::CheckLimits(cboCPLL[Index], CPLLMinimum(), CPLLMaximum());
    }
}

void frmQX7311::cboSPLLData_Click() {
    MatchListIndex(cboSPLL, cboSPLLData);
}

void frmQX7311::cboUPLLData_Click() {
    MatchListIndex(cboUPLL, cboUPLLData);
}

void frmQX7311::cboCPLLData_Click(int Index) {
    MatchListIndex(cboCPLL[Index], cboCPLLData[Index]);
}

void frmQX7311::cboActualClk_Click(int Index) {
    ListField& actual = cboActualClk[Index];
    MatchSourceIndex(cboClk[Index].Text(), actual);
    if (actual.Text() == "Off")
        return;
    const char letter = FirstLetter(cboClk[Index].Text());
    if (letter == 'S') {
        actual.SetForeColor(cboSPLL.ForeColor());
    } else if (letter == 'U') {
        actual.SetForeColor(cboUPLL.ForeColor());
    } else {
        actual.SetForeColor(colors::WindowText);
    }
}

void frmQX7311::cboActualClkF_Click() {
    MatchSourceIndex(cboClkF.Text(), cboActualClkF);
    if (cboActualClkF.Text() != "Off")
        cboActualClkF.SetForeColor(txtSPLL.ForeColor());
}

// ---------------------------------------------------------------- suspend

int frmQX7311::SavedCheck(const CheckBox& box) const {
    const auto found = mintSavedCheck.find(&box);
    return found == mintSavedCheck.end() ? 0 : found->second;
}

void frmQX7311::DisableSuspendCheckBox(CheckBox& box) {
    if (box.Enabled()) {
        mintSavedCheck[&box] = box.Value();
        box.SetEnabled(false);
    }
}

void frmQX7311::EnableSuspendCheckBox(CheckBox& box, const std::string& text) {
    if (text != "Off" && !box.Enabled()) {
        box.SetEnabled(true);
        box.SetValue(SavedCheck(box));
    }
}

void frmQX7311::CheckSuspend(const std::string& text, CheckBox& box) {
    if (ContainsNoCase(text, "Off")) {
        DisableSuspendCheckBox(box);
    } else if (chkSuspend.Value() == 1) {
        EnableSuspendCheckBox(box, text);
    }
}

void frmQX7311::chkSuspend_Click() {
    if (chkSuspend.Value() == 1) {
        EnableSuspendCheckBox(chkSusCPU, cboCPU.Text());
        for (int i = 0; i < kClocks; ++i) EnableSuspendCheckBox(chkSusClk[i], cboClk[i].Text());
        EnableSuspendCheckBox(chkSusClkF, cboClkF.Text());
        EnableSuspendCheckBox(chkSusXbuff, cboXBuff.Text());
        EnableSuspendCheckBox(chkSuspendSPLL, txtSPLL.Text());
        EnableSuspendCheckBox(chkSuspendUPLL, txtUPLL.Text());
    } else {
        DisableSuspendCheckBox(chkSusCPU);
        for (int i = 0; i < kClocks; ++i) DisableSuspendCheckBox(chkSusClk[i]);
        DisableSuspendCheckBox(chkSusClkF);
        DisableSuspendCheckBox(chkSusXbuff);
        DisableSuspendCheckBox(chkSuspendSPLL);
        DisableSuspendCheckBox(chkSuspendUPLL);
    }
    ResetCPLL(0);
    InitializeXBuffDivisorComboBox();
    DisplayPinout();
    MarkCalculateDue();
}

void frmQX7311::chkOffCPLL_Click() {
    ResetCPLL(0);
    MarkCalculateDue();
}

void frmQX7311::chkSuspendCPLL_Click() {
    ResetCPLL(0);
    MarkCalculateDue();
}

void frmQX7311::chkShutdown_Click() {
    DisplayPinout();
    MarkCalculateDue();
}

void frmQX7311::TurnOff(int row) {
    const auto r = static_cast<size_t>(row);
    mablnCPLLOff[r] = false;
    if (txtCPLL[row].Text() != "Off") {
        mablnCPLLOff[r] = true;
        txtCPLL[row].SetText("Off");
    }
    txtCPLL[row].SetEnabled(false);
}

void frmQX7311::TurnOn(int row) {
    txtCPLL[row].SetEnabled(true);
    if (mablnCPLLOff[static_cast<size_t>(row)] && txtCPLL[row].Text() == "Off")
        txtCPLL[row].SetText(txtCPLL[row].Tag());
}

void frmQX7311::ResetCPLL(int index) {
    auto turnOffLow = [this] {
        for (int i = 0; i < kHighRow; ++i) TurnOff(i);
    };
    auto turnOffHigh = [this] {
        for (int i = kHighRow; i < kRows; ++i) TurnOff(i);
    };
    auto turnOnAll = [this] {
        for (int i = 0; i < kRows; ++i) TurnOn(i);
    };
    auto turnOnHigh = [this] {
        for (int i = kHighRow; i < kRows; ++i) TurnOn(i);
    };
    if (index != 0) {
        mvarOffCPLL = chkOffCPLL.Value();
        mvarSuspend = chkSuspend.Value();
    } else if (chkOffCPLL.Value() != mvarOffCPLL) {
        if (chkOffCPLL.Value() != 1) {
            if (chkSuspend.Value() != 1) {
                turnOnAll();
            } else {
                EnableSuspendCheckBox(chkSuspendCPLL, "");
                if (chkSuspendCPLL.Value() == 1) {
                    turnOnHigh();
                } else {
                    turnOnAll();
                }
            }
        } else if (!chkSuspendCPLL.Enabled()) {
            turnOffLow();
            turnOffHigh();
        } else {
            DisableSuspendCheckBox(chkSuspendCPLL);
            if (chkSuspendCPLL.Value() != 1)
                turnOffLow();
            turnOffHigh();
        }
        mvarOffCPLL = chkOffCPLL.Value();
    } else if (chkSuspend.Value() != mvarSuspend) {
        if (chkSuspend.Value() != 1) {
            if (chkSuspendCPLL.Enabled()) {
                DisableSuspendCheckBox(chkSuspendCPLL);
                turnOnAll();
            }
        } else if (chkOffCPLL.Value() != 1) {
            EnableSuspendCheckBox(chkSuspendCPLL, "");
            if (chkSuspendCPLL.Value() == 1) {
                turnOffLow();
                turnOnHigh();
            } else {
                turnOnAll();
            }
        }
        mvarSuspend = chkSuspend.Value();
    } else if (chkSuspendCPLL.Value() == 1) {
        turnOffLow();
        turnOnHigh();
    } else {
        turnOnAll();
    }
    CheckPLLLimits();
}

// ---------------------------------------------------------------- pinout and power

void frmQX7311::DisplayPinout() {
    const std::string device = Trim(lblDevice.Caption());
    const std::string mode = std::string(chkSuspend.Value() == 1 ? "SUSPEND" : "Select") +
                             (chkShutdown.Value() == 1 ? "+shutdown" : "+oe");
    if (Is7311Model(device)) {
        mAsciiPrintout::GetPinout7311(mastrPinName, mode);
    } else if (Is7312Model(device)) {
        mAsciiPrintout::GetPinout7312(mastrPinName, mode);
    } else {
        return;
    }
    Graphics().DrawChip(picPinout, device, mastrPinName, 0.85);
}

void frmQX7311::CalculatePower() {
    frmPower& power = App().Power();
    power.SetParentForm(this);
    power.SetColCount(3);
    power.SetRowCount(kRows);
    power.SetHead(0, "S2:S0 ");
    power.SetHead(1, "Typical");
    power.SetHead(2, " Worst ");
    power.SetUnit(0, "");
    power.SetUnit(1, "mA ");
    power.SetUnit(2, "mA ");
    clsPower7311& model = PowerModel();
    model.SetVDD(opt3V.Value() ? 3.3 : 5.0);
    power.SetFootnote("");

    std::array<std::int32_t, kClocks> clockDivisor{};
    for (int k = 0; k < kClocks; ++k)
        clockDivisor[static_cast<size_t>(k)] = mShared::GetNonZeroDivisor(cboClk[k].Text());
    const std::int32_t clockFDivisor = mShared::GetNonZeroDivisor(cboClkF.Text());
    const std::int32_t cpuDivisor = mShared::GetNonZeroDivisor(cboCPU.Text());
    const double spll = SPLL().GetVCO(cboSPLLData.Text()) / 2;
    const double upll = UPLL().GetVCO(cboUPLLData.Text()) / 2;
    const double xbuff = Val(cboActualXBuff.Text());
    const bool suspend = chkSuspend.Value() == 1;

    std::array<int, kClocks> pllSuspended{};
    int pllSuspendedF = 0;
    auto loopSuspended = [this](char letter, int before) {
        switch (letter) {
            case 'C':
                return chkSuspendCPLL.Value();
            case 'S':
                return chkSuspendSPLL.Value();
            case 'U':
                return chkSuspendUPLL.Value();
            default:
                return before;
        }
    };
    for (int r = 0; r < kRows; ++r) {
        model.mdblCPLL = CPLL().GetVCO(cboCPLLData[r].Text()) / 2;
        model.mdblSPLL = spll;
        model.mdblUPLL = upll;
        model.mdblXBuff = xbuff;
        const bool suspendedRow = suspend && r < kHighRow;
        if (suspendedRow)
            StopSuspendedLoops(model);
        if (FirstLetter(cboCPU.Text()) == 'C')
            model.mdblCPU = model.mdblCPLL / cpuDivisor;
        std::array<double, kClocks> clock{};
        for (int k = 0; k < kClocks; ++k) {
            const auto kk = static_cast<size_t>(k);
            clock[kk] = Val(cboActualClk[k].Text());
            const char letter = FirstLetter(cboClk[k].Text());
            if (letter == 'C')
                clock[kk] = model.mdblCPLL / clockDivisor[kk];
            pllSuspended[kk] = loopSuspended(letter, pllSuspended[kk]);
        }
        model.mdblClockF = Val(cboActualClkF.Text());
        const char letterF = FirstLetter(cboClkF.Text());
        pllSuspendedF = loopSuspended(letterF, pllSuspendedF);
        if (letterF == 'C')
            model.mdblClockF = model.mdblCPLL / clockFDivisor;
        if (suspendedRow) {
            for (int k = 0; k < kClocks; ++k) {
                const auto kk = static_cast<size_t>(k);
                if (chkSusClk[k].Value() != 0 || pllSuspended[kk] != 0)
                    clock[kk] = 0;
            }
            if (chkSusClkF.Value() != 0 || pllSuspendedF != 0)
                model.mdblClockF = 0;
            if (chkSusXbuff.Value() != 0)
                model.mdblXBuff = 0;
            if (chkSusCPU.Value() != 0 || chkSuspendCPLL.Value() != 0)
                model.mdblCPU = 0;
        }
        model.mdblClockA = clock[0];
        model.mdblClockB = clock[1];
        model.mdblClockC = clock[2];
        model.mdblClockD = clock[3];
        std::string code = " ";
        code += mShared::ConvertDecimalToBinary(r, 3);
        code += ' ';
        power.SetCell(r, 0, code);
        power.SetCell(r, 1, GeneralNumber(model.GetIDD(1)));
        power.SetCell(r, 2, GeneralNumber(model.GetIDD(0)));
    }
    power.ShowPower();
}

}  // namespace pendulon
