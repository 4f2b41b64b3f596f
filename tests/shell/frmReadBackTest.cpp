// The read-back window: how a fuse map reaches it (File, Open, the command line), what it shows
// and lets the user choose, and its way to an editable document.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "app/Configurator.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/clsEntryFile3350.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/TextField.hpp"
#include "platform/TextFile.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmReadBack.hpp"
#include "shell/frmSummary.hpp"
#include "support/ProgramSession.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

namespace fs = std::filesystem;

struct ReadBackProgram : test::ProgramSession {
    using ProgramSession::ProgramSession;
    // File, Open of a fuse map.
    void Open(const std::string& path) { OpenAnswered(path); }
    frmReadBack* ReadBack() const { return dynamic_cast<frmReadBack*>(app->Preview()); }
    std::string LastMessage() const {
        return platform.Messages().empty() ? std::string() : platform.Messages().back().Text;
    }
};

std::string Golden(const std::string& name) {
    return test::DataPath("entry/" + name);
}

// A copy of a golden vector with one text replaced, in folder.
std::string Damaged(const std::string& folder, const std::string& golden, const std::string& what,
                    const std::string& with) {
    std::string text = test::ReadFile(Golden(golden));
    text.replace(text.find(what), what.size(), with);
    const std::string path = folder + "/damaged.jed";
    EXPECT_EQ(WriteTextFileAtomically(path, text), "");
    return path;
}

bool Contains(const std::string& text, const std::string& what) {
    return text.find(what) != std::string::npos;
}

TEST(frmReadBack, FileOpenOfAFuseMapShowsItsReadBackInFrontOfTheDocumentThatStays) {
    ReadBackProgram program;
    program.New("QX4860");
    Configurator* document = program.app->Document();
    ASSERT_NE(document, nullptr);
    program.Open(Golden("QX3350_SC.jed"));
    const CommonDialog& dialog = program.platform.DialogsShown().back();
    EXPECT_EQ(dialog.Filter,
              "Entry Files (*.ent)|*.ent|Fuse Maps (*.jed)|*.jed|All Files (*.*)|*.*");
    frmReadBack* readBack = program.ReadBack();
    ASSERT_NE(readBack, nullptr);
    EXPECT_EQ(program.app->ActiveChild(), readBack);
    EXPECT_EQ(program.app->Document(), document);
    EXPECT_TRUE(readBack->Visible());
    EXPECT_EQ(readBack->Caption(), "Fuse Map Read-Back - QX3350_SC.jed");
    const std::string& text = readBack->txtPrintout.Text();
    EXPECT_TRUE(Contains(text, "  Device:           QX3350   (the fuses fit: QX3350, QX3350I)"))
        << text;
    EXPECT_TRUE(Contains(text, "  Fuse checksum:    01DE (verified)")) << text;
    EXPECT_TRUE(Contains(text, "  PLL       88     21     119.999985")) << text;
    EXPECT_TRUE(Contains(text, "  CLKOUT                    PLL         2        59.99999"))
        << text;
    EXPECT_TRUE(program.platform.Messages().empty());
}

TEST(frmReadBack, AFuseMapOnTheCommandLineOpensItsReadBackInsteadOfTheSplash) {
    // The desktop hands a path in quotes over as it is.
    std::string quoted = "\"";
    quoted += Golden("QX7311_5V.jed");
    quoted += "\"";
    ReadBackProgram program(quoted);
    ASSERT_NE(program.ReadBack(), nullptr);
    EXPECT_EQ(program.ReadBack()->Device(), "QX7311");
    EXPECT_EQ(program.app->Document(), nullptr);
    for (const std::string& modal : program.platform.ModalsShown()) EXPECT_NE(modal, "frmSplash");
}

TEST(frmReadBack, AFuseMapIsKnownByItsExtensionOrByItsStartOfTransmission) {
    test::TempDir folder;
    EXPECT_TRUE(frmReadBack::IsFuseMapFile(Golden("QX3350_SC.jed")));
    const std::string upper = folder / "MAP.JED";
    const std::string other = folder / "map.dat";
    const std::string text = test::ReadFile(Golden("QX3350_SC.jed"));
    ASSERT_EQ(WriteTextFileAtomically(upper, "no matter"), "");
    ASSERT_EQ(WriteTextFileAtomically(other, "\r\n" + text), "");
    EXPECT_TRUE(frmReadBack::IsFuseMapFile(upper));
    EXPECT_TRUE(frmReadBack::IsFuseMapFile(other));
    EXPECT_FALSE(frmReadBack::IsFuseMapFile(Golden("QX3350_SC_lean.ent")));
    EXPECT_FALSE(frmReadBack::IsFuseMapFile(folder / "missing.ent"));
}

