#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ErrorReport.hpp"
#include "platform/Field.hpp"
#include "platform/ListField.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"

namespace pendulon {

class PlatformServices;

// The shared routines on numbers, formats, texts and fields. Those that need the running
// application (summary fields, settings, the main window) live in app/mSharedApp.
namespace mShared {

inline constexpr std::int32_t kNoSolutionPPM = 5000000;
inline constexpr int kNoPadding = -9999;

// Numbers
std::int32_t CalculatePPM(double actual, double desired);
std::int32_t ConvertBinaryToDecimal(std::string_view digits, ErrorReport& errors);
std::string ConvertDecimalToBinary(std::int32_t value, std::int32_t width);
std::string DisplayBinary(std::int16_t value, std::int16_t width);
std::int32_t GetNonZeroDivisor(std::string_view value);
double Minimum(double a, double b);
double StringToDouble(std::string_view text);

// Formats
std::string FormatFrequencyFixed(double value, int padding = kNoPadding);
std::string FormatFrequencyLong(double value);
std::string FormatFrequencyShort(double value);
std::string FormatFrequencyAbsolute(std::string_view text);
std::string PadOutputString(std::string_view text, std::int32_t width);

// Text and fields
std::string GetSubstring(std::string_view text, std::string_view startMarker,
                         std::string_view endMarker);
bool SetListIndex(ListField& list, std::string_view value, bool exact = false);
void FormatReferenceComboBox(ListField& list);
bool IsOff(const Field& field);
void CheckLimits(Field& field, double minimum, double maximum);
void HighLightText(TextField& field);
void HighLightText(ListField& field);
void MaskKeystrokeForNumbers(int& keyCode, int wholeNumbers, PlatformServices& services);

// The change-detection value of a form, held exactly as the whole number it is. A text field
// weighs its first character times (2 to the power of its length, less 1): a file path of fifty
// characters alone outweighs the rest of the form by more than a Double's 53 bits, and a path
// of some thousand characters overflows one. As a Double, the edit of a short field would
// vanish in the sum and a changed document would close without the question to save it.
class FormState {
public:
    FormState() = default;
    explicit FormState(std::uint64_t value);
    // Adds value x 2^shift.
    void Add(std::uint64_t value, unsigned shift = 0);
    // Takes value away; the state is at least value.
    void Subtract(std::uint64_t value);
    friend bool operator==(const FormState&, const FormState&) = default;

private:
    void AddToLimb(std::size_t index, std::uint64_t value);
    void Trim();
    // Base 2^32 digits, the least significant first, never a zero digit at the top.
    std::vector<std::uint32_t> limbs_;
};

FormState ComputeState(const Window& form);

// The text of a field whatever its kind: Text of text and list fields, Caption of the rest.
std::string FieldText(const Field& field);

}  // namespace mShared
}  // namespace pendulon
