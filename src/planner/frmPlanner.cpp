#include "planner/frmPlanner.hpp"

#include <algorithm>
#include <chrono>

#include "app/AppServices.hpp"
#include "app/Configurator.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/clsReference.hpp"
#include "core/mShared.hpp"
#include "planner/clsDevicePlanner.hpp"
#include "planner/clsFrequencyPlanner.hpp"
#include "planner/mPlanText.hpp"

namespace pendulon {

namespace {

constexpr int kEnter = 13;
constexpr const char* kAny = "any";
const char* const kPinChoices[] = {"Any", "8 pins", "14 pins", "16 pins", "20 pins"};
const char* const kSortChoices[] = {"Rank", "Device", "Worst ppm", "Typical current", "Pins"};

std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line;
        text += "\r\n";
    }
    return text;
}

}  // namespace

frmPlanner::frmPlanner(AppServices& app, const PlannerHost& host)
    : Window("frmPlanner"), app_(app), host_(host) {
    Clock = [] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
            .count();
    };
    SetCaption(kCaption);
    fraPlan.SetCaption("Plan");
    lblReference.SetCaption("&Reference");
    cboReference.SetAllowsFreeText(true);
    fraVoltage.SetCaption("Voltage");
    opt3V.SetCaption("&3.3V");
    opt5V.SetCaption("&5V");
    opt3V.SetGroup("Voltage");
    opt5V.SetGroup("Voltage");
    fraOutputs.SetCaption("Wanted outputs");
    lblOutput.SetCaption("&Frequency (MHz)");
    cmdAddOutput.SetCaption("&Add");
    cmdRemoveOutput.SetCaption("Re&move");
    lblTolerance.SetCaption("&Tolerance");
    lblToleranceUnit.SetCaption("ppm (empty: the best each device reaches)");
    fraDevices.SetCaption("Devices");
    const auto& devices = clsPlan::AllDevices();
    for (int i = 0; i < chkDevice.Count(); ++i)
        chkDevice[i].SetCaption(devices[static_cast<size_t>(i)]);
    lblPins.SetCaption("Pac&kage");
    cmdPlan.SetCaption("&Plan");
    cmdCancelPlan.SetCaption("S&top");
    fraProgress.SetCaption("Progress");
    fraResults.SetCaption("Results");
    lblSortBy.SetCaption("&Sort by");
    lblResultHeading.SetCaption(mPlanText::Heading());
    txtDetails.SetMultiLine(true);
    txtDetails.SetLocked(true);
    cmdOpen.SetCaption("&Open");
    cmdClose.SetCaption("Close");
    RegisterFields();
    ConnectEvents();
}

frmPlanner::~frmPlanner() {
    // The threads go before the window whose plan they hold.
    planner_.reset();
}

void frmPlanner::RegisterFields() {
    Register("fraPlan", fraPlan);
    Register("lblReference", lblReference);
    Register("cboReference", cboReference);
    Register("fraVoltage", fraVoltage);
    Register("opt3V", opt3V);
    Register("opt5V", opt5V);
    Register("fraOutputs", fraOutputs);
    Register("lblOutput", lblOutput);
    Register("txtOutput", txtOutput);
    Register("cmdAddOutput", cmdAddOutput);
    Register("lstOutputs", lstOutputs);
    Register("cmdRemoveOutput", cmdRemoveOutput);
    Register("lblTolerance", lblTolerance);
    Register("txtTolerance", txtTolerance);
    Register("lblToleranceUnit", lblToleranceUnit);
    Register("fraDevices", fraDevices);
    RegisterArray("chkDevice", chkDevice);
    Register("lblPins", lblPins);
    Register("cboPins", cboPins);
    Register("cmdPlan", cmdPlan);
    Register("cmdCancelPlan", cmdCancelPlan);
    Register("fraProgress", fraProgress);
    Register("lblProgress", lblProgress);
    Register("fraResults", fraResults);
    Register("lblSortBy", lblSortBy);
    Register("cboSortBy", cboSortBy);
    Register("lblResultHeading", lblResultHeading);
    Register("lstResults", lstResults);
    Register("txtDetails", txtDetails);
    Register("cmdOpen", cmdOpen);
    Register("cmdClose", cmdClose);
    Register("lblStatus", lblStatus);
}

