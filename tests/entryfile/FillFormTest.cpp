#include <gtest/gtest.h>

#include <memory>

#include "EntryTestSupport.hpp"
#include "FakeForms.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile4860.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using test::Fake4860Form;
using test::Fake6105AForm;

class FillFormTest : public ::testing::Test, public test::AppFixture {
  protected:
    clsEntryFile4860 cls{app};
    clsEntryFile entry{errors};

    void Read(const std::string& golden) {
        ASSERT_TRUE(mFileAccessor::ReadFile(test::DataPath("entry/" + golden), entry));
    }
};

TEST_F(FillFormTest, FourteenPinFileSetsEveryField) {
    Read("QX4860_14_lean.ent");
    Fake4860Form form(app);
    form.opt3V.SetValue(true);
    form.opt8Pin.SetValue(true);
    form.cmdApplyLimits.SetEnabled(false);
    cls.SetForm(form);
    cls.Fill4860Form(entry);

    EXPECT_TRUE(form.opt14Pin.Value());
    EXPECT_FALSE(form.opt8Pin.Value());
    EXPECT_TRUE(form.opt5V.Value());
    EXPECT_FALSE(form.opt3V.Value());
    EXPECT_EQ(form.cboFRef.Text(), "14.31818 MHz");
    EXPECT_EQ(form.chkSmoothSlew.Value(), 1);
    EXPECT_EQ(form.cboClkADiv.ListIndex(), 2);
    EXPECT_EQ(form.cboRefClkDiv.ListIndex(), 0);
    EXPECT_EQ(form.chkOEClockA.Value(), 1);     // field 16 is 2 with field 7 set
    EXPECT_EQ(form.chkOEReference.Value(), 1);  // field 14 is 1 with field 8 clear, 14 pins
    EXPECT_EQ(form.chkPowerDown.Value(), 0);    // field 9 is 1
    EXPECT_EQ(form.chkPLLStop.Value(), 1);
    EXPECT_EQ(form.chkPLLAndOscillatorStop.Value(), 0);

    EXPECT_EQ(form.txtPLL[0].Text(), "100.0");
    EXPECT_FALSE(form.PreScale(0));
    EXPECT_EQ(form.txtPLL[1].Text(), "25.5");  // 51 halved by the prescaler
    EXPECT_TRUE(form.PreScale(1));
    EXPECT_EQ(form.txtPLL[2].Text(), "1000.5");
    EXPECT_EQ(form.txtPLL[4].Text(), "Off");
    EXPECT_EQ(form.cboPLLData[0].Text(), "409.090857 P:100 Q:7");
    // No solution was stored as P 0 and Q 0: the loop shows its minima with a VCO of 0.
    EXPECT_EQ(form.cboPLLData[2].Text(), "0.000000 P:5 Q:2");
    EXPECT_EQ(form.cboPLLData[4].Text(), "0.000000 P:5 Q:2");
    EXPECT_EQ(form.cboPLLData[3].Text(), "392.318132 P:137 Q:10");
    EXPECT_TRUE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.applyLimitsClicks, 1);
    EXPECT_TRUE(form.Visible());
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(FillFormTest, EightPinFileUsesTheOddSelections) {
    Read("QX4860_8_details.ent");
    Fake4860Form form(app);
    form.opt14Pin.SetValue(true);
    cls.SetForm(form);
    cls.Fill4860Form(entry);
    EXPECT_TRUE(form.opt8Pin.Value());
    EXPECT_EQ(form.cboFRef.Text(), "27.00000 MHz");
    EXPECT_EQ(form.txtPLL[0].Text(), "33.333");
    EXPECT_EQ(form.txtPLL[1].Text(), "66.666");
    EXPECT_TRUE(form.PreScale(1));
    EXPECT_EQ(form.txtPLL[2].Text(), "Off");
    EXPECT_EQ(form.txtPLL[3].Text(), "150.0");
    EXPECT_EQ(form.cboPLLData[0].Text(), "133.200000 P:37 Q:15");
    EXPECT_EQ(form.txtPLL[4].Text(), "");       // untouched beyond the four in use
    EXPECT_EQ(form.cboClkADiv.ListIndex(), 8);  // field 16 is 3: off
    EXPECT_EQ(form.cboRefClkDiv.ListIndex(), 1);
    EXPECT_EQ(form.chkPowerDown.Value(), 1);
    EXPECT_EQ(form.chkPLLAndOscillatorStop.Value(), 1);
}

