#include "planner/clsPlan.hpp"

#include <algorithm>

#include "core/Numbers.hpp"
#include "core/mShared.hpp"

namespace pendulon {

const std::vector<std::string>& clsPlan::AllDevices() {
    static const std::vector<std::string> devices = {
        "QX6105A", "QX6105AF", "QX6105AI", "QX7311",  "QX7311F", "QX7311I", "QX7312", "QX7312F",
        "QX7312I", "QX4860",   "QX4860F",  "QX4860I", "QX5140",  "QX3350",  "QX3350I"};
    return devices;
}

std::vector<std::string> clsPlan::Devices() const {
    std::vector<std::string> devices;
    for (const std::string& device : AllDevices()) {
        if (astrDevices.empty() ||
            std::find(astrDevices.begin(), astrDevices.end(), device) != astrDevices.end())
            devices.push_back(device);
    }
    return devices;
}

double clsPlan::AsField(double frequency) {
    return Val(mShared::FormatFrequencyShort(frequency));
}

double clsPlan::ReferenceAsField() const {
    return Val(mShared::FormatFrequencyFixed(dblReference));
}

std::string clsPlan::Problem() const {
    if (dblVoltage != kLowVoltage && dblVoltage != kHighVoltage)
        return "the supply voltage is 3.3 or 5, not " + GeneralNumber(dblVoltage);
    if (dblReference < 0)
        return "the reference must be above 0 MHz";
    if (adblOutputs.empty())
        return "the plan needs at least one wanted output frequency";
    if (static_cast<int>(adblOutputs.size()) > kMaximumOutputs)
        return "a plan has at most " + std::to_string(kMaximumOutputs) +
               " outputs, as the largest device has";
    for (const double frequency : adblOutputs) {
        if (!(frequency > 0) || AsField(frequency) <= 0)
            return "an output frequency must be above 0 MHz, not " + GeneralNumber(frequency);
    }
    for (const std::string& device : astrDevices) {
        const auto& all = AllDevices();
        if (std::find(all.begin(), all.end(), device) == all.end())
            return "unknown device '" + device + "'";
    }
    if (intPins < 0)
        return "the pin count must be a whole number above 0";
    return {};
}

}  // namespace pendulon
