#include "desktop/Binder.hpp"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStringList>
#include <QTimer>

#include "desktop/ColorMap.hpp"
#include "desktop/KeyModifiers.hpp"
#include "desktop/PictureView.hpp"
#include "platform/CheckBox.hpp"
#include "platform/ListField.hpp"
#include "platform/MenuItem.hpp"
#include "platform/OptionButton.hpp"
#include "platform/ScrollBar.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"

namespace pendulon {

namespace {

QString Q(const std::string& text) {
    return QString::fromStdString(text);
}

int ButtonOf(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton:
            return 1;
        case Qt::RightButton:
            return 2;
        case Qt::MiddleButton:
            return 4;
        default:
            return 0;
    }
}

// The character code a key press stands for, or 0 when it is not a character.
int KeyAsciiOf(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return 13;
        case Qt::Key_Backspace:
            return 8;
        case Qt::Key_Escape:
            return 27;
        // Tab and Shift+Tab move between fields; the form never sees them as characters.
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return 0;
        default:
            break;
    }
    const QString text = event.text();
    if (text.size() != 1)
        return 0;
    const char16_t c = text.at(0).unicode();
    if (c == 9 || c == 127 || c > 255)
        return 0;
    return int(c);
}

// Marks the field whose widget the user is changing while its model follows, so that the
// widget is not set back from the model halfway; a change nested in another (the model's
// update moves the caret, which is followed in turn) gives the outer mark back when it ends.
class EditingScope {
public:
    EditingScope(Field*& slot, Field* field) : slot_(slot), outer_(slot) { slot_ = field; }
    ~EditingScope() { slot_ = outer_; }
    EditingScope(const EditingScope&) = delete;
    EditingScope& operator=(const EditingScope&) = delete;

private:
    Field*& slot_;
    Field* outer_;
};

// The selection a text or list field keeps of its text.
bool SelectionOf(const Field& field, int& start, int& length) {
    if (const auto* text = dynamic_cast<const TextField*>(&field)) {
        start = text->SelStart();
        length = text->SelLength();
        return true;
    }
    if (const auto* list = dynamic_cast<const ListField*>(&field)) {
        start = list->SelStart();
        length = list->SelLength();
        return true;
    }
    return false;
}

void SetSelectionOf(Field& field, int start, int length) {
    if (auto* text = dynamic_cast<TextField*>(&field)) {
        text->SetSelStart(start);
        text->SetSelLength(length);
    } else if (auto* list = dynamic_cast<ListField*>(&field)) {
        list->SetSelStart(start);
        list->SetSelLength(length);
    }
}

}  // namespace

Binder::Binder(Window& window, QWidget* root, int twipsPerPixelX, int twipsPerPixelY)
    : QObject(root),
      window_(window),
      twipsPerPixelX_(twipsPerPixelX),
      twipsPerPixelY_(twipsPerPixelY) {
    windowObserverId_ = window_.AddObserver([this](Window&) { OnWindowChanged(); });
    if (root != nullptr)
        BindChildren(root);
}

Binder::~Binder() {
    window_.RemoveObserver(windowObserverId_);
    for (const Entry& entry : entries_) entry.field->RemoveObserver(entry.observerId);
}

QString Binder::StripAccelerator(const std::string& caption) {
    QString result;
    const QString text = Q(caption);
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) {
            ++i;
            result += text[i];
        } else if (text[i] != '&') {
            result += text[i];
        }
    }
    return result;
}

void Binder::BindChildren(QWidget* root) {
    QList<QWidget*> widgets = root->findChildren<QWidget*>();
    widgets.prepend(root);
    for (QWidget* widget : widgets) {
        if (widget->objectName().isEmpty() || fieldByObject_.count(widget) != 0)
            continue;
        Field* field = window_.Fields().Find(widget->objectName().toStdString());
        if (field != nullptr)
            Bind(widget, *field);
    }
}

QWidget* Binder::WidgetOf(const Field& field) const {
    auto it = widgetByField_.find(&field);
    return it == widgetByField_.end() ? nullptr : it->second.data();
}

