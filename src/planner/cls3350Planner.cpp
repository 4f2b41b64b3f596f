#include "planner/cls3350Planner.hpp"

#include "configurators/frmQX3350.hpp"
#include "core/cls3350Die.hpp"

namespace pendulon {

cls3350Planner::cls3350Planner(const PlannerHost& host, const std::string& device)
    : clsOneLoopPlanner(host, device,
                        {{{"CLKOUT", "cboClockDivisors", "lblDesiredClock", "cboActual"}},
                         "txtPLL",
                         "cboPLLData"}) {}

void cls3350Planner::OutputRange(Configurator& document, double& minimum, double& maximum) const {
    minimum = frmQX3350::kOutputMinimum;
    maximum = static_cast<frmQX3350&>(document).OutputMaximum();
}

std::vector<PlanAction> cls3350Planner::ReferenceActions(Configurator& document,
                                                         double reference) const {
    std::vector<PlanAction> actions;
    // A crystal where one can be used, else an external clock.
    if (reference < frmQX3350::kCrystalMinimum || reference > frmQX3350::kCrystalMaximum) {
        if (!static_cast<frmQX3350&>(document).optExternal.Value())
            actions.push_back(PlanAction::Click("optExternal"));
    }
    const std::vector<PlanAction> typed = clsOneLoopPlanner::ReferenceActions(document, reference);
    actions.insert(actions.end(), typed.begin(), typed.end());
    return actions;
}

void cls3350Planner::LoopRange(Configurator& document, double& minimum, double& maximum) const {
    cls3350Die& die = static_cast<frmQX3350&>(document).Die();
    minimum = die.MinimumPLLVoltage();
    maximum = die.MaximumPLLVoltage();
}

clsPLL& cls3350Planner::Loop(Configurator& document) const {
    return static_cast<frmQX3350&>(document).PLL();
}

}  // namespace pendulon
