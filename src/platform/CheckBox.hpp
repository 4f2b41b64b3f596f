#pragma once
#include "platform/Field.hpp"

namespace pendulon {

// A check box: Value 0 (clear), 1 (set) or 2 (grey); setting a new value fires Click.
class CheckBox : public Field {
public:
    CheckBox() : Field(FieldKind::Check) {}
    int Value() const { return value_; }
    void SetValue(int value);

private:
    int value_ = 0;
};

}  // namespace pendulon
