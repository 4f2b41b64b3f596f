#pragma once
#include <cstdint>

#include "core/PLLLimitFields.hpp"
#include "core/cls4860Die.hpp"
#include "core/clsReference.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/ListField.hpp"

namespace pendulon {

// Device rules of the QX4860 and QX6105A families.
class clsQX4860 : public PLLLimitRules<cls4860Die> {
  public:
    explicit clsQX4860(ErrorReport& errors);

    // Keeps the comparison frequency reference / Q at 0.15 MHz or above.
    std::int32_t GetMaximumQ(double dblReference, std::int32_t lngDefaultMaximum);
    std::int32_t GetMaximumQWithSmoothSlew(LimitForm& frmInput, double dblFrequency,
                                           double dblReference, std::int32_t lngDefaultMaximum,
                                           std::int16_t intDivisor);
    void InitializeClockDivisors(ListField& cboClockDivisors);

};

}  // namespace pendulon
