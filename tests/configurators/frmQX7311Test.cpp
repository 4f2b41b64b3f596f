#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "configurators/frmQX7311TestSupport.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/cls7311Die.hpp"
#include "core/clsPLL.hpp"
#include "core/mShared.hpp"
#include "platform/Color.hpp"
#include "power/frmPower.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {
namespace {

using testing::QX7311Document;

std::string Row(const char* name, int i) {
    return std::string(name) + "(" + std::to_string(i) + ")";
}

// A frequency as a leaving field writes it.
std::string Short(double value) {
    return mShared::FormatFrequencyShort(value);
}

// P and Q of a PLL data string "212.500000 P:125 Q:3", read by hand.
struct PQ {
    double vco;
    int p;
    int q;
};
PQ ParseData(const std::string& text) {
    PQ result{};
    result.vco = std::stod(text);
    result.p = std::stoi(text.substr(text.find("P:") + 2));
    result.q = std::stoi(text.substr(text.find("Q:") + 2));
    return result;
}

// ---------------------------------------------------------------- load and fields

TEST(frmQX7311Load, RegistersEveryFieldTheFilesAndReportsReachByName) {
    QX7311Document doc;
    const Window& form = doc.Form();
    for (const char* name :
         {"lblDevice",      "opt7311",         "opt7312",        "opt5V",         "opt3V",
          "cboFRef",        "txtFRefMin",      "txtFRefMax",     "chkSuspend",    "chkShutdown",
          "chkOffCPLL",     "chkSuspendCPLL",  "txtSPLL",        "txtUPLL",       "cboSPLL",
          "cboUPLL",        "chkSuspendSPLL",  "chkSuspendUPLL", "cboSPLLData",   "cboUPLLData",
          "lblPllData",     "cboCPU",          "cboClkF",        "cboXBuff",      "lblDesiredCPU",
          "lblDesiredClkF", "lblDesiredXBuff", "lblDesired32K",  "lbl32k",        "lblClkF",
          "lblXBuff",       "lblCPU",          "cboActualCPU",   "cboActualClkF", "cboActualXBuff",
          "chkSusCPU",      "chkSusClkF",      "chkSusXbuff",    "pic7311Only",   "chkUseDefault",
          "cmdApplyLimits", "cmdCalculate",    "txtFilePath",    "picPinout",     "picPower",
          "picDebugWindow"}) {
        EXPECT_NE(form.Fields().Find(name), nullptr) << name;
    }
    for (int i = 0; i < 8; ++i) {
        for (const char* name : {"txtCPLL", "cboCPLL", "lblSelect", "cboCPLLData", "lblCPLLData"}) {
            EXPECT_NE(form.Fields().Find(Row(name, i)), nullptr) << Row(name, i);
        }
    }
    for (int i = 0; i < 4; ++i) {
        for (const char* name :
             {"cboClk", "lblDesiredClk", "cboActualClk", "chkSusClk", "lblClk"}) {
            EXPECT_NE(form.Fields().Find(Row(name, i)), nullptr) << Row(name, i);
        }
    }
    for (int i = 0; i < 9; ++i) {
        EXPECT_NE(form.Fields().FindAs<TextField>(Row("txtPLLMin", i)), nullptr);
        EXPECT_NE(form.Fields().FindAs<TextField>(Row("txtPLLMax", i)), nullptr);
    }
    EXPECT_NE(form.Fields().FindAs<CheckBox>("chkSusClk(2)"), nullptr);
    EXPECT_NE(form.Fields().FindAs<ListField>("cboCPLLData(7)"), nullptr);
    EXPECT_NE(form.Fields().FindAs<Label>("lblDesiredClk(3)"), nullptr);
    EXPECT_NE(form.Fields().FindAs<OptionButton>("opt5V"), nullptr);
}

TEST(frmQX7311Load, StartsWithItsDefaults) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    EXPECT_EQ(form.lblDevice.Caption(), "QX7311");
    EXPECT_TRUE(form.opt7311.Value());
    EXPECT_TRUE(form.opt5V.Value());
    EXPECT_EQ(form.Die().mdblVoltage, 5.0);
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(form.txtCPLL[i].Text(), "Off");
        EXPECT_EQ(form.txtCPLL[i].Tag(), "Off");
        EXPECT_EQ(form.lblCPLLData[i].Caption(), "CPLL[" + std::to_string(i) + "]");
        EXPECT_TRUE(form.cboCPLLData[i].Visible());
        EXPECT_EQ(form.lblSelect[i].Caption(), mShared::ConvertDecimalToBinary(i, 3));
    }
    EXPECT_EQ(form.lblSelect[5].Caption(), "101");
    EXPECT_EQ(form.txtSPLL.Text(), "Off");
    EXPECT_EQ(form.txtUPLL.Text(), "Off");
    EXPECT_EQ(form.chkOffCPLL.Caption(), "Off");
    EXPECT_FALSE(form.chkSuspendCPLL.Enabled());
    EXPECT_FALSE(form.chkSusCPU.Enabled());
    for (int i = 0; i < 4; ++i) EXPECT_FALSE(form.chkSusClk[i].Enabled());
    EXPECT_EQ(form.lblDesired32K.Caption(), " 32.768 kHz");
    EXPECT_EQ(form.cmdCalculate.Caption(), "C&alculate");
    EXPECT_EQ(form.chkUseDefault.Value(), 1);
    EXPECT_TRUE(form.pic7311Only.Visible());
    EXPECT_EQ(form.cboCPU.Text(), "CPLL");
    EXPECT_EQ(form.cboClk[0].Text(), "Ref");
    EXPECT_EQ(form.cboClkF.Text(), "SPLL/2");
    EXPECT_EQ(form.cboXBuff.Text(), "Ref");
    // The load's voltage step applies the limits and calculates.
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    EXPECT_FALSE(doc.app->gblnNeedsCalculate);
    EXPECT_EQ(doc.app->Errors().Count(), 0) << doc.Messages();
}

TEST(frmQX7311Load, TheDeviceSelectionOffersAllSixDevices) {
    QX7311Document doc;
    for (const char* device : {"QX7311", "QX7311F", "QX7311I", "QX7312", "QX7312F", "QX7312I"})
        EXPECT_TRUE(doc.app->DeviceForm().OptionFor(device)->Enabled()) << device;
}

TEST(frmQX7311Load, EachVariantGetsItsLoopLimits) {
    struct Case {
        const char* device;
        double max3V;
        double max5V;
    };
    for (const Case c : {Case{"QX7311", 80, 100}, Case{"QX7312", 80, 100},
                         Case{"QX7311F", 66.66667, 90}, Case{"QX7312F", 66.66667, 90},
                         Case{"QX7311I", 66.66667, 90}, Case{"QX7312I", 66.66667, 90}}) {
        QX7311Document doc(c.device);
        cls7311Die& die = doc.Form().Die();
        EXPECT_EQ(die.mdblDefaultPLLMinimum3V, 8) << c.device;
        EXPECT_EQ(die.mdblDefaultPLLMaximum3V, c.max3V) << c.device;
        EXPECT_EQ(die.mdblDefaultPLLMinimum5V, 8) << c.device;
        EXPECT_EQ(die.mdblDefaultPLLMaximum5V, c.max5V) << c.device;
        EXPECT_EQ(doc.Form().CPLLMaximum(), c.max5V);
        EXPECT_EQ(doc.Form().SPLLMaximum(), c.max5V);
        EXPECT_EQ(doc.Form().UPLLMaximum(), c.max5V);
        doc.Form().opt3V.SetValue(true);
        EXPECT_EQ(doc.Form().CPLLMaximum(), c.max3V);
        EXPECT_EQ(doc.Form().UPLLMinimum(), 8);
    }
}

