#include "core/clsQX7311.hpp"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/LimitArray.hpp"
#include "core/PLLLimitFields.hpp"

namespace pendulon {

namespace {
// The reference the CPLL constants were worked out for.
constexpr double kBaseReference = 14.31818;
}  // namespace

clsQX7311::clsQX7311(ErrorReport& errors) : PLLLimitRules(errors, "clsQX7311") {}

std::int32_t clsQX7311::GetMaximumQ(double dblReference, std::int32_t lngDefaultMaximum) {
    const std::int32_t lngR =
        LimitArray::ToLongOr(dblReference / 0.15, 0, errors_, "clsQX7311.GetMaximumQ");
    return lngR >= lngDefaultMaximum ? lngDefaultMaximum : lngR;
}

std::int32_t clsQX7311::GetCPLLQMax(double dblFPLL, double dblFRef, double dblQMAX,
                                    const std::vector<double>& adblPLLFReq) {
    const std::string source = "clsQX7311.GetCPLLQMax";
    double dblD = 0;
    for (const double frequency : adblPLLFReq) {
        if (frequency > 0) {
            const double distance = std::fabs(frequency - dblFPLL);
            if (distance > dblD)
                dblD = distance;
        }
    }
    if (60.0 * dblFRef / kBaseReference > dblD)
        return LimitArray::ToLongOr(dblQMAX, 0, errors_, source);
    std::int32_t lngQ = 0;
    if (dblD == 0) {
        errors_.Raise(errors::DivisionByZero, source);
    } else {
        lngQ = LimitArray::ToLongOr(3927.0 * dblFRef / kBaseReference / dblD, 0, errors_, source);
    }
    if (lngQ < 65 && dblFPLL >= 40.0 * dblFRef / kBaseReference &&
        dblFPLL <= 68.0 * dblFRef / kBaseReference)
        lngQ = 65;
    if (lngQ <= dblQMAX)
        return lngQ;
    return LimitArray::ToLongOr(dblQMAX, 0, errors_, source);
}

void clsQX7311::InitializeCPUDivisorComboBox(ListField& cboCPU) {
    cboCPU.Clear();
    for (const char* item : {"CPLL", "CPLL/2", "CPLL/4", "Off"}) cboCPU.AddItem(item);
    cboCPU.SetListIndex(0);
}

void clsQX7311::InitializeClockFDivisorComboBox(ListField& cboClkF) {
    cboClkF.Clear();
    for (const char* item : {"SPLL/2", "SPLL/3", "SPLL/4", "Off"}) cboClkF.AddItem(item);
    cboClkF.SetListIndex(0);
}

void clsQX7311::InitializeClockDivisors(ListField& list, int index) {
    list.Clear();
    auto group = [&list](const std::string& source, const std::vector<int>& divisors) {
        for (const int divisor : divisors)
            list.AddItem(divisor == 1 ? source : source + "/" + std::to_string(divisor));
    };
    // Only CLKD divides the reference by 3, in the place of the divide-by-8.
    group("Ref", {1, 2, 4, index == 3 ? 3 : 8});
    group("CPLL", {1, 2, 4, 8});
    group("UPLL", {1, 2, 4, 8});
    // The SPLL chain: each base times each power of two, in ascending order, each value once.
    std::vector<int> spll;
    for (const int base : {1, 3, 5, 12, 13})
        for (const int factor : {1, 2, 4, 8}) spll.push_back(base * factor);
    std::sort(spll.begin() + 1, spll.end());
    spll.erase(std::unique(spll.begin(), spll.end()), spll.end());
    group("SPLL", spll);
    list.AddItem("Off");
    list.SetListIndex(0);
}

}  // namespace pendulon
