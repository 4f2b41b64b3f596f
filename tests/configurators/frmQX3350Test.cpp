#include <gtest/gtest.h>

#include <cmath>

#include "QX3350TestSupport.hpp"
#include "core/Numbers.hpp"
#include "core/cls3350Die.hpp"
#include "core/clsPLL.hpp"
#include "core/clsReference.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {
namespace {

using testing::QX3350Document;

bool IsRed(const Field& field) {
    return field.ForeColor() == colors::Red;
}

// The three output fields share one colour in the cases where the window paints them together.
void ExpectOutputColour(frmQX3350& form, Color color) {
    EXPECT_EQ(form.cboClockDivisors.ForeColor(), color);
    EXPECT_EQ(form.lblDesiredClock.ForeColor(), color);
    EXPECT_EQ(form.cboActual.ForeColor(), color);
}

TEST(QX3350Load, StartsWithTheDefaultOptionsAndLimits) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    EXPECT_EQ(form.lblDevice.Caption(), "QX3350");
    EXPECT_TRUE(form.optCrystal.Value());
    EXPECT_TRUE(form.opt5V.Value());
    EXPECT_TRUE(form.optTTL.Value());
    EXPECT_TRUE(form.optTTL.Enabled());
    EXPECT_EQ(form.optTTL.Tag(), "True");
    EXPECT_TRUE(form.optPowerDown.Value());
    EXPECT_TRUE(form.optSOIC.Value());
    EXPECT_EQ(form.chkSynchronous.Value(), 0);
    EXPECT_EQ(form.txtPLL.Text(), "Off");
    EXPECT_EQ(form.txtPLL.Tag(), "Off");
    EXPECT_EQ(form.cboFRef.Text(), "14.31818 MHz");
    EXPECT_DOUBLE_EQ(form.Die().mdblVoltage, 5.0);
    EXPECT_EQ(form.txtPLLMin[0].Text(), "50.0");
    EXPECT_EQ(form.txtPLLMax[0].Text(), "250.0");
    EXPECT_EQ(form.txtPLLMin[1].Text(), "24");
    EXPECT_EQ(form.txtPLLMax[1].Text(), "4100");
    EXPECT_EQ(form.txtPLLMin[2].Text(), "2");
    EXPECT_EQ(form.txtPLLMax[2].Text(), "1025");
    EXPECT_EQ(form.chkUseDefault.Value(), 1);
    EXPECT_FALSE(form.cmdApplyLimits.Enabled());
    EXPECT_TRUE(form.mblnUseDefaults3V);
    EXPECT_TRUE(form.mblnUseDefaults5V);
    // The crystal's reference range.
    EXPECT_DOUBLE_EQ(form.Reference().Minimum(), 10);
    EXPECT_DOUBLE_EQ(form.Reference().Maximum(), 30);
    // No power model: the panel holds the note and the power menu entry is off.
    EXPECT_EQ(form.lblNoPowerCalculation.Caption(), "Power Calculation Not Available");
    EXPECT_TRUE(form.picPower.Visible());
    EXPECT_FALSE(doc.app->Main().mnuViewPower.Enabled());
}

TEST(QX3350Load, DivisorListRunsFromPLLToOffWithTheFirstSelected) {
    QX3350Document doc;
    const ListField& list = doc.Form().cboClockDivisors;
    const char* expected[] = {"PLL",    "PLL/2",   "PLL/4",  "PLL/8",   "PLL/16", "PLL/32",
                              "PLL/64", "PLL/128", "Ref",    "Ref/2",   "Ref/4",  "Ref/8",
                              "Ref/16", "Ref/32",  "Ref/64", "Ref/128", "Off"};
    ASSERT_EQ(list.ListCount(), 17);
    for (int i = 0; i < 17; ++i) EXPECT_EQ(list.List(i), expected[i]) << i;
    EXPECT_EQ(list.ListIndex(), 0);
}

