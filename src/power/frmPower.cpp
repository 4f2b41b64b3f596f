#include "power/frmPower.hpp"

#include <algorithm>

#include "app/AppServices.hpp"
#include "app/Configurator.hpp"
#include "app/MainFace.hpp"
#include "app/mSharedApp.hpp"
#include "core/Numbers.hpp"
#include "platform/OptionButton.hpp"
#include "platform/PictureBox.hpp"

namespace pendulon {

namespace {

// Layout of the painted table, in twips.
constexpr double kEdge = 60;          // inner margin of the picture
constexpr double kFootnoteGap = 120;  // between the table and the footnote
constexpr const char* kTableFont = "Courier New";
constexpr double kTableFontSize = 8;

// The text right-aligned in width characters; a longer text keeps its left part.
std::string RightAlign(const std::string& text, size_t width) {
    if (text.size() >= width)
        return text.substr(0, width);
    return std::string(width - text.size(), ' ') + text;
}

std::vector<std::string> SplitLines(const std::string& text) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (true) {
        const size_t end = text.find_first_of("\r\n", start);
        lines.push_back(text.substr(start, end == std::string::npos ? end : end - start));
        if (end == std::string::npos)
            break;
        start =
            end + ((text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n') ? 2 : 1);
    }
    return lines;
}

}  // namespace

frmPower::frmPower(AppServices& app) : Window("frmPower"), app_(app) {
    Register("lblCaption", lblCaption);
    Register("lblClose", lblClose);
    Register("lblHead", lblHead);
    Register("lstPower", lstPower);
    Register("lblFootnote", lblFootnote);
    Register("cmdCalculate", cmdCalculate);
    SetCaption("Power");
    lblCaption.SetCaption("Supply Current");
    lblCaption.SetAlignment(2);
    lblCaption.SetForeColor(colors::TitleBarText);
    lblCaption.SetBackColor(colors::ActiveTitleBar);
    lblClose.SetCaption("X");
    lblClose.SetAlignment(2);
    for (Field* field : {static_cast<Field*>(&lblHead), static_cast<Field*>(&lstPower),
                         static_cast<Field*>(&lblFootnote)})
        field->SetFont(kTableFont, kTableFontSize);
    cmdCalculate.SetCaption("Calculate");

    // While the close box is pressed it shows "-"; a click hides the table.
    lblClose.OnMouseDown = [this](int, int, double, double) { lblClose.SetCaption("-"); };
    lblClose.OnMouseUp = [this](int, int, double, double) { lblClose.SetCaption("X"); };
    lblClose.OnClick = [this] {
        SetVisible(false);
        HidePower();
    };
    cmdCalculate.OnClick = [this] { CalculatePower(); };
    Form_Load();
}

void frmPower::Form_Load() {
    SetFootnote("");
    Clear();
}

void frmPower::Form_Unload() {
    mobjParentForm = nullptr;
}

void frmPower::CalculatePower() {
    if (mobjParentForm != nullptr)
        mobjParentForm->CalculatePower();
}

void frmPower::Clear() {
    lstPower.Clear();
}

void frmPower::SetColCount(int value) {
    mintColCount = std::clamp(value, 0, kMaxColumns);
}

void frmPower::SetRowCount(int value) {
    mintRowCount = std::clamp(value, 0, kMaxRows);
}

void frmPower::SetHead(int index, const std::string& text) {
    if (index >= 0 && index < kMaxColumns)
        mastrHead[static_cast<size_t>(index)] = text;
}

void frmPower::SetUnit(int index, const std::string& text) {
    if (index >= 0 && index < kMaxColumns)
        mastrUnit[static_cast<size_t>(index)] = text;
}

void frmPower::SetCell(int row, int column, const std::string& text) {
    if (row >= 0 && row < kMaxRows && column >= 0 && column < kMaxColumns)
        mastrCell[static_cast<size_t>(row)][static_cast<size_t>(column)] = text;
}

std::string frmPower::Head(int index) const {
    return index >= 0 && index < kMaxColumns ? mastrHead[static_cast<size_t>(index)] : "";
}

std::string frmPower::Unit(int index) const {
    return index >= 0 && index < kMaxColumns ? mastrUnit[static_cast<size_t>(index)] : "";
}

std::string frmPower::Cell(int row, int column) const {
    if (row < 0 || row > kMaxRows || column < 0 || column >= kMaxColumns)
        return {};
    return mastrCell[static_cast<size_t>(row)][static_cast<size_t>(column)];
}

void frmPower::SetFootnote(const std::string& text) {
    lblFootnote.SetCaption(text);
    lblFootnote.SetVisible(!text.empty());
    if (text.empty())
        lblFootnote.SetHeight(0);
}

PictureBox* frmPower::ParentPicture() const {
    if (mobjParentForm == nullptr)
        return nullptr;
    Field* field = mobjParentForm->Fields().Find("picPower");
    if (field != nullptr && field->Kind() == FieldKind::Picture)
        return static_cast<PictureBox*>(field);
    return &mobjParentForm->picPower;
}

void frmPower::ShowPower() {
    if (mobjParentForm == nullptr)
        return;

    // The footnote names the supplies of the two cases at the parent's voltage.
    bool lowVoltage = false;
    if (Field* field = mobjParentForm->Fields().Find("opt3V");
        field != nullptr && field->Kind() == FieldKind::Option) {
        lowVoltage = static_cast<OptionButton*>(field)->Value();
    }
    const std::string typical = lowVoltage ? "3.3V" : "5.0V";
    const std::string worst = lowVoltage ? "3.6V" : "5.5V";
    SetFootnote("Typical: " + typical + " 18pF Load\r\n   Worst: " + worst + " 30pF Load");

    PictureBox* picture = ParentPicture();

    // Column widths and the heading line.
    std::array<size_t, kMaxColumns> width{};
    std::string heading;
    for (int c = 0; c < mintColCount; ++c) {
        const auto col = static_cast<size_t>(c);
        width[col] = mastrHead[col].size() + 1;
        heading += RightAlign(mastrHead[col], width[col]);
    }
    lblHead.SetCaption(heading);

    lstPower.Clear();
    for (int r = 0; r < mintRowCount; ++r) {
        std::string line;
        for (int c = 0; c < mintColCount; ++c) {
            const auto col = static_cast<size_t>(c);
            const std::string& cell = mastrCell[static_cast<size_t>(r)][col];
            std::string part;
            if (c == 0) {
                part = cell;
            } else {
                const double value = Val(cell);
                part = value >= 0 ? FormatNumber(value, "0") + mastrUnit[col] : "N/A ";
            }
            line += RightAlign(part, width[col]);
        }
        lstPower.AddItem(line);
    }

    if (picture != nullptr)
        Paint(*picture);
}

void frmPower::Paint(PictureBox& picture) {
    const double pixelX = app_.gintTwipsPerPixelX;
    const double pixelY = app_.gintTwipsPerPixelY;

    // Measure in the table's font.
    picture.SetFont(kTableFont, kTableFontSize, false);
    const double lineHeight = picture.TextHeight("mA");
    double textWidth = picture.TextWidth(lblHead.Caption());
    for (const auto& line : lstPower.Items())
        textWidth = std::max(textWidth, picture.TextWidth(line));
    const auto footnoteLines = SplitLines(lblFootnote.Caption());
    if (lblFootnote.Visible()) {
        for (const auto& line : footnoteLines)
            textWidth = std::max(textWidth, picture.TextWidth(line));
    }
    const double listWidth = textWidth + 2 * kEdge;

    picture.SetFont(lblCaption.FontName(), lblCaption.FontSize(), lblCaption.FontBold());
    const double titleHeight = picture.TextHeight(lblCaption.Caption()) + 2 * pixelY;
    const double pictureWidth = listWidth + 2 * kEdge;
    lblCaption.Move(0, 0, pictureWidth, titleHeight);
    const double closeSize = titleHeight - 2 * pixelY;
    lblClose.Move(pictureWidth - pixelX - closeSize, pixelY, closeSize, closeSize);

    lblHead.Move(kEdge, titleHeight + kEdge, listWidth, lineHeight);
    lstPower.Move(kEdge, lblHead.Top() + lineHeight, listWidth, (mintRowCount + 1) * lineHeight);
    const double listBottom = lstPower.Top() + lstPower.Height();
    double bottom = listBottom;
    if (lblFootnote.Visible()) {
        lblFootnote.Move(kEdge, listBottom + kFootnoteGap, listWidth,
                         lineHeight * static_cast<double>(footnoteLines.size()));
        bottom = lblFootnote.Top() + lblFootnote.Height();
    } else {
        lblFootnote.Move(kEdge, listBottom + kFootnoteGap, listWidth, 0);
    }
    picture.SetWidth(pictureWidth);
    picture.SetHeight(bottom + kEdge);

    picture.Cls();
    // Title bar.
    picture.FilledBox(0, 0, pictureWidth, titleHeight, colors::ActiveTitleBar,
                      colors::ActiveTitleBar);
    picture.PrintAt((pictureWidth - picture.TextWidth(lblCaption.Caption())) / 2, pixelY,
                    lblCaption.Caption(), colors::TitleBarText);

    // Heading, table box and lines, footnote.
    picture.SetFont(kTableFont, kTableFontSize, false);
    picture.PrintAt(lblHead.Left() + kEdge, lblHead.Top(), lblHead.Caption(), colors::WindowText);
    const double listRight = lstPower.Left() + lstPower.Width();
    picture.FilledBox(lstPower.Left(), lstPower.Top(), listRight, listBottom,
                      colors::WindowBackground, colors::WindowBackground);
    picture.Box(lstPower.Left(), lstPower.Top(), listRight, listBottom, 0);
    double y = lstPower.Top() + lineHeight / 2;
    for (const auto& line : lstPower.Items()) {
        picture.PrintAt(lstPower.Left() + kEdge, y, line, colors::WindowText);
        y += lineHeight;
    }
    if (lblFootnote.Visible()) {
        y = lblFootnote.Top();
        for (const auto& line : footnoteLines) {
            picture.PrintAt(lblFootnote.Left(), y, line, colors::WindowText);
            y += lineHeight;
        }
    }

    // Close box with its X.
    const double l = lblClose.Left();
    const double t = lblClose.Top();
    const double r = l + lblClose.Width();
    const double b = t + lblClose.Height();
    picture.FilledBox(l, t, r, b, colors::ButtonFace, colors::ButtonFace);
    picture.Box(l, t, r, b, 0);
    picture.Line(l + 4 * pixelX, t + 3 * pixelY, r - 4 * pixelX, b - 3 * pixelY, 0);
    picture.Line(l + 4 * pixelX, b - 3 * pixelY, r - 4 * pixelX, t + 3 * pixelY, 0);

    picture.Refresh();
}

void frmPower::HidePower() {
    app_.Main().mnuViewPower.SetChecked(false);
}

void frmPower::MouseDown(int button, int /*shift*/, double x, double y) {
    if (button != 1)
        return;
    const double l = lblClose.Left();
    const double t = lblClose.Top();
    if (x < l || x > l + lblClose.Width() || y < t || y > t + lblClose.Height())
        return;
    Window* child = app_.ActiveChild();
    PictureBox* picture = nullptr;
    if (child != nullptr) {
        Field* field = child->Fields().Find("picPower");
        if (field != nullptr && field->Kind() == FieldKind::Picture)
            picture = static_cast<PictureBox*>(field);
    }
    if (picture == nullptr)
        picture = ParentPicture();
    if (picture != nullptr)
        mShared::ShowWindow(app_, *picture, false);
    HidePower();
}

}  // namespace pendulon
