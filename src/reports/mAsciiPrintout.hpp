#pragma once
#include <functional>
#include <string>
#include <vector>

namespace pendulon {

class Configurator;

// The ASCII configuration document: the pin tables of every device and the chip drawn in
// characters. A pin text is a name, optionally followed by ";" and an overbar row of the same
// character positions ("PD;__").
namespace mAsciiPrintout {

// Pin tables. Element 0 receives the pin count as text, elements 1 to n the pin texts. The
// option text chooses the text of the option pins; it is compared without regard to case.
void GetPinout6105A(std::vector<std::string>& astrPin, const std::string& strOption);
void GetPinout3350(std::vector<std::string>& astrPin, const std::string& strOption);
void GetPinout5140(std::vector<std::string>& astrPin, const std::string& strOption);
// The option text holds the S2 mode ("SUSPEND" or "Select") and the enable mode
// ("+shutdown" or "+oe"), as in "SUSPEND+oe".
void GetPinout7311(std::vector<std::string>& astrPin, const std::string& strOption);
void GetPinout7312(std::vector<std::string>& astrPin, const std::string& strOption);
void GetPinout4860p14(std::vector<std::string>& astrPin, const std::string& strOption);
void GetPinout4860p8(std::vector<std::string>& astrPin, const std::string& strOption);

// The chip of a form: the pin count from PinName(0) by the leading-number rule, the pin texts
// PinName(0) to PinName(n), drawn with an indent of scale + 5.
std::string GetDeviceImage(const std::string& strDevice,
                           const std::function<std::string(int)>& PinName, int intScale);
std::string GetDeviceImage(const Configurator& form, int intScale);

// The chip in characters: two columns of pins in a dual-in-line view, the device text in the
// middle of the body, each pin's overbar row on the line above its name. CR LF line ends.
std::string DrawChip(const std::string& strDevice, const std::vector<std::string>& astrPin,
                     int intIndent);

}  // namespace mAsciiPrintout
}  // namespace pendulon
