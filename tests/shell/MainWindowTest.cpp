#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "ShellTestSupport.hpp"
#include "core/mShared.hpp"
#include "power/frmPower.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "support/TestSupport.hpp"

namespace pendulon::test {
namespace {

TEST(MainWindowGlobals, TitleBuildAndControlCharacters) {
    ShellHarness h;
    h.Start();
    EXPECT_EQ(h.app.gstrTitle, "Pendulon(tm) 3.71");
    EXPECT_EQ(h.app.gstrTitleTM, "Pendulon\u2122 3.71");
    EXPECT_EQ(h.app.gstrBuild, "Build #: 3.71.010");
    EXPECT_EQ(h.app.gstrSTX, std::string(1, '\x02'));
    EXPECT_EQ(h.app.gstrETX, std::string(1, '\x03'));
    EXPECT_EQ(h.app.gstrSpace, " ");
    EXPECT_EQ(h.app.Main().Caption(), "Pendulon(tm) 3.71");
    EXPECT_TRUE(h.app.Main().Visible());
}

TEST(MainWindowMenus, FieldsInOrderWithCaptionsAndShortcuts) {
    ShellHarness h;
    frmMain& m = h.app.Main();
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"mnuFile", "&File"},
        {"mnuNew", "&New"},
        {"mnuOpen", "&Open..."},
        {"mnuSave", "&Save"},
        {"mnuSaveAs", "Save &As..."},
        {"mnuClose", "&Close"},
        {"mnuConfiguration", "Configuration &Info..."},
        {"mnuPrint", "&Print..."},
        {"mnuPrintSetup", "P&rint Setup..."},
        {"mnuExit", "E&xit"},
        {"mnuFilePathArray(0)", "-"},
        {"mnuFilePathArray(1)", ""},
        {"mnuFilePathArray(2)", ""},
        {"mnuFilePathArray(3)", ""},
        {"mnuFilePathArray(4)", ""},
        {"mnuFilePathArray(5)", ""},
        {"mnuEdit", "&Edit"},
        {"mnuEditCut", "Cu&t"},
        {"mnuEditCopy", "&Copy"},
        {"mnuEditPaste", "&Paste"},
        {"mnuEditSelectAll", "Select &All"},
        {"mnuView", "&View"},
        {"mnuViewPower", "&Power Calculation"},
        {"mnuViewDebugWindow", "&Debug Window"},
        {"mnuViewEntryFile", "&Entry File"},
        {"mnuViewEntryFileNew", "&Create New"},
        {"mnuViewEntryFileSaved", "&Read From Disk"},
        {"mnuTools", "&Tools"},
        {"mnuToolsCreateEPROM", "Create EPROM Vector"},
        {"mnuToolsCreateEPROMNew", "From &New Entry File"},
        {"mnuToolsCreateEPROMSaved", "&From Saved Entry File"},
        {"mnuToolsOptions", "&Options..."},
        {"mnuToolsLaunchKITE", "Launch &KITE"},
        {"mnuWindow", "&Window"},
        {"mnuTile", "&Tile"},
        {"mnuCascade", "&Cascade"},
        {"mnuHelp", "&Help"},
        {"mnuPopupHelp", "Contents"},
        {"mnuDecisionTree", "Clock Selection Wizard"},
        {"mnuAbout", "About Pendulon..."},
        {"mnuAboutKITE", "About KITE..."},
    };
    const auto& fields = m.Fields().Fields();
    ASSERT_GE(fields.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(fields[i]->Name(), expected[i].first) << i;
        EXPECT_EQ(fields[i]->Caption(), expected[i].second) << expected[i].first;
    }
    EXPECT_EQ(m.mnuNew.Shortcut(), "Ctrl+N");
    EXPECT_EQ(m.mnuOpen.Shortcut(), "Ctrl+O");
    EXPECT_EQ(m.mnuSave.Shortcut(), "Ctrl+S");
    EXPECT_EQ(m.mnuPrint.Shortcut(), "Ctrl+P");
    EXPECT_EQ(m.mnuEditCut.Shortcut(), "Ctrl+X");
    EXPECT_EQ(m.mnuEditCopy.Shortcut(), "Ctrl+C");
    EXPECT_EQ(m.mnuEditPaste.Shortcut(), "Ctrl+V");
    EXPECT_EQ(m.mnuEditSelectAll.Shortcut(), "Ctrl+A");
    EXPECT_EQ(m.mnuPopupHelp.Shortcut(), "F1");
    EXPECT_EQ(m.mnuFilePathArray.Count(), 6);
    // The tree: recent files sit in the File menu, the entry-file commands under View.
    const auto& file = m.mnuFile.Items();
    EXPECT_EQ(file.front(), &m.mnuNew);
    EXPECT_EQ(file.back(), &m.mnuExit);
    EXPECT_NE(std::find(file.begin(), file.end(), &m.mnuFilePathArray[0]), file.end());
    EXPECT_EQ(m.mnuViewEntryFile.Items().size(), 2u);
    EXPECT_EQ(m.mnuToolsCreateEPROM.Items()[1], &m.mnuToolsCreateEPROMSaved);
    EXPECT_EQ(m.mnuHelp.Items().back(), &m.mnuAboutKITE);
    EXPECT_NE(m.Fields().Find("picStatus"), nullptr);
    EXPECT_NE(m.Fields().Find("lblHelpInfo"), nullptr);
    EXPECT_NE(m.Fields().Find("lblStatus"), nullptr);
}

