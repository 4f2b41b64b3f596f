// QX5140 entry files of random configurations, saved by the command-line program in the case
// a random number of presses of Calculate leaves on show, checked against the mapping worked
// out independently in tests/data.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
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

std::string Number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.5f", value);
    return text;
}

struct Folder {
    std::string path = pendulon::test::MakeTempDir();
    ~Folder() { std::filesystem::remove_all(path); }
};

std::vector<std::string> RandomCommand(std::mt19937& random, const std::string& path) {
    const auto uniform = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    const auto pick = [&](size_t size) {
        return std::uniform_int_distribution<size_t>(0, size - 1)(random);
    };
    const std::vector<std::pair<std::string, double>> references = {{"14.31818 MHz", 14.31818},
                                                                    {"20.00000 MHz", 20.0},
                                                                    {"25.00000 MHz", 25.0},
                                                                    {"24.57600 MHz", 24.576}};
    const std::vector<int> divisors = {1, 2, 3, 4, 5, 6, 8, 12, 16};
    const auto& reference = references[pick(references.size())];
    std::vector<std::string> args = {"new", "QX5140", "--set", "cboFRef=" + reference.first};
    const bool three = uniform(0, 1) < 0.4;
    if (three)
        args.insert(args.end(), {"--click", "opt3V"});
    const double top = three ? 80 : 100;
    const double pin8 = uniform(0, 1);
    const bool select = pin8 < 0.4;
    if (select) {
        args.insert(args.end(), {"--click", "optSelect"});
        if (uniform(0, 1) < 0.5)
            args.insert(args.end(), {"--click", "optSuspendOutputsAndPLLs"});
    } else if (pin8 < 0.6) {
        args.insert(args.end(), {"--click", "optShutdown"});
    }
    const double base = uniform(0, 1) < 0.5 ? reference.second * 4 : uniform(20, top);
    const char* const clocks[] = {"txtClkA(0)", "txtClkA(1)", "txtClkB", "txtClkC"};
    for (size_t i = 0; i < 4; ++i) {
        if (i == 1 && !select)
            continue;
        std::string text = "Off";
        if (uniform(0, 1) < 0.8)
            text = Number(std::min(std::max(base / divisors[pick(divisors.size())], 0.5), top));
        args.insert(args.end(), {"--set", std::string(clocks[i]) + "=" + text});
    }
    args.insert(args.end(), {"--click", "cmdCalculate"});
    if (select) {
        for (const char* check : {"chkSuspendClockA", "chkSuspendClockB", "chkSuspendClockC"})
            if (uniform(0, 1) < 0.3)
                args.insert(args.end(), {"--click", check});
        args.insert(args.end(), {"--click", "cmdCalculate"});
    }
    const int steps = static_cast<int>(pick(3));
    for (int s = 0; s < steps; ++s) args.insert(args.end(), {"--click", "cmdCalculate"});
    args.insert(args.end(), {"--json", "--save", path});
    return args;
}

TEST(QX5140EntryFileRandom, SavedImagesAgreeWithAnIndependentMapping) {
    Folder dir;
    std::mt19937 random(5140);
    nlohmann::json items = nlohmann::json::array();
    int selects = 0;
    int steps = 0;
    for (int n = 0; n < 40; ++n) {
        const std::string path = dir.path + "/r" + std::to_string(n) + ".ent";
        const std::vector<std::string> args = RandomCommand(random, path);
        const CliResult run = RunCli(args);
        std::string command;
        for (const std::string& arg : args) command += " '" + arg + "'";
        // Every divider the window shows has its fuse code: the file is saved without a message.
        ASSERT_EQ(run.exitCode, 0) << run.err;
        ASSERT_TRUE(std::filesystem::exists(path)) << run.out;
        const nlohmann::json state =
            nlohmann::json::parse(run.out.substr(0, run.out.rfind('}') + 1));
        selects += state["fields"]["optSelect"]["value"].get<bool>() ? 1 : 0;
        steps += state["case"].get<int>() > 0 ? 1 : 0;
        items.push_back({{"fields", state["fields"]}, {"ent", path}});

        // Opened again, the file shows its own solution (the first case of the same assignment
        // when the search found it twice), with the note that all was matched.
        const CliResult reopened = RunCli({"open", path, "--json"});
        ASSERT_EQ(reopened.exitCode, 0) << reopened.err;
        EXPECT_NE(reopened.err.find("ENT file have been matched to the solution set currently "
                                    "displayed."),
                  std::string::npos)
            << n << ":" << command << "\n" << reopened.err;
        const nlohmann::json back = nlohmann::json::parse(reopened.out);
        for (const char* name : {"lblClkASrcDiv", "lblClkBSrcDiv", "lblClkCSrcDiv", "cboCPLLData(0)",
                                 "cboCPLLData(1)", "cboSPLLData", "cboUPLLData", "cboClkA(0)",
                                 "cboClkA(1)", "cboClkB", "cboClkC"}) {
            const auto& was = state["fields"][name];
            const auto& is = back["fields"][name];
            EXPECT_EQ(is.value("caption", is.value("text", std::string())),
                      was.value("caption", was.value("text", std::string())))
                << n << ": " << name;
        }
        EXPECT_EQ(back["sources"], state["sources"]) << n;
    }
    const std::string list = dir.path + "/items.json";
    std::ofstream(list) << items.dump();
    const std::string command =
        "python3 '" + DataPath("check_5140_random.py") + "' '" + list + "' 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    std::ostringstream text;
    char buffer[4096];
    size_t got = 0;
    while ((got = fread(buffer, 1, sizeof buffer, pipe)) > 0) text.write(buffer, got);
    ASSERT_EQ(pclose(pipe), 0) << text.str();
    const nlohmann::json problems = nlohmann::json::parse(text.str());
    EXPECT_TRUE(problems.empty()) << problems.dump(1);
    // The sample has both pin 8 modes and cases beyond the first.
    EXPECT_GT(selects, 5);
    EXPECT_GT(steps, 5);
}

}  // namespace
