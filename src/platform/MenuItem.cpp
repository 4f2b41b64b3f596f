#include "platform/MenuItem.hpp"

namespace pendulon {

void MenuItem::SetChecked(bool value) {
    if (checked_ == value) return;
    checked_ = value;
    Notify();
}

void MenuItem::AddItem(MenuItem& item) {
    items_.push_back(&item);
    Notify();
}

}  // namespace pendulon
