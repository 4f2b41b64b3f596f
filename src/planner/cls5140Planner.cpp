#include "planner/cls5140Planner.hpp"

#include <algorithm>
#include <set>

#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/clsPLL.hpp"
#include "core/mShared.hpp"
#include "planner/clsPlannerRun.hpp"
#include "qx5140/frmQX5140.hpp"

namespace pendulon {

namespace {

// One way of running the search: private loops for the wanted outputs, and the sensitivity
// typed into txtPPM (empty: the window's own).
struct Variant {
    bool blnPrivate = false;
    std::string strSensitivity;
};

// The largest sensitivity the window takes.
constexpr std::int32_t kLargestSensitivity = 5000;
// The sensitivity of a new window.
constexpr std::int32_t kDefaultSensitivity = 1000;

}  // namespace

cls5140Planner::cls5140Planner(const PlannerHost& host, const std::string& device)
    : clsDevicePlanner(host, device),
      pins_{{"CLKA", "txtClkA(0)", "cboClkA(0)", "lblClkASrcDiv", "chkPrivatePLLClockA"},
            {"CLKB", "txtClkB", "cboClkB", "lblClkBSrcDiv", "chkPrivatePLLClockB"},
            {"CLKC", "txtClkC", "cboClkC", "lblClkCSrcDiv", "chkPrivatePLLClockC"}} {}

int cls5140Planner::OutputCount(Configurator&) const {
    return static_cast<int>(pins_.size());
}

void cls5140Planner::OutputRange(Configurator& document, double& minimum, double& maximum) const {
    const auto& form = static_cast<frmQX5140&>(document);
    minimum = form.mdblMinimumOutput;
    maximum = form.mdblMaximumOutput;
}

std::vector<clsDevicePlanner::Candidate> cls5140Planner::Candidates(const Context& context,
                                                                    std::string& reason) {
    const std::vector<double>& wanted = context.adblWanted;
    std::vector<Variant> variants = {{false, ""}, {true, ""}, {false, "1"}, {true, "1"}};
    if (context.plan.HasTolerance()) {
        const std::int32_t tolerance = std::min(context.plan.lngTolerancePPM, kLargestSensitivity);
        if (tolerance != kDefaultSensitivity && tolerance != 1)
            variants.push_back({false, std::to_string(tolerance)});
    }
    std::vector<std::string> pins;
    for (size_t i = 0; i < wanted.size(); ++i) pins.push_back(pins_[i].strName);

    std::vector<Candidate> candidates;
    for (const Variant& variant : variants) {
        if (context.cancel)
            break;
        std::vector<PlanAction> actions = context.aPrefix;
        if (variant.blnPrivate)
            for (size_t i = 0; i < wanted.size(); ++i)
                actions.push_back(PlanAction::Click(pins_[i].strPrivate));
        if (!variant.strSensitivity.empty())
            actions.push_back(PlanAction::Set("txtPPM", variant.strSensitivity));
        for (size_t i = 0; i < wanted.size(); ++i)
            actions.push_back(
                PlanAction::Set(pins_[i].strDesired, mShared::FormatFrequencyShort(wanted[i])));
        actions.push_back(PlanAction::Click("cmdCalculate"));

        std::string error;
        Configurator* document = context.run.NewDocument(error);
        const size_t reports = context.run.ErrorReports();
        if (document == nullptr || !clsPlannerRun::Apply(*document, actions, error)) {
            reason = error;
            continue;
        }
        // Each further press shows the next case.
        const size_t cases = static_cast<frmQX5140&>(*document).mstrSources().size();
        for (size_t shown = 0; shown < cases; ++shown) {
            if (shown > 0) {
                const PlanAction press = PlanAction::Click("cmdCalculate");
                actions.push_back(press);
                if (!clsPlannerRun::Apply(*document, {press}, error))
                    break;
            }
            Candidate candidate;
            candidate.aActions = actions;
            candidate.astrPins = pins;
            ReadDocument(context.run, *document, wanted, reports, candidate);
            candidates.push_back(std::move(candidate));
        }
    }
    if (candidates.empty() && reason.empty())
        reason = "its case search finds no case";
    return candidates;
}

void cls5140Planner::Read(Configurator& document, const std::vector<double>& wanted,
                          const std::vector<std::string>& pins, clsPlanResult& result,
                          std::string& problem) const {
    auto& form = static_cast<frmQX5140&>(document);
    const FieldRegistry& fields = form.Fields();
    std::set<char> used;
    for (size_t i = 0; i < wanted.size(); ++i) {
        const auto pin = std::find_if(pins_.begin(), pins_.end(),
                                      [&](const Pin& p) { return p.strName == pins[i]; });
        PlanOutput output;
        output.dblWanted = wanted[i];
        output.strPin = pin->strName;
        output.strSource = Trim(fields.Find(pin->strSource)->Caption());
        const std::string desired = Trim(fields.FindAs<TextField>(pin->strDesired)->Text());
        if (desired != mShared::FormatFrequencyShort(wanted[i]) && problem.empty())
            problem = output.strPin + " takes " + desired + " MHz, not " + Megahertz(wanted[i]);
        const char letter = output.strSource.empty() ? '\0' : output.strSource[0];
        if (output.strSource.empty() || output.strSource == "Off") {
            if (problem.empty())
                problem = "no case of its search gives " + Megahertz(wanted[i]) + " a source";
        } else if (!ParseActual(fields.FindAs<ListField>(pin->strActual)->Text(), output.strActual,
                                output.lngPPM)) {
            if (problem.empty())
                problem = "no P and Q give " + Megahertz(wanted[i]) + " on " + output.strPin;
        }
        if (letter == 'C' || letter == 'S' || letter == 'U')
            used.insert(letter);
        output.dblActual = Val(output.strActual);
        result.aOutputs.push_back(output);
    }
    // The loops as the case sets them: SPLL, CPLL, UPLL.
    const auto chosen = form.Search().ChosenLoops(form.optSelect.Value());
    const struct {
        char chrLetter;
        const char* strName;
        clsPLL* pll;
        ListField* data;
        size_t index;
    } loops[] = {{'C', "CPLL", &form.CPLL(), &form.cboCPLLData[0], 1},
                 {'S', "SPLL", &form.SPLL(), &form.cboSPLLData, 0},
                 {'U', "UPLL", &form.UPLL(), &form.cboUPLLData, 2}};
    for (const auto& loop : loops) {
        if (used.count(loop.chrLetter) == 0)
            continue;
        const std::string data = loop.data->Text();
        PlanLoop planned;
        planned.strLoop = loop.strName;
        planned.dblTarget = chosen[loop.index].dblTargetVCO;
        planned.dblP = loop.pll->GetP(data);
        planned.dblQ = loop.pll->GetQ(data);
        planned.dblVCO = loop.pll->GetVCO(data);
        result.aLoops.push_back(planned);
    }
}

}  // namespace pendulon
