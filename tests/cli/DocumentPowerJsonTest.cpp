#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "support/TestSupport.hpp"

namespace {

using pendulon::test::RunCli;

// A new QX6105A at 5 V, 14.31818 MHz reference, all three outputs on "Ref", state 0 wanted at
// 100 MHz. The search gives 2 x 14.31818 x 220 / 63 = 99.999987 MHz (no prescale: 200 is not
// below the VCO maximum of 200). One row (Output Enable mode), head "" / "Typical" / " Worst".
//   typical: (2.25 + 0.055 x 14.31818 + 0.02 x 99.999987 + 0.0017 x 18 x 3 x 14.31818) x 5.0
//          = (2.25 + 0.7875 + 2.0 + 1.31441) x 5.0 = 31.76 -> "32mA "
//   worst:   (2.25 + 0.7875 + 2.0 + 0.0017 x 30 x 42.95454) x 5.5 = 7.22817 x 5.5 = 39.75 -> "40mA "
TEST(CliPowerJson, CalculatedQX6105AShowsThePowerTableLines) {
    const auto result =
        RunCli({"new", "QX6105A", "--set", "txtPLL(0)=100", "--click", "cmdCalculate", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto state = nlohmann::json::parse(result.out);
    ASSERT_TRUE(state.contains("power"));
    const auto& power = state["power"];
    EXPECT_EQ(power["head"], "  Typical  Worst");
    ASSERT_EQ(power["lines"].size(), 1u);
    EXPECT_EQ(power["lines"][0], "    32mA   40mA ");
    EXPECT_EQ(power["footnote"], "Typical: 5.0V 18pF Load\r\n   Worst: 5.5V 30pF Load");
}

TEST(CliPowerJson, ThreeVoltDocumentTakesTheLowFootnote) {
    const auto result = RunCli({"new", "QX6105A", "--click", "opt3V", "--set", "txtPLL(0)=50",
                                "--click", "cmdCalculate", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto state = nlohmann::json::parse(result.out);
    EXPECT_EQ(state["power"]["footnote"], "Typical: 3.3V 18pF Load\r\n   Worst: 3.6V 30pF Load");
    ASSERT_EQ(state["power"]["lines"].size(), 1u);
}

}  // namespace
