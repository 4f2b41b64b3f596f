#pragma once
#include <array>
#include <string>

#include "platform/ErrorReport.hpp"

namespace pendulon {

// A table of text in a fixed-pitch character grid. The caller sets the counts, the heading
// size, the column properties and the cells, and takes the whole table as one text with CR LF
// line ends from MakeTable.
class clsTable {
  public:
    explicit clsTable(ErrorReport& errors);

    std::string mstrTitle;
    int mintHeadingSize = 0;

    void SetCell(int intX, int intY, const std::string& strValue);
    std::string Cell(int intX, int intY) const;
    int ColumnNumber() const { return mintColumnCount; }
    void SetColumnNumber(int value);
    int RowNumber() const { return mintRowCount; }
    void SetRowNumber(int value);
    int ColumnFormat(int Column) const;
    void SetColumnFormat(int Column, int value);
    int ColumnType(int Column) const;
    void SetColumnType(int Column, int value);
    int ColumnWidth(int Column) const;
    void SetColumnWidth(int Column, int value);

    std::string MakeTable() const;

    // The layout steps, public so that their rules can be checked one by one.
    std::string MakeTableLine(char fill, char edge) const;
    static std::string ReplaceCell(const std::string& line, int column, int width,
                                   const std::string& text, int type, int format);
    static std::string FormatCell(const std::string& text, int width, int type, int format);

  private:
    static constexpr int kMaxCells = 32;
    bool CheckColumn(int Column, long number, const char* property, bool let) const;

    ErrorReport& errors_;
    int mintColumnCount = 0;
    int mintRowCount = 0;
    std::array<std::array<std::string, kMaxCells + 1>, kMaxCells + 1> mastrCell{};
    std::array<int, kMaxCells> maintType{};
    std::array<int, kMaxCells> maintFormat{};
    std::array<int, kMaxCells> maintWidth{};
};

}  // namespace pendulon
