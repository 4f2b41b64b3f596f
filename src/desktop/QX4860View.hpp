#pragma once
#include <QPointer>

#include "desktop/ConfiguratorView.hpp"

namespace pendulon {

class frmQX4860;

// The document window of the QX4860 family. The frequency rows sit on two panels, outputs and
// loop data, four rows at a time; the form moves the panels as its scroll bars move, and the
// view follows.
class QX4860View : public ConfiguratorView {
    Q_OBJECT
  public:
    QX4860View(frmQX4860& form, Application& app, QWidget* parent = nullptr,
               int twipsPerPixelX = 15, int twipsPerPixelY = 15);
    ~QX4860View() override;

    QWidget* OutputPanel() const { return outputPanel_; }
    QWidget* PLLDataPanel() const { return pllPanel_; }

  private:
    void FollowPanels();

    frmQX4860& form_;
    int twipsPerPixelY_;
    QPointer<QWidget> outputPanel_;
    QPointer<QWidget> pllPanel_;
    int outputObserver_ = 0;
    int pllObserver_ = 0;
};

}  // namespace pendulon
