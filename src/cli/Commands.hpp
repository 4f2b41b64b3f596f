#pragma once
#include <functional>
#include <string>
#include <vector>

namespace pendulon::cli {

// Exit statuses of the program.
namespace status {
inline constexpr int Done = 0;              // every action done, no error report or warning
inline constexpr int Failed = 1;            // a file was not written, a document not opened,
                                            // or --strict stopped the run at a message
inline constexpr int Usage = 2;             // the command line is malformed
inline constexpr int DoneWithMessages = 3;  // every action done and every file written, with
                                            // error reports or warnings on standard error
}  // namespace status

struct Command {
    std::string name;
    std::string usage;
    std::string summary;
    std::function<int(const std::vector<std::string>&)> run;
};

// Every command of the program, in the order --help lists them.
const std::vector<Command>& Commands();

}  // namespace pendulon::cli
