#pragma once
#include <functional>
#include <string>

#include "platform/FieldRegistry.hpp"

namespace pendulon {

class OptionButton;
class PlatformServices;

// What every window model shares: its name, caption, state, its fields by name, and the focus.
class Window {
public:
    explicit Window(std::string name);
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    const std::string& Name() const { return name_; }
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool value);
    bool Visible() const { return visible_; }
    void SetVisible(bool value);
    // Position and size in twips.
    double Left() const { return left_; }
    double Top() const { return top_; }
    double Width() const { return width_; }
    double Height() const { return height_; }
    void Move(double left, double top, double width, double height);
    void SetWidth(double width) { Move(left_, top_, width, height_); }
    void SetHeight(double height) { Move(left_, top_, width_, height); }
    // 0 normal, 1 minimised, 2 maximised.
    int WindowState() const { return windowState_; }
    void SetWindowState(int value);

    FieldRegistry& Fields() { return fields_; }
    const FieldRegistry& Fields() const { return fields_; }

    // The focused field, or none.
    Field* ActiveControl() const { return activeControl_; }
    // Moves the focus as a user would: Validate of the field that has it (which may keep the
    // focus there), its LostFocus, then GotFocus of the new one. Returns false when the focus
    // stayed. A null target only takes the focus away.
    bool SetFocusTo(Field* field);

    // Gives the window the focus; the view makes it active.
    void SetFocus();

    // Observers hear of caption, state, size and focus changes.
    using Observer = std::function<void(Window&)>;
    int AddObserver(Observer observer);
    void RemoveObserver(int id);

    // Called by OptionButton::SetValue.
    void ClearOptionGroup(OptionButton& selected);

    // The name of element index of a control array: name(index).
    static std::string ElementName(const std::string& name, int index);

protected:
    // Registers a field under its name and makes this window its owner.
    void Register(const std::string& name, Field& field);
    template <class T>
    void RegisterArray(const std::string& name, ControlArray<T>& array) {
        for (int i = 0; i < array.Count(); ++i)
            Register(ElementName(name, i), array[i]);
    }
    void Notify();

private:
    std::string name_;
    std::string caption_;
    bool enabled_ = true;
    bool visible_ = false;
    double left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    int windowState_ = 0;
    FieldRegistry fields_;
    Field* activeControl_ = nullptr;
    std::vector<std::pair<int, Observer>> observers_;
    int nextObserverId_ = 1;
};

}  // namespace pendulon
