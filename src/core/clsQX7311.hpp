#pragma once
#include <cstdint>
#include <vector>

#include "core/PLLLimitFields.hpp"
#include "core/cls7311Die.hpp"
#include "core/clsReference.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/ListField.hpp"

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

    // The sources the outputs offer, first entry selected: the CPU output, CLKF, and CLKA to
    // CLKD (index 0 to 3).
    static void InitializeCPUDivisorComboBox(ListField& cboCPU);
    static void InitializeClockFDivisorComboBox(ListField& cboClkF);
    static void InitializeClockDivisors(ListField& list, int index);
};

}  // namespace pendulon
