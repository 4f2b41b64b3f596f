#pragma once
#include <map>
#include <string>
#include <vector>

#include "planner/clsDevicePlanner.hpp"

namespace pendulon {

class frmQX7311;

// The QX7311 and QX7312 families: the outputs CPU, CLKA to CLKD, CLKF (QX7311 models only) and
// XBUF, each with a list of sources: the reference, CPLL (its first select row), SPLL or UPLL,
// through a divider of that list. Each loop has one desired frequency, so outputs that share a
// loop must each be that frequency divided by a divider of their list, to the five decimals
// the window shows. The loops are solved in the window first; then outputs go to loops and
// pins, and the assignments with the smallest worst |ppm| are tried as a whole.
class cls7311Planner : public clsDevicePlanner {
  public:
    cls7311Planner(const PlannerHost& host, const std::string& device);

  protected:
    int OutputCount(Configurator& document) const override;
    void OutputRange(Configurator& document, double& minimum, double& maximum) const override;
    std::vector<Candidate> Candidates(const Context& context, std::string& reason) override;
    void Read(Configurator& document, const std::vector<double>& wanted,
              const std::vector<std::string>& pins, clsPlanResult& result,
              std::string& problem) const override;

  private:
    // A loop and its fields: desired frequency, actual frequency with PPM, data list.
    struct Loop {
        char chrLetter;
        std::string strName;
        std::string strField;
        std::string strActual;
        std::string strData;
    };
    static const std::vector<Loop>& Loops();
    static const Loop& LoopOf(char letter);
    static void LoopRange(frmQX7311& form, char letter, double& minimum, double& maximum);
    // The |ppm| the window shows for each loop frequency, solved in one of the run's documents.
    std::map<std::pair<char, std::string>, std::int32_t> SolveLoops(
        const Context& context, const std::map<char, std::vector<std::string>>& texts) const;

    std::vector<Pin> pins_;
};

}  // namespace pendulon
