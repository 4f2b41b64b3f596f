#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "configurators/QX5140TestSupport.hpp"
#include "core/Numbers.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "platform/Color.hpp"
#include "reports/mAsciiPrintoutDocument.hpp"
#include "shell/frmSummary.hpp"
#include "support/TestSupport.hpp"

namespace {

using pendulon::Application;
using pendulon::clsEntryFile;
using pendulon::DateTime;
using pendulon::frmQX5140;
using pendulon::frmSummary;
using pendulon::HeadlessPlatform;
using pendulon::Val;
using pendulon::Window;
using pendulon::testing::QX5140Document;
namespace colors = pendulon::colors;
namespace test = pendulon::test;

// A folder of the test's own, removed when the test ends, passed or failed.
struct Folder {
    std::string path = test::MakeTempDir();
    ~Folder() { std::filesystem::remove_all(path); }
};

// The program's clock, title and summary as the golden files were worked out with.
void Prepare(QX5140Document& doc) {
    doc.platform.SetNow(DateTime{2026, 11, 21, 10, 0, 0});
    Application& app = *doc.app;
    app.gstrTitle = "Pendulon(tm) 3.71";
    app.gstrBuild = "Build #: 3.71.010";
    app.Summary().txtDate.SetText("Nov/21/2026");
    app.Summary().txtComments.SetText("test comment");
    app.Summary().txtCustomer.SetText("Acme");
    app.Summary().txtFAE.SetText("Ann");
    app.Summary().txtRevision.SetText("01");
}

// Output Enable at 5 V from 20 MHz: 50, 25 and 12.5 MHz, the first case, all three on UPLL.
void OECase(QX5140Document& doc) {
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    doc.Type(form.txtClkA[0], "50");
    doc.Type(form.txtClkB, "25");
    doc.Type(form.txtClkC, "12.5");
    doc.Calculate();
}

// Select/Suspend at 3.3 V: CLKA 50 and 40 MHz, CLKB 25 suspended with its loop, CLKC 12.5.
void SelectCase(QX5140Document& doc) {
    frmQX5140& form = doc.Form();
    form.opt3V.SetValue(true);
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    form.optSelect.SetValue(true);
    form.optSuspendOutputsAndPLLs.SetValue(true);
    doc.Type(form.txtClkA[0], "50");
    doc.Type(form.txtClkA[1], "40");
    doc.Type(form.txtClkB, "25");
    doc.Type(form.txtClkC, "12.5");
    doc.Calculate();
    form.chkSuspendClockB.SetValue(1);
    doc.Calculate();
}

std::string Golden(const std::string& file) {
    return test::ReadFile(test::DataPath("entry/" + file));
}

// ---------------------------------------------------------------- the image

TEST(QX5140EntryFile, OutputEnableCaseMatchesItsGoldenFiles) {
    QX5140Document doc;
    Prepare(doc);
    OECase(doc);
    frmQX5140& form = doc.Form();
    // The state the golden files were worked out from.
    ASSERT_EQ(form.lblClkASrcDiv.Caption(), "UPLL/2");
    ASSERT_EQ(form.lblClkBSrcDiv.Caption(), "UPLL/4");
    ASSERT_EQ(form.lblClkCSrcDiv.Caption(), "UPLL/8");
    ASSERT_EQ(form.cboUPLLData.Text(), "100.000000 P:10 Q:4");
    ASSERT_EQ(form.cboSPLLData.Text(), "0.000000 P:5 Q:2");
    ASSERT_EQ(form.cboCPLLData[0].Text(), "0.000000 P:5 Q:2");
    ASSERT_EQ(form.cboCPLLData[1].Text(), "0.000000 P:5 Q:2");
    Folder dir;
    for (bool details : {true, false}) {
        doc.app->Main().mblnSaveEntryFileDescription = details;
        form.MakeEntryFile(dir.path + "/oe.ent");
        EXPECT_EQ(test::ReadFile(dir.path + "/oe.ent"),
                  Golden(std::string("QX5140_OE_") + (details ? "details" : "lean") + ".ent"))
            << details;
    }
    form.EntryFile().MakeEPROMVector(dir.path + "/oe.jed", true);
    EXPECT_EQ(test::ReadFile(dir.path + "/oe.jed"), Golden("QX5140_OE.jed"));
    EXPECT_EQ(form.Checksum(), "238");
    // The window itself does not offer the vector, and Tools, Create EPROM Vector is off.
    form.MakeEPROMVector(dir.path + "/no.jed", true);
    EXPECT_FALSE(std::filesystem::exists(dir.path + "/no.jed"));
    EXPECT_NE(doc.Messages().find("(frmQX5140) MakeEPROMVector"), std::string::npos);
    doc.app->Main().InitializeMenu(false);
    EXPECT_FALSE(doc.app->Main().mnuToolsCreateEPROM.Enabled());
    // Without the select pin the second CPU block stays off.
    EXPECT_EQ(form.EntryFile().Entry().i(49), 1);
}

TEST(QX5140EntryFile, SelectSuspendCaseMatchesItsGoldenFiles) {
    QX5140Document doc;
    Prepare(doc);
    SelectCase(doc);
    frmQX5140& form = doc.Form();
    ASSERT_EQ(form.lblClkASrcDiv.Caption(), "CPLL/2");
    ASSERT_EQ(form.lblClkBSrcDiv.Caption(), "UPLL/4");
    ASSERT_EQ(form.lblClkCSrcDiv.Caption(), "UPLL/8");
    ASSERT_EQ(form.cboCPLLData[0].Text(), "100.000000 P:10 Q:4");
    ASSERT_EQ(form.cboCPLLData[1].Text(), "80.000000 P:6 Q:3");
    ASSERT_EQ(form.cboUPLLData.Text(), "100.000000 P:10 Q:4");
    ASSERT_EQ(form.cboSPLLData.Text(), "0.000000 P:5 Q:2");
    ASSERT_EQ(form.chkSuspendUPLL.Value(), 1);
    Folder dir;
    for (bool details : {true, false}) {
        doc.app->Main().mblnSaveEntryFileDescription = details;
        form.MakeEntryFile(dir.path + "/sel.ent");
        EXPECT_EQ(test::ReadFile(dir.path + "/sel.ent"),
                  Golden(std::string("QX5140_Select_") + (details ? "details" : "lean") + ".ent"))
            << details;
    }
    form.EntryFile().MakeEPROMVector(dir.path + "/sel.jed", true);
    EXPECT_EQ(test::ReadFile(dir.path + "/sel.jed"), Golden("QX5140_Select.jed"));
    // The CPLL VCOs of the two select states: CLKA's frequency times its divider.
    double desired = 0;
    form.EntryFile().DesiredCPLL(0, desired);
    EXPECT_EQ(desired, 100);
    form.EntryFile().DesiredCPLL(1, desired);
    EXPECT_EQ(desired, 80);
}

TEST(QX5140EntryFile, ShutdownAndAHighReferenceChangeTheirFields) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "25.00000 MHz");
    form.optShutdown.SetValue(true);
    doc.Type(form.txtClkB, "50");
    doc.Calculate();
    form.EntryFile().MakeEntryFile();
    const clsEntryFile& e = form.EntryFile().Entry();
    EXPECT_EQ(e.mintMValue, 3004);
    EXPECT_EQ(e.mintBValue, 1);
    EXPECT_EQ(e.i(0), 0);
    // CLKA and CLKC are off.
    EXPECT_EQ(e.i(13), 1);
    EXPECT_EQ(e.i(14), 0);
    EXPECT_EQ(e.i(15), 1);
    EXPECT_EQ(e.i(26), 19);
    EXPECT_EQ(e.i(28), 19);
}