Field* Binder::FieldOf(QObject* object) const {
    auto it = fieldByObject_.find(object);
    return it == fieldByObject_.end() ? nullptr : it->second;
}

void Binder::Observe(Field& field, QObject* object, bool isAction) {
    Entry entry;
    entry.field = &field;
    entry.object = object;
    entry.isAction = isAction;
    entry.observerId = field.AddObserver([this](Field& changed) { UpdateWidget(changed); });
    entries_.push_back(entry);
    fieldByObject_[object] = &field;
    connect(object, &QObject::destroyed, this, [this](QObject* gone) {
        Field* field = FieldOf(gone);
        fieldByObject_.erase(gone);
        if (field == nullptr)
            return;
        for (auto it = entries_.begin(); it != entries_.end(); ++it) {
            if (it->field == field && it->object.isNull()) {
                field->RemoveObserver(it->observerId);
                entries_.erase(it);
                break;
            }
        }
        auto w = widgetByField_.find(field);
        if (w != widgetByField_.end() && w->second.isNull())
            widgetByField_.erase(w);
    });
}

void Binder::Bind(QWidget* widget, Field& field) {
    if (widget->objectName().isEmpty())
        widget->setObjectName(Q(field.Name()));
    Observe(field, widget, false);
    widgetByField_[&field] = widget;
    widget->installEventFilter(this);

    if (auto* edit = qobject_cast<QLineEdit*>(widget)) {
        auto* text = dynamic_cast<TextField*>(&field);
        if (text != nullptr) {
            connect(edit, &QLineEdit::textEdited, this, [this, edit, text] {
                const EditingScope scope(editing_, text);
                text->SetText(edit->text().toStdString());
                // Keep the caret where the user has it, not where a new text puts it.
                text->SetSelStart(edit->cursorPosition());
            });
            FollowSelection(edit, *text);
        }
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(widget)) {
        auto* text = dynamic_cast<TextField*>(&field);
        if (text != nullptr) {
            connect(plain, &QPlainTextEdit::textChanged, this,
                    [plain, text] { text->SetText(plain->toPlainText().toStdString()); });
        }
    } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        auto* list = dynamic_cast<ListField*>(&field);
        if (list != nullptr) {
            combo->setEditable(list->AllowsFreeText());
            connect(combo, &QComboBox::activated, this, [this, list](int index) {
                list->SetListIndex(index);
                UpdateWidget(*list);
            });
            if (combo->lineEdit() != nullptr) {
                combo->lineEdit()->installEventFilter(this);
                fieldByObject_[combo->lineEdit()] = list;
                connect(combo->lineEdit(), &QLineEdit::textEdited, this, [this, combo, list] {
                    const EditingScope scope(editing_, list);
                    list->SetText(combo->lineEdit()->text().toStdString());
                    list->SetSelStart(combo->lineEdit()->cursorPosition());
                });
                FollowSelection(combo->lineEdit(), *list);
            }
        }
    } else if (auto* check = qobject_cast<QCheckBox*>(widget)) {
        auto* box = dynamic_cast<CheckBox*>(&field);
        if (box != nullptr) {
            // A user's click sets a clear or grey box and clears a set one.
            connect(check, &QCheckBox::clicked, this, [this, box] {
                box->SetValue(box->Value() == 1 ? 0 : 1);
                UpdateWidget(*box);
            });
        }
    } else if (auto* radio = qobject_cast<QRadioButton*>(widget)) {
        // The model keeps the group: an option is only ever set by a click. (Screen readers
        // still know it as an option button: see AccessibleNames.)
        radio->setAutoExclusive(false);
        auto* option = dynamic_cast<OptionButton*>(&field);
        if (option != nullptr) {
            connect(radio, &QRadioButton::clicked, this, [this, option] {
                option->SetValue(true);
                UpdateWidget(*option);
            });
        }
    } else if (auto* button = qobject_cast<QPushButton*>(widget)) {
        connect(button, &QPushButton::clicked, this, [&field] { field.RaiseClick(); });
    } else if (auto* bar = qobject_cast<QScrollBar*>(widget)) {
        auto* scroll = dynamic_cast<ScrollBar*>(&field);
        if (scroll != nullptr) {
            connect(bar, &QScrollBar::valueChanged, this,
                    [scroll](int value) { scroll->SetValue(value); });
        }
    }
    UpdateWidget(field);
}

