#pragma once
#include "desktop/ConfiguratorView.hpp"

namespace pendulon {

class frmQX7311;

// The document window of the QX7311 family, laid out as an engineer reads the chip: the loops
// on the left (the eight CPLL selections, SPLL and UPLL, each with its actual value and its
// solution list), the outputs and the limits in the middle, the pinout and the power figures
// on the right.
class QX7311View : public ConfiguratorView {
    Q_OBJECT
  public:
    QX7311View(frmQX7311& form, Application& app, QWidget* parent = nullptr,
               int twipsPerPixelX = 15, int twipsPerPixelY = 15);
    ~QX7311View() override;

  private:
    QWidget* LoopsColumn();
    QWidget* OutputsGroup();
    QWidget* Limits();

    frmQX7311& form_;
    Application& app_;
};

}  // namespace pendulon
