#pragma once
#include <map>
#include <string>
#include <vector>

#include "planner/clsPlan.hpp"
#include "planner/clsPlanResult.hpp"

namespace pendulon::test {

// A plan of wanted outputs from a reference at a voltage; 0 for the reference is any.
clsPlan MakePlan(double reference, double voltage, std::vector<double> outputs,
                 std::int32_t tolerance = -1);
// The ranked results of a plan over the devices it names, run once per test program.
const std::vector<clsPlanResult>& Planned(const clsPlan& plan);
// The result of one device, or nullptr.
const clsPlanResult* ResultOf(const std::vector<clsPlanResult>& results, const std::string& device);
// The devices in ranking order.
std::vector<std::string> Order(const std::vector<clsPlanResult>& results);
// The devices that serve, in ranking order.
std::vector<std::string> Serving(const std::vector<clsPlanResult>& results);

}  // namespace pendulon::test
