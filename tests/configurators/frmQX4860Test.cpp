#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "configurators/frmQX4860TestSupport.hpp"
#include "core/Numbers.hpp"
#include "core/cls4860Die.hpp"
#include "core/clsPLL.hpp"
#include "core/mShared.hpp"
#include "entryfile/Checksums.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/mFileAccessor.hpp"
#include "graphics/clsGraphics.hpp"
#include "platform/Color.hpp"
#include "power/clsPower4860.hpp"
#include "power/frmPower.hpp"
#include "shell/ConfiguratorFactory.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using testing::QX4860Document;

std::vector<std::string> Items(const ListField& list) {
    std::vector<std::string> items;
    for (int i = 0; i < list.ListCount(); ++i) items.push_back(list.List(i));
    return items;
}

std::string Row(const char* name, int i) {
    return std::string(name) + "(" + std::to_string(i) + ")";
}

// ---------------------------------------------------------------- load

TEST(frmQX4860Load, RegistersEveryFieldOfTheWindowByName) {
    QX4860Document doc;
    const Window& form = doc.Form();
    for (int i = 0; i < 16; ++i) {
        for (const char* name :
             {"lblSelectIndex", "txtPLL", "lblDesiredClkA", "cboActualClkA", "lblDesiredRefClk",
              "cboActualRefClk", "lblPLLDataIndex", "cboPLLData"}) {
            EXPECT_NE(form.Fields().Find(Row(name, i)), nullptr) << Row(name, i);
        }
    }
    for (int i = 0; i < 3; ++i) {
        EXPECT_NE(form.Fields().Find(Row("txtPLLMin", i)), nullptr);
        EXPECT_NE(form.Fields().Find(Row("txtPLLMax", i)), nullptr);
    }
    for (const char* name : {"opt8Pin",
                             "opt14Pin",
                             "opt5V",
                             "opt3V",
                             "cboFRef",
                             "chkSmoothSlew",
                             "chkOEClockA",
                             "chkOEReference",
                             "chkPowerDown",
                             "chkPLLStop",
                             "chkPLLAndOscillatorStop",
                             "fraOERPDControl",
                             "cboClkADiv",
                             "cboRefClkDiv",
                             "vsbOutput",
                             "vsbPLLData",
                             "picOutputDisplay",
                             "picPLLData",
                             "chkUseDefault",
                             "cmdApplyLimits",
                             "cmdCalculate",
                             "txtFRefMin",
                             "txtFRefMax",
                             "txtFilePath",
                             "picPinout",
                             "picPower",
                             "picDebugWindow",
                             "lblDevice"}) {
        EXPECT_NE(form.Fields().Find(name), nullptr) << name;
    }
}

TEST(frmQX4860Load, CaptionsAndDefaultsOfANewDocument) {
    QX4860Document doc;
    frmQX4860& form = doc.Form();
    EXPECT_EQ(form.lblDevice.Caption(), "QX4860");
    EXPECT_EQ(form.opt8Pin.Caption(), "8 Pin");
    EXPECT_EQ(form.opt14Pin.Caption(), "14 Pin");
    EXPECT_EQ(form.opt5V.Caption(), "&5V");
    EXPECT_EQ(form.opt3V.Caption(), "&3.3V");
    EXPECT_EQ(form.chkSmoothSlew.Caption(), "Smooth Slew");
    EXPECT_EQ(form.chkOEClockA.Caption(), "OE Clock A");
    EXPECT_EQ(form.chkOEReference.Caption(), "OE Ref Clock");
    EXPECT_EQ(form.chkPowerDown.Caption(), "Power Down");
    EXPECT_EQ(form.chkPLLStop.Caption(), "PLL only");
    EXPECT_EQ(form.chkPLLAndOscillatorStop.Caption(), "PLL && Osc.");
    EXPECT_EQ(form.fraOERPDControl.Caption(), "OER PD Control");
    EXPECT_EQ(form.lblDesiredPLL.Caption(), "Desired PLL");
    EXPECT_EQ(form.lblActualRefClk.Caption(), "Actual Reference Clock");
    EXPECT_EQ(form.lblActualClkA.Caption(), "Actual Clock A");
    EXPECT_EQ(form.lblMinimum.Caption(), "Minimum");
    EXPECT_EQ(form.lblMaximum.Caption(), "Maximum");
    EXPECT_EQ(form.lblPLL.Caption(), "PLL");
    EXPECT_EQ(form.fraFrequencies.Caption(), "PLL/Output Frequencies (FS3..FS0)");

    EXPECT_TRUE(form.opt14Pin.Value());
    EXPECT_FALSE(form.opt8Pin.Value());
    EXPECT_TRUE(form.opt5V.Value());
    EXPECT_EQ(form.PLLCount(), 16);
    EXPECT_TRUE(form.FormReady());
    EXPECT_TRUE(form.mblnUseDefaults3V);
    EXPECT_TRUE(form.mblnUseDefaults5V);
    EXPECT_EQ(form.chkOEClockA.Value(), 1);
    EXPECT_EQ(form.chkOEReference.Value(), 1);
    EXPECT_EQ(form.chkPowerDown.Value(), 1);
    EXPECT_EQ(form.chkPLLStop.Value(), 0);
    EXPECT_EQ(form.chkPLLAndOscillatorStop.Value(), 0);
    EXPECT_TRUE(form.chkPLLStop.Enabled());
    EXPECT_EQ(form.cboFRef.Text(), "14.31818 MHz");
    const std::vector<std::string> dividers = {"Ref",   "Ref/2", "PLL",   "PLL/2", "PLL/3",
                                               "PLL/4", "PLL/5", "PLL/8", "Off"};
    EXPECT_EQ(Items(form.cboClkADiv), dividers);
    EXPECT_EQ(Items(form.cboRefClkDiv), dividers);
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(form.lblSelectIndex[i].Caption(), mShared::DisplayBinary(i, 4));
        EXPECT_EQ(form.lblPLLDataIndex[i].Caption(), mShared::DisplayBinary(i, 4));
        EXPECT_TRUE(form.txtPLL[i].Visible());
        EXPECT_EQ(form.txtPLL[i].Text(), "Off");
    }
    EXPECT_EQ(form.lblSelectIndex[5].Caption(), "0101");
    EXPECT_TRUE(form.vsbOutput.Visible());
    EXPECT_TRUE(form.vsbPLLData.Visible());
    // Both outputs start on the reference, so no row needs a PLL frequency yet.
    EXPECT_EQ(form.cboClkADiv.Text(), "Ref");
    EXPECT_EQ(form.cboRefClkDiv.Text(), "Ref");
    EXPECT_FALSE(form.txtPLL[0].Enabled());
    EXPECT_FALSE(doc.app->gblnNeedsCalculate);
}

