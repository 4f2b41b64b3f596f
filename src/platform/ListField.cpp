#include "platform/ListField.hpp"

#include <algorithm>
#include <cctype>

namespace pendulon {

namespace {
bool EqualsNoCase(const std::string& a, const std::string& b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}
}  // namespace

void ListField::Clear() {
    items_.clear();
    listIndex_ = -1;
    text_.clear();
    selStart_ = selLength_ = 0;
    Notify();
}

void ListField::AddItem(std::string item) {
    items_.push_back(std::move(item));
    Notify();
}

void ListField::AddItem(std::string item, int index) {
    index = std::clamp(index, 0, ListCount());
    items_.insert(items_.begin() + index, std::move(item));
    if (listIndex_ >= index) ++listIndex_;
    Notify();
}

void ListField::RemoveItem(int index) {
    if (index < 0 || index >= ListCount()) return;
    items_.erase(items_.begin() + index);
    if (listIndex_ == index) {
        listIndex_ = -1;
        text_.clear();
    } else if (listIndex_ > index) {
        --listIndex_;
    }
    Notify();
}

std::string ListField::List(int index) const {
    if (index < 0 || index >= ListCount()) return {};
    return items_[static_cast<size_t>(index)];
}

void ListField::SetList(int index, std::string item) {
    if (index < 0 || index >= ListCount()) return;
    items_[static_cast<size_t>(index)] = std::move(item);
    if (index == listIndex_) text_ = items_[static_cast<size_t>(index)];
    Notify();
}

bool ListField::SetListIndex(int index) {
    if (index < -1 || index >= ListCount()) return false;
    if (index == listIndex_) return true;
    listIndex_ = index;
    text_ = index >= 0 ? items_[static_cast<size_t>(index)] : std::string();
    selStart_ = selLength_ = 0;
    Notify();
    RaiseClick();
    return true;
}

std::string ListField::Text() const {
    if (!freeText_ && listIndex_ >= 0) return items_[static_cast<size_t>(listIndex_)];
    return text_;
}

void ListField::SetText(std::string value) {
    if (!freeText_) {
        for (int i = 0; i < ListCount(); ++i) {
            if (EqualsNoCase(items_[static_cast<size_t>(i)], value)) {
                SetListIndex(i);
                return;
            }
        }
        return;
    }
    if (value == text_) return;
    text_ = std::move(value);
    auto it = std::find(items_.begin(), items_.end(), text_);
    listIndex_ = it == items_.end() ? -1 : static_cast<int>(it - items_.begin());
    selStart_ = selLength_ = 0;
    Notify();
    RaiseChange();
}

void ListField::SetSelStart(int value) {
    selStart_ = std::clamp(value, 0, static_cast<int>(Text().size()));
    selLength_ = std::min(selLength_, static_cast<int>(Text().size()) - selStart_);
    Notify();
}

void ListField::SetSelLength(int value) {
    selLength_ = std::clamp(value, 0, static_cast<int>(Text().size()) - selStart_);
    Notify();
}

std::string ListField::SelText() const {
    const std::string text = Text();
    return text.substr(static_cast<size_t>(std::min<int>(selStart_, static_cast<int>(text.size()))),
                       static_cast<size_t>(selLength_));
}

void ListField::SetSelText(const std::string& value) {
    if (!freeText_) return;
    std::string next = text_;
    next.replace(static_cast<size_t>(std::min<int>(selStart_, static_cast<int>(next.size()))),
                 static_cast<size_t>(selLength_), value);
    const int caret = selStart_ + static_cast<int>(value.size());
    SetText(std::move(next));
    selStart_ = caret;
    selLength_ = 0;
}

}  // namespace pendulon
