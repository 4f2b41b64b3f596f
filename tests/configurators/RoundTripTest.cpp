#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "configurators/frmQX4860.hpp"
#include "configurators/frmQX6105A.hpp"
#include "platform/CheckBox.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/TextField.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "support/ProgramSession.hpp"
#include "support/TestSupport.hpp"

// Documents of the QX6105A and QX4860 families made, saved, opened and saved again through the
// main window's menus, as a user does it.

namespace pendulon {
namespace {

constexpr const char* kOptimizedNote =
    "NOTE: PPM values are optimized upon loading.  If different PPM values are desired, please "
    "re-select from the drop downs.";

using Session = test::ProgramSession;

// A user types into a field and leaves it.
void Type(Configurator& form, TextField& field, const std::string& text) {
    form.SetFocusTo(&field);
    field.SetText(text);
    form.SetFocusTo(nullptr);
}
void TypeReference(Configurator& form, const std::string& text) {
    form.SetFocusTo(&form.cboFRef);
    form.cboFRef.SetText(text);
    form.SetFocusTo(nullptr);
}
void Pick(ListField& list, const std::string& text) {
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.List(i) == text) {
            list.SetListIndex(i);
            return;
        }
    }
    throw std::runtime_error("no entry " + text + " in " + list.Name());
}

// Every input field of the window by name: texts, list selections, check boxes and options,
// and the prescale flag of each loop. The path of the document is left out: it is what
// differs between the two files.
std::map<std::string, std::string> Inputs(Configurator& form, int loops) {
    std::map<std::string, std::string> values;
    for (Field* field : form.Fields().Fields()) {
        const std::string& name = field->Name();
        if (name == "txtFilePath")
            continue;
        if (auto* text = dynamic_cast<TextField*>(field)) {
            values[name] = text->Text();
        } else if (auto* list = dynamic_cast<ListField*>(field)) {
            values[name] = std::to_string(list->ListIndex()) + " " + list->Text();
        } else if (auto* check = dynamic_cast<CheckBox*>(field)) {
            values[name] = std::to_string(check->Value());
        } else if (auto* option = dynamic_cast<OptionButton*>(field)) {
            values[name] = option->Value() ? "True" : "False";
        }
    }
    for (int i = 0; i < loops; ++i)
        values["PreScale(" + std::to_string(i) + ")"] = form.PreScale(i) ? "True" : "False";
    return values;
}

void ExpectSameInputs(const std::map<std::string, std::string>& after,
                      const std::map<std::string, std::string>& before) {
    EXPECT_EQ(after.size(), before.size());
    for (const auto& [name, value] : before) {
        const auto found = after.find(name);
        ASSERT_NE(found, after.end()) << name;
        EXPECT_EQ(found->second, value) << name;
    }
}

struct RoundTripCase {
    std::string name;
    std::string device;
    int loops;
    std::function<void(Configurator&)> edit;
    // The part code of a QX6105AF file ("qx6105fsc") names none of the devices the summary
    // looks for, so the summary shows "n/a" for such a file.
    bool summaryFindsDevice = true;
    // An 8-pin QX4860 file holds 1 in the field that fills chkOEReference, whatever the
    // window showed; the file itself does not depend on that box in 8 pin.
    bool eightPins = false;
};

frmQX6105A& As6105A(Configurator& form) {
    return dynamic_cast<frmQX6105A&>(form);
}
frmQX4860& As4860(Configurator& form) {
    return dynamic_cast<frmQX4860&>(form);
}

