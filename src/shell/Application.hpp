#pragma once
#include <functional>
#include <memory>
#include <string>

#include "app/AppServices.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"

namespace pendulon {

// The running program: its platform, its globals, the lasting windows and the children. It
// owns the lasting windows and answers what the other windows ask of it (AppServices) with
// them. There is no other global state, so a test can build as many applications as it likes.
class Application : public AppServices {
  public:
    explicit Application(PlatformServices& services);
    ~Application() override;

    // The lasting windows; they live from start to exit.
    frmMain& Main() override { return *main_; }
    frmDevice& DeviceForm() override { return *device_; }
    frmSummary& Summary() override { return *summary_; }
    frmPower& Power() override { return *power_; }

    // The device table's window for the device, or the one ConfiguratorFactory makes.
    std::unique_ptr<Configurator> CreateConfigurator(const std::string& device) override;
    // Creates the window of a device; when unset, the built-in device table is used. Tests and
    // the command line may put their own in.
    std::function<std::unique_ptr<Configurator>(Application&, const std::string&)>
        ConfiguratorFactory;

  private:
    void DocumentUnloaded(Configurator& document) override;

    std::unique_ptr<frmMain> main_;
    std::unique_ptr<frmDevice> device_;
    std::unique_ptr<frmSummary> summary_;
    std::unique_ptr<frmPower> power_;
};

}  // namespace pendulon
