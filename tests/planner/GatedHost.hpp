#pragma once
#include <future>
#include <memory>

#include "shell/ShellPlannerHost.hpp"

namespace pendulon::test {

// The program's own planner host, whose runs wait at their start until the test lets them go:
// a plan that is still running when the test looks at it.
class GatedHost : public ShellPlannerHost {
  public:
    std::unique_ptr<AppServices> StartRun(PlatformServices& platform) const override {
        gate_.wait();
        return ShellPlannerHost::StartRun(platform);
    }
    void Open() { opener_.set_value(); }

  private:
    std::promise<void> opener_;
    std::shared_future<void> gate_ = opener_.get_future().share();
};

}  // namespace pendulon::test
