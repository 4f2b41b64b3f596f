#pragma once
#include <string>
#include <utility>
#include <vector>

#include "app/DeviceFace.hpp"
#include "platform/CheckBox.hpp"
#include "platform/CommandButton.hpp"
#include "platform/ControlArray.hpp"
#include "platform/Frame.hpp"
#include "platform/OptionButton.hpp"
#include "platform/PictureBox.hpp"

namespace pendulon {

class Application;

// Device selection of a new document; remembers the selection for the whole run.
class frmDevice : public DeviceFace {
  public:
    static constexpr double kWideWidth = 5368;
    static constexpr double kNarrowWidth = 3580;
    // The pinout is drawn as large as its picture holds it, up to this scale.
    static constexpr double kLargestPinoutScale = 1.5;

    explicit frmDevice(Application& app);

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
    bool OKStatus() const { return mblnOK; }
    void cmdOK_Click() override;
    void cmdCancel_Click() override;
    void cmdDecisionTree_Click();
    void chkShowPinout_Click();
    // Closing from the window's own control only hides it; returns true (cancelled).
    bool Form_QueryUnload(int unloadMode);
    OptionButton* OptionFor(const std::string& device) override;
    // Redraws the pinout of the current device.
    void DrawPinout();

  private:
    void OptionClick(const std::string& device);

    Application& app_;
    std::vector<std::pair<std::string, OptionButton*>> options_;
};

}  // namespace pendulon
