#include "desktop/ConfiguratorView.hpp"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFont>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "app/Configurator.hpp"
#include "desktop/AccessibleNames.hpp"
#include "desktop/Binder.hpp"
#include "desktop/FloatingPanel.hpp"
#include "desktop/NamedWidgets.hpp"
#include "desktop/PictureView.hpp"
#include "desktop/ReadingOrder.hpp"
#include "graphics/clsGraphics.hpp"
#include "platform/PictureBox.hpp"

namespace pendulon {

ConfiguratorView::ConfiguratorView(Configurator& form, Application& app, QWidget* parent,
                                   int twipsPerPixelX, int twipsPerPixelY)
    : QWidget(parent),
      form_(form),
      app_(app),
      twipsPerPixelX_(twipsPerPixelX),
      twipsPerPixelY_(twipsPerPixelY) {
    setObjectName(QString::fromStdString(form.Name()) + "View");
}

ConfiguratorView::~ConfiguratorView() {
    if (pinoutObserver_ != 0)
        form_.picPinout.RemoveObserver(pinoutObserver_);
    if (debugObserver_ != 0)
        form_.picDebugWindow.RemoveObserver(debugObserver_);
}

QWidget* ConfiguratorView::PowerRoom(const QSize& minimum) {
    powerSlot_ = new QWidget(this);
    powerSlot_->setObjectName("powerSlot");
    powerSlot_->setMinimumSize(minimum);
    return powerSlot_;
}

void ConfiguratorView::FitDocumentWindow() {
    auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (sub == nullptr || sub->isMaximized() || sub->isMinimized())
        return;
    const QSize need = sub->sizeHint();
    if (sub->width() < need.width() || sub->height() < need.height())
        sub->resize(sub->size().expandedTo(need));
}

bool ConfiguratorView::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    // Fields that the options show (more rows, a second frequency) make the form larger: its
    // window grows with it, so that nothing is cut off.
    if (event->type() == QEvent::LayoutRequest && shown_)
        FitDocumentWindow();
    // Captions and places change with the options: the fields' names follow.
    if (event->type() == QEvent::LayoutRequest)
        NameFieldsFromLabels(this);
    return handled;
}

bool ConfiguratorView::focusNextPrevChild(bool next) {
    // The order is read from the form as it stands now: options show and hide fields.
    const std::vector<QWidget*> stops = TabStopsInReadingOrder(this);
    if (stops.empty())
        return QWidget::focusNextPrevChild(next);
    QWidget* now = QApplication::focusWidget();
    while (now != nullptr && now != this && std::find(stops.begin(), stops.end(), now) == stops.end())
        now = now->parentWidget();
    const auto at = std::find(stops.begin(), stops.end(), now);
    const std::ptrdiff_t count = std::ssize(stops);
    std::ptrdiff_t index = 0;
    if (at == stops.end())
        index = next ? 0 : count - 1;
    else
        index = ((at - stops.begin()) + (next ? 1 : count - 1)) % count;
    QWidget* target = stops[std::size_t(index)];
    target->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    BringIntoSight(target);
    return true;
}

QLabel* ConfiguratorView::Label(const QString& name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    return label;
}

QLabel* ConfiguratorView::ValueLabel(const QString& name, QWidget* parent) {
    QLabel* label = Label(name, parent);
    MarkAsValue(label);
    return label;
}

QLineEdit* ConfiguratorView::Text(const QString& name, QWidget* parent, int characters) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    const QFontMetrics metrics(edit->font());
    edit->setMinimumWidth(metrics.horizontalAdvance(QString(characters, '0')) + 12);
    return edit;
}

QComboBox* ConfiguratorView::List(const QString& name, QWidget* parent, int characters) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(characters);
    return combo;
}

