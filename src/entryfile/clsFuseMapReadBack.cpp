// What a decoded fuse map makes from a reference, and the entry image that opens it. The numbers
// come from the models the device windows use: a loop's VCO from clsPLL's data text of the fuse
// counters, an output from clsPLL's actual-frequency lists through the divider the window
// applies, the source texts from the windows' own lists. So a read-back shows what the device's
// window shows for the same counters.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/clsPLL.hpp"
#include "core/clsQX4860.hpp"
#include "core/clsQX7311.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/clsEntryFile3350.hpp"
#include "entryfile/clsEntryFile4860.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "entryfile/clsFuseMap.hpp"
#include "platform/ListField.hpp"
#include "reports/ReadBack.hpp"

namespace pendulon {

namespace {

std::string Binary(int value, int width) {
    return mShared::DisplayBinary(static_cast<std::int16_t>(value),
                                  static_cast<std::int16_t>(width));
}

// The text of entry index of a list the way a window fills it.
template <class Fill>
std::string ListEntry(Fill fill, int index) {
    ListField list;
    fill(list);
    return index >= 0 && index < list.ListCount() ? list.List(index) : std::string();
}

// One loop of a window: its data list holding the fuse counters, as the window's fill stores
// them with a loop of default limits.
class Loop {
  public:
    Loop(ErrorReport& errors, double reference, int p, int q) : pll_(errors) {
        pll_.mdblReferenceFrequency = reference;
        pll_.StoreVCOPAndQ(data_, p, q);
    }
    // The VCO as the data list shows it; 0 for counters that mark a loop without solution.
    double VCO() { return pll_.GetVCO(data_.Text()); }
    ListField& Data() { return data_; }
    // An output on the loop through divider, as DisplayActualPPM lists it; 0 when the loop
    // has no VCO.
    double Output(std::int32_t divider) {
        const double vco = VCO();
        if (vco <= 0 || divider <= 0)
            return 0;
        ListField actual;
        pll_.DisplayActualPPM(data_, actual, vco / divider, divider);
        return Val(actual.Text());
    }
    // The loop's frequency as a QX7311 window lists it (its VCO halved), then an output on that
    // list through divider, as DisplayActual gives it.
    double HalvedOutput(std::int16_t divider) {
        if (VCO() <= 0 || divider <= 0)
            return 0;
        ListField half;
        pll_.DisplayActualPPM(data_, half, VCO() / 2, 2);
        ListField actual;
        pll_.DisplayActual(half, actual, divider);
        return Val(actual.Text());
    }

