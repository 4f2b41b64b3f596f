#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <utility>

#include "DesktopTests.hpp"
#include "TestWindow.hpp"
#include "desktop/QtPlatform.hpp"

namespace pendulon::test {

namespace {

// Runs action on the next modal window that appears.
void OnNextModal(std::function<void(QWidget*)> action) {
    QTimer::singleShot(0, [action] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr) {
            OnNextModal(action);
            return;
        }
        action(modal);
    });
}

}  // namespace

class QtPlatformTest : public QObject {
    Q_OBJECT
    QTemporaryDir userDir_;
    QTemporaryDir systemDir_;
    ViewRegistry views_;

  private slots:
    void initTestCase() {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, userDir_.path());
        QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, systemDir_.path());
    }

    void entryFileFilterBecomesQtNameFilters() {
        const QStringList filters =
            QtPlatform::NameFilters("Entry Files (*.ent)|*.ent|All Files (*.*)|*.*");
        QCOMPARE(filters, QStringList({"Entry Files (*.ent)", "All Files (*)"}));
        QCOMPARE(QtPlatform::NameFilters("Vectors|*.jed;*.JED"),
                 QStringList({"Vectors (*.jed *.JED)"}));
        QVERIFY(QtPlatform::NameFilters("").isEmpty());
    }

    void settingsRoundTripAndDeleteTheWholeApplication() {
        QtPlatform platform(views_);
        platform.DeleteSetting("Pendulon");
        QVERIFY(!platform.SettingsExist("Pendulon"));
        QCOMPARE(platform.GetSetting("Pendulon", "Startup", "Width", "9600"), std::string("9600"));
        platform.SaveSetting("Pendulon", "Startup", "Width", "12000");
        QVERIFY(platform.SettingsExist("Pendulon"));
        QCOMPARE(platform.GetSetting("Pendulon", "Startup", "Width", "9600"), std::string("12000"));
        QVERIFY(QFile::exists(userDir_.path() + "/Pendulon/Pendulon.conf"));
        platform.DeleteSetting("Pendulon");
        QVERIFY(!platform.SettingsExist("Pendulon"));
    }

    void systemKeyIsReadFromTheSystemWideFileAndNotSeenAsUserSettings() {
        QtPlatform platform(views_);
        platform.DeleteSetting("Pendulon");
        QVERIFY(
            !platform.ReadSystemKey("Software\\Classes\\MeadowProject\\shell\\open\\command\\"));
        {
            QSettings system(QSettings::SystemScope, "Pendulon", "Pendulon");
            system.setValue("Software/Classes/MeadowProject/shell/open/command",
                            "/opt/kite/kite --open");
        }
        QCOMPARE(platform.ReadSystemKey("Software\\Classes\\MeadowProject\\shell\\open\\command\\")
                     .value_or("missing"),
                 std::string("/opt/kite/kite --open"));
        // The file form that the settings notes describe for administrators.
        QFile file(systemDir_.path() + "/Pendulon/Pendulon.conf");
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        QVERIFY2(text.contains("[Software]\nClasses\\MeadowProject\\shell\\open\\command="),
                 qPrintable(text));
        // A first run must still look like one.
        QVERIFY(!platform.SettingsExist("Pendulon"));
    }

    void messageBoxHasTheStyleButtonsIconAndDefault() {
        QtPlatform platform(views_);
        QStringList texts;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        OnNextModal([&](QWidget* modal) {
            auto* box = qobject_cast<QMessageBox*>(modal);
            QVERIFY(box != nullptr);
            icon = box->icon();
            for (QAbstractButton* b : box->buttons()) texts << b->text();
            // Enter presses the default button: the third one with DefaultButton3.
            QTest::keyClick(box, Qt::Key_Return);
        });
        const int answer = platform.MsgBox("Save changes to x?", 3 + 32 + 512, "Pendulon(tm) 3.71");
        QCOMPARE(answer, msgbox::Cancel);
        QCOMPARE(icon, QMessageBox::Question);
        QCOMPARE(texts.size(), 3);
    }

    void messageBoxDefaultSecondButtonAndEscape() {
        QtPlatform platform(views_);
        OnNextModal([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Return); });
        QCOMPARE(platform.MsgBox("q", msgbox::YesNo + msgbox::DefaultButton2, "t"), msgbox::No);
        OnNextModal([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Return); });
        QCOMPARE(platform.MsgBox("q", msgbox::YesNo, "t"), msgbox::Yes);
        OnNextModal([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Escape); });
        QCOMPARE(platform.MsgBox("q", msgbox::OKCancel + msgbox::Exclamation, "t"), msgbox::Cancel);
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        OnNextModal([&](QWidget* modal) {
            icon = qobject_cast<QMessageBox*>(modal)->icon();
            QTest::keyClick(modal, Qt::Key_Return);
        });
        QCOMPARE(platform.MsgBox("e", msgbox::Critical, "t"), msgbox::OK);
        QCOMPARE(icon, QMessageBox::Critical);
    }

    void showModalRunsTheRegisteredViewUntilTheModelHides() {
        ViewRegistry views;
        int built = 0;
        views.Register("frmTest", [&](Window& window, QWidget* parent) {
            ++built;
            auto* button = new QPushButton("OK", parent);
            button->setObjectName("cmdOK");
            QObject::connect(button, &QPushButton::clicked,
                             [&window] { window.SetVisible(false); });
            return static_cast<QWidget*>(button);
        });
        QtPlatform platform(views);
        TestWindow window;
        window.SetCaption("Options");
        QString title;
        OnNextModal([&](QWidget* modal) {
            title = modal->windowTitle();
            QVERIFY(window.Visible());
            QTest::mouseClick(modal->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
        });
        platform.ShowModal(window);
        QCOMPARE(built, 1);
        QCOMPARE(title, QString("Options"));
        QVERIFY(!window.Visible());
    }

    void theKeyboardGoesBackToTheParentWhenAModalCloses() {
        ViewRegistry views;
        views.Register("frmTest", [](Window& window, QWidget* parent) {
            auto* view = new QWidget(parent);
            view->setFixedSize(120, 60);
            // The window goes by itself, as the splash does.
            QTimer::singleShot(100, view, [&window] { window.SetVisible(false); });
            return view;
        });
        QtPlatform platform(views);
        QWidget main;
        main.resize(300, 200);
        main.show();
        QVERIFY(QTest::qWaitForWindowExposed(&main));
        platform.SetDialogParent(&main);
        TestWindow window;
        window.SetVisible(true);
        platform.ShowModal(window);
        QVERIFY(!window.Visible());
        QTRY_COMPARE(QApplication::activeWindow(), &main);
    }

    void closingAModalAsksTheModelWhichMayStayOpen() {
        ViewRegistry views;
        int requests = 0;
        views.Register(
            "frmTest",
            [](Window&, QWidget* parent) -> QWidget* {
                auto* view = new QWidget(parent);
                view->setFixedSize(120, 60);
                return view;
            },
            [&](Window& window) {
                // The first close is refused; the second one hides the window.
                if (++requests == 2)
                    window.SetVisible(false);
            });
        QtPlatform platform(views);
        TestWindow window;
        OnNextModal([&](QWidget* modal) {
            QTest::keyClick(modal, Qt::Key_Escape);
            QVERIFY(modal->isVisible());
            QTest::keyClick(modal, Qt::Key_Escape);
        });
        platform.ShowModal(window);
        QCOMPARE(requests, 2);
    }

    void windowWithoutViewGetsAGenericBoundView() {
        ViewRegistry views;
        QtPlatform platform(views);
        TestWindow window;
        window.cmdCalculate.OnClick = [&] { window.SetVisible(false); };
        OnNextModal([](QWidget* modal) {
            auto* button = modal->findChild<QPushButton*>("cmdCalculate");
            QVERIFY(button != nullptr);
            QTest::mouseClick(button, Qt::LeftButton);
        });
        platform.ShowModal(window);
        QVERIFY(!window.Visible());
    }

    void saveDialogHasTitleFiltersSuffixAndOverwritePrompt() {
        QtPlatform platform(views_);
        QTemporaryDir dir;
        CommonDialog dialog;
        dialog.DialogTitle = "Save Entry File As";
        dialog.Filter = "Entry Files (*.ent)|*.ent|All Files (*.*)|*.*";
        dialog.FilterIndex = 1;
        dialog.DefaultExt = "ent";
        dialog.Flags = CommonDialog::EntryFileFlags;
        dialog.FileName = (dir.path() + "/old.ent").toStdString();
        QString title, suffix;
        QStringList filters;
        bool confirms = false;
        OnNextModal([&](QWidget* modal) {
            auto* files = qobject_cast<QFileDialog*>(modal);
            QVERIFY(files != nullptr);
            title = files->windowTitle();
            filters = files->nameFilters();
            suffix = files->defaultSuffix();
            confirms = !files->testOption(QFileDialog::DontConfirmOverwrite);
            files->selectFile(dir.path() + "/new");
            QMetaObject::invokeMethod(files, "accept");
        });
        QVERIFY(platform.ShowSave(dialog));
        QCOMPARE(title, QString("Save Entry File As"));
        QCOMPARE(filters, QStringList({"Entry Files (*.ent)", "All Files (*)"}));
        QCOMPARE(suffix, QString("ent"));
        QVERIFY(confirms);
        QCOMPARE(QString::fromStdString(dialog.FileName), dir.path() + "/new.ent");
    }

    void fileDialogStartsInTheFolderAskedForThenInTheLastOneElseAtHome() {
        QtPlatform platform(views_);
        QTemporaryDir asked, chosen;
        QVERIFY(QDir().mkpath(asked.path()));
        const auto folderShown = [&](CommonDialog& dialog, const QString& choose) {
            QString shown, selectedFilter;
            OnNextModal([&](QWidget* modal) {
                auto* files = qobject_cast<QFileDialog*>(modal);
                QVERIFY(files != nullptr);
                shown = files->directory().absolutePath();
                selectedFilter = files->selectedNameFilter();
                files->selectFile(choose);
                QMetaObject::invokeMethod(files, "accept");
            });
            platform.ShowSave(dialog);
            return std::pair{shown, selectedFilter};
        };
        CommonDialog dialog;
        dialog.Filter = "Entry Files (*.ent)|*.ent|All Files (*.*)|*.*";
        dialog.FilterIndex = 1;
        dialog.DefaultExt = "ent";
        // Nothing asked, no dialog before: home, whatever folder the program runs in.
        auto [first, filter] = folderShown(dialog, chosen.path() + "/a");
        QCOMPARE(first, QDir::homePath());
        QCOMPARE(filter, QString("Entry Files (*.ent)"));
        QCOMPARE(QString::fromStdString(dialog.FileName), chosen.path() + "/a.ent");
        // Then the folder of the file last chosen.
        dialog.FileName.clear();
        QCOMPARE(folderShown(dialog, chosen.path() + "/b").first, QDir(chosen.path()).absolutePath());
        // A folder the program asks for comes first, and a pattern is no name to offer.
        dialog.InitDir = asked.path().toStdString();
        dialog.FileName = "*.txt";
        QCOMPARE(folderShown(dialog, chosen.path() + "/c").first, QDir(asked.path()).absolutePath());
    }

    void cancelledOpenDialogLeavesTheFileName() {
        QtPlatform platform(views_);
        CommonDialog dialog;
        dialog.DialogTitle = "Open";
        dialog.FileName = "keep.ent";
        OnNextModal([](QWidget* modal) { qobject_cast<QDialog*>(modal)->reject(); });
        QVERIFY(!platform.ShowOpen(dialog));
        QCOMPARE(dialog.FileName, std::string("keep.ent"));
    }

    void helpShowsTheFileAsText() {
        QtPlatform platform(views_);
        QTemporaryDir dir;
        QFile file(dir.path() + "/Pendulon.hlp");
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("Choose a device first.");
        file.close();
        CommonDialog dialog;
        dialog.HelpFile = file.fileName().toStdString();
        QString shown;
        OnNextModal([&](QWidget* modal) {
            shown = modal->findChild<QPlainTextEdit*>()->toPlainText();
            qobject_cast<QDialog*>(modal)->reject();
        });
        platform.ShowHelp(dialog);
        QCOMPARE(shown, QString("Choose a device first."));
    }

    void screenMeasuresComeFromTheLogicalDpi() {
        QtPlatform platform(views_);
        QScreen* screen = QGuiApplication::primaryScreen();
        const int expected = int(std::lround(1440.0 / screen->logicalDotsPerInchX()));
        QCOMPARE(platform.TwipsPerPixelX(), expected);
        QCOMPARE(platform.ScreenWidth(), double(screen->geometry().width() * expected));
    }

    void textMetricsGrowWithTheText() {
        QtPlatform platform(views_);
        FontSpec font{"Courier New", 10, false};
        const double one = platform.Metrics().TextWidth(font, "M");
        const double four = platform.Metrics().TextWidth(font, "MMMM");
        QVERIFY(one > 0);
        QVERIFY(four > 3 * one);
        QVERIFY(platform.Metrics().TextHeight(font, "a\nb") >
                1.5 * platform.Metrics().TextHeight(font, "a"));
    }

    void hourglassSetsAndDefaultRestoresTheCursor() {
        QtPlatform platform(views_);
        platform.SetMousePointer(kPointerHourglass);
        QVERIFY(QGuiApplication::overrideCursor() != nullptr);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        platform.SetMousePointer(kPointerDefault);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        QCOMPARE(platform.MousePointer(), kPointerDefault);
    }

    void clipboardRoundTrip() {
        QtPlatform platform(views_);
        platform.SetClipboardText("212.500000");
        QCOMPARE(platform.ClipboardText(), std::string("212.500000"));
    }

    void tempFileNameIsANewFileWithThePrefix() {
        QtPlatform platform(views_);
        QTemporaryDir dir;
        const std::string name = platform.TempFileName(dir.path().toStdString(), "Pendulon");
        QVERIFY(!name.empty());
        QVERIFY(QFile::exists(QString::fromStdString(name)));
        QVERIFY(QFileInfo(QString::fromStdString(name)).fileName().startsWith("Pendulon"));
        QVERIFY(platform.TempFileName("/nonexistent/folder", "Pendulon").empty());
    }

    void temporaryFolderIsTheUsersNotTheProgramsOwn() {
        QtPlatform platform(views_);
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QByteArray old = qgetenv("TMPDIR");
        const bool had = qEnvironmentVariableIsSet("TMPDIR");
        qputenv("TMPDIR", QFile::encodeName(dir.path()));
        const std::string folder = platform.TempDirectory();
        if (had)
            qputenv("TMPDIR", old);
        else
            qunsetenv("TMPDIR");
        QCOMPARE(QString::fromStdString(folder), QDir::toNativeSeparators(dir.path()));
        QVERIFY(folder != platform.AppDirectory());
    }

    void clockIsTheSystemClock() {
        QtPlatform platform(views_);
        const DateTime now = platform.Now();
        QCOMPARE(now.Year, QDate::currentDate().year());
    }
};

QObject* MakeQtPlatformTest() {
    return new QtPlatformTest;
}

}  // namespace pendulon::test

#include "QtPlatformTest.moc"
