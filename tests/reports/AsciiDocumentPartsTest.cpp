#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "reports/FakeForms.hpp"
#include "reports/mAsciiPrintoutDocument.hpp"

namespace pendulon {
namespace {

using test::Fake4860Form;
using test::Fake6105AForm;
using test::FakeOptionsForm;
using test::Select;

std::vector<std::string> SplitCrLf(const std::string& text) {
    std::vector<std::string> lines;
    size_t start = 0;
    for (size_t end; (end = text.find("\r\n", start)) != std::string::npos; start = end + 2)
        lines.push_back(text.substr(start, end - start));
    lines.push_back(text.substr(start));
    return lines;
}

// ---- banner

TEST(AsciiHeader, FourArtRowsOfAtMost32ColumnsThenTheDivisionAndA50CharacterRule) {
    const std::string summary =
        "Modification Date: Jan/02/2002\r\nComments: c\r\nCustomer: d\r\nFAE: e\r\n";
    const auto lines = SplitCrLf(mAsciiPrintout::GetHeader(summary));
    ASSERT_EQ(lines.size(), 11u);  // 5 banner rows, an empty line, 4 summary lines, the rest
    for (int row = 0; row < 3; ++row) {
        EXPECT_LE(lines[row].size(), 32u) << row;
        EXPECT_FALSE(lines[row].empty());
    }
    const std::string division = " MARLIN WORKS";
    ASSERT_GT(lines[3].size(), division.size());
    EXPECT_EQ(lines[3].substr(lines[3].size() - division.size()), division);
    EXPECT_LE(lines[3].size() - division.size(), 32u);
    EXPECT_EQ(lines[4], std::string(50, '='));
    EXPECT_EQ(lines[5], "");
    EXPECT_EQ(lines[6], "Modification Date: Jan/02/2002");
    EXPECT_EQ(lines[9], "FAE: e");
    EXPECT_EQ(lines[10], "");  // the summary's own last line end closes the header
}

TEST(AsciiHeader, EveryLineEndsInCrLf) {
    const std::string header = mAsciiPrintout::GetHeader("");
    for (size_t i = 0; i < header.size(); ++i) {
        if (header[i] == '\n') {
            EXPECT_TRUE(i > 0 && header[i - 1] == '\r') << i;
        }
    }
    EXPECT_EQ(header.substr(header.size() - 4), "\r\n\r\n");
}

// ---- part number

struct PartCase {
    const char* Device;
    bool At5V;
    const char* Expected;
};

TEST(AsciiPartNumber, DevicesOfTheFourFamiliesTakeTheirCodesByVoltage) {
    const PartCase cases[] = {
        {"QX6105A", true, "qx6105asc"},  {"QX6105A", false, "qx6105asl"},
        {"QX6105AF", true, "qx6105fsc"}, {"QX6105AF", false, "qx6105fsl"},
        {"QX6105AI", true, "qx6105isc"}, {"QX6105AI", false, "qx6105isl"},
        {"QX4860", true, "qx4860sc"},    {"QX4860", false, "qx4860sl"},
        {"QX4860F", true, "qx4860fsc"},  {"QX4860F", false, "qx4860fsl"},
        {"QX4860I", true, "qx4860isc"},  {"QX4860I", false, "qx4860isl"},
        {"QX7311", true, "qx7311sc"},    {"QX7311I", false, "qx7311isl"},
        {"QX7312F", true, "qx7312fsc"},  {"QX7312", false, "qx7312sl"},
        {"QX5140", true, "qx5140sc"},    {"QX5140", false, "qx5140sl"},
    };
    for (const PartCase& c : cases) {
        Fake6105AForm form;
        (c.At5V ? form.opt5V : form.opt3V).SetValue(true);
        EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, c.Device, ""), c.Expected) << c.Device;
    }
}

TEST(AsciiPartNumber, RevisionFollowsADash) {
    Fake6105AForm form;
    form.opt5V.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, "QX6105AF", "07"), "qx6105fsc-07");
}

TEST(AsciiPartNumber, QX3350IsBuiltFromPackageAndVoltage) {
    FakeOptionsForm form;
    form.optSOIC.SetValue(true);
    form.opt5V.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, "QX3350", ""), "qx3350sc");
    form.opt3V.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, "QX3350", "01"), "qx3350sl-01");
    form.optDIP.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, "QX3350", ""), "qx3350zl");
    // The industrial part carries "i" whatever the voltage.
    form.opt5V.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, "QX3350I", ""), "qx3350zi");
}

