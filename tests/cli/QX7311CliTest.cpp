#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/TestSupport.hpp"

namespace {

using pendulon::test::CliResult;
using pendulon::test::RunCli;

// VCO, P and Q of a PLL data string such as "100.000000 P:10 Q:4".
struct Data {
    double vco;
    int p;
    int q;
};
Data Parse(const std::string& text) {
    return {std::stod(text), std::stoi(text.substr(text.find("P:") + 2)),
            std::stoi(text.substr(text.find("Q:") + 2))};
}

// A 20 MHz reference makes the hand arithmetic exact: SPLL 50 MHz runs its VCO at 100 MHz, so
// P / Q = 100 / (2 x 20) = 2.5; CPLL row 0 at 60 MHz needs P / Q = 3, above the CPLL's 1.3.
std::vector<std::string> ExactCase(const std::string& device) {
    return {"new",     device,
            "--set",   "cboFRef=20.00000 MHz",
            "--set",   "txtSPLL=50",
            "--set",   "txtCPLL(0)=60",
            "--set",   "txtCPLL(7)=Off",
            "--set",   "cboClk(0)=SPLL/5",
            "--set",   "cboClk(3)=Ref/3",
            "--set",   "cboCPU=CPLL/2",
            "--click", "chkSuspend",
            "--click", "cmdCalculate",
            "--json"};
}

TEST(QX7311Cli, EverySiblingOfTheFamilyIsCreatedSetAndCalculated) {
    for (const std::string device :
         {"QX7311", "QX7311F", "QX7311I", "QX7312", "QX7312F", "QX7312I"}) {
        const CliResult run = RunCli(ExactCase(device));
        ASSERT_EQ(run.exitCode, 0) << device << run.out;
        const nlohmann::json state = nlohmann::json::parse(run.out);
        EXPECT_EQ(state["device"], device);
        const auto& fields = state["fields"];
        EXPECT_EQ(fields["lblDevice"]["caption"], device);
        const bool model7311 = device.rfind("QX7311", 0) == 0;
        EXPECT_EQ(fields["opt7311"]["value"], model7311) << device;
        EXPECT_EQ(fields["opt7312"]["value"], !model7311) << device;
        EXPECT_EQ(fields["pic7311Only"]["visible"], model7311) << device;
        EXPECT_EQ(fields["cboClkF"]["text"], model7311 ? "SPLL/2" : "Off") << device;
        const Data spll = Parse(fields["cboSPLLData"]["text"]);
        EXPECT_DOUBLE_EQ(spll.vco, 100.0) << device;
        EXPECT_DOUBLE_EQ(2.0 * 20 * spll.p / spll.q, 100.0) << device;
        const Data cpll = Parse(fields["cboCPLLData(0)"]["text"]);
        EXPECT_DOUBLE_EQ(cpll.vco, 120.0) << device;
        EXPECT_EQ(cpll.p, 3 * cpll.q) << device;
        EXPECT_EQ(fields["cboSPLL"]["text"], "50.00000    PPM:0");
        EXPECT_EQ(fields["cboCPLL(0)"]["text"], "60.00000    PPM:0");
        EXPECT_EQ(fields["lblDesiredClk(0)"]["caption"], " 10.00000");
        EXPECT_EQ(fields["cboActualClk(0)"]["text"], "10.00000");
        // 20 / 3 on CLKD's own reference divider.
        EXPECT_EQ(fields["lblDesiredClk(3)"]["caption"], " 6.66667");
        EXPECT_EQ(fields["cboActualClk(3)"]["text"], "6.66667");
        EXPECT_EQ(fields["lblDesiredCPU"]["caption"], " CPLL/2");
        EXPECT_EQ(fields["cboActualCPU"]["text"], "CPLL/2");
        // SUSPEND leaves XBUF on the reference only and wakes the output boxes.
        EXPECT_EQ(fields["cboXBuff"]["list"], nlohmann::json::array({"Ref"}));
        EXPECT_EQ(fields["chkSusClk(0)"]["enabled"], true);
        EXPECT_EQ(fields["chkSuspendSPLL"]["enabled"], true);
        EXPECT_EQ(fields["chkSuspendUPLL"]["enabled"], false);
        EXPECT_EQ(fields["cmdCalculate"]["backColor"], 12632256);
    }
}

TEST(QX7311Cli, TheModelOptionTurnsAQX7311IntoAQX7312) {
    const CliResult run =
        RunCli({"new", "QX7311I", "--set", "cboClkF=SPLL/4", "--click", "opt7312", "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.out;
    const nlohmann::json state = nlohmann::json::parse(run.out);
    EXPECT_EQ(state["fields"]["lblDevice"]["caption"], "QX7312I");
    EXPECT_EQ(state["fields"]["cboClkF"]["text"], "Off");
    EXPECT_EQ(state["fields"]["pic7311Only"]["visible"], false);
}

TEST(QX7311Cli, OnlyCLKDOffersTheReferenceDividedByThree) {
    const CliResult run = RunCli({"new", "QX7311", "--set", "cboClk(0)=Ref/3", "--json"});
    EXPECT_NE(run.exitCode, 0);
    EXPECT_NE(run.err.find("Ref/3"), std::string::npos) << run.err;
}

TEST(QX7311Cli, ATextLeftInALoopFieldIsClampedToTheVariantsRange) {
    const CliResult run = RunCli({"new", "QX7312F", "--click", "opt3V", "--set", "txtCPLL(2)=200",
                                  "--set", "txtUPLL=0", "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.out;
    const nlohmann::json state = nlohmann::json::parse(run.out);
    EXPECT_EQ(state["fields"]["txtCPLL(2)"]["text"], "66.66667");
    EXPECT_EQ(state["fields"]["txtUPLL"]["text"], "Off");
}

// A folder of the test's own, removed when the test ends, passed or failed.
struct Folder {
    std::string path = pendulon::test::MakeTempDir();
    ~Folder() { std::filesystem::remove_all(path); }
    std::string operator/(const std::string& name) const { return path + "/" + name; }
};

TEST(QX7311Cli, ASavedDocumentOpensToTheSameFieldsAndSavesToTheSameBytes) {
    for (const std::string device :
         {"QX7311", "QX7311F", "QX7311I", "QX7312", "QX7312F", "QX7312I"}) {
        Folder folder;
        std::vector<std::string> make = ExactCase(device);
        make.pop_back();  // no --json
        for (const std::string& action :
             {std::string("--set"), std::string("txtCPLL(5)=75"), std::string("--set"),
              std::string("txtUPLL=24"), std::string("--set"), std::string("cboClk(1)=UPLL/2"),
              std::string("--click"), std::string("chkSusClk(1)"), std::string("--click"),
              std::string("cmdCalculate"), std::string("--save"), folder / "a.ent"})
            make.push_back(action);
        const CliResult made = RunCli(make);
        ASSERT_EQ(made.exitCode, 0) << device << made.err;
        const CliResult opened =
            RunCli({"open", folder / "a.ent", "--save", folder / "b.ent", "--json"});
        ASSERT_EQ(opened.exitCode, 0) << device << opened.err;
        const auto fields = nlohmann::json::parse(opened.out)["fields"];
        EXPECT_EQ(fields["lblDevice"]["caption"], device);
        EXPECT_EQ(fields["txtCPLL(0)"]["text"], "60.0") << device;
        EXPECT_EQ(fields["txtCPLL(5)"]["text"], "75.0") << device;
        EXPECT_EQ(fields["txtSPLL"]["text"], "50.0") << device;
        EXPECT_EQ(fields["txtUPLL"]["text"], "24.0") << device;
        EXPECT_EQ(fields["cboClk(0)"]["text"], "SPLL/5") << device;
        EXPECT_EQ(fields["cboClk(1)"]["text"], "UPLL/2") << device;
        EXPECT_EQ(fields["cboClk(3)"]["text"], "Ref/3") << device;
        EXPECT_EQ(fields["cboCPU"]["text"], "CPLL/2") << device;
        EXPECT_EQ(fields["chkSuspend"]["value"], 1) << device;
        EXPECT_EQ(fields["chkSusClk(1)"]["value"], 1) << device;
        EXPECT_EQ(fields["cboCPLL(0)"]["text"], "60.00000    PPM:0") << device;
        EXPECT_EQ(pendulon::test::ReadFile(folder / "a.ent"),
                  pendulon::test::ReadFile(folder / "b.ent"))
            << device;
    }
}

}  // namespace
