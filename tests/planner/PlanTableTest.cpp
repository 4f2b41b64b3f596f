#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "planner/PlannerTestSupport.hpp"
#include "planner/clsFrequencyPlanner.hpp"
#include "shell/ShellPlannerHost.hpp"

// A table of plans whose outcome is worked out by hand from what each device's window offers:
// its output lists, its limits by voltage and variant, its power model. Each expectation says
// where it comes from.

namespace pendulon {
namespace {

using test::MakePlan;
using test::Order;
using test::Planned;
using test::ResultOf;
using test::Serving;

constexpr double kReference = 14.31818;

// The supply current of the three-loop devices' model: (idle + PLL slope x loops + load x
// slope x outputs) x supply, at 3.3 V typical: idle 1.8 mA, load 18 pF x 0.00112, supply 3.3 V;
// worst: load 30 pF, supply 4.0 V.
double Current7311(double outputs, bool typical) {
    return typical ? (1.8 + 18 * 0.00112 * outputs) * 3.3 : (1.8 + 30 * 0.00112 * outputs) * 4.0;
}
// The one-loop devices' model: (2.25 + 0.055 x reference + 0.02 x VCO + 0.0017 x load x
// outputs) x supply, with the same loads and supplies.
double Current4860(double outputs, bool typical) {
    return typical ? (2.25 + 0.055 * kReference + 0.0017 * 18 * outputs) * 3.3
                   : (2.25 + 0.055 * kReference + 0.0017 * 30 * outputs) * 4.0;
}

// One output equal to the reference: every device has a reference source with divider 1
// ("Ref" in the output lists of the QX6105A, QX4860, QX3350 and QX7311 families; the QX5140's
// reference search finds "Ref" at 0 ppm, inside its sensitivity of 1000), and the window gives a
// reference output as the reference itself with PPM 0. So all fifteen serve at 0 ppm.
//
// Ranking by current at 3.3 V: the QX7311 family and the QX5140 carry one output of 14.31818
// MHz and no loop: (1.8 + 0.02016 x 14.31818) x 3.3 = 6.8926 mA. The QX6105A and QX4860
// families: (2.25 + 0.055 x 14.31818 + 0.0306 x 14.31818) x 3.3 = 11.4696 mA. The QX3350 has
// no power model and comes last. Of equal current, fewer pins first: the QX5140 (8), the QX7312
// family (16), the QX7311 family (20); the QX6105A and QX4860 families all 8 pins (the planner
// takes the QX4860's 8-pin package), in the order of the device window.
TEST(PlanTable, OneOutputEqualToTheReferenceEveryDeviceServesAtZeroPPM) {
    const auto& results = Planned(MakePlan(kReference, 3.3, {kReference}));
    EXPECT_EQ(Order(results),
              (std::vector<std::string>{"QX5140", "QX7312", "QX7312F", "QX7312I", "QX7311",
                                        "QX7311F", "QX7311I", "QX6105A", "QX6105AF", "QX6105AI",
                                        "QX4860", "QX4860F", "QX4860I", "QX3350", "QX3350I"}));
    for (const clsPlanResult& result : results) {
        SCOPED_TRACE(result.strDevice);
        EXPECT_TRUE(result.blnServes) << result.strReason;
        EXPECT_EQ(result.lngWorstPPM, 0);
        ASSERT_EQ(result.aOutputs.size(), 1u);
        EXPECT_EQ(result.aOutputs[0].strSource, "Ref");
        EXPECT_EQ(result.aOutputs[0].strActual, "14.31818");
        EXPECT_EQ(result.aOutputs[0].lngPPM, 0);
        EXPECT_TRUE(result.aLoops.empty());
        EXPECT_TRUE(result.astrOutOfLimits.empty());
        const bool threeLoops =
            result.strDevice == "QX5140" || result.strDevice.rfind("QX731", 0) == 0;
        if (result.strDevice.rfind("QX3350", 0) == 0) {
            EXPECT_FALSE(result.blnHasCurrent);
        } else {
            ASSERT_TRUE(result.blnHasCurrent);
            EXPECT_NEAR(result.dblTypicalCurrent,
                        threeLoops ? Current7311(kReference, true) : Current4860(kReference, true),
                        1e-9);
            EXPECT_NEAR(
                result.dblWorstCurrent,
                threeLoops ? Current7311(kReference, false) : Current4860(kReference, false), 1e-9);
        }
        EXPECT_EQ(result.intPins, result.strDevice == "QX7311" || result.strDevice == "QX7311F" ||
                                          result.strDevice == "QX7311I"
                                      ? 20
                                  : result.strDevice.rfind("QX7312", 0) == 0 ? 16
                                                                             : 8);
    }
}

// 150 MHz at 5 V is above every output limit: QX6105A and QX4860 and QX4860I 130 MHz,
// QX6105AF and QX4860F 100 MHz (their output tables), the QX7311 and QX7312 100 MHz and their F
// and I variants 90 MHz (the highest loop frequency), the QX5140 100 MHz (its largest loop
// limit), the QX3350 133 MHz (its output limit at 5 V). The QX6105AI has no 5 V at all.
TEST(PlanTable, AnOutputAboveEveryLimitServesNowhereAndSaysWhich) {
    const auto& results = Planned(MakePlan(kReference, 5, {150}));
    EXPECT_TRUE(Serving(results).empty());
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"QX6105A", "150 MHz above the 130 MHz output limit at 5 V"},
        {"QX6105AF", "150 MHz above the 100 MHz output limit at 5 V"},
        {"QX6105AI", "runs at 3.3 V only"},
        {"QX7311", "150 MHz above the 100 MHz output limit at 5 V"},
        {"QX7311F", "150 MHz above the 90 MHz output limit at 5 V"},
        {"QX7311I", "150 MHz above the 90 MHz output limit at 5 V"},
        {"QX7312", "150 MHz above the 100 MHz output limit at 5 V"},
        {"QX7312F", "150 MHz above the 90 MHz output limit at 5 V"},
        {"QX7312I", "150 MHz above the 90 MHz output limit at 5 V"},
        {"QX4860", "150 MHz above the 130 MHz output limit at 5 V"},
        {"QX4860F", "150 MHz above the 100 MHz output limit at 5 V"},
        {"QX4860I", "150 MHz above the 130 MHz output limit at 5 V"},
        {"QX5140", "150 MHz above the 100 MHz output limit at 5 V"},
        {"QX3350", "150 MHz above the 133 MHz output limit at 5 V"},
        {"QX3350I", "150 MHz above the 133 MHz output limit at 5 V"}};
    // Devices that do not serve keep the order of the device window.
    ASSERT_EQ(results.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(results[i].strDevice, expected[i].first);
        EXPECT_EQ(results[i].strReason, expected[i].second) << expected[i].first;
        EXPECT_EQ(results[i].lngWorstPPM, -1);
    }
}

