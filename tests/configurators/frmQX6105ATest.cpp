#include <gtest/gtest.h>

#include "QX6105ATestSupport.hpp"
#include "core/cls4860Die.hpp"
#include "power/frmPower.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {
namespace {

using testing::QX6105ADocument;

// With a 10 MHz reference the loop gives VCO = 20 x P / Q. Q runs from 3 (the minimum 2 is
// never tried) to 67 (10 / 0.15 rounded), P from 5 to 256.
class QX6105AAt10MHz : public ::testing::Test {
  protected:
    void SetUp() override { doc.TypeReference("10"); }
    frmQX6105A& form() { return doc.Form(); }
    QX6105ADocument doc;
};

TEST(QX6105ALoad, StartsWithOutputEnableAndFiveVoltsAndDefaultLimits) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    EXPECT_EQ(form.lblDevice.Caption(), "QX6105A");
    EXPECT_TRUE(form.optOE.Value());
    EXPECT_FALSE(form.optFS.Value());
    EXPECT_TRUE(form.opt5V.Value());
    EXPECT_DOUBLE_EQ(form.Die().mdblVoltage, 5.0);
    EXPECT_EQ(form.txtPLL[1].Text(), "N/A");
    EXPECT_FALSE(form.txtPLL[1].Enabled());
    EXPECT_FALSE(form.chkSmoothSlew.Enabled());
    EXPECT_EQ(form.cboFRef.Text(), "14.31818 MHz");
    EXPECT_EQ(form.txtPLLMin[0].Text(), "4.0");
    EXPECT_EQ(form.txtPLLMax[0].Text(), "200.0");
    EXPECT_EQ(form.txtPLLMin[1].Text(), "5");
    EXPECT_EQ(form.txtPLLMax[1].Text(), "256");
    EXPECT_EQ(form.txtPLLMin[2].Text(), "2");
    EXPECT_EQ(form.txtPLLMax[2].Text(), "128");
    EXPECT_EQ(form.txtFRefMin.Text(), "1");
    EXPECT_EQ(form.txtFRefMax.Text(), "30");
    EXPECT_EQ(form.chkUseDefault.Value(), 1);
    EXPECT_FALSE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
    EXPECT_FALSE(doc.app->gblnNeedsCalculate);
    ASSERT_EQ(form.cboClkDiv[0].ListCount(), 9);
    EXPECT_EQ(form.cboClkDiv[0].List(0), "Ref");
    EXPECT_EQ(form.cboClkDiv[0].List(8), "Off");
    EXPECT_EQ(form.lblClkOutput[0].Caption(), "CLKA");
    EXPECT_FALSE(form.lblClkOutput[3].Visible());
    EXPECT_FALSE(form.cboActual[5].Visible());
}

TEST(QX6105ALoad, QX6105AIStartsAtThreeVoltsWithFiveVoltsDisabled) {
    QX6105ADocument doc("QX6105AI");
    frmQX6105A& form = doc.Form();
    EXPECT_FALSE(form.opt5V.Enabled());
    EXPECT_TRUE(form.opt3V.Value());
    EXPECT_DOUBLE_EQ(form.Die().mdblVoltage, 3.3);
    EXPECT_EQ(form.txtPLLMax[0].Text(), "150.0");
}

TEST(QX6105ALoad, QX6105AFUsesItsOwnVCORange) {
    QX6105ADocument doc("QX6105AF");
    EXPECT_EQ(doc.Form().txtPLLMax[0].Text(), "160.0");
    EXPECT_TRUE(doc.Form().opt5V.Enabled());
}

