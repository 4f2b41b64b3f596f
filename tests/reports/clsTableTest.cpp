#include <gtest/gtest.h>

#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "reports/clsTable.hpp"

namespace pendulon {
namespace {

class TableTest : public ::testing::Test {
  protected:
    HeadlessPlatform platform;
    ErrorReport errors{platform, [] { return std::string("Pendulon(tm)"); }};
    clsTable table{errors};

    void ExpectError(long number, const std::string& source, const std::string& description) {
        ASSERT_FALSE(platform.Messages().empty());
        EXPECT_EQ(errors.LastNumber(), number);
        EXPECT_EQ(platform.Messages().back().Text, ErrorReport::Text(number, source, description));
        platform.ClearMessages();
    }

    // One column of width 3, the first row a heading.
    void OneColumn(int rows) {
        table.SetColumnNumber(1);
        table.SetRowNumber(rows);
        table.mintHeadingSize = 1;
        table.SetColumnWidth(0, 3);
        table.SetColumnFormat(0, 0);
        table.SetColumnType(0, 0);
    }
};

TEST_F(TableTest, HeadingAndOneDataRowAreFramedByHeavyRules) {
    OneColumn(2);
    table.SetCell(0, 0, "H");
    table.SetCell(1, 0, "a");
    // The one-letter heading is centred as a one-character text: it stays at the cell's left.
    EXPECT_EQ(table.MakeTable(), "=====\r\n|H  |\r\n=====\r\n| a |\r\n=====\r\n");
}

TEST_F(TableTest, BlankRowStandsBetweenDataRowsOnlyWhenThereAreTwoOrMore) {
    OneColumn(3);
    table.SetCell(0, 0, "H");
    table.SetCell(1, 0, "a");
    table.SetCell(2, 0, "b");
    EXPECT_EQ(table.MakeTable(), "=====\r\n|H  |\r\n=====\r\n| a |\r\n|   |\r\n| b |\r\n=====\r\n");
}

TEST_F(TableTest, HeadingRowsFollowEachOtherWithoutBlankRows) {
    OneColumn(3);
    table.mintHeadingSize = 2;
    table.SetCell(0, 0, "AB");
    table.SetCell(1, 0, "CD");
    table.SetCell(2, 0, "x");
    // "AB" centred in 3: start = (3 - 2) / 2 + 1 = 1.5, rounded half to even to 2.
    EXPECT_EQ(table.MakeTable(), "=====\r\n| AB|\r\n| CD|\r\n=====\r\n| x |\r\n=====\r\n");
}

TEST_F(TableTest, TitleComesFirstAndWithoutItTheTableBeginsWithTheHeavyRule) {
    OneColumn(2);
    EXPECT_EQ(table.MakeTable().substr(0, 7), "=====\r\n");
    table.mstrTitle = "Outputs";
    EXPECT_EQ(table.MakeTable().substr(0, 16), "Outputs\r\n=====\r\n");
}

TEST_F(TableTest, AllLinesHaveTheSumOfWidthsPlusColumnsPlusOne) {
    table.SetColumnNumber(3);
    table.SetRowNumber(4);
    table.mintHeadingSize = 1;
    table.SetColumnWidth(0, 4);
    table.SetColumnWidth(1, 10);
    table.SetColumnWidth(2, 6);
    table.SetColumnFormat(1, 1);
    table.SetColumnType(1, 1);
    table.SetCell(0, 0, "Out");
    table.SetCell(0, 1, "Frequency");
    table.SetCell(1, 1, "12.5");
    table.SetCell(2, 1, "Off");
    table.SetCell(3, 2, "a very long text");
    const std::string text = table.MakeTable();
    size_t start = 0;
    int lines = 0;
    while (start < text.size()) {
        const size_t end = text.find("\r\n", start);
        ASSERT_NE(end, std::string::npos);
        EXPECT_EQ(end - start, 4u + 10u + 6u + 3u + 1u) << text.substr(start, end - start);
        start = end + 2;
        ++lines;
    }
    EXPECT_EQ(lines, 1 + 1 + 1 + 2 + 2 + 1 + 1);
    EXPECT_NE(text.find("| 12.50000 |"), std::string::npos);
    EXPECT_NE(text.find("|      Off |"), std::string::npos);
    EXPECT_NE(text.find("| a ver|"), std::string::npos);
}

TEST(TableFormatCell, LongTextIsCutBeforeAligningSoLeftFormatDropsItsLastCharacter) {
    EXPECT_EQ(clsTable::FormatCell("ABCD", 4, 0, 0), " ABC");
    EXPECT_EQ(clsTable::FormatCell("ABCD", 4, 0, 1), "ABCD");
    EXPECT_EQ(clsTable::FormatCell("ABCD", 4, 0, 3), "ABCD");
    EXPECT_EQ(clsTable::FormatCell("ABCDEF", 4, 0, 2), "ABCD");
}

TEST(TableFormatCell, NumericColumnFormatsNumbersAndLeavesOtherTexts) {
    EXPECT_EQ(clsTable::FormatCell("-1.5", 10, 1, 3), "  -1.50000");
    EXPECT_EQ(clsTable::FormatCell("Off", 10, 1, 3), "       Off");
    EXPECT_EQ(clsTable::FormatCell("7", 9, 1, 0), " 7.00000 ");
    // A text column leaves numbers as they are.
    EXPECT_EQ(clsTable::FormatCell("-1.5", 6, 0, 3), "  -1.5");
}

TEST(TableFormatCell, AlignmentsOfTheFourFormats) {
    EXPECT_EQ(clsTable::FormatCell("ab", 6, 0, 0), " ab   ");
    EXPECT_EQ(clsTable::FormatCell("ab", 6, 0, 1), "   ab ");
    EXPECT_EQ(clsTable::FormatCell("ab", 6, 0, 2), "  ab  ");   // (6 - 2) / 2 + 1 = 3
    EXPECT_EQ(clsTable::FormatCell("abc", 6, 0, 2), " abc  ");  // start 2.5 rounds to 2
    EXPECT_EQ(clsTable::FormatCell("ab", 6, 0, 7), "    ab");
}

TEST(TableFormatCell, CentredOneCharacterOrEmptyCellIsTheTextItself) {
    EXPECT_EQ(clsTable::FormatCell("x", 5, 0, 2), "x");
    EXPECT_EQ(clsTable::FormatCell("", 5, 0, 2), "");
    EXPECT_EQ(clsTable::ReplaceCell("|abc|def|\r\n", 1, 3, "", 0, 2), "|abc|def|\r\n");
    EXPECT_EQ(clsTable::ReplaceCell("|abc|def|\r\n", 1, 3, "x", 0, 2), "|abc|xef|\r\n");
}

TEST(TableReplaceCell, WritesBehindTheEdgeOfItsColumnAndKeepsTheLength) {
    EXPECT_EQ(clsTable::ReplaceCell("|   |   |\r\n", 0, 3, "ab", 0, 0), "| ab|   |\r\n");
    EXPECT_EQ(clsTable::ReplaceCell("|   |   |\r\n", 1, 3, "ab", 0, 1), "|   |ab |\r\n");
}

TEST_F(TableTest, CellAccessorsRefuseRowsAndColumnsOutsideZeroTo31) {
    table.SetCell(31, 31, "last");
    EXPECT_EQ(table.Cell(31, 31), "last");
    EXPECT_TRUE(platform.Messages().empty());

    table.SetCell(32, 0, "x");
    ExpectError(10801, "clsTable.Cell [Property Let]",
                "An invalid value was passed for the X coordinate.");
    table.SetCell(-1, 0, "x");
    ExpectError(10801, "clsTable.Cell [Property Let]",
                "An invalid value was passed for the X coordinate.");
    table.SetCell(0, 32, "x");
    ExpectError(10802, "clsTable.Cell [Property Let]",
                "An invalid value was passed for the Y coordinate.");
    EXPECT_EQ(table.Cell(32, 0), "");
    ExpectError(10803, "clsTable.Cell [Property Get]",
                "An invalid value was passed for the X coordinate.");
    EXPECT_EQ(table.Cell(0, -1), "");
    ExpectError(10804, "clsTable.Cell [Property Get]",
                "An invalid value was passed for the Y coordinate.");
}

TEST_F(TableTest, CountsHoldOneTo32AndRefusedValuesAreNotStored) {
    table.SetColumnNumber(32);
    table.SetRowNumber(32);
    EXPECT_EQ(table.ColumnNumber(), 32);
    EXPECT_EQ(table.RowNumber(), 32);
    table.SetColumnNumber(33);
    ExpectError(10805, "clsTable.ColumnNumber [Property Let]",
                "An invalid value was passed for the column number.");
    table.SetColumnNumber(0);
    ExpectError(10805, "clsTable.ColumnNumber [Property Let]",
                "An invalid value was passed for the column number.");
    table.SetRowNumber(0);
    ExpectError(10806, "clsTable.RowNumber [Property Let]",
                "An invalid value was passed for the row number.");
    EXPECT_EQ(table.ColumnNumber(), 32);
    EXPECT_EQ(table.RowNumber(), 32);
}

TEST_F(TableTest, ColumnPropertiesRefuseIndicesOutsideZeroTo31) {
    const std::string text = "An invalid value was passed for the column number.";
    table.SetColumnFormat(31, 2);
    table.SetColumnType(31, 1);
    table.SetColumnWidth(31, 9);
    EXPECT_EQ(table.ColumnFormat(31), 2);
    EXPECT_EQ(table.ColumnType(31), 1);
    EXPECT_EQ(table.ColumnWidth(31), 9);
    EXPECT_TRUE(platform.Messages().empty());

    table.SetColumnFormat(32, 1);
    ExpectError(10807, "clsTable.ColumnFormat [Property Let]", text);
    EXPECT_EQ(table.ColumnFormat(32), 0);
    ExpectError(10808, "clsTable.ColumnFormat [Property Get]", text);
    table.SetColumnType(-1, 1);
    ExpectError(10809, "clsTable.ColumnType [Property Let]", text);
    EXPECT_EQ(table.ColumnType(32), 0);
    ExpectError(10810, "clsTable.ColumnType [Property Get]", text);
    table.SetColumnWidth(32, 4);
    ExpectError(10811, "clsTable.ColumnWidth [Property Let]", text);
    EXPECT_EQ(table.ColumnWidth(-1), 0);
    ExpectError(10812, "clsTable.ColumnWidth [Property Get]", text);
}

}  // namespace
}  // namespace pendulon
