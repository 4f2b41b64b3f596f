#include <gtest/gtest.h>

#include "platform/CheckBox.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"

namespace pendulon {
namespace {

class TwoOptions : public Window {
public:
    TwoOptions() : Window("frmTest") {
        a.SetGroup("volt");
        b.SetGroup("volt");
        c.SetGroup("pins");
        Register("optA", a);
        Register("optB", b);
        Register("optC", c);
    }
    OptionButton a, b, c;
};

TEST(FieldEvents, ProgrammaticListIndexFiresClick) {
    ListField list;
    int clicks = 0;
    list.OnClick = [&] { ++clicks; };
    list.AddItem("one");
    list.AddItem("two");
    list.SetListIndex(1);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(list.Text(), "two");
    list.SetListIndex(1);  // no change, no Click
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(list.SetListIndex(5));
    EXPECT_EQ(list.ListIndex(), 1);
}

TEST(FieldEvents, OptionClearsItsGroupOnly) {
    TwoOptions form;
    int clicksA = 0, clicksB = 0;
    form.a.OnClick = [&] { ++clicksA; };
    form.b.OnClick = [&] { ++clicksB; };
    form.c.SetValue(true);
    form.a.SetValue(true);
    form.b.SetValue(true);
    EXPECT_FALSE(form.a.Value());
    EXPECT_TRUE(form.b.Value());
    EXPECT_TRUE(form.c.Value());
    EXPECT_EQ(clicksA, 1);
    EXPECT_EQ(clicksB, 1);
}

TEST(FieldEvents, TextChangeFiresOnlyOnNewText) {
    TextField text;
    int changes = 0;
    text.OnChange = [&] { ++changes; };
    text.SetText("12");
    text.SetText("12");
    text.SetText("13");
    EXPECT_EQ(changes, 2);
}

TEST(FieldEvents, CheckClickFiresOnNewValue) {
    CheckBox check;
    int clicks = 0;
    check.OnClick = [&] { ++clicks; };
    check.SetValue(1);
    check.SetValue(1);
    check.SetValue(0);
    EXPECT_EQ(clicks, 2);
}

TEST(FieldEvents, FocusRunsValidateThenLostFocusThenGotFocus) {
    TwoOptions form;
    std::string trace;
    bool keep = true;
    form.a.OnValidate = [&](bool& cancel) {
        trace += "V";
        cancel = keep;
    };
    form.a.OnLostFocus = [&] { trace += "L"; };
    form.b.OnGotFocus = [&] { trace += "G"; };
    form.SetFocusTo(&form.a);
    EXPECT_FALSE(form.SetFocusTo(&form.b));
    EXPECT_EQ(form.ActiveControl(), &form.a);
    keep = false;
    EXPECT_TRUE(form.SetFocusTo(&form.b));
    EXPECT_EQ(trace, "VVLG");
    EXPECT_EQ(form.ActiveControl(), &form.b);
}

TEST(FieldRegistry, NamesArraysAndKeepsOrder) {
    TwoOptions form;
    ASSERT_EQ(form.Fields().Size(), 3u);
    EXPECT_EQ(form.Fields().Fields()[1]->Name(), "optB");
    EXPECT_EQ(form.Fields().Find("optC"), &form.c);
    EXPECT_EQ(form.Fields().Find("optD"), nullptr);
}

}  // namespace
}  // namespace pendulon
