#pragma once
#include "platform/Field.hpp"

namespace pendulon {

class Frame : public Field {
public:
    Frame() : Field(FieldKind::Frame) {}
};

}  // namespace pendulon
