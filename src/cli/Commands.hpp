#pragma once
#include <functional>
#include <string>
#include <vector>

namespace pendulon::cli {

struct Command {
    std::string name;
    std::string usage;
    std::string summary;
    std::function<int(const std::vector<std::string>&)> run;
};

// Every command of the program, in the order --help lists them.
const std::vector<Command>& Commands();

}  // namespace pendulon::cli
