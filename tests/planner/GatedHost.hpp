#pragma once
#include <future>

#include "shell/ShellPlannerHost.hpp"

namespace pendulon::test {

// The program's own planner host, whose runs wait at their start until the test lets them go:
// a plan that is still running when the test looks at it.
class GatedHost : public ShellPlannerHost {
  public:
    void StartRun(Application& app) const override {
        gate_.wait();
        ShellPlannerHost::StartRun(app);
    }
    void Open() { opener_.set_value(); }

  private:
    std::promise<void> opener_;
    std::shared_future<void> gate_ = opener_.get_future().share();
};

}  // namespace pendulon::test
