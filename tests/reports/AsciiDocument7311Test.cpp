// The configuration document of the QX7311 family: option lines, the two output tables and
// whole documents against goldens worked out by tests/data/make_7311_documents.py.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/OptionButton.hpp"
#include "reports/FakeForms.hpp"
#include "reports/mAsciiPrintout.hpp"
#include "reports/mAsciiPrintoutDocument.hpp"
#include "support/Fields7311.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using test::Fields7311;
using test::Select;

// A QX7311 family window with the fields the document reads, by their names.
class Fake7311Window : public Window, public Fields7311 {
  public:
    Fake7311Window() : Window("frmQX7311") {
        opt5V.SetGroup("Voltage");
        opt3V.SetGroup("Voltage");
        Register("txtFilePath", txtFilePath);
        Register("cboFRef", cboFRef);
        Register("opt5V", opt5V);
        Register("opt3V", opt3V);
        RegisterAll([this](const std::string& name, Field& field) { Register(name, field); });
        FillOutputLists();
    }
    TextField txtFilePath;
    ListField cboFRef;
    OptionButton opt5V, opt3V;
};

// One output's source, desired caption, actual entry and suspend box.
struct OutputState {
    const char* Source;
    const char* Desired;
    const char* Actual;
    int Suspend;
};

struct DocumentCase {
    const char* Golden;
    const char* Device;
    bool Volt5;
    const char* Reference;
    const char* Mode;
    const char* Comments;
    const char* Revision;
    const char* File;
    const char* Checksum;
    std::array<const char*, 8> CPLL;
    std::array<const char*, 8> CPLLActual;
    const char* SPLL;
    const char* UPLL;
    bool Suspend, SuspendCPLL, SuspendSPLL, SuspendUPLL;
    std::array<OutputState, 7> Outputs;  // CPU, CLKA to CLKD, XBUF, CLKF
};

const DocumentCase kCases[] = {
    {"ascii-7311-5v.txt",
     "QX7311",
     true,
     "14.31818 MHz",
     "Select+oe",
     "Eight selections",
     "01",
     "C:\\designs\\cpu7311.ent",
     "372",
     {"66.6", "100", "Off", "75", "50", "133.3", "Off", "90"},
     {"66.59091  PPM:-136", "100.22726  PPM:2273", "Off", "75.00000  PPM:0", "50.00000  PPM:0",
      "133.30000  PPM:0", "Off", "90.00000  PPM:0"},
     "48",
     "Off",
     false,
     false,
     false,
     false,
     {{{"CPLL/2", " CPLL/2", "CPLL/2", 0},
       {"SPLL/2", " 24.00000", "24.00401  PPM:167", 0},
       {"Ref", " 14.31818", "14.31818", 0},
       {"CPLL/4", " CPLL/4", "CPLL/4", 0},
       {"Off", " Off", "Off", 0},
       {"Ref", " 14.31818", "14.31818", 0},
       {"SPLL/3", " 16.00000", "16.00267  PPM:167", 0}}}},
    {"ascii-7311f-3v.txt",
     "QX7311F",
     false,
     "25.00000 MHz",
     "Select+shutdown",
     "",
     "",
     "/home/user/f3v.ent",
     "246",
     {"70", "50", "40", "33.33333", "Off", "Off", "Off", "Off"},
     {"70.00000  PPM:0", "50.00000  PPM:0", "40.00000  PPM:0", "33.33333  PPM:0", "Off", "Off",
      "Off", "Off"},
     "Off",
     "24",
     false,
     false,
     false,
     false,
     {{{"CPLL", " CPLL", "CPLL", 0},
       {"UPLL", " 24.00000", "24.00000  PPM:0", 0},
       {"UPLL/2", " 12.00000", "12.00000  PPM:0", 0},
       {"Ref/8", " 3.12500", "3.12500", 0},
       {"Ref/3", " 8.33333", "8.33333", 0},
       {"Off", " Off", "Off", 0},
       {"Off", " Off", "Off", 0}}}},
    {"ascii-7312-5v.txt",
     "QX7312",
     true,
     "27.00000 MHz",
     "Select+oe",
     "No CLKF",
     "03",
     "board7312.ent",
     "371",
     {"100", "66.66", "50", "40", "33.33", "25", "20", "80"},
     {"100.00000  PPM:0", "66.60000  PPM:-900", "50.00000  PPM:0", "40.00000  PPM:0",
      "33.30000  PPM:-900", "25.00000  PPM:0", "20.00000  PPM:0", "80.00000  PPM:0"},
     "66",
     "48",
     false,
     false,
     false,
     false,
     {{{"CPLL/4", " CPLL/4", "CPLL/4", 0},
       {"SPLL/12", " 5.50000", "5.50000  PPM:0", 0},
       {"SPLL/13", " 5.07692", "5.07692  PPM:0", 0},
       {"UPLL/8", " 6.00000", "6.00000  PPM:0", 0},
       {"SPLL/104", " 0.63462", "0.63462  PPM:0", 0},
       {"Ref", " 27.00000", "27.00000", 0},
       {"Off", " Off", "Off", 0}}}},
    {"ascii-7312i-suspend.txt",
     "QX7312I",
     false,
     "14.31818 MHz",
     "SUSPEND+oe",
     "Suspend",
     "01",
     "sus.ent",
     "281",
     {"Off", "Off", "Off", "Off", "60", "50", "40", "30"},
     {"Off", "Off", "Off", "Off", "60.00000  PPM:0", "50.00000  PPM:0", "40.00000  PPM:0",
      "30.00000  PPM:0"},
     "33.33333",
     "12",
     true,
     true,
     true,
     false,
     {{{"CPLL", " CPLL", "CPLL", 1},
       {"CPLL/2", " CPLL/2", "CPLL/2", 1},
       {"SPLL/5", " 6.66667", "6.66667  PPM:0", 0},
       {"Ref/2", " 7.15909", "7.15909", 1},
       {"UPLL/4", " 3.00000", "3.00000  PPM:0", 0},
       {"Ref", " 14.31818", "14.31818", 1},
       {"Off", " Off", "Off", 0}}}},
};

