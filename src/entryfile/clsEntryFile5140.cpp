// The QX5140 side of clsEntryFile7311. The QX5140 has the fuse image of the QX7311 family, but
// its window thinks in three clock outputs and an assignment of loops to clocks that a search
// found. Saving maps the window onto the image; opening sets the desired values, lets the window
// search again and then looks for the stored assignment among the cases it finds now.

#include <initializer_list>
#include <string>
#include <utility>

#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/clsPLL.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "platform/CheckBox.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"

namespace pendulon {

namespace {

constexpr long kFormNotSet = 10153;
constexpr long kInvalidBondingOption = 10160;
constexpr long kInvalidCallingDevice = 10301;
constexpr long kInvalidReference = 10161;

const std::string kEol = "\r\n";

std::string Indexed(const char* name, int index) {
    return std::string(name) + "(" + std::to_string(index) + ")";
}

char FirstLetter(const std::string& text) {
    const std::string trimmed = Trim(text);
    return trimmed.empty() ? '\0' : UCase(trimmed.substr(0, 1))[0];
}

const char* const kNoteAllMatched =
    "NOTE: This form has correctly loaded the specified ENT file.  As well, both";

}  // namespace

// The same definition as beside the QX7311 routines, for the instantiations this file needs.
template <class T>
T* clsEntryFile7311::As(const std::string& name) {
    return dynamic_cast<T*>(Find(name));
}

std::int16_t clsEntryFile7311::QX5140SourceCode(const std::string& text, std::int16_t fallback) {
    std::int16_t value = fallback;
    ConvertPLLAndDivisorStringToInteger(Trim(text).empty() ? std::string("Off") : text, true,
                                        value);
    return value;
}

std::string clsEntryFile7311::QX5140SourceText(std::int16_t code) {
    std::string text;
    ConvertPLLAndDivisorIntegerToString(code, text);
    return QX5140ShownSource(text);
}

std::string clsEntryFile7311::QX5140ShownSource(const std::string& text) {
    const char letter = FirstLetter(text);
    if (letter != 'C' && letter != 'S' && letter != 'U')
        return text;
    return mShared::GetSubstring(text, "", "/") + "/" +
           IntegerText(2 * mShared::GetNonZeroDivisor(text));
}

void clsEntryFile7311::DesiredCPLL(int state, double& result) {
    result = 0;
    if (!form_ || !On("optSelect"))
        return;
    const std::string a = TextOf("lblClkASrcDiv");
    const std::string b = TextOf("lblClkBSrcDiv");
    const std::string c = TextOf("lblClkCSrcDiv");
    if (FirstLetter(a) == 'C') {
        result = Val(TextOf(Indexed("txtClkA", state))) * mShared::GetNonZeroDivisor(a);
    } else if (FirstLetter(b) == 'C') {
        // A clock that stops with the select pin low has no frequency in state 0.
        if (!(state == 0 && On("chkSuspendClockB")))
            result = Val(TextOf("txtClkB")) * mShared::GetNonZeroDivisor(b);
    } else if (FirstLetter(c) == 'C') {
        if (!(state == 0 && On("chkSuspendClockC")))
            result = Val(TextOf("txtClkC")) * mShared::GetNonZeroDivisor(c);
    }
}

void clsEntryFile7311::Make5140EntryFile() {
    const char* source = "clsEntryFile7311.Make5140EntryFile";
    if (!form_) {
        host_.Errors().Raise(kFormNotSet, source, "Property 'Form' is not set.");
        return;
    }
    // Every make starts from an empty image: fields the QX5140 does not use hold 0.
    entry_ = clsEntryFile(host_.Errors());
    clsEntryFile& e = entry_;
    const bool select = On("optSelect");

    // 1. Fixed values, the reference and what it decides.
    e.mintFCount = 9;
    e.mintICount = 69;
    e.mstrRValue.assign(1, 'd');
    e.set_f(0, Val(TextOf("cboFRef")));
    e.mintMValue = e.f(0) >= 25 ? 3004 : 3002;
    e.mintBValue = select ? 2 : 1;
    e.mstrPartDescription =
        std::string(On("opt5V") ? "qx5140sc" : "qx5140sl") + "-" + host_.Revision();

    // 2. The loops' VCOs, then the frequencies.
    clsPLL pll(host_.Errors());
    const double cpll0 = pll.GetVCO(TextOf("cboCPLLData(0)"));
    const double cpll1 = pll.GetVCO(TextOf("cboCPLLData(1)"));
    const double spll = pll.GetVCO(TextOf("cboSPLLData"));
    const double upll = pll.GetVCO(TextOf("cboUPLLData"));
    e.set_f(9, spll);
    e.set_f(10, upll);
    e.set_f(11, Val(TextOf("txtClkC")));
    e.set_f(12, Val(TextOf("txtClkB")));
    const bool suspendA = On("chkSuspendClockA");
    e.set_f(13, Val(TextOf(suspendA ? "txtClkA(1)" : "txtClkA(0)")));
    double desired = 0;
    DesiredCPLL(0, desired);
    e.set_f(16, desired);
    DesiredCPLL(1, desired);
    e.set_f(20, desired);

    // 3. The enable pin and whether the chip suspends.
    const bool anySuspend =
        On("chkSuspendClockA") || On("chkSuspendClockB") || On("chkSuspendClockC");
    if (select) {
        e.set_i(0, 1);
        e.set_i(5, anySuspend ? 1 : 0);
    } else {
        e.set_i(0, On("optShutdown") ? 0 : 1);
        e.set_i(5, 0);
    }

    // 4, 5. Suspend flags, or what is switched off.
    if (e.i(5) == 1) {
        e.set_i(10, 1);
        e.set_i(13, CheckValue("chkSuspendClockA"));
        e.set_i(14, CheckValue("chkSuspendClockB"));
        e.set_i(15, CheckValue("chkSuspendClockC"));
        e.set_i(8, CheckValue("chkSuspendCPLL"));
        e.set_i(6, CheckValue("chkSuspendUPLL"));
        e.set_i(7, CheckValue("chkSuspendSPLL"));
    } else {
        e.set_i(10, 0);
        // With the select pin CLKA is off only when both of its states are.
        const bool offA = select
                              ? (Val(TextOf("txtClkA(0)")) == 0 && Val(TextOf("txtClkA(1)")) == 0)
                              : Val(TextOf("txtClkA(0)")) == 0;
        e.set_i(13, offA ? 1 : 0);
        e.set_i(14, Val(TextOf("txtClkB")) == 0 ? 1 : 0);
        e.set_i(15, Val(TextOf("txtClkC")) == 0 ? 1 : 0);
        e.set_i(8, cpll0 == 0 && cpll1 == 0 ? 1 : 0);
        e.set_i(7, spll == 0 ? 1 : 0);
        e.set_i(6, upll == 0 ? 1 : 0);
    }

    // 6. Configuration bits and the SPLL and UPLL counters.
    auto bit = [&](int field) {
        std::int16_t value = 0;
        GetConfigurationEPROMBit(static_cast<std::int16_t>(field), value);
        return value;
    };
    for (int n : {1, 2, 3, 4, 16, 17, 20}) e.set_i(n, bit(n));
    e.set_i(9, 0);
    e.set_i(12, 1);
    const std::string upllData = TextOf("cboUPLLData");
    const std::string spllData = TextOf("cboSPLLData");
    Store(18, pll.GetP(upllData), source);
    Store(19, pll.GetQ(upllData), source);
    Store(21, pll.GetP(spllData), source);
    Store(22, pll.GetQ(spllData), source);
    e.set_i(23, 3);
    e.set_i(24, 3);
    // The sources in the code table's dividers, as a file is matched against the cases found:
    // so the fuses divide as the window shows, and a saved case opens on itself.
    e.set_i(25, QX5140SourceCode("Off", 0));
    e.set_i(26, QX5140SourceCode(TextOf("lblClkASrcDiv"), 0));
    e.set_i(27, QX5140SourceCode(TextOf("lblClkBSrcDiv"), 0));
    e.set_i(28, QX5140SourceCode(TextOf("lblClkCSrcDiv"), 0));

    // 7. Every CPU block off, then selections 0 and 4 carry the two states of the select pin.
    auto cpuBit = [&](int field, int index) {
        std::int16_t value = 0;
        GetCPUBit(static_cast<std::int16_t>(field), static_cast<std::int16_t>(index), false, value);
        return value;
    };
    // A block that is off keeps the counters of the empty image, 0 and 0.
    for (int n = 0; n <= 7; ++n) {
        const int base = 29 + 5 * n;
        e.set_i(base, 1);
        e.set_i(base + 1, cpuBit(1, 0));
        e.set_i(base + 2, cpuBit(2, 0));
    }
    if (cpll0 != 0) {
        e.set_i(29, 0);
        e.set_i(32, cpuBit(3, 0));
        e.set_i(33, cpuBit(4, 0));
    }
    if (cpll1 != 0) {
        e.set_i(49, 0);
        e.set_i(52, cpuBit(3, 1));
        e.set_i(53, cpuBit(4, 1));
    }
}

void clsEntryFile7311::SetQX5140PLLToClockAssignments(const clsEntryFile& e, bool& found) {
    found = false;
    if (!form_)
        return;
    // A search that found one case is looked up too: the note must tell whether the case on
    // show is the one in the file. CLKA is compared as its label shows a case, which is what
    // was saved: the source of state 0, or of state 1 when state 0 is off.
    const std::vector<std::array<std::string, 4>> rows = form_->FoundSources();
    for (size_t r = 0; r < rows.size(); ++r) {
        const auto& row = rows[r];
        std::string clockA = row[0];
        if (EqualsNoCase(Trim(clockA), "Off"))
            clockA = Trim(row[1]).empty() ? std::string("Off") : row[1];
        if (QX5140SourceCode(clockA, -1) != e.i(26) || QX5140SourceCode(row[2], -1) != e.i(27) ||
            QX5140SourceCode(row[3], -1) != e.i(28))
            continue;
        // Step through the cases until this one is on show; a search gives at most one round.
        for (size_t guard = 0;
             form_->CalculateCounter() != static_cast<int>(r) && guard <= rows.size(); ++guard)
            form_->cmdCalculate_Click();
        found = form_->CalculateCounter() == static_cast<int>(r);
        return;
    }
}

void clsEntryFile7311::SetQX5140DropDowns(const clsEntryFile& e, bool& found) {
    found = false;
    if (!form_)
        return;
    clsPLL pll(host_.Errors());
    struct Stored {
        const char* List;
        int P;
        int Q;
    };
    const Stored lists[3] = {
        {"cboCPLLData(0)", e.i(32), e.i(33)},
        {"cboSPLLData", e.i(21), e.i(22)},
        {"cboUPLLData", e.i(18), e.i(19)},
    };
    int matched = 0;
    for (size_t n = 0; n < 3; ++n) {
        const Stored& stored = lists[n];
        auto* list = As<ListField>(stored.List);
        if (!list)
            continue;
        // A file whose first CPU block is off stores no CPLL counters: the CPLL matches when it
        // is idle now as well.
        if (n == 0 && e.i(29) != 0) {
            if (pll.GetVCO(list->Text()) == 0)
                ++matched;
            continue;
        }
        for (int k = 0; k < list->ListCount(); ++k) {
            const std::string entry = list->List(k);
            const std::string counters = mShared::GetSubstring(entry, ":", "");
            if (pll.GetP(entry) == stored.P && pll.GetQ(entry) == stored.Q && !counters.empty()) {
                if (list->ListIndex() != k)
                    list->SetListIndex(k);
                ++matched;
                break;
            }
        }
    }
    found = matched == 3;
}

void clsEntryFile7311::Fill5140Form(const clsEntryFile& e) {
    const char* source = "clsEntryFile7311.Fill5140Form";
    mblnFormShown = false;
    if (!form_) {
        host_.Errors().Raise(kFormNotSet, source, "Property 'Form' is not set.");
        return;
    }
    EntryForm7311& form = *form_;
    const std::string device = form.Device();
    if (device != "QX5140") {
        host_.Errors().Raise(kInvalidCallingDevice, source, "Invalid calling device: " + device);
        return;
    }
    auto setText = [&](const std::string& name, const std::string& text) {
        if (auto* field = As<TextField>(name)) {
            field->SetText(text);
            // As if typed: the text is what the field returns to after a forced "Off".
            field->SetTag(text);
        }
    };
    auto setCheck = [&](const std::string& name, int value) {
        if (auto* check = As<CheckBox>(name))
            check->SetValue(value != 0 ? 1 : 0);
    };
    auto setOption = [&](const std::string& name) {
        if (auto* option = As<OptionButton>(name))
            option->SetValue(true);
    };
    auto frequency = [](double value) {
        return value != 0 ? mShared::FormatFrequencyLong(value) : std::string("Off");
    };

    // 1. Where the clocks stand: files before the current layout kept them elsewhere.
    const bool current = e.i(23) == 3;
    const int codeA = current ? e.i(26) : e.i(28);
    const double frequencyA = e.f(13);
    const double frequencyB = current ? e.f(12) : e.f(11);
    const double frequencyC = current ? e.f(11) : e.f(15);

    // 2. The reference: a value outside the list is added when the reference limits take it.
    bool referenceFound = false;
    if (auto* ref = As<ListField>("cboFRef")) {
        const double reference = e.f(0);
        referenceFound = mShared::SetListIndex(*ref, GeneralNumber(reference));
        if (!referenceFound) {
            const double minimum = Val(TextOf("txtFRefMin"));
            const double maximum = Val(TextOf("txtFRefMax"));
            if (reference >= minimum && reference <= maximum && reference > 0) {
                ref->AddItem(mShared::FormatFrequencyFixed(reference) + " " + "MHz");
                referenceFound = mShared::SetListIndex(*ref, GeneralNumber(reference));
            }
        }
        if (referenceFound)
            form.cboFRef_LostFocus();
        else
            host_.Errors().Raise(kInvalidReference, source,
                                 "The entry file contains an invalid reference frequency: " +
                                     GeneralNumber(reference));
    }

    // 3. Pin 8.
    if (e.mintBValue == 1) {
        setOption(e.i(0) != 0 ? "optOE" : "optShutdown");
    } else if (e.mintBValue == 2) {
        setOption("optSelect");
    } else {
        host_.Errors().Raise(
            kInvalidBondingOption, source,
            "The entry file contains an invalid bonding option: # b " + IntegerText(e.mintBValue));
    }

    // 4. The desired frequencies.
    if (On("optSelect")) {
        // The divider of CLKA's source as the window shows it, as the desired CPLL was made.
        std::string sourceA;
        if (codeA >= 0 && codeA <= 31)
            sourceA = QX5140SourceText(static_cast<std::int16_t>(codeA));
        const double divisor = mShared::GetNonZeroDivisor(sourceA);
        setText("txtClkA(0)", e.f(16) == 0 ? "Off" : frequency(e.f(16) / divisor));
        setText("txtClkA(1)", frequency(frequencyA));
        if (e.f(20) == 0)
            setText("txtClkA(1)", "Off");
        else
            setText("txtClkA(1)", frequency(e.f(20) / divisor));
    } else {
        setText("txtClkA(0)", frequency(frequencyA));
    }
    setText("txtClkB", frequency(frequencyB));
    setText("txtClkC", frequency(frequencyC));

    // 5. Voltage.
    setOption(e.i(2) != 0 ? "opt5V" : "opt3V");

    // 6. Suspend: the clocks first, then the loops they stop.
    if (e.i(5) == 1) {
        // Each suspend box with the field of the image that holds it.
        for (const auto& [box, field] : std::initializer_list<std::pair<const char*, int>>{
                 {"chkSuspendClockA", 13}, {"chkSuspendClockB", 14}, {"chkSuspendClockC", 15},
                 {"chkSuspendCPLL", 8}, {"chkSuspendSPLL", 7}, {"chkSuspendUPLL", 6}})
            setCheck(box, e.i(field));
        // A loop that suspends is what tells "Outputs && PLLs" from "Outputs Only", where only
        // clocks suspend: the clocks' fields alone would turn a saved "Outputs Only" into the
        // other choice, and the file would no longer open on itself.
        if (e.i(8) != 0 || e.i(7) != 0 || e.i(6) != 0)
            setOption("optSuspendOutputsAndPLLs");
    }

    if (!referenceFound)
        return;

    // 7. Limits applied, which searches afresh, and the form on show.
    if (Field* apply = Find("cmdApplyLimits"))
        apply->SetEnabled(true);
    form.cmdApplyLimits_Click();
    form.Fields().SetVisible(true);
    mblnFormShown = true;

    // 8. The stored result among the cases found now.
    bool assignment = false;
    bool counters = false;
    SetQX5140PLLToClockAssignments(e, assignment);
    if (assignment)
        SetQX5140DropDowns(e, counters);
    std::string note;
    if (assignment && counters) {
        note = std::string(kNoteAllMatched) + kEol +
               "the PLL assignment stored in the ENT file and the PPM values stored in the" + kEol +
               "ENT file have been matched to the solution set currently displayed.";
    } else if (assignment) {
        note = "NOTE: This form has correctly loaded the specified ENT file.  As well, the" + kEol +
               "PLL assignment stored in the ENT file has been matched to the solution set" + kEol +
               "currently displayed.  However, the PPM values stored in the ENT file could" + kEol +
               "not be matched to the PPM results generated.";
    } else {
        note = "NOTE: This form has correctly loaded the specified ENT file.  However," + kEol +
               "Pendulon is unable to correctly match the result parameters from the ENT" + kEol +
               "file with the result sets generated by the QX5140 form.  The results" + kEol +
               "currently displayed do not represent the results as stored in the ENT file.";
    }
    form.ShowNote(note);
}

}  // namespace pendulon
