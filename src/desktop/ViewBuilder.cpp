#include "desktop/ViewBuilder.hpp"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "desktop/PictureView.hpp"
#include "platform/PictureBox.hpp"

namespace pendulon {

namespace {
template <class T>
T* Named(T* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}
}  // namespace

QLabel* ViewBuilder::Label(const QString& name) const {
    return Named(new QLabel(parent_), name);
}
QLineEdit* ViewBuilder::Text(const QString& name) const {
    return Named(new QLineEdit(parent_), name);
}
QCheckBox* ViewBuilder::Check(const QString& name) const {
    return Named(new QCheckBox(parent_), name);
}
QRadioButton* ViewBuilder::Option(const QString& name) const {
    return Named(new QRadioButton(parent_), name);
}
QPushButton* ViewBuilder::Button(const QString& name) const {
    auto* button = Named(new QPushButton(parent_), name);
    button->setAutoDefault(false);
    return button;
}
QGroupBox* ViewBuilder::Frame(const QString& name) const {
    return Named(new QGroupBox(parent_), name);
}
PictureView* ViewBuilder::Picture(PictureBox& picture) const {
    auto* view = new PictureView(picture, twipsPerPixelX_, twipsPerPixelY_, parent_);
    // A picture the window never sized takes no room.
    if (picture.Width() > 0 && picture.Height() > 0)
        view->setFixedSize(view->sizeHint());
    else
        view->setFixedSize(0, 0);
    return view;
}

}  // namespace pendulon