TEST(frmQX7311Load, OnlyTheFastVariantsSearchWithoutAVCOBound) {
    for (const char* device : {"QX7311F", "QX7312F"}) {
        QX7311Document doc(device);
        for (clsPLL* pll : {&doc.Form().CPLL(), &doc.Form().SPLL(), &doc.Form().UPLL()}) {
            EXPECT_EQ(pll->mdblVCOMax, 10000000000.0) << device;
            EXPECT_EQ(pll->mdblVCOMin, 0) << device;
        }
    }
    for (const char* device : {"QX7311", "QX7311I", "QX7312", "QX7312I"}) {
        QX7311Document doc(device);
        const double max5 = std::string(device).size() == 6 ? 100 : 90;
        for (clsPLL* pll : {&doc.Form().CPLL(), &doc.Form().SPLL(), &doc.Form().UPLL()}) {
            EXPECT_EQ(pll->mdblVCOMax, 2 * max5) << device;
            EXPECT_EQ(pll->mdblVCOMin, 16) << device;
        }
        doc.Form().opt3V.SetValue(true);
        const double max3 = std::string(device).size() == 6 ? 80 : 66.66667;
        EXPECT_EQ(doc.Form().SPLL().mdblVCOMax, 2 * max3) << device;
    }
}

TEST(frmQX7311Load, CountersComeFromTheDieFieldsOfTheVoltage) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    cls7311Die& die = form.Die();
    form.opt3V.SetValue(true);
    die.mdblUPLLMaxP3V = 700;
    die.mdblUPLLMaxP5V = 900;
    die.mdblCPLLMinQ3V = 3;
    form.InitializeAllPLLClasses();
    EXPECT_EQ(form.UPLL().mdblMaxP, 700);
    EXPECT_EQ(form.CPLL().mdblMinQ, 3);
    form.Die().mdblVoltage = 5.0;
    form.InitializeAllPLLClasses();
    EXPECT_EQ(form.UPLL().mdblMaxP, 900);
    EXPECT_EQ(form.CPLL().mdblMinQ, die.mdblCPLLMinQ5V);
}

// ---------------------------------------------------------------- device and model

TEST(frmQX7311Device, AnInvalidDeviceIsRefusedWithItsErrorAndChangesNothing) {
    QX7311Document doc;
    doc.Form().SetDevice("QX4860");
    EXPECT_EQ(doc.app->Errors().LastNumber(), 10352);
    EXPECT_NE(doc.Messages().find("Invalid device: QX4860"), std::string::npos);
    EXPECT_EQ(doc.Form().lblDevice.Caption(), "QX7311");
    EXPECT_TRUE(doc.Form().opt7311.Value());
}

// The window with its load steps reachable, to give its die a device of another family.
class OpenQX7311 : public frmQX7311 {
  public:
    using frmQX7311::frmQX7311;
    using frmQX7311::InitializeDieClass;
};

TEST(frmQX7311Device, TheDieRefusesADeviceOfAnotherFamily) {
    QX7311Document doc;
    OpenQX7311 other(*doc.app);
    other.lblDevice.SetCaption("QX5140");
    const double before = other.Die().mdblDefaultPLLMaximum5V;
    other.InitializeDieClass();
    EXPECT_EQ(doc.app->Errors().LastNumber(), 10351);
    EXPECT_NE(doc.Messages().find("Invalid device: QX5140"), std::string::npos);
    EXPECT_NE(doc.Messages().find("(frmQX7311) InitializeDieClass"), std::string::npos);
    EXPECT_EQ(other.Die().mdblDefaultPLLMaximum5V, before);
}

TEST(frmQX7311Device, TheModelOptionsSwapTheFamilyKeepingTheVariant) {
    QX7311Document doc("QX7311F");
    frmQX7311& form = doc.Form();
    form.opt7312.SetValue(true);
    EXPECT_EQ(form.lblDevice.Caption(), "QX7312F");
    EXPECT_EQ(form.Device(), "QX7312F");
    EXPECT_TRUE(doc.app->DeviceForm().OptionFor("QX7312F")->Value());
    form.opt7311.SetValue(true);
    EXPECT_EQ(form.Device(), "QX7311F");
    QX7311Document industrial("QX7312I");
    industrial.Form().opt7311.SetValue(true);
    EXPECT_EQ(industrial.Form().Device(), "QX7311I");
    QX7311Document plain("QX7311");
    plain.Form().opt7312.SetValue(true);
    EXPECT_EQ(plain.Form().Device(), "QX7312");
    EXPECT_TRUE(plain.Form().opt7312.Value());
}

TEST(frmQX7311Device, TheQX7312LosesCLKFAndKeepsItOffWhenSwitchedBack) {
    QX7311Document doc("QX7311");
    frmQX7311& form = doc.Form();
    QX7311Document::Pick(form.cboClkF, "SPLL/3");
    form.opt7312.SetValue(true);
    EXPECT_FALSE(form.pic7311Only.Visible());
    EXPECT_EQ(form.cboClkF.Text(), "Off");
    form.opt7311.SetValue(true);
    EXPECT_TRUE(form.pic7311Only.Visible());
    EXPECT_EQ(form.cboClkF.Text(), "Off");
}

TEST(frmQX7311Device, ANewQX7312StartsWithCLKFOffAndItsOwnPinout) {
    QX7311Document doc("QX7312I");
    EXPECT_FALSE(doc.Form().pic7311Only.Visible());
    EXPECT_EQ(doc.Form().cboClkF.Text(), "Off");
    EXPECT_EQ(doc.Form().PinName(0), "16");
    QX7311Document big("QX7311I");
    EXPECT_EQ(big.Form().PinName(0), "20");
}

// ---------------------------------------------------------------- calculate due

