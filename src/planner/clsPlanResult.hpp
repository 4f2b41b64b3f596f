#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace pendulon {

// One thing a user does in a document's window: a click on a field, or a text entered into it.
struct PlanAction {
    bool blnClick = false;
    std::string strField;
    std::string strText;

    static PlanAction Set(std::string field, std::string text) {
        return {false, std::move(field), std::move(text)};
    }
    static PlanAction Click(std::string field) { return {true, std::move(field), {}}; }
    // As the command line writes it: "--set NAME=TEXT" or "--click NAME".
    std::string CommandLine() const;
    bool operator==(const PlanAction&) const = default;
};

// A wanted output as the device's window shows it after Calculate.
struct PlanOutput {
    double dblWanted = 0;
    // The output pin, such as "CLKA", and its source and divider, such as "SPLL/4".
    std::string strPin;
    std::string strSource;
    // The actual frequency as the window writes it ("33.33301"), and as a number.
    std::string strActual;
    double dblActual = 0;
    std::int32_t lngPPM = 0;
};

// A loop the configuration runs, as its window shows it: the frequency it is asked for (its
// desired frequency; the target VCO on the QX5140, whose loops have no field of their own), and
// the solution in force: P, Q and the VCO frequency.
struct PlanLoop {
    std::string strLoop;
    double dblTarget = 0;
    double dblP = 0;
    double dblQ = 0;
    double dblVCO = 0;
};

// What one device makes of a plan: the configuration that serves every wanted output with the
// smallest worst |ppm|, or why none does.
struct clsPlanResult {
    std::string strDevice;
    // False for a device the plan's filters leave out (no package of the wanted pin count).
    bool blnTried = true;
    bool blnServes = false;
    // Why the device does not serve the plan, in one line.
    std::string strReason;
    // The reference of the configuration, in MHz (0 when the device got no configuration).
    double dblReference = 0;
    // The package's pin count.
    int intPins = 0;
    // The largest |ppm| of the outputs; -1 when the device has no configuration.
    std::int32_t lngWorstPPM = -1;
    // The supply current the power window shows, typical and worst case, in mA; the QX3350 has
    // no power model.
    bool blnHasCurrent = false;
    double dblTypicalCurrent = 0;
    double dblWorstCurrent = 0;
    std::vector<PlanOutput> aOutputs;
    std::vector<PlanLoop> aLoops;
    // The fields the window marks out of limits (red); none in a configuration that serves.
    std::vector<std::string> astrOutOfLimits;
    // What a user does in a new document of the device to get this configuration, in order.
    std::vector<PlanAction> aActions;
};

}  // namespace pendulon