TEST(frmQX4860Load, WizardEightPinFlagStartsInEightPinAndIsCleared) {
    QX4860Document doc("QX4860", true);
    frmQX4860& form = doc.Form();
    EXPECT_TRUE(form.opt8Pin.Value());
    EXPECT_FALSE(doc.app->gblnWizard8Pin);
    EXPECT_EQ(form.PLLCount(), 4);
    EXPECT_EQ(form.fraFrequencies.Caption(), "PLL/Output Frequencies (FS1..FS0)");
    EXPECT_EQ(form.chkPowerDown.Value(), 1);
    EXPECT_EQ(form.chkOEClockA.Value(), 0);
    // The next document is a 14-pin one again.
    QX4860Document next("QX4860");
    EXPECT_TRUE(next.Form().opt14Pin.Value());
}

TEST(frmQX4860Load, EachFamilyDeviceOpensThisWindowAndNoOtherDoes) {
    for (const char* device : {"QX4860", "QX4860F", "QX4860I"}) {
        QX4860Document doc(device);
        EXPECT_EQ(doc.Form().lblDevice.Caption(), device);
        EXPECT_EQ(doc.Form().Name(), "frmQX4860");
        EXPECT_TRUE(doc.app->DeviceForm().OptionFor(device)->Enabled());
    }
    HeadlessPlatform platform;
    Application app(platform);
    for (const char* device : {"QX6105A", "QX7311", "QX4860X", "QX3350"}) {
        auto window = CreateConfigurator(app, device);
        EXPECT_EQ(dynamic_cast<frmQX4860*>(window.get()), nullptr) << device;
    }
}

// A window whose device is not of the family reports it while loading its die.
struct ProbeQX4860 : frmQX4860 {
    using frmQX4860::frmQX4860;
    using frmQX4860::InitializeDieClass;
    using frmQX4860::InitializePLLClass;
};

TEST(frmQX4860Load, UnknownDeviceRaisesInvalidDevice) {
    HeadlessPlatform platform;
    Application app(platform);
    ProbeQX4860 form(app);
    form.lblDevice.SetCaption("QX7311");
    form.InitializeDieClass();
    ASSERT_EQ(platform.Messages().size(), 1u);
    const std::string text = platform.Messages()[0].Text;
    EXPECT_NE(text.find("10301"), std::string::npos) << text;
    EXPECT_NE(text.find("(frmQX4860) InitializeDieClass"), std::string::npos) << text;
    EXPECT_NE(text.find("Invalid device: QX7311"), std::string::npos) << text;
}

TEST(frmQX4860Load, DieLimitsOfEachDeviceAndVoltage) {
    {
        QX4860Document doc("QX4860");
        EXPECT_EQ(doc.Form().Die().MaximumPLLVoltage(), 200);
        EXPECT_EQ(doc.Form().Die().MinimumPLLVoltage(), 4);
        doc.Form().opt3V.SetValue(true);
        EXPECT_EQ(doc.Form().Die().MaximumPLLVoltage(), 150);
    }
    {
        QX4860Document doc("QX4860I");
        EXPECT_EQ(doc.Form().Die().MaximumPLLVoltage(), 200);
    }
    {
        QX4860Document doc("QX4860F");
        EXPECT_EQ(doc.Form().Die().MaximumPLLVoltage(), 160);
        doc.Form().opt3V.SetValue(true);
        EXPECT_EQ(doc.Form().Die().MaximumPLLVoltage(), 120);
        EXPECT_EQ(doc.Form().Die().MinimumPLLVoltage(), 4);
    }
}

TEST(frmQX4860Load, FVariantVCOIsUnboundedUntilTheSearchSetsTheDieRange) {
    QX4860Document doc("QX4860F");
    EXPECT_EQ(doc.Form().PLL().mdblVCOMax, 10000000000.0);
    EXPECT_EQ(doc.Form().PLL().mdblVCOMin, 0);
    doc.Calculate();
    EXPECT_EQ(doc.Form().PLL().mdblVCOMax, 160);
    EXPECT_EQ(doc.Form().PLL().mdblVCOMin, 4);

    QX4860Document plain("QX4860");
    EXPECT_EQ(plain.Form().PLL().mdblVCOMax, 200);
    EXPECT_EQ(plain.Form().PLL().mdblMaxP, 256);
    EXPECT_EQ(plain.Form().PLL().mdblMinP, 5);
    EXPECT_EQ(plain.Form().PLL().mdblMinQ, 2);
}

