#include "platform/CheckBox.hpp"

namespace pendulon {

void CheckBox::SetValue(int value) {
    if (value < 0 || value > 2 || value == value_) return;
    value_ = value;
    Notify();
    RaiseClick();
}

}  // namespace pendulon
