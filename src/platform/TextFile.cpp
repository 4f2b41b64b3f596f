#include "platform/TextFile.hpp"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace pendulon {

std::optional<std::string> ReadTextFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return std::nullopt;
    std::ostringstream buffer;
    buffer << in.rdbuf();
    return buffer.str();
}

namespace {

// The file a path finally names. A symbolic link is followed link by link (a relative link from
// the link's own folder), so that saving through a link replaces the file it points to and
// leaves the link where it is; a dangling link names the file it points to. An empty path and
// ec set when the links go round in a loop or cannot be read.
std::filesystem::path FollowLinks(const std::filesystem::path& path, std::error_code& ec) {
    namespace fs = std::filesystem;
    fs::path current = path;
    for (int hop = 0; hop < 40; ++hop) {
        std::error_code statusError;
        const fs::file_status status = fs::symlink_status(current, statusError);
        if (!fs::is_symlink(status))
            return current;
        const fs::path next = fs::read_symlink(current, ec);
        if (ec)
            return {};
        current = next.is_absolute() ? next : current.parent_path() / next;
    }
    ec = std::make_error_code(std::errc::too_many_symbolic_link_levels);
    return {};
}

}  // namespace

std::string WriteTextFileAtomically(const std::string& path, const std::string& text) {
    namespace fs = std::filesystem;
    if (fs::path(path).filename().empty())
        return "No file name";
    std::error_code linkError;
    const fs::path target = FollowLinks(fs::path(path), linkError);
    if (linkError)
        return linkError.message();
    if (target.filename().empty())
        return "No file name";
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::string name(1, '.');
    name += target.filename().string();
    name += ".XXXXXX";
    std::string pattern = (folder / name).string();
    const int fd = ::mkstemp(pattern.data());
    if (fd < 0)
        return std::strerror(errno);
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
    if (std::rename(pattern.c_str(), target.c_str()) != 0) {
        const std::string why = std::strerror(errno);
        ::unlink(pattern.c_str());
        return why;
    }
    return {};
}

}  // namespace pendulon