TEST(QX5140EntryFile, OutputOutOfItsLoopsRangeIsFlaggedInTheFile) {
    QX5140Document doc;
    OECase(doc);
    frmQX5140& form = doc.Form();
    Folder dir;
    form.MakeEntryFile(dir.path + "/in.ent");
    EXPECT_EQ(test::ReadFile(dir.path + "/in.ent").find("OUT OF DEFAULT RANGE"), std::string::npos);
    // CLKB on UPLL/4 at 150 MHz: above the loop's 100 MHz.
    form.txtClkB.SetText("150");
    form.MakeEntryFile(dir.path + "/out.ent");
    EXPECT_EQ(form.txtClkB.ForeColor(), colors::Red);
    EXPECT_NE(test::ReadFile(dir.path + "/out.ent")
                  .find("\r\n***ONE OR MORE DESIRED PLL(S) IS OUT OF DEFAULT RANGE***\r\n\r\n# s "),
              std::string::npos);
}

TEST(QX5140EntryFile, DesiredCPLLFollowsTheClockOnTheCPLL) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    form.optSelect.SetValue(true);
    form.lblClkASrcDiv.SetCaption("UPLL/2");
    form.lblClkBSrcDiv.SetCaption("CPLL/4");
    form.txtClkB.SetText("20");
    double value = -1;
    form.EntryFile().DesiredCPLL(1, value);
    EXPECT_EQ(value, 80);
    // A CLKB that stops in state 0 gives the CPLL nothing to do there.
    form.chkSuspendClockB.SetValue(1);
    form.EntryFile().DesiredCPLL(0, value);
    EXPECT_EQ(value, 0);
    form.EntryFile().DesiredCPLL(1, value);
    EXPECT_EQ(value, 80);
    form.lblClkBSrcDiv.SetCaption("SPLL/4");
    form.EntryFile().DesiredCPLL(1, value);
    EXPECT_EQ(value, 0);
    // Without the select pin there is no desired CPLL.
    form.lblClkBSrcDiv.SetCaption("CPLL/4");
    form.optOE.SetValue(true);
    form.EntryFile().DesiredCPLL(1, value);
    EXPECT_EQ(value, 0);
}

