// Fuse maps read back, for all fifteen device names and a spread of configurations made in the
// device windows as a user makes them (every source and divider of the output lists, loops on
// and off, both packages and pin modes, suspend): the window saves its entry file and makes the
// vector of it; the vector read back holds the entry file's "# i" values, shows the loops and
// output frequencies the window shows, and its entry image, opened as a document and made into
// a vector again, gives the same fuse rows and fuse checksum byte for byte.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/Configurator.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/clsPLL.hpp"
#include "core/mShared.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "entryfile/clsFuseMap.hpp"
#include "platform/CheckBox.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/TextField.hpp"
#include "platform/TextFile.hpp"
#include "reports/ReadBack.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmReadBack.hpp"
#include "shell/frmSummary.hpp"
#include "support/ProgramSession.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

// What a user does in a window: type into a text field and leave it ('T'), pick a list entry
// by its text ('P') or by its index ('I'), set an option ('O'), set a check box ('C').
struct Action {
    char kind;
    std::string name;
    std::string value;
};

struct Case {
    std::string name;
    std::string device;
    std::vector<Action> actions;
    // Where the window, loading the entry file, chooses otherwise than the file holds: the line
    // of the note that tells so. Empty where it finds the fuses' settings again.
    std::string windowChooses{};
};

void PrintTo(const Case& c, std::ostream* os) {
    *os << c.name;
}

// The program, and the vector of its document.
struct Program : test::ProgramSession {
    // Tools, Create EPROM Vector, From Saved Entry File. The QX5140 window offers no vector:
    // its chip holds the fuses of its saved entry file in the QX7311 layout, where the counters
    // of a CPU block that is off do not fit and stay zeros.
    void Vector(const std::string& path) {
        Configurator& doc = *Doc();
        if (doc.Device() == "QX5140") {
            clsEntryFile saved(app->Errors());
            const std::string entry = doc.txtFilePath.Text();
            ASSERT_TRUE(mFileAccessor::ParseFile(test::ReadFile(entry), entry, "", saved));
            clsEntryFile7311::Identity identity;
            identity.Checksum = doc.Checksum();
            identity.Device = "QX5140";
            identity.Date = {2026, 11, 21, 0, 0, 0};
            identity.Version = {3, 71, 10};
            ASSERT_EQ(WriteTextFileAtomically(
                          path, clsEntryFile7311::EPROMVectorText(saved, "QX5140", app->gstrTitle,
                                                                  app->gstrBuild, identity, false)),
                      "");
            return;
        }
        platform.QueueFileAnswer(path);
        Main().mnuToolsCreateEPROMSaved.RaiseClick();
    }
};

template <class T>
T& FieldOf(Window& form, const std::string& name) {
    T* field = form.Fields().FindAs<T>(name);
    if (field == nullptr)
        throw std::runtime_error("no field " + name + " in " + form.Name());
    return *field;
}

void Apply(Configurator& form, const Action& action) {
    switch (action.kind) {
        case 'T': {
            auto& field = FieldOf<TextField>(form, action.name);
            // A disabled field takes no typing.
            if (!field.Enabled())
                return;
            form.SetFocusTo(&field);
            field.SetText(action.value);
            form.SetFocusTo(nullptr);
            break;
        }
        case 'R': {
            form.SetFocusTo(&form.cboFRef);
            form.cboFRef.SetText(action.value);
            form.SetFocusTo(nullptr);
            break;
        }
        case 'P': {
            auto& list = FieldOf<ListField>(form, action.name);
            for (int i = 0; i < list.ListCount(); ++i) {
                if (list.List(i) == action.value) {
                    list.SetListIndex(i);
                    return;
                }
            }
            throw std::runtime_error("no entry " + action.value + " in " + action.name);
        }
        case 'I': {
            auto& list = FieldOf<ListField>(form, action.name);
            const int index = std::stoi(action.value) % list.ListCount();
            list.SetListIndex(index);
            break;
        }
        case 'O':
            FieldOf<OptionButton>(form, action.name).SetValue(true);
            break;
        case 'C':
            FieldOf<CheckBox>(form, action.name).SetValue(std::stoi(action.value));
            break;
        default:
            throw std::runtime_error("unknown action");
    }
}

