#include "desktop/QX6105AView.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "configurators/frmQX6105A.hpp"
#include "desktop/PictureView.hpp"

namespace pendulon {

QX6105AView::QX6105AView(frmQX6105A& form, Application& app, QWidget* parent, int twipsPerPixelX,
                         int twipsPerPixelY)
    : ConfiguratorView(form, app, parent, twipsPerPixelX, twipsPerPixelY) {
    QVBoxLayout* root = RootLayout(8, 8);

    // Top row: pin 8, voltage, reference, option; the device name at the right.
    auto* top = new QHBoxLayout;
    auto* pin8 = new QGroupBox(this);
    pin8->setObjectName("fraPin8");
    auto* pin8Layout = new QVBoxLayout(pin8);
    for (const char* name : {"optFS", "optOE"}) {
        auto* option = new QRadioButton(pin8);
        option->setObjectName(name);
        pin8Layout->addWidget(option);
    }
    top->addWidget(pin8);
    top->addWidget(VoltageGroup());
    top->addWidget(ReferenceGroup());
    auto* option = new QGroupBox(this);
    option->setObjectName("fraOption");
    auto* optionLayout = new QVBoxLayout(option);
    auto* slew = new QCheckBox(option);
    slew->setObjectName("chkSmoothSlew");
    optionLayout->addWidget(slew);
    optionLayout->addStretch();
    top->addWidget(option);
    top->addStretch();
    top->addWidget(DeviceLabel(), 0, Qt::AlignTop | Qt::AlignRight);
    root->addLayout(top);

    // Middle: the loop and its outputs on the left, the limits on the right.
    auto* middle = new QHBoxLayout;
    auto* frequencies = new QFrame(this);
    frequencies->setFrameShape(QFrame::StyledPanel);
    auto* grid = new QGridLayout(frequencies);
    grid->setHorizontalSpacing(10);
    grid->addWidget(Heading("Desired (MHz)", frequencies), 0, 1);
    grid->addWidget(Heading("PLL Data (VCO, P, Q)", frequencies), 0, 3);
    for (int i = 0; i < frmQX6105A::kStates; ++i) {
        grid->addWidget(Label(QString("lblFS(%1)").arg(i), frequencies), i + 1, 0);
        grid->addWidget(Text(QString("txtPLL(%1)").arg(i), frequencies, 11), i + 1, 1);
        grid->addWidget(Label(QString("lblPllData(%1)").arg(i), frequencies), i + 1, 2);
        grid->addWidget(List(QString("cboPLLData(%1)").arg(i), frequencies, 26), i + 1, 3);
    }
    auto* rule = new QFrame(frequencies);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    grid->addWidget(rule, 3, 0, 1, 4);
    grid->addWidget(Heading("Source", frequencies), 4, 1);
    grid->addWidget(Heading("Desired (MHz)", frequencies), 4, 2);
    grid->addWidget(Heading("Actual (MHz, PPM)", frequencies), 4, 3);
    const int outputs = frmQX6105A::kStates * frmQX6105A::kOutputs;
    for (int k = 0; k < outputs; ++k) {
        const int row = 5 + k;
        grid->addWidget(Label(QString("lblClkOutput(%1)").arg(k), frequencies), row, 0);
        // One divisor per output serves both states.
        if (k < frmQX6105A::kOutputs)
            grid->addWidget(List(QString("cboClkDiv(%1)").arg(k), frequencies, 7), row, 1);
        QLabel* desired = ValueLabel(QString("lblDesired(%1)").arg(k), frequencies);
        desired->setMinimumWidth(desired->fontMetrics().horizontalAdvance(" 0000.000000000"));
        grid->addWidget(desired, row, 2);
        grid->addWidget(List(QString("cboActual(%1)").arg(k), frequencies, 26), row, 3);
    }
    grid->setRowStretch(5 + outputs, 1);
    middle->addWidget(frequencies, 1);
    auto* right = new QVBoxLayout;
    right->addWidget(LimitsGroup(false));
    right->addStretch();
    middle->addLayout(right);
    root->addLayout(middle);

    // Bottom: the pinout, and Calculate at the right.
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(PinoutPicture(3600, 2100, [&form] { form.DisplayPinout(); }), 0,
                      Qt::AlignLeft | Qt::AlignTop);
    // The power figures float; until the user puts them elsewhere they sit here, over nothing.
    bottom->addWidget(PowerRoom(QSize(1, 1)), 0, Qt::AlignLeft | Qt::AlignTop);
    bottom->addStretch();
    bottom->addWidget(CalculateButton(), 0, Qt::AlignRight | Qt::AlignBottom);
    root->addLayout(bottom);

    Bind();
    SetFirstField(findChild<QWidget*>("txtPLL(0)"));
}

}  // namespace pendulon
