#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "app/Configurator.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/ListField.hpp"
#include "platform/TextField.hpp"
#include "reports/frmPrintPreview.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "support/TestSupport.hpp"

namespace pendulon::test {
namespace {

namespace fs = std::filesystem;

// 2023-11-14 22:13:20 UTC.
constexpr const char* kEpoch = "1700000000";

using CliRun = CliResult;

// Runs pendulon-cli with the arguments, with the dates fixed.
CliRun RunCliFixed(const std::vector<std::string>& args) {
    return RunCli(args, {std::string("SOURCE_DATE_EPOCH=") + kEpoch});
}

// The program in this process, on the same fixed date as the command line runs.
struct Program {
    Program() {
        platform = std::make_unique<HeadlessPlatform>();
        platform->SetNow(DateTime::FromUnixSeconds(std::atoll(kEpoch)));
        app = std::make_unique<Application>(*platform);
        app->Main().MDIForm_Load("");
    }
    frmMain& Main() { return app->Main(); }
    Configurator& Doc() { return *app->Document(); }
    void QueueSummaryOK() {
        platform->QueueModal("frmSummary",
                             [](Window& w) { dynamic_cast<frmSummary&>(w).cmdOK_Click(); });
    }
    // A new QX4860: 20 MHz reference, Clock A from PLL/2, 80 MHz in row 0, calculated.
    void NewCalculatedQX4860() {
        frmDevice& select = app->DeviceForm();
        select.CreateNew(true);
        select.OptionFor("QX4860")->SetValue(true);
        select.cmdOK_Click();
        Configurator& doc = Doc();
        auto pick = [&](const std::string& name, const std::string& text) {
            auto* list = doc.Fields().FindAs<ListField>(name);
            ASSERT_NE(list, nullptr) << name;
            for (int i = 0; i < list->ListCount(); ++i) {
                if (list->List(i) == text) {
                    doc.SetFocusTo(list);
                    list->SetListIndex(i);
                    doc.SetFocusTo(nullptr);
                    return;
                }
            }
            FAIL() << name << " has no " << text;
        };
        pick("cboFRef", "20.00000 MHz");
        pick("cboClkADiv", "PLL/2");
        auto* pll = doc.Fields().FindAs<TextField>("txtPLL(0)");
        ASSERT_NE(pll, nullptr);
        doc.SetFocusTo(pll);
        pll->SetText("80");
        doc.SetFocusTo(nullptr);
        doc.cmdCalculate.RaiseClick();
    }
    void SaveAs(const std::string& path) {
        QueueSummaryOK();
        platform->QueueFileAnswer(path);
        Main().mnuSaveAs_Click();
    }
    void Open(const std::string& path) {
        QueueSummaryOK();
        Main().GetFile(path);
    }
    std::string PrintText() {
        Main().mnuPrint_Click();
        auto* preview = dynamic_cast<frmPrintPreview*>(app->Preview());
        EXPECT_NE(preview, nullptr);
        const std::string text = preview != nullptr ? preview->txtPrintout.Text() : "";
        app->UnloadPreview();
        return text;
    }
    void Vector(const std::string& path, bool fromNew) {
        platform->QueueFileAnswer(path);
        if (fromNew)
            Main().mnuToolsCreateEPROMNew_Click();
        else
            Main().mnuToolsCreateEPROMSaved_Click();
    }
    std::unique_ptr<HeadlessPlatform> platform;
    std::unique_ptr<Application> app;
};

// An entry file of a calculated QX4860, saved through the models.
std::string MakeSavedEntryFile(const std::string& folder) {
    Program program;
    program.NewCalculatedQX4860();
    const std::string path = (fs::path(folder) / "source.ent").string();
    program.SaveAs(path);
    EXPECT_TRUE(fs::exists(path));
    return path;
}

std::string In(const std::string& folder, const std::string& name) {
    return (fs::path(folder) / name).string();
}

TEST(ToolCli, OpenSavePrintJedWriteWhatTheModelsWrite) {
    const std::string dir = MakeTempDir();
    const std::string source = MakeSavedEntryFile(dir);
    const CliRun run = RunCliFixed({"open", source, "--save", In(dir, "cli.ent"), "--print",
                               In(dir, "cli.txt"), "--jed", In(dir, "cli.jed")});
    ASSERT_EQ(run.exitCode, 0) << run.err;

    // The same steps through the models, saving under the same name (the document names it).
    const std::string modelDir = MakeTempDir();
    Program program;
    program.Open(source);
    ASSERT_NE(program.app->Document(), nullptr);
    program.SaveAs(In(modelDir, "cli.ent"));
    const std::string document = program.PrintText();
    program.Vector(In(dir, "model.jed"), true);

    EXPECT_EQ(ReadFile(In(dir, "cli.ent")), ReadFile(In(modelDir, "cli.ent")));
    // The file holds the document's lines, the last one ended like the others.
    EXPECT_EQ(ReadFile(In(dir, "cli.txt")), document + "\r\n");
    EXPECT_EQ(ReadFile(In(dir, "cli.jed")), ReadFile(In(dir, "model.jed")));

    // Dates come from SOURCE_DATE_EPOCH: 1700000000 is the 14th of November 2023.
    const std::string entry = ReadFile(In(dir, "cli.ent"));
    EXPECT_NE(entry.find("\r\nModification Date: Nov/14/2023\r\n"), std::string::npos);
    // A 14-pin QX4860 vector: STX, the program's line, the maker, the QP/QF line.
    const std::string jed = ReadFile(In(dir, "cli.jed"));
    EXPECT_EQ(jed.rfind("\x02\r\nGenerated by Pendulon(tm) 3.71 - Build #: 3.71.010\r\n", 0), 0u);
    EXPECT_NE(jed.find("\r\nQP0014* QF0884* G0 *\r\nL0000\r\n"), std::string::npos);
    EXPECT_EQ(jed.substr(jed.size() - 7),
              "\x03"
              "0000\r\n");
    // The document's lines end in CR LF.
    const std::string text = ReadFile(In(dir, "cli.txt"));
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(text.substr(text.size() - 2), "\r\n");
    for (size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1))
        ASSERT_TRUE(at > 0 && text[at - 1] == '\r') << "bare line feed at " << at;
}

TEST(ToolCli, JedWritesTheVectorOfTheSavedFile) {
    const std::string dir = MakeTempDir();
    const std::string source = MakeSavedEntryFile(dir);
    const CliRun run = RunCliFixed({"jed", source, "-o", In(dir, "cli.jed")});
    ASSERT_EQ(run.exitCode, 0) << run.err;

    Program program;
    program.Open(source);
    program.Vector(In(dir, "model.jed"), false);
    EXPECT_EQ(ReadFile(In(dir, "cli.jed")), ReadFile(In(dir, "model.jed")));
    EXPECT_NE(ReadFile(In(dir, "cli.jed")).find("QP0014* QF0884* G0 *"), std::string::npos);
    // The file holds the configuration as saved, so its vector is the window's own.
    program.Vector(In(dir, "window.jed"), true);
    EXPECT_EQ(ReadFile(In(dir, "cli.jed")), ReadFile(In(dir, "window.jed")));
}

TEST(ToolCli, OptionsDetailsChoosesTheDescriptionsOfTheSavedFile) {
    const std::string dir = MakeTempDir();
    const std::string source = MakeSavedEntryFile(dir);
    const CliRun on =
        RunCliFixed({"open", source, "--options-details", "on", "--save", In(dir, "on.ent")});
    const CliRun off =
        RunCliFixed({"open", source, "--options-details", "off", "--save", In(dir, "off.ent")});
    ASSERT_EQ(on.exitCode, 0) << on.err;
    ASSERT_EQ(off.exitCode, 0) << off.err;

    Program program;
    program.Open(source);
    program.Main().mblnSaveEntryFileDescription = true;
    program.SaveAs(In(dir, "model-on.ent"));
    program.Main().mblnSaveEntryFileDescription = false;
    program.SaveAs(In(dir, "model-off.ent"));
    EXPECT_EQ(ReadFile(In(dir, "on.ent")), ReadFile(In(dir, "model-on.ent")));
    EXPECT_EQ(ReadFile(In(dir, "off.ent")), ReadFile(In(dir, "model-off.ent")));
    EXPECT_GT(ReadFile(In(dir, "on.ent")).size(), ReadFile(In(dir, "off.ent")).size());

    EXPECT_EQ(RunCliFixed({"open", source, "--options-details", "maybe"}).exitCode, 2);
}

TEST(ToolCli, OpenOfMissingFileFailsWithTheProgramsMessage) {
    const std::string dir = MakeTempDir();
    const CliRun run = RunCliFixed({"open", In(dir, "missing.ent"), "--save", In(dir, "x.ent")});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.err.find("The path and/or file name cannot be found."), std::string::npos);
    EXPECT_FALSE(fs::exists(In(dir, "x.ent")));
}

