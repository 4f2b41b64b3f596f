#include "entryfile/clsEntryFile3350.hpp"

#include "app/AppServices.hpp"
#include "app/Configurator.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
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
// Errors of this class.
constexpr long kNoClockOut = 10704;
constexpr long kNoPostDivide = 10705;
constexpr long kInvalidBitField = 10706;
constexpr long kInvalidCallingDevice = 10707;
constexpr long kInvalidReference = 10708;
constexpr long kInvalidPackageLetter = 10709;
constexpr long kInvalidPackageFormat = 10710;

std::string Text(long long value) {
    return IntegerText(value);
}

// A QX3350 window seen through the members the entry file uses: the contract's, and the events
// of its own fields, raised by name as the user's edits raise them.
class ConfiguratorEntryForm3350 : public EntryForm3350 {
  public:
    explicit ConfiguratorEntryForm3350(Configurator& form) : form_(form) {}
    std::string Device() const override { return form_.Device(); }
    bool PreScale(int index) const override { return form_.PreScale(index); }
    void SetPreScale(int index, bool value) override { form_.SetPreScale(index, value); }
    void cmdApplyLimits_Click() override { form_.cmdApplyLimits_Click(); }
    void cboFRef_LostFocus() override { form_.cboFRef.RaiseLostFocus(); }
    void cboClockDivisors_Click() override { Raise("cboClockDivisors", &Field::RaiseClick); }
    void txtPLL_Change() override { Raise("txtPLL", &Field::RaiseChange); }
    Window& Fields() override { return form_; }

  private:
    void Raise(const std::string& name, void (Field::*event)()) {
        if (Field* field = form_.Fields().Find(name))
            (field->*event)();
    }

    Configurator& form_;
};

template <class T>
T* As(Window& w, const std::string& name) {
    return w.Fields().FindAs<T>(name);
}

}  // namespace

clsEntryFile3350::clsEntryFile3350(EntryFileHost& host) : host_(host), entry_(host.Errors()) {}
clsEntryFile3350::clsEntryFile3350(AppServices& app) : clsEntryFile3350(app.EntryHost()) {}
clsEntryFile3350::~clsEntryFile3350() = default;

bool clsEntryFile3350::IsFamilyDevice(const std::string& device) {
    return device == "QX3350" || device == "QX3350I";
}

void clsEntryFile3350::SetForm(Configurator& form) {
    SetForm(std::make_unique<ConfiguratorEntryForm3350>(form));
}

void clsEntryFile3350::SetForm(std::unique_ptr<EntryForm3350> form) {
    if (form && IsFamilyDevice(form->Device()))
        form_ = std::move(form);
}

void clsEntryFile3350::Raise(long number, const std::string& routine,
                             const std::string& description) {
    host_.Errors().Raise(number, "clsEntryFile3350." + routine, description);
}

Field* clsEntryFile3350::Find(const std::string& name) {
    Field* field = form_ ? form_->Fields().Fields().Find(name) : nullptr;
    if (!field)
        Raise(kObjectDoesNotSupport, "Find",
              "Object doesn't support this property or method: " + name);
    return field;
}

bool clsEntryFile3350::On(const std::string& name) {
    Field* field = Find(name);
    if (auto* option = dynamic_cast<OptionButton*>(field))
        return option->Value();
    if (auto* check = dynamic_cast<CheckBox*>(field))
        return check->Value() == 1;
    return false;
}

// ---- Reading the form ----------------------------------------------------------------------

