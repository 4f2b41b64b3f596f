#pragma once
#include <QObject>
#include <QPointer>
#include <QString>
#include <map>
#include <string>
#include <vector>

class QAction;
class QLineEdit;
class QWidget;

namespace pendulon {

class Field;
class MenuItem;
class Window;

// Connects Qt widgets to the fields of a window model by name (objectName == field name), both
// ways. A user's edit goes to the field as the product's event; a change of the field updates
// the widget with its signals blocked, so that it never comes back as a user event.
class Binder : public QObject {
    Q_OBJECT
  public:
    // Binds root and every widget below it whose objectName names a field of the window.
    Binder(Window& window, QWidget* root, int twipsPerPixelX = 15, int twipsPerPixelY = 15);
    ~Binder() override;

    void Bind(QWidget* widget, Field& field);
    void BindAction(QAction* action, MenuItem& item);
    // Binds widgets that were added below root after construction.
    void BindChildren(QWidget* root);

    QWidget* WidgetOf(const Field& field) const;
    Window& BoundWindow() const { return window_; }
    int BoundCount() const { return int(entries_.size()); }

    // A caption with "&" accelerators as plain text: "&&" is one "&", a single "&" goes.
    static QString StripAccelerator(const std::string& caption);

    // Brings the widget in line with its field; public so that views can force it.
    void UpdateWidget(Field& field);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Entry {
        Field* field = nullptr;
        QPointer<QObject> object;
        int observerId = 0;
        bool isAction = false;
    };
    void Observe(Field& field, QObject* object, bool isAction);
    void UpdateAction(QAction* action, MenuItem& item);
    void ApplyColors(QWidget* widget, Field& field);
    // Keeps the field's selection in step with what the user selects in its edit line.
    void FollowSelection(QLineEdit* edit, Field& field);
    // Shows a selection of the form's in an edit line.
    static void ShowSelection(QLineEdit* edit, int start, int length);
    Field* FieldOf(QObject* object) const;
    void OnWindowChanged();

    Window& window_;
    int windowObserverId_ = 0;
    int twipsPerPixelX_;
    int twipsPerPixelY_;
    std::vector<Entry> entries_;
    std::map<const QObject*, Field*> fieldByObject_;
    std::map<const Field*, QPointer<QWidget>> widgetByField_;
    bool movingFocus_ = false;
    // The field whose widget the user is editing; its selection is not written back.
    Field* editing_ = nullptr;
    // The selection a text field made when a click gave it the focus, put back after the click.
    struct ClickSelection {
        QPointer<QWidget> edit;
        int start = 0;
        int length = 0;
    };
    ClickSelection clickSelection_;
};

}  // namespace pendulon
