#pragma once
#include <string>
#include <vector>

#include "core/LimitArray.hpp"
#include "platform/ErrorReport.hpp"

// The limit procedures of a one-PLL die that keeps, for each supply voltage, its VCO limits and
// its P and Q counter limits in fields named alike (mdblPLLMin3V, mdblMinP5V, ...), and its
// counter defaults in the constants kMinP, kMaxP, kMinQ and kMaxQ. Limit arrays hold the VCO
// limit, P and Q at elements 0, 1 and 2. Each die keeps its own fields; these only read and
// write them.
namespace pendulon::OnePLLDieLimits {

// Visits the limits of the voltage set (3 V when is3V) with their element of a limit array: the
// minimum VCO limit, P and Q, then their maxima. Die may be const.
template <class Die, class Visit>
void ForEachLimit(Die& die, bool is3V, Visit&& visit) {
    visit(false, 0, is3V ? die.mdblPLLMin3V : die.mdblPLLMin5V);
    visit(false, 1, is3V ? die.mdblMinP3V : die.mdblMinP5V);
    visit(false, 2, is3V ? die.mdblMinQ3V : die.mdblMinQ5V);
    visit(true, 0, is3V ? die.mdblPLLMax3V : die.mdblPLLMax5V);
    visit(true, 1, is3V ? die.mdblMaxP3V : die.mdblMaxP5V);
    visit(true, 2, is3V ? die.mdblMaxQ3V : die.mdblMaxQ5V);
}

// Copies the limits of the voltage set (3 V when is3V) into the two arrays.
template <class Die>
void GetCurrent(const Die& die, bool is3V, std::vector<double>& adblMinimum,
                std::vector<double>& adblMaximum, ErrorReport& errors, const std::string& source) {
    ForEachLimit(die, is3V, [&](bool isMaximum, size_t element, const double& limit) {
        LimitArray::Write(isMaximum ? adblMaximum : adblMinimum, element, limit, errors, source);
    });
}

// Copies the default limits of the voltage set into the two arrays.
template <class Die>
void GetDefault(const Die& die, bool is3V, std::vector<double>& adblMinimum,
                std::vector<double>& adblMaximum, ErrorReport& errors, const std::string& source) {
    LimitArray::Write(adblMinimum, 0,
                      is3V ? die.mdblDefaultPLLMinimum3V : die.mdblDefaultPLLMinimum5V, errors,
                      source);
    LimitArray::Write(adblMinimum, 1, Die::kMinP, errors, source);
    LimitArray::Write(adblMinimum, 2, Die::kMinQ, errors, source);
    LimitArray::Write(adblMaximum, 0,
                      is3V ? die.mdblDefaultPLLMaximum3V : die.mdblDefaultPLLMaximum5V, errors,
                      source);
    LimitArray::Write(adblMaximum, 1, Die::kMaxP, errors, source);
    LimitArray::Write(adblMaximum, 2, Die::kMaxQ, errors, source);
}

// Sets the present limits of both voltages to the defaults: the VCO limits from the default
// fields, the counters from the die's constants.
template <class Die>
void ResetToDefaults(Die& die) {
    die.mdblPLLMin3V = die.mdblDefaultPLLMinimum3V;
    die.mdblPLLMax3V = die.mdblDefaultPLLMaximum3V;
    die.mdblPLLMin5V = die.mdblDefaultPLLMinimum5V;
    die.mdblPLLMax5V = die.mdblDefaultPLLMaximum5V;
    die.mdblMinP3V = die.mdblMinP5V = Die::kMinP;
    die.mdblMaxP3V = die.mdblMaxP5V = Die::kMaxP;
    die.mdblMinQ3V = die.mdblMinQ5V = Die::kMinQ;
    die.mdblMaxQ3V = die.mdblMaxQ5V = Die::kMaxQ;
}

// Reads the limits of the voltage set from the two arrays; an element outside an array is
// reported and leaves its limit as it was.
template <class Die>
void SetNew(Die& die, bool is3V, const std::vector<double>& adblMinimum,
            const std::vector<double>& adblMaximum, ErrorReport& errors,
            const std::string& source) {
    ForEachLimit(die, is3V, [&](bool isMaximum, size_t element, double& limit) {
        LimitArray::Read(isMaximum ? adblMaximum : adblMinimum, element, limit, errors, source);
    });
}

}  // namespace pendulon::OnePLLDieLimits