void frmPlanner::ConnectEvents() {
    cmdAddOutput.OnClick = [this] { cmdAddOutput_Click(); };
    cmdRemoveOutput.OnClick = [this] { cmdRemoveOutput_Click(); };
    txtOutput.OnKeyPress = [this](int& key) { txtOutput_KeyPress(key); };
    txtOutput.OnGotFocus = [this] { mShared::HighLightText(txtOutput); };
    txtTolerance.OnGotFocus = [this] { mShared::HighLightText(txtTolerance); };
    txtTolerance.OnKeyPress = [this](int& key) {
        mShared::MaskKeystrokeForNumbers(key, 1, app_.Services());
    };
    cmdPlan.OnClick = [this] { cmdPlan_Click(); };
    cmdCancelPlan.OnClick = [this] { cmdCancelPlan_Click(); };
    cboSortBy.OnClick = [this] { cboSortBy_Click(); };
    lstResults.OnClick = [this] { lstResults_Click(); };
    lstResults.OnDblClick = [this] {
        if (cmdOpen.Enabled())
            cmdOpen_Click();
    };
    cmdOpen.OnClick = [this] { cmdOpen_Click(); };
    cmdClose.OnClick = [this] { cmdClose_Click(); };
}

void frmPlanner::Form_Load() {
    // The references of the devices' own list, and "any" for each device's whole list.
    clsReference reference(app_.Errors());
    reference.InitializeReferenceComboBox(cboReference);
    const int selected = cboReference.ListIndex();
    cboReference.AddItem(kAny, 0);
    cboReference.SetListIndex(selected + 1);
    opt3V.SetValue(true);
    lstOutputs.Clear();
    txtOutput.SetText("");
    txtTolerance.SetText("");
    for (auto& check : chkDevice) check->SetValue(1);
    cboPins.Clear();
    for (const char* choice : kPinChoices) cboPins.AddItem(choice);
    cboPins.SetListIndex(0);
    cboSortBy.Clear();
    for (const char* choice : kSortChoices) cboSortBy.AddItem(choice);
    cboSortBy.SetListIndex(kByRank);
    cmdRemoveOutput.SetEnabled(false);
    cmdCancelPlan.SetEnabled(false);
    cmdOpen.SetEnabled(false);
    fraProgress.SetVisible(false);
    lblProgress.SetCaption("");
    lblStatus.SetCaption("Add the wanted output frequencies, then press Plan.");
    SetVisible(true);
}

void frmPlanner::Form_Unload() {
    if (planner_)
        planner_->Cancel();
    SetVisible(false);
}

void frmPlanner::Message(const std::string& text) {
    app_.Services().MsgBox(text, msgbox::Exclamation, app_.gstrTitle);
}

// ---------------------------------------------------------------- the wanted outputs

void frmPlanner::cmdAddOutput_Click() {
    const std::string text = Trim(txtOutput.Text());
    const double value = Val(text);
    if (text.empty() || !(value > 0) || clsPlan::AsField(value) <= 0) {
        Message("Enter an output frequency in MHz above 0.");
        SetFocusTo(&txtOutput);
        return;
    }
    if (lstOutputs.ListCount() >= clsPlan::kMaximumOutputs) {
        Message("A plan has at most " + std::to_string(clsPlan::kMaximumOutputs) +
                " outputs, as the largest device has.");
        return;
    }
    lstOutputs.AddItem(mShared::FormatFrequencyShort(value));
    lstOutputs.SetListIndex(lstOutputs.ListCount() - 1);
    cmdRemoveOutput.SetEnabled(true);
    txtOutput.SetText("");
}

void frmPlanner::cmdRemoveOutput_Click() {
    const int index = lstOutputs.ListIndex();
    if (index < 0)
        return;
    lstOutputs.RemoveItem(index);
    const int last = lstOutputs.ListCount() - 1;
    if (last >= 0)
        lstOutputs.SetListIndex(index < last ? index : last);
    cmdRemoveOutput.SetEnabled(lstOutputs.ListCount() > 0);
}

