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
#include <cmath>

#include "configurators/frmQX4860.hpp"
#include "desktop/NamedWidgets.hpp"
#include "desktop/PictureView.hpp"

namespace pendulon {

using widgets::Check;
using widgets::Option;

namespace {

// A window onto a panel of rows: as tall as the visible rows, clipping the rest.
QWidget* Viewport(QWidget* parent, int width, int height) {
    auto* viewport = new QWidget(parent);
    viewport->setFixedSize(width, height);
    return viewport;
}

}  // namespace

QX4860View::QX4860View(frmQX4860& form, Application& app, QWidget* parent, int twipsPerPixelX,
                       int twipsPerPixelY)
    : ConfiguratorView(form, app, parent, twipsPerPixelX, twipsPerPixelY),
      form_(form),
      twipsPerPixelY_(std::max(1, twipsPerPixelY)) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(8, 8, 8, 8);
    root->setSpacing(8);

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

    // The frequency rows.
    auto* frequencies = new QGroupBox(this);
    frequencies->setObjectName("fraFrequencies");
    auto* fLayout = new QGridLayout(frequencies);
    fLayout->setHorizontalSpacing(16);

    // Output column positions, in pixels, wide enough for their texts in this font.
    const QFontMetrics metrics(font());
    const int gap = 6;
    const int indexWidth = metrics.horizontalAdvance("0000") + 8;
    const int textWidth = metrics.horizontalAdvance("000.00000000") + 16;
    const int desiredWidth = metrics.horizontalAdvance(" 000.000000000") + 8;
    const int actualWidth = metrics.horizontalAdvance("000.000000000 (-000000 PPM)") + 36;
    const int pllWidth = metrics.horizontalAdvance("000.000000000 MHz P=0000 Q=000") + 36;
    const int columns[] = {0,
                           indexWidth + gap,
                           indexWidth + textWidth + 2 * gap,
                           indexWidth + textWidth + desiredWidth + 3 * gap,
                           indexWidth + textWidth + desiredWidth + actualWidth + 4 * gap,
                           indexWidth + textWidth + 2 * desiredWidth + actualWidth + 5 * gap};
    const int outputWidth = columns[5] + actualWidth;
    const int pllPanelWidth = indexWidth + gap + pllWidth;
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
    fLayout->addLayout(divisors, 0, 0, 1, 2);

    // Column headings, placed as the rows below them.
    auto* headings = new QWidget(frequencies);
    headings->setFixedSize(outputWidth, metrics.height() + 4);
    QLabel* desiredPLL = Label("lblDesiredPLL", headings);
    desiredPLL->setGeometry(columns[1], 0, textWidth, metrics.height() + 4);
    QLabel* actualA = Label("lblActualClkA", headings);
    actualA->setGeometry(columns[3], 0, actualWidth, metrics.height() + 4);
    QLabel* actualRef = Label("lblActualRefClk", headings);
    actualRef->setGeometry(columns[5], 0, actualWidth, metrics.height() + 4);
    fLayout->addWidget(headings, 1, 0);
    auto* pllHeading = new QWidget(frequencies);
    pllHeading->setFixedSize(pllPanelWidth, metrics.height() + 4);
    QLabel* pll = Label("lblPLL", pllHeading);
    pll->setGeometry(indexWidth + gap, 0, pllWidth, metrics.height() + 4);
    fLayout->addWidget(pllHeading, 1, 2);

    // The two panels of rows, each in its window with its scroll bar.
    QWidget* outputView = Viewport(frequencies, outputWidth, viewportHeight);
    QWidget* pllView = Viewport(frequencies, pllPanelWidth, viewportHeight);
    outputPanel_ = new QWidget(outputView);
    outputPanel_->setObjectName("picOutputDisplay");
    pllPanel_ = new QWidget(pllView);
    pllPanel_->setObjectName("picPLLData");
    const int rows = frmQX4860::kRows;
    outputPanel_->setFixedSize(outputWidth, rows * rowPitch);
    pllPanel_->setFixedSize(pllPanelWidth, rows * rowPitch);
    for (int i = 0; i < rows; ++i) {
        const QString index = QString("(%1)").arg(i);
        const int y = int(std::lround(form.lblSelectIndex[i].Top() / twipsPerPixelY_)) + 1;
        Label("lblSelectIndex" + index, outputPanel_)
            ->setGeometry(columns[0], y, indexWidth, rowHeight);
        Text("txtPLL" + index, outputPanel_)->setGeometry(columns[1], y, textWidth, rowHeight);
        Label("lblDesiredClkA" + index, outputPanel_)
            ->setGeometry(columns[2], y, desiredWidth, rowHeight);
        List("cboActualClkA" + index, outputPanel_)
            ->setGeometry(columns[3], y, actualWidth, rowHeight);
        Label("lblDesiredRefClk" + index, outputPanel_)
            ->setGeometry(columns[4], y, desiredWidth, rowHeight);
        List("cboActualRefClk" + index, outputPanel_)
            ->setGeometry(columns[5], y, actualWidth, rowHeight);
        Label("lblPLLDataIndex" + index, pllPanel_)->setGeometry(0, y, indexWidth, rowHeight);
        List("cboPLLData" + index, pllPanel_)
            ->setGeometry(indexWidth + gap, y, pllWidth, rowHeight);
    }
    auto* outputBar = new QScrollBar(Qt::Vertical, frequencies);
    outputBar->setObjectName("vsbOutput");
    outputBar->setFixedHeight(viewportHeight);
    auto* pllBar = new QScrollBar(Qt::Vertical, frequencies);
    pllBar->setObjectName("vsbPLLData");
    pllBar->setFixedHeight(viewportHeight);
    auto* outputRow = new QHBoxLayout;
    outputRow->setSpacing(2);
    outputRow->addWidget(outputView);
    outputRow->addWidget(outputBar);
    auto* pllRow = new QHBoxLayout;
    pllRow->setSpacing(2);
    pllRow->addWidget(pllView);
    pllRow->addWidget(pllBar);
    fLayout->addLayout(outputRow, 2, 0, Qt::AlignTop | Qt::AlignLeft);
    fLayout->addLayout(pllRow, 2, 2, Qt::AlignTop | Qt::AlignLeft);
    fLayout->setColumnStretch(1, 1);
    root->addWidget(frequencies);

    // Bottom: limits, pinout, Calculate.
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(LimitsGroup(true), 0, Qt::AlignTop);
    bottom->addWidget(PinoutPicture(3600, 2700, [&form] { form.DisplayPinout(); }), 0,
                      Qt::AlignLeft | Qt::AlignTop);
    bottom->addStretch();
    bottom->addWidget(CalculateButton(), 0, Qt::AlignRight | Qt::AlignBottom);
    root->addLayout(bottom);

    outputObserver_ = form.picOutputDisplay.AddObserver([this](Field&) { FollowPanels(); });
    pllObserver_ = form.picPLLData.AddObserver([this](Field&) { FollowPanels(); });
    Bind();
    SetFirstField(findChild<QWidget*>("txtPLL(0)"));
    FollowPanels();
}

QX4860View::~QX4860View() {
    form_.picOutputDisplay.RemoveObserver(outputObserver_);
    form_.picPLLData.RemoveObserver(pllObserver_);
}

void QX4860View::FollowPanels() {
    if (outputPanel_)
        outputPanel_->move(0, int(std::lround(form_.picOutputDisplay.Top() / twipsPerPixelY_)));
    if (pllPanel_)
        pllPanel_->move(0, int(std::lround(form_.picPLLData.Top() / twipsPerPixelY_)));
}

}  // namespace pendulon
