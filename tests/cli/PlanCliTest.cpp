#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <tuple>
#include <vector>

#include "support/TestSupport.hpp"

// pendulon-cli plan: the ranked table, its JSON form, and the best result written as the
// windows write it, or nothing at all.

namespace {

using pendulon::test::CliResult;
using pendulon::test::RunCli;

const std::vector<std::string> kFixedDate = {"SOURCE_DATE_EPOCH=1700000000"};

std::vector<std::string> ThreeOutputs() {
    return {"plan",   "--ref", "14.31818", "--voltage", "3.3",   "--out",
            "33.333", "--out", "48",       "--out",     "24.576"};
}

std::vector<std::string> With(std::vector<std::string> args, const std::vector<std::string>& more) {
    args.insert(args.end(), more.begin(), more.end());
    return args;
}

std::string Slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The number and the PPM of an actual-frequency entry such as "33.33451    PPM:45".
std::pair<std::string, int> Actual(const std::string& text) {
    const auto blank = text.find(' ');
    const auto ppm = text.find("PPM:");
    return {text.substr(0, blank), ppm == std::string::npos ? 0 : std::stoi(text.substr(ppm + 4))};
}

TEST(PlanCli, JsonRanksAllFifteenDevicesWithReasons) {
    const CliResult run = RunCli(With(ThreeOutputs(), {"--json"}));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const auto json = nlohmann::json::parse(run.out);
    EXPECT_EQ(json["plan"]["reference"], 14.31818);
    EXPECT_EQ(json["plan"]["voltage"], 3.3);
    EXPECT_EQ(json["plan"]["outputs"], nlohmann::json({33.333, 48, 24.576}));
    EXPECT_TRUE(json["plan"]["tolerance_ppm"].is_null());
    ASSERT_EQ(json["devices"].size(), 15u);
    bool serving = true;
    int previous = -1;
    for (const auto& device : json["devices"]) {
        SCOPED_TRACE(device["device"].get<std::string>());
        for (const char* key :
             {"device", "serves", "worst_ppm", "current_ma", "outputs", "loops", "settings"})
            EXPECT_TRUE(device.contains(key)) << key;
        if (device["serves"]) {
            // Devices that serve come first, by worst |ppm|.
            EXPECT_TRUE(serving);
            EXPECT_FALSE(device.contains("reason"));
            EXPECT_GE(device["worst_ppm"].get<int>(), previous);
            previous = device["worst_ppm"];
            EXPECT_TRUE(device["current_ma"].contains("typical"));
            EXPECT_TRUE(device["current_ma"].contains("worst"));
            ASSERT_EQ(device["outputs"].size(), 3u);
            for (const auto& output : device["outputs"])
                for (const char* key : {"wanted", "pin", "source", "actual", "ppm"})
                    EXPECT_TRUE(output.contains(key)) << key;
            for (const auto& loop : device["loops"])
                for (const char* key : {"loop", "target", "p", "q", "vco"})
                    EXPECT_TRUE(loop.contains(key)) << key;
        } else {
            serving = false;
            EXPECT_FALSE(device["reason"].get<std::string>().empty());
        }
    }
    EXPECT_EQ(json["devices"][0]["device"], "QX7312");
}

// The ranking of the three-output plan as worked out by hand (tests/planner: PlanTable and
// QX5140Cases): the QX7312 and QX7311 at 62 ppm and 13.088 mA, the 16-pin part first, then the
// QX5140 at 62 ppm and 13.234 mA; their F and I variants at 118 ppm, of equal current, 16 pins
// first, in the order of the device window; then the devices that do not serve, in the order of the
// device window. The best result's outputs and loops: CPLL P 149 Q 64 (33.33451, +45), UPLL P 295 Q
// 88 (47.99844, -32), SPLL at 73.728 P 242 Q 47 divided by 3 (24.57447, -62); (1.8 + 0.0002 x
// 155.056352 + 18 x 0.00112 x 105.907423) x 3.3 = 13.088146 mA typical, the same with 30 pF at 4.0
// V 21.558003.
TEST(PlanCli, JsonOfTheThreeOutputPlanIsTheHandWorkedRanking) {
    const CliResult run = RunCli(With(ThreeOutputs(), {"--json"}));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const auto json = nlohmann::json::parse(run.out);
    const std::vector<std::tuple<std::string, int, std::string>> expected = {
        {"QX7312", 62, ""},
        {"QX7311", 62, ""},
        {"QX5140", 62, ""},
        {"QX7312F", 118, ""},
        {"QX7312I", 118, ""},
        {"QX7311F", 118, ""},
        {"QX7311I", 118, ""},
        {"QX6105A", -1, "its one PLL cannot give 33.333 MHz, 48 MHz and 24.576 MHz at once"},
        {"QX6105AF", -1, "its one PLL cannot give 33.333 MHz, 48 MHz and 24.576 MHz at once"},
        {"QX6105AI", -1, "its one PLL cannot give 33.333 MHz, 48 MHz and 24.576 MHz at once"},
        {"QX4860", -1, "needs 3 outputs, has 2"},
        {"QX4860F", -1, "needs 3 outputs, has 2"},
        {"QX4860I", -1, "needs 3 outputs, has 2"},
        {"QX3350", -1, "needs 3 outputs, has 1"},
        {"QX3350I", -1, "needs 3 outputs, has 1"}};
    ASSERT_EQ(json["devices"].size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        const auto& device = json["devices"][i];
        const auto& [name, worst, reason] = expected[i];
        SCOPED_TRACE(name);
        EXPECT_EQ(device["device"], name);
        EXPECT_EQ(device["serves"], worst >= 0);
        if (worst >= 0) {
            EXPECT_EQ(device["worst_ppm"], worst);
        } else {
            EXPECT_TRUE(device["worst_ppm"].is_null());
            EXPECT_EQ(device["reason"], reason);
        }
    }
    const auto& best = json["devices"][0];
    EXPECT_EQ(best["outputs"], nlohmann::json::parse(R"([
                  {"wanted": 33.333, "pin": "CLKA", "source": "CPLL", "actual": 33.33451, "ppm": 45},
                  {"wanted": 48, "pin": "CLKB", "source": "UPLL", "actual": 47.99844, "ppm": -32},
                  {"wanted": 24.576, "pin": "CLKC", "source": "SPLL/3", "actual": 24.57447,
                   "ppm": -62}])"));
    EXPECT_EQ(best["loops"], nlohmann::json::parse(R"([
                  {"loop": "CPLL", "target": 33.333, "p": 149, "q": 64, "vco": 66.669026},
                  {"loop": "SPLL", "target": 73.728, "p": 242, "q": 47, "vco": 147.44679},
                  {"loop": "UPLL", "target": 48, "p": 295, "q": 88, "vco": 95.996889}])"));
    EXPECT_NEAR(best["current_ma"]["typical"].get<double>(), 13.088146, 1e-5);
    EXPECT_NEAR(best["current_ma"]["worst"].get<double>(), 21.558003, 1e-5);
}

TEST(PlanCli, TheTableHasTheRankedRowsAndTheDetailsOfEachDeviceThatServes) {
    const CliResult run = RunCli(ThreeOutputs());
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_NE(run.out.find("Plan: 33.333, 48 and 24.576 MHz from 14.31818 MHz at 3.3 V"),
              std::string::npos);
    EXPECT_NE(run.out.find("Rank  Device"), std::string::npos);
    EXPECT_NE(run.out.find("QX4860   does not serve: needs 3 outputs, has 2"), std::string::npos);
    EXPECT_NE(run.out.find("QX7312: serves the plan"), std::string::npos);
    EXPECT_NE(run.out.find("Made by: pendulon-cli new QX7312 "), std::string::npos);
}

// The entry file of the best result, opened again, shows the promised outputs: each output's
// actual frequency where the window shows it on the output, the loop's actual frequency and PPM
// for the outputs of a loop (the QX7311 family shows the PPM on the loop), and the loop's P and
// Q. The vector is the one the document's own command writes.
TEST(PlanCli, SaveAndJedWriteTheBestResultAsItsWindowWouldAndItOpensOnThePromise) {
    pendulon::test::TempDir folder;
    const std::string ent = folder / "best.ent";
    const std::string jed = folder / "best.jed";
    const CliResult run =
        RunCli(With(ThreeOutputs(), {"--json", "--save", ent, "--jed", jed}), kFixedDate);
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const auto best = nlohmann::json::parse(run.out)["devices"][0];
    ASSERT_EQ(best["device"], "QX7312");

    const CliResult opened = RunCli({"open", ent, "--json"}, kFixedDate);
    ASSERT_EQ(opened.exitCode, 0) << opened.err;
    const auto state = nlohmann::json::parse(opened.out);
    EXPECT_EQ(state["device"], "QX7312");
    const auto& fields = state["fields"];
    const std::map<std::string, std::string> pinList = {
        {"CLKA", "cboClk(0)"}, {"CLKB", "cboClk(1)"}, {"CLKC", "cboClk(2)"},
        {"CLKD", "cboClk(3)"}, {"CPU", "cboCPU"},     {"XBUF", "cboXBuff"}};
    const std::map<std::string, std::string> loopList = {
        {"C", "cboCPLL(0)"}, {"S", "cboSPLL"}, {"U", "cboUPLL"}};
    for (const auto& output : best["outputs"]) {
        const std::string pin = output["pin"];
        const std::string source = output["source"];
        SCOPED_TRACE(pin);
        EXPECT_EQ(fields[pinList.at(pin)]["text"], source);
        const auto [loopActual, loopPPM] = Actual(fields[loopList.at(source.substr(0, 1))]["text"]);
        EXPECT_EQ(loopPPM, output["ppm"].get<int>());
        if (source[0] != 'C') {
            const std::string actual = fields["cboActual" + pinList.at(pin).substr(3)]["text"];
            EXPECT_DOUBLE_EQ(std::stod(actual), output["actual"].get<double>());
        }
    }
    const std::map<std::string, std::string> dataList = {
        {"CPLL", "cboCPLLData(0)"}, {"SPLL", "cboSPLLData"}, {"UPLL", "cboUPLLData"}};
    for (const auto& loop : best["loops"]) {
        const std::string data = fields[dataList.at(loop["loop"])]["text"];
        EXPECT_EQ(std::stoi(data.substr(data.find("P:") + 2)), loop["p"].get<int>());
        EXPECT_EQ(std::stoi(data.substr(data.find("Q:") + 2)), loop["q"].get<int>());
    }

    // The same settings in a new document give the same vector, byte for byte.
    const std::string again = folder / "again.jed";
    std::vector<std::string> args = {"new", "QX7312"};
    for (const auto& setting : best["settings"]) args.push_back(setting);
    args.insert(args.end(), {"--jed", again});
    const CliResult made = RunCli(args, kFixedDate);
    ASSERT_EQ(made.exitCode, 0) << made.err;
    ASSERT_FALSE(Slurp(jed).empty());
    EXPECT_EQ(Slurp(jed), Slurp(again));
}

TEST(PlanCli, AQX5140ResultSavedOpensOnTheSameOutputs) {
    pendulon::test::TempDir folder;
    const std::string ent = folder / "qx5140.ent";
    const CliResult run =
        RunCli(With(ThreeOutputs(), {"--device", "QX5140", "--json", "--save", ent}), kFixedDate);
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const auto best = nlohmann::json::parse(run.out)["devices"][0];
    ASSERT_EQ(best["device"], "QX5140");
    const CliResult opened = RunCli({"open", ent, "--json"}, kFixedDate);
    ASSERT_EQ(opened.exitCode, 0) << opened.err;
    const auto state = nlohmann::json::parse(opened.out);
    const auto& fields = state["fields"];
    const std::map<std::string, std::pair<std::string, std::string>> pins = {
        {"CLKA", {"cboClkA(0)", "lblClkASrcDiv"}},
        {"CLKB", {"cboClkB", "lblClkBSrcDiv"}},
        {"CLKC", {"cboClkC", "lblClkCSrcDiv"}}};
    for (const auto& output : best["outputs"]) {
        const auto& [list, label] = pins.at(output["pin"]);
        const auto [actual, ppm] = Actual(fields[list]["text"]);
        EXPECT_DOUBLE_EQ(std::stod(actual), output["actual"].get<double>());
        EXPECT_EQ(ppm, output["ppm"].get<int>());
        EXPECT_EQ(fields[label]["caption"], output["source"]);
    }
}

TEST(PlanCli, WhenNoDeviceServesNothingIsWrittenAndTheStatusIsOne) {
    pendulon::test::TempDir folder;
    const std::string ent = folder / "kept.ent";
    const std::string jed = folder / "none.jed";
    {
        std::ofstream keep(ent, std::ios::binary);
        keep << "kept as it was\r\n";
    }
    const CliResult run = RunCli({"plan", "--ref", "14.31818", "--voltage", "5", "--out", "150",
                                  "--save", ent, "--jed", jed});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.err.find("no device serves the plan; nothing was written"), std::string::npos);
    EXPECT_EQ(Slurp(ent), "kept as it was\r\n");
    EXPECT_FALSE(std::filesystem::exists(jed));
}

