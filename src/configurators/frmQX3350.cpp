#include "configurators/frmQX3350.hpp"

#include "app/AppServices.hpp"
#include "app/MainFace.hpp"
#include "app/mHelp.hpp"
#include "app/mSharedApp.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/cls3350Die.hpp"
#include "core/clsPLL.hpp"
#include "core/clsQX3350.hpp"
#include "core/clsReference.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile3350.hpp"
#include "graphics/clsGraphics.hpp"
#include "reports/mAsciiPrintout.hpp"

namespace pendulon {

namespace {

constexpr long kInvalidDevice = 10651;

}  // namespace

frmQX3350::frmQX3350(AppServices& app) : DeviceWindow(app, "frmQX3350") {
    txtPLLMin.Resize(3);
    txtPLLMax.Resize(3);
    SetCaption("QX3350");
    // Apply calculates at once on this window.
    mblnApplyCalculates = true;
    fraClockSource.SetCaption("Clock Source");
    optCrystal.SetCaption("Crystal");
    optExternal.SetCaption("External");
    optCrystal.SetGroup("Source");
    optExternal.SetGroup("Source");
    fraReference.SetCaption("Reference");
    fraVoltage.SetCaption("Voltage");
    fraTTLCMOS.SetCaption("TTL/CMOS Output");
    optTTL.SetCaption("TTL");
    optCMOS.SetCaption("CMOS");
    optTTL.SetGroup("Level");
    optCMOS.SetGroup("Level");
    fraOptions.SetCaption("Options");
    fraPin4.SetCaption("Pin 4");
    optPowerDown.SetCaption("Power &Down");
    optOutputEnable.SetCaption("&Output Enable");
    optPowerDown.SetGroup("Pin4");
    optOutputEnable.SetGroup("Pin4");
    fraSynchronous.SetCaption("Synchronous Select");
    chkSynchronous.SetCaption("&Synchronous OE or PD");
    fraPackage.SetCaption("Package");
    optSOIC.SetCaption("8LD SOIC");
    optTSSOP.SetCaption("8LD TSSOP");
    optSOIC.SetGroup("Package");
    optTSSOP.SetGroup("Package");
    fraPLLFrequency.SetCaption("PLL Frequency");
    lblPLL.SetCaption("PLL");
    lblMHz.SetCaption("MHz");
    txtPLL.SetText("Off");
    txtPLL.SetTag("Off");
    fraPLLData.SetCaption("PLL Data");
    fraOutputs.SetCaption("Outputs");
    lblClkOutDivide.SetCaption("CLK-Out Divide");
    lblDesired.SetCaption("Desired");
    lblActual.SetCaption("Actual");
    lblMin.SetCaption("Min");
    lblMax.SetCaption("Max");
    fraPinout.SetCaption("Pinout");
    lblNoPowerCalculation.SetCaption("Power Calculation Not Available");
    // The reference limits follow the clock source; the window shows no fields for them.
    txtFRefMin.SetVisible(false);
    txtFRefMax.SetVisible(false);
    RegisterFields();
    ConnectEvents();
}

frmQX3350::~frmQX3350() = default;

void frmQX3350::RegisterFields() {
    Register("fraClockSource", fraClockSource);
    Register("optCrystal", optCrystal);
    Register("optExternal", optExternal);
    Register("fraReference", fraReference);
    RegisterReferenceFields();
    Register("fraVoltage", fraVoltage);
    RegisterVoltageFields();
    Register("fraTTLCMOS", fraTTLCMOS);
    Register("optTTL", optTTL);
    Register("optCMOS", optCMOS);
    Register("fraOptions", fraOptions);
    Register("fraPin4", fraPin4);
    Register("optPowerDown", optPowerDown);
    Register("optOutputEnable", optOutputEnable);
    Register("fraSynchronous", fraSynchronous);
    Register("chkSynchronous", chkSynchronous);
    Register("fraPackage", fraPackage);
    Register("optSOIC", optSOIC);
    Register("optTSSOP", optTSSOP);
    Register("fraPLLFrequency", fraPLLFrequency);
    Register("lblPLL", lblPLL);
    Register("txtPLL", txtPLL);
    Register("lblMHz", lblMHz);
    Register("fraPLLData", fraPLLData);
    Register("cboPLLData", cboPLLData);
    Register("fraOutputs", fraOutputs);
    Register("lblClkOutDivide", lblClkOutDivide);
    Register("cboClockDivisors", cboClockDivisors);
    Register("lblDesired", lblDesired);
    Register("lblDesiredClock", lblDesiredClock);
    Register("lblActual", lblActual);
    Register("cboActual", cboActual);
    RegisterLimitFields();
    Register("lblMin", lblMin);
    Register("lblMax", lblMax);
    Register("fraPinout", fraPinout);
    Register("lblNoPowerCalculation", lblNoPowerCalculation);
    RegisterCommonTail();
}

void frmQX3350::ConnectEvents() {
    // The voltage, reference and apply steps of this window replace the shared ones.
    opt3V.OnClick = [this] { opt3V_Click(); };
    opt5V.OnClick = [this] { opt5V_Click(); };
    cboFRef.OnClick = [this] { cboFRef_Click(); };
    cboFRef.OnLostFocus = [this] { cboFRef_LostFocus(); };
    cboFRef.OnGotFocus = [this] {
        mHelp::ShowHint(1, *this, GeneralNumber(kCrystalMinimum), GeneralNumber(kCrystalMaximum),
                        GeneralNumber(kExternalMinimum), GeneralNumber(kExternalMaximum));
    };
    cmdApplyLimits.OnClick = [this] { cmdApplyLimits_Click(); };
    // The hidden reference limits are set by the program only; they are no user edit.
    txtFRefMin.OnChange = nullptr;
    txtFRefMax.OnChange = nullptr;
    txtFRefMin.OnLostFocus = nullptr;
    txtFRefMax.OnLostFocus = nullptr;

    optCrystal.OnClick = [this] { optCrystal_Click(); };
    optExternal.OnClick = [this] { optExternal_Click(); };
    optPowerDown.OnClick = [this] { optPowerDown_Click(); };
    optOutputEnable.OnClick = [this] { optOutputEnable_Click(); };
    cboClockDivisors.OnClick = [this] { cboClockDivisors_Click(); };
    cboPLLData.OnClick = [this] { cboPLLData_Click(); };
    cboActual.OnClick = [this] { cboActual_Click(); };
    txtPLL.OnChange = [this] { txtPLL_Change(); };
    txtPLL.OnLostFocus = [this] { txtPLL_LostFocus(); };
    ConnectFrequencyFieldHelp(
        txtPLL, "PLL", [this] { return Die().MinimumPLLVoltage(); },
        [this] { return Die().MaximumPLLVoltage(); });
    ConnectLimitFieldHelp();
}

// ---------------------------------------------------------------- objects

void frmQX3350::ReleaseObjects() {
    DeviceWindow::ReleaseObjects();
    // The power entry is the other devices' again once this document is gone.
    App().Main().mnuViewPower.SetEnabled(true);
}

// ---------------------------------------------------------------- device and entry file

void frmQX3350::SetDevice(const std::string& device) {
    if (device != "QX3350" && device != "QX3350I") {
        RaiseError(kInvalidDevice, "Device [Property Let]", "Invalid device: " + device);
        return;
    }
    Configurator::SetDevice(device);
    EntryFile().SetForm(*this);
}

void frmQX3350::FillFromEntryFile(clsEntryFile& data) {
    EntryFile().Fill3350Form(data);
}

void frmQX3350::DisplayPinout() {
    mAsciiPrintout::GetPinout3350(mastrPinName, optOutputEnable.Value() ? "OE" : "PD");
    Graphics().DrawChip(picPinout, lblDevice.Caption(), mastrPinName, 1.0);
    picPinout.Refresh();
}

// ---------------------------------------------------------------- load

void frmQX3350::InitializeControls() {
    App().Main().mnuViewPower.SetEnabled(false);
    Reference().InitializeReferenceComboBox(cboFRef);
    picPower.SetVisible(true);
    optTTL.SetValue(true);
    optTTL.SetTag(optTTL.Value() ? "True" : "False");
    txtPLL.SetText("Off");
    txtPLL.SetTag(txtPLL.Text());
    // Each option runs its step even when it is already set.
    if (optCrystal.Value())
        optCrystal_Click();
    else
        optCrystal.SetValue(true);
    if (optPowerDown.Value())
        optPowerDown_Click();
    else
        optPowerDown.SetValue(true);
    optSOIC.SetValue(true);
    cboPLLData.Clear();
    cboActual.Clear();
    DeviceRules().InitializeClockDivisors(cboClockDivisors);
}

void frmQX3350::Form_Load() {
    Configurator::Form_Load();
    ShowNoPowerNote();
}

void frmQX3350::ShowNoPowerNote() {
    const std::string note = lblNoPowerCalculation.Caption();
    const std::string title = "Power";
    const double marginX = 8.0 * App().gintTwipsPerPixelX;
    const double marginY = 6.0 * App().gintTwipsPerPixelY;
    const double titleHeight = picPower.TextHeight(title);
    picPower.Move(picPower.Left(), picPower.Top(), picPower.TextWidth(note) + 2 * marginX,
                  titleHeight + picPower.TextHeight(note) + 2 * marginY);
    picPower.Cls();
    mShared::DrawPictureWindow(App(), picPower, title);
    picPower.PrintAt(marginX, titleHeight + marginY, note, colors::WindowText);
    mShared::ShowWindow(App(), picPower, true);
    picPower.Refresh();
}

void frmQX3350::InitializeDieClass() {
    Die().mdblVoltage = opt3V.Value() ? 3.3 : 5.0;
    Die().SetDefaultLimits();
}

void frmQX3350::InitializePLLClass() {
    InitializeOneLoop();
}

// ---------------------------------------------------------------- voltage

void frmQX3350::opt3V_Click() {
    VoltageChange(true);
}

void frmQX3350::opt5V_Click() {
    VoltageChange(false);
}

void frmQX3350::VoltageChange(bool threeVolt) {
    const bool wasEnabled = Enabled();
    SetEnabled(false);
    // Only CMOS output runs at 3.3 V; a TTL choice comes back at 5 V.
    if (threeVolt) {
        // A second click at 3.3 V must not overwrite the choice made at 5 V.
        if (optTTL.Enabled())
            optTTL.SetTag(optTTL.Value() ? "True" : "False");
        optCMOS.SetValue(true);
        optTTL.SetEnabled(false);
    } else {
        optTTL.SetEnabled(true);
        if (optTTL.Tag() == "True")
            optTTL.SetValue(true);
    }
    MarkCalculateDue();
    Die().mdblVoltage = threeVolt ? 3.3 : 5.0;
    InitializePLLClass();
    GetCurrentPLLLimits();
    CheckAllLimits();
    cmdApplyLimits_Click();
    SetEnabled(wasEnabled);
    if (Enabled())
        SetFocus();
}

// ---------------------------------------------------------------- clock source and pin 4

double frmQX3350::SourceMinimum() const {
    return optExternal.Value() ? kExternalMinimum : kCrystalMinimum;
}

double frmQX3350::SourceMaximum() const {
    return optExternal.Value() ? kExternalMaximum : kCrystalMaximum;
}

void frmQX3350::ShowSourceLimits() {
    txtFRefMin.SetText(GeneralNumber(Reference().Minimum()));
    txtFRefMax.SetText(GeneralNumber(Reference().Maximum()));
}

void frmQX3350::optCrystal_Click() {
    Reference().SetNewLimits(kCrystalMinimum, kCrystalMaximum);
    ShowSourceLimits();
    CheckAllLimits();
}

void frmQX3350::optExternal_Click() {
    Reference().SetNewLimits(kExternalMinimum, kExternalMaximum);
    ShowSourceLimits();
    CheckAllLimits();
}

void frmQX3350::optPowerDown_Click() {
    DisplayPinout();
}

void frmQX3350::optOutputEnable_Click() {
    DisplayPinout();
}

double frmQX3350::ReferenceMinimum() const {
    return MadeReference() ? MadeReference()->Minimum() : kCrystalMinimum;
}

double frmQX3350::ReferenceMaximum() const {
    return MadeReference() ? MadeReference()->Maximum() : kCrystalMaximum;
}

// ---------------------------------------------------------------- limits

void frmQX3350::GetCurrentPLLLimits() {
    DeviceWindow::GetCurrentPLLLimits();
    ShowSourceLimits();
}

void frmQX3350::SetNewPLLLimits() {
    ShowSourceLimits();
    DeviceWindow::SetNewPLLLimits();
}

// ---------------------------------------------------------------- Calculate

void frmQX3350::SetPLLValues() {
    clsPLL& pll = PLL();
    cls3350Die& die = Die();
    const double reference = Val(cboFRef.Text());
    pll.mdblReferenceFrequency = reference;
    pll.mdblVCOMax = die.MaximumPLLVoltage();
    pll.mdblVCOMin = die.MinimumPLLVoltage();
    // The field holds the VCO frequency itself.
    pll.mdblTargetVCO = Val(txtPLL.Text());
    auto whole = [](double value) { return static_cast<std::int32_t>(RoundHalfEven(value)); };
    clsQX3350& rules = DeviceRules();
    pll.mdblMaxQ = rules.GetMaximumQ(reference, whole(die.MaximumQ()));
    pll.mdblMinQ = rules.GetMinimumQ(reference, whole(die.MinimumQ()));
    pll.mdblMaxP = rules.GetMaximumP(reference, whole(die.MaximumP()));
    pll.mdblMinP = rules.GetMinimumP(reference, whole(die.MinimumP()));
    pll.FindPAndQ(false, 0);
    pll.StorePLLData(cboPLLData);
}

void frmQX3350::CalculateDesiredClock() {
    const std::string source = cboClockDivisors.Text();
    double value = 0;
    if (source == "Off")
        value = 0;
    else if (StartsWith(source, 'R'))
        value = Val(cboFRef.Text());
    else
        value = Val(txtPLL.Text());
    if (value <= 0) {
        lblDesiredClock.SetCaption(" Off");
    } else {
        std::string caption = " ";
        caption += mShared::FormatFrequencyFixed(value / mShared::GetNonZeroDivisor(source));
        lblDesiredClock.SetCaption(caption);
    }
    CheckAllLimits();
}

void frmQX3350::DisplayActualOutput() {
    const std::string source = cboClockDivisors.Text();
    const std::int32_t divisor = mShared::GetNonZeroDivisor(source);
    cboActual.Clear();
    if (StartsWith(source, 'R')) {
        cboActual.AddItem(PLL().GetActualFrequencyPPM(Val(cboFRef.Text()) / divisor, 0));
        cboActual.SetListIndex(0);
    } else if (StartsWith(source, 'P')) {
        PLL().DisplayActualPPM(cboPLLData, cboActual, Val(lblDesiredClock.Caption()), divisor);
    } else {
        cboActual.AddItem("Off");
        cboActual.SetListIndex(0);
    }
    CheckAllLimits();
}

double frmQX3350::OutputMaximum() const {
    return DieVoltage() == 3.3 ? kOutputMaximum3V : kOutputMaximum5V;
}

void frmQX3350::Paint(Field& field, Color color) {
    field.SetForeColor(color);
}

void frmQX3350::PaintOutput(Color color) {
    Paint(cboClockDivisors, color);
    Paint(lblDesiredClock, color);
    Paint(cboActual, color);
}

void frmQX3350::CheckAllLimits() {
    mShared::CheckLimits(cboFRef, SourceMinimum(), SourceMaximum());
    mShared::CheckLimits(txtPLL, Die().MinimumPLLVoltage(), Die().MaximumPLLVoltage());
    const std::string source = Trim(cboClockDivisors.Text());
    const bool pllRed = txtPLL.ForeColor() == colors::Red;
    const bool referenceRed = cboFRef.ForeColor() == colors::Red;
    if (source == "Off") {
        PaintOutput(colors::WindowText);
        return;
    }
    if (pllRed && referenceRed) {
        PaintOutput(colors::Red);
        return;
    }
    double minimum = 0;
    double maximum = 0;
    if (StartsWith(source, 'P')) {
        if (pllRed) {
            PaintOutput(colors::Red);
            return;
        }
        minimum = kOutputMinimum;
        maximum = OutputMaximum();
    } else {
        if (referenceRed) {
            PaintOutput(colors::Red);
            return;
        }
        minimum = SourceMinimum();
        maximum = SourceMaximum();
    }
    Paint(cboClockDivisors, colors::WindowText);
    mShared::CheckLimits(lblDesiredClock, minimum, maximum);
    if (lblDesiredClock.ForeColor() == colors::Red)
        Paint(cboActual, colors::Red);
    else
        mShared::CheckLimits(cboActual, minimum, maximum);
}

// ---------------------------------------------------------------- lists and fields

void frmQX3350::cboClockDivisors_Click() {
    const std::string source = cboClockDivisors.Text();
    // The frequency field means something only for a PLL source.
    if (StartsWith(source, 'R') || source == "Off") {
        txtPLL.SetEnabled(false);
        txtPLL.SetText("Off");
    } else {
        txtPLL.SetEnabled(true);
        txtPLL.SetText(txtPLL.Tag());
    }
    MarkCalculateDue();
    CalculateDesiredClock();
}

void frmQX3350::cboPLLData_Click() {
    const int index = cboPLLData.ListIndex();
    if (cboActual.ListCount() >= cboPLLData.ListCount() && cboActual.ListIndex() != index)
        cboActual.SetListIndex(index);
}

void frmQX3350::cboActual_Click() {
    const int index = cboActual.ListIndex();
    if (cboPLLData.ListCount() >= cboActual.ListCount() && cboPLLData.ListIndex() != index)
        cboPLLData.SetListIndex(index);
    CheckAllLimits();
}

void frmQX3350::cboFRef_Click() {
    MarkCalculateDue();
    CalculateDesiredClock();
}

void frmQX3350::cboFRef_LostFocus() {
    Configurator::cboFRef_LostFocus();
    CheckAllLimits();
    Hint("");
}

void frmQX3350::txtPLL_Change() {
    MarkCalculateDue();
}

void frmQX3350::txtPLL_LostFocus() {
    const std::string text = Trim(txtPLL.Text());
    std::string result = text;
    if (text != "Off") {
        const double minimum = Die().MinimumPLLVoltage();
        const double maximum = Die().MaximumPLLVoltage();
        const double value = Val(text);
        if (text.empty())
            result = "Off";
        else if (value < minimum)
            result = mShared::FormatFrequencyShort(minimum);
        else if (value > maximum)
            result = mShared::FormatFrequencyShort(maximum);
        else
            result = mShared::FormatFrequencyShort(value);
    }
    if (result != txtPLL.Text())
        txtPLL.SetText(result);
    txtPLL.SetForeColor(colors::WindowText);
    if (CalculatePending())
        CalculateDesiredClock();
    txtPLL.SetTag(txtPLL.Text());
    txtPLL.SetSelLength(0);
    Hint("");
}

}  // namespace pendulon