const RoundTripCase kCases[] = {
    {"QX6105AFrequencySelect", "QX6105A", 2,
     [](Configurator& c) {
         frmQX6105A& f = As6105A(c);
         TypeReference(f, "10");
         f.optFS.SetValue(true);
         Pick(f.cboClkDiv[0], "PLL/2");
         Pick(f.cboClkDiv[1], "PLL");
         Pick(f.cboClkDiv[2], "PLL/4");
         Type(f, f.txtPLL[0], "100");
         Type(f, f.txtPLL[1], "50");
         f.chkSmoothSlew.SetValue(1);
     }},
    {"QX6105AOutputEnableAtThreeVolts", "QX6105A", 2,
     [](Configurator& c) {
         frmQX6105A& f = As6105A(c);
         f.opt3V.SetValue(true);
         TypeReference(f, "25");
         Pick(f.cboClkDiv[0], "Ref");
         Pick(f.cboClkDiv[1], "PLL/2");
         Pick(f.cboClkDiv[2], "Off");
         Type(f, f.txtPLL[0], "48");
     }},
    {"QX6105AF", "QX6105AF", 2,
     [](Configurator& c) {
         frmQX6105A& f = As6105A(c);
         TypeReference(f, "14.31818");
         f.optFS.SetValue(true);
         Pick(f.cboClkDiv[0], "PLL");
         Pick(f.cboClkDiv[1], "PLL/2");
         Pick(f.cboClkDiv[2], "Ref/2");
         Type(f, f.txtPLL[0], "80");
         Type(f, f.txtPLL[1], "40");
     },
     false},
    {"QX4860EightPins", "QX4860", frmQX4860::kRows,
     [](Configurator& c) {
         frmQX4860& f = As4860(c);
         f.opt8Pin.SetValue(true);
         Pick(f.cboFRef, "20.00000 MHz");
         Pick(f.cboClkADiv, "PLL/2");
         Pick(f.cboRefClkDiv, "PLL");
         Type(f, f.txtPLL[0], "80");
         Type(f, f.txtPLL[1], "150");
         Type(f, f.txtPLL[3], "33");
     },
     true, true},
    {"QX4860FourteenPins", "QX4860", frmQX4860::kRows,
     [](Configurator& c) {
         frmQX4860& f = As4860(c);
         f.opt14Pin.SetValue(true);
         Pick(f.cboFRef, "20.00000 MHz");
         Pick(f.cboClkADiv, "PLL/4");
         Pick(f.cboRefClkDiv, "Ref");
         Type(f, f.txtPLL[0], "80");
         Type(f, f.txtPLL[1], "50");
         Type(f, f.txtPLL[9], "120");
         f.chkSmoothSlew.SetValue(1);
     }},
    {"QX4860FAtThreeVolts", "QX4860F", frmQX4860::kRows,
     [](Configurator& c) {
         frmQX4860& f = As4860(c);
         f.opt3V.SetValue(true);
         Pick(f.cboFRef, "20.00000 MHz");
         Pick(f.cboClkADiv, "PLL/2");
         Pick(f.cboRefClkDiv, "PLL");
         Type(f, f.txtPLL[0], "40");
         Type(f, f.txtPLL[2], "60");
     }},
};

class RoundTrip : public ::testing::TestWithParam<std::tuple<int, bool>> {};

TEST_P(RoundTrip, SavedOpenedAndSavedAgainGivesTheSameFileAndFields) {
    const RoundTripCase& c = kCases[std::get<0>(GetParam())];
    const bool details = std::get<1>(GetParam());
    const std::string dir = test::MakeTempDir();
    const std::string first = dir + "/first.ent";
    const std::string second = dir + "/second.ent";

    Session s;
    s.Main().mblnSaveEntryFileDescription = details;
    s.New(c.device);
    c.edit(*s.Doc());
    ASSERT_TRUE(s.app->gblnNeedsCalculate);
    s.Doc()->cmdCalculate.RaiseClick();
    ASSERT_FALSE(s.app->gblnNeedsCalculate);
    const auto before = Inputs(*s.Doc(), c.loops);

    s.SaveAs(first);
    ASSERT_TRUE(std::filesystem::exists(first));
    EXPECT_EQ(s.Doc()->txtFilePath.Text(), first);
    const std::string checksum = s.app->Summary().lblChecksum.Caption();
    EXPECT_FALSE(checksum.empty());

    // The saved document is clean: opening another file asks no close question.
    s.platform.ClearMessages();
    s.Open(first);
    ASSERT_NE(s.Doc(), nullptr);
    EXPECT_EQ(s.CountMessages(kOptimizedNote), 1);
    EXPECT_EQ(s.platform.Messages().size(), 1u);
    EXPECT_EQ(s.Doc()->Device(), c.device);
    EXPECT_EQ(s.Doc()->txtFilePath.Text(), first);
    EXPECT_FALSE(s.app->gblnNeedsCalculate);
    const std::string shown = c.summaryFindsDevice ? checksum : "n/a";
    EXPECT_EQ(s.app->Summary().lblChecksum.Caption(), shown);
    EXPECT_EQ(s.Doc()->Checksum(), checksum);
    auto after = Inputs(*s.Doc(), c.loops);
    if (c.eightPins) {
        EXPECT_EQ(before.at("chkOEReference"), "0");
        EXPECT_EQ(after.at("chkOEReference"), "1");
        after["chkOEReference"] = "0";
    }
    ExpectSameInputs(after, before);

    s.SaveAs(second);
    ASSERT_TRUE(std::filesystem::exists(second));
    EXPECT_EQ(test::ReadFile(second), test::ReadFile(first));
    EXPECT_EQ(s.app->Summary().lblChecksum.Caption(), shown);
    EXPECT_EQ(s.Doc()->Checksum(), checksum);

    // Closing puts the document's path at the top of the recent files.
    s.Main().mnuClose.RaiseClick();
    EXPECT_EQ(s.Doc(), nullptr);
    EXPECT_EQ(s.Main().RecentPath(1), second);
    EXPECT_EQ(s.Main().RecentPath(2), first);
    EXPECT_TRUE(s.Main().mnuFilePathArray[1].Visible());
}

