#pragma once
#include <functional>
#include <string>
#include <vector>

#include "platform/Color.hpp"

namespace pendulon {

enum class FieldKind { Text, List, Check, Option, Label, Button, Frame, ScrollBar, Picture, MenuItem };

const char* FieldKindName(FieldKind kind);

class Window;

// The common part of every field a window is built of. Properties are plain values with
// setters; every setter tells the observers (the desktop view) what changed. Events are slots
// that the owning window fills with its event procedures; they run synchronously inside the
// setter or the Raise call that causes them.
class Field {
public:
    explicit Field(FieldKind kind);
    virtual ~Field();
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;

    FieldKind Kind() const { return kind_; }

    // Registry name, "txtPLL(1)" for an element of an array. Set when the window registers it.
    const std::string& Name() const { return name_; }
    void SetName(std::string name) { name_ = std::move(name); }
    Window* Owner() const { return owner_; }
    void SetOwner(Window* owner) { owner_ = owner; }

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool value);
    bool Visible() const { return visible_; }
    void SetVisible(bool value);
    const std::string& Tag() const { return tag_; }
    void SetTag(std::string value);
    Color ForeColor() const { return foreColor_; }
    void SetForeColor(Color value);
    Color BackColor() const { return backColor_; }
    void SetBackColor(Color value);
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string value);

    // Position and size in twips, relative to the container.
    double Left() const { return left_; }
    double Top() const { return top_; }
    double Width() const { return width_; }
    double Height() const { return height_; }
    void SetLeft(double v);
    void SetTop(double v);
    void SetWidth(double v);
    void SetHeight(double v);
    void Move(double left, double top);
    void Move(double left, double top, double width, double height);

    const std::string& FontName() const { return fontName_; }
    double FontSize() const { return fontSize_; }
    bool FontBold() const { return fontBold_; }
    void SetFont(std::string name, double size, bool bold = false);
    // 0 left, 1 right, 2 centre.
    int Alignment() const { return alignment_; }
    void SetAlignment(int value);

    // Event slots.
    std::function<void()> OnClick;
    std::function<void()> OnDblClick;
    std::function<void()> OnChange;
    std::function<void()> OnGotFocus;
    std::function<void()> OnLostFocus;
    std::function<void(int& keyAscii)> OnKeyPress;
    std::function<void(bool& cancel)> OnValidate;
    std::function<void(int button, int shift, double x, double y)> OnMouseDown;
    std::function<void(int button, int shift, double x, double y)> OnMouseUp;
    std::function<void(int button, int shift, double x, double y)> OnMouseMove;

    void RaiseClick();
    void RaiseDblClick();
    void RaiseChange();
    void RaiseGotFocus();
    void RaiseLostFocus();
    void RaiseKeyPress(int& keyAscii);
    bool RaiseValidate();  // true when the field lets the focus go
    void RaiseMouseDown(int button, int shift, double x, double y);
    void RaiseMouseUp(int button, int shift, double x, double y);
    void RaiseMouseMove(int button, int shift, double x, double y);

    // Observers are told after any property of the field changed.
    using Observer = std::function<void(Field&)>;
    int AddObserver(Observer observer);
    void RemoveObserver(int id);

protected:
    void Notify();

private:
    FieldKind kind_;
    std::string name_;
    Window* owner_ = nullptr;
    bool enabled_ = true;
    bool visible_ = true;
    std::string tag_;
    Color foreColor_ = colors::WindowText;
    Color backColor_ = colors::WindowBackground;
    std::string caption_;
    double left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    std::string fontName_ = "MS Sans Serif";
    double fontSize_ = 8.25;
    bool fontBold_ = false;
    int alignment_ = 0;
    std::vector<std::pair<int, Observer>> observers_;
    int nextObserverId_ = 1;
};

}  // namespace pendulon
