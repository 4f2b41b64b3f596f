#include "planner/clsFrequencyPlanner.hpp"

#include <algorithm>
#include <tuple>

#include "planner/clsDevicePlanner.hpp"

namespace pendulon {

clsFrequencyPlanner::clsFrequencyPlanner(const PlannerHost& host) : host_(host) {}

clsFrequencyPlanner::~clsFrequencyPlanner() {
    Cancel();
    Wait();
}

void clsFrequencyPlanner::Start(const clsPlan& plan, unsigned threads) {
    Cancel();
    Wait();
    plan_ = plan;
    devices_ = plan.Devices();
    results_.assign(devices_.size(), clsPlanResult{});
    cancel_ = false;
    next_ = 0;
    done_ = 0;
    if (threads == 0)
        threads = std::max(1u, std::thread::hardware_concurrency());
    threads =
        std::min<unsigned>(threads, static_cast<unsigned>(std::max<size_t>(1, devices_.size())));
    active_ = threads;
    for (unsigned i = 0; i < threads; ++i) threads_.emplace_back([this] { Work(); });
}

void clsFrequencyPlanner::Work() {
    // Each thread takes the next device not yet taken; a device's result goes to its own slot.
    for (;;) {
        const size_t index = next_++;
        if (index >= devices_.size() || cancel_)
            break;
        std::unique_ptr<clsDevicePlanner> planner =
            clsDevicePlanner::Create(host_, devices_[index]);
        results_[index] = planner->Plan(plan_, cancel_);
        ++done_;
    }
    --active_;
}

void clsFrequencyPlanner::Cancel() {
    cancel_ = true;
}

void clsFrequencyPlanner::Wait() {
    for (std::thread& thread : threads_)
        if (thread.joinable())
            thread.join();
    threads_.clear();
}

std::vector<clsPlanResult> clsFrequencyPlanner::Results() {
    if (cancel_ || done_ != devices_.size())
        return {};
    Wait();
    std::vector<clsPlanResult> ranked = results_;
    Rank(ranked);
    return ranked;
}

std::vector<clsPlanResult> clsFrequencyPlanner::Run(const PlannerHost& host, const clsPlan& plan,
                                                    unsigned threads) {
    clsFrequencyPlanner planner(host);
    planner.Start(plan, threads);
    planner.Wait();
    return planner.Results();
}

void clsFrequencyPlanner::Rank(std::vector<clsPlanResult>& results) {
    results.erase(std::remove_if(results.begin(), results.end(),
                                 [](const clsPlanResult& r) { return !r.blnTried; }),
                  results.end());
    const auto& devices = clsPlan::AllDevices();
    auto order = [&devices](const clsPlanResult& r) {
        return std::find(devices.begin(), devices.end(), r.strDevice) - devices.begin();
    };
    std::stable_sort(results.begin(), results.end(),
                     [&order](const clsPlanResult& a, const clsPlanResult& b) {
                         if (a.blnServes != b.blnServes)
                             return a.blnServes;
                         if (!a.blnServes)
                             return order(a) < order(b);
                         return std::make_tuple(a.lngWorstPPM, a.blnHasCurrent ? 0 : 1,
                                                a.blnHasCurrent ? a.dblTypicalCurrent : 0.0,
                                                a.intPins, order(a)) <
                                std::make_tuple(b.lngWorstPPM, b.blnHasCurrent ? 0 : 1,
                                                b.blnHasCurrent ? b.dblTypicalCurrent : 0.0,
                                                b.intPins, order(b));
                     });
}

}  // namespace pendulon
