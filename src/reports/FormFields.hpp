#pragma once
#include <string>

#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "platform/CheckBox.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/Window.hpp"

// Reading a window's fields by name, as the reports do. A field the window does not have reads
// as empty, clear or unset.
namespace pendulon::FormFields {

inline std::string Text(const Window& form, const std::string& name) {
    const Field* field = form.Fields().Find(name);
    return field == nullptr ? std::string() : mShared::FieldText(*field);
}

inline bool OptionOn(const Window& form, const std::string& name) {
    const auto* option = form.Fields().FindAs<OptionButton>(name);
    return option != nullptr && option->Value();
}

inline bool Checked(const Window& form, const std::string& name) {
    const auto* check = form.Fields().FindAs<CheckBox>(name);
    return check != nullptr && check->Value() == 1;
}

inline bool Has(const Window& form, const std::string& name) {
    return form.Fields().Contains(name);
}

inline std::string Indexed(const std::string& name, int index) {
    return name + "(" + std::to_string(index) + ")";
}

// The entry of a list at its selection; the free text when nothing is selected.
inline std::string SelectedEntry(const Window& form, const std::string& name) {
    const auto* list = form.Fields().FindAs<ListField>(name);
    if (list == nullptr)
        return Text(form, name);
    if (list->ListIndex() >= 0 && list->ListIndex() < list->ListCount())
        return list->List(list->ListIndex());
    return list->Text();
}

inline bool IsFamily6105A(const std::string& device) {
    return StartsWithNoCase(device, "QX6105A");
}
inline bool IsFamily4860(const std::string& device) {
    return StartsWithNoCase(device, "QX4860");
}
inline bool IsFamily731x(const std::string& device) {
    return StartsWithNoCase(device, "QX7311") || StartsWithNoCase(device, "QX7312");
}
inline bool IsFamily3350(const std::string& device) {
    return StartsWithNoCase(device, "QX3350");
}

}  // namespace pendulon::FormFields
