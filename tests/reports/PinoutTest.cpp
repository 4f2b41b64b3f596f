#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reports/mAsciiPrintout.hpp"

namespace pendulon {
namespace {

using Pins = std::vector<std::string>;
using namespace mAsciiPrintout;

TEST(Pinout, QX6105AByOption) {
    Pins pins;
    GetPinout6105A(pins, "oe");
    EXPECT_EQ(pins, (Pins{"8", "OE", "CLKA", "GND", "XTALIN", "XTALOUT", "CLKB", "CLKC", "VDD"}));
    GetPinout6105A(pins, "shutdown");
    EXPECT_EQ(pins[1], "SHUTDOWN;________");
    GetPinout6105A(pins, "powerdown");
    EXPECT_EQ(pins[1], "PN;__");
    GetPinout6105A(pins, "select");
    EXPECT_EQ(pins[1], "FS");
    GetPinout6105A(pins, "Select");
    EXPECT_EQ(pins[1], "FS");
    EXPECT_EQ(pins.size(), 9u);
}

TEST(Pinout, QX3350ByOption) {
    Pins pins;
    GetPinout3350(pins, "oe");
    EXPECT_EQ(pins, (Pins{"8", "VDD", "XTALOUT", "XTALIN", "OE", "VSS", "CLKOUT", "NC", "NC"}));
    GetPinout3350(pins, "pd");
    EXPECT_EQ(pins[4], "PD");
    GetPinout3350(pins, "PD");
    EXPECT_EQ(pins[4], "PD");
}

TEST(Pinout, QX5140ByOption) {
    Pins pins;
    GetPinout5140(pins, "oe");
    EXPECT_EQ(pins, (Pins{"8", "OE", "CLKA", "GND", "XTALIN", "XTALOUT", "CLKB", "CLKC", "VDD"}));
    GetPinout5140(pins, "shutdown");
    EXPECT_EQ(pins[1], "SHUTDOWN;________");
    GetPinout5140(pins, "select");
    EXPECT_EQ(pins[1], "SELECT/SUSPEND;       _______");
    GetPinout5140(pins, "suspend");
    EXPECT_EQ(pins[1], "SELECT/SUSPEND;       _______");
}

TEST(Pinout, QX7311ByMode) {
    Pins pins;
    GetPinout7311(pins, "select+oe");
    EXPECT_EQ(pins, (Pins{"20",      "32Xout", "32K",  "CLKC", "VDD",  "GND",   "XTALIN",
                          "XTALOUT", "XBUF",   "CLKD", "CPU",  "CLKB", "CLKA",  "CLKF",
                          "S0",      "S1",     "AVDD", "S2",   "OE",   "VBATT", "NC"}));
    GetPinout7311(pins, "suspend+shutdown");
    EXPECT_EQ(pins[17], "S2/SUSPEND;   _______");
    EXPECT_EQ(pins[18], "SHUTDOWN;___________");
    GetPinout7311(pins, "SUSPEND+oe");
    EXPECT_EQ(pins[17], "S2/SUSPEND;   _______");
    EXPECT_EQ(pins[18], "OE");
    GetPinout7311(pins, "Select+shutdown");
    EXPECT_EQ(pins[17], "S2");
    EXPECT_EQ(pins[18], "SHUTDOWN;___________");
}

TEST(Pinout, QX7312ByMode) {
    Pins pins;
    GetPinout7312(pins, "select+oe");
    EXPECT_EQ(pins, (Pins{"16", "CLKC", "VDD", "GND", "XTALIN", "XTALOUT", "XBUF", "CLKD", "CPU",
                          "CLKB", "CLKA", "GND", "S0", "S1", "AVDD", "S2", "OE"}));
    GetPinout7312(pins, "suspend+shutdown");
    EXPECT_EQ(pins[15], "S2/SUSPEND;   _______");
    EXPECT_EQ(pins[16], "SHUTDOWN;___________");
}

TEST(Pinout, QX4860FourteenPinByOption) {
    Pins pins;
    GetPinout4860p14(pins, "powerdown");
    EXPECT_EQ(pins, (Pins{"14", "FS1", "FS2", "FS3", "AGND", "GND", "PD;__", "XTALIN", "XTALOUT",
                          "OER", "OEA", "CLKA", "VDD", "REFCLK", "FS0"}));
    GetPinout4860p14(pins, "shutdown");
    EXPECT_EQ(pins[6], "OE/SHUTDOWN;   ________");
    GetPinout4860p14(pins, "oe_enable");
    EXPECT_EQ(pins[6], "OE");
}

TEST(Pinout, QX4860EightPinHasNoOption) {
    Pins pins;
    GetPinout4860p8(pins, "");
    EXPECT_EQ(pins, (Pins{"8", "FS0", "GND", "XTALIN", "XTALOUT", "FS1", "CLKA", "VDD", "REFCLK"}));
    Pins again;
    GetPinout4860p8(again, "shutdown");
    EXPECT_EQ(again, pins);
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        const size_t end = text.find("\r\n", start);
        EXPECT_NE(end, std::string::npos) << "every row ends in CR LF";
        if (end == std::string::npos)
            break;
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    return lines;
}

TEST(CharacterChip, EightPinChipRowByRow) {
    Pins pins;
    GetPinout6105A(pins, "OE");
    // Device of 7 characters: body 2 x (3.5 + 4) = 15 wide, 13 inside the pin fragments. The
    // widest left name, "XTALIN", widens the margin from the indent 5 to 6.
    const std::vector<std::string> expected = {
        "          _______________    ",        "        _|     \\__/      |_  ",
        "    OE |_|               |_| VDD",     "        _|               |_  ",
        "  CLKA |_|    QX6105A    |_| CLKC",    "        _|               |_  ",
        "   GND |_|               |_| CLKB",    "        _|               |_  ",
        "XTALIN |_|               |_| XTALOUT", "         |_______________|   ",
    };
    EXPECT_EQ(Lines(DrawChip("QX6105A", pins, 5)), expected);
}

TEST(CharacterChip, OverbarRowStandsAboveItsNameAndAPlainNameHasNone) {
    Pins pins;
    GetPinout6105A(pins, "SHUTDOWN");
    const auto lines = Lines(DrawChip("QX6105A", pins, 5));
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[1].substr(0, 13), "________  _| ");
    EXPECT_EQ(lines[2].substr(0, 13), "SHUTDOWN |_| ");
    // No other row carries a bar in the margin.
    for (size_t i = 3; i < lines.size(); ++i) EXPECT_EQ(lines[i].find("__  _|"), std::string::npos);

