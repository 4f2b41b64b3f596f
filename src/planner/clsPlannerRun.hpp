#pragma once
#include <memory>
#include <string>
#include <vector>

#include "planner/clsPlanResult.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/TextMetrics.hpp"

namespace pendulon {

class AppServices;
class Configurator;
class PlannerHost;

// A run of the program without a display, in which the planner opens documents of one device
// and works in their windows as a user does. A run belongs to one thread: the windows of one
// application are never shared between threads.
class clsPlannerRun {
  public:
    clsPlannerRun(const PlannerHost& host, std::string device);
    ~clsPlannerRun();
    clsPlannerRun(const clsPlannerRun&) = delete;
    clsPlannerRun& operator=(const clsPlannerRun&) = delete;

    AppServices& App() { return *app_; }
    const std::string& Device() const { return device_; }

    // A new document of the device, made as File, New makes it; the document before it goes
    // without the close question. nullptr, with the reason in error, when none was made.
    Configurator* NewDocument(std::string& error);
    Configurator* Document() const;
    // The error reports (critical message boxes) the run has shown so far.
    size_t ErrorReports() const;
    // The text of the last error report, or an empty text.
    std::string LastErrorReport() const;

    // Does what the actions say in the document's window, in order, as a user does it. Stops at
    // the first action that cannot be done and returns false with the reason in error.
    static bool Apply(Configurator& document, const std::vector<PlanAction>& actions,
                      std::string& error);

  private:
    const PlannerHost& host_;
    std::string device_;
    HeadlessPlatform platform_;
    // The run's pictures are measured as its platform measures, not in the screen's fonts.
    ThreadTextMetrics metrics_{platform_.Metrics()};
    std::unique_ptr<AppServices> app_;
};

}  // namespace pendulon