TEST(frmQX7311Calculate, EveryInputThatCanChangeAResultMarksACalculateDue) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    auto expectDue = [&](const char* what, auto&& change) {
        doc.Calculate();
        ASSERT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
        change();
        EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow) << what;
        EXPECT_TRUE(doc.app->gblnNeedsCalculate) << what;
    };
    expectDue("cboClk(3)", [&] { QX7311Document::Pick(form.cboClk[3], "Ref/3"); });
    expectDue("cboCPU", [&] { QX7311Document::Pick(form.cboCPU, "CPLL/2"); });
    expectDue("cboClk", [&] { QX7311Document::Pick(form.cboClk[2], "UPLL/4"); });
    expectDue("cboClkF", [&] { QX7311Document::Pick(form.cboClkF, "SPLL/4"); });
    expectDue("cboXBuff", [&] { QX7311Document::Pick(form.cboXBuff, "Off"); });
    expectDue("cboFRef", [&] { QX7311Document::Pick(form.cboFRef, "20.00000 MHz"); });
    expectDue("chkSuspend", [&] { form.chkSuspend.SetValue(1); });
    expectDue("chkSuspendCPLL", [&] { form.chkSuspendCPLL.SetValue(1); });
    expectDue("chkOffCPLL", [&] { form.chkOffCPLL.SetValue(1); });
    expectDue("chkShutdown", [&] { form.chkShutdown.SetValue(1); });
    expectDue("txtSPLL", [&] { form.txtSPLL.SetText("48"); });
    expectDue("txtUPLL", [&] { form.txtUPLL.SetText("24"); });
    expectDue("txtCPLL", [&] { form.txtCPLL[6].SetText("50"); });
    expectDue("voltage", [&] {
        // The voltage change ends in a Calculate: watch the button turn yellow on the way.
        bool sawYellow = false;
        form.cmdCalculate.AddObserver([&](Field& f) {
            if (f.BackColor() == colors::Yellow)
                sawYellow = true;
        });
        form.opt3V.SetValue(true);
        EXPECT_TRUE(sawYellow);
        // ...and ends calculated.
        EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
        form.cmdCalculate.SetBackColor(colors::Yellow);
        doc.app->gblnNeedsCalculate = true;
    });
}

TEST(frmQX7311Calculate, ChoosingAnotherSolutionDoesNotMarkACalculateDue) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    doc.Type(form.txtSPLL, "48");
    QX7311Document::Pick(form.cboClk[1], "SPLL/2");
    doc.Calculate();
    ASSERT_GE(form.cboActualClk[1].ListCount(), 2);
    form.cboActualClk[1].SetListIndex(1);
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
}

// ---------------------------------------------------------------- search

TEST(frmQX7311Calculate, EachLoopIsSearchedWithItsOwnBoundsAndTheCPLLRatioRule) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    const double targets[8] = {66.66, 100, 33.3, 75, 50, 60, 83.3, 40};
    for (int i = 0; i < 8; ++i) doc.Type(form.txtCPLL[i], GeneralNumber(targets[i]));
    doc.Type(form.txtSPLL, "48");
    doc.Type(form.txtUPLL, "24.576");
    doc.Calculate();
    const double reference = 14.31818;
    // SPLL and UPLL: VCO = 2 x reference x P / Q near twice the target, Q keeps F/Q >= 0.15.
    for (auto [list, target, maxP, maxQ] : {std::tuple{&form.cboSPLLData, 48.0, 258, 65},
                                            std::tuple{&form.cboUPLLData, 24.576, 1026, 95}}) {
        const PQ pq = ParseData(list->List(0));
        EXPECT_NEAR(pq.vco, 2 * reference * pq.p / pq.q, 1e-5);
        EXPECT_LT(std::fabs(pq.vco / (2 * target) - 1), 200e-6) << list->List(0);
        EXPECT_LE(pq.p, maxP);
        EXPECT_GE(pq.q, 2);
        EXPECT_LE(pq.q, maxQ);
    }
    // 14.31818 / 0.15 rounds to 95: the UPLL's 129 is narrowed, the SPLL's 65 stands.
    EXPECT_EQ(form.UPLL().mdblMaxQ, 95);
    EXPECT_EQ(form.SPLL().mdblMaxQ, 65);
    for (int i = 0; i < 8; ++i) {
        for (int k = 0; k < form.cboCPLLData[i].ListCount(); ++k) {
            const PQ pq = ParseData(form.cboCPLLData[i].List(k));
            EXPECT_GT(static_cast<double>(pq.p) / pq.q, 1.3) << i;
            EXPECT_NEAR(pq.vco, 2 * reference * pq.p / pq.q, 1e-5);
            EXPECT_LE(pq.q, 65);
        }
        const PQ best = ParseData(form.cboCPLLData[i].List(0));
        // The narrowed Q of far-apart rows costs accuracy, but never a solution.
        EXPECT_LT(std::fabs(best.vco / (2 * targets[i]) - 1), 5000e-6) << i;
        // The actual list shows the loop output, half the VCO, with its PPM.
        EXPECT_NEAR(Val(form.cboCPLL[i].List(0)), best.vco / 2, 1e-5);
        EXPECT_NE(form.cboCPLL[i].List(0).find("PPM:"), std::string::npos);
    }
}

TEST(frmQX7311Calculate, TheCPLLQBoundFollowsTheSpreadOfTheOtherRows) {
    // Rows far apart narrow the CPLL's Q: 3927 x F / 14.31818 / D with D the largest distance.
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    doc.Type(form.txtCPLL[0], "10");
    doc.Type(form.txtCPLL[1], "100");
    doc.Calculate();
    // D = |2 x 100 - 2 x 10| = 180 for row 0: 3927 / 180 = 21.8 rounds to 22.
    for (int k = 0; k < form.cboCPLLData[0].ListCount(); ++k)
        EXPECT_LE(ParseData(form.cboCPLLData[0].List(k)).q, 22) << form.cboCPLLData[0].List(k);
}

TEST(frmQX7311Calculate, ALoopAtOffHasNoSolutionAndDoesNotStopCalculate) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    doc.Type(form.txtCPLL[0], "50");
    doc.Calculate();
    EXPECT_EQ(form.cboSPLLData.ListCount(), 1);
    EXPECT_EQ(ParseData(form.cboSPLLData.List(0)).vco, 0);
    EXPECT_EQ(ParseData(form.cboCPLLData[3].List(0)).vco, 0);
    EXPECT_EQ(form.cboCPLL[3].Text(), "Off");
    EXPECT_EQ(form.cboSPLL.Text(), "Off");
    EXPECT_GT(ParseData(form.cboCPLLData[0].List(0)).vco, 0);
    EXPECT_EQ(doc.app->Errors().Count(), 0) << doc.Messages();
}

TEST(frmQX7311Calculate, TheFastVariantSearchesAFrequencyAboveItsTableAndOnlyColoursIt) {
    QX7311Document doc("QX7311F");
    frmQX7311& form = doc.Form();
    form.opt3V.SetValue(true);
    // As a file puts it there: no leaving of the field clamps it.
    form.txtCPLL[2].SetText("85");
    form.CheckPLLLimits();
    EXPECT_EQ(form.txtCPLL[2].ForeColor(), colors::Red);
    doc.Calculate();
    const PQ pq = ParseData(form.cboCPLLData[2].List(0));
    EXPECT_LT(std::fabs(pq.vco / 170 - 1), 1000e-6) << form.cboCPLLData[2].List(0);
    // The industrial part has the same table but bounds its VCO.
    QX7311Document industrial("QX7311I");
    industrial.Form().opt3V.SetValue(true);
    industrial.Form().txtCPLL[2].SetText("85");
    industrial.Calculate();
    EXPECT_EQ(ParseData(industrial.Form().cboCPLLData[2].List(0)).vco, 0);
}

