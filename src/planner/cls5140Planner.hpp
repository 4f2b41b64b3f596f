#pragma once
#include <string>
#include <vector>

#include "planner/clsDevicePlanner.hpp"

namespace pendulon {

// The QX5140: the wanted outputs go to CLKA, CLKB and CLKC in order, and the window's own case
// search assigns the reference, the loops and the dividers. Each case the search finds is
// shown by pressing Calculate again, and read as the window shows it. The search runs as a new
// window has it (no private loops, the sensitivity of 1000 ppm): the entry file keeps neither,
// and a file opened again repeats the search and looks for its case among those of that search.
// A case is taken only if its entry file opens on it again.
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
    // The window's entry file, written and read back in memory and filled into a new document
    // as File, Open fills it: the case that document shows must be the one saved.
    std::string ReopenProblem(clsPlannerRun& run, Configurator& document,
                              const clsPlanResult& reading) const override;

  private:
    std::vector<Pin> pins_;
};

}  // namespace pendulon
