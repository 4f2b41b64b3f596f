#pragma once
#include <array>
#include <map>
#include <string>
#include <utility>

namespace pendulon {

// The content of one table of the configuration document before clsTable lays it out: sizes,
// column settings and cells, kept as the document's builders set them so that they can be
// checked on their own. Cells outside the column count are kept too; clsTable stores them but
// never prints them.
class TableLayout {
  public:
    static constexpr int kMaxColumns = 32;

    std::string Title;
    int HeadingSize = 0;
    int ColumnNumber = 0;
    int RowNumber = 0;
    std::array<int, kMaxColumns> Width{};
    std::array<int, kMaxColumns> Type{};
    std::array<int, kMaxColumns> Format{};

    void SetCell(int row, int column, std::string value);
    // The text of a cell; empty when it was never set.
    std::string Cell(int row, int column) const;
    const std::map<std::pair<int, int>, std::string>& Cells() const { return cells_; }

  private:
    std::map<std::pair<int, int>, std::string> cells_;
};

}  // namespace pendulon