TEST(MainWindowStartUp, EmptyCommandLineShowsSplashAndEmptyMenus) {
    ShellHarness h;
    h.Start();
    frmMain& m = h.app.Main();
    ASSERT_EQ(h.platform.ModalsShown().size(), 1u);
    EXPECT_EQ(h.platform.ModalsShown()[0], "frmSplash");
    EXPECT_EQ(m.lblStatus.Caption(), "");
    EXPECT_EQ(h.platform.MousePointer(), kPointerDefault);
    EXPECT_FALSE(m.mnuView.Visible());
    EXPECT_FALSE(m.mnuEdit.Visible());
    EXPECT_FALSE(m.mnuSave.Enabled());
    EXPECT_FALSE(m.mnuSaveAs.Enabled());
    EXPECT_FALSE(m.mnuClose.Enabled());
    EXPECT_FALSE(m.mnuPrint.Enabled());
    EXPECT_FALSE(m.mnuToolsCreateEPROM.Enabled());
    EXPECT_EQ(h.app.Summary().lblChecksum.Caption(), "n/a");
    // The description setting starts as the debug window's availability.
    EXPECT_FALSE(m.mblnSaveEntryFileDescription);
    EXPECT_DOUBLE_EQ(m.picStatus.Height(), 24 * 15);
    EXPECT_DOUBLE_EQ(m.lblStatus.Height(), 20 * 15);
}

TEST(MainWindowStartUp, FileOnCommandLineOpensWithoutSplash) {
    ShellHarness h;
    const std::string dir = MakeTempDir();
    const std::string path = WriteEntry(dir, "demo.ent", "qx6105a-01", 25, 7);
    h.QueueSummaryOK();
    h.Start(path);
    ASSERT_NE(h.Doc(), nullptr);
    for (const auto& name : h.platform.ModalsShown()) EXPECT_NE(name, "frmSplash");
    EXPECT_EQ(h.Doc()->txtFilePath.Text(), path);
    EXPECT_EQ(h.Doc()->txtNote.Text(), "7");
}

TEST(MainWindowNew, LoadFormOpensDocumentOfSelectedDevice) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX4860");
    TestConfigurator* doc = h.Doc();
    ASSERT_NE(doc, nullptr);
    frmMain& m = h.app.Main();
    EXPECT_EQ(doc->lblDevice.Caption(), "QX4860");
    EXPECT_EQ(doc->txtFilePath.Text(), "");
    EXPECT_TRUE(doc->Visible());
    EXPECT_EQ(m.mdblSavedState, mShared::ComputeState(*doc));
    EXPECT_TRUE(m.mblnFileChanged);
    EXPECT_EQ(m.mstrSavedChecksum, "n/a");
    EXPECT_EQ(h.app.Summary().Caption(), "QX4860 Configuration");
    EXPECT_EQ(doc->ActiveControl(), &doc->cboFRef);
    EXPECT_TRUE(m.mnuView.Visible());
    EXPECT_TRUE(m.mnuEdit.Visible());
    EXPECT_TRUE(m.mnuSave.Enabled());
    EXPECT_TRUE(m.mnuClose.Enabled());
    EXPECT_TRUE(m.mnuToolsCreateEPROM.Enabled());
    // Calculation is pending on a new window: no fresh entry file or vector yet.
    EXPECT_FALSE(m.mnuViewEntryFileNew.Enabled());
    EXPECT_FALSE(m.mnuToolsCreateEPROMNew.Enabled());
    EXPECT_FALSE(m.mnuViewEntryFileSaved.Enabled());
    EXPECT_EQ(m.lblStatus.Caption(), "");
}

TEST(MainWindowNew, QX3350FIsRefusedByLoadFormAlthoughTheMenuKnowsIt) {
    ShellHarness h({"QX6105A", "QX3350F"});
    h.Start();
    h.app.DeviceForm().mstrCurrentDevice = "QX3350F";
    h.app.Main().LoadForm();
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_EQ(h.app.Errors().LastNumber(), 10603);
    EXPECT_EQ(h.CountMessages("An invalid device selection was made."), 1);
    EXPECT_EQ(h.CountMessages("frmMain.LoadForm"), 1);
    // The menu treats the name as one that has vectors.
    h.app.DeviceForm().mstrCurrentDevice = "QX6105A";
    h.app.Main().LoadForm();
    ASSERT_NE(h.Doc(), nullptr);
    h.app.DeviceForm().mstrCurrentDevice = "QX3350F";
    h.app.Main().InitializeMenu(false);
    EXPECT_TRUE(h.app.Main().mnuToolsCreateEPROM.Enabled());
}

