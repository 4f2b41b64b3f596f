#include <gtest/gtest.h>

#include "QX5140TestSupport.hpp"

namespace {

using pendulon::clsCaseSearch;
using pendulon::testing::Rows;
using pendulon::testing::SearchRig;

// 50, 25 and 12.5 MHz from a 20 MHz reference at 5 V (VCO 16 to 200), worked by hand. No
// output is near a divided reference. Sharing: all three on UPLL and CPLL at 100 MHz (2, 4, 8;
// 16 is never tried in shared use), on SPLL at 200 (4, 8, 16); CLKA and CLKB at 200 (4, 8) on
// each loop; CLKA and CLKC at 100 (2, 8) on UPLL and CPLL, at 200 (4, 16) on SPLL; CLKB and
// CLKC at 100 (4, 8) and on SPLL at 200 (8, 16). The rows of two outputs are then completed
// with each free loop in turn, the single divider taking the highest exact VCO (200): 12.5 on
// 16, 25 on 8, 50 on 4; each completed row first, its copies at the end, in row order.
const Rows kOneLoopCases = {
    {"UPLL/2", "Off", "UPLL/4", "UPLL/8"},  {"CPLL/2", "Off", "CPLL/4", "CPLL/8"},
    {"SPLL/4", "Off", "SPLL/8", "SPLL/16"}, {"UPLL/4", "Off", "UPLL/8", "SPLL/16"},
    {"CPLL/4", "Off", "CPLL/8", "UPLL/16"}, {"SPLL/4", "Off", "SPLL/8", "UPLL/16"},
    {"UPLL/2", "Off", "SPLL/8", "UPLL/8"},  {"CPLL/2", "Off", "UPLL/8", "CPLL/8"},
    {"SPLL/4", "Off", "UPLL/8", "SPLL/16"}, {"SPLL/4", "", "UPLL/4", "UPLL/8"},
    {"UPLL/4", "", "CPLL/4", "CPLL/8"},     {"UPLL/4", "", "SPLL/8", "SPLL/16"},
    {"UPLL/4", "Off", "UPLL/8", "CPLL/16"}, {"CPLL/4", "Off", "CPLL/8", "SPLL/16"},
    {"SPLL/4", "Off", "SPLL/8", "CPLL/16"}, {"UPLL/2", "Off", "CPLL/8", "UPLL/8"},
    {"CPLL/2", "Off", "SPLL/8", "CPLL/8"},  {"SPLL/4", "Off", "CPLL/8", "SPLL/16"},
    {"CPLL/4", "", "UPLL/4", "UPLL/8"},     {"SPLL/4", "", "CPLL/4", "CPLL/8"},
    {"CPLL/4", "", "SPLL/8", "SPLL/16"}};

TEST(CaseSearch, AllOutputsOnOneLoopComeFirstThenTheSharedPairs) {
    SearchRig rig(20);
    rig.Desired(50, 0, 25, 12.5);
    ASSERT_TRUE(rig.Search());
    EXPECT_EQ(rig.search.mstrSources, kOneLoopCases);
    EXPECT_EQ(rig.search.mintCalculateCounter, 0);
    // Twelve shared attempts: four groups, three loops each.
    EXPECT_EQ(rig.search.mintCommonVCOCalls, 12);
    const clsCaseSearch::CaseView view = rig.search.ShowCase(false);
    EXPECT_EQ(view.astrLabels, (std::array<std::string, 3>{"UPLL/2", "UPLL/4", "UPLL/8"}));
    EXPECT_EQ(view.strMessage, "Case 1 of 21");
    // The shared loop is solved for its last output: 8 x 12.5.
    const auto loops = rig.search.ChosenLoops(false);
    EXPECT_EQ(loops[2].lngDivider, 8);
    EXPECT_EQ(loops[2].dblTargetVCO, 100);
    EXPECT_EQ(loops[0].lngDivider, 0);
    EXPECT_EQ(loops[1].lngDivider, 0);
}

TEST(CaseSearch, StepsThroughEveryCaseAndWrapsRound) {
    SearchRig rig(20);
    rig.Desired(50, 0, 25, 12.5);
    ASSERT_TRUE(rig.Search());
    for (int press = 1; press < 21; ++press) {
        ASSERT_TRUE(rig.Step());
        EXPECT_EQ(rig.search.mintCalculateCounter, press);
        const auto view = rig.search.ShowCase(false);
        const auto& row = kOneLoopCases[static_cast<size_t>(press)];
        EXPECT_EQ(view.astrLabels[0], row[0]);
        EXPECT_EQ(view.astrLabels[1], row[2]);
        EXPECT_EQ(view.strMessage, "Case " + std::to_string(press + 1) + " of 21");
    }
    rig.Step();
    EXPECT_EQ(rig.search.mintCalculateCounter, 0);
    EXPECT_EQ(rig.search.ShowCase(false).strMessage, "Case 1 of 21");
    // A step reads no input: the cases stay those of the search.
    rig.Desired(1, 0, 2, 3);
    rig.Step();
    EXPECT_EQ(rig.search.mstrSources, kOneLoopCases);
    EXPECT_EQ(rig.search.madblDesired[0], 50);
}

// All three private: no sharing at all, nothing near the reference, so the loops are
// enumerated: CLKA on UPLL, SPLL, CPLL in turn, CLKB on each remaining loop, CLKC on the last.
// The passes for CLKB and CLKC first find the same 12 assignments again, and the duplicates go.
TEST(CaseSearch, PrivateLoopsEnumerateEveryAssignment) {
    SearchRig rig(20);
    rig.Desired(50, 0, 25, 12.5);
    rig.inputs.ablnPrivate = {true, true, true};
    ASSERT_TRUE(rig.Search());
    EXPECT_EQ(rig.search.mintCommonVCOCalls, 0);
    const Rows expected = {
        {"UPLL/4", "Off", "SPLL/8", "CPLL/16"}, {"UPLL/4", "Off", "CPLL/8", "SPLL/16"},
        {"SPLL/4", "Off", "UPLL/8", "CPLL/16"}, {"SPLL/4", "Off", "CPLL/8", "UPLL/16"},
        {"CPLL/4", "Off", "UPLL/8", "SPLL/16"}, {"CPLL/4", "Off", "SPLL/8", "UPLL/16"}};
    EXPECT_EQ(rig.search.mstrSources, expected);
}

// 50, 33 and 7 MHz share nothing within 1000 PPM (their products through the dividers never
// meet), and none is near 20, 10, 5 or 2.5: the same enumeration. Single dividers: 50 on 4
// everywhere; 33 on UPLL and CPLL 4 (132), on SPLL 6 (198 = 40 x 99 / 20); 7 on UPLL and CPLL 16
// (112), on SPLL 26 (182).
TEST(CaseSearch, NoSharingWithinTheLimitGivesOneLoopEach) {
    SearchRig rig(20);
    rig.Desired(50, 0, 33, 7);
    ASSERT_TRUE(rig.Search());
    const Rows expected = {
        {"UPLL/4", "Off", "SPLL/6", "CPLL/16"}, {"UPLL/4", "Off", "CPLL/4", "SPLL/26"},
        {"SPLL/4", "Off", "UPLL/4", "CPLL/16"}, {"SPLL/4", "Off", "CPLL/4", "UPLL/16"},
        {"CPLL/4", "Off", "UPLL/4", "SPLL/26"}, {"CPLL/4", "Off", "SPLL/6", "UPLL/16"}};
    EXPECT_EQ(rig.search.mstrSources, expected);
}

// The same with the sensitivity at 0: a shared row needs an exact zero, which 50, 25, 12.5 have.
TEST(CaseSearch, SensitivityZeroStillSharesExactly) {
    SearchRig rig(20);
    rig.Desired(50, 0, 25, 12.5);
    rig.inputs.dblSensitivity = 0;
    ASSERT_TRUE(rig.Search());
    EXPECT_EQ(rig.search.mstrSources, kOneLoopCases);
}

// Only CLKA: no sharing row; 50 is not near the reference, so the loops are enumerated and
// CLKB and CLKC end "Off": one case per loop.
TEST(CaseSearch, OnlyClockAEnumeratesTheLoops) {
    SearchRig rig(20);
    rig.Desired(50, 0, 0, 0);
    ASSERT_TRUE(rig.Search());
    const Rows expected = {{"UPLL/4", "Off", "Off", "Off"},
                           {"SPLL/4", "Off", "Off", "Off"},
                           {"CPLL/4", "Off", "Off", "Off"}};
    EXPECT_EQ(rig.search.mstrSources, expected);
    EXPECT_EQ(rig.search.ShowCase(false).astrLabels,
              (std::array<std::string, 3>{"UPLL/4", "Off", "Off"}));
}

// Only CLKA, and it fits the reference: one case.
TEST(CaseSearch, OnlyClockAOnTheReference) {
    SearchRig rig(20);
    rig.Desired(10, 0, 0, 0);
    ASSERT_TRUE(rig.Search());
    EXPECT_EQ(rig.search.mstrSources, (Rows{{"Ref/2", "Off", "Off", "Off"}}));
    EXPECT_EQ(rig.search.ShowCase(false).strMessage, "Case 1 of 1");
}

// CLKA on the reference (20 MHz), CLKB and CLKC shared by no loop (25 and 7): the two others
// take every ordered pair of loops: (UPLL, SPLL), (UPLL, CPLL), (SPLL, UPLL), (SPLL, CPLL),
// (CPLL, UPLL), (CPLL, SPLL). 25 goes on 8 (200) on every loop.
TEST(CaseSearch, OneReferenceOutputAndTwoLoops) {
    SearchRig rig(20);
    rig.Desired(20, 0, 25, 7);
    rig.inputs.ablnPrivate = {false, true, true};
    ASSERT_TRUE(rig.Search());
    const Rows expected = {
        {"Ref", "Off", "UPLL/8", "SPLL/26"}, {"Ref", "Off", "UPLL/8", "CPLL/16"},
        {"Ref", "Off", "SPLL/8", "UPLL/16"}, {"Ref", "Off", "SPLL/8", "CPLL/16"},
        {"Ref", "Off", "CPLL/8", "UPLL/16"}, {"Ref", "Off", "CPLL/8", "SPLL/26"}};
    EXPECT_EQ(rig.search.mstrSources, expected);
}

// Loops narrowed to a VCO of 170 to 180 MHz (85 to 90 at the die): 20, 10 and 5 MHz reach it
// through no divider, so only the reference serves them. The reference rows of the groups
// stand in order; the CLKA, CLKB row cannot complete CLKC from any loop, and the shrink that
// follows takes off the last row of all, the CLKB, CLKC row; it stays as found, CLKC "Off".
TEST(CaseSearch, OutputsOnlyTheReferenceCanServe) {
    SearchRig rig(20);
    for (double* limit : {&rig.die.mdblCPLLMin5V, &rig.die.mdblUPLLMin5V, &rig.die.mdblSPLLMin5V})
        *limit = 85;
    for (double* limit : {&rig.die.mdblCPLLMax5V, &rig.die.mdblUPLLMax5V, &rig.die.mdblSPLLMax5V})
        *limit = 90;
    rig.Prepare(20);
    ASSERT_EQ(rig.spll.mdblVCOMin, 170);
    rig.Desired(20, 0, 10, 5);
    ASSERT_TRUE(rig.Search());
    const Rows expected = {{"Ref", "Off", "Ref/2", "Ref/4"},
                           {"Ref", "Off", "Ref/2", ""},
                           {"Ref", "Off", "Off", "Ref/4"}};
    EXPECT_EQ(rig.search.mstrSources, expected);
    EXPECT_EQ(rig.search.ShowCase(false).strMessage, "Case 1 of 3");
    rig.Step();
    EXPECT_EQ(rig.search.ShowCase(false).astrLabels,
              (std::array<std::string, 3>{"Ref", "Ref/2", "Off"}));
}

// Three outputs at the reference divided by 1, 2 and 4 with every loop usable: the reference
// row of all three comes first.
TEST(CaseSearch, ReferenceDividedByOneTwoFourIsTheFirstCase) {
    SearchRig rig(14.31818);
    rig.Desired(14.31818, 0, 7.15909, 3.579545);
    ASSERT_TRUE(rig.Search());
    ASSERT_GT(rig.search.mstrSources.size(), 1u);
    EXPECT_EQ(rig.search.mstrSources[0], (clsCaseSearch::Row{"Ref", "Off", "Ref/2", "Ref/4"}));
    const auto view = rig.search.ShowCase(false);
    EXPECT_EQ(view.strMessage, "Case 1 of " + std::to_string(rig.search.mstrSources.size()));
}

// All three private and all three on the reference: sharing is skipped, the reference gives
// all three, and as CLKB is on it, CLKB and CLKC are then offered every pair of loops.
TEST(CaseSearch, AllPrivateLetsTheReferenceStageDecide) {
    SearchRig rig(20);
    rig.Desired(20, 0, 10, 5);
    rig.inputs.ablnPrivate = {true, true, true};
    ASSERT_TRUE(rig.Search());
    EXPECT_EQ(rig.search.mintCommonVCOCalls, 0);
    // 10 on 16 (160; 20 x 10 = 200 is not in the table of UPLL and CPLL) and on SPLL 20 (200);
    // 5 on 16 (80) and on SPLL 40 (200).
    const Rows expected = {
        {"Ref", "Off", "UPLL/16", "SPLL/40"}, {"Ref", "Off", "UPLL/16", "CPLL/16"},
        {"Ref", "Off", "SPLL/20", "UPLL/16"}, {"Ref", "Off", "SPLL/20", "CPLL/16"},
        {"Ref", "Off", "CPLL/16", "UPLL/16"}, {"Ref", "Off", "CPLL/16", "SPLL/40"}};
    EXPECT_EQ(rig.search.mstrSources, expected);
}

// Select/Suspend: CLKA on CPLL in both states (4 x 50 = 200, 4 x 40 = 160, both exact), the rows
// are the sharing rows of CLKB and CLKC (UPLL at 100, SPLL at 200; CPLL is not tried for them).
TEST(CaseSearch, SelectModeWithTwoStatesOfClockA) {
    SearchRig rig(20);
    rig.Desired(50, 40, 25, 12.5);
    rig.inputs.blnSelect = true;
    rig.inputs.ablnPrivate = {true, false, false};
    ASSERT_TRUE(rig.Search());
    EXPECT_EQ(rig.search.mintCommonVCOCalls, 2);
    const Rows expected = {{"CPLL/4", "CPLL/4", "UPLL/4", "UPLL/8"},
                           {"CPLL/4", "CPLL/4", "SPLL/8", "SPLL/16"}};
    EXPECT_EQ(rig.search.mstrSources, expected);
    const auto view = rig.search.ShowCase(true);
    ASSERT_EQ(view.aStores.size(), 4u);
    EXPECT_EQ(view.aStores[1].intWhichCase, 1);
    EXPECT_EQ(view.aStores[1].dblFrequency, 40);
}

// Select/Suspend with CLKB on the reference and CLKC on no shared loop: CLKC on UPLL, and a
// second case on SPLL.
TEST(CaseSearch, SelectModeWithClockBOnTheReference) {
    SearchRig rig(20);
    rig.Desired(50, 40, 20, 7);
    rig.inputs.blnSelect = true;
    rig.inputs.ablnPrivate = {true, false, false};
    ASSERT_TRUE(rig.Search());
    const Rows expected = {{"CPLL/4", "CPLL/4", "Ref", "UPLL/16"},
                           {"CPLL/4", "CPLL/4", "Ref", "SPLL/26"}};
    EXPECT_EQ(rig.search.mstrSources, expected);
}

// Select/Suspend with the second state off: column 1 is "Off" and CLKA shows column 0.
TEST(CaseSearch, SelectModeWithSecondStateOff) {
    SearchRig rig(20);
    rig.Desired(50, 0, 0, 0);
    rig.inputs.blnSelect = true;
    rig.inputs.ablnPrivate = {true, false, false};
    ASSERT_TRUE(rig.Search());
    EXPECT_EQ(rig.search.mstrSources, (Rows{{"CPLL/4", "Off", "Off", "Off"}}));
    EXPECT_EQ(rig.search.ShowCase(true).astrLabels[0], "CPLL/4");
}

// Select/Suspend with CLKB and CLKC each on its own loop: UPLL then SPLL for CLKB, each doubled,
// CLKC on the other loop, duplicates removed.
TEST(CaseSearch, SelectModeWithClockBAndClockCOnLoops) {
    SearchRig rig(20);
    rig.Desired(50, 40, 33, 7);
    rig.inputs.blnSelect = true;
    rig.inputs.ablnPrivate = {true, false, false};
    ASSERT_TRUE(rig.Search());
    const Rows expected = {{"CPLL/4", "CPLL/4", "UPLL/4", "SPLL/26"},
                           {"CPLL/4", "CPLL/4", "SPLL/6", "UPLL/16"}};
    EXPECT_EQ(rig.search.mstrSources, expected);
}

// CLKA with CLKC on SPLL only (50 x 4 = 200 = 16.66667 x 12, 0.2 PPM), CLKB private: one sharing
// row that, in Select/Suspend, serves only CLKC of the two: a fault of the search.
TEST(CaseSearch, SharingRowWithOneOutputInSelectModeIsAFault) {
    SearchRig rig(20);
    rig.Desired(50, 0, 0, 16.66667);
    rig.inputs.blnSelect = true;
    rig.inputs.ablnPrivate = {false, true, false};
    EXPECT_FALSE(rig.Search());
}

TEST(CaseSearch, AllOffGivesOneBlankRowAndOffLabels) {
    SearchRig rig(20);
    ASSERT_TRUE(rig.Search());
    EXPECT_EQ(rig.search.mstrSources.size(), 1u);
    const auto view = rig.search.ShowCase(false);
    EXPECT_EQ(view.astrLabels, (std::array<std::string, 3>{"Off", "Off", "Off"}));
    EXPECT_EQ(view.strMessage, "");
    EXPECT_TRUE(view.aStores.empty());
    // A grey press with one row wraps to it.
    rig.Step();
    EXPECT_EQ(rig.search.mintCalculateCounter, 0);
}

TEST(CaseSearch, DuplicatesAreRemovedAndTheOrderKept) {
    Rows rows = {{"A", "", "", ""}, {"B", "", "", ""}, {"A", "", "", ""},
                 {"C", "", "", ""}, {"B", "", "", ""}, {"A", "", "", ""}};
    clsCaseSearch::RemoveDuplicatesFromMstrSources(rows);
    EXPECT_EQ(rows, (Rows{{"A", "", "", ""}, {"B", "", "", ""}, {"C", "", "", ""}}));
    // All four cells count.
    Rows differ = {{"A", "Off", "B", "C"}, {"A", "", "B", "C"}};
    clsCaseSearch::RemoveDuplicatesFromMstrSources(differ);
    EXPECT_EQ(differ.size(), 2u);
}

// An output that shows "Off" survives only when no case drives every output: here no loop can
// serve CLKC (0.05 MHz through the largest divider 208 is 10.4, below the VCO's 16).
TEST(CaseSearch, CasesThatDriveMostOutputsSurvive) {
    SearchRig rig(20);
    rig.Desired(50, 0, 25, 0.05);
    rig.inputs.ablnPrivate = {true, true, true};
    ASSERT_TRUE(rig.Search());
    for (const auto& row : rig.search.mstrSources) EXPECT_EQ(row[3], "Off");
    // CLKA and CLKB take every ordered pair of loops.
    EXPECT_EQ(rig.search.mstrSources.size(), 6u);
    EXPECT_EQ(rig.search.mstrSources[0], (clsCaseSearch::Row{"UPLL/4", "Off", "SPLL/8", "Off"}));
}

}  // namespace
