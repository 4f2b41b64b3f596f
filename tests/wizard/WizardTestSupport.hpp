#pragma once
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/ShellTestSupport.hpp"
#include "shell/frmMain.hpp"
#include "wizard/frmDecisionTree.hpp"

namespace pendulon::test {

// Every device of the device window: each opens the shell's small test window, so that a
// wizard route can be followed to its device whatever windows this build has.
inline std::set<std::string> AllDevices() {
    return {"QX6105A", "QX6105AF", "QX6105AI", "QX7311",  "QX7311F", "QX7311I", "QX7312", "QX7312F",
            "QX7312I", "QX4860",   "QX4860F",  "QX4860I", "QX5140",  "QX3350",  "QX3350I"};
}

struct WizardHarness : ShellHarness {
    explicit WizardHarness(std::set<std::string> devices = AllDevices())
        : ShellHarness(std::move(devices)) {
        Start();
        platform.ClearMessages();
    }

    // Help, Clock Selection Wizard; the steps are what the user does while it is up. The
    // wizard seen last and its path at the moment it went away are kept.
    void RunWizard(const std::function<void(frmDecisionTree&)>& steps) {
        platform.QueueModal("frmDecisionTree", [this, steps](Window& w) {
            auto& wizard = dynamic_cast<frmDecisionTree&>(w);
            steps(wizard);
            stillLoaded = wizard.Loaded();
        });
        app.Main().mnuDecisionTree.RaiseClick();
    }

    std::string DocumentDevice() const {
        return Doc() != nullptr ? Doc()->lblDevice.Caption() : std::string();
    }

    bool stillLoaded = false;
};

// The option of the page in front whose caption is the text, clicked as a user clicks it.
inline void Answer(frmDecisionTree& w, const std::string& caption) {
    const int page = w.FrontPage();
    ASSERT_GE(page, 0);
    for (auto* options : {&w.opt1, &w.opt2, &w.opt3, &w.opt4}) {
        OptionButton& option = (*options)[page];
        if (option.Visible() && option.Caption() == caption) {
            option.SetValue(true);
            return;
        }
    }
    FAIL() << "page " << page << " has no option \"" << caption << "\"";
}

// Next (or Finish) of the page in front, which must be there and enabled.
inline void Next(frmDecisionTree& w) {
    const int page = w.FrontPage();
    ASSERT_GE(page, 0);
    ASSERT_TRUE(w.cmdNext[page].Visible()) << "page " << page;
    ASSERT_TRUE(w.cmdNext[page].Enabled()) << "page " << page;
    w.cmdNext[page].RaiseClick();
}

inline void Previous(frmDecisionTree& w) {
    const int page = w.FrontPage();
    ASSERT_GE(page, 0);
    ASSERT_TRUE(w.cmdPrevious[page].Visible()) << "page " << page;
    w.cmdPrevious[page].RaiseClick();
}

// Answers each question in turn with Next after it.
inline void Walk(frmDecisionTree& w, const std::vector<std::string>& answers) {
    for (const std::string& answer : answers) {
        if (!w.Loaded())
            return;
        Answer(w, answer);
        Next(w);
    }
}

// The three lines of the uniform error report of a wizard failure.
inline std::string WizardErrorText(long number, const std::string& procedure) {
    return "The error number is: " + std::to_string(number) +
           "\nThe source for the error is: (frmDecisionTree) " + procedure +
           "\nThe description for the error is: An invalid control array index was passed.";
}

}  // namespace pendulon::test
