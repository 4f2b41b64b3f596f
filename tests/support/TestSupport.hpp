#pragma once
#include <string>
#include <vector>

namespace pendulon::test {

// Path of a file in tests/data.
std::string DataPath(const std::string& name);
// Reads a whole file; fails the test when it cannot.
std::string ReadFile(const std::string& path);
// A fresh empty folder under the system's temporary folder.
std::string MakeTempDir();

// What a run of pendulon-cli gave.
struct CliResult {
    int exitCode = -1;
    std::string out;
    std::string err;
};
// Runs pendulon-cli with the arguments, without a shell's word splitting; collects standard
// output and standard error. Extra environment settings ("NAME=value") go in front.
CliResult RunCli(const std::vector<std::string>& args,
                 const std::vector<std::string>& environment = {});

}  // namespace pendulon::test
