// The fuse map reader: golden vectors back to the values of their entry files, images of every
// layout (all codes, the largest counters) through the writers and back, the JEDEC forms device
// programmers save, and damaged files refused with their cause.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "EntryTestSupport.hpp"
#include "entryfile/Checksums.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/clsEntryFile3350.hpp"
#include "entryfile/clsEntryFile4860.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "entryfile/clsFuseMap.hpp"
#include "reports/ReadBack.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

const std::string kTitle = "Pendulon(tm) 3.71";
const std::string kBuild = "Build #: 3.71.010";


// The C field of a vector.
std::string CField(const std::string& text) {
    const size_t at = text.find("\r\nC");
    return at == std::string::npos ? std::string() : text.substr(at + 3, 4);
}

// The C field's text for a checksum ("C" and the four digits), built by appending.
std::string CText(const std::string& hex) {
    std::string text = "C";
    text += hex;
    return text;
}

// Replaces the first occurrence of what in text.
std::string Replace(std::string text, const std::string& what, const std::string& with) {
    const size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    if (at != std::string::npos)
        text.replace(at, what.size(), with);
    return text;
}

struct Golden {
    const char* vector;  // a vector of tests/data/entry, or the name of a QX5140 chip
    const char* entry;
    const char* device;
    const char* family;
};

// The QX5140 window offers no vector; its chips are programmed with the fuses of its entry file
// in the QX7311 layout, where the counters of a CPU block that is off (P 0, Q 0) do not fit
// their fields and stay zeros.
bool MadeFromEntry(const Golden& golden) {
    return std::string(golden.device) == "QX5140";
}

const Golden kGoldens[] = {
    {"QX6105A_FS", "QX6105A_FS_lean.ent", "QX6105A", "QX6105A"},
    {"QX6105AF", "QX6105AF_lean.ent", "QX6105AF", "QX6105A"},
    {"QX4860_8", "QX4860_8_lean.ent", "QX4860", "QX4860"},
    {"QX4860F", "QX4860F_lean.ent", "QX4860F", "QX4860"},
    {"QX7311_5V", "QX7311_5V_lean.ent", "QX7311", "QX7311"},
    {"QX7311F_3V", "QX7311F_3V_lean.ent", "QX7311F", "QX7311"},
    {"QX7312_5V", "QX7312_5V_lean.ent", "QX7312", "QX7311"},
    {"QX7312I_Suspend", "QX7312I_Suspend_lean.ent", "QX7312I", "QX7311"},
    {"QX5140_OE", "QX5140_OE_lean.ent", "QX5140", "QX7311"},
    {"QX5140_Select", "QX5140_Select_lean.ent", "QX5140", "QX7311"},
    {"QX3350_SC", "QX3350_SC_lean.ent", "QX3350", "QX3350"},
    {"QX3350_TZ", "QX3350_TZ_lean.ent", "QX3350", "QX3350"},
    {"QX3350I_SC", "QX3350I_SC_lean.ent", "QX3350I", "QX3350"},
    {"QX3350I_TZ", "QX3350I_TZ_lean.ent", "QX3350I", "QX3350"},
    {"QX3350_P2750", "QX3350_P2750_lean.ent", "QX3350", "QX3350"},
};

// What the fuses hold for a value of an image: the value itself, except for the counters of a
// QX5140 CPU block that is off, which stay zeros and read back as the fields' offsets.
int StoredValue(const Golden& golden, int n, int value) {
    if (MadeFromEntry(golden) && n >= 29 && value == 0) {
        const int b = (n - 29) % 5;
        if (b == 3)
            return 3;
        if (b == 4)
            return 2;
    }
    return value;
}

