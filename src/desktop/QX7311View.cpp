#include "desktop/QX7311View.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <array>
#include <cmath>
#include <utility>

#include "configurators/frmQX7311.hpp"
#include "desktop/AccessibleNames.hpp"
#include "desktop/FloatingPanel.hpp"
#include "desktop/NamedWidgets.hpp"
#include "desktop/PictureView.hpp"

namespace pendulon {

using widgets::Check;
using widgets::Group;
using widgets::Indexed;
using widgets::Option;

namespace {

// Column widths of the loop and output rows, in pixels, wide enough for their texts.
struct Widths {
    explicit Widths(const QFontMetrics& m)
        : select(m.horizontalAdvance("000") + 6),
          frequency(m.horizontalAdvance("000.000000") + 12),
          actual(m.horizontalAdvance("000.00000    PPM:-0000") + 30),
          dataTitle(m.horizontalAdvance("CPLL[0]") + 4),
          data(m.horizontalAdvance("000.000000 P:000 Q:000") + 30),
          output(m.horizontalAdvance("CLKA") + 6),
          source(m.horizontalAdvance("SPLL/104") + 34),
          desired(m.horizontalAdvance(" 000.00000 kHz") + 4),
          outputActual(m.horizontalAdvance("000.00000") + 34),
          suspend(m.horizontalAdvance("Suspend") * 6 / 5 + 4) {}
    int select, frequency, actual, dataTitle, data, output, source, desired, outputActual;
    int suspend;
};

}  // namespace

QX7311View::QX7311View(frmQX7311& form, Application& app, QWidget* parent, int twipsPerPixelX,
                       int twipsPerPixelY)
    : ConfiguratorView(form, app, parent, twipsPerPixelX, twipsPerPixelY), form_(form), app_(app) {
    QVBoxLayout* root = RootLayout(4, 4);

    // Top row: model, voltage, reference and options; the device and Calculate at the right.
    auto* top = new QHBoxLayout;
    QGroupBox* model = Group("fraModel", this);
    auto* modelLayout = new QVBoxLayout(model);
    modelLayout->addWidget(Option("opt7311", model));
    modelLayout->addWidget(Option("opt7312", model));
    top->addWidget(model);
    top->addWidget(VoltageGroup());
    top->addWidget(ReferenceGroup());
    QGroupBox* options = Group("fraOptions", this);
    auto* optionsLayout = new QVBoxLayout(options);
    optionsLayout->addWidget(Check("chkSuspend", options));
    optionsLayout->addWidget(Check("chkShutdown", options));
    top->addWidget(options);
    AddDeviceAndCalculate(top);
    root->addLayout(top);

    // Two columns: the loops, and the outputs with the limits, the pinout and the power figures.
    auto* columns = new QHBoxLayout;
    columns->setSpacing(8);
    columns->addWidget(LoopsColumn(), 0, Qt::AlignTop);
    auto* right = new QVBoxLayout;
    right->setSpacing(6);
    right->addWidget(OutputsGroup());
    right->addWidget(Limits());
    const QFontMetrics metrics(font());
    QHBoxLayout* chip = PinoutAndPowerRoom(
        3600, 2250, [&form] { form.DisplayPinout(); },
        QSize(metrics.horizontalAdvance("S2:S0  Typical  Worst ") + 16, 12 * metrics.height()));
    right->addLayout(chip);
    right->addStretch();
    columns->addLayout(right);
    columns->addStretch();
    root->addLayout(columns);
    root->addStretch();

    Bind();
    SetFirstField(findChild<QWidget*>("txtCPLL(0)"));
    // Once the document window is shown it takes the room the fields need.
    QMetaObject::invokeMethod(
        this,
        [this] {
            FitDocumentWindow();
            // Figures painted before the view existed were measured without its fonts.
            if (!form_.picPower.DisplayList().empty())
                form_.CalculatePower();
        },
        Qt::QueuedConnection);
}

QX7311View::~QX7311View() = default;

QWidget* QX7311View::LoopsColumn() {
    const Widths w{QFontMetrics(font())};
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);

