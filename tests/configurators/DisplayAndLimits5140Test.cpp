#include <gtest/gtest.h>

#include "QX5140TestSupport.hpp"
#include "core/Numbers.hpp"
#include "platform/Color.hpp"
#include "power/clsPower7311.hpp"
#include "power/frmPower.hpp"

namespace {

using pendulon::clsPower7311;
using pendulon::frmQX5140;
using pendulon::GeneralNumber;
using pendulon::ListField;
using pendulon::Val;
using pendulon::testing::QX5140Document;
namespace colors = pendulon::colors;

void SetOnly(ListField& list, const std::string& text) {
    list.Clear();
    list.AddItem(text);
    list.SetListIndex(0);
}

// 50, 25, 12.5 MHz from 20 MHz; the first case puts all three on UPLL: /2, /4, /8.
void OneLoop(QX5140Document& doc) {
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    doc.Type(form.txtClkA[0], "50");
    doc.Type(form.txtClkB, "25");
    doc.Type(form.txtClkC, "12.5");
    doc.Calculate();
}

// ---------------------------------------------------------------- loops and lists

TEST(QX5140Display, LoopLimitsFollowTheVoltage) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    // 5 V: loops 8 to 100 MHz, outputs 0.5 to 100.
    EXPECT_EQ(form.mdblMaximumOutput, 100);
    EXPECT_EQ(form.mdblMinimumOutput, 0.5);
    form.opt3V.SetValue(true);
    // 3.3 V: loops 8 to 80 MHz; the smallest output is the loops' minimum over 16.
    EXPECT_EQ(form.mdblMaximumOutput, 80);
    EXPECT_EQ(form.mdblMinimumOutput, 0.5);
}

TEST(QX5140Display, OutputsOnOneLoopShareTheIndicesOfItsSolutions) {
    QX5140Document doc;
    OneLoop(doc);
    frmQX5140& form = doc.Form();
    ASSERT_EQ(form.lblClkASrcDiv.Caption(), "UPLL/2");
    ASSERT_EQ(form.lblClkBSrcDiv.Caption(), "UPLL/4");
    EXPECT_EQ(form.lblClkASrc.Caption(), "PLL3");
    EXPECT_EQ(form.lblClkBSrc.Caption(), "PLL3");
    EXPECT_EQ(form.lblClkCSrc.Caption(), "PLL3");
    const int n = form.cboUPLLData.ListCount();
    ASSERT_GE(n, 1);
    ASSERT_EQ(form.cboClkA[0].ListCount(), n);
    ASSERT_EQ(form.cboClkB.ListCount(), n);
    // Entry i of every list on the loop is the loop's solution i through the output's divider.
    for (int i = 0; i < n; ++i) {
        const double vco = Val(form.cboUPLLData.List(i));
        EXPECT_NEAR(Val(form.cboClkA[0].List(i)) * 2, vco, 1e-4) << i;
        EXPECT_NEAR(Val(form.cboClkB.List(i)) * 4, vco, 1e-4) << i;
        EXPECT_NEAR(Val(form.cboClkC.List(i)) * 8, vco, 1e-4) << i;
    }
    // The unused loops keep their idle entry: the minimum counters, VCO 0.
    EXPECT_EQ(form.cboSPLLData.ListCount(), 1);
    EXPECT_EQ(Val(form.cboSPLLData.List(0)), 0);
    EXPECT_EQ(Val(form.cboCPLLData[0].List(0)), 0);
}

TEST(QX5140Display, PickingAnOutputMovesItsLoopAndTheOtherOutputsOnIt) {
    QX5140Document doc;
    OneLoop(doc);
    frmQX5140& form = doc.Form();
    // Give the shared loop three solutions, and the outputs the matching entries.
    SetOnly(form.cboUPLLData, "100.000000 P:10 Q:4");
    form.cboUPLLData.AddItem("99.000000 P:99 Q:40");
    form.cboUPLLData.AddItem("101.000000 P:101 Q:40");
    for (ListField* list : {&form.cboClkA[0], &form.cboClkB, &form.cboClkC}) {
        SetOnly(*list, "a");
        list->AddItem("b");
        list->AddItem("c");
    }
    form.cboClkB.SetListIndex(2);
    EXPECT_EQ(form.cboUPLLData.ListIndex(), 2);
    EXPECT_EQ(form.cboClkA[0].ListIndex(), 2);
    EXPECT_EQ(form.cboClkC.ListIndex(), 2);
    EXPECT_EQ(form.cboClkB.ListIndex(), 2);
    // A pick in the data list moves the outputs back.
    form.cboUPLLData.SetListIndex(1);
    EXPECT_EQ(form.cboClkA[0].ListIndex(), 1);
    EXPECT_EQ(form.cboClkB.ListIndex(), 1);
    EXPECT_EQ(form.cboClkC.ListIndex(), 1);
}

