#pragma once
#include <QWidget>
#include <memory>

#include "desktop/QtTextMetrics.hpp"

namespace pendulon {

class PictureBox;

// Paints the display list of a picture field and repaints whenever the field changes.
class PictureView : public QWidget {
    Q_OBJECT
  public:
    PictureView(PictureBox& picture, int twipsPerPixelX, int twipsPerPixelY,
                QWidget* parent = nullptr);
    ~PictureView() override;

    PictureBox& Picture() const { return picture_; }
    // The picture's own size in pixels.
    QSize sizeHint() const override;
    int PaintCount() const { return paintCount_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    PictureBox& picture_;
    int twipsPerPixelX_;
    int twipsPerPixelY_;
    int observerId_ = 0;
    // The picture measures its text in the fonts this view paints with.
    std::unique_ptr<QtTextMetrics> metrics_;
    int paintCount_ = 0;
};

}  // namespace pendulon
