#pragma once
#include <string>
#include <string_view>

namespace pendulon {

// Text helpers with the classic meanings. Positions count from 1; 0 means not found.
std::string Trim(std::string_view text);
std::string LCase(std::string_view text);
std::string UCase(std::string_view text);
// Position of what in text from start (1-based), 0 when absent.
size_t InStr(std::string_view text, std::string_view what, size_t start = 1);
size_t InStrNoCase(std::string_view text, std::string_view what, size_t start = 1);
bool StartsWithNoCase(std::string_view text, std::string_view prefix);
// Whether a text begins with letter.
bool StartsWith(std::string_view text, char letter);
// The first character of a text, or '\0' for the empty text.
char FirstLetter(std::string_view text);
bool ContainsNoCase(std::string_view text, std::string_view what);
bool EqualsNoCase(std::string_view a, std::string_view b);
// First character of a text, or the empty text.
std::string Left(std::string_view text, size_t count);
std::string Right(std::string_view text, size_t count);
// Characters from a 1-based position.
std::string Mid(std::string_view text, size_t start, size_t count = std::string::npos);
// Upper-case hexadecimal of a number.
std::string Hex(long long value);

}  // namespace pendulon
