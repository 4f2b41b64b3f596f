#include <gtest/gtest.h>

#include <filesystem>

#include "QX5140TestSupport.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "platform/Color.hpp"
#include "power/frmPower.hpp"

namespace {

using pendulon::Application;
using pendulon::frmQX5140;
using pendulon::HeadlessPlatform;
using pendulon::testing::QX5140Document;
namespace colors = pendulon::colors;

// 50, 25, 12.5 MHz from 20 MHz: 21 cases, the first all on UPLL at 100 MHz (see the search
// tests for the whole list).
void OneLoopInputs(QX5140Document& doc) {
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    doc.Type(form.txtClkA[0], "50");
    doc.Type(form.txtClkB, "25");
    doc.Type(form.txtClkC, "12.5");
}

TEST(frmQX5140, NewFormHasItsFieldsAndDefaults) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    EXPECT_EQ(form.lblDevice.Caption(), "QX5140");
    EXPECT_EQ(form.Width(), 9600);
    EXPECT_EQ(form.Height(), 6620);
    for (const char* name : {"lblDevice",
                             "txtFilePath",
                             "opt5V",
                             "opt3V",
                             "cboFRef",
                             "txtFRefMin",
                             "txtFRefMax",
                             "optOE",
                             "optShutdown",
                             "optSelect",
                             "optSuspendOutputsOnly",
                             "optSuspendOutputsAndPLLs",
                             "fraSuspend",
                             "fraPin8Option",
                             "txtPPM",
                             "vsbPPM",
                             "fraSensitivity",
                             "lblSensitivity",
                             "txtClkA(0)",
                             "txtClkA(1)",
                             "txtClkB",
                             "txtClkC",
                             "cboClkA(0)",
                             "cboClkA(1)",
                             "cboClkB",
                             "cboClkC",
                             "lblClkA(0)",
                             "lblClkA(1)",
                             "lblClkB",
                             "lblClkC",
                             "lblClkASrc",
                             "lblClkBSrc",
                             "lblClkCSrc",
                             "lblClkASrcDiv",
                             "lblClkBSrcDiv",
                             "lblClkCSrcDiv",
                             "fraPllAssignment",
                             "lblClkSrcDiv(2)",
                             "chkSuspendClockA",
                             "chkSuspendClockB",
                             "chkSuspendClockC",
                             "chkPrivatePLLClockA",
                             "chkPrivatePLLClockB",
                             "chkPrivatePLLClockC",
                             "lblPrivatePLL",
                             "chkSuspendCPLL",
                             "chkSuspendSPLL",
                             "chkSuspendUPLL",
                             "fraSuspenPlls",
                             "lblSuspendPLL(0)",
                             "cboCPLLData(0)",
                             "cboCPLLData(1)",
                             "cboSPLLData",
                             "cboUPLLData",
                             "fraPLLData",
                             "lblPLLData(1)",
                             "txtPLLMin(8)",
                             "txtPLLMax(8)",
                             "fraLimits",
                             "lblLimits(3)",
                             "lblMin",
                             "lblMax",
                             "chkUseDefault",
                             "cmdApplyLimits",
                             "cmdCalculate",
                             "lblCaseMessage",
                             "picPinout",
                             "fraPinout",
                             "picPower",
                             "picDebugWindow"})
        EXPECT_NE(form.Fields().Find(name), nullptr) << name;
    for (auto* field : {&form.txtClkA[0], &form.txtClkA[1], &form.txtClkB, &form.txtClkC}) {
        EXPECT_EQ(field->Text(), "Off");
        EXPECT_EQ(field->Tag(), "Off");
    }
    EXPECT_EQ(form.vsbPPM.Value(), -1000);
    EXPECT_EQ(form.vsbPPM.Min(), -5000);
    EXPECT_EQ(form.vsbPPM.Max(), 0);
    EXPECT_EQ(form.txtPPM.Text(), "1000");
    EXPECT_TRUE(form.optOE.Value());
    EXPECT_TRUE(form.opt5V.Value());
    EXPECT_EQ(form.cmdCalculate.Caption(), "C&alculate");
    // The new form asks for its first Calculate, and leaving Select/Suspend is behind it.
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
    EXPECT_FALSE(form.mblnSelectWasLast);
    EXPECT_EQ(form.lblPLLData[1].Caption(), "CPLL[4]");
    // Output enable: the second state of CLKA and the suspend fields are out of use.
    EXPECT_FALSE(form.fraSuspend.Visible());
    EXPECT_FALSE(form.txtClkA[1].Visible());
    EXPECT_FALSE(form.chkSuspendClockA.Visible());
    EXPECT_EQ(form.lblClkA[0].Caption(), "CLKA");
    EXPECT_EQ(form.chkPrivatePLLClockA.Tag(), "0");
    EXPECT_EQ(form.optSuspendOutputsOnly.Tag(), "False");
    // Loop VCOs are twice the die's 8 to 100 MHz; outputs run 0.5 to 100 MHz.
    EXPECT_EQ(form.mdblMinimumOutput, 0.5);
    EXPECT_EQ(form.mdblMaximumOutput, 100);
    EXPECT_EQ(form.txtPLLMax[0].Text(), "100.0");
}