// ---- What a window shows -----------------------------------------------------------------------

struct Shown {
    // Loops by name: the selected entry of the loop's data list.
    std::map<std::string, std::string> loops;
    // Outputs by "pin|state": the source text and the selected entry of the actual list (or,
    // where the window names the source only, the number the loop's list gives through the
    // divider).
    std::map<std::string, std::pair<std::string, std::string>> outputs;
};

std::string ListText(Window& form, const std::string& name) {
    return FieldOf<ListField>(form, name).Text();
}

std::string Key(const std::string& pin, const std::string& state) {
    return pin + "|" + state;
}

// Texts joined by appending (GCC 12 warns wrongly about a literal in front of a temporary).
std::string Cat(std::initializer_list<std::string> parts) {
    std::string text;
    for (const std::string& part : parts) text += part;
    return text;
}

std::string Indexed(const std::string& name, int index) {
    return Cat({name, "(", std::to_string(index), ")"});
}

Shown WindowShows(Configurator& form, const std::string& device) {
    Shown shown;
    if (device == "QX3350" || device == "QX3350I") {
        shown.loops["PLL"] = ListText(form, "cboPLLData");
        shown.outputs[Key("CLKOUT", "")] = {ListText(form, "cboClockDivisors"),
                                            ListText(form, "cboActual")};
    } else if (device.rfind("QX4860", 0) == 0) {
        const bool pins14 = FieldOf<OptionButton>(form, "opt14Pin").Value();
        for (int k = 0; k < (pins14 ? 16 : 4); ++k) {
            const std::string label =
                mShared::DisplayBinary(static_cast<std::int16_t>(k), pins14 ? 4 : 2);
            const std::string state = (pins14 ? "FS3..FS0 = " : "FS1..FS0 = ") + label;
            shown.loops["PLL " + label] = ListText(form, Indexed("cboPLLData", k));
            shown.outputs[Key("CLKA", state)] = {ListText(form, "cboClkADiv"),
                                                 ListText(form, Indexed("cboActualClkA", k))};
            shown.outputs[Key("REFCLK", state)] = {ListText(form, "cboRefClkDiv"),
                                                   ListText(form, Indexed("cboActualRefClk", k))};
        }
    } else if (device.rfind("QX6105A", 0) == 0) {
        const bool fs = FieldOf<OptionButton>(form, "optFS").Value();
        for (int t = 0; t < (fs ? 2 : 1); ++t) {
            shown.loops[Cat({"PLL[", std::to_string(t), "]"})] =
                ListText(form, Indexed("cboPLLData", t));
            const std::string state = fs ? Cat({"FS = ", std::to_string(t)}) : "";
            for (int j = 0; j < 3; ++j)
                shown.outputs[Key(std::string("CLK") + static_cast<char>('A' + j), state)] = {
                    ListText(form, Indexed("cboClkDiv", j)),
                    ListText(form, Indexed("cboActual", 3 * t + j))};
        }
    } else if (device == "QX5140") {
        shown.loops["CPLL[0]"] = ListText(form, "cboCPLLData(0)");
        shown.loops["CPLL[4]"] = ListText(form, "cboCPLLData(1)");
        shown.loops["SPLL"] = ListText(form, "cboSPLLData");
        shown.loops["UPLL"] = ListText(form, "cboUPLLData");
        const auto source = [&](const char* label) {
            const std::string text = FieldOf<Label>(form, label).Caption();
            return text.empty() ? std::string("Off") : text;
        };
        if (FieldOf<OptionButton>(form, "optSelect").Value()) {
            const std::string a = FieldOf<CheckBox>(form, "chkSuspendClockA").Value() == 1
                                      ? std::string("Off")
                                      : source("lblClkASrcDiv");
            shown.outputs[Key("CLKA", "Select = 0")] = {a, ListText(form, "cboClkA(0)")};
            shown.outputs[Key("CLKA", "Select = 1")] = {source("lblClkASrcDiv"),
                                                        ListText(form, "cboClkA(1)")};
        } else {
            shown.outputs[Key("CLKA", "")] = {source("lblClkASrcDiv"),
                                              ListText(form, "cboClkA(0)")};
        }
        shown.outputs[Key("CLKB", "")] = {source("lblClkBSrcDiv"), ListText(form, "cboClkB")};
        shown.outputs[Key("CLKC", "")] = {source("lblClkCSrcDiv"), ListText(form, "cboClkC")};
    } else {
        clsPLL pll(form.App().Errors());
        for (int n = 0; n < 8; ++n)
            shown.loops[Cat({"CPLL[", std::to_string(n), "]"})] =
                ListText(form, Indexed("cboCPLLData", n));
        shown.loops["SPLL"] = ListText(form, "cboSPLLData");
        shown.loops["UPLL"] = ListText(form, "cboUPLLData");
        // An output on the CPLL: the window names it; its frequency in select state n is what
        // the row's CPLL list shows through the output's divider.
        const auto onCPLL = [&](const std::string& pin, const std::string& source) {
            for (int n = 0; n < 8; ++n) {
                const std::string row = ListText(form, Indexed("cboCPLL", n));
                const double value = Val(row);
                const std::string text =
                    value > 0
                        ? mShared::FormatFrequencyFixed(value / mShared::GetNonZeroDivisor(source))
                        : std::string("Off");
                shown.outputs[Key(
                    pin, "S2..S0 = " + mShared::DisplayBinary(static_cast<std::int16_t>(n), 3))] = {
                    source, text};
            }
        };
        const auto output = [&](const std::string& pin, const std::string& list,
                                const std::string& actual) {
            const std::string source = ListText(form, list);
            if (!source.empty() && source[0] == 'C')
                onCPLL(pin, source);
            else
                shown.outputs[Key(pin, "")] = {source, ListText(form, actual)};
        };
        output("CPU", "cboCPU", "cboActualCPU");
        for (int k = 0; k < 4; ++k)
            output(std::string("CLK") + static_cast<char>('A' + k), Indexed("cboClk", k),
                   Indexed("cboActualClk", k));
        if (device.rfind("QX7311", 0) == 0) {
            output("CLKF", "cboClkF", "cboActualClkF");
            shown.outputs[Key("32K", "")] = {"32.768 kHz", "0.03277"};
        }
        output("XBUF", "cboXBuff", "cboActualXBuff");
    }
    return shown;
}

