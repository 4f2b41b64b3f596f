#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <algorithm>

#include "DesktopTests.hpp"
#include "DocumentFixture.hpp"
#include "configurators/frmQX4860.hpp"
#include "configurators/frmQX6105A.hpp"
#include "core/mShared.hpp"
#include "desktop/Binder.hpp"
#include "desktop/ConfiguratorView.hpp"
#include "desktop/FloatingPanel.hpp"
#include "desktop/QX4860View.hpp"
#include "desktop/QX6105AView.hpp"
#include "platform/Color.hpp"
#include "power/frmPower.hpp"

namespace pendulon::test {

namespace {

QColor ButtonColor(QWidget* button) {
    return button->palette().color(QPalette::Button);
}

// Picks the first entry of a list that starts with text, as a user's choice.
bool Choose(QComboBox* combo, const QString& text) {
    for (int i = 0; i < combo->count(); ++i) {
        if (combo->itemText(i) == text) {
            combo->setCurrentIndex(i);
            emit combo->activated(i);
            return true;
        }
    }
    return false;
}

}  // namespace

class ConfiguratorViewsTest : public QObject {
    Q_OBJECT
  private slots:
    void qx6105aViewShowsEveryFieldOfTheFormByName() {
        DocumentFixture f;
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        QVERIFY(view != nullptr);
        // The file path is hidden: the caption shows the file.
        const QStringList missing = MissingWidgets(
            form, *view, [](const std::string& name) { return name == "txtFilePath"; });
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(", ")));
        QCOMPARE(view->findChild<QGroupBox*>("fraPin8")->title(), QString("Pin 8"));
        QCOMPARE(view->findChild<QGroupBox*>("fraOption")->title(), QString("Option"));
        QCOMPARE(view->findChild<QGroupBox*>("fraLimits")->title(), QString("User Defined Limits"));
        QCOMPARE(view->findChild<QGroupBox*>("fraVoltage")->title(), QString("Voltage"));
        QCOMPARE(view->findChild<QGroupBox*>("fraReference")->title(), QString("Reference"));
        QCOMPARE(view->findChild<QPushButton*>("cmdCalculate")->text(), QString("C&alculate"));
    }

    void qx6105aSubWindowIsLargeEnoughForItsContent() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        QTRY_VERIFY(view->isVisible());
        QVERIFY(view->width() >= view->minimumSizeHint().width());
        QVERIFY(view->height() >= view->minimumSizeHint().height());
    }

    void newDocumentStartsWhereTheFormPutTheFocusAndTabReachesTheFrequency() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        QVERIFY(form.ActiveControl() != nullptr);
        QWidget* active = view->GetBinder().WidgetOf(*form.ActiveControl());
        QVERIFY(active != nullptr);
        QTRY_VERIFY(active->hasFocus());
        // From the reference, the next stop is the loop frequency of state 0 (the smooth slew
        // option is disabled while pin 8 is an output enable).
        QCOMPARE(active->objectName(), QString("cboFRef"));
        QTest::keyClick(active, Qt::Key_Tab);
        auto* edit = view->findChild<QLineEdit*>("txtPLL(0)");
        QTRY_VERIFY(edit->hasFocus());
        QCOMPARE(form.ActiveControl(), static_cast<Field*>(&form.txtPLL[0]));
    }

    void typingAFrequencyInTxtPLL0AndLeavingReachesTheModel() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        auto* edit = view->findChild<QLineEdit*>("txtPLL(0)");
        edit->setFocus();
        QTRY_VERIFY(edit->hasFocus());
        QCOMPARE(form.ActiveControl(), static_cast<Field*>(&form.txtPLL[0]));
        edit->selectAll();
        QTest::keyClicks(edit, "66.5");
        QCOMPARE(form.txtPLL[0].Text(), std::string("66.5"));
        QVERIFY(f.app->gblnNeedsCalculate);
        // Leaving the field runs its check, which brings the outputs up to date.
        auto* other = view->findChild<QLineEdit*>("txtPLLMin(1)");
        other->setFocus();
        QTRY_VERIFY(other->hasFocus());
        QCOMPARE(form.ActiveControl(), static_cast<Field*>(&form.txtPLLMin[1]));
        QVERIFY(!view->findChild<QLabel*>("lblDesired(0)")->text().isEmpty());
        QCOMPARE(view->findChild<QLabel*>("lblDesired(0)")->text(),
                 QString::fromStdString(form.lblDesired[0].Caption()));
    }

    void typingOutOfRangeAndLeavingClampsTheShownText() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        auto* edit = view->findChild<QLineEdit*>("txtPLL(0)");
        edit->setFocus();
        QTRY_VERIFY(edit->hasFocus());
        edit->selectAll();
        QTest::keyClicks(edit, "999");
        view->findChild<QLineEdit*>("txtPLLMin(1)")->setFocus();
        QTRY_VERIFY(edit->text() != "999");
        QCOMPARE(edit->text(), QString::fromStdString(form.txtPLL[0].Text()));
    }

    void calculateFillsPLLDataAndActualAndTurnsTheButtonGrey() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        auto* calculate = view->findChild<QPushButton*>("cmdCalculate");
        QCOMPARE(ButtonColor(calculate), QColor(255, 255, 0));
        auto* edit = view->findChild<QLineEdit*>("txtPLL(0)");
        edit->setFocus();
        QTRY_VERIFY(edit->hasFocus());
        edit->selectAll();
        QTest::keyClicks(edit, "50");
        QVERIFY(Choose(view->findChild<QComboBox*>("cboClkDiv(0)"), "PLL/2"));
        QCOMPARE(form.cboClkDiv[0].Text(), std::string("PLL/2"));
        QTest::mouseClick(calculate, Qt::LeftButton);
        auto* data = view->findChild<QComboBox*>("cboPLLData(0)");
        auto* actual = view->findChild<QComboBox*>("cboActual(0)");
        QVERIFY(data->count() > 0);
        QVERIFY(data->itemText(0) != "Off");
        QCOMPARE(data->itemText(0), QString::fromStdString(form.cboPLLData[0].List(0)));
        QCOMPARE(data->currentIndex(), form.cboPLLData[0].ListIndex());
        QVERIFY(actual->count() > 0);
        QCOMPARE(actual->currentText(), QString::fromStdString(form.cboActual[0].Text()));
        QVERIFY(actual->currentText().startsWith("25"));
        QCOMPARE(ButtonColor(calculate), QColor(192, 192, 192));
        KeepPicture(view, "frmQX6105A-calculated");
        // A new edit makes a Calculate due again.
        edit->setFocus();
        QTRY_VERIFY(edit->hasFocus());
        edit->selectAll();
        QTest::keyClicks(edit, "60");
        QCOMPARE(ButtonColor(calculate), QColor(255, 255, 0));
    }

    void altAPressesCalculate() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        auto* edit = view->findChild<QLineEdit*>("txtPLL(0)");
        edit->setFocus();
        QTRY_VERIFY(edit->hasFocus());
        edit->selectAll();
        QTest::keyClicks(edit, "40");
        QTest::keyClick(edit, Qt::Key_A, Qt::AltModifier);
        QTRY_COMPARE(form.cmdCalculate.BackColor(), Color(12632256));
        QVERIFY(form.cboPLLData[0].ListCount() > 0);
    }

    void outOfLimitValueShowsAsRedText() {
        DocumentFixture f;
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        auto* desired = view->findChild<QLabel*>("lblDesired(0)");
        QVERIFY(desired->palette().color(QPalette::WindowText) != QColor(255, 0, 0));
        // 200 MHz straight from the loop is above the 130 MHz an output may run at 5 V.
        form.SetFocusTo(&form.txtPLL[0]);
        form.txtPLL[0].SetText("200");
        form.SetFocusTo(nullptr);
        QVERIFY(Choose(view->findChild<QComboBox*>("cboClkDiv(0)"), "PLL"));
        QCOMPARE(form.lblDesired[0].ForeColor(), Color(255));
        QCOMPARE(desired->palette().color(QPalette::WindowText), QColor(255, 0, 0));
        // Back in range, back to the normal colour.
        QVERIFY(Choose(view->findChild<QComboBox*>("cboClkDiv(0)"), "PLL/2"));
        QVERIFY(desired->palette().color(QPalette::WindowText) != QColor(255, 0, 0));
    }

    void outputEnableHidesTheSecondStateAndFrequencySelectShowsIt() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        QTRY_VERIFY(view->isVisible());
        QVERIFY(!view->findChild<QComboBox*>("cboActual(4)")->isVisible());
        QVERIFY(!view->findChild<QLineEdit*>("txtPLL(1)")->isEnabled());
        QTest::mouseClick(view->findChild<QWidget*>("optFS"), Qt::LeftButton);
        QVERIFY(form.optFS.Value());
        QVERIFY(view->findChild<QComboBox*>("cboActual(4)")->isVisible());
        QVERIFY(view->findChild<QLineEdit*>("txtPLL(1)")->isEnabled());
    }

    void pinoutPictureTakesTheSizeOfTheDrawnChip() {
        DocumentFixture f;
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        auto* pinout = view->findChild<PictureView*>("picPinout");
        QVERIFY(pinout != nullptr);
        QVERIFY(!form.picPinout.DisplayList().empty());
        QCOMPARE(pinout->size(), pinout->sizeHint());
        QVERIFY(pinout->width() > 100);
        // Every drawing of the chip lies inside the picture.
        for (const DrawOp& op : form.picPinout.DisplayList()) {
            if (op.type == DrawOp::Type::Text) {
                QVERIFY(op.x1 >= 0 && op.y1 >= 0);
                QVERIFY(op.x1 + form.picPinout.TextWidth(op.text) <= form.picPinout.Width());
                QVERIFY(op.y1 + form.picPinout.TextHeight(op.text) <= form.picPinout.Height());
            } else if (op.type != DrawOp::Type::Arc) {
                QVERIFY(std::min(op.x1, op.x2) >= 0 && std::min(op.y1, op.y2) >= 0);
                QVERIFY(std::max(op.x1, op.x2) <= form.picPinout.Width());
                QVERIFY(std::max(op.y1, op.y2) <= form.picPinout.Height());
            }
        }
    }

    void qx4860RowsStayWholeAndScrollAsOneWithAHeadingOnEveryColumn() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX4860");
        auto& form = f.Form<frmQX4860>();
        if (!form.opt14Pin.Value())
            form.opt14Pin.SetValue(true);
        auto* view = f.ViewOf<QX4860View>(form);
        QVERIFY(view != nullptr);
        QCOMPARE(view->findChild<QGroupBox*>("fraFrequencies")->title(),
                 QString("PLL/Output Frequencies (FS3..FS0)"));
        QWidget* rows = view->RowPanel();
        // 360 twips a row at 15 twips a pixel: 24 pixels, four rows in sight.
        QCOMPARE(rows->parentWidget()->height(), 4 * 24);
        QCOMPARE(rows->y(), 0);
        // One scroll bar; the form's second one has nothing of its own to move.
        auto* bar = view->findChild<QScrollBar*>("vsbOutput");
        QTRY_VERIFY(bar->isVisible());
        QVERIFY(view->findChild<QScrollBar*>("vsbPLLData") == nullptr);
        QCOMPARE(bar->maximum(), form.vsbOutput.Max());
        bar->setValue(3);
        QCOMPARE(form.vsbOutput.Value(), 3);
        QCOMPARE(form.vsbPLLData.Value(), 3);
        QCOMPARE(rows->y(), -3 * 24);
        // Row 3 is the top row, whole: its frequency and its loop's solutions side by side.
        const int top = view->findChild<QLineEdit*>("txtPLL(3)")->mapTo(rows->parentWidget(),
                                                                         QPoint(0, 0)).y();
        QCOMPARE(top, 1);
        QCOMPARE(view->findChild<QComboBox*>("cboPLLData(3)")->mapTo(rows->parentWidget(),
                                                                       QPoint(0, 0)).y(),
                 top);
        KeepPicture(view, "frmQX4860-scrolled");
        // Keyboard moves through the rows scroll the one table.
        form.vsbPLLData.SetValue(1);
        QCOMPARE(bar->value(), 1);
        QCOMPARE(rows->y(), -24);
        // Every column of the rows has a heading above it.
        QList<QLabel*> headings;
        for (QLabel* label : view->findChildren<QLabel*>())
            if (label->isVisible() && !rows->isAncestorOf(label) && !label->text().isEmpty())
                headings << label;
        for (const char* cell : {"lblSelectIndex(0)", "txtPLL(0)", "lblDesiredClkA(0)",
                                 "cboActualClkA(0)", "lblDesiredRefClk(0)", "cboActualRefClk(0)",
                                 "lblPLLDataIndex(0)", "cboPLLData(0)"}) {
            auto* widget = view->findChild<QWidget*>(cell);
            const int x = widget->mapTo(view, QPoint(0, 0)).x();
            const bool headed = std::any_of(headings.begin(), headings.end(), [&](QLabel* h) {
                return h->mapTo(view, QPoint(0, 0)).x() == x;
            });
            QVERIFY2(headed, cell);
        }
    }

    void qx4860EightPinShowsFourRowsWithoutScrolling() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX4860");
        auto& form = f.Form<frmQX4860>();
        auto* view = f.ViewOf<QX4860View>(form);
        form.opt8Pin.SetValue(true);
        QTRY_VERIFY(view->isVisible());
        QCOMPARE(view->findChild<QScrollBar*>("vsbOutput")->isVisible(), form.vsbOutput.Visible());
        QVERIFY(view->findChild<QLineEdit*>("txtPLL(3)")->isVisible());
        QCOMPARE(view->findChild<QLineEdit*>("txtPLL(4)")->isVisible(), form.txtPLL[4].Visible());
    }

    void powerPanelFloatsWhereTheSettingsPutItAndFollowsTheViewMenu() {
        // The free place of a first run, stored as a user's place would be.
        QPoint free;
        {
            DocumentFixture f;
            f.app->Main().mnuViewPower.SetChecked(true);
            QVERIFY(f.ShowAndActivate());
            f.NewDocument("QX6105A");
            f.Form<frmQX6105A>().cmdCalculate.RaiseClick();
            FloatingPanel* panel = f.ViewOf<QX6105AView>(f.Form<frmQX6105A>())->PowerPanel();
            QTRY_VERIFY(panel->isVisible());
            free = panel->pos();
        }
        QVERIFY(free != QPoint(0, 0));
        DocumentFixture f;
        f.platform.SaveSetting("Pendulon", "Setting", "PowerWindowTop",
                               std::to_string(free.y() * 15));
        f.platform.SaveSetting("Pendulon", "Setting", "PowerWindowLeft",
                               std::to_string(free.x() * 15));
        f.app->Main().mnuViewPower.SetChecked(true);
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        form.cmdCalculate.RaiseClick();
        FloatingPanel* panel = view->PowerPanel();
        QCOMPARE(panel->objectName(), QString("picPower"));
        QCOMPARE(panel->parentWidget(), static_cast<QWidget*>(view));
        QTRY_VERIFY(panel->isVisible());
        QCOMPARE(panel->pos(), free);
        QCOMPARE(panel->size(), panel->sizeHint());
        QVERIFY(panel->width() > 50);
        f.app->Main().mnuViewPower.RaiseClick();
        QVERIFY(!form.picPower.Visible());
        QVERIFY(!panel->isVisible());
        f.app->Main().mnuViewPower.RaiseClick();
        QVERIFY(panel->isVisible());
        QCOMPARE(panel->pos(), free);
    }

    void aStoredPlaceThatHidesAFieldGivesWayToAFreeOne() {
        // 60, 40 pixels lies over the top groups of a QX6105A document.
        DocumentFixture f;
        f.platform.SaveSetting("Pendulon", "Setting", "PowerWindowTop", "600");
        f.platform.SaveSetting("Pendulon", "Setting", "PowerWindowLeft", "900");
        f.app->Main().mnuViewPower.SetChecked(true);
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        form.cmdCalculate.RaiseClick();
        FloatingPanel* panel = view->PowerPanel();
        QTRY_VERIFY(panel->isVisible());
        QVERIFY(panel->pos() != QPoint(60, 40));
        const std::vector<QRect> fields = FloatingPanel::FieldRectangles(*view);
        const QRect stored(QPoint(60, 40), panel->size());
        QVERIFY(std::any_of(fields.begin(), fields.end(),
                            [&stored](const QRect& field) { return field.intersects(stored); }));
        for (const QRect& field : fields) {
            QVERIFY2(!field.intersects(panel->geometry()), qPrintable(QString("%1,%2 %3x%4")
                                                                          .arg(field.x())
                                                                          .arg(field.y())
                                                                          .arg(field.width())
                                                                          .arg(field.height())));
        }
        // The place it took is in the picture, and so in the settings when the document goes.
        QCOMPARE(form.picPower.Left(), panel->x() * 15.0);
        QCOMPARE(form.picPower.Top(), panel->y() * 15.0);
    }

    void powerPanelFirstShowsWhereItHidesNoField() {
        // On the first run the stored place is the corner of the document (the default, or
        // nothing stored at all): the panel takes the room its document keeps for it instead,
        // and the picture keeps that place.
        for (const char* device : {"QX6105A", "QX4860"}) {
            for (const bool stored : {false, true}) {
                DocumentFixture f;
                if (stored) {
                    f.platform.SaveSetting("Pendulon", "Setting", "PowerWindowTop", "0");
                    f.platform.SaveSetting("Pendulon", "Setting", "PowerWindowLeft", "0");
                }
                f.app->Main().mnuViewPower.SetChecked(true);
                QVERIFY(f.ShowAndActivate());
                f.NewDocument(device);
                Configurator& form = *f.app->Document();
                auto* view = f.ViewOf<ConfiguratorView>(form);
                QTRY_VERIFY(view->isVisible());
                form.cmdCalculate.RaiseClick();
                FloatingPanel* panel = view->PowerPanel();
                QTRY_VERIFY(panel->isVisible());
                const QRect place = panel->geometry();
                QVERIFY(view->rect().contains(place));
                // The fields in sight, each as far as it is not scrolled out of its panel.
                std::vector<QRect> fields;
                for (Field* field : form.Fields().Fields()) {
                    auto* widget = view->findChild<QWidget*>(QString::fromStdString(field->Name()));
                    if (widget == nullptr || !widget->isVisible() || widget == panel)
                        continue;
                    QRect seen = widget->rect();
                    for (QWidget* up = widget->parentWidget(); up != view && up != nullptr;
                         up = up->parentWidget())
                        seen &= QRect(widget->mapFrom(up, QPoint(0, 0)), up->size());
                    if (!seen.isEmpty())
                        fields.push_back(seen.translated(widget->mapTo(view, QPoint(0, 0))));
                }
                QVERIFY(fields.size() > 20);
                auto hidden = [&](const QRect& at) {
                    long long area = 0;
                    for (const QRect& field : fields) {
                        const QRect common = field.intersected(at);
                        if (!common.isEmpty())
                            area += static_cast<long long>(common.width()) * common.height();
                    }
                    return area;
                };
                // Every document keeps a room for the panel: it hides nothing there.
                QCOMPARE(hidden(place), 0LL);
                QCOMPARE(form.picPower.Left(), place.x() * 15.0);
                QCOMPARE(form.picPower.Top(), place.y() * 15.0);
                // The place stays while the panel is hidden and shown again.
                f.app->Main().mnuViewPower.RaiseClick();
                f.app->Main().mnuViewPower.RaiseClick();
                QVERIFY(panel->isVisible());
                QCOMPARE(panel->geometry(), place);
            }
        }
    }

    void freePlaceIsTheLowestThenRightmostOneClearOfEveryField() {
        const QRect area(0, 0, 400, 300);
        const QSize panel(100, 50);
        // Nothing taken: the bottom right corner.
        QCOMPARE(FloatingPanel::FreePlace(panel, area, {}), QPoint(300, 250));
        // A button at the bottom right: the panel stands at its left, a gap apart.
        const QRect button(320, 260, 80, 40);
        const QPoint beside = FloatingPanel::FreePlace(panel, area, {button});
        QCOMPARE(beside.y(), 250);
        QVERIFY(beside.x() + panel.width() <= button.left() - 4);
        QVERIFY(beside.x() + panel.width() > button.left() - 4 - 4);
        // Fields everywhere but a hole at the top left.
        const std::vector<QRect> taken = {QRect(120, 0, 280, 300), QRect(0, 70, 120, 230)};
        const QPoint hole = FloatingPanel::FreePlace(QSize(100, 50), area, taken);
        QVERIFY(hole.x() >= 0 && hole.x() <= 16 && hole.y() >= 0 && hole.y() <= 16);
        // No room at all: the place that hides least, the bottom right corner when every place
        // hides as much.
        QCOMPARE(FloatingPanel::FreePlace(panel, area, {area}), QPoint(300, 250));
        // A wide field at the left and a small one at the bottom right: the right column
        // above the small field touches only the wide one's margin.
        const QPoint least = FloatingPanel::FreePlace(
            QSize(100, 200), area, {QRect(0, 0, 300, 300), QRect(300, 250, 100, 50)});
        QCOMPARE(least, QPoint(300, 44));
    }

    void powerPanelStaysOutOfTheWayUntilItIsPainted() {
        DocumentFixture f;
        f.app->Main().mnuViewPower.SetChecked(true);
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX4860");
        auto& form = f.Form<frmQX4860>();
        auto* view = f.ViewOf<QX4860View>(form);
        QTRY_VERIFY(view->isVisible());
        QVERIFY(form.picPower.Visible());
        QVERIFY(form.picPower.DisplayList().empty());
        QVERIFY(!view->PowerPanel()->isVisible());
        form.cmdCalculate.RaiseClick();
        QVERIFY(!form.picPower.DisplayList().empty());
        QTRY_VERIFY(view->PowerPanel()->isVisible());
    }

    void powerPanelDragsByItsTitleAndKeepsItsPlaceInThePicture() {
        DocumentFixture f;
        f.app->Main().mnuViewPower.SetChecked(true);
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        form.cmdCalculate.RaiseClick();
        FloatingPanel* panel = view->PowerPanel();
        QTRY_VERIFY(panel->isVisible());
        form.picPower.Move(0, 0);
        QCOMPARE(panel->pos(), QPoint(0, 0));
        // A press below the title bar moves nothing.
        const int title = int(FloatingPanel::TitleHeight(form.picPower) / 15);
        const QPoint body(5, title + 10);
        SendMouse(panel, QEvent::MouseButtonPress, body, Qt::LeftButton, Qt::LeftButton);
        QVERIFY(!panel->Dragging());
        SendMouse(panel, QEvent::MouseButtonRelease, body, Qt::LeftButton, Qt::NoButton);
        // A press in the title follows the mouse until release.
        auto at = [&](QPoint inView) { return panel->mapFromGlobal(view->mapToGlobal(inView)); };
        const QPoint grip(20, title / 2);
        SendMouse(panel, QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
        QVERIFY(panel->Dragging());
        SendMouse(panel, QEvent::MouseMove, at(grip + QPoint(30, 20)), Qt::NoButton,
                  Qt::LeftButton);
        QCOMPARE(panel->pos(), QPoint(30, 20));
        QCOMPARE(form.picPower.Left(), 0.0);  // stored only on release
        SendMouse(panel, QEvent::MouseMove, at(grip + QPoint(40, 50)), Qt::NoButton,
                  Qt::LeftButton);
        SendMouse(panel, QEvent::MouseButtonRelease, at(grip + QPoint(40, 50)), Qt::LeftButton,
                  Qt::NoButton);
        QVERIFY(!panel->Dragging());
        QCOMPARE(panel->pos(), QPoint(40, 50));
        QCOMPARE(form.picPower.Left(), 40.0 * 15);
        QCOMPARE(form.picPower.Top(), 50.0 * 15);
        // Closing the document keeps the place for the next one.
        f.platform.QueueAnswer(msgbox::No);
        QVERIFY(f.app->UnloadDocument(kUnloadFormControlMenu));
        QCOMPARE(f.platform.GetSetting("Pendulon", "Setting", "PowerWindowLeft", ""),
                 std::string("600"));
        QCOMPARE(f.platform.GetSetting("Pendulon", "Setting", "PowerWindowTop", ""),
                 std::string("750"));
    }

    void powerPanelCloseBoxHidesItAndUnchecksTheMenu() {
        DocumentFixture f;
        f.app->Main().mnuViewPower.SetChecked(true);
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        form.cmdCalculate.RaiseClick();
        FloatingPanel* panel = view->PowerPanel();
        QTRY_VERIFY(panel->isVisible());
        const Label& close = f.app->Power().lblClose;
        const QPoint box(int((close.Left() + close.Width() / 2) / 15),
                         int((close.Top() + close.Height() / 2) / 15));
        SendMouse(panel, QEvent::MouseButtonPress, box, Qt::LeftButton, Qt::LeftButton);
        SendMouse(panel, QEvent::MouseButtonRelease, box, Qt::LeftButton, Qt::NoButton);
        QVERIFY(!panel->Dragging());
        QVERIFY(!form.picPower.Visible());
        QVERIFY(!panel->isVisible());
        QVERIFY(!f.app->Main().mnuViewPower.Checked());
    }

    void windowTileAndCascadeArrangeTheChildren() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        f.app->Main().mnuPrint.RaiseClick();
        QVERIFY(f.app->Preview() != nullptr);
        QMdiArea* area = f.window->MdiArea();
        QCOMPARE(area->subWindowList().size(), 2);
        f.app->Main().mnuTile.RaiseClick();
        // Tiled children cover the area side by side without overlapping.
        const QRect a = area->subWindowList().at(0)->geometry();
        const QRect b = area->subWindowList().at(1)->geometry();
        QVERIFY(!a.intersects(b));
        f.app->Main().mnuCascade.RaiseClick();
        const QRect c = area->subWindowList().at(0)->geometry();
        const QRect d = area->subWindowList().at(1)->geometry();
        QVERIFY(c.intersects(d));
        QVERIFY(c.topLeft() != d.topLeft());
    }

    void editCommandsActOnTheFocusedField() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        auto* view = f.ViewOf<QX6105AView>(form);
        auto* edit = view->findChild<QLineEdit*>("txtPLL(0)");
        edit->setFocus();
        QTRY_VERIFY(edit->hasFocus());
        edit->selectAll();
        QTest::keyClicks(edit, "48.5");
        f.app->Main().mnuEditSelectAll.RaiseClick();
        QCOMPARE(edit->selectedText(), QString("48.5"));
        f.app->Main().mnuEditCopy.RaiseClick();
        QCOMPARE(f.platform.ClipboardText(), std::string("48.5"));
        // The focus moves to another field; the commands follow it.
        auto* other = view->findChild<QLineEdit*>("txtPLLMax(1)");
        other->setFocus();
        QTRY_VERIFY(other->hasFocus());
        f.app->Main().mnuEditSelectAll.RaiseClick();
        f.app->Main().mnuEditCopy.RaiseClick();
        QCOMPARE(f.platform.ClipboardText(), form.txtPLLMax[1].Text());
    }
};

QObject* MakeConfiguratorViewsTest() {
    return new ConfiguratorViewsTest;
}

}  // namespace pendulon::test

#include "ConfiguratorViewsTest.moc"
