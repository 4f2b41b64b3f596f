#pragma once
#include <functional>
#include <string>
#include <utility>

#include "platform/Window.hpp"

namespace pendulon {

class OptionButton;

// The device selection as the other windows see it: the device of the document, the option of
// each device, and the OK and Cancel steps that open a new document or go back to the device
// before. frmDevice is this window.
class DeviceFace : public Window {
  public:
    explicit DeviceFace(std::string name) : Window(std::move(name)) {}

    std::string mstrCurrentDevice;
    std::string mstrPreviousDevice;
    bool mblnNew = false;

    void CreateNew(bool blnNew) { mblnNew = blnNew; }
    // The option field of a device name, or nullptr.
    virtual OptionButton* OptionFor(const std::string& device) = 0;
    virtual void cmdOK_Click() = 0;
    virtual void cmdCancel_Click() = 0;

    // The windows the OK step looks at: the active one, and how to unload it.
    std::function<Window*()> ActiveWindow;
    std::function<void(Window&)> UnloadWindow;
};

}  // namespace pendulon
