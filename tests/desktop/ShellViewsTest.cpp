#include <QCheckBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <memory>

#include "DesktopTests.hpp"
#include "desktop/PictureView.hpp"
#include "desktop/ShellViews.hpp"
#include "desktop/ViewRegistry.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/frmAbout.hpp"
#include "shell/frmAboutKITE.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmOptions.hpp"
#include "shell/frmSplash.hpp"
#include "shell/frmSummary.hpp"

namespace pendulon::test {

namespace {

struct Fixture {
    HeadlessPlatform platform;
    Application app{platform};
    ViewRegistry views;
    Fixture() {
        app.Main().InitializeGlobalVariables();
        RegisterShellViews(views, app);
    }
    std::unique_ptr<QWidget> View(Window& window) {
        std::unique_ptr<QWidget> view(views.Create(window, nullptr));
        view->show();
        return view;
    }
};

// Every field of the window has a widget of its name in the view.
void ExpectEveryFieldShown(Window& window, QWidget& view) {
    for (Field* field : window.Fields().Fields()) {
        QWidget* widget = view.findChild<QWidget*>(QString::fromStdString(field->Name()));
        QVERIFY2(widget != nullptr, field->Name().c_str());
    }
}

// No text of a label, button or box is cut: each has at least its wanted width.
void ExpectNothingClipped(QWidget& view) {
    view.adjustSize();
    for (QWidget* widget : view.findChildren<QWidget*>()) {
        if (!widget->isVisible())
            continue;
        if (qobject_cast<QLabel*>(widget) || qobject_cast<QAbstractButton*>(widget)) {
            QVERIFY2(widget->width() >= widget->minimumSizeHint().width(),
                     qPrintable(widget->objectName()));
        }
    }
}

// Keeps a picture of the view beside the test program for a person to look at.
void KeepPicture(QWidget& view, const QString& name) {
    QDir().mkpath("views");
    view.grab().save("views/" + name + ".png");
}

}  // namespace

class ShellViewsTest : public QObject {
    Q_OBJECT
  private slots:
    void optionsViewShowsAndSavesTheOptions() {
        Fixture f;
        frmOptions form(f.app);
        form.Form_Load();
        auto view = f.View(form);
        ExpectEveryFieldShown(form, *view);
        ExpectNothingClipped(*view);
        KeepPicture(*view, "frmOptions");
        auto* save = view->findChild<QCheckBox*>("chkSaveOnExit");
        QCOMPARE(save->text(), QString("Save Settings on Exit"));
        QVERIFY(save->isChecked());  // the first-run value
        // The debug window is not there: the description box is cleared and disabled.
        QVERIFY(!view->findChild<QCheckBox*>("chkEntFileIncludeDescription")->isEnabled());
        QTest::mouseClick(view->findChild<QCheckBox*>("chkUseNotepad"), Qt::LeftButton, {},
                          QPoint(6, 6));
        QTest::mouseClick(view->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
        QCOMPARE(f.platform.GetSetting("Pendulon", "Option", "UseNotepad", ""), std::string("1"));
        QVERIFY(!form.Visible());
    }

    void deviceViewSelectsAndShowsThePinoutWideOrNarrow() {
        Fixture f;
        frmDevice& form = f.app.DeviceForm();
        form.Form_Load();
        auto view = f.View(form);
        ExpectEveryFieldShown(form, *view);
        auto* pinout = view->findChild<QGroupBox*>("fraPinout");
        auto* show = view->findChild<QCheckBox*>("chkShowPinout");
        QVERIFY(show->isChecked());
        QVERIFY(pinout->isVisible());
        view->adjustSize();
        const int wide = view->sizeHint().width();
        ExpectNothingClipped(*view);
        KeepPicture(*view, "frmDevice-wide");
        QTest::mouseClick(show, Qt::LeftButton, {}, QPoint(6, 6));
        QCOMPARE(form.chkShowPinout.Value(), 0);
        QVERIFY(!pinout->isVisible());
        QVERIFY(view->sizeHint().width() < wide);
        view->adjustSize();
        KeepPicture(*view, "frmDevice-narrow");
        QTest::mouseClick(show, Qt::LeftButton, {}, QPoint(6, 6));
        QVERIFY(pinout->isVisible());

        // Options of devices this build has no window for are disabled; the model decides.
        form.optQX4860.SetEnabled(true);
        auto* qx4860 = view->findChild<QRadioButton*>("optQX4860");
        QTest::mouseClick(qx4860, Qt::LeftButton, {}, QPoint(6, qx4860->height() / 2));
        QCOMPARE(form.mstrCurrentDevice, std::string("QX4860"));
        QVERIFY(!view->findChild<QRadioButton*>("optQX6105A")->isChecked());
        // Both packages of the family are drawn.
        QVERIFY(view->findChild<PictureView*>("picPinout(1)")->isVisible());
        QVERIFY(!form.picPinout[1].DisplayList().empty());
        view->adjustSize();
        KeepPicture(*view, "frmDevice-QX4860");
    }

    void deviceViewTitleBarCloseCancelsTheSelection() {
        Fixture f;
        frmDevice& form = f.app.DeviceForm();
        form.Form_Load();
        form.SetVisible(true);
        form.optQX5140.SetValue(true);
        f.views.RequestClose(form);
        QCOMPARE(form.mstrCurrentDevice, std::string("QX6105A"));
        QVERIFY(!form.Visible());
    }

    void summaryViewShowsTheDocumentIdentity() {
        Fixture f;
        frmSummary& form = f.app.Summary();
        form.Form_Load();
        form.Reset();
        form.txtCustomer.SetText("Example Customer");
        auto view = f.View(form);
        ExpectEveryFieldShown(form, *view);
        ExpectNothingClipped(*view);
        KeepPicture(*view, "frmSummary");
        QCOMPARE(view->findChild<QLabel*>("lblChecksum")->text(), QString("n/a"));
        QCOMPARE(view->findChild<QLineEdit*>("txtCustomer")->text(), QString("Example Customer"));
        QCOMPARE(view->findChild<QLabel*>("lblFilename")->text(), QString("File Name:"));
    }

    void aboutViewShowsTitleAndBuild() {
        Fixture f;
        frmAbout form(f.app);
        form.Form_Load();
        auto view = f.View(form);
        ExpectEveryFieldShown(form, *view);
        ExpectNothingClipped(*view);
        KeepPicture(*view, "frmAbout");
        QCOMPARE(view->findChild<QLabel*>("lblVersion")->text(), QString("Build #: 3.71.010"));
        QCOMPARE(view->findChild<QLabel*>("lblVARNHOL")->text(), QString("VARNHOL"));
        QTest::mouseClick(view->findChild<QPushButton*>("cmdClose"), Qt::LeftButton);
        QVERIFY(form.Unloaded());
    }

    void aboutKiteViewCloses() {
        Fixture f;
        frmAboutKITE form;
        auto view = f.View(form);
        ExpectEveryFieldShown(form, *view);
        ExpectNothingClipped(*view);
        KeepPicture(*view, "frmAboutKITE");
        f.views.RequestClose(form);
        QVERIFY(form.Unloaded());
    }

    void splashGoesWhenItsTimerTicks() {
        Fixture f;
        frmSplash form(f.app);
        form.Form_Load();
        form.tmrSplashInterval = 50;
        form.SetVisible(true);
        auto view = f.View(form);
        ExpectEveryFieldShown(form, *view);
        KeepPicture(*view, "frmSplash");
        QTRY_VERIFY(form.Unloaded());
        QVERIFY(!form.Visible());
    }

    void splashTimerRunsFromTheMomentTheSplashShows() {
        // On a busy machine the splash may reach the screen late: its time must not have
        // gone by before then, or nothing would take it away again.
        Fixture f;
        frmSplash form(f.app);
        form.Form_Load();
        form.tmrSplashInterval = 50;
        form.SetVisible(true);
        std::unique_ptr<QWidget> view(f.views.Create(form, nullptr));
        QTest::qWait(200);
        QVERIFY(!form.Unloaded());
        QVERIFY(form.Visible());
        view->show();
        QTRY_VERIFY(form.Unloaded());
    }
};

QObject* MakeShellViewsTest() {
    return new ShellViewsTest;
}

}  // namespace pendulon::test

#include "ShellViewsTest.moc"
