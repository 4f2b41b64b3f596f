#pragma once
#include <QDialog>
#include <memory>
#include <string>
#include <vector>

#include "shell/ShellPlannerHost.hpp"

class QLabel;
class QListWidget;
class QMainWindow;
class QProgressBar;
class QScrollArea;
class QTableWidget;
class QTimer;

namespace pendulon {

class Application;
class Binder;
class PlannerHost;
class frmPlanner;

// The frequency planner's window: a dialog beside the main window, not modal, whose widgets are
// bound to a frmPlanner by name. While a plan runs on its threads a timer brings its progress
// and results into the model; the window stays usable and Stop ends the plan.
class PlannerDialog : public QDialog {
    Q_OBJECT
  public:
    // host is the program's own unless a test gives another.
    PlannerDialog(Application& app, QWidget* parent, const PlannerHost* host = nullptr);
    ~PlannerDialog() override;

    frmPlanner& Model() { return *model_; }
    // Shows the window, its plan and results as the user left them, and gives it the keyboard.
    void ShowPlanner();

    // The widgets that are more than a field each.
    QListWidget* OutputList() const { return outputs_; }
    QTableWidget* ResultTable() const { return results_; }
    QProgressBar* ProgressBar() const { return progress_; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BuildView();
    void FitToScreen();
    void ShowOutputs();
    void ShowResults();
    void OnTimer();

    Application& app_;
    ShellPlannerHost host_;
    std::unique_ptr<frmPlanner> model_;
    Binder* binder_ = nullptr;
    QListWidget* outputs_ = nullptr;
    QTableWidget* results_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QTimer* timer_ = nullptr;
    QWidget* content_ = nullptr;
    QScrollArea* scroll_ = nullptr;
    bool sized_ = false;
    // The rows of the result table as last shown, to build it again only when they change.
    std::vector<std::string> rowsShown_;
    bool updating_ = false;
};

// Tools, Frequency Planner... of the main window opens the planner's window, one for the run.
void ConnectPlannerDialog(Application& app, QMainWindow& window);

}  // namespace pendulon
