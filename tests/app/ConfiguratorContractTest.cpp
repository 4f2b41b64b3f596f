#include <gtest/gtest.h>

#include "configurators/QX6105ATestSupport.hpp"
#include "core/cls4860Die.hpp"
#include "core/clsReference.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {
namespace {

using testing::QX6105ADocument;

TEST(ConfiguratorLoad, DeviceComesFromTheDeviceWindowWhichRemembersIt) {
    QX6105ADocument doc("QX6105AF");
    EXPECT_EQ(doc.Form().Device(), "QX6105AF");
    EXPECT_EQ(doc.app->DeviceForm().mstrPreviousDevice, "QX6105AF");
    EXPECT_TRUE(doc.app->DeviceForm().optQX6105AF.Value());
}

TEST(ConfiguratorLoad, WindowSitsInTheTopLeftCorner) {
    QX6105ADocument doc;
    EXPECT_EQ(doc.Form().Left(), 0);
    EXPECT_EQ(doc.Form().Top(), 0);
}

TEST(ConfiguratorLoad, UseDefaultFlagsAreSetForBothVoltages) {
    QX6105ADocument doc;
    EXPECT_TRUE(doc.Form().mblnUseDefaults3V);
    EXPECT_TRUE(doc.Form().mblnUseDefaults5V);
}

TEST(ConfiguratorLimits, EditingALimitTurnsApplyYellowAndEnablesIt) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    doc.Type(form.txtPLLMax[0], "180");
    EXPECT_TRUE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.cmdApplyLimits.BackColor(), colors::Yellow);
    form.cmdApplyLimits_Click();
    EXPECT_FALSE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.cmdApplyLimits.BackColor(), colors::Grey);
    EXPECT_EQ(form.chkUseDefault.Value(), 0);
    EXPECT_DOUBLE_EQ(form.Die().MaximumPLLVoltage(), 180);
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
}

TEST(ConfiguratorLimits, ApplyWithLimitsEqualToTheDefaultsSetsUseDefault) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    doc.Type(form.txtPLLMax[1], "200");
    form.cmdApplyLimits_Click();
    ASSERT_EQ(form.chkUseDefault.Value(), 0);
    EXPECT_FALSE(form.mblnUseDefaults5V);
    doc.Type(form.txtPLLMax[1], "256");
    form.cmdApplyLimits_Click();
    EXPECT_EQ(form.chkUseDefault.Value(), 1);
    EXPECT_TRUE(form.mblnUseDefaults5V);
}

TEST(ConfiguratorLimits, SwitchingTheVoltageAndBackShowsEachVoltagesOwnLimits) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    doc.Type(form.txtPLLMax[0], "180");
    doc.Type(form.txtPLLMax[2], "100");
    form.cmdApplyLimits_Click();
    form.opt3V.SetValue(true);
    EXPECT_EQ(form.txtPLLMax[0].Text(), "150.0");
    EXPECT_EQ(form.txtPLLMax[2].Text(), "128");
    EXPECT_EQ(form.chkUseDefault.Value(), 1);
    doc.Type(form.txtPLLMin[0], "10");
    form.cmdApplyLimits_Click();
    form.opt5V.SetValue(true);
    EXPECT_EQ(form.txtPLLMax[0].Text(), "180.0");
    EXPECT_EQ(form.txtPLLMax[2].Text(), "100");
    EXPECT_EQ(form.txtPLLMin[0].Text(), "4.0");
    EXPECT_EQ(form.chkUseDefault.Value(), 0);
    form.opt3V.SetValue(true);
    EXPECT_EQ(form.txtPLLMin[0].Text(), "10.0");
    EXPECT_EQ(form.txtPLLMax[0].Text(), "150.0");
}

TEST(ConfiguratorLimits, UseDefaultBringsTheDefaultsBack) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    doc.Type(form.txtPLLMax[0], "180");
    form.cmdApplyLimits_Click();
    form.chkUseDefault.SetValue(1);
    EXPECT_EQ(form.txtPLLMax[0].Text(), "200.0");
    EXPECT_TRUE(form.cmdApplyLimits.Enabled());
    EXPECT_EQ(form.cmdApplyLimits.BackColor(), colors::Yellow);
    form.cmdApplyLimits_Click();
    EXPECT_DOUBLE_EQ(form.Die().MaximumPLLVoltage(), 200);
}

