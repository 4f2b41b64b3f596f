#pragma once
#include <string>
#include <vector>

namespace pendulon::cli {

// pendulon-cli wizard: the clock selection wizard as Help, Clock Selection Wizard shows it,
// the user's actions on its fields, then on the document it opened.
extern const char* const kWizardUsage;
extern const char* const kWizardSummary;
int RunWizard(const std::vector<std::string>& args);

}  // namespace pendulon::cli
