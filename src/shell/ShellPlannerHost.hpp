#pragma once
#include <string>

#include "planner/PlannerHost.hpp"

namespace pendulon {

// The frequency planner's way into the program: a run starts as the program does with no file
// named, and a new document comes from the device window's OK, as File, New makes it.
class ShellPlannerHost : public PlannerHost {
  public:
    std::unique_ptr<AppServices> StartRun(PlatformServices& platform) const override;
    Configurator* NewDocument(AppServices& app, const std::string& device,
                              std::string& error) const override;

    // File, New for the device: the device window opens for a new document, the user picks
    // the device and presses OK.
    static Configurator* NewDocumentAsUser(AppServices& app, const std::string& device,
                                           std::string& error);
};

}  // namespace pendulon
