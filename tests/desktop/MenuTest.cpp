#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <memory>

#include "DesktopTests.hpp"
#include "ShellTestSupport.hpp"
#include "desktop/MainWindow.hpp"
#include "desktop/ViewRegistry.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"

namespace pendulon::test {

namespace {

struct Fixture {
    HeadlessPlatform platform;
    Application app{platform};
    ViewRegistry views;
    std::unique_ptr<MainWindow> window;
    Fixture() {
        app.Main().InitializeGlobalVariables();
        window = std::make_unique<MainWindow>(app, views);
        app.Main().InitializeMenu(false);
    }
    QAction* Action(const char* name) const { return window->findChild<QAction*>(name); }
    QStringList TopCaptions() const {
        QStringList captions;
        for (QAction* action : window->menuBar()->actions()) captions << action->text();
        return captions;
    }
    QStringList Captions(const MenuItem& item) const {
        QStringList captions;
        for (QAction* action : window->MenuOf(item)->actions())
            captions << (action->isSeparator() ? QString("-") : action->text());
        return captions;
    }
};

}  // namespace

class MenuTest : public QObject {
    Q_OBJECT
  private slots:
    void topLevelMenusInTheirOrderWithAccelerators() {
        Fixture f;
        QCOMPARE(f.TopCaptions(),
                 QStringList({"&File", "&Edit", "&View", "&Tools", "&Window", "&Help"}));
    }

    void fileMenuEntriesInTheirOrderWithALineBetweenTheGroups() {
        Fixture f;
        const QStringList captions = f.Captions(f.app.Main().mnuFile);
        QCOMPARE(captions.mid(0, 11),
                 QStringList({"&New", "&Open...", "&Save", "Save &As...", "-", "&Close", "-",
                              "Configuration &Info...", "-", "&Print...", "P&rint Setup..."}));
        // The recent-file line and five entries, a line, then Exit.
        QCOMPARE(captions.at(11), QString("-"));
        QCOMPARE(captions.at(captions.size() - 2), QString("-"));
        QCOMPARE(captions.last(), QString("E&xit"));
        QCOMPARE(captions.size(), 19);
    }

    void closeExitAndHelpHaveTheirKeys() {
        Fixture f;
        frmMain& m = f.app.Main();
        const auto key = [&](MenuItem& item) {
            auto* action = f.window->findChild<QAction*>(QString::fromStdString(item.Name()));
            return action == nullptr ? QKeySequence() : action->shortcut();
        };
        QCOMPARE(key(m.mnuClose), QKeySequence("Ctrl+W"));
        QCOMPARE(key(m.mnuExit), QKeySequence("Ctrl+Q"));
        QCOMPARE(key(m.mnuPopupHelp), QKeySequence("F1"));
        QCOMPARE(key(m.mnuNew), QKeySequence("Ctrl+N"));
        QCOMPARE(key(m.mnuSaveAs), QKeySequence());
    }

    void submenusOfViewAndTools() {
        Fixture f;
        frmMain& m = f.app.Main();
        QCOMPARE(f.Captions(m.mnuView),
                 QStringList({"&Power Calculation", "&Debug Window", "-", "&Entry File"}));
        QCOMPARE(f.Captions(m.mnuViewEntryFile), QStringList({"&Create New", "&Read From Disk"}));
        QCOMPARE(f.Captions(m.mnuToolsCreateEPROM),
                 QStringList({"From &New Entry File", "&From Saved Entry File"}));
        QCOMPARE(f.Captions(m.mnuHelp),
                 QStringList({"Contents", "-", "Clock Selection Wizard", "-", "About Pendulon...",
                              "About KITE..."}));
        QCOMPARE(f.Captions(m.mnuEdit),
                 QStringList({"Cu&t", "&Copy", "&Paste", "-", "Select &All"}));
        QCOMPARE(f.Captions(m.mnuTools), QStringList({"Create EPROM Vector", "-", "&Options...",
                                                      "-", "Launch &KITE"}));
        QCOMPARE(f.Captions(m.mnuWindow), QStringList({"&Tile", "&Cascade"}));
    }

