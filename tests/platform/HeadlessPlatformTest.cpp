// The headless platform's clock and folders: today's date unless a test or a packager fixes it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>

#include "platform/HeadlessPlatform.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

// SOURCE_DATE_EPOCH set (or cleared) while it lives.
class ScopedEpoch : public test::ScopedEnvironment {
  public:
    explicit ScopedEpoch(const char* value) : ScopedEnvironment("SOURCE_DATE_EPOCH", value) {}
};

// The time zone set while it lives, and the old one back when it goes. The C library reads TZ
// again after each change.
class ScopedZone {
  public:
    explicit ScopedZone(const char* zone) : zone_("TZ", zone) { ::tzset(); }

  private:
    struct Reread {
        ~Reread() { ::tzset(); }
    };
    Reread reread_;  // goes after zone_ has put TZ back
    test::ScopedEnvironment zone_;
};

TEST(HeadlessClock, IsTheSystemsLocalTimeByDefault) {
    ScopedEpoch none(nullptr);
    // Five hours east of UTC all year: the clock reads the wall time there, the system's seconds
    // since the epoch plus five hours.
    ScopedZone zone("XST-5");
    HeadlessPlatform platform;
    const std::int64_t before = std::time(nullptr);
    const std::int64_t now = platform.Now().ToUnixSeconds() - 5 * 3600;
    const std::int64_t after = std::time(nullptr);
    EXPECT_LE(before, now);
    EXPECT_LE(now, after);
}

TEST(HeadlessClock, SourceDateEpochFixesItAndATestsDateFixesItAbove) {
    ScopedEpoch epoch("1700000000");
    HeadlessPlatform platform;
    EXPECT_EQ(platform.Now(), (DateTime{2023, 11, 14, 22, 13, 20}));
    platform.SetNow(DateTime{2026, 11, 21, 10, 0, 0});
    EXPECT_EQ(platform.Now(), (DateTime{2026, 11, 21, 10, 0, 0}));
}

TEST(HeadlessFolders, TemporaryFilesGoToTheSystemsTemporaryFolderUntilSet) {
    HeadlessPlatform platform;
    EXPECT_EQ(platform.TempDirectory(), std::filesystem::temp_directory_path().string());
    platform.SetAppDirectory("/usr/bin");
    EXPECT_EQ(platform.TempDirectory(), std::filesystem::temp_directory_path().string());
    platform.SetTempDirectory("/somewhere");
    EXPECT_EQ(platform.TempDirectory(), "/somewhere");
    EXPECT_EQ(platform.AppDirectory(), "/usr/bin");
}

}  // namespace
}  // namespace pendulon
