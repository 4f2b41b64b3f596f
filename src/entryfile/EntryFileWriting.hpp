#pragma once
#include <memory>
#include <string>

namespace pendulon {

class EntryFileHost;
class clsEntryFile;

// The image of the entry file saved last for the document, as Create EPROM Vector From Saved
// Entry File reads it: the file of the first recent-file entry once the summary has a file
// name; without one the reader is given no path and reports that.
std::unique_ptr<clsEntryFile> ReadSavedEntryFile(EntryFileHost& host);

// Writes a finished entry file or vector over path, then shows "Wrote to path" and clears the
// status line. A failure raises the file access error from source (with clearStatus the
// status line is cleared as well) and leaves what was on disk as it was.
void WriteForUser(EntryFileHost& host, const std::string& path, const std::string& text,
                  const std::string& source, bool clearStatusOnFailure);

}  // namespace pendulon
