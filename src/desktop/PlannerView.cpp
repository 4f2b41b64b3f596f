#include "desktop/PlannerView.hpp"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "core/Numbers.hpp"
#include "desktop/Binder.hpp"
#include "planner/frmPlanner.hpp"
#include "planner/mPlanText.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {

namespace {

QString Q(const std::string& text) {
    return QString::fromStdString(text);
}

// Columns of the result table, and the order of cboSortBy each one sorts by.
struct Column {
    const char* head;
    int sortBy;
};
const Column kColumns[] = {{"Rank", frmPlanner::kByRank},
                           {"Device", frmPlanner::kByDevice},
                           {"Pins", frmPlanner::kByPins},
                           {"Worst ppm", frmPlanner::kByWorstPPM},
                           {"Typical mA", frmPlanner::kByCurrent},
                           {"Worst mA", frmPlanner::kByCurrent},
                           {"Reference, or why not", frmPlanner::kByRank}};

// A label that names the field behind it; Alt and its underlined letter go to that field.
QLabel* Buddy(const std::string& caption, QWidget* field, QWidget* parent) {
    auto* label = new QLabel(Q(caption), parent);
    label->setBuddy(field);
    return label;
}

template <class T>
T* Named(T* widget, const std::string& name) {
    widget->setObjectName(Q(name));
    return widget;
}

QPushButton* Button(const std::string& name, QWidget* parent) {
    auto* button = Named(new QPushButton(parent), name);
    button->setAutoDefault(false);
    return button;
}

}  // namespace

PlannerDialog::PlannerDialog(Application& app, QWidget* parent, const PlannerHost* host)
    : QDialog(parent),
      app_(app),
      model_(std::make_unique<frmPlanner>(app, host != nullptr ? *host : host_)) {
    setObjectName("frmPlanner");
    setModal(false);
    setWindowTitle(Q(model_->Caption()));
    model_->Form_Load();
    BuildView();
    timer_ = new QTimer(this);
    timer_->setInterval(50);
    connect(timer_, &QTimer::timeout, this, [this] { OnTimer(); });
    // A press on Plan starts threads; the timer watches them until they end.
    model_->cmdPlan.AddObserver([this](Field& plan) {
        if (!plan.Enabled() && !timer_->isActive())
            timer_->start();
    });
    model_->AddObserver([this](Window& window) {
        if (!window.Visible() && isVisible())
            hide();
    });
}

PlannerDialog::~PlannerDialog() {
    // The view goes before the model it shows, and the model stops its plan.
    delete binder_;
    binder_ = nullptr;
    model_.reset();
}

