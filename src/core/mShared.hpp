#pragma once
#include <cstdint>
#include <string>
#include <string_view>

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
double ComputeState(const Window& form);

// The text of a field whatever its kind: Text of text and list fields, Caption of the rest.
std::string FieldText(const Field& field);

}  // namespace mShared
}  // namespace pendulon
