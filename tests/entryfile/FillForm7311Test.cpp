#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "Cases7311.hpp"
#include "EntryTestSupport.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "entryfile/mFileAccessor.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using test::Fake7311Form;

class FillForm7311Test : public ::testing::Test, public test::AppFixture {
  protected:
    clsEntryFile entry{errors};

    void Read(const std::string& golden) {
        ASSERT_TRUE(mFileAccessor::ReadFile(test::DataPath("entry/" + golden), entry));
    }
    // A fresh window of the device, on the defaults of its lists.
    std::unique_ptr<Fake7311Form> Fresh(const std::string& device) {
        return std::make_unique<Fake7311Form>(app, device);
    }
    // An image of the QX7311 at 5 V, as a starting point for hand-made files.
    void Base() { Read("QX7311_5V_lean.ent"); }
};

TEST_F(FillForm7311Test, ThreeVoltFileSetsEveryField) {
    Read("QX7311F_3V_details.ent");
    auto f = Fresh("QX7311F");
    f->opt5V.SetValue(true);
    f->cmdApplyLimits.SetEnabled(false);
    f->mclsEntryFile.Fill7311Form(entry);

    EXPECT_TRUE(f->opt3V.Value());
    EXPECT_FALSE(f->opt5V.Value());
    EXPECT_EQ(f->cboFRef.Text(), "25.00000 MHz");
    EXPECT_EQ(f->chkShutdown.Value(), 1);
    EXPECT_EQ(f->chkSuspend.Value(), 0);
    const char* rows[8] = {"70.0", "50.0", "40.0", "33.33333", "Off", "Off", "Off", "Off"};
    for (int n = 0; n < 8; ++n) EXPECT_EQ(f->txtCPLL[n].Text(), rows[n]) << n;
    EXPECT_EQ(f->txtSPLL.Text(), "Off");
    EXPECT_EQ(f->txtUPLL.Text(), "24.0");
    EXPECT_EQ(f->cboCPU.Text(), "CPLL");
    EXPECT_EQ(f->cboClk[0].Text(), "UPLL");
    EXPECT_EQ(f->cboClk[1].Text(), "UPLL/2");
    EXPECT_EQ(f->cboClk[2].Text(), "Ref/8");
    EXPECT_EQ(f->cboClk[3].Text(), "Ref/3");  // the same code 2 on CLKD
    EXPECT_EQ(f->cboClkF.Text(), "Off");
    EXPECT_EQ(f->cboXBuff.Text(), "Off");
    EXPECT_EQ(f->chkOffCPLL.Value(), 0);
    // The stored counters, with their VCO at the file's reference.
    EXPECT_EQ(f->cboCPLLData[0].Text(), "140.000000 P:14 Q:5");
    EXPECT_EQ(f->cboCPLLData[3].Text(), "66.666667 P:20 Q:15");
    EXPECT_EQ(f->cboCPLLData[4].Text(), "0.000000 P:5 Q:2");
    EXPECT_EQ(f->cboSPLLData.Text(), "0.000000 P:5 Q:2");
    EXPECT_EQ(f->cboUPLLData.Text(), "48.000000 P:24 Q:25");
    // Then the window shows its actuals and power, applies its limits and is shown.
    EXPECT_EQ(f->actualsCalls, 1);
    EXPECT_EQ(f->powerCalls, 1);
    EXPECT_EQ(f->applyLimitsClicks, 1);
    EXPECT_TRUE(f->cmdApplyLimits.Enabled());
    EXPECT_TRUE(f->Visible());
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(FillForm7311Test, SuspendFileSetsTheSuspendBoxes) {
    Read("QX7312I_Suspend_lean.ent");
    auto f = Fresh("QX7312I");
    f->mclsEntryFile.Fill7311Form(entry);
    EXPECT_TRUE(f->opt3V.Value());
    EXPECT_EQ(f->chkSuspend.Value(), 1);
    EXPECT_EQ(f->chkSuspendUPLL.Value(), 0);
    EXPECT_EQ(f->chkSuspendSPLL.Value(), 1);
    EXPECT_EQ(f->chkSuspendCPLL.Value(), 1);
    EXPECT_EQ(f->chkSusXbuff.Value(), 1);
    EXPECT_EQ(f->chkSusClkF.Value(), 0);
    EXPECT_EQ(f->chkSusCPU.Value(), 1);
    const int clocks[4] = {1, 0, 1, 0};  // CLKA to CLKD from fields 15 down to 12
    for (int k = 0; k < 4; ++k) EXPECT_EQ(f->chkSusClk[k].Value(), clocks[k]) << k;
    for (int n = 0; n < 4; ++n) EXPECT_EQ(f->txtCPLL[n].Text(), "Off") << n;
    EXPECT_EQ(f->txtCPLL[4].Text(), "60.0");
    // Suspended loops keep their frequencies and counters.
    EXPECT_EQ(f->txtSPLL.Text(), "33.33333");
    EXPECT_EQ(f->cboSPLLData.Text(), "66.596186 P:100 Q:43");
    EXPECT_EQ(f->cboClk[0].Text(), "CPLL/2");
    EXPECT_EQ(f->cboClk[1].Text(), "SPLL/5");
    EXPECT_EQ(f->cboClk[2].Text(), "Ref/2");
    EXPECT_EQ(f->cboClk[3].Text(), "UPLL/4");
    EXPECT_EQ(f->cboXBuff.Text(), "Ref");
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(FillForm7311Test, ReferenceNotInTheListIsAdded) {
    Read("QX7312_5V_details.ent");
    auto f = Fresh("QX7312");
    const int before = f->cboFRef.ListCount();
    f->mclsEntryFile.Fill7311Form(entry);
    EXPECT_EQ(f->cboFRef.ListCount(), before + 1);
    EXPECT_EQ(f->cboFRef.Text(), "27.00000 MHz");
    EXPECT_EQ(f->cboClk[0].Text(), "SPLL/12");
    EXPECT_EQ(f->cboClk[1].Text(), "SPLL/13");
    EXPECT_EQ(f->cboClk[3].Text(), "SPLL/104");
    EXPECT_EQ(f->cboCPU.Text(), "CPLL/4");
}

class FillRoundTrip : public FillForm7311Test, public ::testing::WithParamInterface<std::string> {};

TEST_P(FillRoundTrip, SavingTheFilledWindowGivesTheSameImage) {
    Read(GetParam() + "_lean.ent");
    const std::string device = GetParam().substr(0, GetParam().find('_'));
    auto f = Fresh(device);
    f->mclsEntryFile.Fill7311Form(entry);
    f->mclsEntryFile.MakeEntryFile();
    const clsEntryFile& again = f->mclsEntryFile.Entry();
    for (int n = 0; n <= 68; ++n) EXPECT_EQ(again.i(n), entry.i(n)) << "i " << n;
    // The desired outputs are worked out by the window itself, which this one does not do.
    for (int n = 0; n <= 23; ++n) {
        if (n < 11 || n > 15) {
            EXPECT_NEAR(again.f(n), entry.f(n), 1e-9) << "f " << n;
        }
    }
    EXPECT_EQ(again.mstrPartDescription, entry.mstrPartDescription);
    EXPECT_EQ(again.mintMValue, entry.mintMValue);
    EXPECT_EQ(f->mclsEntryFile.CalculateChecksum(again), f->mclsEntryFile.CalculateChecksum(entry));
    EXPECT_TRUE(platform.Messages().empty());
}

INSTANTIATE_TEST_SUITE_P(Cases, FillRoundTrip,
                         ::testing::Values("QX7311_5V", "QX7311F_3V", "QX7312_5V",
                                           "QX7312I_Suspend"));

TEST_F(FillForm7311Test, OlderFileHoldsTheCPUFrequencies) {
    Base();
    entry.mintFCount = 9;
    for (int n = 0; n < 8; ++n) entry.set_f(n + 1, 10 + n);
    for (int n = 0; n < 8; ++n) entry.set_f(n + 16, 0);
    auto f = Fresh("QX7311");
    f->mclsEntryFile.Fill7311Form(entry);
    EXPECT_EQ(f->txtCPLL[0].Text(), "10.0");
    EXPECT_EQ(f->txtCPLL[7].Text(), "17.0");
    entry.mintFCount = 17;
    f->mclsEntryFile.Fill7311Form(entry);
    EXPECT_EQ(f->txtCPLL[0].Text(), "Off");  // the CPLL frequencies of the newer layout
}

TEST_F(FillForm7311Test, WithoutSuspendTheFlagsSwitchOutputsAndLoopsOff) {
    Base();
    entry.set_i(5, 0);
    entry.set_i(6, 1);
    entry.set_i(7, 1);
    entry.set_i(8, 1);
    entry.set_i(9, 1);
    auto f = Fresh("QX7311");
    f->txtUPLL.SetText("12");
    f->mclsEntryFile.Fill7311Form(entry);
    EXPECT_EQ(f->txtSPLL.Text(), "Off");  // although the file holds 48 MHz for it
    EXPECT_EQ(f->txtUPLL.Text(), "Off");
    EXPECT_EQ(f->chkOffCPLL.Value(), 1);
    EXPECT_EQ(f->cboXBuff.Text(), "Off");
    // Both loops flagged off without Suspend show their minima.
    EXPECT_EQ(f->cboSPLLData.Text(), "0.000000 P:5 Q:2");
    EXPECT_EQ(f->cboUPLLData.Text(), "0.000000 P:5 Q:2");
    // With Suspend the same flags are suspend boxes and the loops keep their counters.
    entry.set_i(5, 1);
    auto g = Fresh("QX7311");
    g->mclsEntryFile.Fill7311Form(entry);
    EXPECT_EQ(g->chkSuspendSPLL.Value(), 1);
    EXPECT_EQ(g->txtSPLL.Text(), "48.0");
    EXPECT_EQ(g->cboSPLLData.Text(), "96.016031 P:57 Q:17");
}

TEST_F(FillForm7311Test, SelectionBlocksOffByTheirFirstFields) {
    Base();
    const int b1 = 29 + 5;  // selection 1: shutdown 0, CPU_DLY0 0, index 2: off
    entry.set_i(b1 + 1, 0);
    const int b3 = 29 + 15;  // selection 3: CPU_DLY0 0 and index 0: on
    entry.set_i(b3 + 1, 0);
    entry.set_i(b3 + 2, 0);
    auto f = Fresh("QX7311");
    f->mclsEntryFile.Fill7311Form(entry);
    EXPECT_EQ(f->cboCPLLData[1].Text(), "0.000000 P:5 Q:2");
    EXPECT_EQ(f->cboCPLLData[3].Text(), "149.999981 P:110 Q:21");
    EXPECT_EQ(f->cboCPLLData[2].Text(), "0.000000 P:5 Q:2");  // shutdown set
}

TEST_F(FillForm7311Test, ClockSourceNotInItsListLeavesTheLastEntry) {
    Base();
    entry.set_i(28, 24);  // SPLL/12 stored with the second code
    entry.set_i(25, 2);   // CLKD: Ref/3
    auto f = Fresh("QX7311");
    f->mclsEntryFile.Fill7311Form(entry);
    EXPECT_EQ(f->cboClk[0].Text(), "Off");
    EXPECT_EQ(f->cboClk[3].Text(), "Ref/3");
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(FillForm7311Test, PostDividerOutsideItsListIsReportedAndTheLoadGoesOn) {
    Base();
    entry.set_i(23, 7);
    auto f = Fresh("QX7311");
    f->mclsEntryFile.Fill7311Form(entry);
    ASSERT_EQ(Numbers(), std::vector<long>({380}));
    EXPECT_EQ(Source(0), "clsEntryFile7311.Fill7311Form");
    EXPECT_EQ(f->cboCPU.Text(), "CPLL/2");
    EXPECT_TRUE(f->Visible());
}

TEST_F(FillForm7311Test, OnlyTheSixDevicesAreFilled) {
    Base();
    auto f = Fresh("QX5140");
    f->txtSPLL.SetText("12");
    f->mclsEntryFile.Fill7311Form(entry);
    ASSERT_EQ(Numbers(), std::vector<long>({10301}));
    EXPECT_EQ(Description(0), "Invalid calling device: QX5140");
    EXPECT_EQ(f->txtSPLL.Text(), "12");
    EXPECT_FALSE(f->Visible());
    // And the QX5140's own fill takes no window of the QX7311 family.
    auto g = Fresh("QX7311");
    g->txtSPLL.SetText("12");
    g->mclsEntryFile.Fill5140Form(entry);
    EXPECT_EQ(Numbers().back(), 10301);
    EXPECT_EQ(Description(Numbers().size() - 1), "Invalid calling device: QX7311");
    EXPECT_EQ(g->txtSPLL.Text(), "12");
    EXPECT_FALSE(g->mclsEntryFile.FormShown());
}

TEST_F(FillForm7311Test, OpeningAFileOfTheFamilyRoutesItToItsWindow) {
    std::vector<std::string> created;
    app.ConfiguratorFactory = [&created](Application& a, const std::string& device) {
        created.push_back(device);
        return std::unique_ptr<Configurator>(std::make_unique<Fake7311Form>(a, device));
    };
    Read("QX7312I_Suspend_details.ent");
    const std::string path = "/designs/board.ent";
    EXPECT_TRUE(mFileAccessor::FillForm(app, entry, path));
    EXPECT_EQ(created, std::vector<std::string>({"QX7312I"}));
    auto* doc = dynamic_cast<Fake7311Form*>(app.Document());
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(doc->Device(), "QX7312I");
    EXPECT_TRUE(app.DeviceForm().optQX7312I.Value());
    EXPECT_EQ(doc->txtFilePath.Text(), path);
    EXPECT_EQ(doc->chkSuspend.Value(), 1);
    EXPECT_EQ(doc->txtCPLL[7].Text(), "30.0");
    // No 10054: the only message is the note on PPM values.
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_NE(platform.Messages()[0].Text.find("NOTE: PPM values are optimized upon loading."),
              std::string::npos);
}

}  // namespace
}  // namespace pendulon
