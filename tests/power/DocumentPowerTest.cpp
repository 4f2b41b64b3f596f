#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "configurators/QX6105ATestSupport.hpp"
#include "configurators/frmQX4860TestSupport.hpp"
#include "core/Numbers.hpp"
#include "power/frmPower.hpp"

// The power table as the real document windows fill it, with every figure worked out by hand:
// I = 2.25 + 0.055 x ref + 0.02 x FCore + 0.0017 x C x (F1 + F2 + F3), times V;
// typical V 5.0 / C 18 and worst V 5.5 / C 30 at 5 V; typical 3.3 / 18 and worst 4.0 / 30 at
// 3.3 V. The painted cells are whole milliamperes.

namespace pendulon {
namespace {

using testing::QX4860Document;
using testing::QX6105ADocument;

// The texts painted on the document's picPower, in drawing order.
std::vector<std::string> PaintedTexts(Configurator& form) {
    std::vector<std::string> texts;
    for (const DrawOp& op : form.picPower.DisplayList())
        if (op.type == DrawOp::Type::Text)
            texts.push_back(op.text);
    return texts;
}

bool Painted(Configurator& form, const std::string& text) {
    const auto texts = PaintedTexts(form);
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

void ExpectWorstAboveTypical(frmPower& power) {
    for (int r = 0; r < power.RowCount(); ++r) {
        EXPECT_GT(Val(power.Cell(r, 2)), Val(power.Cell(r, 1))) << "row " << r;
    }
}

TEST(QX6105APowerTable, FrequencySelectAtFiveVoltsReadsOverlappingOutputs) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    doc.TypeReference("10");
    form.optFS.SetValue(true);
    QX6105ADocument::Pick(form.cboClkDiv[0], "PLL/2");
    QX6105ADocument::Pick(form.cboClkDiv[1], "PLL");
    QX6105ADocument::Pick(form.cboClkDiv[2], "PLL/4");
    doc.Type(form.txtPLL[0], "100");
    doc.Type(form.txtPLL[1], "50");
    form.cmdCalculate_Click();
    // State 0 runs the VCO at 100 MHz; state 1 asks 50 MHz, below half the VCO maximum, so
    // its VCO runs at twice that.
    ASSERT_EQ(form.cboPLLData[0].Text(), "100.000000 P:15 Q:3");
    ASSERT_EQ(form.cboPLLData[1].Text(), "100.000000 P:15 Q:3");
    // Outputs 0..2 of state 0: 50, 100, 25; outputs 3..5 of state 1: 25, 50, 12.5.
    ASSERT_EQ(Val(form.cboActual[0].Text()), 50);
    ASSERT_EQ(Val(form.cboActual[1].Text()), 100);
    ASSERT_EQ(Val(form.cboActual[2].Text()), 25);
    ASSERT_EQ(Val(form.cboActual[3].Text()), 25);
    ASSERT_EQ(Val(form.cboActual[4].Text()), 50);
    ASSERT_EQ(Val(form.cboActual[5].Text()), 12.5);

    frmPower& power = doc.app->Power();
    EXPECT_EQ(power.RowCount(), 2);
    EXPECT_EQ(power.Head(0), "  FS");
    EXPECT_EQ(power.Head(1), "Typical");
    EXPECT_EQ(power.Head(2), " Worst");
    EXPECT_EQ(power.Unit(0), "");
    EXPECT_EQ(power.Unit(1), "mA ");
    EXPECT_EQ(power.Unit(2), "mA ");
    // Widths 5, 8 and 7.
    EXPECT_EQ(power.HeadingLine(), "   FS Typical  Worst");
    ASSERT_EQ(power.lstPower.ListCount(), 2);
    // Row 0: outputs 0, 1, 2 = 50 + 100 + 25 = 175; base 2.25 + 0.055 x 10 + 0.02 x 100 = 4.8.
    //   typical (4.8 + 0.0017 x 18 x 175 = 4.8 + 5.355 = 10.155) x 5.0 = 50.775 -> 51
    //   worst   (4.8 + 0.0017 x 30 x 175 = 4.8 + 8.925 = 13.725) x 5.5 = 75.4875 -> 75
    EXPECT_EQ(power.lstPower.List(0), "    0   51mA   75mA ");
    // Row 1: outputs 2, 3, 4 (output 2 belongs to state 0, the overlap is kept)
    //   = 25 + 25 + 50 = 100, not the 25 + 50 + 12.5 of state 1's own outputs.
    //   typical (4.8 + 0.0306 x 100 = 7.86) x 5.0 = 39.3 -> 39
    //   worst   (4.8 + 0.051 x 100 = 9.9) x 5.5 = 54.45 -> 54
    EXPECT_EQ(power.lstPower.List(1), "    1   39mA   54mA ");
    EXPECT_EQ(power.lblFootnote.Caption(), "Typical: 5.0V 18pF Load\r\n   Worst: 5.5V 30pF Load");
    EXPECT_TRUE(power.lblFootnote.Visible());
    // The same lines are what the document's picPower shows.
    EXPECT_TRUE(Painted(form, "   FS Typical  Worst"));
    EXPECT_TRUE(Painted(form, "    0   51mA   75mA "));
    EXPECT_TRUE(Painted(form, "    1   39mA   54mA "));
    ExpectWorstAboveTypical(power);
}

TEST(QX6105APowerTable, OutputEnableAtThreeVoltsHasOneUnlabelledRow) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    form.opt3V.SetValue(true);
    doc.TypeReference("10");
    ASSERT_TRUE(form.optOE.Value());
    QX6105ADocument::Pick(form.cboClkDiv[0], "PLL/2");
    QX6105ADocument::Pick(form.cboClkDiv[1], "PLL");
    QX6105ADocument::Pick(form.cboClkDiv[2], "Off");
    doc.Type(form.txtPLL[0], "80");
    form.cmdCalculate_Click();
    ASSERT_EQ(Val(form.cboPLLData[0].Text()), 80);
    ASSERT_EQ(Val(form.cboActual[0].Text()), 40);
    ASSERT_EQ(Val(form.cboActual[1].Text()), 80);
    // An output that is off reads "Off", which counts as 0.
    ASSERT_EQ(form.cboActual[2].Text(), "Off");

