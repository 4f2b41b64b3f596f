#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "configurators/QX5140TestSupport.hpp"
#include "core/Numbers.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "platform/CheckBox.hpp"
#include "platform/Color.hpp"
#include "platform/OptionButton.hpp"
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
    // The family checksum of the image, as tests/data/make_5140_goldens.py works it out.
    EXPECT_EQ(form.Checksum(), "231");
    // A CPU block that is off carries the counters of the empty image.
    EXPECT_EQ(form.EntryFile().Entry().i(32), 0);
    EXPECT_EQ(form.EntryFile().Entry().i(33), 0);
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
    // Nor can the entry-file object make one: the CPU blocks that are off hold P 0, which their
    // fields (P less 3) cannot take.
    doc.platform.ClearMessages();
    EXPECT_FALSE(form.EntryFile().MakeEPROMVector(dir.path + "/sel.jed", true));
    EXPECT_FALSE(std::filesystem::exists(dir.path + "/sel.jed"));
    EXPECT_NE(doc.Messages().find("The value 0 of CPU1 P (# i 37) does not fit its field"),
              std::string::npos)
        << doc.Messages();
    EXPECT_EQ(form.EntryFile().Entry().i(37), 0);
    EXPECT_EQ(form.EntryFile().Entry().i(38), 0);
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

TEST(QX5140Open, SavedCaseReopensOnItselfWithTheNoteThatAllMatched) {
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
    // The assignment is stored in the code table's dividers ("SPLL/4" as "SPLL/2", code 13), as
    // the cases are compared: the saved case is found and on show.
    EXPECT_EQ(form->lblCaseMessage.Caption(), "Case 2 of 3");
    EXPECT_EQ(form->lblClkASrcDiv.Caption(), "SPLL/4");
    EXPECT_NE(opener.Messages().find("NOTE: This form has correctly loaded the specified ENT "
                                     "file.  As well, both"),
              std::string::npos)
        << opener.Messages();
    EXPECT_EQ(form->cmdCalculate.BackColor(), colors::Grey);
    // The summary shows the checksum of the file as it was saved.
    EXPECT_EQ(opener.app->Summary().lblChecksum.Caption(), checksum);
}

// Saves the case on CPLL/4, the third of three: CLKA's code is that of "CPLL/2", 5.
std::string SaveThirdCase(const std::string& folder, std::string& cpll) {
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
    const std::string text = test::ReadFile(saved);
    EXPECT_NE(text.find("# i 5         ;26"), std::string::npos);
    return text;
}

