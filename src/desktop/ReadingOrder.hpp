#pragma once
#include <vector>

class QWidget;

namespace pendulon {

// Whether Tab may stop at a widget of a document: a named field that takes the keyboard by
// Tab, shown and enabled.
bool IsTabStop(const QWidget* widget);

// The tab stops below root in the order a person reads the form: the groups of the form as
// blocks, top to bottom, and side by side left to right, and so on inside each group down to
// its rows and the fields of a row. A block is cut off from the others where a gap runs
// across all of them (across the width first, then down the height), as a reader's eye goes.
std::vector<QWidget*> TabStopsInReadingOrder(QWidget* root);

}  // namespace pendulon
