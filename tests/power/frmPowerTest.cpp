#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "app/Configurator.hpp"
#include "core/Numbers.hpp"
#include "core/mShared.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/OptionButton.hpp"
#include "power/clsPower7311.hpp"
#include "power/frmPower.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {
namespace {

using Type = DrawOp::Type;

// A small document window with what the power table reads by name: the voltage options and
// picPower. Its CalculatePower fills the table as a QX7311 window does for idle outputs.
class PowerTestForm : public Configurator {
  public:
    explicit PowerTestForm(Application& app) : Configurator(app, "frmPowerTest") {
        opt3V.SetGroup("voltage");
        opt5V.SetGroup("voltage");
        Register("opt3V", opt3V);
        Register("opt5V", opt5V);
        Register("picPower", picPower);
        opt5V.SetValue(true);
    }
    OptionButton opt3V;
    OptionButton opt5V;
    int calculations = 0;

    std::string Device() const override { return "QX7311"; }
    void SetDevice(const std::string&) override {}
    std::string Checksum() override { return "0"; }
    bool FillForm(clsEntryFile&, const std::string&) override { return true; }
    bool Save() override { return false; }
    bool MakeEntryFile(const std::string&) override { return false; }
    bool MakeEPROMVector(const std::string&, bool) override { return false; }
    std::string PinName(int) const override { return ""; }
    void DisplayAllActuals() override {}
    void cmdApplyLimits_Click() override {}
    void cmdCalculate_Click() override {}
    void Form_Load() override {}
    void CalculatePower() override {
        ++calculations;
        frmPower& power = App().Power();
        power.SetParentForm(this);
        power.SetColCount(3);
        power.SetRowCount(8);
        power.SetHead(0, "S2:S0 ");
        power.SetHead(1, "Typical");
        power.SetHead(2, " Worst ");
        power.SetUnit(0, "");
        power.SetUnit(1, "mA ");
        power.SetUnit(2, "mA ");
        clsPower7311 model(App().Errors());
        model.SetVDD(opt3V.Value() ? 3.3 : 5.0);
        power.SetFootnote("");
        for (int r = 0; r < 8; ++r) {
            std::string state(1, ' ');
            state += mShared::ConvertDecimalToBinary(r, 3);
            state += ' ';
            power.SetCell(r, 0, state);
            power.SetCell(r, 1, GeneralNumber(model.GetIDD(1)));
            power.SetCell(r, 2, GeneralNumber(model.GetIDD(0)));
        }
        power.ShowPower();
    }
};

class PowerWindowTest : public ::testing::Test {
  protected:
    HeadlessPlatform platform;
    Application app{platform};
    frmPower& power = app.Power();

    PowerTestForm& OpenForm() {
        auto form = std::make_unique<PowerTestForm>(app);
        PowerTestForm& ref = *form;
        app.SetDocument(std::move(form));
        return ref;
    }

