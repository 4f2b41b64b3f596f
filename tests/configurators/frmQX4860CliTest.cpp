#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/TestSupport.hpp"

namespace {

using CliRun = pendulon::test::CliResult;
using pendulon::test::RunCli;

// A new QX4860 with a 20 MHz reference, Clock A from PLL/2 and 80 MHz in row 0: every row is
// filled with 80, runs at 160 behind the prescaler and is solved exactly by P = 12, Q = 3.
TEST(frmQX4860Cli, NewDocumentSetAndCalculateGivesTheSolvedState) {
    const CliRun run =
        RunCli({"new", "QX4860", "--set", "cboFRef=20.00000 MHz", "--set", "cboClkADiv=PLL/2",
                "--set", "txtPLL(0)=80", "--click", "cmdCalculate", "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.out;
    const nlohmann::json state = nlohmann::json::parse(run.out);
    EXPECT_EQ(state["device"], "QX4860");
    const auto& fields = state["fields"];
    EXPECT_EQ(fields["opt14Pin"]["value"], true);
    EXPECT_EQ(fields["txtPLL(0)"]["text"], "80.0");
    EXPECT_EQ(fields["txtPLL(7)"]["text"], "80.0");
    EXPECT_EQ(fields["cboPLLData(0)"]["text"], "160.000000 P:12 Q:3");
    EXPECT_EQ(fields["cboPLLData(15)"]["text"], "160.000000 P:12 Q:3");
    EXPECT_EQ(fields["lblDesiredClkA(0)"]["caption"], " 40.00000");
    EXPECT_EQ(fields["cboActualClkA(0)"]["text"], "40.00000    PPM:0");
    // The reference clock stays on the reference.
    EXPECT_EQ(fields["cboActualRefClk(0)"]["text"], "20.00000    PPM:0");
    EXPECT_EQ(fields["cmdCalculate"]["backColor"], 12632256);
}

TEST(frmQX4860Cli, EightPinDocumentHasFourRowsInUse) {
    const CliRun run = RunCli({"new", "QX4860F", "--click", "opt8Pin", "--set", "cboRefClkDiv=PLL",
                               "--set", "txtPLL(1)=110", "--click", "cmdCalculate", "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.out;
    const nlohmann::json state = nlohmann::json::parse(run.out);
    const auto& fields = state["fields"];
    EXPECT_EQ(fields["fraFrequencies"]["caption"], "PLL/Output Frequencies (FS1..FS0)");
    EXPECT_EQ(fields["txtPLL(4)"]["visible"], false);
    EXPECT_EQ(fields["txtPLL(0)"]["text"], "110.0");
    EXPECT_EQ(fields["txtPLL(4)"]["text"], "Off");
    EXPECT_EQ(fields["chkPowerDown"]["value"], 1);
    // 110 MHz is beyond the F part's 100 MHz output limit at 5 V.
    EXPECT_EQ(fields["lblDesiredRefClk(1)"]["foreColor"], 255);
}

TEST(frmQX4860Cli, UnknownListEntryIsRefusedWithUsageError) {
    const CliRun run = RunCli({"new", "QX4860", "--set", "cboClkADiv=PLL/7", "--json"});
    EXPECT_NE(run.exitCode, 0);
}

}  // namespace