  private:
    clsPLL pll_;
    ListField data_;
};

// A frequency the chip makes as a user would have typed it: the value with the fewest decimals
// that lies within 1 ppm of it. A search for it finds the same counters, and a window that
// decides by the typed value (a prescaler at half the VCO maximum, say) decides as it did.
double Typed(double frequency) {
    double scale = 1;
    for (int decimals = 0; decimals <= 6; ++decimals, scale *= 10) {
        const double rounded = std::round(frequency * scale) / scale;
        if (std::fabs(rounded - frequency) <= 1e-6 * std::fabs(frequency))
            return rounded;
    }
    return frequency;
}

// The reference through a divider, as the windows format it.
double ReferenceOutput(double reference, int divider) {
    return divider > 0 ? Val(mShared::FormatFrequencyFixed(reference / divider)) : 0;
}

struct Made {
    ReadBack readBack;
    std::unique_ptr<clsEntryFile> image;
};

ReadBack::Loop LoopLine(const std::string& name, int p, int q, double vco) {
    ReadBack::Loop loop;
    loop.Name = name;
    loop.P = p;
    loop.Q = q;
    loop.VCO = vco;
    loop.Off = vco <= 0;
    return loop;
}

ReadBack::Output OutputLine(const std::string& pin, const std::string& state,
                            const std::string& source, double frequency) {
    ReadBack::Output output;
    output.Pin = pin;
    output.State = state;
    output.Source = source;
    output.Divider = static_cast<int>(mShared::GetNonZeroDivisor(source));
    output.Off = ContainsNoCase(source, "Off") || frequency <= 0;
    output.Frequency = output.Off ? 0 : frequency;
    return output;
}

// ---- QX4860 family and QX6105A ---------------------------------------------------------------

void Make4860(const clsEntryFile& fuses, const std::string& device, double reference,
              ErrorReport& errors, Made& made) {
    const auto i = [&fuses](int n) { return static_cast<int>(fuses.i(n)); };
    clsEntryFile& image = *made.image;
    ReadBack& rb = made.readBack;
    const bool is4860 = clsEntryFile4860::Is4860Device(device);
    // The selections the select pins reach, and their names in the window.
    struct Selection {
        int sel;
        std::string name;
    };
    std::vector<Selection> selections;
    if (is4860) {
        const bool pins14 = fuses.mintPValue == 14;
        for (int k = 0; k < (pins14 ? 16 : 4); ++k)
            selections.push_back({pins14 ? k : 9 + 2 * k, Binary(k, pins14 ? 4 : 2)});
    } else if (i(8) != 0) {
        selections = {{9, "0"}, {13, "1"}};
    } else {
        selections = {{13, ""}};
    }
    const auto clockEntry = [&errors](int index) {
        return ListEntry(
            [&errors](ListField& list) { clsQX4860(errors).InitializeClockDivisors(list); }, index);
    };
    // Outputs, each with its OE field (3 is off) and its multiplexer field.
    struct Pin {
        std::string name;
        int oe;
        int mux;
    };
    const std::vector<Pin> pins =
        is4860 ? std::vector<Pin>{{"CLKA", 16, 17}, {"REFCLK", 14, 15}}
               : std::vector<Pin>{{"CLKA", 14, 15}, {"CLKB", 12, 13}, {"CLKC", 16, 17}};

    for (int n = 1; n <= 16; ++n) image.set_f(n, 0);
    for (const Selection& s : selections) {
        const int base = 18 + 7 * s.sel;
        const bool prescale = i(base + 1) == 1;
        Loop loop(errors, reference, i(base + 5), i(base + 6));
        const std::string state =
            is4860 ? (s.name.size() == 4 ? "FS3..FS0 = " : "FS1..FS0 = ") + s.name
                   : (s.name.empty() ? "" : "FS = " + s.name);
        ReadBack::Loop line =
            LoopLine(is4860 ? "PLL " + s.name : "PLL[" + (s.name.empty() ? "0" : s.name) + "]",
                     i(base + 5), i(base + 6), loop.VCO());
        if (prescale)
            line.Note = "prescale: the PLL runs at VCO / 2";
        rb.Loops.push_back(line);
        const int factor = prescale ? 2 : 1;
        for (const Pin& pin : pins) {
            const std::string source = i(pin.oe) == 3 ? "Off" : clockEntry(i(pin.mux));
            const int divider = static_cast<int>(mShared::GetNonZeroDivisor(source));
            double frequency = 0;
            if (!source.empty() && source[0] == 'R')
                frequency = ReferenceOutput(reference, divider);
            else if (!source.empty() && source[0] == 'P')
                frequency = loop.Output(divider * factor);
            rb.Outputs.push_back(OutputLine(pin.name, state, source, frequency));
        }
        image.set_f(s.sel + 1, Typed(loop.VCO() / factor) * factor);
    }

    image.mintFCount = 17;
    image.mintICount = 18;
    std::string code;
    if (is4860) {
        code = device == "QX4860" ? "qx4860" : device == "QX4860F" ? "qx4860f" : "qx4860i";
        image.mintPValue = fuses.mintPValue;
        image.mstrPackage = "SOIC";
    } else {
        code = device == "QX6105A" ? "qx6105a" : device == "QX6105AF" ? "qx6105f" : "qx6105i";
    }
    image.mstrPartDescription = code + (i(2) == 1 ? "sc" : "sl");
}

// ---- QX7311 family ----------------------------------------------------------------------------

void Make7311(const clsEntryFile& fuses, const std::string& device, double reference,
              ErrorReport& errors, Made& made) {
    const auto i = [&fuses](int n) { return static_cast<int>(fuses.i(n)); };
    clsEntryFile& image = *made.image;
    ReadBack& rb = made.readBack;
    const bool qx7311Model = device.rfind("QX7311", 0) == 0;
    const bool suspend = i(5) != 0;

    // The loops, off as the window's fill takes them.
    std::vector<std::unique_ptr<Loop>> cpll;
    for (int n = 0; n <= 7; ++n) {
        const int base = 29 + 5 * n;
        const bool off = i(base) != 0 || (i(base + 1) == 0 && i(base + 2) != 0);
        cpll.push_back(std::make_unique<Loop>(errors, reference, off ? 0 : i(base + 3),
                                              off ? 0 : i(base + 4)));
        rb.Loops.push_back(LoopLine("CPLL[" + std::to_string(n) + "]", i(base + 3), i(base + 4),
                                    cpll.back()->VCO()));
    }
    const bool spllOff = !suspend && i(7) == 1;
    const bool upllOff = !suspend && i(6) == 1;
    Loop spll(errors, reference, spllOff ? 0 : i(21), spllOff ? 0 : i(22));
    Loop upll(errors, reference, upllOff ? 0 : i(18), upllOff ? 0 : i(19));
    rb.Loops.push_back(LoopLine("SPLL", i(21), i(22), spll.VCO()));
    rb.Loops.push_back(LoopLine("UPLL", i(18), i(19), upll.VCO()));

    // An output: on a single loop one line, on the CPLL one line for each select state.
    const auto output = [&](const std::string& pin, const std::string& source) {
        const char letter = source.empty() ? 'O' : source[0];
        const auto divider = static_cast<std::int16_t>(mShared::GetNonZeroDivisor(source));
        if (letter == 'C') {
            for (int n = 0; n <= 7; ++n) {
                ReadBack::Output line =
                    OutputLine(pin, "S2..S0 = " + Binary(n, 3), source,
                               cpll[static_cast<size_t>(n)]->HalvedOutput(divider));
                // The window names the source of a CPLL output; the number is the chip's.
                line.Shown = false;
                rb.Outputs.push_back(line);
            }
            return;
        }
        double frequency = 0;
        if (letter == 'R')
            frequency = ReferenceOutput(reference, divider);
        else if (letter == 'S')
            frequency = spll.HalvedOutput(divider);
        else if (letter == 'U')
            frequency = upll.HalvedOutput(divider);
        rb.Outputs.push_back(OutputLine(pin, "", source, frequency));
    };

    const std::string cpu =
        ListEntry([](ListField& l) { clsQX7311::InitializeCPUDivisorComboBox(l); }, i(24));
    output("CPU", cpu);
    std::array<std::string, 4> clocks;
    for (int k = 0; k <= 3; ++k) {
        // As the window's fill: the first entry of the clock's list with the stored code, else
        // the list's last entry stays selected.
        ListField list;
        clsQX7311::InitializeClockDivisors(list, k);
        clocks[static_cast<size_t>(k)] = list.List(list.ListCount() - 1);
        for (int j = 0; j < list.ListCount(); ++j) {
            if (clsEntryFile7311::SourceCode(list.List(j)) == i(28 - k)) {
                clocks[static_cast<size_t>(k)] = list.List(j);
                break;
            }
        }
        output(std::string("CLK") + static_cast<char>('A' + k), clocks[static_cast<size_t>(k)]);
    }
    std::string clkf = "Off";
    if (qx7311Model) {
        clkf =
            ListEntry([](ListField& l) { clsQX7311::InitializeClockFDivisorComboBox(l); }, i(23));
        output("CLKF", clkf);
    }
    output("XBUF", !suspend && i(9) == 1 ? "Off" : "Ref");
    if (qx7311Model) {
        ReadBack::Output k32 = OutputLine("32K", "", "32.768 kHz", 0.032768);
        k32.Divider = 1;
        rb.Outputs.push_back(k32);
    }

    // The image as the window writes it: loop frequencies at half the VCO, CPLL at the VCO.
    image.mintFCount = 9;
    image.mintICount = 69;
    image.mintMValue = 3000;
    image.mstrRValue = "d";
    if ((device == "QX7312" || device == "QX7312I") && reference >= 25)
        image.mintMValue = 3003;
    const double cpuDivider = mShared::GetNonZeroDivisor(cpu);
    for (int n = 0; n <= 7; ++n) {
        // The window's CPLL frequency, at half the VCO.
        const double typed = Typed(cpll[static_cast<size_t>(n)]->VCO() / 2);
        const bool suspended = n < 4 && suspend && i(11) == 1;
        image.set_f(n + 1, suspended ? 0 : typed / cpuDivider);
        image.set_f(n + 16, typed + typed);
    }
    image.set_f(9, Typed(spll.VCO() / 2));
    image.set_f(10, Typed(upll.VCO() / 2));
    const auto desired = [&](const std::string& source) {
        const double divider = mShared::GetNonZeroDivisor(source);
        switch (source.empty() || EqualsNoCase(source, "Off") ? 'O' : source[0]) {
            case 'R':
                return reference / divider;
            case 'S':
                return image.f(9) / divider;
            case 'U':
                return image.f(10) / divider;
            default:
                return 0.0;
        }
    };
    for (int k = 0; k <= 3; ++k) image.set_f(11 + k, desired(clocks[static_cast<size_t>(k)]));
    image.set_f(15, desired(clkf));
    struct PartCode {
        const char* device;
        const char* code;
    };
    static constexpr PartCode kCodes[] = {{"QX7311", "qx7311"},   {"QX7311F", "qx7311f"},
                                          {"QX7311I", "qx7311i"}, {"QX7312", "qx7312"},
                                          {"QX7312F", "qx7312f"}, {"QX7312I", "qx7312i"}};
    for (const PartCode& part : kCodes)
        if (device == part.device)
            image.mstrPartDescription = std::string(part.code) + (i(2) == 1 ? "sc" : "sl");
}

// ---- QX5140 ----------------------------------------------------------------------------------

void Make5140(const clsEntryFile& fuses, double reference, ErrorReport& errors, Made& made) {
    const auto i = [&fuses](int n) { return static_cast<int>(fuses.i(n)); };
    clsEntryFile& image = *made.image;
    ReadBack& rb = made.readBack;
    // Selections 000 and 100 carry the CPLL of the two states of the select pin.
    const bool cpll0On = i(29) == 0;
    const bool cpll1On = i(49) == 0;
    Loop cpll0(errors, reference, cpll0On ? i(32) : 0, cpll0On ? i(33) : 0);
    Loop cpll1(errors, reference, cpll1On ? i(52) : 0, cpll1On ? i(53) : 0);
    Loop spll(errors, reference, i(21), i(22));
    Loop upll(errors, reference, i(18), i(19));
    rb.Loops.push_back(LoopLine("CPLL[0]", i(32), i(33), cpll0.VCO()));
    rb.Loops.push_back(LoopLine("CPLL[4]", i(52), i(53), cpll1.VCO()));
    rb.Loops.push_back(LoopLine("SPLL", i(21), i(22), spll.VCO()));
    rb.Loops.push_back(LoopLine("UPLL", i(18), i(19), upll.VCO()));

    // Select/Suspend is the pin's mode when the second CPLL state or a suspend is programmed.
    const bool select = cpll1On || i(5) == 1;
    const auto frequency = [&](const std::string& source, int state) {
        const auto divider = static_cast<std::int32_t>(mShared::GetNonZeroDivisor(source));
        switch (source.empty() ? 'O' : source[0]) {
            case 'R':
                return ReferenceOutput(reference, divider);
            case 'S':
                return spll.Output(divider);
            case 'U':
                return upll.Output(divider);
            case 'C':
                return (state == 0 ? cpll0 : cpll1).Output(divider);
            default:
                return 0.0;
        }
    };
    // The fuse codes count the divisions of a loop's own clock; the window shows the dividers
    // of the loop's target, half that clock.
    const auto shown = [&](int n) {
        return clsEntryFile7311::QX5140ShownSource(clsEntryFile7311::SourceText(i(n)));
    };
    const std::string a = shown(26);
    const std::string b = shown(27);
    const std::string c = shown(28);
    const bool suspendA = i(5) == 1 && i(13) == 1;
    const double a0 = frequency(a, 0);
    const double a1 = frequency(a, 1);
    const double fb = frequency(b, 0);
    const double fc = frequency(c, 0);
    if (select) {
        // State 0 of CLKA is its stopped state when CLKA suspends.
        rb.Outputs.push_back(OutputLine("CLKA", "Select = 0", suspendA ? "Off" : a, a0));
        rb.Outputs.push_back(OutputLine("CLKA", "Select = 1", a, a1));
    } else {
        rb.Outputs.push_back(OutputLine("CLKA", "", a, a0));
    }
    rb.Outputs.push_back(OutputLine("CLKB", "", b, fb));
    rb.Outputs.push_back(OutputLine("CLKC", "", c, fc));

    clsFuseMap::ClearOffCPUBlocks(image);
    image.mintFCount = 9;
    image.mintICount = 69;
    image.mstrRValue = "d";
    image.mintMValue = reference >= 25 ? 3004 : 3002;
    image.mintBValue = select ? 2 : 1;
    image.mstrPartDescription = i(2) != 0 ? "qx5140sc" : "qx5140sl";
    image.set_f(9, spll.VCO());
    image.set_f(10, upll.VCO());
    image.set_f(11, Typed(fc));
    image.set_f(12, Typed(fb));
    image.set_f(13, Typed(suspendA ? a1 : a0));
    // The CPLL wanted in each select state: the frequency of the clock on it times its divider.
    const auto desiredCPLL = [&](int state) {
        if (!select)
            return 0.0;
        if (!a.empty() && a[0] == 'C')
            return Typed(state == 0 ? a0 : a1) * mShared::GetNonZeroDivisor(a);
        const bool suspendB = i(5) == 1 && i(14) == 1;
        const bool suspendC = i(5) == 1 && i(15) == 1;
        if (!b.empty() && b[0] == 'C')
            return state == 0 && suspendB ? 0.0 : Typed(fb) * mShared::GetNonZeroDivisor(b);
        if (!c.empty() && c[0] == 'C')
            return state == 0 && suspendC ? 0.0 : Typed(fc) * mShared::GetNonZeroDivisor(c);
        return 0.0;
    };
    image.set_f(16, desiredCPLL(0));
    image.set_f(20, desiredCPLL(1));
}

// ---- QX3350 ----------------------------------------------------------------------------------

void Make3350(const clsEntryFile& fuses, const std::string& device, double reference,
              ErrorReport& errors, Made& made) {
    const auto i = [&fuses](int n) { return static_cast<int>(fuses.i(n)); };
    clsEntryFile& image = *made.image;
    ReadBack& rb = made.readBack;
    const bool fromPLL = i(9) != 0;
    // With its output on the reference the window's loop is off.
    Loop pll(errors, reference, fromPLL ? i(14) : 0, fromPLL ? i(15) : 0);
    rb.Loops.push_back(LoopLine("PLL", i(14), i(15), pll.VCO()));
    const int divider = 1 << std::min(std::max(i(10), 0), 7);
    const std::string source =
        std::string(fromPLL ? "PLL" : "Ref") + (divider > 1 ? "/" + std::to_string(divider) : "");
    const double frequency = fromPLL ? pll.Output(divider) : ReferenceOutput(reference, divider);
    rb.Outputs.push_back(OutputLine("CLKOUT", "", source, frequency));

    // A TTL output exists at 5 V only; a CMOS output is taken for the 3.3 V it must have there.
    const bool volt5 = i(7) == 0;
    image.mintDCount = 1;
    image.mintFCount = 3;
    image.mintICount = 16;
    image.set_d(0, volt5 ? 1 : 0);
    image.set_f(1, fromPLL ? Typed(pll.VCO()) : 0);
    image.set_f(2, frequency);
    // The package is not in the fuses: the SOIC, which a new window starts with.
    image.mstrPartDescription = std::string("qx3350s") + (device == "QX3350I" ? "i"
                                                          : volt5             ? "c"
                                                                              : "l");
}

}  // namespace

std::string clsFuseMap::FieldName(int n) const {
    std::string text;
    if (family_ == "QX4860" || family_ == "QX6105A")
        text = clsEntryFile4860::FieldComment(n);
    else if (family_ == "QX7311")
        text = clsEntryFile7311::FieldComment(n);
    else if (family_ == "QX3350")
        text = clsEntryFile3350::CommentI(n, true);
    std::string plain;
    for (char c : text)
        if (c != '\r' && c != '\n')
            plain += c;
    return Trim(plain);
}

namespace {

Made MakeAll(const clsFuseMap& map, const std::string& device, double reference,
             ErrorReport& errors) {
    Made made;
    made.image = std::make_unique<clsEntryFile>(errors);
    const clsEntryFile& fuses = map.Image();
    for (int n = 0; n < fuses.mintICount; ++n) made.image->set_i(n, fuses.i(n));
    made.image->set_f(0, reference);
    if (map.Family() == "QX4860" || map.Family() == "QX6105A")
        Make4860(fuses, device, reference, errors, made);
    else if (device == "QX5140")
        Make5140(fuses, reference, errors, made);
    else if (map.Family() == "QX7311")
        Make7311(fuses, device, reference, errors, made);
    else
        Make3350(fuses, device, reference, errors, made);
    return made;
}

}  // namespace

ReadBack clsFuseMap::MakeReadBack(const std::string& device, double reference) const {
    Made made = MakeAll(*this, device, reference, errors_);
    ReadBack& rb = made.readBack;
    rb.Device = device;
    rb.Devices = devices_;
    rb.Reference = reference;
    rb.FuseChecksum = fuseChecksum_;
    switch (transmission_) {
        case Transmission::Absent:
            rb.Transmission = "none";
            break;
        case Transmission::NotComputed:
            rb.Transmission = "0000 (not computed)";
            break;
        case Transmission::Verified:
            rb.Transmission = transmissionText_ + " (verified)";
            break;
    }
    rb.FamilyChecksum = FamilyChecksum(device);
    if (HasIdentity()) {
        const FuseIdentity& v = identity_;
        rb.StoredFamilyChecksum = IntegerText(v.Checksum);
        rb.ChecksumOK = FamilyChecksumOK();
        DateTime date;
        date.Year = static_cast<int>(v.Year);
        date.Month = static_cast<int>(v.Month);
        date.Day = static_cast<int>(v.Day);
        rb.Written = "Pendulon " + IntegerText(v.Major) + "." +
                     FormatNumber(static_cast<double>(v.Minor), "00") + "." +
                     FormatNumber(static_cast<double>(v.Build), "000");
        if (IsValidDate(date.Year, date.Month, date.Day))
            rb.Written += ", " + FormatDate(date);
        if (!rb.ChecksumOK)
            rb.Notes.push_back("The family checksum stored in the fuses (" +
                               rb.StoredFamilyChecksum + ") is not that of the fuse fields (" +
                               rb.FamilyChecksum +
                               "): the vector was made from an entry file other than the "
                               "configuration its window showed.");
    }
    // The fields as the device's entry file holds them.
    for (int n = 0; n < image_->mintICount; ++n)
        rb.Fields.push_back({n, FieldName(n), made.image->i(n)});
    return rb;
}

std::unique_ptr<clsEntryFile> clsFuseMap::MakeEntryImage(const std::string& device,
                                                         double reference,
                                                         const std::string& revision) const {
    Made made = MakeAll(*this, device, reference, errors_);
    made.image->mstrPartDescription += "-" + revision;
    made.image->mstrVersion = revision;
    return std::move(made.image);
}

std::string clsFuseMap::EntryFileText(const std::string& device, double reference,
                                      const std::string& revision, const std::string& header,
                                      bool details) const {
    const std::unique_ptr<clsEntryFile> image = MakeEntryImage(device, reference, revision);
    if (family_ == "QX4860" || family_ == "QX6105A")
        return clsEntryFile4860::EntryFileText(*image, device, header, details, false);
    if (family_ == "QX7311")
        return clsEntryFile7311::EntryFileText(*image, device, header, details, false);
    return clsEntryFile3350::EntryFileText(*image, header, details);
}

}  // namespace pendulon
