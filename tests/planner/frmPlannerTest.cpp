#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "app/Configurator.hpp"
#include "planner/GatedHost.hpp"
#include "planner/clsDevicePlanner.hpp"
#include "planner/frmPlanner.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/UserInput.hpp"
#include "shell/Application.hpp"
#include "shell/ShellPlannerHost.hpp"
#include "shell/frmMain.hpp"

// The planner window as a user drives it: fields set and buttons pressed by name.

namespace pendulon {
namespace {

using test::GatedHost;

struct PlannerWindow {
    explicit PlannerWindow(const PlannerHost* plannerHost = nullptr) {
        app = std::make_unique<Application>(platform);
        app->Main().MDIForm_Load("");
        planner = std::make_unique<frmPlanner>(*app, plannerHost != nullptr ? *plannerHost : host);
        planner->Form_Load();
    }
    ~PlannerWindow() { planner.reset(); }
    void Set(const std::string& name, const std::string& text) {
        std::string error;
        ASSERT_TRUE(SetAsUser(*planner, *planner->Fields().Find(name), text, name, error)) << error;
    }
    void Click(const std::string& name) {
        std::string error;
        ASSERT_TRUE(ClickAsUser(*planner, *planner->Fields().Find(name), name, error)) << error;
    }
    void AddOutput(const std::string& text) {
        Set("txtOutput", text);
        Click("cmdAddOutput");
    }
    // The message boxes shown so far, as one text.
    std::string Messages() const {
        std::string text;
        for (const auto& message : platform.Messages()) text += message.Text + "\n";
        return text;
    }

