#include "planner/clsDevicePlanner.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <tuple>

#include "app/AppServices.hpp"
#include "app/Configurator.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/clsPLL.hpp"
#include "core/mShared.hpp"
#include "planner/PlannerHost.hpp"
#include "planner/cls3350Planner.hpp"
#include "planner/cls4860FamilyPlanner.hpp"
#include "planner/cls5140Planner.hpp"
#include "planner/cls7311Planner.hpp"
#include "planner/clsPlannerRun.hpp"
#include "power/frmPower.hpp"

namespace pendulon {

namespace {

// "1,210": the thousands of a count of ppm set apart.
std::string Thousands(std::int64_t value) {
    const std::string digits = std::to_string(value < 0 ? -value : value);
    std::string text = value < 0 ? "-" : "";
    for (size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0)
            text += ',';
        text += digits[i];
    }
    return text;
}

// The order of two readings that serve: smaller worst |ppm|, then lower typical current (a
// device without a power model after those with one), then the one proposed first.
auto Key(const clsPlanResult& reading, size_t order) {
    return std::make_tuple(reading.lngWorstPPM, reading.blnHasCurrent ? 0 : 1,
                           reading.blnHasCurrent ? reading.dblTypicalCurrent : 0.0, order);
}

bool Serves(const clsPlanResult& reading, const std::string& problem) {
    return problem.empty() && reading.astrOutOfLimits.empty() && reading.lngWorstPPM >= 0;
}

}  // namespace

clsDevicePlanner::clsDevicePlanner(const PlannerHost& host, std::string device)
    : host_(host), device_(std::move(device)) {}

clsDevicePlanner::~clsDevicePlanner() = default;

std::unique_ptr<clsDevicePlanner> clsDevicePlanner::Create(const PlannerHost& host,
                                                           const std::string& device) {
    const auto& devices = clsPlan::AllDevices();
    if (std::find(devices.begin(), devices.end(), device) == devices.end())
        return nullptr;
    if (device.rfind("QX6105A", 0) == 0 || device.rfind("QX4860", 0) == 0)
        return std::make_unique<cls4860FamilyPlanner>(host, device);
    if (device.rfind("QX731", 0) == 0)
        return std::make_unique<cls7311Planner>(host, device);
    if (device == "QX5140")
        return std::make_unique<cls5140Planner>(host, device);
    return std::make_unique<cls3350Planner>(host, device);
}

std::string clsDevicePlanner::Megahertz(double frequency) {
    return GeneralNumber(frequency) + " MHz";
}

std::string clsDevicePlanner::Volts(double voltage) {
    return GeneralNumber(voltage) + " V";
}

const clsDevicePlanner::Pin& clsDevicePlanner::PinNamed(const std::vector<Pin>& pins,
                                                        const std::string& name) {
    for (const Pin& pin : pins)
        if (pin.strName == name)
            return pin;
    return pins.front();
}

PlanLoop clsDevicePlanner::SolvedLoop(const std::string& name, double target, clsPLL& pll,
                                      const std::string& data) {
    PlanLoop loop;
    loop.strLoop = name;
    loop.dblTarget = target;
    loop.dblP = pll.GetP(data);
    loop.dblQ = pll.GetQ(data);
    loop.dblVCO = pll.GetVCO(data);
    return loop;
}

std::string clsDevicePlanner::Together(const std::vector<double>& frequencies) {
    std::string text;
    for (size_t i = 0; i < frequencies.size(); ++i) {
        if (i > 0)
            text += i + 1 == frequencies.size() ? " and " : ", ";
        text += Megahertz(frequencies[i]);
    }
    return text;
}

std::string clsDevicePlanner::OtherThanWanted(const PlanOutput& output,
                                              const std::string& desired) {
    return output.strPin + " gives " + desired + " MHz, not " + Megahertz(output.dblWanted);
}

std::string clsDevicePlanner::Unsolved(const PlanOutput& output) {
    return "no P and Q give " + Megahertz(output.dblWanted) + " on " + output.strPin;
}

std::string clsDevicePlanner::DesiredText(double frequency) {
    return mShared::FormatFrequencyFixed(frequency);
}

