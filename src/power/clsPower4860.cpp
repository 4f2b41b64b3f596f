#include "power/clsPower4860.hpp"

#include "core/Numbers.hpp"

namespace pendulon {

clsPower4860::clsPower4860(ErrorReport& errors) : errors_(errors) {}

void clsPower4860::SetVDD(double value) {
    if (value == 3.3) {
        mdblVDDWorst = 4.0;
        mdblVDDTypical = 3.3;
    } else if (value == 5.0) {
        mdblVDDWorst = 5.5;
        mdblVDDTypical = 5.0;
    } else {
        errors_.Raise(10451, "clsPower4860.VDD [Property Let]",
                      "Invalid VDD: " + GeneralNumber(value));
    }
}

double clsPower4860::CalculateICC(int intWhichCase) const {
    double voltage = 0;
    double load = 0;
    if (intWhichCase == 0) {
        voltage = mdblVDDWorst;
        load = 30;
    } else if (intWhichCase == 1) {
        voltage = mdblVDDTypical;
        load = 18;
    }
    const double current = 2.25 + 0.055 * mdblReferenceFrequency + 0.02 * mdblFCore +
                           0.0017 * load * (mdblFClock1 + mdblFClock2 + mdblFClock3);
    return current * voltage;
}

}  // namespace pendulon
