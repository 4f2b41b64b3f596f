#pragma once
#include <string>

namespace pendulon {

class clsEntryFile;

namespace mFileAccessor {

// Reads an entry file into the image. Every line that begins with a known tag gives a value in
// the order of its group; anything else is skipped. Bad lines and bad numbers are reported and
// reading goes on. True when the file held at least one "# f" and one "# i" value.
bool ReadFile(const std::string& path, clsEntryFile& file);

}  // namespace mFileAccessor
}  // namespace pendulon
