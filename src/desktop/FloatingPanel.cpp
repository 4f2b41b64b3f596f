#include "desktop/FloatingPanel.hpp"

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "desktop/KeyModifiers.hpp"
#include "platform/PictureBox.hpp"
#include "power/frmPower.hpp"
#include "shell/Application.hpp"
#include "app/mSharedApp.hpp"

namespace pendulon {

namespace {
constexpr double kDefaultTitleHeight = 300;  // twips, before the panel is first painted
}  // namespace

FloatingPanel::FloatingPanel(Application& app, PictureBox& picture, int twipsPerPixelX,
                             int twipsPerPixelY, QWidget* parent)
    : PictureView(picture, twipsPerPixelX, twipsPerPixelY, parent),
      app_(app),
      twipsPerPixelX_(std::max(1, twipsPerPixelX)),
      twipsPerPixelY_(std::max(1, twipsPerPixelY)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::ArrowCursor);
    observerId_ = picture.AddObserver([this](Field&) { FollowModel(); });
    if (parent != nullptr)
        parent->installEventFilter(this);
    FollowModel();
}

FloatingPanel::~FloatingPanel() {
    Picture().RemoveObserver(observerId_);
}

double FloatingPanel::TitleHeight(const PictureBox& picture) {
    for (const DrawOp& op : picture.DisplayList()) {
        if (op.type == DrawOp::Type::FilledBox && op.y1 == 0 && op.y2 > 0)
            return op.y2;
    }
    return kDefaultTitleHeight;
}

FloatingPanel* FloatingPanel::Find(const Field& picture) {
    for (QWidget* widget : QApplication::allWidgets()) {
        auto* panel = qobject_cast<FloatingPanel*>(widget);
        if (panel != nullptr && &panel->Picture() == &picture)
            return panel;
    }
    return nullptr;
}

QPoint FloatingPanel::FreePlace(const QSize& size, const QRect& area,
                                const std::vector<QRect>& taken) {
    constexpr int kStep = 4;  // pixels between the places tried
    constexpr int kGap = 4;   // pixels kept free around each field
    const int right = std::max(area.left(), area.right() + 1 - size.width());
    const int bottom = std::max(area.top(), area.bottom() + 1 - size.height());
    QPoint best(right, bottom);
    long long leastCovered = -1;
    for (int y = bottom; y >= area.top(); y -= kStep) {
        for (int x = right; x >= area.left(); x -= kStep) {
            const QRect place(QPoint(x, y), size);
            long long covered = 0;
            for (const QRect& field : taken) {
                const QRect common = field.adjusted(-kGap, -kGap, kGap, kGap).intersected(place);
                if (!common.isEmpty())
                    covered += static_cast<long long>(common.width()) * common.height();
            }
            if (covered == 0)
                return place.topLeft();
            if (leastCovered < 0 || covered < leastCovered) {
                leastCovered = covered;
                best = place.topLeft();
            }
        }
    }
    return best;
}

std::vector<QRect> FloatingPanel::FieldRectangles(const QWidget& host, const QWidget* room) {
    std::vector<QRect> fields;
    for (const QWidget* widget : host.findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (name.isEmpty() || name.startsWith("qt_") || !widget->isVisible() ||
            qobject_cast<const FloatingPanel*>(widget) != nullptr)
            continue;
        if (room != nullptr && (widget == room || room->isAncestorOf(widget)))
            continue;  // what stands in the panel's own room is there to be covered
        // Only the part in sight: a row scrolled out of its panel hides nothing.
        const QRect seen = widget->visibleRegion().boundingRect();
        if (!seen.isEmpty())
            fields.emplace_back(seen.translated(widget->mapTo(&host, QPoint(0, 0))));
    }
    return fields;
}

bool FloatingPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Show && placeWanted_)
        QTimer::singleShot(0, this, [this] { TakeFreePlace(); });
    // A panel in its room stays there when the document's layout moves the room.
    if (watched == parentWidget() && inRoom_ && !dragging_ &&
        (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest))
        QTimer::singleShot(0, this, [this] { FollowRoom(); });
    return PictureView::eventFilter(watched, event);
}

void FloatingPanel::FollowRoom() {
    QWidget* host = parentWidget();
    if (!inRoom_ || dragging_ || !room_ || host == nullptr)
        return;
    const QPoint place = room_->mapTo(host, QPoint(0, 0));
    PictureBox& picture = Picture();
    const double left = place.x() * double(twipsPerPixelX_);
    const double top = place.y() * double(twipsPerPixelY_);
    if (picture.Left() != left || picture.Top() != top)
        picture.Move(left, top);
}

