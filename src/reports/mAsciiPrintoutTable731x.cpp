#include <array>

#include "reports/FormFields.hpp"
#include "reports/mAsciiPrintoutDocument.hpp"

namespace pendulon::mAsciiPrintout {

namespace {

using namespace FormFields;

// One output of the QX7311 family: its source list, desired label, actual list and suspend box.
struct Output {
    const char* Label;
    std::string Source;
    std::string Desired;
    std::string Actual;
    std::string Suspend;
};

std::array<Output, 7> Outputs() {
    return {{{"CPU", "cboCPU", "lblDesiredCPU", "cboActualCPU", "chkSusCPU"},
             {"CLKA", Indexed("cboClk", 0), Indexed("lblDesiredClk", 0), Indexed("cboActualClk", 0),
              Indexed("chkSusClk", 0)},
             {"CLKB", Indexed("cboClk", 1), Indexed("lblDesiredClk", 1), Indexed("cboActualClk", 1),
              Indexed("chkSusClk", 1)},
             {"CLKC", Indexed("cboClk", 2), Indexed("lblDesiredClk", 2), Indexed("cboActualClk", 2),
              Indexed("chkSusClk", 2)},
             {"CLKD", Indexed("cboClk", 3), Indexed("lblDesiredClk", 3), Indexed("cboActualClk", 3),
              Indexed("chkSusClk", 3)},
             {"XBUF", "cboXBuff", "lblDesiredXBuff", "cboActualXBuff", "chkSusXbuff"},
             {"CLKF", "cboClkF", "lblDesiredClkF", "cboActualClkF", ""}}};
}

// The PPM figure of an actual-frequency entry: the number behind ":".
std::string PPMText(const std::string& actualEntry) {
    return GeneralNumber(Val(mShared::GetSubstring(actualEntry, ":", "")));
}

bool IsOffText(const std::string& text) {
    return ContainsNoCase(text, "Off");
}

// The source letter of an output list: "C", "S", "U" or "R".
std::string Letter(const std::string& source) {
    return UCase(Left(Trim(source), 1));
}

// Rows 0 to 3 of the CPLL are forced off while Suspend holds the CPLL.
bool SuspendedSelection(const Window& form, int row) {
    return row < 4 && Checked(form, "chkSuspend") && Checked(form, "chkSuspendCPLL");
}

bool CPLLRowOff(const Window& form, int row) {
    return Val(Text(form, Indexed("txtCPLL", row))) == 0;
}

std::string SelectLabel(int row) {
    return mShared::DisplayBinary(static_cast<std::int16_t>(row), 3);
}

}  // namespace

void Make731xTable(const Window& form, const std::string& device, TableLayout& first,
                   TableLayout& second) {
    const bool has32K = !StartsWithNoCase(device, "QX7312");
    const std::string khz = Text(form, "lblDesired32K");

    // The first table: the eight CPLL selections on the left, the output clocks on the right,
    // with an empty column between the two halves.
    first = TableLayout();
    first.ColumnNumber = 11;
    first.RowNumber = 9;
    first.HeadingSize = 1;
    first.Title = mShared::PadOutputString("CPLL FREQUENCIES", 50) + " OUTPUT CLOCKS";
    const std::array<int, 11> widths{7, 11, 11, 7, 8, 0, 8, 20, 12, 7, 10};
    for (int c = 0; c < 11; ++c) first.Width[c] = widths[c];
    for (int c : {1, 2, 7, 8}) first.Type[c] = 1;
    const std::array<const char*, 11> headings{"S2:S0", "Desired", "Actual", "PPM", "Option", "",
                                               "",      "Desired", "Actual", "PPM", "Option"};
    for (int c = 0; c < 11; ++c) first.SetCell(0, c, headings[c]);

    for (int n = 0; n < 8; ++n) {
        const int row = n + 1;
        first.SetCell(row, 0, SelectLabel(n));
        if (CPLLRowOff(form, n)) {
            first.SetCell(row, 1, "Off");
            first.SetCell(row, 2, "--");
            first.SetCell(row, 3, "--");
        } else {
            const std::string actual = SelectedEntry(form, Indexed("cboCPLL", n));
            first.SetCell(row, 1, Trim(Text(form, Indexed("txtCPLL", n))));
            first.SetCell(row, 2, GeneralNumber(Val(actual)));
            first.SetCell(row, 3, PPMText(actual));
        }
        first.SetCell(row, 4, SuspendedSelection(form, n) ? "Suspend" : "--");
    }

    const std::array<Output, 7> outputs = Outputs();
    const bool suspend = Checked(form, "chkSuspend");
    for (size_t k = 0; k < outputs.size(); ++k) {
        const Output& output = outputs[k];
        const int row = static_cast<int>(k) + 1;
        first.SetCell(row, 6, output.Label);
        const std::string source = Text(form, output.Source);
        if (source.empty() || IsOffText(source)) {
            first.SetCell(row, 7, "Off");
            first.SetCell(row, 8, "--");
            first.SetCell(row, 9, "--");
        } else if (Letter(source) == "C") {
            // Its frequency follows S2:S0: the second table holds it for each selection.
            first.SetCell(row, 7, Trim(Text(form, output.Desired)));
            first.SetCell(row, 8, "C");
            first.SetCell(row, 9, "--");
        } else {
            const std::string actual = SelectedEntry(form, output.Actual);
            first.SetCell(row, 7, Trim(Text(form, output.Desired)));
            first.SetCell(row, 8, IsOffText(actual) ? "Off" : GeneralNumber(Val(actual)));
            first.SetCell(row, 9, IsOffText(actual) ? "--" : PPMText(actual));
        }
        if (!output.Suspend.empty())
            first.SetCell(row, 10, suspend && Checked(form, output.Suspend) ? "Suspend" : "--");
    }
    first.SetCell(8, 6, "32k");
    if (has32K) {
        first.SetCell(8, 7, khz);
        first.SetCell(8, 8, khz);
        first.SetCell(8, 9, "0");
    } else {
        // The QX7312 models have no 32k output at all.
        first.SetCell(8, 7, "n/a");
        first.SetCell(8, 8, "n/a");
        first.SetCell(8, 9, "--");
    }

    // The second table: what each output gives at each selection. Outputs that do not follow
    // S2:S0 show the letter of their source; their one frequency stands in the first table.
    second = TableLayout();
    second.ColumnNumber = 9;
    second.RowNumber = 9;
    second.HeadingSize = 1;
    second.Title = "ACTUAL OUTPUT FREQUENCIES";
    second.Width[0] = 7;
    for (int c = 1; c < 9; ++c) {
        second.Width[c] = 12;
        second.Type[c] = 1;
    }
    const std::array<const char*, 9> heads{"S2:S0", "CPU",  "CLKA", "CLKB", "CLKC",
                                           "CLKD",  "XBUF", "CLKF", "32k"};
    for (int c = 0; c < 9; ++c) second.SetCell(0, c, heads[c]);
    for (int n = 0; n < 8; ++n) {
        const int row = n + 1;
        second.SetCell(row, 0, SelectLabel(n) + (SuspendedSelection(form, n) ? " (Suspend)" : ""));
        const double cpll = Val(SelectedEntry(form, Indexed("cboCPLL", n)));
        for (size_t k = 0; k < outputs.size(); ++k) {
            const std::string source = Text(form, outputs[k].Source);
            const int column = static_cast<int>(k) + 1;
            if (source.empty() || IsOffText(source)) {
                second.SetCell(row, column, "Off");
            } else if (Letter(source) == "C") {
                const bool off = CPLLRowOff(form, n) || cpll == 0;
                second.SetCell(
                    row, column,
                    off ? "Off" : GeneralNumber(cpll / mShared::GetNonZeroDivisor(source)));
            } else {
                second.SetCell(row, column, Letter(source));
            }
        }
        second.SetCell(row, 8, has32K ? khz : "n/a");
    }
}

std::string MakeTable731x(const Window& form, const std::string& device, ErrorReport& errors) {
    TableLayout first;
    TableLayout second;
    Make731xTable(form, device, first, second);
    return MakeTable(first, errors) + kEol + MakeTable(second, errors);
}

}  // namespace pendulon::mAsciiPrintout
