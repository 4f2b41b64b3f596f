#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTest>
#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "DesktopTests.hpp"
#include "DocumentFixture.hpp"
#include "configurators/frmQX4860.hpp"
#include "desktop/ConfiguratorView.hpp"
#include "desktop/QX4860View.hpp"
#include "desktop/ReadingOrder.hpp"
#include "platform/ListField.hpp"
#include "platform/TextField.hpp"
#include "shell/ConfiguratorFactory.hpp"

namespace pendulon::test {

namespace {

// The fields a user can reach with the keyboard, read from the widgets themselves: named
// inputs that take Tab, shown and enabled.
std::vector<QWidget*> ShownFields(QWidget* view) {
    std::vector<QWidget*> fields;
    for (QWidget* widget : view->findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (name.isEmpty() || name.startsWith("qt_") || !widget->isVisible() ||
            !widget->isEnabled() || !(widget->focusPolicy() & Qt::TabFocus) ||
            widget->focusProxy() != nullptr)
            continue;
        if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget) ||
            qobject_cast<QAbstractButton*>(widget) || qobject_cast<QAbstractSlider*>(widget) ||
            qobject_cast<QPlainTextEdit*>(widget))
            fields.push_back(widget);
    }
    return fields;
}

// The named widget that has the keyboard (an editable list's edit line counts as its list).
QWidget* FocusedField() {
    QWidget* now = QApplication::focusWidget();
    while (now != nullptr && (now->objectName().isEmpty() || now->objectName().startsWith("qt_")))
        now = now->parentWidget();
    return now;
}

QRect In(const QWidget* widget, const QWidget* view) {
    return QRect(widget->mapTo(view, QPoint(0, 0)), widget->size());
}

// Whether a reader meets b before a: of the two blocks that hold them side by side (the
// children of the nearest widget holding both), b stands above a in the same column, left of a
// in the same row, or wholly above and left of it.
bool ReadBefore(const QWidget* b, const QWidget* a, const QWidget* view) {
    const QWidget* blockA = a;
    const QWidget* blockB = b;
    for (const QWidget* up = a; up != nullptr; up = up->parentWidget()) {
        if (up->isAncestorOf(b) || up == b) {
            for (const QWidget* w = a; w != nullptr && w->parentWidget() != up; w = w->parentWidget())
                blockA = w->parentWidget();
            for (const QWidget* w = b; w != nullptr && w->parentWidget() != up; w = w->parentWidget())
                blockB = w->parentWidget();
            break;
        }
    }
    if (blockA == blockB)
        return false;
    const QRect ra = In(blockA, view);
    const QRect rb = In(blockB, view);
    const bool sameColumn = ra.left() < rb.left() + rb.width() && rb.left() < ra.left() + ra.width();
    const bool sameRow = ra.top() < rb.top() + rb.height() && rb.top() < ra.top() + ra.height();
    if (sameColumn && !sameRow)
        return rb.top() < ra.top();
    if (sameRow && !sameColumn)
        return rb.left() < ra.left();
    if (!sameRow && !sameColumn)
        return rb.top() + rb.height() <= ra.top() && rb.left() + rb.width() <= ra.left();
    return false;
}

QString Names(const std::vector<QWidget*>& widgets) {
    QStringList names;
    for (const QWidget* w : widgets) names << w->objectName();
    return names.join(' ');
}