TEST(QX5140Display, ShorterCPLLListIsNotMovedByAPickInTheOutput) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    form.optSelect.SetValue(true);
    form.lblClkASrcDiv.SetCaption("CPLL/4");
    form.lblClkASrc.SetCaption("PLL2");
    SetOnly(form.cboCPLLData[1], "160.000000 P:8 Q:2");
    SetOnly(form.cboClkA[1], "40.00000  PPM:0");
    form.cboClkA[1].AddItem("39.90000  PPM:-2500");
    form.cboClkA[1].AddItem("40.10000  PPM:2500");
    form.cboClkA[1].SetListIndex(2);
    EXPECT_EQ(form.cboCPLLData[1].ListIndex(), 0);
    EXPECT_EQ(form.cboCPLLData[1].ListCount(), 1);
}

TEST(QX5140Display, OutputOnTheDividedReferenceNeedsNoLoop) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    doc.Type(form.txtClkA[0], "10");
    doc.Calculate();
    EXPECT_EQ(form.lblClkASrcDiv.Caption(), "Ref/2");
    EXPECT_EQ(form.lblClkASrc.Caption(), "Ref");
    ASSERT_EQ(form.cboClkA[0].ListCount(), 1);
    EXPECT_EQ(Val(form.cboClkA[0].List(0)), 10);
    const std::string upll = form.cboUPLLData.List(0);
    form.cboClkA[0].SetListIndex(0);
    EXPECT_EQ(form.cboUPLLData.List(0), upll);
    EXPECT_EQ(form.cboUPLLData.ListCount(), 1);
    EXPECT_EQ(form.cboClkB.List(0), "Off");
}

TEST(QX5140Display, LoopWithoutSolutionShowsNotAvailable) {
    QX5140Document doc;
    OneLoop(doc);
    frmQX5140& form = doc.Form();
    SetOnly(form.cboUPLLData, "Off");
    form.DisplayAllActuals();
    EXPECT_EQ(form.lblClkASrc.Caption(), "N/A");
    EXPECT_EQ(form.lblClkBSrc.Caption(), "N/A");
    // And its outputs are not checked against a loop: the normal colour.
    form.txtClkB.SetForeColor(colors::Red);
    form.CheckPLLLimits();
    EXPECT_EQ(form.txtClkB.ForeColor(), colors::WindowText);
}

TEST(QX5140Display, SuspendedCPLLRowOfStateZeroIsParked) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    form.optSelect.SetValue(true);
    form.optSuspendOutputsAndPLLs.SetValue(true);
    form.lblClkASrcDiv.SetCaption("CPLL/4");
    form.chkSuspendClockA.SetValue(1);
    ASSERT_EQ(form.chkSuspendCPLL.Value(), 1);
    form.DisplayAllActuals();
    // State 0 of a suspended CLKA is off, and the CPLL row of state 0 holds P 3, Q 2.
    EXPECT_EQ(form.cboClkA[0].List(0), "Off");
    ASSERT_EQ(form.cboCPLLData[0].ListCount(), 1);
    EXPECT_EQ(Val(form.cboCPLLData[0].List(0)), 0);
}

// ---------------------------------------------------------------- limits and suspend

TEST(QX5140Limits, OutputBelowALoopMinimumIsAcceptedDownToItOverSixteen) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    // The SPLL runs from 8 MHz up: outputs on it may go down to 8 / 16, a divider being assumed.
    form.lblClkASrc.SetCaption("PLL1");
    form.txtClkA[0].SetText("0.6");
    form.CheckPLLLimits();
    EXPECT_EQ(form.txtClkA[0].ForeColor(), colors::WindowText);
    form.txtClkA[0].SetText("0.4");
    form.CheckPLLLimits();
    EXPECT_EQ(form.txtClkA[0].ForeColor(), colors::Red);
    // The list of a red output turns red with it.
    EXPECT_EQ(form.cboClkA[0].ForeColor(), colors::Red);
}

