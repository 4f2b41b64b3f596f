#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "WizardTestSupport.hpp"
#include "platform/PlatformServices.hpp"
#include "shell/frmDevice.hpp"

namespace pendulon::test {
namespace {

// ---- Load and pages -----------------------------------------------------------------------

TEST(WizardLoad, CaptionTitlePathAndFirstPageInFront) {
    WizardHarness h;
    h.RunWizard([](frmDecisionTree& w) {
        EXPECT_EQ(w.Caption(), "Clock Selection Wizard");
        EXPECT_EQ(w.lblTitle.Caption(), "Which Varnhol Programmable Clock is Right for You?");
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0}));
        EXPECT_EQ(w.mintFrameCount, 1);
        EXPECT_EQ(w.FrontPage(), 0);
        EXPECT_GT(w.Width(), 0);
        EXPECT_GT(w.Height(), 0);
        for (int i = 0; i < frmDecisionTree::kPageCount; ++i) {
            EXPECT_EQ(w.fraDecision[i].Visible(), i == 0) << i;
            // Every page stands where page 0 stands.
            EXPECT_EQ(w.fraDecision[i].Left(), w.fraDecision[0].Left()) << i;
            EXPECT_EQ(w.fraDecision[i].Top(), w.fraDecision[0].Top()) << i;
        }
    });
    EXPECT_EQ(h.platform.ModalsShown().back(), "frmDecisionTree");
}

struct PageText {
    const char* tag;
    const char* question;
    std::vector<std::string> options;  // captions of opt1 to opt4, empty where none
};

const PageText kExpectedPages[] = {
    {"Frame D0", "Do you need more than one \"unrelated\" clock?", {"Yes", "", "No", ""}},
    {"Frame D01", "Do you need more than two addressable frequencies?", {"Yes", "", "No", ""}},
    {"Frame D011", "Do you need standard or high accuracy?", {"Standard", "", "High", ""}},
    {"Frame D99",
     "Select one of the following options.",
     {"Field Programmable", "Factory Programmed", "Industrial Temperature", ""}},
    {"Frame D012",
     "Select one of the following options.",
     {"4 Addressable Frequencies", "", "16 Addressable Frequencies", ""}},
    {"Frame D02",
     "Select the appropriate number of outputs you need from one of the following options.",
     {"3 or less", "4, 5 or 6", "7 or 8", "9 or more"}},
    {"Frame D021", "Do you need a 32KHz real-time clock?", {"Yes", "", "No", ""}},
    {"Frame D0111",
     "The device you wish to use is the QX3350. Please contact a Varnhol sales representative for "
     "more information on how you can order this device.",
     {"", "", "", ""}},
    {"Frame D022", "Call Factory.", {"", "", "", ""}},
};

TEST(WizardPages, QuestionsTagsAndOptionsOfEveryPage) {
    WizardHarness h;
    h.RunWizard([](frmDecisionTree& w) {
        for (int i = 0; i < frmDecisionTree::kPageCount; ++i) {
            const PageText& page = kExpectedPages[i];
            EXPECT_EQ(w.fraDecision[i].Tag(), page.tag) << i;
            EXPECT_EQ(w.lblQuestion[i].Caption(), page.question) << i;
            ControlArray<OptionButton>* options[] = {&w.opt1, &w.opt2, &w.opt3, &w.opt4};
            for (int k = 0; k < 4; ++k) {
                const OptionButton& option = (*options[k])[i];
                const bool present = !page.options[size_t(k)].empty();
                EXPECT_EQ(option.Visible(), present) << "opt" << k + 1 << "(" << i << ")";
                if (present) {
                    EXPECT_EQ(option.Caption(), page.options[size_t(k)]) << i;
                }
                EXPECT_FALSE(option.Value()) << i;
            }
        }
    });
}