std::string CaseName(const ::testing::TestParamInfo<std::tuple<int, bool>>& info) {
    return kCases[std::get<0>(info.param)].name +
           (std::get<1>(info.param) ? "WithDetails" : "WithoutDetails");
}

INSTANTIATE_TEST_SUITE_P(
    Documents, RoundTrip,
    ::testing::Combine(::testing::Range(0, static_cast<int>(std::size(kCases))), ::testing::Bool()),
    CaseName);

TEST(RoundTripDetails, DetailsSwitchChangesTheSavedText) {
    const std::string dir = test::MakeTempDir();
    std::string text[2];
    for (int details = 0; details < 2; ++details) {
        Session s;
        s.Main().mblnSaveEntryFileDescription = details == 1;
        s.New("QX4860");
        kCases[3].edit(*s.Doc());
        s.Doc()->cmdCalculate.RaiseClick();
        const std::string path = dir + "/d" + std::to_string(details) + ".ent";
        s.SaveAs(path);
        text[details] = test::ReadFile(path);
    }
    EXPECT_FALSE(text[0].empty());
    EXPECT_NE(text[0], text[1]);
}

TEST(RoundTripSave, UncalculatedDocumentIsNeverWritten) {
    const std::string dir = test::MakeTempDir();
    const std::string path = dir + "/never.ent";
    Session s;
    s.New("QX4860");
    kCases[3].edit(*s.Doc());
    ASSERT_TRUE(s.app->gblnNeedsCalculate);
    const std::string warning =
        "Warning! You have not calculated your configurations.\r\n"
        "Please finish your configurations before saving.";
    s.platform.ClearMessages();
    s.platform.QueueAnswer(msgbox::OK);
    s.SaveAs(path);
    EXPECT_EQ(s.CountMessages(warning), 1);
    EXPECT_TRUE(s.platform.DialogsShown().empty());
    EXPECT_FALSE(std::filesystem::exists(path));
    // Save with a path already set is refused in the same way.
    s.Doc()->txtFilePath.SetText(path);
    s.platform.QueueAnswer(msgbox::Cancel);
    s.Main().mnuSave.RaiseClick();
    EXPECT_EQ(s.CountMessages(warning), 2);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_TRUE(std::filesystem::is_empty(dir));
}

// A saved QX6105A document with one edit made after the save.
struct EditedDocument {
    EditedDocument() {
        s.New("QX6105A");
        kCases[0].edit(*s.Doc());
        s.Doc()->cmdCalculate.RaiseClick();
        s.SaveAs(path);
        Type(*s.Doc(), As6105A(*s.Doc()).txtPLL[0], "90");
        s.Doc()->cmdCalculate.RaiseClick();
        s.platform.ClearMessages();
    }
    std::string dir = test::MakeTempDir();
    std::string path = dir + "/edited.ent";
    Session s;
};

constexpr const char* kQuestion = "Save changes to edited.ent?";

TEST(RoundTripCloseQuestion, CloseAsksAndCancelKeepsTheDocument) {
    EditedDocument d;
    Configurator* doc = d.s.Doc();
    d.s.platform.QueueAnswer(msgbox::Cancel);
    d.s.Main().mnuClose.RaiseClick();
    EXPECT_EQ(d.s.CountMessages(kQuestion), 1);
    EXPECT_EQ(d.s.Doc(), doc);
    EXPECT_EQ(As6105A(*doc).txtPLL[0].Text(), "90.0");
    // No closes it without writing.
    const std::string before = test::ReadFile(d.path);
    d.s.platform.QueueAnswer(msgbox::No);
    d.s.Main().mnuClose.RaiseClick();
    EXPECT_EQ(d.s.Doc(), nullptr);
    EXPECT_EQ(test::ReadFile(d.path), before);
    EXPECT_EQ(d.s.Main().RecentPath(1), d.path);
}

