#include "desktop/PrintPreviewView.hpp"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QTextCursor>
#include <QTimer>
#include <QVBoxLayout>

#include "app/Configurator.hpp"
#include "desktop/Binder.hpp"
#include "desktop/DocumentPrinter.hpp"
#include "platform/ErrorReport.hpp"
#include "reports/frmPrintPreview.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {

namespace {
constexpr long kFileAccessError = 75;
constexpr double kFallbackSize = 9;

QPushButton* Button(const char* name, QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}
}  // namespace

PrintPreviewView::PrintPreviewView(frmPrintPreview& form, Application& app, QWidget* parent,
                                   int twipsPerPixelX, int twipsPerPixelY)
    : QWidget(parent), form_(form), app_(app) {
    setObjectName("frmPrintPreviewView");
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(6, 6, 6, 6);

    // The preview has no menu bar of its own: the main window's menus serve it, as they
    // serve every document window.
    auto* bar = new QHBoxLayout;
    auto* fontLabel = new QLabel(this);
    fontLabel->setObjectName("lblPrintFont");
    auto* fonts = new QComboBox(this);
    fonts->setObjectName("cboPrintFont");
    fonts->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* sizeLabel = new QLabel(this);
    sizeLabel->setObjectName("lblFontSize");
    auto* sizes = new QComboBox(this);
    sizes->setObjectName("cboPrintSize");
    bar->addWidget(fontLabel);
    bar->addWidget(fonts);
    bar->addSpacing(12);
    bar->addWidget(sizeLabel);
    bar->addWidget(sizes);
    bar->addStretch();
    bar->addWidget(Button("cmdPrint", this));
    bar->addWidget(Button("cmdSave", this));
    QPushButton* pdf = Button("cmdExportPDF", this);
    pdf->setText(tr("Export PDF..."));
    bar->addWidget(pdf);
    QPushButton* close = Button("cmdClose", this);
    bar->addWidget(close);
    root->addLayout(bar);

    text_ = new QPlainTextEdit(this);
    text_->setObjectName("txtPrintout");
    text_->setReadOnly(true);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    root->addWidget(text_, 1);

    binder_ = new Binder(form_, this, twipsPerPixelX, twipsPerPixelY);
    // Close unloads this view: run it once the click is over.
    disconnect(close, &QPushButton::clicked, binder_, nullptr);
    connect(close, &QPushButton::clicked, binder_,
            [this] { QTimer::singleShot(0, binder_, [this] { form_.cmdClose.RaiseClick(); }); });
    connect(pdf, &QPushButton::clicked, this, [this] { cmdExportPDF_Click(); });

    observerId_ = form_.txtPrintout.AddObserver([this](Field&) { FollowFont(); });
    FollowFont();
}

PrintPreviewView::~PrintPreviewView() {
    form_.txtPrintout.RemoveObserver(observerId_);
}

void PrintPreviewView::FollowFont() {
    const double size =
        form_.txtPrintout.FontSize() > 0 ? form_.txtPrintout.FontSize() : kFallbackSize;
    const QFont font =
        DocumentPrinter::DocumentFont(QString::fromStdString(form_.txtPrintout.FontName()), size);
    if (text_->font() != font)
        text_->setFont(font);
    // A preview shows the document; it never edits it.
    text_->setReadOnly(true);
    // A new document is shown from its first line.
    const std::string& shown = form_.txtPrintout.Text();
    if (shown != shownText_) {
        shownText_ = shown;
        text_->moveCursor(QTextCursor::Start);
        text_->ensureCursorVisible();
    }
}

void PrintPreviewView::cmdExportPDF_Click() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    // Named after the document, as its window calls it.
    QString name = "Document";
    if (app_.Document() != nullptr && !app_.Document()->Caption().empty())
        name = QFileInfo(QString::fromStdString(app_.Document()->Caption())).completeBaseName();
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Export PDF"), folder + "/" + name + ".pdf",
                                     tr("PDF Files (*.pdf);;All Files (*)"));
    if (path.isEmpty())
        return;  // cancelled
    QString target = path;
    if (QFileInfo(target).suffix().isEmpty())
        target += ".pdf";
    ExportPdfTo(target);
}

bool PrintPreviewView::ExportPdfTo(const QString& path) {
    const double size =
        form_.txtPrintout.FontSize() > 0 ? form_.txtPrintout.FontSize() : kFallbackSize;
    const QFont font =
        DocumentPrinter::DocumentFont(QString::fromStdString(form_.txtPrintout.FontName()), size);
    const QString problem =
        DocumentPrinter::ExportPdf(path, font, QString::fromStdString(form_.txtPrintout.Text()));
    if (!problem.isEmpty()) {
        app_.Errors().Raise(
            kFileAccessError, "(frmPrintPreview) cmdExportPDF_Click",
            "Path/File access error: " + path.toStdString() + " (" + problem.toStdString() + ")");
        return false;
    }
    app_.Main().ShowHelp("Document exported to \"" + path.toStdString() + "\"");
    return true;
}

}  // namespace pendulon
