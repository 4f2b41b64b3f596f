#include "planner/clsPlanResult.hpp"

namespace pendulon {

std::string PlanAction::CommandLine() const {
    if (blnClick)
        return "--click " + strField;
    return "--set " + strField + "=" + strText;
}

}  // namespace pendulon
