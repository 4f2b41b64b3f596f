// One P and Q search over the widest counter range of each die, with the Q walk upward and
// downward. The rate is given per Q value walked.
#include <benchmark/benchmark.h>

#include "core/clsPLL.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"

namespace {

using pendulon::clsPLL;

struct Range {
    double minP, maxP, minQ, maxQ, vcoMin, vcoMax, target;
};

// QX4860 die; QX7311 die, UPLL; QX3350 die. Reference 14.31818 MHz, a target inside each
// die's VCO range.
constexpr Range kQX4860{5, 256, 2, 128, 4, 200, 133.333333};
constexpr Range kQX7311UPLL{5, 1026, 2, 129, 8, 100, 75.1234};
constexpr Range kQX3350{24, 4100, 2, 1025, 50, 250, 199.999};

void Search(benchmark::State& state, const Range& range) {
    pendulon::HeadlessPlatform platform;
    pendulon::ErrorReport errors(platform, [] { return std::string("Pendulon(tm) 3.71"); });
    clsPLL pll(errors);
    pll.mdblReferenceFrequency = 14.31818;
    pll.mdblMinP = range.minP;
    pll.mdblMaxP = range.maxP;
    pll.mdblMinQ = range.minQ;
    pll.mdblMaxQ = range.maxQ;
    pll.mdblVCOMin = range.vcoMin;
    pll.mdblVCOMax = range.vcoMax;
    pll.mdblTargetVCO = range.target;
    const bool largest = state.range(0) != 0;
    for (auto _ : state) {
        pll.FindPAndQ(largest);
        benchmark::DoNotOptimize(pll.BestPPM());
    }
    // Q runs from the minimum + 1 to the maximum.
    const auto walked = static_cast<int64_t>(range.maxQ - range.minQ);
    state.SetItemsProcessed(state.iterations() * walked);
    if (errors.Count() != 0)
        state.SkipWithError("the search reported an error");
}

void BM_FindPAndQ_QX4860Die(benchmark::State& state) {
    Search(state, kQX4860);
}
void BM_FindPAndQ_QX7311DieUPLL(benchmark::State& state) {
    Search(state, kQX7311UPLL);
}
void BM_FindPAndQ_QX3350Die(benchmark::State& state) {
    Search(state, kQX3350);
}

BENCHMARK(BM_FindPAndQ_QX4860Die)->ArgName("largestVCO")->Arg(0)->Arg(1);
BENCHMARK(BM_FindPAndQ_QX7311DieUPLL)->ArgName("largestVCO")->Arg(0)->Arg(1);
BENCHMARK(BM_FindPAndQ_QX3350Die)->ArgName("largestVCO")->Arg(0)->Arg(1);

}  // namespace
