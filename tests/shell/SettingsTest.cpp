#include <gtest/gtest.h>

#include "ShellTestSupport.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmOptions.hpp"
#include "app/mSharedApp.hpp"

namespace pendulon::test {
namespace {

std::string Get(HeadlessPlatform& p, const char* section, const char* key) {
    return p.GetSetting("Pendulon", section, key, "<none>");
}

TEST(Settings, FirstRunWritesEveryDefaultAndCentresTheWindow) {
    ShellHarness h;
    h.Start();
    HeadlessPlatform& p = h.platform;
    EXPECT_EQ(Get(p, "Option", "SaveOnExit"), "1");
    EXPECT_EQ(Get(p, "Option", "UseNotepad"), "0");
    EXPECT_EQ(Get(p, "Setting", "DebugWindowLeft"), "0");
    EXPECT_EQ(Get(p, "Setting", "DebugWindowTop"), "0");
    EXPECT_EQ(Get(p, "Setting", "DeviceShowPinout"), "1");
    EXPECT_EQ(Get(p, "Setting", "PowerWindowLeft"), "0");
    EXPECT_EQ(Get(p, "Setting", "PowerWindowTop"), "0");
    EXPECT_EQ(Get(p, "Setting", "ShowPowerWindow"), "True");
    EXPECT_EQ(Get(p, "Setting", "ShowDebugWindow"), "<none>");
    EXPECT_EQ(Get(p, "Startup", "Height"), "7200");
    EXPECT_EQ(Get(p, "Startup", "Width"), "9600");
    // Headless screen: 1024 x 768 pixels of 15 twips.
    EXPECT_EQ(Get(p, "Startup", "Left"), "2880");
    EXPECT_EQ(Get(p, "Startup", "Top"), "2160");
    EXPECT_EQ(Get(p, "Startup", "WindowState"), "0");
    frmMain& m = h.app.Main();
    EXPECT_DOUBLE_EQ(m.Left(), 2880);
    EXPECT_DOUBLE_EQ(m.Top(), 2160);
    EXPECT_DOUBLE_EQ(m.Width(), 9600);
    EXPECT_DOUBLE_EQ(m.Height(), 7200);
    EXPECT_FALSE(m.mnuViewDebugWindow.Enabled());
    EXPECT_FALSE(m.mnuViewDebugWindow.Visible());
    EXPECT_TRUE(m.mnuViewPower.Checked());
    EXPECT_FALSE(m.mnuToolsLaunchKITE.Enabled());
    EXPECT_EQ(h.app.gstrDesignTool, "");
}

TEST(Settings, ExistingSectionIsNotOverwritten) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Option", "UseNotepad", "1");
    h.Start();
    EXPECT_EQ(Get(h.platform, "Option", "UseNotepad"), "1");
    EXPECT_EQ(Get(h.platform, "Option", "SaveOnExit"), "<none>");
}

TEST(Settings, SaveOnExitZeroKeepsOldPositionsAndRecentFiles) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Option", "SaveOnExit", "0");
    h.platform.SaveSetting("Pendulon", "Startup", "Left", "300");
    h.platform.SaveSetting("Pendulon", "Startup", "Top", "400");
    h.platform.SaveSetting("Pendulon", "FilePath", "1", "/old/one.ent");
    h.Start();
    h.app.Main().Move(10, 20, 5000, 4000);
    h.app.Main().UpdateFileMenu("/new/two.ent");
    h.app.Main().SaveApplicationSettings();
    EXPECT_EQ(Get(h.platform, "Startup", "Left"), "300");
    EXPECT_EQ(Get(h.platform, "Startup", "Top"), "400");
    EXPECT_EQ(Get(h.platform, "FilePath", "1"), "/old/one.ent");
    EXPECT_EQ(Get(h.platform, "FilePath", "2"), "<none>");
    // The next start uses them.
    ShellHarness next;
    next.platform.Store() = h.platform.Store();
    next.Start();
    EXPECT_DOUBLE_EQ(next.app.Main().Left(), 300);
    EXPECT_DOUBLE_EQ(next.app.Main().Top(), 400);
    EXPECT_EQ(next.app.Main().mintRecentFileCount, 1);
    EXPECT_EQ(next.app.Main().RecentPath(1), "/old/one.ent");
}