    HeadlessPlatform platform;
    std::unique_ptr<Application> app;
    ShellPlannerHost host;
    std::unique_ptr<frmPlanner> planner;
};

TEST(frmPlanner, ANewWindowOffersAnyAndTheReferenceListAndPlansNothingYet) {
    PlannerWindow w;
    const frmPlanner& p = *w.planner;
    EXPECT_EQ(p.Caption(), "Frequency Planner");
    EXPECT_EQ(p.cboReference.List(0), "any");
    EXPECT_EQ(p.cboReference.Text(), "14.31818 MHz");
    EXPECT_EQ(p.cboReference.ListCount(), 15);
    EXPECT_TRUE(p.opt3V.Value());
    EXPECT_EQ(p.lstOutputs.ListCount(), 0);
    for (int i = 0; i < p.chkDevice.Count(); ++i) EXPECT_EQ(p.chkDevice[i].Value(), 1);
    EXPECT_EQ(p.chkDevice[12].Caption(), "QX5140");
    EXPECT_FALSE(p.cmdOpen.Enabled());
    EXPECT_FALSE(p.cmdCancelPlan.Enabled());
    EXPECT_FALSE(p.cmdRemoveOutput.Enabled());
    EXPECT_FALSE(p.fraProgress.Visible());
}

TEST(frmPlanner, OutputsAreAddedAsTheFieldsKeepThemAndRemoved) {
    PlannerWindow w;
    w.AddOutput("33.333");
    w.Set("txtOutput", "48");
    // Enter in the field adds it as well.
    int enter = 13;
    w.planner->txtOutput.RaiseKeyPress(enter);
    EXPECT_EQ(enter, 0);
    w.AddOutput("24.576");
    w.AddOutput("24.576");
    EXPECT_EQ(w.planner->lstOutputs.Items(),
              (std::vector<std::string>{"33.333", "48.0", "24.576", "24.576"}));
    EXPECT_TRUE(w.planner->txtOutput.Text().empty());
    EXPECT_EQ(w.planner->lstOutputs.ListIndex(), 3);
    w.Click("cmdRemoveOutput");
    EXPECT_EQ(w.planner->lstOutputs.ListCount(), 3);
    EXPECT_EQ(w.planner->lstOutputs.ListIndex(), 2);
    // Nothing that is not a frequency above 0.
    w.AddOutput("0");
    EXPECT_NE(w.Messages().find("Enter an output frequency in MHz above 0."), std::string::npos);
    EXPECT_EQ(w.planner->lstOutputs.ListCount(), 3);
}

TEST(frmPlanner, AtMostSevenOutputs) {
    PlannerWindow w;
    for (int i = 1; i <= 8; ++i) w.AddOutput(std::to_string(i));
    EXPECT_EQ(w.planner->lstOutputs.ListCount(), 7);
    EXPECT_NE(w.Messages().find("A plan has at most 7 outputs"), std::string::npos);
}

TEST(frmPlanner, APlanWithoutOutputsOrDevicesIsNotStarted) {
    PlannerWindow w;
    w.Click("cmdPlan");
    EXPECT_NE(w.Messages().find("Add at least one wanted output frequency."), std::string::npos);
    EXPECT_FALSE(w.planner->Planning());
    w.AddOutput("48");
    for (int i = 0; i < 15; ++i) w.Click("chkDevice(" + std::to_string(i) + ")");
    w.Click("cmdPlan");
    EXPECT_NE(w.Messages().find("Tick at least one device."), std::string::npos);
    EXPECT_FALSE(w.planner->Planning());
}

TEST(frmPlanner, PlanRanksTheDevicesShowsTheBestAndOpensItConfigured) {
    PlannerWindow w;
    for (const char* output : {"33.333", "48", "24.576"}) w.AddOutput(output);
    w.Click("cmdPlan");
    w.planner->WaitForPlan();
    const frmPlanner& p = *w.planner;
    EXPECT_TRUE(p.cmdPlan.Enabled());
    EXPECT_FALSE(p.cmdCancelPlan.Enabled());
    EXPECT_EQ(p.lblStatus.Caption(), "7 of 15 devices serve the plan.");
    ASSERT_EQ(p.lstResults.ListCount(), 15);
    EXPECT_EQ(p.lstResults.ListIndex(), 0);
    ASSERT_NE(p.SelectedResult(), nullptr);
    EXPECT_EQ(p.SelectedResult()->strDevice, "QX7312");
    EXPECT_EQ(p.lstResults.List(0).substr(0, 15), "   1  QX7312   ");
    EXPECT_NE(p.txtDetails.Text().find("QX7312: serves the plan"), std::string::npos);
    EXPECT_TRUE(p.cmdOpen.Enabled());

    // A device that does not serve cannot be opened, and says why.
    w.Set("lstResults", p.lstResults.List(14));
    EXPECT_FALSE(p.cmdOpen.Enabled());
    EXPECT_NE(p.txtDetails.Text().find("does not serve the plan"), std::string::npos);

    w.Set("lstResults", p.lstResults.List(0));
    const clsPlanResult promised = *p.SelectedResult();
    w.Click("cmdOpen");
    Configurator* document = w.app->Document();
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->lblDevice.Caption(), "QX7312");
    EXPECT_EQ(clsDevicePlanner::Create(w.host, "QX7312")->Shows(*document, promised), "");
    EXPECT_EQ(p.lblStatus.Caption(), "Opened a new QX7312 document configured for the plan.");
}

TEST(frmPlanner, SortingKeepsTheSelectionAndTheServingDevicesFirst) {
    PlannerWindow w;
    for (const char* output : {"33.333", "48", "24.576"}) w.AddOutput(output);
    w.Click("cmdPlan");
    w.planner->WaitForPlan();
    frmPlanner& p = *w.planner;
    w.Set("lstResults", p.lstResults.List(2));
    const std::string selected = p.SelectedResult()->strDevice;
    w.Set("cboSortBy", "Device");
    EXPECT_EQ(p.Results().front().strDevice, "QX6105A");
    EXPECT_EQ(p.SelectedResult()->strDevice, selected);
    w.Set("cboSortBy", "Pins");
    EXPECT_TRUE(p.Results().front().blnServes);
    for (size_t i = 1; i < p.Results().size() && p.Results()[i].blnServes; ++i)
        EXPECT_LE(p.Results()[i - 1].intPins, p.Results()[i].intPins);
    w.Set("cboSortBy", "Typical current");
    for (size_t i = 1; i < p.Results().size() && p.Results()[i].blnServes; ++i)
        EXPECT_LE(p.Results()[i - 1].dblTypicalCurrent, p.Results()[i].dblTypicalCurrent);
    w.Set("cboSortBy", "Rank");
    EXPECT_EQ(p.Results().front().strDevice, "QX7312");
    EXPECT_EQ(p.SelectedResult()->strDevice, selected);
}

TEST(frmPlanner, TheFieldsMakeThePlan) {
    PlannerWindow w;
    w.Set("cboReference", "any");
    w.Click("opt5V");
    w.AddOutput("48");
    w.Set("txtTolerance", "100");
    w.Click("chkDevice(0)");
    w.Set("cboPins", "8 pins");
    std::string problem;
    const clsPlan plan = w.planner->PlanOfFields(problem);
    EXPECT_EQ(problem, "");
    EXPECT_TRUE(plan.AnyReference());
    EXPECT_EQ(plan.dblVoltage, 5.0);
    EXPECT_EQ(plan.adblOutputs, std::vector<double>{48});
    EXPECT_EQ(plan.lngTolerancePPM, 100);
    EXPECT_EQ(plan.astrDevices.size(), 14u);
    EXPECT_EQ(plan.astrDevices.front(), "QX6105AF");
    EXPECT_EQ(plan.intPins, 8);
    w.Set("txtTolerance", "");
    w.Set("cboReference", "20");
    EXPECT_EQ(w.planner->PlanOfFields(problem).dblReference, 20);
    EXPECT_EQ(w.planner->PlanOfFields(problem).lngTolerancePPM, -1);
    w.Set("cboReference", "fast");
    w.planner->PlanOfFields(problem);
    EXPECT_EQ(problem, "Enter a reference frequency in MHz above 0, or choose any.");
}

// A plan that runs longer than 0.2 s shows its progress; Stop ends it, and no result stands.
TEST(frmPlanner, ASlowPlanShowsItsProgressAndCanBeStopped) {
    GatedHost gated;
    PlannerWindow w(&gated);
    double now = 100;
    w.planner->Clock = [&now] { return now; };
    for (const char* output : {"33.333", "48", "24.576"}) w.AddOutput(output);
    w.Click("cmdPlan");
    frmPlanner& p = *w.planner;
    EXPECT_TRUE(p.Planning());
    EXPECT_FALSE(p.cmdPlan.Enabled());
    EXPECT_TRUE(p.cmdCancelPlan.Enabled());
    now += 0.1;
    p.Poll();
    EXPECT_FALSE(p.fraProgress.Visible()) << "not before 0.2 s";
    EXPECT_EQ(p.lblProgress.Caption(), "0 of 15 devices tried");
    now += 0.15;
    p.Poll();
    EXPECT_TRUE(p.fraProgress.Visible());
    w.Click("cmdCancelPlan");
    gated.Open();
    p.WaitForPlan();
    EXPECT_FALSE(p.Planning());
    EXPECT_TRUE(p.cmdPlan.Enabled());
    EXPECT_FALSE(p.cmdCancelPlan.Enabled());
    EXPECT_FALSE(p.fraProgress.Visible());
    EXPECT_EQ(p.lblStatus.Caption(), "The plan was stopped.");
    EXPECT_EQ(p.lstResults.ListCount(), 0);
    EXPECT_FALSE(p.cmdOpen.Enabled());
}

// A plan that ends while the window waits shows its results at the next look.
TEST(frmPlanner, APlanThatEndsShowsItsResultsAtTheNextPoll) {
    GatedHost gated;
    PlannerWindow w(&gated);
    w.AddOutput("14.31818");
    w.Click("cmdPlan");
    EXPECT_EQ(w.planner->lstResults.ListCount(), 0);
    gated.Open();
    w.planner->WaitForPlan();
    EXPECT_EQ(w.planner->lstResults.ListCount(), 15);
    EXPECT_EQ(w.planner->lblStatus.Caption(), "15 of 15 devices serve the plan.");
}

// Closing the window stops a plan that runs.
TEST(frmPlanner, ClosingTheWindowStopsItsPlan) {
    GatedHost gated;
    PlannerWindow w(&gated);
    w.AddOutput("48");
    w.Click("cmdPlan");
    w.Click("cmdClose");
    EXPECT_FALSE(w.planner->Visible());
    gated.Open();
    w.planner->WaitForPlan();
    EXPECT_EQ(w.planner->lblStatus.Caption(), "The plan was stopped.");
}

TEST(frmPlanner, CancellingTheNewDocumentsCloseQuestionOpensNothing) {
    PlannerWindow w;
    w.AddOutput("14.31818");
    w.Click("cmdPlan");
    w.planner->WaitForPlan();
    // A document with changes is open; its close question is answered Cancel.
    w.Set("lstResults", w.planner->lstResults.List(0));
    w.Click("cmdOpen");
    Configurator* first = w.app->Document();
    ASSERT_NE(first, nullptr);
    std::string error;
    ASSERT_TRUE(SetAsUser(*first, first->cboFRef, "16", "cboFRef", error)) << error;
    w.platform.QueueAnswer(msgbox::Cancel);
    w.Click("cmdOpen");
    EXPECT_EQ(w.app->Document(), first);
    EXPECT_EQ(w.planner->lblStatus.Caption(), "No document was opened.");
}

}  // namespace
}  // namespace pendulon
