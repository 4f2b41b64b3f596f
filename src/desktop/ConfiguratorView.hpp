#pragma once
#include <QPointer>
#include <QSize>
#include <QSizeF>
#include <QStringList>
#include <QWidget>
#include <functional>

class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QHBoxLayout;
class QLineEdit;
class QVBoxLayout;
class QPushButton;

namespace pendulon {

class Application;
class Binder;
class Configurator;
class FloatingPanel;
class ListField;
class PictureBox;
class PictureView;
class ViewBuilder;

// What the views of all documents share: the voltage, reference and limit groups, the
// Calculate button, the pinout picture and the floating power and debug panels. A device's
// view lays out its own fields with these parts, then calls Bind.
class ConfiguratorView : public QWidget {
    Q_OBJECT
  public:
    ConfiguratorView(Configurator& form, Application& app, QWidget* parent, int twipsPerPixelX,
                     int twipsPerPixelY);
    ~ConfiguratorView() override;

    Configurator& Form() const { return form_; }
    Binder& GetBinder() const { return *binder_; }
    FloatingPanel* PowerPanel() const { return power_; }
    FloatingPanel* DebugPanel() const { return debug_; }
    // The room of the layout kept for the power figures, in views that keep one.
    QWidget* PowerSlot() const { return powerSlot_; }

  protected:
    // Field widgets, each named as its field.
    QLabel* Label(const QString& name, QWidget* parent);
    // A label that shows a value (a desired frequency) rather than naming its row.
    QLabel* ValueLabel(const QString& name, QWidget* parent);
    QLineEdit* Text(const QString& name, QWidget* parent, int characters = 10);
    QComboBox* List(const QString& name, QWidget* parent, int characters = 12);
    // A label that is not a field: a column heading of the layout.
    static QLabel* Heading(const QString& text, QWidget* parent);

    QGroupBox* VoltageGroup();
    // The reference list; the reference limits are in the limit group.
    QGroupBox* ReferenceGroup();
    // The limit group. With named labels the row and column captions are fields of the form.
    QGroupBox* LimitsGroup(bool namedLabels);
    // The limit group of a three-loop die: the column headings that heading makes for columns
    // 0 to 5 (minimum and maximum of frequency, P and Q), a row per loop in the die's order (its
    // caption label named by labelOf), the reference row with Use Default and Apply.
    QGroupBox* ThreeLoopLimits(const std::function<QLabel*(int column, QWidget* group)>& heading,
                               const std::function<QString(int)>& labelOf);
    // The root layout of a view: margins and spacing in pixels.
    QVBoxLayout* RootLayout(int vertical, int spacing);
    // The device's name and Calculate at the right end of the top row.
    void AddDeviceAndCalculate(QHBoxLayout* top);
    // The pinout in its frame at the given size in twips, with the room kept for the power
    // figures beside it: until the user puts them elsewhere they sit there, over nothing.
    QHBoxLayout* PinoutAndPowerRoom(double width, double height, const std::function<void()>& redraw,
                                    const QSize& room);
    QPushButton* CalculateButton();
    QLabel* DeviceLabel();
    // The pinout, in a picture of the given size in twips; redraw draws the chip anew once the
    // picture has its size.
    PictureView* PinoutPicture(double width, double height, const std::function<void()>& redraw);

    // Widens the pinout's picture until the chip drawn in it fits, drawing it anew.
    void FitPinout();
    // How far a drawing reaches past its picture on the worse side, across and down, in
    // twips; zero where it fits.
    static QSizeF Overflow(const PictureBox& picture);

    // Binds every named widget, adds the floating panels on top, and sizes the view.
    void Bind();
    // The field a new document starts in, when the form has not put the focus anywhere.
    void SetFirstField(QWidget* widget) { firstField_ = widget; }

    // Keeps an empty room of at least this size in the layout for the power figures: where
    // they first show when they have no place of their own yet.
    QWidget* PowerRoom(const QSize& minimum);
    // Grows the document window to the size its fields need.
    void FitDocumentWindow();

    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;
    // Tab and Shift+Tab go through the fields shown and enabled, in reading order, and round
    // within the document.
    bool focusNextPrevChild(bool next) override;
    // Brings a field that Tab reached into sight where the view scrolls fields of its own.
    virtual void BringIntoSight(QWidget* field) { (void)field; }

  private:
    Configurator& form_;
    Application& app_;
    int twipsPerPixelX_;
    int twipsPerPixelY_;
    Binder* binder_ = nullptr;
    FloatingPanel* power_ = nullptr;
    FloatingPanel* debug_ = nullptr;
    PictureView* pinout_ = nullptr;
    int pinoutObserver_ = 0;
    std::function<void()> redrawPinout_;
    bool fittingPinout_ = false;
    QPointer<QWidget> powerSlot_;
    // The room below the form kept for the debug window while it shows.
    QPointer<QWidget> debugRoom_;
    int debugObserver_ = 0;
    QWidget* firstField_ = nullptr;
    bool shown_ = false;
};

}  // namespace pendulon
