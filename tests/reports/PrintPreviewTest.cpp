#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <vector>

#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/TextFile.hpp"
#include "reports/frmPrintPreview.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

// Records what the preview asks of the program around it.
struct RecordingHost : PrintPreviewHost {
    std::string checksum = "n/a";
    std::vector<std::string> statuses;
    std::vector<std::string> hints;
    std::vector<std::string> commands;
    int closes = 0;
    std::string document;

    std::string DocumentName() override { return document; }
    std::string Title() override { return "Pendulon(tm) 3.71"; }
    std::string ChecksumCaption() override { return checksum; }
    void DisplayStatus(const std::string& text) override { statuses.push_back(text); }
    void ShowHelp(const std::string& text) override { hints.push_back(text); }
    void RunMainCommand(const std::string& menuName) override { commands.push_back(menuName); }
    void ClosePreview() override { ++closes; }
};

const std::string kUnsavedQuestion =
    "Note: File changes have not been saved. \r\n\r\nWould you like to continue printing?";

class PrintPreview : public ::testing::Test {
  protected:
    PrintPreview() : errors(platform, [] { return std::string("Pendulon(tm) 3.71"); }) {}

    frmPrintPreview& Load() {
        auto recording = std::make_unique<RecordingHost>();
        host = recording.get();
        form = std::make_unique<frmPrintPreview>(platform, errors, std::move(recording));
        form->Form_Load();
        return *form;
    }

    std::string Stored(const std::string& key) {
        return platform.GetSetting("Pendulon", "Print", key, "<none>");
    }

    HeadlessPlatform platform;
    ErrorReport errors;
    RecordingHost* host = nullptr;
    std::unique_ptr<frmPrintPreview> form;
};

// ---- fonts and sizes

TEST_F(PrintPreview, OffersTheClassicFontsInTheirOrderLeavingOutMissingOnes) {
    platform.SetFonts({"Fixedsys", "Terminal", "Courier New"});
    auto& f = Load();
    ASSERT_EQ(f.cboPrintFont.ListCount(), 3);
    EXPECT_EQ(f.cboPrintFont.List(0), "Courier New");
    EXPECT_EQ(f.cboPrintFont.List(1), "Terminal");
    EXPECT_EQ(f.cboPrintFont.List(2), "Fixedsys");
}

TEST_F(PrintPreview, SystemFixedFontsFollowByNameWithoutRepeats) {
    platform.SetFonts({"Courier", "DejaVu Sans Mono"});
    platform.SetFixedPitchFonts({"Liberation Mono", "courier", "DejaVu Sans Mono", "Courier"});
    auto& f = Load();
    const std::vector<std::string> expected = {"Courier", "DejaVu Sans Mono", "Liberation Mono"};
    EXPECT_EQ(f.cboPrintFont.Items(), expected);
}

TEST_F(PrintPreview, FallsBackToTheSystemFixedFontWhenNoneIsFound) {
    platform.SetFonts({});
    platform.SetSystemFixedFont("Monospace");
    auto& f = Load();
    ASSERT_EQ(f.cboPrintFont.ListCount(), 1);
    EXPECT_EQ(f.cboPrintFont.List(0), "Monospace");
    EXPECT_EQ(f.cboPrintFont.ListIndex(), 0);
}

TEST_F(PrintPreview, SizesRunFromFiveToTwelveRightAlignedInThree) {
    auto& f = Load();
    ASSERT_EQ(f.cboPrintSize.ListCount(), 8);
    EXPECT_EQ(f.cboPrintSize.List(0), "  5");
    EXPECT_EQ(f.cboPrintSize.List(4), "  9");
    EXPECT_EQ(f.cboPrintSize.List(7), " 12");
}

