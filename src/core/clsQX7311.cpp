#include "core/clsQX7311.hpp"

#include <cmath>

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

}  // namespace pendulon
