#include <algorithm>

#include "app/Configurator.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "reports/mAsciiPrintout.hpp"

namespace pendulon::mAsciiPrintout {

namespace {

constexpr const char* kEndOfLine = "\r\n";

void Fill(std::vector<std::string>& astrPin, std::initializer_list<std::string> pins) {
    astrPin.assign(pins.size() + 1, std::string());
    astrPin[0] = std::to_string(pins.size());
    std::copy(pins.begin(), pins.end(), astrPin.begin() + 1);
}

// Option pin of the eight-pin QX6105A and QX5140; an option outside the list leaves the pin
// without a name.
std::string EightPinOption(const std::string& option, bool qx5140) {
    if (EqualsNoCase(option, "OE"))
        return "OE";
    if (EqualsNoCase(option, "SHUTDOWN"))
        return "SHUTDOWN;________";
    if (qx5140) {
        if (EqualsNoCase(option, "Select") || EqualsNoCase(option, "SUSPEND"))
            return "SELECT/SUSPEND;       _______";
        return {};
    }
    if (EqualsNoCase(option, "POWERDOWN"))
        return "PN;__";
    if (EqualsNoCase(option, "Select"))
        return "FS";
    return {};
}

// The S2 pin and the enable pin of the QX7311 family.
std::string S2Pin(const std::string& option) {
    return ContainsNoCase(option, "SUSPEND") ? "S2/SUSPEND;   _______" : "S2";
}
std::string EnablePin(const std::string& option) {
    return ContainsNoCase(option, "SHUTDOWN") ? "SHUTDOWN;___________" : "OE";
}

std::string Spaces(size_t count) {
    return std::string(count, ' ');
}

std::string RightAlign(const std::string& text, size_t width) {
    return text.size() >= width ? text : Spaces(width - text.size()) + text;
}

// Name and overbar row of a pin text; the overbar never reaches past the name.
struct PinText {
    std::string name;
    std::string bar;
};

PinText SplitPin(const std::vector<std::string>& astrPin, long index) {
    PinText pin;
    if (index < 1 || index >= static_cast<long>(astrPin.size()))
        return pin;
    const std::string& text = astrPin[static_cast<size_t>(index)];
    pin.name = mShared::GetSubstring(text, "", ";");
    if (InStr(text, ";") == 0)
        return pin;
    pin.bar = mShared::GetSubstring(text, ";", "");
    if (pin.bar.size() > pin.name.size())
        pin.bar.resize(pin.name.size());
    if (pin.bar.find_first_not_of(' ') == std::string::npos)
        pin.bar.clear();
    return pin;
}

// The overbar of a left pin, placed over its right-aligned name.
std::string LeftBar(const PinText& pin, size_t width) {
    if (pin.bar.empty())
        return Spaces(width);
    std::string field = Spaces(width);
    const size_t start = width - pin.name.size();
    field.replace(start, pin.bar.size(), pin.bar);
    return field;
}

std::string Row(const std::string& row) {
    return row + kEndOfLine;
}

}  // namespace

void GetPinout6105A(std::vector<std::string>& astrPin, const std::string& strOption) {
    Fill(astrPin, {EightPinOption(strOption, false), "CLKA", "GND", "XTALIN", "XTALOUT", "CLKB",
                   "CLKC", "VDD"});
}

void GetPinout3350(std::vector<std::string>& astrPin, const std::string& strOption) {
    std::string option;
    if (EqualsNoCase(strOption, "OE")) {
        option = "OE";
    } else if (EqualsNoCase(strOption, "PD") || EqualsNoCase(strOption, "POWERDOWN")) {
        option = "PD";
    }
    // Pins 7 and 8 are not connected: every pin of a drawing carries a name.
    Fill(astrPin, {"VDD", "XTALOUT", "XTALIN", option, "VSS", "CLKOUT", "NC", "NC"});
}

void GetPinout5140(std::vector<std::string>& astrPin, const std::string& strOption) {
    Fill(astrPin, {EightPinOption(strOption, true), "CLKA", "GND", "XTALIN", "XTALOUT", "CLKB",
                   "CLKC", "VDD"});
}

void GetPinout7311(std::vector<std::string>& astrPin, const std::string& strOption) {
    Fill(astrPin, {"32Xout",
                   "32K",
                   "CLKC",
                   "VDD",
                   "GND",
                   "XTALIN",
                   "XTALOUT",
                   "XBUF",
                   "CLKD",
                   "CPU",
                   "CLKB",
                   "CLKA",
                   "CLKF",
                   "S0",
                   "S1",
                   "AVDD",
                   S2Pin(strOption),
                   EnablePin(strOption),
                   "VBATT",
                   "NC"});
}

void GetPinout7312(std::vector<std::string>& astrPin, const std::string& strOption) {
    Fill(astrPin, {"CLKC", "VDD", "GND", "XTALIN", "XTALOUT", "XBUF", "CLKD", "CPU", "CLKB", "CLKA",
                   "GND", "S0", "S1", "AVDD", S2Pin(strOption), EnablePin(strOption)});
}

void GetPinout4860p14(std::vector<std::string>& astrPin, const std::string& strOption) {
    std::string option;
    if (EqualsNoCase(strOption, "SHUTDOWN")) {
        option = "OE/SHUTDOWN;   ________";
    } else if (EqualsNoCase(strOption, "POWERDOWN")) {
        option = "PD;__";
    } else if (EqualsNoCase(strOption, "OE_ENABLE")) {
        option = "OE";
    }
    Fill(astrPin, {"FS1", "FS2", "FS3", "AGND", "GND", option, "XTALIN", "XTALOUT", "OER", "OEA",
                   "CLKA", "VDD", "REFCLK", "FS0"});
}

void GetPinout4860p8(std::vector<std::string>& astrPin, const std::string& /*strOption*/) {
    Fill(astrPin, {"FS0", "GND", "XTALIN", "XTALOUT", "FS1", "CLKA", "VDD", "REFCLK"});
}

std::string GetDeviceImage(const std::string& strDevice,
                           const std::function<std::string(int)>& PinName, int intScale) {
    const double count = Val(PinName(0));
    const int n = count < 0 ? 0 : static_cast<int>(std::min(count, 1000.0));
    std::vector<std::string> pins(static_cast<size_t>(n) + 1);
    for (int i = 0; i <= n; ++i) pins[static_cast<size_t>(i)] = PinName(i);
    return DrawChip(strDevice, pins, intScale + 5);
}

std::string GetDeviceImage(const Configurator& form, int intScale) {
    return GetDeviceImage(
        form.Device(), [&form](int index) { return form.PinName(index); }, intScale);
}

std::string DrawChip(const std::string& strDevice, const std::vector<std::string>& astrPin,
                     int intIndent) {
    const size_t w = std::max<size_t>(
        14, static_cast<size_t>(
                RoundHalfEven(2.0 * (static_cast<double>(strDevice.size()) / 2.0 + 4.0))));
    const long n = astrPin.empty() ? 0 : static_cast<long>(std::max(0.0, Val(astrPin[0])));
    const long rows = n / 2;
    const bool oddHalf = rows % 2 == 1;
    const long middleRow = oddHalf ? n / 4 + 1 : n / 4;

    // The left margin holds the left names right-aligned; it is the indent unless a name is
    // wider, so that no name is cut.
    size_t margin = static_cast<size_t>(std::max(0, intIndent));
    for (long k = 1; k <= rows; ++k) margin = std::max(margin, SplitPin(astrPin, k).name.size());

    const size_t inner = w - 2;
    auto centred = [inner](const std::string& text) {
        if (text.size() >= inner)
            return text.substr(0, inner);
        const size_t left = (inner - text.size()) / 2;
        return Spaces(left) + text + Spaces(inner - text.size() - left);
    };

    std::string result;
    result += Row(Spaces(margin) + "    " + std::string(w, '_') + "    ");
    for (long k = 1; k <= rows; ++k) {
        const PinText left = SplitPin(astrPin, k);
        const PinText right = SplitPin(astrPin, n + 1 - k);
        // The row above a pin row carries the tops of both pins and their overbar rows.
        std::string above = LeftBar(left, margin);
        if (k == 1) {
            above += "  _| " + centred("\\__/") + " |_  ";
        } else {
            above += "  _|" + Spaces(w) + "|_  ";
        }
        above += right.bar;
        result += Row(above);

        std::string row = RightAlign(left.name, margin) + " |_| ";
        row += centred(k == middleRow ? strDevice : std::string());
        row += " |_| " + right.name;
        result += Row(row);
    }
    result += Row(Spaces(margin) + "   |" + std::string(w, '_') + "|   ");
    return result;
}

}  // namespace pendulon::mAsciiPrintout
