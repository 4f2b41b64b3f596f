#pragma once
#include <string>

#include "platform/Window.hpp"

namespace pendulon {

// A window that carries user limits: the device-rule classes read its "Use Default" flags, and
// its limit fields by name ("txtFRefMin", "txtFRefMax", "txtPLLMin(i)", "txtPLLMax(i)",
// "lblDevice").
class LimitForm : public Window {
public:
    using Window::Window;
    // The limits of each voltage are the defaults; both True at load.
    bool mblnUseDefaults3V = true;
    bool mblnUseDefaults5V = true;
};

}  // namespace pendulon
