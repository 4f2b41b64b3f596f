#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/TestSupport.hpp"

namespace {

using pendulon::test::CliResult;
using pendulon::test::ReadFile;
using pendulon::test::RunCli;

const std::vector<std::string> kFixedDate = {"SOURCE_DATE_EPOCH=1700000000"};

nlohmann::json Json(const CliResult& result) {
    return nlohmann::json::parse(result.out);
}

// A folder of the test's own that goes when the test ends, also on a failed assertion.
struct Folder {
    std::string path = pendulon::test::MakeTempDir();
    ~Folder() { std::filesystem::remove_all(path); }
    std::string operator/(const std::string& name) const { return path + "/" + name; }
};

TEST(CliQX3350, NewDocumentStartsWithTheDefaults) {
    for (const char* device : {"QX3350", "QX3350I"}) {
        const auto result = RunCli({"new", device, "--json"});
        ASSERT_EQ(result.exitCode, 0) << result.err;
        const auto state = Json(result);
        EXPECT_EQ(state["device"], device);
        EXPECT_TRUE(state["messages"].empty());
        const auto& fields = state["fields"];
        EXPECT_EQ(fields["lblDevice"]["caption"], device);
        EXPECT_EQ(fields["optCrystal"]["value"], true);
        EXPECT_EQ(fields["optTTL"]["value"], true);
        EXPECT_EQ(fields["optPowerDown"]["value"], true);
        EXPECT_EQ(fields["optSOIC"]["value"], true);
        EXPECT_EQ(fields["opt5V"]["value"], true);
        EXPECT_EQ(fields["txtPLL"]["text"], "Off");
        EXPECT_EQ(fields["cboClockDivisors"]["list"].size(), 17u);
        EXPECT_EQ(fields["cboClockDivisors"]["text"], "PLL");
        EXPECT_EQ(fields["lblNoPowerCalculation"]["caption"], "Power Calculation Not Available");
        EXPECT_EQ(fields["txtPLLMax(0)"]["text"], "250.0");
    }
}

TEST(CliQX3350, SetAndClickAsAUser) {
    const auto result = RunCli({"new", "QX3350", "--click", "optExternal", "--set", "cboFRef=25",
                                "--set", "txtPLL=160", "--set", "cboClockDivisors=PLL/8", "--click",
                                "cmdCalculate", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto fields = Json(result)["fields"];
    EXPECT_EQ(fields["cboFRef"]["text"], "25.00000 MHz");
    EXPECT_EQ(fields["txtPLL"]["text"], "160.0");
    EXPECT_EQ(fields["lblDesiredClock"]["caption"], " 20.00000");
    // 160 = 2 x 25 x 16 / 5: an exact solution exists, so the best entry has no error.
    EXPECT_EQ(fields["cboActual"]["text"], "20.00000    PPM:0");
    EXPECT_EQ(fields["cmdCalculate"]["backColor"], 12632256);
    EXPECT_EQ(fields["cboActual"]["foreColor"], fields["cboFRef"]["foreColor"]);
}

TEST(CliQX3350, ThreeVoltsForceCMOSAndARedOutput) {
    const auto result = RunCli({"new", "QX3350", "--set", "txtPLL=120", "--click", "cmdCalculate",
                                "--click", "opt3V", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto fields = Json(result)["fields"];
    EXPECT_EQ(fields["optCMOS"]["value"], true);
    EXPECT_EQ(fields["optTTL"]["enabled"], false);
    EXPECT_EQ(fields["lblDesiredClock"]["foreColor"], 255);
    EXPECT_EQ(fields["cboActual"]["foreColor"], 255);
}

TEST(CliQX3350, SaveOpenAndSaveAgainGiveTheSameFilesVectorAndDocument) {
    Folder dir;
    const auto made = RunCli({"new",     "QX3350I",
                              "--click", "optExternal",
                              "--set",   "cboFRef=25",
                              "--set",   "txtPLL=160",
                              "--set",   "cboClockDivisors=PLL/8",
                              "--click", "optTSSOP",
                              "--click", "optOutputEnable",
                              "--click", "chkSynchronous",
                              "--click", "cmdCalculate",
                              "--save",  dir / "first.ent",
                              "--jed",   dir / "first.jed",
                              "--print", dir / "first.txt"},
                             kFixedDate);
    ASSERT_EQ(made.exitCode, 0) << made.err;
    const std::string first = ReadFile(dir / "first.ent");
    EXPECT_NE(first.find("# s qx3350zi-"), std::string::npos);
    EXPECT_NE(first.find("# i 1         ;5"), std::string::npos);  // output enable
    EXPECT_NE(first.find("# i 1         ;6"), std::string::npos);  // synchronous
    const std::string document = ReadFile(dir / "first.txt");
    EXPECT_NE(document.find("P/N: qx3350zi-"), std::string::npos);
    EXPECT_NE(document.find("PD/OE: OE\r\nASYNC/SYNC: SYNCH"), std::string::npos);
    EXPECT_NE(document.find("| CLKOUT  | (PLL/8) | 20.00000"), std::string::npos);

    const auto opened = RunCli({"open", dir / "first.ent", "--json", "--save", dir / "second.ent",
                                "--jed", dir / "second.jed", "--print", dir / "second.txt"},
                               kFixedDate);
    ASSERT_EQ(opened.exitCode, 0) << opened.err;
    const auto fields = Json(opened)["fields"];
    EXPECT_EQ(fields["lblDevice"]["caption"], "QX3350I");
    EXPECT_EQ(fields["optExternal"]["value"], true);
    EXPECT_EQ(fields["optTSSOP"]["value"], true);
    EXPECT_EQ(fields["optOutputEnable"]["value"], true);
    EXPECT_EQ(fields["chkSynchronous"]["value"], 1);
    EXPECT_EQ(fields["txtPLL"]["text"], "160.0");
    EXPECT_EQ(fields["cboClockDivisors"]["text"], "PLL/8");
    EXPECT_EQ(ReadFile(dir / "second.ent"), first);
    EXPECT_EQ(ReadFile(dir / "second.jed"), ReadFile(dir / "first.jed"));
    // The document names the file saved last; everything else is the same.
    std::string again = ReadFile(dir / "second.txt");
    const std::string named = "Entry File: second.ent";
    ASSERT_NE(again.find(named), std::string::npos);
    EXPECT_EQ(again.substr(0, again.find("Entry File:")),
              document.substr(0, document.find("Entry File:")));

    const auto vector = RunCli({"jed", dir / "first.ent", "-o", dir / "third.jed"}, kFixedDate);
    ASSERT_EQ(vector.exitCode, 0) << vector.err;
    EXPECT_EQ(ReadFile(dir / "third.jed"), ReadFile(dir / "first.jed"));
}

TEST(CliQX3350, AFileWithABadPackageFormatOpensAfterTheMessageAndStaysIntact) {
    Folder dir;
    const auto made = RunCli({"new", "QX3350", "--set", "txtPLL=100", "--click", "optTSSOP",
                              "--click", "cmdCalculate", "--save", dir / "good.ent"},
                             kFixedDate);
    ASSERT_EQ(made.exitCode, 0) << made.err;
    std::string text = ReadFile(dir / "good.ent");
    const std::string good = "# s qx3350zc-";
    const size_t at = text.find(good);
    ASSERT_NE(at, std::string::npos);
    text.replace(at, good.size(), "# s qx3350c-");
    {
        std::ofstream out(dir / "bad.ent", std::ios::binary);
        out << text;
    }
    const auto opened = RunCli({"open", dir / "bad.ent", "--json"}, kFixedDate);
    // Opened, with a message: status 3.
    ASSERT_EQ(opened.exitCode, 3) << opened.err;
    EXPECT_NE(opened.err.find("The format of the package type in the entry file is invalid."),
              std::string::npos)
        << opened.err;
    const auto fields = Json(opened)["fields"];
    // The package options keep their start values; the rest of the file is read.
    EXPECT_EQ(fields["optSOIC"]["value"], true);
    EXPECT_EQ(fields["txtPLL"]["text"], "100.0");
    EXPECT_EQ(ReadFile(dir / "bad.ent"), text);
}

TEST(CliQX3350, DetailsChooseTheCommentsButTheVoltageLineKeepsItsOwn) {
    Folder dir;
    for (const char* details : {"on", "off"}) {
        const std::string path = dir / (std::string(details) + ".ent");
        const auto made = RunCli({"new", "QX3350", "--set", "txtPLL=100", "--click", "cmdCalculate",
                                  "--options-details", details, "--save", path},
                                 kFixedDate);
        ASSERT_EQ(made.exitCode, 0) << made.err;
        const std::string text = ReadFile(path);
        EXPECT_NE(text.find(";0  0 for 3.3v, 1 for 5v\r\n"), std::string::npos) << details;
        const bool on = std::string(details) == "on";
        EXPECT_EQ(text.find(";11  RLow, Charge pump adjustment.\r\n") != std::string::npos, on);
        EXPECT_EQ(text.find(";0  Reference Frequency.\r\n\r\n") != std::string::npos, on);
    }
}

}  // namespace