TEST(ToolCli, JedOfUnsavableDocumentLeavesNoFileAndBadUsageIsRefused) {
    const std::string dir = MakeTempDir();
    EXPECT_EQ(RunCliFixed({"jed", In(dir, "a.ent")}).exitCode, 2);
    EXPECT_EQ(RunCliFixed({"jed", In(dir, "a.ent"), "--out", In(dir, "a.jed")}).exitCode, 2);
    EXPECT_EQ(RunCliFixed({"jed", In(dir, "a.ent"), "-o", In(dir, "a.jed")}).exitCode, 1);
    EXPECT_FALSE(fs::exists(In(dir, "a.jed")));
    const std::string source = MakeSavedEntryFile(dir);
    EXPECT_EQ(RunCliFixed({"open", source, "--print"}).exitCode, 2);
    // A vector into a folder that does not exist is reported, and nothing is left behind.
    const CliRun bad = RunCliFixed({"open", source, "--jed", In(dir, "no/such/v.jed")});
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_FALSE(fs::exists(In(dir, "no")));
}

TEST(ToolCli, NewDocumentTakesTheSameActions) {
    const std::string dir = MakeTempDir();
    const CliRun run =
        RunCliFixed({"new", "QX4860", "--set", "cboFRef=20.00000 MHz", "--set", "cboClkADiv=PLL/2",
                "--set", "txtPLL(0)=80", "--click", "cmdCalculate", "--save", In(dir, "cli.ent"),
                "--jed", In(dir, "cli.jed"), "--print", In(dir, "cli.txt")});
    ASSERT_EQ(run.exitCode, 0) << run.err;

    const std::string modelDir = MakeTempDir();
    Program program;
    program.NewCalculatedQX4860();
    program.SaveAs(In(modelDir, "cli.ent"));
    program.Vector(In(modelDir, "cli.jed"), true);
    const std::string document = program.PrintText();
    EXPECT_EQ(ReadFile(In(dir, "cli.ent")), ReadFile(In(modelDir, "cli.ent")));
    EXPECT_EQ(ReadFile(In(dir, "cli.jed")), ReadFile(In(modelDir, "cli.jed")));
    EXPECT_EQ(ReadFile(In(dir, "cli.txt")), document + "\r\n");
}

