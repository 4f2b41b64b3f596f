#pragma once
#include <string>

#include "platform/Field.hpp"

namespace pendulon {

// An option button. Options that share a group name within their window exclude each other:
// setting one True clears the others (without their Click) and fires its own Click.
class OptionButton : public Field {
public:
    OptionButton() : Field(FieldKind::Option) {}
    bool Value() const { return value_; }
    void SetValue(bool value);
    const std::string& Group() const { return group_; }
    void SetGroup(std::string group) { group_ = std::move(group); }

private:
    friend class Window;
    void ClearQuietly();
    bool value_ = false;
    std::string group_;
};

}  // namespace pendulon