// The QX5140 is the only device that serves 0.5 and 0.92327 MHz, and it has no EPROM vector:
// asked for one, the command writes neither file.
TEST(PlanCli, AVectorTheBestDeviceCannotMakeWritesNothing) {
    pendulon::test::TempDir folder;
    const std::string ent = folder / "qx5140.ent";
    const std::string jed = folder / "qx5140.jed";
    const CliResult run = RunCli({"plan", "--ref", "14.31818", "--voltage", "3.3", "--out", "0.5",
                                  "--out", "0.92327", "--save", ent, "--jed", jed});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.err.find("the QX5140, has no EPROM vector; nothing was written"),
              std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(ent));
    EXPECT_FALSE(std::filesystem::exists(jed));
}

TEST(PlanCli, MalformedCommandsAreRefusedWithStatusTwo) {
    const std::vector<std::vector<std::string>> bad = {
        {"plan", "--voltage", "3.3", "--out", "48"},
        {"plan", "--ref", "14.31818", "--out", "48"},
        {"plan", "--ref", "14.31818", "--voltage", "3.3"},
        {"plan", "--ref", "14.31818", "--voltage", "4", "--out", "48"},
        {"plan", "--ref", "fast", "--voltage", "3.3", "--out", "48"},
        {"plan", "--ref", "14.31818", "--voltage", "3.3", "--out", "0"},
        {"plan", "--ref", "14.31818", "--voltage", "3.3", "--out", "48", "--ppm", "-1"},
        {"plan", "--ref", "14.31818", "--voltage", "3.3", "--out", "48", "--ppm", "1.5"},
        {"plan", "--ref", "14.31818", "--voltage", "3.3", "--out", "48", "--device", "QX9999"},
        {"plan", "--ref", "14.31818", "--voltage", "3.3", "--out", "48", "--pins", "0"},
        {"plan", "--ref", "14.31818", "--voltage", "3.3", "--out", "48", "--save", "a", "--jed",
         "a"},
        {"plan", "--ref", "14.31818", "--voltage", "3.3", "--out", "48", "--frob"},
        {"plan",  "--ref", "14.31818", "--voltage", "3.3",   "--out", "1",
         "--out", "2",     "--out",    "3",         "--out", "4",     "--out",
         "5",     "--out", "6",        "--out",     "7",     "--out", "8"},
    };
    for (const auto& args : bad) {
        const CliResult run = RunCli(args);
        std::string line;
        for (const auto& arg : args) line += arg + " ";
        EXPECT_EQ(run.exitCode, 2) << line;
        EXPECT_NE(run.err.find("pendulon-cli plan: "), std::string::npos) << line;
        EXPECT_TRUE(run.out.empty()) << line;
    }
}

TEST(PlanCli, HelpDescribesTheCommand) {
    const CliResult run = RunCli({"plan", "--help"});
    ASSERT_EQ(run.exitCode, 0);
    for (const char* text : {"--ref MHZ|any", "--voltage", "--out MHZ", "--ppm N", "--device NAME",
                             "--pins N", "--json", "--save PATH", "--jed PATH", "Exit status"})
        EXPECT_NE(run.out.find(text), std::string::npos) << text;
    const CliResult all = RunCli({"--help"});
    EXPECT_NE(all.out.find("plan --ref MHZ|any --voltage 3.3|5 --out MHZ"), std::string::npos);
}

}  // namespace
