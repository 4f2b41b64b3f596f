// The sixteen rows of a QX4860 Calculate at 5 V with a 14.31818 MHz reference, each row as the
// window's search does it: prescale decision, Q limit, the search, the data list. The rate is
// given per Q value walked.
#include <benchmark/benchmark.h>

#include <array>

#include "core/Numbers.hpp"
#include "core/cls4860Die.hpp"
#include "core/clsPLL.hpp"
#include "core/clsQX4860.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/ListField.hpp"

namespace {

using namespace pendulon;

constexpr std::array<double, 16> kTargets = {24, 25, 27,       32, 33.33333, 40,  48,  50,
                                             54, 60, 66.66667, 75, 80,       100, 125, 133.33333};

void BM_QX4860CalculateSixteenRows(benchmark::State& state) {
    HeadlessPlatform platform;
    ErrorReport errors(platform, [] { return std::string("Pendulon(tm) 3.71"); });
    cls4860Die die(errors);
    die.SetDefaultLimits({4, 4}, {150, 200});
    die.mdblVoltage = 5.0;
    clsQX4860 device(errors);
    clsPLL pll(errors);
    pll.mdblMaxP = die.MaximumP();
    pll.mdblMinP = die.MinimumP();
    pll.mdblMinQ = die.MinimumQ();
    std::array<ListField, 16> cboPLLData;
    const double reference = 14.31818;
    int64_t walked = 0;
    for (auto _ : state) {
        pll.mdblReferenceFrequency = reference;
        pll.mdblVCOMax = die.MaximumPLLVoltage();
        pll.mdblVCOMin = die.MinimumPLLVoltage();
        for (size_t i = 0; i < kTargets.size(); ++i) {
            const double frequency = kTargets[i];
            const double scale = 2 * frequency < die.MaximumPLLVoltage() ? 2 : 1;
            const double target = frequency * scale;
            const auto maximumQ = ToLong(die.MaximumQ());
            pll.mdblMaxQ = device.GetMaximumQ(reference, maximumQ ? *maximumQ : 0);
            pll.mdblTargetVCO = target;
            bool cpll = false;
            pll.FindPAndQ(false, 0.15, cpll);
            pll.StorePLLData(cboPLLData[i]);
            walked += static_cast<int64_t>(pll.mdblMaxQ - pll.mdblMinQ);
        }
        benchmark::DoNotOptimize(cboPLLData[15].ListCount());
    }
    state.SetItemsProcessed(walked);
    if (errors.Count() != 0)
        state.SkipWithError("the search reported an error");
}

BENCHMARK(BM_QX4860CalculateSixteenRows);

}  // namespace