// ---------------------------------------------------------------- search

// Reference 20 MHz, so the VCO is 40 x P / Q. Row 0 asks 80 MHz: 2 x 80 = 160 is below 200, so
// the row runs at 160 behind the prescaler (P/Q = 4). Row 1 asks 150: 300 is not below 200, so
// it runs at 150 directly (P/Q = 3.75). The largest Q is 20 / 0.15 = 133, held to the die's 128.
// Row 0: exact 12/3; closest below 255/64 (P stops at 256); closest above 253/63.
// Row 1: exact 15/4; closest below 251/67; closest above 244/65.
TEST(frmQX4860Search, PrescaleIsChosenPerRowWithoutSmoothSlew) {
    QX4860Document doc;
    doc.UsePLL();
    frmQX4860& form = doc.Form();
    doc.Type(form.txtPLL[0], "80");
    doc.Type(form.txtPLL[1], "150");
    doc.Calculate();
    EXPECT_TRUE(form.PreScale(0));
    EXPECT_FALSE(form.PreScale(1));
    EXPECT_EQ(Items(form.cboPLLData[0]),
              (std::vector<std::string>{"160.000000 P:12 Q:3", "159.375000 P:255 Q:64",
                                        "160.634921 P:253 Q:63"}));
    EXPECT_EQ(Items(form.cboPLLData[1]),
              (std::vector<std::string>{"150.000000 P:15 Q:4", "149.850746 P:251 Q:67",
                                        "150.153846 P:244 Q:65"}));
    // Clock A is PLL/2: row 0 gives 80 / 2 = 40, from the VCO divided by 2 x 2.
    EXPECT_EQ(form.lblDesiredClkA[0].Caption(), " 40.00000");
    EXPECT_EQ(Items(form.cboActualClkA[0]),
              (std::vector<std::string>{"40.00000    PPM:0", "39.84375    PPM:-3906",
                                        "40.15873    PPM:3968"}));
    EXPECT_EQ(form.cboActualClkA[0].ListIndex(), 0);
    // The reference clock is the PLL itself: row 1 gives 150, beyond the 130 MHz output limit.
    EXPECT_EQ(form.lblDesiredRefClk[1].Caption(), " 150.00000");
    EXPECT_EQ(Items(form.cboActualRefClk[1]),
              (std::vector<std::string>{"150.00000  PPM:0", "149.85075  PPM:-995",
                                        "150.15385  PPM:1026"}));
    EXPECT_EQ(form.lblDesiredRefClk[1].ForeColor(), colors::Red);
    EXPECT_EQ(form.cboActualRefClk[1].ForeColor(), colors::Red);
    EXPECT_EQ(form.cboActualClkA[1].ForeColor(), colors::WindowText);
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    EXPECT_FALSE(doc.app->gblnNeedsCalculate);
}

// With smooth slew the largest Q is 300 x 20 / target, rounded half to even: 37.5 gives 38 for
// row 0 (target 160) and 40 for row 1 (target 150). The prescale still follows each row alone:
// row 0 keeps the prescaler although row 1 cannot have it.
TEST(frmQX4860Search, PrescaleIsChosenPerRowWithSmoothSlew) {
    QX4860Document doc;
    doc.UsePLL();
    frmQX4860& form = doc.Form();
    form.chkSmoothSlew.SetValue(1);
    doc.Type(form.txtPLL[0], "80");
    doc.Type(form.txtPLL[1], "150");
    doc.Calculate();
    EXPECT_TRUE(form.PreScale(0));
    EXPECT_FALSE(form.PreScale(1));
    EXPECT_EQ(Items(form.cboPLLData[0]),
              (std::vector<std::string>{"160.000000 P:12 Q:3", "158.947368 P:151 Q:38",
                                        "161.052632 P:153 Q:38"}));
    EXPECT_EQ(Items(form.cboPLLData[1]),
              (std::vector<std::string>{"150.000000 P:15 Q:4", "149.743590 P:146 Q:39",
                                        "150.270270 P:139 Q:37"}));
}

TEST(frmQX4860Search, HalfTheVCOMaximumItselfRunsWithoutPrescaler) {
    QX4860Document doc;
    doc.UsePLL();
    frmQX4860& form = doc.Form();
    doc.Type(form.txtPLL[0], "100");   // 200 is not below 200
    doc.Type(form.txtPLL[1], "99.9");  // 199.8 is
    doc.Calculate();
    EXPECT_FALSE(form.PreScale(0));
    EXPECT_TRUE(form.PreScale(1));
    // 100 = 40 x 5 / 2 needs Q = 2, which is never tried; 10/4 is the first exact pair.
    EXPECT_EQ(form.cboPLLData[0].List(0), "100.000000 P:10 Q:4");
    // Rows filled from row 0 follow the same rule.
    EXPECT_FALSE(form.PreScale(15));
}

TEST(frmQX4860Search, AllRowsOffChangeNothingAndShowTheNoSolutionEntry) {
    QX4860Document doc;
    doc.UsePLL("PLL", "PLL");
    frmQX4860& form = doc.Form();
    form.FillBlankPLLs();
    for (int i = 0; i < 16; ++i) EXPECT_EQ(form.txtPLL[i].Text(), "Off") << i;
    doc.Calculate();
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(form.txtPLL[i].Text(), "Off") << i;
        EXPECT_EQ(Items(form.cboPLLData[i]), std::vector<std::string>{"0.000000 P:5 Q:2"}) << i;
        EXPECT_EQ(form.lblDesiredClkA[i].Caption(), " Off") << i;
        EXPECT_EQ(Items(form.cboActualClkA[i]), std::vector<std::string>{"Off"}) << i;
    }
}

