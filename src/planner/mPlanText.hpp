#pragma once
#include <string>
#include <vector>

#include "planner/clsPlan.hpp"
#include "planner/clsPlanResult.hpp"

namespace pendulon {

// The texts of a plan and its results, as the planner window lists them and the command line
// prints them.
namespace mPlanText {

// "33.333, 48 and 24.576 MHz from 14.31818 MHz at 3.3 V, the best each device reaches".
std::string PlanLine(const clsPlan& plan);
// The column heads of Row.
std::string Heading();
// One result in fixed columns: rank (empty for a device that does not serve), device, pins,
// worst ppm, typical and worst current, reference; or the reason it does not serve.
std::string Row(const clsPlanResult& result, int rank);
// The selected result in full: per output its pin, source, actual frequency and ppm; per loop
// its target, P, Q and VCO; the current; the limit checks; what a user sets to make it.
std::vector<std::string> Details(const clsPlanResult& result);
// A current in mA as the tables show it: two decimals.
std::string Milliamperes(double current);

}  // namespace mPlanText

}  // namespace pendulon
