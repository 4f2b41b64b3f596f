#include "core/clsQX3350.hpp"

#include "core/LimitArray.hpp"
#include "core/PLLLimitFields.hpp"

namespace pendulon {

clsQX3350::clsQX3350(ErrorReport& errors) : PLLLimitRules(errors, "clsQX3350") {}

std::int32_t clsQX3350::Maximum(double dblReference, std::int32_t lngLimit, const char* source) {
    // The comparison frequency may not drop below 0.032 MHz.
    const std::int32_t lngR = LimitArray::ToLongOr(dblReference / 0.032, 0, errors_, source);
    return lngR >= lngLimit ? lngLimit : lngR;
}

std::int32_t clsQX3350::Minimum(double dblValue, std::int32_t lngLimit, const char* source) {
    // Rounds up to a whole number; 2.5 gives 4, since 3.5 rounds half to even to 4.
    const std::int32_t lngR = LimitArray::ToLongOr(dblValue, 0, errors_, source);
    const double dblD = dblValue - lngR;
    std::int32_t lngV = 0;
    if (dblD > 0)
        lngV = LimitArray::ToLongOr(dblValue + 1.0, 0, errors_, source);
    else
        lngV = LimitArray::ToLongOr(dblValue, 0, errors_, source);
    return lngV <= lngLimit ? lngLimit : lngV;
}

std::int32_t clsQX3350::GetMaximumP(double dblReference, std::int32_t lngLimit) {
    return Maximum(dblReference, lngLimit, "clsQX3350.GetMaximumP");
}

std::int32_t clsQX3350::GetMaximumQ(double dblReference, std::int32_t lngLimit) {
    return Maximum(dblReference, lngLimit, "clsQX3350.GetMaximumQ");
}

std::int32_t clsQX3350::GetMinimumP(double dblReference, std::int32_t lngLimit) {
    return Minimum(dblReference, lngLimit, "clsQX3350.GetMinimumP");
}

std::int32_t clsQX3350::GetMinimumQ(double dblReference, std::int32_t lngLimit) {
    return Minimum(dblReference, lngLimit, "clsQX3350.GetMinimumQ");
}

void clsQX3350::InitializeClockDivisors(ListField& cboClockDivisors) {
    static constexpr const char* kEntries[] = {
        "PLL",   "PLL/2", "PLL/4", "PLL/8",  "PLL/16", "PLL/32", "PLL/64",  "PLL/128", "Ref",
        "Ref/2", "Ref/4", "Ref/8", "Ref/16", "Ref/32", "Ref/64", "Ref/128", "Off"};
    cboClockDivisors.Clear();
    for (const char* entry : kEntries) cboClockDivisors.AddItem(entry);
    cboClockDivisors.SetListIndex(0);
}

}  // namespace pendulon