QLabel* ConfiguratorView::Heading(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

QGroupBox* ConfiguratorView::VoltageGroup() {
    // The form's frame gives the title where it has one.
    auto* group = new QGroupBox(tr("Voltage"), this);
    group->setObjectName("fraVoltage");
    auto* layout = new QVBoxLayout(group);
    for (const char* name : {"opt5V", "opt3V"}) {
        auto* option = new QRadioButton(group);
        option->setObjectName(name);
        layout->addWidget(option);
    }
    return group;
}

QGroupBox* ConfiguratorView::ReferenceGroup() {
    auto* group = new QGroupBox(tr("Reference"), this);
    group->setObjectName("fraReference");
    auto* layout = new QVBoxLayout(group);
    layout->addWidget(List("cboFRef", group, 14));
    layout->addStretch();
    return group;
}

QGroupBox* ConfiguratorView::LimitsGroup(bool namedLabels) {
    auto* group = new QGroupBox(this);
    group->setObjectName("fraLimits");
    auto* grid = new QGridLayout(group);
    auto caption = [&](const char* name, const char* text) -> QLabel* {
        if (namedLabels)
            return Label(name, group);
        return new QLabel(text, group);
    };
    grid->addWidget(caption("lblMinimum", "Minimum"), 0, 1, Qt::AlignHCenter);
    grid->addWidget(caption("lblMaximum", "Maximum"), 0, 2, Qt::AlignHCenter);
    const char* rowNames[] = {"lblLimitFrequency", "lblLimitP", "lblLimitQ"};
    const char* rowTexts[] = {"PLL", "P", "Q"};
    // Limit fields keep the width of their numbers.
    const auto limitField = [&](const QString& name) {
        QLineEdit* field = Text(name, group, 7);
        field->setFixedWidth(field->minimumWidth());
        return field;
    };
    for (int i = 0; i < 3; ++i) {
        grid->addWidget(caption(rowNames[i], rowTexts[i]), i + 1, 0);
        grid->addWidget(limitField(QString("txtPLLMin(%1)").arg(i)), i + 1, 1);
        grid->addWidget(limitField(QString("txtPLLMax(%1)").arg(i)), i + 1, 2);
    }
    grid->addWidget(Label("lblFRefMin", group), 4, 0);
    grid->addWidget(limitField("txtFRefMin"), 4, 1);
    grid->addWidget(Label("lblFRefMax", group), 5, 0);
    grid->addWidget(limitField("txtFRefMax"), 5, 2);
    auto* check = new QCheckBox(group);
    check->setObjectName("chkUseDefault");
    grid->addWidget(check, 6, 0, 1, 2);
    auto* apply = new QPushButton(group);
    apply->setObjectName("cmdApplyLimits");
    apply->setAutoDefault(false);
    grid->addWidget(apply, 6, 2);
    return group;
}

QGroupBox* ConfiguratorView::ThreeLoopLimits(
    const std::function<QLabel*(int column, QWidget* group)>& heading,
    const std::function<QString(int)>& labelOf) {
    QGroupBox* group = widgets::Group("fraLimits", this);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(3);
    for (int c = 0; c < 6; ++c)
        grid->addWidget(heading(c, group), 0, c + 1, Qt::AlignHCenter);
    const int fieldWidth = QFontMetrics(font()).horizontalAdvance("0000.0") + 12;
    const auto limitField = [&](const QString& name) {
        QLineEdit* field = Text(name, group, 5);
        field->setFixedWidth(fieldWidth);
        return field;
    };
    for (int loop = 0; loop < 3; ++loop) {
        grid->addWidget(Label(labelOf(loop), group), loop + 1, 0);
        for (int k = 0; k < 3; ++k) {
            const int index = 3 * loop + k;
            grid->addWidget(limitField(QString("txtPLLMin(%1)").arg(index)), loop + 1, 1 + 2 * k);
            grid->addWidget(limitField(QString("txtPLLMax(%1)").arg(index)), loop + 1, 2 + 2 * k);
        }
    }
    grid->addWidget(Label(labelOf(3), group), 4, 0);
    grid->addWidget(limitField("txtFRefMin"), 4, 1);
    grid->addWidget(limitField("txtFRefMax"), 4, 2);
    grid->addWidget(widgets::Check("chkUseDefault", group), 4, 3, 1, 2);
    auto* apply = new QPushButton(group);
    apply->setObjectName("cmdApplyLimits");
    apply->setAutoDefault(false);
    grid->addWidget(apply, 4, 5, 1, 2);
    return group;
}

QVBoxLayout* ConfiguratorView::RootLayout(int vertical, int spacing) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(8, vertical, 8, vertical);
    root->setSpacing(spacing);
    return root;
}

void ConfiguratorView::AddDeviceAndCalculate(QHBoxLayout* top) {
    top->addStretch();
    top->addWidget(DeviceLabel(), 0, Qt::AlignVCenter | Qt::AlignRight);
    top->addSpacing(16);
    top->addWidget(CalculateButton(), 0, Qt::AlignVCenter | Qt::AlignRight);
}

QHBoxLayout* ConfiguratorView::PinoutAndPowerRoom(double width, double height,
                                                  const std::function<void()>& redraw,
                                                  const QSize& room) {
    auto* chip = new QHBoxLayout;
    QGroupBox* pinout = widgets::Group("fraPinout", this);
    auto* pinoutLayout = new QVBoxLayout(pinout);
    pinoutLayout->setContentsMargins(4, 4, 4, 4);
    pinoutLayout->addWidget(PinoutPicture(width, height, redraw), 0,
                            Qt::AlignHCenter | Qt::AlignTop);
    chip->addWidget(pinout, 0, Qt::AlignTop);
    chip->addWidget(PowerRoom(room), 1);
    return chip;
}

QPushButton* ConfiguratorView::CalculateButton() {
    auto* button = new QPushButton(this);
    button->setObjectName("cmdCalculate");
    button->setAutoDefault(false);
    button->setMinimumSize(120, 32);
    return button;
}

QLabel* ConfiguratorView::DeviceLabel() {
    QLabel* label = Label("lblDevice", this);
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.4);
    label->setFont(font);
    return label;
}

