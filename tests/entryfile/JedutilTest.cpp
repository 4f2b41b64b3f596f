// Reads every golden EPROM vector back with an independent JEDEC reader (jedutil).
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>

#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

std::string FindJedutil() {
    for (const char* dir : {"/usr/bin", "/usr/local/bin", "/usr/games"}) {
        const std::string path = std::string(dir) + "/jedutil";
        if (std::filesystem::exists(path))
            return path;
    }
    return {};
}

std::string RunCommand(const std::string& command, int& status) {
    std::string output;
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    if (!pipe) {
        status = -1;
        return output;
    }
    char buffer[512];
    size_t n;
    while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) output.append(buffer, n);
    status = ::pclose(pipe);
    return output;
}

// The fuses of the L field of a vector: the digits from "L0000" up to the "*" behind them.
std::string LField(const std::string& text) {
    const size_t at = text.find("L0000");
    std::string fuses;
    if (at == std::string::npos)
        return fuses;
    for (size_t p = at + 5; p < text.size() && text[p] != '*'; ++p)
        if (text[p] == '0' || text[p] == '1')
            fuses.push_back(text[p]);
    return fuses;
}

std::string CField(const std::string& text) {
    const size_t at = text.find("\r\nC");
    return at == std::string::npos ? std::string() : text.substr(at + 3, 4);
}

// A golden vector and the fuse count of its layout.
struct Vector {
    std::string Name;
    size_t Fuses;
};

void PrintTo(const Vector& v, std::ostream* os) {
    *os << v.Name;
}

class JedutilTest : public ::testing::TestWithParam<Vector> {};

TEST_P(JedutilTest, IndependentReaderAcceptsVectorWithTheFusesOfItsLField) {
    const std::string jedutil = FindJedutil();
    if (jedutil.empty())
        GTEST_SKIP() << "jedutil is not installed";
    const size_t count = GetParam().Fuses;
    const std::string in = test::DataPath("entry/" + GetParam().Name + ".jed");
    const std::string dir = test::MakeTempDir();
    // The folder goes when the test ends, passed or failed.
    const std::unique_ptr<const std::string, void (*)(const std::string*)> cleanup(
        &dir, [](const std::string* d) { std::filesystem::remove_all(*d); });
    const std::string out = dir + "/out.bin";
    int status = 0;
    const std::string log = RunCommand(jedutil + " -convert '" + in + "' '" + out + "'", status);
    ASSERT_EQ(status, 0) << log;
    EXPECT_NE(log.find("Total fuses = " + std::to_string(count)), std::string::npos) << log;

    const std::string text = test::ReadFile(in);
    const std::string fuses = LField(text);
    ASSERT_EQ(fuses.size(), count);
    const std::string bin = test::ReadFile(out);
    // A big-endian fuse count, then the fuses eight to a byte, first fuse in bit 0.
    ASSERT_EQ(bin.size(), 4u + (count + 7) / 8);
    const auto byte = [&](size_t n) { return static_cast<unsigned char>(bin[n]); };
    EXPECT_EQ(static_cast<size_t>((byte(0) << 24) | (byte(1) << 16) | (byte(2) << 8) | byte(3)),
              count);
    unsigned sum = 0;
    for (size_t n = 0; n < count; ++n) {
        const bool set = (byte(4 + n / 8) >> (n % 8)) & 1;
        ASSERT_EQ(set, fuses[n] == '1') << "fuse " << n;
    }
    for (size_t n = 4; n < bin.size(); ++n) sum += byte(n);
    char hex[8];
    std::snprintf(hex, sizeof hex, "%04X", sum);
    EXPECT_EQ(CField(text), hex);
}

INSTANTIATE_TEST_SUITE_P(Vectors, JedutilTest,
                         ::testing::Values(Vector{"QX6105A_FS", 884}, Vector{"QX6105AF", 884},
                                           Vector{"QX4860_8", 884}, Vector{"QX4860F", 884},
                                           Vector{"QX4860I", 884}, Vector{"QX7311_5V", 336},
                                           Vector{"QX7311F_3V", 336}, Vector{"QX7312_5V", 336},
                                           Vector{"QX7312I_Suspend", 336},
                                           Vector{"QX3350_SC", 45}, Vector{"QX3350_TZ", 45},
                                           Vector{"QX3350I_SC", 45}, Vector{"QX3350I_TZ", 45},
                                           Vector{"QX3350_P2750", 45}));

}  // namespace
}  // namespace pendulon
