#pragma once
#include <string>
#include <utility>

#include "platform/CommonDialog.hpp"
#include "platform/ControlArray.hpp"
#include "platform/MenuItem.hpp"
#include "platform/Window.hpp"

namespace pendulon {

// The main window as the other windows see it: the menu entries and the dialog they use, the
// options they read, its hint and status lines, and the steps of a document's life that it
// runs. frmMain is this window.
class MainFace : public Window {
  public:
    explicit MainFace(std::string name) : Window(std::move(name)) {}

    // Recent files: element 0 is the separator, 1 to 5 the paths, newest first.
    ControlArray<MenuItem> mnuFilePathArray{6};
    MenuItem mnuViewPower;
    MenuItem mnuViewDebugWindow;

    CommonDialog dlgCommon;

    // Entry files include the description block.
    bool mblnSaveEntryFileDescription = false;
    int mintRecentFileCount = 0;

    virtual void ShowConfigurationForm() = 0;
    virtual void ShowHelp(const std::string& strText) = 0;
    virtual void DisplayStatus(const std::string& strStatusMessage) = 0;
    virtual void InitializeMenu(bool blnActiveFormUnloading) = 0;
    // True means "do not close".
    virtual bool CancelChildUnload() = 0;
    virtual void UpdateChecksum(bool blnForceUpdate) = 0;
    virtual void FileChange() = 0;
    // The path of a recent-file entry: its caption behind the first blank, trimmed.
    virtual std::string RecentPath(int index) const = 0;
};

}  // namespace pendulon