class FuseMapTest : public ::testing::Test, public test::ReportFixture {
  protected:
    // Parses text; on failure the cause is kept for the test to look at.
    bool Parse(clsFuseMap& map, const std::string& text) {
        cause.clear();
        return map.ParseFuseMap(text, cause);
    }
    std::unique_ptr<clsEntryFile> ReadEntry(const std::string& name) {
        auto entry = std::make_unique<clsEntryFile>(errors);
        EXPECT_TRUE(mFileAccessor::ParseFile(test::ReadFile(test::DataPath("entry/" + name)), name,
                                             "1/1/2000", *entry));
        return entry;
    }
    // The text of a golden's fuse map: its vector, or the fuses of a QX5140 entry file with
    // the identity row of the tests' version and date.
    std::string VectorText(const Golden& golden) {
        if (!MadeFromEntry(golden))
            return test::ReadFile(test::DataPath(std::string("entry/") + golden.vector + ".jed"));
        const auto entry = ReadEntry(golden.entry);
        clsEntryFile7311::Identity identity;
        identity.Checksum = std::to_string(clsEntryFile7311::CalculateChecksum(*entry, errors));
        identity.Device = golden.device;
        identity.Date = {2026, 11, 21, 0, 0, 0};
        identity.Version = {3, 71, 10};
        return clsEntryFile7311::EPROMVectorText(*entry, golden.device, kTitle, kBuild, identity,
                                                 false);
    }
    std::string VectorText(const std::string& name) {
        for (const Golden& golden : kGoldens)
            if (name == golden.vector)
                return VectorText(golden);
        ADD_FAILURE() << name;
        return {};
    }
    std::string cause;
};

