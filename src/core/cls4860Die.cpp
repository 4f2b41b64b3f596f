#include "core/cls4860Die.hpp"

#include "core/LimitArray.hpp"

namespace pendulon {

cls4860Die::cls4860Die(ErrorReport& errors) : errors_(errors) {}

void cls4860Die::GetCurrentLimits(std::vector<double>& adblMinimum,
                                  std::vector<double>& adblMaximum) {
    const std::string source = "cls4860Die.GetCurrentLimits";
    const bool v3 = Is3V();
    LimitArray::Write(adblMinimum, 0, v3 ? mdblPLLMin3V : mdblPLLMin5V, errors_, source);
    LimitArray::Write(adblMinimum, 1, v3 ? mdblMinP3V : mdblMinP5V, errors_, source);
    LimitArray::Write(adblMinimum, 2, v3 ? mdblMinQ3V : mdblMinQ5V, errors_, source);
    LimitArray::Write(adblMaximum, 0, v3 ? mdblPLLMax3V : mdblPLLMax5V, errors_, source);
    LimitArray::Write(adblMaximum, 1, v3 ? mdblMaxP3V : mdblMaxP5V, errors_, source);
    LimitArray::Write(adblMaximum, 2, v3 ? mdblMaxQ3V : mdblMaxQ5V, errors_, source);
}

void cls4860Die::GetDefaultLimits(std::vector<double>& adblMinimum,
                                  std::vector<double>& adblMaximum) {
    const std::string source = "cls4860Die.GetDefaultLimits";
    const bool v3 = Is3V();
    LimitArray::Write(adblMinimum, 0, v3 ? mdblDefaultPLLMinimum3V : mdblDefaultPLLMinimum5V,
                      errors_, source);
    LimitArray::Write(adblMinimum, 1, kMinP, errors_, source);
    LimitArray::Write(adblMinimum, 2, kMinQ, errors_, source);
    LimitArray::Write(adblMaximum, 0, v3 ? mdblDefaultPLLMaximum3V : mdblDefaultPLLMaximum5V,
                      errors_, source);
    LimitArray::Write(adblMaximum, 1, kMaxP, errors_, source);
    LimitArray::Write(adblMaximum, 2, kMaxQ, errors_, source);
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
    mdblPLLMin3V = mdblDefaultPLLMinimum3V;
    mdblPLLMax3V = mdblDefaultPLLMaximum3V;
    mdblPLLMin5V = mdblDefaultPLLMinimum5V;
    mdblPLLMax5V = mdblDefaultPLLMaximum5V;
    mdblMinP3V = mdblMinP5V = kMinP;
    mdblMaxP3V = mdblMaxP5V = kMaxP;
    mdblMinQ3V = mdblMinQ5V = kMinQ;
    mdblMaxQ3V = mdblMaxQ5V = kMaxQ;
}

void cls4860Die::SetNewLimits(const std::vector<double>& adblMinimum,
                              const std::vector<double>& adblMaximum) {
    const std::string source = "cls4860Die.SetNewLimits";
    const bool v3 = Is3V();
    LimitArray::Read(adblMinimum, 0, v3 ? mdblPLLMin3V : mdblPLLMin5V, errors_, source);
    LimitArray::Read(adblMinimum, 1, v3 ? mdblMinP3V : mdblMinP5V, errors_, source);
    LimitArray::Read(adblMinimum, 2, v3 ? mdblMinQ3V : mdblMinQ5V, errors_, source);
    LimitArray::Read(adblMaximum, 0, v3 ? mdblPLLMax3V : mdblPLLMax5V, errors_, source);
    LimitArray::Read(adblMaximum, 1, v3 ? mdblMaxP3V : mdblMaxP5V, errors_, source);
    LimitArray::Read(adblMaximum, 2, v3 ? mdblMaxQ3V : mdblMaxQ5V, errors_, source);
}

}  // namespace pendulon
