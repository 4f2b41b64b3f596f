#include <QAbstractButton>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "DesktopTests.hpp"
#include "DocumentFixture.hpp"
#include "desktop/ConfiguratorView.hpp"
#include "desktop/FloatingPanel.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/MenuItem.hpp"
#include "shell/ConfiguratorFactory.hpp"

namespace pendulon::test {

namespace {

// The headless platform on the screen the test runs on: its size and work area are Qt's.
class ScreenPlatform : public HeadlessPlatform {
  public:
    double ScreenWidth() override { return Screen().width() * 15.0; }
    double ScreenHeight() override { return Screen().height() * 15.0; }
    Area ScreenWorkArea() override {
        const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
        return Area{room.x() * 15.0, room.y() * 15.0, room.width() * 15.0, room.height() * 15.0};
    }

  private:
    static QRect Screen() { return QGuiApplication::primaryScreen()->geometry(); }
};

// The program on a first start (no settings at all) with the real main window and views.
struct FirstStart : ProgramFixture<ScreenPlatform> {
    FirstStart() : ProgramFixture<ScreenPlatform>(true) {}
    // View, Debug Window made available and checked, as a "ShowDebugWindow" setting of "True"
    // makes it at the start (a first start has no settings, so none).
    void CheckDebugWindow() {
        MenuItem& entry = app->Main().mnuViewDebugWindow;
        entry.SetEnabled(true);
        entry.SetVisible(true);
        entry.SetChecked(true);
    }
};

// Where a widget's rectangle lies in the workspace's viewport.
QRect InViewport(const QWidget* widget, const QMdiArea* area) {
    return QRect(widget->mapTo(area->viewport(), QPoint(0, 0)), widget->size());
}

// What the workspace's scroll bars can bring into sight, in viewport coordinates.
QRect Reachable(const QMdiArea* area) {
    const QScrollBar* h = area->horizontalScrollBar();
    const QScrollBar* v = area->verticalScrollBar();
    const QSize port = area->viewport()->size();
    return QRect(-(h->value() - h->minimum()), -(v->value() - v->minimum()),
                 port.width() + (h->isVisible() ? h->maximum() - h->minimum() : 0),
                 port.height() + (v->isVisible() ? v->maximum() - v->minimum() : 0));
}

// The fields a user works with: every named, visible, enabled input of the view.
std::vector<QWidget*> Fields(QWidget* view) {
    std::vector<QWidget*> fields;
    for (QWidget* widget : view->findChildren<QWidget*>()) {
        if (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_") ||
            !widget->isVisible() || !widget->isEnabled())
            continue;
        if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget) ||
            qobject_cast<QAbstractButton*>(widget) || qobject_cast<QScrollBar*>(widget))
            fields.push_back(widget);
    }
    return fields;
}

// The part of a widget its parents do not clip away (a row scrolled out of its table shows
// nothing), in the workspace's viewport.
QRect SeenInViewport(const QWidget* widget, const QWidget* view, const QMdiArea* area) {
    QRect seen = widget->rect();
    for (const QWidget* up = widget->parentWidget(); up != nullptr && up != view;
         up = up->parentWidget())
        seen &= QRect(widget->mapFrom(up, QPoint(0, 0)), up->size());
    return seen.translated(widget->mapTo(area->viewport(), QPoint(0, 0)));
}

// Whether a field lies in a table that scrolls its own rows (the QX4860's): its rows are
// reached with that table's scroll bar.
bool InScrolledTable(const QWidget* widget) {
    for (const QWidget* up = widget->parentWidget(); up != nullptr; up = up->parentWidget())
        if (up->objectName() == "picOutputDisplay")
            return true;
    return false;
}

