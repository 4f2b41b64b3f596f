#pragma once
#include <QPoint>

#include "desktop/PictureView.hpp"

namespace pendulon {

class Application;
class Field;

// A picture that floats over its document as a small window of its own (the power and debug
// displays): painted from the picture's display list, placed and shown as the picture says,
// dragged by its title bar. A press in the title asks the program to move the panel; the view
// then follows the mouse until the button is released and stores the new place in the picture.
class FloatingPanel : public PictureView {
    Q_OBJECT
  public:
    FloatingPanel(Application& app, PictureBox& picture, int twipsPerPixelX, int twipsPerPixelY,
                  QWidget* parent);
    ~FloatingPanel() override;

    // Starts a move by the mouse; the left button is down.
    void BeginDrag();
    bool Dragging() const { return dragging_; }
    // The height of the panel's title bar in twips, as its picture painted it.
    static double TitleHeight(const PictureBox& picture);
    // The live panel that shows this picture, if any.
    static FloatingPanel* Find(const Field& picture);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void FollowModel();

    Application& app_;
    int twipsPerPixelX_;
    int twipsPerPixelY_;
    int observerId_ = 0;
    bool dragging_ = false;
    QPoint grabGlobal_;
    QPoint grabPos_;
};

}  // namespace pendulon
