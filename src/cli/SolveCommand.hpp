#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pendulon::cli {

// pendulon-cli solve: one P and Q search, printed as the loop's data list shows it.
extern const char* const kSolveUsage;
extern const char* const kSolveSummary;
int RunSolve(const std::vector<std::string>& args);

// A decimal number written whole: sign, digits with at most one point, optional exponent;
// nullopt for anything else.
std::optional<double> ParseNumber(std::string_view text);

}  // namespace pendulon::cli
