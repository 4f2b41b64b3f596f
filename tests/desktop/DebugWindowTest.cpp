#include <QTest>

#include "DesktopTests.hpp"
#include "DocumentFixture.hpp"
#include "configurators/frmQX7311.hpp"
#include "desktop/ConfiguratorView.hpp"
#include "desktop/FloatingPanel.hpp"
#include "desktop/QX7311View.hpp"
#include "platform/MenuItem.hpp"

namespace pendulon::test {

namespace {

// Whether the panel lies over any shown field of the view.
QString FieldUnder(FloatingPanel* panel, QWidget* view) {
    for (const QRect& field : FloatingPanel::FieldRectangles(*view))
        if (field.intersects(panel->geometry()))
            return QString("%1,%2 %3x%4").arg(field.x()).arg(field.y()).arg(field.width()).arg(field.height());
    return QString();
}

// The debug entry of the View menu as a "ShowDebugWindow" setting makes it: there, unchecked.
void OfferDebugWindow(DocumentFixture& f) {
    MenuItem& entry = f.app->Main().mnuViewDebugWindow;
    entry.SetEnabled(true);
    entry.SetVisible(true);
    entry.SetChecked(false);
}

}  // namespace

class DebugWindowTest : public QObject {
    Q_OBJECT
  private slots:
    void viewDebugWindowShowsTheLoopsWhereTheyHideNoField() {
        DocumentFixture f;
        OfferDebugWindow(f);
        ShownDocument<frmQX7311, QX7311View> s(f, 1400, 1000, "QX7311");
        FloatingPanel* panel = s.view->DebugPanel();
        QVERIFY(!panel->isVisible());
        f.app->Main().mnuViewDebugWindow.RaiseClick();
        QVERIFY(f.app->Main().mnuViewDebugWindow.Checked());
        QTRY_VERIFY(panel->isVisible());
        QVERIFY2(FieldUnder(panel, s.view).isEmpty(), qPrintable(FieldUnder(panel, s.view)));
        // After Calculate it lists the solution of every loop, and still hides nothing.
        s.form->txtCPLL[0].SetText("100");
        s.form->cmdCalculate.RaiseClick();
        QTest::qWait(50);
        bool listsLoop = false;
        for (const DrawOp& op : s.form->picDebugWindow.DisplayList())
            if (op.type == DrawOp::Type::Text && op.text.rfind("cboCPLLData(0): ", 0) == 0 &&
                op.text.size() > 17)
                listsLoop = true;
        QVERIFY(listsLoop);
        QTRY_VERIFY2(FieldUnder(panel, s.view).isEmpty(), qPrintable(FieldUnder(panel, s.view)));
        QVERIFY(s.view->rect().contains(panel->geometry()));
        // The menu hides it again.
        f.app->Main().mnuViewDebugWindow.RaiseClick();
        QTRY_VERIFY(!panel->isVisible());
    }

    void theDebugWindowKeepsThePlaceTheUserGaveIt() {
        DocumentFixture f;
        OfferDebugWindow(f);
        ShownDocument<frmQX7311, QX7311View> s(f, 1400, 1000, "QX7311");
        f.app->Main().mnuViewDebugWindow.RaiseClick();
        FloatingPanel* panel = s.view->DebugPanel();
        QTRY_VERIFY(panel->isVisible());
        // Dragged by its title bar to a place of the user's choice.
        const int title = int(FloatingPanel::TitleHeight(s.form->picDebugWindow) / 15);
        const QPoint grip(10, title / 2);
        const QPoint start = panel->pos();
        const QPoint target(600, 40);
        auto at = [&](QPoint inView) { return panel->mapFromGlobal(s.view->mapToGlobal(inView)); };
        SendMouse(panel, QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
        QVERIFY(panel->Dragging());
        SendMouse(panel, QEvent::MouseMove, at(start + grip + (target - start)), Qt::NoButton,
                  Qt::LeftButton);
        SendMouse(panel, QEvent::MouseButtonRelease, at(start + grip + (target - start)),
                  Qt::LeftButton, Qt::NoButton);
        QCOMPARE(panel->pos(), target);
        // It stays there when the loops are solved and the form lays itself out anew.
        s.form->txtCPLL[0].SetText("100");
        s.form->cmdCalculate.RaiseClick();
        QTest::qWait(50);
        QCOMPARE(panel->pos(), target);
        // Hidden and shown again, it comes back there.
        f.app->Main().mnuViewDebugWindow.RaiseClick();
        f.app->Main().mnuViewDebugWindow.RaiseClick();
        QTRY_VERIFY(panel->isVisible());
        QCOMPARE(panel->pos(), target);
        // Closing the document keeps the place for the next one.
        f.platform.QueueAnswer(msgbox::No);
        QVERIFY(f.app->UnloadDocument(kUnloadFormControlMenu));
        QCOMPARE(f.platform.GetSetting("Pendulon", "Setting", "DebugWindowLeft", ""),
                 std::to_string(target.x() * 15));
        QCOMPARE(f.platform.GetSetting("Pendulon", "Setting", "DebugWindowTop", ""),
                 std::to_string(target.y() * 15));
    }
};

QObject* MakeDebugWindowTest() {
    return new DebugWindowTest;
}

}  // namespace pendulon::test

#include "DebugWindowTest.moc"
