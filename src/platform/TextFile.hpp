#pragma once
#include <optional>
#include <string>

namespace pendulon {

// Reads a whole file; nullopt when it cannot be opened.
std::optional<std::string> ReadTextFile(const std::string& path);
// The same, with the system's reason in failure when the file cannot be read (a folder, no read
// permission, a file gone since it was found).
std::optional<std::string> ReadTextFile(const std::string& path, std::string& failure);

// Writes text to a temporary file beside the target, flushes it, then renames it over the
// target, so that a failed write never leaves a truncated file where a good one stood. Returns
// an empty text on success, else what went wrong. A path that is a symbolic link stays a link:
// the file it points to is the one replaced, from a temporary file in that file's own folder.
// A read-only file (no write permission for the user, or none for anybody) is not replaced.
// The temporary name stays within the folder's longest file name, whatever the target's length.
std::string WriteTextFileAtomically(const std::string& path, const std::string& text);

}  // namespace pendulon
