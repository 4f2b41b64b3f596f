#include "platform/Field.hpp"

#include <algorithm>

namespace pendulon {

const char* FieldKindName(FieldKind kind) {
    switch (kind) {
        case FieldKind::Text: return "text";
        case FieldKind::List: return "list";
        case FieldKind::Check: return "check";
        case FieldKind::Option: return "option";
        case FieldKind::Label: return "label";
        case FieldKind::Button: return "button";
        case FieldKind::Frame: return "frame";
        case FieldKind::ScrollBar: return "scrollbar";
        case FieldKind::Picture: return "picture";
        case FieldKind::MenuItem: return "menu";
    }
    return "field";
}

Field::Field(FieldKind kind) : kind_(kind) {
    if (kind == FieldKind::Button || kind == FieldKind::Label || kind == FieldKind::Frame ||
        kind == FieldKind::Check || kind == FieldKind::Option) {
        backColor_ = colors::ButtonFace;
    }
    if (kind == FieldKind::Button) foreColor_ = colors::ButtonText;
}

Field::~Field() = default;

void Field::SetEnabled(bool value) {
    if (enabled_ == value) return;
    enabled_ = value;
    Notify();
}
void Field::SetVisible(bool value) {
    if (visible_ == value) return;
    visible_ = value;
    Notify();
}
void Field::SetTag(std::string value) {
    if (tag_ == value) return;
    tag_ = std::move(value);
    Notify();
}
void Field::SetForeColor(Color value) {
    if (foreColor_ == value) return;
    foreColor_ = value;
    Notify();
}
void Field::SetBackColor(Color value) {
    if (backColor_ == value) return;
    backColor_ = value;
    Notify();
}
void Field::SetCaption(std::string value) {
    if (caption_ == value) return;
    caption_ = std::move(value);
    Notify();
}
void Field::SetLeft(double v) { Move(v, top_, width_, height_); }
void Field::SetTop(double v) { Move(left_, v, width_, height_); }
void Field::SetWidth(double v) { Move(left_, top_, v, height_); }
void Field::SetHeight(double v) { Move(left_, top_, width_, v); }
void Field::Move(double left, double top) { Move(left, top, width_, height_); }
void Field::Move(double left, double top, double width, double height) {
    if (left == left_ && top == top_ && width == width_ && height == height_) return;
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    Notify();
}
void Field::SetFont(std::string name, double size, bool bold) {
    fontName_ = std::move(name);
    fontSize_ = size;
    fontBold_ = bold;
    Notify();
}
void Field::SetAlignment(int value) {
    if (alignment_ == value) return;
    alignment_ = value;
    Notify();
}

void Field::RaiseClick() {
    if (OnClick) OnClick();
}
void Field::RaiseDblClick() {
    if (OnDblClick) OnDblClick();
}
void Field::RaiseChange() {
    if (OnChange) OnChange();
}
void Field::RaiseGotFocus() {
    if (OnGotFocus) OnGotFocus();
}
void Field::RaiseLostFocus() {
    if (OnLostFocus) OnLostFocus();
}
void Field::RaiseKeyPress(int& keyAscii) {
    if (OnKeyPress) OnKeyPress(keyAscii);
}
bool Field::RaiseValidate() {
    bool cancel = false;
    if (OnValidate) OnValidate(cancel);
    return !cancel;
}
void Field::RaiseMouseDown(int button, int shift, double x, double y) {
    if (OnMouseDown) OnMouseDown(button, shift, x, y);
}
void Field::RaiseMouseUp(int button, int shift, double x, double y) {
    if (OnMouseUp) OnMouseUp(button, shift, x, y);
}
void Field::RaiseMouseMove(int button, int shift, double x, double y) {
    if (OnMouseMove) OnMouseMove(button, shift, x, y);
}

int Field::AddObserver(Observer observer) {
    const int id = nextObserverId_++;
    observers_.emplace_back(id, std::move(observer));
    return id;
}
void Field::RemoveObserver(int id) {
    observers_.erase(std::remove_if(observers_.begin(), observers_.end(),
                                    [id](const auto& entry) { return entry.first == id; }),
                     observers_.end());
}
void Field::Notify() {
    // Copy: an observer may remove itself.
    const auto observers = observers_;
    for (const auto& [id, observer] : observers) observer(*this);
}

}  // namespace pendulon