bool clsDevicePlanner::ParseActual(const std::string& text, std::string& actual,
                                   std::int32_t& ppm) {
    if (InStr(text, "PPM:") == 0)
        return false;
    actual = Trim(mShared::GetSubstring(text, "", " "));
    const double value = Val(Trim(mShared::GetSubstring(text, "PPM:", "")));
    if (std::abs(value) >= mShared::kNoSolutionPPM)
        return false;
    ppm = static_cast<std::int32_t>(value);
    return true;
}

std::string clsDevicePlanner::ReopenProblem(clsPlannerRun&, Configurator&,
                                            const clsPlanResult&) const {
    return {};
}

std::vector<PlanAction> clsDevicePlanner::PackageActions(Configurator&, const clsPlan&) const {
    return {};
}

std::vector<PlanAction> clsDevicePlanner::ReferenceActions(Configurator&, double reference) const {
    return {PlanAction::Set("cboFRef", GeneralNumber(reference))};
}

void clsDevicePlanner::ReadCommon(Configurator& document, clsPlanResult& result) const {
    result.strDevice = device_;
    result.intPins = static_cast<int>(Val(document.PinName(0)));
    result.dblReference = Val(document.cboFRef.Text());
    const frmPower& power = document.App().Power();
    result.blnHasCurrent = power.ParentForm() == &document && power.RowCount() > 0 &&
                           !power.Cell(0, 1).empty() && !power.Cell(0, 2).empty();
    if (result.blnHasCurrent) {
        // The row of the configuration: select lines all low, the first row of the table.
        result.dblTypicalCurrent = Val(power.Cell(0, 1));
        result.dblWorstCurrent = Val(power.Cell(0, 2));
    }
    result.astrOutOfLimits.clear();
    for (const Field* field : document.Fields().Fields()) {
        if (field->Visible() && field->ForeColor() == colors::Red)
            result.astrOutOfLimits.push_back(field->Name());
    }
    result.lngWorstPPM = -1;
    for (const PlanOutput& output : result.aOutputs)
        result.lngWorstPPM = std::max(result.lngWorstPPM, std::abs(output.lngPPM));
}

void clsDevicePlanner::Evaluate(clsPlannerRun& run, const std::vector<double>& wanted,
                                Candidate& candidate) const {
    candidate.blnRead = true;
    candidate.blnConfirmed = true;
    candidate.reading = clsPlanResult{};
    candidate.strProblem.clear();
    std::string error;
    Configurator* document = run.NewDocument(error);
    if (document == nullptr) {
        candidate.strProblem = error;
        return;
    }
    const size_t reports = run.ErrorReports();
    if (!clsPlannerRun::Apply(*document, candidate.aActions, error)) {
        candidate.strProblem = error;
        return;
    }
    ReadDocument(run, *document, wanted, reports, candidate);
    candidate.blnConfirmed = true;
}

void clsDevicePlanner::ReadDocument(clsPlannerRun& run, Configurator& document,
                                    const std::vector<double>& wanted, size_t reports,
                                    Candidate& candidate) const {
    candidate.blnRead = true;
    candidate.blnConfirmed = false;
    candidate.reading = clsPlanResult{};
    candidate.strProblem.clear();
    clsPlanResult& reading = candidate.reading;
    Read(document, wanted, candidate.astrPins, reading, candidate.strProblem);
    ReadCommon(document, reading);
    reading.aActions = candidate.aActions;
    if (run.ErrorReports() != reports && candidate.strProblem.empty()) {
        // The description is the last of the report's three lines.
        const std::string report = run.LastErrorReport();
        const auto at = report.rfind(": ");
        candidate.strProblem = "the window reported an error: " +
                               (at == std::string::npos ? report : report.substr(at + 2));
    }
    if (candidate.strProblem.empty() && !reading.astrOutOfLimits.empty())
        candidate.strProblem =
            "the window marks " + reading.astrOutOfLimits.front() + " out of limits";
}

std::string clsDevicePlanner::Open(AppServices& app, const clsPlanResult& result) const {
    std::string error;
    Configurator* document = host_.NewDocument(app, device_, error);
    if (document == nullptr)
        return error;
    if (!clsPlannerRun::Apply(*document, result.aActions, error))
        return error;
    return Shows(*document, result);
}

