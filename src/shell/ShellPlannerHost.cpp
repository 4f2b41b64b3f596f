#include "shell/ShellPlannerHost.hpp"

#include "platform/OptionButton.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {

void ShellPlannerHost::StartRun(Application& app) const {
    app.Main().MDIForm_Load("");
}

Configurator* ShellPlannerHost::NewDocument(Application& app, const std::string& device,
                                            std::string& error) const {
    return NewDocumentAsUser(app, device, error);
}

Configurator* ShellPlannerHost::NewDocumentAsUser(Application& app, const std::string& device,
                                                  std::string& error) {
    frmDevice& form = app.DeviceForm();
    auto* option = form.Fields().FindAs<OptionButton>("opt" + device);
    if (option == nullptr) {
        error = "unknown device '" + device + "'";
        return nullptr;
    }
    Configurator* before = app.Document();
    form.CreateNew(true);
    option->SetValue(true);
    form.cmdOK_Click();
    if (app.Document() == nullptr || app.Document() == before) {
        error = "the " + device + " document did not load";
        return nullptr;
    }
    return app.Document();
}

}  // namespace pendulon
