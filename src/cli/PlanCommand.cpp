#include "cli/PlanCommand.hpp"

#include <cmath>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/DocumentSession.hpp"
#include "cli/NumberArgument.hpp"
#include "cli/ToolActions.hpp"
#include "core/Numbers.hpp"
#include "planner/clsDevicePlanner.hpp"
#include "planner/clsFrequencyPlanner.hpp"
#include "planner/mPlanText.hpp"
#include "shell/Application.hpp"
#include "shell/ShellPlannerHost.hpp"

namespace pendulon::cli {

const char* const kPlanUsage =
    "plan --ref MHZ|any --voltage 3.3|5 --out MHZ [--out MHZ]... [--ppm N]\n"
    "            [--device NAME]... [--pins N] [--json] [--save PATH] [--jed PATH]";
const char* const kPlanSummary =
    "find the devices that make the wanted output frequencies, ranked, each configured in its "
    "own window";

namespace {

const char* const kPlanHelp =
    "usage: pendulon-cli plan --ref MHZ|any --voltage 3.3|5 --out MHZ [--out MHZ]... [--ppm N]\n"
    "                         [--device NAME]... [--pins N] [--json] [--save PATH] [--jed PATH]\n"
    "\n"
    "Every device (or each one named with --device) tries the plan in its own window, as a\n"
    "user would: it sets the voltage, the reference, the outputs' sources and dividers and the\n"
    "loops' frequencies, presses Calculate, and reads the actual frequencies, ppm, loop data,\n"
    "limit colours and supply current the window shows. The configuration with the smallest\n"
    "worst |ppm| is the device's result. Devices that serve the plan come first, by worst\n"
    "|ppm|, then typical supply current, then fewer pins; the others say why they cannot.\n"
    "\n"
    "  --ref MHZ|any    the reference frequency, or any: every reference of the device's list\n"
    "  --voltage V      the supply voltage, 3.3 or 5\n"
    "  --out MHZ        a wanted output frequency (1 to 7 of them; the same one may repeat);\n"
    "                   frequencies are taken to five decimals, as the windows keep them\n"
    "  --ppm N          the largest |ppm| an output may be off (default: no limit)\n"
    "  --device NAME    try only the devices named (QX6105A ... QX3350I), repeatable\n"
    "  --pins N         try only devices in a package of N pins (the QX4860 comes in 8 and 14)\n"
    "  --json           print {\"plan\": {...}, \"devices\": [...]} instead of the table\n"
    "  --save PATH      write the entry file of the best device that serves the plan, as File,\n"
    "                   Save As does with the summary answered OK\n"
    "  --jed PATH       write the EPROM vector of the best device that serves the plan, as\n"
    "                   Tools, Create EPROM Vector, From New Entry File does\n"
    "\n"
    "Exit status: 0 when a device serves the plan (and what was asked was written), 1 when none\n"
    "does (then nothing is written) or a file could not be written, 2 for a malformed command.\n";

int Usage(const std::string& problem) {
    std::cerr << "pendulon-cli plan: " << problem << "\n"
              << "usage: pendulon-cli " << kPlanUsage << "\n";
    return 2;
}

// A whole number of at least minimum, as an option's value.
std::optional<std::int32_t> ParseWhole(const std::string& text, std::int32_t minimum,
                                       std::int32_t maximum) {
    const auto number = ParseNumber(text);
    if (!number || *number != std::floor(*number) || *number < minimum || *number > maximum)
        return std::nullopt;
    return static_cast<std::int32_t>(*number);
}

nlohmann::json Json(const clsPlan& plan, const std::vector<clsPlanResult>& results) {
    nlohmann::json outputs = nlohmann::json::array();
    for (const double frequency : plan.adblOutputs) outputs.push_back(clsPlan::AsField(frequency));
    nlohmann::json devices = nlohmann::json::array();
    for (const std::string& device : plan.Devices()) devices.push_back(device);
    nlohmann::json json;
    json["plan"] = {
        {"reference",
         plan.AnyReference() ? nlohmann::json("any") : nlohmann::json(plan.ReferenceAsField())},
        {"voltage", plan.dblVoltage},
        {"outputs", outputs},
        {"tolerance_ppm", plan.HasTolerance() ? nlohmann::json(plan.lngTolerancePPM) : nullptr},
        {"devices", devices},
        {"pins", plan.intPins != 0 ? nlohmann::json(plan.intPins) : nullptr}};
    json["devices"] = nlohmann::json::array();
    for (const clsPlanResult& result : results) {
        nlohmann::json device;
        device["device"] = result.strDevice;
        device["serves"] = result.blnServes;
        if (!result.blnServes)
            device["reason"] = result.strReason;
        const bool configured = !result.aOutputs.empty();
        device["reference"] = configured ? nlohmann::json(result.dblReference) : nullptr;
        device["pins"] = result.intPins;
        device["worst_ppm"] =
            result.lngWorstPPM >= 0 ? nlohmann::json(result.lngWorstPPM) : nullptr;
        device["current_ma"] = configured && result.blnHasCurrent
                                   ? nlohmann::json{{"typical", result.dblTypicalCurrent},
                                                    {"worst", result.dblWorstCurrent}}
                                   : nlohmann::json(nullptr);
        nlohmann::json outputsOf = nlohmann::json::array();
        for (const PlanOutput& output : result.aOutputs)
            outputsOf.push_back({{"wanted", output.dblWanted},
                                 {"pin", output.strPin},
                                 {"source", output.strSource},
                                 {"actual", output.dblActual},
                                 {"ppm", output.lngPPM}});
        device["outputs"] = outputsOf;
        nlohmann::json loops = nlohmann::json::array();
        for (const PlanLoop& loop : result.aLoops)
            loops.push_back({{"loop", loop.strLoop},
                             {"target", loop.dblTarget},
                             {"p", static_cast<long long>(loop.dblP)},
                             {"q", static_cast<long long>(loop.dblQ)},
                             {"vco", loop.dblVCO}});
        device["loops"] = loops;
        device["out_of_limits"] = result.astrOutOfLimits;
        nlohmann::json settings = nlohmann::json::array();
        for (const PlanAction& action : result.aActions) {
            settings.push_back(action.blnClick ? "--click" : "--set");
            settings.push_back(action.blnClick ? action.strField
                                               : action.strField + "=" + action.strText);
        }
        device["settings"] = settings;
        json["devices"].push_back(device);
    }
    return json;
}

void PrintTable(const clsPlan& plan, const std::vector<clsPlanResult>& results) {
    std::cout << "Plan: " << mPlanText::PlanLine(plan) << "\n\n" << mPlanText::Heading() << "\n";
    int rank = 0;
    for (const clsPlanResult& result : results)
        std::cout << mPlanText::Row(result, result.blnServes ? ++rank : 0) << "\n";
    for (const clsPlanResult& result : results) {
        if (!result.blnServes)
            continue;
        std::cout << "\n";
        for (const std::string& line : mPlanText::Details(result)) std::cout << line << "\n";
    }
}

}  // namespace

int RunPlan(const std::vector<std::string>& args) {
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
        std::cout << kPlanHelp;
        return 0;
    }
    clsPlan plan;
    bool haveReference = false;
    bool haveVoltage = false;
    bool json = false;
    std::string save;
    std::string jed;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& option = args[i];
        if (option == "--json") {
            json = true;
            continue;
        }
        if (option != "--ref" && option != "--voltage" && option != "--out" && option != "--ppm" &&
            option != "--device" && option != "--pins" && option != "--save" && option != "--jed")
            return Usage("unknown argument '" + option + "'");
        if (i + 1 >= args.size())
            return Usage("option " + option + " needs a value");
        const std::string& value = args[++i];
        if (option == "--ref") {
            if (haveReference)
                return Usage("option --ref given twice");
            haveReference = true;
            if (value == "any")
                continue;
            const auto number = ParseNumber(value);
            if (!number || *number <= 0)
                return Usage("--ref takes a frequency in MHz above 0, or any, not '" + value + "'");
            plan.dblReference = *number;
        } else if (option == "--voltage") {
            if (haveVoltage)
                return Usage("option --voltage given twice");
            haveVoltage = true;
            const auto number = ParseNumber(value);
            if (!number || (*number != clsPlan::kLowVoltage && *number != clsPlan::kHighVoltage))
                return Usage("--voltage takes 3.3 or 5, not '" + value + "'");
            plan.dblVoltage = *number;
        } else if (option == "--out") {
            const auto number = ParseNumber(value);
            if (!number || *number <= 0)
                return Usage("--out takes a frequency in MHz above 0, not '" + value + "'");
            plan.adblOutputs.push_back(*number);
        } else if (option == "--ppm") {
            if (plan.HasTolerance())
                return Usage("option --ppm given twice");
            const auto number = ParseWhole(value, 0, 5000000);
            if (!number)
                return Usage("--ppm takes a whole number of ppm from 0, not '" + value + "'");
            plan.lngTolerancePPM = *number;
        } else if (option == "--device") {
            plan.astrDevices.push_back(value);
        } else if (option == "--pins") {
            if (plan.intPins != 0)
                return Usage("option --pins given twice");
            const auto number = ParseWhole(value, 1, 1000);
            if (!number)
                return Usage("--pins takes a pin count, not '" + value + "'");
            plan.intPins = *number;
        } else if (option == "--save") {
            if (!save.empty())
                return Usage("option --save given twice");
            save = value;
        } else {
            if (!jed.empty())
                return Usage("option --jed given twice");
            jed = value;
        }
    }
    if (!haveReference)
        return Usage("missing --ref");
    if (!haveVoltage)
        return Usage("missing --voltage");
    if (const std::string problem = plan.Problem(); !problem.empty())
        return Usage(problem);
    if (!save.empty() && save == jed)
        return Usage("--save and --jed name the same file");

    const ShellPlannerHost host;
    const std::vector<clsPlanResult> results = clsFrequencyPlanner::Run(host, plan);
    if (json) {
        std::cout << Json(plan, results).dump(2) << "\n";
    } else {
        PrintTable(plan, results);
    }
    std::cout.flush();

    const clsPlanResult* best = nullptr;
    for (const clsPlanResult& result : results)
        if (result.blnServes && best == nullptr)
            best = &result;
    if (best == nullptr) {
        std::cerr << "pendulon-cli: plan: no device serves the plan"
                  << (save.empty() && jed.empty() ? "" : "; nothing was written") << "\n";
        return 1;
    }
    if (save.empty() && jed.empty())
        return 0;
    // Only what can be written whole is begun.
    if (!jed.empty() && best->strDevice == "QX5140") {
        std::cerr << "pendulon-cli: plan: --jed: the best device, the QX5140, has no EPROM "
                     "vector; nothing was written\n";
        return 1;
    }
    DocumentSession session(std::cerr, std::cerr);
    const std::unique_ptr<clsDevicePlanner> planner =
        clsDevicePlanner::Create(host, best->strDevice);
    if (const std::string problem = planner->Open(session.App(), *best); !problem.empty()) {
        std::cerr << "pendulon-cli: plan: the " << best->strDevice
                  << " document does not show the plan's result: " << problem
                  << "; nothing was written\n";
        return 1;
    }
    std::vector<std::string> actions;
    if (!save.empty())
        actions.insert(actions.end(), {"--save", save});
    if (!jed.empty())
        actions.insert(actions.end(), {"--jed", jed});
    return RunDocumentActions(session, actions, 0);
}

}  // namespace pendulon::cli
