#include "core/cls7311Die.hpp"

#include "core/LimitArray.hpp"

namespace pendulon {

namespace {
// Default counters: CPLL, UPLL, SPLL; the same at both voltages.
constexpr double kMinP[3] = {5, 5, 5};
constexpr double kMaxP[3] = {258, 1026, 258};
constexpr double kMinQ[3] = {2, 2, 2};
constexpr double kMaxQ[3] = {65, 129, 65};
}  // namespace

cls7311Die::cls7311Die(ErrorReport& errors) : errors_(errors) {
    SetDefaultLimits();
}

cls7311Die::LoopFields cls7311Die::Loop(int loop, bool threeVolt) {
    switch (loop) {
        case 0:
            return threeVolt ? LoopFields{&mdblCPLLMin3V, &mdblCPLLMinP3V, &mdblCPLLMinQ3V,
                                          &mdblCPLLMax3V, &mdblCPLLMaxP3V, &mdblCPLLMaxQ3V}
                             : LoopFields{&mdblCPLLMin5V, &mdblCPLLMinP5V, &mdblCPLLMinQ5V,
                                          &mdblCPLLMax5V, &mdblCPLLMaxP5V, &mdblCPLLMaxQ5V};
        case 1:
            return threeVolt ? LoopFields{&mdblUPLLMin3V, &mdblUPLLMinP3V, &mdblUPLLMinQ3V,
                                          &mdblUPLLMax3V, &mdblUPLLMaxP3V, &mdblUPLLMaxQ3V}
                             : LoopFields{&mdblUPLLMin5V, &mdblUPLLMinP5V, &mdblUPLLMinQ5V,
                                          &mdblUPLLMax5V, &mdblUPLLMaxP5V, &mdblUPLLMaxQ5V};
        default:
            return threeVolt ? LoopFields{&mdblSPLLMin3V, &mdblSPLLMinP3V, &mdblSPLLMinQ3V,
                                          &mdblSPLLMax3V, &mdblSPLLMaxP3V, &mdblSPLLMaxQ3V}
                             : LoopFields{&mdblSPLLMin5V, &mdblSPLLMinP5V, &mdblSPLLMinQ5V,
                                          &mdblSPLLMax5V, &mdblSPLLMaxP5V, &mdblSPLLMaxQ5V};
    }
}

void cls7311Die::ForEachPresentLimit(
    const std::function<void(bool isMaximum, size_t element, double& limit)>& visit) {
    for (int loop = 0; loop < 3; ++loop) {
        const LoopFields f = Loop(loop, Is3V());
        const size_t base = static_cast<size_t>(loop) * 3;
        visit(false, base, *f.VCOMin);
        visit(false, base + 1, *f.MinP);
        visit(false, base + 2, *f.MinQ);
        visit(true, base, *f.VCOMax);
        visit(true, base + 1, *f.MaxP);
        visit(true, base + 2, *f.MaxQ);
    }
}

void cls7311Die::GetCurrentLimits(std::vector<double>& adblMinimum,
                                  std::vector<double>& adblMaximum) {
    const std::string source = "cls7311Die.GetCurrentLimits";
    ForEachPresentLimit([&](bool isMaximum, size_t element, double& limit) {
        LimitArray::Write(isMaximum ? adblMaximum : adblMinimum, element, limit, errors_, source);
    });
}

void cls7311Die::GetDefaultLimits(std::vector<double>& adblMinimum,
                                  std::vector<double>& adblMaximum) {
    const std::string source = "cls7311Die.GetDefaultLimits";
    const bool v3 = Is3V();
    for (size_t loop = 0; loop < 3; ++loop) {
        const size_t base = loop * 3;
        LimitArray::Write(adblMinimum, base, v3 ? mdblDefaultPLLMinimum3V : mdblDefaultPLLMinimum5V,
                          errors_, source);
        LimitArray::Write(adblMinimum, base + 1, kMinP[loop], errors_, source);
        LimitArray::Write(adblMinimum, base + 2, kMinQ[loop], errors_, source);
        LimitArray::Write(adblMaximum, base, v3 ? mdblDefaultPLLMaximum3V : mdblDefaultPLLMaximum5V,
                          errors_, source);
        LimitArray::Write(adblMaximum, base + 1, kMaxP[loop], errors_, source);
        LimitArray::Write(adblMaximum, base + 2, kMaxQ[loop], errors_, source);
    }
}

double cls7311Die::MaximumCPLLVoltage() const {
    return Is3V() ? mdblCPLLMax3V : mdblCPLLMax5V;
}
double cls7311Die::MaximumSPLLVoltage() const {
    return Is3V() ? mdblSPLLMax3V : mdblSPLLMax5V;
}
double cls7311Die::MaximumUPLLVoltage() const {
    return Is3V() ? mdblUPLLMax3V : mdblUPLLMax5V;
}
double cls7311Die::MinimumCPLLVoltage() const {
    return Is3V() ? mdblCPLLMin3V : mdblCPLLMin5V;
}
double cls7311Die::MinimumSPLLVoltage() const {
    return Is3V() ? mdblSPLLMin3V : mdblSPLLMin5V;
}
double cls7311Die::MinimumUPLLVoltage() const {
    return Is3V() ? mdblUPLLMin3V : mdblUPLLMin5V;
}

void cls7311Die::SetDefaultLimits() {
    for (int loop = 0; loop < 3; ++loop) {
        for (const bool v3 : {true, false}) {
            const LoopFields f = Loop(loop, v3);
            *f.VCOMin = v3 ? mdblDefaultPLLMinimum3V : mdblDefaultPLLMinimum5V;
            *f.VCOMax = v3 ? mdblDefaultPLLMaximum3V : mdblDefaultPLLMaximum5V;
            *f.MinP = kMinP[loop];
            *f.MaxP = kMaxP[loop];
            *f.MinQ = kMinQ[loop];
            *f.MaxQ = kMaxQ[loop];
        }
    }
}

void cls7311Die::SetNewLimits(const std::vector<double>& adblMinimum,
                              const std::vector<double>& adblMaximum) {
    const std::string source = "cls7311Die.SetNewLimits";
    ForEachPresentLimit([&](bool isMaximum, size_t element, double& limit) {
        LimitArray::Read(isMaximum ? adblMaximum : adblMinimum, element, limit, errors_, source);
    });
}

}  // namespace pendulon
