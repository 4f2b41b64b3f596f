#include "planner/clsOneLoopPlanner.hpp"

#include <algorithm>
#include <map>

#include "app/Configurator.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/clsPLL.hpp"
#include "core/mShared.hpp"
#include "planner/clsPlannerRun.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"

namespace pendulon {

clsOneLoopPlanner::clsOneLoopPlanner(const PlannerHost& host, std::string device, Layout layout)
    : clsDevicePlanner(host, std::move(device)), layout_(std::move(layout)) {}

int clsOneLoopPlanner::OutputCount(Configurator&) const {
    return static_cast<int>(layout_.aPins.size());
}

std::vector<clsDevicePlanner::Candidate> clsOneLoopPlanner::Candidates(const Context& context,
                                                                       std::string& reason) {
    Configurator& document = *context.run.Document();
    const std::vector<double>& wanted = context.adblWanted;
    double loopMinimum = 0;
    double loopMaximum = 0;
    LoopRange(document, loopMinimum, loopMaximum);

    // Output i comes out on pin i. Its choices: an entry of the reference that gives it, and
    // for each PLL frequency that gives it, the PLL entry that divides down to it.
    const size_t count = wanted.size();
    std::vector<std::string> fromReference(count);
    std::vector<std::map<std::string, std::string>> fromLoop(count);
    std::map<double, std::string> loopTexts;
    for (size_t i = 0; i < count; ++i) {
        const Pin& pin = layout_.aPins[i];
        const auto* list = document.Fields().FindAs<ListField>(pin.strSource);
        const std::string want = DesiredText(wanted[i]);
        for (const std::string& entry : list->Items()) {
            const double divisor = mShared::GetNonZeroDivisor(entry);
            if (StartsWithNoCase(entry, "R")) {
                if (fromReference[i].empty() && DesiredText(context.dblReference / divisor) == want)
                    fromReference[i] = entry;
            } else if (StartsWithNoCase(entry, "P")) {
                // What the loop's field keeps of the frequency the divider needs.
                const std::string text = mShared::FormatFrequencyShort(wanted[i] * divisor);
                const double value = Val(text);
                if (value < loopMinimum || value > loopMaximum ||
                    DesiredText(value / divisor) != want)
                    continue;
                fromLoop[i].emplace(text, entry);
                loopTexts.emplace(value, text);
            }
        }
    }

    auto makeActions = [&](const std::vector<std::string>& entries, const std::string& loopText) {
        std::vector<PlanAction> actions = context.aPrefix;
        for (size_t p = 0; p < layout_.aPins.size(); ++p)
            actions.push_back(PlanAction::Set(layout_.aPins[p].strSource,
                                              p < entries.size() ? entries[p] : "Off"));
        if (!loopText.empty())
            actions.push_back(PlanAction::Set(layout_.strLoopField, loopText));
        actions.push_back(PlanAction::Click("cmdCalculate"));
        return actions;
    };
    std::vector<std::string> pins;
    for (size_t i = 0; i < count; ++i) pins.push_back(layout_.aPins[i].strName);

    std::vector<Candidate> candidates;
    // Every output from the reference: the PLL stays off.
    if (std::all_of(fromReference.begin(), fromReference.end(),
                    [](const std::string& entry) { return !entry.empty(); })) {
        Candidate candidate;
        candidate.aActions = makeActions(fromReference, "");
        candidate.astrPins = pins;
        candidates.push_back(std::move(candidate));
    }
    // One PLL frequency for all outputs the reference does not give; lower ones first.
    for (const auto& [value, text] : loopTexts) {
        std::vector<std::string> entries(count);
        bool complete = true;
        bool onLoop = false;
        for (size_t i = 0; i < count && complete; ++i) {
            if (!fromReference[i].empty()) {
                entries[i] = fromReference[i];
            } else if (auto it = fromLoop[i].find(text); it != fromLoop[i].end()) {
                entries[i] = it->second;
                onLoop = true;
            } else {
                complete = false;
            }
        }
        if (!complete || !onLoop)
            continue;
        Candidate candidate;
        candidate.aActions = makeActions(entries, text);
        candidate.astrPins = pins;
        candidates.push_back(std::move(candidate));
    }
    if (candidates.empty())
        reason = count > 1 ? "its one PLL cannot give " + Together(wanted) + " at once"
                           : "no divider of its PLL gives " + Together(wanted);
    return candidates;
}

void clsOneLoopPlanner::Read(Configurator& document, const std::vector<double>& wanted,
                             const std::vector<std::string>& pins, clsPlanResult& result,
                             std::string& problem) const {
    const FieldRegistry& fields = document.Fields();
    bool loopUsed = false;
    for (size_t i = 0; i < wanted.size(); ++i) {
        const Pin& pin = PinNamed(layout_.aPins, pins[i]);
        PlanOutput output;
        output.dblWanted = wanted[i];
        output.strPin = pin.strName;
        output.strSource = fields.FindAs<ListField>(pin.strSource)->Text();
        loopUsed = loopUsed || StartsWithNoCase(output.strSource, "P");
        const std::string desired = Trim(fields.Find(pin.strDesired)->Caption());
        const std::string actual = fields.FindAs<ListField>(pin.strActual)->Text();
        if (desired != DesiredText(wanted[i]) && problem.empty())
            problem = OtherThanWanted(output, desired);
        if (!ParseActual(actual, output.strActual, output.lngPPM)) {
            if (problem.empty())
                problem = Unsolved(output);
        } else {
            output.dblActual = Val(output.strActual);
        }
        result.aOutputs.push_back(output);
    }
    if (loopUsed)
        result.aLoops.push_back(
            SolvedLoop("PLL", Val(fields.FindAs<TextField>(layout_.strLoopField)->Text()),
                       Loop(document), fields.FindAs<ListField>(layout_.strDataList)->Text()));
}

}  // namespace pendulon