TEST(WizardPages, ButtonsOfQuestionAndEndPages) {
    WizardHarness h;
    h.RunWizard([](frmDecisionTree& w) {
        for (int i = 0; i < frmDecisionTree::kPageCount; ++i) {
            const bool end = i == 7 || i == 8;
            EXPECT_EQ(w.cmdPrevious[i].Visible(), i != 0) << i;
            EXPECT_EQ(w.cmdPrevious[i].Caption(), "<< &Previous") << i;
            EXPECT_EQ(w.cmdNext[i].Visible(), !end) << i;
            if (!end) {
                EXPECT_EQ(w.cmdNext[i].Caption(), i == 3 ? "&Finish" : "&Next >>") << i;
            }
            EXPECT_TRUE(w.cmdCancel[i].Visible()) << i;
            EXPECT_EQ(w.cmdCancel[i].Caption(), end ? "&Close" : "&Cancel") << i;
        }
    });
}

TEST(WizardPages, EveryFieldIsRegisteredByName) {
    WizardHarness h;
    h.RunWizard([](frmDecisionTree& w) {
        for (const char* name : {"lblTitle", "lblNotes"})
            EXPECT_NE(w.Fields().Find(name), nullptr) << name;
        for (int i = 0; i < frmDecisionTree::kPageCount; ++i) {
            for (const char* base : {"fraDecision", "lblQuestion", "fraResponse", "opt1", "opt2",
                                     "opt3", "opt4", "cmdPrevious", "cmdNext", "cmdCancel"}) {
                const std::string name = std::string(base) + "(" + std::to_string(i) + ")";
                const Field* field = w.Fields().Find(name);
                ASSERT_NE(field, nullptr) << name;
                EXPECT_EQ(w.PageOf(*field), i) << name;
            }
        }
        EXPECT_EQ(w.PageOf(w.lblTitle), -1);
    });
}

// ---- Next waits for an answer -----------------------------------------------------------

TEST(WizardNext, DisabledOnEveryQuestionPageUntilAnOptionIsChosen) {
    WizardHarness h;
    // Each option of each page, in a fresh wizard: it enables its own page's Next only.
    for (int k = 0; k < 4; ++k) {
        for (int i = 0; i <= 6; ++i) {
            h.RunWizard([&](frmDecisionTree& w) {
                ControlArray<OptionButton>* options[] = {&w.opt1, &w.opt2, &w.opt3, &w.opt4};
                OptionButton& option = (*options[k])[i];
                if (!option.Visible())
                    return;
                for (int j = 0; j <= 6; ++j) EXPECT_FALSE(w.cmdNext[j].Enabled()) << j;
                option.SetValue(true);
                for (int j = 0; j <= 6; ++j)
                    EXPECT_EQ(w.cmdNext[j].Enabled(), j == i)
                        << "opt" << k + 1 << "(" << i << "), Next " << j;
            });
        }
    }
}

TEST(WizardNext, OptionsOfOnePageExcludeEachOtherOnly) {
    WizardHarness h;
    h.RunWizard([](frmDecisionTree& w) {
        w.opt1[0].SetValue(true);
        w.opt1[1].SetValue(true);
        EXPECT_TRUE(w.opt1[0].Value());
        w.opt3[0].SetValue(true);
        EXPECT_FALSE(w.opt1[0].Value());
        EXPECT_TRUE(w.opt1[1].Value());
    });
}

// ---- Every route of the tables to its device --------------------------------------------

struct Route {
    std::vector<std::string> answers;
    const char* device;
    std::vector<int> pathAtFinish;  // pages of the path when Finish is pressed
};

