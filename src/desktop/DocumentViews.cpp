#include "desktop/DocumentViews.hpp"

#include "configurators/frmQX3350.hpp"
#include "configurators/frmQX4860.hpp"
#include "configurators/frmQX6105A.hpp"
#include "configurators/frmQX7311.hpp"
#include "desktop/FloatingPanel.hpp"
#include "desktop/PrintPreviewView.hpp"
#include "desktop/QX3350View.hpp"
#include "desktop/QX4860View.hpp"
#include "desktop/QX5140View.hpp"
#include "desktop/QX6105AView.hpp"
#include "desktop/QX7311View.hpp"
#include "desktop/ReadBackView.hpp"
#include "desktop/ViewRegistry.hpp"
#include "configurators/frmQX5140.hpp"
#include "reports/frmPrintPreview.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmReadBack.hpp"

namespace pendulon {

void RegisterDocumentViews(ViewRegistry& views, Application& app) {
    auto tppX = [&app] { return app.Services().TwipsPerPixelX(); };
    auto tppY = [&app] { return app.Services().TwipsPerPixelY(); };
    views.Register("frmQX6105A", [=, &app](Window& w, QWidget* p) -> QWidget* {
        return new QX6105AView(static_cast<frmQX6105A&>(w), app, p, tppX(), tppY());
    });
    views.Register("frmQX4860", [=, &app](Window& w, QWidget* p) -> QWidget* {
        return new QX4860View(static_cast<frmQX4860&>(w), app, p, tppX(), tppY());
    });
    views.Register("frmQX7311", [=, &app](Window& w, QWidget* p) -> QWidget* {
        return new QX7311View(static_cast<frmQX7311&>(w), app, p, tppX(), tppY());
    });
    views.Register("frmQX5140", [=, &app](Window& w, QWidget* p) -> QWidget* {
        return new QX5140View(static_cast<frmQX5140&>(w), app, p, tppX(), tppY());
    });
    views.Register("frmQX3350", [=, &app](Window& w, QWidget* p) -> QWidget* {
        return new QX3350View(static_cast<frmQX3350&>(w), app, p, tppX(), tppY());
    });
    views.Register("frmPrintPreview", [=, &app](Window& w, QWidget* p) -> QWidget* {
        return new PrintPreviewView(static_cast<frmPrintPreview&>(w), app, p, tppX(), tppY());
    });
    views.Register("frmReadBack", [=, &app](Window& w, QWidget* p) -> QWidget* {
        return new ReadBackView(static_cast<frmReadBack&>(w), app, p, tppX(), tppY());
    });
}

void ConnectDesktopCommands(Application& app) {
    // A press in a panel's title bar: the panel follows the mouse until the button goes up.
    app.OnFormMove = [](Field& picture) {
        if (FloatingPanel* panel = FloatingPanel::Find(picture))
            panel->BeginDrag();
    };
}

}  // namespace pendulon
