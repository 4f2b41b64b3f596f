#pragma once
#include <QString>

class QCheckBox;
class QGroupBox;
class QRadioButton;
class QWidget;

namespace pendulon::widgets {

// Widgets named as the fields they show, for the document views to lay out; the binder finds
// them by these names.
QCheckBox* Check(const QString& name, QWidget* parent);
QRadioButton* Option(const QString& name, QWidget* parent);
QGroupBox* Group(const QString& name, QWidget* parent);
// The name of one element of a field array: "name(i)".
QString Indexed(const char* name, int i);

}  // namespace pendulon::widgets