// Worked out from the question tables: page 0 "Yes" leads to the number of outputs (page 5),
// "No" to addressable frequencies (page 1); page 1 "Yes" to the frequency count (page 4), "No"
// to accuracy (page 2); outputs "4, 5 or 6" ask for the real-time clock (page 6); page 3 picks
// the variant: Field Programmable is F, Factory Programmed the plain device, Industrial
// Temperature I.
const Route kRoutes[] = {
    {{"Yes", "3 or less"}, "QX5140", {0, 5}},
    {{"Yes", "4, 5 or 6", "Yes", "Field Programmable"}, "QX7311F", {0, 5, 6, 3}},
    {{"Yes", "4, 5 or 6", "Yes", "Factory Programmed"}, "QX7311", {0, 5, 6, 3}},
    {{"Yes", "4, 5 or 6", "Yes", "Industrial Temperature"}, "QX7311I", {0, 5, 6, 3}},
    {{"Yes", "4, 5 or 6", "No", "Field Programmable"}, "QX7312F", {0, 5, 6, 3}},
    {{"Yes", "4, 5 or 6", "No", "Factory Programmed"}, "QX7312", {0, 5, 6, 3}},
    {{"Yes", "4, 5 or 6", "No", "Industrial Temperature"}, "QX7312I", {0, 5, 6, 3}},
    {{"Yes", "7 or 8", "Field Programmable"}, "QX7311F", {0, 5, 3}},
    {{"Yes", "7 or 8", "Factory Programmed"}, "QX7311", {0, 5, 3}},
    {{"Yes", "7 or 8", "Industrial Temperature"}, "QX7311I", {0, 5, 3}},
    {{"No", "Yes", "4 Addressable Frequencies", "Field Programmable"}, "QX4860F", {0, 1, 4, 3}},
    {{"No", "Yes", "4 Addressable Frequencies", "Factory Programmed"}, "QX4860", {0, 1, 4, 3}},
    {{"No", "Yes", "4 Addressable Frequencies", "Industrial Temperature"}, "QX4860I", {0, 1, 4, 3}},
    {{"No", "Yes", "16 Addressable Frequencies", "Field Programmable"}, "QX4860F", {0, 1, 4, 3}},
    {{"No", "Yes", "16 Addressable Frequencies", "Factory Programmed"}, "QX4860", {0, 1, 4, 3}},
    {{"No", "Yes", "16 Addressable Frequencies", "Industrial Temperature"},
     "QX4860I",
     {0, 1, 4, 3}},
    {{"No", "No", "Standard", "Field Programmable"}, "QX6105AF", {0, 1, 2, 3}},
    {{"No", "No", "Standard", "Factory Programmed"}, "QX6105A", {0, 1, 2, 3}},
    {{"No", "No", "Standard", "Industrial Temperature"}, "QX6105AI", {0, 1, 2, 3}},
};

TEST(WizardRoutes, EveryRouteOpensANewDocumentOfItsDevice) {
    for (const Route& route : kRoutes) {
        SCOPED_TRACE(route.device);
        WizardHarness h;
        std::vector<int> pathAtFinish;
        h.RunWizard([&](frmDecisionTree& w) {
            // All answers but the last, then the path as Finish sees it.
            std::vector<std::string> before(route.answers.begin(), route.answers.end() - 1);
            Walk(w, before);
            pathAtFinish = w.mcolFrames;
            EXPECT_EQ(w.mintFrameCount, int(w.mcolFrames.size()));
            Answer(w, route.answers.back());
            Next(w);
        });
        EXPECT_EQ(pathAtFinish, route.pathAtFinish);
        EXPECT_EQ(h.DocumentDevice(), route.device);
        EXPECT_EQ(h.app.DeviceForm().mstrCurrentDevice, route.device);
        EXPECT_TRUE(h.app.DeviceForm().OptionFor(route.device)->Value());
        EXPECT_FALSE(h.stillLoaded);
        EXPECT_FALSE(h.app.DeviceForm().Visible());
        // A new document: no path, the summary reset.
        ASSERT_NE(h.Doc(), nullptr);
        EXPECT_EQ(h.Doc()->txtFilePath.Text(), "");
        EXPECT_TRUE(h.platform.Messages().empty()) << h.platform.Messages().front().Text;
    }
}

TEST(WizardRoutes, ThreeOrLessOutputsOpensTheQX5140AtOnce) {
    WizardHarness h;
    std::vector<int> visited;
    h.RunWizard([&](frmDecisionTree& w) {
        Walk(w, {"Yes"});
        EXPECT_EQ(w.FrontPage(), 5);
        Answer(w, "3 or less");
        Next(w);
        // No fourth question: the wizard is gone as soon as Next is pressed.
        EXPECT_FALSE(w.Loaded());
        EXPECT_FALSE(w.Visible());
    });
    EXPECT_EQ(h.DocumentDevice(), "QX5140");
}

