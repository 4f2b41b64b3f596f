#include "graphics/clsGraphics.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "app/AppServices.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"

namespace pendulon {

namespace {

constexpr Color kFace = colors::ButtonFace;
constexpr Color kShadow = colors::ButtonShadow;
constexpr Color kText = colors::ButtonText;
constexpr Color kHighlight = colors::Highlight3D;
constexpr Color kWhite = colors::White;

int Round(double value) {
    return static_cast<int>(RoundHalfEven(value));
}

std::string VariantText(const clsGraphics::Variant& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* number = std::get_if<double>(&value))
        return GeneralNumber(*number);
    return std::get<bool>(value) ? "True" : "False";
}

// Saves a picture's drawing settings and puts them back when it goes.
class DrawingSettings {
  public:
    explicit DrawingSettings(PictureBox& picture)
        : picture_(picture),
          fillColor_(picture.FillColor),
          fillStyle_(picture.FillStyle),
          drawWidth_(picture.DrawWidth),
          foreColor_(picture.ForeColor()) {}
    ~DrawingSettings() {
        picture_.FillColor = fillColor_;
        picture_.FillStyle = fillStyle_;
        picture_.DrawWidth = drawWidth_;
        picture_.SetForeColor(foreColor_);
    }
    DrawingSettings(const DrawingSettings&) = delete;
    DrawingSettings& operator=(const DrawingSettings&) = delete;

  private:
    PictureBox& picture_;
    Color fillColor_;
    int fillStyle_;
    int drawWidth_;
    Color foreColor_;
};

}  // namespace

clsGraphics::clsGraphics(ErrorReport& errors, int twipsPerPixelX, int twipsPerPixelY)
    : errors_(errors),
      twipsX_(twipsPerPixelX > 0 ? twipsPerPixelX : 15),
      twipsY_(twipsPerPixelY > 0 ? twipsPerPixelY : 15) {}

clsGraphics::clsGraphics(AppServices& app)
    : clsGraphics(app.Errors(), app.gintTwipsPerPixelX, app.gintTwipsPerPixelY) {}

int clsGraphics::SnapX(double k, double s) const {
    return Round(k * s / twipsX_) * twipsX_;
}

int clsGraphics::SnapY(double k, double s) const {
    return Round(k * s / twipsX_) * twipsY_;
}

void clsGraphics::DrawPanel3D(PictureBox& surface, Object frmObject, Object lblObject,
                              std::optional<Variant> varInset) {
    const std::string source = "clsGraphics.DrawPanel3D";
    auto* const* form = std::get_if<Window*>(&frmObject);
    if (form == nullptr || *form == nullptr) {
        errors_.Raise(errors::TypeMismatch, source,
                      "Invalid object type in parameter list (frmObject)");
        return;
    }
    auto* const* labelField = std::get_if<Field*>(&lblObject);
    if (labelField == nullptr || *labelField == nullptr ||
        (*labelField)->Kind() != FieldKind::Label) {
        errors_.Raise(errors::TypeMismatch, source,
                      "Invalid object type in parameter list (lblObject)");
        return;
    }
    const Field& label = **labelField;

    bool inset = false;
    if (varInset.has_value()) {
        if (const auto* flag = std::get_if<bool>(&*varInset)) {
            inset = *flag;
        } else {
            // Reported; the panel is then drawn raised.
            errors_.Raise(10501, source,
                          "Invalid value for variable 'varInset': " + VariantText(*varInset));
        }
    }
    const Color topLeft = inset ? kShadow : kHighlight;
    const Color bottomRight = inset ? kHighlight : kShadow;

    const double l = label.Left();
    const double t = label.Top();
    const double w = label.Width() - twipsX_;
    const double h = label.Height() - twipsY_;

    surface.FilledBox(l, t, l + w, t + h, kFace, kFace);
    surface.Line(l, t, l + w, t, topLeft);
    surface.Line(l, t, l, t + h, topLeft);
    surface.Line(l, t + h, l + w, t + h, bottomRight);
    surface.Line(l + w, t, l + w, t + h, bottomRight);

    surface.SetFont(label.FontName(), label.FontSize(), label.FontBold());
    surface.SetForeColor(label.ForeColor());
    const std::string& caption = label.Caption();
    const double y = (h - surface.TextHeight(caption)) / 2 + t;
    double x = l;
    switch (label.Alignment()) {
        case 1:
            x = l + w - surface.TextWidth(caption);
            break;
        case 2:
            x = (w - surface.TextWidth(caption)) / 2 + l;
            break;
        default:
            break;
    }
    surface.PrintAt(x, y, caption, label.ForeColor());
}

