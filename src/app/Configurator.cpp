#include "app/Configurator.hpp"

#include <algorithm>
#include <vector>

#include "app/AppServices.hpp"
#include "app/DeviceFace.hpp"
#include "app/MainFace.hpp"
#include "app/mHelp.hpp"
#include "app/mSharedApp.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"

namespace pendulon {

namespace {

// The part of a path behind its last folder separator.
std::string FileNameOf(const std::string& path) {
    std::string text = path;
    while (!text.empty() &&
           (text.find('\\') != std::string::npos || text.find('/') != std::string::npos)) {
        const auto at = text.find_first_of("\\/");
        text = Trim(text.substr(at + 1));
    }
    return text;
}

}  // namespace

Configurator::Configurator(AppServices& app, std::string formName)
    : LimitForm(std::move(formName)), app_(app) {
    txtFilePath.SetVisible(false);
    // The debug window shows only while View, Debug Window is checked.
    picDebugWindow.SetVisible(false);
    cboFRef.SetAllowsFreeText(true);
    cmdCalculate.SetCaption("C&alculate");
    opt3V.SetCaption("&3.3V");
    opt5V.SetCaption("&5V");
    opt3V.SetGroup("Voltage");
    opt5V.SetGroup("Voltage");
    fraLimits.SetCaption("User Defined Limits");
    chkUseDefault.SetCaption("Use Default");
    cmdApplyLimits.SetCaption("Apply");
    cmdApplyLimits.SetBackColor(colors::Grey);
    cmdApplyLimits.SetEnabled(false);
}

Configurator::~Configurator() = default;

std::string Configurator::PinName(int index) const {
    if (index < 0 || index >= static_cast<int>(mastrPinName.size())) {
        app_.Errors().Raise(errors::SubscriptOutOfRange, Name() + ".PinName [Property Get]");
        return {};
    }
    return mastrPinName[static_cast<size_t>(index)];
}

bool Configurator::PreScale(int) const {
    return false;
}
void Configurator::SetPreScale(int, bool) {}

// ---------------------------------------------------------------- registration and events

void Configurator::RegisterReferenceFields() {
    Register("cboFRef", cboFRef);
    cboFRef.OnClick = [this] { MarkCalculateDue(); };
    cboFRef.OnChange = [this] { MarkCalculateDue(); };
    cboFRef.OnLostFocus = [this] { cboFRef_LostFocus(); };
}

void Configurator::RegisterVoltageFields() {
    Register("opt3V", opt3V);
    Register("opt5V", opt5V);
    opt3V.OnClick = [this] { opt3V_Click(); };
    opt5V.OnClick = [this] { opt5V_Click(); };
}

void Configurator::RegisterLimitFields() {
    Register("fraLimits", fraLimits);
    Register("txtFRefMin", txtFRefMin);
    Register("txtFRefMax", txtFRefMax);
    txtFRefMin.OnChange = [this] { txtPLLMin_Change(-1); };
    txtFRefMax.OnChange = [this] { txtPLLMax_Change(-1); };
    txtFRefMin.OnLostFocus = [this] { txtFRefMin_LostFocus(); };
    txtFRefMax.OnLostFocus = [this] { txtFRefMax_LostFocus(); };
    for (int i = 0; i < txtPLLMin.Count(); ++i) {
        Register("txtPLLMin(" + std::to_string(i) + ")", txtPLLMin[i]);
        txtPLLMin[i].OnChange = [this, i] { txtPLLMin_Change(i); };
        txtPLLMin[i].OnLostFocus = [this, i] { txtPLLMin_LostFocus(i); };
    }
    for (int i = 0; i < txtPLLMax.Count(); ++i) {
        Register("txtPLLMax(" + std::to_string(i) + ")", txtPLLMax[i]);
        txtPLLMax[i].OnChange = [this, i] { txtPLLMax_Change(i); };
        txtPLLMax[i].OnLostFocus = [this, i] { txtPLLMax_LostFocus(i); };
    }
    Register("chkUseDefault", chkUseDefault);
    chkUseDefault.OnClick = [this] { chkUseDefault_Click(); };
    Register("cmdApplyLimits", cmdApplyLimits);
    cmdApplyLimits.OnClick = [this] { cmdApplyLimits_Click(); };
}

void Configurator::RegisterCommonTail() {
    Register("cmdCalculate", cmdCalculate);
    cmdCalculate.OnClick = [this] { cmdCalculate_Click(); };
    Register("txtFilePath", txtFilePath);
    Register("lblDevice", lblDevice);
    Register("picPinout", picPinout);
    Register("picPower", picPower);
    Register("picDebugWindow", picDebugWindow);
    // The two floating panels are dragged by their title bar, as small windows are.
    picPower.OnMouseDown = [this](int button, int, double, double y) {
        if (y <= picPower.TextHeight("X"))
            mShared::FormMoveAPI(app_, picPower, button);
    };
    picDebugWindow.OnMouseDown = [this](int button, int, double, double y) {
        if (y <= picDebugWindow.TextHeight("X"))
            mShared::FormMoveAPI(app_, picDebugWindow, button);
    };
}

void Configurator::ConnectDebugWindow() {
    if (debugWindowConnected_)
        return;
    debugWindowConnected_ = true;
    // Shown without its lines yet (the menu, a stored setting): it draws them first.
    picDebugWindow.AddObserver([this](Field&) {
        if (!drawingDebugWindow_ && picDebugWindow.Visible() &&
            picDebugWindow.DisplayList().empty())
            DrawDebugWindow();
    });
    for (Field* field : Fields().Fields()) {
        if (dynamic_cast<ListField*>(field) == nullptr ||
            field->Name().find("PLLData") == std::string::npos)
            continue;
        field->AddObserver([this](Field&) {
            if (!drawingDebugWindow_ && picDebugWindow.Visible())
                DrawDebugWindow();
        });
    }
}

void Configurator::DrawDebugWindow() {
    if (drawingDebugWindow_)
        return;
    drawingDebugWindow_ = true;
    std::vector<std::string> lines{"Reference: " + cboFRef.Text()};
    for (Field* field : Fields().Fields()) {
        const auto* list = dynamic_cast<ListField*>(field);
        if (list == nullptr || !list->Visible() || list->Text().empty() ||
            field->Name().find("PLLData") == std::string::npos)
            continue;
        lines.push_back(field->Name() + ": " + list->Text());
    }
    if (lines.size() == 1)
        lines.push_back("No loop calculated yet");
    const std::string title = "Debug";
    const double marginX = 6.0 * app_.gintTwipsPerPixelX;
    const double marginY = 4.0 * app_.gintTwipsPerPixelY;
    const double titleHeight = picDebugWindow.TextHeight(title);
    double width = picDebugWindow.TextWidth(title) + 2 * marginX;
    double height = titleHeight + 2 * marginY;
    for (const std::string& line : lines) {
        width = std::max(width, picDebugWindow.TextWidth(line) + 2 * marginX);
        height += picDebugWindow.TextHeight(line);
    }
    picDebugWindow.Move(picDebugWindow.Left(), picDebugWindow.Top(), width, height);
    picDebugWindow.Cls();
    mShared::DrawPictureWindow(app_, picDebugWindow, title);
    double y = titleHeight + marginY;
    for (const std::string& line : lines) {
        picDebugWindow.PrintAt(marginX, y, line, colors::WindowText);
        y += picDebugWindow.TextHeight(line);
    }
    picDebugWindow.Refresh();
    drawingDebugWindow_ = false;
}

void Configurator::ConnectLimitFieldHelp() {
    for (int i = 0; i < txtPLLMin.Count(); ++i) {
        txtPLLMin[i].OnGotFocus = [this, i] {
            mShared::HighLightText(txtPLLMin[i]);
            mHelp::ShowHint(19, *this, "0.5");
        };
        txtPLLMax[i].OnGotFocus = [this, i] {
            mShared::HighLightText(txtPLLMax[i]);
            mHelp::ShowHint(20, *this);
        };
        txtPLLMin[i].OnKeyPress = [this](int& key) {
            mShared::MaskKeystrokeForNumbers(key, 0, app_.Services());
        };
        txtPLLMax[i].OnKeyPress = [this](int& key) {
            mShared::MaskKeystrokeForNumbers(key, 0, app_.Services());
        };
    }
}

void Configurator::ConnectFrequencyFieldHelp(TextField& field, const std::string& word,
                                             std::function<double()> minimum,
                                             std::function<double()> maximum) {
    field.OnGotFocus = [this, &field, word, minimum, maximum] {
        mShared::HighLightText(field);
        mHelp::ShowHint(6, *this, word, GeneralNumber(minimum()), GeneralNumber(maximum()));
    };
    field.OnKeyPress = [this](int& key) {
        mShared::MaskKeystrokeForNumbers(key, 0, app_.Services());
    };
}

// ---------------------------------------------------------------- device

std::string Configurator::Device() const {
    return app_.DeviceForm().mstrCurrentDevice;
}

void Configurator::SetDevice(const std::string& device) {
    lblDevice.SetCaption(device);
    OptionButton* option = app_.DeviceForm().OptionFor(device);
    if (option != nullptr)
        option->SetValue(true);
}

// ---------------------------------------------------------------- load

void Configurator::Form_Load() {
    mblnLoading = true;
    // The document's device is the one frmDevice holds; it is also what a Cancel returns to.
    auto& device = app_.DeviceForm();
    device.mstrPreviousDevice = device.mstrCurrentDevice;
    SetDevice(device.mstrCurrentDevice);
    // Top left corner of the main window's client area.
    Move(0, 0, Width(), Height());
    InitializeControls();
    InitializeDieClass();
    InitializePLLClass();
    mShared::InitializePowerPictureBox(app_, picPower);
    ConnectDebugWindow();
    mShared::InitializeDebugPictureBox(app_, picDebugWindow);
    mblnUseDefaults3V = true;
    mblnUseDefaults5V = true;
    SetDefaultOptions();
    if (opt5V.Enabled()) {
        opt5V.SetValue(true);
    } else {
        opt3V.SetValue(true);
    }
    mblnLoading = false;
}

// ---------------------------------------------------------------- voltage

void Configurator::opt3V_Click() {
    if (!mblnLoading)
        app_.gblnNeedsCalculate = true;
    VoltageChange(3.3);
}

void Configurator::opt5V_Click() {
    if (!mblnLoading)
        app_.gblnNeedsCalculate = true;
    VoltageChange(5.0);
}

void Configurator::VoltageChange(double voltage) {
    cmdCalculate.SetBackColor(colors::Yellow);
    SetDieVoltage(voltage);
    InitializePLLClass();
    // Each voltage keeps its own user limits: show the ones of the new voltage.
    GetCurrentPLLLimits();
    cmdApplyLimits_Click();
}

// ---------------------------------------------------------------- Calculate

template <class F>
void Configurator::WithWindowDisabled(F&& flow) {
    const bool wasEnabled = Enabled();
    SetEnabled(false);
    flow();
    SetEnabled(wasEnabled);
    if (Enabled())
        SetFocus();
}

void Configurator::cmdCalculate_Click() {
    WithWindowDisabled([this] {
        Status("Calculating...");
        FindPLLs();
        DisplayAllActuals();
        CalculatePower();
        app_.Main().FileChange();
        Status("");
        app_.gblnNeedsCalculate = false;
        cmdCalculate.SetBackColor(colors::Grey);
    });
}

void Configurator::MarkCalculateDue() {
    // The lists filled while loading are not edits: a new document has nothing to calculate yet.
    if (!mblnLoading)
        app_.gblnNeedsCalculate = true;
    cmdCalculate.SetBackColor(colors::Yellow);
}

bool Configurator::CalculatePending() const {
    return cmdCalculate.BackColor() == colors::Yellow;
}

// ---------------------------------------------------------------- leaving input fields

std::string Configurator::FrequencyFieldText(const std::string& typed, double minimum,
                                             const std::function<double()>& maximum) {
    const std::string text = Trim(typed);
    if (text == "Off")
        return text;
    if (text.empty() || text == "0")
        return "Off";
    const double value = Val(text);
    const double highest = maximum();
    if (value < minimum)
        return mShared::FormatFrequencyShort(minimum);
    if (value > highest)
        return mShared::FormatFrequencyShort(highest);
    return mShared::FormatFrequencyShort(value);
}

void Configurator::ClampFrequencyField(TextField& field, double minimum,
                                       const std::function<double()>& maximum) {
    const std::string result = FrequencyFieldText(field.Text(), minimum, maximum);
    if (result != field.Text())
        field.SetText(result);
    field.SetForeColor(colors::WindowText);
}

void Configurator::LeaveFrequencyField(TextField& field, double minimum, double maximum) {
    ClampFrequencyField(field, minimum, [maximum] { return maximum; });
    field.SetSelLength(0);
    field.SetTag(field.Text());
    if (CalculatePending())
        CalculateAllDesiredClocks();
    Hint("");
}

void Configurator::cboFRef_LostFocus() {
    const std::string before = cboFRef.Text();
    const double value = Val(before);
    if (value < ReferenceMinimum()) {
        cboFRef.SetText(GeneralNumber(ReferenceMinimum()));
    } else if (value > ReferenceMaximum()) {
        cboFRef.SetText(GeneralNumber(ReferenceMaximum()));
    }
    mShared::FormatReferenceComboBox(cboFRef);
    if (cboFRef.Text() != before)
        MarkCalculateDue();
    Hint("");
}

// ---------------------------------------------------------------- user limits

void Configurator::chkUseDefault_Click() {
    const bool useDefaults = chkUseDefault.Value() != 0;
    if (DieVoltage() == 3.3) {
        mblnUseDefaults3V = useDefaults;
    } else {
        mblnUseDefaults5V = useDefaults;
    }
    if (chkUseDefault.Value() == 1)
        GetCurrentPLLLimits();
    cmdApplyLimits.SetEnabled(true);
    cmdApplyLimits.SetBackColor(colors::Yellow);
}

void Configurator::txtPLLMin_Change(int) {
    cmdApplyLimits.SetEnabled(true);
    cmdApplyLimits.SetBackColor(colors::Yellow);
}

void Configurator::txtPLLMax_Change(int) {
    cmdApplyLimits.SetEnabled(true);
    cmdApplyLimits.SetBackColor(colors::Yellow);
}

namespace {

// A limit as it is written back: whole numbers for counters, the short form for frequencies.
std::string LimitText(double value, bool frequencyRow) {
    if (frequencyRow)
        return mShared::FormatFrequencyShort(value);
    return GeneralNumber(RoundHalfEven(value));
}

}  // namespace

void Configurator::LeaveLimit(TextField& field, int index, bool isMaximum) {
    // The reference row (index -1) is a frequency row like every third row of the loops.
    const bool frequencyRow = index < 0 || index % 3 == 0;
    TextField& minimumField = index < 0 ? txtFRefMin : txtPLLMin[index];
    TextField& maximumField = index < 0 ? txtFRefMax : txtPLLMax[index];
    const double value = Val(field.Text());
    std::string result;
    if (!isMaximum) {
        if (value < 0.5) {
            if (frequencyRow) {
                result = mShared::FormatFrequencyShort(0.5);
            } else {
                const double rounded = RoundHalfEven(value);
                result = rounded == 0 ? "1" : GeneralNumber(rounded);
            }
        } else if (Val(maximumField.Text()) < value) {
            result = maximumField.Text();
        } else {
            result = LimitText(value, frequencyRow);
        }
    } else {
        if (value > Val(minimumField.Text())) {
            result = LimitText(value, frequencyRow);
        } else {
            result = minimumField.Text();
        }
    }
    if (result != field.Text())
        field.SetText(result);
    Hint("");
}

void Configurator::txtPLLMin_LostFocus(int index) {
    LeaveLimit(txtPLLMin[index], index, false);
}
void Configurator::txtPLLMax_LostFocus(int index) {
    LeaveLimit(txtPLLMax[index], index, true);
}
void Configurator::txtFRefMin_LostFocus() {
    LeaveLimit(txtFRefMin, -1, false);
}
void Configurator::txtFRefMax_LostFocus() {
    LeaveLimit(txtFRefMax, -1, true);
}

void Configurator::cmdApplyLimits_Click() {
    WithWindowDisabled([this] {
        if (mblnApplyCalculates) {
            MarkCalculateDue();
        } else {
            cmdCalculate.SetBackColor(colors::Yellow);
        }
        SetNewPLLLimits();
        InitializePLLClass();
        CheckPLLLimits();
        if (!mblnApplyCalculates) {
            CalculateAllDesiredClocks();
            chkUseDefault.SetValue(LimitsEqualDefaults() ? 1 : 0);
        } else if (LimitsEqualDefaults()) {
            chkUseDefault.SetValue(1);
        } else {
            // The limits as the die took them, which may differ from what was typed.
            chkUseDefault.SetValue(0);
            GetCurrentPLLLimits();
        }
        if (mblnApplyCalculates)
            cmdCalculate_Click();
        cmdApplyLimits.SetEnabled(false);
        cmdApplyLimits.SetBackColor(colors::Grey);
    });
}

// ---------------------------------------------------------------- files

bool Configurator::FillForm(clsEntryFile& data, const std::string& path) {
    txtFilePath.SetText(path);
    SetCaption(FileNameOf(path));
    FillFromEntryFile(data);
    cmdCalculate_Click();
    app_.Services().MsgBox(
        "NOTE: PPM values are optimized upon loading.  If different PPM values are desired, "
        "please re-select from the drop downs.",
        msgbox::Information, app_.gstrTitle);
    return true;
}

bool Configurator::Save() {
    return MakeEntryFile(txtFilePath.Text());
}

// ---------------------------------------------------------------- closing

bool Configurator::Form_QueryUnload(int unloadMode) {
    bool cancel = false;
    if (unloadMode == kUnloadFormCode && mUnloadRequired) {
        cancel = false;
    } else {
        cancel = app_.Main().CancelChildUnload();
    }
    if (!cancel)
        app_.Main().InitializeMenu(true);
    if (cancel)
        app_.DeviceForm().cmdCancel_Click();
    return cancel;
}

void Configurator::Form_Unload() {
    ReleaseObjects();
}

// ---------------------------------------------------------------- services

void Configurator::RaiseError(long number, const std::string& operation,
                              const std::string& description) {
    app_.Errors().Raise(number, "(" + Name() + ") " + operation, description);
}

void Configurator::Status(const std::string& text) {
    app_.Main().DisplayStatus(text);
}

void Configurator::Hint(const std::string& text) {
    app_.Main().ShowHelp(text);
}

}  // namespace pendulon