TEST(WizardRoutes, HighAccuracyEndsOnTheQX3350PageWithOnlyPreviousAndClose) {
    WizardHarness h;
    h.RunWizard([&](frmDecisionTree& w) {
        Walk(w, {"No", "No", "High"});
        EXPECT_EQ(w.FrontPage(), 7);
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0, 1, 2, 7}));
        EXPECT_EQ(w.mintFrameCount, 4);
        EXPECT_TRUE(w.Loaded());
        EXPECT_FALSE(w.cmdNext[7].Visible());
        EXPECT_TRUE(w.cmdPrevious[7].Visible());
        EXPECT_EQ(w.cmdCancel[7].Caption(), "&Close");
        for (auto* options : {&w.opt1, &w.opt2, &w.opt3, &w.opt4})
            EXPECT_FALSE((*options)[7].Visible());
        w.cmdCancel[7].RaiseClick();
        EXPECT_FALSE(w.Loaded());
    });
    EXPECT_EQ(h.Doc(), nullptr);
    EXPECT_TRUE(h.platform.Messages().empty());
}

TEST(WizardRoutes, NineOrMoreOutputsEndsOnCallFactory) {
    WizardHarness h;
    h.RunWizard([&](frmDecisionTree& w) {
        Walk(w, {"Yes", "9 or more"});
        EXPECT_EQ(w.FrontPage(), 8);
        EXPECT_EQ(w.lblQuestion[8].Caption(), "Call Factory.");
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0, 5, 8}));
        EXPECT_FALSE(w.cmdNext[8].Visible());
        // Previous leads back to the question.
        Previous(w);
        EXPECT_EQ(w.FrontPage(), 5);
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0, 5}));
        Previous(w);
        EXPECT_EQ(w.FrontPage(), 0);
        // Page 0 has no Previous.
        EXPECT_FALSE(w.cmdPrevious[0].Visible());
        w.cmdCancel[0].RaiseClick();
    });
    EXPECT_EQ(h.Doc(), nullptr);
}

// ---- Previous, and another branch ----------------------------------------------------------

TEST(WizardPrevious, BringsThePreviousPageBackAndKeepsTheAnswers) {
    WizardHarness h;
    h.RunWizard([&](frmDecisionTree& w) {
        Walk(w, {"No", "Yes", "16 Addressable Frequencies"});
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0, 1, 4, 3}));
        Previous(w);
        EXPECT_EQ(w.FrontPage(), 4);
        EXPECT_TRUE(w.fraDecision[4].Visible());
        EXPECT_FALSE(w.fraDecision[3].Visible());
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0, 1, 4}));
        EXPECT_EQ(w.mintFrameCount, 3);
        EXPECT_TRUE(w.opt3[4].Value());
        EXPECT_TRUE(w.cmdNext[4].Enabled());
        Previous(w);
        Previous(w);
        EXPECT_EQ(w.FrontPage(), 0);
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0}));
        EXPECT_TRUE(w.opt3[0].Value());
        EXPECT_TRUE(w.opt1[1].Value());
        // Forward again on the same answers.
        Next(w);
        Next(w);
        EXPECT_EQ(w.FrontPage(), 4);
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0, 1, 4}));
        w.cmdCancel[4].RaiseClick();
    });
}

TEST(WizardPrevious, AnotherBranchDecidesByTheBranchTaken) {
    WizardHarness h;
    h.RunWizard([&](frmDecisionTree& w) {
        // First towards the QX6105A, as far as page 3.
        Walk(w, {"No", "No", "Standard"});
        Answer(w, "Industrial Temperature");
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0, 1, 2, 3}));
        // Back to the start, then more than one clock and 7 or 8 outputs.
        Previous(w);
        Previous(w);
        Previous(w);
        Walk(w, {"Yes", "7 or 8"});
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0, 5, 3}));
        // The answer on page 3 is still there.
        EXPECT_TRUE(w.opt3[3].Value());
        Next(w);
    });
    EXPECT_EQ(h.DocumentDevice(), "QX7311I");
}

TEST(WizardPrevious, LeavingTheClockQuestionForSevenOutputsIgnoresItsAnswer) {
    WizardHarness h;
    h.RunWizard([&](frmDecisionTree& w) {
        Walk(w, {"Yes", "4, 5 or 6", "No"});
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0, 5, 6, 3}));
        Previous(w);
        Previous(w);
        Walk(w, {"7 or 8"});
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0, 5, 3}));
        Answer(w, "Field Programmable");
        Next(w);
    });
    // The page before page 3 is page 5 now: a QX7311, though page 6 still says No.
    EXPECT_EQ(h.DocumentDevice(), "QX7311F");
}

