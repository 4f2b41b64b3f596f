#include "configurators/frmQX5140.hpp"

#include <cstdlib>

#include "app/AppServices.hpp"
#include "app/DeviceFace.hpp"
#include "app/MainFace.hpp"
#include "app/mHelp.hpp"
#include "app/mSharedApp.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/cls7311Die.hpp"
#include "core/clsPLL.hpp"
#include "core/clsQX7311.hpp"
#include "core/clsReference.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "entryfile/mFileAccessor.hpp"
#include "graphics/clsGraphics.hpp"
#include "power/clsPower7311.hpp"
#include "power/frmPower.hpp"
#include "reports/mAsciiPrintout.hpp"

namespace pendulon {

namespace {

constexpr int kHourglass = 11;

std::string BoolText(bool value) {
    return value ? "True" : "False";
}

// The window as its entry file sees it: a three-loop window with the QX5140's own members.
class QX5140EntryForm : public ConfiguratorEntryForm7311 {
  public:
    explicit QX5140EntryForm(frmQX5140& form) : ConfiguratorEntryForm7311(form), form_(form) {}
    void cmdCalculate_Click() override { form_.cmdCalculate_Click(); }
    int CalculateCounter() const override { return form_.mintCalculateCounter; }
    std::vector<std::array<std::string, 4>> FoundSources() const override {
        return form_.mstrSources();
    }
    void ShowNote(const std::string& text) override {
        form_.App().Services().MsgBox(text, msgbox::Information, form_.App().gstrTitle);
    }