TEST(ConfiguratorLimits, LeavingALimitNormalisesIt) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    doc.Type(form.txtPLLMin[1], "0.3");
    EXPECT_EQ(form.txtPLLMin[1].Text(), "1");
    doc.Type(form.txtPLLMin[0], "0.3");
    EXPECT_EQ(form.txtPLLMin[0].Text(), "0.5");
    doc.Type(form.txtPLLMin[2], "7.5");
    EXPECT_EQ(form.txtPLLMin[2].Text(), "8");
    doc.Type(form.txtPLLMin[1], "300");  // above its maximum 256
    EXPECT_EQ(form.txtPLLMin[1].Text(), "256");
    doc.Type(form.txtPLLMax[2], "8");  // equal to its minimum
    EXPECT_EQ(form.txtPLLMax[2].Text(), "8");
    doc.Type(form.txtPLLMax[2], "3");  // below its minimum
    EXPECT_EQ(form.txtPLLMax[2].Text(), "8");
    doc.Type(form.txtPLLMax[0], "123.4567891");
    EXPECT_EQ(form.txtPLLMax[0].Text(), "123.45679");
    doc.Type(form.txtFRefMax, "0.2");
    EXPECT_EQ(form.txtFRefMax.Text(), "1");
    doc.Type(form.txtFRefMin, "40");
    EXPECT_EQ(form.txtFRefMin.Text(), "1");
}

TEST(ConfiguratorLimits, ReferenceLimitsApplyToTheReferenceField) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    doc.Type(form.txtFRefMax, "20");
    form.cmdApplyLimits_Click();
    EXPECT_DOUBLE_EQ(form.Reference().Maximum(), 20);
    doc.TypeReference("25");
    EXPECT_EQ(form.cboFRef.Text(), "20.00000 MHz");
}

TEST(ConfiguratorReference, LeavingClampsToTheReferenceRangeAndBringsItToListForm) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    doc.TypeReference("50");
    EXPECT_EQ(form.cboFRef.Text(), "30.00000 MHz");
    doc.TypeReference("0.5");
    EXPECT_EQ(form.cboFRef.Text(), "1.00000 MHz");
    doc.TypeReference("12");
    EXPECT_EQ(form.cboFRef.Text(), "12.00000 MHz");
    EXPECT_EQ(form.cboFRef.ListIndex(), 1);
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
}

TEST(ConfiguratorCalculate, AnyInputChangeMarksACalculateDue) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    form.cmdCalculate_Click();
    ASSERT_FALSE(doc.app->gblnNeedsCalculate);
    ASSERT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    form.cboClkDiv[1].SetListIndex(3);
    EXPECT_TRUE(doc.app->gblnNeedsCalculate);
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
    form.cmdCalculate_Click();
    form.chkSmoothSlew.SetEnabled(true);
    form.optFS.SetValue(true);
    EXPECT_TRUE(doc.app->gblnNeedsCalculate);
    form.cmdCalculate_Click();
    form.opt3V.SetValue(true);
    EXPECT_TRUE(doc.app->gblnNeedsCalculate);
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Yellow);
}

TEST(ConfiguratorCalculate, CalculateMarksTheFileChangedAndClearsTheStatus) {
    QX6105ADocument doc;
    doc.app->Main().mblnFileChanged = false;
    doc.Form().cmdCalculate_Click();
    EXPECT_TRUE(doc.app->Main().mblnFileChanged);
    EXPECT_EQ(doc.app->Main().lblStatus.Caption(), "");
}

TEST(ConfiguratorUnload, ClosingWithCancelLeavesDocumentAndDeviceSelection) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    doc.Type(form.txtPLL[0], "100");
    // The user opens the device window and picks another device, then closes the document.
    doc.app->DeviceForm().optQX6105AF.SetValue(true);
    doc.platform.QueueAnswer(msgbox::Cancel);
    EXPECT_FALSE(doc.app->UnloadDocument(kUnloadFormControlMenu));
    ASSERT_NE(doc.app->Document(), nullptr);
    EXPECT_EQ(doc.Form().txtPLL[0].Text(), "100.0");
    EXPECT_EQ(doc.app->DeviceForm().mstrCurrentDevice, "QX6105A");
    EXPECT_TRUE(doc.app->DeviceForm().optQX6105A.Value());
}

TEST(ConfiguratorUnload, UnloadRequiredByCodeAsksNothing) {
    QX6105ADocument doc;
    doc.Type(doc.Form().txtPLL[0], "100");
    doc.Form().mUnloadRequired = true;
    const size_t before = doc.platform.Messages().size();
    EXPECT_TRUE(doc.app->UnloadDocument(kUnloadFormCode));
    EXPECT_EQ(doc.app->Document(), nullptr);
    EXPECT_EQ(doc.platform.Messages().size(), before);
}

TEST(ConfiguratorPictureWindows, PowerAndDebugPanelsDragByTheirTitleBar) {
    QX6105ADocument doc;
    std::vector<std::string> moved;
    doc.app->OnFormMove = [&moved](Field& area) { moved.push_back(area.Name()); };
    doc.Form().picPower.RaiseMouseDown(1, 0, 100, 0);
    doc.Form().picDebugWindow.RaiseMouseDown(1, 0, 100, 0);
    doc.Form().picPower.RaiseMouseDown(1, 0, 100, 5000);  // below the title bar
    doc.Form().picPower.RaiseMouseDown(2, 0, 100, 0);     // right button
    ASSERT_EQ(moved.size(), 2u);
    EXPECT_EQ(moved[0], "picPower");
    EXPECT_EQ(moved[1], "picDebugWindow");
}

}  // namespace
}  // namespace pendulon