TEST(frmQX4860Search, BlankRowsTakeTheFirstFrequencyInUse) {
    QX4860Document doc;
    doc.UsePLL();
    frmQX4860& form = doc.Form();
    doc.Type(form.txtPLL[1], "80");
    ASSERT_EQ(form.txtPLL[0].Text(), "Off");
    doc.Calculate();
    for (int i = 0; i < 16; ++i) EXPECT_EQ(form.txtPLL[i].Text(), "80.0") << i;
    EXPECT_EQ(form.cboPLLData[0].List(0), "160.000000 P:12 Q:3");
    EXPECT_EQ(form.cboPLLData[15].List(0), "160.000000 P:12 Q:3");
}

TEST(frmQX4860Search, EightPinFillsOnlyTheFourRowsInUse) {
    QX4860Document doc;
    doc.UsePLL();
    frmQX4860& form = doc.Form();
    form.opt8Pin.SetValue(true);
    doc.Type(form.txtPLL[2], "50");
    doc.Calculate();
    EXPECT_EQ(form.txtPLL[0].Text(), "50.0");
    EXPECT_EQ(form.txtPLL[1].Text(), "50.0");
    EXPECT_EQ(form.txtPLL[3].Text(), "50.0");
    EXPECT_EQ(form.txtPLL[4].Text(), "Off");
    EXPECT_EQ(form.cboPLLData[4].ListCount(), 0);
}

TEST(frmQX4860Search, ReferenceSourcedOutputsShowTheReferenceWithZeroPPM) {
    QX4860Document doc;
    doc.UsePLL("Ref/2", "PLL");
    frmQX4860& form = doc.Form();
    doc.Type(form.txtPLL[0], "80");
    doc.Calculate();
    EXPECT_EQ(form.lblDesiredClkA[0].Caption(), " 10.00000");
    EXPECT_EQ(Items(form.cboActualClkA[0]), std::vector<std::string>{"10.00000    PPM:0"});
    doc.Pick(form.cboClkADiv, "Off");
    doc.Calculate();
    EXPECT_EQ(form.lblDesiredClkA[0].Caption(), " Off");
    EXPECT_EQ(Items(form.cboActualClkA[0]), std::vector<std::string>{"Off"});
}

// ---------------------------------------------------------------- dividers

TEST(frmQX4860Dividers, BothOnReferenceDisableEveryRowAndPLLBringsTheTextsBack) {
    QX4860Document doc;
    doc.UsePLL();
    frmQX4860& form = doc.Form();
    doc.Type(form.txtPLL[0], "80");
    doc.Type(form.txtPLL[3], "66.5");
    doc.Pick(form.cboClkADiv, "Ref");
    EXPECT_TRUE(form.txtPLL[0].Enabled());  // the reference clock still uses the PLL
    doc.Pick(form.cboRefClkDiv, "Ref/2");
    for (int i = 0; i < 16; ++i) {
        EXPECT_FALSE(form.txtPLL[i].Enabled()) << i;
        EXPECT_EQ(form.txtPLL[i].Text(), "Off") << i;
    }
    EXPECT_EQ(form.PLLText(0), "80.0");
    EXPECT_EQ(form.PLLText(3), "66.5");
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
    doc.Pick(form.cboRefClkDiv, "PLL/2");
    for (int i = 0; i < 16; ++i) EXPECT_TRUE(form.txtPLL[i].Enabled()) << i;
    EXPECT_EQ(form.txtPLL[0].Text(), "80.0");
    EXPECT_EQ(form.txtPLL[3].Text(), "66.5");
    EXPECT_EQ(form.txtPLL[1].Text(), "Off");
    // The desired labels follow at once.
    EXPECT_EQ(form.lblDesiredRefClk[0].Caption(), " 40.00000");
    EXPECT_EQ(form.lblDesiredClkA[0].Caption(), " 20.00000");
}

TEST(frmQX4860Dividers, RowsBeyondEightPinKeepTheirTextsThroughAPackageRoundTrip) {
    QX4860Document doc;
    doc.UsePLL();
    frmQX4860& form = doc.Form();
    doc.Type(form.txtPLL[5], "70");
    doc.Pick(form.cboClkADiv, "Ref");
    doc.Pick(form.cboRefClkDiv, "Ref");
    ASSERT_EQ(form.txtPLL[5].Text(), "Off");
    form.opt8Pin.SetValue(true);
    doc.Pick(form.cboClkADiv, "PLL");
    EXPECT_TRUE(form.txtPLL[0].Enabled());
    EXPECT_FALSE(form.txtPLL[5].Enabled());  // not in use in 8 pin
    // Back in 14 pin the rows that come into use follow the dividers at once.
    form.opt14Pin.SetValue(true);
    EXPECT_TRUE(form.txtPLL[5].Enabled());
    EXPECT_EQ(form.txtPLL[5].Text(), "70.0");
    EXPECT_EQ(form.txtPLL[6].Text(), "Off");
    doc.Pick(form.cboClkADiv, "Ref");
    EXPECT_FALSE(form.txtPLL[5].Enabled());
    doc.Pick(form.cboClkADiv, "PLL/3");
    EXPECT_EQ(form.txtPLL[5].Text(), "70.0");
}

// ---------------------------------------------------------------- package

