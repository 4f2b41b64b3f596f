#include "core/cls3350Die.hpp"

#include "core/LimitArray.hpp"

namespace pendulon {

cls3350Die::cls3350Die(ErrorReport& errors) : errors_(errors) {
    SetDefaultLimits();
}

void cls3350Die::GetCurrentLimits(std::vector<double>& adblMinimum,
                                  std::vector<double>& adblMaximum) {
    const std::string source = "cls3350Die.GetCurrentLimits";
    const bool v3 = Is3V();
    LimitArray::Write(adblMinimum, 0, v3 ? mdblPLLMin3V : mdblPLLMin5V, errors_, source);
    LimitArray::Write(adblMinimum, 1, v3 ? mdblMinP3V : mdblMinP5V, errors_, source);
    LimitArray::Write(adblMinimum, 2, v3 ? mdblMinQ3V : mdblMinQ5V, errors_, source);
    LimitArray::Write(adblMaximum, 0, v3 ? mdblPLLMax3V : mdblPLLMax5V, errors_, source);
    LimitArray::Write(adblMaximum, 1, v3 ? mdblMaxP3V : mdblMaxP5V, errors_, source);
    LimitArray::Write(adblMaximum, 2, v3 ? mdblMaxQ3V : mdblMaxQ5V, errors_, source);
}

void cls3350Die::GetDefaultLimits(std::vector<double>& adblMinimum,
                                  std::vector<double>& adblMaximum) {
    const std::string source = "cls3350Die.GetDefaultLimits";
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
    mdblPLLMin3V = mdblDefaultPLLMinimum3V;
    mdblPLLMax3V = mdblDefaultPLLMaximum3V;
    mdblPLLMin5V = mdblDefaultPLLMinimum5V;
    mdblPLLMax5V = mdblDefaultPLLMaximum5V;
    mdblMinP3V = mdblMinP5V = kMinP;
    mdblMaxP3V = mdblMaxP5V = kMaxP;
    mdblMinQ3V = mdblMinQ5V = kMinQ;
    mdblMaxQ3V = mdblMaxQ5V = kMaxQ;
}

void cls3350Die::SetNewLimits(const std::vector<double>& adblMinimum,
                              const std::vector<double>& adblMaximum) {
    const std::string source = "cls3350Die.SetNewLimits";
    const bool v3 = Is3V();
    LimitArray::Read(adblMinimum, 0, v3 ? mdblPLLMin3V : mdblPLLMin5V, errors_, source);
    LimitArray::Read(adblMinimum, 1, v3 ? mdblMinP3V : mdblMinP5V, errors_, source);
    LimitArray::Read(adblMinimum, 2, v3 ? mdblMinQ3V : mdblMinQ5V, errors_, source);
    LimitArray::Read(adblMaximum, 0, v3 ? mdblPLLMax3V : mdblPLLMax5V, errors_, source);
    LimitArray::Read(adblMaximum, 1, v3 ? mdblMaxP3V : mdblMaxP5V, errors_, source);
    LimitArray::Read(adblMaximum, 2, v3 ? mdblMaxQ3V : mdblMaxQ5V, errors_, source);
}

}  // namespace pendulon
