#pragma once
#include <string>

namespace pendulon {

class Application;
class Configurator;

// What the frequency planner asks of the program around it: to start a run of the program, as
// the program starts, on the headless platform the planner gives it, and to make a new document
// of a device as File, New makes it.
class PlannerHost {
  public:
    virtual ~PlannerHost() = default;

    // Start-up of a run the planner tries devices in; it has no window on any screen.
    virtual void StartRun(Application& app) const = 0;
    // File, New with the device chosen in the device window: the new document, or nullptr, with
    // the reason in error, when none was opened (an unknown device, or the close question of the
    // open document answered Cancel).
    virtual Configurator* NewDocument(Application& app, const std::string& device,
                                      std::string& error) const = 0;
};

}  // namespace pendulon
