#pragma once
#include "platform/CommandButton.hpp"
#include "platform/Label.hpp"
#include "platform/PictureBox.hpp"
#include "platform/Window.hpp"

namespace pendulon {

class Application;

// The About box of the program.
class frmAbout : public Window {
  public:
    explicit frmAbout(Application& app);

    PictureBox picLogo;
    Label lblVARNHOL;
    Label lblDivision;
    Label lblAppName;
    Label lblVersion;
    Label lblCompany;
    Label lblContact1;
    Label lblContact2;
    CommandButton cmdClose;

    void Form_Load();
    void cmdClose_Click();
    bool Unloaded() const { return unloaded_; }

  private:
    Application& app_;
    bool unloaded_ = false;
};

}  // namespace pendulon
