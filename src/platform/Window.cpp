#include "platform/Window.hpp"

#include <algorithm>

#include "platform/OptionButton.hpp"

namespace pendulon {

Window::Window(std::string name) : name_(std::move(name)) {}
Window::~Window() = default;

void Window::SetCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    Notify();
}
void Window::SetEnabled(bool value) {
    if (value == enabled_) return;
    enabled_ = value;
    Notify();
}
void Window::SetVisible(bool value) {
    if (value == visible_) return;
    visible_ = value;
    Notify();
}
void Window::Move(double left, double top, double width, double height) {
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    Notify();
}
void Window::SetWindowState(int value) {
    if (value == windowState_) return;
    windowState_ = value;
    Notify();
}

bool Window::SetFocusTo(Field* field) {
    if (field == activeControl_) return true;
    if (activeControl_ != nullptr) {
        if (!activeControl_->RaiseValidate()) return false;
        Field* leaving = activeControl_;
        activeControl_ = nullptr;
        leaving->RaiseLostFocus();
    }
    activeControl_ = field;
    if (field != nullptr) field->RaiseGotFocus();
    Notify();
    return true;
}

void Window::SetFocus() { Notify(); }

int Window::AddObserver(Observer observer) {
    const int id = nextObserverId_++;
    observers_.emplace_back(id, std::move(observer));
    return id;
}
void Window::RemoveObserver(int id) {
    observers_.erase(std::remove_if(observers_.begin(), observers_.end(),
                                    [id](const auto& entry) { return entry.first == id; }),
                     observers_.end());
}
void Window::Notify() {
    const auto observers = observers_;
    for (const auto& [id, observer] : observers) observer(*this);
}

void Window::ClearOptionGroup(OptionButton& selected) {
    for (Field* field : fields_.Fields()) {
        auto* option = dynamic_cast<OptionButton*>(field);
        if (option != nullptr && option != &selected && option->Group() == selected.Group())
            option->ClearQuietly();
    }
}

void Window::Register(const std::string& name, Field& field) {
    fields_.Add(name, field);
    field.SetOwner(this);
}

std::string Window::ElementName(const std::string& name, int index) {
    std::string text = name;
    text += '(';
    text += std::to_string(index);
    text += ')';
    return text;
}

}  // namespace pendulon