void clsEntryFile3350::GetConfigurationEPROMBit(int intBitField, std::int16_t& result) {
    const char* routine = "GetConfigurationEPROMBit";
    result = 0;
    if (intBitField < 0 || intBitField > 13) {
        Raise(kInvalidBitField, routine,
              "Invalid parameter intBitField: '" + Text(intBitField) + "'.");
        return;
    }
    auto listText = [&](const std::string& name) -> std::string {
        auto* list = dynamic_cast<ListField*>(Find(name));
        return list ? list->Text() : std::string();
    };
    const double p = entry_.i(14);
    int value = 0;
    switch (intBitField) {
        case 0:
            value = On("optExternal") ? 0 : 127;
            break;
        case 1:
        case 3:
        case 8:
            value = 0;
            break;
        case 2: {
            if (On("optCMOS")) {
                value = 1;
                break;
            }
            // With TTL output the field takes the number of the chosen actual entry.
            auto* actual = dynamic_cast<ListField*>(Find("cboActual"));
            value = actual && actual->ListIndex() > 0 ? actual->ListIndex() : 0;
            break;
        }
        case 4:
        case 13:
            value = 1;
            break;
        case 5:
            value = On("optPowerDown") ? 0 : 1;
            break;
        case 6:
            value = On("chkSynchronous") ? 1 : 0;
            break;
        case 7:
            value = On("optTTL") ? 0 : 1;
            break;
        case 9: {
            const std::string source = listText("cboClockDivisors");
            auto* list = dynamic_cast<ListField*>(Find("cboClockDivisors"));
            const bool selected = list && list->ListIndex() >= 0;
            if (selected && (!source.empty() && source[0] == 'R')) {
                value = 0;
            } else if (selected && (!source.empty() && source[0] == 'P')) {
                value = 1;
            } else {
                Raise(kNoClockOut, routine, "No CLK-OUT selected.");
                value = 1;
            }
            break;
        }
        case 10: {
            const std::int32_t divisor = mShared::GetNonZeroDivisor(listText("cboClockDivisors"));
            value = -1;
            for (int k = 0; k <= 7; ++k)
                if (divisor == (1 << k))
                    value = k;
            if (value < 0) {
                Raise(kNoPostDivide, routine, "No such post divide: '" + Text(divisor) + "'.");
                value = 0;
            }
            break;
        }
        case 11:
            value = (p >= 2750 || (p < 1500 && p >= 625)) ? 1 : 0;
            break;
        case 12:
            value = p >= 1500 ? 1 : 0;
            break;
    }
    result = static_cast<std::int16_t>(value);
}

// ---- Comments --------------------------------------------------------------------------------

std::string clsEntryFile3350::CommentF(int n, bool details) {
    if (!details)
        return {};
    switch (n) {
        case 0:
            return "  Reference Frequency." + kCrLf;
        case 1:
            return "  PLL Desired Frequency.";
        case 2:
            return "  CLK-OUT !!MUST ENTER P AND Q BELOW!!";
        default:
            return {};
    }
}

std::string clsEntryFile3350::CommentI(int n, bool details) {
    if (!details)
        return {};
    static const char* const kComments[16] = {
        "   DSW, Crystal Oscillator Tuning <6:0> (7 bits).",
        "   Reserved.",
        "   Duty Adj.",
        "   ROWSEL, Words Select bit.",
        "   VALID, Valid bit.",
        "   PDOE, PowerDown/OE Select.",
        "   OEType, OE Synchronous Select.",
        "   DC, Duty Cycle Select.",
        "   Sel38, 3350 select. Always '0'.",
        "   ClkSrc, CLK-OUT Source.",
        "  DivS <2:0> Post Divide. 0 = div1, 1 = div2, 2 = div4, ..., 7 = div128 (3 bits).",
        "  RLow, Charge pump adjustment.",
        "  ILow, Charge pump adjustment.",
        "  Inverter Gain.",
        "  P counter (12 bits).",
        "  Q counter (10 bits).",
    };
    return n >= 0 && n < 16 ? kComments[n] : std::string();
}

// ---- The image ---------------------------------------------------------------------------------