TEST(frmQX4860Package, FourteenToEightAndBackRestoresTheThreeChecks) {
    QX4860Document doc;
    frmQX4860& form = doc.Form();
    form.chkOEClockA.SetValue(0);
    form.chkPowerDown.SetValue(0);
    ASSERT_EQ(form.chkOEReference.Value(), 1);
    form.opt8Pin.SetValue(true);
    EXPECT_EQ(form.PLLCount(), 4);
    EXPECT_EQ(form.chkPowerDown.Value(), 1);
    EXPECT_FALSE(form.chkPowerDown.Enabled());
    EXPECT_EQ(form.chkOEClockA.Value(), 0);
    EXPECT_FALSE(form.chkOEClockA.Enabled());
    EXPECT_EQ(form.chkOEReference.Value(), 0);
    EXPECT_FALSE(form.chkOEReference.Enabled());
    EXPECT_FALSE(form.chkPLLStop.Enabled());
    EXPECT_FALSE(form.chkPLLAndOscillatorStop.Enabled());
    EXPECT_EQ(form.fraFrequencies.Caption(), "PLL/Output Frequencies (FS1..FS0)");
    EXPECT_FALSE(form.vsbOutput.Visible());
    EXPECT_FALSE(form.vsbPLLData.Visible());
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(form.txtPLL[i].Visible());
        EXPECT_EQ(form.lblSelectIndex[i].Caption(), mShared::DisplayBinary(i, 2));
    }
    EXPECT_EQ(form.lblSelectIndex[3].Caption(), "11");
    for (int i = 4; i < 16; ++i) {
        EXPECT_FALSE(form.txtPLL[i].Visible());
        EXPECT_FALSE(form.cboPLLData[i].Visible());
        EXPECT_FALSE(form.cboActualClkA[i].Visible());
    }

    form.opt14Pin.SetValue(true);
    EXPECT_EQ(form.PLLCount(), 16);
    EXPECT_EQ(form.chkOEClockA.Value(), 0);
    EXPECT_EQ(form.chkOEReference.Value(), 1);
    EXPECT_EQ(form.chkPowerDown.Value(), 0);
    EXPECT_TRUE(form.chkOEClockA.Enabled());
    EXPECT_TRUE(form.chkPowerDown.Enabled());
    EXPECT_TRUE(form.txtPLL[15].Visible());
    EXPECT_EQ(form.lblSelectIndex[3].Caption(), "0011");
    EXPECT_TRUE(form.vsbOutput.Visible());
}

TEST(frmQX4860Package, EightPinScrollsBothBarsBackToTheTop) {
    QX4860Document doc;
    frmQX4860& form = doc.Form();
    form.vsbOutput.SetValue(6);
    form.opt8Pin.SetValue(true);
    EXPECT_EQ(form.vsbOutput.Value(), 0);
    EXPECT_EQ(form.vsbPLLData.Value(), 0);
    EXPECT_EQ(form.picOutputDisplay.Top(), 0);
    EXPECT_EQ(form.picOutputDisplay.Height(), 4 * 360);
    form.opt14Pin.SetValue(true);
    EXPECT_EQ(form.picPLLData.Height(), 16 * 360);
}

TEST(frmQX4860Package, PrescaleSizeFollowsThePackage) {
    QX4860Document doc;
    frmQX4860& form = doc.Form();
    form.SetPreScale(2, true);
    form.opt8Pin.SetValue(true);
    EXPECT_TRUE(form.PreScale(2));  // kept across the resize
    const size_t before = doc.platform.Messages().size();
    form.SetPreScale(5, true);
    ASSERT_EQ(doc.platform.Messages().size(), before + 1);
    EXPECT_NE(doc.platform.Messages().back().Text.find("PreScale [Property Let]"),
              std::string::npos);
    form.opt14Pin.SetValue(true);
    form.SetPreScale(15, true);
    EXPECT_TRUE(form.PreScale(15));
    EXPECT_EQ(doc.platform.Messages().size(), before + 1);
}

// ---------------------------------------------------------------- scrolling and lists

TEST(frmQX4860Scrolling, TheTwoBarsMoveTheirPanelsInStep) {
    QX4860Document doc;
    frmQX4860& form = doc.Form();
    EXPECT_EQ(form.vsbOutput.Max(), 12);
    form.vsbOutput.SetValue(5);
    EXPECT_EQ(form.picOutputDisplay.Top(), -1800);
    EXPECT_EQ(form.vsbPLLData.Value(), 5);
    EXPECT_EQ(form.picPLLData.Top(), -1800);
    form.vsbPLLData.SetValue(2);
    EXPECT_EQ(form.vsbOutput.Value(), 2);
    EXPECT_EQ(form.picOutputDisplay.Top(), -720);
    EXPECT_EQ(form.picPLLData.Top(), -720);
}

TEST(frmQX4860Scrolling, AdjustScrollBarFollowsTheClickedRow) {
    QX4860Document doc;
    frmQX4860& form = doc.Form();
    form.vsbPLLData.SetValue(5);
    form.AdjustScrollBar(0);
    EXPECT_EQ(form.vsbPLLData.Value(), 0);
    form.AdjustScrollBar(15);
    EXPECT_EQ(form.vsbPLLData.Value(), 12);
    form.vsbPLLData.SetValue(2);
    form.AdjustScrollBar(6);  // 2 is below 6 - 3
    EXPECT_EQ(form.vsbPLLData.Value(), 3);
    form.AdjustScrollBar(6);  // 3 is not
    EXPECT_EQ(form.vsbPLLData.Value(), 3);
    form.vsbPLLData.SetValue(9);
    form.AdjustScrollBar(7);  // 9 is above 7
    EXPECT_EQ(form.vsbPLLData.Value(), 8);
    EXPECT_EQ(form.vsbOutput.Value(), 8);
}

