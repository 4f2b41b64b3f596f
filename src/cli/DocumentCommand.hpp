#pragma once
#include <string>
#include <vector>

namespace pendulon::cli {

// pendulon-cli new: a new document of a device, then the user's actions on it.
extern const char* const kNewUsage;
extern const char* const kNewSummary;
int RunNew(const std::vector<std::string>& args);

}  // namespace pendulon::cli
