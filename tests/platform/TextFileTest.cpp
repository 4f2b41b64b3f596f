// Saving a text file: atomically, and through a symbolic link into the file it points to.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/TextFile.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

namespace fs = std::filesystem;

void Write(const fs::path& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary);
    out << text;
}

std::vector<std::string> Names(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// Lowers the largest file this process may write for as long as it lives, so that a write
// fails half way (as on a full disk) even for the superuser.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        old_signal_ = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &old_);
        rlimit limit = old_;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, old_signal_);
    }

  private:
    rlimit old_{};
    void (*old_signal_)(int) = SIG_DFL;
};

class TextFileTest : public ::testing::Test {
  protected:
    test::TempDir dir;
    fs::path folder{dir.Path()};
};

TEST_F(TextFileTest, WritesANewFileAndReplacesAnOldOne) {
    const fs::path path = folder / "a.txt";
    EXPECT_EQ(WriteTextFileAtomically(path.string(), "first"), "");
    EXPECT_EQ(ReadTextFile(path.string()), "first");
    EXPECT_EQ(WriteTextFileAtomically(path.string(), "second"), "");
    EXPECT_EQ(ReadTextFile(path.string()), "second");
    EXPECT_EQ(Names(folder), std::vector<std::string>{"a.txt"});
}

TEST_F(TextFileTest, SavingThroughALinkKeepsTheLinkAndUpdatesItsTarget) {
    fs::create_directory(folder / "real");
    fs::create_directory(folder / "links");
    const fs::path target = folder / "real" / "design.ent";
    const fs::path link = folder / "links" / "design.ent";
    Write(target, "old");
    fs::create_symlink("../real/design.ent", link);

    EXPECT_EQ(WriteTextFileAtomically(link.string(), "new"), "");

    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(link)));
    EXPECT_EQ(fs::read_symlink(link), fs::path("../real/design.ent"));
    EXPECT_EQ(ReadTextFile(target.string()), "new");
    EXPECT_EQ(ReadTextFile(link.string()), "new");
    // No temporary file is left in either folder.
    EXPECT_EQ(Names(folder / "real"), std::vector<std::string>{"design.ent"});
    EXPECT_EQ(Names(folder / "links"), std::vector<std::string>{"design.ent"});
}

TEST_F(TextFileTest, AChainOfLinksAndAnAbsoluteLinkReachTheLastFile) {
    const fs::path target = folder / "file.txt";
    Write(target, "old");
    fs::create_symlink(target, folder / "absolute");
    fs::create_symlink("absolute", folder / "relative");
    EXPECT_EQ(WriteTextFileAtomically((folder / "relative").string(), "chained"), "");
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(folder / "relative")));
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(folder / "absolute")));
    EXPECT_EQ(ReadTextFile(target.string()), "chained");
}

TEST_F(TextFileTest, ADanglingLinkCreatesTheFileItPointsTo) {
    fs::create_symlink("later.txt", folder / "link");
    EXPECT_EQ(WriteTextFileAtomically((folder / "link").string(), "made"), "");
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(folder / "link")));
    EXPECT_EQ(ReadTextFile((folder / "later.txt").string()), "made");
}

TEST_F(TextFileTest, TheTargetKeepsItsPermissions) {
    const fs::path target = folder / "private.txt";
    Write(target, "old");
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("private.txt", folder / "link");
    EXPECT_EQ(WriteTextFileAtomically((folder / "link").string(), "new"), "");
    EXPECT_EQ(fs::status(target).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(TextFileTest, AFailedWriteThroughALinkLeavesTargetAndLinkIntact) {
    const fs::path target = folder / "kept.txt";
    Write(target, "good old text");
    fs::create_symlink("kept.txt", folder / "link");
    std::string failure;
    {
        FileSizeLimit limit(8);
        failure = WriteTextFileAtomically((folder / "link").string(), std::string(4096, 'x'));
    }
    EXPECT_FALSE(failure.empty());
    EXPECT_EQ(ReadTextFile(target.string()), "good old text");
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(folder / "link")));
    EXPECT_EQ(Names(folder), (std::vector<std::string>{"kept.txt", "link"}));
}

