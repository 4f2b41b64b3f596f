#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "graphics/clsGraphics.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/Label.hpp"
#include "platform/PictureBox.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"
#include "shell/Application.hpp"

namespace pendulon {
namespace {

using Type = DrawOp::Type;

class PanelForm : public Window {
  public:
    PanelForm() : Window("frmPanel") { Register("lblPanel", lblPanel); }
    Label lblPanel;
    TextField txtOther;
};

class GraphicsTest : public ::testing::Test {
  protected:
    HeadlessPlatform platform;
    ErrorReport errors{platform, [] { return std::string("Pendulon(tm)"); }};

    static std::vector<DrawOp> OfType(const PictureBox& pic, Type type) {
        std::vector<DrawOp> result;
        for (const auto& op : pic.DisplayList())
            if (op.type == type)
                result.push_back(op);
        return result;
    }
    static const DrawOp* TextOp(const PictureBox& pic, const std::string& text) {
        for (const auto& op : pic.DisplayList())
            if (op.type == Type::Text && op.text == text)
                return &op;
        return nullptr;
    }
    // Boxes filled white: the pins.
    static std::vector<DrawOp> Pins(const PictureBox& pic, double height) {
        std::vector<DrawOp> result;
        for (const auto& op : OfType(pic, Type::FilledBox))
            if (op.fillColor == colors::White && op.y2 - op.y1 == height)
                result.push_back(op);
        return result;
    }
    static bool Whole(double value, int pixel) {
        return std::fmod(value, static_cast<double>(pixel)) == 0.0;
    }
};

std::vector<std::string> EightPins() {
    return {"8", "OE", "CLKA", "GND", "XTALIN", "XTALOUT", "CLKB", "CLKC", "VDD"};
}

// --- Panels ---------------------------------------------------------------------------------

TEST_F(GraphicsTest, PanelIsFilledAndFramedHighlightTopLeftShadowBottomRight) {
    clsGraphics graphics(errors, 15, 15);
    PanelForm form;
    form.lblPanel.Move(100, 200, 1500, 300);
    form.lblPanel.SetFont("Arial", 10);
    form.lblPanel.SetCaption("QX7311");
    form.lblPanel.SetAlignment(2);
    form.lblPanel.SetForeColor(0x123456);
    PictureBox surface;
    graphics.DrawPanel3D(surface, &form, &form.lblPanel);
    EXPECT_TRUE(platform.Messages().empty());
    const auto& ops = surface.DisplayList();
    ASSERT_EQ(ops.size(), 6u);
    // Width and height lose one pixel each: 1485 by 285.
    EXPECT_EQ(ops[0].type, Type::FilledBox);
    EXPECT_EQ(ops[0].fillColor, colors::ButtonFace);
    EXPECT_DOUBLE_EQ(ops[0].x2, 1585);
    EXPECT_DOUBLE_EQ(ops[0].y2, 485);
    EXPECT_EQ(ops[1].color, colors::Highlight3D);  // top
    EXPECT_DOUBLE_EQ(ops[1].y1, 200);
    EXPECT_DOUBLE_EQ(ops[1].y2, 200);
    EXPECT_EQ(ops[2].color, colors::Highlight3D);  // left
    EXPECT_DOUBLE_EQ(ops[2].x2, 100);
    EXPECT_EQ(ops[3].color, colors::ButtonShadow);  // bottom
    EXPECT_DOUBLE_EQ(ops[3].y1, 485);
    EXPECT_EQ(ops[4].color, colors::ButtonShadow);  // right
    EXPECT_DOUBLE_EQ(ops[4].x1, 1585);
    // Caption: Arial 10 is 110 twips a character and 240 high in the headless measure.
    EXPECT_EQ(ops[5].type, Type::Text);
    EXPECT_EQ(ops[5].text, "QX7311");
    EXPECT_EQ(ops[5].color, 0x123456u);
    EXPECT_EQ(ops[5].font.Name, "Arial");
    EXPECT_DOUBLE_EQ(ops[5].x1, (1485.0 - 660.0) / 2 + 100);
    EXPECT_DOUBLE_EQ(ops[5].y1, (285.0 - 240.0) / 2 + 200);
}

TEST_F(GraphicsTest, PanelCaptionFollowsTheLabelAlignment) {
    clsGraphics graphics(errors, 15, 15);
    PanelForm form;
    form.lblPanel.Move(100, 200, 1500, 300);
    form.lblPanel.SetFont("Arial", 10);
    form.lblPanel.SetCaption("QX7311");
    PictureBox surface;
    form.lblPanel.SetAlignment(0);
    graphics.DrawPanel3D(surface, &form, &form.lblPanel);
    EXPECT_DOUBLE_EQ(surface.DisplayList().back().x1, 100);
    form.lblPanel.SetAlignment(1);
    graphics.DrawPanel3D(surface, &form, &form.lblPanel);
    EXPECT_DOUBLE_EQ(surface.DisplayList().back().x1, 100 + 1485 - 660);
}

TEST_F(GraphicsTest, InsetPanelSwapsTheEdgeColours) {
    clsGraphics graphics(errors, 15, 15);
    PanelForm form;
    form.lblPanel.Move(0, 0, 600, 300);
    PictureBox surface;
    const clsGraphics::Variant inset(true);
    graphics.DrawPanel3D(surface, &form, &form.lblPanel, inset);
    const auto& ops = surface.DisplayList();
    EXPECT_EQ(ops[1].color, colors::ButtonShadow);
    EXPECT_EQ(ops[2].color, colors::ButtonShadow);
    EXPECT_EQ(ops[3].color, colors::Highlight3D);
    EXPECT_EQ(ops[4].color, colors::Highlight3D);
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(GraphicsTest, PanelWithInsetThatIsNotBooleanRaises10501) {
    clsGraphics graphics(errors, 15, 15);
    PanelForm form;
    form.lblPanel.Move(0, 0, 600, 300);
    PictureBox surface;
    graphics.DrawPanel3D(surface, &form, &form.lblPanel, clsGraphics::Variant{std::string("x")});
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(platform.Messages()[0].Text,
              ErrorReport::Text(10501, "clsGraphics.DrawPanel3D",
                                "Invalid value for variable 'varInset': x"));
    // The panel is still drawn, raised.
    ASSERT_EQ(surface.DisplayList().size(), 6u);
    EXPECT_EQ(surface.DisplayList()[1].color, colors::Highlight3D);

    const clsGraphics::Variant notBoolean(1.5);
    graphics.DrawPanel3D(surface, &form, &form.lblPanel, notBoolean);
    EXPECT_EQ(platform.Messages().back().Text,
              ErrorReport::Text(10501, "clsGraphics.DrawPanel3D",
                                "Invalid value for variable 'varInset': 1.5"));
}

TEST_F(GraphicsTest, PanelRefusesObjectsOfTheWrongKind) {
    clsGraphics graphics(errors, 15, 15);
    PanelForm form;
    PictureBox surface;
    graphics.DrawPanel3D(surface, &form.lblPanel, &form.lblPanel);
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_NE(platform.Messages()[0].Text.find("Invalid object type in parameter list (frmObject)"),
              std::string::npos);
    graphics.DrawPanel3D(surface, &form, &form.txtOther);
    ASSERT_EQ(platform.Messages().size(), 2u);
    EXPECT_NE(platform.Messages()[1].Text.find("Invalid object type in parameter list (lblObject)"),
              std::string::npos);
    graphics.DrawPanel3D(surface, &form, clsGraphics::Object{&form});
    EXPECT_EQ(platform.Messages().size(), 3u);
    EXPECT_TRUE(surface.DisplayList().empty());
}

// --- Boxes ----------------------------------------------------------------------------------

TEST_F(GraphicsTest, BoxOfZeroWidthOrHeightDrawsNothing) {
    clsGraphics graphics(errors, 15, 15);
    PictureBox pic;
    graphics.DrawBox3D(pic, 10, 10, 0, 100, 1, 2, 3);
    graphics.DrawBox3D(pic, 10, 10, 100, 0, 1, 2, 3);
    EXPECT_TRUE(pic.DisplayList().empty());
    graphics.DrawBox3D(pic, 10, 20, 100, 50, 1, 2, 3);
    const auto& ops = pic.DisplayList();
    ASSERT_EQ(ops.size(), 5u);
    EXPECT_EQ(ops[0].type, Type::FilledBox);
    EXPECT_EQ(ops[0].fillColor, 1u);
    EXPECT_DOUBLE_EQ(ops[0].x2, 110);
    EXPECT_DOUBLE_EQ(ops[0].y2, 70);
    EXPECT_EQ(ops[1].color, 2u);
    EXPECT_EQ(ops[2].color, 2u);
    EXPECT_EQ(ops[3].color, 3u);
    EXPECT_EQ(ops[4].color, 3u);
}

// --- Chip -----------------------------------------------------------------------------------

TEST_F(GraphicsTest, ChipMetricsAtScaleOneAndSquarePixels) {
    clsGraphics graphics(errors, 15, 15);
    PictureBox pic;
    pic.Move(0, 0, 4500, 3000);
    graphics.DrawChip(pic, "QX6105A", EightPins(), 1.0);
    EXPECT_EQ(graphics.DepthX(), 60);  // 60 / 15 = 4 pixels
    EXPECT_EQ(graphics.DepthY(), 30);  // 2 pixels
    EXPECT_EQ(graphics.PinEdge(), 30);
    // Pins: 230 / 15 = 15.33 gives 15 pixels long. 105 / 15 = 7 pixels high, but a line of
    // Arial 9 is 216 twips, 14.4 pixels, so 15: two pin heights hold it at 8 pixels, 120.
    const auto pins = Pins(pic, 120);
    ASSERT_EQ(pins.size(), 8u);
    EXPECT_DOUBLE_EQ(pins[0].x2 - pins[0].x1, 225);
    // Rows are two pin heights apart: no two names overlap.
    EXPECT_DOUBLE_EQ(pins[2].y1 - pins[0].y1, 240);
    EXPECT_GE(pins[2].y1 - pins[0].y1, 216);
    EXPECT_EQ(pic.Font().Name, "Arial");
    EXPECT_DOUBLE_EQ(pic.Font().Size, 9);
}

TEST_F(GraphicsTest, ChipBodyIsCentredAndSizedFromTheText) {
    clsGraphics graphics(errors, 15, 15);
    PictureBox pic;
    pic.Move(0, 0, 4500, 3000);
    graphics.DrawChip(pic, "QX6105A", EightPins(), 1.0);
    // Arial 9: 99 twips a character. Width 396 + 693 + two blanks 198 + 180 = 1467, 97.8
    // pixels, so 98 = 1470; at least 1200. Height 4 x 240 - 120 + 180 = 1020.
    const auto boxes = OfType(pic, Type::FilledBox);
    ASSERT_GE(boxes.size(), 2u);
    const DrawOp& shadow = boxes[0];
    const DrawOp& body = boxes[1];
    EXPECT_EQ(shadow.fillColor, colors::ButtonShadow);
    EXPECT_EQ(body.fillColor, colors::ButtonFace);
    EXPECT_DOUBLE_EQ(body.x2 - body.x1, 1470);
    EXPECT_DOUBLE_EQ(body.y2 - body.y1, 1020);
    // Left: (4500 - 1470) / 2 = 1515, whole pixels. Top: 990, less P = 30.
    EXPECT_DOUBLE_EQ(body.x1, 1515);
    EXPECT_DOUBLE_EQ(body.y1, 960);
    EXPECT_DOUBLE_EQ(shadow.x1, 1515 + 60);
    EXPECT_DOUBLE_EQ(shadow.y1, 960 + 30);
    // The name stands in the middle of the body, a blank clear of the widest numbers.
    const DrawOp* name = TextOp(pic, "QX6105A");
    ASSERT_NE(name, nullptr);
    EXPECT_DOUBLE_EQ(name->x1, 1515 + (1470 - 693) / 2.0);
    EXPECT_DOUBLE_EQ(name->y1, 960 + (1020 - 216) / 2.0);
    EXPECT_GE(name->x1, 1515 + 90 + 2 * 99 + 99);
}

TEST_F(GraphicsTest, ChipKeepsPinOrderNumbersAndNamePositions) {
    clsGraphics graphics(errors, 15, 15);
    PictureBox pic;
    pic.Move(0, 0, 4500, 3000);
    graphics.DrawChip(pic, "QX6105A", EightPins(), 1.0);
    const double left = 1515, width = 1470, pinLength = 225, margin = 90, pin = 120;
    const double firstY = 960 + margin;
    const auto names = EightPins();
    for (int i = 1; i <= 4; ++i) {
        const double y = firstY + (i - 1) * 2 * pin;
        const DrawOp* leftNumber = TextOp(pic, std::to_string(i));
        const DrawOp* rightNumber = TextOp(pic, std::to_string(9 - i));
        ASSERT_NE(leftNumber, nullptr);
        ASSERT_NE(rightNumber, nullptr);
        EXPECT_DOUBLE_EQ(leftNumber->x1, left + margin);
        EXPECT_DOUBLE_EQ(leftNumber->y1, y + (pin - 216) / 2.0);
        EXPECT_DOUBLE_EQ(rightNumber->x1 + 99, left + width - margin);
        EXPECT_DOUBLE_EQ(rightNumber->y1, y + (pin - 216) / 2.0);
        const DrawOp* leftName = TextOp(pic, names[static_cast<size_t>(i)]);
        const DrawOp* rightName = TextOp(pic, names[static_cast<size_t>(9 - i)]);
        ASSERT_NE(leftName, nullptr);
        ASSERT_NE(rightName, nullptr);
        EXPECT_EQ(leftName->color, colors::ButtonText);
        EXPECT_DOUBLE_EQ(leftName->x1 + 99.0 * static_cast<double>(leftName->text.size()),
                         left - pinLength - margin);
        EXPECT_DOUBLE_EQ(rightName->x1, left + width + pinLength + margin);
        EXPECT_DOUBLE_EQ(leftName->y1, y + (pin - 216) / 2.0);
    }
}

TEST_F(GraphicsTest, ChipGeometryIsWholePixelsAtBothScales) {
    for (double scale : {0.85, 1.0}) {
        clsGraphics graphics(errors, 15, 15);
        PictureBox pic;
        pic.Move(0, 0, 4800, 3600);
        std::vector<std::string> pins = {"20",     "32Xout",  "32K",  "CLKC", "VDD",  "GND",
                                         "XTALIN", "XTALOUT", "XBUF", "CLKD", "CPU",  "CLKB",
                                         "CLKA",   "CLKF",    "S0",   "S1",   "AVDD", "S2",
                                         "OE",     "VBATT",   "NC"};
        graphics.DrawChip(pic, "QX7311", pins, scale);
        int shapes = 0;
        for (const auto& op : pic.DisplayList()) {
            if (op.type == Type::Text)
                continue;
            ++shapes;
            EXPECT_TRUE(Whole(op.x1, 15) && Whole(op.y1, 15))
                << scale << " " << op.x1 << "," << op.y1;
            if (op.type != Type::Arc) {
                EXPECT_TRUE(Whole(op.x2, 15) && Whole(op.y2, 15))
                    << scale << " " << op.x2 << "," << op.y2;
            } else {
                EXPECT_TRUE(Whole(op.radius, 15)) << op.radius;
            }
        }
        EXPECT_GT(shapes, 40);
        EXPECT_TRUE(Whole(graphics.DepthX(), 15));
        EXPECT_TRUE(Whole(graphics.DepthY(), 15));
        EXPECT_TRUE(Whole(graphics.PinEdge(), 15));
    }
}

TEST_F(GraphicsTest, ChipMetricsAtScale085) {
    clsGraphics graphics(errors, 15, 15);
    PictureBox pic;
    pic.Move(0, 0, 4500, 3000);
    graphics.DrawChip(pic, "QX7311", EightPins(), 0.85);
    EXPECT_EQ(graphics.DepthX(), 45);  // 51 / 15 = 3.4
    EXPECT_EQ(graphics.DepthY(), 30);  // 25.5 / 15 = 1.7
    EXPECT_EQ(graphics.PinEdge(), 30);
    // 89.25 / 15 = 5.95 gives 6 pixels, but a line of Arial 8 is 192 twips, 12.8 pixels, so
    // 13: two pin heights hold it at 7 pixels, 105.
    const auto pins = Pins(pic, 105);
    ASSERT_EQ(pins.size(), 8u);
    EXPECT_DOUBLE_EQ(pins[0].x2 - pins[0].x1, 195);  // 195.5 / 15 = 13.03
    EXPECT_DOUBLE_EQ(pic.Font().Size, 8);            // 7.65 to the nearest
}

TEST_F(GraphicsTest, VerticalLengthsDivideByTheHorizontalPixel) {
    clsGraphics graphics(errors, 12, 15);
    PictureBox pic;
    pic.Move(0, 0, 4800, 3000);
    graphics.DrawChip(pic, "QX6105A", EightPins(), 1.0);
    EXPECT_EQ(graphics.DepthX(), 60);  // 60 / 12 = 5 pixels of 12
    EXPECT_EQ(graphics.DepthY(), 30);  // 30 / 12 = 2.5, to even 2, pixels of 15
    EXPECT_EQ(graphics.PinEdge(), 30);
    // Pin height: 105 / 12 = 8.75 gives 9 pixels of 15 = 135 (dividing by 15 would give 105).
    const auto pins = Pins(pic, 135);
    ASSERT_EQ(pins.size(), 8u);
    EXPECT_DOUBLE_EQ(pins[0].x2 - pins[0].x1, 228);  // 230 / 12 = 19.17: 19 pixels of 12
    for (const auto& pin : pins) {
        EXPECT_TRUE(Whole(pin.x1, 12)) << pin.x1;
        EXPECT_TRUE(Whole(pin.x2, 12)) << pin.x2;
    }
    EXPECT_EQ(graphics.SnapY(45, 1.0), 60);  // 3.75 gives 4 pixels of 15
    EXPECT_EQ(graphics.SnapX(45, 1.0), 48);
}

TEST_F(GraphicsTest, PinWithoutMaskHasNoBarsAndMaskDrawsBarsOverMarkedLetters) {
    clsGraphics graphics(errors, 15, 15);
    PictureBox pic;
    pic.Move(0, 0, 4500, 3000);
    auto bars = [&] {
        std::vector<DrawOp> result;
        for (const auto& op : OfType(pic, Type::Line))
            if (op.color == colors::ButtonText)
                result.push_back(op);
        return result;
    };
    graphics.DrawChip(pic, "QX6105A", EightPins(), 1.0);
    EXPECT_TRUE(bars().empty());

    auto pins = EightPins();
    pins[1] = "PD;__";
    graphics.DrawChip(pic, "QX6105A", pins, 1.0);
    const DrawOp* name = TextOp(pic, "PD");
    ASSERT_NE(name, nullptr);
    const auto two = bars();
    ASSERT_EQ(two.size(), 2u);
    EXPECT_DOUBLE_EQ(two[0].x1, name->x1);
    EXPECT_DOUBLE_EQ(two[0].x2, name->x1 + 99);
    EXPECT_DOUBLE_EQ(two[1].x1, name->x1 + 99);
    EXPECT_DOUBLE_EQ(two[1].x2, name->x1 + 198);
    // In the name's own line, a pixel below its top: over PD, not over the name above it.
    EXPECT_DOUBLE_EQ(two[0].y1, name->y1 + 15);
    EXPECT_DOUBLE_EQ(two[1].y2, name->y1 + 15);
    EXPECT_LT(two[0].y1, name->y1 + 216);
    EXPECT_EQ(TextOp(pic, "PD;__"), nullptr);

    // Blanks in the mask leave their letters bare: bars over "SUSPEND" only.
    pins[8] = "S2/SUSPEND;   _______";
    graphics.DrawChip(pic, "QX6105A", pins, 1.0);
    const DrawOp* right = TextOp(pic, "S2/SUSPEND");
    ASSERT_NE(right, nullptr);
    const auto all = bars();
    ASSERT_EQ(all.size(), 2u + 7u);
    EXPECT_DOUBLE_EQ(all[2].x1, right->x1 + 3 * 99);
    EXPECT_DOUBLE_EQ(all[8].x2, right->x1 + 10 * 99);
}

TEST_F(GraphicsTest, EmptyPinNameDrawsOnlyThePin) {
    clsGraphics graphics(errors, 15, 15);
    PictureBox pic;
    pic.Move(0, 0, 4500, 3000);
    std::vector<std::string> pins = {"8",   "VDD",    "XTALOUT", "XTALIN", "OE",
                                     "VSS", "CLKOUT", "",        ""};
    graphics.DrawChip(pic, "QX3350", pins, 1.0);
    EXPECT_EQ(Pins(pic, 120).size(), 8u);
    int texts = 0;
    for (const auto& op : OfType(pic, Type::Text)) texts += op.text.empty() ? 100 : 1;
    EXPECT_EQ(texts, 8 + 6 + 1);  // numbers, names, chip name
}

TEST_F(GraphicsTest, DipPackageChangesOnlyDepthYAndTheBodyOffset) {
    PictureBox soicPic, dipPic;
    soicPic.Move(0, 0, 4500, 3000);
    dipPic.Move(0, 0, 4500, 3000);
    clsGraphics soic(errors, 15, 15);
    clsGraphics dip(errors, 15, 15);
    EXPECT_EQ(soic.mintPackage, soic.SOIC());
    dip.mintPackage = dip.DIP();
    EXPECT_EQ(dip.SOIC(), 0);
    EXPECT_EQ(dip.DIP(), 1);
    soic.DrawChip(soicPic, "QX6105A", EightPins(), 1.0);
    dip.DrawChip(dipPic, "QX6105A", EightPins(), 1.0);
    EXPECT_EQ(dip.DepthX(), soic.DepthX());
    EXPECT_EQ(dip.PinEdge(), soic.PinEdge());
    EXPECT_EQ(soic.DepthY(), 30);
    EXPECT_EQ(dip.DepthY(), 45);
    const DrawOp soicBody = OfType(soicPic, Type::FilledBox)[1];
    const DrawOp dipBody = OfType(dipPic, Type::FilledBox)[1];
    EXPECT_DOUBLE_EQ(dipBody.x1, soicBody.x1);
    EXPECT_DOUBLE_EQ(dipBody.x2 - dipBody.x1, soicBody.x2 - soicBody.x1);
    EXPECT_DOUBLE_EQ(dipBody.y2 - dipBody.y1, soicBody.y2 - soicBody.y1);
    // P grows from the pin edge (30) to depth and edge (75).
    EXPECT_DOUBLE_EQ(soicBody.y1 - dipBody.y1, 45);
    const auto soicPins = Pins(soicPic, 120);
    const auto dipPins = Pins(dipPic, 120);
    ASSERT_EQ(dipPins.size(), soicPins.size());
    EXPECT_DOUBLE_EQ(dipPins[0].x2 - dipPins[0].x1, soicPins[0].x2 - soicPins[0].x1);
    EXPECT_DOUBLE_EQ(dipPins[0].y1 - soicPins[0].y1, -45);
}

TEST_F(GraphicsTest, PinRestoresThePictureDrawingSettings) {
    clsGraphics graphics(errors, 15, 15);
    PictureBox pic;
    pic.FillStyle = 1;
    pic.FillColor = 0x111111;
    pic.DrawWidth = 3;
    pic.SetForeColor(0x222222);
    graphics.DrawPin3D(pic, 0, 0, 225, 105, colors::White, colors::ButtonShadow, true);
    EXPECT_FALSE(pic.DisplayList().empty());
    EXPECT_EQ(pic.FillStyle, 1);
    EXPECT_EQ(pic.FillColor, 0x111111u);
    EXPECT_EQ(pic.DrawWidth, 3);
    EXPECT_EQ(pic.ForeColor(), 0x222222u);
    graphics.mintPackage = graphics.DIP();
    graphics.DrawPin3D(pic, 0, 0, 225, 105, colors::White, colors::ButtonShadow, false);
    EXPECT_EQ(pic.FillStyle, 1);
}

TEST_F(GraphicsTest, BodyHasShadowBevelGrooveAndNotch) {
    clsGraphics graphics(errors, 15, 15);
    PictureBox pic;
    pic.Move(0, 0, 4500, 3000);
    graphics.DrawChip(pic, "QX6105A", EightPins(), 1.0);
    bool groove = false;
    for (const auto& op : OfType(pic, Type::Line)) {
        if (op.color == colors::ButtonShadow && op.y1 == 960 + 45 && op.y2 == 960 + 45) {
            groove = op.x1 == 1515 + 60 && op.x2 == 1515 + 1470 - 105;
        }
    }
    EXPECT_TRUE(groove);
    const auto arcs = OfType(pic, Type::Arc);
    ASSERT_EQ(arcs.size(), 2u);
    // The notch sits at the middle of the top edge: 1470 / 2 = 735 twips, 49 pixels.
    EXPECT_DOUBLE_EQ(arcs[0].x1, 1515 + 735);
    EXPECT_DOUBLE_EQ(arcs[0].y1, 960);
}

// The colour a point shows once the straight lines and boxes of the display list are painted
// in their order; arcs and text are left out, background is 0.
Color PaintedAt(const PictureBox& pic, double x, double y) {
    Color colour = 0;
    for (const auto& op : pic.DisplayList()) {
        const double left = std::min(op.x1, op.x2), right = std::max(op.x1, op.x2);
        const double top = std::min(op.y1, op.y2), bottom = std::max(op.y1, op.y2);
        const bool inside = x >= left && x <= right && y >= top && y <= bottom;
        if (!inside)
            continue;
        if (op.type == Type::Line && (op.x1 == op.x2 || op.y1 == op.y2))
            colour = op.color;
        else if (op.type == Type::FilledBox)
            colour = (x == left || x == right || y == top || y == bottom) ? op.color : op.fillColor;
    }
    return colour;
}

TEST_F(GraphicsTest, NoLineOfTheBodyRunsThroughTheNotch) {
    for (const double scale : {0.75, 0.8, 1.0}) {
        SCOPED_TRACE(scale);
        clsGraphics graphics(errors, 15, 15);
        PictureBox pic;
        pic.Move(0, 0, 4500, 3000);
        graphics.DrawChip(pic, "QX6105A", EightPins(), scale);
        const auto arcs = OfType(pic, Type::Arc);
        ASSERT_EQ(arcs.size(), 2u);
        const double x = arcs[0].x1, top = arcs[0].y1, radius = arcs[0].radius;
        ASSERT_GE(radius, 4 * 15.0);
        // Inside the half circle, below the top edge, every pixel shows the body's face: the
        // top edge, the bevel and the groove all stop at the notch.
        for (double dy = 0; dy < radius; dy += 15) {
            for (double dx = -radius + 15; dx < radius; dx += 15) {
                if (dx * dx + dy * dy < (radius - 15) * (radius - 15)) {
                    EXPECT_EQ(PaintedAt(pic, x + dx, top + dy), colors::ButtonFace)
                        << "at " << dx << ", " << dy;
                }
            }
        }
    }
}

TEST_F(GraphicsTest, TakesThePixelSizesAndErrorsOfTheApplication) {
    Application app(platform);
    app.gintTwipsPerPixelX = 12;
    app.gintTwipsPerPixelY = 20;
    clsGraphics graphics(app);
    EXPECT_EQ(graphics.SnapX(30, 1.0), 24);  // 30 / 12 = 2.5, to even 2 pixels of 12
    EXPECT_EQ(graphics.SnapY(30, 1.0), 40);  // the same 2 pixels, of 20
    EXPECT_EQ(graphics.SnapX(42, 1.0), 48);  // 3.5 to even 4
    EXPECT_EQ(graphics.SnapY(42, 1.0), 80);
    PanelForm form;
    PictureBox surface;
    graphics.DrawPanel3D(surface, &form, &form.lblPanel, clsGraphics::Variant{std::string("x")});
    EXPECT_EQ(app.Errors().LastNumber(), 10501);
}

}  // namespace
}  // namespace pendulon
