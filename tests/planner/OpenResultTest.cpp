#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/Configurator.hpp"
#include "planner/PlannerTestSupport.hpp"
#include "planner/clsDevicePlanner.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/ShellPlannerHost.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "support/TestSupport.hpp"

// Every result that serves a plan of the table, opened: a new document of its device, set up
// as a user would from the result's actions, shows the promised outputs; saved as an entry
// file and opened again, it shows them once more.

namespace pendulon {
namespace {

using test::MakePlan;
using test::Planned;

struct Program {
    Program() {
        app = std::make_unique<Application>(platform);
        app->Main().MDIForm_Load("");
    }
    void QueueSummaryOK() {
        platform.QueueModal("frmSummary",
                            [](Window& w) { dynamic_cast<frmSummary&>(w).cmdOK_Click(); });
    }
    HeadlessPlatform platform;
    std::unique_ptr<Application> app;
};

void ExpectOpensAndReopens(const clsPlanResult& result, const std::string& folder) {
    SCOPED_TRACE(result.strDevice);
    ASSERT_TRUE(result.blnServes);
    const ShellPlannerHost host;
    const auto planner = clsDevicePlanner::Create(host, result.strDevice);
    Program program;
    ASSERT_EQ(planner->Open(*program.app, result), "");
    Configurator* document = program.app->Document();
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->lblDevice.Caption(), result.strDevice);
    EXPECT_FALSE(program.app->gblnNeedsCalculate) << "the document is calculated";
    EXPECT_EQ(planner->Shows(*document, result), "");

    // File, Save As, then File, Open of what was saved.
    const std::string path = (std::filesystem::path(folder) / (result.strDevice + ".ent")).string();
    program.QueueSummaryOK();
    program.platform.QueueFileAnswer(path);
    program.app->Main().mnuSaveAs_Click();
    ASSERT_TRUE(std::filesystem::is_regular_file(path));
    program.QueueSummaryOK();
    const size_t shown = program.platform.Messages().size();
    program.app->Main().GetFile(path);
    Configurator* reopened = program.app->Document();
    ASSERT_NE(reopened, nullptr);
    EXPECT_EQ(reopened->txtFilePath.Text(), path);
    // The file was read: its load ends with a note on how it was calculated again.
    bool noted = false;
    for (size_t i = shown; i < program.platform.Messages().size(); ++i)
        noted = noted || program.platform.Messages()[i].Text.rfind("NOTE: ", 0) == 0;
    EXPECT_TRUE(noted);
    EXPECT_EQ(planner->Shows(*reopened, result), "");
}

void ExpectEveryServingResultOpens(const clsPlan& plan) {
    const std::string folder = test::MakeTempDir();
    size_t serving = 0;
    for (const clsPlanResult& result : Planned(plan)) {
        if (!result.blnServes)
            continue;
        ++serving;
        ExpectOpensAndReopens(result, folder);
    }
    EXPECT_GT(serving, 0u);
}

TEST(PlannerOpen, OneOutputEqualToTheReference) {
    ExpectEveryServingResultOpens(MakePlan(14.31818, 3.3, {14.31818}));
}

TEST(PlannerOpen, FourReferenceOutputs) {
    ExpectEveryServingResultOpens(
        MakePlan(14.31818, 3.3, {14.31818, 14.31818, 14.31818, 14.31818}));
}

TEST(PlannerOpen, ThreeOutputsFromTheTelevisionCrystal) {
    ExpectEveryServingResultOpens(MakePlan(14.31818, 3.3, {33.333, 48, 24.576}));
}

TEST(PlannerOpen, ThreeOutputsFromAnyReference) {
    ExpectEveryServingResultOpens(MakePlan(0, 3.3, {33.333, 48, 24.576}));
}

TEST(PlannerOpen, SevenOutputs) {
    ExpectEveryServingResultOpens(MakePlan(14.31818, 3.3, std::vector<double>(7, 14.31818)));
}

TEST(PlannerOpen, TheQX5140SharingItsSPLL) {
    ExpectEveryServingResultOpens(MakePlan(14.31818, 3.3, {0.5, 0.92327}));
}

TEST(PlannerOpen, OneLoopDevicesAtFiveVolts) {
    // 48 MHz and 24 MHz from one PLL at 96 MHz divided by 2 and 4, or 48 MHz divided by 1 and 2.
    ExpectEveryServingResultOpens(MakePlan(14.31818, 5, {48, 24}));
}

TEST(PlannerOpen, AnExternalReference) {
    ExpectEveryServingResultOpens(MakePlan(40, 5, {20}));
}

// A result whose document shows something else is caught: a changed promise does not pass.
TEST(PlannerOpen, AWindowThatShowsOtherwiseIsReported) {
    clsPlanResult result =
        *test::ResultOf(Planned(MakePlan(14.31818, 3.3, {33.333, 48, 24.576})), "QX5140");
    result.aOutputs[1].lngPPM += 1;
    const ShellPlannerHost host;
    Program program;
    const std::string problem =
        clsDevicePlanner::Create(host, "QX5140")->Open(*program.app, result);
    EXPECT_NE(problem.find("the window shows CLKB"), std::string::npos) << problem;
}

}  // namespace
}  // namespace pendulon