TEST(QX3350Load, CaptionsAreTheWindowsOwn) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    EXPECT_EQ(form.optCrystal.Caption(), "Crystal");
    EXPECT_EQ(form.optExternal.Caption(), "External");
    EXPECT_EQ(form.opt5V.Caption(), "&5V");
    EXPECT_EQ(form.opt3V.Caption(), "&3.3V");
    EXPECT_EQ(form.optTTL.Caption(), "TTL");
    EXPECT_EQ(form.optCMOS.Caption(), "CMOS");
    EXPECT_EQ(form.optPowerDown.Caption(), "Power &Down");
    EXPECT_EQ(form.optOutputEnable.Caption(), "&Output Enable");
    EXPECT_EQ(form.chkSynchronous.Caption(), "&Synchronous OE or PD");
    EXPECT_EQ(form.optSOIC.Caption(), "8LD SOIC");
    EXPECT_EQ(form.optTSSOP.Caption(), "8LD TSSOP");
    const std::pair<const Field*, const char*> groups[] = {
        {&form.fraLimits, "User Defined Limits"},
        {&form.fraPLLData, "PLL Data"},
        {&form.fraPin4, "Pin 4"},
        {&form.fraTTLCMOS, "TTL/CMOS Output"},
        {&form.fraOptions, "Options"},
        {&form.fraSynchronous, "Synchronous Select"},
        {&form.fraPackage, "Package"},
        {&form.fraOutputs, "Outputs"},
        {&form.fraVoltage, "Voltage"},
        {&form.fraPinout, "Pinout"},
        {&form.fraReference, "Reference"},
        {&form.fraPLLFrequency, "PLL Frequency"},
        {&form.fraClockSource, "Clock Source"},
        {&form.lblClkOutDivide, "CLK-Out Divide"},
        {&form.lblActual, "Actual"},
        {&form.lblDesired, "Desired"},
        {&form.lblMHz, "MHz"},
        {&form.lblMin, "Min"},
        {&form.lblMax, "Max"},
        {&form.lblPLL, "PLL"}};
    for (const auto& [field, caption] : groups) EXPECT_EQ(field->Caption(), caption);
}

TEST(QX3350Load, RegistersEveryFieldByName) {
    QX3350Document doc;
    const auto& fields = doc.Form().Fields();
    for (const char* name : {"lblDevice",        "optCrystal",      "optExternal",
                             "cboFRef",          "opt5V",           "opt3V",
                             "optTTL",           "optCMOS",         "optPowerDown",
                             "optOutputEnable",  "chkSynchronous",  "optSOIC",
                             "optTSSOP",         "txtPLL",          "cboPLLData",
                             "cboClockDivisors", "lblDesiredClock", "cboActual",
                             "txtPLLMin(0)",     "txtPLLMin(2)",    "txtPLLMax(0)",
                             "txtPLLMax(2)",     "chkUseDefault",   "cmdApplyLimits",
                             "cmdCalculate",     "txtFilePath",     "picPinout",
                             "picDebugWindow",   "picPower",        "lblNoPowerCalculation"}) {
        EXPECT_TRUE(fields.Contains(name)) << name;
    }
}

TEST(QX3350Load, QX3350IIsAcceptedAndAnyOtherDeviceIsRefused) {
    QX3350Document doc("QX3350I");
    frmQX3350& form = doc.Form();
    EXPECT_EQ(form.lblDevice.Caption(), "QX3350I");
    EXPECT_TRUE(doc.app->DeviceForm().optQX3350I.Value());
    doc.platform.ClearMessages();
    form.SetDevice("QX4860");
    ASSERT_EQ(doc.platform.Messages().size(), 1u);
    EXPECT_NE(doc.platform.Messages()[0].Text.find("10651"), std::string::npos);
    EXPECT_NE(doc.platform.Messages()[0].Text.find("Invalid device: QX4860"), std::string::npos);
    EXPECT_EQ(form.lblDevice.Caption(), "QX3350I");
}

TEST(QX3350Load, ClosingTheDocumentGivesThePowerEntryBack) {
    QX3350Document doc;
    EXPECT_FALSE(doc.app->Main().mnuViewPower.Enabled());
    doc.app->Document()->mUnloadRequired = true;
    doc.app->UnloadDocument(kUnloadFormCode);
    EXPECT_EQ(doc.app->Document(), nullptr);
    EXPECT_TRUE(doc.app->Main().mnuViewPower.Enabled());
}

// ---------------------------------------------------------------- voltage