// The read-back agrees with what the window shows: every loop's VCO (and, for a loop that
// runs, its counters), every output's source and frequency, and nothing more or less.
void ExpectReadBackShows(const ReadBack& rb, const Shown& shown) {
    HeadlessPlatform platform;
    ErrorReport errors(platform, [] { return std::string("Pendulon"); });
    clsPLL pll(errors);
    EXPECT_EQ(rb.Loops.size(), shown.loops.size());
    for (const ReadBack::Loop& loop : rb.Loops) {
        SCOPED_TRACE(loop.Name);
        const auto found = shown.loops.find(loop.Name);
        ASSERT_NE(found, shown.loops.end());
        const double vco = Val(found->second);
        EXPECT_EQ(loop.Off, vco <= 0) << found->second;
        if (vco > 0) {
            EXPECT_EQ(FormatNumber(loop.VCO, "0.000000"), FormatNumber(vco, "0.000000"));
            EXPECT_EQ(loop.P, pll.GetP(found->second)) << found->second;
            EXPECT_EQ(loop.Q, pll.GetQ(found->second)) << found->second;
        }
    }
    EXPECT_EQ(rb.Outputs.size(), shown.outputs.size());
    for (const ReadBack::Output& output : rb.Outputs) {
        SCOPED_TRACE(output.Pin + " " + output.State);
        const auto found = shown.outputs.find(Key(output.Pin, output.State));
        ASSERT_NE(found, shown.outputs.end());
        EXPECT_EQ(output.Source, found->second.first);
        const std::string& text = found->second.second;
        const bool off = Trim(text) == "Off" || Val(text) <= 0;
        EXPECT_EQ(output.Off, off) << text;
        if (!off && !output.Off) {
            EXPECT_EQ(mShared::FormatFrequencyFixed(output.Frequency),
                      mShared::FormatFrequencyFixed(Val(text)))
                << text;
        }
    }
}