    // The eight CPLL selections, each with its actual value and its solutions.
    // A loop row: the widget of the first column, then the desired frequency, its actual
    // value, and the title and list of the loop's solutions, each at its column's width.
    const auto loopRow = [this, &w](QGridLayout* grid, int row, QWidget* first, const QString& text,
                                    const QString& actual, const QString& title,
                                    const QString& data, QWidget* parent) {
        const std::array<std::pair<QWidget*, int>, 5> cells = {{
            {first, w.select},
            {Text(text, parent, 9), w.frequency},
            {List(actual, parent, 18), w.actual},
            {Label(title, parent), w.dataTitle},
            {List(data, parent, 20), w.data},
        }};
        for (int c = 0; c < static_cast<int>(cells.size()); ++c) {
            cells[static_cast<size_t>(c)].first->setFixedWidth(cells[static_cast<size_t>(c)].second);
            grid->addWidget(cells[static_cast<size_t>(c)].first, row, c);
        }
    };

    QGroupBox* cpll = Group("fraCPLL", column);
    auto* grid = new QGridLayout(cpll);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(3);
    grid->addWidget(Heading("Desired", cpll), 0, 1);
    grid->addWidget(Heading("Actual", cpll), 0, 2);
    grid->addWidget(Heading("PLL Data", cpll), 0, 3, 1, 2);
    for (int i = 0; i < frmQX7311::kRows; ++i) {
        loopRow(grid, i + 1, Label(Indexed("lblSelect", i), cpll), Indexed("txtCPLL", i),
                Indexed("cboCPLL", i), Indexed("lblCPLLData", i), Indexed("cboCPLLData", i), cpll);
    }
    auto* cpllChecks = new QHBoxLayout;
    cpllChecks->addWidget(Check("chkOffCPLL", cpll));
    cpllChecks->addWidget(Check("chkSuspendCPLL", cpll));
    cpllChecks->addStretch();
    grid->addLayout(cpllChecks, frmQX7311::kRows + 1, 1, 1, 4);
    layout->addWidget(cpll);

    // SPLL and UPLL: one frequency each, with the same columns as the CPLL rows.
    struct Loop {
        const char* frame;
        const char* text;
        const char* actual;
        const char* suspend;
        const char* title;
        const char* data;
    };
    for (const Loop& loop :
         {Loop{"fraSPLL", "txtSPLL", "cboSPLL", "chkSuspendSPLL", "lblSPLLData", "cboSPLLData"},
          Loop{"fraUPLL", "txtUPLL", "cboUPLL", "chkSuspendUPLL", "lblPllData", "cboUPLLData"}}) {
        QGroupBox* group = Group(loop.frame, column);
        auto* row = new QGridLayout(group);
        row->setHorizontalSpacing(6);
        row->setVerticalSpacing(3);
        QCheckBox* suspend = Check(loop.suspend, group);
        row->addWidget(suspend, 0, 0, 1, 5);
        loopRow(row, 1, new QWidget(group), loop.text, loop.actual, loop.title, loop.data, group);
        row->setColumnStretch(5, 1);
        // The row lines up under the CPLL columns; their headings name its fields.
        SetColumnHeading(group->findChild<QWidget*>(loop.text), "Desired");
        SetColumnHeading(group->findChild<QWidget*>(loop.actual), "Actual");
        SetColumnHeading(group->findChild<QWidget*>(loop.data), "PLL Data");
        layout->addWidget(group);
    }
    // The solution lists stand beside the loops they solve rather than in a group of their own.
    return column;
}