TEST(QX3350Voltage, ThreeVoltsForcesCMOSAndFiveVoltsBringsTTLBack) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    ASSERT_TRUE(form.optTTL.Value());
    form.opt3V.SetValue(true);
    EXPECT_TRUE(form.optCMOS.Value());
    EXPECT_FALSE(form.optTTL.Value());
    EXPECT_FALSE(form.optTTL.Enabled());
    EXPECT_DOUBLE_EQ(form.Die().mdblVoltage, 3.3);
    EXPECT_EQ(form.txtPLLMax[0].Text(), "180.0");
    EXPECT_DOUBLE_EQ(form.PLL().mdblVCOMax, 180);
    form.opt5V.SetValue(true);
    EXPECT_TRUE(form.optTTL.Enabled());
    EXPECT_TRUE(form.optTTL.Value());
    EXPECT_EQ(form.txtPLLMax[0].Text(), "250.0");
    EXPECT_DOUBLE_EQ(form.PLL().mdblVCOMax, 250);
}

TEST(QX3350Voltage, AnotherClickAtThreeVoltsKeepsTheTTLChoiceForFiveVolts) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    form.opt3V.SetValue(true);
    form.opt3V.RaiseClick();
    EXPECT_TRUE(form.optCMOS.Value());
    form.opt5V.SetValue(true);
    EXPECT_TRUE(form.optTTL.Value());
}

TEST(QX3350Voltage, ACMOSChoiceAtFiveVoltsStaysCMOSAfterTheTrip) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    form.optCMOS.SetValue(true);
    form.opt3V.SetValue(true);
    form.opt5V.SetValue(true);
    EXPECT_TRUE(form.optCMOS.Value());
    EXPECT_TRUE(form.optTTL.Enabled());
}

TEST(QX3350Voltage, AVoltageChangeRecalculatesAndLeavesTheWindowEnabled) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLL, "120");
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
    EXPECT_TRUE(doc.app->gblnNeedsCalculate);
    form.opt3V.SetValue(true);
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    EXPECT_FALSE(doc.app->gblnNeedsCalculate);
    EXPECT_TRUE(form.Enabled());
    EXPECT_GT(form.cboPLLData.ListCount(), 0);
}

TEST(QX3350Voltage, EachVoltageKeepsItsOwnLimits) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLLMax[0], "200");
    form.cmdApplyLimits_Click();
    EXPECT_EQ(form.chkUseDefault.Value(), 0);
    EXPECT_FALSE(form.mblnUseDefaults5V);
    form.opt3V.SetValue(true);
    EXPECT_EQ(form.txtPLLMax[0].Text(), "180.0");
    EXPECT_EQ(form.chkUseDefault.Value(), 1);
    form.opt5V.SetValue(true);
    EXPECT_EQ(form.txtPLLMax[0].Text(), "200.0");
    EXPECT_EQ(form.chkUseDefault.Value(), 0);
    EXPECT_DOUBLE_EQ(form.Die().MaximumPLLVoltage(), 200);
}

// ---------------------------------------------------------------- clock source

TEST(QX3350Source, AFiftyMegahertzReferenceIsRedOnlyForACrystal) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    form.optExternal.SetValue(true);
    EXPECT_DOUBLE_EQ(form.Reference().Minimum(), 1);
    EXPECT_DOUBLE_EQ(form.Reference().Maximum(), 75);
    doc.TypeReference("50");
    EXPECT_EQ(form.cboFRef.Text(), "50.00000 MHz");
    EXPECT_FALSE(IsRed(form.cboFRef));
    form.optCrystal.SetValue(true);
    EXPECT_TRUE(IsRed(form.cboFRef));
    EXPECT_EQ(form.cboFRef.Text(), "50.00000 MHz");
    form.optExternal.SetValue(true);
    EXPECT_FALSE(IsRed(form.cboFRef));
}

TEST(QX3350Source, LeavingTheReferenceClampsToTheSourceRange) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.TypeReference("5");
    EXPECT_EQ(form.cboFRef.Text(), "10.00000 MHz");
    doc.TypeReference("40");
    EXPECT_EQ(form.cboFRef.Text(), "30.00000 MHz");
    form.optExternal.SetValue(true);
    doc.TypeReference("80");
    EXPECT_EQ(form.cboFRef.Text(), "75.00000 MHz");
    doc.TypeReference("0.5");
    EXPECT_EQ(form.cboFRef.Text(), "1.00000 MHz");
    EXPECT_FALSE(IsRed(form.cboFRef));
}

