#include "desktop/QtTextMetrics.hpp"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QString>
#include <QStringList>

namespace pendulon {

QFont QtTextMetrics::ToQFont(const FontSpec& font) {
    const QString name = QString::fromStdString(font.Name);
    QFont result(name);
    if (!QFontDatabase::hasFamily(name)) {
        // Fonts of another system: the nearest in width that this one has, so that pictures
        // laid out for them still fit.
        if (name.contains("Courier", Qt::CaseInsensitive) ||
            name.contains("Mono", Qt::CaseInsensitive)) {
            result.setFamilies(QStringList{"Courier New", "Liberation Mono", "Nimbus Mono PS",
                                           "DejaVu Sans Mono"});
            result.setStyleHint(QFont::TypeWriter);
        } else if (name.contains("Sans", Qt::CaseInsensitive) ||
                   name.contains("Arial", Qt::CaseInsensitive)) {
            result.setFamilies(QStringList{"Arial", "Liberation Sans", "Nimbus Sans", "Helvetica"});
            result.setStyleHint(QFont::SansSerif);
        } else {
            result = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
        }
    }
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
        if (c == '\n')
            ++lines;
    return metrics.height() * double(lines) * twipsPerPixelY_;
}

}  // namespace pendulon
