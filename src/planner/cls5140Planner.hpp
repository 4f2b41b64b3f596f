#pragma once
#include <string>
#include <vector>

#include "planner/clsDevicePlanner.hpp"

namespace pendulon {

// The QX5140: the wanted outputs go to CLKA, CLKB and CLKC in order, and the window's own case
// search assigns the reference, the loops and the dividers. Each case the search finds is
// shown by pressing Calculate again, and read as the window shows it. The search is run with
// its defaults, with a private loop for every output, and each of these with a sensitivity
// that admits only an exact reference or an exactly shared loop (and with the plan's tolerance
// as the sensitivity, when it has one).
class cls5140Planner : public clsDevicePlanner {
  public:
    cls5140Planner(const PlannerHost& host, const std::string& device);

  protected:
    int OutputCount(Configurator& document) const override;
    void OutputRange(Configurator& document, double& minimum, double& maximum) const override;
    std::vector<Candidate> Candidates(const Context& context, std::string& reason) override;
    void Read(Configurator& document, const std::vector<double>& wanted,
              const std::vector<std::string>& pins, clsPlanResult& result,
              std::string& problem) const override;

  private:
    struct Pin {
        std::string strName;
        std::string strDesired;
        std::string strActual;
        std::string strSource;
        std::string strPrivate;
    };
    std::vector<Pin> pins_;
};

}  // namespace pendulon
