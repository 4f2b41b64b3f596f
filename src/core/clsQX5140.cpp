#include "core/clsQX5140.hpp"

#include "core/mShared.hpp"

namespace pendulon {

namespace {
std::int32_t AbsLong(std::int32_t value) {
    return value < 0 ? -value : value;
}
}  // namespace

double clsQX5140::GetMaximumFrequency(double dblFirst, double dblSecond, double dblThird) {
    double result = dblFirst;
    if (dblSecond > result)
        result = dblSecond;
    if (dblThird > result)
        result = dblThird;
    return result;
}

void clsQX5140::FindCommonVCO(double dblF10, double dblF20, double dblF30,
                              std::span<const std::int16_t> aintDivisors, double dblMaximumVCO,
                              double dblMinimumVCO, std::int32_t lngMaximumPPM) {
    // The table's last divider is left out: the loop's dividers in shared use stop one short.
    const int upper = static_cast<int>(aintDivisors.size()) - 2;
    mdblVCO = 0;
    mlngBestError = mShared::kNoSolutionPPM;
    mdblMux1 = 0;
    mdblMux2 = 0;
    mdblMux3 = 0;
    mlngRounds = 0;
    if (!(dblF10 > 0) || !(dblF20 > 0))
        return;
    const bool twoOutputs = !(dblF30 > 0);
    // From the largest dividers down, so that among equal errors the highest VCO stands.
    for (int i = upper; i >= 0; --i) {
        const double v1 = aintDivisors[static_cast<size_t>(i)] * dblF10;
        for (int j = upper; j >= 0; --j) {
            const double v2 = aintDivisors[static_cast<size_t>(j)] * dblF20;
            for (int k = upper; k >= 0; --k) {
                const double v3 = aintDivisors[static_cast<size_t>(k)] * dblF30;
                ++mlngRounds;
                const double v = GetMaximumFrequency(v1, v2, v3);
                if (v > dblMaximumVCO || v < dblMinimumVCO)
                    continue;
                const std::int32_t e12 = AbsLong(mShared::CalculatePPM(v1, v2));
                if (twoOutputs) {
                    if (e12 <= lngMaximumPPM && e12 < mlngBestError) {
                        mdblVCO = v;
                        mlngBestError = e12;
                        mdblMux1 = aintDivisors[static_cast<size_t>(i)];
                        mdblMux2 = aintDivisors[static_cast<size_t>(j)];
                    }
                } else {
                    const std::int32_t e13 = AbsLong(mShared::CalculatePPM(v1, v3));
                    const std::int32_t e23 = AbsLong(mShared::CalculatePPM(v2, v3));
                    // Each pair must be within the limit; the sum ranks the solutions.
                    const std::int32_t sum = e12 + e13 + e23;
                    if (e12 <= lngMaximumPPM && e13 <= lngMaximumPPM && e23 <= lngMaximumPPM &&
                        sum < mlngBestError) {
                        mdblVCO = v;
                        mlngBestError = sum;
                        mdblMux1 = aintDivisors[static_cast<size_t>(i)];
                        mdblMux2 = aintDivisors[static_cast<size_t>(j)];
                        mdblMux3 = aintDivisors[static_cast<size_t>(k)];
                    }
                }
                // An exact solution cannot be beaten, and it decides which one stands.
                if (mlngBestError == 0)
                    return;
            }
        }
    }
}

}  // namespace pendulon