// Sets the window as a calculated window of the case shows it.
void Apply(const DocumentCase& c, Fake7311Window& form) {
    (c.Volt5 ? form.opt5V : form.opt3V).SetValue(true);
    form.cboFRef.AddItem("14.31818 MHz");
    form.cboFRef.AddItem("25.00000 MHz");
    form.cboFRef.AddItem("27.00000 MHz");
    Fields7311::Choose(form.cboFRef, c.Reference);
    form.txtFilePath.SetText(c.File);
    for (int n = 0; n < 8; ++n) {
        form.txtCPLL[n].SetText(c.CPLL[n]);
        Select(form.cboCPLL[n], c.CPLLActual[n]);
    }
    form.txtSPLL.SetText(c.SPLL);
    form.txtUPLL.SetText(c.UPLL);
    form.chkSuspend.SetValue(c.Suspend ? 1 : 0);
    form.chkSuspendCPLL.SetValue(c.SuspendCPLL ? 1 : 0);
    form.chkSuspendSPLL.SetValue(c.SuspendSPLL ? 1 : 0);
    form.chkSuspendUPLL.SetValue(c.SuspendUPLL ? 1 : 0);
    ListField* sources[7] = {&form.cboCPU,    &form.cboClk[0], &form.cboClk[1], &form.cboClk[2],
                             &form.cboClk[3], &form.cboXBuff,  &form.cboClkF};
    Label* desired[7] = {&form.lblDesiredCPU,    &form.lblDesiredClk[0], &form.lblDesiredClk[1],
                         &form.lblDesiredClk[2], &form.lblDesiredClk[3], &form.lblDesiredXBuff,
                         &form.lblDesiredClkF};
    ListField* actual[7] = {&form.cboActualCPU,    &form.cboActualClk[0], &form.cboActualClk[1],
                            &form.cboActualClk[2], &form.cboActualClk[3], &form.cboActualXBuff,
                            &form.cboActualClkF};
    CheckBox* suspend[6] = {&form.chkSusCPU,    &form.chkSusClk[0], &form.chkSusClk[1],
                            &form.chkSusClk[2], &form.chkSusClk[3], &form.chkSusXbuff};
    for (int k = 0; k < 7; ++k) {
        const OutputState& o = c.Outputs[static_cast<size_t>(k)];
        ASSERT_TRUE(Fields7311::Choose(*sources[k], o.Source)) << o.Source;
        desired[k]->SetCaption(o.Desired);
        Select(*actual[k], o.Actual);
        if (k < 6)
            suspend[k]->SetValue(o.Suspend);
    }
}

class AsciiDocument7311 : public ::testing::TestWithParam<DocumentCase> {
  protected:
    AsciiDocument7311() : errors(platform, [] { return std::string("Pendulon(tm) 3.71"); }) {
        platform.SetNow(DateTime{2002, 1, 2, 3, 4, 5});
    }