void Binder::FollowSelection(QLineEdit* edit, Field& field) {
    // The form reads what the user selects (SelStart, SelLength, SelText).
    auto follow = [this, edit, &field] {
        const EditingScope scope(editing_, &field);
        if (edit->hasSelectedText())
            SetSelectionOf(field, int(edit->selectionStart()), int(edit->selectedText().size()));
        else
            SetSelectionOf(field, edit->cursorPosition(), 0);
    };
    connect(edit, &QLineEdit::selectionChanged, this, follow);
    connect(edit, &QLineEdit::cursorPositionChanged, this, follow);
}

void Binder::ShowSelection(QLineEdit* edit, int start, int length) {
    const int shownStart =
        edit->hasSelectedText() ? int(edit->selectionStart()) : edit->cursorPosition();
    const int shownLength = int(edit->selectedText().size());
    if (shownStart == start && shownLength == length)
        return;
    if (length > 0)
        edit->setSelection(start, length);
    else
        edit->setCursorPosition(start);
}

void Binder::BindAction(QAction* action, MenuItem& item) {
    if (action->objectName().isEmpty())
        action->setObjectName(Q(item.Name()));
    Observe(item, action, true);
    connect(action, &QAction::triggered, this, [this, action, &item] {
        item.RaiseClick();
        // The model decides the checked state; undo Qt's own toggle if it did not change it.
        UpdateAction(action, item);
    });
    UpdateAction(action, item);
}

void Binder::UpdateAction(QAction* action, MenuItem& item) {
    const QSignalBlocker block(action);
    if (item.Caption() == "-") {
        action->setSeparator(true);
    } else {
        action->setText(Q(item.Caption()));
    }
    action->setEnabled(item.Enabled());
    action->setVisible(item.Visible());
    if (item.Checked())
        action->setCheckable(true);
    if (action->isCheckable())
        action->setChecked(item.Checked());
    if (!item.Shortcut().empty())
        action->setShortcut(QKeySequence(Q(item.Shortcut())));
}

void Binder::ApplyColors(QWidget* widget, Field& field) {
    const QPalette base = QApplication::palette(widget);
    QPalette palette = widget->palette();
    QPalette::ColorRole foreRole = QPalette::WindowText;
    QPalette::ColorRole backRole = QPalette::Window;
    if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QPlainTextEdit*>(widget) ||
        qobject_cast<QComboBox*>(widget)) {
        foreRole = QPalette::Text;
        backRole = QPalette::Base;
    } else if (qobject_cast<QPushButton*>(widget)) {
        foreRole = QPalette::ButtonText;
        backRole = QPalette::Button;
    } else if (qobject_cast<PictureView*>(widget)) {
        return;  // the picture paints its own background
    }
    const QColor fore = ColorMap::ToQColor(field.ForeColor(), base);
    const QColor back = ColorMap::ToQColor(field.BackColor(), base);
    bool changed = false;
    for (auto group : {QPalette::Active, QPalette::Inactive}) {
        if (palette.color(group, foreRole) != fore) {
            palette.setColor(group, foreRole, fore);
            changed = true;
        }
        if (palette.color(group, backRole) != back) {
            palette.setColor(group, backRole, back);
            changed = true;
        }
        // A list that takes no typing draws its text as a button does.
        if (qobject_cast<QComboBox*>(widget) &&
            palette.color(group, QPalette::ButtonText) != fore) {
            palette.setColor(group, QPalette::ButtonText, fore);
            changed = true;
        }
    }
    if (changed)
        widget->setPalette(palette);
    // Labels and boxes fill their background only when they have a colour of their own.
    if (backRole == QPalette::Window && !widget->isWindow())
        widget->setAutoFillBackground(!colors::IsSystemColor(field.BackColor()));
}

