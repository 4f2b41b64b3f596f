#include <QDir>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <memory>

#include "DesktopTests.hpp"
#include "ShellTestSupport.hpp"
#include "core/mShared.hpp"
#include "desktop/MainWindow.hpp"
#include "desktop/ViewRegistry.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"

namespace pendulon::test {

namespace {

// A saved state that the document's own differs from.
mShared::FormState Unsaved(const Configurator& doc) {
    mShared::FormState state = mShared::ComputeState(doc);
    state.Add(1);
    return state;
}

struct Fixture {
    HeadlessPlatform platform;
    Application app{platform};
    ViewRegistry views;
    std::unique_ptr<MainWindow> window;
    Fixture() {
        app.Main().InitializeGlobalVariables();
        app.Main().Move(1500, 1500, 9600, 7200);
        window = std::make_unique<MainWindow>(app, views);
        app.Main().InitializeMenu(false);
    }
    void Show() {
        app.Main().SetVisible(true);
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }
    QLabel* Label(const char* name) const { return window->findChild<QLabel*>(name); }
};

// Points Qt's icon lookup at other theme folders for the life of a test, and back afterwards.
class IconThemeFolders {
  public:
    explicit IconThemeFolders(const QString& folder)
        : paths_(QIcon::themeSearchPaths()), name_(QIcon::themeName()) {
        QIcon::setThemeSearchPaths({folder});
        QIcon::setThemeName("hicolor");
    }
    ~IconThemeFolders() {
        QIcon::setThemeSearchPaths(paths_);
        QIcon::setThemeName(name_);
    }
    IconThemeFolders(const IconThemeFolders&) = delete;
    IconThemeFolders& operator=(const IconThemeFolders&) = delete;

  private:
    QStringList paths_;
    QString name_;
};

// Whether the icon, drawn at 32 pixels, has anything on it.
bool DrawsSomething(const QIcon& icon) {
    const QImage image = icon.pixmap(32, 32).toImage();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) != 0)
                return true;
    return false;
}

}  // namespace

class MainWindowTest : public QObject {
    Q_OBJECT
  private slots:
    void titleIsTheCaptionOfTheMainWindowModel() {
        Fixture f;
        QCOMPARE(f.window->windowTitle(), QString("Pendulon(tm) 3.71"));
    }

    void showingTheModelShowsTheWindowAtItsTwipsGeometry() {
        Fixture f;
        f.Show();
        QVERIFY(f.window->isVisible());
        QCOMPARE(f.window->geometry(), QRect(100, 100, 640, 480));
    }

    void userResizeIsKeptInTwipsInTheModel() {
        Fixture f;
        f.Show();
        f.window->resize(700, 500);
        QTRY_COMPARE(f.app.Main().Width(), 700.0 * 15);
        QCOMPARE(f.app.Main().Height(), 500.0 * 15);
        QCOMPARE(f.app.Main().WindowState(), 0);
    }

    void maximisedStateReachesTheModel() {
        Fixture f;
        f.Show();
        f.window->showMaximized();
        QTRY_COMPARE(f.app.Main().WindowState(), 2);
    }

    void modelSavedMaximisedOpensMaximised() {
        Fixture f;
        f.app.Main().SetWindowState(2);
        f.Show();
        QTRY_VERIFY(f.window->isMaximized());
    }

    void helpLineIsYellowWithTextAndPlainWithout() {
        Fixture f;
        f.Show();
        f.app.Main().ShowHelp("Reference frequency");
        QLabel* help = f.Label("lblHelpInfo");
        QCOMPARE(help->text(), QString(" Reference frequency"));
        QVERIFY(help->autoFillBackground());
        QCOMPARE(help->palette().color(QPalette::Window), QColor(255, 255, 0));
        f.app.Main().ShowHelp("");
        QCOMPARE(help->text(), QString());
        QVERIFY(!help->autoFillBackground());
    }

    void statusLineShowsTheStatusText() {
        Fixture f;
        f.app.Main().DisplayStatus("Loading...");
        QCOMPARE(f.Label("lblStatus")->text(), QString("Loading..."));
        f.app.Main().DisplayStatus("");
        QCOMPARE(f.Label("lblStatus")->text(), QString());
    }

