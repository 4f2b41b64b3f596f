#pragma once
#include <string>
#include <vector>

#include "platform/Field.hpp"
#include "platform/TextMetrics.hpp"

namespace pendulon {

// One drawing operation of a picture's display list. Coordinates are twips inside the picture.
struct DrawOp {
    enum class Type { Line, Box, FilledBox, Text, Arc };
    Type type = Type::Line;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Color color = 0;
    Color fillColor = 0;
    int drawWidth = 1;
    // Text
    std::string text;
    FontSpec font;
    // Arc: centre (x1, y1), radius, angles in radians, aspect ratio height / width.
    double radius = 0, start = 0, end = 0, aspect = 1;
};

// A picture field: a canvas that records what is drawn on it as a display list, and answers
// text metrics through the platform's measurer.
class PictureBox : public Field {
  public:
    PictureBox();

    // Drawing state.
    double CurrentX = 0;
    double CurrentY = 0;
    Color FillColor = 0;
    int FillStyle = 1;  // 0 solid, 1 transparent
    int DrawWidth = 1;
    int ScaleMode = 1;  // twips
    bool AutoRedraw = false;

    // The measurer of this picture's text; nullptr measures with the screen's.
    void SetTextMetrics(const TextMetrics* metrics) { metrics_ = metrics; }
    const TextMetrics& Metrics() const {
        return metrics_ != nullptr ? *metrics_ : ScreenTextMetrics();
    }
    FontSpec Font() const { return FontSpec{FontName(), FontSize(), FontBold()}; }

    void Cls();
    void Line(double x1, double y1, double x2, double y2, Color color);
    void Box(double x1, double y1, double x2, double y2, Color color);
    void FilledBox(double x1, double y1, double x2, double y2, Color color, Color fill);
    void Arc(double cx, double cy, double radius, Color color, double start, double end,
             double aspect = 1.0);
    // Prints at CurrentX, CurrentY. With newLine the position moves to the next line at x 0,
    // otherwise CurrentX moves behind the text.
    void Print(const std::string& text, bool newLine = true);
    void PrintAt(double x, double y, const std::string& text, Color color);

    double TextWidth(std::string_view text) const;
    double TextHeight(std::string_view text) const;

    const std::vector<DrawOp>& DisplayList() const { return ops_; }
    // Tells the view that the display list is complete and should be painted.
    void Refresh() { Notify(); }

  private:
    // Appends an operation of type at (x, y) in color to the display list.
    DrawOp& AddOp(DrawOp::Type type, double x, double y, Color color);
    void AddShape(DrawOp::Type type, double x1, double y1, double x2, double y2, Color color,
                  Color fill);
    void AddText(double x, double y, const std::string& text, Color color);

    const TextMetrics* metrics_ = nullptr;
    std::vector<DrawOp> ops_;
};

}  // namespace pendulon
