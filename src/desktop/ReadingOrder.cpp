#include "desktop/ReadingOrder.hpp"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRect>
#include <QWidget>
#include <algorithm>
#include <map>

namespace pendulon {

namespace {

struct Block {
    QWidget* widget;  // a tab stop, or a widget holding tab stops
    QRect at;         // in root's coordinates
};

// Splits blocks where a gap runs across all of them: along y (rows) when across is false,
// along x (columns) when it is true. Returns the parts in order; one part when there is no gap.
std::vector<std::vector<Block>> Cut(std::vector<Block> blocks, bool across) {
    const auto begin = [across](const QRect& r) { return across ? r.left() : r.top(); };
    const auto end = [across](const QRect& r) { return across ? r.left() + r.width() : r.top() + r.height(); };
    std::stable_sort(blocks.begin(), blocks.end(),
                     [&](const Block& a, const Block& b) { return begin(a.at) < begin(b.at); });
    std::vector<std::vector<Block>> parts;
    int reach = 0;
    for (const Block& block : blocks) {
        if (parts.empty() || begin(block.at) >= reach)
            parts.emplace_back();
        parts.back().push_back(block);
        reach = parts.back().size() == 1 ? end(block.at) : std::max(reach, end(block.at));
    }
    return parts;
}

void Read(QWidget* root, QWidget* container, const std::vector<QWidget*>& stops,
          std::vector<QWidget*>& out);

void ReadBlocks(QWidget* root, std::vector<Block> blocks, const std::vector<QWidget*>& stops,
                std::vector<QWidget*>& out) {
    if (blocks.size() == 1) {
        QWidget* only = blocks.front().widget;
        if (std::find(stops.begin(), stops.end(), only) != stops.end())
            out.push_back(only);
        else
            Read(root, only, stops, out);
        return;
    }
    for (bool across : {false, true}) {
        std::vector<std::vector<Block>> parts = Cut(blocks, across);
        if (parts.size() > 1) {
            for (std::vector<Block>& part : parts) ReadBlocks(root, std::move(part), stops, out);
            return;
        }
    }
    // Blocks that interlock: top to bottom, then left to right.
    std::stable_sort(blocks.begin(), blocks.end(), [](const Block& a, const Block& b) {
        return a.at.top() != b.at.top() ? a.at.top() < b.at.top() : a.at.left() < b.at.left();
    });
    for (const Block& block : blocks) ReadBlocks(root, {block}, stops, out);
}

// The blocks of a container are its children that are tab stops or hold some.
void Read(QWidget* root, QWidget* container, const std::vector<QWidget*>& stops,
          std::vector<QWidget*>& out) {
    std::map<QWidget*, bool> seen;
    std::vector<Block> blocks;
    for (QWidget* stop : stops) {
        QWidget* child = stop;
        while (child != nullptr && child->parentWidget() != container) child = child->parentWidget();
        if (child == nullptr || seen[child])
            continue;
        seen[child] = true;
        blocks.push_back({child, QRect(child->mapTo(root, QPoint(0, 0)), child->size())});
    }
    if (!blocks.empty())
        ReadBlocks(root, std::move(blocks), stops, out);
}

}  // namespace

bool IsTabStop(const QWidget* widget) {
    const QString name = widget->objectName();
    if (name.isEmpty() || name.startsWith("qt_") || !widget->isVisible() || !widget->isEnabled() ||
        (widget->focusPolicy() & Qt::TabFocus) == 0 || widget->focusProxy() != nullptr)
        return false;
    return qobject_cast<const QLineEdit*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           qobject_cast<const QAbstractSlider*>(widget) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(widget) != nullptr;
}

std::vector<QWidget*> TabStopsInReadingOrder(QWidget* root) {
    std::vector<QWidget*> stops;
    for (QWidget* widget : root->findChildren<QWidget*>())
        if (IsTabStop(widget))
            stops.push_back(widget);
    std::vector<QWidget*> out;
    out.reserve(stops.size());
    Read(root, root, stops, out);
    return out;
}

}  // namespace pendulon
