#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontInfo>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <algorithm>

#include "DesktopTests.hpp"
#include "DocumentFixture.hpp"
#include "configurators/frmQX6105A.hpp"
#include "desktop/DesktopPlatform.hpp"
#include "desktop/DocumentPrinter.hpp"
#include "desktop/HelpViewer.hpp"
#include "desktop/PrintPreviewView.hpp"
#include "reports/frmPrintPreview.hpp"

namespace pendulon::test {

namespace {

// A calculated QX6105A and its document in the preview.
struct PreviewFixture : DocumentFixture {
    PreviewFixture() {
        platform.SetFonts({"DejaVu Sans Mono", "Noto Mono", "DejaVu Sans"});
        platform.SetFixedPitchFonts({"DejaVu Sans Mono", "Noto Mono"});
        NewDocument("QX6105A");
        auto& form = Form<frmQX6105A>();
        form.SetFocusTo(&form.txtPLL[0]);
        form.txtPLL[0].SetText("50");
        form.SetFocusTo(nullptr);
        form.cmdCalculate.RaiseClick();
        app->Main().mnuPrint.RaiseClick();
    }
    frmPrintPreview& Preview() { return dynamic_cast<frmPrintPreview&>(*app->Preview()); }
    PrintPreviewView* View() { return ViewOf<PrintPreviewView>(Preview()); }
};

bool Choose(QComboBox* combo, const QString& text) {
    const int i = combo->findText(text);
    if (i < 0)
        return false;
    combo->setCurrentIndex(i);
    emit combo->activated(i);
    return true;
}

}  // namespace

class PrintPreviewViewTest : public QObject {
    Q_OBJECT
  private slots:
    void previewShowsTheDocumentReadOnlyInAFixedPitchFont() {
        PreviewFixture f;
        PrintPreviewView* view = f.View();
        QVERIFY(view != nullptr);
        QPlainTextEdit* text = view->Printout();
        QCOMPARE(text->objectName(), QString("txtPrintout"));
        QVERIFY(text->isReadOnly());
        QVERIFY(text->toPlainText().contains("P/N: "));
        QVERIFY(text->toPlainText().contains("CHECKSUM: "));
        QVERIFY(QFontInfo(text->font()).fixedPitch());
        // The document shows from its first line.
        QCOMPARE(text->textCursor().position(), 0);
        auto* fonts = view->findChild<QComboBox*>("cboPrintFont");
        QCOMPARE(fonts->count(), f.Preview().cboPrintFont.ListCount());
        QCOMPARE(fonts->itemText(0), QString("DejaVu Sans Mono"));
        QCOMPARE(fonts->itemText(1), QString("Noto Mono"));
        KeepPicture(view, "frmPrintPreview");
        for (const char* name : {"cmdPrint", "cmdSave", "cmdClose", "cmdExportPDF"})
            QVERIFY2(view->findChild<QPushButton*>(name) != nullptr, name);
    }

    void fontAndSizeChoicesChangeTheTextFont() {
        PreviewFixture f;
        PrintPreviewView* view = f.View();
        QPlainTextEdit* text = view->Printout();
        QVERIFY(Choose(view->findChild<QComboBox*>("cboPrintFont"), "Noto Mono"));
        QCOMPARE(f.Preview().txtPrintout.FontName(), std::string("Noto Mono"));
        QCOMPARE(text->font().family(), QString("Noto Mono"));
        QVERIFY(Choose(view->findChild<QComboBox*>("cboPrintFont"), "DejaVu Sans Mono"));
        QCOMPARE(text->font().family(), QString("DejaVu Sans Mono"));
        auto* sizes = view->findChild<QComboBox*>("cboPrintSize");
        // A scalable face takes every size: the size list is in use.
        QVERIFY(sizes->isEnabled());
        f.platform.SetFonts({"Courier New", "DejaVu Sans Mono", "Noto Mono"});
        f.Preview().Form_Load();
        QVERIFY(Choose(view->findChild<QComboBox*>("cboPrintFont"), "Courier New"));
        QVERIFY(sizes->isEnabled());
        // The sizes are right-aligned in three characters: " 12".
        QVERIFY(Choose(sizes, " 12"));
        QCOMPARE(text->font().pointSizeF(), 12.0);
        QVERIFY(Choose(sizes, " 10"));
        QCOMPARE(text->font().pointSizeF(), 10.0);
    }