TEST(QX5140Open, StoredAssignmentAndCountersFoundShowTheirCase) {
    Folder dir;
    std::string cpll;
    const std::string path = dir.path + "/matched.ent";
    Write(path, SaveThirdCase(dir.path, cpll));
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
    std::string text = SaveThirdCase(dir.path, cpll);
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

TEST(QX5140Open, ASingleCaseIsLookedUpToo) {
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
    // The one case found is the one in the file, and the note says so.
    EXPECT_NE(opener.Messages().find("have been matched to the solution set currently displayed."),
              std::string::npos)
        << opener.Messages();
    EXPECT_EQ(opener.Messages().find("unable to correctly match"), std::string::npos);
}

// A configuration of the window for the round trip: reference, voltage, pin 8 and the desired
// texts; every case its search finds is saved and opened again.
struct RoundTrip {
    const char* Name;
    const char* Reference;
    bool ThreeVolt;
    const char* Pin8;  // "optOE", "optShutdown" or "optSelect"
    bool SuspendOutputsAndPLLs;
    std::array<const char*, 4> Desired;  // CLKA[0], CLKA[1], CLKB, CLKC
    const char* SuspendedClock;          // a suspend box ticked after the first search, or ""
};

void PrintTo(const RoundTrip& trip, std::ostream* os) {
    *os << trip.Name;
}

// What the window shows of a case: the assignment, the case line, the loops' solutions in force
// and the actual frequencies.
std::vector<std::string> Shown(frmQX5140& form) {
    return {form.lblClkASrcDiv.Caption(), form.lblClkBSrcDiv.Caption(),
            form.lblClkCSrcDiv.Caption(), form.lblCaseMessage.Caption(),
            form.cboCPLLData[0].Text(),   form.cboCPLLData[1].Text(),
            form.cboSPLLData.Text(),      form.cboUPLLData.Text(),
            form.cboClkA[0].Text(),       form.cboClkA[1].Text(),
            form.cboClkB.Text(),          form.cboClkC.Text()};
}

class QX5140RoundTrip : public ::testing::TestWithParam<RoundTrip> {};

// The window set up for a round trip, calculated.
void SetUp5140(QX5140Document& doc, const RoundTrip& trip) {
    frmQX5140& form = doc.Form();
    if (trip.ThreeVolt)
        form.opt3V.SetValue(true);
    QX5140Document::Pick(form.cboFRef, trip.Reference);
    form.Fields().FindAs<pendulon::OptionButton>(trip.Pin8)->SetValue(true);
    if (trip.SuspendOutputsAndPLLs)
        form.optSuspendOutputsAndPLLs.SetValue(true);
    doc.Type(form.txtClkA[0], trip.Desired[0]);
    if (form.txtClkA[1].Enabled())
        doc.Type(form.txtClkA[1], trip.Desired[1]);
    doc.Type(form.txtClkB, trip.Desired[2]);
    doc.Type(form.txtClkC, trip.Desired[3]);
    doc.Calculate();
    if (*trip.SuspendedClock != '\0') {
        form.Fields().FindAs<pendulon::CheckBox>(trip.SuspendedClock)->SetValue(1);
        doc.Calculate();
    }
}

// The same solution: all that is shown but the case line.
bool SameSolution(std::vector<std::string> a, std::vector<std::string> b) {
    a.erase(a.begin() + 3);
    b.erase(b.begin() + 3);
    return a == b;
}

TEST_P(QX5140RoundTrip, EveryCaseSavedOpensOnItselfWithTheNoteThatAllMatched) {
    const RoundTrip& trip = GetParam();
    Folder dir;
    // Every case as the window shows it, stepping with the button grey.
    std::vector<std::vector<std::string>> cases;
    {
        QX5140Document doc;
        SetUp5140(doc, trip);
        const size_t count = doc.Form().mstrSources().size();
        ASSERT_GT(count, 0u);
        for (size_t c = 0; c < count; ++c) {
            if (c > 0)
                doc.Calculate();
            cases.push_back(Shown(doc.Form()));
        }
        EXPECT_TRUE(doc.platform.Messages().empty()) << doc.Messages();
    }
    for (size_t c = 0; c < cases.size(); ++c) {
        const std::string path = dir.path + "/case" + std::to_string(c) + ".ent";
        {
            QX5140Document doc;
            SetUp5140(doc, trip);
            for (size_t step = 0; step < c; ++step) doc.Calculate();
            ASSERT_EQ(Shown(doc.Form()), cases[c]);
            ASSERT_TRUE(doc.Form().MakeEntryFile(path));
            // No source text is without its fuse code.
            EXPECT_TRUE(doc.platform.Messages().empty()) << doc.Messages();
        }
        Opener opener;
        frmQX5140* form = opener.Open(path);
        ASSERT_NE(form, nullptr) << opener.Messages();
        EXPECT_EQ(form->mstrSources().size(), cases.size()) << "case " << c;
        // The file holds an assignment, not a case number: a search that finds one solution
        // twice (cases that differ only in a cell that is off) opens on the first of them.
        size_t first = 0;
        while (!SameSolution(cases[first], cases[c])) ++first;
        EXPECT_EQ(Shown(*form), cases[first]) << "case " << c;
        EXPECT_EQ(opener.Messages(),
                  "NOTE: This form has correctly loaded the specified ENT file.  As well, both\r\n"
                  "the PLL assignment stored in the ENT file and the PPM values stored in the\r\n"
                  "ENT file have been matched to the solution set currently displayed.\n")
            << "case " << c;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, QX5140RoundTrip,
    ::testing::Values(
        // One output, three cases: UPLL/4, SPLL/4, CPLL/4.
        RoundTrip{"EachLoop", "20.00000 MHz", false, "optOE", false, {"40", "Off", "Off", "Off"}, ""},
        // The largest dividers of CPLL and UPLL, and SPLL/192.
        RoundTrip{"Sixteen", "20.00000 MHz", false, "optOE", false, {"1", "Off", "Off", "Off"}, ""},
        // SPLL/208, the one case found.
        RoundTrip{"SPLL208", "20.00000 MHz", false, "optShutdown", false, {"0.1", "Off", "Off", "Off"}, ""},
        // Three outputs on shared and separate loops: SPLL/48, /80, /192 and UPLL/4.
        RoundTrip{"Shared", "20.00000 MHz", false, "optOE", false, {"2", "Off", "0.3", "40"}, ""},
        // Outputs left off by the case, CPLL/8 and UPLL/8 beside SPLL/208.
        RoundTrip{"OffOutputs", "20.00000 MHz", false, "optOE", false, {"0.25", "Off", "0.8", "25"}, ""},
        // The reference divided.
        RoundTrip{"Reference", "20.00000 MHz", false, "optOE", false, {"10", "Off", "5", "Off"}, ""},
        // All three on one loop, at 3.3 V from 25 MHz.
        RoundTrip{"ThreeVolt", "25.00000 MHz", true, "optOE", false, {"50", "Off", "25", "12.5"}, ""},
        // Select/Suspend: CLKA on CPLL/16 in both states, SPLL/208 and UPLL/8.
        RoundTrip{"SelectSixteen", "20.00000 MHz", false, "optSelect", false, {"1", "2", "0.1", "25"}, ""},
        // Select/Suspend with CLKB and its loop suspended.
        RoundTrip{"SelectSuspend", "20.00000 MHz", true, "optSelect", true, {"50", "40", "25", "12.5"},
                  "chkSuspendClockB"}),
    [](const ::testing::TestParamInfo<RoundTrip>& info) { return std::string(info.param.Name); });

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