    void helpLineTakesThreeQuartersOfTheStrip() {
        Fixture f;
        f.Show();
        const double help = f.Label("lblHelpInfo")->width();
        const double status = f.Label("lblStatus")->width();
        QVERIFY2(help / (help + status) > 0.70 && help / (help + status) < 0.80,
                 qPrintable(QString("%1 %2").arg(help).arg(status)));
    }

    void aLoadedChildIsHostedAndGoesWhenUnloaded() {
        Fixture f;
        f.Show();
        f.app.SetDocument(std::make_unique<TestConfigurator>(f.app));
        Window* child = f.app.Document();
        QMdiSubWindow* sub = f.window->SubWindowOf(*child);
        QVERIFY(sub != nullptr);
        QCOMPARE(f.window->MdiArea()->subWindowList().size(), qsizetype(1));
        child->SetCaption("Untitled");
        QCOMPARE(sub->windowTitle(), QString("Untitled"));
        f.app.Document()->mUnloadRequired = true;
        QVERIFY(f.app.UnloadDocument(kUnloadFormCode));
        QTRY_COMPARE(f.window->MdiArea()->subWindowList().size(), qsizetype(0));
    }

    void aSaveAsThatFailsLeavesTitleRecentFilesAndQuestionAsTheyWere() {
        Fixture f;
        f.Show();
        f.app.SetDocument(std::make_unique<TestConfigurator>(f.app));
        auto& doc = dynamic_cast<TestConfigurator&>(*f.app.Document());
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const std::string a = (dir.path() + "/a.ent").toStdString();
        doc.txtFilePath.SetText(a);
        doc.SetCaption("a.ent");
        doc.cmdCalculate_Click();
        f.app.Main().mdblSavedState = Unsaved(doc);  // the document differs from what was saved
        f.app.Main().InitializeMenu(false);
        QMdiSubWindow* sub = f.window->SubWindowOf(doc);
        QCOMPARE(sub->windowTitle(), QString("a.ent"));

        // File, Save As into a folder that is not there.
        const std::string nowhere = (dir.path() + "/no/such/b.ent").toStdString();
        f.platform.QueueModal("frmSummary",
                              [](Window& w) { dynamic_cast<frmSummary&>(w).cmdOK_Click(); });
        f.platform.QueueFileAnswer(nowhere);
        f.window->findChild<QAction*>("mnuSaveAs")->trigger();
        QCOMPARE(f.platform.Messages().size(), size_t(1));
        QVERIFY(QString::fromStdString(f.platform.Messages()[0].Text)
                    .contains(QString::fromStdString("'" + nowhere + "' was not written")));
        QCOMPARE(sub->windowTitle(), QString("a.ent"));
        // No recent-file entry for a path that was never written.
        QAction* recent = f.window->findChild<QAction*>("mnuFilePathArray(1)");
        QVERIFY(recent != nullptr);
        QVERIFY(!recent->isVisible());

        // Closing still asks; Cancel keeps the document and its window.
        f.platform.QueueAnswer(msgbox::Cancel);
        sub->close();
        QCOMPARE(f.platform.Messages().size(), size_t(2));
        QCOMPARE(QString::fromStdString(f.platform.Messages()[1].Text),
                 QString("Save changes to a.ent?"));
        QVERIFY(f.app.Document() != nullptr);
        QCOMPARE(f.window->MdiArea()->subWindowList().size(), qsizetype(1));
    }

    void closingAChildAsksTheModelAndCancelKeepsIt() {
        Fixture f;
        f.Show();
        f.app.SetDocument(std::make_unique<TestConfigurator>(f.app));
        f.app.Main().mdblSavedState = Unsaved(*f.app.Document());  // the document differs from what was saved
        QMdiSubWindow* sub = f.window->SubWindowOf(*f.app.Document());
        f.platform.QueueAnswer(msgbox::Cancel);
        sub->close();
        QVERIFY(f.app.Document() != nullptr);
        QCOMPARE(f.window->MdiArea()->subWindowList().size(), qsizetype(1));
        QCOMPARE(f.platform.Messages().size(), size_t(1));
        f.platform.QueueAnswer(msgbox::No);
        sub->close();
        QVERIFY(f.app.Document() == nullptr);
        QTRY_COMPARE(f.window->MdiArea()->subWindowList().size(), qsizetype(0));
    }