// At 3.3 V the same wanted output is inside the limits the 5 V plan broke for most devices;
// 90 MHz is above 80 (QX6105AF, QX4860F, QX7311 and QX7312 at 3.3 V) and above 66.66667 (their
// F and I variants); the QX6105A, QX6105AI, QX4860, QX4860I take up to 100, the QX3350 100.
TEST(PlanTable, OutputLimitsFollowTheVoltage) {
    const auto& results = Planned(MakePlan(kReference, 3.3, {90}));
    EXPECT_EQ(ResultOf(results, "QX6105AF")->strReason,
              "90 MHz above the 80 MHz output limit at 3.3 V");
    EXPECT_EQ(ResultOf(results, "QX7311")->strReason,
              "90 MHz above the 80 MHz output limit at 3.3 V");
    EXPECT_EQ(ResultOf(results, "QX7312I")->strReason,
              "90 MHz above the 66.66667 MHz output limit at 3.3 V");
    EXPECT_EQ(ResultOf(results, "QX5140")->strReason,
              "90 MHz above the 80 MHz output limit at 3.3 V");
    for (const char* device : {"QX6105A", "QX6105AI", "QX4860", "QX4860I", "QX3350", "QX3350I"})
        EXPECT_TRUE(ResultOf(results, device)->blnServes) << device;
}

