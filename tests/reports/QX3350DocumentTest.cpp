#include <gtest/gtest.h>

#include <vector>

#include "configurators/QX3350TestSupport.hpp"
#include "reports/mAsciiPrintout.hpp"
#include "reports/mAsciiPrintoutDocument.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using testing::Cases3350;
using testing::QX3350Document;

// The documents of the QX3350 golden cases, made from a window set up as a user would; the
// golden files come from tests/data/make_3350_documents.py.
class QX3350DocumentGolden : public ::testing::TestWithParam<std::string> {
  protected:
    std::string Document(const std::string& name, QX3350Document& doc) {
        const auto& c = Cases3350().at(name);
        frmQX3350& form = doc.Form();
        testing::ConfigureCase(form, c);
        form.txtFilePath.SetText("C:\\designs\\" + name + ".ent");
        mAsciiPrintout::DocumentSources sources;
        sources.SummaryInfo =
            name == "QX3350_SC" ? "Modification Date: Jan/02/2002\r\nComments: Golden document\r\n"
                                  "Customer: Test customer\r\nFAE: Test engineer\r\n"
                                : "Modification Date: Jan/02/2002\r\nComments: \r\nCustomer: "
                                  "\r\nFAE: \r\n";
        sources.Revision = c.revision;
        sources.Checksum = form.Checksum();
        sources.Title = "Pendulon(tm) 3.71";
        sources.Build = "Build #: 3.71.10";
        sources.PinName = [&form](int i) { return form.PinName(i); };
        return mAsciiPrintout::GetASCIIDocument(form, form.Device(), sources, doc.app->Errors());
    }
};

std::string GoldenName(std::string name) {
    for (char& ch : name) ch = ch == '_' ? '-' : static_cast<char>(std::tolower(ch));
    return "ascii-" + name + ".txt";
}

TEST_P(QX3350DocumentGolden, DocumentMatchesGoldenByteForByte) {
    QX3350Document doc(Cases3350().at(GetParam()).device);
    doc.platform.ClearMessages();
    const std::string document = Document(GetParam(), doc);
    EXPECT_EQ(document, test::ReadFile(test::DataPath(GoldenName(GetParam()))));
    EXPECT_TRUE(doc.platform.Messages().empty()) << doc.MessageTexts();
}

INSTANTIATE_TEST_SUITE_P(Cases, QX3350DocumentGolden,
                         ::testing::Values("QX3350_SC", "QX3350_TZ", "QX3350I_SC", "QX3350I_TZ"));

TEST(QX3350Document, PartNumberCarriesPackageAndVariantLetters) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, "QX3350", "01"), "qx3350sc-01");
    form.optTSSOP.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, "QX3350", ""), "qx3350zc");
    form.opt3V.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, "QX3350", "2"), "qx3350zl-2");
    EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, "QX3350I", "2"), "qx3350zi-2");
    form.optSOIC.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::GetPartNumber(form, "QX3350I", ""), "qx3350si");
}

TEST(QX3350Document, OptionLinesFollowTheWindow) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLL, "133.333");
    EXPECT_EQ(mAsciiPrintout::GetOptions(form),
              "PLL: Desired = 133.333\r\nPD/OE: PD\r\nASYNC/SYNC: ASYNCH\r\n");
    form.optOutputEnable.SetValue(true);
    form.chkSynchronous.SetValue(1);
    EXPECT_EQ(mAsciiPrintout::GetOptions(form),
              "PLL: Desired = 133.333\r\nPD/OE: OE\r\nASYNC/SYNC: SYNCH\r\n");
}

TEST(QX3350Document, OutputTableOfAnOffOutput) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    QX3350Document::Pick(form.cboClockDivisors, "Off");
    form.cmdCalculate_Click();
    const std::string table = mAsciiPrintout::MakeOutputTable(form);
    // With the PLL off the Actual cell shows "--", as the PPM cell does.
    EXPECT_EQ(table,
              "OUTPUT CLK\r\n"
              "=============================================================\r\n"
              "|         |         |   Desired    |    Actual    |   PPM   |\r\n"
              "=============================================================\r\n"
              "| CLKOUT  | (Off)   | Off          | --           | --      |\r\n"
              "=============================================================\r\n");
    EXPECT_TRUE(doc.platform.Messages().empty()) << doc.MessageTexts();
}

TEST(QX3350Document, OutputTableOfAPLLOutputWithItsPPM) {
    QX3350Document doc;
    frmQX3350& form = doc.Form();
    doc.Type(form.txtPLL, "100");
    QX3350Document::Pick(form.cboClockDivisors, "PLL/4");
    form.cmdCalculate_Click();
    testing::FillList(form.cboActual, {"24.99990  PPM:-4"}, 0);
    EXPECT_EQ(mAsciiPrintout::MakeTable3350(form, doc.app->Errors()),
              "OUTPUT CLK\r\n"
              "=============================================================\r\n"
              "|         |         |   Desired    |    Actual    |   PPM   |\r\n"
              "=============================================================\r\n"
              "| CLKOUT  | (PLL/4) | 25.00000     | 24.99990     | -4      |\r\n"
              "=============================================================\r\n");
}

TEST(QX3350Document, PinTableOfBothPin4Functions) {
    std::vector<std::string> pins;
    mAsciiPrintout::GetPinout3350(pins, "oe");
    EXPECT_EQ(pins, (std::vector<std::string>{"8", "VDD", "XTALOUT", "XTALIN", "OE", "VSS",
                                              "CLKOUT", "NC", "NC"}));
    mAsciiPrintout::GetPinout3350(pins, "PD");
    EXPECT_EQ(pins[4], "PD");
}

}  // namespace
}  // namespace pendulon
