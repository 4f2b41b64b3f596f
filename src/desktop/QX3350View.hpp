#pragma once
#include "desktop/ConfiguratorView.hpp"

class QWidget;

namespace pendulon {

class frmQX3350;

// The document window of the QX3350 and QX3350I: clock source, reference, voltage, output level
// and package on top; the VCO frequency, its solutions and the one output; pin 4 and the
// synchronous option; the limits; the pinout, the power note and Calculate.
class QX3350View : public ConfiguratorView {
    Q_OBJECT
  public:
    QX3350View(frmQX3350& form, Application& app, QWidget* parent = nullptr,
               int twipsPerPixelX = 15, int twipsPerPixelY = 15);

    // The place in the layout that the floating power panel starts on.
    QWidget* PowerPlace() const { return powerPlace_; }

  private:
    QWidget* powerPlace_ = nullptr;
};

}  // namespace pendulon