TEST(RoundTripCloseQuestion, OpenAsksAndCancelKeepsTheDocumentAndReadsNothing) {
    EditedDocument d;
    Configurator* doc = d.s.Doc();
    d.s.platform.QueueFileAnswer(d.path);
    d.s.platform.QueueAnswer(msgbox::Cancel);
    d.s.Main().mnuOpen.RaiseClick();
    EXPECT_EQ(d.s.CountMessages(kQuestion), 1);
    EXPECT_EQ(d.s.CountMessages(kOptimizedNote), 0);
    EXPECT_EQ(d.s.Doc(), doc);
    EXPECT_EQ(As6105A(*doc).txtPLL[0].Text(), "90.0");
}

TEST(RoundTripCloseQuestion, OpenAfterYesSavesThenReadsTheSavedFile) {
    EditedDocument d;
    d.s.platform.QueueFileAnswer(d.path);
    d.s.platform.QueueAnswer(msgbox::Yes);
    d.s.QueueSummaryOK();
    d.s.Main().mnuOpen.RaiseClick();
    EXPECT_EQ(d.s.CountMessages(kQuestion), 1);
    EXPECT_EQ(d.s.CountMessages(kOptimizedNote), 1);
    ASSERT_NE(d.s.Doc(), nullptr);
    EXPECT_EQ(As6105A(*d.s.Doc()).txtPLL[0].Text(), "90.0");
}

TEST(RoundTripCloseQuestion, ExitAsksAndCancelKeepsTheProgramRunning) {
    EditedDocument d;
    Configurator* doc = d.s.Doc();
    d.s.platform.QueueAnswer(msgbox::Cancel);
    d.s.Main().mnuExit.RaiseClick();
    EXPECT_EQ(d.s.CountMessages(kQuestion), 1);
    EXPECT_FALSE(d.s.app->Ended());
    EXPECT_EQ(d.s.Doc(), doc);
    d.s.platform.QueueAnswer(msgbox::No);
    d.s.Main().mnuExit.RaiseClick();
    EXPECT_TRUE(d.s.app->Ended());
    EXPECT_EQ(d.s.Doc(), nullptr);
}

// The file's path is a field of the document too, and a long one weighs far more than the rest:
// an edit beside it is still a change, and closing asks before the work is lost.
TEST(RoundTripCloseQuestion, AnEditBesideALongPathStillAsks) {
    std::string dir = test::MakeTempDir();
    for (int level = 0; level < 6; ++level) {
        dir += "/" + std::string(60, static_cast<char>('a' + level));
        ASSERT_TRUE(std::filesystem::create_directory(dir));
    }
    const std::string path = dir + "/edited.ent";
    Session s;
    s.New("QX6105A");
    kCases[0].edit(*s.Doc());
    s.Doc()->cmdCalculate.RaiseClick();
    s.SaveAs(path);
    ASSERT_EQ(s.Doc()->txtFilePath.Text(), path);
    Type(*s.Doc(), As6105A(*s.Doc()).txtPLL[0], "90");
    s.Doc()->cmdCalculate.RaiseClick();
    s.platform.ClearMessages();
    s.platform.QueueAnswer(msgbox::Cancel);
    s.Main().mnuClose.RaiseClick();
    EXPECT_EQ(s.CountMessages(kQuestion), 1);
    EXPECT_NE(s.Doc(), nullptr);
}

TEST(RoundTripOpen, EveryOpenShowsTheOptimizedNote) {
    EditedDocument d;
    d.s.platform.QueueAnswer(msgbox::No);
    d.s.Open(d.path);
    EXPECT_EQ(d.s.CountMessages(kOptimizedNote), 1);
    // The file holds the saved 100, not the unsaved edit.
    EXPECT_EQ(As6105A(*d.s.Doc()).txtPLL[0].Text(), "100.0");
    d.s.Open(d.path);
    EXPECT_EQ(d.s.CountMessages(kOptimizedNote), 2);
    d.s.Main().mnuClose.RaiseClick();
    EXPECT_EQ(d.s.Main().RecentPath(1), d.path);
}

}  // namespace
}  // namespace pendulon