// Four outputs: the QX6105A has three (CLKA, CLKB, CLKC), the QX4860 two (CLKA, REFCLK), the
// QX3350 one (CLKOUT), the QX5140 three (CLKA, CLKB, CLKC). The QX7311 (CPU, CLKA to CLKD, CLKF,
// XBUF) and QX7312 (no CLKF) give four times the reference from CLKA to CLKD on "Ref", at 0 ppm
// and (1.8 + 0.02016 x 4 x 14.31818) x 3.3 = 9.7502 mA each; the 16-pin QX7312 family first.
TEST(PlanTable, MoreOutputsThanADeviceHas) {
    const auto& results =
        Planned(MakePlan(kReference, 3.3, {kReference, kReference, kReference, kReference}));
    EXPECT_EQ(Serving(results), (std::vector<std::string>{"QX7312", "QX7312F", "QX7312I", "QX7311",
                                                          "QX7311F", "QX7311I"}));
    for (const char* device : {"QX6105A", "QX6105AF", "QX6105AI", "QX5140"})
        EXPECT_EQ(ResultOf(results, device)->strReason, "needs 4 outputs, has 3") << device;
    for (const char* device : {"QX4860", "QX4860F", "QX4860I"})
        EXPECT_EQ(ResultOf(results, device)->strReason, "needs 4 outputs, has 2") << device;
    for (const char* device : {"QX3350", "QX3350I"})
        EXPECT_EQ(ResultOf(results, device)->strReason, "needs 4 outputs, has 1") << device;
    for (const std::string& device : Serving(results)) {
        const clsPlanResult* result = ResultOf(results, device);
        EXPECT_EQ(result->lngWorstPPM, 0) << device;
        EXPECT_NEAR(result->dblTypicalCurrent, Current7311(4 * kReference, true), 1e-9) << device;
        std::set<std::string> pins;
        for (const PlanOutput& output : result->aOutputs) {
            EXPECT_EQ(output.strSource, "Ref") << device;
            pins.insert(output.strPin);
        }
        EXPECT_EQ(pins.size(), 4u) << device << ": each output on a pin of its own";
    }
}

// 33.333, 48 and 24.576 MHz from 14.31818 MHz at 3.3 V. None is the reference divided by 1, 2,
// 4 or 8, and no two are one frequency divided by dividers of the same loop to five decimals
// (48 / 33.333 = 1.44001 and 48 / 24.576 = 1.953125 are no ratio of two dividers), so each needs
// a loop of its own. The QX6105A family has one PLL: it cannot. The QX4860 (two outputs) and
// QX3350 (one) have too few outputs. The QX7311 and QX7312 families and the QX5140 have three
// loops. A QX7312 gives the same as a QX7311 (the same loops and dividers on CLKA to CLKD) and
// ranks first with fewer pins. An F or I variant keeps its loops at or below 66.66667 MHz
// (I: its VCO at or below twice that), a subset of what the plain part may use: it does no
// better.
TEST(PlanTable, ThreeOutputsFromTheTelevisionCrystal) {
    const auto& results = Planned(MakePlan(kReference, 3.3, {33.333, 48, 24.576}));
    const std::vector<std::string> served = Serving(results);
    const std::set<std::string> serving(served.begin(), served.end());
    EXPECT_EQ(serving, (std::set<std::string>{"QX7311", "QX7311F", "QX7311I", "QX7312", "QX7312F",
                                              "QX7312I", "QX5140"}));
    for (const char* device : {"QX6105A", "QX6105AF", "QX6105AI"})
        EXPECT_EQ(ResultOf(results, device)->strReason,
                  "its one PLL cannot give 33.333 MHz, 48 MHz and 24.576 MHz at once")
            << device;
    for (const char* device : {"QX4860", "QX4860F", "QX4860I"})
        EXPECT_EQ(ResultOf(results, device)->strReason, "needs 3 outputs, has 2") << device;
    for (const char* device : {"QX3350", "QX3350I"})
        EXPECT_EQ(ResultOf(results, device)->strReason, "needs 3 outputs, has 1") << device;

    const clsPlanResult* plain = ResultOf(results, "QX7311");
    const clsPlanResult* narrow = ResultOf(results, "QX7312");
    EXPECT_EQ(narrow->lngWorstPPM, plain->lngWorstPPM);
    EXPECT_NEAR(narrow->dblTypicalCurrent, plain->dblTypicalCurrent, 1e-9);
    const auto order = Order(results);
    EXPECT_LT(std::find(order.begin(), order.end(), "QX7312") - order.begin(),
              std::find(order.begin(), order.end(), "QX7311") - order.begin());
    for (const char* device : {"QX7311F", "QX7311I"})
        EXPECT_GE(ResultOf(results, device)->lngWorstPPM, plain->lngWorstPPM) << device;

    // Every output on a pin of its own, from a loop, at a |ppm| no larger than the worst.
    for (const std::string& device : Serving(results)) {
        const clsPlanResult* result = ResultOf(results, device);
        std::set<std::string> pins;
        std::set<char> loops;
        std::int32_t worst = 0;
        for (const PlanOutput& output : result->aOutputs) {
            pins.insert(output.strPin);
            loops.insert(output.strSource[0]);
            worst = std::max(worst, std::abs(output.lngPPM));
        }
        EXPECT_EQ(pins.size(), 3u) << device;
        EXPECT_EQ(loops, (std::set<char>{'C', 'S', 'U'})) << device;
        EXPECT_EQ(result->lngWorstPPM, worst) << device;
        EXPECT_EQ(result->aLoops.size(), 3u) << device;
    }
    // Ranked by worst |ppm| first.
    for (size_t i = 1; i < results.size() && results[i].blnServes; ++i)
        EXPECT_LE(results[i - 1].lngWorstPPM, results[i].lngWorstPPM);
}