TEST(frmQX7311Calculate, CheckPLLLimitsColoursEveryLoopOutsideTheDieRange) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    form.txtSPLL.SetText("120");
    form.txtUPLL.SetText("7");
    form.txtCPLL[4].SetText("50");
    form.txtCPLL[5].SetText("101");
    form.CheckPLLLimits();
    EXPECT_EQ(form.txtSPLL.ForeColor(), colors::Red);
    EXPECT_EQ(form.txtUPLL.ForeColor(), colors::Red);
    EXPECT_EQ(form.txtCPLL[4].ForeColor(), colors::WindowText);
    EXPECT_EQ(form.txtCPLL[5].ForeColor(), colors::Red);
    EXPECT_EQ(form.txtCPLL[0].ForeColor(), colors::WindowText);
}

// ---------------------------------------------------------------- leaving fields

TEST(frmQX7311Fields, LeavingAFrequencyFieldNormalisesIt) {
    QX7311Document doc("QX7311F");
    frmQX7311& form = doc.Form();
    doc.Type(form.txtCPLL[2], "0");
    EXPECT_EQ(form.txtCPLL[2].Text(), "Off");
    form.opt3V.SetValue(true);
    doc.Type(form.txtCPLL[2], "200");
    EXPECT_EQ(form.txtCPLL[2].Text(), "66.66667");
    EXPECT_EQ(form.txtCPLL[2].Tag(), "66.66667");
    doc.Type(form.txtSPLL, "3");
    EXPECT_EQ(form.txtSPLL.Text(), "8.0");
    doc.Type(form.txtUPLL, "  ");
    EXPECT_EQ(form.txtUPLL.Text(), "Off");
    doc.Type(form.txtUPLL, " 24.5760 ");
    EXPECT_EQ(form.txtUPLL.Text(), mShared::FormatFrequencyShort(24.576));
    EXPECT_EQ(form.txtUPLL.ForeColor(), colors::WindowText);
    EXPECT_EQ(form.txtUPLL.SelLength(), 0);
}

TEST(frmQX7311Fields, LeavingSPLLBringsEveryDesiredLabelUpToDate) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    QX7311Document::Pick(form.cboClk[0], "SPLL/4");
    QX7311Document::Pick(form.cboClk[1], "UPLL/2");
    doc.Type(form.txtSPLL, "48");
    doc.Type(form.txtUPLL, "24");
    EXPECT_EQ(form.lblDesiredClk[0].Caption(), " 12.00000");
    EXPECT_EQ(form.lblDesiredClk[1].Caption(), " 12.00000");
    EXPECT_EQ(form.lblDesiredClkF.Caption(), " 24.00000");
}

TEST(frmQX7311Fields, TheReferenceIsKeptInsideItsLimitsAndFeedsTheDesiredValues) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    QX7311Document::Pick(form.cboClk[1], "Ref/2");
    form.SetFocusTo(&form.cboFRef);
    EXPECT_EQ(Trim(doc.app->Main().lblHelpInfo.Caption()),
              "Reference Range: 10-25MHz for crystal, 1-30MHz for external clock.");
    form.cboFRef.SetText("40");
    form.SetFocusTo(nullptr);
    EXPECT_EQ(Val(form.cboFRef.Text()), 30);
    EXPECT_EQ(form.lblDesiredClk[1].Caption(), " 15.00000");
    EXPECT_EQ(Trim(doc.app->Main().lblHelpInfo.Caption()), "");
    form.SetFocusTo(&form.cboFRef);
    form.cboFRef.SetText("0.2");
    form.SetFocusTo(nullptr);
    EXPECT_EQ(Val(form.cboFRef.Text()), 1);
    EXPECT_EQ(form.lblDesiredClk[1].Caption(), " 0.50000");
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
}

TEST(frmQX7311Fields, LimitFieldsAreNormalisedOnLeaving) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    doc.Type(form.txtPLLMin[1], "0.3");
    EXPECT_EQ(form.txtPLLMin[1].Text(), "1");
    doc.Type(form.txtPLLMin[0], "0.3");
    EXPECT_EQ(form.txtPLLMin[0].Text(), "0.5");
    doc.Type(form.txtPLLMax[4], form.txtPLLMin[4].Text());
    EXPECT_EQ(form.txtPLLMax[4].Text(), form.txtPLLMin[4].Text());
    doc.Type(form.txtPLLMax[4], "3");
    EXPECT_EQ(form.txtPLLMax[4].Text(), form.txtPLLMin[4].Text());
    doc.Type(form.txtPLLMin[2], "2.5");
    EXPECT_EQ(form.txtPLLMin[2].Text(), "2");
    doc.Type(form.txtPLLMin[3], "9000");
    EXPECT_EQ(form.txtPLLMin[3].Text(), form.txtPLLMax[3].Text());
    EXPECT_TRUE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.cmdApplyLimits.BackColor(), colors::Yellow);
}

TEST(frmQX7311Fields, ApplyingLimitsTypedBackToTheDefaultsSetsUseDefault) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    doc.Type(form.txtPLLMax[0], "90");
    form.cmdApplyLimits.RaiseClick();
    EXPECT_EQ(form.chkUseDefault.Value(), 0);
    EXPECT_EQ(form.Die().MaximumCPLLVoltage(), 90);
    EXPECT_FALSE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.cmdApplyLimits.BackColor(), colors::Grey);
    // Apply ends in a Calculate.
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    doc.Type(form.txtPLLMax[0], "100");
    form.cmdApplyLimits.RaiseClick();
    EXPECT_EQ(form.chkUseDefault.Value(), 1);
    EXPECT_EQ(form.Die().MaximumCPLLVoltage(), 100);
}

TEST(frmQX7311Fields, UseDefaultRemembersEachVoltageAndBringsBackTheDefaults) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    doc.Type(form.txtPLLMax[6], "95");
    form.cmdApplyLimits.RaiseClick();
    EXPECT_FALSE(form.mblnUseDefaults5V);
    form.opt3V.SetValue(true);
    EXPECT_EQ(form.txtPLLMax[6].Text(), "80.0");
    EXPECT_TRUE(form.mblnUseDefaults3V);
    form.opt5V.SetValue(true);
    EXPECT_EQ(form.txtPLLMax[6].Text(), "95.0");
    form.chkUseDefault.SetValue(1);
    EXPECT_TRUE(form.mblnUseDefaults5V);
    EXPECT_EQ(form.txtPLLMax[6].Text(), "100.0");
    EXPECT_EQ(form.cmdApplyLimits.BackColor(), colors::Yellow);
}

TEST(frmQX7311Fields, FieldsGiveTheirHintsAndClearThemOnLeaving) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    auto hintOf = [&](Field& field) {
        form.SetFocusTo(&field);
        const std::string hint = Trim(doc.app->Main().lblHelpInfo.Caption());
        form.SetFocusTo(nullptr);
        return hint;
    };
    EXPECT_EQ(hintOf(form.cboFRef),
              "Reference Range: 10-25MHz for crystal, 1-30MHz for external clock.");
    EXPECT_EQ(hintOf(form.cboClk[3]), "Notice CLKD only: option Ref/8 is replaced with Ref/3.");
    EXPECT_EQ(hintOf(form.cboClk[2]), "");
    EXPECT_EQ(hintOf(form.chkSuspend),
              "Note: Suspending a PLL automatically suspends its outputs.");
    EXPECT_EQ(hintOf(form.txtCPLL[1]), "CPLL Range: 8-100MHz at current voltage.");
    EXPECT_EQ(hintOf(form.txtSPLL), "SPLL Range: 8-100MHz at current voltage.");
    form.opt3V.SetValue(true);
    EXPECT_EQ(hintOf(form.txtUPLL), "UPLL Range: 8-80MHz at current voltage.");
    EXPECT_EQ(hintOf(form.txtPLLMin[4]),
              "Minimum PLL frequency is 0.5MHz; minimum P is 1; minimum Q is 1.");
    EXPECT_EQ(hintOf(form.txtPLLMax[4]), "There are no maximums to PLL frequency, P or Q.");
    form.SetFocusTo(&form.txtSPLL);
    EXPECT_EQ(form.txtSPLL.SelLength(), 3);
    form.SetFocusTo(nullptr);
    EXPECT_EQ(Trim(doc.app->Main().lblHelpInfo.Caption()), "");
}