TEST(MainWindowNew, DeviceWithoutWindowRaises10603AndLeavesNoChild) {
    ShellHarness h({"QX6105A"});
    h.Start();
    h.app.DeviceForm().mstrCurrentDevice = "QX7311";
    h.app.Main().LoadForm();
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_EQ(h.app.Errors().LastNumber(), 10603);
    EXPECT_EQ(h.platform.MousePointer(), kPointerDefault);
}

TEST(MainWindowMenus, EPROMMenuDisabledForQX5140) {
    ShellHarness h({"QX5140", "QX6105A"});
    h.Start();
    h.NewDocument("QX5140");
    ASSERT_NE(h.Doc(), nullptr);
    EXPECT_FALSE(h.app.Main().mnuToolsCreateEPROM.Enabled());
    h.Edit("5");
    h.app.Main().InitializeMenu(false);
    EXPECT_TRUE(h.app.Main().mnuViewEntryFileNew.Enabled());
    EXPECT_TRUE(h.app.Main().mnuToolsCreateEPROMNew.Enabled());
    h.app.Main().InitializeMenu(true);
    EXPECT_FALSE(h.app.Main().mnuView.Visible());
    EXPECT_FALSE(h.app.Main().mnuViewEntryFileNew.Enabled());
}

TEST(MainWindowClose, UnchangedDocumentClosesWithoutQuestion) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.platform.ClearMessages();
    h.app.Main().mnuClose.RaiseClick();
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_TRUE(h.platform.Messages().empty());
    EXPECT_EQ(h.unloads, 1);
    EXPECT_FALSE(h.app.Main().mnuSave.Enabled());
    // The picture positions are kept for the next window.
    EXPECT_EQ(h.platform.GetSetting("Pendulon", "Setting", "PowerWindowTop", ""), "240");
    EXPECT_EQ(h.platform.GetSetting("Pendulon", "Setting", "PowerWindowLeft", ""), "120");
}

TEST(MainWindowClose, CancelInCloseQuestionKeepsDocument) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("12");
    h.platform.ClearMessages();
    h.platform.QueueAnswer(msgbox::Cancel);
    h.app.Main().mnuClose.RaiseClick();
    ASSERT_NE(h.Doc(), nullptr);
    ASSERT_EQ(h.platform.Messages().size(), 1u);
    EXPECT_EQ(h.platform.Messages()[0].Text, "Save changes to Untitled?");
    EXPECT_EQ(h.platform.Messages()[0].Style, msgbox::YesNoCancel | msgbox::Question);
    EXPECT_EQ(h.platform.Messages()[0].Title, "Pendulon(tm) 3.71");
    EXPECT_EQ(h.unloads, 0);
}

TEST(MainWindowClose, NoInCloseQuestionUnloads) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("12");
    h.platform.QueueAnswer(msgbox::No);
    h.app.Main().mnuClose.RaiseClick();
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_EQ(h.unloads, 1);
}

TEST(MainWindowClose, EditKeepingFirstCharacterAndLengthAsksNothing) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("12");
    h.app.Main().mdblSavedState = mShared::ComputeState(*h.Doc());
    h.Edit("19");
    h.platform.ClearMessages();
    h.app.Main().mnuClose.RaiseClick();
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_TRUE(h.platform.Messages().empty());
}

TEST(MainWindowSave, UncalculatedConfigurationIsNeverSaved) {
    for (int answer : {msgbox::OK, msgbox::Cancel}) {
        ShellHarness h;
        h.Start();
        h.NewDocument("QX6105A");
        h.Doc()->txtFilePath.SetText(MakeTempDir() + "/kept.ent");
        h.Doc()->txtNote.SetText("44");  // an edit, not calculated
        ASSERT_TRUE(h.app.gblnNeedsCalculate);
        h.platform.ClearMessages();
        h.platform.QueueAnswer(answer);
        h.app.Main().mnuSave.RaiseClick();
        ASSERT_EQ(h.platform.Messages().size(), 1u);
        EXPECT_EQ(h.platform.Messages()[0].Text,
                  "Warning! You have not calculated your configurations.\r\n"
                  "Please finish your configurations before saving.");
        EXPECT_EQ(h.platform.Messages()[0].Style, msgbox::OKCancel | msgbox::Exclamation);
        EXPECT_FALSE(std::filesystem::exists(h.Doc()->txtFilePath.Text()));
        h.app.Main().mnuSaveAs.RaiseClick();
        EXPECT_TRUE(h.platform.DialogsShown().empty());
    }
}

