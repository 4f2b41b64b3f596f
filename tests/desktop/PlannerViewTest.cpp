#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "DesktopTests.hpp"
#include "app/Configurator.hpp"
#include "desktop/MainWindow.hpp"
#include "desktop/PlannerView.hpp"
#include "desktop/QtPlatform.hpp"
#include "desktop/ViewRegistry.hpp"
#include "planner/GatedHost.hpp"
#include "planner/clsDevicePlanner.hpp"
#include "planner/frmPlanner.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/ShellPlannerHost.hpp"
#include "shell/frmMain.hpp"

namespace pendulon::test {

namespace {

struct PlannerFixture {
    HeadlessPlatform platform;
    Application app{platform};
    std::unique_ptr<PlannerDialog> dialog;
    explicit PlannerFixture(const PlannerHost* host = nullptr) {
        app.Main().MDIForm_Load("");
        dialog = std::make_unique<PlannerDialog>(app, nullptr, host);
        dialog->ShowPlanner();
    }
    ~PlannerFixture() { dialog.reset(); }
    template <class T>
    T* Find(const QString& name) {
        return dialog->findChild<T*>(name);
    }
    frmPlanner& Model() { return dialog->Model(); }
    // Types a wanted frequency and presses Enter.
    void AddOutput(const QString& text) {
        auto* edit = Find<QLineEdit>("txtOutput");
        edit->setFocus();
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Return);
    }
    void PlanAndWait() {
        QTest::mouseClick(Find<QPushButton>("cmdPlan"), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(!Model().Planning(), 20000);
    }
};

}  // namespace

class PlannerViewTest : public QObject {
    Q_OBJECT
    QTemporaryDir userDir_;
    QTemporaryDir systemDir_;

