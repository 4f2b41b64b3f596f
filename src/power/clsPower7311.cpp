#include "power/clsPower7311.hpp"

#include "core/Numbers.hpp"

namespace pendulon {

clsPower7311::clsPower7311(ErrorReport& errors) : errors_(errors) {}

double clsPower7311::GetIDD(double dblWhichCase) {
    double voltage = 0;
    double load = 0;
    if (dblWhichCase == 0) {
        voltage = mdblVDDWorst;
        load = 30;
    } else if (dblWhichCase == 1) {
        voltage = mdblVDDTypical;
        load = 18;
    } else {
        // Reported; the estimate then goes on with no supply and no load, which gives the floor.
        errors_.Raise(10401, "clsPower7311.GetIDD", "Invalid case: " + GeneralNumber(dblWhichCase));
    }
    const double outputs =
        mdblCPU + mdblClockA + mdblClockB + mdblClockC + mdblClockD + mdblClockF + mdblXBuff;
    double current =
        mdblIdle + mdblPLLSlope * (mdblCPLL + mdblSPLL + mdblUPLL) + load * mdblLoadSlope * outputs;
    current = current * voltage;
    return current < 1.0 ? 1.0 : current;
}

void clsPower7311::SetVDD(double value) {
    if (value == 3.3) {
        mdblVDDWorst = 4.0;
        mdblVDDTypical = 3.3;
        mdblIdle = 1.8;
        mdblPLLSlope = 0.0002;
        mdblLoadSlope = 0.00112;
    } else if (value == 5.0) {
        mdblVDDWorst = 5.5;
        mdblVDDTypical = 5.0;
        mdblIdle = 2.6;
        mdblPLLSlope = 0.011;
        mdblLoadSlope = 0.0017;
    } else {
        errors_.Raise(10402, "clsPower7311.VDD [Property Let]",
                      "Invalid VDD: " + GeneralNumber(value));
    }
}

}  // namespace pendulon