TEST(MainWindowSave, SaveWithPathWritesAndRecordsState) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    const std::string path = MakeTempDir() + "/doc.ent";
    h.Doc()->txtFilePath.SetText(path);
    h.Edit("31");
    h.app.Summary().lblChecksum.SetCaption("777");
    h.app.Main().mnuSave.RaiseClick();
    EXPECT_EQ(ReadFile(path), h.Doc()->EntryText());
    EXPECT_EQ(h.app.Main().mdblSavedState, mShared::ComputeState(*h.Doc()));
    EXPECT_EQ(h.app.Main().mstrSavedChecksum, "777");
    EXPECT_TRUE(h.platform.DialogsShown().empty());
}

TEST(MainWindowSave, SaveWithoutPathGoesToSaveAs) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("31");
    const std::string path = MakeTempDir() + "/new.ent";
    h.QueueSummaryOK();
    h.platform.QueueFileAnswer(path);
    h.app.Main().mnuSave.RaiseClick();
    ASSERT_EQ(h.platform.DialogsShown().size(), 1u);
    const CommonDialog& dialog = h.platform.DialogsShown()[0];
    EXPECT_EQ(dialog.DialogTitle, "Save Entry File As");
    EXPECT_EQ(dialog.Flags, 2627590);
    EXPECT_TRUE(dialog.CancelError);
    EXPECT_EQ(h.Doc()->txtFilePath.Text(), path);
    EXPECT_EQ(h.Doc()->Caption(), "new.ent");
    EXPECT_EQ(h.app.Summary().txtFilename.Text(), "new.ent");
    EXPECT_EQ(ReadFile(path), h.Doc()->EntryText());
    EXPECT_TRUE(h.app.Summary().mblnOK);
    EXPECT_TRUE(h.app.Main().mnuViewEntryFileSaved.Enabled());
    // No old path: nothing enters the recent list yet.
    EXPECT_EQ(h.app.Main().mintRecentFileCount, 0);
}

TEST(MainWindowSave, CancelledSaveAsWritesNothingAndRestoresChecksum) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("31");
    h.app.Main().mstrSavedChecksum = "n/a";
    h.QueueSummaryOK();
    h.platform.QueueFileAnswer(std::nullopt);
    h.app.Main().mnuSaveAs.RaiseClick();
    EXPECT_EQ(h.Doc()->txtFilePath.Text(), "");
    EXPECT_FALSE(h.app.Summary().mblnOK);
    EXPECT_EQ(h.app.Summary().lblChecksum.Caption(), "n/a");
}

TEST(MainWindowSave, YesThenCancelledSaveDialogKeepsTheWindow) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("31");
    h.platform.QueueAnswer(msgbox::Yes);
    h.QueueSummaryOK();
    h.platform.QueueFileAnswer(std::nullopt);
    h.app.Main().mnuClose.RaiseClick();
    ASSERT_NE(h.Doc(), nullptr);
    EXPECT_EQ(h.unloads, 0);
    // The device selection stays that of the document.
    EXPECT_EQ(h.app.DeviceForm().mstrCurrentDevice, "QX6105A");
}

TEST(MainWindowSave, YesThenSavedClosesTheWindow) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("31");
    const std::string path = MakeTempDir() + "/closing.ent";
    h.platform.QueueAnswer(msgbox::Yes);
    h.QueueSummaryOK();
    h.platform.QueueFileAnswer(path);
    h.app.Main().mnuClose.RaiseClick();
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(h.app.Main().RecentPath(1), path);
}

TEST(MainWindowSave, SaveAsTakesOldNameIntoRecentListUntilClose) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    const std::string dir = MakeTempDir();
    const std::string a = dir + "/a.ent";
    const std::string b = dir + "/b.ent";
    h.Doc()->txtFilePath.SetText(a);
    h.Edit("31");
    h.QueueSummaryOK();
    h.platform.QueueFileAnswer(b);
    h.app.Main().mnuSaveAs.RaiseClick();
    EXPECT_EQ(h.app.Main().mintRecentFileCount, 1);
    EXPECT_EQ(h.app.Main().mnuFilePathArray[1].Caption(), "&1 " + a);
    EXPECT_TRUE(h.app.Main().mnuFilePathArray[0].Visible());
    h.app.Main().mnuClose.RaiseClick();
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_EQ(h.app.Main().mnuFilePathArray[1].Caption(), "&1 " + b);
    EXPECT_EQ(h.app.Main().mnuFilePathArray[2].Caption(), "&2 " + a);
}