TEST(AsciiPartNumber, UnknownDeviceGivesAnEmptyPartEvenWithARevision) {
    Fake6105AForm form;
    form.opt5V.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, "QX9999", "01"), "");
    EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, "qx6105a", ""), "");  // names are exact
}

TEST(AsciiVoltage, FiveVoltsOnlyWithOpt5V) {
    Fake6105AForm form;
    form.opt5V.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::GetVoltageText(form), "5.0V");
    form.opt3V.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::GetVoltageText(form), "3.3V");
}

// ---- options

TEST(AsciiOptions, QX6105AWithFrequencySelectShowsBothPllsAbsolute) {
    Fake6105AForm form;
    form.optFS.SetValue(true);
    form.txtPLL[0].SetText("100");
    form.txtPLL[1].SetText("-66.5 MHz");
    form.chkSmoothSlew.SetValue(1);
    EXPECT_EQ(mAsciiPrintout::GetOptions(form, "QX6105A"),
              "PLL(0): Desired = 100 MHz\r\nPLL(1): Desired = 66.5 MHz\r\nSmooth Slew: On\r\n");
}

TEST(AsciiOptions, QX6105AWithFrequencySelectShowsAnOffPllAsOff) {
    Fake6105AForm form;
    form.optFS.SetValue(true);
    form.txtPLL[0].SetText("Off");
    form.txtPLL[1].SetText("25");
    EXPECT_EQ(mAsciiPrintout::GetOptions(form, "QX6105AF"),
              "PLL(0): Desired = Off\r\nPLL(1): Desired = 25 MHz\r\nSmooth Slew: Off\r\n");
}

TEST(AsciiOptions, QX6105AWithOutputEnableShowsThePllTextAsTyped) {
    Fake6105AForm form;
    form.optOE.SetValue(true);
    form.txtPLL[0].SetText("100.50");
    form.txtPLL[1].SetText("N/A");
    EXPECT_EQ(mAsciiPrintout::GetOptions(form, "QX6105AI"),
              "PLL: Desired = 100.50\r\nSmooth Slew: Off\r\n");
}

TEST(AsciiOptions, QX4860ShowsPackageAndSmoothSlew) {
    Fake4860Form form;
    form.chkSmoothSlew.SetValue(1);
    EXPECT_EQ(mAsciiPrintout::GetOptions(form, "QX4860I"),
              "Package Type: SOIC\r\nSmooth Slew: On\r\n");
}

TEST(AsciiOptions, QX7311FamilyShowsTheThreeLoops) {
    FakeOptionsForm form;
    form.chkSuspendCPLL.SetValue(1);
    form.txtSPLL.SetText("48");
    form.chkSuspendSPLL.SetValue(1);
    form.txtUPLL.SetText("Off");
    EXPECT_EQ(mAsciiPrintout::GetOptions(form, "QX7312F"),
              "CPLL: Suspend\r\nSPLL: Desired = 48 MHz, Suspend\r\nUPLL: Desired = Off\r\n");
    form.chkOffCPLL.SetValue(1);
    form.chkSuspendSPLL.SetValue(0);
    EXPECT_EQ(mAsciiPrintout::GetOptions(form, "QX7311"),
              "CPLL: Off\r\nSPLL: Desired = 48 MHz\r\nUPLL: Desired = Off\r\n");
    form.chkOffCPLL.SetValue(0);
    form.chkSuspendCPLL.SetValue(0);
    EXPECT_EQ(mAsciiPrintout::GetOptions(form, "QX7311I").substr(0, 10), "CPLL: --\r\n");
}

TEST(AsciiOptions, QX3350ShowsPllPinModeAndSynchronisation) {
    FakeOptionsForm form;
    form.txtPLL.SetText("50");
    form.optPowerDown.SetValue(true);
    form.chkSynchronous.SetValue(1);
    EXPECT_EQ(mAsciiPrintout::GetOptions(form, "QX3350"),
              "PLL: Desired = 50\r\nPD/OE: PD\r\nASYNC/SYNC: SYNCH\r\n");
    form.optOE.SetValue(true);
    form.chkSynchronous.SetValue(0);
    EXPECT_EQ(mAsciiPrintout::GetOptions(form, "QX3350"),
              "PLL: Desired = 50\r\nPD/OE: OE\r\nASYNC/SYNC: ASYNCH\r\n");
}

// ---- QX6105A output table

