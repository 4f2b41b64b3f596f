#pragma once
#include <optional>
#include <string>
#include <vector>

namespace pendulon::test {

// Path of a file in tests/data.
std::string DataPath(const std::string& name);
// Reads a whole file; fails the test when it cannot.
std::string ReadFile(const std::string& path);
// A fresh folder "pendulon-test-XXXXXX" under the system's temporary folder, removed with all
// it holds when the object goes, whether the test passed or failed.
class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& Path() const { return path_; }
    // The path of `name` inside the folder.
    std::string operator/(const std::string& name) const;

  private:
    std::string path_;
};

// A fresh empty folder inside one TempDir of the whole test program, which goes when the
// program ends (after a failed test as well).
std::string MakeTempDir();

// Sets an environment variable (or, with nullptr, clears it) while the object lives, and puts
// back what was there when it goes.
class ScopedEnvironment {
  public:
    ScopedEnvironment(const char* name, const char* value);
    ~ScopedEnvironment();
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

  private:
    std::string name_;
    std::optional<std::string> old_;
};

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
