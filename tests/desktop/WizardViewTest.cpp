#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <memory>

#include "DesktopTests.hpp"
#include "app/Configurator.hpp"
#include "desktop/QtPlatform.hpp"
#include "desktop/ShellViews.hpp"
#include "desktop/ViewRegistry.hpp"
#include "desktop/WizardView.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/OptionButton.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "wizard/frmDecisionTree.hpp"

namespace pendulon::test {

namespace {

struct WizardFixture {
    HeadlessPlatform platform;
    Application app{platform};
    ViewRegistry views;
    frmDecisionTree form{app};
    std::unique_ptr<QWidget> view;
    WizardFixture() {
        app.Main().MDIForm_Load("");
        RegisterWizardView(views, app);
        form.Form_Load();
        form.SetVisible(true);
        view.reset(views.Create(form, nullptr));
        view->show();
        view->adjustSize();
    }
    template <class T>
    T* Find(const QString& name) {
        return view->findChild<T*>(name);
    }
    QWidget* Page(int i) { return Find<QWidget>("fraDecision(" + QString::number(i) + ")"); }
    // The pages the user can see.
    QList<int> ShownPages() {
        QList<int> shown;
        for (int i = 0; i < frmDecisionTree::kPageCount; ++i)
            if (Page(i)->isVisible())
                shown << i;
        return shown;
    }
    void Click(const QString& name) {
        auto* button = Find<QAbstractButton>(name);
        QVERIFY2(button != nullptr, qPrintable(name));
        QVERIFY2(button->isVisible(), qPrintable(name));
        if (qobject_cast<QRadioButton*>(button) != nullptr)
            QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(6, button->height() / 2));
        else
            QTest::mouseClick(button, Qt::LeftButton);
    }
    void Keep(const QString& name) {
        QDir().mkpath("views");
        view->grab().save("views/" + name + ".png");
    }
};

// Runs action on the next modal window that appears.
void WhenModal(std::function<void(QWidget*)> action) {
    QTimer::singleShot(0, [action] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr) {
            WhenModal(action);
            return;
        }
        action(modal);
    });
}

void ClickIn(QWidget* modal, const QString& name) {
    auto* button = modal->findChild<QAbstractButton*>(name);
    QVERIFY2(button != nullptr && button->isVisible(), qPrintable(name));
    if (qobject_cast<QRadioButton*>(button) != nullptr)
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(6, button->height() / 2));
    else
        QTest::mouseClick(button, Qt::LeftButton);
}

}  // namespace

class WizardViewTest : public QObject {
    Q_OBJECT
    QTemporaryDir userDir_;
    QTemporaryDir systemDir_;

