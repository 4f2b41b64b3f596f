#include <gtest/gtest.h>
#include <sys/time.h>

#include <filesystem>
#include <string>

#include "EntryTestSupport.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using test::WriteBytes;

class ReadFileTest : public ::testing::Test, public test::ReportFixture {
  protected:
    std::string dir = test::MakeTempDir();
    clsEntryFile entry{errors};

    bool Read(const std::string& bytes) {
        return mFileAccessor::ReadFile(WriteBytes(dir, "t.ent", bytes), entry);
    }
};

TEST_F(ReadFileTest, MissingPathGives10051AndLeavesTheImageAlone) {
    entry.mstrCustomer = "kept";
    entry.set_i(0, 7);
    EXPECT_FALSE(mFileAccessor::ReadFile(dir + "/nothing.ent", entry));
    ASSERT_EQ(Numbers(), std::vector<long>({10051}));
    EXPECT_EQ(Description(0), "The path and/or file name cannot be found.");
    EXPECT_EQ(Source(0), "(mFileAccessor) ReadFile");
    EXPECT_EQ(entry.mstrCustomer, "kept");
    EXPECT_EQ(entry.i(0), 7);
}

TEST_F(ReadFileTest, EmptyPathIsNotFoundAndAFolderIsToldAsSuchWithItsPath) {
    entry.set_i(0, 7);
    EXPECT_FALSE(mFileAccessor::ReadFile("", entry));
    EXPECT_FALSE(mFileAccessor::ReadFile(dir, entry));
    ASSERT_EQ(Numbers(), std::vector<long>({10051, 75}));
    EXPECT_EQ(Description(1), "Path/File access error: '" + dir + "' cannot be read: Is a directory.");
    EXPECT_EQ(Source(1), "(mFileAccessor) ReadFile");
    EXPECT_EQ(entry.i(0), 7);
}

TEST_F(ReadFileTest, ReadsEveryTagInOrderOfItsGroup) {
    const bool ok = Read(
        "# s qx4860sc-01\r\n# b 1\r\n# r abcdef\r\n# d 1 ;0\r\n# d 0 ;1\r\n"
        "# f  14.31818 ;0\r\n# f 100.5 ;1\r\n# i 3 ;0\r\n# i 44 ;1 comment\r\n# i 5\r\n"
        "# m 12 ;m\r\n# p 14\r\n### old comment\r\n");
    EXPECT_TRUE(ok);
    EXPECT_TRUE(platform.Messages().empty());
    EXPECT_EQ(entry.mstrPartDescription, "qx4860sc-01");
    EXPECT_EQ(entry.mstrVersion, "01");
    EXPECT_EQ(entry.mintBValue, 1);
    // Characters 4 to 6 of the line: the blank behind the tag and two characters.
    EXPECT_EQ(entry.mstrRValue, "ab");
    EXPECT_EQ(entry.d(0), 1);
    EXPECT_EQ(entry.d(1), 0);
    EXPECT_DOUBLE_EQ(entry.f(0), 14.31818);
    EXPECT_DOUBLE_EQ(entry.f(1), 100.5);
    EXPECT_EQ(entry.i(0), 3);
    EXPECT_EQ(entry.i(1), 44);
    EXPECT_EQ(entry.i(2), 5);
    EXPECT_EQ(entry.mintMValue, 12);
    EXPECT_EQ(entry.mintPValue, 14);
    EXPECT_EQ(entry.mintDCount, 2);
    EXPECT_EQ(entry.mintFCount, 2);
    EXPECT_EQ(entry.mintICount, 3);
}

TEST_F(ReadFileTest, BValueRoundsHalfToEven) {
    EXPECT_TRUE(Read("# b 2.5\n# f 1\n# i 1\n"));
    EXPECT_EQ(entry.mintBValue, 2);
    EXPECT_TRUE(Read("# i 3.5 ;0\n# f 1\n"));
    EXPECT_EQ(entry.i(0), 4);
}

TEST_F(ReadFileTest, TextLinesAnyCaseValueBehindFirstColon) {
    EXPECT_TRUE(
        Read("MODIFICATION DATE: Jan/02/2002\nCustomer:  Acme: labs \ncomments: a;b\nFae: Ann\n"
             "PACKAGE: SOIC\n# f 1\n# i 1\n"));
    EXPECT_EQ(entry.mstrModificationDate, "Jan/02/2002");
    EXPECT_EQ(entry.mstrCustomer, "Acme: labs");
    EXPECT_EQ(entry.mstrComments, "a;b");
    EXPECT_EQ(entry.mstrFAE, "Ann");
    EXPECT_EQ(entry.mstrPackage, "SOIC");
}

