#pragma once
#include "planner/clsOneLoopPlanner.hpp"

namespace pendulon {

// The QX3350 and QX3350I: one output, CLKOUT, from the PLL (whose field holds the VCO frequency
// itself) or the reference, divided by 1 to 128. The clock source is a crystal, or an external
// clock for a reference outside the crystal's range. The device has no power model.
class cls3350Planner : public clsOneLoopPlanner {
  public:
    cls3350Planner(const PlannerHost& host, const std::string& device);

  protected:
    void OutputRange(Configurator& document, double& minimum, double& maximum) const override;
    std::vector<PlanAction> ReferenceActions(Configurator& document,
                                             double reference) const override;
    void LoopRange(Configurator& document, double& minimum, double& maximum) const override;
    clsPLL& Loop(Configurator& document) const override;
};

}  // namespace pendulon
