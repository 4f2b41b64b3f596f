#pragma once
#include <QPoint>

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

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    // Puts the power panel on its place in the layout, where the note stands.
    void PlacePowerPanel();

    frmQX3350& form_;
    QWidget* powerPlace_ = nullptr;
    QPoint placed_;  // where the panel was put, in twips
    int twipsPerPixelX_;
    int twipsPerPixelY_;
};

}  // namespace pendulon
