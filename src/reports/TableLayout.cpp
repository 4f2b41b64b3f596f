#include "reports/TableLayout.hpp"

namespace pendulon {

void TableLayout::SetCell(int row, int column, std::string value) {
    cells_[{row, column}] = std::move(value);
}

std::string TableLayout::Cell(int row, int column) const {
    auto it = cells_.find({row, column});
    return it == cells_.end() ? std::string() : it->second;
}

}  // namespace pendulon
