#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <vector>

#include "DesktopTests.hpp"
#include "DocumentFixture.hpp"
#include "desktop/FloatingPanel.hpp"
#include "desktop/QX5140View.hpp"
#include "platform/Color.hpp"
#include "configurators/frmQX5140.hpp"

namespace pendulon::test {

namespace {

// Fields of the window that have no widget of their own in the view: the hidden file path and
// the two floating panels, which the view adds on top.
bool HasNoWidget(const std::string& name) {
    return name == "txtFilePath" || name == "picDebugWindow" || name == "picPower";
}

using Shown = ShownDocument<frmQX5140, QX5140View>;

}  // namespace

class QX5140ViewTest : public QObject {
    Q_OBJECT
  private slots:
    void everyFieldHasItsNamedWidget() {
        DocumentFixture f;
        Shown s(f, 1280, 800, "QX5140");
        QVERIFY(s.view != nullptr);
        const QStringList missing = MissingWidgets(*s.form, *s.view, HasNoWidget);
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(", ")));
    }

    void everythingFitsWithoutOverlapOrClippingInBothModes() {
        for (const auto& [width, height] : {std::pair{1280, 800}, std::pair{1600, 1000}}) {
            for (bool select : {false, true}) {
                DocumentFixture f;
                Shown s(f, width, height, "QX5140");
                QVERIFY(s.view != nullptr);
                if (select) {
                    QTest::mouseClick(s.view->findChild<QRadioButton*>("optSelect"),
                                      Qt::LeftButton);
                    QVERIFY(s.form->optSelect.Value());
                    QTRY_VERIFY(s.view->findChild<QLineEdit*>("txtClkA(1)")->isVisible());
                }
                QTRY_VERIFY(s.view->isVisible());
                QMdiSubWindow* sub = f.window->SubWindowOf(*s.form);
                QVERIFY(sub != nullptr);
                const QRect area = sub->mdiArea()->viewport()->rect();
                QVERIFY2(area.contains(sub->geometry()),
                         qPrintable(QString("document %1x%2 in %3x%4")
                                        .arg(sub->width())
                                        .arg(sub->height())
                                        .arg(area.width())
                                        .arg(area.height())));
                std::vector<QWidget*> shown;
                for (const Field* field : s.form->Fields().Fields()) {
                    const std::string& name = field->Name();
                    auto* widget = s.view->findChild<QWidget*>(QString::fromStdString(name));
                    if (widget == nullptr || !widget->isVisibleTo(s.view))
                        continue;
                    QTRY_VERIFY2(sub->contentsRect().contains(
                                     QRect(widget->mapTo(sub, QPoint(0, 0)), widget->size())),
                                 name.c_str());
                    if (auto* label = qobject_cast<QLabel*>(widget)) {
                        if (!label->text().isEmpty())
                            QVERIFY2(label->sizeHint().width() <= label->width() + 1, name.c_str());
                    } else if (auto* check = qobject_cast<QCheckBox*>(widget)) {
                        QVERIFY2(check->sizeHint().width() <= check->width() + 1, name.c_str());
                    } else if (qobject_cast<QGroupBox*>(widget) == nullptr) {
                        shown.push_back(widget);
                    }
                }
                for (size_t a = 0; a < shown.size(); ++a)
                    for (size_t b = a + 1; b < shown.size(); ++b)
                        if (!shown[a]->isAncestorOf(shown[b]) && !shown[b]->isAncestorOf(shown[a]))
                            QVERIFY2(!InView(shown[a], s.view).intersects(InView(shown[b], s.view)),
                                     qPrintable(shown[a]->objectName() + " / " +
                                                shown[b]->objectName()));
                auto* data = s.view->findChild<QComboBox*>("cboUPLLData");
                auto* actual = s.view->findChild<QComboBox*>("cboClkB");
                const QFontMetrics metrics(data->font());
                QVERIFY(data->width() > metrics.horizontalAdvance("99.844961 P:322 Q:129") + 20);
                QVERIFY(actual->width() > metrics.horizontalAdvance("24.96124    PPM:-1550") + 20);
                const auto groups = s.view->findChildren<QGroupBox*>();
                for (int a = 0; a < groups.size(); ++a)
                    for (int b = a + 1; b < groups.size(); ++b) {
                        if (!groups[a]->isVisible() || !groups[b]->isVisible() ||
                            groups[a]->isAncestorOf(groups[b]) ||
                            groups[b]->isAncestorOf(groups[a]))
                            continue;
                        QVERIFY2(
                            !InView(groups[a], s.view).intersects(InView(groups[b], s.view)),
                            qPrintable(groups[a]->objectName() + " / " + groups[b]->objectName()));
                    }
                KeepPicture(f.window.get(), QString("frmQX5140-%1x%2-%3")
                                                .arg(width)
                                                .arg(height)
                                                .arg(select ? "select" : "new"));
            }
        }
    }

    void aUserCalculatesAndStepsThroughTheCases() {
        DocumentFixture f;
        f.app->Main().mnuViewPower.SetChecked(true);
        Shown s(f, 1280, 800, "QX5140");
        auto type = [&](const char* name, const char* text, const char* next) {
            auto* field = s.view->findChild<QLineEdit*>(name);
            field->setFocus();
            field->selectAll();
            QTest::keyClicks(field, text);
            s.view->findChild<QWidget*>(next)->setFocus();
        };
        type("txtClkA(0)", "50", "txtClkB");
        type("txtClkB", "25", "txtClkC");
        type("txtClkC", "12.5", "txtPPM");
        QCOMPARE(s.form->txtClkA[0].Text(), std::string("50.0"));
        auto* calculate = s.view->findChild<QPushButton*>("cmdCalculate");
        QTest::mouseClick(calculate, Qt::LeftButton);
        QCOMPARE(s.form->cmdCalculate.BackColor(), colors::Grey);
        auto* message = s.view->findChild<QLabel*>("lblCaseMessage");
        QVERIFY(message->text().startsWith("Case 1 of "));
        QCOMPARE(s.view->findChild<QLabel*>("lblClkASrcDiv")->text(),
                 QString::fromStdString(s.form->lblClkASrcDiv.Caption()));
        QVERIFY(s.view->findChild<QComboBox*>("cboClkA(0)")->currentText().contains("PPM:"));
        KeepPicture(f.window.get(), "frmQX5140-1280x800-calculated");
        QTest::mouseClick(calculate, Qt::LeftButton);
        QVERIFY(message->text().startsWith("Case 2 of "));
        FloatingPanel* panel = s.view->PowerPanel();
        QTRY_VERIFY(panel->isVisible());
        QTRY_COMPARE(panel->pos(), s.view->PowerSlot()->mapTo(s.view, QPoint(0, 0)));
        for (QGroupBox* group : s.view->findChildren<QGroupBox*>())
            if (group->isVisible())
                QVERIFY2(!InView(group, s.view).intersects(panel->geometry()),
                         qPrintable(group->objectName()));
        KeepPicture(f.window.get(), "frmQX5140-1280x800-case2");
    }

    void everyFieldIsNamedByItsLabelsWithTheRightRole() {
        DocumentFixture f;
        Shown s(f, 1280, 800, "QX5140");
        const auto named = [&](const char* widget) {
            QAccessibleInterface* face =
                QAccessible::queryAccessibleInterface(s.view->findChild<QWidget*>(widget));
            return face == nullptr ? QString() : face->text(QAccessible::Name);
        };
        const auto role = [&](const char* widget) {
            QAccessibleInterface* face =
                QAccessible::queryAccessibleInterface(s.view->findChild<QWidget*>(widget));
            return face == nullptr ? QAccessible::NoRole : face->role();
        };
        QCOMPARE(named("txtClkA(0)"), QString("CLKA Desired (MHz)"));
        QCOMPARE(named("txtClkB"), QString("CLKB Desired (MHz)"));
        // A list is read by its value on this system; its name is the widget's.
        QCOMPARE(s.view->findChild<QWidget*>("cboClkC")->accessibleName(),
                 QString("CLKC Actual (MHz, PPM)"));
        QCOMPARE(named("chkPrivatePLLClockB"), QString("CLKB Private PLL"));
        QCOMPARE(s.view->findChild<QWidget*>("cboCPLLData(0)")->accessibleName(),
                 QString("CPLL[0] PLL Data"));
        QCOMPARE(named("chkSuspendSPLL"), QString("SPLL Suspend"));
        QCOMPARE(named("optShutdown"), QString("Shutdown"));
        QCOMPARE(role("optShutdown"), QAccessible::RadioButton);
        QCOMPARE(role("opt3V"), QAccessible::RadioButton);
        QCOMPARE(role("chkPrivatePLLClockA"), QAccessible::CheckBox);
        // Every field has a name.
        for (QWidget* widget : s.view->findChildren<QWidget*>()) {
            if (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_") ||
                !widget->isVisible())
                continue;
            if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget) ||
                qobject_cast<QAbstractButton*>(widget)) {
                QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
                const QString name = qobject_cast<QComboBox*>(widget) != nullptr
                                         ? widget->accessibleName()
                                         : face->text(QAccessible::Name);
                QVERIFY2(!name.isEmpty(), qPrintable(widget->objectName()));
            }
        }
        // An option still shows the model's group: a click on another option moves the mark.
        QTest::mouseClick(s.view->findChild<QRadioButton*>("optSelect"), Qt::LeftButton);
        QVERIFY(s.form->optSelect.Value());
        QVERIFY(!s.view->findChild<QRadioButton*>("optOE")->isChecked());
        QVERIFY(s.view->findChild<QRadioButton*>("optSelect")->isChecked());
        // The model may clear every option of a group; the buttons follow.
        s.form->optSuspendOutputsOnly.SetValue(false);
        s.form->optSuspendOutputsAndPLLs.SetValue(false);
        QVERIFY(!s.view->findChild<QRadioButton*>("optSuspendOutputsOnly")->isChecked());
        QVERIFY(!s.view->findChild<QRadioButton*>("optSuspendOutputsAndPLLs")->isChecked());
    }

    void aClickIntoAFrequencySelectsItSoTypingReplacesIt() {
        DocumentFixture f;
        Shown s(f, 1280, 800, "QX5140");
        auto* edit = s.view->findChild<QLineEdit*>("txtClkB");
        s.form->txtClkB.SetText("25");
        s.view->findChild<QWidget*>("txtPPM")->setFocus(Qt::OtherFocusReason);
        QTest::mouseClick(edit, Qt::LeftButton, Qt::NoModifier, QPoint(edit->width() / 2, 5));
        QVERIFY(edit->hasFocus());
        QCOMPARE(edit->selectedText(), QString("25"));
        QTest::keyClicks(edit, "33");
        QCOMPARE(s.form->txtClkB.Text(), std::string("33"));
    }

    void tabReadsTheOutputRows() {
        DocumentFixture f;
        Shown s(f, 1280, 800, "QX5140");
        const auto tabFrom = [&](const char* name) { return TabFrom(s.view, name); };
        QCOMPARE(tabFrom("txtClkA(0)"), QString("cboClkA(0)"));
        // The second state of CLKA is hidden without Select/Suspend.
        QCOMPARE(tabFrom("chkPrivatePLLClockA"), QString("txtClkB"));
        QCOMPARE(tabFrom("txtClkB"), QString("cboClkB"));
    }

    void selectSuspendShowsTheSecondStateAndTheSuspendChoices() {
        DocumentFixture f;
        Shown s(f, 1280, 800, "QX5140");
        auto* second = s.view->findChild<QLineEdit*>("txtClkA(1)");
        auto* suspend = s.view->findChild<QGroupBox*>("fraSuspend");
        // The heading over the outputs' suspend boxes.
        QLabel* heading = nullptr;
        for (QLabel* label : s.view->findChild<QGroupBox*>("grpOutputs")->findChildren<QLabel*>())
            if (label->text() == "Suspend")
                heading = label;
        QVERIFY(heading != nullptr);
        QTRY_VERIFY(!second->isVisible());
        QVERIFY(!suspend->isVisible());
        QVERIFY(!heading->isVisible());
        QTest::mouseClick(s.view->findChild<QRadioButton*>("optSelect"), Qt::LeftButton);
        QTRY_VERIFY(second->isVisible());
        QVERIFY(suspend->isVisible());
        QVERIFY(heading->isVisible());
        QVERIFY(s.view->findChild<QCheckBox*>("chkSuspendClockB")->isVisible());
        QVERIFY(!s.view->findChild<QCheckBox*>("chkPrivatePLLClockA")->isVisible());
        QTest::mouseClick(s.view->findChild<QRadioButton*>("optSuspendOutputsAndPLLs"),
                          Qt::LeftButton);
        QVERIFY(s.form->optSuspendOutputsAndPLLs.Value());
        QTest::mouseClick(s.view->findChild<QRadioButton*>("optShutdown"), Qt::LeftButton);
        QTRY_VERIFY(!second->isVisible());
        QVERIFY(!suspend->isVisible());
        QVERIFY(!heading->isVisible());
    }
};

QObject* MakeQX5140ViewTest() {
    return new QX5140ViewTest;
}

}  // namespace pendulon::test

#include "QX5140ViewTest.moc"
