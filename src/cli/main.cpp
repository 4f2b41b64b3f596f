#include <exception>
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
    out << "  --help\n      this text\n"
           "\n"
           "Message boxes are printed on standard error as they are shown, and so is every file\n"
           "a command writes (\"wrote PATH\") or could not write (\"nothing was written to\n"
           "PATH\"). A failed action does not stop the actions behind it, as at the window.\n"
           "\n"
           "Exit status:\n"
           "  0  every action done, no error report or warning shown\n"
           "  1  failed: a file was not written, a document could not be opened, or --strict\n"
           "     stopped the run at the first error report or warning\n"
           "  2  the command line is malformed (an unknown command, action, field or answer)\n"
           "  3  every action done and every file written, with error reports or warnings\n";
}

int Run(const std::vector<std::string>& args) {
    namespace status = pendulon::cli::status;
    if (args.empty()) {
        PrintHelp(std::cerr);
        return status::Usage;
    }
    if (args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
        PrintHelp(std::cout);
        return status::Done;
    }
    for (const auto& command : pendulon::cli::Commands()) {
        if (command.name == args[0]) {
            return command.run(std::vector<std::string>(args.begin() + 1, args.end()));
        }
    }
    std::cerr << "pendulon-cli: unknown command '" << args[0] << "'\n\n";
    PrintHelp(std::cerr);
    return status::Usage;
}
}  // namespace

int main(int argc, char** argv) {
    // No input may end the program abruptly: whatever escapes is told, and the run has failed.
    try {
        return Run(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception& error) {
        std::cerr << "pendulon-cli: internal error: " << error.what() << "\n";
    } catch (...) {
        std::cerr << "pendulon-cli: internal error\n";
    }
    return pendulon::cli::status::Failed;
}