TEST(QX5140Limits, LimitFieldsAreNormalisedWhenLeft) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    doc.Type(form.txtPLLMin[1], "0.2");
    EXPECT_EQ(form.txtPLLMin[1].Text(), "1");
    doc.Type(form.txtPLLMin[0], "0.2");
    EXPECT_EQ(form.txtPLLMin[0].Text(), "0.5");
    // A minimum above its maximum takes the maximum; a maximum below its minimum the minimum.
    doc.Type(form.txtPLLMin[0], "500");
    EXPECT_EQ(form.txtPLLMin[0].Text(), form.txtPLLMax[0].Text());
    doc.Type(form.txtPLLMin[0], "10");
    doc.Type(form.txtPLLMax[0], "2");
    EXPECT_EQ(form.txtPLLMax[0].Text(), "10.0");
    // Each change asks for Apply.
    EXPECT_TRUE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.cmdApplyLimits.BackColor(), colors::Yellow);
}

TEST(QX5140Limits, ApplyWithTheDefaultsTicksUseDefault) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    doc.Type(form.txtPLLMax[0], "90");
    form.cmdApplyLimits.RaiseClick();
    EXPECT_EQ(form.chkUseDefault.Value(), 0);
    EXPECT_FALSE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.cmdApplyLimits.BackColor(), colors::Grey);
    // Apply searches afresh: the button is grey again.
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    doc.Type(form.txtPLLMax[0], "100");
    form.cmdApplyLimits.RaiseClick();
    EXPECT_EQ(form.chkUseDefault.Value(), 1);
}

TEST(QX5140Limits, UseDefaultBringsTheDefaultsBackToTheFields) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    doc.Type(form.txtPLLMax[0], "90");
    form.cmdApplyLimits.RaiseClick();
    form.chkUseDefault.SetValue(1);
    EXPECT_EQ(form.txtPLLMax[0].Text(), "100.0");
    EXPECT_TRUE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
}

TEST(QX5140Suspend, LeavingSelectHidesTheSecondStateButLeavesClockAOff) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    doc.Type(form.txtClkA[0], "50");
    form.optSelect.SetValue(true);
    EXPECT_TRUE(form.txtClkA[1].Visible());
    EXPECT_TRUE(form.fraSuspend.Visible());
    EXPECT_TRUE(form.optSuspendOutputsOnly.Value());
    EXPECT_EQ(form.lblClkA[0].Caption(), "CLKA [0]");
    EXPECT_EQ(form.chkPrivatePLLClockA.Value(), 1);
    EXPECT_FALSE(form.chkPrivatePLLClockA.Visible());
    doc.Type(form.txtClkA[1], "40");
    form.chkSuspendClockA.SetValue(1);
    EXPECT_EQ(form.txtClkA[0].Text(), "Off");
    EXPECT_FALSE(form.txtClkA[0].Enabled());
    form.optOE.SetValue(true);
    EXPECT_FALSE(form.txtClkA[1].Visible());
    EXPECT_EQ(form.txtClkA[1].Text(), "Off");
    EXPECT_EQ(form.chkSuspendClockA.Value(), 0);
    EXPECT_FALSE(form.chkSuspendClockA.Visible());
    EXPECT_EQ(form.lblClkA[0].Caption(), "CLKA");
    EXPECT_TRUE(form.chkPrivatePLLClockA.Visible());
    EXPECT_EQ(form.chkPrivatePLLClockA.Value(), 0);
    // Not restored by leaving Select/Suspend: only its own check brings it back.
    EXPECT_EQ(form.txtClkA[0].Text(), "Off");
    // Back in Select/Suspend, the second state and the suspend check return.
    form.optSelect.SetValue(true);
    EXPECT_EQ(form.txtClkA[1].Text(), "40.0");
    EXPECT_EQ(form.chkSuspendClockA.Value(), 1);
}

TEST(QX5140Suspend, TheSuspendChoiceIsRememberedAcrossPin8Changes) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    form.optSelect.SetValue(true);
    form.optSuspendOutputsAndPLLs.SetValue(true);
    form.optShutdown.SetValue(true);
    EXPECT_FALSE(form.fraSuspend.Visible());
    EXPECT_FALSE(form.optSuspendOutputsAndPLLs.Value());
    EXPECT_FALSE(form.mblnSuspendOutputsOnly);
    form.optSelect.SetValue(true);
    EXPECT_TRUE(form.optSuspendOutputsAndPLLs.Value());
    EXPECT_FALSE(form.optSuspendOutputsOnly.Value());
}

TEST(QX5140Suspend, OutputsOnlyNeverStopsALoop) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    form.optSelect.SetValue(true);
    form.lblClkASrcDiv.SetCaption("CPLL/2");
    form.lblClkBSrcDiv.SetCaption("SPLL/4");
    form.lblClkCSrcDiv.SetCaption("UPLL/4");
    for (auto* check : {&form.chkSuspendClockA, &form.chkSuspendClockB, &form.chkSuspendClockC})
        check->SetValue(1);
    EXPECT_EQ(form.chkSuspendCPLL.Value(), 0);
    EXPECT_EQ(form.chkSuspendSPLL.Value(), 0);
    EXPECT_EQ(form.chkSuspendUPLL.Value(), 0);
    form.optSuspendOutputsAndPLLs.SetValue(true);
    EXPECT_EQ(form.chkSuspendCPLL.Value(), 1);
    EXPECT_EQ(form.chkSuspendSPLL.Value(), 1);
    EXPECT_EQ(form.chkSuspendUPLL.Value(), 1);
}

