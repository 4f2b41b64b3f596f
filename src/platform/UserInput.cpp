#include "platform/UserInput.hpp"

#include "platform/CheckBox.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"

namespace pendulon {

bool SetAsUser(Window& window, Field& field, const std::string& text, const std::string& name,
               std::string& error) {
    if (!field.Enabled() || !field.Visible()) {
        error = "field '" + name + "' cannot take the focus";
        return false;
    }
    switch (field.Kind()) {
        case FieldKind::Text: {
            window.SetFocusTo(&field);
            static_cast<TextField&>(field).SetText(text);
            break;
        }
        case FieldKind::List: {
            auto& list = static_cast<ListField&>(field);
            int found = -1;
            for (int i = 0; i < list.ListCount(); ++i) {
                if (list.List(i) == text) {
                    found = i;
                    break;
                }
            }
            if (found < 0 && !list.AllowsFreeText()) {
                error = "list '" + name + "' has no entry '" + text + "'";
                return false;
            }
            window.SetFocusTo(&field);
            if (found >= 0) {
                list.SetListIndex(found);
            } else {
                list.SetText(text);
            }
            break;
        }
        case FieldKind::Check: {
            if (text != "0" && text != "1" && text != "2") {
                error = "check '" + name + "' takes 0, 1 or 2, not '" + text + "'";
                return false;
            }
            window.SetFocusTo(&field);
            static_cast<CheckBox&>(field).SetValue(text[0] - '0');
            break;
        }
        case FieldKind::Option: {
            if (text != "1") {
                error = "option '" + name + "' takes 1, not '" + text + "'";
                return false;
            }
            window.SetFocusTo(&field);
            static_cast<OptionButton&>(field).SetValue(true);
            break;
        }
        default:
            error = "field '" + name + "' takes no input";
            return false;
    }
    // Leaving the field runs its checks.
    window.SetFocusTo(nullptr);
    return true;
}

bool ClickAsUser(Window& window, Field& field, const std::string& name, std::string& error) {
    if (!field.Enabled() || !field.Visible()) {
        error = "field '" + name + "' cannot be clicked";
        return false;
    }
    switch (field.Kind()) {
        case FieldKind::Button:
            window.SetFocusTo(&field);
            field.RaiseClick();
            break;
        case FieldKind::MenuItem:
            // A menu takes no focus from the field that has it.
            field.RaiseClick();
            break;
        case FieldKind::Check: {
            window.SetFocusTo(&field);
            auto& check = static_cast<CheckBox&>(field);
            check.SetValue(check.Value() == 0 ? 1 : 0);
            break;
        }
        case FieldKind::Option: {
            window.SetFocusTo(&field);
            auto& option = static_cast<OptionButton&>(field);
            if (option.Value()) {
                option.RaiseClick();
            } else {
                option.SetValue(true);
            }
            break;
        }
        case FieldKind::List: {
            auto& list = static_cast<ListField&>(field);
            if (list.ListIndex() < 0) {
                error = "list '" + name + "' has no entry selected";
                return false;
            }
            window.SetFocusTo(&field);
            field.RaiseClick();
            break;
        }
        default:
            error = "field '" + name + "' cannot be clicked";
            return false;
    }
    return true;
}

}  // namespace pendulon
