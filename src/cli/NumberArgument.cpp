#include "cli/NumberArgument.hpp"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <string>

namespace pendulon::cli {

std::optional<double> ParseNumber(std::string_view text) {
    size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        ++i;
    size_t digits = 0;
    while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, ++digits;
    if (i < text.size() && text[i] == '.') {
        ++i;
        while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, ++digits;
    }
    if (digits == 0)
        return std::nullopt;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < text.size() && (text[i] == '+' || text[i] == '-'))
            ++i;
        size_t exponentDigits = 0;
        while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])))
            ++i, ++exponentDigits;
        if (exponentDigits == 0)
            return std::nullopt;
    }
    if (i != text.size())
        return std::nullopt;
    const std::string copy(text);
    char* end = nullptr;
    const double value = std::strtod(copy.c_str(), &end);
    if (end != copy.c_str() + copy.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

}  // namespace pendulon::cli