TEST(frmQX5140, AllOutputsOffShowsOffAndNoCase) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    form.cmdCalculate.SetBackColor(colors::Yellow);
    doc.Calculate();
    EXPECT_EQ(form.lblClkASrcDiv.Caption(), "Off");
    EXPECT_EQ(form.lblClkBSrcDiv.Caption(), "Off");
    EXPECT_EQ(form.lblClkCSrcDiv.Caption(), "Off");
    EXPECT_EQ(form.lblCaseMessage.Caption(), "");
    EXPECT_EQ(form.cboClkB.Text(), "Off");
}

TEST(frmQX5140, OtherDeviceStopsTheLoadWithError10001) {
    HeadlessPlatform platform;
    Application app(platform);
    app.Main().MDIForm_Load("");
    app.DeviceForm().mstrCurrentDevice = "QX7311";
    frmQX5140 form(app);
    form.Form_Load();
    ASSERT_FALSE(platform.Messages().empty());
    const std::string text = platform.Messages().back().Text;
    EXPECT_NE(text.find("10001"), std::string::npos) << text;
    EXPECT_NE(text.find("Invalid device: QX7311"), std::string::npos) << text;
    // The load stopped before the voltage: no limits were filled.
    EXPECT_EQ(form.txtPLLMax[0].Text(), "");
}

TEST(frmQX5140, YellowPressSearchesGreyPressStepsToTheNextCase) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    OneLoopInputs(doc);
    ASSERT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
    doc.Calculate();
    EXPECT_FALSE(form.mblnInputsChanged);
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    EXPECT_FALSE(doc.app->gblnNeedsCalculate);
    EXPECT_EQ(form.lblCaseMessage.Caption(), "Case 1 of 21");
    EXPECT_EQ(form.lblClkASrcDiv.Caption(), "UPLL/2");
    EXPECT_EQ(form.lblClkBSrcDiv.Caption(), "UPLL/4");
    EXPECT_EQ(form.lblClkCSrcDiv.Caption(), "UPLL/8");
    EXPECT_EQ(form.lblClkASrc.Caption(), "PLL3");
    // The loop is solved for its last output, 8 x 12.5 = 100 = 40 x 10 / 4.
    EXPECT_EQ(form.cboUPLLData.Text(), "100.000000 P:10 Q:4");
    EXPECT_EQ(form.cboClkA[0].Text(), "50.00000    PPM:0");
    EXPECT_EQ(form.cboClkC.Text(), "12.50000    PPM:0");
    // Unused loops keep the idle minimum P and Q.
    EXPECT_EQ(form.cboSPLLData.Text(), "0.000000 P:5 Q:2");
    EXPECT_EQ(form.mintCalculateCounter, 0);

    doc.Calculate();
    EXPECT_EQ(form.mintCalculateCounter, 1);
    EXPECT_EQ(form.lblCaseMessage.Caption(), "Case 2 of 21");
    EXPECT_EQ(form.lblClkASrcDiv.Caption(), "CPLL/2");
    EXPECT_EQ(form.lblClkASrc.Caption(), "PLL2");
    EXPECT_EQ(form.cboCPLLData[0].Text(), "100.000000 P:10 Q:4");
    EXPECT_EQ(form.cboUPLLData.Text(), "0.000000 P:5 Q:2");
    doc.Calculate();
    EXPECT_EQ(form.lblCaseMessage.Caption(), "Case 3 of 21");
    EXPECT_EQ(form.lblClkCSrcDiv.Caption(), "SPLL/16");
    EXPECT_EQ(form.lblClkCSrc.Caption(), "PLL1");
    EXPECT_EQ(form.cboSPLLData.Text(), "200.000000 P:15 Q:3");
}

