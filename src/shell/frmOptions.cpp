#include "shell/frmOptions.hpp"

#include "core/Numbers.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {

namespace {
constexpr const char* kApp = "Pendulon";
int CheckValue(double value) {
    const double rounded = RoundHalfEven(value);
    return rounded >= 0 && rounded <= 2 ? static_cast<int>(rounded) : 1;
}
}  // namespace

frmOptions::frmOptions(Application& app) : Window("frmOptions"), app_(app) {
    SetCaption("Options");
    fraGeneral.SetCaption("General");
    chkSaveOnExit.SetCaption("Save Settings on Exit");
    chkUseNotepad.SetCaption("Use Notepad to View Entry Files");
    fraEntryFile.SetCaption("Entry File");
    chkEntFileIncludeDescription.SetCaption("Include Detailed Descriptions");
    cmdOK.SetCaption("OK");
    cmdCancel.SetCaption("Cancel");
    Register("fraGeneral", fraGeneral);
    Register("chkSaveOnExit", chkSaveOnExit);
    Register("chkUseNotepad", chkUseNotepad);
    Register("fraEntryFile", fraEntryFile);
    Register("chkEntFileIncludeDescription", chkEntFileIncludeDescription);
    Register("cmdOK", cmdOK);
    Register("cmdCancel", cmdCancel);
    cmdOK.OnClick = [this] { cmdOK_Click(); };
    cmdCancel.OnClick = [this] { cmdCancel_Click(); };
}

void frmOptions::Form_Load() {
    PlatformServices& services = app_.Services();
    const std::string saveOnExit = services.GetSetting(kApp, "Option", "SaveOnExit", "");
    chkSaveOnExit.SetValue(saveOnExit.empty() ? 1 : CheckValue(Val(saveOnExit)));
    chkUseNotepad.SetValue(CheckValue(Val(services.GetSetting(kApp, "Option", "UseNotepad", "0"))));
    frmMain& main = app_.Main();
    if (main.mnuViewDebugWindow.Enabled()) {
        chkEntFileIncludeDescription.SetEnabled(true);
        chkEntFileIncludeDescription.SetValue(main.mblnSaveEntryFileDescription ? 1 : 0);
    } else {
        chkEntFileIncludeDescription.SetValue(0);
        chkEntFileIncludeDescription.SetEnabled(false);
    }
}

void frmOptions::cmdOK_Click() {
    app_.Main().mblnSaveEntryFileDescription = chkEntFileIncludeDescription.Value() != 0;
    PlatformServices& services = app_.Services();
    services.SaveSetting(kApp, "Option", "SaveOnExit", std::to_string(chkSaveOnExit.Value()));
    services.SaveSetting(kApp, "Option", "UseNotepad", std::to_string(chkUseNotepad.Value()));
    Unload();
}

void frmOptions::cmdCancel_Click() {
    Unload();
}

void frmOptions::Unload() {
    unloaded_ = true;
    SetVisible(false);
}

}  // namespace pendulon