TEST_F(PrintPreview, WithoutStoredSettingsCourierNewAtNine) {
    auto& f = Load();
    EXPECT_EQ(f.cboPrintFont.Text(), "Courier New");
    EXPECT_EQ(f.cboPrintSize.ListIndex(), 4);
    EXPECT_EQ(f.txtPrintout.FontName(), "Courier New");
    EXPECT_EQ(f.txtPrintout.FontSize(), 9);
    EXPECT_TRUE(f.cboPrintSize.Enabled());
}

TEST_F(PrintPreview, StoredFontThatNoLongerExistsLeavesTheFirstEntrySelected) {
    platform.SetFonts({"Courier", "Terminal"});
    platform.SaveSetting("Pendulon", "Print", "FontName", "Lucida Console");
    auto& f = Load();
    EXPECT_EQ(f.cboPrintFont.ListIndex(), 0);
    EXPECT_EQ(f.cboPrintFont.Text(), "Courier");
    EXPECT_EQ(f.txtPrintout.FontName(), "Courier");
}

TEST_F(PrintPreview, StoredFontAndSizeAreSelected) {
    platform.SetFonts({"Courier New", "Courier", "Terminal"});
    platform.SaveSetting("Pendulon", "Print", "FontName", "Terminal");
    platform.SaveSetting("Pendulon", "Print", "FontSize", "11");
    auto& f = Load();
    EXPECT_EQ(f.cboPrintFont.Text(), "Terminal");
    EXPECT_EQ(f.cboPrintSize.ListIndex(), 6);
    EXPECT_EQ(f.txtPrintout.FontName(), "Terminal");
    EXPECT_EQ(f.txtPrintout.FontSize(), 11);
}

TEST_F(PrintPreview, StoredSizeOutsideTheListSelectsNine) {
    platform.SaveSetting("Pendulon", "Print", "FontSize", "14");
    auto& f = Load();
    EXPECT_EQ(f.cboPrintSize.ListIndex(), 4);
    EXPECT_EQ(f.cboPrintSize.Text(), "  9");
}

TEST_F(PrintPreview, TheClassicScreenFacesTakeTheSizeOutOfUseScalableFacesKeepIt) {
    platform.SetFonts({"Courier New", "Courier", "Fixedsys"});
    auto& f = Load();
    f.cboPrintFont.SetListIndex(2);
    EXPECT_EQ(f.txtPrintout.FontName(), "Fixedsys");
    EXPECT_FALSE(f.cboPrintSize.Enabled());
    f.cboPrintFont.SetListIndex(1);
    EXPECT_FALSE(f.cboPrintSize.Enabled());
    f.cboPrintFont.SetListIndex(0);
    EXPECT_TRUE(f.cboPrintSize.Enabled());
    // Any other fixed-pitch face of the system is scalable: its size can be chosen.
    EXPECT_TRUE(frmPrintPreview::IsBitmapFace("Terminal"));
    EXPECT_FALSE(frmPrintPreview::IsBitmapFace("DejaVu Sans Mono"));
}

TEST(PrintPreviewSave, OffersTheDocumentsOwnNameWithTxtInItsFolder) {
    EXPECT_EQ(frmPrintPreview::TextFileName("/home/ann/designs/clock.ent"),
              "/home/ann/designs/clock.txt");
    EXPECT_EQ(frmPrintPreview::TextFileName("QX7311"), "QX7311.txt");
    EXPECT_EQ(frmPrintPreview::TextFileName(""), "*.txt");
}

TEST_F(PrintPreview, ChoosingASizeSetsTheTextSize) {
    auto& f = Load();
    f.cboPrintSize.SetListIndex(7);
    EXPECT_EQ(f.txtPrintout.FontSize(), 12);
    EXPECT_EQ(f.txtPrintout.FontName(), "Courier New");
}

TEST_F(PrintPreview, UnloadStoresFontAndTrimmedSize) {
    platform.SetFonts({"Courier New", "Courier"});
    auto& f = Load();
    f.cboPrintFont.SetListIndex(1);
    f.cboPrintSize.SetListIndex(1);
    f.Form_Unload();
    EXPECT_EQ(Stored("FontName"), "Courier");
    EXPECT_EQ(Stored("FontSize"), "6");
}