void FloatingPanel::TakeFreePlace() {
    QWidget* host = parentWidget();
    if (placed_ || host == nullptr || !host->isVisible())
        return;  // the document's show asks again
    placed_ = true;
    placeWanted_ = false;
    PictureBox& picture = Picture();
    const QRect kept(QPoint(int(std::lround(picture.Left() / twipsPerPixelX_)),
                            int(std::lround(picture.Top() / twipsPerPixelY_))),
                     size());
    // Fields the present change showed take their places first.
    for (int pass = 0; pass < 3; ++pass)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    std::vector<QRect> fields = FieldRectangles(*host, room_);
    // The other panels of the document, and the rooms kept for them, are taken too.
    for (const FloatingPanel* other : host->findChildren<FloatingPanel*>(Qt::FindDirectChildrenOnly)) {
        if (other == this)
            continue;
        if (other->isVisible())
            fields.push_back(other->geometry());
        if (other->room_ && other->room_->isVisible())
            fields.emplace_back(other->room_->mapTo(host, QPoint(0, 0)), other->room_->size());
    }
    const bool hides = std::any_of(fields.begin(), fields.end(),
                                   [&kept](const QRect& field) { return field.intersects(kept); });
    // The stored place is the user's as long as it suits this document: a place kept from
    // another document's layout that hides a field here, or reaches outside, gives way.
    if (kept.topLeft() == QPoint(0, 0) || !host->rect().contains(kept) || hides) {
        const QPoint place =
            room_ ? room_->mapTo(host, QPoint(0, 0)) : FreePlace(size(), host->rect(), fields);
        picture.Move(place.x() * double(twipsPerPixelX_), place.y() * double(twipsPerPixelY_));
        inRoom_ = room_ != nullptr;
    }
    FollowModel();
}

void FloatingPanel::FollowModel() {
    if (dragging_)
        return;  // the mouse has the panel until it lets go
    const PictureBox& picture = Picture();
    const QSize size = sizeHint();
    if (this->size() != size)
        resize(size);
    // The room kept for the panel is at least as large as the panel, so that the panel in it
    // hides no field.
    if (room_ && picture.Width() > 0 && picture.Height() > 0 &&
        (room_->minimumWidth() < size.width() || room_->minimumHeight() < size.height()))
        room_->setMinimumSize(room_->minimumSize().expandedTo(size));
    const QPoint place(int(std::lround(picture.Left() / twipsPerPixelX_)),
                       int(std::lround(picture.Top() / twipsPerPixelY_)));
    if (pos() != place)
        move(place);
    // A panel that has not been painted yet would be an empty box over the fields.
    bool shown = picture.Visible() && picture.Width() > 0 && picture.Height() > 0 &&
                 !picture.DisplayList().empty();
    if (shown && !placed_) {
        // It shows once it has its place, when the document has laid out the fields the
        // present event shows.
        shown = false;
        if (!placeWanted_) {
            placeWanted_ = true;
            QTimer::singleShot(0, this, [this] { TakeFreePlace(); });
        }
    }
    if (shown == isHidden())
        setVisible(shown);
    if (shown)
        raise();
    update();
}

void FloatingPanel::BeginDrag() {
    dragging_ = true;
    grabGlobal_ = QCursor::pos();
    grabPos_ = pos();
}

void FloatingPanel::mousePressEvent(QMouseEvent* event) {
    event->accept();  // the panel keeps the mouse until release
    PictureBox& picture = Picture();
    const double x = event->position().x() * twipsPerPixelX_;
    const double y = event->position().y() * twipsPerPixelY_;
    const int button = event->button() == Qt::LeftButton    ? 1
                       : event->button() == Qt::RightButton ? 2
                                                            : 4;
    const int shift = ShiftOf(event->modifiers());
    // The power display's close box is the power window's own hit test.
    if (button == 1 && picture.Name() == "picPower") {
        app_.Power().MouseDown(1, shift, x, y);
        if (!picture.Visible())
            return;  // the close box hid it
    }
    // The document's own handler has the press when there is one; else a press in the title
    // bar moves the panel.
    if (picture.OnMouseDown)
        picture.RaiseMouseDown(button, shift, x, y);
    else if (button == 1 && y < TitleHeight(picture))
        mShared::FormMoveAPI(app_, picture, 1);
    if (dragging_)
        grabGlobal_ = event->globalPosition().toPoint();
}

void FloatingPanel::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    if (!dragging_)
        return;
    QPoint place = grabPos_ + (event->globalPosition().toPoint() - grabGlobal_);
    // The panel stays inside its document, title bar reachable.
    if (QWidget* host = parentWidget()) {
        place.setX(std::clamp(place.x(), 0, std::max(0, host->width() - width())));
        place.setY(std::clamp(place.y(), 0, std::max(0, host->height() - height())));
    }
    move(place);
}

void FloatingPanel::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (!dragging_ || event->button() != Qt::LeftButton)
        return;
    dragging_ = false;
    // The user's place from now on.
    inRoom_ = false;
    Picture().Move(x() * double(twipsPerPixelX_), y() * double(twipsPerPixelY_));
}

}  // namespace pendulon
