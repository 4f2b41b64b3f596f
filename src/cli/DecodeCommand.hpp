#pragma once
#include <string>
#include <vector>

namespace pendulon::cli {

// pendulon-cli decode: a fuse map read back, as a report or JSON, and its entry file.
extern const char* const kDecodeUsage;
extern const char* const kDecodeSummary;
int RunDecode(const std::vector<std::string>& args);

}  // namespace pendulon::cli
