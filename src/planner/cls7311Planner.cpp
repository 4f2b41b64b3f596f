#include "planner/cls7311Planner.hpp"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <functional>
#include <limits>
#include <set>
#include <tuple>

#include "configurators/frmQX7311.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/clsPLL.hpp"
#include "core/mShared.hpp"
#include "planner/clsPlannerRun.hpp"
#include "platform/ListField.hpp"

namespace pendulon {

namespace {

// How many of the best assignments are tried as a whole in a window.
constexpr size_t kAssignmentsTried = 8;
// How many choices of loop frequencies one division of outputs among the sources may try.
constexpr int kFrequencyChoices = 16;

// One way an output can come out: from the reference or a loop, through an entry of a list.
struct Option {
    char chrLetter = 'R';
    std::string strEntry;
    // The loop's frequency as its field keeps it; empty for the reference.
    std::string strText;
    double dblValue = 0;
};

// Outputs to pins: each output to one of its allowed pins, no pin twice; an output takes the
// first free pin it may have, and only moves another when none is free, so that the outputs
// come out in the order of the pins where they can. False when there is no such assignment.
bool MatchPins(const std::vector<std::vector<size_t>>& allowed, size_t pinCount,
               std::vector<size_t>& pinOf) {
    std::vector<int> outputOf(pinCount, -1);
    std::function<bool(size_t, std::vector<bool>&)> place = [&](size_t output,
                                                                std::vector<bool>& seen) {
        for (size_t pin : allowed[output]) {
            if (outputOf[pin] < 0) {
                outputOf[pin] = static_cast<int>(output);
                return true;
            }
        }
        for (size_t pin : allowed[output]) {
            if (seen[pin])
                continue;
            seen[pin] = true;
            if (place(static_cast<size_t>(outputOf[pin]), seen)) {
                outputOf[pin] = static_cast<int>(output);
                return true;
            }
        }
        return false;
    };
    for (size_t output = 0; output < allowed.size(); ++output) {
        std::vector<bool> seen(pinCount, false);
        if (!place(output, seen))
            return false;
    }
    pinOf.assign(allowed.size(), 0);
    for (size_t pin = 0; pin < pinCount; ++pin)
        if (outputOf[pin] >= 0)
            pinOf[static_cast<size_t>(outputOf[pin])] = pin;
    return true;
}

// An assignment of every output to a source, a pin and the loops' frequencies.
struct Assignment {
    std::int32_t lngWorst = 0;
    int intLoops = 0;
    double dblLoopSum = 0;
    std::vector<std::string> astrEntries;
    std::vector<size_t> aPins;
    std::map<char, std::string> texts;

