#include <gtest/gtest.h>

#include <atomic>
#include <string>

#include "planner/PlannerTestSupport.hpp"
#include "planner/clsFrequencyPlanner.hpp"
#include "platform/TextMetrics.hpp"
#include "shell/ShellPlannerHost.hpp"

namespace pendulon {
namespace {

// The screen's measurer of a front end with real fonts, counting the texts it is asked about.
class CountingMetrics : public TextMetrics {
  public:
    double TextWidth(const FontSpec& font, std::string_view text) const override {
        ++calls;
        return HeadlessTextMetrics::Instance().TextWidth(font, text);
    }
    double TextHeight(const FontSpec& font, std::string_view text) const override {
        ++calls;
        return HeadlessTextMetrics::Instance().TextHeight(font, text);
    }
    mutable std::atomic<int> calls{0};
};

// The planner's windows are seen by nobody: their pin-out drawings are measured as the headless
// platform measures, on the planner's threads, and never ask the screen's fonts (which belong to
// the front end's thread, and are slow to ask).
TEST(PlannerRun, ItsWindowsNeverMeasureWithTheScreensFonts) {
    CountingMetrics screen;
    SetScreenTextMetrics(&screen);
    struct Reset {
        ~Reset() { SetScreenTextMetrics(nullptr); }
    } reset;
    const ShellPlannerHost host;
    const auto results =
        clsFrequencyPlanner::Run(host, test::MakePlan(14.31818, 3.3, {33.333, 48, 24.576}), 2);
    EXPECT_EQ(results.size(), 15u);
    EXPECT_EQ(screen.calls.load(), 0);
}

}  // namespace
}  // namespace pendulon
