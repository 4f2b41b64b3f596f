#include "entryfile/clsEntryFile4860.hpp"

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
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/TextField.hpp"

namespace pendulon {

namespace {

const std::string kCrLf = "\r\n";
constexpr long kObjectDoesNotSupport = 438;

std::string Text(long long value) {
    return IntegerText(value);
}

// Four binary digits of a selection number.
std::string Sel4(int sel) {
    return mShared::DisplayBinary(static_cast<std::int16_t>(sel), 4);
}

double GetP(const std::string& data) {
    return Val(mShared::GetSubstring(data, "P:", "Q:"));
}
double GetQ(const std::string& data) {
    return Val(mShared::GetSubstring(data, "Q:", ""));
}

// A configurator seen through the members the entry-file classes use.
class ConfiguratorEntryForm : public EntryForm {
  public:
    explicit ConfiguratorEntryForm(Configurator& form) : form_(form) {}
    std::string Device() const override { return form_.Device(); }
    bool PreScale(int index) const override { return form_.PreScale(index); }
    void SetPreScale(int index, bool value) override { form_.SetPreScale(index, value); }
    void cmdApplyLimits_Click() override { form_.cmdApplyLimits_Click(); }
    Window& Fields() override { return form_; }

  private:
    Configurator& form_;
};

// Selections in use and the control index that serves each.
struct Selections {
    int count = 0;
    int start = 0;
    int step = 1;
    int Sel(int k) const { return start + step * k; }
};

}  // namespace

clsEntryFile4860::clsEntryFile4860(EntryFileHost& host) : host_(host), entry_(host.Errors()) {}
clsEntryFile4860::clsEntryFile4860(AppServices& app) : clsEntryFile4860(app.EntryHost()) {}
clsEntryFile4860::~clsEntryFile4860() = default;

bool clsEntryFile4860::Is4860Device(const std::string& device) {
    return device == "QX4860" || device == "QX4860F" || device == "QX4860I";
}

bool clsEntryFile4860::IsFamilyDevice(const std::string& device) {
    return Is4860Device(device) || device == "QX6105A" || device == "QX6105AF" ||
           device == "QX6105AI";
}

void clsEntryFile4860::SetForm(Configurator& form) {
    SetForm(std::make_unique<ConfiguratorEntryForm>(form));
}

void clsEntryFile4860::SetForm(std::unique_ptr<EntryForm> form) {
    if (form && IsFamilyDevice(form->Device()))
        form_ = std::move(form);
}

Field* clsEntryFile4860::Find(EntryForm& form, const std::string& name) {
    Field* field = form.Fields().Fields().Find(name);
    if (!field)
        host_.Errors().Raise(kObjectDoesNotSupport, "clsEntryFile4860",
                             "Object doesn't support this property or method: " + name);
    return field;
}

// An option set or a check box ticked.
bool clsEntryFile4860::On(EntryForm& form, const std::string& name) {
    Field* field = Find(form, name);
    if (auto* option = dynamic_cast<OptionButton*>(field))
        return option->Value();
    if (auto* check = dynamic_cast<CheckBox*>(field))
        return check->Value() == 1;
    return false;
}

// ---- Reading the form ----------------------------------------------------------------------

void clsEntryFile4860::GetConfigurationEPROMBit(EntryForm& form, const std::string& strWhichBit,
                                                std::int16_t& result) {
    const char* source = "clsEntryFile4860.GetConfigurationEPROMBit";
    result = 0;
    const std::string device = form.Device();
    const bool is6105 = device == "QX6105A" || device == "QX6105AF" || device == "QX6105AI";
    const bool is4860 = Is4860Device(device);
    auto checkValue = [&](const std::string& name) {
        auto* check = dynamic_cast<CheckBox*>(Find(form, name));
        return check ? check->Value() : 0;
    };
    auto isOff = [&](const std::string& name) {
        Field* field = Find(form, name);
        return field ? mShared::IsOff(*field) : false;
    };
    auto oe = [&](const std::string& x, bool y) { return isOff(x) ? 3 : (y ? 1 : 0); };
    auto mux = [&](const std::string& x) {
        if (isOff(x))
            return 0;
        auto* list = dynamic_cast<ListField*>(Find(form, x));
        return list ? list->ListIndex() : 0;
    };

    const std::string which = Trim(strWhichBit);
    const bool numeric = !which.empty() &&
                         which.find_first_not_of("0123456789") == std::string::npos &&
                         which.size() <= 2;
    const int n = numeric ? std::stoi(which) : -1;
    if (n < 0 || n > 17) {
        host_.Errors().Raise(10102, source, "Parameter strWhichBit=" + strWhichBit + " not valid.");
        return;
    }
    if (n >= 6 && !is6105 && !is4860) {
        host_.Errors().Raise(10103, source, "Device '" + device + "' not valid.");
        return;
    }
    const bool pins14 = is4860 && On(form, "opt14Pin");
    int value = 0;
    switch (n) {
        case 0:
            value = 0;
            break;
        case 1:
            value = checkValue("chkSmoothSlew");
            break;
        case 2:
            value = On(form, "opt5V") ? 1 : 0;
            break;
        case 3:
            value = On(form, "opt3V") ? 1 : 0;
            break;
        case 4:
            value = 0;
            break;
        case 5: {
            if (On(form, "opt3V")) {
                value = 0;
                break;
            }
            value = 1;
            for (int j = 0;; ++j) {
                auto* list = form.Fields().Fields().FindAs<ListField>("cboPLLData(" +
                                                                      std::to_string(j) + ")");
                if (!list)
                    break;
                if (Val(list->Text()) > 195)
                    value = 0;
            }
            break;
        }
        case 6:
            value = is6105 ? 0 : 1;
            break;
        case 7:
            value = is6105 ? 0 : (pins14 ? 1 : 0);
            break;
        case 8:
            value = is6105 ? (On(form, "optFS") ? 1 : 0) : (pins14 ? 0 : 1);
            break;
        case 9:
            value = is6105 ? 0 : (checkValue("chkPowerDown") == 1 ? 0 : 1);
            break;
        case 10:
            value = is6105 ? 0 : checkValue("chkPLLAndOscillatorStop");
            break;
        case 11:
            value =
                is6105
                    ? 0
                    : ((checkValue("chkPLLStop") == 1 || checkValue("chkPLLAndOscillatorStop") == 1)
                           ? 1
                           : 0);
            break;
        case 12:
            value = is6105 ? oe("cboClkDiv(1)", On(form, "optOE")) : 3;
            break;
        case 13:
            value = is6105 ? mux("cboClkDiv(1)") : 0;
            break;
        case 14:
            if (is6105)
                value = oe("cboClkDiv(0)", On(form, "optOE"));
            else if (pins14)
                value = oe("cboRefClkDiv", On(form, "chkOEReference"));
            else
                value = isOff("cboRefClkDiv") ? 3 : 0;
            break;
        case 15:
            value = is6105 ? mux("cboClkDiv(0)") : mux("cboRefClkDiv");
            break;
        case 16:
            if (is6105)
                value = oe("cboClkDiv(2)", On(form, "optOE"));
            else if (isOff("cboClkADiv"))
                value = 3;
            else  // 2, not 1: the 14-pin clock A enable is its own code
                value = (pins14 && On(form, "chkOEClockA")) ? 2 : 0;
            break;
        case 17:
            value = is6105 ? mux("cboClkDiv(2)") : mux("cboClkADiv");
            break;
    }
    result = static_cast<std::int16_t>(value);
}

void clsEntryFile4860::GetCPUEPROMBit(EntryForm& form, const std::string& strWhichBit, int k,
                                      double& result) {
    const std::string which = Trim(strWhichBit);
    const int b = (which.size() == 1 && which[0] >= '0' && which[0] <= '6') ? which[0] - '0' : -1;
    if (b < 0) {
        host_.Errors().Raise(10101, "clsEntryFile4860.GetCPUEPROMBit",
                             "Parameter strWhichBit=" + strWhichBit + " not valid.");
        result = 0;
        return;
    }
    if (k < 0) {
        static constexpr int kDefaults[7] = {0, 0, 0, 1, 1, 5, 2};
        result = kDefaults[b];
        return;
    }
    auto data = [&]() -> std::string {
        auto* list = dynamic_cast<ListField*>(Find(form, "cboPLLData(" + std::to_string(k) + ")"));
        return list ? list->Text() : std::string();
    };
    switch (b) {
        case 0:
            result = 0;
            break;
        case 1:
            result = form.PreScale(k) ? 1 : 0;
            break;
        case 2:
            result = Val(data()) < 20 ? 1 : 0;
            break;
        case 3:
            result = 1;
            break;
        case 4:
            result = 1;
            break;
        case 5:
            result = GetP(data());
            break;
        case 6:
            result = GetQ(data());
            break;
    }
}

// ---- Comments --------------------------------------------------------------------------------

namespace {
std::string CommentI(int n, bool details) {
    if (!details)
        return {};
    switch (n) {
        case 0:
            return "  Enable Async OE";
        case 1:
            return "  Enable smooth slewing";
        case 2:
            return "  Enable TTL thresholds (for 5V operation)";
        case 3:
            return "  Enable extra drive (for 3V operation)";
        case 4:
            return "  Enable VReg Boost signal (always 0)";
        case 5:
            return "  Enable Voltage Regulator (3V: when VCO < 120, 5V: when VCO < 190)" + kCrLf;
        case 6:
            return "  Clk2 is output on Pad 17 / Pad 1 is an input";
        case 7:
            return "  Pad 12 is OE(CLK1)";
        case 8:
            return "  Pad 10 is FS1";
        case 9:
            return "  Pad 7 is OE only, disable Full Chip Shutdown" + kCrLf;
        case 10:
            return " Enable Crystal Shutdown (1 bit)";
        case 11:
            return " Enable PLL Shutdown (1 bit)" + kCrLf;
        case 12:
            return " CLK3 OE control  (2 bits --- range: 0-3)";
        case 13:
            return " CLK3 Mux control (3 bits --- range: 0-7)";
        case 14:
            return " CLK2 OE control  (2 bits --- range: 0-3)";
        case 15:
            return " CLK2 Mux control (3 bits --- range: 0-7)";
        case 16:
            return " CLK1 OE control  (2 bits --- range: 0-3)";
        case 17:
            return " CLK1 Mux control (3 bits --- range: 0-7)" + kCrLf;
        default:
            return {};
    }
}

std::string CommentCPUText(int b, bool details) {
    switch (b) {
        case 0:
            return details ? " RESERVED (1 bit)" : "";
        case 1:
            return details ? " Force Div/2 prescale on PLL output (1 bit)" : "";
        case 2:
            return details ? " PLL charge pump 2uA (low current) setting (1 bit)" : "";
        case 3:
            return details ? " Add 10ns to PLL slew delay window (1 Bit)" : "";
        case 4:
            return details ? " Add 5ns to PLL slew delay window (1 bit)" : "";
        case 5:
            return " P (decimal P Value)";
        case 6:
            return " Q (decimal Q Value)" + kCrLf;
        default:
            return {};
    }
}

std::string CommentF(int n, bool details) {
    std::string result;
    if (details) {
        if (n == 0)
            result = "  Reference Frequency" + kCrLf;
        else if (n >= 1 && n <= 9)
            result = "  Desired PLL freq sel " + Sel4(n - 1);
        else if (n >= 10 && n <= 16)
            result = " Desired PLL freq sel " + Sel4(n - 1);
    }
    if (n == 8)
        result += kCrLf;
    return result;
}
}  // namespace

std::string clsEntryFile4860::FieldComment(int n) {
    if (n >= 0 && n <= 17)
        return CommentI(n, true);
    if (n >= 18 && n <= 129)
        return "SEL " + Sel4((n - 18) / 7) + CommentCPUText((n - 18) % 7, true);
    return {};
}

void clsEntryFile4860::GetCommentF(int n, std::string& result) const {
    result = CommentF(n, host_.SaveEntryFileDescription());
}

void clsEntryFile4860::GetCommentI(int n, std::string& result) const {
    result = CommentI(n, host_.SaveEntryFileDescription());
}

void clsEntryFile4860::CommentCPU(int b, std::string& result) const {
    result = CommentCPUText(b, host_.SaveEntryFileDescription());
}

// ---- The image ---------------------------------------------------------------------------------

void clsEntryFile4860::MakeEntryFile() {
    if (!form_)
        return;
    EntryForm& form = *form_;
    ErrorReport& errors = host_.Errors();
    const int errorsBefore = errors.Count();
    clsEntryFile& e = entry_;
    e.mintFCount = 17;
    e.mintICount = 18;
    const std::string device = form.Device();
    const bool volt5 = On(form, "opt5V");
    std::string code;
    Selections sels;
    if (Is4860Device(device)) {
        code = device == "QX4860" ? "qx4860" : device == "QX4860F" ? "qx4860f" : "qx4860i";
        if (On(form, "opt14Pin")) {
            sels = {16, 0, 1};
            e.mintPValue = 14;
        } else {
            sels = {4, 9, 2};
            e.mintPValue = 8;
        }
        e.mstrPackage = "SOIC";
    } else {
        code = device == "QX6105A" ? "qx6105a" : device == "QX6105AF" ? "qx6105f" : "qx6105i";
        sels = On(form, "optFS") ? Selections{2, 9, 4} : Selections{1, 13, 0};
    }
    code += volt5 ? "sc" : "sl";
    e.mstrPartDescription = code + "-" + host_.Revision();

    auto* ref = dynamic_cast<ListField*>(Find(form, "cboFRef"));
    e.set_f(0, ref ? Val(ref->Text()) : 0.0);
    for (int n = 1; n <= 16; ++n) e.set_f(n, 0);
    for (int k = 0; k < sels.count; ++k) {
        const double factor = form.PreScale(k) ? 2 : 1;
        auto* pll = dynamic_cast<TextField*>(Find(form, "txtPLL(" + std::to_string(k) + ")"));
        e.set_f(sels.Sel(k) + 1, (pll ? Val(pll->Text()) : 0.0) * factor);
    }
    for (int n = 0; n <= 17; ++n) {
        std::int16_t bit = 0;
        GetConfigurationEPROMBit(form, Text(n), bit);
        e.set_i(n, bit);
    }
    auto store = [&](int index, double value) {
        const auto v = ToInteger(value);
        if (!v) {
            errors.Raise(errors::Overflow, "clsEntryFile4860.MakeEntryFile");
            return;
        }
        e.set_i(index, *v);
    };
    for (int sel = 0; sel <= 15; ++sel) {
        for (int b = 0; b <= 6; ++b) {
            double bit = 0;
            GetCPUEPROMBit(form, Text(b), -1, bit);
            store(18 + 7 * sel + b, bit);
        }
    }
    for (int k = 0; k < sels.count; ++k) {
        for (int b = 0; b <= 6; ++b) {
            double bit = 0;
            GetCPUEPROMBit(form, Text(b), k, bit);
            store(18 + 7 * sels.Sel(k) + b, bit);
        }
    }
    mblnImageErrors = errors.Count() != errorsBefore;
}

bool clsEntryFile4860::OutOfRange() {
    if (!form_)
        return false;
    for (const char* name : {"txtPLL(0)", "txtPLL(1)"}) {
        Field* field = form_->Fields().Fields().Find(name);
        if (field && field->ForeColor() == colors::Red)
            return true;
    }
    return false;
}

std::string clsEntryFile4860::EntryFileText(const clsEntryFile& e, const std::string& device,
                                            const std::string& header, bool details,
                                            bool outOfRange) {
    std::string out = header + kCrLf;
    if (outOfRange)
        out += "***PLL(s) ARE OUT OF DEFAULT RANGE***" + kCrLf + kCrLf;
    const bool is4860 = Is4860Device(device);
    if (is4860)
        out += "Package: " + e.mstrPackage + kCrLf + kCrLf;
    out += entrylines::Part(e.mstrPartDescription);
    if (is4860)
        out += entrylines::Plain('p', Text(e.mintPValue));
    out += kCrLf;
    for (int n = 0; n <= 16; ++n)
        out += "# f " + mShared::FormatFrequencyFixed(e.f(n), 1) + " ;" + Text(n) +
               CommentF(n, details) + kCrLf;
    out += kCrLf;
    for (int n = 0; n <= 17; ++n) out += entrylines::Integer(e, n, CommentI(n, details));
    int n = 18;
    for (int sel = 0; sel <= 15; ++sel) {
        out += std::string(14, ' ') + ";SEL " + Sel4(sel) + " Configuration" + kCrLf;
        for (int b = 0; b <= 6; ++b, ++n) {
            // The numbers below 100 take one more blank, so that the comments line up.
            std::string comment = n < 100 ? " " : "";
            comment += CommentCPUText(b, details);
            out += entrylines::Integer(e, n, comment);
        }
    }
    return out;
}

bool clsEntryFile4860::WriteEntryFile(const std::string& path) {
    const std::string device = form_ ? form_->Device() : std::string();
    return WriteEntryFileText(
        host_, path, device,
        [&] {
            return EntryFileText(entry_, device, host_.EntryFileHeader(),
                                 host_.SaveEntryFileDescription(), OutOfRange());
        },
        "clsEntryFile4860.WriteEntryFile");
}

// ---- Checksums and the vector -------------------------------------------------------------------

std::int16_t clsEntryFile4860::Checksum() {
    MakeEntryFile();
    return CalculateChecksum(entry_);
}

std::int16_t clsEntryFile4860::CalculateChecksum(const clsEntryFile& entry) const {
    return CalculateChecksum(entry, host_.Errors());
}

std::int16_t clsEntryFile4860::CalculateChecksum(const clsEntryFile& e, ErrorReport& errors) {
    std::string text;
    for (int s = 0; s <= 15; ++s) {
        const int base = 18 + 7 * s;
        for (int b = 0; b <= 4; ++b) text += Text(e.i(base + b));
        text += mShared::ConvertDecimalToBinary(e.i(base + 5) - 3, 8);
        text += mShared::ConvertDecimalToBinary(e.i(base + 6) - 2, 7);
    }
    for (int n = 0; n <= 11; ++n) text += Text(e.i(n));
    static constexpr int kWidths[6] = {2, 3, 2, 3, 2, 3};
    for (int n = 12; n <= 17; ++n) text += mShared::ConvertDecimalToBinary(e.i(n), kWidths[n - 12]);
    return mShared::HexDigitSum(text, errors);
}

std::string clsEntryFile4860::FuseMap(const clsEntryFile& e) {
    std::string fuses;
    for (const std::string& row : BuildFuseMap(FuseLayout4860(), e).Rows) fuses += row;
    return fuses;
}

std::string clsEntryFile4860::EPROMVectorText(const clsEntryFile& e, const std::string& device,
                                              const std::string& title, const std::string& build,
                                              bool outOfRange) {
    std::string out = std::string(1, '\x02') + kCrLf;
    out += "Generated by " + title + " - " + build + kCrLf;
    out += "Varnhol Semiconductor" + kCrLf;
    if (outOfRange)
        out += kCrLf + "    PLL(S) ARE OUT OF DEFAULT RANGE" + kCrLf + kCrLf;
    out += "*" + kCrLf;
    if (device == "QX4860" || device == "QX4860F" || device == "QX6105AF")
        out += "QP00" + Text(e.mintPValue) + "* QF0884* G0 *" + kCrLf;
    out += "L0000" + kCrLf;
    const std::string fuses = FuseMap(e);
    for (size_t row = 0; row < 17; ++row) {
        out += fuses.substr(row * 52, 52);
        if (row == 16)
            out += "*";
        out += kCrLf;
    }
    out += "C" + mShared::CalculateJEDECChecksum(fuses) + "*" + kCrLf;
    out += std::string(1, '\x03') + "0000" + kCrLf;
    return out;
}

bool clsEntryFile4860::MakeEPROMVector(const std::string& path, bool fromForm) {
    const char* source = "clsEntryFile4860.MakeEPROMVector";
    const std::string device = form_ ? form_->Device() : std::string();
    const bool outOfRange = OutOfRange();
    std::unique_ptr<clsEntryFile> read;
    const clsEntryFile* image = &entry_;
    bool imageErrors = mblnImageErrors;
    if (!fromForm) {
        read = ReadSavedEntryFile(host_, imageErrors);
        image = read.get();
    }
    if (!VectorMayBeWritten(host_, path, fromForm, imageErrors,
                            BuildFuseMap(FuseLayout4860(), *image).Misfits, source))
        return false;
    const std::string text =
        EPROMVectorText(*image, device, host_.Title(), host_.Build(), outOfRange);
    return WriteForUser(host_, path, text, source, false);
}

// ---- Filling a form from an image ---------------------------------------------------------------

namespace {

template <class T>
T* As(Window& w, const std::string& name) {
    return w.Fields().FindAs<T>(name);
}

void SetReference(Window& w, double reference) {
    auto* ref = As<ListField>(w, "cboFRef");
    if (!ref)
        return;
    const std::string value = GeneralNumber(reference);
    if (!mShared::SetListIndex(*ref, value)) {
        ref->SetText(value);
        mShared::FormatReferenceComboBox(*ref);
    }
}

void SetOption(Window& w, const std::string& name) {
    if (auto* o = As<OptionButton>(w, name))
        o->SetValue(true);
}

void SetCheck(Window& w, const std::string& name, int value) {
    if (auto* c = As<CheckBox>(w, name))
        c->SetValue(value);
}

void SetIndex(Window& w, const std::string& name, int index) {
    if (auto* l = As<ListField>(w, name))
        l->SetListIndex(index);
}

void FillSelections(EntryForm& form, const clsEntryFile& e, const Selections& sels,
                    ErrorReport& errors) {
    Window& w = form.Fields();
    // A loop with its limits as constructed: it only turns the stored P and Q into a data text.
    clsPLL pll(errors);
    pll.mdblReferenceFrequency = e.f(0);
    for (int k = 0; k < sels.count; ++k) {
        const int sel = sels.Sel(k);
        const int base = 18 + 7 * sel;
        const bool prescale = e.i(base + 1) == 1;
        form.SetPreScale(k, prescale);
        const double divisor = prescale ? 2 : 1;
        if (auto* text = As<TextField>(w, "txtPLL(" + std::to_string(k) + ")"))
            text->SetText(mShared::FormatFrequencyLong(e.f(sel + 1) / divisor));
        if (auto* data = As<ListField>(w, "cboPLLData(" + std::to_string(k) + ")"))
            pll.StoreVCOPAndQ(*data, e.i(base + 5), e.i(base + 6));
    }
}

void Finish(EntryForm& form, const clsEntryFile& e) {
    Window& w = form.Fields();
    SetCheck(w, "chkSmoothSlew", e.i(1));
    if (Field* apply = w.Fields().Find("cmdApplyLimits"))
        apply->SetEnabled(true);
    form.cmdApplyLimits_Click();
    w.SetVisible(true);
}

}  // namespace

void clsEntryFile4860::Fill4860Form(const clsEntryFile& e) {
    if (!form_)
        return;
    EntryForm& form = *form_;
    Window& w = form.Fields();
    Selections sels;
    if (e.mintPValue == 14) {
        SetOption(w, "opt14Pin");
        sels = {16, 0, 1};
    } else {
        SetOption(w, "opt8Pin");
        // Older 8-pin files hold only the four frequencies in use.
        sels = e.mintFCount < 17 ? Selections{4, 0, 1} : Selections{4, 9, 2};
    }
    const bool pins14 = e.mintPValue == 14;
    SetReference(w, e.f(0));
    SetOption(w, e.i(2) == 1 ? "opt5V" : "opt3V");
    SetCheck(w, "chkSmoothSlew", e.i(1));
    SetIndex(w, "cboClkADiv", e.i(17));
    SetIndex(w, "cboRefClkDiv", e.i(15));
    SetCheck(w, "chkOEClockA", e.i(7));
    if (e.i(16) == 2) {
        if (e.i(7) == 1 && pins14)
            SetCheck(w, "chkOEClockA", 1);
    } else if (e.i(16) == 3) {
        SetIndex(w, "cboClkADiv", 8);
    }
    SetCheck(w, "chkOEReference", e.i(8));
    if (e.i(14) == 1) {
        if (e.i(8) == 0 && pins14)
            SetCheck(w, "chkOEReference", 1);
    } else if (e.i(14) == 3) {
        SetIndex(w, "cboRefClkDiv", 8);
    }
    SetCheck(w, "chkPowerDown", e.i(9) == 0 ? 1 : 0);
    SetCheck(w, "chkPLLStop", e.i(11));
    SetCheck(w, "chkPLLAndOscillatorStop", e.i(10));
    FillSelections(form, e, sels, host_.Errors());
    Finish(form, e);
}

void clsEntryFile4860::Fill6105AForm(const clsEntryFile& e) {
    if (!form_)
        return;
    EntryForm& form = *form_;
    Window& w = form.Fields();
    SetReference(w, e.f(0));
    SetOption(w, e.i(2) == 1 ? "opt5V" : "opt3V");
    static constexpr int kFields[3][2] = {{14, 15}, {12, 13}, {16, 17}};
    for (int k = 0; k < 3; ++k) {
        const std::string name = "cboClkDiv(" + std::to_string(k) + ")";
        SetIndex(w, name, e.i(kFields[k][0]) == 3 ? 8 : e.i(kFields[k][1]));
    }
    Selections sels;
    if (e.i(8) != 0) {
        SetOption(w, "optFS");
        sels = {2, 9, 4};  // selections 1001 and 1101
    } else {
        SetOption(w, "optOE");
        sels = {1, 13, 0};  // selection 1101
    }
    FillSelections(form, e, sels, host_.Errors());
    Finish(form, e);
}

}  // namespace pendulon
