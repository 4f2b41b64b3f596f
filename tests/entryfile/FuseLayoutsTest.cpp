// The fuse layouts of the three families: their shape, and that no value wider than its field
// ever reaches the fuses.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "EntryTestSupport.hpp"
#include "entryfile/FuseLayouts.hpp"
#include "entryfile/clsEntryFile.hpp"

namespace pendulon {
namespace {

class FuseLayoutsTest : public ::testing::Test, public test::ReportFixture {
  protected:
    clsEntryFile image{errors};

    static std::vector<int> RowWidths(const FuseLayout& layout) {
        std::vector<int> widths;
        for (const auto& row : layout)
            widths.push_back(std::accumulate(row.begin(), row.end(), 0,
                                             [](int sum, const FuseField& f) { return sum + f.Width; }));
        return widths;
    }
    static std::vector<size_t> Lengths(const FuseMap& map) {
        std::vector<size_t> lengths;
        for (const std::string& row : map.Rows) lengths.push_back(row.size());
        return lengths;
    }
};

TEST_F(FuseLayoutsTest, RowsHaveTheFuseCountsOfTheirLayouts) {
    EXPECT_EQ(RowWidths(FuseLayout4860()), std::vector<int>(17, 52));
    std::vector<int> qx7311(8, 22);
    qx7311.push_back(80);
    qx7311.push_back(80);
    EXPECT_EQ(RowWidths(FuseLayout7311()), qx7311);
    EXPECT_EQ(RowWidths(FuseLayout3350()), std::vector<int>{45});
    // Every image value of a layout is named, so that a message can tell it.
    for (const FuseLayout* layout : {&FuseLayout4860(), &FuseLayout7311(), &FuseLayout3350()})
        for (const auto& row : *layout)
            for (const FuseField& field : row)
                if (field.Type != FuseField::Kind::Constant) {
                    EXPECT_FALSE(field.Name.empty());
                }
}

TEST_F(FuseLayoutsTest, EachImageFieldStandsOnceInItsLayout) {
    // The QX4860 layout holds i(0) to i(129), the QX7311 layout i(0) to i(68), the QX3350
    // layout i(0) to i(15), each exactly once.
    const auto indices = [](const FuseLayout& layout) {
        std::vector<int> seen;
        for (const auto& row : layout)
            for (const FuseField& field : row)
                if (field.Source == FuseField::From::Image)
                    seen.push_back(field.Index);
        std::sort(seen.begin(), seen.end());
        return seen;
    };
    const auto upTo = [](int last) {
        std::vector<int> all(static_cast<size_t>(last + 1));
        std::iota(all.begin(), all.end(), 0);
        return all;
    };
    EXPECT_EQ(indices(FuseLayout4860()), upTo(129));
    EXPECT_EQ(indices(FuseLayout7311()), upTo(68));
    EXPECT_EQ(indices(FuseLayout3350()), upTo(15));
}

TEST_F(FuseLayoutsTest, AnEmptyImageMisfitsOnlyWhereAnOffsetIsNeeded) {
    // All values 0: every P and Q is below its offset, nothing else misfits.
    const FuseMap map = BuildFuseMap(FuseLayout3350(), image);
    ASSERT_EQ(map.Misfits.size(), 2u);
    EXPECT_EQ(map.Misfits[0].Name, "P counter");
    EXPECT_EQ(map.Misfits[0].Index, 14);
    EXPECT_EQ(map.Misfits[0].Minimum, 5);
    EXPECT_EQ(map.Misfits[0].Maximum, 5 + 4095);
    EXPECT_EQ(map.Misfits[1].Name, "Q counter");
    EXPECT_EQ(Lengths(map), std::vector<size_t>{45});
}

TEST_F(FuseLayoutsTest, AValueTooWideForItsFieldIsListedAndShiftsNothing) {
    // A QX7311 image whose CPU0 P is 4000 (P less 3 in 8 fuses holds up to 258).
    for (int n = 0; n <= 7; ++n) {
        image.set_i(32 + 5 * n, 10);
        image.set_i(33 + 5 * n, 4);
    }
    image.set_i(18, 3);
    image.set_i(19, 3);
    image.set_i(21, 3);
    image.set_i(22, 3);
    FuseIdentity identity;
    identity.Day = 1;
    identity.Month = 1;
    identity.Year = 2026;
    identity.DeviceNumber = 3311;
    EXPECT_TRUE(BuildFuseMap(FuseLayout7311(), image, identity).Misfits.empty());
    image.set_i(32, 4000);
    const FuseMap map = BuildFuseMap(FuseLayout7311(), image, identity);
    ASSERT_EQ(map.Misfits.size(), 1u);
    EXPECT_EQ(map.Misfits[0].Name, "CPU0 P");
    EXPECT_EQ(map.Misfits[0].Index, 32);
    EXPECT_EQ(map.Misfits[0].Value, 4000);
    EXPECT_EQ(map.Misfits[0].Minimum, 3);
    EXPECT_EQ(map.Misfits[0].Maximum, 258);
    std::vector<size_t> lengths(8, 22);
    lengths.push_back(80);
    lengths.push_back(80);
    EXPECT_EQ(Lengths(map), lengths);
}

TEST_F(FuseLayoutsTest, ASwitchedOffLoopTakesThreeAndThreeWithoutOffsets) {
    // UPLL P and Q both 3: stored as 3 and 3. Q 3 with P 10 is an ordinary pair, less 2.
    image.set_i(18, 3);
    image.set_i(19, 3);
    const std::string off = BuildFuseMap(FuseLayout7311(), image).Rows[8];
    EXPECT_EQ(off.substr(19, 10), "0000000011");
    EXPECT_EQ(off.substr(29, 7), "0000011");
    image.set_i(18, 10);
    const std::string on = BuildFuseMap(FuseLayout7311(), image).Rows[8];
    EXPECT_EQ(on.substr(19, 10), "0000000111");
    EXPECT_EQ(on.substr(29, 7), "0000001");
}

TEST_F(FuseLayoutsTest, DigitFieldsHoldZeroOrOneAndNothingIsNegative) {
    image.set_i(0, 2);    // a digit of the QX4860 configuration
    image.set_i(12, -1);  // CLK3 OE control
    for (int s = 0; s <= 15; ++s) {
        image.set_i(23 + 7 * s, 5);
        image.set_i(24 + 7 * s, 2);
    }
    const FuseMap map = BuildFuseMap(FuseLayout4860(), image);
    ASSERT_EQ(map.Misfits.size(), 2u);
    EXPECT_EQ(map.Misfits[0].Name, "Async OE");
    EXPECT_EQ(map.Misfits[0].Maximum, 1);
    EXPECT_EQ(map.Misfits[1].Name, "CLK3 OE control");
    EXPECT_EQ(map.Misfits[1].Value, -1);
    EXPECT_EQ(Lengths(map), std::vector<size_t>(17, 52));
}

TEST_F(FuseLayoutsTest, TheMessageNamesTheFirstFiveAndCountsTheRest) {
    std::vector<FuseMisfit> misfits;
    for (int n = 0; n < 7; ++n) misfits.push_back({"CPU" + std::to_string(n) + " P", 32 + 5 * n, 0, 3, 258});
    misfits.push_back({"year", -1, 5000, 0, 4095});
    const std::string text = DescribeMisfits(misfits);
    EXPECT_EQ(text.rfind("The value 0 of CPU0 P (# i 32) does not fit its field, which holds 3 to "
                         "258.\r\n",
                         0),
              0u);
    EXPECT_NE(text.find("CPU4 P (# i 52)"), std::string::npos);
    EXPECT_EQ(text.find("CPU5 P"), std::string::npos);
    EXPECT_NE(text.find("\r\n... and 3 more values that do not fit."), std::string::npos);
    EXPECT_EQ(DescribeMisfits({{"year", -1, 5000, 0, 4095}}),
              "The value 5000 of year does not fit its field, which holds 0 to 4095.");
}

}  // namespace
}  // namespace pendulon