QWidget* QX7311View::OutputsGroup() {
    const Widths w{QFontMetrics(font())};
    QGroupBox* group = Group("fraOutputs", this);
    auto* layout = new QVBoxLayout(group);
    layout->setSpacing(3);
    // One grid per block of rows; every block uses the same fixed column widths, so the CLKF
    // and 32K rows line up with the others when the model shows them.
    auto grid = [&w](QWidget* parent) {
        auto* g = new QGridLayout(parent);
        g->setContentsMargins(0, 0, 0, 0);
        g->setHorizontalSpacing(6);
        g->setVerticalSpacing(3);
        g->setColumnMinimumWidth(0, w.output);
        g->setColumnMinimumWidth(1, w.source);
        g->setColumnMinimumWidth(2, w.desired);
        g->setColumnMinimumWidth(3, w.outputActual);
        g->setColumnMinimumWidth(4, w.suspend);
        g->setColumnStretch(5, 1);
        return g;
    };
    auto* main = new QWidget(group);
    QGridLayout* rows = grid(main);
    QLabel* desired = Label("lblOutputDesired", main);
    QLabel* actual = Label("lblOutputActual", main);
    QLabel* suspend = Label("lblOutputSuspend", main);
    for (QLabel* heading : {desired, actual, suspend}) {
        QFont bold = heading->font();
        bold.setBold(true);
        heading->setFont(bold);
    }
    rows->addWidget(desired, 0, 2);
    rows->addWidget(actual, 0, 3);
    rows->addWidget(suspend, 0, 4);
    auto addRow = [&w](QGridLayout* g, int r, QLabel* title, QComboBox* source, QLabel* wanted,
                       QComboBox* got, QCheckBox* box) {
        title->setFixedWidth(w.output);
        g->addWidget(title, r, 0);
        if (source != nullptr) {
            source->setFixedWidth(w.source);
            g->addWidget(source, r, 1);
        }
        wanted->setFixedWidth(w.desired);
        g->addWidget(wanted, r, 2);
        if (got != nullptr) {
            got->setFixedWidth(w.outputActual);
            g->addWidget(got, r, 3);
        }
        if (box != nullptr)
            g->addWidget(box, r, 4, Qt::AlignHCenter);
    };
    addRow(rows, 1, Label("lblCPU", main), List("cboCPU", main, 8), ValueLabel("lblDesiredCPU", main),
           List("cboActualCPU", main, 9), Check("chkSusCPU", main));
    for (int i = 0; i < frmQX7311::kClocks; ++i) {
        addRow(rows, i + 2, Label(Indexed("lblClk", i), main), List(Indexed("cboClk", i), main, 8),
               ValueLabel(Indexed("lblDesiredClk", i), main), List(Indexed("cboActualClk", i), main, 9),
               Check(Indexed("chkSusClk", i), main));
    }
    addRow(rows, 6, Label("lblXBuff", main), List("cboXBuff", main, 8),
           ValueLabel("lblDesiredXBuff", main), List("cboActualXBuff", main, 9),
           Check("chkSusXbuff", main));
    layout->addWidget(main);
    // CLKF and the 32 kHz output exist on the QX7311 models only.
    auto* only7311 = new QWidget(group);
    only7311->setObjectName("pic7311Only");
    QGridLayout* extra = grid(only7311);
    addRow(extra, 0, Label("lblClkF", only7311), List("cboClkF", only7311, 8),
           ValueLabel("lblDesiredClkF", only7311), List("cboActualClkF", only7311, 9),
           Check("chkSusClkF", only7311));
    addRow(extra, 1, Label("lbl32k", only7311), nullptr, ValueLabel("lblDesired32K", only7311), nullptr,
           nullptr);
    layout->addWidget(only7311);
    return group;
}

QWidget* QX7311View::Limits() {
    // Columns: frequency, P and Q, each as minimum and maximum; a row per loop, in the order
    // the die keeps them, and the reference last.
    const char* const headings[] = {"MHz min", "MHz max", "P min", "P max", "Q min", "Q max"};
    return ThreeLoopLimits(
        [&headings](int column, QWidget* group) { return new QLabel(headings[column], group); },
        [](int row) { return Indexed("lblLimit", row); });
}

}  // namespace pendulon