    std::vector<DrawOp> Ops(const PictureBox& pic, Type type) {
        std::vector<DrawOp> result;
        for (const auto& op : pic.DisplayList())
            if (op.type == type)
                result.push_back(op);
        return result;
    }
};

TEST_F(PowerWindowTest, CountsAreClamped) {
    power.SetRowCount(40);
    EXPECT_EQ(power.RowCount(), 32);
    power.SetRowCount(-3);
    EXPECT_EQ(power.RowCount(), 0);
    power.SetColCount(9);
    EXPECT_EQ(power.ColCount(), 8);
    power.SetColCount(-1);
    EXPECT_EQ(power.ColCount(), 0);
    power.SetColCount(5);
    EXPECT_EQ(power.ColCount(), 5);
}

TEST_F(PowerWindowTest, IndicesOutsideTheTableAreIgnored) {
    power.SetCell(31, 7, "kept");
    power.SetCell(32, 1, "x");
    power.SetCell(0, 8, "x");
    power.SetCell(-1, 0, "x");
    EXPECT_EQ(power.Cell(31, 7), "kept");
    EXPECT_EQ(power.Cell(32, 1), "");
    power.SetHead(7, "h");
    power.SetHead(8, "x");
    power.SetUnit(-1, "x");
    power.SetUnit(0, "u");
    EXPECT_EQ(power.Head(7), "h");
    EXPECT_EQ(power.Head(8), "");
    EXPECT_EQ(power.Unit(0), "u");
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(PowerWindowTest, ShowPowerWithoutParentDoesNothing) {
    power.SetColCount(1);
    power.SetRowCount(1);
    power.SetHead(0, "FS");
    power.SetCell(0, 0, "1");
    power.ShowPower();
    EXPECT_EQ(power.lstPower.ListCount(), 0);
    EXPECT_EQ(power.HeadingLine(), "");
}

TEST_F(PowerWindowTest, CalculateOnQX7311AtFiveVoltsBuildsTheLinesAndTheFootnote) {
    PowerTestForm& form = OpenForm();
    power.SetParentForm(&form);
    power.CalculatePower();
    EXPECT_EQ(form.calculations, 1);
    EXPECT_EQ(power.lblFootnote.Caption(), "Typical: 5.0V 18pF Load\r\n   Worst: 5.5V 30pF Load");
    EXPECT_TRUE(power.lblFootnote.Visible());
    // Widths 7, 8 and 8: headings right-aligned, a blank ahead of each.
    EXPECT_EQ(power.HeadingLine(), " S2:S0  Typical  Worst ");
    ASSERT_EQ(power.lstPower.ListCount(), 8);
    // Idle at 5 V: 13 mA typical, 14.3 worst shown as whole milliamperes.
    EXPECT_EQ(power.lstPower.List(0), "   000    13mA    14mA ");
    EXPECT_EQ(power.lstPower.List(5), "   101    13mA    14mA ");
    EXPECT_EQ(power.lstPower.List(7), "   111    13mA    14mA ");
}

TEST_F(PowerWindowTest, FootnoteAtThreeVoltsNamesThreePointSixWorst) {
    PowerTestForm& form = OpenForm();
    form.opt3V.SetValue(true);
    form.CalculatePower();
    EXPECT_EQ(power.lblFootnote.Caption(), "Typical: 3.3V 18pF Load\r\n   Worst: 3.6V 30pF Load");
    // 1.8 x 3.3 = 5.94 and 1.8 x 4.0 = 7.2.
    EXPECT_EQ(power.lstPower.List(0), "   000     6mA     7mA ");
}

TEST_F(PowerWindowTest, NegativeCellShowsNotAvailableAndLongTextKeepsItsLeft) {
    PowerTestForm& form = OpenForm();
    power.SetParentForm(&form);
    power.SetColCount(3);
    power.SetRowCount(3);
    power.SetHead(0, "FS");
    power.SetHead(1, "Typical");
    power.SetHead(2, "Worst");
    power.SetUnit(1, "mA ");
    power.SetUnit(2, "mA");
    power.SetCell(0, 0, "ABCDE");
    power.SetCell(0, 1, "-3");
    power.SetCell(0, 2, "12.5");
    power.SetCell(1, 0, "1");
    power.SetCell(1, 1, "11.25");
    power.SetCell(1, 2, "Off");
    power.SetCell(2, 1, "123456789");
    power.ShowPower();
    EXPECT_EQ(power.HeadingLine(), " FS Typical Worst");
    ASSERT_EQ(power.lstPower.ListCount(), 3);
    // Widths 3, 8 and 6. "ABCDE" keeps its left part; 12.5 rounds to 13, 11.25 to 11; an
    // empty or "Off" cell reads 0.
    EXPECT_EQ(power.lstPower.List(0), "ABC    N/A   13mA");
    EXPECT_EQ(power.lstPower.List(1), "  1   11mA    0mA");
    // "123456789mA " is cut to its first 8 characters.
    EXPECT_EQ(power.lstPower.List(2), "   12345678   0mA");
}

TEST_F(PowerWindowTest, EmptyFootnoteIsHiddenWithNoHeight) {
    power.lblFootnote.SetHeight(400);
    power.SetFootnote("note");
    EXPECT_TRUE(power.lblFootnote.Visible());
    EXPECT_DOUBLE_EQ(power.lblFootnote.Height(), 400);
    power.SetFootnote("");
    EXPECT_FALSE(power.lblFootnote.Visible());
    EXPECT_DOUBLE_EQ(power.lblFootnote.Height(), 0);
}

TEST_F(PowerWindowTest, PaintingDrawsTitleHeadingTableFootnoteAndCloseBox) {
    PowerTestForm& form = OpenForm();
    form.CalculatePower();
    const PictureBox& pic = form.picPower;
    const auto& ops = pic.DisplayList();
    ASSERT_FALSE(ops.empty());
    // Title bar first, across the picture.
    EXPECT_EQ(ops[0].type, Type::FilledBox);
    EXPECT_EQ(ops[0].fillColor, colors::ActiveTitleBar);
    EXPECT_DOUBLE_EQ(ops[0].x2, pic.Width());
    EXPECT_EQ(ops[1].type, Type::Text);
    EXPECT_EQ(ops[1].text, power.lblCaption.Caption());
    EXPECT_EQ(ops[1].color, colors::TitleBarText);
    EXPECT_EQ(ops[2].text, " S2:S0  Typical  Worst ");

    // The table box: window background, then a black outline of the same rectangle.
    const auto filled = Ops(pic, Type::FilledBox);
    const auto boxes = Ops(pic, Type::Box);
    ASSERT_EQ(filled.size(), 3u);
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(filled[1].fillColor, colors::WindowBackground);
    EXPECT_EQ(boxes[0].color, 0u);
    EXPECT_DOUBLE_EQ(boxes[0].x1, filled[1].x1);
    EXPECT_DOUBLE_EQ(boxes[0].y2, filled[1].y2);
    // The list is as high as nine lines of "mA" (8 x 24 twips a line in the headless measure).
    EXPECT_DOUBLE_EQ(filled[1].y2 - filled[1].y1, 9 * 192);

    // Lines of the table in order, then the two footnote lines below the box.
    std::vector<std::string> texts;
    for (const auto& op : Ops(pic, Type::Text)) texts.push_back(op.text);
    ASSERT_EQ(texts.size(), 1u + 1u + 8u + 2u);
    EXPECT_EQ(texts[2], "   000    13mA    14mA ");
    EXPECT_EQ(texts[9], "   111    13mA    14mA ");
    EXPECT_EQ(texts[10], "Typical: 5.0V 18pF Load");
    EXPECT_EQ(texts[11], "   Worst: 5.5V 30pF Load");
    const auto textOps = Ops(pic, Type::Text);
    EXPECT_DOUBLE_EQ(textOps[10].y1, filled[1].y2 + 120);

    // Close box in the place of lblClose, button face with a black outline and an X inset by
    // 4 pixels across and 3 down.
    const double l = power.lblClose.Left(), t = power.lblClose.Top();
    const double r = l + power.lblClose.Width(), b = t + power.lblClose.Height();
    EXPECT_EQ(filled[2].fillColor, colors::ButtonFace);
    EXPECT_DOUBLE_EQ(filled[2].x1, l);
    EXPECT_DOUBLE_EQ(filled[2].y2, b);
    EXPECT_EQ(boxes[1].color, 0u);
    EXPECT_DOUBLE_EQ(boxes[1].x2, r);
    const auto lines = Ops(pic, Type::Line);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].color, 0u);
    EXPECT_DOUBLE_EQ(lines[0].x1, l + 60);
    EXPECT_DOUBLE_EQ(lines[0].y1, t + 45);
    EXPECT_DOUBLE_EQ(lines[0].x2, r - 60);
    EXPECT_DOUBLE_EQ(lines[0].y2, b - 45);
    EXPECT_DOUBLE_EQ(lines[1].x1, l + 60);
    EXPECT_DOUBLE_EQ(lines[1].y1, b - 45);
    EXPECT_DOUBLE_EQ(lines[1].y2, t + 45);
    // The close box sits inside the title bar, at its right end.
    EXPECT_LE(r, pic.Width());
    EXPECT_LE(b, ops[0].y2);
}