TEST(WizardPrevious, ChangingTheClockAnswerChangesTheDevice) {
    WizardHarness h;
    h.RunWizard([&](frmDecisionTree& w) {
        Walk(w, {"Yes", "4, 5 or 6", "Yes", "Factory Programmed"});
    });
    EXPECT_EQ(h.DocumentDevice(), "QX7311");
    h.RunWizard([&](frmDecisionTree& w) {
        Walk(w, {"Yes", "4, 5 or 6", "Yes"});
        Previous(w);
        Walk(w, {"No", "Factory Programmed"});
    });
    EXPECT_EQ(h.DocumentDevice(), "QX7312");
}

TEST(WizardPrevious, FromTheFrequencyBranchToTheAccuracyBranch) {
    WizardHarness h;
    h.RunWizard([&](frmDecisionTree& w) {
        Walk(w, {"No", "Yes", "4 Addressable Frequencies"});
        Previous(w);
        Previous(w);
        EXPECT_EQ(w.FrontPage(), 1);
        Walk(w, {"No", "Standard", "Field Programmable"});
    });
    EXPECT_EQ(h.DocumentDevice(), "QX6105AF");
}

// ---- Close -----------------------------------------------------------------------------------

TEST(WizardClose, CancelOnAnyQuestionPageUnloadsWithNoOtherEffect) {
    for (const auto& answers : std::vector<std::vector<std::string>>{{},
                                                                     {"No"},
                                                                     {"No", "No"},
                                                                     {"No", "No", "Standard"},
                                                                     {"No", "Yes"},
                                                                     {"Yes"},
                                                                     {"Yes", "4, 5 or 6"}}) {
        WizardHarness h;
        h.NewDocument("QX6105A");
        h.Edit("7");
        const std::string device = h.app.DeviceForm().mstrCurrentDevice;
        int front = -1;
        h.RunWizard([&](frmDecisionTree& w) {
            Walk(w, answers);
            front = w.FrontPage();
            w.cmdCancel[front].RaiseClick();
            EXPECT_FALSE(w.Loaded());
            EXPECT_TRUE(w.mcolFrames.empty());
        });
        EXPECT_GE(front, 0);
        EXPECT_FALSE(h.stillLoaded);
        // The document stays as it was, unsaved, and nobody asked anything.
        ASSERT_NE(h.Doc(), nullptr);
        EXPECT_EQ(h.Doc()->txtNote.Text(), "7");
        EXPECT_EQ(h.app.DeviceForm().mstrCurrentDevice, device);
        EXPECT_TRUE(h.platform.Messages().empty());
    }
}

TEST(WizardClose, ClosingTheWindowItselfReleasesThePath) {
    WizardHarness h;
    h.RunWizard([&](frmDecisionTree& w) { Walk(w, {"Yes"}); });
    // The modal window went away without a button, while the wizard was still loaded.
    EXPECT_TRUE(h.stillLoaded);
    EXPECT_EQ(h.Doc(), nullptr);
    EXPECT_TRUE(h.platform.Messages().empty());
    // A second showing starts again on page 0 with a fresh path.
    h.RunWizard([&](frmDecisionTree& w) {
        EXPECT_EQ(w.mcolFrames, std::vector<int>({0}));
        EXPECT_EQ(w.FrontPage(), 0);
        EXPECT_FALSE(w.opt1[0].Value());
    });
}

// ---- Finish through the device window and the close question --------------------------------

