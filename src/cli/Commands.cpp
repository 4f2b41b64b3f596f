#include "cli/Commands.hpp"

#include "cli/DocumentCommand.hpp"
#include "cli/SolveCommand.hpp"

namespace pendulon::cli {

// Each command lives in its own file and is added here.
const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {
        {"solve", kSolveUsage, kSolveSummary, RunSolve},
        {"new", kNewUsage, kNewSummary, RunNew},
    };
    return commands;
}

}  // namespace pendulon::cli
