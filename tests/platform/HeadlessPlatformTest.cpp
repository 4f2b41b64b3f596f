// The headless platform's clock and folders: today's date unless a test or a packager fixes it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/HeadlessPlatform.hpp"

namespace pendulon {
namespace {

// Sets or clears SOURCE_DATE_EPOCH for the life of the object, and puts back what was there.
class ScopedEpoch {
  public:
    explicit ScopedEpoch(const char* value) {
        if (const char* old = std::getenv("SOURCE_DATE_EPOCH"))
            old_ = old;
        if (value != nullptr)
            ::setenv("SOURCE_DATE_EPOCH", value, 1);
        else
            ::unsetenv("SOURCE_DATE_EPOCH");
    }
    ~ScopedEpoch() {
        if (old_)
            ::setenv("SOURCE_DATE_EPOCH", old_->c_str(), 1);
        else
            ::unsetenv("SOURCE_DATE_EPOCH");
    }
    ScopedEpoch(const ScopedEpoch&) = delete;
    ScopedEpoch& operator=(const ScopedEpoch&) = delete;

  private:
    std::optional<std::string> old_;
};

std::int64_t LocalSecondsNow() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    DateTime t;
    t.Year = local.tm_year + 1900;
    t.Month = local.tm_mon + 1;
    t.Day = local.tm_mday;
    t.Hour = local.tm_hour;
    t.Minute = local.tm_min;
    t.Second = local.tm_sec;
    return t.ToUnixSeconds();
}

TEST(HeadlessClock, IsTheSystemsLocalTimeByDefault) {
    ScopedEpoch none(nullptr);
    HeadlessPlatform platform;
    const std::int64_t before = LocalSecondsNow();
    const std::int64_t now = platform.Now().ToUnixSeconds();
    const std::int64_t after = LocalSecondsNow();
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
