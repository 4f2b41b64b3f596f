#include "desktop/QX5140View.hpp"

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
#include <QSizePolicy>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "desktop/FloatingPanel.hpp"
#include "desktop/NamedWidgets.hpp"
#include "desktop/PictureView.hpp"
#include "configurators/frmQX5140.hpp"

namespace pendulon {

using widgets::Check;
using widgets::Group;
using widgets::Indexed;
using widgets::Option;

namespace {

// Widths of the columns, in pixels, wide enough for their texts.
struct Widths {
    explicit Widths(const QFontMetrics& m)
        : frequency(m.horizontalAdvance("000.000000") + 12),
          actual(m.horizontalAdvance("000.00000    PPM:-0000") + 30),
          data(m.horizontalAdvance("000.000000 P:0000 Q:000") + 30),
          source(m.horizontalAdvance("SPLL/104") + 8) {}
    int frequency, actual, data, source;
};

}  // namespace

QX5140View::QX5140View(frmQX5140& form, Application& app, QWidget* parent, int twipsPerPixelX,
                       int twipsPerPixelY)
    : ConfiguratorView(form, app, parent, twipsPerPixelX, twipsPerPixelY), form_(form) {
    QVBoxLayout* root = RootLayout(8, 6);
    root->addWidget(TopRow());

    // The outputs and their assignment on the left; the loops and the limits on the right.
    auto* columns = new QHBoxLayout;
    columns->setSpacing(8);
    auto* left = new QVBoxLayout;
    left->setSpacing(6);
    left->addWidget(OutputsGroup());
    left->addWidget(AssignmentGroup());
    left->addStretch();
    columns->addLayout(left);
    auto* right = new QVBoxLayout;
    right->setSpacing(6);
    right->addWidget(LoopsGroup());
    right->addWidget(Limits());
    right->addStretch();
    columns->addLayout(right);
    columns->addStretch();
    root->addLayout(columns);

    // The chip, and the place of the power figures beside it.
    const QFontMetrics metrics(font());
    QHBoxLayout* chip = PinoutAndPowerRoom(
        5400, 2100, [&form] { form.DisplayPinout(); },
        QSize(metrics.horizontalAdvance("Select  Typical  Worst Case ") + 16, 6 * metrics.height()));
    root->addLayout(chip);
    root->addStretch();

    Bind();
    SetFirstField(findChild<QWidget*>("txtClkA(0)"));
    QMetaObject::invokeMethod(this, [this] { FitDocumentWindow(); }, Qt::QueuedConnection);
}

QX5140View::~QX5140View() {
    form_.chkSuspendClockB.RemoveObserver(suspendHeadingObserver_);
}

QWidget* QX5140View::TopRow() {
    auto* row = new QWidget(this);
    auto* top = new QHBoxLayout(row);
    top->setContentsMargins(0, 0, 0, 0);
    QGroupBox* pin8 = Group("fraPin8Option", row);
    auto* pin8Layout = new QVBoxLayout(pin8);
    for (const char* name : {"optOE", "optShutdown", "optSelect"})
        pin8Layout->addWidget(Option(name, pin8));
    top->addWidget(pin8);
    QGroupBox* suspend = Group("fraSuspend", row);
    auto* suspendLayout = new QVBoxLayout(suspend);
    suspendLayout->addWidget(Option("optSuspendOutputsOnly", suspend));
    suspendLayout->addWidget(Option("optSuspendOutputsAndPLLs", suspend));
    suspendLayout->addStretch();
    top->addWidget(suspend);
    top->addWidget(VoltageGroup());
    top->addWidget(ReferenceGroup());
    QGroupBox* sensitivity = Group("fraSensitivity", row);
    auto* sensitivityLayout = new QHBoxLayout(sensitivity);
    sensitivityLayout->addWidget(Text("txtPPM", sensitivity, 5));
    auto* bar = new QScrollBar(Qt::Vertical, sensitivity);
    bar->setObjectName("vsbPPM");
    bar->setFixedHeight(QFontMetrics(font()).height() * 2);
    sensitivityLayout->addWidget(bar);
    sensitivityLayout->addWidget(Label("lblSensitivity", sensitivity));
    top->addWidget(sensitivity, 0, Qt::AlignTop);
    AddDeviceAndCalculate(top);
    return row;
}

QWidget* QX5140View::OutputsGroup() {
    const Widths w{QFontMetrics(font())};
    auto* group = new QGroupBox("Outputs", this);
    group->setObjectName("grpOutputs");
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(3);
    grid->addWidget(Heading("Desired (MHz)", group), 0, 1);
    grid->addWidget(Heading("Actual (MHz, PPM)", group), 0, 2);
    QLabel* suspendHeading = Heading("Suspend", group);
    // Hidden, it keeps its room, so that the columns stay where they are across pin 8 modes.
    QSizePolicy keepRoom = suspendHeading->sizePolicy();
    keepRoom.setRetainSizeWhenHidden(true);
    suspendHeading->setSizePolicy(keepRoom);
    grid->addWidget(suspendHeading, 0, 3, Qt::AlignHCenter);
    // The heading stands over the suspend boxes only while they are in use (Select/Suspend).
    const auto followBoxes = [suspendHeading](Field& box) {
        suspendHeading->setVisible(box.Visible());
    };
    suspendHeadingObserver_ = form_.chkSuspendClockB.AddObserver(followBoxes);
    followBoxes(form_.chkSuspendClockB);
    grid->addWidget(Label("lblPrivatePLL", group), 0, 4, Qt::AlignHCenter);
    struct Row {
        QString label, desired, actual, suspend, privateLoop;
    };
    const Row rows[] = {
        {"lblClkA(0)", "txtClkA(0)", "cboClkA(0)", "chkSuspendClockA", "chkPrivatePLLClockA"},
        {"lblClkA(1)", "txtClkA(1)", "cboClkA(1)", "", ""},
        {"lblClkB", "txtClkB", "cboClkB", "chkSuspendClockB", "chkPrivatePLLClockB"},
        {"lblClkC", "txtClkC", "cboClkC", "chkSuspendClockC", "chkPrivatePLLClockC"},
    };
    int r = 1;
    for (const Row& row : rows) {
        grid->addWidget(Label(row.label, group), r, 0);
        QLineEdit* desired = Text(row.desired, group, 10);
        desired->setFixedWidth(w.frequency);
        grid->addWidget(desired, r, 1);
        QComboBox* actual = List(row.actual, group, 22);
        actual->setMinimumWidth(w.actual);
        grid->addWidget(actual, r, 2);
        if (!row.suspend.isEmpty())
            grid->addWidget(Check(row.suspend, group), r, 3, Qt::AlignHCenter);
        if (!row.privateLoop.isEmpty())
            grid->addWidget(Check(row.privateLoop, group), r, 4, Qt::AlignHCenter);
        ++r;
    }
    return group;
}

QWidget* QX5140View::AssignmentGroup() {
    const Widths w{QFontMetrics(font())};
    QGroupBox* group = Group("fraPllAssignment", this);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(3);
    grid->addWidget(Heading("Source", group), 0, 1);
    grid->addWidget(Heading("PLL", group), 0, 2);
    const char* const sources[] = {"lblClkASrcDiv", "lblClkBSrcDiv", "lblClkCSrcDiv"};
    const char* const loops[] = {"lblClkASrc", "lblClkBSrc", "lblClkCSrc"};
    for (int i = 0; i < 3; ++i) {
        grid->addWidget(Label(Indexed("lblClkSrcDiv", i), group), i + 1, 0);
        QLabel* source = Label(sources[i], group);
        source->setMinimumWidth(w.source);
        grid->addWidget(source, i + 1, 1);
        QLabel* loop = Label(loops[i], group);
        loop->setMinimumWidth(w.source);
        grid->addWidget(loop, i + 1, 2);
    }
    QLabel* message = Label("lblCaseMessage", group);
    QFont bold = message->font();
    bold.setBold(true);
    message->setFont(bold);
    grid->addWidget(message, 4, 0, 1, 3);
    grid->setColumnStretch(3, 1);
    return group;
}

QWidget* QX5140View::LoopsGroup() {
    const Widths w{QFontMetrics(font())};
    auto* box = new QWidget(this);
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    QGroupBox* data = Group("fraPLLData", box);
    auto* grid = new QGridLayout(data);
    grid->setVerticalSpacing(3);
    const QString lists[] = {"cboCPLLData(0)", "cboCPLLData(1)", "cboSPLLData", "cboUPLLData"};
    for (int i = 0; i < 4; ++i) {
        grid->addWidget(Label(Indexed("lblPLLData", i), data), i, 0);
        QComboBox* list = List(lists[i], data, 24);
        list->setMinimumWidth(w.data);
        grid->addWidget(list, i, 1);
    }
    layout->addWidget(data);
    QGroupBox* suspend = Group("fraSuspenPlls", box);
    auto* suspendGrid = new QGridLayout(suspend);
    suspendGrid->setVerticalSpacing(3);
    const char* const checks[] = {"chkSuspendCPLL", "chkSuspendSPLL", "chkSuspendUPLL"};
    for (int i = 0; i < 3; ++i) {
        suspendGrid->addWidget(Label(Indexed("lblSuspendPLL", i), suspend), i, 0);
        suspendGrid->addWidget(Check(checks[i], suspend), i, 1);
    }
    layout->addWidget(suspend, 0, Qt::AlignTop);
    return box;
}

QWidget* QX5140View::Limits() {
    // Columns: frequency, P and Q, each as minimum and maximum; a row per loop and the reference.
    // The die keeps CPLL, UPLL and SPLL in this order; the captions name UPLL, SPLL, CPLL.
    const char* const headings[] = {"P min", "P max", "Q min", "Q max"};
    return ThreeLoopLimits(
        [this, &headings](int column, QWidget* group) -> QLabel* {
            if (column < 2)
                return Label(column == 0 ? "lblMin" : "lblMax", group);
            return Heading(headings[column - 2], group);
        },
        [](int row) {
            const int caption[4] = {2, 0, 1, 3};
            return Indexed("lblLimits", caption[row]);
        });
}

}  // namespace pendulon
