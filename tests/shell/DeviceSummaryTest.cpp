#include <gtest/gtest.h>

#include "ShellTestSupport.hpp"
#include "shell/frmAbout.hpp"
#include "shell/frmAboutKITE.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSplash.hpp"
#include "shell/frmSummary.hpp"

namespace pendulon::test {
namespace {

TEST(DeviceWindow, AllFifteenOptionsInOneGroup) {
    ShellHarness h;
    frmDevice& d = h.app.DeviceForm();
    const char* names[] = {"QX6105A", "QX6105AF", "QX6105AI", "QX7311",  "QX7311F",
                           "QX7311I", "QX7312",   "QX7312F",  "QX7312I", "QX4860",
                           "QX4860F", "QX4860I",  "QX5140",   "QX3350",  "QX3350I"};
    for (const char* name : names) {
        OptionButton* option = d.OptionFor(name);
        ASSERT_NE(option, nullptr) << name;
        EXPECT_EQ(option->Group(), "fraDevice");
        EXPECT_EQ(d.Fields().Find(std::string("opt") + name), option);
    }
    d.optQX7312F.SetValue(true);
    d.optQX3350I.SetValue(true);
    EXPECT_FALSE(d.optQX7312F.Value());
    EXPECT_EQ(d.mstrCurrentDevice, "QX3350I");
    EXPECT_NE(d.Fields().Find("picPinout(1)"), nullptr);
}

TEST(DeviceWindow, LoadSelectsFirstDeviceAndDisablesUnbuiltOnes) {
    ShellHarness h({"QX6105A", "QX4860"});
    h.Start();
    frmDevice& d = h.app.DeviceForm();
    EXPECT_TRUE(d.optQX6105A.Value());
    EXPECT_EQ(d.mstrCurrentDevice, "QX6105A");
    EXPECT_EQ(d.mstrPreviousDevice, "QX6105A");
    EXPECT_TRUE(d.optQX4860.Enabled());
    EXPECT_FALSE(d.optQX5140.Enabled());
    EXPECT_FALSE(d.optQX7311F.Enabled());
}

TEST(DeviceWindow, PinoutCheckSetsTheWidthAndIsStoredOnOK) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Setting", "DeviceShowPinout", "0");
    h.Start();
    frmDevice& d = h.app.DeviceForm();
    EXPECT_EQ(d.chkShowPinout.Value(), 0);
    EXPECT_DOUBLE_EQ(d.Width(), 3580);
    d.chkShowPinout.SetValue(1);
    EXPECT_DOUBLE_EQ(d.Width(), 5368);
    d.CreateNew(false);
    d.cmdOK_Click();
    EXPECT_EQ(h.platform.GetSetting("Pendulon", "Setting", "DeviceShowPinout", ""), "1");
    EXPECT_TRUE(d.OKStatus());
    EXPECT_EQ(h.app.Document(), nullptr);  // not a new document
}

bool HasText(const PictureBox& picture, const std::string& text) {
    for (const DrawOp& op : picture.DisplayList())
        if (op.type == DrawOp::Type::Text && op.text == text)
            return true;
    return false;
}

TEST(DeviceWindow, OptionDrawsThePinoutOfItsDevice) {
    ShellHarness h;
    h.Start();
    frmDevice& d = h.app.DeviceForm();
    d.optQX7312.SetValue(true);
    EXPECT_TRUE(HasText(d.picPinout[0], "QX7312"));
    EXPECT_TRUE(HasText(d.picPinout[0], "XTALIN"));
    EXPECT_FALSE(d.picPinout[1].Visible());
    EXPECT_TRUE(d.picPinout[1].DisplayList().empty());
    // The QX4860 family shows its 8-pin and 14-pin packages.
    d.optQX4860I.SetValue(true);
    EXPECT_TRUE(HasText(d.picPinout[0], "QX4860I"));
    EXPECT_TRUE(HasText(d.picPinout[0], "REFCLK"));
    EXPECT_FALSE(HasText(d.picPinout[0], "FS3"));
    EXPECT_TRUE(d.picPinout[1].Visible());
    EXPECT_TRUE(HasText(d.picPinout[1], "FS3"));
    d.optQX6105A.SetValue(true);
    EXPECT_TRUE(HasText(d.picPinout[0], "CLKC"));
    EXPECT_TRUE(d.picPinout[1].DisplayList().empty());
}

TEST(DeviceWindow, FirstRunShowsTheWideWindow) {
    ShellHarness h;
    h.Start();
    EXPECT_EQ(h.app.DeviceForm().chkShowPinout.Value(), 1);
    EXPECT_DOUBLE_EQ(h.app.DeviceForm().Width(), 5368);
}

TEST(DeviceWindow, CancelAfterChangingOptionRestoresDocumentDevice) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX4860");
    ASSERT_NE(h.Doc(), nullptr);
    frmDevice& d = h.app.DeviceForm();
    h.platform.QueueModal("frmDevice", [](Window& w) {
        auto& form = dynamic_cast<frmDevice&>(w);
        form.optQX7311.SetValue(true);
        EXPECT_EQ(form.mstrCurrentDevice, "QX7311");
        form.cmdCancel_Click();
    });
    h.app.Main().mnuNew.RaiseClick();
    EXPECT_EQ(d.mstrCurrentDevice, "QX4860");
    EXPECT_TRUE(d.optQX4860.Value());
    EXPECT_FALSE(d.OKStatus());
    EXPECT_EQ(h.Doc()->lblDevice.Caption(), "QX4860");
    EXPECT_EQ(h.unloads, 0);
}

