#include <gtest/gtest.h>

#include <thread>

#include "platform/TextMetrics.hpp"

namespace pendulon {
namespace {

// A measurer that gives every text the same size, to tell it from the others.
class FixedMetrics : public TextMetrics {
  public:
    explicit FixedMetrics(double size) : size_(size) {}
    double TextWidth(const FontSpec&, std::string_view) const override { return size_; }
    double TextHeight(const FontSpec&, std::string_view) const override { return size_; }

  private:
    double size_;
};

struct ScreenMetricsReset {
    ~ScreenMetricsReset() { SetScreenTextMetrics(nullptr); }
};

TEST(ThreadTextMetrics, MeasuresForItsOwnThreadOnlyAndGivesBackWhatWasBefore) {
    const ScreenMetricsReset reset;
    const FixedMetrics screen(1), inner(2), innermost(3);
    SetScreenTextMetrics(&screen);
    const FontSpec font;
    EXPECT_EQ(ScreenTextMetrics().TextWidth(font, "x"), 1);
    {
        const ThreadTextMetrics thread(inner);
        EXPECT_EQ(ScreenTextMetrics().TextWidth(font, "x"), 2);
        {
            const ThreadTextMetrics nested(innermost);
            EXPECT_EQ(ScreenTextMetrics().TextHeight(font, "x"), 3);
        }
        EXPECT_EQ(ScreenTextMetrics().TextWidth(font, "x"), 2);
        // Another thread still measures with the screen's.
        double other = 0;
        std::thread([&] { other = ScreenTextMetrics().TextWidth(font, "x"); }).join();
        EXPECT_EQ(other, 1);
    }
    EXPECT_EQ(ScreenTextMetrics().TextWidth(font, "x"), 1);
    SetScreenTextMetrics(nullptr);
    EXPECT_EQ(&ScreenTextMetrics(), &HeadlessTextMetrics::Instance());
}

}  // namespace
}  // namespace pendulon
