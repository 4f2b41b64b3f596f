#pragma once
#include <QString>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QWidget;

namespace pendulon {

class PictureBox;
class PictureView;

// Makes the widgets of a view, each named as the field it shows, ready for the binder.
class ViewBuilder {
  public:
    explicit ViewBuilder(QWidget* parent, int twipsPerPixelX = 15, int twipsPerPixelY = 15)
        : parent_(parent), twipsPerPixelX_(twipsPerPixelX), twipsPerPixelY_(twipsPerPixelY) {}

    QLabel* Label(const QString& name) const;
    QLineEdit* Text(const QString& name) const;
    QCheckBox* Check(const QString& name) const;
    QRadioButton* Option(const QString& name) const;
    QPushButton* Button(const QString& name) const;
    QGroupBox* Frame(const QString& name) const;
    // A picture at its own size.
    PictureView* Picture(PictureBox& picture) const;

  private:
    QWidget* parent_;
    int twipsPerPixelX_;
    int twipsPerPixelY_;
};

}  // namespace pendulon
