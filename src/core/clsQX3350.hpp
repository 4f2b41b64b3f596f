#pragma once
#include <cstdint>

#include "core/PLLLimitFields.hpp"
#include "core/cls3350Die.hpp"
#include "core/clsReference.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/ListField.hpp"

namespace pendulon {

// Device rules of the QX3350.
class clsQX3350 : public PLLLimitRules<cls3350Die> {
  public:
    explicit clsQX3350(ErrorReport& errors);

    // The smaller of the limit and reference / 0.032, rounded half to even.
    std::int32_t GetMaximumP(double dblReference, std::int32_t lngLimit);
    std::int32_t GetMaximumQ(double dblReference, std::int32_t lngLimit);
    // The larger of the limit and the reference rounded up to a whole number.
    std::int32_t GetMinimumP(double dblReference, std::int32_t lngLimit);
    std::int32_t GetMinimumQ(double dblReference, std::int32_t lngLimit);
    void InitializeClockDivisors(ListField& cboClockDivisors);

  private:
    std::int32_t Maximum(double dblReference, std::int32_t lngLimit, const char* source);
    std::int32_t Minimum(double dblValue, std::int32_t lngLimit, const char* source);
};

}  // namespace pendulon
