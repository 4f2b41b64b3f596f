#include "platform/ScrollBar.hpp"

#include <algorithm>

namespace pendulon {

void ScrollBar::SetMin(int value) {
    min_ = value;
    Notify();
}
void ScrollBar::SetMax(int value) {
    max_ = value;
    Notify();
}
void ScrollBar::SetValue(int value) {
    value = std::clamp(value, std::min(min_, max_), std::max(min_, max_));
    if (value == value_) return;
    value_ = value;
    Notify();
    RaiseChange();
}
void ScrollBar::SetSmallChange(int value) {
    smallChange_ = value;
    Notify();
}
void ScrollBar::SetLargeChange(int value) {
    largeChange_ = value;
    Notify();
}

}  // namespace pendulon
