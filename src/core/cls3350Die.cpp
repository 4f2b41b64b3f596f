#include "core/cls3350Die.hpp"

#include "core/OnePLLDieLimits.hpp"

namespace pendulon {

cls3350Die::cls3350Die(ErrorReport& errors) : errors_(errors) {
    SetDefaultLimits();
}

void cls3350Die::GetCurrentLimits(std::vector<double>& adblMinimum,
                                  std::vector<double>& adblMaximum) {
    OnePLLDieLimits::GetCurrent(*this, Is3V(), adblMinimum, adblMaximum, errors_,
                                "cls3350Die.GetCurrentLimits");
}

void cls3350Die::GetDefaultLimits(std::vector<double>& adblMinimum,
                                  std::vector<double>& adblMaximum) {
    OnePLLDieLimits::GetDefault(*this, Is3V(), adblMinimum, adblMaximum, errors_,
                                "cls3350Die.GetDefaultLimits");
}

double cls3350Die::MaximumP() const {
    return Is3V() ? mdblMaxP3V : mdblMaxP5V;
}
double cls3350Die::MaximumPLLVoltage() const {
    return Is3V() ? mdblPLLMax3V : mdblPLLMax5V;
}
double cls3350Die::MaximumQ() const {
    return Is3V() ? mdblMaxQ3V : mdblMaxQ5V;
}
double cls3350Die::MinimumP() const {
    return Is3V() ? mdblMinP3V : mdblMinP5V;
}
double cls3350Die::MinimumPLLVoltage() const {
    return Is3V() ? mdblPLLMin3V : mdblPLLMin5V;
}
double cls3350Die::MinimumQ() const {
    return Is3V() ? mdblMinQ3V : mdblMinQ5V;
}

void cls3350Die::SetDefaultLimits() {
    mdblDefaultPLLMinimum3V = kVCOMinimum3V;
    mdblDefaultPLLMinimum5V = kVCOMinimum5V;
    mdblDefaultPLLMaximum3V = kVCOMaximum3V;
    mdblDefaultPLLMaximum5V = kVCOMaximum5V;
    OnePLLDieLimits::ResetToDefaults(*this);
}

void cls3350Die::SetNewLimits(const std::vector<double>& adblMinimum,
                              const std::vector<double>& adblMaximum) {
    OnePLLDieLimits::SetNew(*this, Is3V(), adblMinimum, adblMaximum, errors_,
                            "cls3350Die.SetNewLimits");
}

}  // namespace pendulon
