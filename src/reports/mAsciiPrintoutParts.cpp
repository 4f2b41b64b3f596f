#include <array>
#include <vector>

#include "reports/FormFields.hpp"
#include "reports/mAsciiPrintoutDocument.hpp"

namespace pendulon::mAsciiPrintout {

namespace {

using namespace FormFields;

// Ordering codes by device: at 5 V, then at 3.3 V.
struct PartCode {
    const char* Device;
    const char* At5V;
    const char* At3V;
};
constexpr std::array<PartCode, 13> kPartCodes{{
    {"QX7311", "qx7311sc", "qx7311sl"},
    {"QX7311F", "qx7311fsc", "qx7311fsl"},
    {"QX7311I", "qx7311isc", "qx7311isl"},
    {"QX7312", "qx7312sc", "qx7312sl"},
    {"QX7312F", "qx7312fsc", "qx7312fsl"},
    {"QX7312I", "qx7312isc", "qx7312isl"},
    {"QX5140", "qx5140sc", "qx5140sl"},
    {"QX4860", "qx4860sc", "qx4860sl"},
    {"QX4860F", "qx4860fsc", "qx4860fsl"},
    {"QX4860I", "qx4860isc", "qx4860isl"},
    {"QX6105A", "qx6105asc", "qx6105asl"},
    {"QX6105AF", "qx6105fsc", "qx6105fsl"},
    {"QX6105AI", "qx6105isc", "qx6105isl"},
}};

// The PPM figure of an actual-frequency entry: the number behind ":".
double PPMOf(const std::string& actualEntry) {
    return Val(mShared::GetSubstring(actualEntry, ":", ""));
}

// A clock that is off: "Off" desired, nothing actual.
void SetOffCells(TableLayout& table, int row, int desiredColumn) {
    table.SetCell(row, desiredColumn, "Off");
    table.SetCell(row, desiredColumn + 1, "--");
    table.SetCell(row, desiredColumn + 2, "--");
}

}  // namespace

std::string GetHeader(const std::string& summaryInfo) {
    // VARNHOL in four rows of letters; the last row carries the division's name.
    static const char* const kArt[4] = {
        R"(|  |  /\  |~\ |\ | |  | /~~\ |)",
        R"(|  | /  \ |_/ | \| |--| |  | |)",
        R"(\  / |--| |\  |  | |  | |  | |)",
        R"( \/  |  | | \ |  | |  | \__/ |__ MARLIN WORKS)",
    };
    std::string text;
    for (const char* row : kArt) text += std::string(row) + kEol;
    text += std::string(50, '=') + kEol;
    text += kEol;
    text += summaryInfo;
    return text;
}

std::string GetPartNumber(const Window& form, const std::string& device,
                          const std::string& revision) {
    const bool at5V = OptionOn(form, "opt5V");
    std::string part;
    if (IsFamily3350(device)) {
        part = LCase(Left(device, 6));
        part += OptionOn(form, "optSOIC") ? "s" : "z";
        if (device == "QX3350I")
            part += "i";
        else
            part += at5V ? "c" : "l";
    } else {
        for (const PartCode& code : kPartCodes) {
            if (device == code.Device) {
                part = at5V ? code.At5V : code.At3V;
                break;
            }
        }
    }
    if (part.empty())
        return part;
    if (!revision.empty())
        part += "-" + revision;
    return part;
}

std::string GetVoltageText(const Window& form) {
    return OptionOn(form, "opt5V") ? "5.0V" : "3.3V";
}

std::string GetOptions(const Window& form, const std::string& device) {
    std::string text;
    if (IsFamily731x(device)) {
        std::string cpll = "--";
        if (Checked(form, "chkOffCPLL"))
            cpll = "Off";
        else if (Checked(form, "chkSuspendCPLL"))
            cpll = "Suspend";
        text += "CPLL: " + cpll + kEol;
        text += "SPLL: Desired = " + mShared::FormatFrequencyAbsolute(Text(form, "txtSPLL"));
        if (Checked(form, "chkSuspendSPLL"))
            text += ", Suspend";
        text += kEol;
        text += "UPLL: Desired = " + mShared::FormatFrequencyAbsolute(Text(form, "txtUPLL"));
        if (Checked(form, "chkSuspendUPLL"))
            text += ", Suspend";
        text += kEol;
    } else if (IsFamily6105A(device)) {
        if (OptionOn(form, "optFS")) {
            text +=
                "PLL(0): Desired = " + mShared::FormatFrequencyAbsolute(Text(form, "txtPLL(0)")) +
                kEol;
            text +=
                "PLL(1): Desired = " + mShared::FormatFrequencyAbsolute(Text(form, "txtPLL(1)")) +
                kEol;
        } else {
            // With pin 8 as output enable the one PLL is shown as typed.
            text += "PLL: Desired = " + Text(form, "txtPLL(0)") + kEol;
        }
    } else if (IsFamily4860(device)) {
        text += std::string("Package Type: ") + "SOIC" + kEol;
    } else if (IsFamily3350(device)) {
        text += "PLL: Desired = " + Text(form, "txtPLL") + kEol;
        text += std::string("PD/OE: ") + (OptionOn(form, "optPowerDown") ? "PD" : "OE") + kEol;
        text += std::string("ASYNC/SYNC: ") +
                (Checked(form, "chkSynchronous") ? "SYNCH" : "ASYNCH") + kEol;
    }
    if (Has(form, "chkSmoothSlew"))
        text +=
            std::string("Smooth Slew: ") + (Checked(form, "chkSmoothSlew") ? "On" : "Off") + kEol;
    return text;
}

TableLayout MakeTableLayout6105A(const Window& form) {
    const bool twoStates = OptionOn(form, "optFS");
    TableLayout table;
    table.ColumnNumber = 5;  // the sixth column is filled below but never printed
    table.RowNumber = twoStates ? 7 : 4;
    table.HeadingSize = 1;
    table.Title = "OUTPUT CLK";
    const std::array<int, 6> widths{9, 9, 14, 14, 9, 10};
    const std::array<int, 6> types{0, 0, 1, 1, 0, 0};
    for (int c = 0; c < 6; ++c) {
        table.Width[c] = widths[c];
        table.Type[c] = types[c];
    }
    const std::array<const char*, 6> headings{"", "", "Desired", "Actual", "PPM", "Option"};
    for (int c = 0; c < 6; ++c) table.SetCell(0, c, headings[c]);

    static const char* const kOutputs[3] = {"CLKA", "CLKB", "CLKC"};
    const double reference = Val(SelectedEntry(form, "cboFRef"));
    for (int row = 1; row < table.RowNumber; ++row) {
        const int k = row - 1;
        const int state = k / 3;
        const int output = k % 3;
        std::string label = kOutputs[output];
        if (twoStates)
            label.append(1, '(').append(std::to_string(state)).append(1, ')');
        table.SetCell(row, 0, label);

        const std::string source = SelectedEntry(form, Indexed("cboClkDiv", output));
        table.SetCell(row, 1, "(" + source + ")");
        const double divisor = mShared::GetNonZeroDivisor(source);
        double wanted = 0;
        if (source != "Off") {
            if (StartsWithNoCase(source, "R"))
                wanted = reference / divisor;
            else
                wanted = Val(Text(form, Indexed("txtPLL", state))) / divisor;
        }
        if (wanted == 0) {
            table.SetCell(row, 2, "Off");
            table.SetCell(row, 3, "Off");
            table.SetCell(row, 4, "--");
        } else {
            const std::string actual = SelectedEntry(form, Indexed("cboActual", k));
            table.SetCell(row, 2, GeneralNumber(wanted));
            table.SetCell(row, 3, GeneralNumber(Val(actual)));
            table.SetCell(row, 4, GeneralNumber(PPMOf(actual)));
        }
        table.SetCell(row, 5, "--");
    }
    return table;
}

TableLayout MakeTableLayout3350(const Window& form) {
    TableLayout table;
    table.ColumnNumber = 5;
    table.RowNumber = 2;
    table.HeadingSize = 1;
    table.Title = "OUTPUT CLK";
    const std::array<int, 5> widths{9, 9, 14, 14, 9};
    const std::array<int, 5> types{0, 0, 1, 1, 0};
    for (int c = 0; c < 5; ++c) {
        table.Width[c] = widths[c];
        table.Type[c] = types[c];
    }
    const std::array<const char*, 5> headings{"", "", "Desired", "Actual", "PPM"};
    for (int c = 0; c < 5; ++c) table.SetCell(0, c, headings[c]);

    table.SetCell(1, 0, "CLKOUT");
    std::string divisor = "(";
    divisor += SelectedEntry(form, "cboClockDivisors");
    divisor += ')';
    table.SetCell(1, 1, divisor);
    const std::string desired = Trim(Text(form, "lblDesiredClock"));
    if (Val(desired) <= 0) {
        SetOffCells(table, 1, 2);
        // The one row is off: its Actual column shows the "--" as it stands, as the PPM does,
        // where a number column would read it as 0.
        table.Type[3] = 0;
    } else {
        const std::string actual = SelectedEntry(form, "cboActual");
        table.SetCell(1, 2, desired);
        table.SetCell(1, 3, GeneralNumber(Val(actual)));
        table.SetCell(1, 4, GeneralNumber(PPMOf(actual)));
    }
    return table;
}

TableLayout MakeTableLayout5140(const Window& form) {
    const bool select = OptionOn(form, "optSelect");
    TableLayout table;
    table.ColumnNumber = 5;
    table.RowNumber = select ? 5 : 4;
    table.HeadingSize = 1;
    table.Title = "OUTPUT CLK";
    const std::array<int, 5> widths{select ? 10 : 8, 14, 14, 9, 10};
    const std::array<int, 5> types{0, 1, 1, 0, 0};
    for (int c = 0; c < 5; ++c) {
        table.Width[c] = widths[c];
        table.Type[c] = types[c];
    }
    const std::array<const char*, 5> headings{"", "Desired", "Actual", "PPM", "Option"};
    for (int c = 0; c < 5; ++c) table.SetCell(0, c, headings[c]);

    struct Row {
        const char* Label;
        std::string Desired;
        std::string Actual;
    };
    std::vector<Row> rows;
    if (select) {
        rows.push_back({"CLKA[0]", Indexed("txtClkA", 0), Indexed("cboClkA", 0)});
        rows.push_back({"CLKA[1]", Indexed("txtClkA", 1), Indexed("cboClkA", 1)});
    } else {
        rows.push_back({"CLKA", Indexed("txtClkA", 0), Indexed("cboClkA", 0)});
    }
    rows.push_back({"CLKB", "txtClkB", "cboClkB"});
    rows.push_back({"CLKC", "txtClkC", "cboClkC"});
    // The suspend of CLKB or CLKC is what the option column tells, on every row.
    const std::string option =
        Checked(form, "chkSuspendClockB") || Checked(form, "chkSuspendClockC") ? "Suspend" : "--";
    int r = 1;
    for (const Row& row : rows) {
        table.SetCell(r, 0, row.Label);
        const std::string desired = Text(form, row.Desired);
        const std::string actual = SelectedEntry(form, row.Actual);
        if (Val(desired) == 0 || Val(actual) == 0) {
            SetOffCells(table, r, 1);
        } else {
            table.SetCell(r, 1, desired);
            table.SetCell(r, 2, GeneralNumber(Val(actual)));
            table.SetCell(r, 3, GeneralNumber(PPMOf(actual)));
        }
        table.SetCell(r, 4, option);
        ++r;
    }
    return table;
}

TableLayout MakeTableLayout4860(const Window& form) {
    const bool fourteenPins = OptionOn(form, "opt14Pin");
    const int selections = fourteenPins ? 16 : 4;
    TableLayout table;
    table.ColumnNumber = 8;
    table.RowNumber = selections + 2;
    table.HeadingSize = 2;
    if (fourteenPins) {
        std::string powerDown = "--";
        if (Checked(form, "chkPLLStop"))
            powerDown = "PLL";
        else if (Checked(form, "chkPLLAndOscillatorStop"))
            powerDown = "PLL & Oscillator";
        table.Title = "(Power Down: " + powerDown + ")";
    }
    const std::array<int, 8> widths{9, 13, 16, 12, 7, 16, 12, 7};
    for (int c = 0; c < 8; ++c) {
        table.Width[c] = widths[c];
        table.Type[c] = 1;
    }
    table.Type[0] = 0;
    table.Type[4] = 0;
    table.Type[7] = 0;

    // The first heading row names the two outputs over their groups of columns.
    const std::array<const char*, 8> groups{"", "", "OUTPUT CLKA", "", "", "OUTPUT REFCLK", "", ""};
    const std::array<const char*, 8> headings{fourteenPins ? "FS3:FS0" : "FS1:FS0",
                                              "Desired PLL",
                                              "Desired CLKA",
                                              "Actual",
                                              "PPM",
                                              "Desired REFCLK",
                                              "Actual",
                                              "PPM"};
    for (int c = 0; c < 8; ++c) {
        table.SetCell(0, c, groups[c]);
        table.SetCell(1, c, headings[c]);
    }

    const int bits = fourteenPins ? 4 : 2;
    for (int i = 0; i < selections; ++i) {
        const int row = i + 2;
        table.SetCell(
            row, 0,
            mShared::DisplayBinary(static_cast<std::int16_t>(i), static_cast<std::int16_t>(bits)));
        const std::string pll = Trim(Text(form, Indexed("txtPLL", i)));
        table.SetCell(row, 1, Val(pll) > 0 ? pll : "Off");

        struct Output {
            const char* Desired;
            const char* Actual;
            int Column;
        };
        const std::array<Output, 2> outputs{
            {{"lblDesiredClkA", "cboActualClkA", 2}, {"lblDesiredRefClk", "cboActualRefClk", 5}}};
        for (const Output& output : outputs) {
            const std::string desired = Trim(Text(form, Indexed(output.Desired, i)));
            const std::string actual = SelectedEntry(form, Indexed(output.Actual, i));
            if (Val(desired) <= 0) {
                SetOffCells(table, row, output.Column);
                continue;
            }
            table.SetCell(row, output.Column, desired);
            table.SetCell(row, output.Column + 1, GeneralNumber(Val(actual)));
            table.SetCell(row, output.Column + 2, GeneralNumber(PPMOf(actual)));
        }
    }
    return table;
}

}  // namespace pendulon::mAsciiPrintout