TEST(DeviceWindow, TwoNewCommandsWithCancelBetween) {
    ShellHarness h;
    h.Start();
    h.platform.QueueModal("frmDevice", [](Window& w) {
        auto& form = dynamic_cast<frmDevice&>(w);
        form.optQX7311.SetValue(true);
        form.cmdCancel_Click();
    });
    h.app.Main().mnuNew.RaiseClick();
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_EQ(h.app.DeviceForm().mstrCurrentDevice, "QX6105A");
    h.NewDocument("QX7311");
    ASSERT_NE(h.Doc(), nullptr);
    EXPECT_EQ(h.Doc()->lblDevice.Caption(), "QX7311");
    EXPECT_TRUE(h.app.DeviceForm().mblnNew);
}

TEST(DeviceWindow, DoubleClickOnOptionActsAsOK) {
    ShellHarness h;
    h.Start();
    h.platform.QueueModal("frmDevice", [](Window& w) {
        auto& form = dynamic_cast<frmDevice&>(w);
        form.optQX4860.SetValue(true);
        form.optQX4860.RaiseDblClick();
    });
    h.app.Main().mnuNew.RaiseClick();
    ASSERT_NE(h.Doc(), nullptr);
    EXPECT_EQ(h.Doc()->lblDevice.Caption(), "QX4860");
}

TEST(DeviceWindow, ClosingFromItsControlOnlyHidesAndCancels) {
    ShellHarness h;
    h.Start();
    frmDevice& d = h.app.DeviceForm();
    d.SetVisible(true);
    d.optQX7312.SetValue(true);
    EXPECT_TRUE(d.Form_QueryUnload(0));
    EXPECT_FALSE(d.Visible());
    EXPECT_EQ(d.mstrCurrentDevice, "QX6105A");
    EXPECT_TRUE(d.optQX6105A.Value());
}

TEST(DeviceWindow, RefusedDocumentCloseRestoresTheSelection) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX4860");
    frmDevice& d = h.app.DeviceForm();
    h.Edit("31");
    // A New for another device, refused at the close question.
    h.platform.QueueAnswer(msgbox::Cancel);
    h.NewDocument("QX7311");
    EXPECT_EQ(h.Doc()->lblDevice.Caption(), "QX4860");
    EXPECT_EQ(d.mstrCurrentDevice, "QX4860");
    EXPECT_TRUE(d.optQX4860.Value());
}