TEST(frmQX7311Fields, NumberFieldsTakeOnlyTheKeysOfANumber) {
    QX7311Document doc;
    int letter = 'x';
    doc.Form().txtCPLL[0].RaiseKeyPress(letter);
    EXPECT_EQ(letter, 0);
    int digit = '7';
    doc.Form().txtPLLMax[2].RaiseKeyPress(digit);
    EXPECT_EQ(digit, '7');
}

// ---------------------------------------------------------------- output lists

TEST(frmQX7311Outputs, EachOutputOffersItsSourcesAndDivisors) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    EXPECT_EQ(QX7311Document::Items(form.cboCPU),
              (std::vector<std::string>{"CPLL", "CPLL/2", "CPLL/4", "Off"}));
    EXPECT_EQ(QX7311Document::Items(form.cboClkF),
              (std::vector<std::string>{"SPLL/2", "SPLL/3", "SPLL/4", "Off"}));
    EXPECT_EQ(QX7311Document::Items(form.cboXBuff), (std::vector<std::string>{"Ref", "Off"}));
    const std::vector<std::string> clock = {
        "Ref",     "Ref/2",   "Ref/4",   "Ref/8",   "CPLL",    "CPLL/2",   "CPLL/4",  "CPLL/8",
        "UPLL",    "UPLL/2",  "UPLL/4",  "UPLL/8",  "SPLL",    "SPLL/2",   "SPLL/3",  "SPLL/4",
        "SPLL/5",  "SPLL/6",  "SPLL/8",  "SPLL/10", "SPLL/12", "SPLL/13",  "SPLL/20", "SPLL/24",
        "SPLL/26", "SPLL/40", "SPLL/48", "SPLL/52", "SPLL/96", "SPLL/104", "Off"};
    for (int i = 0; i < 3; ++i) EXPECT_EQ(QX7311Document::Items(form.cboClk[i]), clock) << i;
    std::vector<std::string> clockD = clock;
    clockD[3] = "Ref/3";
    EXPECT_EQ(QX7311Document::Items(form.cboClk[3]), clockD);
    for (ListField* list : {&form.cboCPU, &form.cboClk[0], &form.cboClk[3], &form.cboClkF})
        EXPECT_EQ(list->ListIndex(), 0);
}

TEST(frmQX7311Outputs, TheReferenceDividersOfCLKDAndCLKAShowTheirDesiredValues) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    form.cboClk[3].SetListIndex(3);
    form.cboClk[0].SetListIndex(3);
    EXPECT_EQ(form.cboClk[3].Text(), "Ref/3");
    EXPECT_EQ(form.lblDesiredClk[3].Caption(), " 4.77273");
    EXPECT_EQ(form.cboClk[0].Text(), "Ref/8");
    EXPECT_EQ(form.lblDesiredClk[0].Caption(), " 1.78977");
    doc.Calculate();
    EXPECT_EQ(form.cboActualClk[3].Text(), "4.77273");
    EXPECT_EQ(form.cboActualClk[0].Text(), "1.78977");
}

TEST(frmQX7311Outputs, ACPLLSourceShowsItsNameAsDesiredAndActualInEveryRow) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    for (int i = 0; i < 8; ++i) doc.Type(form.txtCPLL[i], IntegerText(30 + 5 * i));
    for (int i = 0; i < 4; ++i) QX7311Document::Pick(form.cboClk[i], "CPLL/2");
    QX7311Document::Pick(form.cboCPU, "CPLL/4");
    doc.Calculate();
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(form.lblDesiredClk[i].Caption(), " CPLL/2");
        EXPECT_EQ(QX7311Document::Items(form.cboActualClk[i]),
                  (std::vector<std::string>{"CPLL/2"}));
    }
    EXPECT_EQ(form.lblDesiredCPU.Caption(), " CPLL/4");
    EXPECT_EQ(form.cboActualCPU.Text(), "CPLL/4");
}

TEST(frmQX7311Outputs, DesiredValuesFollowTheSourceLoopAndOffIsShownAsOff) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    QX7311Document::Pick(form.cboClk[2], "SPLL/13");
    EXPECT_EQ(form.lblDesiredClk[2].Caption(), " 0.00000");
    doc.Type(form.txtSPLL, "52");
    EXPECT_EQ(form.lblDesiredClk[2].Caption(), " 4.00000");
    QX7311Document::Pick(form.cboClk[2], "Off");
    EXPECT_EQ(form.lblDesiredClk[2].Caption(), " Off");
    QX7311Document::Pick(form.cboXBuff, "Off");
    EXPECT_EQ(form.lblDesiredXBuff.Caption(), " Off");
    doc.Calculate();
    EXPECT_EQ(form.cboActualXBuff.Text(), "Off");
    EXPECT_EQ(form.cboActualClk[2].Text(), "Off");
    QX7311Document::Pick(form.cboXBuff, "Ref");
    EXPECT_EQ(form.lblDesiredXBuff.Caption(), " 14.31818");
    QX7311Document::Pick(form.cboFRef, "20.00000 MHz");
    EXPECT_EQ(form.lblDesiredXBuff.Caption(), " 20.00000");
    doc.Calculate();
    EXPECT_EQ(form.cboActualXBuff.Text(), "20.00000");
}

TEST(frmQX7311Outputs, ALoopOutOfRangePaintsEveryOutputItFeeds) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    form.txtUPLL.SetText("120");
    form.CheckPLLLimits();
    QX7311Document::Pick(form.cboClk[1], "UPLL/4");
    EXPECT_EQ(form.lblDesiredClk[1].ForeColor(), colors::Red);
    EXPECT_EQ(form.cboClk[1].ForeColor(), colors::Red);
    QX7311Document::Pick(form.cboClk[1], "Ref/2");
    EXPECT_EQ(form.lblDesiredClk[1].ForeColor(), colors::WindowText);
    EXPECT_EQ(form.cboClk[1].ForeColor(), colors::WindowText);
    form.txtSPLL.SetText("7");
    form.CheckPLLLimits();
    QX7311Document::Pick(form.cboClkF, "SPLL/3");
    EXPECT_EQ(form.lblDesiredClkF.ForeColor(), colors::Red);
    EXPECT_EQ(form.cboClkF.ForeColor(), colors::Red);
}

