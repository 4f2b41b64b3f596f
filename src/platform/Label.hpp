#pragma once
#include "platform/Field.hpp"

namespace pendulon {

class Label : public Field {
public:
    Label() : Field(FieldKind::Label) {}
};

}  // namespace pendulon