TEST(DeviceWindow, OKClosesTheWizardWhenItIsActive) {
    ShellHarness h;
    h.Start();
    Window wizard("frmDecisionTree");
    wizard.SetCaption("Clock Selection Wizard");
    wizard.SetVisible(true);
    Window* unloaded = nullptr;
    frmDevice& d = h.app.DeviceForm();
    d.ActiveWindow = [&wizard] { return &wizard; };
    d.UnloadWindow = [&unloaded](Window& w) { unloaded = &w; };
    d.CreateNew(false);
    d.cmdOK_Click();
    EXPECT_EQ(unloaded, &wizard);
    wizard.SetCaption("Something else");
    unloaded = nullptr;
    d.cmdOK_Click();
    EXPECT_EQ(unloaded, nullptr);
}

TEST(SummaryWindow, TypedShortDateReadsBackInMonthPattern) {
    ShellHarness h;
    h.Start();
    frmSummary& s = h.app.Summary();
    s.txtDate.SetText("1/2/2002");
    bool cancel = false;
    s.txtDate_Validate(cancel);
    EXPECT_FALSE(cancel);
    EXPECT_EQ(s.txtDate.Text(), "Jan/02/2002");
}

TEST(SummaryWindow, InvalidDateKeepsFocusAndSelectsText) {
    ShellHarness h;
    h.Start();
    frmSummary& s = h.app.Summary();
    s.SetFocusTo(&s.txtDate);
    s.txtDate.SetText("soon");
    h.platform.ClearMessages();
    EXPECT_FALSE(s.SetFocusTo(&s.txtCustomer));
    EXPECT_EQ(s.ActiveControl(), &s.txtDate);
    ASSERT_EQ(h.platform.Messages().size(), 1u);
    EXPECT_EQ(h.platform.Messages()[0].Text, "The date you have entered is not valid.");
    EXPECT_EQ(h.platform.Messages()[0].Style, msgbox::Critical);
    EXPECT_EQ(h.platform.Messages()[0].Title, "Pendulon(tm) 3.71");
    EXPECT_EQ(s.txtDate.SelStart(), 0);
    EXPECT_EQ(s.txtDate.SelLength(), 4);
    EXPECT_EQ(s.txtDate.Text(), "soon");
}

TEST(SummaryWindow, DoubleClickOnDateTakesToday) {
    ShellHarness h;
    h.platform.SetNow(DateTime{2004, 3, 9, 10, 0, 0});
    frmSummary& s = h.app.Summary();
    s.txtDate.SetText("");
    s.txtDate.RaiseDblClick();
    EXPECT_EQ(s.txtDate.Text(), "Mar/09/2004");
}

TEST(SummaryWindow, FocusHighlightsWholeText) {
    ShellHarness h;
    frmSummary& s = h.app.Summary();
    s.txtCustomer.SetText("Acme Corp");
    s.SetFocusTo(&s.txtCustomer);
    EXPECT_EQ(s.txtCustomer.SelStart(), 0);
    EXPECT_EQ(s.txtCustomer.SelLength(), 9);
}

TEST(SummaryWindow, NewDocumentAfterAnotherKeepsCustomerAndClearsNameAndRevision) {
    ShellHarness h;
    h.platform.SetNow(DateTime{2002, 1, 2, 3, 4, 5});
    h.Start();
    h.NewDocument("QX6105A");
    frmSummary& s = h.app.Summary();
    s.txtCustomer.SetText("Acme");
    s.txtFAE.SetText("Kim");
    s.txtComments.SetText("first board");
    s.txtRevision.SetText("B");
    s.txtFilename.SetText("a.ent");
    s.mblnOK = true;
    h.NewDocument("QX4860");
    EXPECT_EQ(s.txtCustomer.Text(), "Acme");
    EXPECT_EQ(s.txtFAE.Text(), "Kim");
    EXPECT_EQ(s.txtComments.Text(), "first board");
    EXPECT_EQ(s.txtRevision.Text(), "");
    EXPECT_EQ(s.txtFilename.Text(), "");
    EXPECT_EQ(s.lblChecksum.Caption(), "n/a");
    EXPECT_FALSE(s.mblnOK);
    EXPECT_EQ(s.txtDate.Text(), "Jan/02/2002");
}

