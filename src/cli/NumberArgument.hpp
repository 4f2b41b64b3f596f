#pragma once
#include <optional>
#include <string_view>

namespace pendulon::cli {

// A decimal number written whole, as an option's value: sign, digits with at most one point,
// optional exponent; nothing else, and finite.
std::optional<double> ParseNumber(std::string_view text);

}  // namespace pendulon::cli
