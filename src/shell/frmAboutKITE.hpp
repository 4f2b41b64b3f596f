#pragma once
#include "platform/CommandButton.hpp"
#include "platform/PictureBox.hpp"
#include "platform/Window.hpp"

namespace pendulon {

// The About box of the design tool KITE.
class frmAboutKITE : public Window {
  public:
    frmAboutKITE();

    PictureBox picIcon;
    CommandButton cmdClose;

    void cmdClose_Click();
    bool Unloaded() const { return unloaded_; }

  private:
    bool unloaded_ = false;
};

}  // namespace pendulon