    void exportPdfWritesTheDocumentThatATextReaderReadsBack() {
        const QString pdftotext = QStandardPaths::findExecutable("pdftotext");
        if (pdftotext.isEmpty())
            QSKIP("pdftotext is not installed");
        PreviewFixture f;
        PrintPreviewView* view = f.View();
        QTemporaryDir dir;
        const QString path = dir.filePath("document.pdf");
        QVERIFY(view->ExportPdfTo(path));
        QVERIFY(QFileInfo(path).size() > 0);
        QVERIFY(!QFileInfo::exists(dir.filePath(".document.pdf.part")));
        QProcess reader;
        reader.start(pdftotext, {"-layout", path, "-"});
        QVERIFY(reader.waitForFinished(30000));
        QCOMPARE(reader.exitCode(), 0);
        const QString read = QString::fromUtf8(reader.readAllStandardOutput());
        const QString document = view->Printout()->toPlainText();
        QString partLine, checksumLine;
        for (const QString& line : document.split('\n')) {
            if (line.startsWith("P/N: "))
                partLine = line.trimmed();
            if (line.startsWith("CHECKSUM: "))
                checksumLine = line.trimmed();
        }
        QVERIFY(!partLine.isEmpty());
        QVERIFY(!checksumLine.isEmpty());
        QVERIFY2(read.contains(partLine), qPrintable(partLine));
        QVERIFY2(read.contains(checksumLine), qPrintable(checksumLine));
    }

    void exportPdfToAMissingFolderReportsAndWritesNothing() {
        PreviewFixture f;
        QTemporaryDir dir;
        const QString path = dir.filePath("no such folder/document.pdf");
        f.platform.ClearMessages();
        QVERIFY(!f.View()->ExportPdfTo(path));
        QCOMPARE(int(f.platform.Messages().size()), 1);
        QVERIFY(QString::fromStdString(f.platform.Messages().front().Text)
                    .contains("Path/File access error"));
        QVERIFY(!QFileInfo::exists(path));
        QVERIFY(f.app->Preview() != nullptr);  // the preview stays open
    }

    void exportPdfOverAnExistingFileReplacesItWhole() {
        PreviewFixture f;
        QTemporaryDir dir;
        const QString path = dir.filePath("old.pdf");
        {
            QFile old(path);
            QVERIFY(old.open(QIODevice::WriteOnly));
            old.write("not a pdf");
        }
        QVERIFY(f.View()->ExportPdfTo(path));
        QFile now(path);
        QVERIFY(now.open(QIODevice::ReadOnly));
        QVERIFY(now.readAll().startsWith("%PDF"));
    }

    void longDocumentsBreakIntoPages() {
        QStringList lines;
        for (int i = 0; i < 200; ++i) lines << QString("line %1").arg(i);
        QTemporaryDir dir;
        const QString path = dir.filePath("long.pdf");
        const QFont font = DocumentPrinter::DocumentFont("DejaVu Sans Mono", 10);
        QVERIFY(DocumentPrinter::ExportPdf(path, font, lines.join("\r\n")).isEmpty());
        const QString pdftotext = QStandardPaths::findExecutable("pdftotext");
        if (pdftotext.isEmpty())
            QSKIP("pdftotext is not installed");
        QProcess reader;
        reader.start(pdftotext, {path, "-"});
        QVERIFY(reader.waitForFinished(30000));
        const QString read = QString::fromUtf8(reader.readAllStandardOutput());
        // Pages are separated by form feeds; every line is there once.
        QVERIFY(read.count('\f') >= 3);
        QVERIFY(read.contains("line 0"));
        QVERIFY(read.contains("line 199"));
    }

