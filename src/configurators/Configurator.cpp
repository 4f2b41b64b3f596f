#include "configurators/Configurator.hpp"

#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {

Configurator::Configurator(Application& app, std::string formName)
    : LimitForm(std::move(formName)), app_(app) {
    txtFilePath.SetVisible(false);
    cboFRef.SetAllowsFreeText(true);
    cmdCalculate.SetCaption("C&alculate");
}

Configurator::~Configurator() = default;

bool Configurator::PreScale(int) const {
    return false;
}
void Configurator::SetPreScale(int, bool) {}

bool Configurator::Form_QueryUnload(int unloadMode) {
    bool cancel = false;
    if (unloadMode == kUnloadFormCode && mUnloadRequired) {
        cancel = false;
    } else {
        cancel = app_.Main().CancelChildUnload();
    }
    if (!cancel)
        app_.Main().InitializeMenu(true);
    if (cancel)
        app_.DeviceForm().cmdCancel_Click();
    return cancel;
}

}  // namespace pendulon
