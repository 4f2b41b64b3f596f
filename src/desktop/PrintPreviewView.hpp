#pragma once
#include <QWidget>
#include <string>

class QPlainTextEdit;
class QPushButton;

namespace pendulon {

class Application;
class Binder;
class frmPrintPreview;

// The print preview: the document in a read-only fixed-pitch text, the font and size lists,
// Print, Save, Close, and an export of the document as a PDF file. The main window's menus
// serve it; it has no menu bar of its own.
class PrintPreviewView : public QWidget {
    Q_OBJECT
  public:
    PrintPreviewView(frmPrintPreview& form, Application& app, QWidget* parent = nullptr,
                     int twipsPerPixelX = 15, int twipsPerPixelY = 15);
    ~PrintPreviewView() override;

    QSize sizeHint() const override { return QSize(820, 600); }
    Binder& GetBinder() const { return *binder_; }
    QPlainTextEdit* Printout() const { return text_; }

    // Asks for a file name, then exports.
    void cmdExportPDF_Click();
    // Writes the document as a PDF file at path in the chosen font and size. An error goes to
    // the error report and leaves whatever stood at path as it was.
    bool ExportPdfTo(const QString& path);

  private:
    // Font, lock and scroll position of the text, after the binder has set the text.
    void FollowFont();

    frmPrintPreview& form_;
    Application& app_;
    Binder* binder_ = nullptr;
    QPlainTextEdit* text_ = nullptr;
    int observerId_ = 0;
    std::string shownText_;
};

}  // namespace pendulon
