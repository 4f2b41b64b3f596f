#pragma once
#include <string>
#include <vector>

namespace pendulon::cli {

// pendulon-cli plan: the frequency planner.
extern const char* const kPlanUsage;
extern const char* const kPlanSummary;
int RunPlan(const std::vector<std::string>& args);

}  // namespace pendulon::cli