  private slots:
    void initTestCase() {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, userDir_.path());
        QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, systemDir_.path());
    }

    // Tools, Frequency Planner... opens one window beside the main window, not modal.
    void theToolsMenuOpensThePlannerBesideTheMainWindow() {
        ViewRegistry views;
        QtPlatform platform(views);
        Application app(platform);
        app.Main().InitializeGlobalVariables();
        MainWindow window(app, views);
        ConnectPlannerDialog(app, window);
        window.show();
        auto* action = window.findChild<QAction*>("mnuToolsFrequencyPlanner");
        QVERIFY(action != nullptr);
        QCOMPARE(action->text(), QString("&Frequency Planner..."));
        action->trigger();
        auto* dialog = window.findChild<PlannerDialog*>();
        QVERIFY(dialog != nullptr);
        QVERIFY(dialog->isVisible());
        QVERIFY(!dialog->isModal());
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QCOMPARE(dialog->windowTitle(), QString("Frequency Planner"));
        // On a small screen the window stays within its work area and scrolls.
        const QRect room = dialog->screen()->availableGeometry();
        QVERIFY(dialog->width() <= room.width() && dialog->height() <= room.height());
        // Closed and opened again: the same window, as it was left.
        dialog->Model().txtTolerance.SetText("50");
        dialog->close();
        QVERIFY(!dialog->isVisible());
        action->trigger();
        QCOMPARE(window.findChildren<PlannerDialog*>().size(), qsizetype(1));
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->findChild<QLineEdit*>("txtTolerance")->text(), QString("50"));
    }

    void everyFieldHasItsWidget() {
        PlannerFixture f;
        for (Field* field : f.Model().Fields().Fields()) {
            if (field->Kind() == FieldKind::Label && field->Name() != "lblStatus" &&
                field->Name() != "lblProgress" && field->Name() != "lblToleranceUnit")
                continue;  // the labels that name a field are its buddies
            QVERIFY2(
                f.dialog->findChild<QWidget*>(QString::fromStdString(field->Name())) != nullptr,
                field->Name().c_str());
        }
        QCOMPARE(f.Find<QComboBox>("cboReference")->currentText(), QString("14.31818 MHz"));
        QCOMPARE(f.Find<QComboBox>("cboReference")->itemText(0), QString("any"));
        QVERIFY(f.Find<QCheckBox>("chkDevice(12)")->isChecked());
        QCOMPARE(f.Find<QCheckBox>("chkDevice(12)")->text(), QString("QX5140"));
    }

    // Enter adds a typed frequency, Delete removes the one selected; Alt+P plans.
    void theKeyboardAddsRemovesAndPlans() {
        PlannerFixture f;
        f.AddOutput("33.333");
        f.AddOutput("48");
        f.AddOutput("24.576");
        f.AddOutput("1");
        auto* list = f.Find<QListWidget>("lstOutputs");
        QCOMPARE(list->count(), 4);
        QCOMPARE(list->item(1)->text(), QString("48.0"));
        list->setFocus();
        list->setCurrentRow(3);
        QTest::keyClick(list, Qt::Key_Delete);
        QCOMPARE(list->count(), 3);
        QCOMPARE(f.Model().lstOutputs.ListCount(), 3);
        f.dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f.dialog.get()));
        list->setFocus();
        QTRY_VERIFY(list->hasFocus());
        // A mnemonic clicks its button a moment later, as a mouse click shows.
        QTest::keyClick(list, Qt::Key_P, Qt::AltModifier);
        QTRY_COMPARE_WITH_TIMEOUT(f.Find<QTableWidget>("lstResults")->rowCount(), 15, 20000);
    }

    // The ranked table, sorted by a click on a head; the details of the selected row; Open
    // makes the document the result promises; Enter in the table is Open.
    void resultsAreRankedSortableAndOpen() {
        PlannerFixture f;
        for (const char* output : {"33.333", "48", "24.576"}) f.AddOutput(output);
        f.PlanAndWait();
        auto* table = f.Find<QTableWidget>("lstResults");
        QCOMPARE(table->rowCount(), 15);
        QCOMPARE(table->item(0, 0)->text(), QString("1"));
        QCOMPARE(table->item(0, 1)->text(), QString("QX7312"));
        QCOMPARE(table->currentRow(), 0);
        QVERIFY(f.Find<QPlainTextEdit>("txtDetails")->toPlainText().contains("QX7312: serves"));
        QVERIFY(f.Find<QPushButton>("cmdOpen")->isEnabled());
        QCOMPARE(f.Find<QLabel>("lblStatus")->text(), QString("7 of 15 devices serve the plan."));
        QDir().mkpath("views");
        f.dialog->grab().save("views/frmPlanner-results.png");

        // A click on the Device head sorts by device; the ranks stay the planner's.
        table->horizontalHeader()->sectionClicked(1);
        QCOMPARE(f.Find<QComboBox>("cboSortBy")->currentText(), QString("Device"));
        QCOMPARE(table->item(0, 1)->text(), QString("QX6105A"));
        QCOMPARE(table->item(0, 0)->text(), QString(""));
        QVERIFY(table->item(0, 6)->text().startsWith("does not serve: its one PLL"));
        QCOMPARE(f.Model().SelectedResult()->strDevice, std::string("QX7312"));
        table->horizontalHeader()->sectionClicked(0);
        QCOMPARE(table->item(0, 1)->text(), QString("QX7312"));

        // A row that does not serve cannot be opened.
        table->setCurrentCell(14, 0);
        QVERIFY(!f.Find<QPushButton>("cmdOpen")->isEnabled());
        table->setCurrentCell(0, 0);
        const clsPlanResult promised = *f.Model().SelectedResult();
        table->setFocus();
        QTest::keyClick(table, Qt::Key_Return);
        QVERIFY(f.app.Document() != nullptr);
        QCOMPARE(f.app.Document()->lblDevice.Caption(), std::string("QX7312"));
        const ShellPlannerHost host;
        QCOMPARE(clsDevicePlanner::Create(host, "QX7312")->Shows(*f.app.Document(), promised),
                 std::string());
    }

    // While a plan runs the window answers: its fields take input, the progress shows after
    // 0.2 s, and Stop ends the plan.
    void aRunningPlanKeepsTheWindowAliveAndStops() {
        GatedHost gated;
        PlannerFixture f(&gated);
        double now = 0;
        f.Model().Clock = [&now] { return now; };
        f.AddOutput("48");
        QTest::mouseClick(f.Find<QPushButton>("cmdPlan"), Qt::LeftButton);
        QVERIFY(f.Model().Planning());
        QVERIFY(!f.Find<QPushButton>("cmdPlan")->isEnabled());
        QVERIFY(f.Find<QPushButton>("cmdCancelPlan")->isEnabled());
        QTest::qWait(120);
        QVERIFY(!f.Find<QGroupBox>("fraProgress")->isVisible());
        now = 1;
        QTRY_VERIFY(f.Find<QGroupBox>("fraProgress")->isVisible());
        QCOMPARE(f.Find<QProgressBar>("prgPlan")->maximum(), 15);
        QCOMPARE(f.Find<QLabel>("lblProgress")->text(), QString("0 of 15 devices tried"));
        // The window takes input meanwhile.
        f.AddOutput("24");
        QCOMPARE(f.Find<QListWidget>("lstOutputs")->count(), 2);
        QTest::mouseClick(f.Find<QPushButton>("cmdCancelPlan"), Qt::LeftButton);
        gated.Open();
        QTRY_VERIFY_WITH_TIMEOUT(!f.Model().Planning(), 20000);
        QVERIFY(!f.Find<QGroupBox>("fraProgress")->isVisible());
        QCOMPARE(f.Find<QLabel>("lblStatus")->text(), QString("The plan was stopped."));
        QCOMPARE(f.Find<QTableWidget>("lstResults")->rowCount(), 0);
        QVERIFY(f.Find<QPushButton>("cmdPlan")->isEnabled());
    }
};

QObject* MakePlannerViewTest() {
    return new PlannerViewTest;
}

}  // namespace pendulon::test

#include "PlannerViewTest.moc"