void clsEntryFile3350::MakeEntryFile() {
    if (!form_)
        return;
    const int errorsBefore = host_.Errors().Count();
    clsEntryFile& e = entry_;
    const std::string device = form_->Device();
    e.mintDCount = 1;
    e.mintFCount = 3;
    e.mintICount = 16;
    std::string part = LCase(Left(device, 6));
    part += On("optSOIC") ? "s" : "z";
    if (device == "QX3350I")
        part += "i";
    else
        part += On("opt5V") ? "c" : "l";
    const std::string revision = host_.Revision();
    e.mstrPartDescription = part + "-" + revision;
    e.mstrVersion = revision;
    e.set_d(0, On("opt5V") ? 1 : 0);
    auto number = [&](const std::string& name) {
        Field* field = Find(name);
        return field ? Val(mShared::FieldText(*field)) : 0.0;
    };
    e.set_f(0, number("cboFRef"));
    e.set_f(1, number("txtPLL"));
    e.set_f(2, number("cboActual"));
    std::string data;
    if (auto* list = dynamic_cast<ListField*>(Find("cboPLLData")))
        data = list->Text();
    auto store = [&](int index, double value) {
        const auto v = ToInteger(value);
        if (!v) {
            host_.Errors().Raise(errors::Overflow, "clsEntryFile3350.MakeEntryFile");
            return;
        }
        e.set_i(index, *v);
    };
    store(14, Val(mShared::GetSubstring(data, "P:", "Q:")));
    store(15, Val(mShared::GetSubstring(data, "Q:", "")));
    // From the top down, so that the charge-pump fields see P.
    for (int n = 13; n >= 0; --n) {
        std::int16_t bit = 0;
        GetConfigurationEPROMBit(n, bit);
        e.set_i(n, bit);
    }
    mblnImageErrors = host_.Errors().Count() != errorsBefore;
}

std::string clsEntryFile3350::EntryFileText(const clsEntryFile& e, const std::string& header,
                                            bool details) {
    // The common block ends with its own empty line; the family's part opens with another.
    std::string out = header + kCrLf + kCrLf;
    out += entrylines::Part(e.mstrPartDescription);
    out += entrylines::Plain('r', e.mstrRValue);
    // The voltage comment stands also without details.
    out += entrylines::Field('d', Text(e.d(0)), 0, "  0 for 3.3v, 1 for 5v");
    out += kCrLf;
    for (int n = 0; n <= 2; ++n) out += entrylines::Frequency(e, n, CommentF(n, details));
    out += kCrLf;
    for (int n = 0; n <= 15; ++n) out += entrylines::Integer(e, n, CommentI(n, details));
    return out;
}

bool clsEntryFile3350::WriteEntryFile(const std::string& path) {
    const std::string device = form_ ? form_->Device() : std::string();
    return WriteEntryFileText(
        host_, path, device,
        [&] {
            return EntryFileText(entry_, host_.EntryFileHeader(),
                                 host_.SaveEntryFileDescription());
        },
        "clsEntryFile3350.WriteEntryFile");
}

// ---- Checksums and the vector -------------------------------------------------------------------

std::int16_t clsEntryFile3350::Checksum() {
    MakeEntryFile();
    return CalculateChecksum(entry_);
}

std::int16_t clsEntryFile3350::CalculateChecksum(const clsEntryFile& entry) const {
    return CalculateChecksum(entry, host_.Errors());
}

std::int16_t clsEntryFile3350::CalculateChecksum(const clsEntryFile& e, ErrorReport& errors) {
    // P and Q go in without their offsets and wider than in the fuse map; field 13 takes no part.
    std::string text = mShared::ConvertDecimalToBinary(e.i(0), 7);
    for (int n = 1; n <= 9; ++n) text += Text(e.i(n));
    text += mShared::ConvertDecimalToBinary(e.i(10), 3);
    text += Text(e.i(11));
    text += Text(e.i(12));
    text += mShared::ConvertDecimalToBinary(e.i(14), 13);
    text += mShared::ConvertDecimalToBinary(e.i(15), 10);
    return mShared::HexDigitSum(text, errors);
}

std::string clsEntryFile3350::FuseMap(const clsEntryFile& e) {
    return BuildFuseMap(FuseLayout3350(), e).Rows.front();
}

std::string clsEntryFile3350::EPROMVectorText(const clsEntryFile& e, const std::string& title,
                                              const std::string& build) {
    std::string out = std::string(1, '\x02') + kCrLf;
    out += "Generated by " + title + " - " + build + kCrLf;
    out += "Varnhol Semiconductor" + kCrLf;
    out += "*" + kCrLf;
    out += "QP0008* QF0045* G0 *" + kCrLf;
    out += "L0000" + kCrLf;
    const std::string fuses = FuseMap(e);
    out += fuses + "*" + kCrLf;
    out += 'C';
    out += mShared::CalculateJEDECChecksum(fuses);
    out += '*';
    out += kCrLf;
    out += std::string(1, '\x03') + "0000" + kCrLf;
    return out;
}

