#pragma once
#include <QPointer>

#include "desktop/ConfiguratorView.hpp"

namespace pendulon {

class frmQX4860;

// The document window of the QX4860 family. The frequency rows sit on one panel, each row with
// its outputs and its loop's solutions, four rows at a time; the form moves the panel as its
// scroll bar moves, and the view follows.
class QX4860View : public ConfiguratorView {
    Q_OBJECT
  public:
    QX4860View(frmQX4860& form, Application& app, QWidget* parent = nullptr,
               int twipsPerPixelX = 15, int twipsPerPixelY = 15);
    ~QX4860View() override;

    QWidget* RowPanel() const { return rowPanel_; }

  protected:
    // A row that Tab reaches below or above the four in sight scrolls in, by the form's bar.
    void BringIntoSight(QWidget* field) override;

  private:
    void FollowPanels();

    frmQX4860& form_;
    int twipsPerPixelY_;
    QPointer<QWidget> rowPanel_;
    int outputObserver_ = 0;
};

}  // namespace pendulon