TEST(QX3350Source, ApplyingLimitsKeepsTheSourceRange) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    form.optExternal.SetValue(true);
    doc.Type(form.txtPLLMin[1], "30");
    form.cmdApplyLimits_Click();
    EXPECT_DOUBLE_EQ(form.Reference().Minimum(), 1);
    EXPECT_DOUBLE_EQ(form.Reference().Maximum(), 75);
    form.opt3V.SetValue(true);
    EXPECT_DOUBLE_EQ(form.Reference().Maximum(), 75);
}

// ---------------------------------------------------------------- divisors and the PLL field

TEST(QX3350Divisors, ARefSourceDisablesThePLLFieldAndPLLBringsItsTextBack) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLL, "150");
    QX3350Document::Pick(form.cboClockDivisors, "Ref/4");
    EXPECT_FALSE(form.txtPLL.Enabled());
    EXPECT_EQ(form.txtPLL.Text(), "Off");
    QX3350Document::Pick(form.cboClockDivisors, "PLL/2");
    EXPECT_TRUE(form.txtPLL.Enabled());
    EXPECT_EQ(form.txtPLL.Text(), "150.0");
    EXPECT_EQ(form.lblDesiredClock.Caption(), " 75.00000");
    QX3350Document::Pick(form.cboClockDivisors, "Off");
    EXPECT_FALSE(form.txtPLL.Enabled());
    EXPECT_EQ(form.txtPLL.Text(), "Off");
    EXPECT_EQ(form.lblDesiredClock.Caption(), " Off");
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
}

TEST(QX3350Divisors, DesiredClockComesFromTheReferenceOrTheVCO) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLL, "120");
    QX3350Document::Pick(form.cboClockDivisors, "PLL/4");
    EXPECT_EQ(form.lblDesiredClock.Caption(), " 30.00000");
    QX3350Document::Pick(form.cboClockDivisors, "PLL/128");
    EXPECT_EQ(form.lblDesiredClock.Caption(), " 0.93750");
    QX3350Document::Pick(form.cboClockDivisors, "Ref/2");
    EXPECT_EQ(form.lblDesiredClock.Caption(), " 7.15909");
    QX3350Document::Pick(form.cboClockDivisors, "Ref");
    EXPECT_EQ(form.lblDesiredClock.Caption(), " 14.31818");
}

TEST(QX3350Divisors, AnOffVCOGivesAnOffDesiredClock) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    QX3350Document::Pick(form.cboClockDivisors, "PLL/2");
    EXPECT_EQ(form.txtPLL.Text(), "Off");
    EXPECT_EQ(form.lblDesiredClock.Caption(), " Off");
}

TEST(QX3350PLLField, LeavingNormalisesClampsAndRemembersTheText) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLL, "");
    EXPECT_EQ(form.txtPLL.Text(), "Off");
    doc.Type(form.txtPLL, "  Off ");
    EXPECT_EQ(form.txtPLL.Text(), "Off");
    doc.Type(form.txtPLL, "10");
    EXPECT_EQ(form.txtPLL.Text(), "50.0");
    doc.Type(form.txtPLL, "0");
    EXPECT_EQ(form.txtPLL.Text(), "50.0");
    doc.Type(form.txtPLL, "300");
    EXPECT_EQ(form.txtPLL.Text(), "250.0");
    doc.Type(form.txtPLL, "99.123456");
    EXPECT_EQ(form.txtPLL.Text(), "99.12346");
    EXPECT_EQ(form.txtPLL.Tag(), "99.12346");
    EXPECT_EQ(form.txtPLL.ForeColor(), colors::WindowText);
    EXPECT_EQ(form.lblDesiredClock.Caption(), " 99.12346");
    // At 3.3 V the VCO stops at 180 MHz.
    form.opt3V.SetValue(true);
    doc.Type(form.txtPLL, "200");
    EXPECT_EQ(form.txtPLL.Text(), "180.0");
}

TEST(QX3350PLLField, AnEditMarksACalculateDue) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    form.cmdCalculate_Click();
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    EXPECT_FALSE(doc.app->gblnNeedsCalculate);
    form.txtPLL.SetText("100");
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
    EXPECT_TRUE(doc.app->gblnNeedsCalculate);
}

