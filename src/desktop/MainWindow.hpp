#pragma once
#include <QIcon>
#include <QMainWindow>
#include <QPointer>
#include <map>
#include <utility>

class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QMenu;

namespace pendulon {

class Application;
class Binder;
class MenuItem;
class ViewRegistry;
class Window;

// The icon of Pendulon's windows: the one the icon theme holds under the name the desktop entry
// gives, or, where the theme has none (a machine without the hicolor theme's index, or the
// program run from its build folder), the copy of the same drawing built into the program.
QIcon ApplicationIcon();

// The main window: menus built from frmMain's menu tree, the document area with its children,
// and the status strip. Geometry and state are kept in step with frmMain in twips, so that the
// settings it saves are the window's own.
class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    MainWindow(Application& app, ViewRegistry& views, QWidget* parent = nullptr);
    ~MainWindow() override;

    QMdiArea* MdiArea() const { return mdi_; }
    // The Qt menu of a menu entry that has entries, or nullptr.
    QMenu* MenuOf(const MenuItem& item) const;
    QMdiSubWindow* SubWindowOf(const Window& child) const;
    // Applies frmMain's position, size and state to the window.
    void ApplyModelGeometry();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BuildMenus();
    QMenu* BuildMenu(MenuItem& item, QWidget* parent);
    void OnModelChanged();
    void StoreGeometry();
    void AddChild(Window& child);
    // Window, Tile: the document windows side by side in the workspace.
    void TileDocuments();
    // Has the workspace weigh its scroll bars again for its present size.
    void RefreshScrollBars();
    // The main window's size, in twips, that shows the largest document window whole.
    std::pair<double, double> MeasureDocuments();
    void RemoveChild(Window& child);

    Application& app_;
    ViewRegistry& views_;
    QMdiArea* mdi_;
    QLabel* lblHelpInfo_;
    QLabel* lblStatus_;
    Binder* binder_;
    std::map<const MenuItem*, QMenu*> menus_;
    std::map<const Window*, QPointer<QMdiSubWindow>> children_;
    int observerId_ = 0;
    bool applyingGeometry_ = false;
    bool ending_ = false;
};

}  // namespace pendulon
