#include "desktop/NamedWidgets.hpp"

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>

namespace pendulon::widgets {

QCheckBox* Check(const QString& name, QWidget* parent) {
    auto* check = new QCheckBox(parent);
    check->setObjectName(name);
    return check;
}

QRadioButton* Option(const QString& name, QWidget* parent) {
    auto* option = new QRadioButton(parent);
    option->setObjectName(name);
    return option;
}

QGroupBox* Group(const QString& name, QWidget* parent) {
    auto* group = new QGroupBox(parent);
    group->setObjectName(name);
    return group;
}

QString Indexed(const char* name, int i) {
    return QString("%1(%2)").arg(name).arg(i);
}

}  // namespace pendulon::widgets
