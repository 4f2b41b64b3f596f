#include <gtest/gtest.h>

#include <vector>

#include "core/Numbers.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "reports/FakeForms.hpp"
#include "reports/mAsciiPrintout.hpp"
#include "reports/mAsciiPrintoutDocument.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using test::Fake4860Form;
using test::Fake6105AForm;
using test::Select;

class AsciiDocumentGolden : public ::testing::Test {
  protected:
    AsciiDocumentGolden() : errors(platform, [] { return std::string("Pendulon(tm) 3.71"); }) {
        platform.SetNow(DateTime{2002, 1, 2, 3, 4, 5});
    }

    // The summary block as the summary window gives it, dated by the platform's clock.
    std::string Summary(const std::string& comments, const std::string& customer,
                        const std::string& fae) {
        return "Modification Date: " + FormatDate(platform.Now()) + "\r\nComments: " + comments +
               "\r\nCustomer: " + customer + "\r\nFAE: " + fae + "\r\n";
    }

    mAsciiPrintout::DocumentSources Sources(std::vector<std::string> pins,
                                            const std::string& summary, const std::string& revision,
                                            const std::string& checksum) {
        mAsciiPrintout::DocumentSources sources;
        sources.SummaryInfo = summary;
        sources.Revision = revision;
        sources.Checksum = checksum;
        sources.Title = "Pendulon(tm) 3.71";
        sources.Build = "Build #: 3.71.10";
        sources.PinName = [pins](int i) {
            return i >= 0 && i < static_cast<int>(pins.size()) ? pins[i] : std::string();
        };
        return sources;
    }

    void ExpectGolden(const std::string& document, const std::string& goldenName) {
        const std::string golden = test::ReadFile(test::DataPath(goldenName));
        EXPECT_EQ(document, golden);
        EXPECT_EQ(platform.Messages().size(), 0u) << "no error may be reported";
    }

    HeadlessPlatform platform;
    ErrorReport errors;
};

TEST_F(AsciiDocumentGolden, QX6105AWithFrequencySelect) {
    Fake6105AForm form;
    form.optFS.SetValue(true);
    form.opt5V.SetValue(true);
    form.txtFilePath.SetText("C:\\designs\\demo6105.ent");
    form.cboFRef.AddItem("14.31818 MHz");
    form.cboFRef.AddItem("25.00000 MHz");
    form.cboFRef.SetListIndex(1);
    SetFrequencySelectExample(form);
    form.chkSmoothSlew.SetValue(1);
    std::vector<std::string> pins;
    mAsciiPrintout::GetPinout6105A(pins, "Select");

    const std::string document = mAsciiPrintout::GetASCIIDocument(
        form, "QX6105A",
        Sources(pins, Summary("Golden document", "Test customer", "Test engineer"), "01", "1A2B"),
        errors);
    ExpectGolden(document, "ascii-6105a-fs.txt");
}

TEST_F(AsciiDocumentGolden, QX6105AFWithOutputEnable) {
    Fake6105AForm form;
    form.optOE.SetValue(true);
    form.opt3V.SetValue(true);
    Select(form.cboFRef, "20.00000 MHz");
    form.txtPLL[0].SetText("100");
    form.txtPLL[1].SetText("N/A");
    Select(form.cboClkDiv[0], "PLL/2");
    Select(form.cboClkDiv[1], "Ref/2");
    Select(form.cboClkDiv[2], "Off");
    Select(form.cboActual[0], "50.00000    PPM:0");
    Select(form.cboActual[1], "10.00000    PPM:0");
    Select(form.cboActual[2], "Off");
    std::vector<std::string> pins;
    mAsciiPrintout::GetPinout6105A(pins, "OE");

    const std::string document = mAsciiPrintout::GetASCIIDocument(
        form, "QX6105AF", Sources(pins, Summary("", "", ""), "", "n/a"), errors);
    ExpectGolden(document, "ascii-6105a-oe.txt");
}

TEST_F(AsciiDocumentGolden, QX4860WithFourteenPins) {
    Fake4860Form form;
    form.opt14Pin.SetValue(true);
    form.opt5V.SetValue(true);
    form.chkPLLStop.SetValue(1);
    form.txtFilePath.SetText("C:\\work\\board14.ent");
    Select(form.cboFRef, "14.31818 MHz");
    for (int i = 0; i < 16; ++i) {
        form.txtPLL[i].SetText("100");
        form.lblDesiredClkA[i].SetCaption(" 50.00000");
        Select(form.cboActualClkA[i], "50.00000    PPM:0");
        form.lblDesiredRefClk[i].SetCaption(" 14.31818");
        Select(form.cboActualRefClk[i], "14.31818    PPM:0");
    }
    form.txtPLL[5].SetText("66.6");
    form.lblDesiredClkA[5].SetCaption(" 33.30000");
    Select(form.cboActualClkA[5], "33.29956    PPM:-13");
    form.txtPLL[15].SetText("133.333333");
    form.lblDesiredClkA[15].SetCaption(" 66.66667");
    Select(form.cboActualClkA[15], "66.66667    PPM:0");
    std::vector<std::string> pins;
    mAsciiPrintout::GetPinout4860p14(pins, "powerdown");

    const std::string document = mAsciiPrintout::GetASCIIDocument(
        form, "QX4860",
        Sources(pins, Summary("Sixteen selections", "Test customer", "Test engineer"), "02",
                "7E3C"),
        errors);
    ExpectGolden(document, "ascii-4860-14pin.txt");
}