TEST(frmQX5140, FourthPressOfThreeCasesShowsTheFirst) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    doc.Type(form.txtClkA[0], "50");
    doc.Calculate();
    EXPECT_EQ(form.lblCaseMessage.Caption(), "Case 1 of 3");
    doc.Calculate();
    doc.Calculate();
    EXPECT_EQ(form.lblCaseMessage.Caption(), "Case 3 of 3");
    EXPECT_EQ(form.lblClkASrcDiv.Caption(), "CPLL/4");
    doc.Calculate();
    EXPECT_EQ(form.lblCaseMessage.Caption(), "Case 1 of 3");
    EXPECT_EQ(form.lblClkASrcDiv.Caption(), "UPLL/4");
    EXPECT_EQ(form.lblClkBSrcDiv.Caption(), "Off");
}

// Select/Suspend: one case, CLKA on CPLL/4 in both states; a grey press wraps to the same case
// and solves the loop again.
TEST(frmQX5140, SelectModeShowsBothStatesOfClockA) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    form.optSelect.SetValue(true);
    EXPECT_TRUE(form.fraSuspend.Visible());
    EXPECT_TRUE(form.optSuspendOutputsOnly.Value());
    EXPECT_TRUE(form.txtClkA[1].Visible());
    EXPECT_EQ(form.lblClkA[0].Caption(), "CLKA [0]");
    EXPECT_EQ(form.chkPrivatePLLClockA.Value(), 1);
    EXPECT_FALSE(form.chkPrivatePLLClockA.Visible());
    doc.Type(form.txtClkA[0], "50");
    doc.Type(form.txtClkA[1], "40");
    doc.Calculate();
    EXPECT_EQ(form.lblCaseMessage.Caption(), "Case 1 of 1");
    EXPECT_EQ(form.lblClkASrcDiv.Caption(), "CPLL/4");
    EXPECT_EQ(form.cboCPLLData[0].Text(), "200.000000 P:15 Q:3");
    EXPECT_EQ(form.cboCPLLData[1].Text(), "160.000000 P:12 Q:3");
    EXPECT_EQ(form.cboClkA[1].Text(), "40.00000    PPM:0");
    form.cboCPLLData[0].Clear();
    doc.Calculate();
    EXPECT_EQ(form.mintCalculateCounter, 0);
    EXPECT_EQ(form.lblCaseMessage.Caption(), "Case 1 of 1");
    EXPECT_EQ(form.cboCPLLData[0].Text(), "200.000000 P:15 Q:3");
    // Back to output enable: the second state is put away and CLKA's private box comes back.
    form.optOE.SetValue(true);
    EXPECT_FALSE(form.txtClkA[1].Visible());
    EXPECT_EQ(form.txtClkA[1].Text(), "Off");
    EXPECT_EQ(form.txtClkA[1].Tag(), "40.0");
    EXPECT_EQ(form.chkPrivatePLLClockA.Value(), 0);
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
}

