#include "desktop/QX3350View.hpp"

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

#include "configurators/frmQX3350.hpp"
#include "desktop/FloatingPanel.hpp"
#include "desktop/PictureView.hpp"

namespace pendulon {

namespace {

// A group of option buttons (or one check box) named as the form's fields.
QGroupBox* OptionGroup(QWidget* parent, const char* name,
                       std::initializer_list<const char*> options, bool check = false) {
    auto* group = new QGroupBox(parent);
    group->setObjectName(name);
    auto* layout = new QVBoxLayout(group);
    for (const char* option : options) {
        QWidget* button = check ? static_cast<QWidget*>(new QCheckBox(group))
                                : static_cast<QWidget*>(new QRadioButton(group));
        button->setObjectName(option);
        layout->addWidget(button);
    }
    layout->addStretch();
    return group;
}

}  // namespace

QX3350View::QX3350View(frmQX3350& form, Application& app, QWidget* parent, int twipsPerPixelX,
                       int twipsPerPixelY)
    : ConfiguratorView(form, app, parent, twipsPerPixelX, twipsPerPixelY) {
    QVBoxLayout* root = RootLayout(8, 8);

    // Top row: clock source, reference, voltage, output level, package; the device at the right.
    auto* top = new QHBoxLayout;
    top->addWidget(OptionGroup(this, "fraClockSource", {"optCrystal", "optExternal"}));
    top->addWidget(ReferenceGroup());
    top->addWidget(VoltageGroup());
    top->addWidget(OptionGroup(this, "fraTTLCMOS", {"optTTL", "optCMOS"}));
    top->addWidget(OptionGroup(this, "fraPackage", {"optSOIC", "optTSSOP"}));
    top->addStretch();
    top->addWidget(DeviceLabel(), 0, Qt::AlignTop | Qt::AlignRight);
    root->addLayout(top);

    // Middle: the loop, the output and the options on the left, the limits on the right.
    auto* middle = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    auto* loop = new QHBoxLayout;
    auto* frequency = new QGroupBox(this);
    frequency->setObjectName("fraPLLFrequency");
    auto* frequencyLayout = new QHBoxLayout(frequency);
    frequencyLayout->addWidget(Label("lblPLL", frequency));
    frequencyLayout->addWidget(Text("txtPLL", frequency, 11));
    frequencyLayout->addWidget(Label("lblMHz", frequency));
    loop->addWidget(frequency);
    auto* data = new QGroupBox(this);
    data->setObjectName("fraPLLData");
    auto* dataLayout = new QHBoxLayout(data);
    dataLayout->addWidget(List("cboPLLData", data, 24));
    loop->addWidget(data, 1);
    left->addLayout(loop);

    auto* outputs = new QGroupBox(this);
    outputs->setObjectName("fraOutputs");
    auto* grid = new QGridLayout(outputs);
    grid->setHorizontalSpacing(12);
    grid->addWidget(Label("lblClkOutDivide", outputs), 0, 0);
    grid->addWidget(Label("lblDesired", outputs), 0, 1);
    grid->addWidget(Label("lblActual", outputs), 0, 2);
    grid->addWidget(List("cboClockDivisors", outputs, 8), 1, 0);
    QLabel* desired = ValueLabel("lblDesiredClock", outputs);
    desired->setMinimumWidth(desired->fontMetrics().horizontalAdvance(" 0000.000000000"));
    grid->addWidget(desired, 1, 1);
    grid->addWidget(List("cboActual", outputs, 22), 1, 2);
    grid->setColumnStretch(2, 1);
    left->addWidget(outputs);

    auto* options = new QGroupBox(this);
    options->setObjectName("fraOptions");
    auto* optionsLayout = new QHBoxLayout(options);
    optionsLayout->addWidget(OptionGroup(options, "fraPin4", {"optPowerDown", "optOutputEnable"}));
    optionsLayout->addWidget(OptionGroup(options, "fraSynchronous", {"chkSynchronous"}, true));
    optionsLayout->addStretch();
    left->addWidget(options);
    left->addStretch();
    middle->addLayout(left, 1);

    // The limits of the one loop: frequency, P and Q.
    auto* limits = new QGroupBox(this);
    limits->setObjectName("fraLimits");
    auto* limitGrid = new QGridLayout(limits);
    limitGrid->addWidget(Label("lblMin", limits), 0, 1, Qt::AlignHCenter);
    limitGrid->addWidget(Label("lblMax", limits), 0, 2, Qt::AlignHCenter);
    limitGrid->addWidget(new QLabel("PLL (MHz)", limits), 1, 0);
    limitGrid->addWidget(new QLabel("P", limits), 2, 0);
    limitGrid->addWidget(new QLabel("Q", limits), 3, 0);
    for (int i = 0; i < 3; ++i) {
        limitGrid->addWidget(Text(QString("txtPLLMin(%1)").arg(i), limits, 7), i + 1, 1);
        limitGrid->addWidget(Text(QString("txtPLLMax(%1)").arg(i), limits, 7), i + 1, 2);
    }
    // The reference limits follow the clock source; their fields stay hidden.
    limitGrid->addWidget(Text("txtFRefMin", limits, 7), 4, 1);
    limitGrid->addWidget(Text("txtFRefMax", limits, 7), 4, 2);
    auto* useDefault = new QCheckBox(limits);
    useDefault->setObjectName("chkUseDefault");
    limitGrid->addWidget(useDefault, 5, 0, 1, 2);
    auto* apply = new QPushButton(limits);
    apply->setObjectName("cmdApplyLimits");
    apply->setAutoDefault(false);
    limitGrid->addWidget(apply, 5, 2);
    auto* right = new QVBoxLayout;
    right->addWidget(limits);
    right->addStretch();
    middle->addLayout(right);
    root->addLayout(middle);
    root->addStretch(1);

    // Bottom: the pinout, the power note where the power table would stand, and Calculate.
    auto* bottom = new QHBoxLayout;
    auto* pinout = new QGroupBox(this);
    pinout->setObjectName("fraPinout");
    auto* pinoutLayout = new QVBoxLayout(pinout);
    pinoutLayout->addWidget(PinoutPicture(4400, 2000, [&form] { form.DisplayPinout(); }));
    bottom->addWidget(pinout, 0, Qt::AlignLeft | Qt::AlignTop);
    powerPlace_ = new QFrame(this);
    powerPlace_->setObjectName("powerPlace");
    auto* placeLayout = new QVBoxLayout(powerPlace_);
    placeLayout->setContentsMargins(0, 0, 0, 0);
    QLabel* note = Label("lblNoPowerCalculation", powerPlace_);
    note->setAlignment(Qt::AlignCenter);
    placeLayout->addWidget(note);
    bottom->addWidget(powerPlace_, 0, Qt::AlignLeft | Qt::AlignTop);
    bottom->addStretch();
    bottom->addWidget(CalculateButton(), 0, Qt::AlignRight | Qt::AlignBottom);
    root->addLayout(bottom);

    Bind();
    // The place holds the panel and the whole note; the note has its text once bound.
    const int panelWidth = int(form.picPower.Width() / twipsPerPixelX) + 2;
    const int panelHeight = int(form.picPower.Height() / twipsPerPixelY) + 2;
    powerPlace_->setFixedSize(std::max(panelWidth, note->sizeHint().width()),
                              std::max(panelHeight, note->sizeHint().height()));
    // The panel first shows where the note stands, and stays there while the user lets it.
    PowerPanel()->SetRoom(powerPlace_);
    SetFirstField(findChild<QWidget*>("txtPLL"));
}

}  // namespace pendulon
