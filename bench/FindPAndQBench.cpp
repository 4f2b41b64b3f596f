// One P and Q search over the widest counter range of each die, with the Q walk upward and
// downward, beside the same arithmetic written as a bare loop (BM_TightLoop_*): no error
// report, no object, only the operations the search does for each Q and P, in its order. The
// ratio of the two rates is what the search's bookkeeping costs. The rate is given per Q value
// walked.
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "core/Numbers.hpp"
#include "core/clsPLL.hpp"
#include "core/mShared.hpp"
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

struct Slots {
    std::array<double, 3> p{};
    std::array<double, 3> q{};
    std::array<std::int32_t, 3> ppm{};
};

// The search's arithmetic for one range and no more: the ratio, then for each Q the centre P,
// and for each P of the three around it the ratio P / Q, its PPM, its VCO, the range and the
// three slots.
Slots TightLoop(const Range& r, double reference, bool largest) {
    Slots s;
    for (int i = 0; i < 3; ++i) {
        s.ppm[i] = pendulon::mShared::kNoSolutionPPM;
        s.p[i] = r.minP;
        s.q[i] = r.minQ;
    }
    const double ratio = r.target / 2.0 / reference;
    const double twiceReference = 2.0 * reference;
    const long long low = static_cast<long long>(r.minQ) + 1;
    const long long high = static_cast<long long>(r.maxQ);
    const long long first = largest ? high : low;
    const long long last = largest ? low : high;
    const long long step = largest ? -1 : 1;
    for (long long q = first; step > 0 ? q <= last : q >= last; q += step) {
        const double dq = static_cast<double>(q);
        const auto p0 = static_cast<std::int32_t>(pendulon::RoundHalfEven(ratio * dq));
        for (long long p = static_cast<long long>(p0) - 1; p <= p0 + 1LL; ++p) {
            const double dp = static_cast<double>(p);
            if (dp < r.minP || dp > r.maxP)
                continue;
            const double actual = dp / dq;
            const std::int32_t ppm = pendulon::mShared::CalculatePPM(actual, ratio);
            const double vco = twiceReference * actual;
            if (vco < r.vcoMin || vco > r.vcoMax)
                continue;
            const std::int32_t absPPM = std::abs(ppm);
            if (absPPM < std::abs(s.ppm[0])) {
                s.ppm[0] = ppm;
                s.p[0] = dp;
                s.q[0] = dq;
            }
            if (absPPM < std::abs(s.ppm[1]) && ppm < 0) {
                s.ppm[1] = ppm;
                s.p[1] = dp;
                s.q[1] = dq;
            }
            if (ppm < s.ppm[2] && ppm > 0) {
                s.ppm[2] = ppm;
                s.p[2] = dp;
                s.q[2] = dq;
            }
        }
    }
    return s;
}

void Tight(benchmark::State& state, const Range& range) {
    const bool largest = state.range(0) != 0;
    double reference = 14.31818;
    for (auto _ : state) {
        benchmark::DoNotOptimize(reference);
        const Slots s = TightLoop(range, reference, largest);
        benchmark::DoNotOptimize(s.ppm[0]);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(range.maxQ - range.minQ));
    // Both must find the same: otherwise the comparison would be of different work.
    pendulon::HeadlessPlatform platform;
    pendulon::ErrorReport errors(platform, [] { return std::string("Pendulon(tm) 3.71"); });
    clsPLL pll(errors);
    pll.mdblReferenceFrequency = reference;
    pll.mdblMinP = range.minP;
    pll.mdblMaxP = range.maxP;
    pll.mdblMinQ = range.minQ;
    pll.mdblMaxQ = range.maxQ;
    pll.mdblVCOMin = range.vcoMin;
    pll.mdblVCOMax = range.vcoMax;
    pll.mdblTargetVCO = range.target;
    pll.FindPAndQ(largest);
    const Slots s = TightLoop(range, reference, largest);
    for (std::size_t i = 0; i < 3; ++i) {
        const clsPLL::Solution slot = pll.Slot(i);
        if (slot.P != s.p[i] || slot.Q != s.q[i] || slot.PPM != s.ppm[i])
            state.SkipWithError("the bare loop and the search disagree");
    }
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

void BM_TightLoop_QX4860Die(benchmark::State& state) {
    Tight(state, kQX4860);
}
void BM_TightLoop_QX7311DieUPLL(benchmark::State& state) {
    Tight(state, kQX7311UPLL);
}
void BM_TightLoop_QX3350Die(benchmark::State& state) {
    Tight(state, kQX3350);
}

BENCHMARK(BM_FindPAndQ_QX4860Die)->ArgName("largestVCO")->Arg(0)->Arg(1);
BENCHMARK(BM_TightLoop_QX4860Die)->ArgName("largestVCO")->Arg(0)->Arg(1);
BENCHMARK(BM_FindPAndQ_QX7311DieUPLL)->ArgName("largestVCO")->Arg(0)->Arg(1);
BENCHMARK(BM_TightLoop_QX7311DieUPLL)->ArgName("largestVCO")->Arg(0)->Arg(1);
BENCHMARK(BM_FindPAndQ_QX3350Die)->ArgName("largestVCO")->Arg(0)->Arg(1);
BENCHMARK(BM_TightLoop_QX3350Die)->ArgName("largestVCO")->Arg(0)->Arg(1);

}  // namespace
