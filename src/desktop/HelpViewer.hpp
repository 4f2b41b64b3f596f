#pragma once
#include <QDialog>

class QTextBrowser;

namespace pendulon {

// The manual, a Markdown file, shown formatted in a browser with working links.
class HelpViewer : public QDialog {
    Q_OBJECT
  public:
    HelpViewer(const QString& markdown, const QString& folder, QWidget* parent = nullptr);
    QTextBrowser* Browser() const { return browser_; }

    // Reads the manual at path; an empty result with error set when it cannot be read.
    static QString ReadManual(const QString& path, QString* error);

  private:
    QTextBrowser* browser_;
};

}  // namespace pendulon