TEST(QX3350Reference, AClickMarksACalculateDueAndRefreshesTheDesiredClock) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    QX3350Document::Pick(form.cboClockDivisors, "Ref");
    form.cmdCalculate_Click();
    QX3350Document::Pick(form.cboFRef, "20.00000 MHz");
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
    EXPECT_EQ(form.lblDesiredClock.Caption(), " 20.00000");
}

// ---------------------------------------------------------------- Calculate

TEST(QX3350Calculate, TheVCOIsTheTypedFrequencyNotDoubled) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLL, "120");
    form.cmdCalculate_Click();
    EXPECT_DOUBLE_EQ(form.PLL().mdblTargetVCO, 120);
    EXPECT_DOUBLE_EQ(form.PLL().mdblReferenceFrequency, 14.31818);
    ASSERT_GT(form.cboPLLData.ListCount(), 0);
    // Every solution is near the typed frequency, not near twice it.
    for (int i = 0; i < form.cboPLLData.ListCount(); ++i)
        EXPECT_NEAR(Val(form.cboPLLData.List(i)), 120, 0.1) << form.cboPLLData.List(i);
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    EXPECT_FALSE(doc.app->gblnNeedsCalculate);
    EXPECT_EQ(doc.app->Main().lblStatus.Caption(), "");
    EXPECT_TRUE(form.Enabled());
}

TEST(QX3350Calculate, CounterLimitsFollowTheReference) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    form.optExternal.SetValue(true);
    doc.TypeReference("25");
    doc.Type(form.txtPLL, "100");
    form.cmdCalculate_Click();
    const clsPLL& pll = form.PLL();
    // 25 / 0.032 = 781.25: the maximums take it below the die's 4100 and 1025.
    EXPECT_DOUBLE_EQ(pll.mdblMaxP, 781);
    EXPECT_DOUBLE_EQ(pll.mdblMaxQ, 781);
    // 25 is whole: the minimums are 25 against the die's 24 and 2.
    EXPECT_DOUBLE_EQ(pll.mdblMinP, 25);
    EXPECT_DOUBLE_EQ(pll.mdblMinQ, 25);
    doc.TypeReference("2.5");
    form.cmdCalculate_Click();
    // 2.5 / 0.032 = 78.125; 2.5 rounds up to 4 (3.5 to even), and the die's 24 holds for P.
    EXPECT_DOUBLE_EQ(pll.mdblMaxP, 78);
    EXPECT_DOUBLE_EQ(pll.mdblMaxQ, 78);
    EXPECT_DOUBLE_EQ(pll.mdblMinP, 24);
    EXPECT_DOUBLE_EQ(pll.mdblMinQ, 4);
    EXPECT_DOUBLE_EQ(pll.mdblVCOMin, 50);
    EXPECT_DOUBLE_EQ(pll.mdblVCOMax, 250);
}

TEST(QX3350Calculate, ActualOutputOfThePLLIsTheDataDividedWithItsPPM) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLL, "120");
    QX3350Document::Pick(form.cboClockDivisors, "PLL/2");
    form.cmdCalculate_Click();
    ASSERT_EQ(form.cboActual.ListCount(), form.cboPLLData.ListCount());
    for (int i = 0; i < form.cboActual.ListCount(); ++i) {
        const double vco = Val(form.cboPLLData.List(i));
        EXPECT_NEAR(Val(form.cboActual.List(i)), vco / 2, 1e-5);
        const std::string entry = form.cboActual.List(i);
        const double ppm = Val(entry.substr(entry.find("PPM:") + 4));
        EXPECT_NEAR(ppm, std::round((vco / 2 - 60) / 60 * 1e6), 1.0) << entry;
    }
    EXPECT_EQ(form.cboActual.ListIndex(), form.cboPLLData.ListIndex());
}

TEST(QX3350Calculate, ActualOutputOfTheReferenceHasNoPPMAndOffShowsOff) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    QX3350Document::Pick(form.cboClockDivisors, "Ref/8");
    form.cmdCalculate_Click();
    ASSERT_EQ(form.cboActual.ListCount(), 1);
    EXPECT_NEAR(Val(form.cboActual.Text()), 14.31818 / 8, 1e-5);
    EXPECT_NE(form.cboActual.Text().find("PPM:0"), std::string::npos);
    QX3350Document::Pick(form.cboClockDivisors, "Off");
    form.cmdCalculate_Click();
    ASSERT_EQ(form.cboActual.ListCount(), 1);
    EXPECT_EQ(form.cboActual.Text(), "Off");
    ExpectOutputColour(form, colors::WindowText);
}

