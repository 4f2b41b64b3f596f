#pragma once
#include <string>
#include <string_view>

namespace pendulon {

class clsEntryFile;

namespace mFileAccessor {

// Reads an entry file into the image. Every line that begins with a known tag gives a value in
// the order of its group; anything else is skipped. Bad lines and bad numbers are reported and
// reading goes on. True when the file held at least one "# f" and one "# i" value.
bool ReadFile(const std::string& path, clsEntryFile& file);

// Reads the text of an entry file that is already in memory, as ReadFile does once it has the
// file's bytes. `path` names the file in the message about a badly formatted file; `fileDate`
// stands in for a missing "Modification Date:" line (ReadFile gives the file's own date).
bool ParseFile(std::string_view text, const std::string& path, const std::string& fileDate,
               clsEntryFile& file);

}  // namespace mFileAccessor
}  // namespace pendulon