// ---- printing

TEST_F(PrintPreview, UnsavedDocumentAsksAndNoPrintsNothing) {
    auto& f = Load();
    f.txtPrintout.SetText("document\r\n");
    platform.QueueAnswer(msgbox::No);
    f.cmdPrint_Click();
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(platform.Messages()[0].Text, kUnsavedQuestion);
    EXPECT_EQ(platform.Messages()[0].Style, 36);
    EXPECT_EQ(platform.Messages()[0].Title, "Pendulon(tm) 3.71");
    EXPECT_TRUE(platform.Printed().empty());
    EXPECT_TRUE(host->hints.empty());
}

TEST_F(PrintPreview, UnsavedDocumentAnsweredYesPrints) {
    auto& f = Load();
    f.txtPrintout.SetText("document\r\n");
    platform.QueueAnswer(msgbox::Yes);
    f.cmdPrint_Click();
    ASSERT_EQ(platform.Printed().size(), 1u);
    EXPECT_EQ(platform.Printed()[0].Text, "document\r\n");
}

TEST_F(PrintPreview, SavedDocumentPrintsWithoutAQuestion) {
    auto& f = Load();
    host->checksum = "4711";
    f.txtPrintout.SetText("saved");
    f.cboPrintSize.SetListIndex(3);
    f.cmdPrint_Click();
    EXPECT_TRUE(platform.Messages().empty());
    ASSERT_EQ(platform.Printed().size(), 1u);
    EXPECT_EQ(platform.Printed()[0].FontName, "Courier New");
    EXPECT_EQ(platform.Printed()[0].Size, 8);
    EXPECT_EQ(platform.Printed()[0].Text, "saved");
    const std::vector<std::string> statuses = {"Printing...", ""};
    EXPECT_EQ(host->statuses, statuses);
    ASSERT_EQ(host->hints.size(), 1u);
    EXPECT_EQ(host->hints[0], "Document sent to printer.");
}

TEST_F(PrintPreview, FontMissingFromThePrinterAsksAndNoLeavesNothingPrinted) {
    platform.SetPrinterFonts({"Arial"});
    auto& f = Load();
    host->checksum = "4711";
    platform.QueueAnswer(msgbox::No);
    f.cmdPrint_Click();
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(platform.Messages()[0].Text,
              "Print Error: The font \"Courier New\" is not available.\r\n"
              "Would you like to continue printing using printer's default font?");
    EXPECT_EQ(platform.Messages()[0].Style, 36);
    EXPECT_TRUE(platform.Printed().empty());
    const std::vector<std::string> statuses = {""};
    EXPECT_EQ(host->statuses, statuses);
    EXPECT_TRUE(host->hints.empty());
}

TEST_F(PrintPreview, FontMissingFromThePrinterAnsweredYesUsesThePrintersDefault) {
    platform.SetPrinterFonts({"Arial"});
    auto& f = Load();
    host->checksum = "4711";
    f.txtPrintout.SetText("x");
    platform.QueueAnswer(msgbox::Yes);
    f.cmdPrint_Click();
    ASSERT_EQ(platform.Printed().size(), 1u);
    EXPECT_EQ(platform.Printed()[0].FontName, "");
    EXPECT_EQ(platform.Printed()[0].Size, 9);
    EXPECT_EQ(host->hints.back(), "Document sent to printer.");
}

TEST_F(PrintPreview, UnsavedAndFontMissingAskBothQuestions) {
    platform.SetPrinterFonts({});
    auto& f = Load();
    platform.QueueAnswer(msgbox::Yes);
    platform.QueueAnswer(msgbox::No);
    f.cmdPrint_Click();
    ASSERT_EQ(platform.Messages().size(), 2u);
    EXPECT_EQ(platform.Messages()[0].Text, kUnsavedQuestion);
    EXPECT_NE(platform.Messages()[1].Text.find("Print Error"), std::string::npos);
    EXPECT_TRUE(platform.Printed().empty());
}

