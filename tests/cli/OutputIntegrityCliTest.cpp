// What the command line writes and tells: every file it wrote or could not write, the messages,
// an exit status that says which, and no input that ends the program abruptly.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/TestSupport.hpp"

namespace {

namespace fs = std::filesystem;
using pendulon::test::CliResult;
using pendulon::test::ReadFile;
using pendulon::test::RunCli;

const std::vector<std::string> kFixedDate = {"SOURCE_DATE_EPOCH=1700000000"};

struct Folder {
    std::string path = pendulon::test::MakeTempDir();
    ~Folder() { fs::remove_all(path); }
    std::string operator/(const std::string& name) const { return path + "/" + name; }
};

void Write(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

// The text between single quotes, as the program's messages name a path.
std::string InQuotes(const std::string& text) {
    std::string quoted(1, '\'');
    quoted += text;
    quoted += '\'';
    return quoted;
}

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// A QX3350 whose output is off: saving it reports "No CLK-OUT selected." and writes the file,
// as the window does.
std::vector<std::string> OffQX3350() {
    return {"new", "QX3350", "--set", "txtPLL=100", "--set", "cboClockDivisors=Off", "--click",
            "cmdCalculate"};
}

std::vector<std::string> With(std::vector<std::string> args, const std::vector<std::string>& more) {
    args.insert(args.end(), more.begin(), more.end());
    return args;
}

TEST(CliStatus, AllDoneWithoutAMessageIsZeroAndEveryFileIsTold) {
    Folder dir;
    const CliResult run = RunCli({"new", "QX4860", "--set", "cboFRef=20.00000 MHz", "--set",
                                  "cboClkADiv=PLL/2", "--set", "txtPLL(0)=80", "--click",
                                  "cmdCalculate", "--save", dir / "a.ent", "--jed", dir / "a.jed",
                                  "--print", dir / "a.txt"},
                                 kFixedDate);
    EXPECT_EQ(run.exitCode, 0) << run.err;
    for (const char* name : {"a.ent", "a.jed", "a.txt"}) {
        EXPECT_TRUE(fs::exists(dir / name)) << name;
        EXPECT_TRUE(Has(run.err, ": wrote " + (dir / name) + "\n")) << run.err;
    }
    EXPECT_FALSE(Has(run.err, "The error number is"));
}

TEST(CliStatus, MessagesWhileSavingAreToldTheFileIsWrittenAndTheRunGoesOn) {
    Folder dir;
    const CliResult run =
        RunCli(With(OffQX3350(), {"--save", dir / "off.ent", "--print", dir / "off.txt", "--json"}),
               kFixedDate);
    // Done, with messages: status 3.
    EXPECT_EQ(run.exitCode, 3) << run.err;
    EXPECT_TRUE(Has(run.err, "No CLK-OUT selected."));
    EXPECT_TRUE(Has(run.err, "pendulon-cli: --save: wrote " + (dir / "off.ent")));
    EXPECT_TRUE(Has(run.err, "pendulon-cli: --print: wrote " + (dir / "off.txt")));
    EXPECT_TRUE(Has(run.err, "pendulon-cli: done, with "));
    EXPECT_FALSE(Has(run.err, "not saved"));
    EXPECT_TRUE(fs::exists(dir / "off.ent"));
    EXPECT_TRUE(fs::exists(dir / "off.txt"));
    // The actions behind the save ran: --json printed the document.
    EXPECT_EQ(nlohmann::json::parse(run.out)["device"], "QX3350");
}

TEST(CliStatus, AFileNotWrittenIsAFailureAndTheOtherActionsStillRun) {
    Folder dir;
    Write(dir / "off.jed", "old vector");
    const CliResult run = RunCli(
        With(OffQX3350(), {"--jed", dir / "off.jed", "--save", dir / "off.ent"}), kFixedDate);
    EXPECT_EQ(run.exitCode, 1) << run.err;
    // The vector of an image made with errors is not written; the old one stays.
    EXPECT_TRUE(Has(run.err, "pendulon-cli: --jed: nothing was written to " + (dir / "off.jed")));
    EXPECT_EQ(ReadFile(dir / "off.jed"), "old vector");
    EXPECT_TRUE(Has(run.err, "pendulon-cli: --save: wrote " + (dir / "off.ent")));
    EXPECT_TRUE(fs::exists(dir / "off.ent"));
}

TEST(CliStatus, StrictStopsAtTheFirstMessage) {
    Folder dir;
    const CliResult run = RunCli(
        With(OffQX3350(), {"--strict", "--save", dir / "off.ent", "--print", dir / "off.txt"}),
        kFixedDate);
    EXPECT_EQ(run.exitCode, 1) << run.err;
    EXPECT_TRUE(Has(run.err, "pendulon-cli: --strict: the run stops after --save"));
    // What was written before the stop is told; nothing behind it ran.
    EXPECT_TRUE(Has(run.err, "pendulon-cli: --save: wrote " + (dir / "off.ent")));
    EXPECT_FALSE(fs::exists(dir / "off.txt"));
    // Without a message --strict changes nothing.
    const CliResult clean =
        RunCli({"new", "QX3350", "--strict", "--click", "cmdCalculate", "--save", dir / "b.ent"},
               kFixedDate);
    EXPECT_EQ(clean.exitCode, 0) << clean.err;
    EXPECT_TRUE(fs::exists(dir / "b.ent"));
}

TEST(CliStatus, HelpTellsTheStatusesAndStrict) {
    const CliResult run = RunCli({"--help"});
    ASSERT_EQ(run.exitCode, 0);
    for (const char* text :
         {"Exit status:", "  0  every action done, no error report or warning shown",
          "  1  failed: a file was not written", "  2  the command line is malformed",
          "  3  every action done and every file written, with error reports or warnings",
          "--strict", "jed FILE.ent -o OUT.jed [--strict]"})
        EXPECT_TRUE(Has(run.out, text)) << text;
}

// The saved entry file of a QX7311 of the tests, with one "# i" line changed.
std::string SavedQX7311(const Folder& dir, int index, const std::string& value) {
    const std::string saved = dir / "good.ent";
    const CliResult made =
        RunCli({"new", "QX7311", "--click", "cmdCalculate", "--save", saved}, kFixedDate);
    EXPECT_EQ(made.exitCode, 0) << made.err;
    std::string text = ReadFile(saved);
    std::string tag(1, ';');
    tag += std::to_string(index);
    size_t at = 0;
    while ((at = text.find("# i ", at)) != std::string::npos) {
        const size_t end = text.find("\r\n", at);
        const std::string line = text.substr(at, end - at);
        const size_t semicolon = line.find(';');
        if (line.compare(semicolon, tag.size(), tag) == 0 &&
            (semicolon + tag.size() == line.size() || line[semicolon + tag.size()] == ' ')) {
            std::string padded = value;
            padded.resize(10, ' ');
            text.replace(at + 4, 10, padded);
            return text;
        }
        at = end;
    }
    ADD_FAILURE() << "no # i line " << index;
    return text;
}

TEST(CliVector, AValueWiderThanItsFieldWritesNoVectorAndKeepsTheOldOne) {
    Folder dir;
    // CPU0 P of 4000: P less 3 takes 8 fuses, up to 258.
    Write(dir / "wide.ent", SavedQX7311(dir, 32, "4000"));
    Write(dir / "old.jed", "old vector\r\n");
    const CliResult run = RunCli({"jed", dir / "wide.ent", "-o", dir / "old.jed"}, kFixedDate);
    EXPECT_EQ(run.exitCode, 1) << run.err;
    EXPECT_TRUE(Has(run.err, "The value 4000 of CPU0 P (# i 32) does not fit its field, which "
                             "holds 3 to 258."))
        << run.err;
    EXPECT_TRUE(Has(run.err, "pendulon-cli: jed: nothing was written to " + (dir / "old.jed")));
    EXPECT_EQ(ReadFile(dir / "old.jed"), "old vector\r\n");
    // A digit field takes 0 or 1 only.
    Write(dir / "digit.ent", SavedQX7311(dir, 5, "7"));
    const CliResult digit = RunCli({"jed", dir / "digit.ent", "-o", dir / "old.jed"}, kFixedDate);
    EXPECT_EQ(digit.exitCode, 1) << digit.err;
    EXPECT_TRUE(Has(digit.err, "The value 7 of suspend option (# i 5)")) << digit.err;
    EXPECT_EQ(ReadFile(dir / "old.jed"), "old vector\r\n");
}

TEST(CliVector, AFileReadWithErrorsWritesNoVectorAndKeepsTheOldOne) {
    Folder dir;
    std::string text = SavedQX7311(dir, 32, "10");
    text.insert(text.find("# i "), "# z what is this\r\n");
    Write(dir / "bad.ent", text);
    Write(dir / "old.jed", "old vector\r\n");
    const CliResult run = RunCli({"jed", dir / "bad.ent", "-o", dir / "old.jed"}, kFixedDate);
    EXPECT_EQ(run.exitCode, 1) << run.err;
    EXPECT_TRUE(Has(run.err, "The line '# z what is this' cannot be recognized."));
    EXPECT_TRUE(Has(run.err, "the saved entry file was read with errors."));
    EXPECT_EQ(ReadFile(dir / "old.jed"), "old vector\r\n");
    EXPECT_FALSE(Has(run.err, ": wrote "));
}

TEST(CliFiles, FilesCarryTodaysDateUnlessSourceDateEpochFixesIt) {
    Folder dir;
    static const char* const kMonths[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const auto today = [] {
        const std::time_t now = std::time(nullptr);
        std::tm local{};
        ::localtime_r(&now, &local);
        char text[16];
        std::snprintf(text, sizeof text, "%s/%02d/%04d", kMonths[local.tm_mon], local.tm_mday,
                      local.tm_year + 1900);
        return std::string(text);
    };
    const std::string before = today();
    // The run's environment without SOURCE_DATE_EPOCH, whatever the test's has.
    const CliResult run =
        RunCli({"new", "QX4860", "--click", "cmdCalculate", "--save", dir / "today.ent"},
               {"-u", "SOURCE_DATE_EPOCH"});
    const std::string after = today();
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const std::string text = ReadFile(dir / "today.ent");
    EXPECT_TRUE(Has(text, "Modification Date: " + before + "\r\n") ||
                Has(text, "Modification Date: " + after + "\r\n"))
        << text.substr(0, 300);
    EXPECT_FALSE(Has(text, "Jan/02/2002"));
    // A packager fixes it: 1700000000 is Nov/14/2023.
    const CliResult fixed =
        RunCli({"new", "QX4860", "--click", "cmdCalculate", "--save", dir / "fixed.ent"},
               kFixedDate);
    ASSERT_EQ(fixed.exitCode, 0) << fixed.err;
    EXPECT_TRUE(Has(ReadFile(dir / "fixed.ent"), "Modification Date: Nov/14/2023\r\n"));
}

TEST(CliFiles, ANameThatIsNotUtf8IsReplacedInTheJsonAndNothingAborts) {
    Folder dir;
    ASSERT_EQ(RunCli({"new", "QX4860", "--click", "cmdCalculate", "--save", dir / "a.ent"},
                     kFixedDate)
                  .exitCode,
              0);
    // "café.ent" in Latin-1, as files from older systems are named.
    const std::string latin1 = dir / "caf\xe9.ent";
    fs::copy_file(dir / "a.ent", latin1);
    const CliResult run = RunCli({"open", latin1, "--json"}, kFixedDate);
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const nlohmann::json state = nlohmann::json::parse(run.out);
    const std::string path = state["fields"]["txtFilePath"]["text"];
    EXPECT_EQ(path, dir / "caf\xEF\xBF\xBD.ent");
    // A name that is not there: the program's message, and no abort.
    const CliResult missing = RunCli({"open", dir / "gone\xe9.ent", "--json"}, kFixedDate);
    EXPECT_EQ(missing.exitCode, 1) << missing.err;
    EXPECT_TRUE(Has(missing.err, "The path and/or file name cannot be found."));
}

TEST(CliFiles, TheLongestNameIsSavedAndAReadOnlyFileIsNotReplaced) {
    Folder dir;
    const std::string longest = dir / (std::string(250, 'n') + ".ent");
    const CliResult run =
        RunCli({"new", "QX4860", "--click", "cmdCalculate", "--save", longest}, kFixedDate);
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_TRUE(fs::exists(longest));

    const std::string lockedPath = dir / "locked.ent";
    Write(lockedPath, "locked");
    fs::permissions(lockedPath,
                    fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    const CliResult locked = RunCli(
        {"new", "QX4860", "--click", "cmdCalculate", "--save", dir / "locked.ent"}, kFixedDate);
    EXPECT_EQ(locked.exitCode, 1) << locked.err;
    EXPECT_TRUE(Has(locked.err,
                    InQuotes(lockedPath) + " was not written: the file is read-only."))
        << locked.err;
    EXPECT_TRUE(Has(locked.err, "pendulon-cli: --save: nothing was written to " +
                                    (dir / "locked.ent")));
    EXPECT_EQ(ReadFile(dir / "locked.ent"), "locked");
}

TEST(CliFiles, OpeningAFolderAndWritingIntoNoFolderNameThePathAndTheReason) {
    Folder dir;
    const CliResult folder = RunCli({"open", dir.path}, kFixedDate);
    EXPECT_EQ(folder.exitCode, 1);
    EXPECT_TRUE(Has(folder.err, "Path/File access error: " + InQuotes(dir.path) +
                                    " cannot be read: Is a directory."))
        << folder.err;
    EXPECT_FALSE(Has(folder.err, "cannot be found"));

    const std::string nowhere = dir / "no/such";
    const CliResult run = RunCli({"new", "QX4860", "--click", "cmdCalculate", "--print",
                                  nowhere + "/d.txt", "--jed", nowhere + "/v.jed"},
                                 kFixedDate);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(Has(run.err, "pendulon-cli: --print: nothing was written to " + nowhere +
                                 "/d.txt: No such file or directory"))
        << run.err;
    EXPECT_TRUE(Has(run.err, InQuotes(nowhere + "/v.jed") +
                                 " was not written: No such file or directory."))
        << run.err;
    EXPECT_TRUE(Has(run.err, "pendulon-cli: --jed: nothing was written to " + nowhere + "/v.jed"));
    EXPECT_FALSE(fs::exists(dir / "no"));
}

TEST(CliFiles, ASaveThatFailsLeavesTheDocumentAsItWasAndTheRunGoesOn) {
    Folder dir;
    const std::string nowhere = dir / "no/such/x.ent";
    const CliResult run = RunCli({"new", "QX4860", "--click", "cmdCalculate", "--save", nowhere,
                                  "--print", dir / "x.txt", "--json"},
                                 kFixedDate);
    EXPECT_EQ(run.exitCode, 1) << run.err;
    EXPECT_TRUE(Has(run.err, InQuotes(nowhere) + " was not written: No such file or directory."))
        << run.err;
    EXPECT_TRUE(Has(run.err, "pendulon-cli: --save: nothing was written to " + nowhere));
    EXPECT_TRUE(Has(run.err, "pendulon-cli: --print: wrote " + (dir / "x.txt")));
    // The document keeps no name that was never written.
    EXPECT_EQ(nlohmann::json::parse(run.out)["fields"]["txtFilePath"]["text"], "");
    EXPECT_FALSE(fs::exists(dir / "no"));
}

// ---------------------------------------------------------------- as a user who is not root

// A folder that any user may write in, removed with what it holds when the test ends.
struct SharedFolder {
    std::string path;
    SharedFolder() {
        std::string pattern = (fs::temp_directory_path() / "pendulon-user-XXXXXX").string();
        if (::mkdtemp(pattern.data()) != nullptr) {
            path = pattern;
            fs::permissions(path, fs::perms::all);
        }
    }
    ~SharedFolder() {
        if (!path.empty())
            fs::remove_all(path);
    }
};

std::string Quote(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

// Runs a command as the user nobody, with the environment given; status and both streams.
CliResult RunAsNobody(const std::vector<std::string>& command,
                      const std::vector<std::string>& environment) {
    std::string line = "setpriv --reuid=65534 --regid=65534 --clear-groups env -i PATH=/usr/bin:/bin";
    for (const std::string& setting : environment) {
        line += ' ';
        line += Quote(setting);
    }
    for (const std::string& word : command) {
        line += ' ';
        line += Quote(word);
    }
    line += " 2>&1";
    CliResult result;
    FILE* pipe = ::popen(line.c_str(), "r");
    if (pipe == nullptr)
        return result;
    char buffer[4096];
    size_t n = 0;
    while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) result.err.append(buffer, n);
    const int status = ::pclose(pipe);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

class CliAsUser : public ::testing::Test {
  protected:
    void SetUp() override {
        if (::geteuid() != 0)
            GTEST_SKIP() << "switching to the user nobody needs the administrator";
        if (std::system("command -v setpriv >/dev/null 2>&1") != 0)
            GTEST_SKIP() << "setpriv is not installed";
        ASSERT_FALSE(shared.path.empty());
        // The program's own folder must be one that this user cannot write in, else the test
        // would prove nothing.
        const std::string programFolder = fs::path(PENDULON_CLI).parent_path().string();
        ASSERT_NE(RunAsNobody({"test", "-w", programFolder}, {}).exitCode, 0)
            << programFolder << " can be written by nobody";
        ASSERT_EQ(RunAsNobody({"test", "-x", PENDULON_CLI}, {}).exitCode, 0)
            << "nobody cannot run " << PENDULON_CLI;
        // A temporary folder of the tests' own that others may not pass through (TMPDIR in a
        // private folder) leaves the user nothing to write in.
        if (RunAsNobody({"test", "-w", shared.path}, {}).exitCode != 0)
            GTEST_SKIP() << "the user nobody cannot reach " << shared.path
                         << "; give TMPDIR and the folders above it o+x";
    }
    SharedFolder shared;
};

TEST_F(CliAsUser, AVectorFromANewEntryFileUsesTheUsersTemporaryFolder) {
    const std::string out = shared.path + "/out";
    fs::create_directory(out);
    fs::permissions(out, fs::perms::all);
    const std::string temp = shared.path + "/tmp";
    fs::create_directory(temp);
    fs::permissions(temp, fs::perms::all);
    const CliResult run =
        RunAsNobody({PENDULON_CLI, "new", "QX4860", "--click", "cmdCalculate", "--jed",
                     out + "/v.jed", "--save", out + "/v.ent"},
                    {"TMPDIR=" + temp, "HOME=" + shared.path, "SOURCE_DATE_EPOCH=1700000000"});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_TRUE(fs::exists(out + "/v.jed")) << run.err;
    EXPECT_TRUE(fs::exists(out + "/v.ent"));
    EXPECT_FALSE(Has(run.err, "Permission denied")) << run.err;
    // The temporary entry file went where the user's temporary files go, and was removed.
    EXPECT_TRUE(fs::is_empty(temp));
}

TEST_F(CliAsUser, AFileTheUserCannotReadIsToldWithItsPathAndReason) {
    const std::string file = shared.path + "/private.ent";
    ASSERT_EQ(RunCli({"new", "QX4860", "--click", "cmdCalculate", "--save", file}, kFixedDate)
                  .exitCode,
              0);
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    const CliResult run =
        RunAsNobody({PENDULON_CLI, "open", file}, {"HOME=" + shared.path});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(Has(run.err, "Path/File access error: " + InQuotes(file) +
                                 " cannot be read: Permission denied."))
        << run.err;
}

}  // namespace
