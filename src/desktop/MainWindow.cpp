#include "desktop/MainWindow.hpp"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QUrl>
#include <cmath>
#include <set>

#include "app/Configurator.hpp"
#include "desktop/AccessibleNames.hpp"
#include "desktop/Binder.hpp"
#include "desktop/KeyModifiers.hpp"
#include "desktop/ViewRegistry.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/ConfiguratorFactory.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {

namespace {

// A child of the document area. Its own close button asks the model, which may refuse.
class ChildSubWindow : public QMdiSubWindow {
  public:
    ChildSubWindow(Application& app, Window& child) : app_(app), child_(child) {}
    void AllowClose() { allowClose_ = true; }

  protected:
    void closeEvent(QCloseEvent* event) override {
        if (allowClose_) {
            event->accept();
            return;
        }
        event->ignore();
        // The model unloads the child (the view then goes through OnChildUnloading) or keeps it.
        if (&child_ == app_.Preview())
            app_.UnloadPreview();
        else if (&child_ == static_cast<Window*>(app_.Document()))
            app_.UnloadDocument(kUnloadFormControlMenu);
    }

  private:
    Application& app_;
    Window& child_;
    bool allowClose_ = false;
};

}  // namespace

MainWindow::MainWindow(Application& app, ViewRegistry& views, QWidget* parent)
    : QMainWindow(parent), app_(app), views_(views) {
    frmMain& main = app_.Main();
    setObjectName("frmMain");
    setWindowTitle(QString::fromStdString(main.Caption()));
    setAcceptDrops(true);
    InstallOptionButtonAccessibility();

    mdi_ = new QMdiArea(this);
    mdi_->setObjectName("mdiArea");
    // A document window that reaches past the workspace's edge is reached by scrolling.
    mdi_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdi_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdi_->viewport()->installEventFilter(this);
    setCentralWidget(mdi_);

    // Status strip: the hint on three quarters of the width, the status on the rest.
    auto* strip = new QWidget(this);
    strip->setObjectName("picStatus");
    auto* layout = new QHBoxLayout(strip);
    layout->setContentsMargins(2, 2, 10, 2);
    layout->setSpacing(2);
    lblHelpInfo_ = new QLabel(strip);
    lblHelpInfo_->setObjectName("lblHelpInfo");
    lblHelpInfo_->setFrameShape(QFrame::Panel);
    lblHelpInfo_->setFrameShadow(QFrame::Sunken);
    lblStatus_ = new QLabel(strip);
    lblStatus_->setObjectName("lblStatus");
    lblStatus_->setFrameShape(QFrame::Panel);
    lblStatus_->setFrameShadow(QFrame::Sunken);
    layout->addWidget(lblHelpInfo_, 3);
    layout->addWidget(lblStatus_, 1);
    statusBar()->addWidget(strip, 1);
    statusBar()->setSizeGripEnabled(true);

    binder_ =
        new Binder(main, this, app_.Services().TwipsPerPixelX(), app_.Services().TwipsPerPixelY());
    BuildMenus();

    main.PopupMenu = [this](MenuItem& item) {
        if (QMenu* menu = MenuOf(item))
            menu->popup(QCursor::pos());
    };
    // Arranging the children is the platform's part of Window, Tile (1) and Cascade (0).
    main.Arrange = [this](int how) {
        if (how == 1)
            TileDocuments();
        else
            mdi_->cascadeSubWindows();
    };
    // A first start opens the main window as large as the largest document needs.
    main.MeasureDocuments = [this] { return MeasureDocuments(); };

    app_.OnChildLoaded = [this](Window& child) { AddChild(child); };
    app_.OnChildUnloading = [this](Window& child) { RemoveChild(child); };
    observerId_ = main.AddObserver([this](Window&) { OnModelChanged(); });
    ApplyModelGeometry();
}

MainWindow::~MainWindow() {
    app_.Main().RemoveObserver(observerId_);
    app_.Main().PopupMenu = nullptr;
    app_.Main().Arrange = nullptr;
    app_.Main().MeasureDocuments = nullptr;
    app_.OnChildLoaded = nullptr;
    app_.OnChildUnloading = nullptr;
}

