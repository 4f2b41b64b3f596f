#include <gtest/gtest.h>

#include "EntryTestSupport.hpp"
#include "entryfile/Checksums.hpp"
#include "entryfile/clsEntryFile.hpp"

namespace pendulon {
namespace {

class ChecksumsTest : public ::testing::Test, public test::ReportFixture {};

TEST_F(ChecksumsTest, HexDigitSumSkipsALoneLastCharacter) {
    EXPECT_EQ(mShared::HexDigitSum("1111", errors), 15);
    EXPECT_EQ(mShared::HexDigitSum("11111", errors), 15);
    EXPECT_EQ(mShared::HexDigitSum("111111", errors), 18);
    EXPECT_EQ(mShared::HexDigitSum("", errors), 0);
    EXPECT_EQ(mShared::HexDigitSum("1", errors), 0);
    EXPECT_EQ(mShared::HexDigitSum("10", errors), 2);
    EXPECT_EQ(mShared::HexDigitSum("00010010", errors), 3);
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(ChecksumsTest, JEDECFirstFuseOfAGroupIsBitZero) {
    EXPECT_EQ(mShared::CalculateJEDECChecksum("10000000"), "0001");
    EXPECT_EQ(mShared::CalculateJEDECChecksum("00000001"), "0080");
    EXPECT_EQ(mShared::CalculateJEDECChecksum("1000000000000001"), "0081");
}

TEST_F(ChecksumsTest, JEDECAllZeroFusesGiveZero) {
    EXPECT_EQ(mShared::CalculateJEDECChecksum(std::string(884, '0')), "0000");
    EXPECT_EQ(mShared::CalculateJEDECChecksum(""), "0000");
}

TEST_F(ChecksumsTest, JEDECSumOf255IsUpperCaseFourDigits) {
    EXPECT_EQ(mShared::CalculateJEDECChecksum("11111111"), "00FF");
    EXPECT_EQ(mShared::CalculateJEDECChecksum(std::string(16, '1')), "01FE");
}

TEST_F(ChecksumsTest, JEDECPadsTheLastGroupWithZerosBehind) {
    // 45 fuses: five bytes and five fuses; the padding goes behind the last fuse.
    std::string fuses(40, '0');
    fuses += "00001";
    EXPECT_EQ(mShared::CalculateJEDECChecksum(fuses), "0010");
    EXPECT_EQ(mShared::CalculateJEDECChecksum("1"), "0001");
}

TEST_F(ChecksumsTest, JEDECAllOnesOf884Fuses) {
    // 110 full bytes of 255 and one of four fuses (15): 28065.
    EXPECT_EQ(mShared::CalculateJEDECChecksum(std::string(884, '1')), "6DA1");
}

TEST_F(ChecksumsTest, FamilyChecksumDispatch) {
    clsEntryFile e(errors);
    for (const char* device : {"QX4860", "QX6105A", "QX4860F", "QX6105AF", "QX4860I", "QX6105AI"})
        EXPECT_NE(mShared::CalculateChecksum(e, device), "n/a") << device;
    for (const char* device : {"QX3350", "QX3350I", "qx3350sc-01", "", "QX9999"})
        EXPECT_EQ(mShared::CalculateChecksum(e, device), "n/a") << device;
    // An all-zero image: every block gives P - 3 and Q - 2 below 0, written as zeros.
    EXPECT_EQ(mShared::CalculateChecksum(e, "QX4860"), "0");
}

}  // namespace
}  // namespace pendulon
