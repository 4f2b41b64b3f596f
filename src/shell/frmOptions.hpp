#pragma once
#include "platform/CheckBox.hpp"
#include "platform/CommandButton.hpp"
#include "platform/Frame.hpp"
#include "platform/Window.hpp"

namespace pendulon {

class Application;

// The options dialog: save on exit, use the text editor, descriptions in entry files.
class frmOptions : public Window {
  public:
    explicit frmOptions(Application& app);

    Frame fraGeneral;
    CheckBox chkSaveOnExit;
    CheckBox chkUseNotepad;
    Frame fraEntryFile;
    CheckBox chkEntFileIncludeDescription;
    CommandButton cmdOK;
    CommandButton cmdCancel;

    void Form_Load();
    void cmdOK_Click();
    void cmdCancel_Click();
    bool Unloaded() const { return unloaded_; }

  private:
    void Unload();

    Application& app_;
    bool unloaded_ = false;
};

}  // namespace pendulon
