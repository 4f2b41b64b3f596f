#pragma once
#include "platform/PictureBox.hpp"
#include "platform/Window.hpp"

namespace pendulon {

class Application;

// The start-up picture. Its timer is an interval the view runs; a tick unloads the window.
class frmSplash : public Window {
  public:
    static constexpr int kIntervalMilliseconds = 2000;

    explicit frmSplash(Application& app);

    PictureBox picSplash;
    // tmrSplash: the view fires Tick once the interval has passed while it is enabled.
    int tmrSplashInterval = kIntervalMilliseconds;
    bool tmrSplashEnabled = false;

    void Form_Load();
    void tmrSplash_Timer();
    // A request to close the window unloads it too.
    void Form_QueryUnload();
    bool Unloaded() const { return unloaded_; }

  private:
    void Unload();
    bool unloaded_ = false;
};

}  // namespace pendulon
