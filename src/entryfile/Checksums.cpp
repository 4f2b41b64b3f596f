#include "entryfile/Checksums.hpp"

#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/clsEntryFile4860.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "platform/ErrorReport.hpp"

namespace pendulon::mShared {

std::int16_t HexDigitSum(std::string_view text, ErrorReport& errors) {
    std::int32_t sum = 0;
    // p counts from 1 and runs to length - 1 in steps of 4.
    for (size_t p = 1; p + 1 <= text.size(); p += 4) {
        sum += ConvertBinaryToDecimal(text.substr(p - 1, 4), errors);
        if (sum > INT16_MAX) {
            errors.Raise(errors::Overflow, "mShared.HexDigitSum");
            sum = INT16_MAX;
        }
    }
    return static_cast<std::int16_t>(sum);
}

std::string CalculateJEDECChecksum(std::string_view fuses) {
    std::string text(fuses);
    while (text.size() % 8 != 0) text.push_back('0');
    unsigned sum = 0;
    for (size_t g = 0; g < text.size(); g += 8) {
        unsigned byte = 0;
        for (unsigned b = 0; b < 8; ++b)
            if (text[g + b] == '1')
                byte += 1u << b;
        sum += byte;
    }
    std::string hex = Hex(static_cast<long long>(sum));
    if (hex.size() < 4)
        hex.insert(0, 4 - hex.size(), '0');
    return hex;
}

std::string CalculateChecksum(const clsEntryFile& entry, const std::string& device) {
    if (device == "QX4860" || device == "QX6105A" || device == "QX4860F" || device == "QX6105AF" ||
        device == "QX4860I" || device == "QX6105AI") {
        return IntegerText(clsEntryFile4860::CalculateChecksum(entry, entry.Errors()));
    }
    if (clsEntryFile7311::IsFamilyDevice(device))
        return IntegerText(clsEntryFile7311::CalculateChecksum(entry, entry.Errors()));
    // Every other device, the QX3350 among them, has no family checksum.
    return "n/a";
}

}  // namespace pendulon::mShared