    std::string Document(const DocumentCase& c, Fake7311Window& form) {
        std::vector<std::string> pins;
        if (StartsWithNoCase(c.Device, "QX7312"))
            mAsciiPrintout::GetPinout7312(pins, c.Mode);
        else
            mAsciiPrintout::GetPinout7311(pins, c.Mode);
        mAsciiPrintout::DocumentSources sources;
        sources.SummaryInfo = "Modification Date: " + FormatDate(platform.Now()) +
                              "\r\nComments: " + c.Comments +
                              "\r\nCustomer: Test customer\r\nFAE: Test engineer\r\n";
        sources.Revision = c.Revision;
        sources.Checksum = c.Checksum;
        sources.Title = "Pendulon(tm) 3.71";
        sources.Build = "Build #: 3.71.10";
        sources.PinName = [pins](int i) {
            return i >= 0 && i < static_cast<int>(pins.size()) ? pins[i] : std::string();
        };
        return mAsciiPrintout::GetASCIIDocument(form, c.Device, sources, errors);
    }

    HeadlessPlatform platform;
    ErrorReport errors;
};

TEST_P(AsciiDocument7311, DocumentMatchesGolden) {
    Fake7311Window form;
    Apply(GetParam(), form);
    EXPECT_EQ(Document(GetParam(), form), test::ReadFile(test::DataPath(GetParam().Golden)));
    EXPECT_TRUE(platform.Messages().empty());
}

INSTANTIATE_TEST_SUITE_P(Cases, AsciiDocument7311, ::testing::ValuesIn(kCases),
                         [](const auto& info) {
                             std::string name = info.param.Golden;
                             name = name.substr(6, name.size() - 10);  // "ascii-" ... ".txt"
                             for (char& ch : name)
                                 if (ch == '-')
                                     ch = '_';
                             return name;
                         });

class Table731x : public ::testing::Test {
  protected:
    Table731x() { Apply(kCases[0], form); }
    TableLayout first, second;
    Fake7311Window form;
    void Make(const std::string& device = "QX7311") {
        mAsciiPrintout::Make731xTable(form, device, first, second);
    }
};

TEST_F(Table731x, SizesWidthsTypesAndHeadings) {
    Make();
    EXPECT_EQ(first.ColumnNumber, 11);
    EXPECT_EQ(first.RowNumber, 9);
    EXPECT_EQ(first.HeadingSize, 1);
    const std::array<int, 11> widths{7, 11, 11, 7, 8, 0, 8, 20, 12, 7, 10};
    const std::array<int, 11> types{0, 1, 1, 0, 0, 0, 0, 1, 1, 0, 0};
    const std::array<const char*, 11> headings{"S2:S0", "Desired", "Actual", "PPM", "Option", "",
                                               "",      "Desired", "Actual", "PPM", "Option"};
    for (int c = 0; c < 11; ++c) {
        EXPECT_EQ(first.Width[c], widths[c]) << c;
        EXPECT_EQ(first.Type[c], types[c]) << c;
        EXPECT_EQ(first.Cell(0, c), headings[c]) << c;
    }
    EXPECT_EQ(first.Title.substr(0, 16), "CPLL FREQUENCIES");
    EXPECT_EQ(first.Title.substr(50), " OUTPUT CLOCKS");
    EXPECT_EQ(second.ColumnNumber, 9);
    EXPECT_EQ(second.RowNumber, 9);
    EXPECT_EQ(second.Title, "ACTUAL OUTPUT FREQUENCIES");
    EXPECT_EQ(second.Width[0], 7);
    EXPECT_EQ(second.Type[0], 0);
    const std::array<const char*, 9> heads{"S2:S0", "CPU",  "CLKA", "CLKB", "CLKC",
                                           "CLKD",  "XBUF", "CLKF", "32k"};
    for (int c = 0; c < 9; ++c) EXPECT_EQ(second.Cell(0, c), heads[c]);
    for (int c = 1; c < 9; ++c) {
        EXPECT_EQ(second.Width[c], 12);
        EXPECT_EQ(second.Type[c], 1);
    }
    const std::array<const char*, 8> labels{"CPU",  "CLKA", "CLKB", "CLKC",
                                            "CLKD", "XBUF", "CLKF", "32k"};
    for (int r = 1; r <= 8; ++r) EXPECT_EQ(first.Cell(r, 6), labels[r - 1]);
}

