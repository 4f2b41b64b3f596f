#include "planner/cls5140Planner.hpp"

#include <algorithm>
#include <set>

#include "app/AppServices.hpp"
#include "configurators/frmQX5140.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/clsPLL.hpp"
#include "core/mShared.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "planner/clsPlannerRun.hpp"

namespace pendulon {

cls5140Planner::cls5140Planner(const PlannerHost& host, const std::string& device)
    : clsDevicePlanner(host, device),
      pins_{{"CLKA", "lblClkASrcDiv", "txtClkA(0)", "cboClkA(0)"},
            {"CLKB", "lblClkBSrcDiv", "txtClkB", "cboClkB"},
            {"CLKC", "lblClkCSrcDiv", "txtClkC", "cboClkC"}} {}

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
    std::vector<std::string> pins;
    std::vector<PlanAction> actions = context.aPrefix;
    for (size_t i = 0; i < wanted.size(); ++i) {
        pins.push_back(pins_[i].strName);
        actions.push_back(
            PlanAction::Set(pins_[i].strDesired, mShared::FormatFrequencyShort(wanted[i])));
    }
    actions.push_back(PlanAction::Click("cmdCalculate"));

    std::vector<Candidate> candidates;
    std::string error;
    Configurator* document = context.run.NewDocument(error);
    const size_t reports = context.run.ErrorReports();
    if (document == nullptr || !clsPlannerRun::Apply(*document, actions, error)) {
        reason = error;
        return candidates;
    }
    // Each further press shows the next case.
    const size_t cases = static_cast<frmQX5140&>(*document).mstrSources().size();
    for (size_t shown = 0; shown < cases && !context.cancel; ++shown) {
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
    if (candidates.empty())
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
        const Pin& pin = PinNamed(pins_, pins[i]);
        PlanOutput output;
        output.dblWanted = wanted[i];
        output.strPin = pin.strName;
        output.strSource = Trim(fields.Find(pin.strSource)->Caption());
        const std::string desired = Trim(fields.FindAs<TextField>(pin.strDesired)->Text());
        if (desired != mShared::FormatFrequencyShort(wanted[i]) && problem.empty())
            problem = OtherThanWanted(output, desired);
        const char letter = output.strSource.empty() ? '\0' : output.strSource[0];
        if (output.strSource.empty() || output.strSource == "Off") {
            if (problem.empty())
                problem = "no case of its search gives " + Megahertz(wanted[i]) + " a source";
        } else if (!ParseActual(fields.FindAs<ListField>(pin.strActual)->Text(), output.strActual,
                                output.lngPPM)) {
            if (problem.empty())
                problem = Unsolved(output);
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
        result.aLoops.push_back(SolvedLoop(loop.strName, chosen[loop.index].dblTargetVCO, *loop.pll,
                                           loop.data->Text()));
    }
}

std::string cls5140Planner::ReopenProblem(clsPlannerRun& run, Configurator& document,
                                          const clsPlanResult& reading) const {
    // The file as Save writes it, read back as Open reads it.
    const char* const name = "plan.ent";
    clsEntryFile7311& file = static_cast<frmQX5140&>(document).EntryFile();
    file.MakeEntryFile();
    const std::string text =
        clsEntryFile7311::EntryFileText(file.Entry(), Device(), "", false, false);
    clsEntryFile image(run.App().Errors());
    if (!mFileAccessor::ParseFile(text, name, "", image))
        return "its entry file cannot be read back";
    std::string error;
    Configurator* reopened = run.NewDocument(error);
    if (reopened == nullptr)
        return error;
    if (!reopened->FillForm(image, name))
        return "its entry file does not open";
    const std::string shown = Shows(*reopened, reading);
    if (!shown.empty())
        return "its entry file opens on another case (" + shown + ")";
    return {};
}

}  // namespace pendulon
