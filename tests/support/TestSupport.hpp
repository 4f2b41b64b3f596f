#pragma once
#include <string>

namespace pendulon::test {

// Path of a file in tests/data.
std::string DataPath(const std::string& name);
// Reads a whole file; fails the test when it cannot.
std::string ReadFile(const std::string& path);
// A fresh empty folder under the system's temporary folder.
std::string MakeTempDir();

}  // namespace pendulon::test
