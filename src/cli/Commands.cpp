#include "cli/Commands.hpp"

#include "cli/DecodeCommand.hpp"
#include "cli/DocumentCommand.hpp"
#include "cli/SolveCommand.hpp"
#include "cli/ToolActions.hpp"
#include "cli/WizardCommand.hpp"

namespace pendulon::cli {

// Each command lives in its own file and is added here.
const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {
        {"solve", kSolveUsage, kSolveSummary, RunSolve},
        {"new",
         std::string(kNewUsage) + "\n      and the document actions of open:\n" +
             std::string(kToolActionsUsage, std::string(kToolActionsUsage).size() - 1),
         kNewSummary, RunNew},
        {"open", kOpenUsage, kOpenSummary, RunOpen},
        {"jed", kJedUsage, kJedSummary, RunJed},
        {"decode", kDecodeUsage, kDecodeSummary, RunDecode},
        {"wizard", kWizardUsage, kWizardSummary, RunWizard},
    };
    return commands;
}

}  // namespace pendulon::cli
