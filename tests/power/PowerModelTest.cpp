#include <gtest/gtest.h>

#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "power/clsPower4860.hpp"
#include "power/clsPower7311.hpp"

namespace pendulon {
namespace {

class PowerModelTest : public ::testing::Test {
  protected:
    HeadlessPlatform platform;
    ErrorReport errors{platform, [] { return std::string("Pendulon(tm)"); }};
};

TEST_F(PowerModelTest, Power7311IdleAtFiveVoltsIsIdleCurrentTimesSupply) {
    clsPower7311 power(errors);
    EXPECT_DOUBLE_EQ(power.GetIDD(1), 13.0);  // 2.6 x 5.0
    EXPECT_DOUBLE_EQ(power.GetIDD(0), 14.3);  // 2.6 x 5.5
    power.SetVDD(5.0);
    EXPECT_DOUBLE_EQ(power.GetIDD(1), 13.0);
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(PowerModelTest, Power7311IdleAtThreeVoltsUsesFourVoltsWorst) {
    clsPower7311 power(errors);
    power.SetVDD(3.3);
    EXPECT_DOUBLE_EQ(power.GetIDD(1), 1.8 * 3.3);
    EXPECT_DOUBLE_EQ(power.GetIDD(0), 1.8 * 4.0);
}

TEST_F(PowerModelTest, Power7311WithFrequenciesAtFiveVolts) {
    clsPower7311 power(errors);
    power.mdblCPLL = 100;
    power.mdblSPLL = 50;
    power.mdblUPLL = 50;
    power.mdblCPU = 25;
    power.mdblClockA = 25;
    power.mdblXBuff = 14.318;
    // Typical: (2.6 + 0.011 x 200 + 18 x 0.0017 x 64.318) x 5.0
    //        = (2.6 + 2.2 + 1.9681308) x 5 = 33.840654
    EXPECT_NEAR(power.GetIDD(1), 33.840654, 1e-9);
    // Worst: (2.6 + 2.2 + 30 x 0.0017 x 64.318) x 5.5 = (4.8 + 3.280218) x 5.5 = 44.441199
    EXPECT_NEAR(power.GetIDD(0), 44.441199, 1e-9);
}

TEST_F(PowerModelTest, Power7311WorstAlwaysAboveTypical) {
    clsPower7311 power(errors);
    for (double vdd : {3.3, 5.0}) {
        power.SetVDD(vdd);
        for (double f : {0.0, 1.0, 33.0, 200.0}) {
            power.mdblCPLL = f;
            power.mdblClockB = f / 2;
            EXPECT_GT(power.GetIDD(0), power.GetIDD(1)) << vdd << " " << f;
        }
    }
}

TEST_F(PowerModelTest, Power7311InvalidCaseReportsAndGivesTheFloorOfOne) {
    clsPower7311 power(errors);
    EXPECT_DOUBLE_EQ(power.GetIDD(2), 1.0);
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(platform.Messages()[0].Text,
              ErrorReport::Text(10401, "clsPower7311.GetIDD", "Invalid case: 2"));
}

TEST_F(PowerModelTest, Power7311InvalidSupplyIsRefusedAndKeepsTheConstants) {
    clsPower7311 power(errors);
    power.SetVDD(3.3);
    power.SetVDD(4.5);
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(platform.Messages()[0].Text,
              ErrorReport::Text(10402, "clsPower7311.VDD [Property Let]", "Invalid VDD: 4.5"));
    EXPECT_DOUBLE_EQ(power.GetIDD(1), 1.8 * 3.3);
}

TEST_F(PowerModelTest, Power4860IdleIsBaseCurrentTimesSupply) {
    clsPower4860 power(errors);
    EXPECT_DOUBLE_EQ(power.CalculateICC(1), 11.25);   // 2.25 x 5.0
    EXPECT_DOUBLE_EQ(power.CalculateICC(0), 12.375);  // 2.25 x 5.5
    power.SetVDD(3.3);
    EXPECT_DOUBLE_EQ(power.CalculateICC(0), 9.0);  // 2.25 x 4.0
    EXPECT_DOUBLE_EQ(power.CalculateICC(1), 2.25 * 3.3);
}

TEST_F(PowerModelTest, Power4860WithFrequencies) {
    clsPower4860 power(errors);
    power.SetVDD(3.3);
    power.mdblReferenceFrequency = 14.318;
    power.mdblFCore = 200;
    power.mdblFClock1 = 50;
    power.mdblFClock2 = 25;
    power.mdblFClock3 = 0;
    // Typical: 2.25 + 0.78749 + 4 + 0.0017 x 18 x 75 = 9.33249, x 3.3 = 30.797217
    EXPECT_NEAR(power.CalculateICC(1), 30.797217, 1e-9);
    // Worst: 2.25 + 0.78749 + 4 + 0.0017 x 30 x 75 = 10.86249, x 4.0 = 43.44996
    EXPECT_NEAR(power.CalculateICC(0), 43.44996, 1e-9);
    EXPECT_GT(power.CalculateICC(0), power.CalculateICC(1));
}

TEST_F(PowerModelTest, Power4860WorstAlwaysAboveTypical) {
    clsPower4860 power(errors);
    for (double vdd : {3.3, 5.0}) {
        power.SetVDD(vdd);
        for (double f : {0.0, 1.0, 40.0, 300.0}) {
            power.mdblReferenceFrequency = f / 10;
            power.mdblFCore = f;
            power.mdblFClock1 = f / 4;
            power.mdblFClock3 = f / 8;
            EXPECT_GT(power.CalculateICC(0), power.CalculateICC(1)) << vdd << " " << f;
        }
    }
}

TEST_F(PowerModelTest, Power4860OtherCaseHasNoSupplyAndNoFloor) {
    clsPower4860 power(errors);
    power.mdblFCore = 100;
    EXPECT_DOUBLE_EQ(power.CalculateICC(5), 0.0);
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(PowerModelTest, Power4860InvalidSupplyIsRefused) {
    clsPower4860 power(errors);
    power.SetVDD(0);
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(platform.Messages()[0].Text,
              ErrorReport::Text(10451, "clsPower4860.VDD [Property Let]", "Invalid VDD: 0"));
    EXPECT_DOUBLE_EQ(power.CalculateICC(1), 11.25);
}

}  // namespace
}  // namespace pendulon
