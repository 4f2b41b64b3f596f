#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "planner/clsPlan.hpp"
#include "planner/clsPlanResult.hpp"
#include "platform/CheckBox.hpp"
#include "platform/CommandButton.hpp"
#include "platform/ControlArray.hpp"
#include "platform/Frame.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"

namespace pendulon {

class AppServices;
class PlannerHost;
class clsFrequencyPlanner;

// The frequency planner window (Tools, Frequency Planner...): the plan (reference or "any",
// voltage, the wanted output frequencies, tolerance, devices and package), Plan, the ranked
// results with the selected one in full, and Open, which makes a new document of that device
// configured as the result says. It stands beside the documents, not in front of them.
//
// A plan runs on threads of its own (clsFrequencyPlanner) while the window stays usable: Poll,
// called by the view's timer or by a test, brings its progress and, at the end, its results
// into the fields. A plan that runs longer than kProgressDelay seconds shows its progress;
// cmdCancelPlan stops it.
class frmPlanner : public Window {
  public:
    static constexpr const char* kCaption = "Frequency Planner";
    static constexpr double kProgressDelay = 0.2;
    // The orders of the result list, as cboSortBy offers them.
    enum SortOrder { kByRank, kByDevice, kByWorstPPM, kByCurrent, kByPins };

    frmPlanner(AppServices& app, const PlannerHost& host);
    ~frmPlanner() override;

    // The window's clock, in seconds; a test may put its own in.
    std::function<double()> Clock;

    // Plan fields.
    Frame fraPlan;
    Label lblReference;
    ListField cboReference;
    Frame fraVoltage;
    OptionButton opt3V;
    OptionButton opt5V;
    Frame fraOutputs;
    Label lblOutput;
    TextField txtOutput;
    CommandButton cmdAddOutput;
    ListField lstOutputs;
    CommandButton cmdRemoveOutput;
    Label lblTolerance;
    TextField txtTolerance;
    Label lblToleranceUnit;
    Frame fraDevices;
    ControlArray<CheckBox> chkDevice{15};
    Label lblPins;
    ListField cboPins;
    CommandButton cmdPlan;
    CommandButton cmdCancelPlan;
    Frame fraProgress;
    Label lblProgress;
    // Results.
    Frame fraResults;
    Label lblSortBy;
    ListField cboSortBy;
    Label lblResultHeading;
    ListField lstResults;
    TextField txtDetails;
    CommandButton cmdOpen;
    CommandButton cmdClose;
    Label lblStatus;

    void Form_Load();
    // Hides the window; a plan still running is cancelled.
    void Form_Unload();

    // Event procedures.
    void cmdAddOutput_Click();
    void cmdRemoveOutput_Click();
    void txtOutput_KeyPress(int& KeyAscii);
    void cmdPlan_Click();
    void cmdCancelPlan_Click();
    void cboSortBy_Click();
    void lstResults_Click();
    void cmdOpen_Click();
    void cmdClose_Click();

    // Brings a running plan's progress, or a finished plan's results, into the fields.
    void Poll();
    // Waits for a running plan to end, then polls (the command line and tests).
    void WaitForPlan();
    bool Planning() const;

    // The plan the fields describe; an empty problem text when it is a plan.
    clsPlan PlanOfFields(std::string& problem) const;
    // The results as lstResults shows them, in its order.
    const std::vector<clsPlanResult>& Results() const { return shown_; }
    // The result selected in lstResults, or nullptr.
    const clsPlanResult* SelectedResult() const;
    // Devices tried and devices done of the running plan.
    size_t DevicesDone() const;
    size_t DeviceCount() const;

  private:
    void RegisterFields();
    void ConnectEvents();
    void ShowResults();
    void Message(const std::string& text);

    AppServices& app_;
    const PlannerHost& host_;
    std::unique_ptr<clsFrequencyPlanner> planner_;
    // The results in the planner's ranking, and as shown.
    std::vector<clsPlanResult> ranked_;
    std::vector<clsPlanResult> shown_;
    double started_ = 0;
};

}  // namespace pendulon