// The same plan worked out by hand for the three-loop family, output by output, from the loop
// search (VCO = 2 x 14.31818 x P / Q, Q from 3 up: the smallest Q is never tried), the counter
// limits at 3.3 V (CPLL and SPLL: P 5-258, Q to 65; UPLL: P 5-1026, Q to 95, since 14.31818 /
// 0.15 rounds to 95), the loop range (8-80 MHz on the QX7311 and QX7312, 8-66.66667 MHz on the
// F and I variants) and the CPLL's P / Q above 1.3.
//
// Best loop solutions near each wanted frequency (loop frequency = VCO / 2, ppm of the loop
// against its desired frequency, which is also the output's against the wanted one):
//   33.333 on a loop by itself: P 149, Q 64: VCO 66.669026, 33.334513 MHz, +45.4 -> +45 ppm
//     (CPLL or SPLL alike; the UPLL does no better within |45|).
//   48 on the UPLL: P 295, Q 88: VCO 95.996889, 47.998444 MHz, -32.4 -> -32 ppm; on the
//     CPLL or SPLL (Q to 65) the best is P 181, Q 54: 47.992418 MHz, -158 ppm.
//   24.576 as SPLL/3 at 73.728: P 242, Q 47: VCO 147.446790, 73.723395 MHz, -61.8 -> -62 ppm,
//     output 73.723395 / 3 = 24.574465 -> 24.57447. Only the plain parts reach 73.728 MHz.
//   24.576 as CPLL/2 at 49.152: P 127, Q 37: VCO 98.292371, 49.146186 MHz, -117.6 -> -118 ppm,
//     output 24.573093 -> 24.57309; by itself or SPLL/2 no better.
// So the plain parts give 33.333 on the CPLL, 48 on the UPLL, 24.576 on SPLL/3: worst 62 ppm.
// The F and I variants cannot take 73.728 MHz; their best is worst 118 ppm, with 24.576 at
// -118 from a loop at 49.152 divided by 2, 33.333 at +45 and 48 at -32 on the UPLL.
//
// Supply current of row 0 (S2:S0 = 000), plain parts: loops 33.334513 + 73.723395 + 47.998444
// = 155.056352 MHz, outputs 33.334513 (CPLL, divided as the power table does) + 47.99844 +
// 24.57447 = 105.907423 MHz: typical (1.8 + 0.0002 x 155.056352 + 18 x 0.00112 x 105.907423)
// x 3.3 = 13.088146 mA, worst (1.8 + 0.0002 x 155.056352 + 30 x 0.00112 x 105.907423) x 4.0
// = 21.558003 mA.
TEST(PlanTable, TheThreeOutputPlanWorkedOutForTheThreeLoopFamily) {
    const auto& results = Planned(MakePlan(kReference, 3.3, {33.333, 48, 24.576}));
    struct Expected {
        const char* source;
        const char* actual;
        std::int32_t ppm;
    };
    const Expected plain[] = {
        {"CPLL", "33.33451", 45}, {"UPLL", "47.99844", -32}, {"SPLL/3", "24.57447", -62}};
    for (const char* device : {"QX7311", "QX7312"}) {
        SCOPED_TRACE(device);
        const clsPlanResult* result = ResultOf(results, device);
        ASSERT_TRUE(result->blnServes) << result->strReason;
        EXPECT_EQ(result->lngWorstPPM, 62);
        ASSERT_EQ(result->aOutputs.size(), 3u);
        for (size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(result->aOutputs[i].strSource, plain[i].source) << i;
            EXPECT_EQ(result->aOutputs[i].strActual, plain[i].actual) << i;
            EXPECT_EQ(result->aOutputs[i].lngPPM, plain[i].ppm) << i;
        }
        std::map<std::string, std::tuple<double, double, double, double>> loops;
        for (const PlanLoop& loop : result->aLoops)
            loops[loop.strLoop] = {loop.dblTarget, loop.dblP, loop.dblQ, loop.dblVCO};
        EXPECT_EQ(loops["CPLL"], std::make_tuple(33.333, 149.0, 64.0, 66.669026));
        EXPECT_EQ(loops["SPLL"], std::make_tuple(73.728, 242.0, 47.0, 147.44679));
        EXPECT_EQ(loops["UPLL"], std::make_tuple(48.0, 295.0, 88.0, 95.996889));
        EXPECT_NEAR(result->dblTypicalCurrent, 13.088146, 1e-5);
        EXPECT_NEAR(result->dblWorstCurrent, 21.558003, 1e-5);
    }
    for (const char* device : {"QX7311F", "QX7311I", "QX7312F", "QX7312I"}) {
        SCOPED_TRACE(device);
        const clsPlanResult* result = ResultOf(results, device);
        ASSERT_TRUE(result->blnServes) << result->strReason;
        EXPECT_EQ(result->lngWorstPPM, 118);
        ASSERT_EQ(result->aOutputs.size(), 3u);
        EXPECT_EQ(result->aOutputs[0].strActual, "33.33451");
        EXPECT_EQ(result->aOutputs[0].lngPPM, 45);
        EXPECT_EQ(result->aOutputs[1].strSource, "UPLL");
        EXPECT_EQ(result->aOutputs[1].lngPPM, -32);
        EXPECT_EQ(result->aOutputs[2].strSource.substr(4), "/2");
        EXPECT_EQ(result->aOutputs[2].strActual, "24.57309");
        EXPECT_EQ(result->aOutputs[2].lngPPM, -118);
    }
}

