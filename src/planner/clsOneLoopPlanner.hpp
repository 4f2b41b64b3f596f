#pragma once
#include <string>
#include <vector>

#include "planner/clsDevicePlanner.hpp"

namespace pendulon {

class clsPLL;

// The devices with one PLL whose outputs each take the reference or the PLL through a divider
// of their own list: the QX6105A family (three outputs), the QX4860 family (two) and the QX3350
// (one). The window has one desired PLL frequency, so outputs on the PLL share it: each must
// be that frequency divided by a divider of its list, to the five decimals the window shows.
class clsOneLoopPlanner : public clsDevicePlanner {
  public:
    // The fields of the loop: its desired frequency and its data list.
    struct Layout {
        std::vector<Pin> aPins;
        std::string strLoopField;
        std::string strDataList;
    };

  protected:
    clsOneLoopPlanner(const PlannerHost& host, std::string device, Layout layout);

    // The range the loop's frequency field keeps a typed value in, at the present voltage.
    virtual void LoopRange(Configurator& document, double& minimum, double& maximum) const = 0;
    // The window's loop, whose parsers read its data list.
    virtual clsPLL& Loop(Configurator& document) const = 0;

    int OutputCount(Configurator& document) const override;
    std::vector<Candidate> Candidates(const Context& context, std::string& reason) override;
    void Read(Configurator& document, const std::vector<double>& wanted,
              const std::vector<std::string>& pins, clsPlanResult& result,
              std::string& problem) const override;

  private:
    Layout layout_;
};

}  // namespace pendulon
