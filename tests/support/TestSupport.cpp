#include "support/TestSupport.hpp"

#include <gtest/gtest.h>

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

std::string MakeTempDir() {
    namespace fs = std::filesystem;
    std::random_device device;
    for (;;) {
        fs::path dir = fs::temp_directory_path() / ("pendulon-test-" + std::to_string(device()));
        if (fs::create_directory(dir)) return dir.string();
    }
}

}  // namespace pendulon::test