// ---------------------------------------------------------------- power

TEST(QX5140Power, AllOutputsOffGiveTheModelsFloor) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    form.cmdCalculate.SetBackColor(colors::Yellow);
    doc.Calculate();
    const pendulon::frmPower& power = doc.app->Power();
    ASSERT_EQ(power.RowCount(), 1);
    EXPECT_EQ(power.Head(0), "");
    EXPECT_EQ(power.Head(1), "Typical");
    clsPower7311 model(doc.app->Errors());
    model.SetVDD(5);
    EXPECT_EQ(power.Cell(0, 1), GeneralNumber(model.GetIDD(1)));
    EXPECT_EQ(power.Cell(0, 2), GeneralNumber(model.GetIDD(0)));
}

TEST(QX5140Power, OneRowWithTheOutputsCrossedOntoTheModel) {
    QX5140Document doc;
    OneLoop(doc);
    frmQX5140& form = doc.Form();
    const pendulon::frmPower& power = doc.app->Power();
    ASSERT_EQ(power.RowCount(), 1);
    clsPower7311 model(doc.app->Errors());
    model.SetVDD(5);
    model.mdblClockA = 12.5;  // CLKC
    model.mdblClockB = 25;
    model.mdblClockC = 50;  // CLKA
    model.mdblUPLL = Val(form.cboUPLLData.Text());
    EXPECT_EQ(power.Cell(0, 1), GeneralNumber(model.GetIDD(1)));
    EXPECT_EQ(power.Cell(0, 2), GeneralNumber(model.GetIDD(0)));
    // The suspend checks have no say without Select/Suspend.
    form.chkSuspendUPLL.SetValue(1);
    form.CalculatePower();
    EXPECT_EQ(power.Cell(0, 1), GeneralNumber(model.GetIDD(1)));
}

TEST(QX5140Power, SelectGivesARowPerStateWithSuspendedPartsStoppedInRowZero) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    form.optSelect.SetValue(true);
    form.optSuspendOutputsAndPLLs.SetValue(true);
    doc.Type(form.txtClkA[0], "50");
    doc.Type(form.txtClkA[1], "40");
    doc.Type(form.txtClkB, "25");
    doc.Calculate();
    form.chkSuspendClockB.SetValue(1);
    form.CalculatePower();
    const pendulon::frmPower& power = doc.app->Power();
    ASSERT_EQ(power.RowCount(), 2);
    EXPECT_EQ(power.Head(0), "Select");
    EXPECT_EQ(power.Cell(0, 0), "0  ");
    EXPECT_EQ(power.Cell(1, 0), "1  ");
    const char b = form.lblClkBSrcDiv.Caption()[0];
    auto loop = [&](const ListField& list) { return Val(list.Text()); };
    clsPower7311 model(doc.app->Errors());
    model.SetVDD(5);
    // Row 1: everything runs, CLKA at its second frequency on the second CPLL row.
    model.mdblClockA = 0;  // CLKC is off
    model.mdblClockB = Val(form.cboClkB.Text());
    model.mdblClockC = Val(form.cboClkA[1].Text());
    model.mdblCPLL = loop(form.cboCPLLData[1]);
    model.mdblSPLL = loop(form.cboSPLLData);
    model.mdblUPLL = loop(form.cboUPLLData);
    EXPECT_EQ(power.Cell(1, 1), GeneralNumber(model.GetIDD(1)));
    EXPECT_EQ(power.Cell(1, 2), GeneralNumber(model.GetIDD(0)));
    // Row 0: CLKB and its loop stopped.
    model.mdblClockB = 0;
    model.mdblClockC = Val(form.cboClkA[0].Text());
    model.mdblCPLL = b == 'C' ? 0 : loop(form.cboCPLLData[0]);
    if (b == 'S')
        model.mdblSPLL = 0;
    if (b == 'U')
        model.mdblUPLL = 0;
    EXPECT_EQ(power.Cell(0, 1), GeneralNumber(model.GetIDD(1)));
    EXPECT_EQ(power.Cell(0, 2), GeneralNumber(model.GetIDD(0)));
}

}  // namespace
