#include "platform/TextFile.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace pendulon {

std::optional<std::string> ReadTextFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream buffer;
    buffer << in.rdbuf();
    return buffer.str();
}

std::string WriteTextFileAtomically(const std::string& path, const std::string& text) {
    namespace fs = std::filesystem;
    const fs::path target(path);
    if (target.filename().empty()) return "No file name";
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::string pattern = (folder / ("." + target.filename().string() + ".XXXXXX")).string();
    const int fd = ::mkstemp(pattern.data());
    if (fd < 0) return std::strerror(errno);
    size_t written = 0;
    while (written < text.size()) {
        const ssize_t n = ::write(fd, text.data() + written, text.size() - written);
        if (n < 0) {
            const std::string why = std::strerror(errno);
            ::close(fd);
            ::unlink(pattern.c_str());
            return why;
        }
        written += static_cast<size_t>(n);
    }
    if (::fsync(fd) != 0 || ::close(fd) != 0) {
        const std::string why = std::strerror(errno);
        ::unlink(pattern.c_str());
        return why;
    }
    // Keep the permissions of a file that stood there, else the usual ones.
    std::error_code ec;
    if (fs::exists(target, ec)) {
        fs::permissions(pattern, fs::status(target, ec).permissions(), ec);
    } else {
        fs::permissions(pattern,
                        fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                            fs::perms::others_read,
                        ec);
    }
    if (std::rename(pattern.c_str(), path.c_str()) != 0) {
        const std::string why = std::strerror(errno);
        ::unlink(pattern.c_str());
        return why;
    }
    return {};
}

}  // namespace pendulon