TEST(frmQX5140, EditsTurnTheButtonYellow) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    const auto calculated = [&] {
        doc.Calculate();
        ASSERT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    };
    const auto yellow = [&] { return form.cmdCalculate.BackColor() == colors::Yellow; };
    calculated();
    form.chkPrivatePLLClockB.SetValue(1);
    EXPECT_TRUE(yellow());
    calculated();
    doc.Type(form.txtClkB, "25");
    EXPECT_TRUE(yellow());
    calculated();
    doc.Type(form.txtPPM, "500");
    EXPECT_TRUE(yellow());
    calculated();
    form.vsbPPM.SetValue(-800);
    EXPECT_EQ(form.txtPPM.Text(), "800");
    EXPECT_TRUE(yellow());
    calculated();
    QX5140Document::Pick(form.cboFRef, "25.00000 MHz");
    EXPECT_TRUE(yellow());
    calculated();
    form.chkUseDefault.SetValue(0);
    EXPECT_TRUE(yellow());
    EXPECT_TRUE(form.cmdApplyLimits.Enabled());
    calculated();
    // Output enable again, while it was the last choice: nothing changes.
    form.optOE.RaiseClick();
    EXPECT_FALSE(yellow());
    // Shutdown after output enable: the assignment rules are the same.
    form.optShutdown.SetValue(true);
    EXPECT_FALSE(yellow());
    form.optSelect.SetValue(true);
    EXPECT_TRUE(yellow());
    calculated();
    form.chkSuspendClockB.SetValue(1);
    EXPECT_TRUE(yellow());
    calculated();
    form.optSuspendOutputsAndPLLs.SetValue(true);
    EXPECT_TRUE(yellow());
    calculated();
    // Leaving Select/Suspend changes what can be assigned.
    form.optOE.SetValue(true);
    EXPECT_TRUE(yellow());
}

TEST(frmQX5140, SensitivityIsClampedAndKeptWithTheScroll) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    doc.Type(form.txtPPM, "6000");
    EXPECT_EQ(form.vsbPPM.Value(), -5000);
    EXPECT_EQ(form.txtPPM.Text(), "5000");
    doc.Type(form.txtPPM, "-30");
    EXPECT_EQ(form.vsbPPM.Value(), -30);
    EXPECT_EQ(form.txtPPM.Text(), "30");
}

TEST(frmQX5140, ClockFieldsAreCheckedWhenLeft) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    doc.Type(form.txtClkB, "0");
    EXPECT_EQ(form.txtClkB.Text(), "Off");
    doc.Type(form.txtClkB, "0.1");
    EXPECT_EQ(form.txtClkB.Text(), "0.5");
    doc.Type(form.txtClkB, "150");
    EXPECT_EQ(form.txtClkB.Text(), "100.0");
    EXPECT_EQ(form.txtClkB.Tag(), "100.0");
}

TEST(frmQX5140, CalculateHintWhileTheButtonHasTheFocus) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    form.SetFocusTo(&form.cmdCalculate);
    EXPECT_EQ(doc.app->Main().lblHelpInfo.Caption(),
              " Try to optimize the outputs by clicking the Calculate button repeatedly.");
    form.SetFocusTo(nullptr);
    EXPECT_EQ(doc.app->Main().lblHelpInfo.Caption(), "");
}

// A sharing row that serves one output in Select/Suspend (CLKA's private box cleared behind the
// form's back, CLKA and CLKC on SPLL only) is a fault: error 10002 is shown and the labels
// keep what they had.
TEST(frmQX5140, SharingRowWithOneOutputReportsError10002) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    form.optSelect.SetValue(true);
    form.chkPrivatePLLClockA.SetValue(0);
    form.chkPrivatePLLClockB.SetValue(1);
    doc.Type(form.txtClkA[0], "50");
    doc.Type(form.txtClkC, "16.66667");
    const std::string before = form.lblClkCSrcDiv.Caption();
    doc.Calculate();
    const std::string messages = doc.Messages();
    EXPECT_NE(messages.find("10002"), std::string::npos) << messages;
    EXPECT_NE(messages.find("A non-fatal condition exists which was not planned for.  Please "
                            "report this message to the Manager of the Marlin Works division."),
              std::string::npos);
    EXPECT_NE(messages.find("(frmQX5140) FindClockSources"), std::string::npos);
    EXPECT_EQ(form.lblClkCSrcDiv.Caption(), before);
}