TEST_F(PrintPreview, PrinterFailureGoesToTheErrorReport) {
    auto& f = Load();
    host->checksum = "1";
    platform.SetPrinterFails(true);
    f.cmdPrint_Click();
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_NE(platform.Messages()[0].Text.find(
                  "The source for the error is: (frmPrintPreview) cmdPrint_Click"),
              std::string::npos);
    EXPECT_EQ(platform.Messages()[0].Style, msgbox::Critical);
    EXPECT_TRUE(host->hints.empty());
    EXPECT_EQ(host->statuses.back(), "");
}

// ---- saving

TEST_F(PrintPreview, SaveWritesTheTextWithCrLfAndGivesTheHint) {
    auto& f = Load();
    const std::string path = test::MakeTempDir() + "/document.txt";
    f.txtPrintout.SetText("first\r\nsecond\nthird");
    platform.QueueFileAnswer(path);
    f.cmdSave_Click();
    ASSERT_EQ(platform.DialogsShown().size(), 1u);
    const CommonDialog& dialog = platform.DialogsShown()[0];
    EXPECT_EQ(dialog.Filter, "Text Files (*.txt)|*.txt|All Files (*.*)|*.*");
    EXPECT_EQ(dialog.DefaultExt, "txt");
    EXPECT_EQ(dialog.FileName, "*.txt");
    EXPECT_TRUE(dialog.CancelError);
    EXPECT_EQ(test::ReadFile(path), "first\r\nsecond\r\nthird\r\n");
    ASSERT_EQ(host->hints.size(), 1u);
    EXPECT_EQ(host->hints[0], "Document saved to \"" + path + "\"");
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(PrintPreview, SaveOffersTheDocumentsNameWithTxtInTheFolderOfItsEntryFile) {
    auto& f = Load();
    const std::string folder = test::MakeTempDir();
    host->document = folder + "/clock.ent";
    f.txtPrintout.SetText("text");
    platform.QueueFileAnswer(folder + "/clock.txt");
    f.cmdSave_Click();
    ASSERT_EQ(platform.DialogsShown().size(), 1u);
    EXPECT_EQ(platform.DialogsShown()[0].FileName, folder + "/clock.txt");
    EXPECT_EQ(test::ReadFile(folder + "/clock.txt"), "text\r\n");
}

TEST_F(PrintPreview, SaveThroughALinkKeepsTheLinkAndWritesItsTarget) {
    namespace fs = std::filesystem;
    auto& f = Load();
    const std::string dir = test::MakeTempDir();
    fs::create_directory(dir + "/real");
    ASSERT_EQ(WriteTextFileAtomically(dir + "/real/document.txt", "old\r\n"), "");
    fs::create_symlink("real/document.txt", dir + "/document.txt");
    f.txtPrintout.SetText("new");
    platform.QueueFileAnswer(dir + "/document.txt");
    f.cmdSave_Click();
    EXPECT_TRUE(platform.Messages().empty());
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(dir + "/document.txt")));
    EXPECT_EQ(test::ReadFile(dir + "/real/document.txt"), "new\r\n");
}

