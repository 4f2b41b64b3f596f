#pragma once
#include <atomic>
#include <cstddef>
#include <memory>
#include <thread>
#include <vector>

#include "planner/clsPlan.hpp"
#include "planner/clsPlanResult.hpp"

namespace pendulon {

class PlannerHost;

// Runs a plan over the devices it names and ranks what they make of it. Each device is tried
// in runs of its own (clsDevicePlanner), so devices can be tried on several threads at once:
// no window is shared between threads, and the ranking does not depend on the order in which
// the devices finish.
//
// Ranking: the devices that serve the plan first, by worst |ppm|, then by typical supply
// current (a device without a power model after those with one), then by fewer pins; then the
// devices that do not serve it. Ties keep the order of the device window.
class clsFrequencyPlanner {
  public:
    explicit clsFrequencyPlanner(const PlannerHost& host);
    // Cancels the plan and waits for the threads.
    ~clsFrequencyPlanner();
    clsFrequencyPlanner(const clsFrequencyPlanner&) = delete;
    clsFrequencyPlanner& operator=(const clsFrequencyPlanner&) = delete;

    // Starts the plan on threads (0: as many as the machine has cores) and returns at once.
    // The plan must be valid (clsPlan::Problem is empty). A plan still running is cancelled
    // first.
    void Start(const clsPlan& plan, unsigned threads = 0);
    // Asks the threads to stop; they stop between two configurations.
    void Cancel();
    // Waits for the threads.
    void Wait();
    bool Running() const { return active_ > 0; }
    // Every thread has stopped: the plan is done, or was cancelled.
    bool Finished() const { return active_ == 0; }
    bool Cancelled() const { return cancel_; }
    // Devices done so far, and devices in the plan.
    size_t DevicesDone() const { return done_; }
    size_t DeviceCount() const { return results_.size(); }
    // The ranked results, each device tried once; empty while running or after a cancel.
    std::vector<clsPlanResult> Results();

    // Runs a plan to its end on this many threads and returns the ranked results.
    static std::vector<clsPlanResult> Run(const PlannerHost& host, const clsPlan& plan,
                                          unsigned threads = 0);
    // Puts results in the ranking order, leaving out devices the plan's filters exclude.
    static void Rank(std::vector<clsPlanResult>& results);

  private:
    void Work();

    const PlannerHost& host_;
    clsPlan plan_;
    std::vector<std::string> devices_;
    std::vector<clsPlanResult> results_;
    std::vector<std::thread> threads_;
    std::atomic<bool> cancel_{false};
    std::atomic<size_t> next_{0};
    std::atomic<size_t> done_{0};
    // Threads still working.
    std::atomic<unsigned> active_{0};
};

}  // namespace pendulon