TEST(QX6105ALoad, RegistersEveryFieldByName) {
    QX6105ADocument doc;
    const auto& fields = doc.Form().Fields();
    for (const char* name :
         {"txtPLL(0)",     "txtPLL(1)",      "cboPLLData(0)", "cboPLLData(1)",  "lblClkOutput(5)",
          "lblDesired(5)", "cboClkDiv(2)",   "cboActual(5)",  "optFS",          "optOE",
          "fraPin8",       "chkSmoothSlew",  "fraOption",     "opt3V",          "opt5V",
          "cboFRef",       "txtFRefMin",     "txtFRefMax",    "txtPLLMin(2)",   "txtPLLMax(2)",
          "chkUseDefault", "cmdApplyLimits", "cmdCalculate",  "fraLimits",      "txtFilePath",
          "lblDevice",     "picPinout",      "picPower",      "picDebugWindow", "lblFS(1)",
          "lblPllData(1)"}) {
        EXPECT_TRUE(fields.Contains(name)) << name;
    }
    EXPECT_FALSE(fields.Contains("txtPLL(2)"));
    EXPECT_FALSE(fields.Contains("txtPLLMin(3)"));
}

TEST_F(QX6105AAt10MHz, ReferenceTypedAsNumberJoinsTheListInItsFixedForm) {
    EXPECT_EQ(form().cboFRef.Text(), "10.00000 MHz");
}

TEST_F(QX6105AAt10MHz, HalfTheVCOMaximumRunsWithoutPrescale) {
    doc.Type(form().txtPLL[0], "100");
    QX6105ADocument::Pick(form().cboClkDiv[0], "PLL/2");
    form().cmdCalculate_Click();
    EXPECT_FALSE(form().PreScale(0));
    // 100 MHz = 20 x 15 / 3 exactly; the best below and above have Q = 51, the largest Q
    // whose P = 5 Q -/+ 1 stays within 256.
    ASSERT_EQ(form().cboPLLData[0].ListCount(), 3);
    EXPECT_EQ(form().cboPLLData[0].List(0), "100.000000 P:15 Q:3");
    EXPECT_EQ(form().cboPLLData[0].List(1), "99.607843 P:254 Q:51");
    EXPECT_EQ(form().cboPLLData[0].List(2), "100.392157 P:256 Q:51");
    EXPECT_EQ(form().lblDesired[0].Caption(), " 50.00000");
    ASSERT_EQ(form().cboActual[0].ListCount(), 3);
    EXPECT_EQ(form().cboActual[0].List(0), "50.00000    PPM:0");
    EXPECT_EQ(form().cboActual[0].List(1), "49.80392    PPM:-3922");
    EXPECT_EQ(form().cboActual[0].List(2), "50.19608    PPM:3922");
    EXPECT_EQ(form().cboActual[0].ListIndex(), 0);
}

TEST_F(QX6105AAt10MHz, BelowHalfTheVCOMaximumRunsTheVCOAtTwiceTheFrequency) {
    doc.Type(form().txtPLL[0], "60");
    QX6105ADocument::Pick(form().cboClkDiv[0], "PLL");
    form().cmdCalculate_Click();
    EXPECT_TRUE(form().PreScale(0));
    // The VCO runs at 120 MHz = 20 x 18 / 3; the output divides it by 2 again.
    EXPECT_EQ(form().cboPLLData[0].List(0), "120.000000 P:18 Q:3");
    EXPECT_EQ(form().cboActual[0].List(0), "60.00000    PPM:0");
}

TEST_F(QX6105AAt10MHz, CalculateFinishesGreyAndClearsTheFlag) {
    doc.Type(form().txtPLL[0], "60");
    EXPECT_TRUE(doc.app->gblnNeedsCalculate);
    EXPECT_EQ(form().cmdCalculate.BackColor(), colors::Yellow);
    form().cmdCalculate_Click();
    EXPECT_FALSE(doc.app->gblnNeedsCalculate);
    EXPECT_EQ(form().cmdCalculate.BackColor(), colors::Grey);
    EXPECT_TRUE(form().Enabled());
}