void frmPlanner::txtOutput_KeyPress(int& KeyAscii) {
    if (KeyAscii == kEnter) {
        KeyAscii = 0;
        cmdAddOutput_Click();
        return;
    }
    mShared::MaskKeystrokeForNumbers(KeyAscii, 0, app_.Services());
}

// ---------------------------------------------------------------- planning

clsPlan frmPlanner::PlanOfFields(std::string& problem) const {
    clsPlan plan;
    problem.clear();
    const std::string reference = Trim(cboReference.Text());
    if (EqualsNoCase(reference, kAny)) {
        plan.dblReference = 0;
    } else {
        plan.dblReference = Val(reference);
        if (!(plan.dblReference > 0)) {
            problem = "Enter a reference frequency in MHz above 0, or choose any.";
            return plan;
        }
    }
    plan.dblVoltage = opt3V.Value() ? clsPlan::kLowVoltage : clsPlan::kHighVoltage;
    for (const std::string& item : lstOutputs.Items()) plan.adblOutputs.push_back(Val(item));
    const std::string tolerance = Trim(txtTolerance.Text());
    if (!tolerance.empty()) {
        const double value = Val(tolerance);
        if (value < 0 || value != RoundHalfEven(value) || value > mShared::kNoSolutionPPM) {
            problem = "The tolerance is a whole number of ppm, or empty for no limit.";
            return plan;
        }
        plan.lngTolerancePPM = static_cast<std::int32_t>(value);
    }
    const auto& devices = clsPlan::AllDevices();
    bool all = true;
    for (int i = 0; i < chkDevice.Count(); ++i) {
        if (chkDevice[i].Value() == 1)
            plan.astrDevices.push_back(devices[static_cast<size_t>(i)]);
        else
            all = false;
    }
    if (plan.astrDevices.empty()) {
        problem = "Tick at least one device.";
        return plan;
    }
    if (all)
        plan.astrDevices.clear();
    plan.intPins = cboPins.ListIndex() <= 0 ? 0 : static_cast<int>(Val(cboPins.Text()));
    if (plan.adblOutputs.empty()) {
        problem = "Add at least one wanted output frequency.";
        return plan;
    }
    const std::string invalid = plan.Problem();
    if (!invalid.empty())
        problem = UCase(invalid.substr(0, 1)) + invalid.substr(1) + ".";
    return plan;
}

void frmPlanner::cmdPlan_Click() {
    std::string problem;
    const clsPlan plan = PlanOfFields(problem);
    if (!problem.empty()) {
        Message(problem);
        return;
    }
    if (!planner_)
        planner_ = std::make_unique<clsFrequencyPlanner>(host_);
    ranked_.clear();
    shown_.clear();
    lstResults.Clear();
    txtDetails.SetText("");
    cmdOpen.SetEnabled(false);
    started_ = Clock();
    planner_->Start(plan);
    cmdPlan.SetEnabled(false);
    cmdCancelPlan.SetEnabled(true);
    lblStatus.SetCaption("Planning " + mPlanText::PlanLine(plan) + "...");
    Poll();
}

void frmPlanner::cmdCancelPlan_Click() {
    if (planner_ && planner_->Running())
        planner_->Cancel();
    Poll();
}

bool frmPlanner::Planning() const {
    return planner_ && !cmdPlan.Enabled();
}

size_t frmPlanner::DevicesDone() const {
    return planner_ ? planner_->DevicesDone() : 0;
}

size_t frmPlanner::DeviceCount() const {
    return planner_ ? planner_->DeviceCount() : 0;
}

void frmPlanner::Poll() {
    if (!Planning())
        return;
    if (!planner_->Finished()) {
        lblProgress.SetCaption(std::to_string(planner_->DevicesDone()) + " of " +
                               std::to_string(planner_->DeviceCount()) + " devices tried");
        if (!fraProgress.Visible() && Clock() - started_ >= kProgressDelay)
            fraProgress.SetVisible(true);
        return;
    }
    planner_->Wait();
    fraProgress.SetVisible(false);
    lblProgress.SetCaption("");
    cmdPlan.SetEnabled(true);
    cmdCancelPlan.SetEnabled(false);
    if (planner_->Cancelled()) {
        lblStatus.SetCaption("The plan was stopped.");
        return;
    }
    ranked_ = planner_->Results();
    const auto serving = std::count_if(ranked_.begin(), ranked_.end(),
                                       [](const clsPlanResult& r) { return r.blnServes; });
    lblStatus.SetCaption(std::to_string(serving) + " of " + std::to_string(ranked_.size()) +
                         " devices serve the plan.");
    ShowResults();
    if (lstResults.ListCount() > 0)
        lstResults.SetListIndex(0);
}

