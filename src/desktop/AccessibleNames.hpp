#pragma once

class QLabel;
class QString;
class QWidget;

namespace pendulon {

// Gives every input field below root the text of its labels as its accessible name, so that
// screen readers and GUI tests find it as a person reads it: the nearest label before it in
// its row and the heading of its column ("CLKA Desired (MHz)", "CPLL[0] PLL Data"), else the
// title of its group; a scroll bar is named by its group. A field whose group has no headings
// takes the column heading the view gave it (SetColumnHeading). A check box or option button
// with a caption of its own keeps that caption. Run again when captions or the layout change.
void NameFieldsFromLabels(QWidget* root);

// A label that shows a value (a desired frequency beside its actual one): it names no field.
void MarkAsValue(QLabel* label);

// The heading of the column a field stands in, where its group shows none over it (a row that
// lines up with the columns of the group above).
void SetColumnHeading(QWidget* field, const QString& heading);

// Makes option buttons known to screen readers as option buttons. The binder leaves their
// grouping to the model (they are not exclusive to Qt), which Qt would report as check boxes.
// Safe to call more than once.
void InstallOptionButtonAccessibility();

}  // namespace pendulon
