#include "core/cls4860Die.hpp"

#include "core/OnePLLDieLimits.hpp"

namespace pendulon {

cls4860Die::cls4860Die(ErrorReport& errors) : errors_(errors) {}

void cls4860Die::GetCurrentLimits(std::vector<double>& adblMinimum,
                                  std::vector<double>& adblMaximum) {
    OnePLLDieLimits::GetCurrent(*this, Is3V(), adblMinimum, adblMaximum, errors_,
                                "cls4860Die.GetCurrentLimits");
}

void cls4860Die::GetDefaultLimits(std::vector<double>& adblMinimum,
                                  std::vector<double>& adblMaximum) {
    OnePLLDieLimits::GetDefault(*this, Is3V(), adblMinimum, adblMaximum, errors_,
                                "cls4860Die.GetDefaultLimits");
}

double cls4860Die::MaximumP() const {
    return Is3V() ? mdblMaxP3V : mdblMaxP5V;
}
double cls4860Die::MaximumPLLVoltage() const {
    return Is3V() ? mdblPLLMax3V : mdblPLLMax5V;
}
double cls4860Die::MaximumQ() const {
    return Is3V() ? mdblMaxQ3V : mdblMaxQ5V;
}
double cls4860Die::MinimumP() const {
    return Is3V() ? mdblMinP3V : mdblMinP5V;
}
double cls4860Die::MinimumPLLVoltage() const {
    return Is3V() ? mdblPLLMin3V : mdblPLLMin5V;
}
double cls4860Die::MinimumQ() const {
    return Is3V() ? mdblMinQ3V : mdblMinQ5V;
}

void cls4860Die::SetDefaultLimits(const std::array<double, 2>& adblPLLMinimum,
                                  const std::array<double, 2>& adblPLLMaximum) {
    mdblDefaultPLLMinimum3V = adblPLLMinimum[0];
    mdblDefaultPLLMinimum5V = adblPLLMinimum[1];
    mdblDefaultPLLMaximum3V = adblPLLMaximum[0];
    mdblDefaultPLLMaximum5V = adblPLLMaximum[1];
    OnePLLDieLimits::ResetToDefaults(*this);
}

void cls4860Die::SetNewLimits(const std::vector<double>& adblMinimum,
                              const std::vector<double>& adblMaximum) {
    OnePLLDieLimits::SetNew(*this, Is3V(), adblMinimum, adblMaximum, errors_,
                            "cls4860Die.SetNewLimits");
}

}  // namespace pendulon
