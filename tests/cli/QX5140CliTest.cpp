#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "support/TestSupport.hpp"

namespace {

using pendulon::test::CliResult;
using pendulon::test::DataPath;
using pendulon::test::RunCli;

std::vector<std::string> OneLoopCommand() {
    return {"new",   "QX5140",     "--set", "cboFRef=20.00000 MHz", "--set",   "txtClkA(0)=50",
            "--set", "txtClkB=25", "--set", "txtClkC=12.5",         "--click", "cmdCalculate"};
}

// 50, 25 and 12.5 MHz from 20 MHz: 21 cases, worked by hand in the search tests.
TEST(QX5140Cli, CalculateShowsTheCasesAndTheFirstOne) {
    std::vector<std::string> args = OneLoopCommand();
    args.push_back("--json");
    const CliResult run = RunCli(args);
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const nlohmann::json state = nlohmann::json::parse(run.out);
    EXPECT_EQ(state["device"], "QX5140");
    ASSERT_EQ(state["sources"].size(), 21u);
    EXPECT_EQ(state["sources"][0], nlohmann::json({"UPLL/2", "Off", "UPLL/4", "UPLL/8"}));
    EXPECT_EQ(state["sources"][9], nlohmann::json({"SPLL/4", "", "UPLL/4", "UPLL/8"}));
    EXPECT_EQ(state["sources"][20], nlohmann::json({"CPLL/4", "", "SPLL/8", "SPLL/16"}));
    EXPECT_EQ(state["case"], 0);
    const auto& fields = state["fields"];
    EXPECT_EQ(fields["lblCaseMessage"]["caption"], "Case 1 of 21");
    EXPECT_EQ(fields["lblClkASrcDiv"]["caption"], "UPLL/2");
    EXPECT_EQ(fields["cboUPLLData"]["text"], "100.000000 P:10 Q:4");
    EXPECT_EQ(fields["cmdCalculate"]["backColor"], 12632256);
}

TEST(QX5140Cli, EachFurtherPressStepsToTheNextCase) {
    std::vector<std::string> args = OneLoopCommand();
    for (const char* more : {"--click", "cmdCalculate", "--click", "cmdCalculate", "--json"})
        args.push_back(more);
    const CliResult run = RunCli(args);
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const nlohmann::json state = nlohmann::json::parse(run.out);
    EXPECT_EQ(state["case"], 2);
    EXPECT_EQ(state["sources"].size(), 21u);
    const auto& fields = state["fields"];
    EXPECT_EQ(fields["lblCaseMessage"]["caption"], "Case 3 of 21");
    EXPECT_EQ(fields["lblClkASrcDiv"]["caption"], "SPLL/4");
    EXPECT_EQ(fields["lblClkBSrcDiv"]["caption"], "SPLL/8");
    EXPECT_EQ(fields["lblClkCSrcDiv"]["caption"], "SPLL/16");
}

TEST(QX5140Cli, StepsWrapRoundToTheFirstCase) {
    const CliResult run =
        RunCli({"new", "QX5140", "--set", "cboFRef=20.00000 MHz", "--set", "txtClkA(0)=50",
                "--click", "cmdCalculate", "--click", "cmdCalculate", "--click", "cmdCalculate",
                "--click", "cmdCalculate", "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const nlohmann::json state = nlohmann::json::parse(run.out);
    EXPECT_EQ(state["sources"].size(), 3u);
    EXPECT_EQ(state["case"], 0);
    EXPECT_EQ(state["fields"]["lblCaseMessage"]["caption"], "Case 1 of 3");
}

TEST(QX5140Cli, HiddenSecondStateCannotBeSet) {
    const CliResult run = RunCli({"new", "QX5140", "--set", "txtClkA(1)=40"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_NE(run.err.find("cannot take the focus"), std::string::npos) << run.err;
}

// Random configurations against the independent computation in tests/data: shared and private
// loops, Select/Suspend, both voltages, tight and loose sensitivity.
struct Config {
    std::string referenceEntry;
    double reference = 0;
    double voltage = 5;
    bool select = false;
    int ppm = 1000;
    std::array<double, 4> desired{};
    std::array<bool, 3> privates{};
};

std::string Number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.5f", value);
    return text;
}

std::vector<Config> RandomConfigs(unsigned seed, int count) {
    const std::vector<std::pair<std::string, double>> references = {
        {"14.31818 MHz", 14.31818}, {"20.00000 MHz", 20.0}, {"12.00000 MHz", 12.0},
        {"16.00000 MHz", 16.0},     {"25.00000 MHz", 25.0}, {"24.57600 MHz", 24.576}};
    const std::vector<double> bases = {25.0, 33.33333, 50.0, 66.66667, 48.0, 12.0};
    const std::vector<int> sensitivities = {0, 5, 100, 1000, 1000, 3000, 5000};
    const std::vector<int> divisors = {1, 2, 3, 4, 5, 6, 8, 12, 13, 16};
    std::mt19937 random(seed);
    const auto uniform = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    const auto pick = [&](size_t size) {
        return std::uniform_int_distribution<size_t>(0, size - 1)(random);
    };
    std::vector<Config> configs;
    for (int n = 0; n < count; ++n) {
        Config c;
        const auto& reference = references[pick(references.size())];
        c.referenceEntry = reference.first;
        c.reference = reference.second;
        c.voltage = uniform(0, 1) < 0.5 ? 5.0 : 3.3;
        const double top = c.voltage == 5.0 ? 100 : 80;
        c.select = uniform(0, 1) < 0.3;
        c.ppm = sensitivities[pick(sensitivities.size())];
        const double base = uniform(0, 1) < 0.3   ? c.reference
                            : uniform(0, 1) < 0.8 ? bases[pick(bases.size())]
                                                  : uniform(1, top);
        for (size_t i = 0; i < 4; ++i) {
            if (uniform(0, 1) < 0.2 || (i == 1 && !c.select))
                continue;
            double f =
                uniform(0, 1) < 0.7 ? base / divisors[pick(divisors.size())] : uniform(0.5, top);
            f = std::stod(Number(f));
            c.desired[i] = std::min(std::max(f, 0.5), top);
        }
        for (size_t i = 0; i < 3; ++i) c.privates[i] = uniform(0, 1) < 0.15;
        // CLKA has CPLL to itself in Select/Suspend.
        if (c.select)
            c.privates[0] = true;
        configs.push_back(c);
    }
    return configs;
}

nlohmann::json ToJson(const Config& c) {
    return {{"reference", c.reference}, {"ppm", c.ppm},       {"desired", c.desired},
            {"private", c.privates},    {"select", c.select}, {"voltage", c.voltage}};
}

std::vector<std::string> CliArgs(const Config& c) {
    std::vector<std::string> args = {"new", "QX5140", "--set", "cboFRef=" + c.referenceEntry};
    if (c.voltage == 3.3)
        args.insert(args.end(), {"--click", "opt3V"});
    if (c.select)
        args.insert(args.end(), {"--click", "optSelect"});
    args.insert(args.end(), {"--set", "txtPPM=" + std::to_string(c.ppm)});
    const char* const privates[] = {"chkPrivatePLLClockA", "chkPrivatePLLClockB",
                                    "chkPrivatePLLClockC"};
    for (size_t i = 0; i < 3; ++i)
        if (c.privates[i] && !(c.select && i == 0))
            args.insert(args.end(), {"--click", privates[i]});
    const char* const clocks[] = {"txtClkA(0)", "txtClkA(1)", "txtClkB", "txtClkC"};
    for (size_t i = 0; i < 4; ++i) {
        if (i == 1 && !c.select)
            continue;
        args.insert(args.end(), {"--set", std::string(clocks[i]) + "=" +
                                              (c.desired[i] > 0 ? Number(c.desired[i]) : "Off")});
    }
    args.insert(args.end(), {"--click", "cmdCalculate", "--json"});
    return args;
}

nlohmann::json IndependentCases(const std::vector<Config>& configs) {
    nlohmann::json list = nlohmann::json::array();
    for (const Config& c : configs) list.push_back(ToJson(c));
    const std::string command =
        "python3 '" + DataPath("qx5140_cases.py") + "' '" + list.dump() + "'";
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        return nullptr;
    std::ostringstream text;
    char buffer[4096];
    size_t got = 0;
    while ((got = fread(buffer, 1, sizeof buffer, pipe)) > 0) text.write(buffer, got);
    if (pclose(pipe) != 0)
        return nullptr;
    return nlohmann::json::parse(text.str());
}

TEST(QX5140Cli, CasesAgreeWithAnIndependentComputation) {
    const std::vector<Config> configs = RandomConfigs(5140, 60);
    const nlohmann::json expected = IndependentCases(configs);
    ASSERT_TRUE(expected.is_array()) << "the independent computation did not run";
    ASSERT_EQ(expected.size(), configs.size());
    int shapes[4] = {0, 0, 0, 0};  // one case, several cases, Select/Suspend, 3.3 V
    for (size_t n = 0; n < configs.size(); ++n) {
        const CliResult run = RunCli(CliArgs(configs[n]));
        ASSERT_EQ(run.exitCode, 0) << run.err;
        const nlohmann::json state = nlohmann::json::parse(run.out);
        EXPECT_EQ(state["sources"], expected[n]["sources"]) << ToJson(configs[n]).dump();
        EXPECT_EQ(state["case"], 0);
        const bool allOff = configs[n].desired == std::array<double, 4>{};
        EXPECT_EQ(
            state["fields"]["lblCaseMessage"]["caption"],
            allOff ? std::string() : "Case 1 of " + std::to_string(expected[n]["sources"].size()));
        ++shapes[state["sources"].size() == 1 ? 0 : 1];
        shapes[2] += configs[n].select ? 1 : 0;
        shapes[3] += configs[n].voltage == 3.3 ? 1 : 0;
    }
    // The sample covers every kind of configuration.
    for (const int count : shapes) EXPECT_GT(count, 5);
}

}  // namespace
