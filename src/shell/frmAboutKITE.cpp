#include "shell/frmAboutKITE.hpp"

namespace pendulon {

frmAboutKITE::frmAboutKITE() : Window("frmAboutKITE") {
    SetCaption("About KITE");
    cmdClose.SetCaption("&Close");
    Register("picIcon", picIcon);
    Register("cmdClose", cmdClose);
    cmdClose.OnClick = [this] { cmdClose_Click(); };
}

void frmAboutKITE::cmdClose_Click() {
    unloaded_ = true;
    SetVisible(false);
}

}  // namespace pendulon
