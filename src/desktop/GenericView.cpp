#include "desktop/GenericView.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

#include "desktop/Binder.hpp"
#include "desktop/PictureView.hpp"
#include "platform/PictureBox.hpp"
#include "platform/Window.hpp"

namespace pendulon {

GenericView::GenericView(Window& window, QWidget* parent, int twipsPerPixelX, int twipsPerPixelY)
    : QWidget(parent) {
    auto* layout = new QFormLayout(this);
    for (Field* field : window.Fields().Fields()) {
        QWidget* widget = nullptr;
        switch (field->Kind()) {
            case FieldKind::Text:
                widget = new QLineEdit(this);
                break;
            case FieldKind::List:
                widget = new QComboBox(this);
                break;
            case FieldKind::Check:
                widget = new QCheckBox(this);
                break;
            case FieldKind::Option:
                widget = new QRadioButton(this);
                break;
            case FieldKind::Label:
                widget = new QLabel(this);
                break;
            case FieldKind::Button:
                widget = new QPushButton(this);
                break;
            case FieldKind::Frame:
                widget = new QGroupBox(this);
                break;
            case FieldKind::ScrollBar:
                widget = new QScrollBar(Qt::Horizontal, this);
                break;
            case FieldKind::Picture:
                widget = new PictureView(static_cast<PictureBox&>(*field), twipsPerPixelX,
                                         twipsPerPixelY, this);
                break;
            case FieldKind::MenuItem:
                break;
        }
        if (widget == nullptr)
            continue;
        widget->setObjectName(QString::fromStdString(field->Name()));
        const bool captioned =
            field->Kind() == FieldKind::Check || field->Kind() == FieldKind::Option ||
            field->Kind() == FieldKind::Button || field->Kind() == FieldKind::Label;
        if (captioned)
            layout->addRow(widget);
        else
            layout->addRow(QString::fromStdString(field->Name()), widget);
    }
    binder_ = new Binder(window, this, twipsPerPixelX, twipsPerPixelY);
}

}  // namespace pendulon
