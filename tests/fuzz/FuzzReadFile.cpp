// Feeds arbitrary bytes to the entry-file reader as the text of a file. The reader must never
// crash, hang or read out of bounds, whatever the file holds. The text goes straight to the
// parser: no file is written.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"

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
    // What this input allocated goes with it: a run that ends with more allocations than it
    // freed makes the fuzzer run it again to look for a leak.
    platform.ClearMessages();
    return 0;
}
