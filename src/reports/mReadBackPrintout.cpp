#include "reports/mReadBackPrintout.hpp"

#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"

namespace pendulon::mReadBackPrintout {

namespace {

constexpr const char* kCrLf = "\r\n";

std::string Pad(const std::string& text, int width) {
    return mShared::PadOutputString(text, width);
}

// A line without the blanks its last column leaves.
std::string Row(std::string text) {
    while (!text.empty() && text.back() == ' ') text.pop_back();
    return text + kCrLf;
}

std::string Line(const std::string& label, const std::string& value) {
    return Row("  " + Pad(label, 18) + value);
}

std::string Join(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
}

}  // namespace

std::string FrequencyText(double frequency, bool off) {
    return off ? std::string("Off") : Trim(mShared::FormatFrequencyFixed(frequency));
}

std::string VCOText(double vco, bool off) {
    return off ? std::string("Off") : FormatNumber(vco, "0.000000");
}

std::string GetReadBackDocument(const ReadBack& rb) {
    std::string out = std::string("Fuse Map Read-Back") + kCrLf + kCrLf;
    out += Line("File:", rb.File);
    std::string device = rb.Device;
    if (rb.Devices.size() > 1)
        device += "   (the fuses fit: " + Join(rb.Devices) + ")";
    out += Line("Device:", device);
    out += Line("Reference:", FrequencyText(rb.Reference, false) + " MHz");
    out += Line("Fuse checksum:", rb.FuseChecksum + " (verified)");
    out += Line("Transmission:", rb.Transmission);
    std::string family = rb.FamilyChecksum;
    if (!rb.StoredFamilyChecksum.empty())
        family += rb.StoredFamilyChecksum == rb.FamilyChecksum
                      ? " (stored in the fuses: the same)"
                      : " (stored in the fuses: " + rb.StoredFamilyChecksum + ", different)";
    out += Line("Family checksum:", family);
    if (!rb.Written.empty())
        out += Line("Written by:", rb.Written);
    out += kCrLf;

    out += std::string("Loops") + kCrLf;
    out +=
        "  " + Pad("Loop", 10) + Pad("P", 7) + Pad("Q", 7) + Pad("VCO (MHz)", 14) + "Note" + kCrLf;
    for (const ReadBack::Loop& loop : rb.Loops) {
        out += Row("  " + Pad(loop.Name, 10) + Pad(IntegerText(loop.P), 7) +
                   Pad(IntegerText(loop.Q), 7) + Pad(VCOText(loop.VCO, loop.Off), 14) + loop.Note);
    }
    out += kCrLf;

    bool unshown = false;
    out += std::string("Outputs") + kCrLf;
    out += "  " + Pad("Pin", 8) + Pad("State", 18) + Pad("Source", 12) + Pad("Divider", 9) +
           "Frequency (MHz)" + kCrLf;
    for (const ReadBack::Output& output : rb.Outputs) {
        std::string frequency = FrequencyText(output.Frequency, output.Off);
        if (!output.Shown && !output.Off) {
            frequency += " *";
            unshown = true;
        }
        // The source's name without the divider its text carries behind "/".
        const std::string source = output.Source.substr(0, output.Source.find('/'));
        const std::string divider = output.Off ? "" : IntegerText(output.Divider);
        out += Row("  " + Pad(output.Pin, 8) + Pad(output.State, 18) + Pad(source, 12) +
                   Pad(divider, 9) + frequency);
    }
    if (unshown)
        out += std::string("  * The window shows the source of this output, not a number.") + kCrLf;
    out += kCrLf;

    out += std::string("Fuse fields") + kCrLf;
    out += "  " + Pad("#", 6) + Pad("Value", 8) + "Field" + kCrLf;
    for (const ReadBack::Field& field : rb.Fields)
        out += Row("  " + Pad(IntegerText(field.Index), 6) + Pad(IntegerText(field.Value), 8) +
                   field.Name);

    if (!rb.Notes.empty()) {
        out += kCrLf + std::string("Notes") + kCrLf;
        for (const std::string& note : rb.Notes) out += "  " + note + kCrLf;
    }
    return out;
}

}  // namespace pendulon::mReadBackPrintout
