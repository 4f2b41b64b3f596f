#pragma once
#include <string>
#include <vector>

#include "platform/Field.hpp"

namespace pendulon {

// A list field (drop-down). Setting ListIndex fires Click when the index changes. A list that
// allows free text keeps an edit text of its own; setting it fires Change.
class ListField : public Field {
public:
    ListField() : Field(FieldKind::List) {}

    bool AllowsFreeText() const { return freeText_; }
    void SetAllowsFreeText(bool value) { freeText_ = value; }

    void Clear();
    void AddItem(std::string item);
    void AddItem(std::string item, int index);
    void RemoveItem(int index);
    // Entry i, or the empty text when i is outside the list.
    std::string List(int index) const;
    void SetList(int index, std::string item);
    int ListCount() const { return static_cast<int>(items_.size()); }
    const std::vector<std::string>& Items() const { return items_; }

    int ListIndex() const { return listIndex_; }
    // Returns false, leaving the list unchanged, for an index outside -1 .. ListCount-1.
    bool SetListIndex(int index);

    // The selected entry, or the free text.
    std::string Text() const;
    // Free-text lists take any text (and select an entry that equals it exactly without a
    // Click); other lists select the first entry equal to the text, ignoring letter case.
    void SetText(std::string value);

    int SelStart() const { return selStart_; }
    int SelLength() const { return selLength_; }
    void SetSelStart(int value);
    void SetSelLength(int value);
    std::string SelText() const;
    void SetSelText(const std::string& value);

private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
    bool freeText_ = false;
    std::string text_;
    int selStart_ = 0;
    int selLength_ = 0;
};

}  // namespace pendulon
