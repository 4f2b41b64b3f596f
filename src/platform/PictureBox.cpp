#include "platform/PictureBox.hpp"

namespace pendulon {

PictureBox::PictureBox() : Field(FieldKind::Picture) {
    SetBackColor(colors::ButtonFace);
}

void PictureBox::Cls() {
    ops_.clear();
    CurrentX = 0;
    CurrentY = 0;
    Notify();
}

DrawOp& PictureBox::AddOp(DrawOp::Type type, double x, double y, Color color) {
    DrawOp& op = ops_.emplace_back();
    op.type = type;
    op.x1 = x;
    op.y1 = y;
    op.color = color;
    return op;
}

void PictureBox::AddShape(DrawOp::Type type, double x1, double y1, double x2, double y2,
                          Color color, Color fill) {
    DrawOp& op = AddOp(type, x1, y1, color);
    op.x2 = x2;
    op.y2 = y2;
    op.fillColor = fill;
    op.drawWidth = DrawWidth;
    // The pen stays at the end point, as after the classic Line statement.
    CurrentX = x2;
    CurrentY = y2;
}

void PictureBox::AddText(double x, double y, const std::string& text, Color color) {
    DrawOp& op = AddOp(DrawOp::Type::Text, x, y, color);
    op.text = text;
    op.font = Font();
}

void PictureBox::Line(double x1, double y1, double x2, double y2, Color color) {
    AddShape(DrawOp::Type::Line, x1, y1, x2, y2, color, 0);
}

void PictureBox::Box(double x1, double y1, double x2, double y2, Color color) {
    AddShape(DrawOp::Type::Box, x1, y1, x2, y2, color, 0);
}

void PictureBox::FilledBox(double x1, double y1, double x2, double y2, Color color, Color fill) {
    AddShape(DrawOp::Type::FilledBox, x1, y1, x2, y2, color, fill);
}

void PictureBox::Arc(double cx, double cy, double radius, Color color, double start, double end,
                     double aspect) {
    DrawOp& op = AddOp(DrawOp::Type::Arc, cx, cy, color);
    op.radius = radius;
    op.start = start;
    op.end = end;
    op.aspect = aspect;
    op.drawWidth = DrawWidth;
}

void PictureBox::Print(const std::string& text, bool newLine) {
    AddText(CurrentX, CurrentY, text, ForeColor());
    if (newLine) {
        CurrentX = 0;
        CurrentY += TextHeight(text.empty() ? std::string_view("X") : std::string_view(text));
    } else {
        CurrentX += TextWidth(text);
    }
}

void PictureBox::PrintAt(double x, double y, const std::string& text, Color color) {
    AddText(x, y, text, color);
    CurrentX = x + TextWidth(text);
    CurrentY = y;
}

double PictureBox::TextWidth(std::string_view text) const {
    return Metrics().TextWidth(Font(), text);
}
double PictureBox::TextHeight(std::string_view text) const {
    return Metrics().TextHeight(Font(), text);
}

}  // namespace pendulon
