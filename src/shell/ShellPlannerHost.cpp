#include "shell/ShellPlannerHost.hpp"

#include "platform/OptionButton.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {

std::unique_ptr<AppServices> ShellPlannerHost::StartRun(PlatformServices& platform) const {
    auto app = std::make_unique<Application>(platform);
    app->Main().MDIForm_Load("");
    return app;
}

Configurator* ShellPlannerHost::NewDocument(AppServices& app, const std::string& device,
                                            std::string& error) const {
    return NewDocumentAsUser(app, device, error);
}

Configurator* ShellPlannerHost::NewDocumentAsUser(AppServices& app, const std::string& device,
                                                  std::string& error) {
    DeviceFace& form = app.DeviceForm();
    OptionButton* option = form.OptionFor(device);
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