// Seven outputs: only the QX7311 has seven (CPU, CLKA to CLKD, CLKF, XBUF); the QX7312 six.
// Seven times the reference: CLKA to CLKD and XBUF on "Ref"; the CPU from the CPLL divided by 2
// with the CPLL at 28.63636 MHz (P/Q = 2, an exact ratio above the CPLL's 1.3), and CLKF from the
// SPLL divided by 2 at the same 28.63636 MHz: 0 ppm everywhere.
TEST(PlanTable, OnlyTheQX7311FamilyHasSevenOutputs) {
    const auto& results = Planned(MakePlan(kReference, 3.3, std::vector<double>(7, kReference)));
    EXPECT_EQ(Serving(results), (std::vector<std::string>{"QX7311", "QX7311F", "QX7311I"}));
    for (const char* device : {"QX7312", "QX7312F", "QX7312I"})
        EXPECT_EQ(ResultOf(results, device)->strReason, "needs 7 outputs, has 6") << device;
    EXPECT_EQ(ResultOf(results, "QX5140")->strReason, "needs 7 outputs, has 3");
    for (const std::string& device : Serving(results)) {
        const clsPlanResult* result = ResultOf(results, device);
        EXPECT_EQ(result->lngWorstPPM, 0) << device;
        std::map<std::string, std::string> sourceOf;
        for (const PlanOutput& output : result->aOutputs)
            sourceOf[output.strPin] = output.strSource;
        EXPECT_EQ(sourceOf.size(), 7u) << device;
        EXPECT_EQ(sourceOf["XBUF"], "Ref") << device;
        EXPECT_EQ(sourceOf["CPU"].rfind("CPLL", 0), 0u) << device;
        EXPECT_EQ(sourceOf["CLKF"].rfind("SPLL", 0), 0u) << device;
    }
}