void clsGraphics::DrawBox3D(PictureBox& target, int left, int top, int width, int height,
                            Color fill, Color highlight, Color shadow) {
    if (width == 0 || height == 0)
        return;
    const int right = left + width;
    const int bottom = top + height;
    target.FilledBox(left, top, right, bottom, fill, fill);
    target.Line(left, top, right, top, highlight);
    target.Line(left, top, left, bottom, highlight);
    target.Line(left, bottom, right, bottom, shadow);
    target.Line(right, top, right, bottom, shadow);
}

void clsGraphics::DrawChip(PictureBox& picPBox, const std::string& strChipName,
                           const std::vector<std::string>& astrPin, double dblChipScale) {
    const double s = dblChipScale;
    mintDepthX = SnapX(60, s);
    mintDepthY = SnapY(mintPackage == DIP() ? 45 : 30, s);
    mintPinEdge = SnapY(30, s);
    const int minimumWidth = SnapX(1200, s);
    const int pinLength = SnapX(230, s);
    const int margin = SnapX(90, s);
    const int pinFull = mintPackage == DIP() ? mintDepthY + mintPinEdge : mintPinEdge;

    picPBox.ScaleMode = 1;
    picPBox.AutoRedraw = true;
    picPBox.SetFont("Arial", RoundHalfEven(9 * s), false);
    picPBox.Cls();

    // A pin is as high as the gap between two pins. Two rows of names must not overlap, or a
    // bar over a name would stand over the name above it: where the font is taller than the
    // classic pitch, the pitch grows to a line of text, in whole pixels.
    const int linePixels = static_cast<int>(std::ceil(picPBox.TextHeight("0") / twipsY_));
    const int pinHeight = std::max(SnapY(105, s), (linePixels + 1) / 2 * twipsY_);

    const double count = astrPin.empty() ? 0 : Val(astrPin[0]);
    const int n = static_cast<int>(std::clamp(count, 0.0, 1000.0));
    picPBox.DrawWidth = 1;

    // The body is wide enough for a pin number on each side and the chip's name with a blank
    // between them, so that the name never runs into a number, snapped to whole pixels.
    int width = Round(picPBox.TextWidth("0000") + picPBox.TextWidth(strChipName) +
                      2 * picPBox.TextWidth(" ") + 2 * margin);
    width = Round(static_cast<double>(width) / twipsX_) * twipsX_;
    width = std::max(width, minimumWidth);
    const int height = Round(n / 2.0 * (pinHeight + pinHeight)) - pinHeight + 2 * margin;

    const int left = Round((picPBox.Width() - width) / 2.0) / twipsX_ * twipsX_;
    const int top = Round((picPBox.Height() - height) / 2.0) / twipsY_ * twipsY_ - pinFull;

    DrawChipBody3D(picPBox, left, top, width, height, true);

    const int leftPinX = left - pinLength;
    const int rightPinX = left + width;
    const int leftNumberX = left + margin;
    const int rightNumberEnd = left + width - margin;
    const int leftNameEnd = left - pinLength - margin;
    const int rightNameX = left + width + pinLength + margin;

    auto pinText = [&](int index, std::string& name, std::string& mask) {
        name.clear();
        mask.clear();
        if (index < 1 || index >= static_cast<int>(astrPin.size()))
            return;
        const std::string& text = astrPin[static_cast<size_t>(index)];
        name = mShared::GetSubstring(text, "", ";");
        mask = InStr(text, ";") > 0 ? mShared::GetSubstring(text, ";", "") : std::string();
    };
    auto nameStep = [&](int index, int i, int y) {
        std::string name, mask;
        pinText(index, name, mask);
        if (name.empty())
            return;
        const double nameWidth = picPBox.TextWidth(name);
        const double textY = y + (pinHeight - picPBox.TextHeight(name)) / 2.0;
        const double textX = index <= i ? leftNameEnd - nameWidth : rightNameX;
        picPBox.PrintAt(textX, textY, name, kText);
        // The bar stands in the name's own line, a pixel below its top, above the capitals.
        const double barY = textY + twipsY_;
        double x = textX;
        for (size_t p = 1; p <= mask.size(); ++p) {
            const double charWidth = picPBox.TextWidth(Mid(name, p, 1));
            if (mask[p - 1] != ' ')
                picPBox.Line(x, barY, x + charWidth, barY, kText);
            x += charWidth;
        }
    };

    int y = top + margin;
    const int rows = Round(n / 2.0);
    for (int i = 1; i <= rows; ++i) {
        DrawPin3D(picPBox, leftPinX, y, pinLength, pinHeight, kWhite, kShadow, true);
        const std::string number = std::to_string(i);
        picPBox.PrintAt(leftNumberX, y + (pinHeight - picPBox.TextHeight(number)) / 2.0, number,
                        kText);
        nameStep(i, i, y);

        const int other = n + 1 - i;
        DrawPin3D(picPBox, rightPinX, y, pinLength, pinHeight, kWhite, kShadow, false);
        const std::string otherNumber = std::to_string(other);
        picPBox.PrintAt(rightNumberEnd - picPBox.TextWidth(otherNumber),
                        y + (pinHeight - picPBox.TextHeight(otherNumber)) / 2.0, otherNumber,
                        kText);
        nameStep(other, i, y);
        y += pinHeight + pinHeight;
    }

    picPBox.PrintAt(left + (width - picPBox.TextWidth(strChipName)) / 2.0,
                    top + (height - picPBox.TextHeight(strChipName)) / 2.0, strChipName, kText);
    picPBox.Refresh();
}

