#include "desktop/DocumentPrinter.hpp"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QStringList>
#include <filesystem>
#include <system_error>

namespace pendulon {

QFont DocumentPrinter::DocumentFont(const QString& family, double points) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    // A family the system lacks resolves to its nearest fixed-pitch face.
    if (!family.isEmpty())
        font.setFamily(family);
    font.setStyleHint(QFont::Monospace, QFont::PreferMatch);
    font.setFixedPitch(true);
    font.setPointSizeF(points > 0 ? points : 9);
    return font;
}

QStringList DocumentPrinter::Lines(const QString& text) {
    QString unified = text;
    unified.replace("\r\n", "\n");
    unified.replace('\r', '\n');
    QStringList lines = unified.split('\n');
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

int DocumentPrinter::Render(QPagedPaintDevice& device, const QFont& font, const QString& text) {
    QPainter painter;
    if (!painter.begin(&device))
        return 0;
    painter.setFont(font);
    const QFontMetricsF metrics(painter.font(), &device);
    const double lineHeight = metrics.lineSpacing();
    // The painter's origin is the top left of the printable area.
    const double pageHeight = device.height();
    int pages = 1;
    double y = metrics.ascent();
    for (const QString& line : Lines(text)) {
        if (y + metrics.descent() > pageHeight && y > metrics.ascent()) {
            device.newPage();
            ++pages;
            y = metrics.ascent();
        }
        // Tabs of a document stand for eight columns.
        QString shown = line;
        shown.replace('\t', QString(8, ' '));
        painter.drawText(QPointF(0, y), shown);
        y += lineHeight;
    }
    painter.end();
    return pages;
}

bool DocumentPrinter::Print(QPrinter& printer, const QFont& font, const QString& text) {
    return Render(printer, font, text) > 0;
}

QString DocumentPrinter::ExportPdf(const QString& path, const QFont& font, const QString& text) {
    const QFileInfo target(path);
    if (path.isEmpty() || !target.absoluteDir().exists())
        return QString("the folder %1 does not exist").arg(target.absolutePath());
    const QString temporary = target.absoluteDir().filePath("." + target.fileName() + ".part");
    {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(temporary);
        printer.setDocName(target.completeBaseName());
        printer.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
        if (Render(printer, font, text) == 0) {
            QFile::remove(temporary);
            return QString("%1 cannot be written").arg(path);
        }
    }
    std::error_code ec;
    std::filesystem::rename(temporary.toStdString(), target.absoluteFilePath().toStdString(), ec);
    if (ec) {
        QFile::remove(temporary);
        return QString::fromStdString(ec.message());
    }
    return {};
}

}  // namespace pendulon