TEST(Settings, EmptySaveOnExitIsWrittenAsOneAndSaves) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Startup", "Left", "1");
    h.app.Main().Move(10, 20, 5000, 4000);
    h.app.Main().SaveApplicationSettings();
    EXPECT_EQ(Get(h.platform, "Option", "SaveOnExit"), "1");
    EXPECT_EQ(Get(h.platform, "Startup", "Left"), "10");
    EXPECT_EQ(Get(h.platform, "Startup", "Height"), "4000");
    EXPECT_EQ(Get(h.platform, "Setting", "ShowPowerWindow"), "False");
}

TEST(Settings, MaximisedWindowStoresOnlyItsState) {
    ShellHarness h;
    h.Start();
    h.app.Main().Move(1, 2, 3000, 4000);
    h.app.Main().SetWindowState(2);
    h.app.Main().SaveApplicationSettings();
    EXPECT_EQ(Get(h.platform, "Startup", "WindowState"), "2");
    EXPECT_EQ(Get(h.platform, "Startup", "Left"), "2880");
    EXPECT_EQ(Get(h.platform, "Startup", "Top"), "2160");
    EXPECT_EQ(Get(h.platform, "Startup", "Width"), "9600");
    EXPECT_EQ(Get(h.platform, "Startup", "Height"), "7200");
}

TEST(Settings, RecentFilesAreStoredNewestFirstAndReadBackInOrder) {
    ShellHarness h;
    h.Start();
    for (const char* path : {"/a.ent", "/b.ent", "/c.ent"}) h.app.Main().UpdateFileMenu(path);
    h.app.Main().SaveApplicationSettings();
    EXPECT_EQ(Get(h.platform, "FilePath", "1"), "/c.ent");
    EXPECT_EQ(Get(h.platform, "FilePath", "3"), "/a.ent");
    ShellHarness next;
    next.platform.Store() = h.platform.Store();
    next.Start();
    EXPECT_EQ(next.app.Main().mnuFilePathArray[1].Caption(), "&1 /c.ent");
    EXPECT_EQ(next.app.Main().mnuFilePathArray[3].Caption(), "&3 /a.ent");
}

TEST(Settings, DebugWindowSetByHandToZeroIsAvailableAndUnchecked) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Setting", "ShowDebugWindow", "0");
    h.Start();
    frmMain& m = h.app.Main();
    EXPECT_TRUE(m.mnuViewDebugWindow.Enabled());
    EXPECT_TRUE(m.mnuViewDebugWindow.Visible());
    EXPECT_FALSE(m.mnuViewDebugWindow.Checked());
    EXPECT_TRUE(m.mblnSaveEntryFileDescription);
    m.SaveApplicationSettings();
    EXPECT_EQ(Get(h.platform, "Setting", "ShowDebugWindow"), "False");
}

TEST(Settings, TrueTextsCheckTheDisplays) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Setting", "ShowDebugWindow", "tRUE");
    h.platform.SaveSetting("Pendulon", "Setting", "ShowPowerWindow", "0");
    h.Start();
    EXPECT_TRUE(h.app.Main().mnuViewDebugWindow.Checked());
    EXPECT_FALSE(h.app.Main().mnuViewPower.Checked());
    ShellHarness one;
    one.platform.SaveSetting("Pendulon", "Setting", "ShowPowerWindow", "1");
    one.Start();
    EXPECT_TRUE(one.app.Main().mnuViewPower.Checked());
}

