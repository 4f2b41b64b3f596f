#pragma once
#include <cstdint>
#include <vector>

#include "core/PLLLimitFields.hpp"
#include "core/cls7311Die.hpp"
#include "core/clsReference.hpp"
#include "platform/ErrorReport.hpp"

namespace pendulon {

// Device rules of the QX7311 family.
class clsQX7311 : public PLLLimitRules<cls7311Die> {
  public:
    explicit clsQX7311(ErrorReport& errors);

    // Keeps the comparison frequency reference / Q at 0.15 MHz or above.
    std::int32_t GetMaximumQ(double dblReference, std::int32_t lngDefaultMaximum);
    // The CPLL's largest Q, narrowed by how far the other loop frequencies lie from it.
    std::int32_t GetCPLLQMax(double dblFPLL, double dblFRef, double dblQMAX,
                             const std::vector<double>& adblPLLFReq);

};

}  // namespace pendulon
