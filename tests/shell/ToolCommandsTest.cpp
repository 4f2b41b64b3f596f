#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "ShellTestSupport.hpp"
#include "app/mSharedApp.hpp"
#include "configurators/frmQX6105A.hpp"
#include "platform/TextFile.hpp"
#include "reports/frmPrintPreview.hpp"
#include "reports/mAsciiPrintoutDocument.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "shell/mSharedShell.hpp"
#include "support/TestSupport.hpp"

namespace pendulon::test {
namespace {

namespace fs = std::filesystem;

// A document window with the PLL frequency fields the limit question looks at.
class PLLFieldsConfigurator : public TestConfigurator {
  public:
    explicit PLLFieldsConfigurator(Application& app) : TestConfigurator(app) {
        RegisterArray("txtPLL", txtPLL);
        Register("txtSPLL", txtSPLL);
        Register("txtUPLL", txtUPLL);
        RegisterArray("txtCPLL", txtCPLL);
    }
    ControlArray<TextField> txtPLL{16};
    TextField txtSPLL;
    TextField txtUPLL;
    ControlArray<TextField> txtCPLL{8};
};

// The shell with PLL-field documents for every device of the table, the program's folder in a
// fresh folder and the user's temporary folder in another, so that temporary entry files can be
// counted.
struct ToolHarness : ShellHarness {
    ToolHarness() {
        folder = MakeTempDir();
        temp = MakeTempDir();
        platform.SetAppDirectory(folder);
        platform.SetTempDirectory(temp);
        app.ConfiguratorFactory = [](Application& a,
                                     const std::string&) -> std::unique_ptr<Configurator> {
            return std::make_unique<PLLFieldsConfigurator>(a);
        };
        Start();
    }
    PLLFieldsConfigurator& Doc() { return dynamic_cast<PLLFieldsConfigurator&>(*app.Document()); }
    frmMain& Main() { return app.Main(); }
    // Files in the temporary folder whose names begin with the prefix.
    int CountFiles(const std::string& prefix) const {
        int count = 0;
        for (const auto& entry : fs::directory_iterator(temp))
            if (entry.path().filename().string().rfind(prefix, 0) == 0)
                ++count;
        return count;
    }
    std::string folder;
    std::string temp;
};

// A running program whose QX6105A family documents are the real device window.
struct QX6105AHarness {
    explicit QX6105AHarness(const std::string& device) {
        folder = MakeTempDir();
        temp = MakeTempDir();
        platform.SetAppDirectory(folder);
        platform.SetTempDirectory(temp);
        app.ConfiguratorFactory = [](Application& a,
                                     const std::string& name) -> std::unique_ptr<Configurator> {
            if (name.rfind("QX6105A", 0) != 0)
                return nullptr;
            return std::make_unique<frmQX6105A>(a);
        };
        app.Main().MDIForm_Load("");
        frmDevice& select = app.DeviceForm();
        select.CreateNew(true);
        select.OptionFor(device)->SetValue(true);
        select.cmdOK_Click();
    }
    frmQX6105A& Form() { return dynamic_cast<frmQX6105A&>(*app.Document()); }
    HeadlessPlatform platform;
    Application app{platform};
    std::string folder;
    std::string temp;
};

// VISUAL set to the value (or cleared) while it lives.
class ScopedVisual : public test::ScopedEnvironment {
  public:
    explicit ScopedVisual(const char* value) : ScopedEnvironment("VISUAL", value) {}
};

// ---- Limit question -------------------------------------------------------------------------

TEST(ToolLimitQuestion, CountsRedPLLFieldsOfTheFDevicesOnly) {
    ToolHarness h;
    h.NewDocument("QX4860F");
    h.Doc().txtPLL[0].SetForeColor(colors::Red);
    h.Doc().txtPLL[15].SetForeColor(colors::Red);
    h.Doc().txtPLL[3].SetForeColor(colors::WindowText);
    h.Doc().txtSPLL.SetForeColor(colors::Red);
    EXPECT_EQ(h.Main().CountExceededPLLs(), 2);

    h.app.DeviceForm().mstrCurrentDevice = "QX7311F";
    EXPECT_EQ(h.Main().CountExceededPLLs(), 1);  // txtSPLL only; txtPLL is not looked at
    h.Doc().txtUPLL.SetForeColor(colors::Red);
    h.Doc().txtCPLL[7].SetForeColor(colors::Red);
    EXPECT_EQ(h.Main().CountExceededPLLs(), 3);
    h.app.DeviceForm().mstrCurrentDevice = "QX7312F";
    EXPECT_EQ(h.Main().CountExceededPLLs(), 3);

    h.app.DeviceForm().mstrCurrentDevice = "QX6105AF";
    EXPECT_EQ(h.Main().CountExceededPLLs(), 2);  // every txtPLL element

    for (const char* device : {"QX4860", "QX7311", "QX6105A", "QX5140", "QX3350"}) {
        h.app.DeviceForm().mstrCurrentDevice = device;
        EXPECT_EQ(h.Main().CountExceededPLLs(), 0) << device;
    }
}

TEST(ToolLimitQuestion, NoToViewNewEntryFileLeavesNoTemporaryFile) {
    ToolHarness h;
    h.NewDocument("QX4860F");
    h.Doc().txtPLL[2].SetForeColor(colors::Red);
    h.platform.ClearMessages();
    h.platform.QueueAnswer(msgbox::No);
    h.Main().mnuViewEntryFileNew.RaiseClick();
    ASSERT_EQ(h.platform.Messages().size(), 1u);
    EXPECT_EQ(h.platform.Messages()[0].Text,
              "There are one or more PLLs which exceed default limits,\r\n\r\n"
              "Do you wish to continue anyway?");
    EXPECT_EQ(h.platform.Messages()[0].Style, msgbox::YesNo);
    EXPECT_EQ(h.platform.Messages()[0].Title, h.app.gstrTitle);
    EXPECT_EQ(h.CountFiles("Pendulon"), 0);
    EXPECT_EQ(h.CountFiles("~entfile"), 0);
    EXPECT_EQ(h.app.Preview(), nullptr);
}

TEST(ToolLimitQuestion, NoToCreateEPROMLeavesNoTemporaryFileAndShowsNoDialog) {
    ToolHarness h;
    h.NewDocument("QX4860F");
    h.Doc().txtPLL[2].SetForeColor(colors::Red);
    h.platform.QueueAnswer(msgbox::No);
    h.Main().mnuToolsCreateEPROMNew.RaiseClick();
    EXPECT_EQ(h.CountFiles("Pendulon"), 0);
    EXPECT_TRUE(h.platform.DialogsShown().empty());
}

TEST(ToolLimitQuestion, YesGoesOnAndShowsTheEntryFile) {
    ToolHarness h;
    h.NewDocument("QX4860F");
    h.Doc().txtPLL[2].SetForeColor(colors::Red);
    h.platform.QueueAnswer(msgbox::Yes);
    h.Main().mnuViewEntryFileNew.RaiseClick();
    ASSERT_NE(h.app.Preview(), nullptr);
    EXPECT_EQ(h.CountFiles("Pendulon"), 0);
}

// ---- View entry file ------------------------------------------------------------------------

TEST(ToolViewEntryFile, NewShowsFreshEntryFileInPreviewAndDeletesTheTemporaryFile) {
    ToolHarness h;
    h.NewDocument("QX4860");
    h.Edit("77");
    h.Main().mnuViewEntryFileNew.RaiseClick();
    auto* preview = dynamic_cast<frmPrintPreview*>(h.app.Preview());
    ASSERT_NE(preview, nullptr);
    EXPECT_EQ(preview->txtPrintout.Text(), h.Doc().EntryText());
    EXPECT_EQ(h.CountFiles("Pendulon"), 0);
    EXPECT_TRUE(h.platform.Messages().empty());
}

TEST(ToolViewEntryFile, NothingHappensWithoutDocument) {
    ToolHarness h;
    h.Main().mnuViewEntryFileNew_Click();
    h.Main().mnuViewEntryFileSaved_Click();
    EXPECT_EQ(h.app.Preview(), nullptr);
    EXPECT_TRUE(h.platform.Started().empty());
    EXPECT_EQ(h.CountFiles("Pendulon"), 0);
}

TEST(ToolViewEntryFile, UseNotepadStartsEditorForTemporaryFileThenDeletesIt) {
    ScopedVisual visual("myeditor --wait");
    ToolHarness h;
    h.platform.SaveSetting("Pendulon", "Option", "UseNotepad", "1");
    h.NewDocument("QX4860");
    h.Main().mnuViewEntryFileNew.RaiseClick();
    ASSERT_EQ(h.platform.Started().size(), 1u);
    const auto& started = h.platform.Started()[0];
    EXPECT_EQ(started.Program, "myeditor");
    ASSERT_EQ(started.Args.size(), 2u);
    EXPECT_EQ(started.Args[0], "--wait");
    const fs::path file = started.Args[1];
    EXPECT_EQ(file.parent_path(), fs::path(h.temp));
    EXPECT_EQ(file.filename().string().rfind("Pendulon", 0), 0u);
    // The editor was started for the file, and the file was deleted right behind it.
    EXPECT_FALSE(fs::exists(file));
    EXPECT_EQ(h.app.Preview(), nullptr);
}

TEST(ToolViewEntryFile, EditorIsXdgOpenWithoutVisual) {
    ScopedVisual visual(nullptr);
    EXPECT_EQ(mShared::TextEditorCommand(), std::vector<std::string>{"xdg-open"});
    ToolHarness h;
    h.platform.SaveSetting("Pendulon", "Option", "UseNotepad", "1");
    h.NewDocument("QX4860");
    h.Main().mnuViewEntryFileNew.RaiseClick();
    ASSERT_EQ(h.platform.Started().size(), 1u);
    EXPECT_EQ(h.platform.Started()[0].Program, "xdg-open");
    EXPECT_EQ(h.platform.Started()[0].Args.size(), 1u);
}

TEST(ToolViewEntryFile, FailedTemporaryNameFallsBackToEntfileTmpInTemporaryFolder) {
    ScopedVisual visual("ed");
    ToolHarness h;
    const std::string missing = (fs::path(h.temp) / "gone").string();
    h.platform.SetTempDirectory(missing);
    h.platform.SaveSetting("Pendulon", "Option", "UseNotepad", "1");
    h.NewDocument("QX4860");
    h.platform.ClearMessages();
    h.Main().mnuViewEntryFileNew.RaiseClick();
    // The fallback name is tried; a folder that is not there cannot take it, which is
    // reported with the path, and no editor is started for a file that was not written.
    ASSERT_EQ(h.platform.Messages().size(), 1u);
    EXPECT_NE(h.platform.Messages()[0].Text.find(
                  "'" + (fs::path(missing) / "~entfile.tmp").string() + "' was not written"),
              std::string::npos)
        << h.platform.Messages()[0].Text;
    EXPECT_TRUE(h.platform.Started().empty());
}

// An installed program's folder is not the user's to write in. /proc takes no new file from
// anybody, the administrator included, so the test holds whoever runs it.
TEST(ToolTemporaryFiles, EveryToolThatMakesOneWorksWhenTheProgramsFolderCannotBeWritten) {
    const std::string unwritable = "/proc";
    const bool writable = std::ofstream(unwritable + "/pendulon-probe").good();
    ASSERT_FALSE(writable) << unwritable << " can be written here; the test would prove nothing";
    QX6105AHarness h("QX6105A");
    h.platform.SetAppDirectory(unwritable);
    frmQX6105A& form = h.Form();
    form.cmdCalculate_Click();
    h.app.Main().InitializeMenu(false);
    h.platform.ClearMessages();

    // View, Entry File, Create New: the temporary file in the user's temporary folder, shown,
    // then removed.
    h.app.Main().mnuViewEntryFileNew.RaiseClick();
    auto* preview = dynamic_cast<frmPrintPreview*>(h.app.Preview());
    ASSERT_NE(preview, nullptr);
    EXPECT_NE(preview->txtPrintout.Text().find("# s qx6105"), std::string::npos);
    h.app.UnloadPreview();

    // Tools, Create EPROM Vector, From New Entry File.
    const std::string jed = (fs::path(h.folder) / "out.jed").string();
    h.platform.QueueFileAnswer(jed);
    h.app.Main().mnuToolsCreateEPROMNew.RaiseClick();
    EXPECT_TRUE(fs::exists(jed));
    EXPECT_EQ(h.app.Main().lblHelpInfo.Caption().rfind(" Deleted " + h.temp, 0), 0u)
        << h.app.Main().lblHelpInfo.Caption();

    std::string messages;
    for (const auto& message : h.platform.Messages()) messages += message.Text + "\n";
    EXPECT_TRUE(h.platform.Messages().empty()) << messages;
    EXPECT_TRUE(fs::is_empty(h.temp));
}

TEST(ToolViewEntryFile, SavedOnNewUnsavedDocumentWithoutNameDoesNothing) {
    ToolHarness h;
    h.NewDocument("QX4860");
    ASSERT_TRUE(h.app.Summary().txtFilename.Text().empty());
    h.platform.ClearMessages();
    h.Main().mnuViewEntryFileSaved_Click();
    EXPECT_EQ(h.app.Preview(), nullptr);
    EXPECT_TRUE(h.platform.Started().empty());
    EXPECT_TRUE(h.platform.Messages().empty());
}

TEST(ToolViewEntryFile, SavedShowsTheDocumentsFileLineByLineWithCrLf) {
    ToolHarness h;
    h.NewDocument("QX4860");
    const std::string path = (fs::path(h.folder) / "mixed.ent").string();
    ASSERT_EQ(WriteTextFileAtomically(path, "first\nsecond\r\nthird\rlast"), "");
    h.Doc().txtFilePath.SetText(path);
    h.Main().mnuViewEntryFileSaved_Click();
    auto* preview = dynamic_cast<frmPrintPreview*>(h.app.Preview());
    ASSERT_NE(preview, nullptr);
    EXPECT_EQ(preview->txtPrintout.Text(), "first\r\nsecond\r\nthird\r\nlast\r\n");
}

TEST(ToolViewEntryFile, SavedWithoutPathButNamedSummaryUsesNewestRecentEntry) {
    ToolHarness h;
    h.NewDocument("QX4860");
    const std::string path = (fs::path(h.folder) / "recent.ent").string();
    ASSERT_EQ(WriteTextFileAtomically(path, "# s recent\r\n"), "");
    h.Main().UpdateFileMenu(path);
    h.app.Summary().txtFilename.SetText("recent.ent");
    h.Main().mnuViewEntryFileSaved_Click();
    auto* preview = dynamic_cast<frmPrintPreview*>(h.app.Preview());
    ASSERT_NE(preview, nullptr);
    EXPECT_EQ(preview->txtPrintout.Text(), "# s recent\r\n");
}

TEST(ToolViewEntryFile, SavedFileGoneGivesFileNotFoundReportAndNoPreview) {
    ToolHarness h;
    h.NewDocument("QX4860");
    h.Doc().txtFilePath.SetText((fs::path(h.folder) / "nothere.ent").string());
    h.platform.ClearMessages();
    h.Main().mnuViewEntryFileSaved_Click();
    EXPECT_EQ(h.app.Preview(), nullptr);
    EXPECT_EQ(h.CountMessages("The error number is: 53"), 1);
    EXPECT_NE(h.app.Document(), nullptr);
}

// ---- EPROM vector ---------------------------------------------------------------------------

TEST(ToolCreateEPROM, SavedWithEmptySummaryNameRaises10602) {
    ToolHarness h;
    h.NewDocument("QX4860");
    h.platform.ClearMessages();
    h.Main().mnuToolsCreateEPROMSaved_Click();
    ASSERT_EQ(h.platform.Messages().size(), 1u);
    const auto& message = h.platform.Messages()[0];
    EXPECT_EQ(message.Style, msgbox::Critical);
    EXPECT_EQ(message.Text, ErrorReport::Text(10602, "frmMain.mnuToolsCreateEPROMSaved",
                                              "Entry file does not exist!\r\n"
                                              "Choose Create EPROM Vector From New Entry File."));
    EXPECT_EQ(h.Main().dlgEPROM.DefaultExt, "jed");
    EXPECT_TRUE(h.platform.DialogsShown().empty());
}

TEST(ToolCreateEPROM, CancelledDialogMakesNoVectorDeletesTemporaryFileRestoresPath) {
    ToolHarness h;
    h.NewDocument("QX4860");
    h.Doc().txtFilePath.SetText("/somewhere/old.ent");
    h.platform.QueueFileAnswer(std::nullopt);
    h.Main().mnuToolsCreateEPROMNew_Click();
    ASSERT_EQ(h.platform.DialogsShown().size(), 1u);
    const CommonDialog& shown = h.platform.DialogsShown()[0];
    EXPECT_EQ(shown.DefaultExt, "jed");
    EXPECT_TRUE(shown.CancelError);
    EXPECT_EQ(h.CountFiles("Pendulon"), 0);
    EXPECT_EQ(h.Doc().txtFilePath.Text(), "/somewhere/old.ent");
    EXPECT_EQ(h.Main().lblHelpInfo.Caption().rfind(" Deleted " + h.temp, 0), 0u);
    EXPECT_EQ(h.Main().mintRecentFileCount, 0);
}

TEST(ToolCreateEPROM, NewWritesVectorOfTheWindowAsTheModelWritesIt) {
    QX6105AHarness h("QX6105A");
    frmQX6105A& form = h.Form();
    form.cmdCalculate_Click();
    const std::string jed = (fs::path(h.folder) / "out.jed").string();
    h.platform.QueueFileAnswer(jed);
    h.app.Main().mnuToolsCreateEPROMNew.RaiseClick();
    ASSERT_TRUE(fs::exists(jed));
    const std::string written = ReadFile(jed);
    EXPECT_EQ(h.app.Main().lblHelpInfo.Caption().rfind(" Deleted " + h.temp, 0), 0u)
        << h.app.Main().lblHelpInfo.Caption();

    // The same vector written through the models directly.
    const std::string entry = (fs::path(h.folder) / "direct.ent").string();
    const std::string direct = (fs::path(h.folder) / "direct.jed").string();
    form.MakeEntryFile(entry);
    form.MakeEPROMVector(direct, true);
    EXPECT_EQ(written, ReadFile(direct));
    EXPECT_EQ(written.front(), '\x02');
    EXPECT_NE(written.find("Generated by Pendulon(tm) 3.71 - Build #: 3.71.010\r\n"),
              std::string::npos);

    EXPECT_EQ(form.txtFilePath.Text(), "");
    int temporary = 0;
    for (const auto& e : fs::directory_iterator(h.temp))
        if (e.path().filename().string().rfind("Pendulon", 0) == 0)
            ++temporary;
    EXPECT_EQ(temporary, 0);
}

TEST(ToolCreateEPROM, SavedReadsTheSavedEntryFile) {
    QX6105AHarness h("QX6105A");
    frmQX6105A& form = h.Form();
    form.cmdCalculate_Click();
    const std::string ent = (fs::path(h.folder) / "saved.ent").string();
    h.platform.QueueModal("frmSummary",
                          [](Window& w) { dynamic_cast<frmSummary&>(w).cmdOK_Click(); });
    h.platform.QueueFileAnswer(ent);
    h.app.Main().mnuSaveAs.RaiseClick();
    ASSERT_TRUE(fs::exists(ent));
    // Save As of a new document puts no path in the recent list yet.
    ASSERT_EQ(h.app.Main().mintRecentFileCount, 0);

    // The saved file is what counts: its image goes into the vector, not the window's.
    const std::string jedFromFile = (fs::path(h.folder) / "fromfile.jed").string();
    h.platform.QueueFileAnswer(jedFromFile);
    h.app.Main().mnuToolsCreateEPROMSaved.RaiseClick();
    ASSERT_TRUE(fs::exists(jedFromFile));
    EXPECT_EQ(form.txtFilePath.Text(), ent);
    EXPECT_EQ(h.app.Main().RecentPath(1), ent);
    EXPECT_EQ(h.app.Main().lblHelpInfo.Caption(), " Wrote to " + jedFromFile);

    const std::string direct = (fs::path(h.folder) / "direct.jed").string();
    form.MakeEPROMVector(direct, false);
    EXPECT_EQ(ReadFile(jedFromFile), ReadFile(direct));
    // Nothing changed since the save, so the saved file gives the vector of the window.
    const std::string fromForm = (fs::path(h.folder) / "fromform.jed").string();
    form.MakeEntryFile((fs::path(h.folder) / "fromform.ent").string());
    form.MakeEPROMVector(fromForm, true);
    EXPECT_EQ(ReadFile(jedFromFile), ReadFile(fromForm));
}

// ---- Design tool ----------------------------------------------------------------------------

TEST(ToolLaunchKITE, ToolGoneSinceStartRaises10601AndProgramGoesOn) {
    ToolHarness h;
    const std::string tool = (fs::path(h.folder) / "kite.exe").string();
    ASSERT_EQ(WriteTextFileAtomically(tool, "x"), "");
    h.app.gstrDesignTool = tool;
    h.Main().mnuToolsLaunchKITE_Click();
    ASSERT_EQ(h.platform.Started().size(), 1u);
    EXPECT_EQ(h.platform.Started()[0].Program, tool);

    fs::remove(tool);
    h.platform.ClearMessages();
    h.Main().mnuToolsLaunchKITE_Click();
    ASSERT_EQ(h.platform.Messages().size(), 1u);
    EXPECT_EQ(h.platform.Messages()[0].Text,
              ErrorReport::Text(10601, "frmMain.mnuToolsLaunchKITE", "File not found: " + tool));
    EXPECT_EQ(h.platform.Started().size(), 1u);
    // The program goes on: the next command works.
    h.NewDocument("QX4860");
    EXPECT_NE(h.app.Document(), nullptr);
}

// ---- Edit commands --------------------------------------------------------------------------

TEST(ToolEdit, CopyCutPasteSelectAllOnTheFocusedTextField) {
    ToolHarness h;
    h.NewDocument("QX4860");
    TextField& note = h.Doc().txtNote;
    note.SetText("12.5 MHz");
    h.Doc().SetFocusTo(&note);
    note.SetSelStart(0);
    note.SetSelLength(4);
    h.Main().mnuEditCopy.RaiseClick();
    EXPECT_EQ(h.platform.ClipboardText(), "12.5");
    EXPECT_EQ(note.Text(), "12.5 MHz");

    note.SetSelStart(4);
    note.SetSelLength(4);
    h.Main().mnuEditCut.RaiseClick();
    EXPECT_EQ(h.platform.ClipboardText(), " MHz");
    EXPECT_EQ(note.Text(), "12.5");

    h.platform.SetClipboardText("0");
    note.SetSelStart(1);
    note.SetSelLength(1);
    h.Main().mnuEditPaste.RaiseClick();
    EXPECT_EQ(note.Text(), "10.5");

    h.Main().mnuEditSelectAll.RaiseClick();
    EXPECT_EQ(note.SelStart(), 0);
    EXPECT_EQ(note.SelLength(), 4);
}

TEST(ToolEdit, PasteAndSelectAllOnFreeTextList) {
    ToolHarness h;
    h.NewDocument("QX4860");
    ListField& ref = h.Doc().cboFRef;
    ref.SetAllowsFreeText(true);
    ref.SetText("14 MHz");
    h.Doc().SetFocusTo(&ref);
    h.Main().mnuEditSelectAll_Click();
    EXPECT_EQ(ref.SelStart(), 0);
    EXPECT_EQ(ref.SelLength(), 6);
    h.Main().mnuEditCopy_Click();
    EXPECT_EQ(h.platform.ClipboardText(), "14 MHz");
    h.platform.SetClipboardText("20");
    ref.SetSelStart(0);
    ref.SetSelLength(2);
    h.Main().mnuEditPaste_Click();
    EXPECT_EQ(ref.Text(), "20 MHz");
}

TEST(ToolEdit, NoFocusedFieldLeavesClipboardAndFieldsAlone) {
    ToolHarness h;
    h.NewDocument("QX4860");
    h.Doc().SetFocusTo(nullptr);
    h.platform.SetClipboardText("keep");
    h.Doc().txtNote.SetText("abc");
    h.Main().mnuEditCut_Click();
    h.Main().mnuEditCopy_Click();
    h.Main().mnuEditPaste_Click();
    h.Main().mnuEditSelectAll_Click();
    EXPECT_EQ(h.platform.ClipboardText(), "keep");
    EXPECT_EQ(h.Doc().txtNote.Text(), "abc");
    // A focused field that is neither text nor list is no target either.
    h.Doc().SetFocusTo(&h.Doc().cmdCalculate);
    h.Main().mnuEditPaste_Click();
    EXPECT_EQ(h.Doc().txtNote.Text(), "abc");
}

// ---- Displays, windows, help, print ---------------------------------------------------------

TEST(ToolViewPower, TogglesCheckAndPowerArea) {
    ToolHarness h;
    h.NewDocument("QX4860");
    const bool before = h.Main().mnuViewPower.Checked();
    h.Main().mnuViewPower.RaiseClick();
    EXPECT_EQ(h.Main().mnuViewPower.Checked(), !before);
    EXPECT_EQ(h.Doc().picPower.Visible(), !before);
    h.Main().mnuViewPower.RaiseClick();
    EXPECT_EQ(h.Main().mnuViewPower.Checked(), before);
    EXPECT_EQ(h.Doc().picPower.Visible(), before);
}

TEST(ToolViewPower, WithoutDocumentNothingChanges) {
    ToolHarness h;
    const bool before = h.Main().mnuViewPower.Checked();
    h.Main().mnuViewPower_Click();
    EXPECT_EQ(h.Main().mnuViewPower.Checked(), before);
}

TEST(ToolViewDebugWindow, TogglesOnlyWhenTheEntryIsEnabled) {
    ToolHarness h;
    h.NewDocument("QX4860");
    ASSERT_FALSE(h.Main().mnuViewDebugWindow.Enabled());
    h.Doc().picDebugWindow.SetVisible(false);
    h.Main().mnuViewDebugWindow_Click();
    EXPECT_FALSE(h.Main().mnuViewDebugWindow.Checked());
    EXPECT_FALSE(h.Doc().picDebugWindow.Visible());

    h.Main().mnuViewDebugWindow.SetEnabled(true);
    h.Main().mnuViewDebugWindow_Click();
    EXPECT_TRUE(h.Main().mnuViewDebugWindow.Checked());
    EXPECT_TRUE(h.Doc().picDebugWindow.Visible());
    h.Main().mnuViewDebugWindow_Click();
    EXPECT_FALSE(h.Doc().picDebugWindow.Visible());
}

TEST(ToolWindow, TileAndCascadeAskTheViewToArrange) {
    ToolHarness h;
    std::vector<int> requests;
    h.Main().Arrange = [&](int how) { requests.push_back(how); };
    h.Main().mnuTile.RaiseClick();
    h.Main().mnuCascade.RaiseClick();
    EXPECT_EQ(requests, (std::vector<int>{1, 0}));
}

TEST(ToolHelp, ContentsShowsTheManualThroughTheHelpDialog) {
    ToolHarness h;
    h.Main().mnuPopupHelp.RaiseClick();
    ASSERT_EQ(h.platform.HelpShown().size(), 1u);
    EXPECT_EQ(h.platform.HelpShown()[0], (fs::path(h.folder) / "manual.md").string());
    EXPECT_EQ(h.Main().dlgCommon.HelpCommand, 15);
    EXPECT_EQ(h.Main().lblStatus.Caption(), "");

    // A manual beside the program in a docs folder is found there.
    fs::create_directories(fs::path(h.folder) / "docs");
    ASSERT_EQ(WriteTextFileAtomically((fs::path(h.folder) / "docs" / "manual.md").string(), "#"),
              "");
    h.Main().mnuPopupHelp_Click();
    EXPECT_EQ(h.platform.HelpShown()[1], (fs::path(h.folder) / "docs" / "manual.md").string());
}

TEST(ToolHelp, ContentsFindsTheManualOfAnInstalledTree) {
    ToolHarness h;
    struct RemoveFolder {
        std::string path;
        ~RemoveFolder() { fs::remove_all(path); }
    } cleanup{h.folder};
    // The program as <prefix>/bin/pendulon: the manual is in <prefix>/share, not beside it.
    const fs::path prefix = h.folder;
    fs::create_directories(prefix / "bin");
    h.platform.SetAppDirectory((prefix / "bin").string());
    const fs::path docs = prefix / "share" / "doc" / "pendulon";
    fs::create_directories(docs);
    ASSERT_EQ(WriteTextFileAtomically((docs / "manual.md").string(), "#"), "");
    h.Main().mnuPopupHelp_Click();
    ASSERT_EQ(h.platform.HelpShown().size(), 1u);
    EXPECT_EQ(h.platform.HelpShown()[0], (docs / "manual.md").string());

    // The program's own data folder comes before the documentation folder, which a system may
    // leave out.
    const fs::path data = prefix / "share" / "pendulon";
    fs::create_directories(data);
    ASSERT_EQ(WriteTextFileAtomically((data / "manual.md").string(), "#"), "");
    h.Main().mnuPopupHelp_Click();
    EXPECT_EQ(h.platform.HelpShown()[1], (data / "manual.md").string());

    // A manual beside the program still comes first.
    ASSERT_EQ(WriteTextFileAtomically((prefix / "bin" / "manual.md").string(), "#"), "");
    h.Main().mnuPopupHelp_Click();
    EXPECT_EQ(h.platform.HelpShown()[2], (prefix / "bin" / "manual.md").string());
}

TEST(ToolHelp, WizardEntryIsEnabledAndShowsTheWizardModally) {
    ToolHarness h;
    EXPECT_TRUE(h.Main().mnuDecisionTree.Enabled());
    std::string caption;
    h.platform.QueueModal("frmDecisionTree", [&caption](Window& w) { caption = w.Caption(); });
    h.Main().mnuDecisionTree.RaiseClick();
    ASSERT_FALSE(h.platform.ModalsShown().empty());
    EXPECT_EQ(h.platform.ModalsShown().back(), "frmDecisionTree");
    EXPECT_EQ(caption, "Clock Selection Wizard");
}

TEST(ToolPrint, BuildsTheASCIIDocumentIntoThePreview) {
    QX6105AHarness h("QX6105A");
    h.Form().cmdCalculate_Click();
    h.app.Main().mnuPrint.RaiseClick();
    auto* preview = dynamic_cast<frmPrintPreview*>(h.app.Preview());
    ASSERT_NE(preview, nullptr);
    EXPECT_TRUE(preview->Visible());
    EXPECT_EQ(preview->txtPrintout.Text(), mAsciiPrintout::GetASCIIDocument(h.Form()));
    EXPECT_NE(preview->txtPrintout.Text().find("QX6105A"), std::string::npos);
    EXPECT_EQ(h.app.Main().lblStatus.Caption(), "");
    EXPECT_EQ(h.app.Summary().lblChecksum.Caption(), h.Form().Checksum());
}

TEST(ToolPrint, WithoutDocumentNothingIsShown) {
    ToolHarness h;
    h.Main().mnuPrint_Click();
    EXPECT_EQ(h.app.Preview(), nullptr);
}

}  // namespace
}  // namespace pendulon::test