    void closingTheWindowAsksTheModelAndCancelKeepsTheProgramGoing() {
        Fixture f;
        f.Show();
        f.app.SetDocument(std::make_unique<TestConfigurator>(f.app));
        f.app.Main().mdblSavedState = Unsaved(*f.app.Document());
        f.platform.QueueAnswer(msgbox::Cancel);
        QVERIFY(!f.window->close());
        QVERIFY(f.window->isVisible());
        QVERIFY(!f.app.Ended());
        f.platform.QueueAnswer(msgbox::No);
        QVERIFY(f.window->close());
        QVERIFY(f.app.Ended());
    }

    void rightButtonOnTheBackgroundPopsUpTheFileMenu() {
        Fixture f;
        f.Show();
        QWidget* background = f.window->MdiArea()->viewport();
        QTest::mouseClick(background, Qt::RightButton, {}, QPoint(50, 50));
        QMenu* file = f.window->MenuOf(f.app.Main().mnuFile);
        QTRY_VERIFY(file->isVisible());
        file->close();
        QTest::mouseClick(background, Qt::RightButton, Qt::ShiftModifier, QPoint(50, 50));
        QTest::qWait(50);
        QVERIFY(!file->isVisible());
    }

    void droppedFileOpensAsGetFileDoes() {
        Fixture f;
        f.Show();
        f.app.SetDocument(std::make_unique<TestConfigurator>(f.app));
        f.app.Main().mdblSavedState = mShared::ComputeState(*f.app.Document());
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile("/nonexistent/folder/missing.ent")});
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(f.window.get(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(f.window.get(), &drop);
        // Opening first unloads the open document, then the missing file cannot be read.
        QVERIFY(f.app.Document() == nullptr);
        QVERIFY(!f.platform.Messages().empty());
    }

    void applicationIconIsTheThemesWhereTheThemeHasIt() {
        QTemporaryDir themes;
        QVERIFY(themes.isValid());
        // The hicolor theme of a desktop, holding the icon an installed Pendulon put there.
        QDir root(themes.path());
        QVERIFY(root.mkpath("hicolor/scalable/apps"));
        QFile index(root.filePath("hicolor/index.theme"));
        QVERIFY(index.open(QIODevice::WriteOnly));
        index.write(
            "[Icon Theme]\nName=Hicolor\nDirectories=scalable/apps\n\n"
            "[scalable/apps]\nSize=48\nMinSize=1\nMaxSize=512\nType=Scalable\n");
        index.close();
        QVERIFY(
            QFile::copy(QStringLiteral(PENDULON_SOURCE_DIR "/packaging/com.varnhol.Pendulon.svg"),
                        root.filePath("hicolor/scalable/apps/com.varnhol.Pendulon.svg")));
        IconThemeFolders folders(themes.path());
        const QIcon icon = ApplicationIcon();
        QCOMPARE(icon.name(), QString("com.varnhol.Pendulon"));
        QVERIFY(DrawsSomething(icon));
    }

    void applicationIconIsTheProgramsOwnWhereTheThemeLacksIt() {
        // No hicolor index anywhere, as on a machine without the hicolor icon theme.
        QTemporaryDir themes;
        QVERIFY(themes.isValid());
        IconThemeFolders folders(themes.path());
        const QIcon icon = ApplicationIcon();
        QVERIFY(!icon.isNull());
        QCOMPARE(icon.name(), QString());
        QVERIFY(DrawsSomething(icon));
    }
};

QObject* MakeMainWindowTest() {
    return new MainWindowTest;
}

}  // namespace pendulon::test

#include "MainWindowTest.moc"