TEST_F(FillFormTest, OlderEightPinFileHoldsOnlyTheFourFrequencies) {
    const std::string dir = test::MakeTempDir();
    std::string text =
        "# s qx4860sc-00\r\n# p 8\r\n# f 10\r\n# f 20\r\n# f 30\r\n# f 40\r\n# f 50\r\n";
    for (int n = 0; n < 18 + 7 * 4; ++n) text += "# i " + std::to_string(n < 18 ? 0 : 1) + "\r\n";
    ASSERT_TRUE(mFileAccessor::ReadFile(test::WriteBytes(dir, "old.ent", text), entry));
    ASSERT_EQ(entry.mintFCount, 5);
    Fake4860Form form(app);
    cls.SetForm(form);
    cls.Fill4860Form(entry);
    EXPECT_EQ(form.txtPLL[0].Text(), "10.0");  // 20 halved: field 1 of selection 0 is set
    EXPECT_EQ(form.txtPLL[3].Text(), "25.0");
    EXPECT_TRUE(form.opt3V.Value());
}

TEST_F(FillFormTest, QX6105AWithFSSetsOutputsAndTwoSelections) {
    Read("QX6105A_FS_details.ent");
    Fake6105AForm form(app);
    form.optOE.SetValue(true);
    cls.SetForm(form);
    cls.Fill6105AForm(entry);
    EXPECT_TRUE(form.opt5V.Value());
    EXPECT_TRUE(form.optFS.Value());
    EXPECT_FALSE(form.optOE.Value());
    EXPECT_EQ(form.cboClkDiv[0].ListIndex(), 1);
    EXPECT_EQ(form.cboClkDiv[1].ListIndex(), 8);
    EXPECT_EQ(form.cboClkDiv[2].ListIndex(), 0);
    EXPECT_EQ(form.txtPLL[0].Text(), "100.0");
    EXPECT_EQ(form.txtPLL[1].Text(), "33.3");
    EXPECT_TRUE(form.PreScale(1));
    EXPECT_EQ(form.cboPLLData[1].Text(), "132.167815 P:60 Q:13");
    EXPECT_EQ(form.chkSmoothSlew.Value(), 1);
    EXPECT_EQ(form.applyLimitsClicks, 1);
}

TEST_F(FillFormTest, QX6105AWithOEUsesSelectionThirteenOnly) {
    Read("QX6105A_OE_lean.ent");
    Fake6105AForm form(app);
    form.opt5V.SetValue(true);
    cls.SetForm(form);
    cls.Fill6105AForm(entry);
    EXPECT_TRUE(form.opt3V.Value());
    EXPECT_TRUE(form.optOE.Value());
    EXPECT_EQ(form.txtPLL[0].Text(), "48.0");
    EXPECT_EQ(form.txtPLL[1].Text(), "");
    EXPECT_EQ(form.cboClkDiv[0].ListIndex(), 0);
    EXPECT_EQ(form.cboClkDiv[1].ListIndex(), 2);
    EXPECT_EQ(form.cboClkDiv[2].ListIndex(), 8);
}

TEST_F(FillFormTest, SaveAfterFillGivesTheSameImage) {
    Read("QX4860_14_lean.ent");
    Fake4860Form form(app);
    cls.SetForm(form);
    cls.Fill4860Form(entry);
    cls.MakeEntryFile();
    // Selection 2 had no solution (P and Q 0); the form shows the loop's minima instead.
    for (int n = 0; n <= 129; ++n) {
        if (n == 18 + 14 + 5 || n == 18 + 14 + 6)
            continue;
        EXPECT_EQ(cls.Entry().i(n), entry.i(n)) << n;
    }
    EXPECT_EQ(cls.Entry().i(18 + 14 + 5), 5);
    EXPECT_EQ(cls.Entry().i(18 + 14 + 6), 2);
    for (int n = 0; n <= 16; ++n) EXPECT_DOUBLE_EQ(cls.Entry().f(n), entry.f(n)) << n;
}

}  // namespace
}  // namespace pendulon