QMenu* MainWindow::MenuOf(const MenuItem& item) const {
    auto it = menus_.find(&item);
    return it == menus_.end() ? nullptr : it->second;
}

QMdiSubWindow* MainWindow::SubWindowOf(const Window& child) const {
    auto it = children_.find(&child);
    return it == children_.end() ? nullptr : it->second.data();
}

void MainWindow::BuildMenus() {
    // The top-level menus are the entries that no other entry holds, in control order.
    frmMain& main = app_.Main();
    std::set<const MenuItem*> held;
    std::vector<MenuItem*> items;
    for (Field* field : main.Fields().Fields()) {
        auto* item = dynamic_cast<MenuItem*>(field);
        if (item == nullptr)
            continue;
        items.push_back(item);
        for (const MenuItem* sub : item->Items()) held.insert(sub);
    }
    for (MenuItem* item : items) {
        if (held.count(item) != 0 || item->Items().empty())
            continue;
        QMenu* menu = BuildMenu(*item, menuBar());
        menuBar()->addMenu(menu);
    }
}

QMenu* MainWindow::BuildMenu(MenuItem& item, QWidget* parent) {
    auto* menu = new QMenu(QString::fromStdString(item.Caption()), parent);
    menu->setObjectName(QString::fromStdString(item.Name()));
    menus_[&item] = menu;
    binder_->BindAction(menu->menuAction(), item);
    for (MenuItem* sub : item.Items()) {
        if (!sub->Items().empty()) {
            menu->addMenu(BuildMenu(*sub, menu));
            continue;
        }
        auto* action = new QAction(menu);
        action->setObjectName(QString::fromStdString(sub->Name()));
        // Shortcuts work while the menu is closed.
        action->setShortcutContext(Qt::ApplicationShortcut);
        menu->addAction(action);
        binder_->BindAction(action, *sub);
    }
    return menu;
}

void MainWindow::OnModelChanged() {
    frmMain& main = app_.Main();
    setWindowTitle(QString::fromStdString(main.Caption()));
    if (main.Visible() && !isVisible() && !ending_) {
        ApplyModelGeometry();
        switch (main.WindowState()) {
            case 1:
                showMinimized();
                break;
            case 2:
                showMaximized();
                break;
            default:
                show();
                break;
        }
    } else if (!applyingGeometry_) {
        ApplyModelGeometry();
    }
}

void MainWindow::ApplyModelGeometry() {
    if (applyingGeometry_)
        return;
    frmMain& main = app_.Main();
    const double tppX = std::max(1, app_.Services().TwipsPerPixelX());
    const double tppY = std::max(1, app_.Services().TwipsPerPixelY());
    if (main.Width() <= 0 || main.Height() <= 0)
        return;
    applyingGeometry_ = true;
    const QRect wanted(int(std::lround(main.Left() / tppX)), int(std::lround(main.Top() / tppY)),
                       int(std::lround(main.Width() / tppX)),
                       int(std::lround(main.Height() / tppY)));
    if (main.WindowState() == 0) {
        if (isMaximized() || isMinimized())
            showNormal();
        if (geometry() != wanted)
            setGeometry(wanted);
    } else if (isVisible()) {
        if (main.WindowState() == 2 && !isMaximized())
            showMaximized();
        if (main.WindowState() == 1 && !isMinimized())
            showMinimized();
    } else {
        // A window restored to maximised remembers its normal place for later.
        setGeometry(wanted);
    }
    applyingGeometry_ = false;
}

void MainWindow::StoreGeometry() {
    if (applyingGeometry_ || !isVisible())
        return;
    frmMain& main = app_.Main();
    applyingGeometry_ = true;
    const int state = isMinimized() ? 1 : isMaximized() ? 2 : 0;
    if (state == 0) {
        const double tppX = app_.Services().TwipsPerPixelX();
        const double tppY = app_.Services().TwipsPerPixelY();
        const QRect g = geometry();
        main.Move(g.x() * tppX, g.y() * tppY, g.width() * tppX, g.height() * tppY);
        main.MDIForm_Resize();
    }
    main.SetWindowState(state);
    applyingGeometry_ = false;
}

