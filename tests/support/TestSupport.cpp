#include "support/TestSupport.hpp"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

namespace pendulon::test {

std::string DataPath(const std::string& name) { return std::string(PENDULON_TEST_DATA) + "/" + name; }

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in.good()) << "cannot read " << path;
    std::ostringstream buffer;
    buffer << in.rdbuf();
    return buffer.str();
}

namespace {
// Every folder a test made goes when the test program ends, whatever the tests' results.
struct TempDirs {
    std::vector<std::filesystem::path> made;
    ~TempDirs() {
        std::error_code ignored;
        for (const auto& dir : made) std::filesystem::remove_all(dir, ignored);
    }
};
TempDirs& Made() {
    static TempDirs dirs;
    return dirs;
}
}  // namespace

std::string MakeTempDir() {
    namespace fs = std::filesystem;
    std::random_device device;
    for (;;) {
        fs::path dir = fs::temp_directory_path() / ("pendulon-test-" + std::to_string(device()));
        if (fs::create_directory(dir)) {
            Made().made.push_back(dir);
            return dir.string();
        }
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

CliResult RunCli(const std::vector<std::string>& args, const std::vector<std::string>& environment) {
    const std::string dir = MakeTempDir();
    const std::string errPath = (std::filesystem::path(dir) / "stderr.txt").string();
    std::string command;
    for (const auto& setting : environment) command += Quote(setting) + " ";
    if (!environment.empty()) command = "env " + command;
    command += Quote(PENDULON_CLI);
    for (const auto& arg : args) command += " " + Quote(arg);
    command += " 2>" + Quote(errPath);
    CliResult result;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return result;
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