TEST(Settings, DesignToolCommandIsCutAtFirstBlank) {
    ShellHarness h;
    h.platform.SetSystemKey(mShared::kDesignToolKey, "C:\\Program Files\\KITE\\kite.exe \"%1\"");
    h.Start();
    EXPECT_EQ(h.app.gstrDesignTool, "C:\\Program");
    EXPECT_TRUE(h.app.Main().mnuToolsLaunchKITE.Enabled());
    ShellHarness plain;
    plain.platform.SetSystemKey(mShared::kDesignToolKey, "/opt/kite/kite --open");
    plain.Start();
    EXPECT_EQ(plain.app.gstrDesignTool, "/opt/kite/kite");
}

TEST(Settings, EmptyDesignToolValueLeavesLaunchDisabled) {
    ShellHarness h;
    h.platform.SetSystemKey(mShared::kDesignToolKey, "");
    h.Start();
    EXPECT_FALSE(h.app.Main().mnuToolsLaunchKITE.Enabled());
    EXPECT_EQ(h.app.gstrDesignTool, "");
}

TEST(Settings, WindowBeyondTheScreenMovesToTopLeft) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Startup", "Left", "14000");
    h.platform.SaveSetting("Pendulon", "Startup", "Top", "500");
    h.Start();
    EXPECT_DOUBLE_EQ(h.app.Main().Left(), 0);
    EXPECT_DOUBLE_EQ(h.app.Main().Top(), 0);
}

TEST(Settings, MalformedNumbersReadAsZero) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Startup", "Width", "wide");
    h.platform.SaveSetting("Pendulon", "Startup", "Left", "12px");
    h.Start();
    EXPECT_DOUBLE_EQ(h.app.Main().Width(), 0);
    EXPECT_DOUBLE_EQ(h.app.Main().Left(), 12);
}

TEST(Settings, GetAppRegValueRefusesOtherDataTypes) {
    ShellHarness h;
    h.platform.SetSystemKey("Software\\X\\", "value");
    const auto value =
        mShared::GetAppRegValue(h.app, mShared::kHKeyLocalMachine, "Software\\X\\", 4, "");
    EXPECT_EQ(h.app.Errors().LastNumber(), 10551);
    EXPECT_EQ(h.platform.Messages().back().Text,
              ErrorReport::Text(10551, "mShared.GetAppRegValue",
                                "Invalid value passed for parameter 'varKeyDataType': 4"));
    EXPECT_TRUE(value.has_value());
    EXPECT_FALSE(
        mShared::GetAppRegValue(h.app, mShared::kHKeyLocalMachine, "Software\\Y\\", 1, ""));
}

TEST(ClearRegistry, AnyLetterCaseRemovesSettingsAndEnds) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Option", "SaveOnExit", "1");
    h.platform.SaveSetting("Pendulon", "Startup", "Left", "5");
    h.platform.QueueAnswer(msgbox::OK);
    h.Start("/clearREGISTRY");
    EXPECT_TRUE(h.app.Ended());
    EXPECT_FALSE(h.platform.SettingsExist("Pendulon"));
    EXPECT_FALSE(h.app.Main().Visible());
    ASSERT_EQ(h.platform.Messages().size(), 2u);
    EXPECT_EQ(h.platform.Messages()[0].Text,
              "Continue removing registry settings associated with Pendulon?");
    EXPECT_EQ(h.platform.Messages()[0].Style, msgbox::OKCancel | msgbox::Question);
    EXPECT_EQ(h.platform.Messages()[0].Title, "Pendulon(tm) 3.71");
    EXPECT_EQ(h.platform.Messages()[1].Text, "Registry settings have been removed.");
    EXPECT_EQ(h.platform.Messages()[1].Style, msgbox::Information);
    EXPECT_TRUE(h.platform.ModalsShown().empty());
}

TEST(ClearRegistry, NoRemovesNothingAndEnds) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Option", "SaveOnExit", "1");
    h.platform.QueueAnswer(msgbox::Cancel);
    h.Start("/ClearRegistry");
    EXPECT_TRUE(h.app.Ended());
    EXPECT_EQ(Get(h.platform, "Option", "SaveOnExit"), "1");
    EXPECT_EQ(h.platform.Messages().size(), 1u);
    EXPECT_FALSE(h.app.Main().Visible());
}

