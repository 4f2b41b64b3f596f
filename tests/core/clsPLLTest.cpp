#include <gtest/gtest.h>

#include <vector>

#include "CoreTestSupport.hpp"
#include "core/clsPLL.hpp"

namespace pendulon {
namespace {

std::vector<std::string> Entries(const ListField& list) {
    return list.Items();
}

class PLLTest : public ::testing::Test {
  protected:
    test::ReportFixture f;
    clsPLL pll{f.errors};

    // Reference 2.55 MHz, target 212.5 MHz: exact at P 125 Q 3 (and P 250 Q 6).
    void SetUpExactCase() {
        pll.mdblReferenceFrequency = 2.55;
        pll.mdblTargetVCO = 212.5;
        pll.mdblMaxP = 256;
        pll.mdblMaxQ = 128;
    }
    std::vector<std::string> Solve(bool largest = false, double guard = 0) {
        pll.FindPAndQ(largest, guard);
        ListField list;
        pll.StorePLLData(list);
        return Entries(list);
    }
};

TEST_F(PLLTest, ConstructionValues) {
    EXPECT_EQ(pll.mdblReferenceFrequency, 0);
    EXPECT_EQ(pll.mdblMaxQ, 0);
    EXPECT_EQ(pll.mdblMinQ, 2);
    EXPECT_EQ(pll.mdblMaxP, 0);
    EXPECT_EQ(pll.mdblMinP, 5);
    EXPECT_EQ(pll.mdblVCOMax, 9000000000.0);
    EXPECT_EQ(pll.mdblVCOMin, 0);
    EXPECT_EQ(pll.mdblTargetVCO, 0);
}

TEST_F(PLLTest, ExactHitKeepsWalkingAndFillsBothSides) {
    SetUpExactCase();
    // Q 3: 124 (-8000), 125 (0), 126 (+8000); Q 4: 166 (-4000), 167 (+2000);
    // Q 5: 208 (-1600); Q 6 adds nothing better; from Q 7 on P exceeds 256.
    EXPECT_EQ(Solve(), (std::vector<std::string>{"212.500000 P:125 Q:3", "212.160000 P:208 Q:5",
                                                 "212.925000 P:167 Q:4"}));
    EXPECT_EQ(pll.BestPPM(), 0);
    EXPECT_EQ(pll.PValue(), 125);
    EXPECT_EQ(f.errors.Count(), 0);
}

TEST_F(PLLTest, LargestVCOWalksDownAndHighestQWinsTies) {
    SetUpExactCase();
    const auto down = Solve(true);
    EXPECT_EQ(down, (std::vector<std::string>{"212.500000 P:250 Q:6", "212.160000 P:208 Q:5",
                                              "212.925000 P:167 Q:4"}));
    EXPECT_EQ(pll.BestPPM(), 0);
    const auto up = Solve(false);
    EXPECT_EQ(up.front(), "212.500000 P:125 Q:3");
    EXPECT_EQ(pll.BestPPM(), 0);
}

TEST_F(PLLTest, SmallestQIsNeverTried) {
    // Reference 1, target 5: exact at P 5 Q 2 and P 10 Q 4; Q 2 is the minimum and skipped.
    pll.mdblReferenceFrequency = 1;
    pll.mdblTargetVCO = 5;
    pll.mdblMaxP = 256;
    pll.mdblMaxQ = 4;
    // Q 3: P0 = 7.5 rounded to 8: 7 (-66667), 8 (+66667), 9; Q 4: 10 exact.
    EXPECT_EQ(Solve(), (std::vector<std::string>{"5.000000 P:10 Q:4", "4.666667 P:7 Q:3",
                                                 "5.333333 P:8 Q:3"}));
}

TEST_F(PLLTest, EqualErrorOnBothSidesSlotZeroKeepsFirstMet) {
    pll.mdblReferenceFrequency = 1;
    pll.mdblTargetVCO = 5;
    pll.mdblMaxP = 256;
    pll.mdblMaxQ = 3;
    // 7/3 is -66667 and met first; 8/3 is +66667. Slot 1 equals slot 0 and is not listed.
    EXPECT_EQ(Solve(), (std::vector<std::string>{"4.666667 P:7 Q:3", "5.333333 P:8 Q:3"}));
    EXPECT_EQ(pll.BestPPM(), -66667);
    EXPECT_EQ(pll.GetPLLDataString(1), "");
    EXPECT_EQ(pll.GetPLLDataString(2), "5.333333 P:8 Q:3");
}

TEST_F(PLLTest, CentreCounterRoundsHalfToEven) {
    // R x Q = 3.25 x 2 = 6.5 rounds to 6, so the candidates are 5, 6, 7; with P limited to 5
    // only P 5 remains. Rounding half up would give 6, 7, 8 and no solution.
    pll.mdblReferenceFrequency = 1;
    pll.mdblTargetVCO = 6.5;
    pll.mdblMinQ = 1;
    pll.mdblMaxQ = 2;
    pll.mdblMaxP = 5;
    EXPECT_EQ(Solve(), (std::vector<std::string>{"5.000000 P:5 Q:2"}));
    EXPECT_EQ(pll.BestPPM(), -230769);
}

TEST_F(PLLTest, TargetExactlyOnePercentBelowMinimumIsSearched) {
    pll.mdblReferenceFrequency = 1;
    pll.mdblTargetVCO = 100;
    pll.mdblMinQ = 1;
    pll.mdblMaxQ = 10;
    pll.mdblMaxP = 256;
    pll.mdblVCOMin = 100 * 1.01;
    // Only 101/2 reaches the inclusive VCO minimum of 101.
    EXPECT_EQ(Solve(), (std::vector<std::string>{"101.000000 P:101 Q:2"}));
    EXPECT_EQ(pll.BestPPM(), 10000);
}

TEST_F(PLLTest, TargetOnePercentBelowMinimumSearchedButStoreMayStayEmpty) {
    pll.mdblReferenceFrequency = 1;
    pll.mdblTargetVCO = 100;
    pll.mdblMaxQ = 10;
    pll.mdblMaxP = 256;
    pll.mdblVCOMin = 100 * 1.01;
    // Q starts at 3: the best VCO above the target is 100.67, below the minimum.
    EXPECT_EQ(Solve(), (std::vector<std::string>{"0.000000 P:5 Q:2"}));
    EXPECT_EQ(pll.BestPPM(), 5000000);
}

TEST_F(PLLTest, TargetFurtherOutsideVCORangeIsNotSearched) {
    pll.mdblReferenceFrequency = 1;
    pll.mdblTargetVCO = 100;
    pll.mdblMinQ = 1;
    pll.mdblMaxQ = 10;
    pll.mdblMaxP = 256;
    pll.mdblVCOMin = 101.0000001;
    EXPECT_EQ(Solve(), (std::vector<std::string>{"0.000000 P:5 Q:1"}));
    EXPECT_EQ(pll.BestPPM(), 5000000);
    pll.mdblVCOMin = 0;
    pll.mdblVCOMax = 98.9;
    // 100 x 0.99 = 99 is above the maximum.
    EXPECT_EQ(Solve().front(), "0.000000 P:5 Q:1");
    pll.mdblVCOMax = 99;
    EXPECT_NE(Solve().front(), "0.000000 P:5 Q:1");
}

TEST_F(PLLTest, VCOBoundsAreInclusive) {
    pll.mdblReferenceFrequency = 1;
    pll.mdblTargetVCO = 5;
    pll.mdblMaxP = 256;
    pll.mdblMaxQ = 4;
    pll.mdblVCOMin = 5;
    pll.mdblVCOMax = 5;
    EXPECT_EQ(Solve(), (std::vector<std::string>{"5.000000 P:10 Q:4"}));
}

TEST_F(PLLTest, CPLLFilterRejectsRatiosUpToOnePointThreeAndIsCleared) {
    pll.mdblReferenceFrequency = 10;
    pll.mdblTargetVCO = 20;
    pll.mdblMinP = 1;
    pll.mdblMinQ = 3;
    pll.mdblMaxQ = 20;
    pll.mdblMaxP = 256;
    bool cpll = true;
    pll.FindPAndQ(false, 0, cpll);
    EXPECT_FALSE(cpll);
    EXPECT_EQ(pll.BestPPM(), 5000000);
    ListField list;
    pll.StorePLLData(list);
    EXPECT_EQ(Entries(list), (std::vector<std::string>{"0.000000 P:1 Q:3"}));
    // Without the filter the ratio 1 is exact.
    pll.FindPAndQ(false, 0, cpll);
    EXPECT_EQ(pll.BestPPM(), 0);
}

TEST_F(PLLTest, CPLLFilterIsStrictlyAboveOnePointThree) {
    pll.mdblReferenceFrequency = 1;
    pll.mdblTargetVCO = 2.6;  // ratio 1.3
    pll.mdblMinP = 1;
    pll.mdblMinQ = 9;
    pll.mdblMaxQ = 10;
    pll.mdblMaxP = 256;
    bool cpll = true;
    pll.FindPAndQ(false, 0, &cpll);
    ListField list;
    pll.StorePLLData(list);
    // 13/10 is exactly 1.3 and rejected; 14/10 passes.
    EXPECT_EQ(Entries(list), (std::vector<std::string>{"2.800000 P:14 Q:10"}));
    EXPECT_EQ(pll.BestPPM(), 76923);
    pll.FindPAndQ();
    EXPECT_EQ(pll.BestPPM(), 0);
}

TEST_F(PLLTest, CPLLIsClearedOnTheInfeasiblePathToo) {
    pll.mdblReferenceFrequency = 1;
    pll.mdblTargetVCO = 1000;
    pll.mdblMaxP = 256;
    pll.mdblMaxQ = 10;
    pll.mdblVCOMax = 100;
    bool cpll = true;
    pll.FindPAndQ(false, 0, cpll);
    EXPECT_FALSE(cpll);
    bool off = false;
    pll.FindPAndQ(false, 0, off);
    EXPECT_FALSE(off);
}

TEST_F(PLLTest, GuardFrequencyNeverSkipsAQ) {
    // Reference 1, exact only at P 101 Q 100, where 1 / 100 is below 0.15.
    pll.mdblReferenceFrequency = 1;
    pll.mdblTargetVCO = 2.02;
    pll.mdblMaxP = 256;
    pll.mdblMaxQ = 100;
    const auto withGuard = Solve(false, 0.15);
    EXPECT_EQ(withGuard.front(), "2.020000 P:101 Q:100");
    EXPECT_EQ(withGuard, Solve(false, 0));
    EXPECT_EQ(Solve(true, 0.15), Solve(true, 0));
}

TEST_F(PLLTest, SearchResetsThePreviousResult) {
    SetUpExactCase();
    Solve();
    pll.mdblVCOMax = 1;
    EXPECT_EQ(Solve(), (std::vector<std::string>{"0.000000 P:5 Q:2"}));
    EXPECT_EQ(pll.BestPPM(), 5000000);
    EXPECT_EQ(pll.PValue(), 5);
}

TEST_F(PLLTest, ZeroReferenceReportsDivisionByZeroAndFindsNothing) {
    pll.mdblTargetVCO = 100;
    pll.mdblMaxP = 256;
    pll.mdblMaxQ = 5;
    EXPECT_EQ(Solve(), (std::vector<std::string>{"0.000000 P:5 Q:2"}));
    ASSERT_GE(f.errors.Count(), 1);
    EXPECT_EQ(f.platform.Messages().front().Text,
              "The error number is: 11\nThe source for the error is: clsPLL.FindPAndQ\n"
              "The description for the error is: Division by zero");
    EXPECT_EQ(f.platform.Messages().front().Title, "Pendulon(tm) 3.71");
}

TEST_F(PLLTest, ZeroOverZeroReportsOverflow) {
    pll.mdblMaxP = 256;
    pll.mdblMaxQ = 5;
    pll.FindPAndQ();
    ASSERT_GE(f.errors.Count(), 1);
    EXPECT_NE(f.platform.Messages().front().Text.find("The error number is: 6\n"),
              std::string::npos);
}

TEST_F(PLLTest, CounterBeyondLongReportsOverflowAndSearchesNothing) {
    SetUpExactCase();
    pll.mdblMaxQ = 3e9;
    EXPECT_EQ(Solve(), (std::vector<std::string>{"0.000000 P:5 Q:2"}));
    EXPECT_EQ(f.errors.Count(), 1);
    EXPECT_EQ(f.errors.LastNumber(), 6);
    EXPECT_EQ(f.Source(0), "clsPLL.FindPAndQ");
}

TEST_F(PLLTest, QOfZeroReportsDivisionAndTheWalkGoesOn) {
    pll.mdblReferenceFrequency = 1;
    pll.mdblTargetVCO = 5;
    pll.mdblMinQ = -1;
    pll.mdblMaxP = 256;
    pll.mdblMaxQ = 4;
    pll.FindPAndQ();
    EXPECT_EQ(f.errors.Count(), 1);
    EXPECT_EQ(f.errors.LastNumber(), 11);
    EXPECT_EQ(f.Source(0), "clsPLL.FindPAndQ");
    // Q 2 gives 5/2 exactly.
    EXPECT_EQ(pll.GetPLLDataString(0), "5.000000 P:5 Q:2");
    EXPECT_EQ(pll.BestPPM(), 0);
}

TEST_F(PLLTest, SlotOutsideZeroToTwoIsReported) {
    EXPECT_EQ(pll.GetPLLDataString(3), "");
    EXPECT_EQ(f.errors.LastNumber(), 9);
    EXPECT_EQ(f.Source(0), "clsPLL.GetPLLDataString");
}

TEST_F(PLLTest, EmptySlotsAreNotListed) {
    SetUpExactCase();
    pll.mdblTargetVCO = 212.16;
    pll.mdblMaxQ = 5;
    pll.FindPAndQ();
    // 208/5 is exact; the other slots hold their own side.
    EXPECT_EQ(pll.GetPLLDataString(0), "212.160000 P:208 Q:5");
    pll.mdblMaxQ = 3;
    pll.mdblTargetVCO = 5.1 * 125 / 3;
    pll.mdblMaxP = 125;
    pll.FindPAndQ();
    // Exact at 125/3, nothing above it (P 126 exceeds the maximum).
    EXPECT_EQ(pll.GetPLLDataString(2), "");
    ListField list;
    pll.StorePLLData(list);
    EXPECT_EQ(list.ListCount(), 2);
}

TEST_F(PLLTest, StorePLLDataSelectsFirstEntryWithClick) {
    SetUpExactCase();
    pll.FindPAndQ();
    ListField list;
    list.AddItem("old");
    int clicks = 0;
    list.OnClick = [&] { ++clicks; };
    pll.StorePLLData(list);
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(list.ListCount(), 3);
}

TEST_F(PLLTest, GetVCOPAndQReplacesCountersBelowMinimum) {
    pll.mdblReferenceFrequency = 14.31818;
    double p = 3;
    double q = 7;
    EXPECT_EQ(pll.GetVCOPAndQ(p, q), "0.000000 P:5 Q:2");
    EXPECT_EQ(p, 5);
    EXPECT_EQ(q, 2);
    p = 10;
    q = 1;
    EXPECT_EQ(pll.GetVCOPAndQ(p, q), "0.000000 P:5 Q:2");
    EXPECT_EQ(p, 5);
}
TEST_F(PLLTest, GetVCOPAndQShowsMinimaAsEmptySlot) {
    pll.mdblReferenceFrequency = 14.31818;
    double p = 5;
    double q = 2;
    EXPECT_EQ(pll.GetVCOPAndQ(p, q), "0.000000 P:5 Q:2");
}
TEST_F(PLLTest, GetVCOPAndQComputesVCO) {
    pll.mdblReferenceFrequency = 14.31818;
    double p = 125;
    double q = 3;
    EXPECT_EQ(pll.GetVCOPAndQ(p, q), "1193.181667 P:125 Q:3");
    p = 5;
    q = 3;
    EXPECT_EQ(pll.GetVCOPAndQ(p, q), "47.727267 P:5 Q:3");
}

TEST_F(PLLTest, StoreVCOPAndQPutsOneEntryWithoutSearch) {
    pll.mdblReferenceFrequency = 2.55;
    ListField list;
    list.AddItem("a");
    list.AddItem("b");
    pll.StoreVCOPAndQ(list, 125, 3);
    EXPECT_EQ(Entries(list), (std::vector<std::string>{"212.500000 P:125 Q:3"}));
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_EQ(pll.BestPPM(), 0);  // the store is untouched
}

TEST_F(PLLTest, Parsers) {
    EXPECT_EQ(pll.GetP("Off"), 0);
    EXPECT_EQ(pll.GetP("212.500000 P:125 Q:3"), 125);
    EXPECT_EQ(pll.GetQ("212.500000 P:125 Q:3"), 3);
    EXPECT_EQ(pll.GetVCO("212.500000 P:125 Q:3"), 212.5);
    EXPECT_EQ(pll.GetVCO("Off"), 0);
    EXPECT_EQ(pll.GetQ("Off"), 0);
    EXPECT_EQ(pll.GetPPM("14.31818      PPM:-12"), -12);
    EXPECT_EQ(pll.GetPPM("Off"), 0);
    EXPECT_EQ(pll.GetP("x p:7 Q:2"), 7);
}

TEST_F(PLLTest, ActualFrequencyStringPadsForColumns) {
    EXPECT_EQ(pll.GetActualFrequencyPPM(5, -12), "5.00000      PPM:-12");
    EXPECT_EQ(pll.GetActualFrequencyPPM(100, 0), "100.00000  PPM:0");
    EXPECT_EQ(pll.GetActualFrequencyPPM(1000, 7), "1000.00000    PPM:7");
}

TEST_F(PLLTest, StoreActualPPMListsEachDistinctP) {
    SetUpExactCase();
    pll.FindPAndQ();
    ListField list;
    pll.StoreActualPPM(list, 2);
    EXPECT_EQ(Entries(list), (std::vector<std::string>{"106.25000  PPM:0", "106.08000  PPM:-1600",
                                                       "106.46250  PPM:2000"}));
    EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(PLLTest, StoreActualPPMComparesOnlyP) {
    // Slots: 0 = 4/4 (0), 1 = 4/5 (-200000), 2 = 6/5 (+200000). Slot 1 shares P with slot 0.
    pll.mdblReferenceFrequency = 10;
    pll.mdblTargetVCO = 20;
    pll.mdblMinP = 1;
    pll.mdblMinQ = 3;
    pll.mdblMaxQ = 5;
    pll.mdblMaxP = 256;
    pll.FindPAndQ();
    ListField data;
    pll.StorePLLData(data);
    EXPECT_EQ(data.ListCount(), 3);
    ListField actual;
    pll.StoreActualPPM(actual, 1);
    EXPECT_EQ(Entries(actual),
              (std::vector<std::string>{"20.00000    PPM:0", "24.00000    PPM:200000"}));
}

TEST_F(PLLTest, StoreActualPPMWithoutSolutionIsOff) {
    pll.mdblReferenceFrequency = 1;
    pll.mdblTargetVCO = 100;
    pll.mdblMaxP = 256;
    pll.mdblMaxQ = 10;
    pll.mdblVCOMax = 10;
    pll.FindPAndQ();
    ListField list;
    pll.StoreActualPPM(list, 1);
    EXPECT_EQ(Entries(list), (std::vector<std::string>{"Off"}));
    EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(PLLTest, StoreActualPPMZeroDivisorReportsAndGoesOn) {
    SetUpExactCase();
    pll.FindPAndQ();
    ListField list;
    pll.StoreActualPPM(list, 0);
    EXPECT_EQ(f.errors.Count(), 3);
    EXPECT_EQ(f.errors.LastNumber(), 11);
    EXPECT_EQ(f.Source(0), "clsPLL.StoreActualPPM");
    EXPECT_EQ(list.ListCount(), 3);
    EXPECT_EQ(list.List(0), "0.00000      PPM:0");
}

TEST_F(PLLTest, DisplayActualDividesEachEntryAndCopiesSelection) {
    ListField incoming;
    incoming.AddItem("212.500000 P:125 Q:3");
    incoming.AddItem("212.160000 P:208 Q:5");
    incoming.SetListIndex(1);
    ListField destination;
    pll.DisplayActual(incoming, destination, 4);
    EXPECT_EQ(Entries(destination), (std::vector<std::string>{"53.12500", "53.04000"}));
    EXPECT_EQ(destination.ListIndex(), 1);
}
TEST_F(PLLTest, DisplayActualOfEmptyListIsOff) {
    ListField incoming;
    ListField destination;
    destination.AddItem("stale");
    pll.DisplayActual(incoming, destination, 1);
    EXPECT_EQ(Entries(destination), (std::vector<std::string>{"Off"}));
}
TEST_F(PLLTest, DisplayActualZeroDivisorReports) {
    ListField incoming;
    incoming.AddItem("10 P:5 Q:2");
    incoming.SetListIndex(0);
    ListField destination;
    pll.DisplayActual(incoming, destination, 0);
    EXPECT_EQ(f.errors.LastNumber(), 11);
    EXPECT_EQ(f.Source(0), "clsPLL.DisplayActual");
    EXPECT_EQ(Entries(destination), (std::vector<std::string>{"Off"}));
}

TEST_F(PLLTest, DisplayActualPPMSelectsBestEntry) {
    ListField incoming;
    incoming.AddItem("212.500000 P:125 Q:3");
    incoming.AddItem("212.160000 P:208 Q:5");
    incoming.AddItem("212.925000 P:167 Q:4");
    ListField destination;
    pll.DisplayActualPPM(incoming, destination, 106.08, 2);
    EXPECT_EQ(Entries(destination),
              (std::vector<std::string>{"106.25000  PPM:1603", "106.08000  PPM:0",
                                        "106.46250  PPM:3606"}));
    EXPECT_EQ(destination.ListIndex(), 1);
}
TEST_F(PLLTest, DisplayActualPPMFirstOfEqualErrorsWins) {
    ListField incoming;
    incoming.AddItem("99");
    incoming.AddItem("101");
    ListField destination;
    pll.DisplayActualPPM(incoming, destination, 100, 1);
    EXPECT_EQ(Entries(destination),
              (std::vector<std::string>{"99.00000    PPM:-10000", "101.00000  PPM:10000"}));
    EXPECT_EQ(destination.ListIndex(), 0);
}
TEST_F(PLLTest, DisplayActualPPMIdenticalTextsSelectFirst) {
    ListField incoming;
    incoming.AddItem("100 P:1");
    incoming.AddItem("100 P:2");
    ListField destination;
    pll.DisplayActualPPM(incoming, destination, 50, 2);
    EXPECT_EQ(destination.ListCount(), 2);
    EXPECT_EQ(destination.ListIndex(), 0);
}
TEST_F(PLLTest, DisplayActualPPMSkipsOffEntries) {
    ListField incoming;
    incoming.AddItem("Off");
    ListField destination;
    pll.DisplayActualPPM(incoming, destination, 50, 2);
    EXPECT_EQ(Entries(destination), (std::vector<std::string>{"Off"}));
    EXPECT_EQ(destination.ListIndex(), 0);
}

TEST_F(PLLTest, ResetPSetsConstantFive) {
    SetUpExactCase();
    pll.mdblMinP = 1;
    pll.FindPAndQ();
    EXPECT_EQ(pll.PValue(), 125);
    pll.ResetP();
    EXPECT_EQ(pll.PValue(), 5);
}

}  // namespace
}  // namespace pendulon
