#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <vector>

#include "configurators/QX5140TestSupport.hpp"
#include "core/clsQX5140.hpp"

namespace {

using pendulon::clsQX5140;
using pendulon::testing::SearchRig;

const std::vector<std::int16_t> kLoopTable = {2, 4, 8, 16};

TEST(clsQX5140, LargestOfThree) {
    EXPECT_EQ(clsQX5140::GetMaximumFrequency(1, 3, 2), 3);
    EXPECT_EQ(clsQX5140::GetMaximumFrequency(5, 3, 2), 5);
    EXPECT_EQ(clsQX5140::GetMaximumFrequency(1, 3, 7), 7);
}

// 100 and 50 MHz on UPLL, VCO 16 to 200: 2 x 100 = 4 x 50 = 200 is the largest pair without the
// table's last divider 16. Rounds: nine each for the dividers 8 and 4 of the first output (all
// above 200), three for its divider 2 with the second's 8, and the first round with the
// second's 4 is exact: 22, where the full walk would take 27.
TEST(clsQX5140, StopsAtTheFirstExactSharedVCO) {
    clsQX5140 shared;
    shared.FindCommonVCO(100, 50, 0, kLoopTable, 200, 16, 1000);
    EXPECT_EQ(shared.VCO(), 200);
    EXPECT_EQ(shared.mdblMux1, 2);
    EXPECT_EQ(shared.mdblMux2, 4);
    EXPECT_EQ(shared.mdblMux3, 0);
    EXPECT_EQ(shared.Rounds(), 22);
}

// With room up to 1000 MHz the largest pair is 4 x 100 = 8 x 50 = 400: 16 is never tried, or
// 8 x 100 = 16 x 50 = 800 would have won.
TEST(clsQX5140, NeverTriesTheLastDivider) {
    clsQX5140 shared;
    shared.FindCommonVCO(100, 50, 0, kLoopTable, 1000, 16, 1000);
    EXPECT_EQ(shared.VCO(), 400);
    EXPECT_EQ(shared.mdblMux1, 4);
    EXPECT_EQ(shared.mdblMux2, 8);
}

TEST(clsQX5140, SecondFrequencyZeroGivesNoVCOAtOnce) {
    clsQX5140 shared;
    shared.FindCommonVCO(100, 50, 0, kLoopTable, 200, 16, 1000);
    ASSERT_GT(shared.VCO(), 0);
    shared.FindCommonVCO(100, 0, 50, kLoopTable, 200, 16, 1000);
    EXPECT_EQ(shared.VCO(), 0);
    EXPECT_EQ(shared.mdblMux1, 0);
    EXPECT_EQ(shared.mdblMux2, 0);
    EXPECT_EQ(shared.Rounds(), 0);
    shared.FindCommonVCO(0, 50, 0, kLoopTable, 200, 16, 1000);
    EXPECT_EQ(shared.VCO(), 0);
}

// A table with one usable entry: each of the three loops runs once.
TEST(clsQX5140, OneUsableEntryRunsEachLoopOnce) {
    const std::vector<std::int16_t> table = {2, 4};
    clsQX5140 shared;
    shared.FindCommonVCO(10, 30, 0, table, 200, 16, 1000);
    EXPECT_EQ(shared.Rounds(), 1);
    EXPECT_EQ(shared.VCO(), 0);
    shared.FindCommonVCO(10, 10, 0, table, 200, 16, 1000);
    EXPECT_EQ(shared.VCO(), 20);
    EXPECT_EQ(shared.mdblMux1, 2);
    EXPECT_EQ(shared.mdblMux2, 2);
}

// Both limits of the VCO count as inside.
TEST(clsQX5140, VCOLimitsAreInclusive) {
    clsQX5140 shared;
    shared.FindCommonVCO(8, 8, 0, kLoopTable, 200, 16, 0);
    EXPECT_EQ(shared.VCO(), 64);  // 8 x 8, the largest usable divider
    shared.FindCommonVCO(8, 8, 0, kLoopTable, 64, 64, 0);
    EXPECT_EQ(shared.VCO(), 64);
    shared.FindCommonVCO(8, 8, 0, kLoopTable, 63.9, 16, 0);
    EXPECT_EQ(shared.VCO(), 32);
}

// 10, 10.001 and 9.999 MHz: the pair errors are 100, 100 and 200 PPM at equal dividers. The
// limit applies to each pair: 150 rejects the triple; with 200 the sum 400 ranks, and of the
// equal triples the one met first, the largest dividers, stands.
TEST(clsQX5140, ThreeOutputsLimitEachPairAndRankBySum) {
    const std::vector<std::int16_t> table = {1, 2, 99};
    clsQX5140 shared;
    shared.FindCommonVCO(10, 10.001, 9.999, table, 1000, 1, 150);
    EXPECT_EQ(shared.VCO(), 0);
    shared.FindCommonVCO(10, 10.001, 9.999, table, 1000, 1, 200);
    EXPECT_DOUBLE_EQ(shared.VCO(), 20.002);
    EXPECT_EQ(shared.mdblMux1, 2);
    EXPECT_EQ(shared.mdblMux2, 2);
    EXPECT_EQ(shared.mdblMux3, 2);
}

// The third product counts towards the VCO: 50 and 25 share 200 alone, but with a third output
// of 120 every product of it lies above 200, so no round passes the limit test.
TEST(clsQX5140, ThirdProductAboveTheLimitRejectsThePair) {
    clsQX5140 shared;
    shared.FindCommonVCO(50, 25, 0, kLoopTable, 200, 16, 1000);
    EXPECT_EQ(shared.VCO(), 200);
    shared.FindCommonVCO(50, 25, 120, kLoopTable, 200, 16, 1000);
    EXPECT_EQ(shared.VCO(), 0);
}

TEST(clsQX5140, TablesOfTheDividers) {
    SearchRig rig;
    const auto& s = rig.search;
    EXPECT_EQ(s.maintRefDivisors, (std::vector<std::int16_t>{1, 2, 4, 8}));
    EXPECT_EQ(s.maintCPLLDivisors, (std::vector<std::int16_t>{2, 4, 8, 16}));
    EXPECT_EQ(s.maintUPLLDivisors, (std::vector<std::int16_t>{2, 4, 8, 16}));
    EXPECT_EQ(s.maintSPLLDivisors, (std::vector<std::int16_t>{2, 4, 6, 8, 10, 12, 16, 20, 24, 26,
                                                              40, 48, 52, 80, 96, 104, 192, 208}));
}

TEST(clsQX5140, ReferenceItselfIsRef) {
    SearchRig rig(14.31818);
    std::int32_t ppm = 0;
    EXPECT_EQ(rig.search.FindReferenceDivisor(14.31818, ppm, false), "Ref");
    EXPECT_EQ(ppm, 0);
    EXPECT_EQ(rig.search.FindReferenceDivisor(3.579545, ppm, false), "Ref/4");
}

// The sensitivity test is strict: at 0 PPM not even an exact divider qualifies, and lngPPM
// still reports the exact one.
TEST(clsQX5140, SensitivityZeroAdmitsNoReference) {
    SearchRig rig(14.31818);
    rig.search.mInputs.dblSensitivity = 0;
    std::int32_t ppm = 77;
    EXPECT_EQ(rig.search.FindReferenceDivisor(7.15909, ppm, false), "");
    EXPECT_EQ(ppm, 0);
    rig.search.mInputs.dblSensitivity = 1;
    EXPECT_EQ(rig.search.FindReferenceDivisor(7.15909, ppm, false), "Ref/2");
}

// 9 MHz from 20: 10 is +111111 PPM, the closest; too far for 1000 PPM, reported all the same.
TEST(clsQX5140, ReferencePPMReportsTheClosestDividerEvenWhenUnusable) {
    SearchRig rig(20);
    std::int32_t ppm = 0;
    EXPECT_EQ(rig.search.FindReferenceDivisor(9, ppm, false), "");
    EXPECT_EQ(ppm, 111111);
    EXPECT_EQ(rig.search.FindReferenceDivisor(9, ppm, true), "Ref/2");
}

// 15 MHz from 20: 20 is +333333 PPM and 10 is -333333; the smaller divider keeps the tie.
TEST(clsQX5140, ReferenceTieGoesToTheSmallerDivider) {
    SearchRig rig(20);
    std::int32_t ppm = 0;
    EXPECT_EQ(rig.search.FindReferenceDivisor(15, ppm, true), "Ref");
    EXPECT_EQ(ppm, 333333);
}

// 0.75 MHz x 208 = 156 = 40 x 39 / 10: exact on the largest SPLL divider, which a single
// output may use; shared, 192 is the largest (144 MHz).
TEST(clsQX5140, LargestSPLLDividerOnlyForASingleOutput) {
    SearchRig rig(20);
    EXPECT_EQ(rig.search.FindSPLLDivisor(0.75), "SPLL/208");
    clsQX5140 shared;
    shared.FindCommonVCO(0.75, 0.75, 0, rig.search.maintSPLLDivisors, rig.spll.mdblVCOMax,
                         rig.spll.mdblVCOMin, 1000);
    EXPECT_EQ(shared.mdblMux1, 192);
    EXPECT_EQ(shared.VCO(), 144);
}

// 50 MHz from 20: 4 x 50 = 200 and 2 x 50 = 100 are both exact; the tie goes to the larger
// divider. 8 x 50 = 400 lies outside the VCO range.
TEST(clsQX5140, LoopDividerTieGoesToTheHighestVCO) {
    SearchRig rig(20);
    EXPECT_EQ(rig.search.FindUPLLDivisor(50), "UPLL/4");
    EXPECT_EQ(rig.search.FindSPLLDivisor(50), "SPLL/4");
    EXPECT_EQ(rig.search.FindCPLLDivisor(50, 0), "CPLL/4");
    EXPECT_EQ(rig.search.FindSPLLDivisor(12.5), "SPLL/16");
    // 7 MHz: 26 x 7 = 182 = 40 x 91 / 20.
    EXPECT_EQ(rig.search.FindSPLLDivisor(7), "SPLL/26");
    EXPECT_EQ(rig.search.FindUPLLDivisor(7), "UPLL/16");
}

TEST(clsQX5140, NoFrequencyNoDivider) {
    SearchRig rig(20);
    EXPECT_EQ(rig.search.FindUPLLDivisor(0), "");
    EXPECT_EQ(rig.search.FindSPLLDivisor(0), "");
    EXPECT_EQ(rig.search.FindCPLLDivisor(0, 0), "");
    // 2 x 150 = 300 is beyond the 200 MHz VCO and its one per cent.
    EXPECT_EQ(rig.search.FindUPLLDivisor(150), "");
}

// Both states of CLKA on one divider: 4 x 50 = 200 and 4 x 40 = 160 are exact, 2 x 50 and
// 2 x 40 too, but not better; 8 x 50 is outside the VCO.
TEST(clsQX5140, CPLLDividerForTwoFrequencies) {
    SearchRig rig(20);
    EXPECT_EQ(rig.search.FindCPLLDivisor(50, 40), "CPLL/4");
    rig.search.mInputs.blnSelect = true;
    EXPECT_EQ(rig.search.FindCPLLDivisor(50, 40), "CPLL/4");
}

// In Select/Suspend the CPLL's Q is narrowed for the swing between the two states. The last
// search of FindCPLLDivisor is the second frequency on the divider 2: 2 x 10 = 20 against
// 2 x 100 = 200, 180 MHz apart, beyond 60 x 20 / 14.31818 = 83.8, so Q is at most
// 3927 x 20 / 14.31818 / 180 = 30.47, rounded 30 (20 MHz is below the 55.9 MHz floor of the
// rule). Outside Select/Suspend the die's 65 stands.
TEST(clsQX5140, SelectNarrowsTheCPLLQ) {
    SearchRig rig(20);
    rig.search.mInputs.blnSelect = true;
    rig.search.FindCPLLDivisor(100, 10);
    EXPECT_EQ(rig.cpll.mdblMaxQ, 30);
    rig.search.mInputs.blnSelect = false;
    rig.search.FindCPLLDivisor(100, 10);
    EXPECT_EQ(rig.cpll.mdblMaxQ, 65);
}

}  // namespace
