#include "shell/frmSplash.hpp"

#include "shell/Application.hpp"

namespace pendulon {

frmSplash::frmSplash(Application& app) : Window("frmSplash") {
    SetCaption(app.gstrTitle);
    Register("picSplash", picSplash);
}

void frmSplash::Form_Load() {
    unloaded_ = false;
    tmrSplashEnabled = true;
}

void frmSplash::tmrSplash_Timer() {
    Unload();
}

void frmSplash::Form_QueryUnload() {
    Unload();
}

void frmSplash::Unload() {
    tmrSplashEnabled = false;
    unloaded_ = true;
    SetVisible(false);
}

}  // namespace pendulon