TEST(frmQX7311Outputs, ActualValuesOfSPLLOutputsAreTheLoopsSolutionsDivided) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    doc.Type(form.txtSPLL, "48");
    QX7311Document::Pick(form.cboClk[0], "SPLL/6");
    QX7311Document::Pick(form.cboClkF, "SPLL/4");
    doc.Calculate();
    ASSERT_EQ(form.cboActualClk[0].ListCount(), form.cboSPLL.ListCount());
    for (int k = 0; k < form.cboSPLL.ListCount(); ++k) {
        // The loop's actual list holds half the VCO; the outputs divide what it shows.
        const double loop = ParseData(form.cboSPLLData.List(k)).vco / 2;
        EXPECT_EQ(form.cboSPLL.List(k).substr(0, 8), mShared::FormatFrequencyFixed(loop));
        const double shown = Val(form.cboSPLL.List(k));
        EXPECT_EQ(form.cboActualClk[0].List(k), mShared::FormatFrequencyFixed(shown / 6));
        EXPECT_EQ(form.cboActualClkF.List(k), mShared::FormatFrequencyFixed(shown / 4));
    }
    // With the loop at Off the output reads Off.
    doc.Type(form.txtSPLL, "Off");
    doc.Calculate();
    EXPECT_EQ(QX7311Document::Items(form.cboActualClk[0]), (std::vector<std::string>{"Off"}));
    EXPECT_EQ(QX7311Document::Items(form.cboActualClkF), (std::vector<std::string>{"Off"}));
}

TEST(frmQX7311Outputs, ASecondSolutionOnOneOutputMovesTheLoopAndEveryOutputOnIt) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    doc.Type(form.txtSPLL, "47.3");
    QX7311Document::Pick(form.cboClk[0], "SPLL/4");
    QX7311Document::Pick(form.cboClk[1], "SPLL/2");
    QX7311Document::Pick(form.cboClk[2], "SPLL");
    QX7311Document::Pick(form.cboClk[3], "Ref");
    QX7311Document::Pick(form.cboClkF, "SPLL/3");
    doc.Calculate();
    ASSERT_GE(form.cboSPLLData.ListCount(), 2) << "the case needs two solutions";
    form.cboActualClk[1].SetListIndex(1);
    EXPECT_EQ(form.cboSPLL.ListIndex(), 1);
    EXPECT_EQ(form.cboSPLLData.ListIndex(), 1);
    EXPECT_EQ(form.cboActualClk[0].ListIndex(), 1);
    EXPECT_EQ(form.cboActualClk[2].ListIndex(), 1);
    EXPECT_EQ(form.cboActualClkF.ListIndex(), 1);
    EXPECT_EQ(form.cboActualClk[3].ListIndex(), 0);
    // And back through the data list.
    form.cboSPLLData.SetListIndex(0);
    EXPECT_EQ(form.cboSPLL.ListIndex(), 0);
    EXPECT_EQ(form.cboActualClk[1].ListIndex(), 0);
    EXPECT_EQ(form.cboActualClkF.ListIndex(), 0);
}

TEST(frmQX7311Outputs, UPLLAndCPLLListsStayInStepWithTheirDataLists) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    doc.Type(form.txtUPLL, "47.3");
    doc.Type(form.txtCPLL[5], "47.3");
    QX7311Document::Pick(form.cboClk[2], "UPLL/8");
    doc.Calculate();
    ASSERT_GE(form.cboUPLLData.ListCount(), 2);
    form.cboActualClk[2].SetListIndex(1);
    EXPECT_EQ(form.cboUPLL.ListIndex(), 1);
    EXPECT_EQ(form.cboUPLLData.ListIndex(), 1);
    ASSERT_GE(form.cboCPLLData[5].ListCount(), 2);
    form.cboCPLL[5].SetListIndex(1);
    EXPECT_EQ(form.cboCPLLData[5].ListIndex(), 1);
    form.cboCPLLData[5].SetListIndex(0);
    EXPECT_EQ(form.cboCPLL[5].ListIndex(), 0);
}

TEST(frmQX7311Outputs, MatchListIndexLeavesAShorterTargetAlone) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    ListField shortList;
    shortList.AddItem("a");
    shortList.SetListIndex(0);
    ListField longList;
    for (const char* item : {"a", "b", "c"}) longList.AddItem(item);
    longList.SetListIndex(2);
    form.MatchListIndex(shortList, longList);
    EXPECT_EQ(shortList.ListIndex(), 0);
    form.MatchListIndex(longList, shortList);
    EXPECT_EQ(longList.ListIndex(), 0);
}

TEST(frmQX7311Outputs, AnActualListOfALoopOutOfRangeTakesTheLoopsColour) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    form.txtSPLL.SetText("120");
    QX7311Document::Pick(form.cboClk[0], "SPLL/4");
    form.CheckPLLLimits();
    doc.Calculate();
    EXPECT_EQ(form.txtSPLL.ForeColor(), colors::Red);
    form.cboSPLL.RaiseClick();
    EXPECT_EQ(form.cboSPLL.ForeColor(), colors::Red);
    form.cboActualClk[0].RaiseClick();
    EXPECT_EQ(form.cboActualClk[0].ForeColor(), colors::Red);
    EXPECT_EQ(form.lblDesiredClk[0].ForeColor(), colors::Red);
}

// ---------------------------------------------------------------- suspend

TEST(frmQX7311Suspend, XBUFOffersOffOnlyWithoutSuspend) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    QX7311Document::Pick(form.cboXBuff, "Off");
    EXPECT_FALSE(form.chkSusXbuff.Enabled());
    bool enabledWhileOff = false;
    form.chkSusXbuff.AddObserver([&](Field& box) {
        if (box.Enabled() && form.cboXBuff.Text() == "Off")
            enabledWhileOff = true;
    });
    form.chkSuspend.SetValue(1);
    EXPECT_EQ(QX7311Document::Items(form.cboXBuff), (std::vector<std::string>{"Ref"}));
    EXPECT_EQ(form.cboXBuff.Text(), "Ref");
    EXPECT_TRUE(form.chkSusXbuff.Enabled());
    EXPECT_FALSE(enabledWhileOff);
    form.chkSuspend.SetValue(0);
    EXPECT_EQ(QX7311Document::Items(form.cboXBuff), (std::vector<std::string>{"Ref", "Off"}));
    EXPECT_FALSE(form.chkSusXbuff.Enabled());
}