// The fuse rows and the fuse checksum of a vector: from "L0000" to the C field's end.
std::string FuseRows(const std::string& text) {
    const size_t from = text.find("L0000");
    const size_t to = text.find('*', text.find("\r\nC", from) + 3);
    if (from == std::string::npos || to == std::string::npos)
        return "(no fuse rows)";
    return text.substr(from, to - from + 1);
}

// ---- The configurations
// ---------------------------------------------------------------------------

std::vector<Case> Cases() {
    std::vector<Case> cases;
    // QX3350: every divider of both sources, crystal and external, both voltages.
    const char* const references3350[] = {"14.31818 MHz", "25.00000 MHz", "20.00000 MHz",
                                          "12.00000 MHz"};
    for (int k = 0; k < 16; ++k) {
        const int divider = 1 << (k % 8);
        const std::string source =
            Cat({k < 8 ? "PLL" : "Ref", divider > 1 ? Cat({"/", std::to_string(divider)}) : ""});
        Case c{Cat({"QX3350_", std::to_string(k)}), k % 2 == 0 ? "QX3350" : "QX3350I", {}};
        if (k % 4 == 3)
            c.actions.push_back({'O', "opt3V", ""});
        if (k % 5 == 1)
            c.actions.push_back({'O', "optExternal", ""});
        if (k % 3 == 2)
            c.actions.push_back({'O', "optOutputEnable", ""});
        c.actions.push_back({'P', "cboFRef", references3350[k % 4]});
        c.actions.push_back({'P', "cboClockDivisors", source});
        if (k < 8)
            c.actions.push_back({'T', "txtPLL", std::to_string(96 + 11 * k)});
        cases.push_back(c);
    }
    // QX4860 family: both packages, every source of both outputs, smooth slew, the options.
    cases.push_back({"QX4860_14_All",
                     "QX4860",
                     {{'P', "cboClkADiv", "PLL"},
                      {'P', "cboRefClkDiv", "Ref"},
                      {'T', "txtPLL(0)", "10"},
                      {'T', "txtPLL(1)", "25"},
                      {'T', "txtPLL(2)", "40"},
                      {'T', "txtPLL(3)", "55"},
                      {'T', "txtPLL(4)", "70"},
                      {'T', "txtPLL(5)", "85"},
                      {'T', "txtPLL(6)", "100"},
                      {'T', "txtPLL(7)", "115"},
                      {'T', "txtPLL(8)", "130"},
                      {'T', "txtPLL(9)", "145"},
                      {'T', "txtPLL(10)", "160"},
                      {'T', "txtPLL(11)", "175"},
                      {'T', "txtPLL(12)", "190"},
                      {'T', "txtPLL(13)", "33.333"},
                      {'T', "txtPLL(14)", "66.66"},
                      {'T', "txtPLL(15)", "99.999"}}});
    cases.push_back({"QX4860F_14_3V",
                     "QX4860F",
                     {{'O', "opt3V", ""},
                      {'P', "cboFRef", "20.00000 MHz"},
                      {'P', "cboClkADiv", "PLL/2"},
                      {'P', "cboRefClkDiv", "PLL/3"},
                      {'C', "chkSmoothSlew", "1"},
                      {'C', "chkPLLStop", "1"},
                      {'T', "txtPLL(0)", "50"},
                      {'T', "txtPLL(1)", "75"},
                      {'T', "txtPLL(2)", "100"},
                      {'T', "txtPLL(3)", "110"}}});
    cases.push_back({"QX4860I_8",
                     "QX4860I",
                     {{'O', "opt8Pin", ""},
                      {'P', "cboFRef", "11.05920 MHz"},
                      {'P', "cboClkADiv", "PLL/4"},
                      {'P', "cboRefClkDiv", "PLL/5"},
                      {'T', "txtPLL(0)", "48"},
                      {'T', "txtPLL(1)", "64"},
                      {'T', "txtPLL(2)", "80"},
                      {'T', "txtPLL(3)", "96"}}});
    cases.push_back({"QX4860_8_PLL8",
                     "QX4860",
                     {{'O', "opt8Pin", ""},
                      {'P', "cboClkADiv", "PLL/8"},
                      {'P', "cboRefClkDiv", "Ref/2"},
                      {'T', "txtPLL(0)", "20"},
                      {'T', "txtPLL(1)", "40"},
                      {'T', "txtPLL(2)", "60"},
                      {'T', "txtPLL(3)", "80"}}});
    cases.push_back({"QX4860F_ClockAOff",
                     "QX4860F",
                     {{'P', "cboClkADiv", "Off"},
                      {'P', "cboRefClkDiv", "PLL"},
                      {'C', "chkOEReference", "0"},
                      {'C', "chkPowerDown", "0"},
                      {'T', "txtPLL(0)", "33"},
                      {'T', "txtPLL(5)", "44"}}});
    cases.push_back({"QX4860I_ReferenceOnly",
                     "QX4860I",
                     {{'P', "cboFRef", "25.00000 MHz"},
                      {'P', "cboClkADiv", "Ref/2"},
                      {'P', "cboRefClkDiv", "Off"},
                      {'C', "chkPLLAndOscillatorStop", "1"},
                      {'T', "txtPLL(0)", "70"}}});
    // QX6105A family: frequency select and output enable, every source of the three outputs.
    cases.push_back({"QX6105A_FS",
                     "QX6105A",
                     {{'O', "optFS", ""},
                      {'P', "cboFRef", "12.00000 MHz"},
                      {'P', "cboClkDiv(0)", "PLL"},
                      {'P', "cboClkDiv(1)", "PLL/2"},
                      {'P', "cboClkDiv(2)", "PLL/3"},
                      {'T', "txtPLL(0)", "100"},
                      {'T', "txtPLL(1)", "50"}}});
    cases.push_back({"QX6105AF_FS_SmoothSlew",
                     "QX6105AF",
                     {{'O', "optFS", ""},
                      {'P', "cboClkDiv(0)", "PLL/4"},
                      {'P', "cboClkDiv(1)", "PLL/5"},
                      {'P', "cboClkDiv(2)", "PLL/8"},
                      {'C', "chkSmoothSlew", "1"},
                      {'T', "txtPLL(0)", "80"},
                      {'T', "txtPLL(1)", "40"}}});
    cases.push_back({"QX6105AI_OE_3V",
                     "QX6105AI",
                     {{'O', "opt3V", ""},
                      {'P', "cboClkDiv(0)", "Ref"},
                      {'P', "cboClkDiv(1)", "Ref/2"},
                      {'P', "cboClkDiv(2)", "Off"},
                      {'T', "txtPLL(0)", "48"}}});
    cases.push_back({"QX6105A_OE",
                     "QX6105A",
                     {{'P', "cboClkDiv(0)", "PLL"},
                      {'P', "cboClkDiv(1)", "Off"},
                      {'P', "cboClkDiv(2)", "Ref/2"},
                      {'T', "txtPLL(0)", "66.6"}}});
    // QX7311 family: eight configurations that take each clock through every entry of its
    // list, the CPU and CLKF through theirs, loops on and off, suspend, shutdown, both voltages.
    const char* const devices7311[] = {"QX7311",  "QX7311F", "QX7311I", "QX7312",
                                       "QX7312F", "QX7312I", "QX7311",  "QX7312"};
    for (int c = 0; c < 8; ++c) {
        Case k{Cat({"QX7311_", std::to_string(c), "_", devices7311[c]}), devices7311[c], {}};
        if (c == 3)
            k.actions.push_back({'O', "opt3V", ""});
        if (c == 4)
            k.actions.push_back({'C', "chkShutdown", "1"});
        k.actions.push_back({'I', "cboFRef", std::to_string(c + 1)});
        k.actions.push_back({'T', "txtSPLL", c % 3 == 2 ? "Off" : std::to_string(40 + 5 * c)});
        k.actions.push_back({'T', "txtUPLL", c % 3 == 1 ? "Off" : std::to_string(30 + 3 * c)});
        for (int n = 0; n < 8; ++n)
            k.actions.push_back({'T', Indexed("txtCPLL", n),
                                 (n + c) % 4 == 3 ? "Off" : std::to_string(20 + 5 * n + c)});
        k.actions.push_back({'I', "cboCPU", std::to_string(c)});
        for (int clock = 0; clock < 4; ++clock)
            k.actions.push_back({'I', Indexed("cboClk", clock), std::to_string(4 * c + clock)});
        if (std::string(devices7311[c]).rfind("QX7311", 0) == 0)
            k.actions.push_back({'I', "cboClkF", std::to_string(c)});
        if (c == 1 || c == 3)
            k.actions.push_back({'P', "cboXBuff", "Off"});
        // Suspend and Off turn rows off as a user's click does, after the rows were typed.
        if (c == 5 || c == 6)
            k.actions.push_back({'C', "chkSuspend", "1"});
        if (c == 6)
            k.actions.push_back({'C', "chkSuspendCPLL", "1"});
        if (c == 7)
            k.actions.push_back({'C', "chkOffCPLL", "1"});
        cases.push_back(k);
    }
    // QX5140: its search assigns the loops; output enable, shutdown and select/suspend.
    cases.push_back({"QX5140_OE_OneLoop",
                     "QX5140",
                     {{'P', "cboFRef", "20.00000 MHz"},
                      {'T', "txtClkA(0)", "50"},
                      {'T', "txtClkB", "25"},
                      {'T', "txtClkC", "12.5"}}});
    cases.push_back(
        {"QX5140_OE_Reference",
         "QX5140",
         {{'T', "txtClkA(0)", "14.31818"}, {'T', "txtClkB", "33.333"}, {'T', "txtClkC", "66.66"}}});
    cases.push_back({"QX5140_PrivateLoops",
                     "QX5140",
                     {{'O', "optShutdown", ""},
                      {'C', "chkPrivatePLLClockA", "1"},
                      {'C', "chkPrivatePLLClockB", "1"},
                      {'C', "chkPrivatePLLClockC", "1"},
                      {'T', "txtClkA(0)", "40"},
                      {'T', "txtClkB", "30"},
                      {'T', "txtClkC", "7.15909"}}});
    cases.push_back({"QX5140_Select",
                     "QX5140",
                     {{'O', "optSelect", ""},
                      {'O', "opt3V", ""},
                      {'T', "txtClkA(0)", "48"},
                      {'T', "txtClkA(1)", "40"},
                      {'T', "txtClkB", "25"}}});
    cases.push_back({"QX5140_Suspend",
                     "QX5140",
                     {{'O', "optSelect", ""},
                      {'T', "txtClkA(0)", "50"},
                      {'T', "txtClkA(1)", "33.3"},
                      {'T', "txtClkB", "20"},
                      {'T', "txtClkC", "10"},
                      {'C', "chkSuspendClockB", "1"}}});
    return cases;
}