TEST(ClearRegistry, WithoutSaveOnExitNothingIsDeleted) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Startup", "Left", "5");
    h.platform.QueueAnswer(msgbox::OK);
    h.Start("/ClearRegistry");
    EXPECT_TRUE(h.app.Ended());
    EXPECT_EQ(Get(h.platform, "Startup", "Left"), "5");
    EXPECT_EQ(h.platform.Messages().size(), 1u);
}

TEST(Options, LoadShowsSettingsAndDisablesDescriptionWithoutDebugWindow) {
    ShellHarness h;
    h.Start();
    h.platform.SaveSetting("Pendulon", "Option", "UseNotepad", "1");
    frmOptions options(h.app);
    options.chkEntFileIncludeDescription.SetValue(1);
    options.Form_Load();
    EXPECT_EQ(options.chkSaveOnExit.Value(), 1);
    EXPECT_EQ(options.chkUseNotepad.Value(), 1);
    EXPECT_EQ(options.chkEntFileIncludeDescription.Value(), 0);
    EXPECT_FALSE(options.chkEntFileIncludeDescription.Enabled());
    EXPECT_EQ(options.Fields().Find("fraGeneral")->Kind(), FieldKind::Frame);
    EXPECT_EQ(options.Fields().Find("fraEntryFile")->Kind(), FieldKind::Frame);
}

TEST(Options, EmptySaveOnExitShowsSet) {
    ShellHarness h;
    frmOptions options(h.app);
    options.Form_Load();
    EXPECT_EQ(options.chkSaveOnExit.Value(), 1);
    EXPECT_EQ(options.chkUseNotepad.Value(), 0);
}

TEST(Options, OKWritesSettingsAndDescriptionFlag) {
    ShellHarness h;
    h.platform.SaveSetting("Pendulon", "Setting", "ShowDebugWindow", "1");
    h.Start();
    h.app.Main().mblnSaveEntryFileDescription = false;
    frmOptions options(h.app);
    options.Form_Load();
    EXPECT_TRUE(options.chkEntFileIncludeDescription.Enabled());
    EXPECT_EQ(options.chkEntFileIncludeDescription.Value(), 0);
    options.chkSaveOnExit.SetValue(0);
    options.chkUseNotepad.SetValue(1);
    options.chkEntFileIncludeDescription.SetValue(1);
    options.cmdOK.RaiseClick();
    EXPECT_TRUE(options.Unloaded());
    EXPECT_TRUE(h.app.Main().mblnSaveEntryFileDescription);
    EXPECT_EQ(Get(h.platform, "Option", "SaveOnExit"), "0");
    EXPECT_EQ(Get(h.platform, "Option", "UseNotepad"), "1");
}

TEST(Options, CancelChangesNothing) {
    ShellHarness h;
    h.Start();
    frmOptions options(h.app);
    options.Form_Load();
    options.chkSaveOnExit.SetValue(0);
    options.cmdCancel.RaiseClick();
    EXPECT_TRUE(options.Unloaded());
    EXPECT_EQ(Get(h.platform, "Option", "SaveOnExit"), "1");
}

TEST(Options, MenuShowsTheWindowModally) {
    ShellHarness h;
    h.Start();
    bool seen = false;
    h.platform.QueueModal("frmOptions", [&seen](Window& w) {
        seen = true;
        auto& options = dynamic_cast<frmOptions&>(w);
        options.chkUseNotepad.SetValue(1);
        options.cmdOK_Click();
    });
    h.app.Main().mnuToolsOptions.RaiseClick();
    EXPECT_TRUE(seen);
    EXPECT_EQ(Get(h.platform, "Option", "UseNotepad"), "1");
}

}  // namespace
}  // namespace pendulon::test
