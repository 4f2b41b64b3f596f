#include "shell/frmAbout.hpp"

#include "shell/Application.hpp"

namespace pendulon {

frmAbout::frmAbout(Application& app) : Window("frmAbout"), app_(app) {
    SetCaption("About Pendulon");
    lblVARNHOL.SetCaption("VARNHOL");
    lblDivision.SetCaption("Marlin Works");
    lblAppName.SetCaption("Pendulon");
    lblCompany.SetCaption("VARNHOL Marlin Works");
    lblContact1.SetCaption("Technical support: clock applications team");
    lblContact2.SetCaption("Ask your field application engineer for design help.");
    cmdClose.SetCaption("&Close");
    Register("picLogo", picLogo);
    Register("lblVARNHOL", lblVARNHOL);
    Register("lblDivision", lblDivision);
    Register("lblAppName", lblAppName);
    Register("lblVersion", lblVersion);
    Register("lblCompany", lblCompany);
    Register("lblContact1", lblContact1);
    Register("lblContact2", lblContact2);
    Register("cmdClose", cmdClose);
    cmdClose.OnClick = [this] { cmdClose_Click(); };
}

void frmAbout::Form_Load() {
    lblAppName.SetCaption(app_.gstrTitleTM);
    lblVersion.SetCaption(app_.gstrBuild);
}

void frmAbout::cmdClose_Click() {
    unloaded_ = true;
    SetVisible(false);
}

}  // namespace pendulon
