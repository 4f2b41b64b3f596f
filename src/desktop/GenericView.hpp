#pragma once
#include <QWidget>

namespace pendulon {

class Binder;
class Window;

// A plain view of any window: one row per field, each widget named as its field and bound.
// Serves windows that have no view of their own yet.
class GenericView : public QWidget {
    Q_OBJECT
  public:
    GenericView(Window& window, QWidget* parent = nullptr, int twipsPerPixelX = 15,
                int twipsPerPixelY = 15);
    Binder& GetBinder() const { return *binder_; }

  private:
    Binder* binder_;
};

}  // namespace pendulon
