#pragma once
#include "platform/Field.hpp"

namespace pendulon {

// A scroll bar: setting a new Value fires Change.
class ScrollBar : public Field {
public:
    ScrollBar() : Field(FieldKind::ScrollBar) {}
    int Min() const { return min_; }
    int Max() const { return max_; }
    int Value() const { return value_; }
    void SetMin(int value);
    void SetMax(int value);
    void SetValue(int value);
    int SmallChange() const { return smallChange_; }
    int LargeChange() const { return largeChange_; }
    void SetSmallChange(int value);
    void SetLargeChange(int value);

private:
    int min_ = 0;
    int max_ = 32767;
    int value_ = 0;
    int smallChange_ = 1;
    int largeChange_ = 1;
};

}  // namespace pendulon
