#include "platform/OptionButton.hpp"

#include "platform/Window.hpp"

namespace pendulon {

void OptionButton::SetValue(bool value) {
    if (value == value_) return;
    value_ = value;
    if (value && Owner() != nullptr) Owner()->ClearOptionGroup(*this);
    Notify();
    if (value) RaiseClick();
}

void OptionButton::ClearQuietly() {
    if (!value_) return;
    value_ = false;
    Notify();
}

}  // namespace pendulon