TEST_F(Table731x, OffClockShowsOffAndDashes) {
    Make();
    EXPECT_EQ(first.Cell(5, 7), "Off");  // CLKD
    EXPECT_EQ(first.Cell(5, 8), "--");
    EXPECT_EQ(first.Cell(5, 9), "--");
    EXPECT_EQ(first.Cell(3, 1), "Off");  // CPLL selection 010
    EXPECT_EQ(first.Cell(3, 2), "--");
    EXPECT_EQ(first.Cell(3, 3), "--");
}

TEST_F(Table731x, ClocksShowTheLetterOfTheirSource) {
    Make();
    EXPECT_EQ(first.Cell(1, 8), "C");  // CPU on CPLL/2
    EXPECT_EQ(first.Cell(1, 7), "CPLL/2");
    EXPECT_EQ(first.Cell(2, 8), "24.00401");
    EXPECT_EQ(first.Cell(2, 9), "167");
    for (int r = 1; r <= 8; ++r) {
        EXPECT_EQ(second.Cell(r, 2), "S");
        EXPECT_EQ(second.Cell(r, 3), "R");
        EXPECT_EQ(second.Cell(r, 6), "R");
        EXPECT_EQ(second.Cell(r, 7), "S");
    }
    Fields7311::Choose(form.cboClk[3], "UPLL/2");
    Make();
    EXPECT_EQ(second.Cell(1, 5), "U");
    // A CPLL output follows the selection: the actual CPLL frequency over the divisor.
    EXPECT_EQ(second.Cell(2, 1), "50.11363");
    EXPECT_EQ(second.Cell(2, 4), "25.056815");
    EXPECT_EQ(second.Cell(3, 1), "Off");
}

TEST_F(Table731x, SuspendMarksSelectionsAndOutputs) {
    Make();
    for (int r = 1; r <= 8; ++r) EXPECT_EQ(first.Cell(r, 4), "--");
    for (int r = 1; r <= 6; ++r) EXPECT_EQ(first.Cell(r, 10), "--");
    EXPECT_EQ(first.Cell(7, 10), "");
    EXPECT_EQ(first.Cell(8, 10), "");
    form.chkSusClk[1].SetValue(1);
    form.chkSuspendCPLL.SetValue(1);
    Make();
    EXPECT_EQ(first.Cell(3, 10), "--");  // the box counts only with Suspend
    EXPECT_EQ(first.Cell(1, 4), "--");
    form.chkSuspend.SetValue(1);
    Make();
    EXPECT_EQ(first.Cell(3, 10), "Suspend");
    for (int r = 1; r <= 4; ++r) {
        EXPECT_EQ(first.Cell(r, 4), "Suspend");
        EXPECT_EQ(second.Cell(r, 0),
                  mShared::DisplayBinary(static_cast<std::int16_t>(r - 1), 3) + " (Suspend)");
    }
    for (int r = 5; r <= 8; ++r) {
        EXPECT_EQ(first.Cell(r, 4), "--");
        EXPECT_EQ(second.Cell(r, 0), mShared::DisplayBinary(static_cast<std::int16_t>(r - 1), 3));
    }
}

TEST_F(Table731x, ThirtyTwoKilohertzOnlyOnTheQX7311) {
    Make("QX7311I");
    EXPECT_EQ(first.Cell(8, 7), " 32.768 kHz");
    EXPECT_EQ(second.Cell(1, 8), " 32.768 kHz");
    Make("QX7312F");
    EXPECT_EQ(first.Cell(8, 7), "n/a");
    EXPECT_EQ(second.Cell(1, 8), "n/a");
}

TEST(AsciiOutputTable731x, DispatchIsByFamilyAndTheTwoTablesStandOneAfterTheOther) {
    HeadlessPlatform platform;
    ErrorReport errors(platform, [] { return std::string("Pendulon"); });
    Fake7311Window form;
    Apply(kCases[2], form);
    for (const char* device : {"QX7311", "QX7311F", "QX7311I", "QX7312", "QX7312F", "QX7312I"}) {
        const std::string table = mAsciiPrintout::MakeOutputTable(form, device, errors);
        EXPECT_EQ(table.substr(0, 16), "CPLL FREQUENCIES") << device;
        EXPECT_NE(table.find("=\r\n\r\nACTUAL OUTPUT FREQUENCIES\r\n"), std::string::npos);
    }
    EXPECT_TRUE(platform.Messages().empty());
}

}  // namespace
}  // namespace pendulon
