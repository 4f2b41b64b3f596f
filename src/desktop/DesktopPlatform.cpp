#include "desktop/DesktopPlatform.hpp"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>

#include "desktop/DocumentPrinter.hpp"
#include "desktop/HelpViewer.hpp"
#include "platform/CommonDialog.hpp"

namespace pendulon {

std::vector<std::string> DesktopPlatform::FixedPitchFonts() {
    std::vector<std::string> fonts;
    for (const QString& family : QFontDatabase::families()) {
        if (QFontDatabase::isPrivateFamily(family))
            continue;
        if (QFontDatabase::isFixedPitch(family))
            fonts.push_back(family.toStdString());
    }
    return fonts;
}

std::string DesktopPlatform::SystemFixedFont() {
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family().toStdString();
}

bool DesktopPlatform::PrintText(const std::string& fontName, double size, const std::string& text) {
    QPrinter& printer = Printer();
    if (!printWithoutDialog) {
        QPrintDialog dialog(&printer, QApplication::activeWindow());
        dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
        if (dialog.exec() != QDialog::Accepted)
            return true;  // the user chose not to print
    }
    const QFont font = DocumentPrinter::DocumentFont(QString::fromStdString(fontName), size);
    return DocumentPrinter::Print(printer, font, QString::fromStdString(text));
}

void DesktopPlatform::ShowHelp(CommonDialog& dialog) {
    const QString path = QString::fromStdString(dialog.HelpFile);
    QString error;
    const QString manual = HelpViewer::ReadManual(path, &error);
    if (manual.isEmpty()) {
        QMessageBox::information(QApplication::activeWindow(), QApplication::applicationName(),
                                 QString("The help file %1 cannot be opened (%2).")
                                     .arg(QDir::toNativeSeparators(path), error));
        return;
    }
    HelpViewer viewer(manual, QFileInfo(path).absolutePath(), QApplication::activeWindow());
    viewer.exec();
}

}  // namespace pendulon