// 0.5 and 0.92327 MHz at 3.3 V. Below 1 MHz only the SPLL's long dividers reach (the CPLL and
// UPLL divide by 8 at most, 16 on the QX5140, from at least 8 MHz). The QX7311 family's SPLL has
// one frequency: 0.5 needs it at 10, 12, 13, 20, 24, 26, 48 or 52 MHz, 0.92327 at 9.2327,
// 11.07924, 12.00251, 18.4654, 22.15848, 24.00502, 36.9308, 44.31696 or 48.01004 MHz: none in
// common. The QX6105A and QX4860 families' PLL gives 0.5 only at 4 MHz (PLL/8) and 0.92327 only
// at 4.61635 or 7.38616 MHz. The QX3350 has one output. The QX5140 shares its SPLL between CLKA
// and CLKB within its sensitivity of 1000 ppm: 0.5 x 192 = 96 and 0.92327 x 104 = 96.02008 MHz
// lie 209 ppm apart; the loop is solved for CLKB, so CLKA shows 209 ppm more than CLKB.
TEST(PlanTable, OnlyTheQX5140SharesALoopWithinItsSensitivity) {
    const auto& results = Planned(MakePlan(kReference, 3.3, {0.5, 0.92327}));
    EXPECT_EQ(Serving(results), (std::vector<std::string>{"QX5140"}));
    for (const char* device : {"QX6105A", "QX6105AF", "QX6105AI", "QX4860", "QX4860F", "QX4860I"})
        EXPECT_EQ(ResultOf(results, device)->strReason,
                  "its one PLL cannot give 0.5 MHz and 0.92327 MHz at once")
            << device;
    for (const char* device : {"QX7311", "QX7311F", "QX7311I", "QX7312", "QX7312F", "QX7312I"})
        EXPECT_EQ(ResultOf(results, device)->strReason,
                  "its loops and outputs cannot give 0.5 MHz and 0.92327 MHz at once")
            << device;
    const clsPlanResult* result = ResultOf(results, "QX5140");
    ASSERT_EQ(result->aOutputs.size(), 2u);
    EXPECT_EQ(result->aOutputs[0].strSource, "SPLL/192");
    EXPECT_EQ(result->aOutputs[1].strSource, "SPLL/104");
    EXPECT_NEAR(result->aOutputs[0].lngPPM - result->aOutputs[1].lngPPM, 209, 1);
}

// A tolerance takes away what it does not admit, and says by how much: each device that served
// the plan without one gives the reason "best N ppm exceeds 10 ppm" with its own worst |ppm|.
TEST(PlanTable, ATolerancePutsTheBestReachedAgainstTheLimit) {
    const auto& free = Planned(MakePlan(kReference, 3.3, {33.333, 48, 24.576}));
    const auto& tight = Planned(MakePlan(kReference, 3.3, {33.333, 48, 24.576}, 10));
    for (const clsPlanResult& result : free) {
        const clsPlanResult* limited = ResultOf(tight, result.strDevice);
        ASSERT_NE(limited, nullptr);
        if (!result.blnServes) {
            EXPECT_EQ(limited->strReason, result.strReason);
        } else if (result.lngWorstPPM > 10) {
            EXPECT_FALSE(limited->blnServes);
            EXPECT_EQ(limited->strReason,
                      "best " + std::to_string(result.lngWorstPPM) + " ppm exceeds 10 ppm");
        } else {
            EXPECT_TRUE(limited->blnServes);
        }
    }
    // A tolerance above the worst keeps the same result.
    const auto& loose = Planned(MakePlan(kReference, 3.3, {33.333, 48, 24.576}, 5000));
    EXPECT_EQ(Serving(loose), Serving(free));
}

