#include "core/clsQX4860.hpp"

#include "core/LimitArray.hpp"
#include "core/PLLLimitFields.hpp"
#include "core/Text.hpp"

namespace pendulon {

clsQX4860::clsQX4860(ErrorReport& errors) : PLLLimitRules(errors, "clsQX4860") {}

std::int32_t clsQX4860::GetMaximumQ(double dblReference, std::int32_t lngDefaultMaximum) {
    const std::int32_t lngR =
        LimitArray::ToLongOr(dblReference / 0.15, 0, errors_, "clsQX4860.GetMaximumQ");
    return lngR >= lngDefaultMaximum ? lngDefaultMaximum : lngR;
}

std::int32_t clsQX4860::GetMaximumQWithSmoothSlew(LimitForm& frmInput, double dblFrequency,
                                                  double dblReference,
                                                  std::int32_t lngDefaultMaximum,
                                                  std::int16_t intDivisor) {
    const std::string source = "clsQX4860.GetMaximumQWithSmoothSlew";
    if (Left(PLLLimitFields::DeviceName(frmInput), 7) == "QX6105A" || dblFrequency == 0 ||
        intDivisor < 2)
        return lngDefaultMaximum;
    const double dblA = 300.0 * dblReference / dblFrequency;
    double dblM = dblA;
    if (dblFrequency >= 66.1 && dblFrequency <= 66.9) {
        const double dblLimit = 3.75 * dblReference;
        dblM = dblA < dblLimit ? dblA : dblLimit;
    }
    const std::int32_t lngM = LimitArray::ToLongOr(dblM, 0, errors_, source);
    return lngM < lngDefaultMaximum ? lngM : lngDefaultMaximum;
}

void clsQX4860::InitializeClockDivisors(ListField& cboClockDivisors) {
    static constexpr const char* kEntries[] = {"Ref",   "Ref/2", "PLL",   "PLL/2", "PLL/3",
                                               "PLL/4", "PLL/5", "PLL/8", "Off"};
    cboClockDivisors.Clear();
    for (const char* entry : kEntries) cboClockDivisors.AddItem(entry);
    cboClockDivisors.SetListIndex(0);
}

}  // namespace pendulon
