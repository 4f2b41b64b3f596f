#include "power/frmPower.hpp"

#include "configurators/Configurator.hpp"
#include "shell/Application.hpp"

namespace pendulon {

frmPower::frmPower(Application& app) : Window("frmPower"), app_(app) {
    Register("lblCaption", lblCaption);
    Register("lblClose", lblClose);
    Register("lblHead", lblHead);
    Register("lstPower", lstPower);
    Register("lblFootnote", lblFootnote);
    Register("cmdCalculate", cmdCalculate);
    lblClose.SetCaption("X");
}

void frmPower::CalculatePower() {
    if (mobjParentForm != nullptr) mobjParentForm->CalculatePower();
}

void frmPower::Clear() { lstPower.Clear(); }

}  // namespace pendulon