TEST_F(TextFileTest, ALinkToAFolderIsRefusedAndTheFolderStays) {
    fs::create_directory(folder / "sub");
    Write(folder / "sub" / "inside.txt", "inside");
    fs::create_symlink("sub", folder / "link");
    EXPECT_FALSE(WriteTextFileAtomically((folder / "link").string(), "text").empty());
    EXPECT_TRUE(fs::is_directory(folder / "sub"));
    EXPECT_EQ(ReadTextFile((folder / "sub" / "inside.txt").string()), "inside");
    EXPECT_EQ(Names(folder), (std::vector<std::string>{"link", "sub"}));
}

TEST_F(TextFileTest, LinksInALoopAreRefused) {
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_FALSE(WriteTextFileAtomically((folder / "a").string(), "text").empty());
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(folder / "a")));
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(folder / "b")));
    EXPECT_EQ(Names(folder), (std::vector<std::string>{"a", "b"}));
}

TEST_F(TextFileTest, AReadOnlyFileIsRefusedAndKeptAsItWas) {
    const fs::path target = folder / "locked.ent";
    Write(target, "locked text");
    // No write permission for anybody: refused also for the administrator, whom the mode does
    // not stop from writing.
    fs::permissions(target, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    const std::string failure = WriteTextFileAtomically(target.string(), "new text");
    EXPECT_EQ(failure, "the file is read-only");
    EXPECT_EQ(ReadTextFile(target.string()), "locked text");
    EXPECT_EQ(fs::status(target).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    EXPECT_EQ(Names(folder), std::vector<std::string>{"locked.ent"});
    // Through a link the file it points to is the one that counts.
    fs::create_symlink("locked.ent", folder / "link.ent");
    EXPECT_EQ(WriteTextFileAtomically((folder / "link.ent").string(), "x"), "the file is read-only");
    EXPECT_EQ(ReadTextFile(target.string()), "locked text");
}

TEST_F(TextFileTest, TheLongestNamesTheFolderTakesAreWritten) {
    const long longest = ::pathconf(folder.c_str(), _PC_NAME_MAX);
    ASSERT_GT(longest, 8);
    for (const size_t length : {size_t{250}, static_cast<size_t>(longest)}) {
        const std::string name = std::string(length - 4, 'n') + ".ent";
        const fs::path target = folder / name;
        EXPECT_EQ(WriteTextFileAtomically(target.string(), "first"), "") << length;
        EXPECT_EQ(WriteTextFileAtomically(target.string(), "second"), "") << length;
        EXPECT_EQ(ReadTextFile(target.string()), "second");
        EXPECT_EQ(Names(folder), std::vector<std::string>{name});
        fs::remove(target);
    }
}

TEST(TempDirTest, TheFolderGoesWithEverythingInItAlsoAfterAFailedCheck) {
    std::string path;
    {
        test::TempDir dir;
        path = dir.Path();
        EXPECT_EQ(fs::path(path).filename().string().rfind("pendulon-test-", 0), 0u);
        fs::create_directories(fs::path(path) / "a" / "b");
        Write(fs::path(path) / "a" / "b" / "c.txt", "c");
        EXPECT_TRUE(fs::is_directory(path));
    }
    EXPECT_FALSE(fs::exists(path));
}

TEST(TempDirTest, MadeFoldersLiveInsideOneFolderOfTheProgram) {
    const fs::path first = test::MakeTempDir();
    const fs::path second = test::MakeTempDir();
    EXPECT_NE(first, second);
    EXPECT_TRUE(fs::is_directory(first));
    EXPECT_EQ(first.parent_path(), second.parent_path());
    EXPECT_EQ(first.parent_path().filename().string().rfind("pendulon-test-", 0), 0u);
}

}  // namespace
}  // namespace pendulon
