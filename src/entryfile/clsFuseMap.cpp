#include "entryfile/clsFuseMap.hpp"

#include <algorithm>
#include <cstdint>
#include <map>

#include "core/Text.hpp"
#include "entryfile/Checksums.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/clsEntryFile4860.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/TextFile.hpp"

namespace pendulon {

namespace {

constexpr char kSTX = '\x02';
constexpr char kETX = '\x03';
constexpr const char* kNotAFuseMap =
    "it is not a JEDEC fuse map (it has no fuse count QF and no fuses L)";

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsHex(char c) {
    return IsDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

// A field's text for a message: printable characters only, and not too long.
std::string Shown(std::string_view text) {
    std::string out;
    for (char c : text.substr(0, 24)) out += (c >= ' ' && c <= '~') ? c : '?';
    if (text.size() > 24)
        out += "...";
    return out;
}

// A decimal number of at most nine digits at the front of text (blanks skipped before it);
// nullopt when there is none. The digits are taken from text.
std::optional<long> TakeNumber(std::string_view& text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    size_t n = 0;
    while (n < text.size() && IsDigit(text[n])) ++n;
    if (n == 0 || n > 9)
        return std::nullopt;
    long value = 0;
    for (size_t i = 0; i < n; ++i) value = value * 10 + (text[i] - '0');
    text.remove_prefix(n);
    return value;
}

std::string Hex4(unsigned value) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text(4, '0');
    for (int i = 3; i >= 0; --i, value >>= 4) text[static_cast<size_t>(i)] = kDigits[value & 15];
    return text;
}

// The fields of a JEDEC transmission as far as the program needs them.
struct Jedec {
    std::optional<long> fuseCount;    // QF
    std::optional<long> pinCount;     // QP
    std::optional<char> defaultFuse;  // F
    struct Fuses {
        long address = 0;
        std::string fuses;
    };
    std::vector<Fuses> lists;             // L fields in their order
    std::optional<std::string> checksum;  // C, as written (trimmed)
    clsFuseMap::Transmission transmission = clsFuseMap::Transmission::Absent;
    std::string transmissionText;
};

bool ParseJedec(std::string_view text, Jedec& jedec, std::string& cause) {
    // A transmission runs from STX to ETX; anything before STX is not part of it. A file that
    // has no STX is taken whole, to an ETX if it has one.
    const size_t stx = text.find(kSTX);
    const size_t start = stx == std::string_view::npos ? 0 : stx + 1;
    const size_t etx = text.find(kETX, start);
    if (stx != std::string_view::npos && etx == std::string_view::npos) {
        cause = "it ends before the end of its transmission (no ETX): the file is cut";
        return false;
    }
    std::string_view body =
        text.substr(start, etx == std::string_view::npos ? std::string_view::npos : etx - start);
    if (etx != std::string_view::npos) {
        // Four hexadecimal digits behind ETX; "0000" says that none was computed.
        const std::string_view sum = text.substr(etx + 1, 4);
        if (sum.size() == 4 && std::all_of(sum.begin(), sum.end(), IsHex)) {
            jedec.transmissionText = UCase(std::string(sum));
            if (jedec.transmissionText == "0000") {
                jedec.transmission = clsFuseMap::Transmission::NotComputed;
            } else {
                unsigned total = 0;
                const size_t from = stx == std::string_view::npos ? 0 : stx;
                for (size_t i = from; i <= etx; ++i) total += static_cast<unsigned char>(text[i]);
                const std::string computed = Hex4(total & 0xFFFF);
                if (computed != jedec.transmissionText) {
                    cause = "its transmission checksum " + jedec.transmissionText +
                            " does not match the file, whose transmission checksum is " + computed;
                    return false;
                }
                jedec.transmission = clsFuseMap::Transmission::Verified;
            }
        }
    }

    // The first field is the header, free text up to the first "*".
    size_t at = body.find('*');
    if (at == std::string_view::npos) {
        cause = "it is not a JEDEC fuse map (it has no fields ended by \"*\")";
        return false;
    }
    ++at;
    std::optional<std::string> badChecksum;
    while (true) {
        while (at < body.size() && IsBlank(body[at])) ++at;
        if (at >= body.size())
            break;
        const size_t end = body.find('*', at);
        if (end == std::string_view::npos) {
            if (jedec.lists.empty() && !jedec.fuseCount)
                cause = kNotAFuseMap;
            else
                cause =
                    "it ends inside the field \"" + Shown(body.substr(at)) + "\": the file is cut";
            return false;
        }
        std::string_view field = body.substr(at, end - at);
        at = end + 1;
        const char id = field.front();
        field.remove_prefix(1);
        if (id == 'Q' && !field.empty() && (field.front() == 'F' || field.front() == 'P')) {
            const char which = field.front();
            field.remove_prefix(1);
            const auto value = TakeNumber(field);
            if (!value || !TrimBlanks(field).empty()) {
                cause = std::string("its Q") + which + " field \"Q" + which + Shown(field) +
                        "\" is not a number";
                return false;
            }
            auto& slot = which == 'F' ? jedec.fuseCount : jedec.pinCount;
            if (slot && *slot != *value) {
                cause = std::string("it states two different Q") + which + " values";
                return false;
            }
            slot = *value;
        } else if (id == 'F') {
            const std::string_view state = TrimBlanks(field);
            if (state != "0" && state != "1") {
                cause = "its default fuse state \"F" + Shown(field) + "\" is neither 0 nor 1";
                return false;
            }
            jedec.defaultFuse = state[0];
        } else if (id == 'L') {
            const auto address = TakeNumber(field);
            if (!address) {
                cause = "its fuse list \"L" + Shown(field) + "\" has no address";
                return false;
            }
            Jedec::Fuses list;
            list.address = *address;
            for (char c : field) {
                if (c == '0' || c == '1') {
                    list.fuses.push_back(c);
                } else if (!IsBlank(c)) {
                    cause = "the fuse list at address " + std::to_string(*address) +
                            " holds the character \"" + Shown(std::string_view(&c, 1)) +
                            "\", not only 0 and 1";
                    return false;
                }
            }
            jedec.lists.push_back(std::move(list));
        } else if (id == 'C') {
            const std::string_view sum = TrimBlanks(field);
            if (sum.size() == 4 && std::all_of(sum.begin(), sum.end(), IsHex))
                jedec.checksum = UCase(std::string(sum));
            else
                badChecksum = std::string(sum);
        }
        // Every other field (notes, security fuse, test vectors, ...) says nothing of the fuses.
    }
    if (jedec.lists.empty()) {
        cause = jedec.fuseCount ? "it holds no fuses (no L field)" : kNotAFuseMap;
        return false;
    }
    if (!jedec.fuseCount) {
        // Without QF the fuse lists tell the count: they end at the last fuse.
        long count = 0;
        for (const Jedec::Fuses& list : jedec.lists)
            count = std::max(count, list.address + static_cast<long>(list.fuses.size()));
        jedec.fuseCount = count;
    }
    if (badChecksum) {
        cause = "its fuse checksum \"C" + Shown(*badChecksum) + "\" is not four hexadecimal digits";
        return false;
    }
    return true;
}

bool Has(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

clsFuseMap::clsFuseMap(ErrorReport& errors) : errors_(errors) {}
clsFuseMap::~clsFuseMap() = default;

bool clsFuseMap::ReadFuseMap(const std::string& path, std::string& cause) {
    const std::optional<std::string> text = ReadTextFile(path);
    if (!text) {
        cause = "the file cannot be read";
        return false;
    }
    return ParseFuseMap(*text, cause);
}

bool clsFuseMap::ParseFuseMap(std::string_view text, std::string& cause) {
    Jedec jedec;
    if (!ParseJedec(text, jedec, cause))
        return false;
    const long count = *jedec.fuseCount;
    if (count != FuseCount(FuseLayout4860()) && count != FuseCount(FuseLayout7311()) &&
        count != FuseCount(FuseLayout3350())) {
        cause = "it has " + std::to_string(count) +
                " fuses, and no layout of the program has that many (884: QX4860 and QX6105A; "
                "336: QX7311, QX7312 and QX5140; 45: QX3350)";
        return false;
    }
    // The fuses the L fields set, over the default state; none may stay unknown.
    std::string fuses(static_cast<size_t>(count), jedec.defaultFuse.value_or('?'));
    for (const Jedec::Fuses& list : jedec.lists) {
        if (list.address + static_cast<long>(list.fuses.size()) > count) {
            cause = "the fuse list at address " + std::to_string(list.address) +
                    " runs past the fuse count " + std::to_string(count);
            return false;
        }
        fuses.replace(static_cast<size_t>(list.address), list.fuses.size(), list.fuses);
    }
    const size_t unknown = fuses.find('?');
    if (unknown != std::string::npos) {
        const size_t last = fuses.find_first_not_of('?', unknown);
        cause = "fuses " + std::to_string(unknown) + " to " +
                std::to_string((last == std::string::npos ? fuses.size() : last) - 1) +
                " are not given (no L field and no default state F): the file may be cut";
        return false;
    }
    if (!jedec.checksum) {
        cause = "it has no fuse checksum (no C field): the file may be cut";
        return false;
    }
    const std::string computed = mShared::CalculateJEDECChecksum(fuses);
    if (computed != *jedec.checksum) {
        cause = "its fuse checksum C" + *jedec.checksum +
                " does not match the fuses, whose checksum is " + computed;
        return false;
    }
    const int pins = jedec.pinCount ? static_cast<int>(*jedec.pinCount) : 0;
    if (!DecodeLayout(fuses, pins, cause))
        return false;
    fuses_ = std::move(fuses);
    fuseChecksum_ = *jedec.checksum;
    transmission_ = jedec.transmission;
    transmissionText_ = jedec.transmissionText;
    pinCount_ = pins;
    return true;
}

bool clsFuseMap::DecodeLayout(const std::string& fuses, int pinCount, std::string& cause) {
    const bool is4860 = static_cast<int>(fuses.size()) == FuseCount(FuseLayout4860());
    const bool is7311 = static_cast<int>(fuses.size()) == FuseCount(FuseLayout7311());
    const FuseLayout& layout = is4860   ? FuseLayout4860()
                               : is7311 ? FuseLayout7311()
                                        : FuseLayout3350();
    const std::string layoutName = is4860   ? "QX4860 and QX6105A"
                                   : is7311 ? "QX7311, QX7312 and QX5140"
                                            : "QX3350";
    auto image = std::make_unique<clsEntryFile>(errors_);
    FuseIdentity identity;
    std::vector<int> offPairs;
    size_t position = 0;
    for (size_t r = 0; r < layout.size(); ++r) {
        FuseRowValues row;
        std::string why;
        if (!ReadFuseRow(layout[r], fuses, position, row, why)) {
            cause = "its fuses do not follow the layout of the " + layoutName + ": " + why;
            return false;
        }
        for (const auto& value : row.Values)
            image->set_i(value.Index, static_cast<std::int16_t>(value.Value));
        if (is7311 && r == 9)
            identity = row.Identity;
        offPairs.insert(offPairs.end(), row.OffPairs.begin(), row.OffPairs.end());
    }
    const auto& i = [&image](int n) { return image->i(n); };

    std::string family;
    std::vector<std::string> devices;
    std::string defaultDevice;
    auto pinsFit = [&](int pins, const std::string& what) {
        if (pinCount == 0 || pinCount == pins)
            return true;
        cause = "its pin count QP" + std::to_string(pinCount) + " does not fit the " + what + " (" +
                std::to_string(pins) + " pins)";
        return false;
    };
    if (is4860) {
        image->mintICount = 130;
        if (i(6) == 1) {
            // Fields 7 and 8 tell the package: 1 and 0 for 14 pins, 0 and 1 for 8 pins.
            int pins = 0;
            if (i(7) == 1 && i(8) == 0)
                pins = 14;
            else if (i(7) == 0 && i(8) == 1)
                pins = 8;
            if (pins == 0) {
                cause = "its package fuses (configuration fields 7 and 8: " + std::to_string(i(7)) +
                        " and " + std::to_string(i(8)) + ") name no package of the QX4860";
                return false;
            }
            if (!pinsFit(pins, std::to_string(pins) + "-pin QX4860 that the fuses describe"))
                return false;
            image->mintPValue = static_cast<std::int16_t>(pins);
            family = "QX4860";
            devices = {"QX4860", "QX4860F", "QX4860I"};
        } else {
            for (int n : {7, 9, 10, 11}) {
                if (i(n) != 0) {
                    cause = "its configuration field 6 is 0, as on a QX6105A, but field " +
                            std::to_string(n) + ", which the QX6105A keeps at 0, is 1";
                    return false;
                }
            }
            if (!pinsFit(8, "QX6105A"))
                return false;
            family = "QX6105A";
            devices = {"QX6105A", "QX6105AF", "QX6105AI"};
        }
        defaultDevice = family;
    } else if (is7311) {
        image->mintICount = 69;
        const int number = static_cast<int>(identity.DeviceNumber);
        if (number != 3311 && number != 3312) {
            cause = "its identity row holds the device number " + std::to_string(number) +
                    ", neither 3311 nor 3312";
            return false;
        }
        // A switched-off loop and a loop at P 6, Q 5 leave the same fuses; the family checksum
        // of the identity row tells them apart, else the loop's off flag does.
        const long stored = identity.Checksum;
        const auto flagSaysOff = [&](int first) {
            const int flag = first == 18 ? 6 : 7;
            return i(5) != 0 || i(flag) == 1;
        };
        std::vector<unsigned> matches;
        const unsigned combos = 1u << offPairs.size();
        for (unsigned mask = 0; mask < combos; ++mask) {
            clsEntryFile trial = *image;
            for (size_t k = 0; k < offPairs.size(); ++k) {
                if (mask & (1u << k)) {
                    trial.set_i(offPairs[k], 3);
                    trial.set_i(offPairs[k] + 1, 3);
                }
            }
            if (clsEntryFile7311::CalculateChecksum(trial, errors_) == stored)
                matches.push_back(mask);
        }
        unsigned byFlags = 0;
        for (size_t k = 0; k < offPairs.size(); ++k)
            if (flagSaysOff(offPairs[k]))
                byFlags |= 1u << k;
        unsigned chosen = byFlags;
        if (!matches.empty() && std::find(matches.begin(), matches.end(), byFlags) == matches.end())
            chosen = matches.front();
        for (size_t k = 0; k < offPairs.size(); ++k) {
            if (chosen & (1u << k)) {
                image->set_i(offPairs[k], 3);
                image->set_i(offPairs[k] + 1, 3);
            }
        }

        // Which windows write such an image. The QX5140 keeps its CPU and CLKF outputs and
        // CLKD off, XBUF on and every CPU selection but 000 and 100 off; with the suspend option
        // off, a QX7311 window flags each output that is off, which the QX5140 does not.
        bool qx5140 =
            i(9) == 0 && i(11) == 0 && i(12) == 1 && i(23) == 3 && i(24) == 3 && i(25) == 19;
        for (int n = 0; n <= 7 && qx5140; ++n) {
            const int base = 29 + 5 * n;
            const bool off = i(base) == 1 && i(base + 3) == 3 && i(base + 4) == 2;
            if (i(base + 1) != 1 || i(base + 2) != 2 || ((n != 0 && n != 4) && !off))
                qx5140 = false;
        }
        bool qx7311 = true;
        if (i(5) == 0) {
            qx7311 = i(10) == (i(23) == 3 ? 1 : 0) && i(11) == (i(24) == 3 ? 1 : 0);
            for (int k = 0; k < 4; ++k)
                if (i(12 + k) != (i(25 + k) == 19 ? 1 : 0))
                    qx7311 = false;
        }
        // Only the QX7311 has CLKF; only the device QX7312 numbers itself 3312.
        const bool clkf = i(23) != 3;
        std::vector<std::pair<std::string, int>> family7311 = {
            {"QX7311", 20},  {"QX7311F", 20}, {"QX7311I", 20}, {"QX7312", 16},
            {"QX7312F", 16}, {"QX7312I", 16}, {"QX5140", 8}};
        for (const auto& [device, pins] : family7311) {
            const bool is5140 = device == "QX5140";
            const bool is7312 = device.rfind("QX7312", 0) == 0;
            if ((number == 3312) != (device == "QX7312"))
                continue;
            if (is5140 ? !qx5140 : !qx7311)
                continue;
            if ((is5140 || is7312) && clkf)
                continue;
            if (pinCount != 0 && pinCount != pins)
                continue;
            devices.push_back(device);
        }
        if (devices.empty()) {
            cause = "no device fits its fuses";
            if (pinCount != 0)
                cause += " and its pin count QP" + std::to_string(pinCount);
            cause += " (device number " + std::to_string(number) + (clkf ? ", CLKF on" : "") + ")";
            return false;
        }
        family = "QX7311";
        for (const char* preferred : {"QX5140", "QX7311", "QX7312"}) {
            if (Has(devices, preferred)) {
                defaultDevice = preferred;
                break;
            }
        }
        if (defaultDevice.empty())
            defaultDevice = devices.front();
    } else {
        image->mintICount = 16;
        if (i(4) != 1) {
            cause =
                "its fuses do not follow the layout of the QX3350: the valid bit (field 4) "
                "is 0";
            return false;
        }
        if (!pinsFit(8, "QX3350"))
            return false;
        family = "QX3350";
        devices = {"QX3350", "QX3350I"};
        defaultDevice = family;
    }
    image_ = std::move(image);
    identity_ = identity;
    family_ = family;
    devices_ = devices;
    defaultDevice_ = defaultDevice;
    return true;
}

bool clsFuseMap::Fits(const std::string& device) const {
    return Has(devices_, device);
}

bool clsFuseMap::FamilyChecksumOK() const {
    if (!HasIdentity() || !image_)
        return true;
    if (clsEntryFile7311::CalculateChecksum(*image_, errors_) == identity_.Checksum)
        return true;
    // The QX5140's checksum is that of its own image.
    if (!Fits("QX5140"))
        return false;
    clsEntryFile image = *image_;
    ClearOffCPUBlocks(image);
    return clsEntryFile7311::CalculateChecksum(image, errors_) == identity_.Checksum;
}

void clsFuseMap::ClearOffCPUBlocks(clsEntryFile& image) {
    for (int n = 0; n <= 7; ++n) {
        const int base = 29 + 5 * n;
        if (image.i(base) == 1) {
            image.set_i(base + 3, 0);
            image.set_i(base + 4, 0);
        }
    }
}

std::string clsFuseMap::FamilyChecksum(const std::string& device) const {
    if (!image_)
        return "n/a";
    return mShared::CalculateChecksum(*image_, device);
}

}  // namespace pendulon
