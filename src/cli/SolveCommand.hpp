#pragma once
#include <string>
#include <vector>

namespace pendulon::cli {

// pendulon-cli solve: one P and Q search, printed as the loop's data list shows it.
extern const char* const kSolveUsage;
extern const char* const kSolveSummary;
int RunSolve(const std::vector<std::string>& args);

}  // namespace pendulon::cli
