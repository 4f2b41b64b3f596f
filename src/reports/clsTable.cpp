#include "reports/clsTable.hpp"

#include <algorithm>

#include "core/Numbers.hpp"
#include "core/Text.hpp"

namespace pendulon {

namespace {
constexpr const char* kEndOfLine = "\r\n";
constexpr const char* kInvalidX = "An invalid value was passed for the X coordinate.";
constexpr const char* kInvalidY = "An invalid value was passed for the Y coordinate.";
constexpr const char* kInvalidColumn = "An invalid value was passed for the column number.";
constexpr const char* kInvalidRow = "An invalid value was passed for the row number.";

std::string Source(const char* property, bool let) {
    return std::string("clsTable.") + property + (let ? " [Property Let]" : " [Property Get]");
}
}  // namespace

clsTable::clsTable(ErrorReport& errors) : errors_(errors) {}

void clsTable::SetCell(int intX, int intY, const std::string& strValue) {
    if (intX < 0 || intX >= kMaxCells) {
        errors_.Raise(10801, Source("Cell", true), kInvalidX);
        return;
    }
    if (intY < 0 || intY >= kMaxCells) {
        errors_.Raise(10802, Source("Cell", true), kInvalidY);
        return;
    }
    mastrCell[intX][intY] = strValue;
}

std::string clsTable::Cell(int intX, int intY) const {
    if (intX < 0 || intX >= kMaxCells) {
        errors_.Raise(10803, Source("Cell", false), kInvalidX);
        return {};
    }
    if (intY < 0 || intY >= kMaxCells) {
        errors_.Raise(10804, Source("Cell", false), kInvalidY);
        return {};
    }
    return mastrCell[intX][intY];
}

void clsTable::SetColumnNumber(int value) {
    if (value < 1 || value > kMaxCells) {
        errors_.Raise(10805, Source("ColumnNumber", true), kInvalidColumn);
        return;
    }
    mintColumnCount = value;
}

void clsTable::SetRowNumber(int value) {
    if (value < 1 || value > kMaxCells) {
        errors_.Raise(10806, Source("RowNumber", true), kInvalidRow);
        return;
    }
    mintRowCount = value;
}

bool clsTable::CheckColumn(int Column, long number, const char* property, bool let) const {
    if (Column < 0 || Column >= kMaxCells) {
        errors_.Raise(number, Source(property, let), kInvalidColumn);
        return false;
    }
    return true;
}

void clsTable::SetColumnFormat(int Column, int value) {
    if (CheckColumn(Column, 10807, "ColumnFormat", true))
        maintFormat[Column] = value;
}

int clsTable::ColumnFormat(int Column) const {
    return CheckColumn(Column, 10808, "ColumnFormat", false) ? maintFormat[Column] : 0;
}

void clsTable::SetColumnType(int Column, int value) {
    if (CheckColumn(Column, 10809, "ColumnType", true))
        maintType[Column] = value;
}

int clsTable::ColumnType(int Column) const {
    return CheckColumn(Column, 10810, "ColumnType", false) ? maintType[Column] : 0;
}

void clsTable::SetColumnWidth(int Column, int value) {
    if (CheckColumn(Column, 10811, "ColumnWidth", true))
        maintWidth[Column] = value;
}

int clsTable::ColumnWidth(int Column) const {
    return CheckColumn(Column, 10812, "ColumnWidth", false) ? maintWidth[Column] : 0;
}

std::string clsTable::MakeTableLine(char fill, char edge) const {
    std::string line(1, edge);
    for (int c = 0; c < mintColumnCount; ++c) {
        line.append(static_cast<size_t>(std::max(0, maintWidth[c])), fill);
        line.push_back(edge);
    }
    return line + kEndOfLine;
}

std::string clsTable::MakeTable() const {
    const std::string heavyRule = MakeTableLine('=', '=');
    const std::string blankRow = MakeTableLine(' ', '|');
    const std::string& rowTemplate = blankRow;

    std::string result;
    if (!mstrTitle.empty())
        result = mstrTitle + kEndOfLine;
    result += heavyRule;

    for (int r = 1; r <= mintRowCount; ++r) {
        std::string line = rowTemplate;
        for (int c = 1; c <= mintColumnCount; ++c) {
            int format = maintFormat[c - 1];
            int type = maintType[c - 1];
            if (r <= mintHeadingSize) {
                format = 2;
                type = 0;
            }
            line =
                ReplaceCell(line, c - 1, maintWidth[c - 1], mastrCell[r - 1][c - 1], type, format);
        }
        if (r < mintHeadingSize) {
            result += line;
        } else if (r == mintHeadingSize) {
            result += line + heavyRule;
        } else if (r == mintRowCount) {
            result += line + heavyRule;
        } else {
            result += line + blankRow;
        }
    }
    return result;
}

std::string clsTable::ReplaceCell(const std::string& line, int column, int width,
                                  const std::string& text, int type, int format) {
    std::string result = line;
    int count = -1;
    for (size_t i = 0; i < result.size(); ++i) {
        if (result[i] == '|')
            ++count;
        if (count == column) {
            // Overwrite behind the cell's left edge; the line keeps its length.
            const std::string cell = FormatCell(text, width, type, format);
            for (size_t k = 0; k < cell.size() && i + 1 + k < result.size(); ++k)
                result[i + 1 + k] = cell[k];
            break;
        }
    }
    return result;
}

std::string clsTable::FormatCell(const std::string& text, int width, int type, int format) {
    const size_t w = static_cast<size_t>(std::max(0, width));
    std::string value = text;
    if (type == 1 && !value.empty() && ((value[0] >= '0' && value[0] <= '9') || value[0] == '-')) {
        value = FormatNumber(Val(value), "##0.00000");
    }
    if (value.size() > w)
        value = value.substr(0, w);

    std::string result(w, ' ');
    auto leftJustify = [&](const std::string& s) {
        for (size_t k = 0; k < w && k < s.size(); ++k) result[k] = s[k];
    };
    auto rightJustify = [&](const std::string& s) {
        if (s.size() >= w) {
            result = s.substr(0, w);  // a text too long keeps its left part
        } else {
            result.replace(w - s.size(), s.size(), s);
        }
    };

    switch (format) {
        case 0:
            leftJustify(" " + value);
            break;
        case 1:
            rightJustify(value + " ");
            break;
        case 2: {
            if (value.size() >= 2) {
                const double exact =
                    (static_cast<double>(w) - static_cast<double>(value.size())) / 2.0 + 1.0;
                long start = static_cast<long>(RoundHalfEven(exact));
                if (start > static_cast<long>(w) || start < 1)
                    start = 1;
                for (size_t k = 0; k < value.size() && static_cast<size_t>(start) - 1 + k < w; ++k)
                    result[static_cast<size_t>(start) - 1 + k] = value[k];
            } else {
                // A one-character cell stands at the left of its cell; an empty one leaves the
                // line as it is.
                result = value;
            }
            break;
        }
        default:
            rightJustify(value);
            break;
    }
    return result;
}

}  // namespace pendulon
