#include "core/mShared.hpp"

#include <cmath>
#include <cstdlib>

#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "platform/CheckBox.hpp"
#include "platform/OptionButton.hpp"
#include "platform/PlatformServices.hpp"

namespace pendulon::mShared {

std::int32_t CalculatePPM(double actual, double desired) {
    std::int32_t result = kNoSolutionPPM;
    if (desired == 0)
        return result;
    // Overflow is caught here and never reaches the error report.
    const double raw = (actual / desired - 1.0) * 1000000.0;
    const auto rounded = ToLong(raw);
    if (!rounded || std::llabs(static_cast<long long>(*rounded)) > kNoSolutionPPM)
        return kNoSolutionPPM;
    return *rounded;
}

std::int32_t ConvertBinaryToDecimal(std::string_view digits, ErrorReport& errors) {
    std::int32_t result = 0;
    for (size_t i = 0; i < digits.size(); ++i) {
        const auto digit = ToLong(Val(digits.substr(i, 1)));
        const double next = static_cast<double>(result) * 2.0 + (digit ? *digit : 0);
        const auto checked = ToLong(next);
        if (!checked || next != RoundHalfEven(next)) {
            errors.Raise(errors::Overflow, "mShared.ConvertBinaryToDecimal");
            continue;
        }
        result = *checked;
    }
    return result;
}

std::string ConvertDecimalToBinary(std::int32_t value, std::int32_t width) {
    std::string padded(static_cast<size_t>(std::max(width, 0)), '0');
    std::string digits;
    std::int32_t v = value;
    while (v > 0) {
        digits.insert(digits.begin(), static_cast<char>('0' + v % 2));
        v /= 2;
    }
    if (value < 1)
        digits.assign(1, '0');
    if (width > static_cast<std::int32_t>(digits.size())) {
        padded.replace(padded.size() - digits.size(), digits.size(), digits);
        return padded;
    }
    return digits;
}

std::string DisplayBinary(std::int16_t value, std::int16_t width) {
    std::string result;
    if (value == 0) {
        result.assign(1, '0');
    } else if (value == 1) {
        result.assign(1, '1');
    } else {
        int v = value;
        while (v != 1 && v > 0) {
            result.insert(result.begin(), static_cast<char>('0' + v % 2));
            v /= 2;
        }
        result.insert(result.begin(), '1');
    }
    if (static_cast<int>(result.size()) < width)
        result.insert(0, static_cast<size_t>(width) - result.size(), '0');
    return result;
}

std::int32_t GetNonZeroDivisor(std::string_view value) {
    const std::string behind = Trim(GetSubstring(value, "/", ""));
    if (behind.empty() || behind == "0")
        return 1;
    const auto number = ToLong(Val(behind));
    return number ? *number : 1;
}

double Minimum(double a, double b) {
    return a < b ? a : b;
}

double StringToDouble(std::string_view text) {
    // Deliberately uses the first character at every step: the value depends only on the
    // first character and the length.
    double result = 0;
    for (size_t i = 0; i < text.size(); ++i)
        result = 2.0 * result + static_cast<unsigned char>(text[0]);
    return result;
}

std::string FormatFrequencyFixed(double value, int padding) {
    const std::string formatted = FormatNumber(value, "##0.00000");
    if (padding == kNoPadding)
        return formatted;
    const long count = std::labs(static_cast<long>(formatted.size()) - 9) * std::labs(padding);
    const std::string blanks(static_cast<size_t>(count), ' ');
    return padding < 1 ? formatted + blanks : blanks + formatted;
}

std::string FormatFrequencyLong(double value) {
    if (value == 0)
        return "Off";
    return FormatNumber(value, "##0.0#########");
}

std::string FormatFrequencyShort(double value) {
    if (value == 0)
        return "Off";
    return FormatNumber(value, "##0.0####");
}

std::string FormatFrequencyAbsolute(std::string_view text) {
    const double value = std::fabs(Val(text));
    if (value == 0)
        return "Off";
    return GeneralNumber(value) + " MHz";
}

std::string PadOutputString(std::string_view text, std::int32_t width) {
    std::string out(text);
    if (width > static_cast<std::int32_t>(out.size()))
        out.append(static_cast<size_t>(width) - out.size(), ' ');
    return out;
}

std::string GetSubstring(std::string_view s, std::string_view a, std::string_view b) {
    const size_t pa = a.empty() ? 0 : InStrNoCase(s, a);
    const size_t pb = b.empty() ? 0 : InStr(s, b, pa < 1 ? 1 : pa);
    if (a.empty() && b.empty())
        return std::string(s);
    if (!a.empty()) {
        if (b.empty() && pa >= 1)
            return Mid(s, pa + a.size());
        if (pa < 1)
            return {};
        if (pb < 1)
            return Mid(s, pa + a.size());
        const size_t from = pa + a.size();
        if (pb <= from)
            return {};
        return Mid(s, from, pb - from);
    }
    if (pb >= 2)
        return Left(s, pb - 1);
    return std::string(s);
}

bool SetListIndex(ListField& list, std::string_view value, bool exact) {
    // The entry is trimmed, the value is taken as it is.
    const double number = Val(value);
    for (int i = 0; i < list.ListCount(); ++i) {
        const std::string entry = list.List(i);
        const bool match = exact ? EqualsNoCase(Trim(entry), value) : Val(entry) == number;
        if (match) {
            list.SetListIndex(i);
            return true;
        }
    }
    return false;
}

void FormatReferenceComboBox(ListField& list) {
    const std::string current = list.Text();
    if (SetListIndex(list, current))
        return;
    const std::string formatted = FormatFrequencyFixed(Val(current)) + " MHz";
    if (!SetListIndex(list, formatted)) {
        list.AddItem(formatted);
        SetListIndex(list, formatted);
    }
}

bool IsOff(const Field& field) {
    if (field.Kind() == FieldKind::Text)
        return Val(static_cast<const TextField&>(field).Text()) == 0;
    if (field.Kind() == FieldKind::List)
        return ContainsNoCase(static_cast<const ListField&>(field).Text(), "Off");
    return false;
}

std::string FieldText(const Field& field) {
    if (field.Kind() == FieldKind::Text)
        return static_cast<const TextField&>(field).Text();
    if (field.Kind() == FieldKind::List)
        return static_cast<const ListField&>(field).Text();
    return field.Caption();
}

void CheckLimits(Field& field, double minimum, double maximum) {
    const std::string text = Trim(FieldText(field));
    if (!text.empty() && (text[0] == 'O' || text[0] == 'N')) {
        field.SetForeColor(colors::WindowText);
        return;
    }
    const double value = Val(text);
    field.SetForeColor(value >= minimum && value <= maximum ? colors::WindowText : colors::Red);
}

void HighLightText(TextField& field) {
    field.SetSelStart(0);
    field.SetSelLength(static_cast<int>(field.Text().size()));
}

void HighLightText(ListField& field) {
    field.SetSelStart(0);
    field.SetSelLength(static_cast<int>(field.Text().size()));
}

void MaskKeystrokeForNumbers(int& keyCode, int wholeNumbers, PlatformServices& services) {
    const bool digit = keyCode >= '0' && keyCode <= '9';
    const bool control = keyCode == 46 || keyCode == 8 || keyCode == 9 || keyCode == 36 ||
                         keyCode == 35 || keyCode == 16 || keyCode == 13;
    const bool decimal = wholeNumbers == 0 && (keyCode == ',' || keyCode == '.');
    if (digit || control || decimal)
        return;
    keyCode = 0;
    services.Beep();
}

FormState::FormState(std::uint64_t value) { Add(value); }

void FormState::AddToLimb(std::size_t index, std::uint64_t value) {
    // value is below 2^64: it spans this digit and the next; the carry runs on from there.
    while (value != 0) {
        if (limbs_.size() <= index)
            limbs_.resize(index + 1, 0);
        const std::uint64_t sum = static_cast<std::uint64_t>(limbs_[index]) + (value & 0xFFFFFFFFu);
        limbs_[index] = static_cast<std::uint32_t>(sum);
        value = (value >> 32) + (sum >> 32);
        ++index;
    }
}

void FormState::Add(std::uint64_t value, unsigned shift) {
    const std::size_t index = shift / 32;
    const unsigned bits = shift % 32;
    // Each half of value, moved by fewer than 32 bits, still fits in 64.
    AddToLimb(index, (value & 0xFFFFFFFFu) << bits);
    AddToLimb(index + 1, (value >> 32) << bits);
}

void FormState::Subtract(std::uint64_t value) {
    std::uint64_t borrow = 0;
    for (std::size_t index = 0; index < limbs_.size() && (value != 0 || borrow != 0); ++index) {
        const std::uint64_t take = (value & 0xFFFFFFFFu) + borrow;
        const std::uint64_t digit = limbs_[index];
        borrow = digit < take ? 1 : 0;
        limbs_[index] = static_cast<std::uint32_t>((digit | (borrow << 32)) - take);
        value >>= 32;
    }
    Trim();
}

void FormState::Trim() {
    while (!limbs_.empty() && limbs_.back() == 0) limbs_.pop_back();
}

FormState ComputeState(const Window& form) {
    FormState sum;
    std::uint64_t i = 0;
    for (const Field* field : form.Fields().Fields()) {
        const std::uint64_t weight = i * i;
        std::uint64_t v = 0;
        switch (field->Kind()) {
            case FieldKind::Check:
                v = static_cast<std::uint64_t>(static_cast<const CheckBox*>(field)->Value());
                break;
            case FieldKind::Option: {
                const auto* option = static_cast<const OptionButton*>(field);
                v = !option->Enabled() ? 1 : option->Value() ? 2 : 3;
                break;
            }
            case FieldKind::List:
                v = static_cast<std::uint64_t>(
                    static_cast<const ListField*>(field)->ListIndex() + 1);
                break;
            case FieldKind::Text: {
                // StringToDouble's value, first character x (2^length - 1), without rounding.
                const std::string& text = static_cast<const TextField*>(field)->Text();
                if (!text.empty()) {
                    const std::uint64_t first = static_cast<unsigned char>(text[0]);
                    sum.Add(weight * first, static_cast<unsigned>(text.size()));
                    sum.Subtract(weight * first);
                }
                break;
            }
            default:
                v = 0;
        }
        sum.Add(weight * v);
        i += 1;
    }
    return sum;
}

}  // namespace pendulon::mShared
