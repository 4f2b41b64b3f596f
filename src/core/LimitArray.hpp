#pragma once
#include <string>
#include <vector>

#include "core/Numbers.hpp"
#include "platform/ErrorReport.hpp"

namespace pendulon::LimitArray {

// Reads element i of a limit array; an element outside the array is reported as a subscript
// error and leaves the target as it was.
inline bool Read(const std::vector<double>& array, size_t i, double& target, ErrorReport& errors,
                 const std::string& source) {
    if (i >= array.size()) {
        errors.Raise(errors::SubscriptOutOfRange, source);
        return false;
    }
    target = array[i];
    return true;
}

// Writes element i of a limit array, with the same report for an element outside it.
inline void Write(std::vector<double>& array, size_t i, double value, ErrorReport& errors,
                  const std::string& source) {
    if (i >= array.size()) {
        errors.Raise(errors::SubscriptOutOfRange, source);
        return;
    }
    array[i] = value;
}

// Rounds half to even to a Long; an overflow is reported and gives the fallback.
inline std::int32_t ToLongOr(double value, std::int32_t fallback, ErrorReport& errors,
                             const std::string& source) {
    const auto converted = ToLong(value);
    if (!converted) {
        errors.Raise(errors::Overflow, source);
        return fallback;
    }
    return *converted;
}

}  // namespace pendulon::LimitArray
