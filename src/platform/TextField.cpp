#include "platform/TextField.hpp"

#include <algorithm>

namespace pendulon {

void TextField::SetText(std::string value) {
    if (value == text_) return;
    text_ = std::move(value);
    // A new text leaves the caret at the start, as the classic control does.
    selStart_ = 0;
    selLength_ = 0;
    Notify();
    RaiseChange();
}

void TextField::SetSelStart(int value) {
    const int length = static_cast<int>(text_.size());
    selStart_ = std::clamp(value, 0, length);
    selLength_ = std::min(selLength_, length - selStart_);
    Notify();
}

void TextField::SetSelLength(int value) {
    const int length = static_cast<int>(text_.size());
    selLength_ = std::clamp(value, 0, length - selStart_);
    Notify();
}

std::string TextField::SelText() const {
    return text_.substr(static_cast<size_t>(selStart_), static_cast<size_t>(selLength_));
}

void TextField::SetSelText(const std::string& value) {
    std::string next = text_;
    next.replace(static_cast<size_t>(selStart_), static_cast<size_t>(selLength_), value);
    const int caret = selStart_ + static_cast<int>(value.size());
    const bool changed = next != text_;
    text_ = std::move(next);
    selStart_ = caret;
    selLength_ = 0;
    Notify();
    if (changed) RaiseChange();
}

void TextField::SetLocked(bool value) {
    locked_ = value;
    Notify();
}

void TextField::SetMultiLine(bool value) {
    multiLine_ = value;
    Notify();
}

}  // namespace pendulon