class ReadBackRoundTrip : public ::testing::TestWithParam<Case> {};

TEST_P(ReadBackRoundTrip, VectorReadsBackToItsEntryFileWindowAndVector) {
    const Case& c = GetParam();
    test::TempDir folder;
    const std::string entry = folder / "a.ent";
    const std::string vector = folder / "a.jed";
    const std::string again = folder / "b.ent";
    const std::string vectorAgain = folder / "b.jed";

    Program program;
    program.New(c.device);
    Configurator& form = *program.Doc();
    for (const Action& action : c.actions) Apply(form, action);
    form.cmdCalculate.RaiseClick();
    program.SaveAs(entry);
    ASSERT_EQ(form.txtFilePath.Text(), entry) << program.Messages();
    const Shown shown = WindowShows(form, c.device);
    const double reference = Val(form.cboFRef.Text());
    program.Vector(vector);
    const std::string written = test::ReadFile(vector);

    // The vector's "# i" values are the entry file's.
    clsFuseMap map(program.app->Errors());
    std::string cause;
    ASSERT_TRUE(map.ParseFuseMap(written, cause)) << cause;
    ASSERT_TRUE(map.Fits(c.device)) << program.Messages();
    clsEntryFile saved(program.app->Errors());
    ASSERT_TRUE(mFileAccessor::ParseFile(test::ReadFile(entry), entry, "", saved));
    const ReadBack read = map.MakeReadBack(c.device, reference);
    ASSERT_EQ(read.Fields.size(), static_cast<size_t>(saved.mintICount));
    for (int n = 0; n < saved.mintICount; ++n)
        EXPECT_EQ(read.Fields[static_cast<size_t>(n)].Value, saved.i(n)) << "field " << n;
    EXPECT_TRUE(map.FamilyChecksumOK());

    // The chip makes what the window shows.
    ExpectReadBackShows(read, shown);

    // Opened as a document from the read-back, then made into a vector again.
    const size_t messages = program.platform.Messages().size();
    frmReadBack* readBack = frmReadBack::Show(*program.app, vector);
    ASSERT_NE(readBack, nullptr) << program.Messages();
    ASSERT_TRUE(readBack->SelectDevice(c.device));
    readBack->cboFRef.SetText(form.cboFRef.Text());
    readBack->ApplyReference();
    const ReadBack fuses = readBack->MakeReadBack();
    program.platform.QueueFileAnswer(again);
    program.QueueSummaryOK();
    readBack->cmdOpenDocument_Click();
    ASSERT_NE(program.app->Document(), nullptr) << program.Messages();
    EXPECT_EQ(program.app->Preview(), nullptr);
    Configurator& reopened = *program.Doc();
    EXPECT_EQ(reopened.Device(), c.device);
    EXPECT_EQ(reopened.txtFilePath.Text().empty(), false);
    const std::string notes = [&] {
        std::string all;
        for (size_t n = messages; n < program.platform.Messages().size(); ++n)
            all += program.platform.Messages()[n].Text + "\n";
        return all;
    }();
    // The window finds the fuses' settings again, or the note says where it does not; it shows
    // what the chip makes.
    if (c.windowChooses.empty()) {
        EXPECT_EQ(notes.find("has chosen other settings"), std::string::npos) << notes;
    } else {
        EXPECT_NE(notes.find("has chosen other settings"), std::string::npos) << notes;
        EXPECT_NE(notes.find(c.windowChooses + "\r\n"), std::string::npos) << notes;
    }
    ExpectReadBackShows(fuses, WindowShows(reopened, c.device));
    program.Vector(vectorAgain);
    EXPECT_EQ(FuseRows(test::ReadFile(vectorAgain)), FuseRows(written)) << notes;
}

INSTANTIATE_TEST_SUITE_P(Configurations, ReadBackRoundTrip, ::testing::ValuesIn(Cases()),
                         [](const ::testing::TestParamInfo<Case>& info) {
                             return info.param.name;
                         });

TEST(ReadBackRoundTripCoverage, TheConfigurationsCoverAllFifteenDeviceNames) {
    std::set<std::string> devices;
    for (const Case& c : Cases()) devices.insert(c.device);
    EXPECT_EQ(devices.size(), 15u);
}

}  // namespace
}  // namespace pendulon