    GetPinout6105A(pins, "POWERDOWN");
    const auto pn = Lines(DrawChip("QX6105A", pins, 5));
    EXPECT_EQ(pn[1].substr(0, 6), "    __");
    EXPECT_EQ(pn[2].substr(0, 6), "    PN");
}

TEST(CharacterChip, RightPinOverbarsStandOnTheRowAbove) {
    Pins pins;
    GetPinout7311(pins, "SUSPEND+shutdown");
    const auto lines = Lines(DrawChip("QX7311", pins, 5));
    // Pin 17 pairs with pin 4, pin 18 with pin 3: rows 2 x 4 and 2 x 3 (after the top row).
    const std::string& s2Row = lines[8];
    const std::string& s2Bar = lines[7];
    ASSERT_GE(s2Row.size(), 10u);
    EXPECT_EQ(s2Row.substr(s2Row.size() - 10), "S2/SUSPEND");
    EXPECT_EQ(s2Bar.substr(s2Bar.size() - 14), "|_     _______");
    EXPECT_EQ(lines[6].substr(lines[6].size() - 8), "SHUTDOWN");
    // The bar is cut at the name's end.
    EXPECT_EQ(lines[5].substr(lines[5].size() - 12), "|_  ________");
}

TEST(CharacterChip, KeepsPinOrderForEveryTable) {
    const std::vector<std::pair<std::string, void (*)(Pins&, const std::string&)>> tables = {
        {"QX6105A", GetPinout6105A}, {"QX3350", GetPinout3350}, {"QX5140", GetPinout5140},
        {"QX7311", GetPinout7311},   {"QX7312", GetPinout7312}, {"QX4860", GetPinout4860p14},
        {"QX4860", GetPinout4860p8},
    };
    for (const auto& [device, table] : tables) {
        Pins pins;
        table(pins, "select");
        const int n = std::stoi(pins[0]);
        const auto lines = Lines(DrawChip(device, pins, 5));
        ASSERT_EQ(static_cast<int>(lines.size()), n + 2)
            << device;  // top, two rows a pin pair, bottom
        for (int k = 1; k <= n / 2; ++k) {
            const std::string& row = lines[static_cast<size_t>(2 * k)];
            const std::string leftName =
                pins[static_cast<size_t>(k)].substr(0, pins[static_cast<size_t>(k)].find(';'));
            const std::string& rightText = pins[static_cast<size_t>(n + 1 - k)];
            const std::string rightName = rightText.substr(0, rightText.find(';'));
            const size_t pinLeft = row.find(" |_| ");
            ASSERT_NE(pinLeft, std::string::npos) << device << " row " << k;
            const std::string margin = row.substr(0, pinLeft);
            EXPECT_EQ(margin.substr(margin.size() - leftName.size()), leftName)
                << device << " pin " << k;
            const std::string tail = " |_| " + rightName;
            EXPECT_EQ(row.substr(row.size() - tail.size()), tail) << device << " pin " << n + 1 - k;
        }
    }
}

TEST(CharacterChip, DeviceTextStandsInTheMiddleRow) {
    Pins pins;
    GetPinout4860p14(pins, "powerdown");  // 7 pin rows, an odd half: row 14 / 4 + 1 = 4
    auto lines = Lines(DrawChip("QX4860", pins, 5));
    EXPECT_NE(lines[8].find("QX4860"), std::string::npos);
    GetPinout7311(pins, "select+oe");  // 10 pin rows: row 20 / 4 = 5
    lines = Lines(DrawChip("QX7311", pins, 5));
    EXPECT_NE(lines[10].find("QX7311"), std::string::npos);
    GetPinout7312(pins, "select+oe");  // 8 pin rows: row 4
    lines = Lines(DrawChip("QX7312", pins, 5));
    EXPECT_NE(lines[8].find("QX7312"), std::string::npos);
}

TEST(CharacterChip, BodyWidthIsDeviceLengthPlusEightAndAtLeast14) {
    Pins pins;
    GetPinout4860p8(pins, "");
    auto topUnderscores = [&](const std::string& device) {
        const auto lines = Lines(DrawChip(device, pins, 5));
        const std::string& top = lines.front();
        return std::count(top.begin(), top.end(), '_');
    };
    EXPECT_EQ(topUnderscores("QX"), 14);
    EXPECT_EQ(topUnderscores("QX43"), 14);  // 2 x (2 + 4) = 12, raised to 14
    EXPECT_EQ(topUnderscores("QX3350"), 14);
    EXPECT_EQ(topUnderscores("QX6105A"), 15);
    EXPECT_EQ(topUnderscores("QX6105AF"), 16);
    EXPECT_EQ(topUnderscores("QX7311FI"), 16);
}

TEST(CharacterChip, DeviceImageReadsPinCountByLeadingNumberAndIndentsByScalePlusFive) {
    Pins pins;
    GetPinout4860p8(pins, "");
    pins[0] = "8 pins";
    const std::string image = GetDeviceImage(
        "QX4860", [&](int i) { return pins[static_cast<size_t>(i)]; }, 2);
    // Indent 7: wider than every left name.
    EXPECT_EQ(Lines(image).front(), std::string(7, ' ') + "    " + std::string(14, '_') + "    ");
    EXPECT_EQ(Lines(image).size(), 8u + 2u);
}

}  // namespace
}  // namespace pendulon