TEST(frmQX4860Lists, DataAndActualListsStayInStep) {
    QX4860Document doc;
    doc.UsePLL("PLL/2", "Ref");
    frmQX4860& form = doc.Form();
    doc.Type(form.txtPLL[0], "80");
    doc.Calculate();
    form.cboPLLData[0].SetListIndex(1);
    EXPECT_EQ(form.cboActualClkA[0].ListIndex(), 1);
    EXPECT_EQ(form.cboActualRefClk[0].ListIndex(), 0);  // the reference clock is not the PLL's
    form.vsbPLLData.SetValue(6);
    form.cboActualClkA[0].SetListIndex(2);
    EXPECT_EQ(form.cboPLLData[0].ListIndex(), 2);
    EXPECT_EQ(form.vsbPLLData.Value(), 0);  // row 0 scrolled into view
    // The reference clock comes from the reference: its list leaves the PLL data alone.
    form.cboActualRefClk[0].RaiseClick();
    EXPECT_EQ(form.cboPLLData[0].ListIndex(), 2);
}

// ---------------------------------------------------------------- options and inputs

TEST(frmQX4860Options, StopBoxesExcludeEachOtherAndFollowOEReference) {
    QX4860Document doc;
    frmQX4860& form = doc.Form();
    form.chkPLLStop.SetValue(1);
    form.chkPLLAndOscillatorStop.SetValue(1);
    EXPECT_EQ(form.chkPLLStop.Value(), 0);
    form.chkPLLStop.SetValue(1);
    EXPECT_EQ(form.chkPLLAndOscillatorStop.Value(), 0);
    form.chkOEReference.SetValue(0);
    EXPECT_EQ(form.chkPLLStop.Value(), 0);
    EXPECT_FALSE(form.chkPLLStop.Enabled());
    EXPECT_FALSE(form.chkPLLAndOscillatorStop.Enabled());
    EXPECT_FALSE(form.fraOERPDControl.Enabled());
    EXPECT_EQ(form.chkPLLStop.Tag(), "1");
    form.chkOEReference.SetValue(1);
    EXPECT_EQ(form.chkPLLStop.Value(), 1);
    EXPECT_EQ(form.chkPLLAndOscillatorStop.Value(), 0);
    EXPECT_TRUE(form.chkPLLStop.Enabled());
    EXPECT_TRUE(form.fraOERPDControl.Enabled());
}

TEST(frmQX4860Options, SmoothSlewMarksACalculateDue) {
    QX4860Document doc;
    doc.Calculate();
    ASSERT_EQ(doc.Form().cmdCalculate.BackColor(), colors::Grey);
    doc.Form().chkSmoothSlew.SetValue(1);
    EXPECT_EQ(doc.Form().cmdCalculate.BackColor(), colors::Yellow);
    EXPECT_TRUE(doc.app->gblnNeedsCalculate);
}

TEST(frmQX4860Inputs, LeavingAFrequencyNormalisesItWithinTheDieRange) {
    QX4860Document doc;
    doc.UsePLL();
    frmQX4860& form = doc.Form();
    doc.Type(form.txtPLL[2], "0");
    EXPECT_EQ(form.txtPLL[2].Text(), "Off");
    doc.Type(form.txtPLL[2], "250");
    EXPECT_EQ(form.txtPLL[2].Text(), "200.0");
    doc.Type(form.txtPLL[2], "2");
    EXPECT_EQ(form.txtPLL[2].Text(), "4.0");
    EXPECT_EQ(form.txtPLL[2].Tag(), "4.0");
    form.opt3V.SetValue(true);
    doc.Type(form.txtPLL[2], "190");
    EXPECT_EQ(form.txtPLL[2].Text(), "150.0");
}

// ---------------------------------------------------------------- limits

TEST(frmQX4860Limits, FVariantAtFiveVoltsMarksA110OutputRedAndThePlainDeviceDoesNot) {
    for (const char* device : {"QX4860F", "QX4860"}) {
        QX4860Document doc(device);
        doc.UsePLL("PLL", "Ref");
        frmQX4860& form = doc.Form();
        doc.Type(form.txtPLL[0], "110");
        doc.Calculate();
        const bool red = std::string(device) == "QX4860F";
        EXPECT_EQ(form.txtPLL[0].ForeColor(), colors::WindowText) << device;
        EXPECT_EQ(form.lblDesiredClkA[0].Caption(), " 110.00000");
        EXPECT_EQ(form.lblDesiredClkA[0].ForeColor() == colors::Red, red) << device;
        EXPECT_EQ(form.cboActualClkA[0].ForeColor() == colors::Red, red) << device;
    }
}

TEST(frmQX4860Limits, OutputMaximumOfEachDeviceAndVoltage) {
    QX4860Document plain("QX4860");
    EXPECT_EQ(plain.Form().OutputMaximum(), 130);
    plain.Form().opt3V.SetValue(true);
    EXPECT_EQ(plain.Form().OutputMaximum(), 100);
    QX4860Document industrial("QX4860I");
    EXPECT_EQ(industrial.Form().OutputMaximum(), 130);
    industrial.Form().opt3V.SetValue(true);
    EXPECT_EQ(industrial.Form().OutputMaximum(), 100);
    QX4860Document fast("QX4860F");
    EXPECT_EQ(fast.Form().OutputMaximum(), 100);
    fast.Form().opt3V.SetValue(true);
    EXPECT_EQ(fast.Form().OutputMaximum(), 80);
}