    void documentLinesAcceptEveryLineEnd() {
        QCOMPARE(DocumentPrinter::Lines("a\r\nb\rc\nd\r\n"), QStringList({"a", "b", "c", "d"}));
        QCOMPARE(DocumentPrinter::Lines(""), QStringList());
    }

    void closeButtonUnloadsThePreview() {
        PreviewFixture f;
        QVERIFY(f.ShowAndActivate());
        QPointer<PrintPreviewView> view = f.View();
        QTest::mouseClick(view->findChild<QPushButton*>("cmdClose"), Qt::LeftButton);
        QTRY_VERIFY(f.app->Preview() == nullptr);
        QTRY_VERIFY(view.isNull());
        QVERIFY(f.app->Document() != nullptr);
    }

    void previewHasNoMenuBarOfItsOwnTheMainWindowsMenusServeIt() {
        PreviewFixture f;
        QVERIFY(f.ShowAndActivate());
        PrintPreviewView* view = f.View();
        QVERIFY(view->findChild<QMenuBar*>() == nullptr);
        auto* tile = f.window->findChild<QAction*>("mnuTile");
        QVERIFY(tile != nullptr);
        int arranged = -1;
        f.app->Main().Arrange = [&arranged](int how) { arranged = how; };
        tile->trigger();
        QCOMPARE(arranged, 1);
    }

    void desktopPrintingPrintsOnThePrinterAsSetUp() {
        ViewRegistry views;
        DesktopPlatform platform(views);
        platform.printWithoutDialog = true;
        QTemporaryDir dir;
        const QString path = dir.filePath("printed.pdf");
        platform.Printer().setOutputFormat(QPrinter::PdfFormat);
        platform.Printer().setOutputFileName(path);
        QVERIFY(platform.PrintText("DejaVu Sans Mono", 9, "P/N: qx6105\r\nCHECKSUM: 1234\r\n"));
        QVERIFY(QFileInfo(path).size() > 0);
    }

    void desktopFontListsHoldOnlyFixedPitchFamilies() {
        ViewRegistry views;
        DesktopPlatform platform(views);
        const std::vector<std::string> fonts = platform.FixedPitchFonts();
        QVERIFY(std::find(fonts.begin(), fonts.end(), "DejaVu Sans Mono") != fonts.end());
        QVERIFY(std::find(fonts.begin(), fonts.end(), "DejaVu Sans") == fonts.end());
        QVERIFY(!platform.SystemFixedFont().empty());
    }

    void helpContentsShowsTheManualFormatted() {
        const QString manual = QString(PENDULON_SOURCE_DIR) + "/docs/manual.md";
        QString error;
        const QString markdown = HelpViewer::ReadManual(manual, &error);
        QVERIFY2(!markdown.isEmpty(), qPrintable(error));
        HelpViewer viewer(markdown, QFileInfo(manual).absolutePath());
        const QString shown = viewer.Browser()->toPlainText();
        // The first heading shows as text, without its Markdown marks.
        QString heading;
        for (const QString& line : markdown.split('\n')) {
            if (line.startsWith("# ")) {
                heading = line.mid(2).trimmed();
                break;
            }
        }
        QVERIFY(!heading.isEmpty());
        QVERIFY(shown.contains(heading));
        QVERIFY(!shown.contains("# " + heading));
    }

    void helpFileThatCannotBeReadGivesItsReason() {
        QString error;
        QVERIFY(HelpViewer::ReadManual("/no/such/manual.md", &error).isEmpty());
        QVERIFY(!error.isEmpty());
    }
};

QObject* MakePrintPreviewViewTest() {
    return new PrintPreviewViewTest;
}

}  // namespace pendulon::test

#include "PrintPreviewViewTest.moc"