void MainWindow::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    StoreGeometry();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    StoreGeometry();
    QTimer::singleShot(0, this, [this] { RefreshScrollBars(); });
}

void MainWindow::RefreshScrollBars() {
    // The workspace decides on its scroll bars as a window moves or changes size, and misses a
    // window that reaches past its edge by less than a bar's width once the other bar has
    // taken its room: the bar an overflowing side needs is kept on.
    QRect children;
    for (QMdiSubWindow* sub : mdi_->subWindowList())
        if (sub->isVisible() && !sub->isMinimized())
            children |= sub->geometry();
    const QSize room = mdi_->maximumViewportSize();
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, mdi_);
    bool across = children.left() < 0 || children.right() >= room.width();
    bool down = children.top() < 0 || children.bottom() >= room.height();
    if (across && !down)
        down = children.bottom() >= room.height() - bar;
    if (down && !across)
        across = children.right() >= room.width() - bar;
    if (children.isEmpty())
        across = down = false;
    mdi_->setHorizontalScrollBarPolicy(across ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAsNeeded);
    mdi_->setVerticalScrollBarPolicy(down ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAsNeeded);
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        StoreGeometry();
        QTimer::singleShot(0, this, [this] { RefreshScrollBars(); });
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (ending_ || app_.Ended()) {
        event->accept();
        return;
    }
    // The close question may keep the program going.
    if (app_.Main().MDIForm_QueryUnload(kUnloadFormControlMenu)) {
        event->ignore();
        return;
    }
    ending_ = true;
    event->accept();
}

void MainWindow::AddChild(Window& child) {
    auto* sub = new ChildSubWindow(app_, child);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    QWidget* view = views_.Create(child, sub);
    sub->setWidget(view);
    sub->setWindowTitle(QString::fromStdString(child.Caption()));
    mdi_->addSubWindow(sub);
    children_[&child] = sub;
    child.AddObserver([sub = QPointer<QMdiSubWindow>(sub)](Window& changed) {
        if (sub)
            sub->setWindowTitle(QString::fromStdString(changed.Caption()));
    });
    sub->installEventFilter(this);
    sub->show();
    // The window opens whole, where its model puts it (the workspace's top left corner), never
    // left of or above the workspace: what does not fit is reached with the scroll bars.
    const double tppX = std::max(1, app_.Services().TwipsPerPixelX());
    const double tppY = std::max(1, app_.Services().TwipsPerPixelY());
    sub->resize(sub->size().expandedTo(sub->sizeHint()));
    sub->move(std::max(0, int(std::lround(child.Left() / tppX))),
              std::max(0, int(std::lround(child.Top() / tppY))));
    mdi_->setActiveSubWindow(sub);
}

void MainWindow::TileDocuments() {
    // Side by side, sharing the workspace; a window is never made smaller than its fields need
    // and never covers another: where they do not fit the workspace scrolls, and the main
    // window stays on the screen.
    QList<QMdiSubWindow*> windows;
    for (QMdiSubWindow* sub : mdi_->subWindowList())
        if (sub->isVisible() && !sub->isMinimized())
            windows << sub;
    if (windows.isEmpty())
        return;
    const int count = int(windows.size());
    const int columns = int(std::ceil(std::sqrt(double(count))));
    const int rows = (count + columns - 1) / columns;
    const QSize room = mdi_->viewport()->size();
    const QSize cell(room.width() / columns, room.height() / rows);
    int y = 0;
    for (int row = 0; row < rows; ++row) {
        int x = 0;
        int rowHeight = 0;
        for (int column = 0; column < columns && row * columns + column < count; ++column) {
            QMdiSubWindow* sub = windows[row * columns + column];
            if (sub->isMaximized())
                sub->showNormal();
            const QSize size = cell.expandedTo(sub->minimumSizeHint()).expandedTo(sub->minimumSize());
            sub->setGeometry(x, y, size.width(), size.height());
            x += size.width();
            rowHeight = std::max(rowHeight, size.height());
        }
        y += rowHeight;
    }
}

