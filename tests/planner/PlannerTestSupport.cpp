#include "planner/PlannerTestSupport.hpp"

#include "planner/clsFrequencyPlanner.hpp"
#include "shell/ShellPlannerHost.hpp"

namespace pendulon::test {

clsPlan MakePlan(double reference, double voltage, std::vector<double> outputs,
                 std::int32_t tolerance) {
    clsPlan plan;
    plan.dblReference = reference;
    plan.dblVoltage = voltage;
    plan.adblOutputs = std::move(outputs);
    plan.lngTolerancePPM = tolerance;
    return plan;
}

const std::vector<clsPlanResult>& Planned(const clsPlan& plan) {
    static std::map<std::string, std::vector<clsPlanResult>> cache;
    std::string key = std::to_string(plan.dblReference) + "/" + std::to_string(plan.dblVoltage) +
                      "/" + std::to_string(plan.lngTolerancePPM) + "/" +
                      std::to_string(plan.intPins) + "/";
    for (const double output : plan.adblOutputs) key += std::to_string(output) + ",";
    for (const std::string& device : plan.astrDevices) key += device + ",";
    auto it = cache.find(key);
    if (it == cache.end()) {
        const ShellPlannerHost host;
        it = cache.emplace(key, clsFrequencyPlanner::Run(host, plan)).first;
    }
    return it->second;
}

const clsPlanResult* ResultOf(const std::vector<clsPlanResult>& results,
                              const std::string& device) {
    for (const clsPlanResult& result : results)
        if (result.strDevice == device)
            return &result;
    return nullptr;
}

std::vector<std::string> Order(const std::vector<clsPlanResult>& results) {
    std::vector<std::string> devices;
    for (const clsPlanResult& result : results) devices.push_back(result.strDevice);
    return devices;
}

std::vector<std::string> Serving(const std::vector<clsPlanResult>& results) {
    std::vector<std::string> devices;
    for (const clsPlanResult& result : results)
        if (result.blnServes)
            devices.push_back(result.strDevice);
    return devices;
}

}  // namespace pendulon::test
