#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/HeadlessPlatform.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

namespace fs = std::filesystem;

// Points TMPDIR somewhere else while it lives, and puts the old value back when it goes.
class TmpDirSetting : public test::ScopedEnvironment {
  public:
    explicit TmpDirSetting(const std::string& folder)
        : ScopedEnvironment("TMPDIR", folder.c_str()) {}
};

bool Inside(const fs::path& path, const fs::path& folder) {
    const fs::path relative = path.lexically_relative(folder);
    return !relative.empty() && *relative.begin() != "..";
}

// The test command gives the tests a temporary folder of their own through TMPDIR; what makes
// temporary files must take it.
TEST(TemporaryFolder, TestFoldersAndTheHeadlessProgramFolderFollowTMPDIR) {
    test::TempDir outer;
    const fs::path own = fs::path(outer.Path()) / "own";
    fs::create_directory(own);
    TmpDirSetting setting(own.string());
    {
        test::TempDir inner;
        EXPECT_TRUE(Inside(inner.Path(), own)) << inner.Path();
        EXPECT_TRUE(fs::is_directory(inner.Path()));
    }
    HeadlessPlatform platform;
    EXPECT_EQ(fs::path(platform.AppDirectory()), own);
    // Nothing stays behind in the folder.
    EXPECT_TRUE(fs::is_empty(own));
}

}  // namespace
}  // namespace pendulon
