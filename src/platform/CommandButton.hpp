#pragma once
#include "platform/Field.hpp"

namespace pendulon {

class CommandButton : public Field {
public:
    CommandButton() : Field(FieldKind::Button) {}
};

}  // namespace pendulon