// ---------------------------------------------------------------- opening

// A program with no document that opens the file as File, Open does.
struct Opener {
    HeadlessPlatform platform;
    std::unique_ptr<Application> app;
    Opener() {
        app = std::make_unique<Application>(platform);
        app->Main().MDIForm_Load("");
    }
    frmQX5140* Open(const std::string& path) {
        platform.QueueModal("frmSummary",
                            [](Window& w) { dynamic_cast<frmSummary&>(w).cmdOK_Click(); });
        app->Main().GetFile(path);
        return dynamic_cast<frmQX5140*>(app->Document());
    }
    std::string Messages() const {
        std::string all;
        for (const auto& message : platform.Messages()) all += message.Text + "\n";
        return all;
    }
};

// 40 MHz from 20 MHz: three cases, on UPLL/4, SPLL/4 and CPLL/4.
void ThreeCases(QX5140Document& doc) {
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    doc.Type(form.txtClkA[0], "40");
    doc.Calculate();
}

std::string Replace(std::string text, const std::string& from, const std::string& to) {
    const size_t at = text.find(from);
    if (at != std::string::npos)
        text.replace(at, from.size(), to);
    return text;
}

void Write(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary);
    out << text;
}

TEST(QX5140Open, SavedCaseIsLookedUpAmongTheCasesFoundNow) {
    Folder dir;
    const std::string path = dir.path + "/three.ent";
    std::string checksum;
    {
        QX5140Document doc;
        ThreeCases(doc);
        frmQX5140& form = doc.Form();
        ASSERT_EQ(form.mstrSources().size(), 3u);
        doc.Calculate();
        ASSERT_EQ(form.lblCaseMessage.Caption(), "Case 2 of 3");
        ASSERT_EQ(form.lblClkASrcDiv.Caption(), "SPLL/4");
        checksum = form.Checksum();
        form.MakeEntryFile(path);
    }
    Opener opener;
    frmQX5140* form = opener.Open(path);
    ASSERT_NE(form, nullptr) << opener.Messages();
    EXPECT_EQ(Val(form->txtClkA[0].Text()), 40);
    EXPECT_EQ(form->mstrSources().size(), 3u);
    // The assignment is stored as the label reads ("SPLL/4", code 14), while the cases are
    // compared with their dividers halved ("SPLL/2", code 13): no case matches, the first is on
    // show, and the note says so.
    EXPECT_EQ(form->lblCaseMessage.Caption(), "Case 1 of 3");
    EXPECT_NE(opener.Messages().find("Pendulon is unable to correctly match the result "
                                     "parameters from the ENT"),
              std::string::npos)
        << opener.Messages();
    EXPECT_EQ(form->cmdCalculate.BackColor(), colors::Grey);
    // The summary shows the checksum of the file as it was saved.
    EXPECT_EQ(opener.app->Summary().lblChecksum.Caption(), checksum);
}

// Saves the case on CPLL/4, the third of three, with CLKA's code as the look-up reads that
// case ("CPLL/2", 5, where the label gives "CPLL/4", 6).
std::string SaveThirdCaseAsLookedUp(const std::string& folder, std::string& cpll) {
    const std::string saved = folder + "/three.ent";
    {
        QX5140Document doc;
        ThreeCases(doc);
        doc.Calculate();
        doc.Calculate();
        frmQX5140& form = doc.Form();
        EXPECT_EQ(form.lblClkASrcDiv.Caption(), "CPLL/4");
        cpll = form.cboCPLLData[0].Text();
        form.MakeEntryFile(saved);
    }
    return Replace(test::ReadFile(saved), "# i 6         ;26", "# i 5         ;26");
}

