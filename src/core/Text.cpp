#include "core/Text.hpp"

#include <algorithm>
#include <cctype>
#include <cstdio>

namespace pendulon {

std::string Trim(std::string_view text) {
    size_t begin = 0, end = text.size();
    while (begin < end && text[begin] == ' ') ++begin;
    while (end > begin && text[end - 1] == ' ') --end;
    return std::string(text.substr(begin, end - begin));
}

std::string LCase(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

std::string UCase(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return out;
}

size_t InStr(std::string_view text, std::string_view what, size_t start) {
    if (start < 1)
        start = 1;
    if (start > text.size() + 1)
        return 0;
    const size_t at = text.find(what, start - 1);
    return at == std::string_view::npos ? 0 : at + 1;
}

size_t InStrNoCase(std::string_view text, std::string_view what, size_t start) {
    // As InStr on both texts in lower case, without making the lower-case copies.
    if (start < 1)
        start = 1;
    if (start > text.size() + 1)
        return 0;
    if (what.empty())
        return start;
    const auto at = std::search(text.begin() + static_cast<std::ptrdiff_t>(start - 1), text.end(),
                                what.begin(), what.end(), [](char a, char b) {
                                    return std::tolower(static_cast<unsigned char>(a)) ==
                                           std::tolower(static_cast<unsigned char>(b));
                                });
    return at == text.end() ? 0 : static_cast<size_t>(at - text.begin()) + 1;
}

bool StartsWith(std::string_view text, char letter) {
    return !text.empty() && text[0] == letter;
}

char FirstLetter(std::string_view text) {
    return text.empty() ? '\0' : text[0];
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() && EqualsNoCase(text.substr(0, prefix.size()), prefix);
}

bool ContainsNoCase(std::string_view text, std::string_view what) {
    return InStrNoCase(text, what) != 0;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

std::string Left(std::string_view text, size_t count) {
    return std::string(text.substr(0, std::min(count, text.size())));
}

std::string Right(std::string_view text, size_t count) {
    count = std::min(count, text.size());
    return std::string(text.substr(text.size() - count));
}

std::string Mid(std::string_view text, size_t start, size_t count) {
    if (start < 1 || start > text.size())
        return {};
    return std::string(text.substr(start - 1, count));
}

std::string Hex(long long value) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%llX", static_cast<unsigned long long>(value));
    return buffer;
}

}  // namespace pendulon