QSizeF ConfiguratorView::Overflow(const PictureBox& picture) {
    if (picture.DisplayList().empty())
        return QSizeF(0, 0);
    const clsGraphics::Bounds drawn = clsGraphics::DrawingBounds(picture);
    return QSizeF(std::max({0.0, -drawn.Left, drawn.Right - picture.Width()}),
                  std::max({0.0, -drawn.Top, drawn.Bottom - picture.Height()}));
}

PictureView* ConfiguratorView::PinoutPicture(double width, double height,
                                             const std::function<void()>& redraw) {
    // The chip is drawn in the middle of its picture and measured in the font it is painted
    // in: give the picture its room and its view, then draw, whatever was drawn before.
    if (form_.picPinout.Width() <= 0 || form_.picPinout.Height() <= 0) {
        form_.picPinout.SetWidth(width);
        form_.picPinout.SetHeight(height);
    }
    pinout_ = new PictureView(form_.picPinout, twipsPerPixelX_, twipsPerPixelY_, this);
    redrawPinout_ = redraw;
    if (redraw) {
        redraw();
        FitPinout();
    }
    pinout_->setFixedSize(pinout_->sizeHint());
    // The picture is sized when the chip is drawn; the view keeps its size in step. A mode
    // that draws longer pin names (a suspend pin) makes the picture wider, once it is drawn.
    pinoutObserver_ = form_.picPinout.AddObserver([this](Field&) {
        if (!fittingPinout_ && redrawPinout_) {
            const QSizeF over = Overflow(form_.picPinout);
            if (over.width() > 0 || over.height() > 0)
                QTimer::singleShot(0, this, [this] { FitPinout(); });
        }
        if (pinout_->size() != pinout_->sizeHint())
            pinout_->setFixedSize(pinout_->sizeHint());
    });
    return pinout_;
}

void ConfiguratorView::FitPinout() {
    if (fittingPinout_ || !redrawPinout_)
        return;
    fittingPinout_ = true;
    // Long pin names in a wide font may reach past the picture: widen it on both sides,
    // keeping the chip in the middle, and draw again. The chip's place is snapped to whole
    // pixels, so a pixel more on each side it overflows.
    auto more = [](double over, int pixel) {
        return over > 0 ? 2 * (std::ceil(over / pixel) + 1) * pixel : 0.0;
    };
    for (int attempt = 0; attempt < 3; ++attempt) {
        const QSizeF over = Overflow(form_.picPinout);
        if (over.width() <= 0 && over.height() <= 0)
            break;
        form_.picPinout.SetWidth(form_.picPinout.Width() + more(over.width(), twipsPerPixelX_));
        form_.picPinout.SetHeight(form_.picPinout.Height() + more(over.height(), twipsPerPixelY_));
        redrawPinout_();
    }
    fittingPinout_ = false;
}

void ConfiguratorView::Bind() {
    binder_ = new Binder(form_, this, twipsPerPixelX_, twipsPerPixelY_);
    // The panels come after the binder: they place, show and hide themselves as their
    // pictures say, and take the mouse themselves.
    power_ = new FloatingPanel(app_, form_.picPower, twipsPerPixelX_, twipsPerPixelY_, this);
    power_->SetRoom(powerSlot_);
    // The debug window's lines grow with the loops solved: it gets a room of its own below the
    // form, there while it shows, so that it hides no field whatever it holds.
    debugRoom_ = new QWidget(this);
    debugRoom_->setObjectName("debugRoom");
    debugRoom_->setVisible(form_.picDebugWindow.Visible());
    if (auto* box = qobject_cast<QBoxLayout*>(layout()))
        box->addWidget(debugRoom_, 0, Qt::AlignLeft | Qt::AlignTop);
    debugObserver_ = form_.picDebugWindow.AddObserver([this](Field&) {
        if (debugRoom_ && debugRoom_->isVisibleTo(this) != form_.picDebugWindow.Visible())
            debugRoom_->setVisible(form_.picDebugWindow.Visible());
    });
    debug_ = new FloatingPanel(app_, form_.picDebugWindow, twipsPerPixelX_, twipsPerPixelY_, this);
    debug_->SetRoom(debugRoom_);
    // A debug window drawn before the view existed was measured without the view's fonts.
    if (form_.picDebugWindow.Visible())
        form_.DrawDebugWindow();
    if (layout() != nullptr) {
        layout()->setSizeConstraint(QLayout::SetMinimumSize);
        // A window larger than the form (maximised, tiled) keeps the form's shape at its top
        // left rather than stretching the fields across the screen.
        layout()->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }
    adjustSize();
    NameFieldsFromLabels(this);
    // The panels float over the fields.
    power_->raise();
    debug_->raise();
}

void ConfiguratorView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (shown_)
        return;
    shown_ = true;
    // The field the form gave the focus to, else the first field of the document.
    QTimer::singleShot(0, this, [this] {
        QWidget* target = firstField_;
        if (form_.ActiveControl() != nullptr && binder_ != nullptr) {
            if (QWidget* active = binder_->WidgetOf(*form_.ActiveControl()))
                target = active;
        }
        if (target != nullptr && target->isVisible() && target->isEnabled())
            target->setFocus(Qt::OtherFocusReason);
    });
}

}  // namespace pendulon