TEST(QX3350Lists, PLLDataAndActualKeepTheSameIndex) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLL, "120");
    form.cmdCalculate_Click();
    ASSERT_GE(form.cboPLLData.ListCount(), 3);
    form.cboPLLData.SetListIndex(2);
    EXPECT_EQ(form.cboActual.ListIndex(), 2);
    form.cboActual.SetListIndex(1);
    EXPECT_EQ(form.cboPLLData.ListIndex(), 1);
}

// ---------------------------------------------------------------- limits and colours

TEST(QX3350Colours, A120MegahertzOutputIsRedOnlyAtThreeVoltsAndTheRedCarriesToTheActual) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLL, "120");
    form.cmdCalculate_Click();
    ExpectOutputColour(form, colors::WindowText);
    EXPECT_FALSE(IsRed(form.txtPLL));
    form.opt3V.SetValue(true);
    EXPECT_FALSE(IsRed(form.txtPLL));
    EXPECT_EQ(form.cboClockDivisors.ForeColor(), colors::WindowText);
    EXPECT_TRUE(IsRed(form.lblDesiredClock));
    EXPECT_TRUE(IsRed(form.cboActual));
    // Half of it is in range again.
    QX3350Document::Pick(form.cboClockDivisors, "PLL/2");
    form.cmdCalculate_Click();
    ExpectOutputColour(form, colors::WindowText);
}

TEST(QX3350Colours, ARefEntryWithARedReferencePaintsAllThreeRed) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    form.optExternal.SetValue(true);
    doc.TypeReference("50");
    QX3350Document::Pick(form.cboClockDivisors, "Ref");
    form.cmdCalculate_Click();
    ExpectOutputColour(form, colors::WindowText);
    form.optCrystal.SetValue(true);
    EXPECT_TRUE(IsRed(form.cboFRef));
    ExpectOutputColour(form, colors::Red);
}

TEST(QX3350Colours, ARefOutputIsHeldToTheSourceRange) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    QX3350Document::Pick(form.cboClockDivisors, "Ref/2");
    form.cmdCalculate_Click();
    // 7.15909 MHz is below a crystal's 10 MHz, although the reference itself is in range.
    EXPECT_FALSE(IsRed(form.cboFRef));
    EXPECT_EQ(form.cboClockDivisors.ForeColor(), colors::WindowText);
    EXPECT_TRUE(IsRed(form.lblDesiredClock));
    EXPECT_TRUE(IsRed(form.cboActual));
    form.optExternal.SetValue(true);
    ExpectOutputColour(form, colors::WindowText);
}

TEST(QX3350Colours, ARedPLLPaintsAPLLOutputRedButNotARefOutput) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLL, "240");
    form.cmdCalculate_Click();
    form.opt3V.SetValue(true);
    // 240 MHz stays in the field, out of the 3.3 V range.
    EXPECT_TRUE(IsRed(form.txtPLL));
    ExpectOutputColour(form, colors::Red);
}

TEST(QX3350Colours, BothInputsRedPaintAllThreeRedEvenForAnInRangeOutput) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    form.optExternal.SetValue(true);
    doc.TypeReference("50");
    doc.Type(form.txtPLL, "240");
    QX3350Document::Pick(form.cboClockDivisors, "PLL/4");
    form.cmdCalculate_Click();
    form.opt3V.SetValue(true);
    form.optCrystal.SetValue(true);
    EXPECT_TRUE(IsRed(form.txtPLL));
    EXPECT_TRUE(IsRed(form.cboFRef));
    ExpectOutputColour(form, colors::Red);
    QX3350Document::Pick(form.cboClockDivisors, "Off");
    ExpectOutputColour(form, colors::WindowText);
}

TEST(QX3350Limits, ApplyWithLimitsBackAtTheDefaultsSetsUseDefault) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLLMax[1], "3000");
    EXPECT_TRUE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.cmdApplyLimits.BackColor(), colors::Yellow);
    form.cmdApplyLimits_Click();
    EXPECT_EQ(form.chkUseDefault.Value(), 0);
    EXPECT_DOUBLE_EQ(form.Die().MaximumP(), 3000);
    EXPECT_FALSE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.cmdApplyLimits.BackColor(), colors::Grey);
    doc.Type(form.txtPLLMax[1], "4100");
    form.cmdApplyLimits_Click();
    EXPECT_EQ(form.chkUseDefault.Value(), 1);
}

