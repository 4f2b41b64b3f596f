#include <iostream>
#include <string>
#include <vector>

#include "cli/Commands.hpp"

namespace {
void PrintHelp(std::ostream& out) {
    out << "pendulon-cli: the Pendulon clock-generator design tool without a window\n"
           "\n"
           "Commands:\n";
    for (const auto& command : pendulon::cli::Commands())
        out << "  " << command.usage << "\n      " << command.summary << "\n";
    out << "  --help\n      this text\n";
}
}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) {
        PrintHelp(std::cerr);
        return 2;
    }
    if (args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
        PrintHelp(std::cout);
        return 0;
    }
    for (const auto& command : pendulon::cli::Commands()) {
        if (command.name == args[0]) {
            return command.run(std::vector<std::string>(args.begin() + 1, args.end()));
        }
    }
    std::cerr << "pendulon-cli: unknown command '" << args[0] << "'\n\n";
    PrintHelp(std::cerr);
    return 2;
}