std::string clsDevicePlanner::Shows(Configurator& document, const clsPlanResult& result) const {
    std::vector<double> wanted;
    std::vector<std::string> pins;
    for (const PlanOutput& output : result.aOutputs) {
        wanted.push_back(output.dblWanted);
        pins.push_back(output.strPin);
    }
    clsPlanResult shown;
    std::string problem;
    Read(document, wanted, pins, shown, problem);
    if (!problem.empty())
        return problem;
    for (size_t i = 0; i < shown.aOutputs.size(); ++i) {
        const PlanOutput& promised = result.aOutputs[i];
        const PlanOutput& seen = shown.aOutputs[i];
        if (seen.strSource != promised.strSource || seen.strActual != promised.strActual ||
            seen.lngPPM != promised.lngPPM)
            return "the window shows " + seen.strPin + " at " + seen.strActual + " MHz (" +
                   std::to_string(seen.lngPPM) + " ppm) from " + seen.strSource + ", not " +
                   promised.strActual + " MHz (" + std::to_string(promised.lngPPM) + " ppm) from " +
                   promised.strSource;
    }
    return {};
}

clsPlanResult clsDevicePlanner::Plan(const clsPlan& plan, const std::atomic<bool>& cancel) {
    clsPlanResult result;
    result.strDevice = device_;
    clsPlannerRun run(host_, device_);
    std::string error;
    Configurator* document = run.NewDocument(error);
    if (document == nullptr) {
        result.strReason = error;
        return result;
    }

    std::vector<double> wanted;
    for (const double frequency : plan.adblOutputs) wanted.push_back(clsPlan::AsField(frequency));

    // The voltage: the option of the window, if the device has it.
    std::vector<PlanAction> prefix;
    const bool low = plan.dblVoltage == clsPlan::kLowVoltage;
    OptionButton& voltage = low ? document->opt3V : document->opt5V;
    if (!voltage.Enabled()) {
        result.strReason = low ? "does not run at 3.3 V" : "runs at 3.3 V only";
        return result;
    }
    if (!voltage.Value())
        prefix.push_back(PlanAction::Click(voltage.Name()));
    if (!clsPlannerRun::Apply(*document, prefix, error)) {
        result.strReason = error;
        return result;
    }
    const std::vector<PlanAction> package = PackageActions(*document, plan);
    if (!clsPlannerRun::Apply(*document, package, error)) {
        result.strReason = error;
        return result;
    }
    prefix.insert(prefix.end(), package.begin(), package.end());
    result.intPins = static_cast<int>(Val(document->PinName(0)));
    if (plan.intPins != 0 && result.intPins != plan.intPins) {
        result.blnTried = false;
        result.strReason = "has no " + std::to_string(plan.intPins) + "-pin package";
        return result;
    }

    const int outputs = OutputCount(*document);
    if (static_cast<int>(wanted.size()) > outputs) {
        result.strReason =
            "needs " + std::to_string(wanted.size()) + " outputs, has " + std::to_string(outputs);
        return result;
    }
    // A wanted frequency outside what an output of the device can give at this voltage.
    double minimum = 0;
    double maximum = 0;
    OutputRange(*document, minimum, maximum);
    for (const double frequency : wanted) {
        if (frequency > maximum || frequency < minimum) {
            result.strReason = Megahertz(frequency) +
                               (frequency > maximum ? " above the " : " below the ") +
                               Megahertz(frequency > maximum ? maximum : minimum) +
                               " output limit at " + Volts(plan.dblVoltage);
            return result;
        }
    }

    // The references to try: the plan's, or each of the window's own list.
    std::vector<std::string> references;
    if (plan.AnyReference()) {
        references = document->cboFRef.Items();
    } else {
        references.push_back(GeneralNumber(plan.ReferenceAsField()));
    }

    std::vector<Candidate> tried;
    // The smallest worst |ppm| of the configurations read so far that serve.
    std::int32_t bestWorst = mShared::kNoSolutionPPM;
    std::string familyReason;
    std::string referenceReason;
    for (const std::string& referenceText : references) {
        if (cancel)
            return result;
        document = run.NewDocument(error);
        if (document == nullptr) {
            result.strReason = error;
            return result;
        }
        std::vector<PlanAction> actions = prefix;
        const std::vector<PlanAction> reference = ReferenceActions(*document, Val(referenceText));
        actions.insert(actions.end(), reference.begin(), reference.end());
        // A reference from the list goes in as its entry, as a user picks it.
        if (plan.AnyReference())
            actions.back().strText = referenceText;
        if (!clsPlannerRun::Apply(*document, actions, error)) {
            result.strReason = error;
            return result;
        }
        const double taken = Val(document->cboFRef.Text());
        if (taken != Val(referenceText)) {
            if (referenceReason.empty())
                referenceReason = "reference " + Megahertz(Val(referenceText)) + " outside its " +
                                  Trim(document->txtFRefMin.Text()) + "-" +
                                  Trim(document->txtFRefMax.Text()) + " MHz range";
            continue;
        }
        const Context context{run, plan, wanted, taken, actions, cancel};
        std::string reason;
        std::vector<Candidate> candidates = Candidates(context, reason);
        if (candidates.empty() && familyReason.empty())
            familyReason = reason;
        for (Candidate& candidate : candidates) {
            if (cancel)
                return result;
            if (candidate.lngKnownWorst >= 0 && candidate.lngKnownWorst > bestWorst)
                continue;
            if (!candidate.blnRead)
                Evaluate(run, wanted, candidate);
            if (Serves(candidate.reading, candidate.strProblem))
                bestWorst = std::min(bestWorst, candidate.reading.lngWorstPPM);
            tried.push_back(std::move(candidate));
        }
    }

    // The configurations that serve, best first.
    std::vector<size_t> serving;
    std::string problem;
    for (size_t i = 0; i < tried.size(); ++i) {
        if (Serves(tried[i].reading, tried[i].strProblem))
            serving.push_back(i);
        else if (problem.empty())
            problem = tried[i].strProblem;
    }
    std::stable_sort(serving.begin(), serving.end(), [&tried](size_t a, size_t b) {
        return Key(tried[a].reading, a) < Key(tried[b].reading, b);
    });

    // What a family read in a window of its own is read again in a new document, as Open
    // makes it; that reading is the promise.
    const Candidate* best = nullptr;
    Candidate confirmed;
    size_t bestOrder = 0;
    for (size_t n = 0; n < serving.size(); ++n) {
        if (cancel)
            return result;
        Candidate& candidate = tried[serving[n]];
        const Candidate* reading = &candidate;
        Candidate again;
        if (!candidate.blnConfirmed) {
            again.aActions = candidate.aActions;
            again.astrPins = candidate.astrPins;
            Evaluate(run, wanted, again);
            if (again.strProblem.empty() && run.Document() != nullptr)
                again.strProblem = ReopenProblem(run, *run.Document(), again.reading);
            reading = &again;
        }
        if (Serves(reading->reading, reading->strProblem) &&
            (best == nullptr ||
             Key(reading->reading, serving[n]) < Key(best->reading, bestOrder))) {
            confirmed = *reading;
            best = &confirmed;
            bestOrder = serving[n];
        } else if (!Serves(reading->reading, reading->strProblem) && problem.empty()) {
            problem = reading->strProblem;
        }
        // Nothing later can do better than what stands.
        if (best != nullptr &&
            (n + 1 == serving.size() ||
             Key(best->reading, bestOrder) <= Key(tried[serving[n + 1]].reading, serving[n + 1])))
            break;
    }

    if (best == nullptr) {
        if (tried.empty()) {
            result.strReason = !familyReason.empty() ? familyReason : referenceReason;
        } else {
            result.strReason = problem;
        }
        if (result.strReason.empty())
            result.strReason = "no configuration gives every output";
        return result;
    }

    const std::int32_t pins = result.intPins;
    result = best->reading;
    result.intPins = result.intPins != 0 ? result.intPins : pins;
    result.aActions = best->aActions;
    if (plan.HasTolerance() && result.lngWorstPPM > plan.lngTolerancePPM) {
        result.blnServes = false;
        result.strReason = "best " + Thousands(result.lngWorstPPM) + " ppm exceeds " +
                           Thousands(plan.lngTolerancePPM) + " ppm";
        return result;
    }
    result.blnServes = true;
    return result;
}

}  // namespace pendulon