TEST_F(FuseMapTest, EveryGoldenVectorGivesBackTheFuseValuesOfItsEntryFile) {
    for (const Golden& golden : kGoldens) {
        SCOPED_TRACE(golden.vector);
        const std::string text = VectorText(golden);
        clsFuseMap map(errors);
        ASSERT_TRUE(Parse(map, text)) << cause;
        const auto entry = ReadEntry(golden.entry);
        EXPECT_EQ(map.Family(), golden.family);
        EXPECT_TRUE(map.Fits(golden.device));
        EXPECT_EQ(map.FuseChecksum(), CField(text));
        EXPECT_EQ(map.TransmissionChecksum(), clsFuseMap::Transmission::NotComputed);
        ASSERT_EQ(map.Image().mintICount, entry->mintICount);
        for (int n = 0; n < entry->mintICount; ++n)
            EXPECT_EQ(map.Image().i(n), StoredValue(golden, n, entry->i(n))) << "field " << n;
        // The read-back's fields are the entry file's, as the device's window writes them.
        const ReadBack readBack = map.MakeReadBack(golden.device, 14.31818);
        ASSERT_EQ(readBack.Fields.size(), static_cast<size_t>(entry->mintICount));
        for (int n = 0; n < entry->mintICount; ++n)
            EXPECT_EQ(readBack.Fields[static_cast<size_t>(n)].Value, entry->i(n)) << "field " << n;
        if (!MadeFromEntry(golden)) {
            EXPECT_TRUE(map.FamilyChecksumOK());
        }
    }
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(FuseMapTest, DevicesThatFitFollowTheLayoutAndThePinCount) {
    const auto devices = [&](const std::string& name) {
        clsFuseMap map(errors);
        EXPECT_TRUE(Parse(map, VectorText(name))) << cause;
        return std::make_pair(map.Devices(), map.DefaultDevice());
    };
    using Names = std::vector<std::string>;
    EXPECT_EQ(devices("QX4860_8").first, (Names{"QX4860", "QX4860F", "QX4860I"}));
    EXPECT_EQ(devices("QX4860_8").second, "QX4860");
    EXPECT_EQ(devices("QX6105AF").first, (Names{"QX6105A", "QX6105AF", "QX6105AI"}));
    EXPECT_EQ(devices("QX6105AF").second, "QX6105A");
    // QP0020: the QX7311 models; the device number 3311 leaves out the QX7312.
    EXPECT_EQ(devices("QX7311_5V").first, (Names{"QX7311", "QX7311F", "QX7311I"}));
    // QP0016 and device number 3312: the QX7312 alone.
    EXPECT_EQ(devices("QX7312_5V").first, (Names{"QX7312"}));
    // No QP; the suspend option off and the outputs' off flags as only the QX5140 leaves them.
    EXPECT_EQ(devices("QX5140_OE").first, (Names{"QX5140"}));
    // With the suspend option on a QX7311 window could have written it too; the QX5140's
    // marks make it the default.
    const auto select = devices("QX5140_Select");
    EXPECT_EQ(select.second, "QX5140");
    EXPECT_EQ(select.first.back(), "QX5140");
    EXPECT_EQ(devices("QX3350_SC").first, (Names{"QX3350", "QX3350I"}));
}

// ---- Images of every layout through the writers and back ---------------------------------------

void Fill4860Image(clsEntryFile& e, std::mt19937& random, int variant) {
    for (int n = 0; n <= 11; ++n) e.set_i(n, static_cast<std::int16_t>(random() % 2));
    // Fields 6 to 11 name the family and the package: 14 pins, 8 pins, QX6105A.
    static constexpr int kPackage[3][6] = {
        {1, 1, 0, 1, 0, 1}, {1, 0, 1, 0, 1, 1}, {0, 0, 1, 0, 0, 0}};
    for (int n = 6; n <= 11; ++n) e.set_i(n, static_cast<std::int16_t>(kPackage[variant][n - 6]));
    static constexpr int kWidths[6] = {2, 3, 2, 3, 2, 3};
    for (int n = 12; n <= 17; ++n)
        e.set_i(n, static_cast<std::int16_t>(random() % (1u << kWidths[n - 12])));
    for (int s = 0; s <= 15; ++s) {
        const int base = 18 + 7 * s;
        for (int b = 0; b <= 4; ++b) e.set_i(base + b, static_cast<std::int16_t>(random() % 2));
        // The counters' whole range, the ends included.
        e.set_i(base + 5, static_cast<std::int16_t>(s == 0   ? 258
                                                    : s == 1 ? 3
                                                             : 3 + random() % 256));
        e.set_i(base + 6, static_cast<std::int16_t>(s == 0   ? 129
                                                    : s == 1 ? 2
                                                             : 2 + random() % 128));
    }
    e.mintPValue = variant == 0 ? 14 : variant == 1 ? 8 : 0;
}

TEST_F(FuseMapTest, ImagesOfTheQX4860LayoutWithTheLargestCountersComeBack) {
    std::mt19937 random(4860);
    const char* devices[3] = {"QX4860", "QX4860I", "QX6105A"};
    for (int round = 0; round < 30; ++round) {
        SCOPED_TRACE(round);
        const int variant = round % 3;
        clsEntryFile e(errors);
        Fill4860Image(e, random, variant);
        const std::string text =
            clsEntryFile4860::EPROMVectorText(e, devices[variant], kTitle, kBuild, false);
        clsFuseMap map(errors);
        ASSERT_TRUE(Parse(map, text)) << cause;
        EXPECT_EQ(map.Family(), variant == 2 ? "QX6105A" : "QX4860");
        for (int n = 0; n <= 129; ++n) ASSERT_EQ(map.Image().i(n), e.i(n)) << "field " << n;
    }
}

clsEntryFile7311::Identity IdentityOf(const clsEntryFile& e, const std::string& device,
                                      ErrorReport& errors) {
    clsEntryFile7311::Identity identity;
    identity.Checksum = std::to_string(clsEntryFile7311::CalculateChecksum(e, errors));
    identity.Device = device;
    identity.Date = DateTime{2026, 11, 21};
    identity.Version = {3, 71, 10};
    return identity;
}

void Fill7311Image(clsEntryFile& e, std::mt19937& random, int round) {
    for (int n = 0; n <= 16; ++n) e.set_i(n, static_cast<std::int16_t>(random() % 2));
    // The suspend option on: a QX7311 window may leave every flag as it likes.
    e.set_i(5, 1);
    e.set_i(17, static_cast<std::int16_t>(random() % 4));
    e.set_i(20, static_cast<std::int16_t>(random() % 4));
    e.set_i(18, static_cast<std::int16_t>(round == 0 ? 1026 : 3 + random() % 1024));
    e.set_i(19, static_cast<std::int16_t>(round == 0 ? 129 : 2 + random() % 128));
    e.set_i(21, static_cast<std::int16_t>(round == 0 ? 258 : 3 + random() % 256));
    e.set_i(22, static_cast<std::int16_t>(round == 0 ? 65 : 2 + random() % 64));
    e.set_i(23, static_cast<std::int16_t>(random() % 4));
    e.set_i(24, static_cast<std::int16_t>(random() % 4));
    // Every output code, four per round.
    for (int k = 0; k < 4; ++k) e.set_i(25 + k, static_cast<std::int16_t>((4 * round + k) % 32));
    for (int n = 0; n <= 7; ++n) {
        const int base = 29 + 5 * n;
        e.set_i(base, static_cast<std::int16_t>(random() % 2));
        e.set_i(base + 1, static_cast<std::int16_t>(random() % 2));
        e.set_i(base + 2, static_cast<std::int16_t>(random() % 4));
        e.set_i(base + 3, static_cast<std::int16_t>(n == 0 ? 258 : 3 + random() % 256));
        e.set_i(base + 4, static_cast<std::int16_t>(n == 0 ? 65 : 2 + random() % 64));
    }
}

TEST_F(FuseMapTest, ImagesOfTheQX7311LayoutWithEveryCodeAndTheLargestCountersComeBack) {
    std::mt19937 random(7311);
    for (int round = 0; round < 24; ++round) {
        SCOPED_TRACE(round);
        clsEntryFile e(errors);
        Fill7311Image(e, random, round);
        const std::string device = round % 2 == 0 ? "QX7311I" : "QX7312";
        // Only the QX7311 models have CLKF.
        if (device == "QX7312")
            e.set_i(23, 3);
        const std::string text = clsEntryFile7311::EPROMVectorText(
            e, device, kTitle, kBuild, IdentityOf(e, device, errors), false);
        clsFuseMap map(errors);
        ASSERT_TRUE(Parse(map, text)) << cause;
        for (int n = 0; n <= 68; ++n) ASSERT_EQ(map.Image().i(n), e.i(n)) << "field " << n;
        EXPECT_TRUE(map.FamilyChecksumOK());
        EXPECT_EQ(map.Identity().DeviceNumber,
                  device == "QX7312" ? 3312 : 3311);
        EXPECT_EQ(map.Identity().Year, 2026);
        EXPECT_EQ(map.Fits("QX7312"), device == "QX7312");
    }
}

TEST_F(FuseMapTest, ASwitchedOffLoopAndALoopAtSixAndFiveAreToldApartByTheStoredChecksum) {
    std::mt19937 random(3);
    for (const bool off : {true, false}) {
        SCOPED_TRACE(off);
        clsEntryFile e(errors);
        Fill7311Image(e, random, 1);
        // Both leave the fuses 3 and 3 behind.
        e.set_i(18, off ? 3 : 6);
        e.set_i(19, off ? 3 : 5);
        e.set_i(21, off ? 6 : 3);
        e.set_i(22, off ? 5 : 3);
        const std::string text = clsEntryFile7311::EPROMVectorText(
            e, "QX7311I", kTitle, kBuild, IdentityOf(e, "QX7311I", errors), false);
        clsFuseMap map(errors);
        ASSERT_TRUE(Parse(map, text)) << cause;
        for (int n : {18, 19, 21, 22}) EXPECT_EQ(map.Image().i(n), e.i(n)) << "field " << n;
        EXPECT_TRUE(map.FamilyChecksumOK());
    }
}

TEST_F(FuseMapTest, ImagesOfTheQX3350LayoutWithTheLargestCountersComeBack) {
    std::mt19937 random(3350);
    for (int round = 0; round < 30; ++round) {
        SCOPED_TRACE(round);
        clsEntryFile e(errors);
        e.set_i(0, static_cast<std::int16_t>(round == 0 ? 127 : random() % 128));
        for (int n = 1; n <= 9; ++n) e.set_i(n, static_cast<std::int16_t>(random() % 2));
        e.set_i(4, 1);
        e.set_i(10, static_cast<std::int16_t>(round % 8));
        for (int n = 11; n <= 13; ++n) e.set_i(n, static_cast<std::int16_t>(random() % 2));
        e.set_i(14, static_cast<std::int16_t>(round == 0 ? 4100 : 5 + random() % 4096));
        e.set_i(15, static_cast<std::int16_t>(round == 0 ? 1025 : 2 + random() % 1024));
        const std::string text = clsEntryFile3350::EPROMVectorText(e, kTitle, kBuild);
        clsFuseMap map(errors);
        ASSERT_TRUE(Parse(map, text)) << cause;
        for (int n = 0; n <= 15; ++n) ASSERT_EQ(map.Image().i(n), e.i(n)) << "field " << n;
    }
}

// ---- How device programmers save a map
// ------------------------------------------------------------

TEST_F(FuseMapTest, FuseListsOfAnyLengthWithAddressesADefaultStateAndOtherFieldsReadTheSame) {
    const std::string golden = test::ReadFile(test::DataPath("entry/QX7311_5V.jed"));
    clsFuseMap reference(errors);
    ASSERT_TRUE(Parse(reference, golden)) << cause;
    const std::string& fuses = reference.Fuses();

    // No STX and ETX, LF line ends, notes and vectors, the fuses 16 to a field with five-digit
    // addresses, and the zero fuses left to the default state.
    std::string text =
        "Programmer save of a clock chip\n*\nN note: read from the part*\nQP20*\n"
        "QF336*\nF0*\nG1*\nJ0 0*\n";
    for (size_t at = 0; at < fuses.size(); at += 16) {
        const std::string part = fuses.substr(at, 16);
        if (part.find('1') == std::string::npos)
            continue;
        char field[48];
        std::snprintf(field, sizeof field, "L%05zu %s*\n", at, part.c_str());
        text += field;
    }
    text += "V0001 0000000000000000XXXXN*\nC" + reference.FuseChecksum() + "*\nX0*\n";
    clsFuseMap map(errors);
    ASSERT_TRUE(Parse(map, text)) << cause;
    EXPECT_EQ(map.Fuses(), fuses);
    EXPECT_EQ(map.TransmissionChecksum(), clsFuseMap::Transmission::Absent);
    EXPECT_EQ(map.PinCount(), 20);
    for (int n = 0; n <= 68; ++n) EXPECT_EQ(map.Image().i(n), reference.Image().i(n));

    // One fuse per line, without QF: the lists' end tells the count.
    std::string single = "\x02*\r\n";
    for (size_t at = 0; at < fuses.size(); ++at) {
        char field[32];
        std::snprintf(field, sizeof field, "L%zu %c*\r\n", at, fuses[at]);
        single += field;
    }
    single += "C" + reference.FuseChecksum() + "*\r\n\x03";
    clsFuseMap perFuse(errors);
    ASSERT_TRUE(Parse(perFuse, single)) << cause;
    EXPECT_EQ(perFuse.Fuses(), fuses);
}

TEST_F(FuseMapTest, AComputedTransmissionChecksumIsVerified) {
    std::string text = test::ReadFile(test::DataPath("entry/QX3350_SC.jed"));
    const size_t stx = text.find('\x02');
    const size_t etx = text.find('\x03');
    unsigned sum = 0;
    for (size_t i = stx; i <= etx; ++i) sum += static_cast<unsigned char>(text[i]);
    char hex[8];
    std::snprintf(hex, sizeof hex, "%04X", sum & 0xFFFF);
    clsFuseMap map(errors);
    ASSERT_TRUE(Parse(map, Replace(text,
                                   "\x03"
                                   "0000",
                                   std::string("\x03") + hex)))
        << cause;
    EXPECT_EQ(map.TransmissionChecksum(), clsFuseMap::Transmission::Verified);
    EXPECT_EQ(map.TransmissionText(), hex);

    std::snprintf(hex, sizeof hex, "%04X", (sum + 1) & 0xFFFF);
    clsFuseMap wrong(errors);
    EXPECT_FALSE(Parse(wrong, Replace(text,
                                      "\x03"
                                      "0000",
                                      std::string("\x03") + hex)));
    EXPECT_NE(cause.find("transmission checksum " + std::string(hex)), std::string::npos) << cause;
    EXPECT_FALSE(wrong.Loaded());
}

// ---- Damaged files
// ---------------------------------------------------------------------------------

TEST_F(FuseMapTest, OneFlippedFuseIsRefusedByTheFuseChecksum) {
    const std::string text = test::ReadFile(test::DataPath("entry/QX4860_8.jed"));
    const size_t row = text.find("L0000\r\n") + 7;
    std::string flipped = text;
    flipped[row + 40] = flipped[row + 40] == '0' ? '1' : '0';
    clsFuseMap map(errors);
    EXPECT_FALSE(Parse(map, flipped));
    EXPECT_NE(cause.find("fuse checksum C" + CField(text) + " does not match the fuses"),
              std::string::npos)
        << cause;
    EXPECT_FALSE(map.Loaded());
}

TEST_F(FuseMapTest, AFlippedFixedFuseWithItsChecksumMadeAgainIsRefusedByTheLayout) {
    const std::string text = test::ReadFile(test::DataPath("entry/QX4860_8.jed"));
    clsFuseMap good(errors);
    ASSERT_TRUE(Parse(good, text)) << cause;
    // The valid bit of the first selection row.
    std::string fuses = good.Fuses();
    fuses[51] = '0';
    std::string changed = Replace(text, good.Fuses().substr(0, 52), fuses.substr(0, 52));
    changed = Replace(changed, CText(CField(text)), CText(mShared::CalculateJEDECChecksum(fuses)));
    clsFuseMap map(errors);
    EXPECT_FALSE(Parse(map, changed));
    EXPECT_NE(cause.find("valid bit"), std::string::npos) << cause;
}

TEST_F(FuseMapTest, AFileCutInTheMiddleIsRefused) {
    const std::string text = test::ReadFile(test::DataPath("entry/QX7311F_3V.jed"));
    for (const size_t length : {text.size() / 2, text.find("C"), text.size() - 7, size_t(1)}) {
        SCOPED_TRACE(length);
        clsFuseMap map(errors);
        EXPECT_FALSE(Parse(map, text.substr(0, length)));
        EXPECT_FALSE(cause.empty());
    }
    clsFuseMap half(errors);
    EXPECT_FALSE(Parse(half, text.substr(0, text.size() / 2)));
    EXPECT_NE(cause.find("cut"), std::string::npos) << cause;
    // Without STX and ETX a cut behind a whole fuse row leaves fuses unknown.
    std::string bare = text.substr(text.find('\x02') + 1);
    bare = bare.substr(0, bare.find("L0000\r\n") + 7 + 22);
    clsFuseMap rows(errors);
    EXPECT_FALSE(Parse(rows, bare + "*"));
    EXPECT_NE(cause.find("are not given"), std::string::npos) << cause;
}

TEST_F(FuseMapTest, AWrongOrMissingFuseChecksumIsRefused) {
    const std::string text = test::ReadFile(test::DataPath("entry/QX7311_5V.jed"));
    clsFuseMap wrong(errors);
    EXPECT_FALSE(Parse(wrong, Replace(text, "C1073*", "C1074*")));
    EXPECT_NE(cause.find("C1074 does not match the fuses, whose checksum is 1073"),
              std::string::npos)
        << cause;
    clsFuseMap missing(errors);
    EXPECT_FALSE(Parse(missing, Replace(text, "C1073*\r\n", "")));
    EXPECT_NE(cause.find("no fuse checksum"), std::string::npos) << cause;
    clsFuseMap garbled(errors);
    EXPECT_FALSE(Parse(garbled, Replace(text, "C1073*", "C10G3*")));
    EXPECT_NE(cause.find("not four hexadecimal digits"), std::string::npos) << cause;
}

TEST_F(FuseMapTest, FilesThatAreNoFuseMapOrFitNoLayoutAreRefusedWithTheirCause) {
    const auto refused = [&](const std::string& text, const std::string& expected) {
        clsFuseMap map(errors);
        EXPECT_FALSE(Parse(map, text)) << expected;
        EXPECT_NE(cause.find(expected), std::string::npos) << cause;
        EXPECT_FALSE(map.Loaded());
    };
    refused("", "not a JEDEC fuse map");
    refused(test::ReadFile(test::DataPath("entry/QX7311_5V_lean.ent")), "not a JEDEC fuse map");
    refused(std::string("\xff\xfe\x80\x02 nonsense \x03", 15), "not a JEDEC fuse map");
    refused("\x02*QF100*L0 1010*C0005*\x03", "no layout of the program has that many");
    refused("\x02*QF45*L0 1*C0001*\x03", "are not given");
    refused("\x02*QF45*F2*\x03", "neither 0 nor 1");
    refused("\x02*QF45*L0 1a1*\x03", "not only 0 and 1");
    refused("\x02*QF45*L50 1*C0001*\x03", "runs past the fuse count 45");
    refused("\x02*QFx*\x03", "is not a number");
    refused("\x02*QF45*QF46*\x03", "two different QF values");
    const std::string sc = test::ReadFile(test::DataPath("entry/QX3350_SC.jed"));
    refused(Replace(sc, "QP0008", "QP0014"), "pin count QP14 does not fit the QX3350");
    refused(Replace(test::ReadFile(test::DataPath("entry/QX4860_8.jed")), "QP008", "QP0014"),
            "pin count QP14 does not fit");
    // The QX7311's identity row must hold its device number.
    const std::string q7311 = test::ReadFile(test::DataPath("entry/QX7311_5V.jed"));
    clsFuseMap good(errors);
    ASSERT_TRUE(Parse(good, q7311)) << cause;
    std::string fuses = good.Fuses();
    // The identity row is the last 80 fuses; the device number stands behind 52 of them.
    fuses.replace(256 + 52, 12, "000000000001");
    std::string changed = Replace(q7311, good.Fuses().substr(256, 80), fuses.substr(256, 80));
    changed = Replace(changed, CText(CField(q7311)), CText(mShared::CalculateJEDECChecksum(fuses)));
    refused(changed, "device number 1, neither 3311 nor 3312");
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(FuseMapTest, AFailedReadLeavesTheMapThatWasReadAsItWas) {
    clsFuseMap map(errors);
    ASSERT_TRUE(Parse(map, test::ReadFile(test::DataPath("entry/QX3350_SC.jed")))) << cause;
    const std::string fuses = map.Fuses();
    EXPECT_FALSE(Parse(map, test::ReadFile(test::DataPath("entry/QX7311_5V_lean.ent"))));
    EXPECT_EQ(map.Fuses(), fuses);
    EXPECT_EQ(map.Family(), "QX3350");
}

TEST_F(FuseMapTest, ReadingAMissingFileIsRefused) {
    clsFuseMap map(errors);
    std::string why;
    EXPECT_FALSE(map.ReadFuseMap(test::MakeTempDir() + "/missing.jed", why));
    EXPECT_EQ(why, "the file cannot be read");
}

// ---- What the chip makes
// -----------------------------------------------------------------------------

TEST_F(FuseMapTest, TheReadBackOfAQX3350FollowsItsSourceAndDivider) {
    clsFuseMap map(errors);
    ASSERT_TRUE(Parse(map, test::ReadFile(test::DataPath("entry/QX3350_SC.jed")))) << cause;
    const ReadBack rb = map.MakeReadBack("QX3350", 14.31818);
    ASSERT_EQ(rb.Loops.size(), 1u);
    EXPECT_EQ(rb.Loops[0].P, 88);
    EXPECT_EQ(rb.Loops[0].Q, 21);
    // 2 x 14.31818 x 88 / 21, as the loop's data text shows it.
    EXPECT_DOUBLE_EQ(rb.Loops[0].VCO, 119.999985);
    ASSERT_EQ(rb.Outputs.size(), 1u);
    EXPECT_EQ(rb.Outputs[0].Source, "PLL/2");
    EXPECT_DOUBLE_EQ(rb.Outputs[0].Frequency, 59.99999);
    // Another reference: the same counters give another frequency.
    const ReadBack at20 = map.MakeReadBack("QX3350", 20);
    EXPECT_DOUBLE_EQ(at20.Loops[0].VCO, 167.619048);
    EXPECT_DOUBLE_EQ(at20.Outputs[0].Frequency, 83.80952);
    EXPECT_EQ(rb.Fields.size(), 16u);
    EXPECT_EQ(rb.Fields[14].Name, "P counter (12 bits).");
    EXPECT_EQ(rb.Fields[14].Value, 88);
}

}  // namespace
}  // namespace pendulon