TEST(QX5140Open, StoredAssignmentAndCountersFoundShowTheirCase) {
    Folder dir;
    std::string cpll;
    const std::string path = dir.path + "/matched.ent";
    Write(path, SaveThirdCaseAsLookedUp(dir.path, cpll));
    Opener opener;
    frmQX5140* form = opener.Open(path);
    ASSERT_NE(form, nullptr) << opener.Messages();
    EXPECT_EQ(form->lblCaseMessage.Caption(), "Case 3 of 3");
    EXPECT_EQ(form->lblClkASrcDiv.Caption(), "CPLL/4");
    EXPECT_EQ(form->cboCPLLData[0].Text(), cpll);
    EXPECT_NE(opener.Messages().find("NOTE: This form has correctly loaded the specified ENT "
                                     "file.  As well, both\r\nthe PLL assignment stored in the "
                                     "ENT file and the PPM values stored in the\r\nENT file have "
                                     "been matched to the solution set currently displayed."),
              std::string::npos)
        << opener.Messages();
}

TEST(QX5140Open, AssignmentFoundButNotTheCountersSaysSo) {
    Folder dir;
    std::string cpll;
    std::string text = SaveThirdCaseAsLookedUp(dir.path, cpll);
    // CPLL counters that no solution of the loop has.
    const size_t at = text.find(";32");
    ASSERT_NE(at, std::string::npos);
    text.replace(at - 10, 10, "77        ");
    const std::string path = dir.path + "/counters.ent";
    Write(path, text);
    Opener opener;
    frmQX5140* form = opener.Open(path);
    ASSERT_NE(form, nullptr) << opener.Messages();
    EXPECT_EQ(form->lblCaseMessage.Caption(), "Case 3 of 3");
    EXPECT_NE(opener.Messages().find("However, the PPM values stored in the ENT file could\r\n"
                                     "not be matched to the PPM results generated."),
              std::string::npos)
        << opener.Messages();
}

TEST(QX5140Open, SelectCaseComesBackWithItsStatesAndSuspend) {
    Folder dir;
    const std::string path = dir.path + "/select.ent";
    {
        QX5140Document doc;
        SelectCase(doc);
        doc.Form().MakeEntryFile(path);
    }
    Opener opener;
    frmQX5140* form = opener.Open(path);
    ASSERT_NE(form, nullptr) << opener.Messages();
    EXPECT_TRUE(form->optSelect.Value());
    EXPECT_TRUE(form->opt3V.Value());
    EXPECT_TRUE(form->optSuspendOutputsAndPLLs.Value());
    // State 0 from the desired CPLL over the divider of CLKA's source, state 1 likewise.
    EXPECT_EQ(Val(form->txtClkA[0].Text()), 50);
    EXPECT_EQ(Val(form->txtClkA[1].Text()), 40);
    EXPECT_EQ(Val(form->txtClkB.Text()), 25);
    EXPECT_EQ(Val(form->txtClkC.Text()), 12.5);
    EXPECT_EQ(form->chkSuspendClockB.Value(), 1);
    EXPECT_EQ(form->chkSuspendUPLL.Value(), 1);
    EXPECT_EQ(form->lblClkASrcDiv.Caption(), "CPLL/2");
}

TEST(QX5140Open, UnknownBondingOptionIsReportedAndTheFileStillLoads) {
    Folder dir;
    const std::string saved = dir.path + "/oe.ent";
    {
        QX5140Document doc;
        OECase(doc);
        doc.Form().MakeEntryFile(saved);
    }
    const std::string path = dir.path + "/b3.ent";
    Write(path, Replace(test::ReadFile(saved), "# b 1", "# b 3"));
    Opener opener;
    frmQX5140* form = opener.Open(path);
    ASSERT_NE(form, nullptr) << opener.Messages();
    EXPECT_NE(opener.Messages().find("10160"), std::string::npos) << opener.Messages();
    EXPECT_NE(opener.Messages().find("The entry file contains an invalid bonding option: # b 3"),
              std::string::npos);
    EXPECT_EQ(Val(form->txtClkA[0].Text()), 50);
    EXPECT_TRUE(form->Visible());
}

