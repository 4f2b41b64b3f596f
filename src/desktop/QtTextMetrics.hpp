#pragma once
#include <QFont>

#include "platform/TextMetrics.hpp"

namespace pendulon {

// Measures text with the real fonts of the screen, in twips.
class QtTextMetrics : public TextMetrics {
  public:
    QtTextMetrics(double twipsPerPixelX, double twipsPerPixelY)
        : twipsPerPixelX_(twipsPerPixelX), twipsPerPixelY_(twipsPerPixelY) {}
    double TextWidth(const FontSpec& font, std::string_view text) const override;
    double TextHeight(const FontSpec& font, std::string_view text) const override;

    // The Qt font for a font of the product; unknown names fall back to the system's sans font.
    static QFont ToQFont(const FontSpec& font);

  private:
    double twipsPerPixelX_;
    double twipsPerPixelY_;
};

}  // namespace pendulon
