#pragma once
#include <QWidget>

namespace pendulon {

class Application;
class PrintPreviewView;
class frmReadBack;

// The read-back of a fuse map: the file, the device and reference choices and Open as Document
// above the read-back document, which prints, saves and exports as the print preview does.
class ReadBackView : public QWidget {
    Q_OBJECT
  public:
    ReadBackView(frmReadBack& form, Application& app, QWidget* parent = nullptr,
                 int twipsPerPixelX = 15, int twipsPerPixelY = 15);

    QSize sizeHint() const override { return QSize(860, 640); }
    PrintPreviewView* Preview() const { return preview_; }

  private:
    PrintPreviewView* preview_ = nullptr;
};

}  // namespace pendulon