TEST(ToolCli, NewWithUncalculatedChangeCannotSaveOrMakeVector) {
    const std::string dir = MakeTempDir();
    const CliRun save =
        RunCliFixed({"new", "QX4860", "--set", "cboFRef=20.00000 MHz", "--save", In(dir, "x.ent")});
    EXPECT_EQ(save.exitCode, 1);
    EXPECT_NE(save.err.find("Warning! You have not calculated your configurations."),
              std::string::npos);
    EXPECT_FALSE(fs::exists(In(dir, "x.ent")));
    const CliRun jed =
        RunCliFixed({"new", "QX4860", "--set", "cboFRef=20.00000 MHz", "--jed", In(dir, "x.jed")});
    EXPECT_EQ(jed.exitCode, 1);
    EXPECT_FALSE(fs::exists(In(dir, "x.jed")));
}

TEST(ToolCli, HelpListsOpenJedAndTheDocumentActions) {
    const CliRun run = RunCliFixed({"--help"});
    ASSERT_EQ(run.exitCode, 0);
    for (const char* text : {"open FILE [ACTION]...", "jed FILE.ent -o OUT.jed", "--save PATH",
                             "--options-details on|off", "--print PATH", "--jed PATH"})
        EXPECT_NE(run.out.find(text), std::string::npos) << text;
}

}  // namespace
}  // namespace pendulon::test