// Walks Tab round the document from its first field and checks the round: only shown,
// enabled fields, each once, all of them, in reading order; a field in a row table is in
// sight when Tab reaches it.
void ExpectTabReadsTheForm(QWidget* view, const QString& where) {
    const std::vector<QWidget*> fields = ShownFields(view);
    QVERIFY2(fields.size() > 5, qPrintable(where));
    if (qEnvironmentVariableIsSet("PENDULON_SHOW_TAB"))
        qInfo("%s: %s", qPrintable(where), qPrintable(Names(TabStopsInReadingOrder(view))));
    fields.front()->setFocus(Qt::OtherFocusReason);
    QTRY_VERIFY2(FocusedField() == fields.front(), qPrintable(where));
    std::vector<QWidget*> round{fields.front()};
    for (std::size_t step = 0; step < 2 * fields.size(); ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QWidget* now = FocusedField();
        QVERIFY2(now != nullptr && view->isAncestorOf(now),
                 qPrintable(where + ": Tab left the document after " + round.back()->objectName()));
        // The fields as they stand now: leaving a field may enable another (Apply).
        const std::vector<QWidget*> shown = ShownFields(view);
        QVERIFY2(std::find(shown.begin(), shown.end(), now) != shown.end(),
                 qPrintable(where + ": Tab went into " + now->objectName() +
                            ", which is hidden, disabled or no field"));
        if (now->parentWidget()->objectName() == "picOutputDisplay") {
            // The row stands in the table's window, in sight.
            const QWidget* window = now->parentWidget()->parentWidget();
            QVERIFY2(window->rect().contains(In(now, window)),
                     qPrintable(where + ": " + now->objectName() + " is out of sight"));
        }
        if (now == round.front())
            break;
        QVERIFY2(std::find(round.begin(), round.end(), now) == round.end(),
                 qPrintable(where + ": Tab came to " + now->objectName() + " twice"));
        round.push_back(now);
    }
    const std::vector<QWidget*> shown = ShownFields(view);
    for (QWidget* field : shown)
        QVERIFY2(std::find(round.begin(), round.end(), field) != round.end(),
                 qPrintable(where + ": Tab never reached " + field->objectName() + ": " +
                            Names(round)));
    QCOMPARE(round.size(), shown.size());
    // The round starts where the reading starts: after the one step that goes back up.
    std::vector<std::size_t> wraps;
    for (std::size_t i = 0; i < round.size(); ++i)
        if (ReadBefore(round[(i + 1) % round.size()], round[i], view))
            wraps.push_back((i + 1) % round.size());
    QVERIFY2(wraps.size() == 1,
             qPrintable(where + QString(": the round goes back %1 times: ").arg(wraps.size()) +
                        Names(round)));
    std::rotate(round.begin(), round.begin() + std::ptrdiff_t(wraps.front()), round.end());
    for (std::size_t i = 0; i < round.size(); ++i)
        for (std::size_t j = i + 1; j < round.size(); ++j)
            QVERIFY2(!ReadBefore(round[j], round[i], view),
                     qPrintable(where + ": " + round[j]->objectName() + " is read before " +
                                round[i]->objectName() + " but Tab comes to it later: " +
                                Names(round)));
}

// The fields of a device's window whose form selects their whole text when they get the focus,
// found on a document of the device without a view.
std::set<std::string> FieldsThatSelectOnFocus(const std::string& device) {
    HeadlessPlatform platform;
    Application app(platform);
    app.Main().MDIForm_Load("");
    frmDevice& select = app.DeviceForm();
    select.CreateNew(true);
    select.OptionFor(device)->SetValue(true);
    select.cmdOK_Click();
    std::set<std::string> names;
    if (app.Document() == nullptr)
        return names;
    for (Field* field : app.Document()->Fields().Fields()) {
        if (auto* text = dynamic_cast<TextField*>(field); text != nullptr && !text->Text().empty()) {
            text->SetSelStart(0);
            text->SetSelLength(0);
            field->RaiseGotFocus();
            if (text->SelStart() == 0 && text->SelLength() == int(text->Text().size()))
                names.insert(field->Name());
        } else if (auto* list = dynamic_cast<ListField*>(field);
                   list != nullptr && !list->Text().empty()) {
            list->SetSelStart(0);
            list->SetSelLength(0);
            field->RaiseGotFocus();
            if (list->SelStart() == 0 && list->SelLength() == int(list->Text().size()))
                names.insert(field->Name());
        }
    }
    return names;
}

// The edit line of a field, if it shows text the user types over.
QLineEdit* EditLineOf(QWidget* field) {
    if (auto* edit = qobject_cast<QLineEdit*>(field))
        return edit;
    if (auto* combo = qobject_cast<QComboBox*>(field); combo != nullptr && combo->isEditable())
        return combo->lineEdit();
    return nullptr;
}

}  // namespace

class KeyboardTest : public QObject {
    Q_OBJECT
  private slots:
    void tabReadsEveryDeviceWindowInReadingOrder() {
        for (const char* device : TableDevices()) {
            DocumentFixture f;
            ShownDocument<Configurator, ConfiguratorView> s(f, 1400, 1000, device);
            QVERIFY(s.view != nullptr);
            ExpectTabReadsTheForm(s.view, device);
        }
    }

