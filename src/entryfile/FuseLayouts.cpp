#include "entryfile/FuseLayouts.hpp"

#include <string>
#include <utility>

#include "core/Numbers.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile.hpp"

namespace pendulon {

namespace {

FuseField Constant(std::string fuses, std::string name) {
    FuseField field;
    field.Type = FuseField::Kind::Constant;
    field.Name = std::move(name);
    field.Width = static_cast<int>(fuses.size());
    field.Text = std::move(fuses);
    return field;
}

FuseField Digit(int index, std::string name) {
    FuseField field;
    field.Type = FuseField::Kind::Digit;
    field.Source = FuseField::From::Image;
    field.Name = std::move(name);
    field.Index = index;
    field.Width = 1;
    return field;
}

FuseField Bits(int index, std::string name, int width, int offset = 0, int offPair = -1) {
    FuseField field;
    field.Type = FuseField::Kind::Bits;
    field.Source = FuseField::From::Image;
    field.Name = std::move(name);
    field.Index = index;
    field.Width = width;
    field.Offset = offset;
    field.OffPairIndex = offPair;
    return field;
}

FuseField Identity(FuseField::From source, std::string name, int width) {
    FuseField field;
    field.Type = FuseField::Kind::Bits;
    field.Source = source;
    field.Name = std::move(name);
    field.Width = width;
    return field;
}

// A number in width binary digits, as a constant part of a row (an address nibble).
std::string Binary(int value, int width) {
    return mShared::ConvertDecimalToBinary(value, width);
}

}  // namespace

const FuseLayout& FuseLayout4860() {
    static const FuseLayout layout = [] {
        FuseLayout rows;
        // A word per selection: 27 unused fuses, the selection's fields, its address and the
        // valid bit.
        for (int s = 0; s <= 15; ++s) {
            const int base = 18 + 7 * s;
            const std::string sel = "sel " + Binary(s, 4);
            rows.push_back({Constant(std::string(27, '0'), "unused fuses"),
                            Bits(base, sel + " reserved", 1),
                            Bits(base + 1, sel + " Div/2 prescale", 1),
                            Bits(base + 2, sel + " charge pump 2uA", 1),
                            Bits(base + 3, sel + " slew +10ns", 1),
                            Bits(base + 4, sel + " slew +5ns", 1), Bits(base + 5, sel + " P", 8, 3),
                            Bits(base + 6, sel + " Q", 7, 2),
                            Constant(Binary(s, 4), "row address"), Constant("1", "valid bit")});
        }
        static const char* const kConfig[12] = {
            "Async OE",      "smooth slewing",    "TTL thresholds", "extra drive",
            "VReg Boost",    "Voltage Regulator", "Clk2 on Pad 17", "Pad 12 is OE",
            "Pad 10 is FS1", "Pad 7 is OE only",  "Crystal Shutdown", "PLL Shutdown"};
        std::vector<FuseField> config;
        for (int n = 0; n <= 11; ++n) config.push_back(Digit(n, kConfig[n]));
        config.push_back(Bits(12, "CLK3 OE control", 2));
        config.push_back(Bits(13, "CLK3 Mux control", 3));
        config.push_back(Bits(14, "CLK2 OE control", 2));
        config.push_back(Bits(15, "CLK2 Mux control", 3));
        config.push_back(Bits(16, "CLK1 OE control", 2));
        config.push_back(Bits(17, "CLK1 Mux control", 3));
        // Unused fuses, the configuration's address and its valid bit.
        config.push_back(Constant(std::string(20, '0'), "unused fuses"));
        config.push_back(Constant("0000", "row address"));
        config.push_back(Constant("0", "valid bit"));
        rows.push_back(std::move(config));
        return rows;
    }();
    return layout;
}

const FuseLayout& FuseLayout7311() {
    static const FuseLayout layout = [] {
        FuseLayout rows;
        for (int n = 0; n <= 7; ++n) {
            const int base = 29 + 5 * n;
            const std::string cpu = "CPU" + std::to_string(n);
            rows.push_back({Digit(base, cpu + " shutdown"), Digit(base + 1, cpu + " CPU_DLY0"),
                            Bits(base + 2, cpu + " index", 2), Bits(base + 3, cpu + " P", 8, 3),
                            Bits(base + 4, cpu + " Q", 6, 2),
                            Constant(Binary(n, 4), "row address")});
        }
        static const char* const kConfig[17] = {
            "shutdown mode", "OutTTL",         "InTTL",         "VCO3V",        "VCOReg",
            "suspend option", "suspend UPLL",  "suspend SPLL",  "suspend CPLL", "suspend XBUF",
            "suspend Floppy", "suspend CPU",   "suspend CLKD",  "suspend CLKC", "suspend CLKB",
            "suspend CLKA",   "CPU_DLY1"};
        std::vector<FuseField> config;
        for (int n = 0; n <= 16; ++n) config.push_back(Digit(n, kConfig[n]));
        config.push_back(Bits(17, "UPLL index", 2));
        // A switched-off loop, P 3 and Q 3, goes in as it is.
        config.push_back(Bits(18, "UPLL P", 10, 3, 19));
        config.push_back(Bits(19, "UPLL Q", 7, 2, 18));
        config.push_back(Bits(20, "SPLL index", 2));
        config.push_back(Bits(21, "SPLL P", 8, 3, 22));
        config.push_back(Bits(22, "SPLL Q", 6, 2, 21));
        config.push_back(Bits(23, "FSEL", 2));
        config.push_back(Bits(24, "ESEL", 2));
        config.push_back(Bits(25, "CLKD source", 5));
        config.push_back(Bits(26, "CLKC source", 5));
        config.push_back(Bits(27, "CLKB source", 5));
        config.push_back(Bits(28, "CLKA source", 5));
        config.push_back(Constant("1000", "end of the configuration row"));
        rows.push_back(std::move(config));
        using From = FuseField::From;
        rows.push_back({Identity(From::Checksum, "family checksum", 10),
                        Identity(From::Major, "major version", 4),
                        Identity(From::Minor, "minor version", 7),
                        Identity(From::Build, "build number", 10), Identity(From::Day, "day", 5),
                        Identity(From::Month, "month", 4), Identity(From::Year, "year", 12),
                        Identity(From::DeviceNumber, "device number", 12),
                        Constant(std::string(12, '0'), "padding of the identity row"),
                        Constant("1001", "end of the identity row")});
        return rows;
    }();
    return layout;
}

const FuseLayout& FuseLayout3350() {
    static const FuseLayout layout = [] {
        static const char* const kFlags[9] = {"Reserved", "Duty Adj", "ROWSEL", "VALID", "PDOE",
                                              "OEType",   "DC",       "Sel38",  "ClkSrc"};
        std::vector<FuseField> row;
        row.push_back(Bits(0, "DSW", 7));
        for (int n = 1; n <= 9; ++n) row.push_back(Bits(n, kFlags[n - 1], 1));
        row.push_back(Bits(10, "DivS", 3));
        // The charge-pump fields stand in the order ILow, RLow.
        row.push_back(Bits(12, "ILow", 1));
        row.push_back(Bits(11, "RLow", 1));
        row.push_back(Bits(13, "Inverter Gain", 1));
        row.push_back(Bits(14, "P counter", 12, 5));
        row.push_back(Bits(15, "Q counter", 10, 2));
        row.push_back(Constant("0", "last fuse"));
        return FuseLayout{std::move(row)};
    }();
    return layout;
}

namespace {

// The member of the identity row that a field stands for; null for a field of the image.
template <class Identity>
auto IdentityValue(Identity& identity, FuseField::From source) -> decltype(&identity.Checksum) {
    using From = FuseField::From;
    switch (source) {
        case From::Checksum:
            return &identity.Checksum;
        case From::Major:
            return &identity.Major;
        case From::Minor:
            return &identity.Minor;
        case From::Build:
            return &identity.Build;
        case From::Day:
            return &identity.Day;
        case From::Month:
            return &identity.Month;
        case From::Year:
            return &identity.Year;
        case From::DeviceNumber:
            return &identity.DeviceNumber;
        case From::Image:
        case From::None:
            break;
    }
    return nullptr;
}

long ValueOf(const FuseField& field, const clsEntryFile& image, const FuseIdentity& identity) {
    if (field.Source == FuseField::From::Image)
        return image.i(field.Index);
    const long* value = IdentityValue(identity, field.Source);
    return value ? *value : 0;
}

}  // namespace

FuseMap BuildFuseMap(const FuseLayout& layout, const clsEntryFile& image,
                     const FuseIdentity& identity) {
    FuseMap map;
    for (const auto& fields : layout) {
        std::string row;
        for (const FuseField& field : fields) {
            if (field.Type == FuseField::Kind::Constant) {
                row += field.Text;
                continue;
            }
            const long value = ValueOf(field, image, identity);
            long offset = field.Offset;
            if (field.OffPairIndex >= 0 && value == 3 && image.i(field.OffPairIndex) == 3)
                offset = 0;
            const long stored = value - offset;
            const long top = field.Type == FuseField::Kind::Digit ? 1 : (1L << field.Width) - 1;
            if (stored < 0 || stored > top) {
                map.Misfits.push_back({field.Name, field.Index, value, offset, offset + top});
                row.append(static_cast<size_t>(field.Width), '0');
                continue;
            }
            if (field.Type == FuseField::Kind::Digit)
                row += IntegerText(stored);
            else
                row += mShared::ConvertDecimalToBinary(static_cast<std::int32_t>(stored),
                                                       field.Width);
        }
        map.Rows.push_back(std::move(row));
    }
    return map;
}

int FuseCount(const FuseLayout& layout) {
    int count = 0;
    for (const auto& fields : layout)
        for (const FuseField& field : fields) count += field.Width;
    return count;
}

namespace {

// Width fuses read as a binary number, most significant first.
long BinaryValue(std::string_view fuses) {
    long value = 0;
    for (const char c : fuses) value = value * 2 + (c == '1' ? 1 : 0);
    return value;
}

}  // namespace

bool ReadFuseRow(const std::vector<FuseField>& row, std::string_view fuses, size_t& position,
                 FuseRowValues& values, std::string& cause) {
    size_t at = position;
    FuseRowValues read;
    std::vector<std::pair<int, long>> stored;  // the fuses of the paired counters, by index
    for (const FuseField& field : row) {
        const size_t width = static_cast<size_t>(field.Width);
        if (at + width > fuses.size()) {
            cause = "the fuses end inside the layout";
            return false;
        }
        const std::string_view bits = fuses.substr(at, width);
        if (field.Type == FuseField::Kind::Constant) {
            if (bits != field.Text) {
                cause = "fuses " + IntegerText(static_cast<long long>(at)) + " to " +
                        IntegerText(static_cast<long long>(at + width - 1)) + " hold " +
                        std::string(bits) + " where the layout has its " + field.Name + " " +
                        field.Text;
                return false;
            }
        } else if (field.Source == FuseField::From::Image) {
            read.Values.push_back({field.Index, BinaryValue(bits) + field.Offset});
            if (field.OffPairIndex >= 0)
                stored.emplace_back(field.Index, BinaryValue(bits));
        } else {
            if (long* value = IdentityValue(read.Identity, field.Source))
                *value = BinaryValue(bits);
        }
        at += width;
    }
    for (const FuseField& field : row) {
        if (field.OffPairIndex < 0 || field.OffPairIndex < field.Index)
            continue;
        long first = -1;
        long second = -1;
        for (const auto& [index, value] : stored) {
            if (index == field.Index)
                first = value;
            if (index == field.OffPairIndex)
                second = value;
        }
        if (first == 3 && second == 3)
            read.OffPairs.push_back(field.Index);
    }
    values = std::move(read);
    position = at;
    return true;
}

std::string DescribeMisfits(const std::vector<FuseMisfit>& misfits) {
    constexpr size_t kNamed = 5;
    std::string text;
    for (size_t n = 0; n < misfits.size() && n < kNamed; ++n) {
        const FuseMisfit& m = misfits[n];
        if (!text.empty())
            text += "\r\n";
        text += "The value " + IntegerText(m.Value) + " of " + m.Name;
        if (m.Index >= 0)
            text += " (# i " + IntegerText(m.Index) + ")";
        text += " does not fit its field, which holds " + IntegerText(m.Minimum) + " to " +
                IntegerText(m.Maximum) + ".";
    }
    if (misfits.size() > kNamed)
        text += "\r\n... and " + IntegerText(static_cast<long long>(misfits.size() - kNamed)) +
                " more values that do not fit.";
    return text;
}

}  // namespace pendulon