std::pair<double, double> MainWindow::MeasureDocuments() {
    // Every document view, built once over a model of its own, in a frame as the workspace
    // shows it; the fonts decide, so the answer is kept for the life of the program.
    static QSize largest;
    if (largest.isEmpty()) {
        HeadlessPlatform platform;
        Application scratch(platform);
        scratch.Main().MDIForm_Load("");
        for (const char* device : {"QX6105A", "QX3350", "QX4860", "QX7311", "QX5140"}) {
            scratch.DeviceForm().mstrCurrentDevice = device;
            std::unique_ptr<Configurator> form = CreateConfigurator(scratch, device);
            if (!form)
                continue;
            form->Form_Load();
            // Calculated, as a user's document soon is: the supply current takes its room.
            form->cmdCalculate.RaiseClick();
            QMdiSubWindow frame;
            QWidget* view = views_.Create(*form, &frame);
            frame.setWidget(view);
            // Shown off the screen, so that the view lays itself out and draws its pinout as
            // it will in the workspace.
            frame.setAttribute(Qt::WA_DontShowOnScreen);
            frame.show();
            for (int pass = 0; pass < 4; ++pass)
                QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            largest = largest.expandedTo(frame.sizeHint()).expandedTo(frame.size());
            frame.hide();
            frame.setWidget(nullptr);
            delete view;
        }
    }
    // The main window around the workspace: the menus, the status strip, the workspace's frame,
    // and room for a scroll bar: where the screen is too low for the document, the workspace's
    // vertical bar must not take the width the document needs.
    const int frame = 2 * mdi_->frameWidth();
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, mdi_);
    constexpr int kSlack = 24;  // pixels: frames, margins and the panels vary with the style
    const QSize need(largest.width() + frame + bar + kSlack,
                     largest.height() + frame + bar + kSlack + menuBar()->sizeHint().height() +
                         statusBar()->sizeHint().height());
    return {need.width() * double(app_.Services().TwipsPerPixelX()),
            need.height() * double(app_.Services().TwipsPerPixelY())};
}

void MainWindow::RemoveChild(Window& child) {
    auto it = children_.find(&child);
    if (it == children_.end())
        return;
    QPointer<QMdiSubWindow> sub = it->second;
    children_.erase(it);
    if (sub.isNull())
        return;
    // The view goes before its model.
    QWidget* view = sub->widget();
    sub->setWidget(nullptr);
    delete view;
    // The child may be going from inside its own close event: take it out, delete it later.
    static_cast<ChildSubWindow*>(sub.data())->AllowClose();
    mdi_->removeSubWindow(sub);
    sub->hide();
    sub->deleteLater();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls() && !event->mimeData()->urls().isEmpty() &&
        event->mimeData()->urls().first().isLocalFile())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.isEmpty() || !urls.first().isLocalFile())
        return;
    event->acceptProposedAction();
    app_.Main().GetFile(urls.first().toLocalFile().toStdString());
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (qobject_cast<QMdiSubWindow*>(watched) != nullptr &&
        (event->type() == QEvent::Move || event->type() == QEvent::Resize ||
         event->type() == QEvent::Show || event->type() == QEvent::Hide))
        QTimer::singleShot(0, this, [this] { RefreshScrollBars(); });
    if (watched == mdi_->viewport() && event->type() == QEvent::MouseButtonRelease) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        const int button = mouse->button() == Qt::RightButton  ? 2
                           : mouse->button() == Qt::LeftButton ? 1
                                                               : 4;
        app_.Main().MDIForm_MouseUp(button, ShiftOf(mouse->modifiers()),
                                    mouse->position().x() * app_.Services().TwipsPerPixelX(),
                                    mouse->position().y() * app_.Services().TwipsPerPixelY());
    }
    return QMainWindow::eventFilter(watched, event);
}

QIcon ApplicationIcon() {
    return QIcon::fromTheme("com.varnhol.Pendulon", QIcon(":/icons/com.varnhol.Pendulon.svg"));
}

}  // namespace pendulon