TEST(MainWindowSave, SaveAsIntoAFolderThatIsNotThereChangesNothing) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    const std::string dir = MakeTempDir();
    const std::string a = dir + "/a.ent";
    h.Doc()->txtFilePath.SetText(a);
    h.Doc()->SetCaption("a.ent");
    h.app.Summary().txtFilename.SetText("a.ent");
    h.Edit("31");
    const mShared::FormState unsaved = h.app.Main().mdblSavedState;
    ASSERT_NE(unsaved, mShared::ComputeState(*h.Doc()));
    h.app.Main().mstrSavedChecksum = "12";
    h.platform.ClearMessages();
    const std::string nowhere = dir + "/no/such/folder/b.ent";
    h.QueueSummaryOK();
    h.platform.QueueFileAnswer(nowhere);
    h.app.Main().mnuSaveAs.RaiseClick();

    // The error names the path and the system's reason.
    ASSERT_EQ(h.platform.Messages().size(), 1u);
    EXPECT_NE(h.platform.Messages()[0].Text.find("'" + nowhere +
                                                 "' was not written: No such file or directory."),
              std::string::npos)
        << h.platform.Messages()[0].Text;
    EXPECT_FALSE(std::filesystem::exists(dir + "/no"));
    // Name, caption, summary, recent list and saved state are as before the command.
    EXPECT_EQ(h.Doc()->txtFilePath.Text(), a);
    EXPECT_EQ(h.Doc()->Caption(), "a.ent");
    EXPECT_EQ(h.app.Summary().txtFilename.Text(), "a.ent");
    EXPECT_EQ(h.app.Main().mintRecentFileCount, 0);
    EXPECT_EQ(h.app.Main().mdblSavedState, unsaved);
    EXPECT_EQ(h.app.Summary().lblChecksum.Caption(), "12");

    // Close still asks the save question, so the work is not lost; Cancel keeps the window.
    h.platform.ClearMessages();
    h.platform.QueueAnswer(msgbox::Cancel);
    h.app.Main().mnuClose.RaiseClick();
    ASSERT_EQ(h.platform.Messages().size(), 1u);
    EXPECT_EQ(h.platform.Messages()[0].Text, "Save changes to a.ent?");
    EXPECT_NE(h.Doc(), nullptr);
}

TEST(MainWindowSave, YesThenAFailedSaveKeepsTheWindowAndTheRecentListTrue) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("31");
    const std::string nowhere = MakeTempDir() + "/gone/new.ent";
    h.platform.QueueAnswer(msgbox::Yes);
    h.QueueSummaryOK();
    h.platform.QueueFileAnswer(nowhere);
    h.app.Main().mnuClose.RaiseClick();
    // The save failed: the document stays open, unsaved, and no path that was never written
    // enters the recent list.
    ASSERT_NE(h.Doc(), nullptr);
    EXPECT_EQ(h.unloads, 0);
    EXPECT_EQ(h.Doc()->txtFilePath.Text(), "");
    EXPECT_EQ(h.app.Main().mintRecentFileCount, 0);
    EXPECT_FALSE(h.app.Main().mnuFilePathArray[1].Visible());
    EXPECT_EQ(h.CountMessages("was not written"), 1);
}

TEST(MainWindowSave, SaveOverAReadOnlyFileIsRefusedAndTheDocumentStaysUnsaved) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    const std::string path = MakeTempDir() + "/locked.ent";
    {
        std::ofstream(path) << "locked";
    }
    std::filesystem::permissions(path, std::filesystem::perms::owner_read |
                                           std::filesystem::perms::group_read |
                                           std::filesystem::perms::others_read);
    h.Doc()->txtFilePath.SetText(path);
    h.Edit("31");
    const mShared::FormState unsaved = h.app.Main().mdblSavedState;
    h.platform.ClearMessages();
    EXPECT_FALSE(h.app.Main().SaveDocument());
    EXPECT_EQ(ReadFile(path), "locked");
    EXPECT_EQ(h.CountMessages("'" + path + "' was not written: the file is read-only."), 1);
    EXPECT_EQ(h.app.Main().mdblSavedState, unsaved);
    std::filesystem::permissions(path, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
}

TEST(MainWindowRecentFiles, SamePathTwiceMovesToTopWithoutGrowing) {
    ShellHarness h;
    frmMain& m = h.app.Main();
    m.UpdateFileMenu("p1");
    m.UpdateFileMenu("p2");
    m.UpdateFileMenu("p3");
    m.UpdateFileMenu("p2");
    EXPECT_EQ(m.mintRecentFileCount, 3);
    EXPECT_EQ(m.mnuFilePathArray[1].Caption(), "&1 p2");
    EXPECT_EQ(m.mnuFilePathArray[2].Caption(), "&2 p3");
    EXPECT_EQ(m.mnuFilePathArray[3].Caption(), "&3 p1");
    m.UpdateFileMenu("p1");
    EXPECT_EQ(m.mintRecentFileCount, 3);
    EXPECT_EQ(m.mnuFilePathArray[1].Caption(), "&1 p1");
    EXPECT_EQ(m.mnuFilePathArray[2].Caption(), "&2 p2");
    EXPECT_EQ(m.mnuFilePathArray[3].Caption(), "&3 p3");
    EXPECT_FALSE(m.mnuFilePathArray[4].Visible());
}

