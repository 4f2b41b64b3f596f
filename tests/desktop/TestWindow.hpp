#pragma once
#include <string>
#include <vector>

#include "platform/CheckBox.hpp"
#include "platform/CommandButton.hpp"
#include "platform/Frame.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "platform/MenuItem.hpp"
#include "platform/OptionButton.hpp"
#include "platform/PictureBox.hpp"
#include "platform/ScrollBar.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"

namespace pendulon::test {

// A window with one field of every kind, recording the events it gets.
class TestWindow : public Window {
  public:
    TestWindow() : Window("frmTest") {
        Register("txtValue", txtValue);
        Register("txtOther", txtOther);
        Register("cboList", cboList);
        Register("cboFree", cboFree);
        Register("chkOption", chkOption);
        Register("optFirst", optFirst);
        Register("optSecond", optSecond);
        Register("cmdCalculate", cmdCalculate);
        Register("lblInfo", lblInfo);
        Register("fraGroup", fraGroup);
        Register("vsbScroll", vsbScroll);
        Register("picDrawing", picDrawing);
        optFirst.SetGroup("g");
        optSecond.SetGroup("g");
        cboFree.SetAllowsFreeText(true);
        for (Field* field : Fields().Fields()) {
            const std::string name = field->Name();
            field->OnClick = [this, name] { events.push_back(name + ".Click"); };
            field->OnChange = [this, name] { events.push_back(name + ".Change"); };
            field->OnDblClick = [this, name] { events.push_back(name + ".DblClick"); };
            field->OnGotFocus = [this, name] { events.push_back(name + ".GotFocus"); };
            field->OnLostFocus = [this, name] { events.push_back(name + ".LostFocus"); };
        }
    }
    int Count(const std::string& event) const {
        int n = 0;
        for (const auto& e : events)
            if (e == event)
                ++n;
        return n;
    }

    TextField txtValue;
    TextField txtOther;
    ListField cboList;
    ListField cboFree;
    CheckBox chkOption;
    OptionButton optFirst;
    OptionButton optSecond;
    CommandButton cmdCalculate;
    Label lblInfo;
    Frame fraGroup;
    ScrollBar vsbScroll;
    PictureBox picDrawing;
    std::vector<std::string> events;
};

}  // namespace pendulon::test
