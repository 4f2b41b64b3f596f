#include "entryfile/FuseLayout.hpp"

#include <cstdint>
#include <map>

#include "core/Numbers.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile.hpp"

namespace pendulon {

namespace {

std::string Bits(int value, int width) {
    return mShared::DisplayBinary(static_cast<std::int16_t>(value),
                                  static_cast<std::int16_t>(width));
}

FuseField Digit(int index) {
    FuseField f;
    f.kind = FuseField::Kind::Digit;
    f.index = index;
    return f;
}

FuseField Binary(int index, int width, int offset = 0) {
    FuseField f;
    f.kind = FuseField::Kind::Binary;
    f.index = index;
    f.width = width;
    f.offset = offset;
    return f;
}

FuseField Counter(int index, int width, int offset, int pair) {
    FuseField f = Binary(index, width, offset);
    f.kind = FuseField::Kind::Counter;
    f.pair = pair;
    return f;
}

FuseField Fixed(const std::string& fuses, const char* what) {
    FuseField f;
    f.kind = FuseField::Kind::Fixed;
    f.fixed = fuses;
    f.width = static_cast<int>(fuses.size());
    f.what = what;
    return f;
}

FuseField IdentityField(FuseIdentity::Element element, int width) {
    FuseField f;
    f.kind = FuseField::Kind::Identity;
    f.index = element;
    f.width = width;
    return f;
}

FuseLayout Make4860() {
    FuseLayout layout;
    for (int s = 0; s <= 15; ++s) {
        const int base = 18 + 7 * s;
        FuseRow row;
        row.push_back(Fixed(std::string(27, '0'), "unused fuses"));
        for (int b = 0; b <= 4; ++b) row.push_back(Binary(base + b, 1));
        row.push_back(Binary(base + 5, 8, 3));
        row.push_back(Binary(base + 6, 7, 2));
        row.push_back(Fixed(Bits(s, 4), "row address"));
        row.push_back(Fixed("1", "valid bit"));
        layout.rows.push_back(row);
    }
    FuseRow config;
    for (int n = 0; n <= 11; ++n) config.push_back(Digit(n));
    static constexpr int kWidths[6] = {2, 3, 2, 3, 2, 3};
    for (int n = 12; n <= 17; ++n) config.push_back(Binary(n, kWidths[n - 12]));
    config.push_back(Fixed(std::string(20, '0'), "unused fuses"));
    config.push_back(Fixed("0000", "row address"));
    config.push_back(Fixed("0", "valid bit"));
    layout.rows.push_back(config);
    layout.fuseCount = 884;
    return layout;
}

FuseLayout Make7311() {
    FuseLayout layout;
    for (int n = 0; n <= 7; ++n) {
        const int base = 29 + 5 * n;
        layout.rows.push_back({Digit(base), Digit(base + 1), Binary(base + 2, 2),
                               Binary(base + 3, 8, 3), Binary(base + 4, 6, 2),
                               Fixed(Bits(n, 4), "row address")});
    }
    FuseRow config;
    for (int n = 0; n <= 16; ++n) config.push_back(Digit(n));
    config.push_back(Binary(17, 2));
    config.push_back(Counter(18, 10, 3, 19));
    config.push_back(Counter(19, 7, 2, 18));
    config.push_back(Binary(20, 2));
    config.push_back(Counter(21, 8, 3, 22));
    config.push_back(Counter(22, 6, 2, 21));
    config.push_back(Binary(23, 2));
    config.push_back(Binary(24, 2));
    for (int n = 25; n <= 28; ++n) config.push_back(Binary(n, 5));
    config.push_back(Fixed("1000", "end of the configuration row"));
    layout.rows.push_back(config);
    layout.rows.push_back(
        {IdentityField(FuseIdentity::Checksum, 10), IdentityField(FuseIdentity::Major, 4),
         IdentityField(FuseIdentity::Minor, 7), IdentityField(FuseIdentity::Build, 10),
         IdentityField(FuseIdentity::Day, 5), IdentityField(FuseIdentity::Month, 4),
         IdentityField(FuseIdentity::Year, 12), IdentityField(FuseIdentity::DeviceNumber, 12),
         Fixed(std::string(12, '0'), "padding of the identity row"),
         Fixed("1001", "end of the identity row")});
    layout.fuseCount = 336;
    return layout;
}

FuseLayout Make3350() {
    FuseRow row;
    row.push_back(Binary(0, 7));
    for (int n = 1; n <= 9; ++n) row.push_back(Binary(n, 1));
    row.push_back(Binary(10, 3));
    // The charge-pump fields stand in the order ILow, RLow.
    row.push_back(Binary(12, 1));
    row.push_back(Binary(11, 1));
    row.push_back(Binary(13, 1));
    row.push_back(Binary(14, 12, 5));
    row.push_back(Binary(15, 10, 2));
    row.push_back(Fixed("0", "last fuse"));
    FuseLayout layout;
    layout.rows.push_back(row);
    layout.fuseCount = 45;
    return layout;
}

// The value of width fuses read as a binary number, most significant first.
int BinaryValue(std::string_view fuses) {
    int value = 0;
    for (char c : fuses) value = value * 2 + (c == '1' ? 1 : 0);
    return value;
}

}  // namespace

const FuseLayout& FuseLayout4860() {
    static const FuseLayout layout = Make4860();
    return layout;
}

const FuseLayout& FuseLayout7311() {
    static const FuseLayout layout = Make7311();
    return layout;
}

const FuseLayout& FuseLayout3350() {
    static const FuseLayout layout = Make3350();
    return layout;
}

std::string WriteFuseRow(const FuseRow& row, const clsEntryFile& e, const FuseIdentity* identity) {
    std::string fuses;
    for (const FuseField& field : row) {
        switch (field.kind) {
            case FuseField::Kind::Digit:
                fuses += IntegerText(e.i(field.index));
                break;
            case FuseField::Kind::Binary:
                fuses += Bits(e.i(field.index) - field.offset, field.width);
                break;
            case FuseField::Kind::Counter: {
                // A switched-off loop, P 3 and Q 3, goes in as it is.
                const bool off = e.i(field.index) == 3 && e.i(field.pair) == 3;
                fuses +=
                    Bits(off ? e.i(field.index) : e.i(field.index) - field.offset, field.width);
                break;
            }
            case FuseField::Kind::Fixed:
                fuses += field.fixed;
                break;
            case FuseField::Kind::Identity:
                fuses += Bits(identity ? identity->values[static_cast<size_t>(field.index)] : 0,
                              field.width);
                break;
        }
    }
    return fuses;
}

bool ReadFuseRow(const FuseRow& row, std::string_view fuses, size_t& position,
                 FuseRowValues& values, std::string& cause) {
    size_t at = position;
    std::map<int, int> counters;  // raw fuses of the counters, by image index
    FuseRowValues read;
    for (const FuseField& field : row) {
        const size_t width = static_cast<size_t>(field.width);
        if (at + width > fuses.size()) {
            cause = "the fuses end inside the layout";
            return false;
        }
        const std::string_view bits = fuses.substr(at, width);
        switch (field.kind) {
            case FuseField::Kind::Digit:
            case FuseField::Kind::Binary:
                read.values.push_back({field.index, BinaryValue(bits) + field.offset});
                break;
            case FuseField::Kind::Counter:
                counters[field.index] = BinaryValue(bits);
                read.values.push_back({field.index, BinaryValue(bits) + field.offset});
                break;
            case FuseField::Kind::Fixed:
                if (bits != field.fixed) {
                    cause = "fuses " + std::to_string(at) + " to " +
                            std::to_string(at + width - 1) + " hold " + std::string(bits) +
                            " where the layout has its " + field.what + " " + field.fixed;
                    return false;
                }
                break;
            case FuseField::Kind::Identity:
                read.identity.values[static_cast<size_t>(field.index)] = BinaryValue(bits);
                break;
        }
        at += width;
    }
    for (const FuseField& field : row) {
        if (field.kind != FuseField::Kind::Counter || field.pair < field.index)
            continue;
        if (counters[field.index] == 3 && counters[field.pair] == 3)
            read.offPairs.push_back(field.index);
    }
    values = std::move(read);
    position = at;
    return true;
}

}  // namespace pendulon
