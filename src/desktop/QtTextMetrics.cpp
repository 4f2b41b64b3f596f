#include "desktop/QtTextMetrics.hpp"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QString>

namespace pendulon {

QFont QtTextMetrics::ToQFont(const FontSpec& font) {
    QFont result(QString::fromStdString(font.Name));
    // The product's classic dialog font is not on this system; use the general UI font.
    if (!QFontDatabase::hasFamily(result.family()))
        result = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    result.setPointSizeF(font.Size > 0 ? font.Size : 8.25);
    result.setBold(font.Bold);
    return result;
}

double QtTextMetrics::TextWidth(const FontSpec& font, std::string_view text) const {
    const QFontMetricsF metrics(ToQFont(font));
    return metrics.horizontalAdvance(QString::fromUtf8(text.data(), qsizetype(text.size()))) *
           twipsPerPixelX_;
}

double QtTextMetrics::TextHeight(const FontSpec& font, std::string_view text) const {
    const QFontMetricsF metrics(ToQFont(font));
    // A text of several lines is as high as its lines.
    qsizetype lines = 1;
    for (char c : text)
        if (c == '\n') ++lines;
    return metrics.height() * double(lines) * twipsPerPixelY_;
}

}  // namespace pendulon