TEST_F(PowerWindowTest, CloseBoxInsetsFollowThePixelSizeOfEachAxis) {
    app.gintTwipsPerPixelX = 12;
    app.gintTwipsPerPixelY = 20;
    PowerTestForm& form = OpenForm();
    form.CalculatePower();
    const auto lines = Ops(form.picPower, Type::Line);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_DOUBLE_EQ(lines[0].x1, power.lblClose.Left() + 48);
    EXPECT_DOUBLE_EQ(lines[0].y1, power.lblClose.Top() + 60);
}

TEST_F(PowerWindowTest, PressOnCloseBoxBoundsHidesThePictureAndUnchecksTheMenu) {
    PowerTestForm& form = OpenForm();
    form.CalculatePower();
    const double l = power.lblClose.Left(), t = power.lblClose.Top();
    const double r = l + power.lblClose.Width(), b = t + power.lblClose.Height();

    auto reset = [&] {
        form.picPower.SetVisible(true);
        app.Main().mnuViewPower.SetChecked(true);
    };
    reset();
    power.MouseDown(1, 0, l - 1, t);
    power.MouseDown(1, 0, r + 1, b);
    power.MouseDown(1, 0, l, b + 1);
    power.MouseDown(2, 0, l, t);  // right button
    EXPECT_TRUE(form.picPower.Visible());
    EXPECT_TRUE(app.Main().mnuViewPower.Checked());

    power.MouseDown(1, 0, l, t);
    EXPECT_FALSE(form.picPower.Visible());
    EXPECT_FALSE(app.Main().mnuViewPower.Checked());
    reset();
    power.MouseDown(1, 0, r, b);
    EXPECT_FALSE(form.picPower.Visible());
    EXPECT_FALSE(app.Main().mnuViewPower.Checked());
}

