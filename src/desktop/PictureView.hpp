#pragma once
#include <QWidget>

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
    int paintCount_ = 0;
};

}  // namespace pendulon