TEST(frmQX7311Suspend, SuspendEnablesTheBoxesOfEveryOutputInUseAndKeepsTheirValues) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    QX7311Document::Pick(form.cboClk[2], "Off");
    doc.Type(form.txtSPLL, "48");
    form.chkSuspend.SetValue(1);
    EXPECT_TRUE(form.chkSusCPU.Enabled());
    EXPECT_TRUE(form.chkSusClk[0].Enabled());
    EXPECT_FALSE(form.chkSusClk[2].Enabled());
    EXPECT_TRUE(form.chkSusClkF.Enabled());
    EXPECT_TRUE(form.chkSuspendSPLL.Enabled());
    EXPECT_FALSE(form.chkSuspendUPLL.Enabled());
    EXPECT_TRUE(form.chkSuspendCPLL.Enabled());
    form.chkSusClk[0].SetValue(1);
    form.chkSuspendSPLL.SetValue(1);
    form.chkSuspend.SetValue(0);
    EXPECT_FALSE(form.chkSusClk[0].Enabled());
    EXPECT_EQ(form.chkSusClk[0].Value(), 1);
    EXPECT_EQ(form.SavedCheck(form.chkSusClk[0]), 1);
    form.chkSusClk[0].SetValue(0);
    form.chkSuspend.SetValue(1);
    EXPECT_EQ(form.chkSusClk[0].Value(), 1);
    EXPECT_EQ(form.chkSuspendSPLL.Value(), 1);
    // An output turned Off loses its box; a source brings it back.
    QX7311Document::Pick(form.cboClk[0], "Off");
    EXPECT_FALSE(form.chkSusClk[0].Enabled());
    QX7311Document::Pick(form.cboClk[0], "Ref/2");
    EXPECT_TRUE(form.chkSusClk[0].Enabled());
    EXPECT_EQ(form.chkSusClk[0].Value(), 1);
    // Typing a loop frequency under SUSPEND enables the loop's box.
    form.txtUPLL.SetText("24");
    EXPECT_TRUE(form.chkSuspendUPLL.Enabled());
    doc.Type(form.txtUPLL, "Off");
    EXPECT_FALSE(form.chkSuspendUPLL.Enabled());
}

TEST(frmQX7311Suspend, SuspendingTheCPLLLocksTheLowRowsAndGivesTheirTextsBack) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    for (int i = 0; i < 8; ++i)
        if (i != 1)
            doc.Type(form.txtCPLL[i], Short(20 + 10 * i));
    form.chkSuspend.SetValue(1);
    form.chkSuspendCPLL.SetValue(1);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(form.txtCPLL[i].Text(), "Off") << i;
        EXPECT_FALSE(form.txtCPLL[i].Enabled()) << i;
        EXPECT_EQ(form.CPLLTurnedOff(i), i != 1) << i;
    }
    for (int i = 4; i < 8; ++i) {
        EXPECT_EQ(form.txtCPLL[i].Text(), Short(20 + 10 * i)) << i;
        EXPECT_TRUE(form.txtCPLL[i].Enabled()) << i;
    }
    // An edit elsewhere does not take the locked rows' Off into their memory.
    doc.Type(form.txtSPLL, "48");
    form.chkSuspend.SetValue(0);
    EXPECT_EQ(form.txtCPLL[0].Text(), Short(20));
    EXPECT_EQ(form.txtCPLL[2].Text(), Short(40));
    EXPECT_EQ(form.txtCPLL[3].Text(), Short(50));
    EXPECT_EQ(form.txtCPLL[1].Text(), "Off");
    for (int i = 0; i < 8; ++i) EXPECT_TRUE(form.txtCPLL[i].Enabled());
    EXPECT_FALSE(form.chkSuspendCPLL.Enabled());
    EXPECT_EQ(form.chkSuspendCPLL.Value(), 1);
    // Setting SUSPEND again with the saved CPLL box locks the low rows once more.
    form.chkSuspend.SetValue(1);
    EXPECT_TRUE(form.chkSuspendCPLL.Enabled());
    EXPECT_EQ(form.txtCPLL[0].Text(), "Off");
    EXPECT_FALSE(form.txtCPLL[0].Enabled());
    form.chkSuspendCPLL.SetValue(0);
    EXPECT_EQ(form.txtCPLL[0].Text(), Short(20));
    EXPECT_TRUE(form.txtCPLL[0].Enabled());
}

TEST(frmQX7311Suspend, TheSuspendedRowsShowNoDesiredFrequency) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    doc.Type(form.txtCPLL[4], "60");
    form.chkSuspend.SetValue(1);
    form.chkSuspendCPLL.SetValue(1);
    doc.Calculate();
    EXPECT_EQ(form.cboCPLL[0].Text(), "Off");
    EXPECT_NE(form.cboCPLL[4].Text().find("PPM:"), std::string::npos);
}

TEST(frmQX7311Suspend, OffTurnsEveryRowOffAndDisablesTheCPLLBoxKeepingItsValue) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    for (int i = 0; i < 8; ++i) doc.Type(form.txtCPLL[i], Short(20 + 10 * i));
    form.chkSuspend.SetValue(1);
    form.chkSuspendCPLL.SetValue(1);
    form.chkOffCPLL.SetValue(1);
    EXPECT_FALSE(form.chkSuspendCPLL.Enabled());
    EXPECT_EQ(form.chkSuspendCPLL.Value(), 1);
    EXPECT_EQ(form.SavedCheck(form.chkSuspendCPLL), 1);
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(form.txtCPLL[i].Text(), "Off") << i;
        EXPECT_FALSE(form.txtCPLL[i].Enabled()) << i;
    }
    // Clearing Off gives the box back with its value; the low rows stay suspended.
    form.chkOffCPLL.SetValue(0);
    EXPECT_TRUE(form.chkSuspendCPLL.Enabled());
    EXPECT_EQ(form.chkSuspendCPLL.Value(), 1);
    for (int i = 4; i < 8; ++i) EXPECT_EQ(form.txtCPLL[i].Text(), Short(20 + 10 * i));
    EXPECT_EQ(form.txtCPLL[0].Text(), "Off");
    EXPECT_FALSE(form.txtCPLL[0].Enabled());
}

TEST(frmQX7311Suspend, OffWithoutSuspendTurnsAllRowsOffAndBackOn) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    for (int i = 0; i < 8; ++i) doc.Type(form.txtCPLL[i], Short(20 + 10 * i));
    doc.Type(form.txtCPLL[6], "Off");
    form.chkOffCPLL.SetValue(1);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(form.txtCPLL[i].Text(), "Off");
    // Suspend set while Off is on changes no row.
    form.chkSuspend.SetValue(1);
    for (int i = 0; i < 8; ++i) EXPECT_FALSE(form.txtCPLL[i].Enabled());
    EXPECT_FALSE(form.chkSuspendCPLL.Enabled());
    form.chkSuspend.SetValue(0);
    form.chkOffCPLL.SetValue(0);
    for (int i = 0; i < 8; ++i) {
        EXPECT_TRUE(form.txtCPLL[i].Enabled());
        EXPECT_EQ(form.txtCPLL[i].Text(), i == 6 ? "Off" : Short(20 + 10 * i));
    }
}

TEST(frmQX7311Suspend, OffWithTheCPLLBoxClearTurnsTheLowRowsOffToo) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    for (int i = 0; i < 8; ++i) doc.Type(form.txtCPLL[i], Short(20 + 10 * i));
    form.chkSuspend.SetValue(1);
    EXPECT_TRUE(form.chkSuspendCPLL.Enabled());
    form.chkOffCPLL.SetValue(1);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(form.txtCPLL[i].Text(), "Off");
    form.chkOffCPLL.SetValue(0);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(form.txtCPLL[i].Text(), Short(20 + 10 * i));
}

TEST(frmQX7311Suspend, ThePinoutFollowsSuspendAndShutdown) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    auto pins = [&] {
        std::string all;
        for (int i = 1; i <= 20; ++i) all += form.PinName(i) + " ";
        return all;
    };
    const std::string select = pins();
    form.chkSuspend.SetValue(1);
    const std::string suspend = pins();
    EXPECT_NE(select, suspend);
    EXPECT_NE(suspend.find("SUSPEND"), std::string::npos) << suspend;
    form.chkShutdown.SetValue(1);
    const std::string shutdown = pins();
    EXPECT_NE(shutdown, suspend);
    EXPECT_FALSE(form.picPinout.DisplayList().empty());
}