TEST_F(AsciiDocumentGolden, QX4860FWithEightPins) {
    Fake4860Form form;
    form.opt8Pin.SetValue(true);
    form.opt3V.SetValue(true);
    form.chkSmoothSlew.SetValue(1);
    form.txtFilePath.SetText("/home/user/clock8.ent");
    Select(form.cboFRef, "16.00000 MHz");
    const char* plls[] = {"48", "60", "72", "96"};
    const char* actuals[] = {"48.00000    PPM:0", "60.00000    PPM:0", "72.00010    PPM:1",
                             "96.00000    PPM:0"};
    for (int i = 0; i < 4; ++i) {
        form.txtPLL[i].SetText(plls[i]);
        form.lblDesiredClkA[i].SetCaption(" " + FormatNumber(Val(plls[i]), "##0.00000"));
        Select(form.cboActualClkA[i], actuals[i]);
        form.lblDesiredRefClk[i].SetCaption(" Off");
        Select(form.cboActualRefClk[i], "Off");
    }
    std::vector<std::string> pins;
    mAsciiPrintout::GetPinout4860p8(pins, "");

    const std::string document = mAsciiPrintout::GetASCIIDocument(
        form, "QX4860F",
        Sources(pins, Summary("Four selections", "Test customer", "Test engineer"), "", "00FF"),
        errors);
    ExpectGolden(document, "ascii-4860-8pin.txt");
}

TEST_F(AsciiDocumentGolden, EveryLineOfTheDocumentEndsInCrLf) {
    Fake6105AForm form;
    form.optOE.SetValue(true);
    Select(form.cboFRef, "20.00000 MHz");
    std::vector<std::string> pins;
    mAsciiPrintout::GetPinout6105A(pins, "OE");
    const std::string document = mAsciiPrintout::GetASCIIDocument(
        form, "QX6105A", Sources(pins, Summary("", "", ""), "", "n/a"), errors);
    ASSERT_FALSE(document.empty());
    for (size_t i = 0; i < document.size(); ++i) {
        if (document[i] == '\n') {
            EXPECT_TRUE(i > 0 && document[i - 1] == '\r') << "bare line feed at " << i;
        }
        if (document[i] == '\r') {
            EXPECT_TRUE(i + 1 < document.size() && document[i + 1] == '\n') << i;
        }
    }
}

TEST_F(AsciiDocumentGolden, DeviceWithoutATableRaisesInvalidDeviceAndTheRestStays) {
    Fake6105AForm form;
    form.opt5V.SetValue(true);
    Select(form.cboFRef, "20.00000 MHz");
    std::vector<std::string> pins;
    mAsciiPrintout::GetPinout5140(pins, "OE");
    const std::string document = mAsciiPrintout::GetASCIIDocument(
        form, "QX9999", Sources(pins, Summary("", "", ""), "", "n/a"), errors);
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(
        platform.Messages()[0].Text,
        ErrorReport::Text(10301, "(mAsciiPrinout) MakeOutputTable", "Invalid device: QX9999"));
    EXPECT_NE(document.find("P/N: \r\n"), std::string::npos);
    // The table is missing; the lines behind it are still there.
    EXPECT_NE(document.find("Operating Voltage: 5.0V\r\n"), std::string::npos);
    EXPECT_NE(document.find("\r\n\r\nEntry File: \r\nCHECKSUM: n/a\r\n"), std::string::npos);
}

TEST(AsciiOutputTable, DispatchesByFamilyAndRefusesOthers) {
    HeadlessPlatform platform;
    ErrorReport errors(platform, [] { return std::string("Pendulon"); });
    Fake6105AForm form6105;
    form6105.optOE.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::MakeOutputTable(form6105, "QX6105AI", errors).substr(0, 12),
              "OUTPUT CLK\r\n");
    Fake4860Form form4860;
    form4860.opt8Pin.SetValue(true);
    EXPECT_EQ(mAsciiPrintout::MakeOutputTable(form4860, "QX4860I", errors).substr(0, 10),
              "==========");
    EXPECT_TRUE(platform.Messages().empty());
    for (const char* device : {"QX9999", ""}) {
        EXPECT_EQ(mAsciiPrintout::MakeOutputTable(form6105, device, errors), "") << device;
        EXPECT_EQ(errors.LastNumber(), 10301);
        EXPECT_NE(platform.Messages().back().Text.find(std::string("Invalid device: ") + device),
                  std::string::npos);
    }
    EXPECT_EQ(platform.Messages().size(), 2u);
}

}  // namespace
}  // namespace pendulon
