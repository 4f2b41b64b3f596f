#include "entryfile/clsEntryFile7311.hpp"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>
#include <vector>

#include "app/AppServices.hpp"
#include "app/Configurator.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/clsPLL.hpp"
#include "core/mShared.hpp"
#include "entryfile/Checksums.hpp"
#include "entryfile/EntryFileWriting.hpp"
#include "entryfile/FuseLayouts.hpp"
#include "entryfile/ReadFile.hpp"
#include "platform/CheckBox.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/TextField.hpp"

namespace pendulon {

namespace {

const std::string kCrLf = "\r\n";
constexpr long kObjectDoesNotSupport = 438;
constexpr long kInvalidPropertyValue = 380;
constexpr long kInvalidDevice = 10301;
constexpr long kPLLSourceNotValid = 10151;
constexpr long kPLLAndDivisorNotValid = 10152;
constexpr long kFormNotSet = 10153;
constexpr long kBitFieldInvalid = 10154;
constexpr long kInvalidBitField = 10159;

// The source and divisor texts of the output fields, by their fuse code.
constexpr std::array<const char*, 32> kSourceCodes = {
    "Ref/2",   "Ref/4",   "Ref/8",   "Ref",     "CPLL",    "CPLL/2",  "CPLL/4",  "CPLL/8",
    "UPLL",    "UPLL/2",  "UPLL/4",  "UPLL/8",  "SPLL",    "SPLL/2",  "SPLL/4",  "SPLL/8",
    "SPLL/3",  "SPLL/6",  "SPLL/12", "Off",     "SPLL/5",  "SPLL/10", "SPLL/20", "SPLL/40",
    "SPLL/12", "SPLL/24", "SPLL/48", "SPLL/96", "SPLL/13", "SPLL/26", "SPLL/52", "SPLL/104"};

std::string Text(long long value) {
    return IntegerText(value);
}

std::string Indexed(const char* name, int index) {
    return std::string(name) + "(" + std::to_string(index) + ")";
}

std::string Bits(int value, int width) {
    return mShared::DisplayBinary(static_cast<std::int16_t>(value),
                                  static_cast<std::int16_t>(width));
}

std::string SumBits(int value, int width) {
    return mShared::ConvertDecimalToBinary(value, width);
}

bool IsOffText(const std::string& text) {
    return EqualsNoCase(Trim(text), "Off");
}

// ---- Comment texts ----------------------------------------------------------------------------

std::string CommentF(int n, bool details) {
    if (!details)
        return {};
    if (n == 0)
        return "  Reference Frequency";
    if (n >= 1 && n <= 8)
        return "  Desired CPUCLK freq sel " + Bits(n - 1, 3);
    switch (n) {
        case 9:
            return "  Desired SPLL";
        case 10:
            return " Desired UPLL";
        case 11:
            return " Desired CLKA   == CLKC 5140, if suspended, f=pullup f";
        case 12:
            return " Desired CLKB   == CLKB 5140";
        case 13:
            return " Desired CLKC   == CLKA 5140";
        case 14:
            return " Desired CLKD";
        case 15:
            return " Desired Floppy";
        default:
            break;
    }
    if (n >= 16 && n <= 23)
        return " Desired CPLL freq sel " + Bits(n - 16, 3);
    return {};
}

std::string CommentI(int n, bool details) {
    static constexpr std::array<const char*, 29> kDetails = {
        "  shutdown mode (0 for shutdown, 1 for output disable)",
        "  OutTTL (0 for 3V, 1 for 5V)",
        "  InTTL  (0 for 3V, 1 for 5V)",
        "  VCO3V  (Always 0)",
        "  VCOReg (0 if 3V AND VCO >= 110)",
        "  suspend option (0 for kill, 1 for suspend)",
        "  suspend UPLL",
        "  suspend SPLL",
        "  suspend CPLL",
        "  suspend XBUF",
        " suspend Floppy",
        " suspend CPU",
        " suspend CLKD",
        " suspend CLKC",
        " suspend CLKB",
        " suspend CLKA",
        " CPU_DLY1 (high order bit for CPU slew control delay)",
        " UPLL index",
        " UPLL P",
        " UPLL Q",
        " SPLL index",
        " SPLL P",
        " SPLL Q",
        " FSEL (0=SPLL/4, 1=SPLL/6, 2=SPLL/8, 3=OFF)",
        " ESEL - CPLL post divide (0=CPLL/2, 1=CPLL/4, 2=CPLL/8, 3=OFF)",
        " CLKD",
        " CLKC",
        " CLKB",
        " CLKA"};
    if (n < 0 || n > 28)
        return {};
    if (details)
        return kDetails[static_cast<size_t>(n)];
    // The loop counters keep their names in a lean file.
    if (n == 18 || n == 19 || n == 21 || n == 22)
        return kDetails[static_cast<size_t>(n)];
    return {};
}

std::string CommentCPU(int s, int b, bool details) {
    static constexpr std::array<const char*, 5> kDetails = {
        " shutdown (1-bit)", " CPU_DLY0 (low order bit for slew control delay) (1-bit)", " index",
        " P", " Q"};
    if (b < 0 || b > 4)
        return {};
    const std::string cpu = " CPU" + Text(s);
    if (details)
        return cpu + kDetails[static_cast<size_t>(b)] + (b == 4 ? kCrLf : std::string());
    if (b == 3 || b == 4)
        return cpu + kDetails[static_cast<size_t>(b)];
    return {};
}

}  // namespace

clsEntryFile7311::clsEntryFile7311(EntryFileHost& host) : host_(host), entry_(host.Errors()) {}
clsEntryFile7311::clsEntryFile7311(AppServices& app) : clsEntryFile7311(app.EntryHost()) {}
clsEntryFile7311::~clsEntryFile7311() = default;

bool clsEntryFile7311::Is7311Device(const std::string& device) {
    return device == "QX7311" || device == "QX7311F" || device == "QX7311I" || device == "QX7312" ||
           device == "QX7312F" || device == "QX7312I";
}

bool clsEntryFile7311::IsFamilyDevice(const std::string& device) {
    return Is7311Device(device) || device == "QX5140";
}

void clsEntryFile7311::SetForm(Configurator& form) {
    SetForm(std::make_unique<ConfiguratorEntryForm7311>(form));
}

void clsEntryFile7311::SetForm(std::unique_ptr<EntryForm7311> form) {
    if (form && IsFamilyDevice(form->Device()))
        form_ = std::move(form);
}

// ---- Reading the form ---------------------------------------------------------------------------

Field* clsEntryFile7311::Find(const std::string& name) {
    Field* field = form_ ? form_->Fields().Fields().Find(name) : nullptr;
    if (!field)
        host_.Errors().Raise(kObjectDoesNotSupport, "clsEntryFile7311",
                             "Object doesn't support this property or method: " + name);
    return field;
}

template <class T>
T* clsEntryFile7311::As(const std::string& name) {
    return dynamic_cast<T*>(Find(name));
}

bool clsEntryFile7311::On(const std::string& name) {
    Field* field = Find(name);
    if (auto* option = dynamic_cast<OptionButton*>(field))
        return option->Value();
    if (auto* check = dynamic_cast<CheckBox*>(field))
        return check->Value() == 1;
    return false;
}

std::string clsEntryFile7311::TextOf(const std::string& name) {
    Field* field = Find(name);
    return field ? mShared::FieldText(*field) : std::string();
}

std::int16_t clsEntryFile7311::IsOffValue(const std::string& name) {
    Field* field = Find(name);
    return field && mShared::IsOff(*field) ? 1 : 0;
}

std::int16_t clsEntryFile7311::CheckValue(const std::string& name) {
    auto* check = As<CheckBox>(name);
    return check ? static_cast<std::int16_t>(check->Value()) : 0;
}

void clsEntryFile7311::Store(int index, double value, const char* source) {
    const auto v = ToInteger(value);
    if (!v) {
        host_.Errors().Raise(errors::Overflow, source);
        return;
    }
    entry_.set_i(index, *v);
}

// The largest VCO of the data lists in use: all eight CPLL selections, or for the QX5140 its
// two select states, then SPLL and UPLL.
double clsEntryFile7311::LargestVCO(bool all) {
    double vco = 0;
    const int rows = all ? 8 : 2;
    for (int n = 0; n < rows; ++n) vco = std::max(vco, Val(TextOf(Indexed("cboCPLLData", n))));
    vco = std::max(vco, Val(TextOf("cboSPLLData")));
    vco = std::max(vco, Val(TextOf("cboUPLLData")));
    return vco;
}

void clsEntryFile7311::GetConfigurationEPROMBit(std::int16_t intBitField, std::int16_t& result) {
    const char* source = "clsEntryFile7311.GetConfigurationEPROMBit";
    if (!form_) {
        host_.Errors().Raise(kFormNotSet, source, "Property 'Form' is not set.");
        return;
    }
    const bool is5140 = form_->Device() == "QX5140";
    double vco = 0;
    if (intBitField == 17 || intBitField == 20) {
        const char* desired = intBitField == 17 ? "txtUPLL" : "txtSPLL";
        const char* data = intBitField == 17 ? "cboUPLLData" : "cboSPLLData";
        if (!is5140)
            vco = 2 * Val(TextOf(desired));
        vco = std::max(vco, Val(TextOf(data)));
    } else {
        vco = LargestVCO(!is5140);
    }
    switch (intBitField) {
        case 1:
        case 2:
            result = On("opt5V") ? 1 : 0;
            break;
        case 3:
            result = 0;
            break;
        case 4:
            result = (On("opt3V") && vco >= 110) ? 0 : 1;
            break;
        case 16:
            result = 1;
            break;
        case 17:
        case 20:
            result = vco < 60 ? 3 : 2;
            break;
        default:
            host_.Errors().Raise(kInvalidBitField, source,
                                 "Invalid parameter intBitField: '" + Text(intBitField) + "'.");
            break;
    }
}

void clsEntryFile7311::GetCPUBit(std::int16_t field, std::int16_t index, bool off,
                                 std::int16_t& result) {
    const char* source = "clsEntryFile7311.GetCPUBit";
    clsPLL pll(host_.Errors());
    auto data = [&] { return TextOf(Indexed("cboCPLLData", index)); };
    auto store = [&](double value) {
        const auto v = ToInteger(value);
        if (!v) {
            host_.Errors().Raise(errors::Overflow, source);
            return;
        }
        result = *v;
    };
    switch (field) {
        case 1:
            result = 1;
            break;
        case 2:
            result = 2;
            break;
        case 3:
            if (form_ && form_->Device() == "QX5140")
                store(pll.GetP(data()));
            else
                store(off ? 3.0 : pll.GetP(data()));
            break;
        case 4:
            store(pll.GetQ(data()));
            break;
        default:
            host_.Errors().Raise(kBitFieldInvalid, source,
                                 "BitField value '" + Text(field) + "' is invalid.");
            break;
    }
}

void clsEntryFile7311::GetCommentF(int n, std::string& result) const {
    result = CommentF(n, host_.SaveEntryFileDescription());
}

void clsEntryFile7311::GetCommentI(int n, std::string& result) const {
    result = CommentI(n, host_.SaveEntryFileDescription());
}

void clsEntryFile7311::GetCommentCPU(int s, int b, std::string& result) const {
    result = CommentCPU(s, b, host_.SaveEntryFileDescription());
}

// ---- Source codes ------------------------------------------------------------------------------

void clsEntryFile7311::ConvertPLLAndDivisorStringToInteger(const std::string& text,
                                                           bool blnDivideByTwo,
                                                           std::int16_t& result) {
    std::string value = text;
    const char first = value.empty() ? '\0' : UCase(value.substr(0, 1))[0];
    if (blnDivideByTwo && (first == 'C' || first == 'S' || first == 'U')) {
        // The outputs divide the loop's internal clock, which runs at twice its frequency.
        const double d = Val(mShared::GetSubstring(value, "/", ""));
        const std::string front = mShared::GetSubstring(value, "", "/");
        if (d == 2)
            value = front;
        else if (d != 0)
            value = front + "/" + GeneralNumber(RoundHalfEven(d / 2));
        else
            value.clear();
    }
    const int code = SourceCode(value);
    if (code >= 0) {
        result = static_cast<std::int16_t>(code);
        return;
    }
    host_.Errors().Raise(kPLLAndDivisorNotValid,
                         "clsEntryFile7311.ConvertPLLAndDivisorStringToInteger",
                         "PLL and divisor of '" + value + "' not valid.");
}

std::string clsEntryFile7311::FieldComment(int n) {
    if (n >= 0 && n <= 28)
        return CommentI(n, true);
    if (n >= 29 && n <= 68)
        return CommentCPU((n - 29) / 5, (n - 29) % 5, true);
    return {};
}

int clsEntryFile7311::SourceCode(const std::string& text) {
    for (size_t code = 0; code < kSourceCodes.size(); ++code)
        if (EqualsNoCase(text, kSourceCodes[code]))
            return static_cast<int>(code);
    // CLKD divides the reference by 3 where the others divide it by 8.
    if (EqualsNoCase(text, "Ref/3"))
        return 2;
    return -1;
}

std::string clsEntryFile7311::SourceText(int code) {
    if (code < 0 || code >= static_cast<int>(kSourceCodes.size()))
        return {};
    return kSourceCodes[static_cast<size_t>(code)];
}

void clsEntryFile7311::ConvertPLLAndDivisorIntegerToString(std::int16_t code, std::string& result) {
    const std::string text = SourceText(code);
    if (text.empty()) {
        host_.Errors().Raise(kPLLSourceNotValid,
                             "clsEntryFile7311.ConvertPLLAndDivisorIntegerToString",
                             "PLL source of '" + Text(code) + "' not valid.");
        return;
    }
    result = text;
}

// ---- The image ---------------------------------------------------------------------------------

void clsEntryFile7311::MakeEntryFile() {
    if (!form_) {
        host_.Errors().Raise(kFormNotSet, "clsEntryFile7311.MakeEntryFile",
                             "Property 'Form' is not set.");
        return;
    }
    const int errorsBefore = host_.Errors().Count();
    if (form_->Device() == "QX5140")
        Make5140EntryFile();
    else
        Make7311EntryFile();
    mblnImageErrors = host_.Errors().Count() != errorsBefore;
}

void clsEntryFile7311::Make7311EntryFile() {
    const char* source = "clsEntryFile7311.Make7311EntryFile";
    if (!form_) {
        host_.Errors().Raise(kFormNotSet, source, "Property 'Form' is not set.");
        return;
    }
    clsEntryFile& e = entry_;
    const std::string device = form_->Device();
    e.mintFCount = 9;
    e.mintICount = 69;
    e.mintMValue = 3000;
    e.mstrRValue = "d";
    e.set_f(0, Val(TextOf("cboFRef")));

    // Ordering codes: 5 V, then 3.3 V.
    struct PartCode {
        const char* Device;
        const char* At5V;
        const char* At3V;
    };
    static constexpr std::array<PartCode, 6> kCodes{{{"QX7311", "qx7311sc", "qx7311sl"},
                                                     {"QX7311F", "qx7311fsc", "qx7311fsl"},
                                                     {"QX7311I", "qx7311isc", "qx7311isl"},
                                                     {"QX7312", "qx7312sc", "qx7312sl"},
                                                     {"QX7312F", "qx7312fsc", "qx7312fsl"},
                                                     {"QX7312I", "qx7312isc", "qx7312isl"}}};
    const bool volt5 = On("opt5V");
    std::string code;
    for (const PartCode& c : kCodes)
        if (device == c.Device)
            code = volt5 ? c.At5V : c.At3V;
    if (code.empty())
        host_.Errors().Raise(kInvalidDevice, source, "Invalid device: " + device);
    if ((device == "QX7312" || device == "QX7312I") && e.f(0) >= 25)
        e.mintMValue = 3003;
    e.mstrPartDescription = code + "-" + host_.Revision();

    const double divisor = mShared::GetNonZeroDivisor(TextOf("cboCPU"));
    const bool suspend = On("chkSuspend");
    const bool suspendCPU = suspend && On("chkSusCPU");
    for (int n = 0; n <= 7; ++n) {
        const double value = Val(TextOf(Indexed("txtCPLL", n)));
        e.set_f(n + 1, (n < 4 && suspendCPU) ? 0.0 : value / divisor);
        e.set_f(n + 16, value + value);
    }
    e.set_f(9, Val(TextOf("txtSPLL")));
    e.set_f(10, Val(TextOf("txtUPLL")));
    for (int k = 0; k <= 3; ++k) e.set_f(11 + k, Val(TextOf(Indexed("lblDesiredClk", k))));
    e.set_f(15, Val(TextOf("lblDesiredClkF")));

    auto bit = [&](int field) {
        std::int16_t value = 0;
        GetConfigurationEPROMBit(static_cast<std::int16_t>(field), value);
        return value;
    };
    e.set_i(0, On("chkShutdown") ? 0 : 1);
    for (int n = 1; n <= 4; ++n) e.set_i(n, bit(n));
    e.set_i(5, suspend ? 1 : 0);
    e.set_i(6, suspend ? CheckValue("chkSuspendUPLL") : IsOffValue("txtUPLL"));
    e.set_i(7, suspend ? CheckValue("chkSuspendSPLL") : IsOffValue("txtSPLL"));
    e.set_i(8, suspend ? CheckValue("chkSuspendCPLL") : CheckValue("chkOffCPLL"));
    e.set_i(9, suspend ? CheckValue("chkSusXbuff") : IsOffValue("cboXBuff"));
    e.set_i(10, suspend ? CheckValue("chkSusClkF") : IsOffValue("cboClkF"));
    e.set_i(11, suspend ? CheckValue("chkSusCPU") : IsOffValue("cboCPU"));
    for (int k = 3; k >= 0; --k)
        e.set_i(15 - k,
                suspend ? CheckValue(Indexed("chkSusClk", k)) : IsOffValue(Indexed("cboClk", k)));
    e.set_i(16, bit(16));
    e.set_i(17, bit(17));

    clsPLL pll(host_.Errors());
    // A loop switched off is stored as P 3 and Q 3.
    auto loop = [&](int at, const char* desired, const char* data) {
        if (IsOffText(TextOf(desired))) {
            e.set_i(at, 3);
            e.set_i(at + 1, 3);
            return;
        }
        const std::string text = TextOf(data);
        Store(at, pll.GetP(text), source);
        Store(at + 1, pll.GetQ(text), source);
    };
    loop(18, "txtUPLL", "cboUPLLData");
    e.set_i(20, bit(20));
    loop(21, "txtSPLL", "cboSPLLData");
    auto* clkF = As<ListField>("cboClkF");
    e.set_i(23, static_cast<std::int16_t>(clkF ? clkF->ListIndex() : 0));
    auto* cpu = As<ListField>("cboCPU");
    e.set_i(24, static_cast<std::int16_t>(cpu ? cpu->ListIndex() : 0));
    // CLKA is the last field of the four, so it goes first.
    for (int k = 0; k <= 3; ++k) {
        std::int16_t value = 0;
        ConvertPLLAndDivisorStringToInteger(TextOf(Indexed("cboClk", k)), false, value);
        e.set_i(28 - k, value);
    }

    for (int n = 0; n <= 7; ++n) {
        const int base = 29 + 5 * n;
        const std::string name = Indexed("txtCPLL", n);
        const bool off = IsOffText(TextOf(name));
        e.set_i(base, IsOffValue(name));
        for (int b = 1; b <= 4; ++b) {
            std::int16_t value = 0;
            GetCPUBit(static_cast<std::int16_t>(b), static_cast<std::int16_t>(n), off, value);
            e.set_i(base + b, value);
        }
    }
}

bool clsEntryFile7311::OutOfRange() {
    if (!form_)
        return false;
    form_->CheckPLLLimits();
    const FieldRegistry& fields = form_->Fields().Fields();
    std::vector<std::string> names = {"txtSPLL", "txtUPLL"};
    for (int n = 0; n <= 7; ++n) names.push_back(Indexed("txtCPLL", n));
    // The QX5140 marks its desired output frequencies.
    for (const char* name : {"txtClkA(0)", "txtClkA(1)", "txtClkB", "txtClkC"})
        names.push_back(name);
    for (const std::string& name : names) {
        const Field* field = fields.Find(name);
        if (field && field->ForeColor() == colors::Red)
            return true;
    }
    return false;
}

std::string clsEntryFile7311::EntryFileText(const clsEntryFile& e, const std::string& device,
                                            const std::string& header, bool details,
                                            bool outOfRange) {
    std::string out = header + kCrLf;
    if (outOfRange)
        out += "***ONE OR MORE DESIRED PLL(S) IS OUT OF DEFAULT RANGE***" + kCrLf;
    out += kCrLf;
    out += entrylines::Part(e.mstrPartDescription);
    out += entrylines::Plain('r', e.mstrRValue);
    if (device == "QX5140")
        out += entrylines::Plain('b', Text(e.mintBValue));
    out += entrylines::Plain('m', Text(e.mintMValue));
    out += kCrLf;
    for (int n = 0; n <= 23; ++n) out += entrylines::Frequency(e, n, CommentF(n, details));
    out += kCrLf;
    for (int n = 0; n <= 28; ++n) out += entrylines::Integer(e, n, CommentI(n, details));
    int n = 29;
    for (int s = 0; s <= 7; ++s)
        for (int b = 0; b <= 4; ++b, ++n) out += entrylines::Integer(e, n, CommentCPU(s, b, details));
    return out;
}

bool clsEntryFile7311::WriteEntryFile(const std::string& path) {
    const std::string device = form_ ? form_->Device() : std::string();
    return WriteEntryFileText(
        host_, path, device,
        [&] {
            const bool outOfRange = OutOfRange();
            return EntryFileText(entry_, device, host_.EntryFileHeader(),
                                 host_.SaveEntryFileDescription(), outOfRange);
        },
        "clsEntryFile7311.WriteEntryFile");
}

// ---- Checksums and the vector ------------------------------------------------------------------

std::int16_t clsEntryFile7311::Checksum() {
    MakeEntryFile();
    return CalculateChecksum(entry_);
}

std::int16_t clsEntryFile7311::CalculateChecksum(const clsEntryFile& entry) const {
    return CalculateChecksum(entry, host_.Errors());
}

std::int16_t clsEntryFile7311::CalculateChecksum(const clsEntryFile& e, ErrorReport& errors) {
    // Selection blocks first, the configuration behind; the counters always less their offsets.
    std::string text;
    for (int n = 6; n <= 13; ++n) {
        const int k = 5 * n - 1;
        text += Text(e.i(k)) + Text(e.i(k + 1));
        text += SumBits(e.i(k + 2), 2);
        text += SumBits(e.i(k + 3) - 3, 8);
        text += SumBits(e.i(k + 4) - 2, 6);
    }
    for (int n = 0; n <= 16; ++n) text += Text(e.i(n));
    text += SumBits(e.i(17), 2);
    text += SumBits(e.i(18) - 3, 10);
    text += SumBits(e.i(19) - 2, 7);
    text += SumBits(e.i(20), 2);
    text += SumBits(e.i(21) - 3, 8);
    text += SumBits(e.i(22) - 2, 6);
    text += SumBits(e.i(23), 2);
    text += SumBits(e.i(24), 2);
    for (int n = 25; n <= 28; ++n) text += SumBits(e.i(n), 5);
    return mShared::HexDigitSum(text, errors);
}

FuseIdentity clsEntryFile7311::IdentityFuses(const Identity& identity) {
    FuseIdentity fuses;
    const auto checksum = ToInteger(Val(identity.Checksum));
    fuses.Checksum = checksum ? *checksum : 0;
    fuses.Major = identity.Version.Major;
    fuses.Minor = identity.Version.Minor;
    fuses.Build = identity.Version.Build;
    fuses.Day = identity.Date.Day;
    fuses.Month = identity.Date.Month;
    fuses.Year = identity.Date.Year;
    fuses.DeviceNumber = DeviceNumber(identity.Device);
    return fuses;
}

int clsEntryFile7311::DeviceNumber(const std::string& device) {
    return device == "QX7312" ? 3312 : 3311;
}

std::string clsEntryFile7311::FuseRow(const clsEntryFile& e, int row, const Identity& identity) {
    const FuseLayout& layout = FuseLayout7311();
    if (row < 0 || row >= static_cast<int>(layout.size()))
        return {};
    return BuildFuseMap(layout, e, IdentityFuses(identity)).Rows[static_cast<size_t>(row)];
}

std::string clsEntryFile7311::EPROMVectorText(const clsEntryFile& e, const std::string& device,
                                              const std::string& title, const std::string& build,
                                              const Identity& identity, bool outOfRange) {
    std::string out = std::string(1, '\x02') + kCrLf;
    out += "Generated by " + title + " - " + build + kCrLf;
    out += "Varnhol Semiconductor" + kCrLf;
    out += "Pendulon Checksum = " + identity.Checksum + kCrLf;
    if (outOfRange)
        out += "ONE OR MORE DESIRED PLL(S) IS OUT OF DEFAULT RANGE" + kCrLf;
    out += "*" + kCrLf;
    if (device == "QX7311" || device == "QX7311F")
        out += "QP0020* QF0336* G0 *" + kCrLf;
    else if (device == "QX7312" || device == "QX7312F")
        out += "QP0016* QF0336* G0 *" + kCrLf;
    out += "L0000" + kCrLf;
    std::string fuses;
    const FuseMap map = BuildFuseMap(FuseLayout7311(), e, IdentityFuses(identity));
    for (size_t row = 0; row < map.Rows.size(); ++row) {
        fuses += map.Rows[row];
        out += map.Rows[row] + (row + 1 == map.Rows.size() ? "*" : "") + kCrLf;
    }
    out += "C" + mShared::CalculateJEDECChecksum(fuses) + "*" + kCrLf;
    out += std::string(1, '\x03') + "0000" + kCrLf;
    return out;
}

bool clsEntryFile7311::MakeEPROMVector(const std::string& path, bool fromForm) {
    const char* source = "clsEntryFile7311.MakeEPROMVector";
    const std::string device = form_ ? form_->Device() : std::string();
    Identity identity;
    identity.Checksum = host_.UpdatedChecksum();
    identity.Date = host_.Today();
    identity.Version = host_.ProgramVersion();
    identity.Device = device;
    const bool outOfRange = OutOfRange();
    std::unique_ptr<clsEntryFile> read;
    const clsEntryFile* image = &entry_;
    bool imageErrors = mblnImageErrors;
    if (!fromForm) {
        read = ReadSavedEntryFile(host_, imageErrors);
        image = read.get();
    }
    if (!VectorMayBeWritten(host_, path, fromForm, imageErrors,
                            BuildFuseMap(FuseLayout7311(), *image, IdentityFuses(identity)).Misfits,
                            source))
        return false;
    const std::string text =
        EPROMVectorText(*image, device, host_.Title(), host_.Build(), identity, outOfRange);
    return WriteForUser(host_, path, text, source, true);
}

// ---- Filling a form from an image --------------------------------------------------------------

void clsEntryFile7311::Fill7311Form(const clsEntryFile& e) {
    const char* source = "clsEntryFile7311.Fill7311Form";
    if (!form_) {
        host_.Errors().Raise(kFormNotSet, source, "Property 'Form' is not set.");
        return;
    }
    EntryForm7311& form = *form_;
    const std::string device = form.Device();
    if (!Is7311Device(device)) {
        host_.Errors().Raise(kInvalidDevice, source, "Invalid calling device: " + device);
        return;
    }
    auto setText = [&](const std::string& name, const std::string& text) {
        if (auto* field = As<TextField>(name))
            field->SetText(text);
    };
    auto setCheck = [&](const std::string& name, int value) {
        if (auto* check = As<CheckBox>(name))
            check->SetValue(value);
    };
    auto setIndex = [&](const std::string& name, int index) {
        auto* list = As<ListField>(name);
        if (list && !list->SetListIndex(index))
            host_.Errors().Raise(
                kInvalidPropertyValue, source,
                "Invalid property value: " + name + " has no entry " + Text(index) + ".");
    };
    auto setLast = [&](const std::string& name) {
        if (auto* list = As<ListField>(name))
            list->SetListIndex(list->ListCount() - 1);
    };

    // 1. The reference, added to the list when it is not there.
    if (auto* ref = As<ListField>("cboFRef")) {
        const double reference = e.f(0);
        if (!mShared::SetListIndex(*ref, GeneralNumber(reference))) {
            ref->AddItem(mShared::FormatFrequencyFixed(reference) + " " + "MHz");
            mShared::SetListIndex(*ref, GeneralNumber(reference));
        }
    }
    form.cboFRef_LostFocus();

    // 2, 3. Loop frequencies; older files hold the CPU frequencies only.
    for (int n = 0; n <= 7; ++n) {
        const double value = e.mintFCount < 17 ? e.f(n + 1) : e.f(n + 16) / 2;
        setText(Indexed("txtCPLL", n), mShared::FormatFrequencyLong(value));
    }
    setText("txtSPLL", mShared::FormatFrequencyLong(e.f(9)));
    setText("txtUPLL", mShared::FormatFrequencyLong(e.f(10)));

    // 4. Voltage and the enable pin.
    if (auto* option = As<OptionButton>(e.i(2) == 0 ? "opt3V" : "opt5V"))
        option->SetValue(true);
    if (e.i(0) == 0)
        setCheck("chkShutdown", 1);

    // 5. Suspend, or what is switched off.
    if (e.i(5) == 1) {
        setCheck("chkSuspend", 1);
        // Each suspend box with the field of the image that holds it.
        for (const auto& [box, field] : std::initializer_list<std::pair<const char*, int>>{
                 {"chkSuspendUPLL", 6}, {"chkSuspendSPLL", 7}, {"chkSuspendCPLL", 8},
                 {"chkSusXbuff", 9}, {"chkSusClkF", 10}, {"chkSusCPU", 11}})
            setCheck(box, e.i(field));
        for (int k = 0; k <= 3; ++k) setCheck(Indexed("chkSusClk", k), e.i(15 - k));
    } else {
        if (e.i(11) != 0)
            setLast("cboCPU");
        for (int k = 0; k <= 3; ++k)
            if (e.i(15 - k) != 0)
                setLast(Indexed("cboClk", k));
        if (e.i(10) != 0)
            setLast("cboClkF");
        if (e.i(9) != 0)
            setLast("cboXBuff");
        if (e.i(8) != 0)
            setCheck("chkOffCPLL", 1);
        if (e.i(7) != 0)
            setText("txtSPLL", "Off");
        if (e.i(6) != 0)
            setText("txtUPLL", "Off");
    }

    // 6. The source of each clock: the first entry whose code is the stored one.
    for (int k = 0; k <= 3; ++k) {
        auto* list = As<ListField>(Indexed("cboClk", k));
        if (!list)
            continue;
        const std::int16_t wanted = e.i(28 - k);
        int found = list->ListCount() - 1;
        for (int j = 0; j < list->ListCount(); ++j) {
            std::int16_t code = -1;
            ConvertPLLAndDivisorStringToInteger(list->List(j), false, code);
            if (code == wanted) {
                found = j;
                break;
            }
        }
        list->SetListIndex(found);
    }

    // 7. The two post dividers.
    setIndex("cboClkF", e.i(23));
    setIndex("cboCPU", e.i(24));

    // 8. The stored counters into the data lists; the window then recomputes.
    clsPLL pll(host_.Errors());
    pll.mdblReferenceFrequency = e.f(0);
    for (int n = 0; n <= 7; ++n) {
        const int base = 29 + 5 * n;
        const bool off = e.i(base) != 0 || (e.i(base + 1) == 0 && e.i(base + 2) != 0);
        const double p = off ? pll.mdblMinP : e.i(base + 3);
        const double q = off ? pll.mdblMinQ : e.i(base + 4);
        if (auto* data = As<ListField>(Indexed("cboCPLLData", n)))
            pll.StoreVCOPAndQ(*data, p, q);
    }
    auto loop = [&](const char* name, int flag, int at) {
        const bool on = e.i(5) != 0 || e.i(flag) != 1;
        const double p = on ? e.i(at) : pll.mdblMinP;
        const double q = on ? e.i(at + 1) : pll.mdblMinQ;
        if (auto* data = As<ListField>(name))
            pll.StoreVCOPAndQ(*data, p, q);
    };
    loop("cboSPLLData", 7, 21);
    loop("cboUPLLData", 6, 18);

    form.DisplayAllActuals();
    form.CalculatePower();
    if (Field* apply = Find("cmdApplyLimits"))
        apply->SetEnabled(true);
    form.cmdApplyLimits_Click();
    form.Fields().SetVisible(true);
}

}  // namespace pendulon