TEST_F(QX6105AAt10MHz, SmoothSlewWithOneStateAboveHalfDropsPrescaleForBoth) {
    form().optFS.SetValue(true);
    doc.Type(form().txtPLL[0], "60");
    doc.Type(form().txtPLL[1], "120");
    form().cmdCalculate_Click();
    EXPECT_TRUE(form().PreScale(0));
    EXPECT_FALSE(form().PreScale(1));
    form().chkSmoothSlew.SetValue(1);
    form().cmdCalculate_Click();
    EXPECT_FALSE(form().PreScale(0));
    EXPECT_FALSE(form().PreScale(1));
    // State 0 now runs its VCO at 60 MHz itself: 20 x 9 / 3.
    EXPECT_EQ(form().cboPLLData[0].List(0), "60.000000 P:9 Q:3");
}

TEST_F(QX6105AAt10MHz, SmoothSlewWithBothStatesBelowHalfKeepsPrescaleForBoth) {
    form().optFS.SetValue(true);
    doc.Type(form().txtPLL[0], "60");
    doc.Type(form().txtPLL[1], "80");
    form().chkSmoothSlew.SetValue(1);
    form().cmdCalculate_Click();
    EXPECT_TRUE(form().PreScale(0));
    EXPECT_TRUE(form().PreScale(1));
}

TEST_F(QX6105AAt10MHz, OutputEnableLeavesStateOneWithoutSolutions) {
    doc.Type(form().txtPLL[0], "100");
    QX6105ADocument::Pick(form().cboClkDiv[0], "PLL");
    form().cmdCalculate_Click();
    EXPECT_EQ(form().txtPLL[1].Text(), "N/A");
    // "N/A" reads as 0: the search of state 1 is out of the VCO range and finds nothing.
    EXPECT_EQ(form().cboPLLData[1].List(0), "0.000000 P:5 Q:2");
    EXPECT_EQ(form().lblDesired[3].Caption(), "Off");
    ASSERT_EQ(form().cboActual[3].ListCount(), 1);
    EXPECT_EQ(form().cboActual[3].List(0), "Off");
}

TEST_F(QX6105AAt10MHz, FrequencySelectShowsBothStatesAndEnablesTheSecondFrequency) {
    form().optFS.SetValue(true);
    EXPECT_TRUE(form().txtPLL[1].Enabled());
    EXPECT_EQ(form().txtPLL[1].Text(), "Off");
    EXPECT_TRUE(form().chkSmoothSlew.Enabled());
    EXPECT_EQ(form().lblClkOutput[0].Caption(), "CLKA [0]");
    EXPECT_EQ(form().lblClkOutput[5].Caption(), "CLKC [1]");
    EXPECT_TRUE(form().cboActual[5].Visible());
    form().optOE.SetValue(true);
    EXPECT_EQ(form().txtPLL[1].Text(), "N/A");
    EXPECT_EQ(form().chkSmoothSlew.Value(), 0);
}

TEST_F(QX6105AAt10MHz, SecondFrequencyComesBackAfterOutputEnable) {
    form().optFS.SetValue(true);
    doc.Type(form().txtPLL[1], "80");
    form().optOE.SetValue(true);
    form().optFS.SetValue(true);
    EXPECT_EQ(form().txtPLL[1].Text(), "80.0");
}

TEST_F(QX6105AAt10MHz, ReferenceOutputShowsReferenceOverDivisorWithoutError) {
    QX6105ADocument::Pick(form().cboClkDiv[1], "Ref/2");
    EXPECT_EQ(form().lblDesired[1].Caption(), " 5.00000");
    form().cmdCalculate_Click();
    ASSERT_EQ(form().cboActual[1].ListCount(), 1);
    EXPECT_EQ(form().cboActual[1].List(0), "5.00000      PPM:0");
}

TEST_F(QX6105AAt10MHz, DivisorOffShowsOffWhateverThePLL) {
    doc.Type(form().txtPLL[0], "100");
    QX6105ADocument::Pick(form().cboClkDiv[2], "Off");
    form().cmdCalculate_Click();
    EXPECT_EQ(form().lblDesired[2].Caption(), "Off");
    ASSERT_EQ(form().cboActual[2].ListCount(), 1);
    EXPECT_EQ(form().cboActual[2].List(0), "Off");
}

