#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "app/Configurator.hpp"
#include "planner/PlannerTestSupport.hpp"
#include "planner/clsPlannerRun.hpp"
#include "platform/ListField.hpp"
#include "shell/ShellPlannerHost.hpp"

// The three-output plan (33.333, 48 and 24.576 MHz from 14.31818 MHz at 3.3 V) on the QX5140,
// worked out by hand from its case search.
//
// No two of the wanted outputs share a loop within the sensitivity of 1000 ppm (the products of
// their dividers that fit a 16-160 MHz VCO, 66.666 and 133.332, 96, 49.152, 98.304 and 147.456,
// lie at least 2.4 % apart) and none is the reference divided by 1, 2, 4 or 8, so each output
// gets a loop of its own, and the search offers the six assignments in the order (CLKA, CLKB,
// CLKC) = (U, S, C), (U, C, S), (S, U, C), (S, C, U), (C, U, S), (C, S, U).
//
// Each loop takes the divider with the best |ppm|, the largest on a tie (VCO = 2 x 14.31818 x
// P / Q, 16-160 MHz; UPLL P to 1026, Q to 95; SPLL and CPLL P to 258, Q to 65; the output is
// the VCO divided by the divider):
//   33.333 on the UPLL: /4 at 133.332, P 433, Q 93: VCO 133.328429, 33.332107, -26.7 -> -27 ppm
//   33.333 on the SPLL or CPLL: /4 at 133.332, P 149, Q 32: VCO 133.338051, 33.334513, +45
//   48 on the UPLL: /2 at 96, P 295, Q 88: VCO 95.996889, 47.998444, -32 ppm
//   48 on the SPLL or CPLL: /2 at 96, P 181, Q 54: VCO 95.984836, 47.992418, -158 ppm
//   24.576 on the UPLL: /4 at 98.304, P 230, Q 67: VCO 98.303922, 24.575981, -0.8 -> -1 ppm
//   24.576 on the SPLL: /6 at 147.456, P 242, Q 47: VCO 147.446790, 24.574465, -62 ppm
//   24.576 on the CPLL: /4 at 98.304, P 127, Q 37: VCO 98.292371, 24.573093, -118 ppm
//
// So the cases, with their worst |ppm|: 1 (-27, -158, -118) 158; 2 (-27, -158, -62) 158;
// 3 (+45, -32, -118) 118; 4 (+45, -158, -1) 158; 5 (+45, -32, -62) 62; 6 (+45, -158, -1) 158.

namespace pendulon {
namespace {

struct Case {
    std::vector<std::string> sources;
    std::vector<std::string> shown;
};

const std::vector<Case>& HandCases() {
    static const std::vector<Case> cases = {
        {{"UPLL/4", "SPLL/2", "CPLL/4"},
         {"33.33211    PPM:-27", "47.99242    PPM:-158", "24.57309    PPM:-118"}},
        {{"UPLL/4", "CPLL/2", "SPLL/6"},
         {"33.33211    PPM:-27", "47.99242    PPM:-158", "24.57447    PPM:-62"}},
        {{"SPLL/4", "UPLL/2", "CPLL/4"},
         {"33.33451    PPM:45", "47.99844    PPM:-32", "24.57309    PPM:-118"}},
        {{"SPLL/4", "CPLL/2", "UPLL/4"},
         {"33.33451    PPM:45", "47.99242    PPM:-158", "24.57598    PPM:-1"}},
        {{"CPLL/4", "UPLL/2", "SPLL/6"},
         {"33.33451    PPM:45", "47.99844    PPM:-32", "24.57447    PPM:-62"}},
        {{"CPLL/4", "SPLL/2", "UPLL/4"},
         {"33.33451    PPM:45", "47.99242    PPM:-158", "24.57598    PPM:-1"}}};
    return cases;
}

// The window steps through the six cases as worked out, one per press of Calculate.
TEST(QX5140Cases, TheWindowOffersTheSixCasesWorkedOutByHand) {
    const ShellPlannerHost host;
    clsPlannerRun run(host, "QX5140");
    std::string error;
    Configurator* document = run.NewDocument(error);
    ASSERT_NE(document, nullptr) << error;
    ASSERT_TRUE(clsPlannerRun::Apply(
        *document,
        {PlanAction::Click("opt3V"), PlanAction::Set("cboFRef", "14.31818"),
         PlanAction::Set("txtClkA(0)", "33.333"), PlanAction::Set("txtClkB", "48"),
         PlanAction::Set("txtClkC", "24.576")},
        error))
        << error;
    const char* const sources[] = {"lblClkASrcDiv", "lblClkBSrcDiv", "lblClkCSrcDiv"};
    const char* const actuals[] = {"cboClkA(0)", "cboClkB", "cboClkC"};
    for (size_t n = 0; n < HandCases().size(); ++n) {
        SCOPED_TRACE("case " + std::to_string(n + 1));
        ASSERT_TRUE(clsPlannerRun::Apply(*document, {PlanAction::Click("cmdCalculate")}, error))
            << error;
        EXPECT_EQ(document->Fields().Find("lblCaseMessage")->Caption(),
                  "Case " + std::to_string(n + 1) + " of 6");
        for (size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(document->Fields().Find(sources[i])->Caption(), HandCases()[n].sources[i]);
            EXPECT_EQ(document->Fields().FindAs<ListField>(actuals[i])->Text(),
                      HandCases()[n].shown[i]);
        }
    }
}

// The planner promises a case only if its saved entry file opens on that case again. A QX5140
// file stores the clock assignment in the codes of the halved dividers, and opening it finds
// the case of the new search with the same codes, so each case reopens on itself and the
// planner promises the best: the fifth, worst 62 ppm. Its current (the power model of the
// three-loop devices on the QX5140's inputs: the loops at their whole VCO, the outputs as
// shown): loops 133.338051 (CPLL, P 149, Q 32) + 95.996889 (UPLL) + 147.446790 (SPLL) =
// 376.781730 MHz, outputs 33.33451 + 47.99844 + 24.57447 = 105.90742 MHz; typical (1.8 + 0.0002
// x 376.78173 + 18 x 0.00112 x 105.90742) x 3.3 = 13.234485 mA, worst (1.8 + 0.0002 x 376.78173
// + 30 x 0.00112 x 105.90742) x 4.0 = 21.735383 mA.
TEST(QX5140Cases, ThePlannerPromisesTheCaseWhoseFileReopensOnIt) {
    const auto& results = test::Planned(test::MakePlan(14.31818, 3.3, {33.333, 48, 24.576}));
    const clsPlanResult* result = test::ResultOf(results, "QX5140");
    ASSERT_NE(result, nullptr);
    ASSERT_TRUE(result->blnServes) << result->strReason;
    EXPECT_EQ(result->lngWorstPPM, 62);
    const Case& fifth = HandCases()[4];
    EXPECT_NEAR(result->dblTypicalCurrent, 13.234485, 1e-5);
    EXPECT_NEAR(result->dblWorstCurrent, 21.735383, 1e-5);
    ASSERT_EQ(result->aOutputs.size(), 3u);
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(result->aOutputs[i].strSource, fifth.sources[i]);
        EXPECT_EQ(
            result->aOutputs[i].strActual + "    PPM:" + std::to_string(result->aOutputs[i].lngPPM),
            fifth.shown[i]);
    }
}

}  // namespace
}  // namespace pendulon