void Fill6105AOutputEnable(Fake6105AForm& form) {
    form.optOE.SetValue(true);
    Select(form.cboFRef, "20.00000 MHz");
    form.txtPLL[0].SetText("100");
    form.txtPLL[1].SetText("N/A");
    Select(form.cboClkDiv[0], "PLL/2");
    Select(form.cboClkDiv[1], "Ref/2");
    Select(form.cboClkDiv[2], "Off");
    Select(form.cboActual[0], "50.00000    PPM:0");
    Select(form.cboActual[1], "10.00000    PPM:0");
    Select(form.cboActual[2], "Off");
}

TEST(Ascii6105ATable, SetsFiveColumnsButFillsTheSixth) {
    Fake6105AForm form;
    Fill6105AOutputEnable(form);
    const TableLayout t = mAsciiPrintout::MakeTableLayout6105A(form);
    EXPECT_EQ(t.ColumnNumber, 5);
    EXPECT_EQ(t.Title, "OUTPUT CLK");
    EXPECT_EQ(t.HeadingSize, 1);
    const int widths[] = {9, 9, 14, 14, 9, 10};
    const int types[] = {0, 0, 1, 1, 0, 0};
    for (int c = 0; c < 6; ++c) {
        EXPECT_EQ(t.Width[c], widths[c]) << c;
        EXPECT_EQ(t.Type[c], types[c]) << c;
    }
    EXPECT_EQ(t.Cell(0, 5), "Option");
    for (int r = 1; r < t.RowNumber; ++r) EXPECT_EQ(t.Cell(r, 5), "--") << r;
}

TEST(Ascii6105ATable, OutputEnableHasThreeRowsFromPllReferenceAndOff) {
    Fake6105AForm form;
    Fill6105AOutputEnable(form);
    const TableLayout t = mAsciiPrintout::MakeTableLayout6105A(form);
    ASSERT_EQ(t.RowNumber, 4);
    const std::vector<std::vector<std::string>> expected = {
        {"", "", "Desired", "Actual", "PPM"},
        {"CLKA", "(PLL/2)", "50", "50", "0"},
        {"CLKB", "(Ref/2)", "10", "10", "0"},
        {"CLKC", "(Off)", "Off", "Off", "--"},
    };
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 5; ++c) EXPECT_EQ(t.Cell(r, c), expected[r][c]) << r << "," << c;
}

TEST(Ascii6105ATable, FrequencySelectHasSixRowsForTheTwoStates) {
    Fake6105AForm form;
    form.optFS.SetValue(true);
    Select(form.cboFRef, "25.00000 MHz");
    SetFrequencySelectExample(form);
    const TableLayout t = mAsciiPrintout::MakeTableLayout6105A(form);
    ASSERT_EQ(t.RowNumber, 7);
    const char* labels[] = {"CLKA(0)", "CLKB(0)", "CLKC(0)", "CLKA(1)", "CLKB(1)", "CLKC(1)"};
    for (int r = 1; r < 7; ++r) EXPECT_EQ(t.Cell(r, 0), labels[r - 1]);
    EXPECT_EQ(t.Cell(2, 2), "33.3333333333333");  // 100 / 3 in the general form
    EXPECT_EQ(t.Cell(2, 3), "33.33333");
    EXPECT_EQ(t.Cell(2, 4), "-1");
    EXPECT_EQ(t.Cell(5, 1), "(PLL/3)");
    EXPECT_EQ(t.Cell(5, 2), "25");
    EXPECT_EQ(t.Cell(5, 3), "25.001");
    EXPECT_EQ(t.Cell(5, 4), "40");
    EXPECT_EQ(t.Cell(6, 2), "25");  // the reference, in both states
}

TEST(Ascii6105ATable, APllThatIsOffShowsItsOutputsOff) {
    Fake6105AForm form;
    Fill6105AOutputEnable(form);
    form.txtPLL[0].SetText("Off");
    const TableLayout t = mAsciiPrintout::MakeTableLayout6105A(form);
    EXPECT_EQ(t.Cell(1, 2), "Off");
    EXPECT_EQ(t.Cell(1, 3), "Off");
    EXPECT_EQ(t.Cell(1, 4), "--");
    EXPECT_EQ(t.Cell(2, 2), "10");  // the reference output still runs
}

// ---- QX4860 output table