  private:
    frmQX5140& form_;
};

}  // namespace

frmQX5140::frmQX5140(AppServices& app) : frm7311Family(app, "frmQX5140", 2) {
    // The search works on the family's loops, die and rules, which stay with the window until
    // it is destroyed.
    mclsSearch =
        std::make_unique<clsCaseSearch>(app.Errors(), SPLL(), UPLL(), CPLL(), Die(), DeviceRules());
    // The loops' suspend boxes stand in their own frame beside the loop names, without a
    // caption of their own.
    for (CheckBox* box : {&chkSuspendCPLL, &chkSuspendSPLL, &chkSuspendUPLL}) box->SetCaption("");
    SetCaption("QX5140");
    lblDevice.SetCaption("QX5140");
    fraPin8Option.SetCaption("Pin 8");
    optOE.SetCaption("&Output Enable");
    optShutdown.SetCaption("Shut&down");
    optSelect.SetCaption("&Select/Suspend");
    for (OptionButton* option : {&optOE, &optShutdown, &optSelect}) option->SetGroup("Pin8");
    fraSuspend.SetCaption("Suspend");
    optSuspendOutputsOnly.SetCaption("Outputs Only");
    optSuspendOutputsAndPLLs.SetCaption("Outputs && PLLs");
    optSuspendOutputsOnly.SetGroup("Suspend");
    optSuspendOutputsAndPLLs.SetGroup("Suspend");
    fraSensitivity.SetCaption("Sensitivity");
    lblSensitivity.SetCaption("ppm");
    vsbPPM.SetMin(-5000);
    vsbPPM.SetMax(0);
    vsbPPM.SetSmallChange(5);
    vsbPPM.SetLargeChange(5);
    lblClkA[0].SetCaption("CLKA [0]");
    lblClkA[1].SetCaption("CLKA [1]");
    lblClkB.SetCaption("CLKB");
    lblClkC.SetCaption("CLKC");
    fraPllAssignment.SetCaption("PLL Assignment");
    const char* const outputs[] = {"CLKA", "CLKB", "CLKC"};
    for (int i = 0; i < 3; ++i) lblClkSrcDiv[i].SetCaption(outputs[i]);
    lblPrivatePLL.SetCaption("Private PLL");
    fraSuspenPlls.SetCaption("Suspend");
    const char* const loops[] = {"CPLL", "SPLL", "UPLL"};
    for (int i = 0; i < 3; ++i) lblSuspendPLL[i].SetCaption(loops[i]);
    fraPLLData.SetCaption("PLL Data");
    const char* const data[] = {"CPLL[0]", "CPLL[4]", "SPLL", "UPLL"};
    for (int i = 0; i < 4; ++i) lblPLLData[i].SetCaption(data[i]);
    const char* const limits[] = {"UPLL", "SPLL", "CPLL", "FRef"};
    for (int i = 0; i < 4; ++i) lblLimits[i].SetCaption(limits[i]);
    lblMin.SetCaption("Min");
    lblMax.SetCaption("Max");
    fraPinout.SetCaption("Pinout");
    RegisterFields();
    ConnectEvents();
}

frmQX5140::~frmQX5140() = default;

void frmQX5140::RegisterFields() {
    Register("lblDevice", lblDevice);
    Register("txtFilePath", txtFilePath);
    Register("opt5V", opt5V);
    Register("opt3V", opt3V);
    RegisterReferenceFields();
    Register("fraPin8Option", fraPin8Option);
    Register("optOE", optOE);
    Register("optShutdown", optShutdown);
    Register("optSelect", optSelect);
    Register("fraSuspend", fraSuspend);
    Register("optSuspendOutputsOnly", optSuspendOutputsOnly);
    Register("optSuspendOutputsAndPLLs", optSuspendOutputsAndPLLs);
    Register("fraSensitivity", fraSensitivity);
    Register("txtPPM", txtPPM);
    Register("vsbPPM", vsbPPM);
    Register("lblSensitivity", lblSensitivity);
    RegisterArray("lblClkA", lblClkA);
    Register("lblClkB", lblClkB);
    Register("lblClkC", lblClkC);
    RegisterArray("txtClkA", txtClkA);
    Register("txtClkB", txtClkB);
    Register("txtClkC", txtClkC);
    RegisterArray("cboClkA", cboClkA);
    Register("cboClkB", cboClkB);
    Register("cboClkC", cboClkC);
    Register("lblClkASrc", lblClkASrc);
    Register("lblClkBSrc", lblClkBSrc);
    Register("lblClkCSrc", lblClkCSrc);
    Register("fraPllAssignment", fraPllAssignment);
    RegisterArray("lblClkSrcDiv", lblClkSrcDiv);
    Register("lblClkASrcDiv", lblClkASrcDiv);
    Register("lblClkBSrcDiv", lblClkBSrcDiv);
    Register("lblClkCSrcDiv", lblClkCSrcDiv);
    Register("chkSuspendClockA", chkSuspendClockA);
    Register("chkSuspendClockB", chkSuspendClockB);
    Register("chkSuspendClockC", chkSuspendClockC);
    Register("lblPrivatePLL", lblPrivatePLL);
    Register("chkPrivatePLLClockA", chkPrivatePLLClockA);
    Register("chkPrivatePLLClockB", chkPrivatePLLClockB);
    Register("chkPrivatePLLClockC", chkPrivatePLLClockC);
    Register("fraSuspenPlls", fraSuspenPlls);
    RegisterArray("lblSuspendPLL", lblSuspendPLL);
    Register("chkSuspendCPLL", chkSuspendCPLL);
    Register("chkSuspendSPLL", chkSuspendSPLL);
    Register("chkSuspendUPLL", chkSuspendUPLL);
    Register("fraPLLData", fraPLLData);
    RegisterArray("lblPLLData", lblPLLData);
    RegisterArray("cboCPLLData", cboCPLLData);
    Register("cboSPLLData", cboSPLLData);
    Register("cboUPLLData", cboUPLLData);
    RegisterLimitFields();
    RegisterArray("lblLimits", lblLimits);
    Register("lblMin", lblMin);
    Register("lblMax", lblMax);
    Register("cmdCalculate", cmdCalculate);
    Register("lblCaseMessage", lblCaseMessage);
    Register("fraPinout", fraPinout);
    Register("picPinout", picPinout);
    Register("picPower", picPower);
    Register("picDebugWindow", picDebugWindow);
}

void frmQX5140::ConnectEvents() {
    const auto numbers = [this](int wholeNumbers) {
        return [this, wholeNumbers](int& key) {
            mShared::MaskKeystrokeForNumbers(key, wholeNumbers, App().Services());
        };
    };
    const auto clearHint = [this] { mHelp::ShowHint(0, *this); };
    opt3V.OnClick = [this] { opt3V_Click(); };
    opt5V.OnClick = [this] { opt5V_Click(); };
    cboFRef.OnKeyPress = numbers(0);
    cboFRef.OnGotFocus = [this] {
        mShared::HighLightText(cboFRef);
        mHelp::ShowHint(1, *this);
    };
    optOE.OnClick = [this] { optOE_Click(); };
    optShutdown.OnClick = [this] { optShutdown_Click(); };
    optSelect.OnClick = [this] { optSelect_Click(); };
    optSuspendOutputsOnly.OnClick = [this] { optSuspendOutputsOnly_Click(); };
    optSuspendOutputsAndPLLs.OnClick = [this] { optSuspendOutputsAndPLLs_Click(); };
    txtPPM.OnChange = [this] { MarkCalculateDue(); };
    txtPPM.OnKeyPress = numbers(1);
    txtPPM.OnGotFocus = [this] {
        mShared::HighLightText(txtPPM);
        mHelp::ShowHint(13, *this);
    };
    txtPPM.OnLostFocus = [this] { txtPPM_LostFocus(); };
    vsbPPM.OnChange = [this] { vsbPPM_Change(); };
    vsbPPM.OnGotFocus = [this] { mHelp::ShowHint(13, *this); };
    vsbPPM.OnLostFocus = clearHint;
    const auto clockHint = [this](TextField& field) {
        return [this, &field] {
            mShared::HighLightText(field);
            mHelp::ShowHint(11, *this, GeneralNumber(mdblMinimumOutput),
                            GeneralNumber(mdblMaximumOutput));
        };
    };
    for (int i = 0; i < 2; ++i) {
        txtClkA[i].OnChange = [this] { MarkCalculateDue(); };
        txtClkA[i].OnKeyPress = numbers(0);
        txtClkA[i].OnGotFocus = clockHint(txtClkA[i]);
        txtClkA[i].OnLostFocus = [this, i] { txtClkA_LostFocus(i); };
        cboClkA[i].OnClick = [this, i] { cboClkA_Click(i); };
        cboCPLLData[i].OnClick = [this, i] { cboCPLLData_Click(i); };
    }
    txtClkB.OnChange = [this] { MarkCalculateDue(); };
    txtClkB.OnKeyPress = numbers(0);
    txtClkB.OnGotFocus = clockHint(txtClkB);
    txtClkB.OnLostFocus = [this] { txtClkB_LostFocus(); };
    txtClkC.OnChange = [this] { MarkCalculateDue(); };
    txtClkC.OnKeyPress = numbers(0);
    txtClkC.OnGotFocus = clockHint(txtClkC);
    txtClkC.OnLostFocus = [this] { txtClkC_LostFocus(); };
    cboClkB.OnClick = [this] { cboClkB_Click(); };
    cboClkC.OnClick = [this] { cboClkC_Click(); };
    cboSPLLData.OnClick = [this] { cboSPLLData_Click(); };
    cboUPLLData.OnClick = [this] { cboUPLLData_Click(); };
    chkSuspendClockA.OnClick = [this] { chkSuspendClockA_Click(); };
    chkSuspendClockB.OnClick = [this] { chkSuspendClockB_Click(); };
    chkSuspendClockC.OnClick = [this] { chkSuspendClockC_Click(); };
    const std::pair<CheckBox*, const char*> suspends[] = {
        {&chkSuspendClockA, "A"}, {&chkSuspendClockB, "B"}, {&chkSuspendClockC, "C"}};
    for (const auto& [check, letter] : suspends) {
        const std::string name = letter;
        check->OnGotFocus = [this, name] { mHelp::ShowHint(21, *this, name); };
        check->OnLostFocus = clearHint;
    }
    for (CheckBox* check : {&chkPrivatePLLClockA, &chkPrivatePLLClockB, &chkPrivatePLLClockC})
        check->OnClick = [this] { MarkCalculateDue(); };
    chkUseDefault.OnClick = [this] { chkUseDefault_Click(); };
    cmdCalculate.OnClick = [this] { cmdCalculate_Click(); };
    cmdCalculate.OnGotFocus = [this] { mHelp::ShowHint(17, *this); };
    cmdCalculate.OnLostFocus = clearHint;
    for (int i = 0; i < txtPLLMin.Count(); ++i) {
        txtPLLMin[i].OnKeyPress = numbers(0);
        txtPLLMax[i].OnKeyPress = numbers(0);
        txtPLLMin[i].OnGotFocus = [this, i] { mShared::HighLightText(txtPLLMin[i]); };
        txtPLLMax[i].OnGotFocus = [this, i] { mShared::HighLightText(txtPLLMax[i]); };
    }
    // The two floating panels are dragged by their title bar.
    picPower.OnMouseDown = [this](int button, int, double, double y) {
        if (y <= picPower.TextHeight("X"))
            mShared::FormMoveAPI(App(), picPower, button);
    };
    picDebugWindow.OnMouseDown = [this](int button, int, double, double y) {
        if (y <= picDebugWindow.TextHeight("X"))
            mShared::FormMoveAPI(App(), picDebugWindow, button);
    };
}

// ---------------------------------------------------------------- contract

void frmQX5140::SetDevice(const std::string& device) {
    Configurator::SetDevice(device);
}

void frmQX5140::AttachEntryFile() {
    EntryFileObject().SetForm(std::make_unique<QX5140EntryForm>(*this));
}

bool frmQX5140::MakeEPROMVector(const std::string&, bool) {
    // The window does not offer the vector.
    RaiseError(445, "MakeEPROMVector", "Object doesn't support this action");
    return false;
}

bool frmQX5140::FillForm(clsEntryFile& data, const std::string& path) {
    txtFilePath.SetText(path);
    SetCaption(mFileAccessor::GetFileName(path));
    EntryFile().Fill5140Form(data);
    return EntryFile().FormShown();
}

void frmQX5140::ReleaseObjects() {
    // The loops, die and search stay with the window until it is destroyed: a late event of a
    // view must not find them gone. What a search found goes.
    mclsSearch->mstrSources.clear();
}

// ---------------------------------------------------------------- load

void frmQX5140::Form_Load() {
    mblnLoading = true;
    auto& device = App().DeviceForm();
    device.mstrPreviousDevice = device.mstrCurrentDevice;
    SetDevice(device.mstrCurrentDevice);
    Move(0, 0, 9600, 6620);
    Reference().InitializeReferenceComboBox(cboFRef);
    if (!InitializeDieClass5140()) {
        mblnLoading = false;
        return;
    }
    InitializeAllPLLClasses();
    mclsSearch->InitializePLLDivisorArrays();
    InitializeControls5140();
    mShared::InitializePowerPictureBox(App(), picPower);
    ConnectDebugWindow();
    mShared::InitializeDebugPictureBox(App(), picDebugWindow);
    mblnSuspendOutputsOnly = true;
    mblnUseDefaults3V = true;
    mblnUseDefaults5V = true;
    // So that the pin 8 click below marks a Calculate due.
    mblnSelectWasLast = true;
    // The voltage first: its click applies the limits, which calculates and leaves the button
    // grey; Output Enable's click after it leaves the new form with the button yellow, asking
    // for the first Calculate.
    opt5V.SetValue(true);
    optOE.SetValue(true);
    mblnLoading = false;
}

bool frmQX5140::InitializeDieClass5140() {
    const std::string device = Device();
    if (device != "QX5140") {
        RaiseError(10001, "InitializeDieClass", "Invalid device: " + device);
        return false;
    }
    SetDieDefaults(8, 80, 8, 100);
    return true;
}

void frmQX5140::InitializeControls5140() {
    for (TextField* field : {&txtClkA[0], &txtClkA[1], &txtClkB, &txtClkC}) {
        field->SetText("Off");
        field->SetTag(field->Text());
    }
    vsbPPM.SetValue(-1000);
    if (txtPPM.Text().empty())
        vsbPPM_Change();
    for (CheckBox* check : {&chkPrivatePLLClockA, &chkPrivatePLLClockB, &chkPrivatePLLClockC,
                            &chkSuspendClockA, &chkSuspendClockB, &chkSuspendClockC,
                            &chkSuspendCPLL, &chkSuspendSPLL, &chkSuspendUPLL}) {
        check->SetValue(0);
        check->SetTag(IntegerText(check->Value()));
    }
    for (OptionButton* option : {&optSuspendOutputsOnly, &optSuspendOutputsAndPLLs}) {
        option->SetValue(false);
        option->SetTag(BoolText(option->Value()));
    }
}

void frmQX5140::InitializeAllPLLClasses() {
    mclsSearch->InitializeAllPLLClasses(mdblMinimumOutput, mdblMaximumOutput);
}

// ---------------------------------------------------------------- Calculate

void frmQX5140::cmdCalculate_Click() {
    PlatformServices& services = App().Services();
    const int pointer = services.MousePointer();
    services.SetMousePointer(kHourglass);
    Status("Calculating...");
    // A yellow button searches afresh; a grey one steps to the next case.
    if (cmdCalculate.BackColor() == colors::Yellow)
        mblnInputsChanged = true;
    InitializeAllVCOPAndQ();
    SetPLLValues();
    FindClockSources();
    SetPLLSuspends();
    DisplayAllActuals();
    CheckPLLLimits();
    CalculatePower();
    mblnInputsChanged = false;
    App().Main().FileChange();
    Status("");
    App().gblnNeedsCalculate = false;
    cmdCalculate.SetBackColor(colors::Grey);
    services.SetMousePointer(pointer);
    if (Visible())
        SetFocus();
}

void frmQX5140::InitializeAllVCOPAndQ() {
    const bool v3 = Die().mdblVoltage == 3.3;
    const cls7311Die& d = Die();
    CPLL().StoreVCOPAndQ(cboCPLLData[0], v3 ? d.mdblCPLLMinP3V : d.mdblCPLLMinP5V,
                         v3 ? d.mdblCPLLMinQ3V : d.mdblCPLLMinQ5V);
    CPLL().StoreVCOPAndQ(cboCPLLData[1], v3 ? d.mdblCPLLMinP3V : d.mdblCPLLMinP5V,
                         v3 ? d.mdblCPLLMinQ3V : d.mdblCPLLMinQ5V);
    SPLL().StoreVCOPAndQ(cboSPLLData, v3 ? d.mdblSPLLMinP3V : d.mdblSPLLMinP5V,
                         v3 ? d.mdblSPLLMinQ3V : d.mdblSPLLMinQ5V);
    UPLL().StoreVCOPAndQ(cboUPLLData, v3 ? d.mdblUPLLMinP3V : d.mdblUPLLMinP5V,
                         v3 ? d.mdblUPLLMinQ3V : d.mdblUPLLMinQ5V);
}

void frmQX5140::SetPLLValues() {
    mclsSearch->SetPLLValues(Val(cboFRef.Text()));
}

double frmQX5140::ReferenceEntry() const {
    const int index = cboFRef.ListIndex();
    return Val(index >= 0 ? cboFRef.List(index) : cboFRef.Text());
}

void frmQX5140::FindClockSources() {
    clsCaseSearch::Inputs inputs;
    inputs.dblReference = ReferenceEntry();
    inputs.dblSensitivity = Val(txtPPM.Text());
    inputs.adblDesired = {Val(txtClkA[0].Text()), Val(txtClkA[1].Text()), Val(txtClkB.Text()),
                          Val(txtClkC.Text())};
    inputs.ablnPrivate = {chkPrivatePLLClockA.Value() == 1, chkPrivatePLLClockB.Value() == 1,
                          chkPrivatePLLClockC.Value() == 1};
    inputs.blnSelect = optSelect.Value();
    clsCaseSearch& search = *mclsSearch;
    search.mintCalculateCounter = mintCalculateCounter;
    const bool shown = search.FindClockSources(mblnInputsChanged, inputs);
    mintCalculateCounter = search.mintCalculateCounter;
    if (!shown) {
        RaiseError(10002, "FindClockSources",
                   "A non-fatal condition exists which was not planned for.  Please report this "
                   "message to the Manager of the Marlin Works division.");
        return;
    }
    const clsCaseSearch::CaseView view = search.ShowCase(optSelect.Value());
    Label* labels[3] = {&lblClkASrcDiv, &lblClkBSrcDiv, &lblClkCSrcDiv};
    for (int i = 0; i < 3; ++i) labels[i]->SetCaption(view.astrLabels[static_cast<size_t>(i)]);
    for (const clsCaseSearch::Store& store : view.aStores)
        StorePLLPandQ(store.dblFrequency, store.strSource, store.intWhichCase);
    lblCaseMessage.SetCaption(view.strMessage);
}

clsPLL* frmQX5140::LoopOfLetter(char letter) {
    switch (letter) {
        case 'C':
            return &CPLL();
        case 'S':
            return &SPLL();
        case 'U':
            return &UPLL();
        default:
            return nullptr;
    }
}

void frmQX5140::StorePLLPandQ(double dblFrequency, const std::string& strS, int intWhichCase) {
    const char letter = FirstLetter(strS);
    clsPLL* pll = LoopOfLetter(letter);
    // The reference and an output that is off need no loop.
    if (pll == nullptr)
        return;
    ListField& list =
        letter == 'C' ? cboCPLLData[intWhichCase] : (letter == 'S' ? cboSPLLData : cboUPLLData);
    pll->mdblTargetVCO = mShared::GetNonZeroDivisor(strS) * dblFrequency;
    pll->FindPAndQ();
    pll->StorePLLData(list);
}

// ---------------------------------------------------------------- display

std::string frmQX5140::DisplayClockSource(const std::string& strSource) {
    const char letter = FirstLetter(strSource);
    std::string text;
    double f1 = 0;
    double f2 = 0;
    switch (letter) {
        case 'R':
            text = "Ref";
            f1 = Val(cboFRef.Text());
            break;
        case 'S':
            text = "PLL1";
            f1 = SPLL().GetVCO(cboSPLLData.Text());
            break;
        case 'C':
            text = "PLL2";
            f1 = CPLL().GetVCO(cboCPLLData[0].Text());
            f2 = CPLL().GetVCO(cboCPLLData[1].Text());
            break;
        case 'U':
            text = "PLL3";
            f1 = UPLL().GetVCO(cboUPLLData.Text());
            break;
        default:
            text = "N/A";
            break;
    }
    // A loop without a solution shows "N/A", not its name.
    if (!(f1 > 0) && !(f2 > 0))
        text = "N/A";
    return text;
}

void frmQX5140::DisplayActualOutput(const TextField& txtDesired, const std::string& strSource,
                                    ListField& cboDestination, int intWhichCase) {
    const double desired = Val(txtDesired.Text());
    cboDestination.Clear();
    const std::int32_t n = mShared::GetNonZeroDivisor(strSource);
    switch (FirstLetter(strSource)) {
        case 'R': {
            const double actual = Val(cboFRef.Text()) / n;
            const std::int32_t ppm = mShared::CalculatePPM(actual, desired);
            cboDestination.AddItem(CPLL().GetActualFrequencyPPM(actual, ppm));
            cboDestination.SetListIndex(0);
            break;
        }
        case 'S':
            SPLL().DisplayActualPPM(cboSPLLData, cboDestination, desired, n);
            break;
        case 'C':
            CPLL().DisplayActualPPM(cboCPLLData[intWhichCase], cboDestination, desired, n);
            break;
        case 'U':
            UPLL().DisplayActualPPM(cboUPLLData, cboDestination, desired, n);
            break;
        default:
            cboDestination.AddItem("Off");
            cboDestination.SetListIndex(0);
            break;
    }
}

void frmQX5140::DisplayAllActuals() {
    lblClkASrc.SetCaption(DisplayClockSource(lblClkASrcDiv.Caption()));
    lblClkBSrc.SetCaption(DisplayClockSource(lblClkBSrcDiv.Caption()));
    lblClkCSrc.SetCaption(DisplayClockSource(lblClkCSrcDiv.Caption()));
    DisplayActualOutput(txtClkA[1], lblClkASrcDiv.Caption(), cboClkA[1], 1);
    if (chkSuspendClockA.Value() != 1) {
        DisplayActualOutput(txtClkA[0], lblClkASrcDiv.Caption(), cboClkA[0], 0);
    } else {
        // State 0 of CLKA is the stopped state.
        DisplayActualOutput(txtClkA[0], "Off", cboClkA[0], 1);
    }
    DisplayActualOutput(txtClkB, lblClkBSrcDiv.Caption(), cboClkB, 0);
    DisplayActualOutput(txtClkC, lblClkCSrcDiv.Caption(), cboClkC, 0);
    if (optSelect.Value() && chkSuspendCPLL.Value() == 1) {
        // The CPLL row of state 0 is parked while the loop is suspended.
        CPLL().StoreVCOPAndQ(cboCPLLData[0], 3, 2);
    }
}

void frmQX5140::SetActualListIndex(const std::string& strSource, ListField& cboDestination,
                                   int intIndex, const std::string& strPLL) {
    const std::string loop = Trim(mShared::GetSubstring(strSource, "", "/"));
    // The inequality keeps the two click events from calling each other for ever.
    if (loop == strPLL && cboDestination.ListCount() > intIndex &&
        cboDestination.ListIndex() != intIndex)
        cboDestination.SetListIndex(intIndex);
}

void frmQX5140::cboCPLLData_Click(int Index) {
    const int n = cboCPLLData[Index].ListIndex();
    SetActualListIndex(lblClkASrcDiv.Caption(), cboClkA[Index], n, "CPLL");
    SetActualListIndex(lblClkBSrcDiv.Caption(), cboClkB, n, "CPLL");
    SetActualListIndex(lblClkCSrcDiv.Caption(), cboClkC, n, "CPLL");
}

void frmQX5140::cboSPLLData_Click() {
    const int n = cboSPLLData.ListIndex();
    SetActualListIndex(lblClkASrcDiv.Caption(), cboClkA[0], n, "SPLL");
    SetActualListIndex(lblClkASrcDiv.Caption(), cboClkA[1], n, "SPLL");
    SetActualListIndex(lblClkBSrcDiv.Caption(), cboClkB, n, "SPLL");
    SetActualListIndex(lblClkCSrcDiv.Caption(), cboClkC, n, "SPLL");
}

void frmQX5140::cboUPLLData_Click() {
    const int n = cboUPLLData.ListIndex();
    SetActualListIndex(lblClkASrcDiv.Caption(), cboClkA[0], n, "UPLL");
    SetActualListIndex(lblClkASrcDiv.Caption(), cboClkA[1], n, "UPLL");
    SetActualListIndex(lblClkBSrcDiv.Caption(), cboClkB, n, "UPLL");
    SetActualListIndex(lblClkCSrcDiv.Caption(), cboClkC, n, "UPLL");
}

void frmQX5140::MatchOutputSelects(int intIndex, const std::string& strSource, int varIndex) {
    if (strSource == "PLL1") {
        cboSPLLData.SetListIndex(intIndex);
    } else if (strSource == "PLL3") {
        cboUPLLData.SetListIndex(intIndex);
    } else if (strSource == "PLL2") {
        ListField& list = cboCPLLData[varIndex >= 0 ? varIndex : 0];
        if (list.ListCount() > intIndex)
            list.SetListIndex(intIndex);
    }
}

bool frmQX5140::LoopRange(const std::string& label, double& minimum, double& maximum) {
    const cls7311Die& d = Die();
    if (label == "PLL1") {
        minimum = d.MinimumSPLLVoltage() / 16;
        maximum = d.MaximumSPLLVoltage();
    } else if (label == "PLL2") {
        minimum = d.MinimumCPLLVoltage() / 16;
        maximum = d.MaximumCPLLVoltage();
    } else if (label == "PLL3") {
        minimum = d.MinimumUPLLVoltage() / 16;
        maximum = d.MaximumUPLLVoltage();
    } else {
        return false;
    }
    return true;
}

void frmQX5140::OutputClick(ListField& cboOutput, const TextField& txtDesired,
                            const Label& lblSource, int Index) {
    const std::string source = Trim(lblSource.Caption());
    MatchOutputSelects(cboOutput.ListIndex(), source, Index);
    double minimum = 0;
    double maximum = 0;
    if (txtDesired.ForeColor() == colors::Red) {
        cboOutput.SetForeColor(colors::Red);
    } else if (LoopRange(source, minimum, maximum)) {
        mShared::CheckLimits(cboOutput, minimum, maximum);
    } else if (source == "Off" || source == "N/A") {
        cboOutput.SetForeColor(colors::WindowText);
    }
}

void frmQX5140::cboClkA_Click(int Index) {
    OutputClick(cboClkA[Index], txtClkA[Index], lblClkASrc, Index);
}

void frmQX5140::cboClkB_Click() {
    OutputClick(cboClkB, txtClkB, lblClkBSrc, -1);
}

void frmQX5140::cboClkC_Click() {
    OutputClick(cboClkC, txtClkC, lblClkCSrc, -1);
}

// ---------------------------------------------------------------- limits

void frmQX5140::CheckPLLLimits() {
    double minimum = 0;
    double maximum = 0;
    // The text field first: a red there is copied onto the list by the list's click.
    const std::string a = Trim(lblClkASrc.Caption());
    if (LoopRange(a, minimum, maximum)) {
        mShared::CheckLimits(txtClkA[0], minimum, maximum);
        if (a == "PLL2" && optSelect.Value()) {
            mShared::CheckLimits(txtClkA[1], minimum, maximum);
            cboClkA_Click(1);
        }
    } else if (a == "Off" || a == "N/A") {
        txtClkA[0].SetForeColor(colors::WindowText);
        if (optSelect.Value())
            txtClkA[1].SetForeColor(colors::WindowText);
    }
    cboClkA_Click(0);
    const std::string b = Trim(lblClkBSrc.Caption());
    if (LoopRange(b, minimum, maximum)) {
        mShared::CheckLimits(txtClkB, minimum, maximum);
    } else if (b == "Off" || b == "N/A") {
        txtClkB.SetForeColor(colors::WindowText);
    }
    cboClkB_Click();
    const std::string c = Trim(lblClkCSrc.Caption());
    if (LoopRange(c, minimum, maximum)) {
        mShared::CheckLimits(txtClkC, minimum, maximum);
    } else if (c == "Off" || c == "N/A") {
        txtClkC.SetForeColor(colors::WindowText);
    }
    cboClkC_Click();
}

void frmQX5140::cmdApplyLimits_Click() {
    PlatformServices& services = App().Services();
    const int pointer = services.MousePointer();
    services.SetMousePointer(kHourglass);
    cmdCalculate.SetBackColor(colors::Yellow);
    SetNewPLLLimits();
    InitializeAllPLLClasses();
    chkUseDefault.SetValue(LimitsEqualDefaults() ? 1 : 0);
    // A full search: the button is yellow.
    cmdCalculate_Click();
    cmdApplyLimits.SetBackColor(colors::Grey);
    cmdApplyLimits.SetEnabled(false);
    services.SetMousePointer(pointer);
}

void frmQX5140::chkUseDefault_Click() {
    MarkCalculateDue();
    if (Die().mdblVoltage == 3.3) {
        mblnUseDefaults3V = chkUseDefault.Value() != 0;
    } else {
        mblnUseDefaults5V = chkUseDefault.Value() != 0;
    }
    GetCurrentPLLLimits();
    cmdApplyLimits.SetEnabled(true);
}

void frmQX5140::opt3V_Click() {
    PlatformServices& services = App().Services();
    const int pointer = services.MousePointer();
    services.SetMousePointer(kHourglass);
    Die().mdblVoltage = 3.3;
    InitializeAllPLLClasses();
    GetCurrentPLLLimits();
    CheckPLLLimits();
    cmdApplyLimits_Click();
    services.SetMousePointer(pointer);
}

void frmQX5140::opt5V_Click() {
    PlatformServices& services = App().Services();
    const int pointer = services.MousePointer();
    services.SetMousePointer(kHourglass);
    Die().mdblVoltage = 5;
    InitializeAllPLLClasses();
    GetCurrentPLLLimits();
    // Unlike 3.3 V, no limit check here.
    cmdApplyLimits_Click();
    services.SetMousePointer(pointer);
}

// ---------------------------------------------------------------- pin 8 and suspend

void frmQX5140::optOE_Click() {
    SetAllSuspends();
    DisplayPinout();
    // Only the way out of Select/Suspend changes what can be assigned.
    if (mblnSelectWasLast)
        MarkCalculateDue();
    mblnSelectWasLast = false;
}

void frmQX5140::optShutdown_Click() {
    optOE_Click();
}

void frmQX5140::optSelect_Click() {
    SetAllSuspends();
    DisplayPinout();
    MarkCalculateDue();
    mblnSelectWasLast = true;
}

void frmQX5140::optSuspendOutputsOnly_Click() {
    SetSuspendState();
    SetPLLSuspends();
    MarkCalculateDue();
}

void frmQX5140::optSuspendOutputsAndPLLs_Click() {
    optSuspendOutputsOnly_Click();
}

void frmQX5140::chkSuspendClockA_Click() {
    if (!mblnForcingSuspendChecks)
        SetSuspendClockA();
    SetPLLSuspends();
    MarkCalculateDue();
}

void frmQX5140::chkSuspendClockB_Click() {
    SetPLLSuspends();
    MarkCalculateDue();
}

void frmQX5140::chkSuspendClockC_Click() {
    chkSuspendClockB_Click();
}

void frmQX5140::SetAllSuspends() {
    if (optSelect.Value() && !mblnSuspendFieldsShown) {
        optSuspendOutputsOnly.SetVisible(true);
        optSuspendOutputsAndPLLs.SetVisible(true);
        fraSuspend.SetVisible(true);
        if (mblnSuspendOutputsOnly) {
            optSuspendOutputsOnly.SetValue(true);
        } else {
            optSuspendOutputsAndPLLs.SetValue(true);
        }
        mblnSuspendFieldsShown = true;
        mblnSuspendFieldsHidden = false;
    } else if ((optOE.Value() || optShutdown.Value()) && !mblnSuspendFieldsHidden) {
        if (optSuspendOutputsOnly.Value() || optSuspendOutputsAndPLLs.Value())
            mblnSuspendOutputsOnly = optSuspendOutputsOnly.Value();
        optSuspendOutputsOnly.SetValue(false);
        optSuspendOutputsAndPLLs.SetValue(false);
        // With both options clear, the suspend routines take the fields out of use.
        if (mblnSuspendOutputsOnly) {
            optSuspendOutputsOnly_Click();
        } else {
            optSuspendOutputsAndPLLs_Click();
        }
        optSuspendOutputsOnly.SetVisible(false);
        optSuspendOutputsAndPLLs.SetVisible(false);
        fraSuspend.SetVisible(false);
        mblnSuspendFieldsHidden = true;
        mblnSuspendFieldsShown = false;
    }
}

void frmQX5140::SetSuspendState() {
    const bool anySet = optSuspendOutputsOnly.Value() || optSuspendOutputsAndPLLs.Value();
    CheckBox* clocks[3] = {&chkSuspendClockA, &chkSuspendClockB, &chkSuspendClockC};
    if (!anySet && !mblnSelectRowHidden) {
        lblClkA[0].SetCaption("CLKA");
        lblClkA[1].SetVisible(false);
        txtClkA[1].SetTag(txtClkA[1].Text());
        txtClkA[1].SetText("Off");
        txtClkA[1].SetEnabled(false);
        txtClkA[1].SetVisible(false);
        cboClkA[1].SetVisible(false);
        mblnForcingSuspendChecks = true;
        for (CheckBox* check : clocks) {
            check->SetTag(IntegerText(check->Value()));
            check->SetValue(0);
            check->SetVisible(false);
        }
        mblnForcingSuspendChecks = false;
        chkPrivatePLLClockA.SetValue(static_cast<int>(Val(chkPrivatePLLClockA.Tag())));
        chkPrivatePLLClockA.SetVisible(true);
        mblnSelectRowHidden = true;
        mblnSelectRowShown = false;
    } else if (anySet && !mblnSelectRowShown) {
        lblClkA[0].SetCaption("CLKA [0]");
        lblClkA[1].SetVisible(true);
        txtClkA[1].SetText(txtClkA[1].Tag());
        txtClkA[1].SetEnabled(true);
        txtClkA[1].SetVisible(true);
        cboClkA[1].SetVisible(true);
        mblnForcingSuspendChecks = true;
        for (CheckBox* check : clocks) {
            check->SetVisible(true);
            check->SetValue(static_cast<int>(Val(check->Tag())));
        }
        mblnForcingSuspendChecks = false;
        // CPLL is CLKA's own in this mode.
        chkPrivatePLLClockA.SetTag(IntegerText(chkPrivatePLLClockA.Value()));
        chkPrivatePLLClockA.SetValue(1);
        chkPrivatePLLClockA.SetVisible(false);
        mblnSelectRowShown = true;
        mblnSelectRowHidden = false;
    }
}

void frmQX5140::SetSuspendClockA() {
    if (chkSuspendClockA.Value() == 1 && !mblnClockASuspended) {
        // A suspended CLKA has the frequency of select state 1 only.
        txtClkA[0].SetTag(txtClkA[0].Text());
        txtClkA[0].SetText("Off");
        txtClkA[0].SetEnabled(false);
        mblnClockASuspended = true;
        mblnClockARunning = false;
    } else if (chkSuspendClockA.Value() != 1 && !mblnClockARunning) {
        txtClkA[0].SetText(txtClkA[0].Tag());
        txtClkA[0].SetEnabled(true);
        mblnClockARunning = true;
        mblnClockASuspended = false;
    }
}

void frmQX5140::SetPLLSuspends() {
    chkSuspendCPLL.SetValue(0);
    chkSuspendUPLL.SetValue(0);
    chkSuspendSPLL.SetValue(0);
    int c = 0;
    int s = 0;
    int u = 0;
    if (optSuspendOutputsAndPLLs.Value()) {
        // A loop stops as soon as one output on it stops.
        const std::pair<const CheckBox*, const Label*> outputs[3] = {
            {&chkSuspendClockA, &lblClkASrcDiv},
            {&chkSuspendClockB, &lblClkBSrcDiv},
            {&chkSuspendClockC, &lblClkCSrcDiv}};
        for (const auto& [check, label] : outputs) {
            if (check->Value() != 1)
                continue;
            switch (FirstLetter(label->Caption())) {
                case 'C':
                    ++c;
                    break;
                case 'S':
                    ++s;
                    break;
                case 'U':
                    ++u;
                    break;
                default:
                    break;
            }
        }
    }
    if (c > 0)
        chkSuspendCPLL.SetValue(1);
    if (s > 0)
        chkSuspendSPLL.SetValue(1);
    if (u > 0)
        chkSuspendUPLL.SetValue(1);
}

void frmQX5140::DisplayPinout() {
    const std::string option =
        optSelect.Value() ? "Select" : (optShutdown.Value() ? "SHUTDOWN" : "OE");
    mAsciiPrintout::GetPinout5140(mastrPinName, option);
    Graphics().DrawChip(picPinout, "QX5140", mastrPinName, 1.0);
    picPinout.Refresh();
}

// ---------------------------------------------------------------- leaving fields

void frmQX5140::vsbPPM_Change() {
    txtPPM.SetText(IntegerText(std::abs(vsbPPM.Value())));
}

void frmQX5140::txtPPM_LostFocus() {
    const auto rounded = ToLong(std::abs(Val(txtPPM.Text())));
    std::int32_t v = rounded ? *rounded : std::abs(vsbPPM.Min());
    if (v > std::abs(vsbPPM.Min()))
        v = std::abs(vsbPPM.Min());
    if (v < std::abs(vsbPPM.Max()))
        v = std::abs(vsbPPM.Max());
    if (vsbPPM.Value() != -v) {
        vsbPPM.SetValue(-v);
    } else if (Val(txtPPM.Text()) != v) {
        txtPPM.SetText(IntegerText(v));
    }
    txtPPM.SetSelLength(0);
    mHelp::ShowHint(0, *this);
}

void frmQX5140::LeaveClockField(TextField& field, bool selectBranch) {
    if (CalculatePending()) {
        // An output below the minimum of the slowest loop over its largest divider.
        ClampFrequencyField(field, mdblMinimumOutput, [this, selectBranch] {
            return selectBranch && optSelect.Value() ? Die().MaximumCPLLVoltage()
                                                     : mdblMaximumOutput;
        });
        field.SetTag(field.Text());
    }
    field.SetSelLength(0);
    mHelp::ShowHint(0, *this);
}

void frmQX5140::txtClkA_LostFocus(int Index) {
    // In Select/Suspend CLKA has only CPLL to draw on.
    LeaveClockField(txtClkA[Index], true);
}

void frmQX5140::txtClkB_LostFocus() {
    LeaveClockField(txtClkB, false);
}

void frmQX5140::txtClkC_LostFocus() {
    LeaveClockField(txtClkC, false);
}

// ---------------------------------------------------------------- power

void frmQX5140::CalculatePower() {
    frmPower& power = App().Power();
    power.SetParentForm(this);
    power.SetColCount(3);
    const bool select = optSelect.Value();
    power.SetRowCount(select ? 2 : 1);
    power.SetHead(0, select ? "Select" : "");
    power.SetHead(1, "Typical");
    power.SetHead(2, "Worst" + App().gstrSpace + "Case");
    power.SetUnit(0, "");
    power.SetUnit(1, App().gstrSpace + "mA");
    power.SetUnit(2, App().gstrSpace + "mA");
    power.SetFootnote("");
    clsPower7311 model(App().Errors());
    model.SetVDD(opt3V.Value() ? 3.3 : 5.0);
    model.mdblCPU = 0;
    model.mdblClockD = 0;
    model.mdblClockF = 0;
    model.mdblXBuff = 0;
    const auto actual = [](const ListField& list) { return Val(list.List(list.ListIndex())); };
    // The model weighs its three clock inputs alike; CLKC goes to its first, CLKA to its third.
    const auto setInputs = [&](int row) {
        model.mdblClockA = actual(cboClkC);
        model.mdblClockB = actual(cboClkB);
        model.mdblClockC = actual(cboClkA[row]);
        model.mdblCPLL = CPLL().GetVCO(cboCPLLData[row].List(cboCPLLData[row].ListIndex()));
        model.mdblSPLL = SPLL().GetVCO(cboSPLLData.List(cboSPLLData.ListIndex()));
        model.mdblUPLL = UPLL().GetVCO(cboUPLLData.List(cboUPLLData.ListIndex()));
    };
    setInputs(0);
    if (select) {
        // Row 0 is the chip with the select pin low: suspended parts stop there.
        StopSuspendedLoops(model);
        if (chkSuspendClockA.Value() == 1)
            model.mdblClockC = 0;
        if (chkSuspendClockB.Value() == 1)
            model.mdblClockB = 0;
        if (chkSuspendClockC.Value() == 1)
            model.mdblClockA = 0;
        power.SetCell(0, 0, "0  ");
    } else {
        power.SetCell(0, 0, "");
    }
    power.SetCell(0, 1, GeneralNumber(model.GetIDD(1)));
    power.SetCell(0, 2, GeneralNumber(model.GetIDD(0)));
    if (select) {
        setInputs(1);
        power.SetCell(1, 0, "1  ");
        power.SetCell(1, 1, GeneralNumber(model.GetIDD(1)));
        power.SetCell(1, 2, GeneralNumber(model.GetIDD(0)));
    }
    power.ShowPower();
}

}  // namespace pendulon