    auto Key() const { return std::make_tuple(lngWorst, intLoops, dblLoopSum); }
};

}  // namespace

cls7311Planner::cls7311Planner(const PlannerHost& host, const std::string& device)
    : clsDevicePlanner(host, device) {
    const char* const clocks[frmQX7311::kClocks] = {"CLKA", "CLKB", "CLKC", "CLKD"};
    for (int k = 0; k < frmQX7311::kClocks; ++k) {
        const std::string index = "(" + std::to_string(k).append(")");
        pins_.push_back(
            {clocks[k], "cboClk" + index, "lblDesiredClk" + index, "cboActualClk" + index});
    }
    pins_.push_back({"CPU", "cboCPU", "lblDesiredCPU", "cboActualCPU"});
    // The QX7312 models have no CLKF.
    if (device.rfind("QX7311", 0) == 0)
        pins_.push_back({"CLKF", "cboClkF", "lblDesiredClkF", "cboActualClkF"});
    pins_.push_back({"XBUF", "cboXBuff", "lblDesiredXBuff", "cboActualXBuff"});
}

const std::vector<cls7311Planner::Loop>& cls7311Planner::Loops() {
    static const std::vector<Loop> loops = {
        {'C', "CPLL", "txtCPLL(0)", "cboCPLL(0)", "cboCPLLData(0)"},
        {'S', "SPLL", "txtSPLL", "cboSPLL", "cboSPLLData"},
        {'U', "UPLL", "txtUPLL", "cboUPLL", "cboUPLLData"}};
    return loops;
}

const cls7311Planner::Loop& cls7311Planner::LoopOf(char letter) {
    for (const Loop& loop : Loops())
        if (loop.chrLetter == letter)
            return loop;
    return Loops().front();
}

void cls7311Planner::LoopRange(frmQX7311& form, char letter, double& minimum, double& maximum) {
    switch (letter) {
        case 'C':
            minimum = form.CPLLMinimum();
            maximum = form.CPLLMaximum();
            break;
        case 'S':
            minimum = form.SPLLMinimum();
            maximum = form.SPLLMaximum();
            break;
        default:
            minimum = form.UPLLMinimum();
            maximum = form.UPLLMaximum();
            break;
    }
}

int cls7311Planner::OutputCount(Configurator&) const {
    return static_cast<int>(pins_.size());
}

void cls7311Planner::OutputRange(Configurator& document, double& minimum, double& maximum) const {
    auto& form = static_cast<frmQX7311&>(document);
    minimum = std::numeric_limits<double>::max();
    maximum = 0;
    // A loop's outputs run from its minimum over its largest divider up to its maximum.
    for (const Pin& pin : pins_) {
        for (const std::string& entry : form.Fields().FindAs<ListField>(pin.strSource)->Items()) {
            if (entry == "Off" || StartsWithNoCase(entry, "R"))
                continue;
            double low = 0;
            double high = 0;
            LoopRange(form, entry[0], low, high);
            minimum = std::min(minimum, low / mShared::GetNonZeroDivisor(entry));
            maximum = std::max(maximum, high);
        }
    }
}

std::map<std::pair<char, std::string>, std::int32_t> cls7311Planner::SolveLoops(
    const Context& context, const std::map<char, std::vector<std::string>>& texts) const {
    std::map<std::pair<char, std::string>, std::int32_t> ppm;
    std::string error;
    Configurator* document = context.run.NewDocument(error);
    if (document == nullptr || !clsPlannerRun::Apply(*document, context.aPrefix, error))
        return ppm;
    size_t rounds = 0;
    for (const auto& [letter, list] : texts) rounds = std::max(rounds, list.size());
    // The three loops are independent: each Calculate solves one frequency of each.
    for (size_t round = 0; round < rounds && !context.cancel; ++round) {
        std::vector<PlanAction> actions;
        for (const auto& [letter, list] : texts)
            if (round < list.size())
                actions.push_back(PlanAction::Set(LoopOf(letter).strField, list[round]));
        actions.push_back(PlanAction::Click("cmdCalculate"));
        const bool done = clsPlannerRun::Apply(*document, actions, error);
        for (const auto& [letter, list] : texts) {
            if (round >= list.size())
                continue;
            std::string actual;
            std::int32_t value = 0;
            const auto* shown = document->Fields().FindAs<ListField>(LoopOf(letter).strActual);
            ppm[{letter, list[round]}] = done && ParseActual(shown->Text(), actual, value)
                                             ? std::abs(value)
                                             : mShared::kNoSolutionPPM;
        }
    }
    return ppm;
}

std::vector<clsDevicePlanner::Candidate> cls7311Planner::Candidates(const Context& context,
                                                                    std::string& reason) {
    auto& form = static_cast<frmQX7311&>(*context.run.Document());
    const std::vector<double>& wanted = context.adblWanted;
    const size_t count = wanted.size();

    // Every entry of the output lists, with the pins whose list holds it.
    std::map<std::string, std::vector<size_t>> pinsOfEntry;
    for (size_t p = 0; p < pins_.size(); ++p)
        for (const std::string& entry :
             form.Fields().FindAs<ListField>(pins_[p].strSource)->Items())
            if (entry != "Off")
                pinsOfEntry[entry].push_back(p);

    // The ways each output can come out, and the loop frequencies they ask for.
    std::vector<std::vector<Option>> options(count);
    std::map<char, std::vector<std::string>> texts;
    for (size_t i = 0; i < count; ++i) {
        const std::string want = DesiredText(wanted[i]);
        for (const auto& [entry, pins] : pinsOfEntry) {
            const double divisor = mShared::GetNonZeroDivisor(entry);
            const char letter =
                static_cast<char>(std::toupper(static_cast<unsigned char>(entry[0])));
            if (letter == 'R') {
                if (DesiredText(context.dblReference / divisor) == want)
                    options[i].push_back({'R', entry, {}, 0});
                continue;
            }
            double minimum = 0;
            double maximum = 0;
            LoopRange(form, letter, minimum, maximum);
            const std::string text = mShared::FormatFrequencyShort(wanted[i] * divisor);
            const double value = Val(text);
            if (value < minimum || value > maximum || DesiredText(value / divisor) != want)
                continue;
            options[i].push_back({letter, entry, text, value});
            auto& list = texts[letter];
            if (std::find(list.begin(), list.end(), text) == list.end())
                list.push_back(text);
        }
        if (options[i].empty()) {
            reason = "no source of its outputs gives " + Megahertz(wanted[i]);
            return {};
        }
    }
    const auto ppm = SolveLoops(context, texts);
    auto loopPPM = [&ppm](char letter, const std::string& text) {
        const auto it = ppm.find({letter, text});
        return it == ppm.end() ? mShared::kNoSolutionPPM : it->second;
    };

    // The loop frequencies the window solved, numbered per loop from the best (smallest |ppm|,
    // then lowest frequency) on, so that the smaller number is the better frequency.
    const std::string letters = "CSU";
    std::map<char, std::vector<std::string>> ranked;
    for (const char letter : letters) {
        std::vector<std::string> solved;
        for (const std::string& text : texts[letter])
            if (loopPPM(letter, text) < mShared::kNoSolutionPPM)
                solved.push_back(text);
        std::stable_sort(solved.begin(), solved.end(),
                         [&](const std::string& a, const std::string& b) {
                             return std::make_pair(loopPPM(letter, a), Val(a)) <
                                    std::make_pair(loopPPM(letter, b), Val(b));
                         });
        ranked[letter] = solved;
    }
    // Per output and source (reference or loop): the loop frequencies it can take, by number,
    // and for each the entry and the pins that give it.
    struct Way {
        int intText = -1;
        std::string strEntry;
        const std::vector<size_t>* pins = nullptr;
    };
    std::vector<std::map<char, std::vector<Way>>> ways(count);
    for (size_t i = 0; i < count; ++i) {
        for (const Option& o : options[i]) {
            Way way;
            way.strEntry = o.strEntry;
            way.pins = &pinsOfEntry[o.strEntry];
            if (o.chrLetter != 'R') {
                const auto& list = ranked[o.chrLetter];
                const auto at = std::find(list.begin(), list.end(), o.strText);
                if (at == list.end())
                    continue;
                way.intText = static_cast<int>(at - list.begin());
            }
            ways[i][o.chrLetter].push_back(way);
        }
        for (auto& [letter, list] : ways[i])
            std::sort(list.begin(), list.end(),
                      [](const Way& a, const Way& b) { return a.intText < b.intText; });
    }
    std::vector<std::vector<char>> sources(count);
    for (size_t i = 0; i < count; ++i)
        for (const char letter : {'R', 'C', 'S', 'U'})
            if (ways[i].count(letter) != 0)
                sources[i].push_back(letter);
    if (std::any_of(sources.begin(), sources.end(), [](const auto& s) { return s.empty(); })) {
        sources.clear();
    }

    // Each output takes the reference or one of the loops; the outputs on a loop share its
    // frequency. Every such division is tried with the loop frequencies the outputs on each loop
    // can all take, best first, until the outputs find pins.
    // Outputs of the same wanted frequency are alike: of their divisions only one order is
    // tried, the one that gives them sources in the order of the list (twin: the output of the
    // same frequency before it).
    std::vector<size_t> twin(count);
    for (size_t i = 0; i < count; ++i) {
        twin[i] = i;
        for (size_t j = 0; j < i; ++j)
            if (DesiredText(wanted[j]) == DesiredText(wanted[i]))
                twin[i] = j;
    }
    std::map<char, std::vector<double>> values;
    for (const auto& [letter, list] : ranked)
        for (const std::string& text : list) values[letter].push_back(Val(text));
    // The best assignments found so far, best first, no more than are tried.
    std::vector<Assignment> found;
    auto keep = [&found](Assignment assignment) {
        for (const Assignment& other : found)
            if (other.astrEntries == assignment.astrEntries && other.aPins == assignment.aPins &&
                other.texts == assignment.texts)
                return;
        const auto at = std::upper_bound(
            found.begin(), found.end(), assignment,
            [](const Assignment& a, const Assignment& b) { return a.Key() < b.Key(); });
        found.insert(at, std::move(assignment));
        if (found.size() > kAssignmentsTried)
            found.pop_back();
    };
    std::vector<size_t> choice(count, 0);
    std::vector<int> common;
    std::vector<int> kept;
    auto canonical = [&] {
        for (size_t i = 0; i < count; ++i)
            if (twin[i] != i && choice[i] < choice[twin[i]])
                return false;
        return true;
    };
    while (!sources.empty() && !context.cancel) {
        std::map<char, std::vector<int>> shared;
        bool possible = canonical();
        for (const char letter : letters) {
            if (!possible)
                break;
            bool first = true;
            for (size_t i = 0; i < count && possible; ++i) {
                if (sources[i][choice[i]] != letter)
                    continue;
                const auto& own = ways[i][letter];
                if (first) {
                    common.clear();
                    for (const Way& way : own) common.push_back(way.intText);
                    first = false;
                } else {
                    kept.clear();
                    for (const int text : common)
                        if (std::any_of(own.begin(), own.end(),
                                        [text](const Way& w) { return w.intText == text; }))
                            kept.push_back(text);
                    common.swap(kept);
                }
                possible = !common.empty();
            }
            if (!possible)
                break;
            if (!first)
                shared[letter] = common;
        }
        // No better than the last one kept even with each loop's best frequency: not tried.
        if (possible && found.size() == kAssignmentsTried) {
            std::int32_t bound = 0;
            for (const auto& [letter, list] : shared)
                bound =
                    std::max(bound, loopPPM(letter, ranked[letter][static_cast<size_t>(list[0])]));
            possible = bound <= found.back().lngWorst;
        }
        if (possible) {
            std::map<char, size_t> pick;
            for (const auto& [letter, list] : shared) pick[letter] = 0;
            for (int tries = 0; tries < kFrequencyChoices; ++tries) {
                Assignment assignment;
                std::vector<std::vector<size_t>> allowed(count);
                for (size_t i = 0; i < count; ++i) {
                    const char letter = sources[i][choice[i]];
                    const int text = letter == 'R' ? -1 : shared[letter][pick[letter]];
                    for (const Way& way : ways[i][letter]) {
                        if (way.intText == text) {
                            assignment.astrEntries.push_back(way.strEntry);
                            allowed[i] = *way.pins;
                            break;
                        }
                    }
                }
                for (const auto& [letter, index] : pick) {
                    const auto number = static_cast<size_t>(shared[letter][index]);
                    const std::string& text = ranked[letter][number];
                    assignment.texts[letter] = text;
                    assignment.lngWorst = std::max(assignment.lngWorst, loopPPM(letter, text));
                    assignment.dblLoopSum += values[letter][number];
                    ++assignment.intLoops;
                }
                if (MatchPins(allowed, pins_.size(), assignment.aPins)) {
                    keep(std::move(assignment));
                    break;
                }
                // The next choice of frequencies, the first loop fastest.
                bool carried = true;
                for (auto& [letter, index] : pick) {
                    if (++index < shared[letter].size()) {
                        carried = false;
                        break;
                    }
                    index = 0;
                }
                if (carried)
                    break;
            }
        }
        // The next division of the outputs among the sources.
        size_t i = 0;
        for (; i < count; ++i) {
            if (++choice[i] < sources[i].size())
                break;
            choice[i] = 0;
        }
        if (i == count)
            break;
    }
    if (found.empty()) {
        reason = count > 1 ? "its loops and outputs cannot give " + Together(wanted) + " at once"
                           : "no loop gives " + Together(wanted);
        return {};
    }

    std::vector<Candidate> candidates;
    for (const Assignment& assignment : found) {
        Candidate candidate;
        candidate.aActions = context.aPrefix;
        for (size_t p = 0; p < pins_.size(); ++p) {
            std::string entry = "Off";
            for (size_t i = 0; i < count; ++i)
                if (assignment.aPins[i] == p)
                    entry = assignment.astrEntries[i];
            candidate.aActions.push_back(PlanAction::Set(pins_[p].strSource, entry));
        }
        for (const auto& [letter, text] : assignment.texts)
            candidate.aActions.push_back(PlanAction::Set(LoopOf(letter).strField, text));
        candidate.aActions.push_back(PlanAction::Click("cmdCalculate"));
        for (size_t i = 0; i < count; ++i)
            candidate.astrPins.push_back(pins_[assignment.aPins[i]].strName);
        candidate.lngKnownWorst = assignment.lngWorst;
        candidates.push_back(std::move(candidate));
    }
    return candidates;
}

void cls7311Planner::Read(Configurator& document, const std::vector<double>& wanted,
                          const std::vector<std::string>& pins, clsPlanResult& result,
                          std::string& problem) const {
    auto& form = static_cast<frmQX7311&>(document);
    const FieldRegistry& fields = form.Fields();
    std::set<char> used;
    for (size_t i = 0; i < wanted.size(); ++i) {
        const Pin& pin = PinNamed(pins_, pins[i]);
        PlanOutput output;
        output.dblWanted = wanted[i];
        output.strPin = pin.strName;
        output.strSource = fields.FindAs<ListField>(pin.strSource)->Text();
        const char letter =
            static_cast<char>(std::toupper(static_cast<unsigned char>(output.strSource[0])));
        const double divisor = mShared::GetNonZeroDivisor(output.strSource);
        const std::string want = DesiredText(wanted[i]);
        std::string desired = Trim(fields.Find(pin.strDesired)->Caption());
        std::string shown = Trim(fields.FindAs<ListField>(pin.strActual)->Text());
        bool solved = true;
        if (letter == 'R') {
            output.lngPPM = 0;
            output.strActual = shown;
        } else if (letter == 'C' || letter == 'S' || letter == 'U') {
            used.insert(letter);
            const Loop& loop = LoopOf(letter);
            std::string loopActual;
            solved = ParseActual(fields.FindAs<ListField>(loop.strActual)->Text(), loopActual,
                                 output.lngPPM);
            if (letter == 'C') {
                // The window names a CPLL output by its source; its frequency is the VCO of the
                // chosen solution halved and divided by the divider, as the power table takes
                // it (not the CPLL's rounded actual divided again).
                desired =
                    DesiredText(Val(fields.FindAs<TextField>(loop.strField)->Text()) / divisor);
                const double vco =
                    form.CPLL().GetVCO(fields.FindAs<ListField>(loop.strData)->Text());
                shown = mShared::FormatFrequencyFixed(vco / 2 / divisor);
            }
            output.strActual = shown;
        } else {
            solved = false;
        }
        if (desired != want && problem.empty())
            problem = OtherThanWanted(output, desired);
        if (!solved && problem.empty())
            problem = Unsolved(output);
        output.dblActual = Val(output.strActual);
        result.aOutputs.push_back(output);
    }
    for (const Loop& loop : Loops()) {
        if (used.count(loop.chrLetter) == 0)
            continue;
        clsPLL& pll = loop.chrLetter == 'C'   ? form.CPLL()
                      : loop.chrLetter == 'S' ? form.SPLL()
                                              : form.UPLL();
        result.aLoops.push_back(SolvedLoop(loop.strName,
                                           Val(fields.FindAs<TextField>(loop.strField)->Text()),
                                           pll, fields.FindAs<ListField>(loop.strData)->Text()));
    }
}

}  // namespace pendulon