TEST(QX5140Open, ReferenceThatCannotBeTakenLeavesTheFormUnshown) {
    Folder dir;
    const std::string saved = dir.path + "/oe.ent";
    {
        QX5140Document doc;
        OECase(doc);
        doc.Form().MakeEntryFile(saved);
    }
    const std::string path = dir.path + "/ref.ent";
    Write(path, Replace(test::ReadFile(saved), "# f  20.00000 ;0", "# f 300.00000 ;0"));
    Opener opener;
    frmQX5140* form = opener.Open(path);
    EXPECT_EQ(form, nullptr);
    EXPECT_NE(opener.Messages().find("The entry file contains an invalid reference frequency: 300"),
              std::string::npos)
        << opener.Messages();
    EXPECT_NE(opener.Messages().find("The form cannot be loaded"), std::string::npos);
    // The file on disk is untouched.
    EXPECT_NE(test::ReadFile(path).find("# f 300.00000 ;0"), std::string::npos);
}

TEST(QX5140Open, SingleCaseIsNotLookedUp) {
    Folder dir;
    const std::string path = dir.path + "/ref.ent";
    std::string checksum;
    {
        QX5140Document doc;
        frmQX5140& form = doc.Form();
        QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
        doc.Type(form.txtClkA[0], "10");
        doc.Calculate();
        ASSERT_EQ(form.mstrSources().size(), 1u);
        checksum = form.Checksum();
        form.MakeEntryFile(path);
    }
    Opener opener;
    frmQX5140* form = opener.Open(path);
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->lblClkASrcDiv.Caption(), "Ref/2");
    // The same case, and so the same checksum, as when it was saved.
    EXPECT_EQ(form->Checksum(), checksum);
    EXPECT_EQ(opener.app->Summary().lblChecksum.Caption(), checksum);
    // Fewer than two cases: no look-up, and the note of no match.
    EXPECT_NE(opener.Messages().find("The results\r\ncurrently displayed do not represent"),
              std::string::npos)
        << opener.Messages();
}

// ---------------------------------------------------------------- document

TEST(QX5140Document, TableHasARowPerClockAndTheSuspendOption) {
    QX5140Document doc;
    SelectCase(doc);
    frmQX5140& form = doc.Form();
    const std::string table = pendulon::mAsciiPrintout::MakeOutputTable(form);
    // Worked out by hand from the table's layout: widths 10, 14, 14, 9, 10; numbers in the
    // desired and actual columns in the pattern "##0.00000".
    const std::string expected =
        "OUTPUT CLK\r\n"
        "===============================================================\r\n"
        "|          |   Desired    |    Actual    |   PPM   |  Option  |\r\n"
        "===============================================================\r\n"
        "| CLKA[0]  | 50.00000     | 50.00000     | 0       | Suspend  |\r\n"
        "|          |              |              |         |          |\r\n"
        "| CLKA[1]  | 40.00000     | 40.00000     | 0       | Suspend  |\r\n"
        "|          |              |              |         |          |\r\n"
        "| CLKB     | 25.00000     | 25.00000     | 0       | Suspend  |\r\n"
        "|          |              |              |         |          |\r\n"
        "| CLKC     | 12.50000     | 12.50000     | 0       | Suspend  |\r\n"
        "===============================================================\r\n";
    EXPECT_EQ(table, expected);
}

TEST(QX5140Document, WithoutSelectOneClockARowAndOffClocks) {
    QX5140Document doc;
    frmQX5140& form = doc.Form();
    QX5140Document::Pick(form.cboFRef, "20.00000 MHz");
    doc.Type(form.txtClkA[0], "10");
    doc.Calculate();
    const std::string table = pendulon::mAsciiPrintout::MakeOutputTable(form);
    // An off clock's "--" in the actual column, a number column, is laid out as a number.
    const std::string expected =
        "OUTPUT CLK\r\n"
        "=============================================================\r\n"
        "|        |   Desired    |    Actual    |   PPM   |  Option  |\r\n"
        "=============================================================\r\n"
        "| CLKA   | 10.00000     | 10.00000     | 0       | --       |\r\n"
        "|        |              |              |         |          |\r\n"
        "| CLKB   | Off          | 0.00000      | --      | --       |\r\n"
        "|        |              |              |         |          |\r\n"
        "| CLKC   | Off          | 0.00000      | --      | --       |\r\n"
        "=============================================================\r\n";
    EXPECT_EQ(table, expected);
    // The QX5140 has no loop option lines of the QX7311 family.
    EXPECT_EQ(pendulon::mAsciiPrintout::GetOptions(form), "");
}

}  // namespace
