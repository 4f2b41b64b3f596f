#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "support/TestSupport.hpp"

namespace {

struct CliResult {
    int exitCode = -1;
    std::string out;
    std::string err;
};

std::string Quote(const std::string& text) {
    std::string quoted = "'";
    for (char c : text) {
        if (c == '\'') {
            quoted += "'\\''";
        } else {
            quoted += c;
        }
    }
    return quoted + "'";
}

// Runs pendulon-cli with the arguments; standard error is collected through a file.
CliResult RunCli(const std::vector<std::string>& args) {
    const std::string dir = pendulon::test::MakeTempDir();
    const std::string errPath = (std::filesystem::path(dir) / "stderr.txt").string();
    std::string command = Quote(PENDULON_CLI);
    for (const auto& arg : args) command += " " + Quote(arg);
    command += " 2>" + Quote(errPath);
    CliResult result;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        return result;
    char buffer[4096];
    size_t n = 0;
    while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0) result.out.append(buffer, n);
    const int status = pclose(pipe);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    std::ifstream err(errPath);
    std::stringstream text;
    text << err.rdbuf();
    result.err = text.str();
    return result;
}

nlohmann::json Json(const CliResult& result) {
    return nlohmann::json::parse(result.out);
}

TEST(CliNew, NewDocumentJsonHasDeviceFieldsAndMessages) {
    const auto result = RunCli({"new", "QX6105A", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto state = Json(result);
    EXPECT_EQ(state["device"], "QX6105A");
    ASSERT_TRUE(state["messages"].is_array());
    EXPECT_TRUE(state["messages"].empty());
    const auto& fields = state["fields"];
    EXPECT_EQ(fields["txtPLL(1)"]["text"], "N/A");
    EXPECT_EQ(fields["txtPLL(1)"]["enabled"], false);
    EXPECT_EQ(fields["cboFRef"]["text"], "14.31818 MHz");
    EXPECT_EQ(fields["cboFRef"]["listIndex"], 3);
    EXPECT_EQ(fields["cboFRef"]["list"].size(), 14u);
    EXPECT_EQ(fields["chkUseDefault"]["value"], 1);
    EXPECT_EQ(fields["optOE"]["value"], true);
    EXPECT_EQ(fields["cmdCalculate"]["backColor"], 65535);
    EXPECT_EQ(fields["cmdCalculate"]["caption"], "C&alculate");
    EXPECT_EQ(fields["lblClkOutput(0)"]["caption"], "CLKA");
    EXPECT_TRUE(fields["txtPLLMax(0)"].contains("tag"));
    EXPECT_TRUE(fields["txtPLLMax(0)"].contains("foreColor"));
    EXPECT_FALSE(fields["txtPLLMax(0)"].contains("list"));
}

TEST(CliNew, SetAndClickCalculateAsAUser) {
    const auto result =
        RunCli({"new", "QX6105A", "--set", "cboFRef=10", "--set", "txtPLL(0)=100", "--set",
                "cboClkDiv(0)=PLL/2", "--click", "cmdCalculate", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto fields = Json(result)["fields"];
    EXPECT_EQ(fields["cboFRef"]["text"], "10.00000 MHz");
    EXPECT_EQ(fields["txtPLL(0)"]["text"], "100.0");
    EXPECT_EQ(fields["cboPLLData(0)"]["list"][0], "100.000000 P:15 Q:3");
    EXPECT_EQ(fields["cboActual(0)"]["text"], "50.00000    PPM:0");
    EXPECT_EQ(fields["cboActual(0)"]["list"].size(), 3u);
    EXPECT_EQ(fields["cmdCalculate"]["backColor"], 12632256);
}

TEST(CliNew, ActionsRunInOrderAndJsonCanBeAskedTwice) {
    const auto result = RunCli({"new", "QX6105A", "--json", "--set", "txtPLL(0)=", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    // Two objects, one after the other.
    const auto split = result.out.find("}\n{");
    ASSERT_NE(split, std::string::npos);
    const auto first = nlohmann::json::parse(result.out.substr(0, split + 1));
    const auto second = nlohmann::json::parse(result.out.substr(split + 2));
    EXPECT_EQ(first["fields"]["txtPLL(0)"]["text"], "Off");
    EXPECT_EQ(second["fields"]["txtPLL(0)"]["text"], "Off");
    EXPECT_EQ(second["fields"]["txtPLL(0)"]["tag"], "Off");
}

TEST(CliNew, LeavingAFieldRunsItsChecks) {
    const auto result =
        RunCli({"new", "QX6105A", "--set", "txtPLL(0)=300", "--set", "txtPLLMin(1)=0.3", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto fields = Json(result)["fields"];
    EXPECT_EQ(fields["txtPLL(0)"]["text"], "200.0");
    EXPECT_EQ(fields["txtPLLMin(1)"]["text"], "1");
    EXPECT_EQ(fields["cmdApplyLimits"]["enabled"], true);
    EXPECT_EQ(fields["cmdApplyLimits"]["backColor"], 65535);
}

TEST(CliNew, ChecksAndOptions) {
    const auto result = RunCli({"new", "QX6105A", "--set", "optFS=1", "--set", "chkSmoothSlew=1",
                                "--click", "opt3V", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto fields = Json(result)["fields"];
    EXPECT_EQ(fields["optFS"]["value"], true);
    EXPECT_EQ(fields["optOE"]["value"], false);
    EXPECT_EQ(fields["chkSmoothSlew"]["value"], 1);
    EXPECT_EQ(fields["opt3V"]["value"], true);
    EXPECT_EQ(fields["txtPLLMax(0)"]["text"], "150.0");
    EXPECT_EQ(fields["lblClkOutput(3)"]["caption"], "CLKA [1]");
}

TEST(CliNew, QX6105AIStartsAtThreeVolts) {
    const auto result = RunCli({"new", "QX6105AI", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto fields = Json(result)["fields"];
    EXPECT_EQ(fields["opt3V"]["value"], true);
    EXPECT_EQ(fields["opt5V"]["enabled"], false);
}

TEST(CliNew, QX6105AIRefusesFiveVolts) {
    const auto result = RunCli({"new", "QX6105AI", "--click", "opt5V"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("'opt5V' cannot be clicked"), std::string::npos);
}

TEST(CliNew, OtherWindowsAreReachedByPrefix) {
    const auto result = RunCli({"new", "QX6105A", "--set", "frmSummary.txtCustomer=Acme", "--set",
                                "frmDevice.chkShowPinout=0", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(Json(result)["device"], "QX6105A");
}

TEST(CliNew, MessageBoxesAreRecordedWithTheirAnswersAndEchoed) {
    // An unknown entry in a list that takes no free text is refused before any box; a
    // reference above the range is clamped quietly. The one box here is a closing question.
    const auto result = RunCli({"new", "QX6105A", "--set", "txtPLL(0)=100", "--answer", "cancel",
                                "--click", "frmMain.mnuClose", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto messages = Json(result)["messages"];
    ASSERT_FALSE(messages.empty());
    const auto& box = messages[0];
    EXPECT_TRUE(box.contains("title"));
    EXPECT_TRUE(box.contains("style"));
    EXPECT_NE(box["text"].get<std::string>().find("Save changes to"), std::string::npos);
    EXPECT_EQ(box["answer"], "cancel");
    EXPECT_NE(result.err.find("Save changes to"), std::string::npos);
}

TEST(CliNew, UnknownDeviceExitsTwo) {
    const auto result = RunCli({"new", "QX9999", "--json"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("unknown device 'QX9999'"), std::string::npos);
    EXPECT_TRUE(result.out.empty());
}

TEST(CliNew, UnknownFieldExitsTwo) {
    const auto result = RunCli({"new", "QX6105A", "--set", "txtNothing=1"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("unknown field 'txtNothing'"), std::string::npos);
    const auto clicked = RunCli({"new", "QX6105A", "--click", "frmNowhere.cmdOK"});
    EXPECT_EQ(clicked.exitCode, 2);
    EXPECT_NE(clicked.err.find("unknown window 'frmNowhere'"), std::string::npos);
}

TEST(CliNew, MalformedActionsExitTwo) {
    EXPECT_EQ(RunCli({"new", "QX6105A", "--set", "txtPLL(0)"}).exitCode, 2);
    EXPECT_EQ(RunCli({"new", "QX6105A", "--set"}).exitCode, 2);
    EXPECT_EQ(RunCli({"new", "QX6105A", "--answer", "maybe"}).exitCode, 2);
    EXPECT_EQ(RunCli({"new", "QX6105A", "--frobnicate"}).exitCode, 2);
    EXPECT_EQ(RunCli({"new", "QX6105A", "--set", "chkSmoothSlew=5"}).exitCode, 2);
    EXPECT_EQ(RunCli({"new", "QX6105A", "--set", "cboClkDiv(0)=PLL/7"}).exitCode, 2);
    EXPECT_EQ(RunCli({"new"}).exitCode, 2);
}

}  // namespace