TEST(frmQX4860Limits, VoltageDropMarksTheRowAndItsPLLOutputsRed) {
    QX4860Document doc;
    doc.UsePLL("PLL/2", "Ref");
    frmQX4860& form = doc.Form();
    doc.Type(form.txtPLL[0], "190");
    doc.Calculate();
    EXPECT_EQ(form.txtPLL[0].ForeColor(), colors::WindowText);
    form.opt3V.SetValue(true);  // the die's maximum becomes 150
    EXPECT_EQ(form.txtPLL[0].ForeColor(), colors::Red);
    EXPECT_EQ(form.lblDesiredClkA[0].ForeColor(), colors::Red);
    EXPECT_EQ(form.cboActualClkA[0].ForeColor(), colors::Red);
    // The desired label follows the row's colour whatever its source; the reference's actual
    // list does not.
    EXPECT_EQ(form.lblDesiredRefClk[0].ForeColor(), colors::Red);
    EXPECT_NE(form.cboActualRefClk[0].ForeColor(), colors::Red);
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
}

TEST(frmQX4860Limits, AppliedUserLimitsReachTheSearch) {
    QX4860Document doc;
    doc.UsePLL();
    frmQX4860& form = doc.Form();
    doc.Type(form.txtPLL[0], "80");
    // At most Q = 10: the closest pair below 4 is then 39/10.
    doc.Type(form.txtPLLMax[2], "10");
    form.cmdApplyLimits.RaiseClick();
    EXPECT_EQ(form.chkUseDefault.Value(), 0);
    doc.Calculate();
    EXPECT_EQ(Items(form.cboPLLData[0]),
              (std::vector<std::string>{"160.000000 P:12 Q:3", "156.000000 P:39 Q:10",
                                        "164.000000 P:41 Q:10"}));
}

// ---------------------------------------------------------------- hints

TEST(frmQX4860Hints, TheWindowsHintTexts) {
    QX4860Document doc("QX4860I");
    frmQX4860& form = doc.Form();
    frmMain& main = doc.app->Main();
    doc.UsePLL();
    form.SetFocusTo(&form.txtPLL[0]);
    EXPECT_EQ(main.lblHelpInfo.Caption(), " CPLL Range: 4-200MHz at current voltage.");
    form.SetFocusTo(&form.cboClkADiv);
    // The industrial part is allowed 130 MHz at 5 V, yet the hint says 100.
    EXPECT_EQ(main.lblHelpInfo.Caption(), " Output Range: 0.5-100MHz at 5V, 0.5-80MHz at 3.3V");
    form.SetFocusTo(&form.chkSmoothSlew);
    EXPECT_EQ(main.lblHelpInfo.Caption(),
              " Smooth slew: frequency changes smoothly and monotonically.");
    form.SetFocusTo(&form.cboFRef);
    EXPECT_EQ(main.lblHelpInfo.Caption(),
              " Reference Range: 10-25MHz for crystal, 1-30MHz for external clock.");

    QX4860Document plain("QX4860");
    plain.Form().SetFocusTo(&plain.Form().cboRefClkDiv);
    EXPECT_EQ(plain.app->Main().lblHelpInfo.Caption(),
              " Output Range: 0.5-130MHz at 5V, 0.5-100MHz at 3.3V");
}

// ---------------------------------------------------------------- pinout and power

TEST(frmQX4860Pinout, FourteenPinNamesFollowTheChecks) {
    QX4860Document doc;
    frmQX4860& form = doc.Form();
    EXPECT_EQ(form.PinName(0), "14");
    EXPECT_EQ(form.PinName(1), "FS1");
    EXPECT_EQ(form.PinName(6), "PD;__");
    EXPECT_EQ(form.PinName(9), "OER");
    EXPECT_EQ(form.PinName(10), "OEA");
    EXPECT_FALSE(form.picPinout.DisplayList().empty());
    form.chkPowerDown.SetValue(0);
    EXPECT_EQ(form.PinName(6), "OE");
    form.chkOEClockA.SetValue(0);
    EXPECT_EQ(form.PinName(10), "NC");
    form.chkOEReference.SetValue(0);
    EXPECT_EQ(form.PinName(9), "NC");
    EXPECT_EQ(form.Graphics().mintPackage, form.Graphics().SOIC());
}

TEST(frmQX4860Pinout, EightPinNames) {
    QX4860Document doc;
    frmQX4860& form = doc.Form();
    form.opt8Pin.SetValue(true);
    const std::vector<std::string> expected = {"8",   "FS0",  "GND", "XTALIN", "XTALOUT",
                                               "FS1", "CLKA", "VDD", "REFCLK"};
    for (int i = 0; i <= 8; ++i) EXPECT_EQ(form.PinName(i), expected[static_cast<size_t>(i)]);
}