void Fill4860Row(Fake4860Form& form, int i, const std::string& pll, const std::string& clkA,
                 const std::string& actualA, const std::string& ref, const std::string& actualRef) {
    form.txtPLL[i].SetText(pll);
    form.lblDesiredClkA[i].SetCaption(clkA);
    Select(form.cboActualClkA[i], actualA);
    form.lblDesiredRefClk[i].SetCaption(ref);
    Select(form.cboActualRefClk[i], actualRef);
}

TEST(Ascii4860Table, FourteenPinsHasSixteenSelectionsUnderTwoHeadingRows) {
    Fake4860Form form;
    form.opt14Pin.SetValue(true);
    for (int i = 0; i < 16; ++i)
        Fill4860Row(form, i, "80", " 40.00000", "40.00000    PPM:0", " Off", "Off");
    const TableLayout t = mAsciiPrintout::MakeTableLayout4860(form);
    EXPECT_EQ(t.ColumnNumber, 8);
    EXPECT_EQ(t.RowNumber, 18);
    EXPECT_EQ(t.HeadingSize, 2);
    const int widths[] = {9, 13, 16, 12, 7, 16, 12, 7};
    const int types[] = {0, 1, 1, 1, 0, 1, 1, 0};
    for (int c = 0; c < 8; ++c) {
        EXPECT_EQ(t.Width[c], widths[c]) << c;
        EXPECT_EQ(t.Type[c], types[c]) << c;
    }
    EXPECT_EQ(t.Cell(0, 2), "OUTPUT CLKA");
    EXPECT_EQ(t.Cell(0, 5), "OUTPUT REFCLK");
    const char* headings[] = {"FS3:FS0", "Desired PLL",    "Desired CLKA", "Actual",
                              "PPM",     "Desired REFCLK", "Actual",       "PPM"};
    for (int c = 0; c < 8; ++c) EXPECT_EQ(t.Cell(1, c), headings[c]) << c;
    EXPECT_EQ(t.Cell(2, 0), "0000");
    EXPECT_EQ(t.Cell(7, 0), "0101");
    EXPECT_EQ(t.Cell(17, 0), "1111");
    EXPECT_EQ(t.Cell(17, 1), "80");
    EXPECT_EQ(t.Cell(17, 2), "40.00000");
    EXPECT_EQ(t.Cell(17, 3), "40");
    EXPECT_EQ(t.Cell(17, 4), "0");
    EXPECT_EQ(t.Cell(17, 5), "Off");
    EXPECT_EQ(t.Cell(17, 6), "--");
    EXPECT_EQ(t.Cell(17, 7), "--");
}

TEST(Ascii4860Table, FourteenPinsTitleNamesThePowerDownMode) {
    Fake4860Form form;
    form.opt14Pin.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::MakeTableLayout4860(form).Title, "(Power Down: --)");
    form.chkPLLStop.SetValue(1);
    EXPECT_EQ(mAsciiPrintout::MakeTableLayout4860(form).Title, "(Power Down: PLL)");
    form.chkPLLStop.SetValue(0);
    form.chkPLLAndOscillatorStop.SetValue(1);
    EXPECT_EQ(mAsciiPrintout::MakeTableLayout4860(form).Title, "(Power Down: PLL & Oscillator)");
}

TEST(Ascii4860Table, EightPinsHasFourSelectionsInTwoBitsAndNoTitle) {
    Fake4860Form form;
    form.opt8Pin.SetValue(true);
    form.chkPLLStop.SetValue(1);  // not part of the small package
    Fill4860Row(form, 3, "133.3", " 66.65000", "66.65001    PPM:0", " 133.30000",
                "133.29980    PPM:-2");
    const TableLayout t = mAsciiPrintout::MakeTableLayout4860(form);
    EXPECT_EQ(t.RowNumber, 6);
    EXPECT_EQ(t.Title, "");
    EXPECT_EQ(t.Cell(1, 0), "FS1:FS0");
    EXPECT_EQ(t.Cell(2, 0), "00");
    EXPECT_EQ(t.Cell(5, 0), "11");
    EXPECT_EQ(t.Cell(5, 1), "133.3");
    EXPECT_EQ(t.Cell(5, 3), "66.65001");
    EXPECT_EQ(t.Cell(5, 5), "133.30000");
    EXPECT_EQ(t.Cell(5, 6), "133.2998");
    EXPECT_EQ(t.Cell(5, 7), "-2");
    EXPECT_EQ(t.Cell(2, 1), "Off");  // an empty row
    EXPECT_EQ(t.Cell(2, 2), "Off");
    EXPECT_EQ(t.Cell(2, 3), "--");
}

}  // namespace
}  // namespace pendulon
