#include "platform/TextFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace pendulon {

std::optional<std::string> ReadTextFile(const std::string& path) {
    std::string failure;
    return ReadTextFile(path, failure);
}

std::optional<std::string> ReadTextFile(const std::string& path, std::string& failure) {
    failure.clear();
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        failure = std::strerror(errno);
        return std::nullopt;
    }
    struct stat info {};
    if (::fstat(fd, &info) == 0 && S_ISDIR(info.st_mode)) {
        ::close(fd);
        failure = std::strerror(EISDIR);
        return std::nullopt;
    }
    std::string text;
    char buffer[65536];
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0) {
            failure = std::strerror(errno);
            ::close(fd);
            return std::nullopt;
        }
        if (n == 0)
            break;
        text.append(buffer, static_cast<size_t>(n));
    }
    ::close(fd);
    return text;
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
    // A file that its mode keeps from writing stays as it is, as an editor leaves it; the
    // rename below would replace it regardless of its mode. The test is on the mode bits as
    // well, so that no user, not even the administrator, replaces a read-only file.
    struct stat existing {};
    if (::stat(target.c_str(), &existing) == 0 && S_ISREG(existing.st_mode) &&
        (::access(target.c_str(), W_OK) != 0 || (existing.st_mode & 0222) == 0))
        return "the file is read-only";
    // The temporary name is the target's behind a dot, cut where needed so that it stays
    // within the longest name the folder takes.
    long longest = ::pathconf(folder.c_str(), _PC_NAME_MAX);
    if (longest <= 0)
        longest = 255;
    const std::string suffix = ".XXXXXX";
    std::string base = target.filename().string();
    const size_t room = static_cast<size_t>(longest) - 1 - suffix.size();
    if (base.size() > room)
        base.resize(room);
    std::string name(1, '.');
    name += base;
    name += suffix;
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