// "Outputs && PLLs" with CLKA and CLKB on one UPLL and only CLKB suspended stops the UPLL.
TEST(frmQX5140, SuspendingOneOutputStopsItsLoop) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    form.optSelect.SetValue(true);
    form.optSuspendOutputsAndPLLs.SetValue(true);
    form.lblClkASrcDiv.SetCaption("UPLL/2");
    form.lblClkBSrcDiv.SetCaption("UPLL/4");
    form.chkSuspendClockB.SetValue(1);
    EXPECT_EQ(form.chkSuspendUPLL.Value(), 1);
    EXPECT_EQ(form.chkSuspendCPLL.Value(), 0);
    form.optSuspendOutputsOnly.SetValue(true);
    EXPECT_EQ(form.chkSuspendUPLL.Value(), 0);
}

// Case 4 of the 50, 25, 12.5 MHz set: CLKA on UPLL/4 and CLKB on UPLL/8, the loop solved for
// CLKB at 200 MHz: exactly by P 15, Q 3, and from below by 644 / 129 (-1550 PPM); nothing above
// 200 MHz is in range. Both outputs list the same two solutions; a pick in one moves the loop
// and the other output, and the chain of clicks stops there.
TEST(frmQX5140, OutputsOnOneLoopFollowEachOthersPick) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    OneLoopInputs(doc);
    for (int press = 0; press < 4; ++press) doc.Calculate();
    ASSERT_EQ(form.lblCaseMessage.Caption(), "Case 4 of 21");
    ASSERT_EQ(form.lblClkASrcDiv.Caption(), "UPLL/4");
    EXPECT_EQ(form.cboUPLLData.Items(),
              (std::vector<std::string>{"200.000000 P:15 Q:3", "199.689922 P:644 Q:129"}));
    EXPECT_EQ(form.cboClkA[0].Items(),
              (std::vector<std::string>{"50.00000    PPM:0", "49.92248    PPM:-1550"}));
    EXPECT_EQ(form.cboClkB.Items(),
              (std::vector<std::string>{"25.00000    PPM:0", "24.96124    PPM:-1550"}));
    form.cboClkB.SetListIndex(1);
    EXPECT_EQ(form.cboUPLLData.ListIndex(), 1);
    EXPECT_EQ(form.cboClkA[0].ListIndex(), 1);
    // CLKC is on SPLL: its list does not move.
    EXPECT_EQ(form.cboClkC.ListIndex(), 0);
    EXPECT_EQ(form.lblClkCSrc.Caption(), "PLL1");
}

TEST(frmQX5140, PowerTableHasARowPerSelectState) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    OneLoopInputs(doc);
    doc.Calculate();
    const pendulon::frmPower& power = doc.app->Power();
    EXPECT_EQ(power.RowCount(), 1);
    form.optSelect.SetValue(true);
    doc.Calculate();
    EXPECT_EQ(power.RowCount(), 2);
    EXPECT_EQ(power.lstPower.ListCount(), 2);
}

// An empty image has no reference the window can take: the fill says so, and the window is
// not shown.
TEST(frmQX5140, EmptyEntryImageIsRefusedWithAMessage) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    pendulon::clsEntryFile entry(doc.app->Errors());
    entry.mintBValue = 1;
    EXPECT_FALSE(form.FillForm(entry, "/designs/none.ent"));
    EXPECT_NE(doc.Messages().find("The entry file contains an invalid reference frequency: 0"),
              std::string::npos);
}

