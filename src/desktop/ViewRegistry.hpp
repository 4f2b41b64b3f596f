#pragma once
#include <functional>
#include <map>
#include <string>

class QWidget;

namespace pendulon {

class Window;

// Which Qt view shows which window model, by the window's name. Modal windows and children of
// the main window are both looked up here, so that each view registers itself once.
class ViewRegistry {
  public:
    // Builds the view of a window as a child of parent.
    using Factory = std::function<QWidget*(Window& window, QWidget* parent)>;
    // What the window does when the user closes it from its title bar.
    using CloseRequest = std::function<void(Window& window)>;

    void Register(const std::string& windowName, Factory factory, CloseRequest onCloseRequest = {});
    bool Contains(const std::string& windowName) const;
    // The registered view, or a generic one built from the window's fields.
    QWidget* Create(Window& window, QWidget* parent) const;
    // Runs the registered close request; without one the window just hides.
    void RequestClose(Window& window) const;

  private:
    struct Entry {
        Factory factory;
        CloseRequest closeRequest;
    };
    std::map<std::string, Entry> entries_;
};

}  // namespace pendulon