TEST(MainWindowRecentFiles, SixPathsDropTheOldest) {
    ShellHarness h;
    frmMain& m = h.app.Main();
    for (int i = 1; i <= 6; ++i) m.UpdateFileMenu("path" + std::to_string(i));
    EXPECT_EQ(m.mintRecentFileCount, 5);
    EXPECT_EQ(m.mnuFilePathArray[1].Caption(), "&1 path6");
    EXPECT_EQ(m.mnuFilePathArray[5].Caption(), "&5 path2");
    for (int i = 1; i <= 5; ++i) EXPECT_NE(m.RecentPath(i), "path1");
    for (int i = 0; i <= 5; ++i) EXPECT_TRUE(m.mnuFilePathArray[i].Visible());
}

TEST(MainWindowRecentFiles, PathWithBlanksSurvivesAndEntryOpensIt) {
    ShellHarness h;
    h.Start();
    const std::string dir = MakeTempDir();
    const std::string path = WriteEntry(dir, "my design.ent", "qx4860-01", 14.31818, 3);
    h.app.Main().UpdateFileMenu(path);
    EXPECT_EQ(h.app.Main().RecentPath(1), path);
    h.QueueSummaryOK();
    h.app.Main().mnuFilePathArray[1].RaiseClick();
    ASSERT_NE(h.Doc(), nullptr);
    EXPECT_EQ(h.Doc()->txtFilePath.Text(), path);
}

TEST(MainWindowOpen, OpenDialogCancelKeepsDocument) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.platform.QueueFileAnswer(std::nullopt);
    h.app.Main().mnuOpen.RaiseClick();
    ASSERT_NE(h.Doc(), nullptr);
    ASSERT_EQ(h.platform.DialogsShown().size(), 1u);
    const CommonDialog& dialog = h.platform.DialogsShown()[0];
    EXPECT_EQ(dialog.DialogTitle, "Open Entry File");
    EXPECT_EQ(dialog.Filter,
              "Entry Files (*.ent)|*.ent|Fuse Maps (*.jed)|*.jed|All Files (*.*)|*.*");
    EXPECT_EQ(dialog.FilterIndex, 1);
    EXPECT_EQ(dialog.Flags, 2627590);
    EXPECT_TRUE(dialog.CancelError);
    EXPECT_EQ(h.app.Main().dlgCommon.Flags, 2627590);
}

TEST(MainWindowOpen, CancelInCloseQuestionDoesNotReadTheFile) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("31");
    const std::string path = WriteEntry(MakeTempDir(), "other.ent", "qx4860-01", 25, 9);
    h.platform.QueueAnswer(msgbox::Cancel);
    h.app.Main().GetFile(path);
    ASSERT_NE(h.Doc(), nullptr);
    EXPECT_EQ(h.Doc()->txtNote.Text(), "31");
    EXPECT_EQ(h.app.Summary().txtFilename.Text(), "");
    for (const auto& name : h.platform.ModalsShown()) EXPECT_NE(name, "frmSummary");
}

TEST(MainWindowOpen, NoUnloadsThenReadsTheNewFile) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("31");
    const std::string path = WriteEntry(MakeTempDir(), "other (copy).ent", "qx4860-01", 25, 9);
    h.platform.QueueAnswer(msgbox::No);
    h.QueueSummaryOK();
    h.app.Main().GetFile(path);
    ASSERT_NE(h.Doc(), nullptr);
    EXPECT_EQ(h.unloads, 1);
    EXPECT_EQ(h.Doc()->txtNote.Text(), "9");
    EXPECT_EQ(h.Doc()->cboFRef.Text(), "25.00000 MHz");
    EXPECT_EQ(h.Doc()->lblDevice.Caption(), "QX4860");
    EXPECT_EQ(h.app.DeviceForm().mstrCurrentDevice, "QX4860");
    EXPECT_TRUE(h.app.DeviceForm().optQX4860.Value());
    frmMain& m = h.app.Main();
    // The name in the summary stops before a bracket.
    EXPECT_EQ(h.app.Summary().txtFilename.Text(), "other");
    EXPECT_EQ(h.app.Summary().txtCustomer.Text(), "Acme");
    EXPECT_EQ(h.app.Summary().txtDate.Text(), "Feb/03/2003");
    EXPECT_EQ(h.app.Summary().txtRevision.Text(), "01");
    EXPECT_EQ(h.app.Summary().Caption(), "QX4860 Configuration");
    EXPECT_FALSE(m.mblnFileChanged);
    EXPECT_EQ(m.mdblSavedState, mShared::ComputeState(*h.Doc()));
    EXPECT_EQ(m.mstrSavedChecksum, h.app.Summary().lblChecksum.Caption());
    EXPECT_EQ(m.RecentPath(1), path);
    EXPECT_TRUE(m.mnuViewEntryFileSaved.Enabled());
    EXPECT_EQ(h.app.Power().ParentForm(), h.app.Document());
    EXPECT_FALSE(h.app.gblnNeedsCalculate);
    EXPECT_EQ(m.lblStatus.Caption(), "");
}

