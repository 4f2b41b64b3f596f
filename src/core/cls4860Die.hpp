#pragma once
#include <array>
#include <vector>

#include "platform/ErrorReport.hpp"

namespace pendulon {

// The one-PLL die of the QX4860 and QX6105A families. Each supply voltage keeps its own
// limits; exactly 3.3 selects the 3 V set, any other voltage the 5 V set. Limit arrays hold the
// VCO limit in MHz, P and Q at elements 0, 1 and 2.
class cls4860Die {
  public:
    explicit cls4860Die(ErrorReport& errors);

    double mdblVoltage = 5.0;
    double mdblMinP3V = 0;
    double mdblMinQ3V = 0;
    double mdblMaxP3V = 0;
    double mdblMaxQ3V = 0;
    double mdblMinP5V = 0;
    double mdblMinQ5V = 0;
    double mdblMaxP5V = 0;
    double mdblMaxQ5V = 0;
    double mdblPLLMax3V = 0;
    double mdblPLLMin3V = 0;
    double mdblPLLMax5V = 0;
    double mdblPLLMin5V = 0;
    double mdblDefaultPLLMaximum3V = 0;
    double mdblDefaultPLLMinimum3V = 0;
    double mdblDefaultPLLMaximum5V = 0;
    double mdblDefaultPLLMinimum5V = 0;

    static constexpr double kMinP = 5;
    static constexpr double kMaxP = 256;
    static constexpr double kMinQ = 2;
    static constexpr double kMaxQ = 128;
    static constexpr size_t kElements = 3;

    void GetCurrentLimits(std::vector<double>& adblMinimum, std::vector<double>& adblMaximum);
    void GetDefaultLimits(std::vector<double>& adblMinimum, std::vector<double>& adblMaximum);
    double MaximumP() const;
    // A frequency in MHz, in spite of the name.
    double MaximumPLLVoltage() const;
    double MaximumQ() const;
    double MinimumP() const;
    double MinimumPLLVoltage() const;
    double MinimumQ() const;
    // VCO minimum and maximum defaults; element 0 for 3 V, element 1 for 5 V.
    void SetDefaultLimits(const std::array<double, 2>& adblPLLMinimum,
                          const std::array<double, 2>& adblPLLMaximum);
    void SetNewLimits(const std::vector<double>& adblMinimum,
                      const std::vector<double>& adblMaximum);

  private:
    bool Is3V() const { return mdblVoltage == 3.3; }
    ErrorReport& errors_;
};

}  // namespace pendulon