TEST_F(ReadFileTest, OnlyFLinesIsRefusedWith10052) {
    const std::string path = WriteBytes(dir, "f.ent", "# f 1 ;0\r\n# f 2 ;1\r\n");
    EXPECT_FALSE(mFileAccessor::ReadFile(path, entry));
    ASSERT_EQ(Numbers(), std::vector<long>({10052}));
    EXPECT_EQ(Description(0), "The file '" + path + "' is not a correctly formatted ENT file.");
    EXPECT_DOUBLE_EQ(entry.f(1), 2);  // what was read stays
    EXPECT_EQ(entry.mintFCount, 0);   // the counts do not
}

TEST_F(ReadFileTest, OnlyILinesIsRefusedWith10052) {
    EXPECT_FALSE(Read("# i 1 ;0\r\n"));
    EXPECT_EQ(Numbers(), std::vector<long>({10052}));
    EXPECT_EQ(entry.mintICount, 0);
}

TEST_F(ReadFileTest, UnknownTagOnLastLinePassesSilently) {
    EXPECT_TRUE(Read("# f 1\r\n# i 1\r\n# z 1\r\n"));
    EXPECT_TRUE(platform.Messages().empty());
    EXPECT_TRUE(Read("# f 1\r\n# i 1\r\n# z 1"));
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(ReadFileTest, UnknownTagElsewhereGives10053AndReadingGoesOn) {
    EXPECT_TRUE(Read("# f 1\r\n# z 1\r\n# i 1\r\n# q\r\n# i 2\r\n"));
    ASSERT_EQ(Numbers(), std::vector<long>({10053, 10053}));
    EXPECT_EQ(Description(0), "The line '# z 1' cannot be recognized.");
    EXPECT_EQ(Description(1), "The line '# q' cannot be recognized.");
    EXPECT_EQ(entry.i(1), 2);
    EXPECT_EQ(entry.mintICount, 2);
}

TEST_F(ReadFileTest, LeadingBlanksAreIgnored) {
    EXPECT_TRUE(Read("# f 1\n   # i 3 ;9\n"));
    EXPECT_EQ(entry.i(0), 3);
    EXPECT_EQ(entry.mintICount, 1);
}

TEST_F(ReadFileTest, CapitalTagIsUnknownButCapitalDateLineIsRead) {
    EXPECT_TRUE(Read("# F 1\nMODIFICATION DATE: x\n# f 1\n# i 1\n"));
    EXPECT_EQ(Numbers(), std::vector<long>({10053}));
    EXPECT_EQ(entry.mstrModificationDate, "x");
    EXPECT_EQ(entry.mintFCount, 1);
}

TEST_F(ReadFileTest, PartDescriptionVersionConfigurationAndCustomer) {
    EXPECT_TRUE(Read("# s qx4860sc-01 ;name: demo\n# f 1\n# i 1\n"));
    EXPECT_EQ(entry.mstrPartDescription, "qx4860sc-01");
    EXPECT_EQ(entry.mstrVersion, "01");
    EXPECT_EQ(entry.mstrConfiguration, ": demo");
    EXPECT_EQ(entry.mstrCustomer, ": demo");
}

TEST_F(ReadFileTest, CustomerLineWinsOverConfiguration) {
    EXPECT_TRUE(Read("Customer: Real\n# s qx4860sc-01 ;Configuration for Other\n# f 1\n# i 1\n"));
    EXPECT_EQ(entry.mstrConfiguration, "Other");
    EXPECT_EQ(entry.mstrCustomer, "Real");
}

TEST_F(ReadFileTest, ConfigurationMarkersInOrder) {
    EXPECT_TRUE(Read("# s qx7311 configuration abc\n# f 1\n# i 1\n"));
    EXPECT_EQ(entry.mstrConfiguration, "abc");
    EXPECT_EQ(entry.mstrPartDescription, "qx7311 configuration abc");
}

TEST_F(ReadFileTest, PartDescriptionWithoutDashHasEmptyVersion) {
    EXPECT_TRUE(Read("# s qx4860sc\n# f 1\n# i 1\n"));
    EXPECT_EQ(entry.mstrPartDescription, "qx4860sc");
    EXPECT_EQ(entry.mstrVersion, "");
    EXPECT_EQ(entry.mstrConfiguration, "");
}

TEST_F(ReadFileTest, MissingDateLineTakesTheFileTimeStamp) {
    const std::string path = WriteBytes(dir, "d.ent", "# f 1\n# i 1\n");
    const struct timeval times[2] = {{1011967445, 0}, {1011967445, 0}};  // 2002-01-25 14:04:05
    ASSERT_EQ(::utimes(path.c_str(), times), 0);
    EXPECT_TRUE(mFileAccessor::ReadFile(path, entry));
    EXPECT_EQ(entry.mstrModificationDate, "1/25/2002 2:04:05 PM");
    EXPECT_EQ(entry.mstrModificationDate, FormatGeneralDate(DateTime::FromUnixSeconds(1011967445)));
}

TEST_F(ReadFileTest, AnyLineEnding) {
    for (const std::string eol : {"\r\n", "\n", "\r"}) {
        clsEntryFile e(errors);
        const std::string text = "Customer: C" + eol + "# f 1" + eol + "# f 2" + eol + "# i 7" +
                                 eol + "# z" + eol + "# i 8";
        EXPECT_TRUE(mFileAccessor::ReadFile(WriteBytes(dir, "e.ent", text), e));
        EXPECT_EQ(e.mstrCustomer, "C");
        EXPECT_EQ(e.mintFCount, 2);
        EXPECT_EQ(e.mintICount, 2);
        EXPECT_EQ(e.i(1), 8);
    }
    EXPECT_EQ(Numbers(), std::vector<long>({10053, 10053, 10053}));
}

TEST_F(ReadFileTest, MixedLineEndsEmptyLinesAndAClosingCR) {
    // LF CR is two line ends, CR CR LF as well; the closing CR opens no line.
    EXPECT_TRUE(Read("# f 1\n\r# i 2\r\r\n# z\n\n# i 3\r"));
    EXPECT_EQ(Numbers(), std::vector<long>({10053}));
    EXPECT_EQ(entry.mintFCount, 1);
    EXPECT_EQ(entry.mintICount, 2);
    EXPECT_EQ(entry.i(1), 3);
    // Without the closing line end the unknown tag is the last line and passes silently.
    EXPECT_TRUE(Read("# f 1\r\n# i 2\r\n# z"));
    EXPECT_EQ(Numbers(), std::vector<long>({10053}));
}

TEST_F(ReadFileTest, SixteenBitOverflowIsReportedValueKeptReadingGoesOn) {
    entry.set_i(0, 11);
    EXPECT_TRUE(Read("# f 1\n# i 40000 ;0\n# i 5 ;1\n# p 99999\n# m -40000\n"));
    EXPECT_EQ(Numbers(), std::vector<long>({6, 6, 6}));
    EXPECT_EQ(Description(0), "Overflow");
    EXPECT_EQ(entry.i(0), 11);
    EXPECT_EQ(entry.i(1), 5);
    EXPECT_EQ(entry.mintICount, 2);
    EXPECT_EQ(entry.mintPValue, 0);
}

TEST_F(ReadFileTest, IndexBeyondRangeIsSubscriptErrorButCounterCounts) {
    std::string text = "# i 1\n";
    for (int n = 0; n < 34; ++n) text += "# f " + std::to_string(n) + "\n";
    for (int n = 1; n < 258; ++n) text += "# i 2\n";
    EXPECT_TRUE(Read(text));
    EXPECT_EQ(Numbers(), std::vector<long>({9, 9}));
    EXPECT_EQ(entry.mintFCount, 34);
    EXPECT_EQ(entry.mintICount, 258);
    EXPECT_DOUBLE_EQ(entry.f(32), 32);
}

TEST_F(ReadFileTest, ThirdDValueIsSubscriptErrorButCounted) {
    EXPECT_TRUE(Read("# d 1 ;0\n# d 1 ;1\n# d 1 ;2\n# f 1\n# i 1\n"));
    EXPECT_EQ(Numbers(), std::vector<long>({9}));
    EXPECT_EQ(Source(0), "clsEntryFile.d [Property Let]");
    EXPECT_EQ(entry.mintDCount, 3);
    EXPECT_EQ(entry.d(1), 1);
}

TEST_F(ReadFileTest, FileWithoutDLinesIsFine) {
    EXPECT_TRUE(Read("# f 1\n# i 1\n"));
    EXPECT_EQ(entry.mintDCount, 0);
    EXPECT_EQ(entry.d(0), 0);
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(ReadFileTest, ReadingTheSameFileTwiceGivesTheSameImage) {
    const std::string text = "# s qx6105asc-02\r\n# f 14.31818\r\n# i 3\r\n";
    EXPECT_TRUE(Read(text));
    clsEntryFile again(errors);
    EXPECT_TRUE(mFileAccessor::ReadFile(dir + "/t.ent", again));
    EXPECT_EQ(again.mstrVersion, "02");
    EXPECT_EQ(again.i(0), entry.i(0));
}

TEST_F(ReadFileTest, EmptyFileIsRefused) {
    EXPECT_FALSE(Read(""));
    EXPECT_EQ(Numbers(), std::vector<long>({10052}));
}

TEST_F(ReadFileTest, BinaryGarbageIsRefusedWithoutCrash) {
    std::string bytes;
    for (int n = 0; n < 4096; ++n) bytes.push_back(static_cast<char>((n * 7919 + 13) % 256));
    EXPECT_FALSE(Read(bytes));
    ASSERT_FALSE(platform.Messages().empty());
    EXPECT_EQ(Numbers().back(), 10052);
}

TEST_F(ReadFileTest, MegabyteLineIsHandled) {
    const std::string big(1 << 20, 'x');
    EXPECT_TRUE(Read("# f 1\n# i 1\n" + big + "\n# " + big + "\n# i 2\n"));
    EXPECT_EQ(Numbers(), std::vector<long>({10053}));
    EXPECT_EQ(entry.mintICount, 2);
}

TEST_F(ReadFileTest, HundredThousandLines) {
    std::string text = "# f 1\r\n";
    for (int n = 0; n < 100000; ++n) text += "* filler line " + std::to_string(n) + "\r\n";
    text += "# i 9\r\n";
    EXPECT_TRUE(Read(text));
    EXPECT_TRUE(platform.Messages().empty());
    EXPECT_EQ(entry.i(0), 9);
}

TEST_F(ReadFileTest, CounterPastIntegerRangeOverflowsAndStays) {
    std::string text = "# f 1\n";
    for (int n = 0; n < 32768; ++n) text += "# i 1\n";
    EXPECT_TRUE(Read(text));
    // 32767 - 256 values beyond the last index, then one overflow of the counter itself: the
    // first three of each kind are shown, the rest are told in one message each at the end.
    EXPECT_EQ(Numbers(), std::vector<long>({9, 9, 9, 6, 9}));
    EXPECT_EQ(Source(0), "clsEntryFile.i [Property Let]");
    EXPECT_EQ(Description(0), "Subscript out of range");
    EXPECT_EQ(Description(3), "Overflow");
    EXPECT_EQ(Description(4), "... and " + std::to_string(32767 - 256 - 3) +
                                  " more values beyond the last of their kind.");
    EXPECT_EQ(entry.mintICount, 32767);
}

TEST_F(ReadFileTest, ManyBadValuesGiveAFewReportsAndOneForTheRest) {
    // 130 values that do not fit an Integer, and 5 lines that cannot be recognised.
    std::string text = "# f 1\n";
    for (int n = 0; n < 130; ++n) text += "# i 70000 ;" + std::to_string(n) + "\n";
    for (int n = 0; n < 5; ++n) text += "# q " + std::to_string(n) + "\n";
    text += "# i 4\n";
    EXPECT_TRUE(Read(text));
    EXPECT_EQ(Numbers(), std::vector<long>({6, 6, 6, 10053, 10053, 10053, 6, 10053}));
    EXPECT_EQ(Description(3), "The line '# q 0' cannot be recognized.");
    EXPECT_EQ(Description(6), "... and 127 more values that do not fit.");
    EXPECT_EQ(Description(7), "... and 2 more lines that cannot be recognized.");
    for (size_t n = 0; n < 8; ++n) EXPECT_EQ(Source(n), "(mFileAccessor) ReadFile") << n;
    // The reading's outcome is as before: each bad value kept what it had, and was counted.
    EXPECT_EQ(entry.mintICount, 131);
    EXPECT_EQ(entry.i(0), 0);
    EXPECT_EQ(entry.i(130), 4);
}

TEST_F(ReadFileTest, AFewBadValuesAreEachReported) {
    EXPECT_TRUE(Read("# f 1\n# i 70000\n# i 80000\n# i 90000\n# i 2\n"));
    EXPECT_EQ(Numbers(), std::vector<long>({6, 6, 6}));
    EXPECT_EQ(entry.i(3), 2);
}

std::vector<std::string> MessageTexts(const HeadlessPlatform& platform) {
    std::vector<std::string> texts;
    for (const auto& message : platform.Messages())
        texts.push_back(message.Title + "|" + message.Text);
    return texts;
}

// The text of a file read in memory gives the very image and messages the file itself gives.
TEST_F(ReadFileTest, TextInMemoryReadsAsTheFileDoes) {
    const std::vector<std::string> texts = {
        "# s qx4860sc-01\r\n# b 1\r\n# r abcdef\r\n# d 1 ;0\r\n# f 14.31818 ;0\r\n"
        "Modification Date: Jan/02/2002\r\nCustomer: Acme\r\n# i 3 ;0\r\n# m 12\r\n# p 14\r\n",
        "# f 1\n# i 40000 ;0\n# q odd\n# i 5 ;1\n# p 99999\n",
        "# f 1 ;0\r# f 2 ;1\r",
        "",
        std::string("# f 1\n\0# i 2\n", 14),
    };
    for (const std::string& text : texts) {
        const std::string path = WriteBytes(dir, "same.ent", text);
        test::ReportFixture fromFile;
        clsEntryFile read(fromFile.errors);
        const bool fileAccepted = mFileAccessor::ReadFile(path, read);
        test::ReportFixture fromText;
        clsEntryFile parsed(fromText.errors);
        const bool textAccepted =
            mFileAccessor::ParseFile(text, path, read.mstrModificationDate, parsed);
        EXPECT_EQ(textAccepted, fileAccepted) << text;
        EXPECT_EQ(MessageTexts(fromText.platform), MessageTexts(fromFile.platform)) << text;
        EXPECT_EQ(parsed.mstrPartDescription, read.mstrPartDescription);
        EXPECT_EQ(parsed.mstrCustomer, read.mstrCustomer);
        EXPECT_EQ(parsed.mstrModificationDate, read.mstrModificationDate);
        EXPECT_EQ(parsed.mstrRValue, read.mstrRValue);
        EXPECT_EQ(parsed.mintBValue, read.mintBValue);
        EXPECT_EQ(parsed.mintMValue, read.mintMValue);
        EXPECT_EQ(parsed.mintPValue, read.mintPValue);
        EXPECT_EQ(parsed.mintFCount, read.mintFCount);
        EXPECT_EQ(parsed.mintICount, read.mintICount);
        EXPECT_EQ(parsed.mintDCount, read.mintDCount);
        for (int n = 0; n < 2; ++n) {
            EXPECT_EQ(parsed.f(n), read.f(n));
            EXPECT_EQ(parsed.i(n), read.i(n));
            EXPECT_EQ(parsed.d(n), read.d(n));
        }
    }
}

TEST_F(ReadFileTest, TaggedValueIsTheTextBetweenTagAndSemicolonWithoutItsBlanks) {
    // Each "# f" line's value is Val of the trimmed text that GetSubstring finds between the
    // tag and the next ";" behind it.
    const std::vector<std::string> lines = {
        "# f  12.5 ;1",  "# f  3;", "# f",           "# f ;",          "# f 7",
        "# f  1 2;",     "# f;9",   "# f 4 ; # f 5", "# f  -2.5e1 ;x", "# f 8;;",
        "# fx 6 ; == y", "# f ; 3", "# f &H10;",     "# f\t5;",        "# f 1d2"};
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    text += "# i 1\r\n";
    ASSERT_TRUE(mFileAccessor::ParseFile(text, "x.ent", "", entry));
    ASSERT_EQ(entry.mintFCount, static_cast<int>(lines.size()));
    for (size_t n = 0; n < lines.size(); ++n) {
        const double expected = Val(Trim(mShared::GetSubstring(lines[n], "# f", ";")));
        EXPECT_EQ(entry.f(static_cast<int>(n)), expected) << lines[n];
    }
    EXPECT_EQ(entry.f(0), 12.5);
    EXPECT_EQ(entry.f(1), 3);
    EXPECT_EQ(entry.f(2), 0);
    EXPECT_EQ(entry.f(7), 4);
}

TEST_F(ReadFileTest, TextWithoutDateLineTakesTheGivenDate) {
    EXPECT_TRUE(mFileAccessor::ParseFile("# f 1\n# i 1\n", "x.ent", "1/25/2002 2:04:05 PM", entry));
    EXPECT_EQ(entry.mstrModificationDate, "1/25/2002 2:04:05 PM");
    clsEntryFile dated(errors);
    EXPECT_TRUE(mFileAccessor::ParseFile("Modification Date: Jan/02/2002\n# f 1\n# i 1\n", "x.ent",
                                         "1/25/2002 2:04:05 PM", dated));
    EXPECT_EQ(dated.mstrModificationDate, "Jan/02/2002");
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(ReadFileTest, RefusedTextNamesTheGivenPath) {
    EXPECT_FALSE(mFileAccessor::ParseFile("# f 1\n", "/some/where/f.ent", "", entry));
    ASSERT_EQ(Numbers(), std::vector<long>({10052}));
    EXPECT_EQ(Description(0),
              "The file '/some/where/f.ent' is not a correctly formatted ENT file.");
    EXPECT_EQ(entry.mintFCount, 0);
}

}  // namespace
}  // namespace pendulon
