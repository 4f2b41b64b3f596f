#include "desktop/PictureView.hpp"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>
#include <numbers>

#include "desktop/ColorMap.hpp"
#include "desktop/QtTextMetrics.hpp"
#include "platform/PictureBox.hpp"

namespace pendulon {

PictureView::PictureView(PictureBox& picture, int twipsPerPixelX, int twipsPerPixelY,
                         QWidget* parent)
    : QWidget(parent),
      picture_(picture),
      twipsPerPixelX_(std::max(1, twipsPerPixelX)),
      twipsPerPixelY_(std::max(1, twipsPerPixelY)) {
    setObjectName(QString::fromStdString(picture.Name()));
    metrics_ = std::make_unique<QtTextMetrics>(twipsPerPixelX_, twipsPerPixelY_);
    picture_.SetTextMetrics(metrics_.get());
    observerId_ = picture_.AddObserver([this](Field&) { update(); });
}

PictureView::~PictureView() {
    picture_.RemoveObserver(observerId_);
    picture_.SetTextMetrics(nullptr);
}

QSize PictureView::sizeHint() const {
    const int w = int(std::lround(picture_.Width() / twipsPerPixelX_));
    const int h = int(std::lround(picture_.Height() / twipsPerPixelY_));
    return QSize(w > 0 ? w : 100, h > 0 ? h : 100);
}

void PictureView::paintEvent(QPaintEvent*) {
    ++paintCount_;
    QPainter painter(this);
    const QPalette& pal = palette();
    painter.fillRect(rect(), ColorMap::ToQColor(picture_.BackColor(), pal));
    const double sx = 1.0 / twipsPerPixelX_;
    const double sy = 1.0 / twipsPerPixelY_;
    auto point = [&](double x, double y) { return QPointF(x * sx, y * sy); };

    for (const DrawOp& op : picture_.DisplayList()) {
        const QColor color = ColorMap::ToQColor(op.color, pal);
        QPen pen(color);
        pen.setWidthF(std::max(1, op.drawWidth));
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        switch (op.type) {
            case DrawOp::Type::Line:
                painter.drawLine(point(op.x1, op.y1), point(op.x2, op.y2));
                break;
            case DrawOp::Type::Box:
            case DrawOp::Type::FilledBox: {
                const QRectF box = QRectF(point(op.x1, op.y1), point(op.x2, op.y2)).normalized();
                if (op.type == DrawOp::Type::FilledBox)
                    painter.setBrush(ColorMap::ToQColor(op.fillColor, pal));
                painter.drawRect(box);
                break;
            }
            case DrawOp::Type::Text: {
                const QFont font = QtTextMetrics::ToQFont(op.font);
                painter.setFont(font);
                const QFontMetricsF metrics(font);
                // Text is placed by the top of its line.
                painter.drawText(QPointF(op.x1 * sx, op.y1 * sy + metrics.ascent()),
                                 QString::fromStdString(op.text));
                break;
            }
            case DrawOp::Type::Arc: {
                // The radius is the larger half-axis; the aspect is height / width.
                double rx = op.radius, ry = op.radius;
                if (op.aspect < 1.0)
                    ry = op.radius * op.aspect;
                else if (op.aspect > 1.0)
                    rx = op.radius / op.aspect;
                const QRectF bounds(point(op.x1 - rx, op.y1 - ry), point(op.x1 + rx, op.y1 + ry));
                const double start = std::fabs(op.start);
                double end = std::fabs(op.end);
                if (start == 0 && end == 0)
                    end = 2 * std::numbers::pi;
                double span = end - start;
                if (span <= 0)
                    span += 2 * std::numbers::pi;
                constexpr double kSixteenthsPerRadian = 180.0 * 16.0 / std::numbers::pi;
                painter.drawArc(bounds, int(std::lround(start * kSixteenthsPerRadian)),
                                int(std::lround(span * kSixteenthsPerRadian)));
                break;
            }
        }
    }
}

}  // namespace pendulon
