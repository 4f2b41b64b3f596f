#pragma once
#include <QPointer>

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

    // The free place the power panel takes when no position of its own has been saved.
    QWidget* PowerSlot() const { return powerSlot_; }

  private:
    QWidget* LoopsColumn();
    QWidget* OutputsGroup();
    QWidget* Limits();
    // The first time the power figures are painted, a place over one of the groups gives way
    // to the free place beside the pinout.
    void PlacePowerPanel();
    void SetTabOrder();

    frmQX7311& form_;
    Application& app_;
    int twipsPerPixelX_;
    int twipsPerPixelY_;
    QPointer<QWidget> powerSlot_;
    bool powerPlaced_ = false;
    int powerObserver_ = 0;
};

}  // namespace pendulon
