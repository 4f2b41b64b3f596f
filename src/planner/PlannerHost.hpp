#pragma once
#include <memory>
#include <string>

namespace pendulon {

class AppServices;
class Configurator;
class PlatformServices;

// What the frequency planner asks of the program around it: to start a run of the program, as
// the program starts, on the headless platform the planner gives it, and to make a new document
// of a device as File, New makes it.
class PlannerHost {
  public:
    virtual ~PlannerHost() = default;

    // A run of the program the planner tries devices in, started as the program starts, on the
    // platform the planner gives it; it has no window on any screen.
    virtual std::unique_ptr<AppServices> StartRun(PlatformServices& platform) const = 0;
    // File, New with the device chosen in the device window: the new document, or nullptr, with
    // the reason in error, when none was opened (an unknown device, or the close question of the
    // open document answered Cancel).
    virtual Configurator* NewDocument(AppServices& app, const std::string& device,
                                      std::string& error) const = 0;
};

}  // namespace pendulon