void PlannerDialog::BuildView() {
    frmPlanner& m = *model_;
    // The window scrolls where the screen is smaller than the window would be.
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    outer->addWidget(scroll);
    auto* content = new QWidget(scroll);
    scroll->setWidget(content);
    auto* layout = new QVBoxLayout(content);

    // The plan.
    auto* plan = Named(new QGroupBox(content), "fraPlan");
    auto* planLayout = new QGridLayout(plan);
    auto* reference = Named(new QComboBox(plan), "cboReference");
    planLayout->addWidget(Buddy(m.lblReference.Caption(), reference, plan), 0, 0);
    planLayout->addWidget(reference, 0, 1);
    auto* voltage = Named(new QGroupBox(plan), "fraVoltage");
    auto* voltageLayout = new QHBoxLayout(voltage);
    voltageLayout->addWidget(Named(new QRadioButton(voltage), "opt3V"));
    voltageLayout->addWidget(Named(new QRadioButton(voltage), "opt5V"));
    planLayout->addWidget(voltage, 0, 2, 2, 1);
    auto* tolerance = Named(new QLineEdit(plan), "txtTolerance");
    tolerance->setMinimumWidth(tolerance->fontMetrics().horizontalAdvance("0000000") + 12);
    planLayout->addWidget(Buddy(m.lblTolerance.Caption(), tolerance, plan), 1, 0);
    auto* toleranceRow = new QHBoxLayout;
    toleranceRow->addWidget(tolerance);
    toleranceRow->addWidget(Named(new QLabel(plan), "lblToleranceUnit"));
    planLayout->addLayout(toleranceRow, 1, 1);
    auto* pins = Named(new QComboBox(plan), "cboPins");
    planLayout->addWidget(Buddy(m.lblPins.Caption(), pins, plan), 2, 0);
    planLayout->addWidget(pins, 2, 1);

    auto* wanted = Named(new QGroupBox(plan), "fraOutputs");
    auto* wantedLayout = new QGridLayout(wanted);
    auto* output = Named(new QLineEdit(wanted), "txtOutput");
    wantedLayout->addWidget(Buddy(m.lblOutput.Caption(), output, wanted), 0, 0);
    wantedLayout->addWidget(output, 0, 1);
    wantedLayout->addWidget(Button("cmdAddOutput", wanted), 0, 2);
    outputs_ = Named(new QListWidget(wanted), "lstOutputs");
    outputs_->setMaximumHeight(120);
    wantedLayout->addWidget(outputs_, 1, 0, 1, 2);
    auto* remove = Button("cmdRemoveOutput", wanted);
    wantedLayout->addWidget(remove, 1, 2, Qt::AlignTop);
    planLayout->addWidget(wanted, 3, 0, 1, 3);

    auto* devices = Named(new QGroupBox(plan), "fraDevices");
    auto* deviceLayout = new QGridLayout(devices);
    for (int i = 0; i < m.chkDevice.Count(); ++i)
        deviceLayout->addWidget(Named(new QCheckBox(devices), m.chkDevice[i].Name()), i / 5, i % 5);
    planLayout->addWidget(devices, 4, 0, 1, 3);

    auto* run = new QHBoxLayout;
    auto* start = Button("cmdPlan", plan);
    start->setDefault(true);
    run->addWidget(start);
    run->addWidget(Button("cmdCancelPlan", plan));
    auto* progress = Named(new QGroupBox(plan), "fraProgress");
    auto* progressLayout = new QHBoxLayout(progress);
    progress_ = new QProgressBar(progress);
    progress_->setObjectName("prgPlan");
    progressLayout->addWidget(progress_);
    progressLayout->addWidget(Named(new QLabel(progress), "lblProgress"));
    run->addWidget(progress, 3);
    run->addStretch(1);
    planLayout->addLayout(run, 5, 0, 1, 3);
    layout->addWidget(plan);

    // The results.
    auto* found = Named(new QGroupBox(content), "fraResults");
    auto* foundLayout = new QVBoxLayout(found);
    auto* sortRow = new QHBoxLayout;
    auto* sortBy = Named(new QComboBox(found), "cboSortBy");
    sortRow->addWidget(Buddy(m.lblSortBy.Caption(), sortBy, found));
    sortRow->addWidget(sortBy);
    sortRow->addStretch(1);
    foundLayout->addLayout(sortRow);
    results_ = Named(new QTableWidget(0, int(std::size(kColumns)), found), "lstResults");
    QStringList heads;
    for (const Column& column : kColumns) heads << column.head;
    results_->setHorizontalHeaderLabels(heads);
    results_->verticalHeader()->setVisible(false);
    results_->verticalHeader()->setDefaultSectionSize(results_->fontMetrics().height() + 6);
    results_->setSelectionBehavior(QAbstractItemView::SelectRows);
    results_->setSelectionMode(QAbstractItemView::SingleSelection);
    results_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    results_->horizontalHeader()->setStretchLastSection(true);
    results_->horizontalHeader()->setSectionsClickable(true);
    results_->setTabKeyNavigation(false);
    results_->setMinimumHeight(200);
    foundLayout->addWidget(results_, 1);
    auto* details = Named(new QPlainTextEdit(found), "txtDetails");
    details->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    details->setLineWrapMode(QPlainTextEdit::NoWrap);
    details->setMinimumHeight(150);
    foundLayout->addWidget(details, 1);
    layout->addWidget(found, 1);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(Named(new QLabel(content), "lblStatus"), 1);
    bottom->addWidget(Button("cmdOpen", content));
    bottom->addWidget(Button("cmdClose", content));
    layout->addLayout(bottom);

    binder_ =
        new Binder(m, this, app_.Services().TwipsPerPixelX(), app_.Services().TwipsPerPixelY());

    // The list of wanted outputs and the result table follow their fields both ways.
    m.lstOutputs.AddObserver([this](Field&) { ShowOutputs(); });
    connect(outputs_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (!updating_ && row >= 0)
            model_->lstOutputs.SetListIndex(row);
    });
    outputs_->installEventFilter(this);
    m.lstResults.AddObserver([this](Field&) { ShowResults(); });
    connect(results_, &QTableWidget::currentCellChanged, this, [this](int row, int, int, int) {
        if (!updating_ && row >= 0)
            model_->lstResults.SetListIndex(row);
    });
    connect(results_, &QTableWidget::cellDoubleClicked, this,
            [this](int, int) { model_->lstResults.RaiseDblClick(); });
    results_->installEventFilter(this);
    connect(results_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int section) {
        model_->cboSortBy.SetListIndex(kColumns[section].sortBy);
        binder_->UpdateWidget(model_->cboSortBy);
    });
    m.cboSortBy.AddObserver([this](Field&) { ShowResults(); });
    ShowOutputs();
    ShowResults();
    // Tab goes through the plan, then the results, then the buttons.
    setTabOrder(reference, tolerance);
    content_ = content;
    scroll_ = scroll;
}

