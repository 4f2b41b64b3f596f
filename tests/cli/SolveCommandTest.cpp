#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "support/TestSupport.hpp"

namespace {

using CliRun = pendulon::test::CliResult;
using pendulon::test::RunCli;

CliRun Solve(std::vector<std::string> args) {
    args.insert(args.begin(), "solve");
    return RunCli(args);
}

TEST(SolveCommand, ListsBestThenBelowThenAbove) {
    // 2 x 2.55 x 125 / 3 = 212.5 exactly; best below 208/5, best above 167/4.
    const CliRun run =
        Solve({"--ref", "2.55", "--target", "212.5", "--max-p", "256", "--max-q", "128"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "212.500000 P:125 Q:3\n212.160000 P:208 Q:5\n212.925000 P:167 Q:4\n");
    EXPECT_EQ(run.err, "");
}

TEST(SolveCommand, LargestVCOPrefersHighestQOnEqualError) {
    const CliRun run = Solve({"--ref", "2.55", "--target", "212.5", "--max-p", "256", "--max-q",
                              "128", "--largest-vco"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "212.500000 P:250 Q:6\n212.160000 P:208 Q:5\n212.925000 P:167 Q:4\n");
}

TEST(SolveCommand, DuplicateSlotIsDropped) {
    // 7/3 (-66667) is best and best below; 8/3 (+66667) is above.
    const CliRun run = Solve({"--ref", "1", "--target", "5", "--max-p", "256", "--max-q", "3"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "4.666667 P:7 Q:3\n5.333333 P:8 Q:3\n");
}

TEST(SolveCommand, MinimaAndCPLLRatioFilter) {
    const CliRun plain = Solve({"--ref", "1", "--target", "2.6", "--max-p", "256", "--max-q", "10",
                                "--min-p", "1", "--min-q", "9"});
    EXPECT_EQ(plain.exitCode, 0);
    EXPECT_EQ(plain.out, "2.600000 P:13 Q:10\n2.400000 P:12 Q:10\n2.800000 P:14 Q:10\n");
    const CliRun cpll = Solve({"--ref", "1", "--target", "2.6", "--max-p", "256", "--max-q", "10",
                               "--min-p", "1", "--min-q", "9", "--cpll"});
    EXPECT_EQ(cpll.exitCode, 0);
    EXPECT_EQ(cpll.out, "2.800000 P:14 Q:10\n");
}

TEST(SolveCommand, VCOLimitsAreInclusive) {
    const CliRun run = Solve({"--ref", "1", "--target", "100", "--max-p", "256", "--max-q", "10",
                              "--min-q", "1", "--vco-min", "101"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "101.000000 P:101 Q:2\n");
    const CliRun none = Solve(
        {"--ref", "1", "--target", "100", "--max-p", "256", "--max-q", "10", "--vco-max", "10"});
    EXPECT_EQ(none.exitCode, 0);
    EXPECT_EQ(none.out, "0.000000 P:5 Q:2\n");
}

TEST(SolveCommand, GuardChangesNothing) {
    const std::vector<std::string> base = {"--ref",   "1",   "--target", "2.02",
                                           "--max-p", "256", "--max-q",  "100"};
    auto guarded = base;
    guarded.push_back("--guard");
    guarded.push_back("0.15");
    const CliRun a = Solve(base);
    const CliRun b = Solve(guarded);
    EXPECT_EQ(b.exitCode, 0);
    EXPECT_EQ(b.out.substr(0, b.out.find('\n')), "2.020000 P:101 Q:100");
    EXPECT_EQ(a.out, b.out);
}

TEST(SolveCommand, ErrorReportGoesToStandardErrorAndExitIsZero) {
    const CliRun run = Solve({"--ref", "0", "--target", "100", "--max-p", "256", "--max-q", "5"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "0.000000 P:5 Q:2\n");
    EXPECT_NE(run.err.find("Pendulon(tm) 3.71"), std::string::npos);
    EXPECT_NE(run.err.find("The error number is: 11"), std::string::npos);
    EXPECT_NE(run.err.find("The source for the error is: clsPLL.FindPAndQ"), std::string::npos);
}

void ExpectUsageError(const std::vector<std::string>& args) {
    const CliRun run = Solve(args);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find("usage: pendulon-cli solve"), std::string::npos);
}

TEST(SolveCommand, MissingRequiredOptionIsUsageError) {
    ExpectUsageError({"--target", "100", "--max-p", "256", "--max-q", "5"});
    ExpectUsageError({"--ref", "1", "--max-p", "256", "--max-q", "5"});
    ExpectUsageError({"--ref", "1", "--target", "100", "--max-q", "5"});
    ExpectUsageError({"--ref", "1", "--target", "100", "--max-p", "5"});
    ExpectUsageError({});
}

TEST(SolveCommand, MalformedNumberIsUsageError) {
    ExpectUsageError({"--ref", "14.3x", "--target", "100", "--max-p", "256", "--max-q", "5"});
    ExpectUsageError({"--ref", "abc", "--target", "100", "--max-p", "256", "--max-q", "5"});
    ExpectUsageError({"--ref", "1e", "--target", "100", "--max-p", "256", "--max-q", "5"});
    ExpectUsageError({"--ref", "", "--target", "100", "--max-p", "256", "--max-q", "5"});
    ExpectUsageError({"--ref", "1", "--target", "100", "--max-p", "256", "--max-q", "inf"});
}

TEST(SolveCommand, OptionWithoutValueIsUsageError) {
    ExpectUsageError({"--target", "100", "--max-p", "256", "--max-q", "5", "--ref"});
}

TEST(SolveCommand, RepeatedOptionIsUsageError) {
    ExpectUsageError(
        {"--ref", "1", "--ref", "2", "--target", "100", "--max-p", "256", "--max-q", "5"});
    ExpectUsageError(
        {"--ref", "1", "--target", "100", "--max-p", "256", "--max-q", "5", "--cpll", "--cpll"});
}

TEST(SolveCommand, UnknownOptionIsUsageError) {
    ExpectUsageError({"--ref", "1", "--target", "100", "--max-p", "256", "--max-q", "5", "--fast"});
}

TEST(SolveCommand, HelpListsSolve) {
    const CliRun run = RunCli({"--help"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_NE(run.out.find("solve --ref MHZ --target MHZ --max-p N --max-q N"), std::string::npos);
}

}  // namespace