clsGraphics::Bounds clsGraphics::DrawingBounds(const PictureBox& picture) {
    Bounds bounds;
    bool first = true;
    for (const DrawOp& op : picture.DisplayList()) {
        double left = std::min(op.x1, op.x2), right = std::max(op.x1, op.x2);
        double top = std::min(op.y1, op.y2), bottom = std::max(op.y1, op.y2);
        if (op.type == DrawOp::Type::Text) {
            right = op.x1 + picture.Metrics().TextWidth(op.font, op.text);
            bottom = op.y1 + picture.Metrics().TextHeight(op.font, op.text);
        } else if (op.type == DrawOp::Type::Arc) {
            left = op.x1 - op.radius;
            right = op.x1 + op.radius;
            top = op.y1 - op.radius;
            bottom = op.y1 + op.radius;
        }
        if (first) {
            bounds = Bounds{left, top, right, bottom};
            first = false;
        } else {
            bounds.Left = std::min(bounds.Left, left);
            bounds.Top = std::min(bounds.Top, top);
            bounds.Right = std::max(bounds.Right, right);
            bounds.Bottom = std::max(bounds.Bottom, bottom);
        }
    }
    return bounds;
}

double clsGraphics::DrawChipToFit(PictureBox& picPBox, const std::string& strChipName,
                                  const std::vector<std::string>& astrPin,
                                  double dblLargestScale) {
    constexpr double kStep = 0.05;
    constexpr double kSmallest = 0.5;
    double scale = dblLargestScale;
    for (;;) {
        DrawChip(picPBox, strChipName, astrPin, scale);
        const Bounds drawn = DrawingBounds(picPBox);
        const bool fits = drawn.Left >= 0 && drawn.Top >= 0 && drawn.Right <= picPBox.Width() &&
                          drawn.Bottom <= picPBox.Height();
        if (fits || scale - kStep < kSmallest)
            return scale;
        scale -= kStep;
    }
}

