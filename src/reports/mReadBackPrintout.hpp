#pragma once
#include <string>

#include "reports/ReadBack.hpp"

namespace pendulon {

// The read-back document of a fuse map: the file's checks, the loops, the outputs and every
// decoded fuse field, in a fixed-pitch layout with CR LF line ends, for the print preview, a
// text file or the command line.
namespace mReadBackPrintout {

std::string GetReadBackDocument(const ReadBack& readBack);

// A frequency as the device windows show it ("##0.00000"), or "Off".
std::string FrequencyText(double frequency, bool off);
// A VCO as a loop's data text shows it ("0.000000"), or "Off".
std::string VCOText(double vco, bool off);

}  // namespace mReadBackPrintout
}  // namespace pendulon
