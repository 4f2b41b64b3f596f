#include "cli/Commands.hpp"

namespace pendulon::cli {

// Each command lives in its own file and is added here.
const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {};
    return commands;
}

}  // namespace pendulon::cli
