// Reads every golden EPROM vector back with an independent JEDEC reader (jedutil).
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
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

class JedutilTest : public ::testing::TestWithParam<std::string> {};

// The QX3350 layout is one row of 45 fuses; the others have 884.
size_t FuseCount(const std::string& name) {
    return name.rfind("QX3350", 0) == 0 ? 45 : 884;
}

TEST_P(JedutilTest, IndependentReaderAcceptsVectorWithTheFusesOfTheLField) {
    const std::string jedutil = FindJedutil();
    if (jedutil.empty())
        GTEST_SKIP() << "jedutil is not installed";
    const std::string in = test::DataPath("entry/" + GetParam() + ".jed");
    // The folder goes also when an assertion ends the test early.
    struct Folder {
        std::string path = test::MakeTempDir();
        ~Folder() { std::filesystem::remove_all(path); }
    } folder;
    const std::string out = folder.path + "/out.bin";
    int status = 0;
    const std::string log = RunCommand(jedutil + " -convert '" + in + "' '" + out + "'", status);
    ASSERT_EQ(status, 0) << log;
    const size_t count = FuseCount(GetParam());
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
                         ::testing::Values("QX6105A_FS", "QX6105AF", "QX4860_14", "QX4860_8",
                                           "QX4860F", "QX4860I", "QX3350_SC", "QX3350_TZ",
                                           "QX3350I_SC", "QX3350I_TZ", "QX3350_P2750"));

}  // namespace
}  // namespace pendulon
