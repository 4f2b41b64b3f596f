#pragma once
#include <string>

#include "platform/Field.hpp"

namespace pendulon {

// A text field: setting Text fires Change when the text differs.
class TextField : public Field {
public:
    TextField() : Field(FieldKind::Text) {}

    const std::string& Text() const { return text_; }
    void SetText(std::string value);

    int SelStart() const { return selStart_; }
    void SetSelStart(int value);
    int SelLength() const { return selLength_; }
    void SetSelLength(int value);
    std::string SelText() const;
    // Replaces the selection, leaves the caret behind the new text; fires Change.
    void SetSelText(const std::string& value);

    bool Locked() const { return locked_; }
    void SetLocked(bool value);
    bool MultiLine() const { return multiLine_; }
    void SetMultiLine(bool value);

private:
    std::string text_;
    int selStart_ = 0;
    int selLength_ = 0;
    bool locked_ = false;
    bool multiLine_ = false;
};

}  // namespace pendulon