TEST_F(PrintPreview, CancelledSaveDoesNothing) {
    auto& f = Load();
    f.txtPrintout.SetText("text");
    platform.QueueFileAnswer(std::nullopt);
    f.cmdSave_Click();
    EXPECT_EQ(platform.DialogsShown().size(), 1u);
    EXPECT_TRUE(host->hints.empty());
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(PrintPreview, FailedSaveReportsAndLeavesTheOldFileIntact) {
    auto& f = Load();
    const std::string dir = test::MakeTempDir();
    const std::string missing = dir + "/no/such/folder/out.txt";
    f.txtPrintout.SetText("new text");
    platform.QueueFileAnswer(missing);
    f.cmdSave_Click();
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_NE(platform.Messages()[0].Text.find("(frmPrintPreview) cmdSave_Click"),
              std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(missing));
    EXPECT_TRUE(host->hints.empty());
    EXPECT_EQ(f.txtPrintout.Text(), "new text");

    // A name that is a folder: the report comes and the folder keeps its content.
    const std::string folder = dir + "/taken.txt";
    std::filesystem::create_directory(folder);
    ASSERT_EQ(WriteTextFileAtomically(folder + "/inner.txt", "old\r\n"), "");
    platform.QueueFileAnswer(folder);
    f.cmdSave_Click();
    EXPECT_EQ(platform.Messages().size(), 2u);
    EXPECT_EQ(test::ReadFile(folder + "/inner.txt"), "old\r\n");
}

// ---- menus and closing

TEST_F(PrintPreview, MenusForwardToTheMainWindowsCommands) {
    auto& f = Load();
    f.mnuFilePrintSetup.RaiseClick();
    f.mnuFileExit.RaiseClick();
    f.mnuEditCut.RaiseClick();
    f.mnuEditCopy.RaiseClick();
    f.mnuEditPaste.RaiseClick();
    f.mnuEditSelectAll.RaiseClick();
    f.mnuToolsOptions.RaiseClick();
    f.mnuWindowCascade.RaiseClick();
    f.mnuWindowTile.RaiseClick();
    f.mnuHelpContents.RaiseClick();
    f.mnuHelpAbout.RaiseClick();
    const std::vector<std::string> expected = {
        "mnuPrintSetup", "mnuExit",          "mnuEditCut",      "mnuEditCopy",
        "mnuEditPaste",  "mnuEditSelectAll", "mnuToolsOptions", "mnuCascade",
        "mnuTile",       "mnuPopupHelp",     "mnuAbout"};
    EXPECT_EQ(host->commands, expected);
}

TEST_F(PrintPreview, FileMenuPrintAndCloseAreTheButtons) {
    auto& f = Load();
    host->checksum = "12";
    f.mnuFilePrint.RaiseClick();
    EXPECT_EQ(platform.Printed().size(), 1u);
    f.cboPrintSize.SetListIndex(0);
    f.mnuFileClose.RaiseClick();
    EXPECT_EQ(host->closes, 1);
    EXPECT_EQ(Stored("FontSize"), "5");
}

TEST_F(PrintPreview, CloseButtonStoresTheChoiceAndClosesTheWindow) {
    auto& f = Load();
    f.cmdClose.RaiseClick();
    EXPECT_EQ(host->closes, 1);
    EXPECT_EQ(Stored("FontName"), "Courier New");
    EXPECT_EQ(Stored("FontSize"), "9");
}

TEST_F(PrintPreview, StoresItsChoiceOnlyOnce) {
    auto& f = Load();
    f.cboPrintSize.SetListIndex(2);
    f.Form_Unload();
    f.cboPrintSize.SetListIndex(3);
    f.Form_Unload();
    EXPECT_EQ(Stored("FontSize"), "7");
    form.reset();
    EXPECT_EQ(Stored("FontSize"), "7");
}

TEST_F(PrintPreview, AWindowNeverLoadedStoresNothing) {
    frmPrintPreview unloaded(platform, errors, std::make_unique<RecordingHost>());
    unloaded.Form_Unload();
    EXPECT_EQ(Stored("FontName"), "<none>");
}

TEST_F(PrintPreview, FieldsAreRegisteredByName) {
    auto& f = Load();
    for (const char* name :
         {"txtPrintout", "cboPrintFont", "cboPrintSize", "lblPrintFont", "lblFontSize", "cmdPrint",
          "cmdSave", "cmdClose", "mnuFilePrint", "mnuWindowTile", "mnuHelpAbout"})
        EXPECT_TRUE(f.Fields().Contains(name)) << name;
}

}  // namespace
}  // namespace pendulon
