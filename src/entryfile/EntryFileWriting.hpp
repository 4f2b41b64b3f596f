#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace pendulon {

class EntryFileHost;
class clsEntryFile;
struct FuseMisfit;

// Errors of the entry-file writers: a vector that is not written because a value of its image
// does not fit its field, or because its image came with errors.
namespace vectorerrors {
inline constexpr long ValueDoesNotFit = 10055;
inline constexpr long ImageHasErrors = 10056;
}  // namespace vectorerrors

// The image of the entry file saved last for the document, as Create EPROM Vector From Saved
// Entry File reads it: the file of the first recent-file entry once the summary has a file
// name; without one the reader is given no path and reports that. `errors` tells whether the
// reading reported any error.
std::unique_ptr<clsEntryFile> ReadSavedEntryFile(EntryFileHost& host, bool& errors);

// Writes a finished entry file or vector over path, then shows "Wrote to path" and clears the
// status line; true when written. A failure raises the file access error from source, naming
// the path and the reason (with clearStatus the status line is cleared as well), and leaves what
// was on disk as it was.
bool WriteForUser(EntryFileHost& host, const std::string& path, const std::string& text,
                  const std::string& source, bool clearStatusOnFailure);

// Whether an EPROM vector may be written to path: only when its image was made (fromForm) or
// read without an error reported, and when every value fits its field. Otherwise reports why
// from source, clears the status line and gives false; nothing is written then.
bool VectorMayBeWritten(EntryFileHost& host, const std::string& path, bool fromForm,
                        bool imageErrors, const std::vector<FuseMisfit>& misfits,
                        const std::string& source);

// The lines of an entry file, each ending in CR LF.
namespace entrylines {
// "# <kind> <value>".
std::string Plain(char kind, const std::string& value);
// "# s " and the part description in 15 places.
std::string Part(const std::string& description);
// "# <kind> ", value in 10 places, ";", the field's number and its comment.
std::string Field(char kind, const std::string& value, long long number,
                  const std::string& comment);
// Frequency field n of an image ("# f", in MHz to one place) with its comment.
std::string Frequency(const clsEntryFile& e, int n, const std::string& comment);
// Integer field n of an image ("# i") with its comment.
std::string Integer(const clsEntryFile& e, int n, const std::string& comment);
}  // namespace entrylines

// Writes an entry file of device: shows that it is being written, then writes the text that
// text() makes over path, as WriteForUser does (the status line cleared on a failure too).
bool WriteEntryFileText(EntryFileHost& host, const std::string& path, const std::string& device,
                        const std::function<std::string()>& text, const std::string& source);

}  // namespace pendulon