bool clsEntryFile3350::MakeEPROMVector(const std::string& path, bool fromForm) {
    const char* source = "clsEntryFile3350.MakeEPROMVector";
    std::unique_ptr<clsEntryFile> read;
    const clsEntryFile* image = &entry_;
    bool imageErrors = mblnImageErrors;
    if (!fromForm) {
        read = ReadSavedEntryFile(host_, imageErrors);
        image = read.get();
    }
    if (!VectorMayBeWritten(host_, path, fromForm, imageErrors,
                            BuildFuseMap(FuseLayout3350(), *image).Misfits, source))
        return false;
    const std::string text = EPROMVectorText(*image, host_.Title(), host_.Build());
    return WriteForUser(host_, path, text, source, false);
}

// ---- Filling a form from an image ---------------------------------------------------------------

void clsEntryFile3350::Fill3350Form(const clsEntryFile& e) {
    if (!form_)
        return;
    const char* routine = "Fill3350Form";
    EntryForm3350& form = *form_;
    Window& w = form.Fields();
    const std::string device = form.Device();
    if (!IsFamilyDevice(device)) {
        Raise(kInvalidCallingDevice, routine, "Invalid calling device: " + device);
        return;
    }
    auto setOption = [&](const std::string& name) {
        if (auto* option = As<OptionButton>(w, name))
            option->SetValue(true);
    };
    setOption(e.i(0) == 0 ? "optExternal" : "optCrystal");

    bool referenceFound = false;
    if (auto* ref = As<ListField>(w, "cboFRef")) {
        const std::string value = GeneralNumber(e.f(0));
        referenceFound = mShared::SetListIndex(*ref, value);
        if (!referenceFound) {
            ref->AddItem(mShared::FormatFrequencyFixed(e.f(0)) + " " + "MHz");
            referenceFound = mShared::SetListIndex(*ref, value);
        }
        if (!referenceFound)
            Raise(kInvalidReference, routine,
                  "The entry file contains an invalid reference frequency: " + value);
        form.cboFRef_LostFocus();
    }

    setOption(e.i(7) == 1 ? "optCMOS" : "optTTL");
    if (auto* check = As<CheckBox>(w, "chkSynchronous"))
        check->SetValue(e.i(6) == 1 ? 1 : 0);
    setOption(e.i(5) == 1 ? "optOutputEnable" : "optPowerDown");

    if (auto* pll = As<TextField>(w, "txtPLL")) {
        // A frequency of 0 is how "Off" is stored. The text is also what the field returns
        // to when the output goes back to the PLL.
        const std::string text = mShared::FormatFrequencyLong(e.f(1));
        if (pll->Text() != text)
            pll->SetText(text);
        else
            form.txtPLL_Change();
        pll->SetTag(text);
    }

    std::string source = e.i(9) == 1 ? "PLL" : "Ref";
    static constexpr const char* kDivisors[8] = {"", "/2", "/4", "/8", "/16", "/32", "/64", "/128"};
    if (e.i(10) >= 1 && e.i(10) <= 7)
        source += kDivisors[e.i(10)];
    if (auto* list = As<ListField>(w, "cboClockDivisors")) {
        if (list->Text() != source)
            mShared::SetListIndex(*list, source, true);
    }
    form.cboClockDivisors_Click();

    // The package letter stands at the seventh place of a part description "qx3350sc-01".
    const std::string& pd = e.mstrPartDescription;
    const size_t dash = pd.find('-');
    if (dash != std::string::npos) {
        if (dash == 8) {
            const char letter = pd[6];
            if (letter == 's')
                setOption("optSOIC");
            else if (letter == 'z')
                setOption("optTSSOP");
            else
                Raise(kInvalidPackageLetter, routine,
                      "The SOIC/TSSOP identifier in the package type of the entry file is "
                      "invalid.");
        } else {
            Raise(kInvalidPackageFormat, routine,
                  "The format of the package type in the entry file is invalid.");
        }
    }

    setOption(e.d(0) == 1 ? "opt5V" : "opt3V");

    if (referenceFound) {
        if (Field* apply = w.Fields().Find("cmdApplyLimits"))
            apply->SetEnabled(true);
        form.cmdApplyLimits_Click();
        w.SetVisible(true);
    }
}

}  // namespace pendulon
