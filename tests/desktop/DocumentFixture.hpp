#pragma once
#include <QApplication>
#include <QDir>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QRect>
#include <QStringList>
#include <QTest>
#include <memory>
#include <string>

#include "app/Configurator.hpp"
#include "desktop/DocumentViews.hpp"
#include "desktop/MainWindow.hpp"
#include "desktop/ViewRegistry.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

namespace pendulon::test {

// The program on a headless platform with the real main window and the document views: a
// document is made by File, New as a user makes it, and its view is the one the program shows.
// The main window stands where the test puts it, or, on a first start, where the program's
// first start puts it on the platform's screen.
template <class Platform>
struct ProgramFixture {
    Platform platform;
    std::unique_ptr<Application> app;
    ViewRegistry views;
    std::unique_ptr<MainWindow> window;

    explicit ProgramFixture(bool firstStart = false) {
        app = std::make_unique<Application>(platform);
        RegisterDocumentViews(views, *app);
        window = std::make_unique<MainWindow>(*app, views);
        ConnectDesktopCommands(*app);
        app->Main().MDIForm_Load("");
        if (!firstStart) {
            app->Main().SetWindowState(0);
            app->Main().Move(0, 0, 18000, 13500);
            app->Main().SetVisible(true);
        }
    }
    ~ProgramFixture() {
        // Views go before their models.
        window.reset();
    }
    void NewDocument(const std::string& device) {
        frmDevice& select = app->DeviceForm();
        select.CreateNew(true);
        select.OptionFor(device)->SetValue(true);
        select.cmdOK_Click();
    }
    template <class T>
    T& Form() {
        return dynamic_cast<T&>(*app->Document());
    }
    template <class View>
    View* ViewOf(const Window& child) const {
        QMdiSubWindow* sub = window->SubWindowOf(child);
        return sub == nullptr ? nullptr : qobject_cast<View*>(sub->widget());
    }
    bool ShowAndActivate() {
        window->show();
        window->activateWindow();
        return QTest::qWaitForWindowActive(window.get());
    }
};

using DocumentFixture = ProgramFixture<HeadlessPlatform>;

// Where a widget lies in a view's coordinates.
inline QRect InView(const QWidget* widget, const QWidget* view) {
    return QRect(widget->mapTo(view, QPoint(0, 0)), widget->size());
}

// The main window at a size, with a new document of the device in it, shown as a user sees it.
template <class Form, class View>
struct ShownDocument {
    ShownDocument(DocumentFixture& f, int width, int height, const std::string& device) : f(f) {
        f.window->resize(width, height);
        f.ShowAndActivate();
        f.NewDocument(device);
        form = &f.Form<Form>();
        view = f.ViewOf<View>(*form);
        QTest::qWait(50);
    }
    DocumentFixture& f;
    Form* form = nullptr;
    View* view = nullptr;
};

// The names of the form's fields that the view has no widget of, apart from those skipped.
template <class Skip>
QStringList MissingWidgets(Window& form, const QWidget& view, Skip skip) {
    QStringList missing;
    for (const Field* field : form.Fields().Fields()) {
        const QString name = QString::fromStdString(field->Name());
        if (!skip(field->Name()) && view.findChild<QWidget*>(name) == nullptr)
            missing << name;
    }
    return missing;
}

// The field that Tab moves the keyboard to from the named widget of a view (an editable list
// hands the focus to its edit line, so the field is the first named widget up from it).
inline QString TabFrom(QWidget* view, const char* name) {
    QWidget* start = view->findChild<QWidget*>(name);
    start->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QWidget* now = QApplication::focusWidget();
    while (now != nullptr && now->objectName().isEmpty()) now = now->parentWidget();
    return now == nullptr ? QString() : now->objectName();
}

// Keeps a picture of a view beside the tests (views/<name>.png), for a person to look at.
inline void KeepPicture(QWidget* view, const QString& name) {
    QDir().mkpath("views");
    view->grab().save("views/" + name + ".png");
}

// A mouse event at a point of a widget, sent as the window system would.
inline void SendMouse(QWidget* widget, QEvent::Type type, QPoint local, Qt::MouseButton button,
                      Qt::MouseButtons buttons) {
    QMouseEvent event(type, QPointF(local), QPointF(widget->mapToGlobal(local)), button, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

}  // namespace pendulon::test
