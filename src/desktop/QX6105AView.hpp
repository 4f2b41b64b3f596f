#pragma once
#include "desktop/ConfiguratorView.hpp"

namespace pendulon {

class frmQX6105A;

// The document window of the QX6105A family: pin 8, voltage, reference and option on top; the
// two loop states and the six outputs; the limits; the pinout and Calculate.
class QX6105AView : public ConfiguratorView {
    Q_OBJECT
  public:
    QX6105AView(frmQX6105A& form, Application& app, QWidget* parent = nullptr,
                int twipsPerPixelX = 15, int twipsPerPixelY = 15);
};

}  // namespace pendulon