TEST(MainWindowOpen, FailedReadAfterNoLeavesNoDocument) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("31");
    h.platform.QueueAnswer(msgbox::No);
    h.app.Main().GetFile(MakeTempDir() + "/missing.ent");
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_EQ(h.app.Errors().LastNumber(), 10051);
    EXPECT_EQ(h.app.Main().lblStatus.Caption(), "");
}

TEST(MainWindowOpen, SummaryClosedWithoutOKStopsTheOpen) {
    ShellHarness h;
    h.Start();
    const std::string path = WriteEntry(MakeTempDir(), "x.ent", "qx4860-01", 25, 9);
    h.app.Main().GetFile(path);
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_EQ(h.app.Summary().txtFilename.Text(), "x.ent");
}

TEST(MainWindowOpen, RefusedFillUnloadsAndShowsNote) {
    ShellHarness h;
    h.Start();
    h.refuseNextFill = true;
    const std::string path = WriteEntry(MakeTempDir(), "bad.ent", "qx4860-01", 25, 9);
    h.QueueSummaryOK();
    h.app.Main().GetFile(path);
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_EQ(h.unloads, 1);
    EXPECT_EQ(h.CountMessages("Save changes"), 0);
    EXPECT_EQ(h.CountMessages("NOTE: One or more critical errors have occurred loading the ENT "
                              "file.\r\n\r\nThe form cannot be loaded when such errors occur."),
              1);
    EXPECT_EQ(h.platform.Messages().back().Style, msgbox::Information);
}

TEST(MainWindowOpen, UnknownDeviceInFileRaises10054) {
    ShellHarness h;
    h.Start();
    const std::string path = WriteEntry(MakeTempDir(), "odd.ent", "zz9999-01", 25, 9);
    h.QueueSummaryOK();
    h.app.DeviceForm().CreateNew(true);
    h.app.Main().GetFile(path);
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_EQ(h.CountMessages("The ENT file does not represent a known or current device."), 1);
    EXPECT_EQ(h.CountMessages("(mFileAccessor) FillForm"), 1);
    EXPECT_EQ(h.CountMessages("NOTE: One or more critical errors"), 1);
    EXPECT_FALSE(h.app.DeviceForm().mblnNew);
}

TEST(MainWindowOpen, FileOfAFamilyWithoutWindowRaises10054) {
    ShellHarness h;  // no window for the QX5140 in this build
    h.Start();
    const std::string path = WriteEntry(MakeTempDir(), "three.ent", "qx5140sc-01", 25, 9);
    h.QueueSummaryOK();
    h.app.Main().GetFile(path);
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_EQ(h.CountMessages("The ENT file does not represent a known or current device."), 1);
    EXPECT_EQ(h.CountMessages("An invalid device selection was made."), 0);
    EXPECT_EQ(h.CountMessages("NOTE: One or more critical errors"), 1);
}

TEST(MainWindowExit, CancelKeepsProgramRunning) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("31");
    h.platform.QueueAnswer(msgbox::Cancel);
    EXPECT_TRUE(h.app.Main().MDIForm_QueryUnload(kUnloadFormControlMenu));
    EXPECT_FALSE(h.app.Ended());
    EXPECT_NE(h.Doc(), nullptr);
}

TEST(MainWindowExit, ExitSavesSettingsAndEnds) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("31");
    h.Doc()->txtFilePath.SetText("/x/y.ent");
    bool ended = false;
    h.app.OnEnd = [&ended] { ended = true; };
    h.platform.QueueAnswer(msgbox::No);
    h.app.Main().Move(100, 200, 8000, 6000);
    h.app.Main().mnuExit.RaiseClick();
    EXPECT_TRUE(ended);
    EXPECT_TRUE(h.app.Ended());
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_EQ(h.platform.GetSetting("Pendulon", "FilePath", "1", ""), "/x/y.ent");
    EXPECT_EQ(h.platform.GetSetting("Pendulon", "Startup", "Width", ""), "8000");
    EXPECT_EQ(h.platform.GetSetting("Pendulon", "Startup", "Left", ""), "100");
}

TEST(MainWindowStatus, StatusSetsPointerAndHelpSetsColour) {
    ShellHarness h;
    frmMain& m = h.app.Main();
    m.DisplayStatus("Working...");
    EXPECT_EQ(m.lblStatus.Caption(), "Working...");
    EXPECT_EQ(h.platform.MousePointer(), kPointerHourglass);
    m.DisplayStatus("");
    EXPECT_EQ(m.lblStatus.Caption(), "");
    EXPECT_EQ(h.platform.MousePointer(), kPointerDefault);
    m.ShowHelp("  a hint ");
    EXPECT_EQ(m.lblHelpInfo.Caption(), " a hint");
    EXPECT_EQ(m.lblHelpInfo.BackColor(), colors::Yellow);
    m.ShowHelp("   ");
    EXPECT_EQ(m.lblHelpInfo.Caption(), "");
    EXPECT_EQ(m.lblHelpInfo.BackColor(), colors::ButtonFace);
}