TEST_F(PowerWindowTest, HidePowerUnchecksTheViewMenu) {
    app.Main().mnuViewPower.SetChecked(true);
    power.HidePower();
    EXPECT_FALSE(app.Main().mnuViewPower.Checked());
}

TEST_F(PowerWindowTest, CloseLabelShowsPressAndItsClickHides) {
    app.Main().mnuViewPower.SetChecked(true);
    power.SetVisible(true);
    power.lblClose.RaiseMouseDown(1, 0, 0, 0);
    EXPECT_EQ(power.lblClose.Caption(), "-");
    power.lblClose.RaiseMouseUp(1, 0, 0, 0);
    EXPECT_EQ(power.lblClose.Caption(), "X");
    power.lblClose.RaiseClick();
    EXPECT_FALSE(power.Visible());
    EXPECT_FALSE(app.Main().mnuViewPower.Checked());
}

TEST_F(PowerWindowTest, CalculateButtonAsksTheParentAndUnloadForgetsIt) {
    PowerTestForm& form = OpenForm();
    power.cmdCalculate.RaiseClick();  // no parent yet
    EXPECT_EQ(form.calculations, 0);
    power.SetParentForm(&form);
    power.cmdCalculate.RaiseClick();
    EXPECT_EQ(form.calculations, 1);
    power.Form_Unload();
    EXPECT_EQ(power.ParentForm(), nullptr);
    power.CalculatePower();
    EXPECT_EQ(form.calculations, 1);
}

TEST_F(PowerWindowTest, LoadClearsFootnoteAndList) {
    power.lstPower.AddItem("old");
    power.SetFootnote("old");
    power.Form_Load();
    EXPECT_EQ(power.lstPower.ListCount(), 0);
    EXPECT_EQ(power.lblFootnote.Caption(), "");
    EXPECT_FALSE(power.lblFootnote.Visible());
    power.lstPower.AddItem("x");
    power.Clear();
    EXPECT_EQ(power.lstPower.ListCount(), 0);
}

}  // namespace
}  // namespace pendulon