TEST_F(QX6105AAt10MHz, PickingASolutionMovesEveryPLLOutputOfTheState) {
    doc.Type(form().txtPLL[0], "100");
    QX6105ADocument::Pick(form().cboClkDiv[0], "PLL/2");
    QX6105ADocument::Pick(form().cboClkDiv[1], "PLL/4");
    QX6105ADocument::Pick(form().cboClkDiv[2], "Ref");
    form().cmdCalculate_Click();
    form().cboActual[0].SetListIndex(2);
    EXPECT_EQ(form().cboPLLData[0].ListIndex(), 2);
    EXPECT_EQ(form().cboActual[1].ListIndex(), 2);
    EXPECT_EQ(form().cboActual[1].Text(), "25.09804    PPM:3922");
    EXPECT_EQ(form().cboActual[2].ListIndex(), 0);
    form().cboPLLData[0].SetListIndex(1);
    EXPECT_EQ(form().cboActual[0].ListIndex(), 1);
    EXPECT_EQ(form().cboActual[1].ListIndex(), 1);
}

TEST_F(QX6105AAt10MHz, OutputAboveTheDeviceMaximumTurnsRed) {
    // 150 MHz is a valid loop frequency at 5 V but above the 130 MHz output maximum.
    doc.Type(form().txtPLL[0], "150");
    QX6105ADocument::Pick(form().cboClkDiv[0], "PLL");
    EXPECT_EQ(form().lblDesired[0].ForeColor(), colors::Red);
    QX6105ADocument::Pick(form().cboClkDiv[0], "PLL/2");
    EXPECT_EQ(form().lblDesired[0].ForeColor(), colors::WindowText);
    form().cmdCalculate_Click();
    EXPECT_EQ(form().cboActual[0].ForeColor(), colors::WindowText);
}

TEST(QX6105AOutputLimits, QX6105AFAllowsOneHundredAtFiveVolts) {
    QX6105ADocument doc("QX6105AF");
    frmQX6105A& form = doc.Form();
    doc.Type(form.txtPLL[0], "110");
    QX6105ADocument::Pick(form.cboClkDiv[0], "PLL");
    EXPECT_EQ(form.lblDesired[0].ForeColor(), colors::Red);
    doc.Type(form.txtPLL[0], "100");
    EXPECT_EQ(form.lblDesired[0].ForeColor(), colors::WindowText);
}

TEST(QX6105AOutputLimits, QX6105AAllowsOneHundredAtThreeVolts) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    form.opt3V.SetValue(true);
    doc.Type(form.txtPLL[0], "110");
    QX6105ADocument::Pick(form.cboClkDiv[0], "PLL");
    EXPECT_EQ(form.lblDesired[0].ForeColor(), colors::Red);
    doc.Type(form.txtPLL[0], "100");
    EXPECT_EQ(form.lblDesired[0].ForeColor(), colors::WindowText);
}

TEST(QX6105APLLLimits, LoopFrequencyOutsideTheDieRangeTurnsRedAndSoDoItsOutputs) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    form.txtPLL[0].SetText("250");  // not left, so not clamped
    QX6105ADocument::Pick(form.cboClkDiv[0], "PLL/4");
    form.cmdApplyLimits_Click();
    EXPECT_EQ(form.txtPLL[0].ForeColor(), colors::Red);
    // 62.5 MHz is a fine output, but it comes from a loop out of range.
    EXPECT_EQ(form.lblDesired[0].ForeColor(), colors::Red);
    form.cmdCalculate_Click();
    EXPECT_EQ(form.cboActual[0].ForeColor(), colors::Red);
}

