#include "cli/Commands.hpp"

namespace pendulon::cli {

Command NewCommand();

// Each command lives in its own file and is added here.
const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {NewCommand()};
    return commands;
}

}  // namespace pendulon::cli
