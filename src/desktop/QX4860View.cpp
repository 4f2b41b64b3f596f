#include "desktop/QX4860View.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "configurators/frmQX4860.hpp"
#include "desktop/NamedWidgets.hpp"
#include "desktop/PictureView.hpp"

namespace pendulon {

using widgets::Check;
using widgets::Option;

QX4860View::QX4860View(frmQX4860& form, Application& app, QWidget* parent, int twipsPerPixelX,
                       int twipsPerPixelY)
    : ConfiguratorView(form, app, parent, twipsPerPixelX, twipsPerPixelY),
      form_(form),
      twipsPerPixelY_(std::max(1, twipsPerPixelY)) {
    QVBoxLayout* root = RootLayout(8, 8);

    // Top row: package, voltage, reference, options; the device at the right.
    auto* top = new QHBoxLayout;
    auto* package = new QGroupBox(this);
    package->setObjectName("fraPackage");
    auto* packageLayout = new QVBoxLayout(package);
    packageLayout->addWidget(Option("opt8Pin", package));
    packageLayout->addWidget(Option("opt14Pin", package));
    top->addWidget(package);
    top->addWidget(VoltageGroup());
    top->addWidget(ReferenceGroup());
    auto* options = new QGroupBox(this);
    options->setObjectName("fraOptions");
    auto* optionsLayout = new QGridLayout(options);
    optionsLayout->addWidget(Check("chkSmoothSlew", options), 0, 0);
    optionsLayout->addWidget(Check("chkOEClockA", options), 1, 0);
    optionsLayout->addWidget(Check("chkOEReference", options), 2, 0);
    optionsLayout->addWidget(Check("chkPowerDown", options), 3, 0);
    auto* stop = new QGroupBox(options);
    stop->setObjectName("fraOERPDControl");
    auto* stopLayout = new QVBoxLayout(stop);
    stopLayout->addWidget(Check("chkPLLStop", stop));
    stopLayout->addWidget(Check("chkPLLAndOscillatorStop", stop));
    optionsLayout->addWidget(stop, 0, 1, 4, 1);
    top->addWidget(options);
    top->addStretch();
    top->addWidget(DeviceLabel(), 0, Qt::AlignTop | Qt::AlignRight);
    root->addLayout(top);

    // The frequency rows: one table, each row whole (its outputs and its loop's solutions side
    // by side), four rows in sight and one scroll bar for all of them. The form keeps two
    // scroll bars in step; the second has nothing of its own to move here and stays hidden.
    auto* frequencies = new QGroupBox(this);
    frequencies->setObjectName("fraFrequencies");
    auto* fLayout = new QVBoxLayout(frequencies);

    // Column positions, in pixels, wide enough for their texts in this font.
    const QFontMetrics metrics(font());
    const int gap = 6;
    QFont bold = font();
    bold.setBold(true);
    const int select =
        std::max(metrics.horizontalAdvance("0000"), QFontMetrics(bold).horizontalAdvance("Select")) + 8;
    const int widths[] = {select,
                          metrics.horizontalAdvance("000.0000000") + 16,
                          metrics.horizontalAdvance(" 000.00000") + 8,
                          metrics.horizontalAdvance("000.00000    PPM:-00000") + 30,
                          metrics.horizontalAdvance(" 000.00000") + 8,
                          metrics.horizontalAdvance("000.00000    PPM:-00000") + 30,
                          select,
                          metrics.horizontalAdvance("000.000000 P:0000 Q:000") + 30};
    constexpr int kColumns = 8;
    int columns[kColumns];
    for (int c = 0, x = 0; c < kColumns; ++c) {
        columns[c] = x;
        x += widths[c] + gap;
    }
    const int tableWidth = columns[kColumns - 1] + widths[kColumns - 1];
    const int rowPitch = int(std::lround(double(frmQX4860::kRowHeight) / twipsPerPixelY_));
    const int rowHeight = rowPitch - 2;
    const int viewportHeight = frmQX4860::kVisibleRows * rowPitch;

    // Divisors over the output columns.
    auto* divisors = new QHBoxLayout;
    divisors->addWidget(Label("lblClkADiv", frequencies));
    divisors->addWidget(List("cboClkADiv", frequencies, 6));
    divisors->addSpacing(16);
    divisors->addWidget(Label("lblRefClkDiv", frequencies));
    divisors->addWidget(List("cboRefClkDiv", frequencies, 6));
    divisors->addStretch();
    fLayout->addLayout(divisors);

    // A heading over every column, placed as the rows below them, two lines where it needs them.
    auto* headings = new QWidget(frequencies);
    const int headingHeight = 2 * metrics.height() + 4;
    headings->setFixedSize(tableWidth, headingHeight);
    const auto place = [&](QLabel* heading, int column) {
        heading->setParent(headings);
        heading->setWordWrap(true);
        heading->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
        heading->setGeometry(columns[column], 0, widths[column], headingHeight);
    };
    place(Heading("Select", headings), 0);
    place(Label("lblDesiredPLL", headings), 1);
    place(Heading("Desired Clock A", headings), 2);
    place(Label("lblActualClkA", headings), 3);
    place(Heading("Desired Ref Clock", headings), 4);
    place(Label("lblActualRefClk", headings), 5);
    place(Heading("Select", headings), 6);
    place(Label("lblPLL", headings), 7);
    fLayout->addWidget(headings);

    // The rows, in their window with the scroll bar.
    auto* rowWindow = new QWidget(frequencies);
    rowWindow->setFixedSize(tableWidth, viewportHeight);
    rowPanel_ = new QWidget(rowWindow);
    rowPanel_->setObjectName("picOutputDisplay");
    const int rows = frmQX4860::kRows;
    rowPanel_->setFixedSize(tableWidth, rows * rowPitch);
    for (int i = 0; i < rows; ++i) {
        const QString index = QString("(%1)").arg(i);
        const int y = int(std::lround(form.lblSelectIndex[i].Top() / twipsPerPixelY_)) + 1;
        const auto cell = [&](QWidget* widget, int column) {
            widget->setGeometry(columns[column], y, widths[column], rowHeight);
        };
        cell(Label("lblSelectIndex" + index, rowPanel_), 0);
        cell(Text("txtPLL" + index, rowPanel_), 1);
        cell(ValueLabel("lblDesiredClkA" + index, rowPanel_), 2);
        cell(List("cboActualClkA" + index, rowPanel_), 3);
        cell(ValueLabel("lblDesiredRefClk" + index, rowPanel_), 4);
        cell(List("cboActualRefClk" + index, rowPanel_), 5);
        cell(Label("lblPLLDataIndex" + index, rowPanel_), 6);
        cell(List("cboPLLData" + index, rowPanel_), 7);
    }
    auto* bar = new QScrollBar(Qt::Vertical, frequencies);
    bar->setObjectName("vsbOutput");
    bar->setFixedHeight(viewportHeight);
    auto* rowLine = new QHBoxLayout;
    rowLine->setSpacing(2);
    rowLine->addWidget(rowWindow);
    rowLine->addWidget(bar, 0, Qt::AlignTop);
    rowLine->addStretch();
    fLayout->addLayout(rowLine);
    root->addWidget(frequencies);

    // Bottom: limits, pinout, Calculate.
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(LimitsGroup(true), 0, Qt::AlignTop);
    bottom->addWidget(PinoutPicture(3600, 2700, [&form] { form.DisplayPinout(); }), 0,
                      Qt::AlignLeft | Qt::AlignTop);
    // The power figures float; until the user puts them elsewhere they sit here, over nothing.
    bottom->addWidget(PowerRoom(QSize(1, 1)), 0, Qt::AlignLeft | Qt::AlignTop);
    bottom->addStretch();
    bottom->addWidget(CalculateButton(), 0, Qt::AlignRight | Qt::AlignBottom);
    root->addLayout(bottom);

    outputObserver_ = form.picOutputDisplay.AddObserver([this](Field&) { FollowPanels(); });
    Bind();
    SetFirstField(findChild<QWidget*>("txtPLL(0)"));
    FollowPanels();
}

QX4860View::~QX4860View() {
    form_.picOutputDisplay.RemoveObserver(outputObserver_);
}

void QX4860View::BringIntoSight(QWidget* field) {
    if (!rowPanel_ || field == nullptr || field->parentWidget() != rowPanel_)
        return;
    const int rowPitch = int(std::lround(double(frmQX4860::kRowHeight) / twipsPerPixelY_));
    const int row = field->y() / std::max(1, rowPitch);
    ScrollBar& bar = form_.vsbOutput;
    int value = bar.Value();
    if (row < value)
        value = row;
    else if (row > value + frmQX4860::kVisibleRows - 1)
        value = row - (frmQX4860::kVisibleRows - 1);
    value = std::clamp(value, std::min(bar.Min(), bar.Max()), std::max(bar.Min(), bar.Max()));
    if (value != bar.Value())
        bar.SetValue(value);
}

void QX4860View::FollowPanels() {
    if (rowPanel_)
        rowPanel_->move(0, int(std::lround(form_.picOutputDisplay.Top() / twipsPerPixelY_)));
}

}  // namespace pendulon