    void tabFollowsTheRowsAndFieldsTheOptionsShow() {
        DocumentFixture f;
        ShownDocument<frmQX4860, QX4860View> s(f, 1400, 1000, "QX4860");
        // The 8-pin package uses four rows; the other twelve are hidden and Tab passes them by.
        QTest::mouseClick(s.view->findChild<QRadioButton*>("opt8Pin"), Qt::LeftButton);
        QTRY_VERIFY(!s.view->findChild<QWidget*>("txtPLL(4)")->isVisible());
        ExpectTabReadsTheForm(s.view, "QX4860 8 pin");
        // With 14 pins all sixteen rows are in use: Tab scrolls each into sight.
        QTest::mouseClick(s.view->findChild<QRadioButton*>("opt14Pin"), Qt::LeftButton);
        QTRY_VERIFY(s.view->findChild<QWidget*>("txtPLL(15)")->isVisible());
        ExpectTabReadsTheForm(s.view, "QX4860 14 pin");
        QVERIFY(s.form->vsbOutput.Value() > 0 || !s.view->findChild<QWidget*>("txtPLL(15)")->isEnabled());

        DocumentFixture g;
        ShownDocument<Configurator, ConfiguratorView> q(g, 1400, 1000, "QX6105A");
        QTest::mouseClick(q.view->findChild<QRadioButton*>("optFS"), Qt::LeftButton);
        QTest::qWait(20);
        ExpectTabReadsTheForm(q.view, "QX6105A with Frequency Select");

        DocumentFixture h;
        ShownDocument<Configurator, ConfiguratorView> c(h, 1400, 1000, "QX5140");
        QTest::mouseClick(c.view->findChild<QRadioButton*>("optSelect"), Qt::LeftButton);
        QTRY_VERIFY(c.view->findChild<QWidget*>("txtClkA(1)")->isVisible());
        ExpectTabReadsTheForm(c.view, "QX5140 with Select/Suspend");
    }

    void shiftTabGoesBackTheSameWay() {
        DocumentFixture f;
        ShownDocument<Configurator, ConfiguratorView> s(f, 1400, 1000, "QX7311");
        const std::vector<QWidget*> fields = ShownFields(s.view);
        fields.front()->setFocus(Qt::OtherFocusReason);
        std::vector<QWidget*> forward;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            forward.push_back(FocusedField());
        }
        for (std::size_t i = fields.size(); i-- > 1;) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
            QVERIFY2(FocusedField() == forward[i - 1],
                     qPrintable(QString("from %1 back to %2, not %3: ")
                                    .arg(forward[i]->objectName(), FocusedField()->objectName(),
                                         forward[i - 1]->objectName()) + Names(forward)));
        }
    }

    void fieldsThatSelectOnFocusShowItSelectedByTabAndByClick() {
        int checked = 0;
        int listsChecked = 0;  // lists that take typing (the QX5140's reference)
        for (const char* device : TableDevices()) {
            const std::set<std::string> selecting = FieldsThatSelectOnFocus(device);
            DocumentFixture f;
            ShownDocument<Configurator, ConfiguratorView> s(f, 1400, 1000, device);
            const std::vector<QWidget*> fields = ShownFields(s.view);
            // By Tab: the whole round once.
            fields.front()->setFocus(Qt::OtherFocusReason);
            for (std::size_t i = 0; i < fields.size(); ++i) {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                QWidget* now = FocusedField();
                QLineEdit* edit = EditLineOf(now);
                if (edit == nullptr || selecting.count(now->objectName().toStdString()) == 0 ||
                    edit->text().isEmpty())
                    continue;
                QVERIFY2(edit->selectedText() == edit->text(),
                         qPrintable(QString(device) + ": Tab to " + now->objectName() +
                                    " selects \"" + edit->selectedText() + "\" of \"" +
                                    edit->text() + "\""));
                ++checked;
                listsChecked += qobject_cast<QComboBox*>(now) != nullptr;
            }
            // By a click, coming from another field.
            for (QWidget* field : ShownFields(s.view)) {
                QLineEdit* edit = EditLineOf(field);
                if (edit == nullptr || selecting.count(field->objectName().toStdString()) == 0 ||
                    edit->text().isEmpty() || !edit->visibleRegion().boundingRect().contains(edit->rect().center()))
                    continue;
                QWidget* other = field == fields.front() ? fields.back() : fields.front();
                other->setFocus(Qt::OtherFocusReason);
                QTest::mouseClick(edit, Qt::LeftButton, Qt::NoModifier, edit->rect().center());
                QVERIFY2(FocusedField() == field, qPrintable(field->objectName()));
                QVERIFY2(edit->selectedText() == edit->text(),
                         qPrintable(QString(device) + ": a click into " + field->objectName() +
                                    " selects \"" + edit->selectedText() + "\" of \"" +
                                    edit->text() + "\""));
                ++checked;
                listsChecked += qobject_cast<QComboBox*>(field) != nullptr;
            }
        }
        QVERIFY2(listsChecked >= 2, qPrintable(QString::number(listsChecked)));
        // Every device window has such fields (its limits at least).
        QVERIFY2(checked >= 2 * 15, qPrintable(QString::number(checked)));
    }
};

QObject* MakeKeyboardTest() {
    return new KeyboardTest;
}

}  // namespace pendulon::test

#include "KeyboardTest.moc"
