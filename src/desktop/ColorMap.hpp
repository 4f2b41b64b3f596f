#pragma once
#include <QColor>
#include <QPalette>

#include "platform/Color.hpp"

namespace pendulon {

// Turns the product's colours into Qt colours: RGB values directly (red in the lowest byte),
// system colours through the palette role they stand for.
class ColorMap {
  public:
    static QPalette::ColorRole RoleOf(Color systemColor);
    static QColor ToQColor(Color color, const QPalette& palette);
};

}  // namespace pendulon