TEST(frmQX4860Power, OneRowPerSelectionWithTheRowsFrequencies) {
    QX4860Document doc;
    doc.UsePLL("PLL/2", "PLL");
    frmQX4860& form = doc.Form();
    doc.Type(form.txtPLL[0], "80");
    doc.Calculate();
    frmPower& power = doc.app->Power();
    EXPECT_EQ(power.ColCount(), 3);
    EXPECT_EQ(power.RowCount(), 16);
    EXPECT_EQ(power.Head(0), "FS3:FS0");
    EXPECT_EQ(power.Head(1), "Typical");
    EXPECT_EQ(power.Head(2), "Worst");
    EXPECT_EQ(power.Unit(1), "mA ");
    EXPECT_EQ(power.Unit(2), "mA");
    EXPECT_EQ(power.Cell(0, 0), "0000 ");
    EXPECT_EQ(power.Cell(9, 0), "1001 ");
    // Row 0: the VCO at 160, Clock A at 40 and the reference clock at 80.
    clsPower4860 model(doc.app->Errors());
    model.SetVDD(5.0);
    model.mdblReferenceFrequency = 20;
    model.mdblFCore = 160;
    model.mdblFClock1 = 40;
    model.mdblFClock2 = 80;
    model.mdblFClock3 = 0;
    EXPECT_EQ(power.Cell(0, 1), GeneralNumber(model.CalculateICC(1)));
    EXPECT_EQ(power.Cell(0, 2), GeneralNumber(model.CalculateICC(0)));
    EXPECT_NE(power.Cell(0, 1), power.Cell(0, 2));

    form.opt8Pin.SetValue(true);
    doc.Calculate();
    EXPECT_EQ(power.RowCount(), 4);
    EXPECT_EQ(power.Head(0), "FS1:FS0");
    EXPECT_EQ(power.Cell(3, 0), "11   ");
}

// ---------------------------------------------------------------- entry file

TEST(frmQX4860EntryFile, SavedDocumentOpensWithTheSameConfiguration) {
    const std::string folder = test::MakeTempDir();
    const std::string path = folder + "/four.ent";
    {
        QX4860Document doc;
        doc.UsePLL("PLL/2", "PLL");
        frmQX4860& form = doc.Form();
        form.opt8Pin.SetValue(true);
        doc.Type(form.txtPLL[0], "80");
        doc.Type(form.txtPLL[1], "150");
        doc.Calculate();
        EXPECT_FALSE(form.Checksum().empty());
        form.MakeEntryFile(path);
        ASSERT_TRUE(std::filesystem::exists(path));
        // The part number of the 8-pin SOIC part.
        EXPECT_NE(test::ReadFile(path).find("# s qx4860sc-"), std::string::npos);
    }
    // A program with no document opens the file, as File, Open does.
    HeadlessPlatform platform;
    Application app(platform);
    app.Main().MDIForm_Load("");
    platform.QueueModal("frmSummary",
                        [](Window& w) { dynamic_cast<frmSummary&>(w).cmdOK_Click(); });
    app.Main().GetFile(path);
    ASSERT_NE(app.Document(), nullptr) << [&] {
        std::string all;
        for (const auto& message : platform.Messages()) all += message.Text + "\n";
        return all;
    }();
    frmQX4860& form = dynamic_cast<frmQX4860&>(*app.Document());
    EXPECT_TRUE(form.opt8Pin.Value());
    EXPECT_EQ(form.txtPLL[0].Text(), "80.0");
    EXPECT_EQ(form.txtPLL[1].Text(), "150.0");
    EXPECT_EQ(form.cboClkADiv.Text(), "PLL/2");
    EXPECT_EQ(form.cboRefClkDiv.Text(), "PLL");
    EXPECT_EQ(Val(form.cboFRef.Text()), 20);
    EXPECT_TRUE(form.PreScale(0));
    EXPECT_FALSE(form.PreScale(1));
    EXPECT_EQ(form.cboPLLData[0].List(0), "160.000000 P:12 Q:3");
}

TEST(frmQX4860EntryFile, ChecksumIsThatOfTheSavedFile) {
    const std::string path = test::MakeTempDir() + "/sum.ent";
    QX4860Document doc;
    doc.UsePLL("PLL/4", "Ref/2");
    frmQX4860& form = doc.Form();
    doc.Type(form.txtPLL[0], "66.6");
    doc.Type(form.txtPLL[7], "125");
    doc.Calculate();
    form.MakeEntryFile(path);
    clsEntryFile read(doc.app->Errors());
    ASSERT_TRUE(mFileAccessor::ReadFile(path, read));
    const std::string expected = mShared::CalculateChecksum(read, "QX4860");
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(form.Checksum(), expected);
    // Another configuration gives another checksum.
    doc.Type(form.txtPLL[7], "124");
    doc.Calculate();
    EXPECT_NE(form.Checksum(), expected);
}

TEST(frmQX4860EntryFile, EPROMVectorIsWrittenFromTheWindow) {
    const std::string path = test::MakeTempDir() + "/four.jed";
    QX4860Document doc;
    doc.UsePLL();
    doc.Type(doc.Form().txtPLL[0], "80");
    doc.Calculate();
    // As Tools, Create EPROM Vector, From New Entry File does: the entry image first.
    ASSERT_TRUE(doc.Form().MakeEntryFile(path + ".ent"));
    ASSERT_TRUE(doc.Form().MakeEPROMVector(path, true)) << doc.Messages();
    ASSERT_TRUE(std::filesystem::exists(path)) << doc.Messages();
    const std::string text = test::ReadFile(path);
    EXPECT_EQ(text.front(), '\x02');
    EXPECT_NE(text.find('\x03'), std::string::npos);
}

TEST(frmQX4860Reference, PickingAReferenceRefreshesTheDesiredLabels) {
    QX4860Document doc;
    frmQX4860& form = doc.Form();
    doc.Pick(form.cboFRef, "25.00000 MHz");
    EXPECT_EQ(form.lblDesiredClkA[0].Caption(), " 25.00000");
    EXPECT_EQ(form.lblDesiredRefClk[15].Caption(), " 25.00000");
    doc.Pick(form.cboRefClkDiv, "Ref/2");
    EXPECT_EQ(form.lblDesiredRefClk[15].Caption(), " 12.50000");
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
}

}  // namespace
}  // namespace pendulon
