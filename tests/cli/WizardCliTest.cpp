#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/TestSupport.hpp"

namespace {

using pendulon::test::CliResult;
using pendulon::test::RunCli;

// A folder under the temporary folder that goes away with the test, failed or not.
struct Folder {
    Folder() : path(pendulon::test::MakeTempDir()) {}
    ~Folder() {
        std::error_code ec;
        std::filesystem::remove_all(path, ec);
    }
    std::string File(const std::string& name) const {
        return (std::filesystem::path(path) / name).string();
    }
    std::string path;
};

// The JSON objects printed one after the other.
std::vector<nlohmann::json> Objects(const std::string& out) {
    std::vector<nlohmann::json> objects;
    size_t start = 0;
    while (start < out.size()) {
        size_t end = out.find("\n}\n", start);
        if (end == std::string::npos)
            break;
        objects.push_back(nlohmann::json::parse(out.substr(start, end + 2 - start)));
        start = end + 3;
    }
    return objects;
}

// "--click opt1(0) --click cmdNext(0)" and so on for each (option, page) pair.
std::vector<std::string> Clicks(const std::vector<std::pair<std::string, int>>& steps) {
    std::vector<std::string> args = {"wizard"};
    for (const auto& [option, page] : steps) {
        const std::string index = std::string("(").append(std::to_string(page)).append(")");
        args.insert(args.end(), {"--click", option + index, "--click", "cmdNext" + index});
    }
    return args;
}

TEST(CliWizard, JsonWhileTheWizardIsUpShowsWindowPathFieldsAndMessages) {
    const auto result = RunCli({"wizard", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto state = nlohmann::json::parse(result.out);
    EXPECT_EQ(state["window"], "frmDecisionTree");
    EXPECT_EQ(state["path"], nlohmann::json::array({0}));
    EXPECT_TRUE(state["messages"].empty());
    const auto& fields = state["fields"];
    EXPECT_EQ(fields["lblTitle"]["caption"], "Which Varnhol Programmable Clock is Right for You?");
    EXPECT_EQ(fields["lblQuestion(0)"]["caption"],
              "Do you need more than one \"unrelated\" clock?");
    EXPECT_EQ(fields["opt1(0)"]["caption"], "Yes");
    EXPECT_EQ(fields["opt3(0)"]["caption"], "No");
    EXPECT_EQ(fields["opt2(0)"]["visible"], false);
    EXPECT_EQ(fields["cmdNext(0)"]["enabled"], false);
    EXPECT_EQ(fields["cmdNext(3)"]["caption"], "&Finish");
    EXPECT_EQ(fields["cmdPrevious(0)"]["visible"], false);
    EXPECT_EQ(fields["fraDecision(0)"]["visible"], true);
    EXPECT_EQ(fields["fraDecision(1)"]["visible"], false);
    EXPECT_EQ(fields["fraDecision(5)"]["tag"], "Frame D02");
    EXPECT_FALSE(state.contains("device"));
}

TEST(CliWizard, NextCannotBeClickedBeforeAnAnswer) {
    const auto result = RunCli({"wizard", "--click", "cmdNext(0)"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("'cmdNext(0)' cannot be clicked"), std::string::npos) << result.err;
}

TEST(CliWizard, OnlyThePageInFrontCanBeUsed) {
    const auto result =
        RunCli({"wizard", "--click", "opt3(0)", "--click", "cmdNext(0)", "--click", "opt1(0)"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("'opt1(0)' is on page 0, which is not in front (page 1 is)"),
              std::string::npos)
        << result.err;
}

TEST(CliWizard, OtherWindowsCannotBeReachedWhileTheWizardIsUp) {
    const auto result = RunCli({"wizard", "--click", "frmDevice.cmdOK"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("'frmDevice.cmdOK' cannot be reached while frmDecisionTree is up"),
              std::string::npos)
        << result.err;
    // Its own name as a prefix is fine.
    const auto own = RunCli({"wizard", "--click", "frmDecisionTree.opt1(0)", "--json"});
    ASSERT_EQ(own.exitCode, 0) << own.err;
    EXPECT_EQ(nlohmann::json::parse(own.out)["fields"]["cmdNext(0)"]["enabled"], true);
}

TEST(CliWizard, PathFollowsNextAndPrevious) {
    auto args = Clicks({{"opt3", 0}, {"opt3", 1}, {"opt1", 2}});
    args.insert(args.end(), {"--json", "--click", "cmdPrevious(3)", "--json", "--click",
                             "cmdPrevious(2)", "--json"});
    const auto result = RunCli(args);
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto states = Objects(result.out);
    ASSERT_EQ(states.size(), 3u) << result.out;
    EXPECT_EQ(states[0]["path"], nlohmann::json::array({0, 1, 2, 3}));
    EXPECT_EQ(states[0]["fields"]["fraDecision(3)"]["visible"], true);
    EXPECT_EQ(states[1]["path"], nlohmann::json::array({0, 1, 2}));
    EXPECT_EQ(states[1]["fields"]["fraDecision(2)"]["visible"], true);
    // The answer stays on the page.
    EXPECT_EQ(states[1]["fields"]["opt1(2)"]["value"], true);
    EXPECT_EQ(states[2]["path"], nlohmann::json::array({0, 1}));
}

TEST(CliWizard, BackAndAlongAnotherBranch) {
    // Towards the QX4860, back to page 0, then to 7 or 8 outputs: a QX7311 family device, or
    // the program's error for a device this build has no window for.
    auto args = Clicks({{"opt3", 0}, {"opt1", 1}, {"opt1", 4}});
    args.insert(args.end(), {"--click", "cmdPrevious(3)", "--click", "cmdPrevious(4)", "--click",
                             "cmdPrevious(1)", "--click", "opt1(0)", "--click", "cmdNext(0)",
                             "--click", "opt3(5)", "--click", "cmdNext(5)", "--json"});
    const auto result = RunCli(args);
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto state = nlohmann::json::parse(result.out);
    EXPECT_EQ(state["path"], nlohmann::json::array({0, 5, 3}));
}

TEST(CliWizard, FinishOpensTheDocumentAndTheRemainingActionsApplyToIt) {
    Folder folder;
    const std::string entry = folder.File("wizard.ent");
    auto args = Clicks({{"opt3", 0}, {"opt3", 1}, {"opt1", 2}, {"opt1", 3}});
    args.insert(args.end(),
                {"--json", "--set", "txtPLL(0)=100", "--click", "cmdCalculate", "--save", entry});
    const auto result = RunCli(args);
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto state = nlohmann::json::parse(result.out);
    EXPECT_FALSE(state.contains("window"));
    EXPECT_EQ(state["device"], "QX6105AF");
    EXPECT_EQ(state["fields"]["lblDevice"]["caption"], "QX6105AF");
    ASSERT_TRUE(std::filesystem::is_regular_file(entry));
    // The saved file opens as a QX6105AF document.
    const auto reopened = RunCli({"open", entry, "--json"});
    ASSERT_EQ(reopened.exitCode, 0) << reopened.err;
    EXPECT_EQ(nlohmann::json::parse(reopened.out)["device"], "QX6105AF");
}

TEST(CliWizard, FourAddressableFrequenciesGiveTheEightPinQX4860) {
    auto args = Clicks({{"opt3", 0}, {"opt1", 1}, {"opt1", 4}, {"opt3", 3}});
    args.push_back("--json");
    const auto result = RunCli(args);
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto state = nlohmann::json::parse(result.out);
    EXPECT_EQ(state["device"], "QX4860I");
    EXPECT_EQ(state["fields"]["opt8Pin"]["value"], true);
    EXPECT_EQ(state["fields"]["opt14Pin"]["value"], false);
}

TEST(CliWizard, SixteenAddressableFrequenciesGiveTheFourteenPinQX4860) {
    auto args = Clicks({{"opt3", 0}, {"opt1", 1}, {"opt3", 4}, {"opt2", 3}});
    args.push_back("--json");
    const auto result = RunCli(args);
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto state = nlohmann::json::parse(result.out);
    EXPECT_EQ(state["device"], "QX4860");
    EXPECT_EQ(state["fields"]["opt14Pin"]["value"], true);
    EXPECT_EQ(state["fields"]["opt8Pin"]["value"], false);
}

TEST(CliWizard, HighAccuracyEndsOnThePageOfTheQX3350) {
    auto args = Clicks({{"opt3", 0}, {"opt3", 1}, {"opt3", 2}});
    args.insert(args.end(), {"--json", "--click", "cmdCancel(7)", "--json"});
    const auto result = RunCli(args);
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto states = Objects(result.out);
    ASSERT_EQ(states.size(), 2u) << result.out;
    EXPECT_EQ(states[0]["path"], nlohmann::json::array({0, 1, 2, 7}));
    EXPECT_EQ(states[0]["fields"]["cmdNext(7)"]["visible"], false);
    EXPECT_EQ(states[0]["fields"]["cmdCancel(7)"]["caption"], "&Close");
    // Closed: no document, nothing reported.
    EXPECT_EQ(states[1]["device"], "");
    EXPECT_TRUE(states[1]["messages"].empty());
}

TEST(CliWizard, DocumentActionsWaitForTheWizardToFinish) {
    Folder folder;
    const std::string entry = folder.File("early.ent");
    const auto result = RunCli({"wizard", "--click", "opt1(0)", "--save", entry});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("--save: the wizard is still up"), std::string::npos) << result.err;
    EXPECT_FALSE(std::filesystem::exists(entry));
}

TEST(CliWizard, UnknownFieldAndMalformedActionsExitTwo) {
    EXPECT_EQ(RunCli({"wizard", "--click", "opt5(0)"}).exitCode, 2);
    EXPECT_EQ(RunCli({"wizard", "--click"}).exitCode, 2);
    EXPECT_EQ(RunCli({"wizard", "--frobnicate"}).exitCode, 2);
    const auto result = RunCli({"wizard", "--click", "frmDecisionTree.cmdNext(9)"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("unknown field"), std::string::npos);
}

TEST(CliWizard, ThreeOutputsOrLessLeaveTheWizardAtOnce) {
    const auto result = RunCli({"wizard", "--click", "opt1(0)", "--click", "cmdNext(0)", "--click",
                                "opt1(5)", "--click", "cmdNext(5)", "--json"});
    // The QX5140 window opens, or, in a build without it, the program reports the device as an
    // invalid selection and the command says the wizard closed on an error report.
    if (result.exitCode == 0) {
        EXPECT_EQ(nlohmann::json::parse(result.out)["device"], "QX5140");
    } else {
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_NE(result.err.find("The error number is: 10603"), std::string::npos) << result.err;
        EXPECT_NE(result.err.find("the wizard closed on an error report"), std::string::npos);
        EXPECT_TRUE(result.out.empty());
    }
}

}  // namespace