    frmPower& power = doc.app->Power();
    EXPECT_EQ(power.RowCount(), 1);
    EXPECT_EQ(power.Head(0), "");
    EXPECT_EQ(power.Cell(0, 0), "");
    // Widths 1, 8 and 7.
    EXPECT_EQ(power.HeadingLine(), "  Typical  Worst");
    ASSERT_EQ(power.lstPower.ListCount(), 1);
    // 40 + 80 + 0 = 120; base 2.25 + 0.055 x 10 + 0.02 x 80 = 4.4.
    //   typical (4.4 + 0.0306 x 120 = 4.4 + 3.672 = 8.072) x 3.3 = 26.6376 -> 27
    //   worst   (4.4 + 0.051 x 120 = 4.4 + 6.12 = 10.52) x 4.0 = 42.08 -> 42
    EXPECT_EQ(power.lstPower.List(0), "    27mA   42mA ");
    EXPECT_EQ(power.lblFootnote.Caption(), "Typical: 3.3V 18pF Load\r\n   Worst: 3.6V 30pF Load");
    ExpectWorstAboveTypical(power);
}

TEST(QX4860PowerTable, FourteenPinsAtFiveVoltsHasSixteenRowsInFourBits) {
    QX4860Document doc;
    doc.UsePLL("PLL/2", "PLL");
    frmQX4860& form = doc.Form();
    ASSERT_TRUE(form.opt14Pin.Value());
    doc.Type(form.txtPLL[0], "80");
    doc.Type(form.txtPLL[1], "50");
    doc.Calculate();
    ASSERT_EQ(Val(form.cboPLLData[0].Text()), 160);
    ASSERT_EQ(Val(form.cboPLLData[1].Text()), 100);
    ASSERT_EQ(Val(form.cboActualClkA[0].Text()), 40);
    ASSERT_EQ(Val(form.cboActualRefClk[0].Text()), 80);
    ASSERT_EQ(Val(form.cboActualClkA[1].Text()), 25);
    ASSERT_EQ(Val(form.cboActualRefClk[1].Text()), 50);

    frmPower& power = doc.app->Power();
    EXPECT_EQ(power.RowCount(), 16);
    // Widths 8, 8 and 6.
    EXPECT_EQ(power.HeadingLine(), " FS3:FS0 Typical Worst");
    ASSERT_EQ(power.lstPower.ListCount(), 16);
    // Row 0: reference 20, VCO 160, clocks 40 + 80 + 0 = 120; base 2.25 + 1.1 + 3.2 = 6.55.
    //   typical (6.55 + 0.0306 x 120 = 6.55 + 3.672 = 10.222) x 5.0 = 51.11 -> 51
    //   worst   (6.55 + 0.051 x 120 = 6.55 + 6.12 = 12.67) x 5.5 = 69.685 -> 70
    EXPECT_EQ(power.lstPower.List(0), "   0000    51mA   70mA");
    EXPECT_TRUE(Painted(form, "   0000    51mA   70mA"));
    // Row 1: VCO 100, clocks 25 + 50 = 75; base 2.25 + 1.1 + 2.0 = 5.35.
    //   typical (5.35 + 0.0306 x 75 = 5.35 + 2.295 = 7.645) x 5.0 = 38.225 -> 38
    //   worst   (5.35 + 0.051 x 75 = 5.35 + 3.825 = 9.175) x 5.5 = 50.4625 -> 50
    EXPECT_EQ(power.lstPower.List(1), "   0001    38mA   50mA");
    EXPECT_EQ(power.Cell(10, 0), "1010 ");
    EXPECT_EQ(power.lblFootnote.Caption(), "Typical: 5.0V 18pF Load\r\n   Worst: 5.5V 30pF Load");
    ExpectWorstAboveTypical(power);
}

TEST(QX4860PowerTable, EightPinsAtThreeVoltsHasFourRowsInTwoBits) {
    QX4860Document doc("QX4860F");
    doc.UsePLL("PLL/2", "PLL");
    frmQX4860& form = doc.Form();
    form.opt8Pin.SetValue(true);
    form.opt3V.SetValue(true);
    doc.Type(form.txtPLL[0], "40");
    doc.Calculate();
    ASSERT_EQ(Val(form.cboPLLData[0].Text()), 80);
    ASSERT_EQ(Val(form.cboActualClkA[0].Text()), 20);
    ASSERT_EQ(Val(form.cboActualRefClk[0].Text()), 40);

    frmPower& power = doc.app->Power();
    EXPECT_EQ(power.RowCount(), 4);
    EXPECT_EQ(power.Head(0), "FS1:FS0");
    // Widths 8, 8 and 6.
    EXPECT_EQ(power.HeadingLine(), " FS1:FS0 Typical Worst");
    ASSERT_EQ(power.lstPower.ListCount(), 4);
    // Two bits, then three blanks.
    EXPECT_EQ(power.Cell(0, 0), "00   ");
    EXPECT_EQ(power.Cell(3, 0), "11   ");
    // Reference 20, VCO 80, clocks 20 + 40 = 60; base 2.25 + 1.1 + 1.6 = 4.95.
    //   typical (4.95 + 0.0306 x 60 = 4.95 + 1.836 = 6.786) x 3.3 = 22.3938 -> 22
    //   worst   (4.95 + 0.051 x 60 = 4.95 + 3.06 = 8.01) x 4.0 = 32.04 -> 32
    EXPECT_EQ(power.lstPower.List(0), "   00      22mA   32mA");
    EXPECT_EQ(power.lblFootnote.Caption(), "Typical: 3.3V 18pF Load\r\n   Worst: 3.6V 30pF Load");
    ExpectWorstAboveTypical(power);
}

}  // namespace
}  // namespace pendulon