  private slots:
    void initTestCase() {
        // The documents opened here read and write settings: keep them out of the user's.
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, userDir_.path());
        QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, systemDir_.path());
    }

    void helpMenuShowsTheWizardAsADialogThatFinishCloses() {
        ViewRegistry views;
        QtPlatform platform(views);
        Application app(platform);
        app.Main().InitializeGlobalVariables();
        RegisterWizardView(views, app);
        QString title;
        QList<QString> pages;
        WhenModal([&](QWidget* modal) {
            title = modal->windowTitle();
            ClickIn(modal, "opt3(0)");
            ClickIn(modal, "cmdNext(0)");
            ClickIn(modal, "opt3(1)");
            ClickIn(modal, "cmdNext(1)");
            ClickIn(modal, "opt1(2)");
            ClickIn(modal, "cmdNext(2)");
            // Enter is Finish once the variant is chosen.
            ClickIn(modal, "opt3(3)");
            QVERIFY(modal->findChild<QPushButton*>("cmdNext(3)")->isDefault());
            QTest::keyClick(modal->findChild<QWidget*>("opt3(3)"), Qt::Key_Return);
        });
        app.Main().mnuDecisionTree.RaiseClick();
        // The dialog is gone and the document is there.
        QCOMPARE(title, QString("Clock Selection Wizard"));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(app.Document() != nullptr);
        QCOMPARE(app.Document()->lblDevice.Caption(), std::string("QX6105AI"));
    }

    void finishFromTheDeviceWindowClosesBothDialogs() {
        ViewRegistry views;
        QtPlatform platform(views);
        Application app(platform);
        app.Main().InitializeGlobalVariables();
        RegisterShellViews(views, app);
        RegisterWizardView(views, app);
        app.DeviceForm().Form_Load();
        QString deviceTitle;
        QString wizardTitle;
        WhenModal([&](QWidget* device) {
            deviceTitle = device->windowTitle();
            // The wizard comes up in front of the device window.
            WhenModal([&, device](QWidget* wizard) {
                wizardTitle = wizard->windowTitle();
                QVERIFY(wizard != device);
                QVERIFY(device->isVisible());
                ClickIn(wizard, "opt3(0)");
                ClickIn(wizard, "cmdNext(0)");
                ClickIn(wizard, "opt1(1)");
                ClickIn(wizard, "cmdNext(1)");
                ClickIn(wizard, "opt1(4)");
                ClickIn(wizard, "cmdNext(4)");
                ClickIn(wizard, "opt1(3)");
                ClickIn(wizard, "cmdNext(3)");
            });
            ClickIn(device, "cmdDecisionTree");
        });
        app.Main().mnuNew.RaiseClick();
        QCOMPARE(deviceTitle, QString("Select Device"));
        QCOMPARE(wizardTitle, QString("Clock Selection Wizard"));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(!app.DeviceForm().Visible());
        QVERIFY(app.Document() != nullptr);
        QCOMPARE(app.Document()->lblDevice.Caption(), std::string("QX4860F"));
        auto* opt8Pin = app.Document()->Fields().FindAs<OptionButton>("opt8Pin");
        QVERIFY(opt8Pin != nullptr && opt8Pin->Value());
    }

    void escapeIsCancel() {
        ViewRegistry views;
        QtPlatform platform(views);
        Application app(platform);
        app.Main().InitializeGlobalVariables();
        RegisterWizardView(views, app);
        WhenModal([&](QWidget* modal) {
            ClickIn(modal, "opt1(0)");
            ClickIn(modal, "cmdNext(0)");
            QTest::keyClick(modal, Qt::Key_Escape);
        });
        app.Main().mnuDecisionTree.RaiseClick();
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(app.Document() == nullptr);
    }

    void everyFieldHasItsWidgetAndOnlyTheFrontPageShows() {
        WizardFixture f;
        for (Field* field : f.form.Fields().Fields()) {
            QWidget* widget = f.view->findChild<QWidget*>(QString::fromStdString(field->Name()));
            QVERIFY2(widget != nullptr, field->Name().c_str());
        }
        QCOMPARE(f.ShownPages(), QList<int>({0}));
        QCOMPARE(f.Find<QLabel>("lblTitle")->text(),
                 QString("Which Varnhol Programmable Clock is Right for You?"));
        QCOMPARE(f.Find<QLabel>("lblQuestion(0)")->text(),
                 QString("Do you need more than one \"unrelated\" clock?"));
        QVERIFY(!f.Find<QPushButton>("cmdPrevious(0)")->isVisible());
        QVERIFY(!f.Find<QRadioButton>("opt2(0)")->isVisible());
        QVERIFY(!f.Find<QPushButton>("cmdNext(0)")->isEnabled());
        QCOMPARE(f.Find<QPushButton>("cmdNext(0)")->text(), QString("&Next >>"));
        QCOMPARE(f.Find<QPushButton>("cmdCancel(0)")->text(), QString("&Cancel"));
        f.Keep("frmDecisionTree-page0");
    }

    void nextAndPreviousTurnThePagesAtOneSize() {
        WizardFixture f;
        const QSize size = f.view->size();
        f.Click("opt1(0)");
        QVERIFY(f.Find<QPushButton>("cmdNext(0)")->isEnabled());
        QVERIFY(f.form.opt1[0].Value());
        f.Click("cmdNext(0)");
        QCOMPARE(f.ShownPages(), QList<int>({5}));
        QCOMPARE(f.form.mcolFrames, std::vector<int>({0, 5}));
        f.view->adjustSize();
        QCOMPARE(f.view->size(), size);
        // All four answers of page 5 are there and none is cut.
        for (const char* name : {"opt1(5)", "opt2(5)", "opt3(5)", "opt4(5)"}) {
            auto* option = f.Find<QRadioButton>(name);
            QVERIFY2(option->isVisible(), name);
            QVERIFY2(option->width() >= option->minimumSizeHint().width(), name);
        }
        QVERIFY(f.Find<QLabel>("lblQuestion(5)")->wordWrap());
        f.Keep("frmDecisionTree-page5");
        f.Click("opt2(5)");
        f.Click("cmdNext(5)");
        QCOMPARE(f.ShownPages(), QList<int>({6}));
        f.Click("cmdPrevious(6)");
        QCOMPARE(f.ShownPages(), QList<int>({5}));
        QVERIFY(f.Find<QRadioButton>("opt2(5)")->isChecked());
        f.view->adjustSize();
        QCOMPARE(f.view->size(), size);
    }

    void finishPageAndEndPageLookAsTheyShould() {
        WizardFixture f;
        f.Click("opt3(0)");
        f.Click("cmdNext(0)");
        f.Click("opt3(1)");
        f.Click("cmdNext(1)");
        f.Click("opt1(2)");
        f.Click("cmdNext(2)");
        QCOMPARE(f.ShownPages(), QList<int>({3}));
        QCOMPARE(f.Find<QPushButton>("cmdNext(3)")->text(), QString("&Finish"));
        QVERIFY(!f.Find<QPushButton>("cmdNext(3)")->isEnabled());
        f.Click("opt2(3)");
        f.Keep("frmDecisionTree-page3");
        f.Click("cmdPrevious(3)");
        f.Click("opt3(2)");
        f.Click("cmdNext(2)");
        QCOMPARE(f.ShownPages(), QList<int>({7}));
        QVERIFY(!f.Find<QPushButton>("cmdNext(7)")->isVisible());
        QVERIFY(f.Find<QPushButton>("cmdPrevious(7)")->isVisible());
        QCOMPARE(f.Find<QPushButton>("cmdCancel(7)")->text(), QString("&Close"));
        // The long text of the end page wraps inside the page.
        auto* text = f.Find<QLabel>("lblQuestion(7)");
        QVERIFY(text->wordWrap());
        QVERIFY(text->width() <= f.Page(7)->width());
        f.Keep("frmDecisionTree-page7");
        f.Click("cmdCancel(7)");
        QVERIFY(!f.form.Loaded());
        QVERIFY(!f.form.Visible());
    }

    void finishOpensTheDocument() {
        WizardFixture f;
        f.Click("opt3(0)");
        f.Click("cmdNext(0)");
        f.Click("opt3(1)");
        f.Click("cmdNext(1)");
        f.Click("opt1(2)");
        f.Click("cmdNext(2)");
        f.Click("opt1(3)");
        f.Click("cmdNext(3)");
        QVERIFY(f.app.Document() != nullptr);
        QCOMPARE(f.app.Document()->lblDevice.Caption(), std::string("QX6105AF"));
    }

    void closingTheDialogIsCancel() {
        WizardFixture f;
        f.Click("opt1(0)");
        f.Click("cmdNext(0)");
        f.views.RequestClose(f.form);
        QVERIFY(!f.form.Loaded());
        QVERIFY(!f.form.Visible());
        QVERIFY(f.app.Document() == nullptr);
        QVERIFY(f.platform.Messages().empty());
    }
};

QObject* MakeWizardViewTest() {
    return new WizardViewTest;
}

}  // namespace pendulon::test

#include "WizardViewTest.moc"