TEST(WizardFinish, FromTheDeviceWindowHidesItAndReplacesTheDocument) {
    WizardHarness h;
    h.NewDocument("QX6105A");
    h.Edit("5");
    bool deviceVisibleDuringWizard = false;
    h.platform.QueueModal("frmDevice", [&](Window& w) {
        auto& device = dynamic_cast<frmDevice&>(w);
        device.optQX4860.SetValue(true);
        h.platform.QueueModal("frmDecisionTree", [&](Window& wizardWindow) {
            deviceVisibleDuringWizard = device.Visible();
            Walk(dynamic_cast<frmDecisionTree&>(wizardWindow),
                 {"Yes", "7 or 8", "Factory Programmed"});
        });
        device.cmdDecisionTree.RaiseClick();
        EXPECT_FALSE(device.Visible());
    });
    // The close question of the edited document: No.
    h.platform.QueueAnswer(msgbox::No);
    h.app.Main().mnuNew.RaiseClick();
    EXPECT_TRUE(deviceVisibleDuringWizard);
    EXPECT_EQ(h.CountMessages("Save changes to "), 1);
    EXPECT_EQ(h.DocumentDevice(), "QX7311");
    EXPECT_EQ(h.Doc()->txtNote.Text(), "0");
    EXPECT_EQ(h.unloads, 1);
    const auto& modals = h.platform.ModalsShown();
    ASSERT_GE(modals.size(), 2u);
    EXPECT_EQ(modals[modals.size() - 2], "frmDevice");
    EXPECT_EQ(modals.back(), "frmDecisionTree");
}

TEST(WizardFinish, CancelInTheCloseQuestionKeepsTheOpenDocument) {
    WizardHarness h;
    h.NewDocument("QX6105A");
    h.Edit("9");
    h.platform.QueueAnswer(msgbox::Cancel);
    h.RunWizard([&](frmDecisionTree& w) {
        Walk(w, {"No", "Yes", "4 Addressable Frequencies", "Factory Programmed"});
        // The wizard went away all the same.
        EXPECT_FALSE(w.Loaded());
    });
    EXPECT_EQ(h.CountMessages("Save changes to "), 1);
    EXPECT_EQ(h.DocumentDevice(), "QX6105A");
    EXPECT_EQ(h.Doc()->txtNote.Text(), "9");
    // The refused close gives the device window back the device of the open document.
    EXPECT_EQ(h.app.DeviceForm().mstrCurrentDevice, "QX6105A");
    // No package choice lingers for the next QX4860.
    EXPECT_FALSE(h.app.gblnWizard8Pin);
}

TEST(WizardFinish, UnchangedDocumentIsReplacedWithoutAQuestion) {
    WizardHarness h;
    h.NewDocument("QX4860");
    h.RunWizard([&](frmDecisionTree& w) {
        Walk(w, {"No", "No", "Standard", "Field Programmable"});
    });
    EXPECT_EQ(h.CountMessages("Save changes to "), 0);
    EXPECT_EQ(h.DocumentDevice(), "QX6105AF");
}

TEST(WizardFinish, DeviceButtonShowsTheWizard) {
    WizardHarness h;
    h.platform.QueueModal("frmDevice", [&](Window& w) {
        auto& device = dynamic_cast<frmDevice&>(w);
        EXPECT_TRUE(device.cmdDecisionTree.Enabled());
        EXPECT_TRUE(device.cmdDecisionTree.Visible());
        h.platform.QueueModal("frmDecisionTree", [](Window& wizard) {
            EXPECT_EQ(wizard.Caption(), "Clock Selection Wizard");
            dynamic_cast<frmDecisionTree&>(wizard).cmdCancel[0].RaiseClick();
        });
        device.cmdDecisionTree.RaiseClick();
        // Closing the wizard leaves the device window up.
        EXPECT_TRUE(device.Visible());
        device.cmdCancel_Click();
    });
    h.app.Main().mnuNew.RaiseClick();
    EXPECT_EQ(h.Doc(), nullptr);
    EXPECT_EQ(h.platform.ModalsShown().back(), "frmDecisionTree");
}

// ---- Error codes -----------------------------------------------------------------------------

struct ErrorCase {
    long number;
    const char* procedure;
    std::function<void(frmDecisionTree&)> steps;
};

// Answers a page that is not in front, as a stray access key would.
void Covered(OptionButton& option) {
    option.SetValue(true);
}

