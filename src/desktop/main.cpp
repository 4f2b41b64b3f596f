#include <QApplication>
#include <QStringList>
#include <QTimer>

#include "desktop/DesktopPlatform.hpp"
#include "desktop/DocumentViews.hpp"
#include "desktop/MainWindow.hpp"
#include "desktop/PlannerView.hpp"
#include "desktop/ShellViews.hpp"
#include "desktop/ViewRegistry.hpp"
#include "desktop/WizardView.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"

int main(int argc, char** argv) {
    using namespace pendulon;
    QApplication qapp(argc, argv);
    QApplication::setOrganizationName("Pendulon");
    QApplication::setApplicationName("Pendulon");
    // The desktop entry and icon an installed Pendulon goes by.
    QGuiApplication::setDesktopFileName("com.varnhol.Pendulon");
    QApplication::setWindowIcon(ApplicationIcon());
    QApplication::setStyle("Fusion");

    ViewRegistry views;
    DesktopPlatform platform(views);
    Application app(platform);
    RegisterShellViews(views, app);
    RegisterDocumentViews(views, app);
    RegisterWizardView(views, app);
    MainWindow window(app, views);
    ConnectDesktopCommands(app);
    ConnectPlannerDialog(app, window);
    platform.SetDialogParent(&window);
    app.OnEnd = [&window] {
        // Leave once the current event is done: the window closes without asking again.
        QTimer::singleShot(0, &window, [&window] { window.close(); });
    };

    // The whole command line is one argument: a path (which may hold blanks) or the switch.
    QStringList args = QApplication::arguments();
    args.removeFirst();
    app.Main().MDIForm_Load(args.join(' ').toStdString());
    if (app.Ended())
        return 0;
    // Start-up is over (the splash has gone, the file is open): the main window has the keyboard.
    platform.ReturnFocus();
    return QApplication::exec();
}
