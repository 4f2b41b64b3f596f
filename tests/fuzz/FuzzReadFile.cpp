// Feeds arbitrary bytes to the two readers of the program's files, as the text of a file: the
// entry-file reader and the fuse map reader. Neither may crash, hang or read out of bounds,
// whatever the file holds. The text goes straight to the parsers: no file is written.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/clsFuseMap.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "reports/ReadBack.hpp"
#include "reports/mReadBackPrintout.hpp"

namespace {

// A fuse map that is read is one of the layouts, fits its default device, and reads back and
// makes its entry file for every device it fits; one that is refused says why and holds
// nothing.
void ReadAsFuseMap(std::string_view text, pendulon::ErrorReport& errors) {
    pendulon::clsFuseMap map(errors);
    std::string cause;
    if (!map.ParseFuseMap(text, cause)) {
        if (cause.empty() || map.Loaded())
            std::abort();
        return;
    }
    const size_t fuses = map.Fuses().size();
    if (fuses != 884 && fuses != 336 && fuses != 45)
        std::abort();
    if (map.Devices().empty() || !map.Fits(map.DefaultDevice()))
        std::abort();
    for (const std::string& device : map.Devices()) {
        const pendulon::ReadBack readBack = map.MakeReadBack(device, 14.31818);
        if (readBack.Fields.empty() || readBack.Loops.empty() || readBack.Outputs.empty())
            std::abort();
        if (pendulon::mReadBackPrintout::GetReadBackDocument(readBack).empty())
            std::abort();
        if (map.EntryFileText(device, 25, "01", "", true).empty())
            std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // One platform for the whole run; each input starts with no message recorded.
    static pendulon::HeadlessPlatform platform;
    static pendulon::ErrorReport errors(platform, [] { return std::string("Pendulon"); });
    platform.ClearMessages();
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    pendulon::clsEntryFile entry(errors);
    const bool accepted =
        pendulon::mFileAccessor::ParseFile(text, "fuzz.ent", "1/2/2003 4:05:06 AM", entry);
    // An accepted file has counted at least one "f" and one "i" value; a refused one none.
    if (accepted && (entry.mintFCount <= 0 || entry.mintICount <= 0))
        std::abort();
    if (!accepted && (entry.mintFCount != 0 || entry.mintICount != 0))
        std::abort();
    if (!accepted && platform.Messages().empty())
        std::abort();
    // A file without its own date takes the one it was given.
    if (entry.mstrModificationDate.empty())
        std::abort();
    ReadAsFuseMap(text, errors);
    // What this input allocated goes with it: a run that ends with more allocations than it
    // freed makes the fuzzer run it again to look for a leak.
    platform.ClearMessages();
    return 0;
}
