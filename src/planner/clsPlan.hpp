#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace pendulon {

// What an application engineer asks the frequency planner: the clocks a board needs, from which
// reference, at which supply voltage, how close, and among which devices.
class clsPlan {
  public:
    // The most wanted outputs a plan may have: as many as the largest device has (the QX7311:
    // CPU, CLKA to CLKD, CLKF and XBUF).
    static constexpr int kMaximumOutputs = 7;
    // The supply voltages of the devices.
    static constexpr double kLowVoltage = 3.3;
    static constexpr double kHighVoltage = 5.0;

    // The reference in MHz, or 0 for any: every reference in the device's own reference list.
    double dblReference = 0;
    double dblVoltage = kLowVoltage;
    // The wanted output frequencies in MHz; the same frequency may be wanted twice.
    std::vector<double> adblOutputs;
    // The largest |ppm| an output may be off; -1 for no limit (the best each device reaches).
    std::int32_t lngTolerancePPM = -1;
    // The devices to try, by name; empty for all fifteen.
    std::vector<std::string> astrDevices;
    // The package pin count a device must have; 0 for any.
    int intPins = 0;

    bool AnyReference() const { return dblReference == 0; }
    bool HasTolerance() const { return lngTolerancePPM >= 0; }

    // What is wrong with the plan, or an empty text when it can be planned.
    std::string Problem() const;

    // A frequency as a frequency field of a device window keeps it: to five decimals.
    static double AsField(double frequency);
    // The reference as a reference list keeps it: to five decimals; 0 for any.
    double ReferenceAsField() const;
    // The fifteen devices in the order of the device window.
    static const std::vector<std::string>& AllDevices();
    // The devices this plan tries, in the order of the device window.
    std::vector<std::string> Devices() const;
};

}  // namespace pendulon