// ---------------------------------------------------------------- power

TEST(frmQX7311Power, RowsFollowTheModelWorkedOutByHand) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    // Only the reference outputs at 5 V: four clocks on Ref, XBUF on Ref, CPU and CLKF Off.
    QX7311Document::Pick(form.cboCPU, "Off");
    QX7311Document::Pick(form.cboClkF, "Off");
    QX7311Document::Pick(form.cboFRef, "20.00000 MHz");
    doc.Calculate();
    // S = 4 x 20 + 20 = 100 MHz; I = 2.6 + 0.0017 x C x S; typical x 5.0 at 18 pF, worst x 5.5
    // at 30 pF.
    const double typical = (2.6 + 18 * 0.0017 * 100) * 5.0;
    const double worst = (2.6 + 30 * 0.0017 * 100) * 5.5;
    frmPower& power = doc.app->Power();
    EXPECT_EQ(power.RowCount(), 8);
    EXPECT_EQ(power.ColCount(), 3);
    EXPECT_EQ(power.Head(0), "S2:S0 ");
    EXPECT_EQ(power.Head(1), "Typical");
    EXPECT_EQ(power.Head(2), " Worst ");
    EXPECT_EQ(power.Unit(1), "mA ");
    EXPECT_EQ(power.Unit(2), "mA ");
    for (int r = 0; r < 8; ++r) {
        EXPECT_EQ(power.Cell(r, 0),
                  std::string(" ").append(mShared::ConvertDecimalToBinary(r, 3)).append(" "));
        EXPECT_NEAR(Val(power.Cell(r, 1)), typical, 1e-9);
        EXPECT_NEAR(Val(power.Cell(r, 2)), worst, 1e-9);
    }
    EXPECT_EQ(power.Cell(2, 0), " 010 ");
}

TEST(frmQX7311Power, CPLLRowsAndTheirCPUAndClocksAddToTheCurrent) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    form.opt3V.SetValue(true);
    doc.Type(form.txtCPLL[0], "40");
    doc.Type(form.txtCPLL[1], "60");
    QX7311Document::Pick(form.cboCPU, "CPLL/2");
    for (int k = 0; k < 4; ++k) QX7311Document::Pick(form.cboClk[k], "Off");
    QX7311Document::Pick(form.cboClk[1], "CPLL/4");
    QX7311Document::Pick(form.cboClkF, "Off");
    QX7311Document::Pick(form.cboXBuff, "Off");
    doc.Calculate();
    frmPower& power = doc.app->Power();
    for (int r = 0; r < 2; ++r) {
        const double cpll = ParseData(form.cboCPLLData[r].Text()).vco / 2;
        // PLL slope 0.0002 per MHz; CPU = CPLL / 2 and CLKB = CPLL / 4 on the load slope.
        const double base = 1.8 + 0.0002 * cpll;
        const double outputs = cpll / 2 + cpll / 4;
        EXPECT_NEAR(Val(power.Cell(r, 1)), (base + 18 * 0.00112 * outputs) * 3.3, 1e-9) << r;
        EXPECT_NEAR(Val(power.Cell(r, 2)), (base + 30 * 0.00112 * outputs) * 4.0, 1e-9) << r;
    }
    // A row at Off runs no loop and no CPLL output: the chip idles.
    EXPECT_NEAR(Val(power.Cell(2, 1)), 1.8 * 3.3, 1e-9);
    EXPECT_NEAR(Val(power.Cell(7, 2)), 1.8 * 4.0, 1e-9);
    // A CPU at Off adds nothing: only the loop and CLKB remain.
    QX7311Document::Pick(form.cboCPU, "Off");
    doc.Calculate();
    const double cpll0 = ParseData(form.cboCPLLData[0].Text()).vco / 2;
    EXPECT_NEAR(Val(power.Cell(0, 1)), (1.8 + 0.0002 * cpll0 + 18 * 0.00112 * (cpll0 / 4)) * 3.3,
                1e-9);
}

TEST(frmQX7311Power, SuspendedLowRowsDrawLessThanTheHighRowsOfTheSameFrequencies) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    for (int i = 0; i < 8; ++i) doc.Type(form.txtCPLL[i], "66.6");
    doc.Type(form.txtSPLL, "48");
    doc.Type(form.txtUPLL, "24");
    QX7311Document::Pick(form.cboClk[0], "SPLL/2");
    QX7311Document::Pick(form.cboClk[1], "UPLL");
    QX7311Document::Pick(form.cboClk[2], "CPLL/2");
    form.chkSuspend.SetValue(1);
    form.chkSuspendCPLL.SetValue(1);
    doc.Calculate();
    frmPower& power = doc.app->Power();
    for (int r = 0; r < 4; ++r) {
        EXPECT_LT(Val(power.Cell(r, 1)), Val(power.Cell(r + 4, 1))) << r;
        EXPECT_LT(Val(power.Cell(r, 2)), Val(power.Cell(r + 4, 2))) << r;
    }
    // Suspending the other loops too takes their current and that of their outputs.
    const double before = Val(power.Cell(0, 1));
    form.chkSuspendSPLL.SetValue(1);
    form.chkSuspendUPLL.SetValue(1);
    form.chkSusXbuff.SetValue(1);
    form.chkSusClk[3].SetValue(1);
    doc.Calculate();
    // Everything stops in rows 0 to 3: the chip idles.
    EXPECT_NEAR(Val(power.Cell(0, 1)), 2.6 * 5.0, 1e-9);
    EXPECT_NEAR(Val(power.Cell(3, 2)), 2.6 * 5.5, 1e-9);
    EXPECT_LT(Val(power.Cell(0, 1)), before);
}

TEST(frmQX7311Power, TheWorstColumnExceedsTheTypicalInEveryRow) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    for (int i = 0; i < 8; ++i) doc.Type(form.txtCPLL[i], IntegerText(10 + 11 * i));
    doc.Type(form.txtSPLL, "52");
    for (const bool low : {false, true}) {
        if (low)
            form.opt3V.SetValue(true);
        doc.Calculate();
        for (int r = 0; r < 8; ++r)
            EXPECT_GT(Val(doc.app->Power().Cell(r, 2)), Val(doc.app->Power().Cell(r, 1))) << r;
    }
}

TEST(frmQX7311Power, TheFootnoteNamesTheSupplyAndLoadOfTheVoltage) {
    QX7311Document doc;
    frmQX7311& form = doc.Form();
    doc.Calculate();
    EXPECT_EQ(doc.app->Power().lblFootnote.Caption(),
              "Typical: 5.0V 18pF Load\r\n   Worst: 5.5V 30pF Load");
    form.opt3V.SetValue(true);
    EXPECT_EQ(doc.app->Power().lblFootnote.Caption(),
              "Typical: 3.3V 18pF Load\r\n   Worst: 3.6V 30pF Load");
    EXPECT_FALSE(form.picPower.DisplayList().empty());
}

}  // namespace
}  // namespace pendulon
