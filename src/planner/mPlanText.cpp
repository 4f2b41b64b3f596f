#include "planner/mPlanText.hpp"

#include "core/Numbers.hpp"
#include "core/mShared.hpp"

namespace pendulon::mPlanText {

namespace {

std::string Column(const std::string& text, size_t width, bool right) {
    if (text.size() >= width)
        return text;
    const std::string pad(width - text.size(), ' ');
    return right ? pad + text : text + pad;
}

std::string Frequencies(const std::vector<double>& frequencies) {
    std::string text;
    for (size_t i = 0; i < frequencies.size(); ++i) {
        if (i > 0)
            text += i + 1 == frequencies.size() ? " and " : ", ";
        text += GeneralNumber(frequencies[i]);
    }
    return text + " MHz";
}

std::string SignedPPM(std::int32_t ppm) {
    std::string text = ppm > 0 ? "+" : "";
    text += std::to_string(ppm);
    text += " ppm";
    return text;
}

}  // namespace

std::string Milliamperes(double current) {
    return FormatNumber(current, "0.00");
}

std::string PlanLine(const clsPlan& plan) {
    std::vector<double> outputs;
    for (const double frequency : plan.adblOutputs) outputs.push_back(clsPlan::AsField(frequency));
    std::string text = Frequencies(outputs) + " from ";
    text += plan.AnyReference() ? "any reference of a device's list"
                                : GeneralNumber(plan.ReferenceAsField()) + " MHz";
    text += " at " + GeneralNumber(plan.dblVoltage) + " V, ";
    text += plan.HasTolerance() ? "within " + std::to_string(plan.lngTolerancePPM) + " ppm"
                                : "the best each device reaches";
    if (plan.intPins != 0)
        text += ", " + std::to_string(plan.intPins) + "-pin packages";
    return text;
}

std::string Heading() {
    return Column("Rank", 4, true) + "  " + Column("Device", 9, false) + Column("Pins", 4, true) +
           Column("Worst ppm", 11, true) + Column("Typical mA", 12, true) +
           Column("Worst mA", 10, true) + "  Reference";
}

std::string Row(const clsPlanResult& result, int rank) {
    std::string row = Column(result.blnServes ? std::to_string(rank) : "", 4, true) + "  " +
                      Column(result.strDevice, 9, false);
    if (!result.blnServes)
        return row + "does not serve: " + result.strReason;
    row += Column(std::to_string(result.intPins), 4, true);
    row += Column(std::to_string(result.lngWorstPPM), 11, true);
    row += Column(result.blnHasCurrent ? Milliamperes(result.dblTypicalCurrent) : "n/a", 12, true);
    row += Column(result.blnHasCurrent ? Milliamperes(result.dblWorstCurrent) : "n/a", 10, true);
    row += "  " + GeneralNumber(result.dblReference) + " MHz";
    return row;
}

std::vector<std::string> Details(const clsPlanResult& result) {
    std::vector<std::string> lines;
    std::string head = result.strDevice;
    if (result.blnServes) {
        head += ": serves the plan, worst " + std::to_string(result.lngWorstPPM) + " ppm";
    } else {
        head += ": does not serve the plan: " + result.strReason;
    }
    lines.push_back(head);
    if (result.aOutputs.empty())
        return lines;
    std::string device = "Reference " + GeneralNumber(result.dblReference) + " MHz, " +
                         std::to_string(result.intPins) + " pins, supply current ";
    device += result.blnHasCurrent ? Milliamperes(result.dblTypicalCurrent) + " mA typical, " +
                                         Milliamperes(result.dblWorstCurrent) + " mA worst case"
                                   : "not modelled for this device";
    lines.push_back(device);
    lines.push_back("Outputs:");
    for (const PlanOutput& output : result.aOutputs) {
        lines.push_back("  " + Column(output.strPin, 7, false) +
                        Column(GeneralNumber(output.dblWanted) + " MHz", 16, false) + "from " +
                        Column(output.strSource, 10, false) + "actual " + output.strActual +
                        " MHz  " + SignedPPM(output.lngPPM));
    }
    if (!result.aLoops.empty()) {
        lines.push_back("Loops:");
        for (const PlanLoop& loop : result.aLoops) {
            lines.push_back("  " + Column(loop.strLoop, 7, false) + "target " +
                            GeneralNumber(loop.dblTarget) + " MHz  P:" + GeneralNumber(loop.dblP) +
                            " Q:" + GeneralNumber(loop.dblQ) + "  VCO " +
                            mShared::FormatFrequencyFixed(loop.dblVCO) + " MHz");
        }
    }
    if (result.astrOutOfLimits.empty()) {
        lines.push_back("Limit checks: every value within the device's limits");
    } else {
        std::string fields;
        for (const std::string& name : result.astrOutOfLimits)
            fields += (fields.empty() ? "" : ", ") + name;
        lines.push_back("Limit checks: out of limits: " + fields);
    }
    std::string settings;
    for (const PlanAction& action : result.aActions) {
        settings += ' ';
        settings += action.CommandLine();
    }
    lines.push_back("Made by: pendulon-cli new " + result.strDevice + settings);
    return lines;
}

}  // namespace pendulon::mPlanText