void frmPlanner::WaitForPlan() {
    if (planner_)
        planner_->Wait();
    Poll();
}

// ---------------------------------------------------------------- results

void frmPlanner::ShowResults() {
    const std::string selected =
        SelectedResult() != nullptr ? SelectedResult()->strDevice : std::string();
    shown_ = ranked_;
    const auto& devices = clsPlan::AllDevices();
    auto order = [&devices](const clsPlanResult& r) {
        return std::find(devices.begin(), devices.end(), r.strDevice) - devices.begin();
    };
    const int by = cboSortBy.ListIndex();
    // Devices that serve the plan stay before those that do not, except by device.
    std::stable_sort(
        shown_.begin(), shown_.end(), [&](const clsPlanResult& a, const clsPlanResult& b) {
            if (by == kByDevice)
                return order(a) < order(b);
            if (a.blnServes != b.blnServes)
                return a.blnServes;
            if (!a.blnServes)
                return false;
            switch (by) {
                case kByWorstPPM:
                    return a.lngWorstPPM < b.lngWorstPPM;
                case kByCurrent:
                    return std::make_pair(a.blnHasCurrent ? 0 : 1, a.dblTypicalCurrent) <
                           std::make_pair(b.blnHasCurrent ? 0 : 1, b.dblTypicalCurrent);
                case kByPins:
                    return a.intPins < b.intPins;
                default:
                    return false;
            }
        });
    lstResults.Clear();
    for (const clsPlanResult& result : shown_) {
        int rank = 0;
        for (size_t i = 0; i < ranked_.size(); ++i)
            if (ranked_[i].strDevice == result.strDevice)
                rank = static_cast<int>(i) + 1;
        lstResults.AddItem(mPlanText::Row(result, rank));
    }
    for (size_t i = 0; i < shown_.size(); ++i)
        if (!selected.empty() && shown_[i].strDevice == selected)
            lstResults.SetListIndex(static_cast<int>(i));
}

const clsPlanResult* frmPlanner::SelectedResult() const {
    const int index = lstResults.ListIndex();
    if (index < 0 || index >= static_cast<int>(shown_.size()))
        return nullptr;
    return &shown_[static_cast<size_t>(index)];
}

void frmPlanner::cboSortBy_Click() {
    if (!ranked_.empty())
        ShowResults();
}

void frmPlanner::lstResults_Click() {
    const clsPlanResult* result = SelectedResult();
    txtDetails.SetText(result != nullptr ? Lines(mPlanText::Details(*result)) : std::string());
    cmdOpen.SetEnabled(result != nullptr && result->blnServes);
}

void frmPlanner::cmdOpen_Click() {
    const clsPlanResult* result = SelectedResult();
    if (result == nullptr || !result->blnServes)
        return;
    const clsPlanResult chosen = *result;
    const Configurator* before = app_.Document();
    const std::unique_ptr<clsDevicePlanner> planner =
        clsDevicePlanner::Create(host_, chosen.strDevice);
    const std::string problem = planner->Open(app_, chosen);
    if (app_.Document() == nullptr || app_.Document() == before) {
        // The close question of the open document kept it: nothing was opened.
        lblStatus.SetCaption("No document was opened.");
        return;
    }
    if (!problem.empty()) {
        Message("The new " + chosen.strDevice +
                " document does not show the planned result: " + problem + ".");
        return;
    }
    lblStatus.SetCaption("Opened a new " + chosen.strDevice + " document configured for the plan.");
}

void frmPlanner::cmdClose_Click() {
    Form_Unload();
}

}  // namespace pendulon