void PlannerDialog::FitToScreen() {
    // Whole where the screen has room, else at most nine tenths of its work area; measured once
    // the window is shown, when its widgets have their style.
    content_->layout()->activate();
    QSize size =
        content_->sizeHint() + QSize(scroll_->verticalScrollBar()->sizeHint().width() + 4, 4);
    // Room for the result table's columns once it has rows.
    size.setWidth(std::max(size.width(), results_->fontMetrics().horizontalAdvance('0') * 110));
    const QScreen* room = screen();
    if (room == nullptr) {
        resize(size);
        return;
    }
    const QRect area = room->availableGeometry();
    size = size.boundedTo(QSize(area.width() * 9 / 10, area.height() * 9 / 10));
    resize(size);
    // Centred on the main window as a dialog opens, and moved wholly into the work area: the
    // window grew after it was placed for its first size.
    QRect frame(QPoint(0, 0), size);
    frame.moveCenter(parentWidget() != nullptr ? parentWidget()->frameGeometry().center()
                                               : area.center());
    frame.moveLeft(std::clamp(frame.left(), area.left(), area.right() + 1 - frame.width()));
    frame.moveTop(std::clamp(frame.top(), area.top(), area.bottom() + 1 - frame.height()));
    move(frame.topLeft());
}

void PlannerDialog::ShowPlanner() {
    model_->SetVisible(true);
    show();
    if (!sized_) {
        FitToScreen();
        sized_ = true;
    }
    raise();
    activateWindow();
}

void PlannerDialog::ShowOutputs() {
    updating_ = true;
    const ListField& list = model_->lstOutputs;
    QStringList items;
    for (const std::string& item : list.Items()) items << Q(item);
    QStringList shown;
    for (int i = 0; i < outputs_->count(); ++i) shown << outputs_->item(i)->text();
    if (shown != items) {
        outputs_->clear();
        outputs_->addItems(items);
    }
    if (outputs_->currentRow() != list.ListIndex())
        outputs_->setCurrentRow(list.ListIndex());
    updating_ = false;
}

void PlannerDialog::ShowResults() {
    updating_ = true;
    const std::vector<clsPlanResult>& shown = model_->Results();
    const ListField& rows = model_->lstResults;
    if (rows.Items() != rowsShown_) {
        rowsShown_ = rows.Items();
        results_->setRowCount(int(shown.size()));
        for (int row = 0; row < int(shown.size()); ++row) {
            const clsPlanResult& r = shown[size_t(row)];
            QStringList cells;
            if (r.blnServes) {
                // The rank is the planner's, in whatever order the rows stand.
                cells << Q(rows.List(row).substr(0, 4)).trimmed() << Q(r.strDevice)
                      << QString::number(r.intPins) << QString::number(r.lngWorstPPM)
                      << (r.blnHasCurrent ? Q(mPlanText::Milliamperes(r.dblTypicalCurrent)) : "n/a")
                      << (r.blnHasCurrent ? Q(mPlanText::Milliamperes(r.dblWorstCurrent)) : "n/a")
                      << Q(GeneralNumber(r.dblReference) + " MHz");
            } else {
                cells << "" << Q(r.strDevice) << ""
                      << ""
                      << ""
                      << "" << Q("does not serve: " + r.strReason);
            }
            for (int column = 0; column < cells.size(); ++column) {
                auto* item = new QTableWidgetItem(cells[column]);
                if (column != 1 && column != 6)
                    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
                // A reason too long for its column is shown whole under the pointer.
                if (column == 6)
                    item->setToolTip(cells[column]);
                results_->setItem(row, column, item);
            }
        }
        results_->resizeColumnsToContents();
    }
    const int selected = rows.ListIndex();
    if (results_->currentRow() != selected)
        results_->setCurrentCell(selected, 0);
    const int sortBy = model_->cboSortBy.ListIndex();
    for (int column = 0; column < int(std::size(kColumns)) - 1; ++column) {
        if (kColumns[column].sortBy == sortBy) {
            results_->horizontalHeader()->setSortIndicatorShown(true);
            results_->horizontalHeader()->setSortIndicator(column, Qt::AscendingOrder);
            break;
        }
    }
    updating_ = false;
}

void PlannerDialog::OnTimer() {
    model_->Poll();
    progress_->setMaximum(int(std::max<size_t>(1, model_->DeviceCount())));
    progress_->setValue(int(model_->DevicesDone()));
    if (!model_->Planning()) {
        timer_->stop();
        // The results have the keyboard once they stand.
        if (model_->lstResults.ListCount() > 0)
            results_->setFocus(Qt::OtherFocusReason);
    }
}

void PlannerDialog::closeEvent(QCloseEvent* event) {
    // The window's close is its Close: a running plan stops, the window hides.
    model_->cmdClose_Click();
    event->accept();
}

bool PlannerDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (watched == outputs_ && key == Qt::Key_Delete && model_->cmdRemoveOutput.Enabled()) {
            model_->cmdRemoveOutput_Click();
            return true;
        }
        if (watched == results_ && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            model_->lstResults.RaiseDblClick();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void ConnectPlannerDialog(Application& app, QMainWindow& window) {
    auto dialog = std::make_shared<QPointer<PlannerDialog>>();
    app.Main().ShowFrequencyPlanner = [&app, &window, dialog] {
        if (dialog->isNull())
            *dialog = new PlannerDialog(app, &window);
        (*dialog)->ShowPlanner();
    };
    // The window goes before the program's model: the menu then has no window to open.
    QObject::connect(&window, &QObject::destroyed,
                     [&app] { app.Main().ShowFrequencyPlanner = nullptr; });
}

}  // namespace pendulon
