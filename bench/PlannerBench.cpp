// The frequency planner over all fifteen devices: three wanted outputs at one reference, and the
// same from any reference of each device's list; on one thread and on two (the devices are
// independent, each tried in runs of its own). The whole command adds the program's start-up
// and the printing; farm-bench times that (see the manual's Planning section for the figures).
#include <benchmark/benchmark.h>

#include "planner/clsDevicePlanner.hpp"
#include "planner/clsFrequencyPlanner.hpp"
#include "shell/ShellPlannerHost.hpp"

namespace {

using namespace pendulon;

clsPlan ThreeOutputs(double reference) {
    clsPlan plan;
    plan.dblReference = reference;
    plan.dblVoltage = 3.3;
    plan.adblOutputs = {33.333, 48, 24.576};
    return plan;
}

// Argument 0: the reference (0 for any), argument 1: the threads.
void BM_PlanThreeOutputs(benchmark::State& state) {
    const ShellPlannerHost host;
    const clsPlan plan = ThreeOutputs(state.range(0) == 0 ? 0 : 14.31818);
    for (auto _ : state) {
        auto results = clsFrequencyPlanner::Run(host, plan, static_cast<unsigned>(state.range(1)));
        benchmark::DoNotOptimize(results.data());
    }
}
BENCHMARK(BM_PlanThreeOutputs)
    ->ArgNames({"one_reference", "threads"})
    ->Args({1, 1})
    ->Args({1, 2})
    ->Args({0, 1})
    ->Args({0, 2})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// One device at a time, to see where the time of a plan goes.
void BM_PlanOneDevice(benchmark::State& state, const char* device) {
    const ShellPlannerHost host;
    const clsPlan plan = ThreeOutputs(14.31818);
    const std::atomic<bool> cancel{false};
    for (auto _ : state) {
        auto result = clsDevicePlanner::Create(host, device)->Plan(plan, cancel);
        benchmark::DoNotOptimize(result.lngWorstPPM);
    }
}
BENCHMARK_CAPTURE(BM_PlanOneDevice, QX6105A, "QX6105A")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_PlanOneDevice, QX7311, "QX7311")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_PlanOneDevice, QX4860, "QX4860")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_PlanOneDevice, QX5140, "QX5140")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_PlanOneDevice, QX3350, "QX3350")->Unit(benchmark::kMillisecond);

}  // namespace