std::vector<ErrorCase> ErrorCases() {
    return {
        {10751, "cmdNext_Click", [](frmDecisionTree& w) { w.cmdNext_Click(7); }},
        {10751, "cmdNext_Click", [](frmDecisionTree& w) { w.cmdNext_Click(8); }},
        {10752, "cmdNext_Click", [](frmDecisionTree& w) { w.cmdNext_Click(0); }},
        {10753, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"No"});
             w.cmdNext_Click(1);
         }},
        {10754, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"No", "No"});
             w.cmdNext_Click(2);
         }},
        {10755, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"No", "No", "Standard"});
             w.cmdNext_Click(3);
         }},
        // Page 3 reached from page 1 through a covered page 5.
        {10756, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"No"});
             Covered(w.opt3[5]);
             w.cmdNext_Click(5);
             Answer(w, "Field Programmable");
             Next(w);
         }},
        {10757, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"No"});
             Covered(w.opt3[5]);
             w.cmdNext_Click(5);
             Answer(w, "Factory Programmed");
             Next(w);
         }},
        {10758, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"No"});
             Covered(w.opt3[5]);
             w.cmdNext_Click(5);
             Answer(w, "Industrial Temperature");
             Next(w);
         }},
        {10759, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"No", "Yes"});
             w.cmdNext_Click(4);
         }},
        {10760, "cmdPrevious_Click", [](frmDecisionTree& w) { w.cmdPrevious_Click(0); }},
        {10760, "cmdPrevious_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"Yes"});
             w.cmdPrevious_Click(9);
         }},
        // Page 1 answered "Yes" again while page 4 is in front: the next page is the last one.
        {10761, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"No", "Yes"});
             w.cmdNext_Click(1);
         }},
        {10762, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"Yes"});
             w.cmdNext_Click(5);
         }},
        {10763, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"Yes", "4, 5 or 6"});
             w.cmdNext_Click(6);
         }},
        // Page 6 on the path but never answered: page 3 reached through a covered page 4.
        {10764, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"Yes", "4, 5 or 6"});
             Covered(w.opt1[4]);
             w.cmdNext_Click(4);
             Answer(w, "Field Programmable");
             Next(w);
         }},
        {10765, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"Yes", "4, 5 or 6"});
             Covered(w.opt1[4]);
             w.cmdNext_Click(4);
             Answer(w, "Factory Programmed");
             Next(w);
         }},
        {10766, "cmdNext_Click",
         [](frmDecisionTree& w) {
             Walk(w, {"Yes", "4, 5 or 6"});
             Covered(w.opt3[4]);
             w.cmdNext_Click(4);
             Answer(w, "Industrial Temperature");
             Next(w);
         }},
    };
}

TEST(WizardErrors, EveryCodeIsReportedAndUnloadsTheWindow) {
    std::set<long> seen;
    for (const ErrorCase& error : ErrorCases()) {
        SCOPED_TRACE(error.number);
        WizardHarness h;
        h.NewDocument("QX4860");
        h.Edit("3");
        h.RunWizard([&](frmDecisionTree& w) {
            error.steps(w);
            EXPECT_FALSE(w.Loaded());
            EXPECT_FALSE(w.Visible());
            EXPECT_TRUE(w.mcolFrames.empty());
        });
        ASSERT_EQ(h.platform.Messages().size(), 1u);
        const auto& message = h.platform.Messages()[0];
        EXPECT_EQ(message.Text, WizardErrorText(error.number, error.procedure));
        EXPECT_EQ(message.Style, msgbox::Critical);
        EXPECT_EQ(message.Title, h.app.gstrTitle);
        // Nothing else happened: the open document is the one that was there.
        EXPECT_EQ(h.DocumentDevice(), "QX4860");
        EXPECT_EQ(h.Doc()->txtNote.Text(), "3");
        EXPECT_FALSE(h.app.gblnWizard8Pin);
        seen.insert(error.number);
    }
    for (long number = 10751; number <= 10766; ++number)
        EXPECT_EQ(seen.count(number), 1u) << number;
}

TEST(WizardErrors, PreviousWithNoPageBehindIsAnInvalidCall) {
    WizardHarness h;
    h.RunWizard([&](frmDecisionTree& w) {
        // Previous of a covered page while page 0 is the whole path.
        w.cmdPrevious_Click(3);
        EXPECT_FALSE(w.Loaded());
    });
    ASSERT_EQ(h.platform.Messages().size(), 1u);
    EXPECT_EQ(h.platform.Messages()[0].Text,
              "The error number is: 5\nThe source for the error is: (frmDecisionTree) "
              "cmdPrevious_Click\nThe description for the error is: Invalid procedure call or "
              "argument");
}

}  // namespace
}  // namespace pendulon::test
