#pragma once
#include "planner/clsOneLoopPlanner.hpp"

namespace pendulon {

// The QX6105A family (CLKA, CLKB, CLKC; pin 8 an output enable, so one PLL frequency) and the
// QX4860 family (CLKA and REFCLK, in the 8-pin package unless the plan asks for 14 pins; the
// frequency of the first select row, which the window copies into the other rows).
class cls4860FamilyPlanner : public clsOneLoopPlanner {
  public:
    cls4860FamilyPlanner(const PlannerHost& host, const std::string& device);

  protected:
    void OutputRange(Configurator& document, double& minimum, double& maximum) const override;
    std::vector<PlanAction> PackageActions(Configurator& document,
                                           const clsPlan& plan) const override;
    void LoopRange(Configurator& document, double& minimum, double& maximum) const override;
    clsPLL& Loop(Configurator& document) const override;
};

}  // namespace pendulon
