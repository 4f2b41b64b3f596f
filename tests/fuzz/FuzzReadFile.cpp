// Feeds arbitrary bytes to the entry-file reader as the content of a file. The reader must
// never crash, hang or read out of bounds, whatever the file holds.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"

namespace {

const std::string& InputPath() {
    static const std::string path = [] {
        char pattern[] = "/tmp/pendulon-fuzz-XXXXXX";
        const int fd = ::mkstemp(pattern);
        if (fd < 0)
            std::abort();
        ::close(fd);
        return std::string(pattern);
    }();
    return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string& path = InputPath();
    FILE* file = std::fopen(path.c_str(), "wb");
    if (!file)
        std::abort();
    if (size > 0 && std::fwrite(data, 1, size, file) != size)
        std::abort();
    std::fclose(file);

    pendulon::HeadlessPlatform platform;
    pendulon::ErrorReport errors(platform, [] { return std::string("Pendulon"); });
    pendulon::clsEntryFile entry(errors);
    const bool accepted = pendulon::mFileAccessor::ReadFile(path, entry);
    // An accepted file has counted at least one "f" and one "i" value; a refused one none.
    if (accepted && (entry.mintFCount <= 0 || entry.mintICount <= 0))
        std::abort();
    if (!accepted && (entry.mintFCount != 0 || entry.mintICount != 0))
        std::abort();
    if (!accepted && platform.Messages().empty())
        std::abort();
    return 0;
}
