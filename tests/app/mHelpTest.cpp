#include <gtest/gtest.h>

#include "configurators/QX6105ATestSupport.hpp"
#include "app/mHelp.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {
namespace {

using mHelp::DeviceHintText;
using mHelp::HintText;

TEST(mHelpHintText, ReferenceRangeDependsOnTheDevice) {
    EXPECT_EQ(HintText(1, "QX3350", "10", "25", "1", "50"),
              "Reference Range: 10-25MHz for crystal; 1-50MHz for external.");
    EXPECT_EQ(HintText(1, "QX3350I", "a", "b", "c", "d"),
              "Reference Range: a-bMHz for crystal; c-dMHz for external.");
    EXPECT_EQ(HintText(1, "QX6105A", "10", "25", "1", "50"),
              "Reference Range: 10-25MHz for crystal, 1-30MHz for external clock.");
}

TEST(mHelpHintText, EveryTopicHasItsText) {
    EXPECT_EQ(HintText(2, ""), "Notice CLKD only: option Ref/8 is replaced with Ref/3.");
    EXPECT_EQ(HintText(4, ""), "Any CPU selection can be turned off if it is not needed.");
    EXPECT_EQ(HintText(5, ""), "Note: Suspending a PLL automatically suspends its outputs.");
    EXPECT_EQ(HintText(6, "", "CPLL", "8", "100"), "CPLL Range: 8-100MHz at current voltage.");
    EXPECT_EQ(HintText(11, "", "0.5", "80"), "Clock Range: 0.5-80MHz at current voltage.");
    EXPECT_EQ(HintText(13, ""),
              "Maximum PPM allowed for outputs to be sourced from Reference or from the same "
              "PLL.");
    EXPECT_EQ(HintText(17, ""),
              "Try to optimize the outputs by clicking the Calculate button repeatedly.");
    EXPECT_EQ(HintText(19, "", "0.5"),
              "Minimum PLL frequency is 0.5MHz; minimum P is 1; minimum Q is 1.");
    EXPECT_EQ(HintText(20, ""), "There are no maximums to PLL frequency, P or Q.");
    EXPECT_EQ(HintText(21, "", "B"), "Check to suspend Clock B");
}

TEST(mHelpHintText, TopicsWithoutTextAndOutsideTheRangeAreEmpty) {
    for (int topic : {0, 3, 7, 8, 9, 10, 12, 14, 15, 16, 18, 22, -1}) {
        EXPECT_EQ(HintText(topic, "QX6105A", "a", "b", "c", "d"), "") << topic;
    }
}

TEST(mHelpDeviceHintText, SharedTopicsAndTopicTwoWithoutItsFullStop) {
    EXPECT_EQ(DeviceHintText(1, "QX6105A"),
              "Reference Range: 10-25MHz for crystal, 1-30MHz for external clock.");
    EXPECT_EQ(DeviceHintText(2, "QX7311"), "Notice CLKD only: option Ref/8 is replaced with Ref/3");
    EXPECT_EQ(DeviceHintText(4, "QX7311"), HintText(4, "QX7311"));
    EXPECT_EQ(DeviceHintText(5, "QX7311"), HintText(5, "QX7311"));
    EXPECT_EQ(DeviceHintText(13, "QX7311"), HintText(13, "QX7311"));
}

TEST(mHelpDeviceHintText, PLLRangeByDevice) {
    for (const char* device : {"QX4860", "QX6105A"})
        EXPECT_EQ(DeviceHintText(6, device), "PLL Range: 4-200MHz at 5V, 4-150MHz at 3.3V");
    for (const char* device : {"QX4860I", "QX4860F", "QX6105AI", "QX6105AF"})
        EXPECT_EQ(DeviceHintText(6, device), "PLL Range: 4-160MHz at 5V, 4-120MHz at 3.3V");
}

TEST(mHelpDeviceHintText, LoopRangesOfTheThreeLoopDevices) {
    EXPECT_EQ(DeviceHintText(7, "QX7311"), "CPLL Range: 8-100MHz at 5V, 8-80MHz at 3.3V");
    EXPECT_EQ(DeviceHintText(8, "QX7312"), "UPLL Range: 8-100MHz at 5V, 8-80MHz at 3.3V");
    EXPECT_EQ(DeviceHintText(9, "QX7311F"), "SPLL Range: 8-90MHz at 5V, 8-66.66667MHz at 3.3V");
    EXPECT_EQ(DeviceHintText(7, "QX7312I"), "CPLL Range: 8-90MHz at 5V, 8-66.66667MHz at 3.3V");
}

TEST(mHelpDeviceHintText, FixedTopics) {
    EXPECT_EQ(DeviceHintText(10, "QX6105A"),
              "Smooth slew: frequency changes smoothly and monotonically.");
    EXPECT_EQ(DeviceHintText(11, "QX7311"), "CLK Range: 0.5-100MHz at 5V, 0.5-80MHz at 3.3V");
}

TEST(mHelpDeviceHintText, OutputRangeByDevice) {
    for (const char* device : {"QX6105A", "QX4860"})
        EXPECT_EQ(DeviceHintText(12, device), "Output Range: 0.5-130MHz at 5V, 0.5-100MHz at 3.3V");
    for (const char* device : {"QX6105AF", "QX6105AI", "QX7311", "QX7312", "QX4860I", "QX4860F"})
        EXPECT_EQ(DeviceHintText(12, device), "Output Range: 0.5-100MHz at 5V, 0.5-80MHz at 3.3V");
    for (const char* device : {"QX7311F", "QX7311I", "QX7312F", "QX7312I"})
        EXPECT_EQ(DeviceHintText(12, device), "Output Range: 0.5-90MHz at 5V, 0.5-66.6MHz at 3.3V");
}

TEST(mHelpDeviceHintText, OptimizeHintOnlyForTheQX5140) {
    EXPECT_EQ(DeviceHintText(17, "QX5140"),
              "Try optimizing the outputs by clicking the Calculate button repeatedly.");
    EXPECT_EQ(DeviceHintText(17, "QX7311"), "");
    EXPECT_EQ(DeviceHintText(3, "QX5140"), "");
    EXPECT_EQ(DeviceHintText(22, "QX5140"), "");
}

TEST(mHelpShow, HintsGoToTheMainWindowsHintLine) {
    testing::QX6105ADocument doc("QX6105AF");
    mHelp::ShowDeviceHint(12, doc.Form());
    EXPECT_EQ(doc.app->Main().lblHelpInfo.Caption(),
              " Output Range: 0.5-100MHz at 5V, 0.5-80MHz at 3.3V");
    mHelp::ShowHint(0, doc.Form());
    EXPECT_EQ(doc.app->Main().lblHelpInfo.Caption(), "");
}

}  // namespace
}  // namespace pendulon
