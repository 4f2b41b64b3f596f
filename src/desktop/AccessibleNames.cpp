#include "desktop/AccessibleNames.hpp"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStringList>
#include <QWidget>

namespace pendulon {

namespace {

// An option button as the accessibility interface shows it: its role, its caption as name
// (or the name the labels give it), checked or not, and pressed by its action.
class OptionButtonAccessible : public QAccessibleWidget {
  public:
    explicit OptionButtonAccessible(QWidget* widget)
        : QAccessibleWidget(widget, QAccessible::RadioButton) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name && widget()->accessibleName().isEmpty()) {
            QString caption = Button()->text();
            return caption.remove(QRegularExpression("&(?!&)"));
        }
        return QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = Button()->isChecked();
        return state;
    }
    QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action == pressAction() && Button()->isEnabled())
            Button()->click();
        else
            QAccessibleWidget::doAction(action);
    }

  private:
    QAbstractButton* Button() const { return static_cast<QAbstractButton*>(widget()); }
};

QAccessibleInterface* OptionButtonFactory(const QString& className, QObject* object) {
    if (className == QLatin1String("QRadioButton") && object != nullptr && object->isWidgetType())
        return new OptionButtonAccessible(static_cast<QWidget*>(object));
    return nullptr;
}

// The group a widget belongs to: its nearest group box, else the root.
QWidget* GroupOf(const QWidget* widget, QWidget* root) {
    for (QWidget* up = widget->parentWidget(); up != nullptr && up != root; up = up->parentWidget())
        if (qobject_cast<QGroupBox*>(up) != nullptr)
            return up;
    return root;
}

bool IsInput(const QWidget* widget) {
    return qobject_cast<const QLineEdit*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           qobject_cast<const QScrollBar*>(widget) != nullptr;
}

QString LabelText(const QLabel* label) {
    return label->text().simplified();
}

}  // namespace

void InstallOptionButtonAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(OptionButtonFactory);
        return true;
    }();
    (void)installed;
}

void NameFieldsFromLabels(QWidget* root) {
    InstallOptionButtonAccessibility();
    const QList<QLabel*> labels = root->findChildren<QLabel*>();
    for (QWidget* widget : root->findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (name.isEmpty() || name.startsWith("qt_") || !IsInput(widget))
            continue;
        // A button's caption is its name already.
        if (auto* button = qobject_cast<QAbstractButton*>(widget);
            button != nullptr && !button->text().isEmpty()) {
            widget->setAccessibleName(QString());
            continue;
        }
        QWidget* group = GroupOf(widget, root);
        const QRect at(widget->mapTo(root, QPoint(0, 0)), widget->size());
        const QLabel* caption = nullptr;
        const QLabel* heading = nullptr;
        for (const QLabel* label : labels) {
            if (LabelText(label).isEmpty() || label->isHidden() || GroupOf(label, root) != group)
                continue;
            const QRect box(label->mapTo(root, QPoint(0, 0)), label->size());
            // The row's title: the first label of the field's row, left of it and level with it
            // (labels between them show values).
            if (box.right() < at.left() && box.center().y() >= at.top() &&
                box.center().y() <= at.bottom()) {
                if (caption == nullptr ||
                    box.left() < QRect(caption->mapTo(root, QPoint(0, 0)), caption->size()).left())
                    caption = label;
            }
            // The column's heading: above the field, over its left part; the nearest one.
            if (box.bottom() < at.top() && box.left() <= at.left() + at.width() / 2 &&
                box.right() >= at.left()) {
                if (heading == nullptr ||
                    box.bottom() > QRect(heading->mapTo(root, QPoint(0, 0)), heading->size()).bottom())
                    heading = label;
            }
        }
        // The row's title and the column's heading, else the group's title.
        QStringList parts;
        if (caption != nullptr)
            parts << LabelText(caption);
        if (heading != nullptr)
            parts << LabelText(heading);
        else if (auto* box = qobject_cast<QGroupBox*>(group); box != nullptr && !box->title().isEmpty())
            parts << box->title();
        widget->setAccessibleName(parts.join(' '));
        // Screen readers also follow a label to the field it stands for (lists are read so on
        // this system): the row's title points at the row's first field.
        if (caption != nullptr && caption->buddy() == nullptr)
            const_cast<QLabel*>(caption)->setBuddy(widget);
    }
}

}  // namespace pendulon