TEST(QX3350Limits, ApplyRecalculatesWithTheNewVCORange) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLL, "120");
    doc.Type(form.txtPLLMax[0], "100");
    form.cmdApplyLimits_Click();
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    EXPECT_DOUBLE_EQ(form.PLL().mdblVCOMax, 100);
    EXPECT_TRUE(IsRed(form.txtPLL));
    ExpectOutputColour(form, colors::Red);
}

TEST(QX3350Limits, LeavingALimitFieldKeepsTheRowInOrder) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLLMin[1], "0.3");
    EXPECT_EQ(form.txtPLLMin[1].Text(), "1");
    doc.Type(form.txtPLLMin[0], "0.3");
    EXPECT_EQ(form.txtPLLMin[0].Text(), "0.5");
    doc.Type(form.txtPLLMax[2], "1");
    EXPECT_EQ(form.txtPLLMax[2].Text(), form.txtPLLMin[2].Text());
}

TEST(QX3350Limits, UseDefaultBringsTheDefaultsBack) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLLMax[0], "200");
    form.cmdApplyLimits_Click();
    ASSERT_EQ(form.chkUseDefault.Value(), 0);
    form.chkUseDefault.SetValue(1);
    EXPECT_TRUE(form.mblnUseDefaults5V);
    EXPECT_EQ(form.txtPLLMax[0].Text(), "250.0");
    EXPECT_EQ(form.cmdApplyLimits.BackColor(), colors::Yellow);
    form.cmdApplyLimits_Click();
    EXPECT_DOUBLE_EQ(form.Die().MaximumPLLVoltage(), 250);
}

// ---------------------------------------------------------------- hints and pinout

TEST(QX3350Hints, FieldsShowTheirHintsAndClearThemOnLeaving) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    form.cboFRef.RaiseGotFocus();
    EXPECT_EQ(doc.HintLine(), " Reference Range: 10-30MHz for crystal; 1-75MHz for external.");
    form.cboFRef.RaiseLostFocus();
    EXPECT_EQ(doc.HintLine(), "");
    form.txtPLL.RaiseGotFocus();
    EXPECT_EQ(doc.HintLine(), " PLL Range: 50-250MHz at current voltage.");
    form.txtPLL.RaiseLostFocus();
    EXPECT_EQ(doc.HintLine(), "");
    form.opt3V.SetValue(true);
    form.txtPLL.RaiseGotFocus();
    EXPECT_EQ(doc.HintLine(), " PLL Range: 50-180MHz at current voltage.");
    form.txtPLLMin[1].RaiseGotFocus();
    EXPECT_EQ(doc.HintLine(), " Minimum PLL frequency is 0.5MHz; minimum P is 1; minimum Q is 1.");
    form.txtPLLMax[2].RaiseGotFocus();
    EXPECT_EQ(doc.HintLine(), " There are no maximums to PLL frequency, P or Q.");
}

TEST(QX3350Pinout, PinFourFollowsTheOptionAndTheChipIsDrawn) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    EXPECT_EQ(form.PinName(0), "8");
    EXPECT_EQ(form.PinName(1), "VDD");
    EXPECT_EQ(form.PinName(2), "XTALOUT");
    EXPECT_EQ(form.PinName(3), "XTALIN");
    EXPECT_EQ(form.PinName(4), "PD");
    EXPECT_EQ(form.PinName(5), "VSS");
    EXPECT_EQ(form.PinName(6), "CLKOUT");
    EXPECT_FALSE(form.picPinout.DisplayList().empty());
    form.optOutputEnable.SetValue(true);
    EXPECT_EQ(form.PinName(4), "OE");
    bool drawnOE = false;
    for (const DrawOp& op : form.picPinout.DisplayList())
        if (op.text == "OE")
            drawnOE = true;
    EXPECT_TRUE(drawnOE);
    form.optPowerDown.SetValue(true);
    EXPECT_EQ(form.PinName(4), "PD");
    doc.platform.ClearMessages();
    EXPECT_EQ(form.PinName(9), "");
    EXPECT_EQ(doc.platform.Messages().size(), 1u);
}

}  // namespace
}  // namespace pendulon
