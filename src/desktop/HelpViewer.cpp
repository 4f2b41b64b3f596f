#include "desktop/HelpViewer.hpp"

#include <QDialogButtonBox>
#include <QFile>
#include <QTextBrowser>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>

namespace pendulon {

HelpViewer::HelpViewer(const QString& markdown, const QString& folder, QWidget* parent)
    : QDialog(parent) {
    setObjectName("dlgHelp");
    setWindowTitle(tr("Pendulon Help"));
    auto* layout = new QVBoxLayout(this);
    browser_ = new QTextBrowser(this);
    browser_->setObjectName("txtHelp");
    browser_->setOpenExternalLinks(true);
    // Pictures and links of the manual are relative to its folder.
    browser_->setSearchPaths({folder});
    browser_->document()->setBaseUrl(QUrl::fromLocalFile(folder + "/"));
    browser_->setMarkdown(markdown);
    layout->addWidget(browser_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    resize(760, 600);
}

QString HelpViewer::ReadManual(const QString& path, QString* error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error != nullptr)
            *error = file.errorString();
        return {};
    }
    return QString::fromUtf8(file.readAll());
}

}  // namespace pendulon