    void shortcutsComeFromTheModel() {
        Fixture f;
        QCOMPARE(f.Action("mnuNew")->shortcut(), QKeySequence("Ctrl+N"));
        QCOMPARE(f.Action("mnuPopupHelp")->shortcut(), QKeySequence("F1"));
    }

    void withoutADocumentEditAndViewAreHiddenAndSaveIsDisabled() {
        Fixture f;
        QVERIFY(!f.window->MenuOf(f.app.Main().mnuEdit)->menuAction()->isVisible());
        QVERIFY(!f.window->MenuOf(f.app.Main().mnuView)->menuAction()->isVisible());
        QVERIFY(!f.Action("mnuSave")->isEnabled());
        QVERIFY(!f.Action("mnuClose")->isEnabled());
        QVERIFY(f.Action("mnuNew")->isEnabled());
        // The design tool was not found: its entry stays disabled.
        QVERIFY(!f.Action("mnuToolsLaunchKITE")->isEnabled());
        QVERIFY(!f.Action("mnuViewDebugWindow")->isVisible());
    }

    void enablingFollowsTheModelWhenADocumentOpens() {
        Fixture f;
        f.app.SetDocument(std::make_unique<TestConfigurator>(f.app));
        f.app.Main().InitializeMenu(false);
        QVERIFY(f.window->MenuOf(f.app.Main().mnuEdit)->menuAction()->isVisible());
        QVERIFY(f.window->MenuOf(f.app.Main().mnuView)->menuAction()->isVisible());
        QVERIFY(f.Action("mnuSave")->isEnabled());
        QVERIFY(f.Action("mnuClose")->isEnabled());
        f.app.Main().mnuSave.SetEnabled(false);
        QVERIFY(!f.Action("mnuSave")->isEnabled());
    }

    void checkedStateFollowsTheModel() {
        Fixture f;
        f.app.Main().mnuViewPower.SetChecked(true);
        QVERIFY(f.Action("mnuViewPower")->isChecked());
        f.app.Main().mnuViewPower.SetChecked(false);
        QVERIFY(!f.Action("mnuViewPower")->isChecked());
    }

    void recentFilesAppearAsNumberedEntriesAfterTheSeparator() {
        Fixture f;
        QAction* separator = f.Action("mnuFilePathArray(0)");
        QVERIFY(separator->isSeparator());
        QVERIFY(!separator->isVisible());
        f.app.Main().UpdateFileMenu("/data/a.ent");
        f.app.Main().UpdateFileMenu("/data/b.ent");
        QVERIFY(separator->isVisible());
        QCOMPARE(f.Action("mnuFilePathArray(1)")->text(), QString("&1 /data/b.ent"));
        QCOMPARE(f.Action("mnuFilePathArray(2)")->text(), QString("&2 /data/a.ent"));
        QVERIFY(f.Action("mnuFilePathArray(1)")->isVisible());
        QVERIFY(!f.Action("mnuFilePathArray(3)")->isVisible());
    }

    void triggeringAnEntryRunsItsCommand() {
        Fixture f;
        f.Action("mnuAbout")->trigger();
        QCOMPARE(f.platform.ModalsShown().size(), size_t(1));
        QCOMPARE(f.platform.ModalsShown().front(), std::string("frmAbout"));
    }

    void tileAndCascadeArrangeTheChildren() {
        Fixture f;
        f.app.SetDocument(std::make_unique<TestConfigurator>(f.app));
        f.window->show();
        f.Action("mnuTile")->trigger();
        QMdiSubWindow* sub = f.window->MdiArea()->subWindowList().first();
        QCOMPARE(sub->size(), f.window->MdiArea()->viewport()->size());
    }
};

QObject* MakeMenuTest() {
    return new MenuTest;
}

}  // namespace pendulon::test

#include "MenuTest.moc"