TEST(QX6105APLLLimits, PickingAnActualOfARedLoopKeepsItRed) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    doc.TypeReference("10");
    doc.Type(form.txtPLL[0], "100");
    QX6105ADocument::Pick(form.cboClkDiv[0], "PLL");
    form.cmdCalculate_Click();
    ASSERT_EQ(form.cboActual[0].ListCount(), 3);
    form.txtPLL[0].SetForeColor(colors::Red);
    form.cboActual[0].SetListIndex(1);
    EXPECT_EQ(form.cboActual[0].ForeColor(), colors::Red);
    EXPECT_EQ(form.cboPLLData[0].ListIndex(), 1);
    form.txtPLL[0].SetForeColor(colors::WindowText);
    form.cboActual[0].SetListIndex(2);
    EXPECT_EQ(form.cboActual[0].ForeColor(), colors::WindowText);
}

TEST(QX6105APLLLimits, OutputsOfALoopThatIsOffShowOff) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    QX6105ADocument::Pick(form.cboClkDiv[0], "PLL/2");
    form.CheckPLLLimits();
    EXPECT_EQ(form.lblDesired[0].Caption(), "Off");
    EXPECT_EQ(form.cboActual[0].Text(), "Off");
}

TEST(QX6105AFrequencyField, LeavingClampsAndNormalises) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    doc.Type(form.txtPLL[0], "");
    EXPECT_EQ(form.txtPLL[0].Text(), "Off");
    doc.Type(form.txtPLL[0], "0");
    EXPECT_EQ(form.txtPLL[0].Text(), "Off");
    doc.Type(form.txtPLL[0], "300");
    EXPECT_EQ(form.txtPLL[0].Text(), "200.0");
    doc.Type(form.txtPLL[0], "2");
    EXPECT_EQ(form.txtPLL[0].Text(), "4.0");
    doc.Type(form.txtPLL[0], "66.666666");
    EXPECT_EQ(form.txtPLL[0].Text(), "66.66667");
    EXPECT_EQ(form.txtPLL[0].Tag(), "66.66667");
}

TEST(QX6105AFrequencyField, LeavingRefreshesTheDesiredLabels) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    QX6105ADocument::Pick(form.cboClkDiv[0], "PLL/5");
    doc.Type(form.txtPLL[0], "300");
    EXPECT_EQ(form.lblDesired[0].Caption(), " 40.00000");
}

TEST(QX6105AHints, FieldsShowTheirHintsAndClearThemOnLeaving) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    form.txtPLL[0].RaiseGotFocus();
    EXPECT_EQ(doc.app->Main().lblHelpInfo.Caption(), " PLL Range: 4-200MHz at current voltage.");
    form.SetFocusTo(nullptr);
    form.txtPLL[0].RaiseLostFocus();
    EXPECT_EQ(doc.app->Main().lblHelpInfo.Caption(), "");
    form.cboClkDiv[1].RaiseGotFocus();
    EXPECT_EQ(doc.app->Main().lblHelpInfo.Caption(),
              " Output Range: 0.5-130MHz at 5V, 0.5-100MHz at 3.3V");
    form.chkSmoothSlew.RaiseGotFocus();
    EXPECT_EQ(doc.app->Main().lblHelpInfo.Caption(),
              " Smooth slew: frequency changes smoothly and monotonically.");
    form.txtPLLMax[2].RaiseGotFocus();
    EXPECT_EQ(doc.app->Main().lblHelpInfo.Caption(),
              " There are no maximums to PLL frequency, P or Q.");
    form.cboFRef.RaiseGotFocus();
    EXPECT_EQ(doc.app->Main().lblHelpInfo.Caption(),
              " Reference Range: 10-25MHz for crystal, 1-30MHz for external clock.");
}

TEST(QX6105APower, FillsOneRowForOutputEnableAndTwoForFrequencySelect) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    doc.Type(form.txtPLL[0], "100");
    form.cmdCalculate_Click();
    EXPECT_EQ(doc.app->Power().RowCount(), 1);
    EXPECT_EQ(doc.app->Power().ColCount(), 3);
    form.optFS.SetValue(true);
    doc.Type(form.txtPLL[1], "50");
    form.cmdCalculate_Click();
    EXPECT_EQ(doc.app->Power().RowCount(), 2);
}

}  // namespace
}  // namespace pendulon