// "any": each device tries every reference of its own list, 14.31818 MHz among them, so it does
// at least as well as with that reference alone, and its result names the list's reference.
TEST(PlanTable, AnyReferenceDoesAtLeastAsWellAsOneOfTheList) {
    const auto& one = Planned(MakePlan(kReference, 3.3, {33.333, 48, 24.576}));
    const auto& any = Planned(MakePlan(0, 3.3, {33.333, 48, 24.576}));
    const std::set<double> list = {11.0592, 12,       12.288,  14.31818, 14.7456, 16,     18.432,
                                   16.9344, 17.73448, 19.6608, 20,       22.1184, 24.576, 25};
    for (const clsPlanResult& result : one) {
        if (!result.blnServes)
            continue;
        const clsPlanResult* best = ResultOf(any, result.strDevice);
        ASSERT_TRUE(best->blnServes) << result.strDevice;
        EXPECT_LE(best->lngWorstPPM, result.lngWorstPPM) << result.strDevice;
        EXPECT_EQ(list.count(best->dblReference), 1u) << result.strDevice;
    }
}

// The QX6105AI has no 5 V part: its 5 V option is disabled.
TEST(PlanTable, TheIndustrialQX6105ARunsAt33VoltsOnly) {
    const auto& results = Planned(MakePlan(kReference, 5, {kReference}));
    EXPECT_EQ(ResultOf(results, "QX6105AI")->strReason, "runs at 3.3 V only");
    EXPECT_TRUE(ResultOf(results, "QX6105A")->blnServes);
}

// A reference of 40 MHz is above the 30 MHz every window but the QX3350's keeps; the QX3350 takes
// it from an external clock (1 to 75 MHz) and divides it by 2 for 20 MHz.
TEST(PlanTable, AReferenceOutsideTheRangeOfMostDevices) {
    const auto& results = Planned(MakePlan(40, 5, {20}));
    EXPECT_EQ(Serving(results), (std::vector<std::string>{"QX3350", "QX3350I"}));
    EXPECT_EQ(ResultOf(results, "QX7311")->strReason,
              "reference 40 MHz outside its 1-30 MHz range");
    const clsPlanResult* result = ResultOf(results, "QX3350");
    EXPECT_EQ(result->aOutputs[0].strSource, "Ref/2");
    // The external clock is chosen before the reference is typed.
    const auto& actions = result->aActions;
    ASSERT_GE(actions.size(), 2u);
    EXPECT_EQ(actions[0].CommandLine(), "--click optExternal");
    EXPECT_EQ(actions[1].CommandLine(), "--set cboFRef=40");
}

// The filters: named devices only, and packages of a pin count only (the QX4860 has a 14-pin
// package, and no other device has).
TEST(PlanTable, FiltersNameTheDevicesAndThePackage) {
    clsPlan plan = MakePlan(kReference, 3.3, {kReference});
    plan.astrDevices = {"QX3350", "QX7311"};
    EXPECT_EQ(Order(Planned(plan)), (std::vector<std::string>{"QX7311", "QX3350"}));
    plan.astrDevices.clear();
    plan.intPins = 14;
    const auto& fourteen = Planned(plan);
    EXPECT_EQ(Order(fourteen), (std::vector<std::string>{"QX4860", "QX4860F", "QX4860I"}));
    for (const clsPlanResult& result : fourteen) EXPECT_EQ(result.intPins, 14);
}

// Devices are independent: one thread or two, the same results in the same order.
TEST(PlanTable, TheNumberOfThreadsChangesNoResult) {
    const ShellPlannerHost host;
    const clsPlan plan = MakePlan(kReference, 3.3, {33.333, 48, 24.576});
    const auto one = clsFrequencyPlanner::Run(host, plan, 1);
    const auto two = clsFrequencyPlanner::Run(host, plan, 2);
    ASSERT_EQ(one.size(), two.size());
    for (size_t i = 0; i < one.size(); ++i) {
        EXPECT_EQ(one[i].strDevice, two[i].strDevice);
        EXPECT_EQ(one[i].strReason, two[i].strReason);
        EXPECT_EQ(one[i].lngWorstPPM, two[i].lngWorstPPM);
        EXPECT_EQ(one[i].aActions, two[i].aActions);
    }
}

}  // namespace
}  // namespace pendulon