void Binder::UpdateWidget(Field& field) {
    QObject* object = nullptr;
    for (const Entry& entry : entries_) {
        if (entry.field != &field || entry.object.isNull())
            continue;
        object = entry.object.data();
        if (entry.isAction) {
            UpdateAction(static_cast<QAction*>(object), static_cast<MenuItem&>(field));
            continue;
        }
        auto* widget = static_cast<QWidget*>(object);
        const QSignalBlocker block(widget);
        widget->setEnabled(field.Enabled());
        if (!widget->isWindow())
            widget->setVisible(field.Visible());

        if (auto* edit = qobject_cast<QLineEdit*>(widget)) {
            if (auto* text = dynamic_cast<TextField*>(&field)) {
                const QString value = Q(text->Text());
                if (edit->text() != value)
                    edit->setText(value);
                edit->setReadOnly(text->Locked());
                if (&field != editing_)
                    ShowSelection(edit, text->SelStart(), text->SelLength());
            }
        } else if (auto* plain = qobject_cast<QPlainTextEdit*>(widget)) {
            if (auto* text = dynamic_cast<TextField*>(&field)) {
                const QString value = Q(text->Text());
                if (plain->toPlainText() != value)
                    plain->setPlainText(value);
                plain->setReadOnly(text->Locked());
            }
        } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
            if (auto* list = dynamic_cast<ListField*>(&field)) {
                QStringList items;
                for (const std::string& item : list->Items()) items << Q(item);
                QStringList shown;
                for (int i = 0; i < combo->count(); ++i) shown << combo->itemText(i);
                if (shown != items) {
                    const QSignalBlocker blockEdit(combo->lineEdit());
                    combo->clear();
                    combo->addItems(items);
                }
                if (combo->currentIndex() != list->ListIndex())
                    combo->setCurrentIndex(list->ListIndex());
                if (combo->isEditable() && combo->currentText() != Q(list->Text())) {
                    const QSignalBlocker blockEdit(combo->lineEdit());
                    combo->setEditText(Q(list->Text()));
                }
                // A list that takes typing shows the selection its form gives its text.
                if (combo->isEditable() && combo->lineEdit() != nullptr && &field != editing_) {
                    const QSignalBlocker blockEdit(combo->lineEdit());
                    ShowSelection(combo->lineEdit(), list->SelStart(), list->SelLength());
                }
            }
        } else if (auto* check = qobject_cast<QCheckBox*>(widget)) {
            check->setText(Q(field.Caption()));
            if (auto* box = dynamic_cast<CheckBox*>(&field)) {
                const Qt::CheckState state = box->Value() == 1   ? Qt::Checked
                                             : box->Value() == 2 ? Qt::PartiallyChecked
                                                                 : Qt::Unchecked;
                if (state == Qt::PartiallyChecked)
                    check->setTristate(true);
                check->setCheckState(state);
            }
        } else if (auto* radio = qobject_cast<QRadioButton*>(widget)) {
            radio->setText(Q(field.Caption()));
            if (auto* option = dynamic_cast<OptionButton*>(&field))
                radio->setChecked(option->Value());
        } else if (auto* button = qobject_cast<QPushButton*>(widget)) {
            button->setText(Q(field.Caption()));
        } else if (auto* label = qobject_cast<QLabel*>(widget)) {
            label->setText(StripAccelerator(field.Caption()));
            label->setAlignment((field.Alignment() == 1   ? Qt::AlignRight
                                 : field.Alignment() == 2 ? Qt::AlignHCenter
                                                          : Qt::AlignLeft) |
                                Qt::AlignVCenter);
        } else if (auto* group = qobject_cast<QGroupBox*>(widget)) {
            group->setTitle(StripAccelerator(field.Caption()));
        } else if (auto* bar = qobject_cast<QScrollBar*>(widget)) {
            if (auto* scroll = dynamic_cast<ScrollBar*>(&field)) {
                bar->setRange(std::min(scroll->Min(), scroll->Max()),
                              std::max(scroll->Min(), scroll->Max()));
                bar->setSingleStep(scroll->SmallChange());
                bar->setPageStep(scroll->LargeChange());
                bar->setValue(scroll->Value());
            }
        } else if (auto* picture = qobject_cast<PictureView*>(widget)) {
            picture->update();
        }
        ApplyColors(widget, field);
    }
}