TEST(frmReadBack, ADamagedFuseMapIsRefusedNamingFileAndCauseAndNothingOpens) {
    test::TempDir folder;
    ReadBackProgram program;
    program.New("QX3350");
    Configurator* document = program.app->Document();
    const std::string path = Damaged(folder.Path(), "QX7311_5V.jed", "C1073*", "C1074*");
    program.Open(path);
    EXPECT_EQ(program.app->Preview(), nullptr);
    EXPECT_EQ(program.app->Document(), document);
    ASSERT_EQ(program.platform.Messages().size(), 1u);
    const std::string message = program.LastMessage();
    EXPECT_TRUE(Contains(message, "The error number is: 10055")) << message;
    EXPECT_TRUE(Contains(message, "The file '" + path +
                                      "' cannot be read as a fuse map: its fuse checksum C1074 "
                                      "does not match the fuses, whose checksum is 1073."))
        << message;
    EXPECT_EQ(program.app->Main().lblStatus.Caption(), "");
}

TEST(frmReadBack, TheDeviceListOffersTheNamesThatFitAndTheDocumentFollowsTheChoice) {
    ReadBackProgram program;
    program.Open(Golden("QX4860_8.jed"));
    frmReadBack* readBack = program.ReadBack();
    ASSERT_NE(readBack, nullptr);
    EXPECT_EQ(readBack->cboDevice.Items(),
              (std::vector<std::string>{"QX4860", "QX4860F", "QX4860I"}));
    EXPECT_EQ(readBack->cboDevice.Text(), "QX4860");
    readBack->cboDevice.SetListIndex(1);
    EXPECT_TRUE(Contains(readBack->txtPrintout.Text(), "  Device:           QX4860F   ("));
    EXPECT_FALSE(readBack->SelectDevice("QX7311"));
    EXPECT_EQ(readBack->Device(), "QX4860F");
}

TEST(frmReadBack, AReferenceChangesTheFrequenciesAndOneThatIsNoFrequencyIsRefused) {
    ReadBackProgram program;
    program.Open(Golden("QX3350_SC.jed"));
    frmReadBack* readBack = program.ReadBack();
    ASSERT_NE(readBack, nullptr);
    EXPECT_EQ(readBack->cboFRef.Text(), "14.31818 MHz");
    readBack->SetFocusTo(&readBack->cboFRef);
    readBack->cboFRef.SetText("20");
    readBack->SetFocusTo(nullptr);
    EXPECT_DOUBLE_EQ(readBack->Reference(), 20);
    EXPECT_EQ(readBack->cboFRef.Text(), "20.00000 MHz");
    EXPECT_TRUE(Contains(readBack->txtPrintout.Text(),
                         "  CLKOUT                    PLL         2        83.80952"));
    const std::string before = readBack->txtPrintout.Text();
    readBack->SetFocusTo(&readBack->cboFRef);
    readBack->cboFRef.SetText("fast");
    readBack->SetFocusTo(nullptr);
    ASSERT_EQ(program.platform.Messages().size(), 1u);
    EXPECT_TRUE(Contains(program.LastMessage(), "The error number is: 10056"));
    EXPECT_TRUE(Contains(program.LastMessage(), "The reference frequency 'fast' is not"));
    EXPECT_DOUBLE_EQ(readBack->Reference(), 20);
    EXPECT_EQ(readBack->cboFRef.Text(), "20.00000 MHz");
    EXPECT_EQ(readBack->txtPrintout.Text(), before);
    // A crystal of the list.
    readBack->cboFRef.SetListIndex(0);
    EXPECT_DOUBLE_EQ(readBack->Reference(), 11.0592);
}

TEST(frmReadBack, OpenAsDocumentThatIsCancelledWritesNothingAndKeepsTheReadBack) {
    test::TempDir folder;
    const std::string map = folder / "chip.jed";
    ASSERT_EQ(WriteTextFileAtomically(map, test::ReadFile(Golden("QX3350_SC.jed"))), "");
    ReadBackProgram program;
    program.Open(map);
    frmReadBack* readBack = program.ReadBack();
    ASSERT_NE(readBack, nullptr);
    program.platform.QueueFileAnswer(std::nullopt);
    readBack->cmdOpenDocument_Click();
    const CommonDialog& dialog = program.platform.DialogsShown().back();
    EXPECT_EQ(dialog.DialogTitle, "Save Entry File As");
    EXPECT_EQ(dialog.FileName, folder / "chip.ent");
    EXPECT_FALSE(fs::exists(folder / "chip.ent"));
    EXPECT_EQ(program.ReadBack(), readBack);
    EXPECT_EQ(program.app->Document(), nullptr);
}

TEST(frmReadBack, OpenAsDocumentKeepsTheOpenDocumentWhenItsCloseQuestionIsCancelled) {
    test::TempDir folder;
    ReadBackProgram program;
    program.New("QX4860");
    Configurator* document = program.app->Document();
    // A change the close question asks about.
    auto* frequency = document->Fields().FindAs<TextField>("txtPLL(0)");
    ASSERT_NE(frequency, nullptr);
    document->SetFocusTo(frequency);
    frequency->SetText("50");
    document->SetFocusTo(nullptr);
    program.Open(Golden("QX3350_SC.jed"));
    frmReadBack* readBack = program.ReadBack();
    ASSERT_NE(readBack, nullptr);
    const std::string entry = folder / "chip.ent";
    program.platform.QueueFileAnswer(entry);
    program.platform.QueueAnswer(msgbox::Cancel);
    readBack->cmdOpenDocument_Click();
    EXPECT_TRUE(Contains(program.LastMessage(), "Save changes to")) << program.LastMessage();
    EXPECT_FALSE(fs::exists(entry));
    EXPECT_EQ(program.app->Document(), document);
    EXPECT_EQ(program.ReadBack(), readBack);
}

