#pragma once
#include <functional>
#include <vector>

#include "platform/ErrorReport.hpp"

namespace pendulon {

// The three-PLL die of the QX7311, QX7312 and QX5140: CPLL, UPLL and SPLL. Limit arrays have
// nine elements, three per loop in the order CPLL, UPLL, SPLL, each as VCO limit (MHz), P, Q.
// Exactly 3.3 V selects the 3 V fields, any other voltage the 5 V fields.
class cls7311Die {
  public:
    explicit cls7311Die(ErrorReport& errors);

    double mdblVoltage = 5.0;
    double mdblCPLLMinP3V = 0;
    double mdblCPLLMaxP3V = 0;
    double mdblCPLLMinQ3V = 0;
    double mdblCPLLMaxQ3V = 0;
    double mdblCPLLMinP5V = 0;
    double mdblCPLLMaxP5V = 0;
    double mdblCPLLMinQ5V = 0;
    double mdblCPLLMaxQ5V = 0;
    double mdblUPLLMinP3V = 0;
    double mdblUPLLMaxP3V = 0;
    double mdblUPLLMinQ3V = 0;
    double mdblUPLLMaxQ3V = 0;
    double mdblUPLLMinP5V = 0;
    double mdblUPLLMaxP5V = 0;
    double mdblUPLLMinQ5V = 0;
    double mdblUPLLMaxQ5V = 0;
    double mdblSPLLMinP3V = 0;
    double mdblSPLLMaxP3V = 0;
    double mdblSPLLMinQ3V = 0;
    double mdblSPLLMaxQ3V = 0;
    double mdblSPLLMinP5V = 0;
    double mdblSPLLMaxP5V = 0;
    double mdblSPLLMinQ5V = 0;
    double mdblSPLLMaxQ5V = 0;
    double mdblCPLLMax3V = 0;
    double mdblCPLLMin3V = 0;
    double mdblCPLLMax5V = 0;
    double mdblCPLLMin5V = 0;
    double mdblUPLLMax3V = 0;
    double mdblUPLLMin3V = 0;
    double mdblUPLLMax5V = 0;
    double mdblUPLLMin5V = 0;
    double mdblSPLLMax3V = 0;
    double mdblSPLLMin3V = 0;
    double mdblSPLLMax5V = 0;
    double mdblSPLLMin5V = 0;
    double mdblDefaultPLLMinimum3V = 0;
    double mdblDefaultPLLMaximum3V = 0;
    double mdblDefaultPLLMinimum5V = 0;
    double mdblDefaultPLLMaximum5V = 0;

    static constexpr size_t kElements = 9;

    void GetCurrentLimits(std::vector<double>& adblMinimum, std::vector<double>& adblMaximum);
    void GetDefaultLimits(std::vector<double>& adblMinimum, std::vector<double>& adblMaximum);
    // VCO limits in MHz at the present voltage, in spite of the names.
    double MaximumCPLLVoltage() const;
    double MaximumSPLLVoltage() const;
    double MaximumUPLLVoltage() const;
    double MinimumCPLLVoltage() const;
    double MinimumSPLLVoltage() const;
    double MinimumUPLLVoltage() const;
    // Copies the four default VCO fields into every loop at both voltages and restores the
    // counter defaults.
    void SetDefaultLimits();
    void SetNewLimits(const std::vector<double>& adblMinimum,
                      const std::vector<double>& adblMaximum);

  private:
    // The fields of one loop at one voltage.
    struct LoopFields {
        double* VCOMin;
        double* MinP;
        double* MinQ;
        double* VCOMax;
        double* MaxP;
        double* MaxQ;
    };
    // Loop 0 CPLL, 1 UPLL, 2 SPLL.
    LoopFields Loop(int loop, bool threeVolt);
    // Visits every limit of the present voltage with its element of a limit array: loop by
    // loop, the minimum VCO frequency, P and Q, then their maxima.
    void ForEachPresentLimit(
        const std::function<void(bool isMaximum, size_t element, double& limit)>& visit);
    bool Is3V() const { return mdblVoltage == 3.3; }
    ErrorReport& errors_;
};

}  // namespace pendulon
