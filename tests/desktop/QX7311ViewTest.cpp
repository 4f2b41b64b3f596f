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
#include "configurators/frmQX7311.hpp"
#include "desktop/FloatingPanel.hpp"
#include "desktop/QX7311View.hpp"
#include "platform/Color.hpp"

namespace pendulon::test {

namespace {

// Fields of the window that have no widget of their own in the view: the hidden file path, and
// captions whose text the view's layout already carries (the solution lists stand beside their
// loops, and the limit grid has its own column headings).
bool HasNoWidget(const std::string& name) {
    return name == "txtFilePath" || name == "fraPLLData" || name == "lblMinimum" ||
           name == "lblMaximum" || name == "picDebugWindow" || name == "picPower";
}

using Shown = ShownDocument<frmQX7311, QX7311View>;

}  // namespace

class QX7311ViewTest : public QObject {
    Q_OBJECT
  private slots:
    void everyFieldHasItsNamedWidget() {
        DocumentFixture f;
        Shown s(f, 1280, 800, "QX7311");
        QVERIFY(s.view != nullptr);
        const QStringList missing = MissingWidgets(*s.form, *s.view, HasNoWidget);
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(", ")));
    }

    void everythingFitsAt1280By800WithoutOverlapOrClipping() {
        for (const auto& [width, height] : {std::pair{1280, 800}, std::pair{1600, 1000}}) {
            DocumentFixture f;
            Shown s(f, width, height, "QX7311");
            QVERIFY(s.view != nullptr);
            QTRY_VERIFY(s.view->isVisible());
            // The whole document lies inside the main window's client area.
            QMdiSubWindow* sub = f.window->SubWindowOf(*s.form);
            QVERIFY(sub != nullptr);
            const QRect area = sub->mdiArea()->viewport()->rect();
            QVERIFY2(area.contains(sub->geometry()),
                     qPrintable(QString("document %1x%2 at %3,%4 in %5x%6")
                                    .arg(sub->width())
                                    .arg(sub->height())
                                    .arg(sub->x())
                                    .arg(sub->y())
                                    .arg(area.width())
                                    .arg(area.height())));
            // Every visible field widget is inside the view, shows all of its text and does not
            // overlap another field widget of the same panel.
            std::vector<QWidget*> shown;
            for (const Field* field : s.form->Fields().Fields()) {
                const std::string& name = field->Name();
                auto* widget = s.view->findChild<QWidget*>(QString::fromStdString(name));
                if (widget == nullptr || !widget->isVisibleTo(s.view))
                    continue;
                // Inside the document window as it stands, not only inside the view.
                QTRY_VERIFY2(sub->contentsRect().contains(
                                 QRect(widget->mapTo(sub, QPoint(0, 0)), widget->size())),
                             name.c_str());
                QVERIFY(s.view->rect().contains(InView(widget, s.view)));
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
                        QVERIFY2(
                            !InView(shown[a], s.view).intersects(InView(shown[b], s.view)),
                            qPrintable(shown[a]->objectName() + " / " + shown[b]->objectName()));
            // The lists show their longest entries: a solution and an actual value with its PPM.
            auto* data = s.view->findChild<QComboBox*>("cboCPLLData(0)");
            auto* actual = s.view->findChild<QComboBox*>("cboCPLL(0)");
            const QFontMetrics metrics(data->font());
            QVERIFY(data->width() > metrics.horizontalAdvance("119.384615 P:194 Q:65") + 20);
            QVERIFY(actual->width() > metrics.horizontalAdvance("60.30769    PPM:-5128") + 20);
            // Group boxes do not overlap one another.
            const auto groups = s.view->findChildren<QGroupBox*>();
            for (int a = 0; a < groups.size(); ++a)
                for (int b = a + 1; b < groups.size(); ++b) {
                    if (groups[a]->isAncestorOf(groups[b]) || groups[b]->isAncestorOf(groups[a]))
                        continue;
                    QVERIFY2(!InView(groups[a], s.view).intersects(InView(groups[b], s.view)),
                             qPrintable(groups[a]->objectName() + " / " + groups[b]->objectName()));
                }
            KeepPicture(f.window.get(), QString("frmQX7311-%1x%2-new").arg(width).arg(height));
        }
    }

    void loopsStandLeftOfTheOutputs() {
        DocumentFixture f;
        Shown s(f, 1280, 800, "QX7311");
        QWidget* cpll = s.view->findChild<QGroupBox*>("fraCPLL");
        QWidget* spll = s.view->findChild<QGroupBox*>("fraSPLL");
        QWidget* upll = s.view->findChild<QGroupBox*>("fraUPLL");
        QWidget* outputs = s.view->findChild<QGroupBox*>("fraOutputs");
        for (QWidget* loop : {cpll, spll, upll})
            QVERIFY(InView(loop, s.view).right() < InView(outputs, s.view).left());
    }

    void thePowerPanelFirstAppearsOverNoGroup() {
        DocumentFixture f;
        f.app->Main().mnuViewPower.SetChecked(true);
        Shown s(f, 1280, 800, "QX7311");
        s.form->txtCPLL[0].SetText("66.6");
        s.form->cmdCalculate.RaiseClick();
        FloatingPanel* panel = s.view->PowerPanel();
        QTRY_VERIFY(panel->isVisible());
        QTRY_COMPARE(panel->pos(), s.view->PowerSlot()->mapTo(s.view, QPoint(0, 0)));
        const QRect placed = panel->geometry();
        QVERIFY(s.view->rect().contains(placed));
        for (QGroupBox* group : s.view->findChildren<QGroupBox*>())
            QVERIFY2(!InView(group, s.view).intersects(placed), qPrintable(group->objectName()));
        KeepPicture(f.window.get(), "frmQX7311-1280x800-power");
    }

    void aUserCalculatesFromTheWidgets() {
        DocumentFixture f;
        Shown s(f, 1280, 800, "QX7311I");
        auto* cpll = s.view->findChild<QLineEdit*>("txtCPLL(0)");
        cpll->setFocus();
        QTest::keyClicks(cpll, "48");
        s.view->findChild<QLineEdit*>("txtSPLL")->setFocus();
        QCOMPARE(s.form->txtCPLL[0].Text(), std::string("48.0"));
        auto* clock = s.view->findChild<QComboBox*>("cboClk(1)");
        const int spll = clock->findText("SPLL/2");
        QVERIFY(spll > 0);
        clock->setCurrentIndex(spll);
        emit clock->activated(spll);
        QCOMPARE(s.form->cboClk[1].Text(), std::string("SPLL/2"));
        QTest::keyClicks(s.view->findChild<QLineEdit*>("txtSPLL"), "40");
        cpll->setFocus();
        QCOMPARE(s.form->lblDesiredClk[1].Caption(), std::string(" 20.00000"));
        QCOMPARE(s.view->findChild<QLabel*>("lblDesiredClk(1)")->text(), QString(" 20.00000"));
        auto* calculate = s.view->findChild<QPushButton*>("cmdCalculate");
        QCOMPARE(s.form->cmdCalculate.BackColor(), colors::Yellow);
        QTest::mouseClick(calculate, Qt::LeftButton);
        QCOMPARE(s.form->cmdCalculate.BackColor(), colors::Grey);
        auto* actual = s.view->findChild<QComboBox*>("cboCPLL(0)");
        QVERIFY(actual->currentText().contains("PPM:"));
        QCOMPARE(s.view->findChild<QComboBox*>("cboActualClk(1)")->count(),
                 s.form->cboActualClk[1].ListCount());
        KeepPicture(f.window.get(), "frmQX7311-1280x800-calculated");
    }

    void tabReadsEachLoopRowThenTheOutputs() {
        DocumentFixture f;
        Shown s(f, 1280, 800, "QX7311");
        const auto tabFrom = [&](const char* name) { return TabFrom(s.view, name); };
        QCOMPARE(tabFrom("txtCPLL(3)"), QString("cboCPLL(3)"));
        QCOMPARE(tabFrom("cboCPLLData(3)"), QString("txtCPLL(4)"));
        QCOMPARE(tabFrom("cboUPLLData"), QString("cboCPU"));
    }

    void theQX7312HidesCLKFAndThe32KRow() {
        DocumentFixture f;
        Shown s(f, 1280, 800, "QX7311F");
        QWidget* extra = s.view->findChild<QWidget*>("pic7311Only");
        QTRY_VERIFY(extra->isVisible());
        auto* model = s.view->findChild<QRadioButton*>("opt7312");
        QTest::mouseClick(model, Qt::LeftButton);
        QCOMPARE(s.form->Device(), std::string("QX7312F"));
        QVERIFY(!extra->isVisible());
        QVERIFY(!s.view->findChild<QComboBox*>("cboClkF")->isVisible());
        QCOMPARE(s.view->findChild<QLabel*>("lblDevice")->text(), QString("QX7312F"));
    }

    void suspendLocksTheLowRowsInTheView() {
        DocumentFixture f;
        Shown s(f, 1280, 800, "QX7311");
        s.form->txtCPLL[1].SetText("50");
        QTest::mouseClick(s.view->findChild<QCheckBox*>("chkSuspend"), Qt::LeftButton);
        auto* cpllBox = s.view->findChild<QCheckBox*>("chkSuspendCPLL");
        QVERIFY(cpllBox->isEnabled());
        QTest::mouseClick(cpllBox, Qt::LeftButton);
        auto* row = s.view->findChild<QLineEdit*>("txtCPLL(1)");
        QVERIFY(!row->isEnabled());
        QCOMPARE(row->text(), QString("Off"));
        QVERIFY(s.view->findChild<QLineEdit*>("txtCPLL(4)")->isEnabled());
    }
};

QObject* MakeQX7311ViewTest() {
    return new QX7311ViewTest;
}

}  // namespace pendulon::test

#include "QX7311ViewTest.moc"