TEST(MainWindowChecksum, CaptionFollowsTheRules) {
    ShellHarness h;
    h.Start();
    frmMain& m = h.app.Main();
    Label& caption = h.app.Summary().lblChecksum;
    m.UpdateChecksum(true);
    EXPECT_EQ(caption.Caption(), "n/a");
    h.NewDocument("QX6105A");
    h.Edit("A");  // 'A' is 65, list index 1 gives 2
    m.UpdateChecksum(true);
    EXPECT_EQ(caption.Caption(), "67");
    // Unchanged since the last save and not recalculated: the saved text is shown.
    m.mblnFileChanged = false;
    m.mdblSavedState = mShared::ComputeState(*h.Doc());
    m.mstrSavedChecksum = "saved";
    m.UpdateChecksum(false);
    EXPECT_EQ(caption.Caption(), "saved");
    // Changed state: computed again.
    h.Doc()->txtNote.SetText("AB");
    m.UpdateChecksum(false);
    EXPECT_EQ(caption.Caption(), "133");
    // Calculated since the load: computed.
    m.mdblSavedState = mShared::ComputeState(*h.Doc());
    caption.SetCaption("old");
    m.FileChange();
    m.UpdateChecksum(false);
    EXPECT_EQ(caption.Caption(), "133");
}

TEST(MainWindowLayout, ResizeSplitsStatusStrip) {
    ShellHarness h;
    frmMain& m = h.app.Main();
    m.Move(0, 0, 9600, 7200);
    m.MDIForm_Resize();
    EXPECT_DOUBLE_EQ(m.lblHelpInfo.Width(), 7200);
    EXPECT_DOUBLE_EQ(m.lblStatus.Left(), 7200 + 30);
    EXPECT_DOUBLE_EQ(m.lblStatus.Width(), 9600 - 7230 - 150);
}

TEST(MainWindowLayout, RightButtonWithoutShiftPopsUpFileMenu) {
    ShellHarness h;
    MenuItem* popped = nullptr;
    h.app.Main().PopupMenu = [&popped](MenuItem& menu) { popped = &menu; };
    h.app.Main().MDIForm_MouseUp(2, 1, 10, 10);
    EXPECT_EQ(popped, nullptr);
    h.app.Main().MDIForm_MouseUp(1, 0, 10, 10);
    EXPECT_EQ(popped, nullptr);
    h.app.Main().MDIForm_MouseUp(2, 0, 10, 10);
    EXPECT_EQ(popped, &h.app.Main().mnuFile);
}

}  // namespace
}  // namespace pendulon::test

namespace pendulon::test {
namespace {

TEST(MainWindowNew, InvalidDeviceStillUnloadsTheOpenDocument) {
    ShellHarness h({"QX6105A"});
    h.Start();
    h.NewDocument("QX6105A");
    ASSERT_NE(h.Doc(), nullptr);
    h.app.DeviceForm().mstrCurrentDevice = "QX9999";
    h.app.Main().LoadForm();
    EXPECT_EQ(h.app.Errors().LastNumber(), 10603);
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_EQ(h.unloads, 1);
    EXPECT_FALSE(h.app.Main().mnuSave.Enabled());
}

TEST(MainWindowPreview, SaveAndCloseActOnThePreviewInFront) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.Edit("31");
    int saves = 0;
    h.app.SetPreview(std::make_unique<Window>("frmPrintPreview"), [&saves] { ++saves; });
    EXPECT_EQ(h.app.ActiveChild()->Name(), "frmPrintPreview");
    h.app.Main().mnuSave.RaiseClick();
    EXPECT_EQ(saves, 1);
    EXPECT_TRUE(h.platform.DialogsShown().empty());
    h.app.Main().mnuClose.RaiseClick();
    EXPECT_EQ(h.app.Preview(), nullptr);
    ASSERT_NE(h.Doc(), nullptr);
    EXPECT_EQ(h.app.ActiveChild(), h.app.Document());
}

TEST(MainWindowPreview, ExitUnloadsThePreviewFirst) {
    ShellHarness h;
    h.Start();
    h.NewDocument("QX6105A");
    h.app.SetPreview(std::make_unique<Window>("frmPrintPreview"));
    h.app.Main().mnuExit.RaiseClick();
    EXPECT_EQ(h.app.Preview(), nullptr);
    EXPECT_EQ(h.app.Document(), nullptr);
    EXPECT_TRUE(h.app.Ended());
}

TEST(MainWindowHooks, DesktopHearsOfChildrenComingAndGoing) {
    ShellHarness h;
    h.Start();
    std::vector<std::string> events;
    h.app.OnChildLoaded = [&events](Window& w) { events.push_back("load " + w.Name()); };
    h.app.OnChildUnloading = [&events](Window& w) { events.push_back("unload " + w.Name()); };
    h.NewDocument("QX6105A");
    h.app.Main().mnuClose.RaiseClick();
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events[0], "load frmTest");
    EXPECT_EQ(events[1], "unload frmTest");
}

}  // namespace
}  // namespace pendulon::test
