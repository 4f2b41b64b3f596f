#pragma once
#include <string>
#include <vector>

#include "platform/Field.hpp"

namespace pendulon {

// A menu entry. A top-level menu holds its entries in Items; a caption of "-" is a separator.
class MenuItem : public Field {
public:
    MenuItem() : Field(FieldKind::MenuItem) {}
    bool Checked() const { return checked_; }
    void SetChecked(bool value);
    // Key sequence in the portable text form, such as "Ctrl+N"; empty for none.
    const std::string& Shortcut() const { return shortcut_; }
    void SetShortcut(std::string value) { shortcut_ = std::move(value); }

    std::vector<MenuItem*>& Items() { return items_; }
    const std::vector<MenuItem*>& Items() const { return items_; }
    void AddItem(MenuItem& item);

private:
    bool checked_ = false;
    std::string shortcut_;
    std::vector<MenuItem*> items_;
};

}  // namespace pendulon