void ExpectDocumentReachable(FirstStart& s, const QString& where) {
    QMdiArea* area = s.window->MdiArea();
    QMdiSubWindow* sub = s.window->SubWindowOf(*s.app->Document());
    QVERIFY2(sub != nullptr, qPrintable(where));
    auto* view = qobject_cast<ConfiguratorView*>(sub->widget());
    QVERIFY2(view != nullptr, qPrintable(where));
    QVERIFY2(sub->x() >= 0 && sub->y() >= 0,
             qPrintable(where + QString(": the window stands at %1,%2").arg(sub->x()).arg(sub->y())));
    const QRect reachable = Reachable(area);
    const QRect inside(sub->widget()->mapTo(area->viewport(), QPoint(0, 0)), sub->widget()->size());
    const std::vector<QWidget*> fields = Fields(view);
    QVERIFY2(fields.size() > 10, qPrintable(where));
    for (QWidget* field : fields) {
        const QRect at = InViewport(field, area);
        const QString what = where + ": " + field->objectName();
        if (InScrolledTable(field)) {
            QVERIFY2(view->findChild<QScrollBar*>("vsbOutput") != nullptr, qPrintable(what));
            continue;
        }
        QVERIFY2(inside.contains(at), qPrintable(what + " is cut off by its window"));
        QVERIFY2(reachable.contains(at),
                 qPrintable(what + QString(" cannot be scrolled into sight (%1,%2 %3x%4 of %5,%6 "
                                           "%7x%8; window %9x%10)")
                                       .arg(at.x()).arg(at.y()).arg(at.width()).arg(at.height())
                                       .arg(reachable.x()).arg(reachable.y())
                                       .arg(reachable.width()).arg(reachable.height())
                                       .arg(sub->width()).arg(sub->height())));
    }
    // The debug window shows while View, Debug Window is checked.
    QVERIFY2(view->DebugPanel()->isVisible() == s.app->Main().mnuViewDebugWindow.Checked(),
             qPrintable(where + ": the debug window is not as its menu entry says"));
    // No panel hides a field, nor the other panel.
    for (FloatingPanel* panel : {view->PowerPanel(), view->DebugPanel()}) {
        if (panel == nullptr || !panel->isVisible())
            continue;
        const QRect covered = InViewport(panel, area);
        QVERIFY2(inside.contains(covered),
                 qPrintable(where + ": " + QString::fromStdString(panel->Picture().Name()) + " reaches out of its window"));
        for (QWidget* field : fields)
            QVERIFY2(!covered.intersects(SeenInViewport(field, view, area)),
                     qPrintable(where + ": " + QString::fromStdString(panel->Picture().Name()) +
                                " lies over " + field->objectName()));
    }
    if (view->PowerPanel()->isVisible() && view->DebugPanel()->isVisible())
        QVERIFY2(!view->PowerPanel()->geometry().intersects(view->DebugPanel()->geometry()),
                 qPrintable(where + ": the power and debug windows lie over each other"));
    // Where the workspace has room for the whole window, nothing needs scrolling: Calculate
    // is in sight.
    const QSize port = area->viewport()->size();
    if (sub->width() <= port.width() && sub->height() <= port.height()) {
        QVERIFY2(QRect(QPoint(0, 0), port).contains(sub->geometry()),
                 qPrintable(where + ": the window fits but is not shown whole"));
        auto* calculate = view->findChild<QWidget*>("cmdCalculate");
        QVERIFY2(QRect(QPoint(0, 0), port).contains(InViewport(calculate, area)),
                 qPrintable(where + ": Calculate is out of sight"));
    }
}

}  // namespace

// Opens every device on a first start and after maximising, on the screen the test runs on
// (the test is run at 800x600, 1024x768, 1366x768 and 1920x1080), and reads the geometry as a
// user meets it. Pictures of each go to views/ beside the test.
class DocumentFitTest : public QObject {
    Q_OBJECT
  private slots:
    void firstStartFitsTheScreenAndShowsTheLargestDocument() {
        FirstStart s;
        s.window->show();
        QVERIFY(QTest::qWaitForWindowExposed(s.window.get()));
        const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
        const QRect frame = s.window->geometry();
        QVERIFY(room.contains(frame));
        QVERIFY(frame.width() <= room.width() * 9 / 10 + 1);
        QVERIFY(frame.height() <= room.height() * 9 / 10 + 1);
        // Centred.
        QVERIFY(std::abs(frame.center().x() - room.center().x()) <= 2);
        QVERIFY(std::abs(frame.center().y() - room.center().y()) <= 2);
        // The settings keep what the first start chose, in twips.
        QCOMPARE(s.platform.GetSetting("Pendulon", "Startup", "Width", ""),
                 std::to_string(frame.width() * 15));
    }

    void everyDeviceIsWholeOrReachableOnAFirstStartAndMaximised() {
        const QSize screen = QGuiApplication::primaryScreen()->geometry().size();
        const QString size = QString("%1x%2").arg(screen.width()).arg(screen.height());
        for (const char* device : TableDevices()) {
            FirstStart s;
            s.CheckDebugWindow();
            s.window->show();
            QVERIFY(QTest::qWaitForWindowExposed(s.window.get()));
            s.NewDocument(device);
            QVERIFY(s.app->Document() != nullptr);
            // Calculated, so that the supply current shows where it is kept.
            s.app->Document()->cmdCalculate.RaiseClick();
            QTest::qWait(30);
            const QString name = QString("%1 at %2").arg(device, size);
            ExpectDocumentReachable(s, name + ", first start");
            KeepPicture(s.window.get(), QString("fit-%1-%2-first").arg(size, device));
            s.window->showMaximized();
            QTRY_VERIFY(s.window->isMaximized());
            QTest::qWait(30);
            ExpectDocumentReachable(s, name + ", maximised");
            KeepPicture(s.window.get(), QString("fit-%1-%2-maximised").arg(size, device));
        }
    }
};

QObject* MakeDocumentFitTest() {
    return new DocumentFitTest;
}

}  // namespace pendulon::test

#include "DocumentFitTest.moc"