// Suspending CLKA in Select/Suspend switches its state-0 frequency off; leaving the mode puts
// the second state and the suspend checks away, but CLKA's own frequency comes back only
// with its check.
TEST(frmQX5140, SuspendedClockAStaysOffWhenSelectIsLeft) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    form.optSelect.SetValue(true);
    doc.Type(form.txtClkA[0], "50");
    form.chkSuspendClockA.SetValue(1);
    EXPECT_EQ(form.txtClkA[0].Text(), "Off");
    EXPECT_FALSE(form.txtClkA[0].Enabled());
    EXPECT_EQ(form.txtClkA[0].Tag(), "50.0");
    form.optOE.SetValue(true);
    EXPECT_FALSE(form.txtClkA[1].Visible());
    EXPECT_EQ(form.chkSuspendClockA.Value(), 0);
    EXPECT_EQ(form.chkSuspendClockA.Tag(), "1");
    EXPECT_EQ(form.txtClkA[0].Text(), "Off");
    // Back in Select/Suspend the check returns, and clearing it restores the frequency.
    form.optSelect.SetValue(true);
    EXPECT_EQ(form.chkSuspendClockA.Value(), 1);
    form.chkSuspendClockA.SetValue(0);
    EXPECT_EQ(form.txtClkA[0].Text(), "50.0");
    EXPECT_TRUE(form.txtClkA[0].Enabled());
}

TEST(frmQX5140, UserLimitsAreCheckedAndDefaultsRecognised) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    doc.Type(form.txtPLLMin[1], "0.2");
    EXPECT_EQ(form.txtPLLMin[1].Text(), "1");
    doc.Type(form.txtPLLMin[0], "0.2");
    EXPECT_EQ(form.txtPLLMin[0].Text(), "0.5");
    EXPECT_TRUE(form.cmdApplyLimits.Enabled());
    form.cmdApplyLimits_Click();
    EXPECT_EQ(form.chkUseDefault.Value(), 0);
    form.chkUseDefault.SetValue(1);
    EXPECT_EQ(form.txtPLLMin[0].Text(), "8.0");
    form.cmdApplyLimits_Click();
    EXPECT_EQ(form.chkUseDefault.Value(), 1);
    EXPECT_FALSE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
}

// A 7 MHz output on an SPLL whose frequency range starts at 80 MHz is within limits when the
// outputs may go down to 5: the loop's minimum over the divider 16 is the test.
TEST(frmQX5140, OutputLimitIsTheLoopMinimumOverSixteen) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    doc.Type(form.txtPLLMin[6], "80");
    form.cmdApplyLimits_Click();
    doc.Type(form.txtClkA[0], "7");
    form.chkPrivatePLLClockA.SetValue(1);
    doc.Calculate();
    for (int press = 0; press < 3 && form.lblClkASrc.Caption() != "PLL1"; ++press) doc.Calculate();
    ASSERT_EQ(form.lblClkASrc.Caption(), "PLL1");
    EXPECT_EQ(form.txtClkA[0].ForeColor(), colors::WindowText);
    // SPLL from 120 to 190 MHz (VCO 240 to 380): 7 x 40 = 280 still works, but 120 / 16 = 7.5.
    doc.Type(form.txtPLLMax[6], "190");
    doc.Type(form.txtPLLMin[6], "120");
    form.cmdApplyLimits_Click();
    for (int press = 0; press < 3 && form.lblClkASrc.Caption() != "PLL1"; ++press) doc.Calculate();
    ASSERT_EQ(form.lblClkASrc.Caption(), "PLL1");
    EXPECT_EQ(form.txtClkA[0].ForeColor(), colors::Red);
}

// An output on the divided reference: "Ref" as its source, one entry, and no loop list moves
// when it is picked.
TEST(frmQX5140, OutputOnTheReferenceMovesNoLoop) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    doc.Type(form.txtClkA[0], "10");
    doc.Calculate();
    EXPECT_EQ(form.lblClkASrcDiv.Caption(), "Ref/2");
    EXPECT_EQ(form.lblClkASrc.Caption(), "Ref");
    EXPECT_EQ(form.cboClkA[0].Items(), (std::vector<std::string>{"10.00000    PPM:0"}));
    form.cboClkA[0].RaiseClick();
    for (const pendulon::ListField* list :
         {&form.cboCPLLData[0], &form.cboSPLLData, &form.cboUPLLData}) {
        EXPECT_EQ(list->ListIndex(), 0);
        EXPECT_EQ(list->Text(), "0.000000 P:5 Q:2");
    }
    EXPECT_EQ(form.lblClkBSrc.Caption(), "N/A");
    EXPECT_EQ(form.cboClkB.Text(), "Off");
}

}  // namespace