TEST(SummaryWindow, ConfigurationInfoSetsDateRevisionAndShowsModally) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.platform.SetNow(DateTime{2010, 12, 31, 0, 0, 0});
    h.app.Summary().txtRevision.SetText("7");
    h.app.Main().mnuConfiguration.RaiseClick();
    EXPECT_EQ(h.app.Summary().txtDate.Text(), "Dec/31/2010");
    EXPECT_EQ(h.app.Summary().txtRevision.Text(), "xxx");
    EXPECT_FALSE(h.app.Summary().txtRevision.Enabled());
    EXPECT_EQ(h.platform.ModalsShown().back(), "frmSummary");
}

TEST(SummaryWindow, DebugUsersKeepTheirRevision) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Setting", "ShowDebugWindow", "1");
    h.Start();
    EXPECT_TRUE(h.app.Summary().txtRevision.Enabled());
    h.app.Summary().txtRevision.SetText("7");
    h.app.Main().ShowConfigurationForm();
    EXPECT_EQ(h.app.Summary().txtRevision.Text(), "7");
}

TEST(SummaryWindow, OKSetsFlagAndHides) {
    ShellHarness h;
    frmSummary& s = h.app.Summary();
    s.SetVisible(true);
    s.cmdOK.RaiseClick();
    EXPECT_TRUE(s.mblnOK);
    EXPECT_FALSE(s.Visible());
}

TEST(SplashWindow, LoadStartsTimerAndTickUnloads) {
    ShellHarness h;
    h.app.Main().InitializeGlobalVariables();
    frmSplash splash(h.app);
    EXPECT_NE(splash.Fields().Find("picSplash"), nullptr);
    splash.Form_Load();
    EXPECT_TRUE(splash.tmrSplashEnabled);
    EXPECT_GT(splash.tmrSplashInterval, 0);
    splash.SetVisible(true);
    splash.tmrSplash_Timer();
    EXPECT_TRUE(splash.Unloaded());
    EXPECT_FALSE(splash.Visible());
    EXPECT_FALSE(splash.tmrSplashEnabled);
    frmSplash closed(h.app);
    closed.Form_Load();
    closed.Form_QueryUnload();
    EXPECT_TRUE(closed.Unloaded());
}

TEST(AboutWindow, ShowsTitleAndBuild) {
    ShellHarness h;
    h.Start();
    frmAbout about(h.app);
    about.Form_Load();
    EXPECT_EQ(about.lblAppName.Caption(), "Pendulon\u2122 3.71");
    EXPECT_EQ(about.lblVersion.Caption(), "Build #: 3.71.010");
    EXPECT_EQ(about.lblVARNHOL.Caption(), "VARNHOL");
    EXPECT_EQ(about.lblDivision.Caption(), "Marlin Works");
    EXPECT_FALSE(about.lblContact1.Caption().empty());
    EXPECT_FALSE(about.lblContact2.Caption().empty());
    about.cmdClose.RaiseClick();
    EXPECT_TRUE(about.Unloaded());
    bool shown = false;
    h.platform.QueueModal("frmAbout", [&shown](Window& w) {
        shown = dynamic_cast<frmAbout&>(w).lblVersion.Caption() == "Build #: 3.71.010";
    });
    h.app.Main().mnuAbout.RaiseClick();
    EXPECT_TRUE(shown);
}

TEST(AboutWindow, KITEBox) {
    ShellHarness h;
    frmAboutKITE about;
    EXPECT_EQ(about.Caption(), "About KITE");
    EXPECT_NE(about.Fields().Find("picIcon"), nullptr);
    about.cmdClose.RaiseClick();
    EXPECT_TRUE(about.Unloaded());
    h.app.Main().mnuAboutKITE.RaiseClick();
    EXPECT_EQ(h.platform.ModalsShown().back(), "frmAboutKITE");
}

}  // namespace
}  // namespace pendulon::test
