#pragma once
#include "desktop/ConfiguratorView.hpp"

namespace pendulon {

class frmQX5140;

// The document window of the QX5140, laid out as the engineer works: pin 8, voltage, reference
// and sensitivity on top; the three outputs with their desired and actual frequencies, suspend
// and private-loop checks, and beside them the PLL assignment of the case on show; the loops'
// solutions and suspend; then the limits, the pinout and the power figures.
class QX5140View : public ConfiguratorView {
    Q_OBJECT
  public:
    QX5140View(frmQX5140& form, Application& app, QWidget* parent = nullptr,
               int twipsPerPixelX = 15, int twipsPerPixelY = 15);
    ~QX5140View() override;

  private:
    QWidget* TopRow();
    QWidget* OutputsGroup();
    QWidget* AssignmentGroup();
    QWidget* LoopsGroup();
    QWidget* Limits();

    frmQX5140& form_;
    int suspendHeadingObserver_ = 0;
};

}  // namespace pendulon
