#include "support/TestSupport.hpp"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace pendulon::test {

ScopedEnvironment::ScopedEnvironment(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name))
        old_ = old;
    if (value != nullptr)
        ::setenv(name, value, 1);
    else
        ::unsetenv(name);
}

ScopedEnvironment::~ScopedEnvironment() {
    if (old_)
        ::setenv(name_.c_str(), old_->c_str(), 1);
    else
        ::unsetenv(name_.c_str());
}

std::string DataPath(const std::string& name) {
    return std::string(PENDULON_TEST_DATA) + "/" + name;
}

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in.good()) << "cannot read " << path;
    std::ostringstream buffer;
    buffer << in.rdbuf();
    return buffer.str();
}

TempDir::TempDir() {
    namespace fs = std::filesystem;
    std::string pattern = (fs::temp_directory_path() / "pendulon-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("cannot make a temporary folder: " + pattern);
    path_ = pattern;
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

std::string TempDir::operator/(const std::string& name) const {
    return (std::filesystem::path(path_) / name).string();
}

std::string MakeTempDir() {
    // Destroyed when the program exits: every folder handed out goes with it.
    static const TempDir root;
    static int counter = 0;
    for (;;) {
        const std::string dir = root / std::to_string(++counter);
        if (std::filesystem::create_directory(dir))
            return dir;
    }
}

namespace {
std::string Quote(const std::string& text) {
    std::string quoted = "'";
    for (char c : text) {
        if (c == '\'') {
            quoted += "'\\''";
        } else {
            quoted += c;
        }
    }
    return quoted + "'";
}
}  // namespace

CliResult RunCli(const std::vector<std::string>& args,
                 const std::vector<std::string>& environment) {
    const std::string dir = MakeTempDir();
    const std::string errPath = (std::filesystem::path(dir) / "stderr.txt").string();
    std::string command;
    if (!environment.empty())
        command += "env ";
    for (const auto& setting : environment) {
        command += Quote(setting);
        command += ' ';
    }
    command += Quote(PENDULON_CLI);
    for (const auto& arg : args) {
        command += ' ';
        command += Quote(arg);
    }
    command += " 2>";
    command += Quote(errPath);
    CliResult result;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        return result;
    char buffer[4096];
    size_t n = 0;
    while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0) result.out.append(buffer, n);
    const int status = pclose(pipe);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.err = ReadFile(errPath);
    std::filesystem::remove_all(dir);
    return result;
}

}  // namespace pendulon::test