TEST(frmReadBack, OpenAsDocumentWritesTheEntryFileAndOpensItInTheDevicesWindow) {
    test::TempDir folder;
    ReadBackProgram program;
    program.Open(Golden("QX3350_SC.jed"));
    frmReadBack* readBack = program.ReadBack();
    ASSERT_NE(readBack, nullptr);
    ASSERT_TRUE(readBack->SelectDevice("QX3350I"));
    const std::string expected = readBack->EntryFileText();
    const std::string entry = folder / "chip.ent";
    program.platform.QueueFileAnswer(entry);
    program.QueueSummaryOK();
    readBack->cmdOpenDocument_Click();
    ASSERT_TRUE(fs::exists(entry));
    EXPECT_EQ(test::ReadFile(entry), expected);
    EXPECT_TRUE(Contains(expected, "Comments: Read back from the fuse map QX3350_SC.jed\r\n"));
    EXPECT_TRUE(Contains(expected, "# s qx3350si-"));
    EXPECT_EQ(program.app->Preview(), nullptr);
    ASSERT_NE(program.app->Document(), nullptr);
    EXPECT_EQ(program.app->Document()->Device(), "QX3350I");
    EXPECT_EQ(program.app->Main().mnuFilePathArray[1].Caption().find(entry) != std::string::npos,
              true);
    for (const auto& message : program.platform.Messages())
        EXPECT_FALSE(Contains(message.Text, "has chosen other settings")) << message.Text;
}

TEST(frmReadBack, OpenAsDocumentTellsWhichFieldsTheWindowsSearchChoosesOtherwise) {
    test::TempDir folder;
    // The counters of the golden QX3350, both doubled: the same frequency, which the window's
    // search reaches with the smaller pair.
    HeadlessPlatform platform;
    ErrorReport errors(platform, [] { return std::string("Pendulon"); });
    clsEntryFile image(errors);
    ASSERT_TRUE(
        mFileAccessor::ParseFile(test::ReadFile(Golden("QX3350_SC_lean.ent")), "", "", image));
    image.set_i(14, 176);
    image.set_i(15, 42);
    const std::string map = folder / "doubled.jed";
    ASSERT_EQ(WriteTextFileAtomically(map, clsEntryFile3350::EPROMVectorText(
                                               image, "Pendulon(tm) 3.71", "Build #: 3.71.010")),
              "");
    ReadBackProgram program;
    program.Open(map);
    frmReadBack* readBack = program.ReadBack();
    ASSERT_NE(readBack, nullptr);
    EXPECT_TRUE(Contains(readBack->txtPrintout.Text(), "  PLL       176    42     119.999985"));
    program.platform.QueueFileAnswer(folder / "doubled.ent");
    program.QueueSummaryOK();
    readBack->cmdOpenDocument_Click();
    ASSERT_NE(program.app->Document(), nullptr);
    const std::string note = program.LastMessage();
    EXPECT_EQ(program.platform.Messages().back().Style, msgbox::Information);
    EXPECT_TRUE(Contains(note,
                         "NOTE: The QX3350 window has chosen other settings than the fuse "
                         "map holds."))
        << note;
    EXPECT_TRUE(
        Contains(note, "  14 P counter (12 bits).: 176 in the fuse map, 88 in the window\r\n"))
        << note;
    EXPECT_TRUE(
        Contains(note, "  15 Q counter (10 bits).: 42 in the fuse map, 21 in the window\r\n"))
        << note;
}

TEST(frmReadBack, PrintingAsksNothingAndSavingWritesTheDocumentAsText) {
    test::TempDir folder;
    ReadBackProgram program;
    program.Open(Golden("QX6105AF.jed"));
    frmReadBack* readBack = program.ReadBack();
    ASSERT_NE(readBack, nullptr);
    program.platform.QueuePrinterAnswer(true);
    readBack->cmdPrint_Click();
    ASSERT_EQ(program.platform.Printed().size(), 1u);
    EXPECT_EQ(program.platform.Printed().back().Text, readBack->txtPrintout.Text());
    EXPECT_TRUE(program.platform.Messages().empty());
    const std::string path = folder / "readback.txt";
    program.platform.QueueFileAnswer(path);
    readBack->cmdSave_Click();
    // The dialog offers the fuse map's name with ".txt", beside it.
    EXPECT_EQ(program.platform.DialogsShown().back().FileName,
              test::DataPath("entry/QX6105AF.txt"));
    EXPECT_EQ(test::ReadFile(path), readBack->txtPrintout.Text() + "\r\n");
}

}  // namespace
}  // namespace pendulon
