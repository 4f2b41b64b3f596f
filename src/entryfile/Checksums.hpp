#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace pendulon {

class ErrorReport;
class clsEntryFile;

namespace mShared {

// Sum of the text read in groups of four binary digits. The loop stops one character short of
// the end, so a single digit left over at the end is not counted.
std::int16_t HexDigitSum(std::string_view text, ErrorReport& errors);

// Checksum of a fuse text: zero-padded to whole bytes, each byte read with its first fuse as
// bit 0, the bytes summed; four upper-case hexadecimal digits.
std::string CalculateJEDECChecksum(std::string_view fuses);

// Family checksum of a read entry image, as text; "n/a" for a device whose family has none.
std::string CalculateChecksum(const clsEntryFile& entry, const std::string& device);

}  // namespace mShared
}  // namespace pendulon
