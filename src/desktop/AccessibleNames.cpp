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

namespace {
const char* const kValueProperty = "pendulonValueLabel";
const char* const kHeadingProperty = "pendulonColumnHeading";
}  // namespace

void MarkAsValue(QLabel* label) {
    label->setProperty(kValueProperty, true);
}

void SetColumnHeading(QWidget* field, const QString& heading) {
    field->setProperty(kHeadingProperty, heading);
}

void NameFieldsFromLabels(QWidget* root) {
    InstallOptionButtonAccessibility();
    const QList<QLabel*> labels = root->findChildren<QLabel*>();
    const auto place = [root](const QWidget* widget) {
        return QRect(widget->mapTo(root, QPoint(0, 0)), widget->size());
    };
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
        const QString groupTitle = [group] {
            auto* box = qobject_cast<QGroupBox*>(group);
            return box == nullptr ? QString() : box->title();
        }();
        // A scroll bar moves its whole group.
        if (qobject_cast<QScrollBar*>(widget) != nullptr) {
            widget->setAccessibleName(groupTitle);
            continue;
        }
        const QRect at = place(widget);
        const QLabel* caption = nullptr;
        const QLabel* heading = nullptr;
        for (const QLabel* label : labels) {
            if (LabelText(label).isEmpty() || label->isHidden() || GroupOf(label, root) != group ||
                label->property(kValueProperty).toBool())
                continue;
            const QRect box = place(label);
            // The row's title: the nearest label before the field in its row (labels that show
            // values do not count).
            if (box.right() < at.left() && box.center().y() >= at.top() &&
                box.center().y() <= at.bottom()) {
                if (caption == nullptr || box.right() > place(caption).right())
                    caption = label;
            }
            // The column's heading: above the field, over its left part; the nearest one.
            if (box.bottom() < at.top() && box.left() <= at.left() + at.width() / 2 &&
                box.right() >= at.left()) {
                if (heading == nullptr || box.bottom() > place(heading).bottom())
                    heading = label;
            }
        }
        QStringList parts;
        const QString given = widget->property(kHeadingProperty).toString();
        if (heading == nullptr && !given.isEmpty()) {
            // A row under the columns of another group: its own title, then the column.
            parts << (caption != nullptr ? LabelText(caption) : groupTitle) << given;
        } else {
            // The row's title and the column's heading, else the group's title.
            if (caption != nullptr)
                parts << LabelText(caption);
            if (heading != nullptr)
                parts << LabelText(heading);
            else if (!groupTitle.isEmpty())
                parts << groupTitle;
        }
        parts.removeAll(QString());
        widget->setAccessibleName(parts.join(' '));
        // Screen readers also follow a label to the field it stands for (lists are read so on
        // this system): the row's title points at the nearest field after it.
        if (caption != nullptr && (caption->buddy() == nullptr ||
                                   place(caption->buddy()).left() > at.left()))
            const_cast<QLabel*>(caption)->setBuddy(widget);
    }
}

}  // namespace pendulon