void clsGraphics::DrawChipBody3D(PictureBox& target, int left, int top, int width, int height,
                                 bool notch) {
    const int right = left + width;
    const int bottom = top + height;
    target.FilledBox(left + mintDepthX, top + mintDepthY, right + mintDepthX, bottom + mintDepthY,
                     kShadow, kShadow);
    DrawBox3D(target, left, top, width, height, kFace, kHighlight, kShadow);
    // Bevel: a frame of the face colour one pixel inside the edges, and a shadow groove.
    target.Line(left + twipsX_, top + twipsY_, right - twipsX_, top + twipsY_, kFace);
    target.Line(left + twipsX_, top + twipsY_, left + twipsX_, bottom - twipsY_, kFace);
    target.Line(left + twipsX_, bottom - twipsY_, right - twipsX_, bottom - twipsY_, kFace);
    target.Line(right - twipsX_, top + twipsY_, right - twipsX_, bottom - twipsY_, kFace);
    target.Line(left + 4 * twipsX_, top + 3 * twipsY_, right - 7 * twipsX_, top + 3 * twipsY_,
                kShadow);
    if (notch) {
        const int middle = left + Round(width / 2.0 / twipsX_) * twipsX_;
        DrawNotch3D(target, middle, top, mintDepthX * 2, kFace, kHighlight, kShadow);
    }
}

void clsGraphics::DrawNotch3D(PictureBox& target, int x, int y, int size, Color fill,
                              Color highlight, Color shadow) {
    if (size <= 0)
        return;
    const double pi = std::numbers::pi;
    // Cover the body's top edge and its groove where the notch opens, so that no line of the
    // body runs through it, then the half circle: its left part lies in the shadow, its right
    // part catches the light.
    target.FilledBox(x - size, y, x + size, y + 3 * twipsY_, fill, fill);
    target.Arc(x, y, size, shadow, pi, 1.35 * pi, 1.0);
    target.Arc(x, y, size, highlight, 1.35 * pi, 2.0 * pi, 1.0);
}

void clsGraphics::DrawPin3D(PictureBox& target, int x, int y, int width, int height, Color fill,
                            Color outline, bool leftSide) {
    if (mintPackage == DIP()) {
        DrawPinDIP3D(target, x, y, width, height, fill, outline, leftSide);
        return;
    }
    DrawingSettings keep(target);
    target.FillStyle = 0;
    target.FillColor = fill;
    // The lead from the body, the bend one pin edge below its top, and the foot at the outer end
    // that rests on the board, mintDepthY lower.
    target.FilledBox(x, y, x + width, y + height, outline, fill);
    target.Line(x, y + mintPinEdge, x + width, y + mintPinEdge, outline);
    const int footX = leftSide ? x : x + width - mintDepthX;
    target.FilledBox(footX, y + height, footX + mintDepthX, y + height + mintDepthY, outline, fill);
}

void clsGraphics::DrawPinDIP3D(PictureBox& target, int x, int y, int width, int height, Color fill,
                               Color outline, bool leftSide) {
    DrawingSettings keep(target);
    target.FillStyle = 0;
    target.FillColor = fill;
    // A straight lead with its shadow below, on the side away from the light.
    target.FilledBox(x, y, x + width, y + height, outline, fill);
    const int shadowX = leftSide ? x + mintDepthX : x;
    target.FilledBox(shadowX, y + height, shadowX + width - mintDepthX, y + height + mintDepthY,
                     outline, outline);
}

}  // namespace pendulon