void Binder::OnWindowChanged() {
    Field* active = window_.ActiveControl();
    if (active == nullptr)
        return;
    QWidget* widget = WidgetOf(*active);
    if (widget == nullptr || widget->hasFocus() || !widget->isVisible())
        return;
    movingFocus_ = true;
    widget->setFocus(Qt::OtherFocusReason);
    movingFocus_ = false;
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
    Field* field = FieldOf(watched);
    if (field == nullptr)
        return QObject::eventFilter(watched, event);
    auto* widget = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::FocusIn: {
            // Coming back to the field that has the focus (window activation, a closed popup)
            // is no move at all: SetFocusTo ignores it.
            if (movingFocus_)
                break;
            const bool moved = window_.SetFocusTo(field);
            // A field that selects its text when it takes the focus keeps it selected when the
            // focus came with a click: the click's own caret comes after, and is undone then.
            QLineEdit* edit = qobject_cast<QLineEdit*>(widget);
            if (auto* combo = qobject_cast<QComboBox*>(widget); combo != nullptr && combo->isEditable())
                edit = combo->lineEdit();
            if (moved && edit != nullptr &&
                static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason) {
                int start = 0;
                int length = 0;
                if (SelectionOf(*field, start, length) && length > 0)
                    clickSelection_ = {edit, start, length};
            }
            if (!moved) {
                // Validation kept the focus where it was: give it back.
                QPointer<QWidget> keep = window_.ActiveControl() != nullptr
                                             ? WidgetOf(*window_.ActiveControl())
                                             : nullptr;
                QTimer::singleShot(0, this, [this, keep] {
                    if (keep.isNull())
                        return;
                    movingFocus_ = true;
                    keep->setFocus(Qt::OtherFocusReason);
                    movingFocus_ = false;
                });
            }
            break;
        }
        case QEvent::KeyPress: {
            auto* key = static_cast<QKeyEvent*>(event);
            const int original = KeyAsciiOf(*key);
            if (original == 0)
                break;
            int keyAscii = original;
            field->RaiseKeyPress(keyAscii);
            if (keyAscii == 0)
                return true;  // the window swallowed the key
            if (keyAscii != original) {
                if (auto* edit = qobject_cast<QLineEdit*>(widget)) {
                    edit->insert(QString(QChar(char16_t(keyAscii))));
                    if (auto* text = dynamic_cast<TextField*>(field))
                        text->SetText(edit->text().toStdString());
                    return true;
                }
            }
            break;
        }
        case QEvent::MouseButtonDblClick:
            field->RaiseDblClick();
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseMove: {
            auto* mouse = static_cast<QMouseEvent*>(event);
            if (event->type() == QEvent::MouseButtonRelease && clickSelection_.edit == widget) {
                auto* edit = static_cast<QLineEdit*>(widget);
                // Unless the user dragged a selection of his own.
                if (!edit->hasSelectedText())
                    edit->setSelection(clickSelection_.start, clickSelection_.length);
                clickSelection_ = {};
            }
            const double x = mouse->position().x() * twipsPerPixelX_;
            const double y = mouse->position().y() * twipsPerPixelY_;
            const int shift = ShiftOf(mouse->modifiers());
            const bool picture = qobject_cast<PictureView*>(widget) != nullptr;
            const bool label = qobject_cast<QLabel*>(widget) != nullptr;
            if (!picture && !label)
                break;
            if (event->type() == QEvent::MouseButtonPress) {
                field->RaiseMouseDown(ButtonOf(mouse->button()), shift, x, y);
            } else if (event->type() == QEvent::MouseButtonRelease) {
                field->RaiseMouseUp(ButtonOf(mouse->button()), shift, x, y);
                if (mouse->button() == Qt::LeftButton &&
                    widget->rect().contains(mouse->position().toPoint()))
                    field->RaiseClick();
            } else {
                field->RaiseMouseMove(ButtonOf(mouse->button()), shift, x, y);
            }
            break;
        }
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace pendulon
