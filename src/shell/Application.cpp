#include "shell/Application.hpp"

#include "app/Configurator.hpp"
#include "power/frmPower.hpp"
#include "shell/ConfiguratorFactory.hpp"
#include "wizard/frmDecisionTree.hpp"

namespace pendulon {

Application::Application(PlatformServices& services) : AppServices(services) {
    main_ = std::make_unique<frmMain>(*this);
    device_ = std::make_unique<frmDevice>(*this);
    summary_ = std::make_unique<frmSummary>(*this);
    power_ = std::make_unique<frmPower>(*this);
    power_->Clear();
    power_->SetParentForm(nullptr);
    ShowDecisionTree = [this] { frmDecisionTree::Show(*this); };
}

Application::~Application() {
    // Children go before the lasting windows they refer to.
    CloseChildren();
}

std::unique_ptr<Configurator> Application::CreateConfigurator(const std::string& device) {
    return pendulon::CreateConfigurator(*this, device);
}

void Application::DocumentUnloaded(Configurator& document) {
    if (power_->ParentForm() == &document)
        power_->SetParentForm(nullptr);
}

}  // namespace pendulon
