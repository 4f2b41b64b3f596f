#pragma once
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <vector>

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
    // Where a panel of this size covers none of the taken rectangles inside the area: the
    // lowest such place, and of those the rightmost, so that it stands beside the buttons at
    // the bottom right of a document. With no such place, the one that covers the least.
    static QPoint FreePlace(const QSize& size, const QRect& area, const std::vector<QRect>& taken);
    // The rectangles of the fields in sight in a document view: every named widget but the
    // panels and what stands in the room (if any), as far as it is not scrolled or clipped away.
    static std::vector<QRect> FieldRectangles(const QWidget& host, const QWidget* room = nullptr);
    // A room of the document kept empty for this panel: it is where the panel first shows,
    // in place of a free place looked for among the fields.
    void SetRoom(QWidget* room) { room_ = room; }
    // Whether the panel stands in its room, where the user has not moved it from.
    bool InRoom() const { return inRoom_; }

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void FollowModel();
    // On its first show a panel that has no place of its own yet (its picture stands at the
    // document's corner, where the stored place is missing or unusable), or whose place lies
    // partly outside this document or hides one of its fields (a place kept from another
    // document's layout), takes its room or a free place.
    void TakeFreePlace();
    // Keeps a panel that stands in its room (and was not moved by the user) on the room.
    void FollowRoom();

    Application& app_;
    int twipsPerPixelX_;
    int twipsPerPixelY_;
    int observerId_ = 0;
    bool dragging_ = false;
    bool placed_ = false;
    bool placeWanted_ = false;
    bool inRoom_ = false;
    QPoint grabGlobal_;
    QPoint grabPos_;
    QPointer<QWidget> room_;
};

}  // namespace pendulon
