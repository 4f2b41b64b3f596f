#pragma once
#include <QFont>
#include <QString>

class QPagedPaintDevice;
class QPrinter;

namespace pendulon {

// Lays a plain text out on pages in one fixed-pitch font, line by line, as the printed
// document and its PDF copy show it.
class DocumentPrinter {
  public:
    // The font of a document: the family asked for, fixed pitch, at that size in points. A
    // family the system lacks resolves to the nearest fixed-pitch face it has.
    static QFont DocumentFont(const QString& family, double points);
    // The lines of a text with CR LF, CR or LF ends; a final line end adds no empty line.
    static QStringList Lines(const QString& text);
    // Paints the text on the device, starting a new page whenever a line would not fit.
    // Returns the number of pages, or 0 when the device could not be painted on.
    static int Render(QPagedPaintDevice& device, const QFont& font, const QString& text);
    // Prints on a printer that is already set up.
    static bool Print(QPrinter& printer, const QFont& font, const QString& text);
    // Writes the text as a PDF file at path: first beside it under a temporary name, then
    // renamed over it, so that a failed export never leaves half a file. Empty on success,
    // otherwise what went wrong.
    static QString ExportPdf(const QString& path, const QFont& font, const QString& text);
};

}  // namespace pendulon
