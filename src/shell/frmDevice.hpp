#pragma once
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/CheckBox.hpp"
#include "platform/CommandButton.hpp"
#include "platform/ControlArray.hpp"
#include "platform/Frame.hpp"
#include "platform/OptionButton.hpp"
#include "platform/PictureBox.hpp"
#include "platform/Window.hpp"

namespace pendulon {

class Application;

// Device selection of a new document; remembers the selection for the whole run.
class frmDevice : public Window {
  public:
    static constexpr double kWideWidth = 5368;
    static constexpr double kNarrowWidth = 3580;
    // The pinout is drawn as large as its picture holds it, up to this scale.
    static constexpr double kLargestPinoutScale = 1.5;

    explicit frmDevice(Application& app);

    std::string mstrCurrentDevice;
    std::string mstrPreviousDevice;
    bool mblnNew = false;
    bool mblnOK = false;

    Frame fraDevice;
    OptionButton optQX6105A, optQX6105AF, optQX6105AI;
    OptionButton optQX7311, optQX7311F, optQX7311I;
    OptionButton optQX7312, optQX7312F, optQX7312I;
    OptionButton optQX4860, optQX4860F, optQX4860I;
    OptionButton optQX5140;
    OptionButton optQX3350, optQX3350I;
    CheckBox chkShowPinout;
    Frame fraPinout;
    ControlArray<PictureBox> picPinout{2};
    CommandButton cmdOK;
    CommandButton cmdCancel;
    CommandButton cmdDecisionTree;

    void Form_Load();
    void CreateNew(bool blnNew) { mblnNew = blnNew; }
    bool OKStatus() const { return mblnOK; }
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdDecisionTree_Click();
    void chkShowPinout_Click();
    // Closing from the window's own control only hides it; returns true (cancelled).
    bool Form_QueryUnload(int unloadMode);
    // The option field of a device name, or nullptr.
    OptionButton* OptionFor(const std::string& device);
    // Redraws the pinout of the current device.
    void DrawPinout();

    // The windows the OK step looks at: the active one, and how to unload it.
    std::function<Window*()> ActiveWindow;
    std::function<void(Window&)> UnloadWindow;

  private:
    void OptionClick(const std::string& device);

    Application& app_;
    std::vector<std::pair<std::string, OptionButton*>> options_;
};

}  // namespace pendulon
