// pendulon-cli decode: every vector the program writes read back, with the fields of its entry
// file and the frequencies its window shows, its entry file making the same vector again; and
// every bad input refused with the file and the cause, exit status 1 and nothing written.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "core/Numbers.hpp"
#include "core/mShared.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "entryfile/clsFuseMap.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/TextFile.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using test::CliResult;
using test::ReadFile;
using test::RunCli;

const std::vector<std::string> kFixedDate = {"SOURCE_DATE_EPOCH=1700000000"};

nlohmann::json Json(const CliResult& result) {
    return nlohmann::json::parse(result.out);
}

// The fuse rows and the fuse checksum of a vector: from "L0000" to the end of the C field.
std::string FuseRows(const std::string& text) {
    const size_t from = text.find("L0000");
    const size_t c = text.find("\r\nC", from);
    if (from == std::string::npos || c == std::string::npos)
        return "(no fuse rows)";
    return text.substr(from, text.find('*', c) - from + 1);
}

std::string CField(const std::string& text) {
    const size_t at = text.find("\r\nC");
    return at == std::string::npos ? std::string() : text.substr(at + 3, 4);
}

struct Image {
    HeadlessPlatform platform;
    ErrorReport errors{platform, [] { return std::string("Pendulon"); }};
    clsEntryFile entry{errors};
    explicit Image(const std::string& path) {
        EXPECT_TRUE(mFileAccessor::ParseFile(ReadFile(path), path, "", entry)) << path;
    }
};

// A document made through the command line as a user makes it, and the window field whose
// number the read-back's first output must show.
struct Made {
    std::string device;
    std::vector<std::string> actions;
    std::string shownField;  // the window's actual-frequency list of that output
};

const Made kMade[] = {
    {"QX3350", {"--set", "txtPLL=100", "--set", "cboClockDivisors=PLL/4"}, "cboActual"},
    {"QX3350I", {"--set", "cboFRef=25", "--set", "txtPLL=160"}, "cboActual"},
    {"QX4860", {"--set", "cboClkADiv=PLL/2", "--set", "txtPLL(0)=50"}, "cboActualClkA(0)"},
    {"QX4860F",
     {"--click", "opt8Pin", "--set", "cboClkADiv=PLL", "--set", "txtPLL(0)=33"},
     "cboActualClkA(0)"},
    {"QX4860I", {"--set", "cboClkADiv=PLL/3", "--set", "txtPLL(0)=66.6"}, "cboActualClkA(0)"},
    {"QX6105A", {"--set", "cboClkDiv(0)=PLL", "--set", "txtPLL(0)=60"}, "cboActual(0)"},
    {"QX6105AF",
     {"--click", "optFS", "--set", "cboClkDiv(0)=PLL/2", "--set", "txtPLL(0)=80", "--set",
      "txtPLL(1)=40"},
     "cboActual(0)"},
    {"QX6105AI", {"--set", "cboClkDiv(0)=PLL/4", "--set", "txtPLL(0)=48"}, "cboActual(0)"},
    {"QX7311", {"--set", "txtSPLL=48", "--set", "cboClk(0)=SPLL/2"}, "cboActualClk(0)"},
    {"QX7311F", {"--set", "txtUPLL=50", "--set", "cboClk(0)=UPLL/4"}, "cboActualClk(0)"},
    {"QX7311I", {"--set", "txtSPLL=40", "--set", "cboClk(0)=SPLL/13"}, "cboActualClk(0)"},
    {"QX7312", {"--set", "txtUPLL=66", "--set", "cboClk(0)=UPLL"}, "cboActualClk(0)"},
    {"QX7312F", {"--set", "txtSPLL=60", "--set", "cboClk(0)=SPLL/5"}, "cboActualClk(0)"},
    {"QX7312I", {"--set", "txtSPLL=45", "--set", "cboClk(0)=SPLL/3"}, "cboActualClk(0)"},
};

// The first output of the read-back that the window shows as a number.
const nlohmann::json& FirstShownOutput(const nlohmann::json& outputs, const std::string& pin) {
    for (const auto& output : outputs)
        if (output["pin"] == pin && !output.contains("shown_by_window"))
            return output;
    return outputs.at(0);
}

TEST(CliDecode, ReadsBackTheVectorOfEveryDeviceAndItsEntryFileMakesTheSameVector) {
    test::TempDir folder;
    for (const Made& made : kMade) {
        SCOPED_TRACE(made.device);
        const std::string entry = folder / (made.device + ".ent");
        const std::string vector = folder / (made.device + ".jed");
        const std::string again = folder / (made.device + "-again.ent");
        const std::string vectorAgain = folder / (made.device + "-again.jed");
        std::vector<std::string> args = {"new", made.device};
        args.insert(args.end(), made.actions.begin(), made.actions.end());
        for (const char* tail : {"--click", "cmdCalculate", "--save"}) args.push_back(tail);
        args.push_back(entry);
        args.push_back("--jed");
        args.push_back(vector);
        args.push_back("--json");
        const CliResult window = RunCli(args, kFixedDate);
        ASSERT_EQ(window.exitCode, 0) << window.err;
        const auto fields = Json(window)["fields"];
        const auto shown = fields[made.shownField]["text"].get<std::string>();
        // The reference the window used, as the user gives it to the read-back.
        const std::string reference =
            GeneralNumber(Val(fields["cboFRef"]["text"].get<std::string>()));

        const CliResult decoded = RunCli({"decode", vector, "--json", "--device", made.device,
                                          "--ref", reference, "--save-ent", again},
                                         kFixedDate);
        ASSERT_EQ(decoded.exitCode, 0) << decoded.err;
        const auto json = Json(decoded);
        EXPECT_EQ(json["device"], made.device);
        EXPECT_EQ(json["fuse_checksum"], CField(ReadFile(vector)));
        EXPECT_EQ(json["checksum_ok"], true);
        EXPECT_DOUBLE_EQ(json["reference"].get<double>(), Val(reference));
        // The fields are the entry file's "# i" values, in order.
        Image saved(entry);
        ASSERT_EQ(json["fields"].size(), static_cast<size_t>(saved.entry.mintICount));
        for (int n = 0; n < saved.entry.mintICount; ++n) {
            EXPECT_EQ(json["fields"][n]["index"], n);
            EXPECT_EQ(json["fields"][n]["value"], saved.entry.i(n)) << "field " << n;
        }
        // The output's frequency is the one the window shows.
        const std::string pin = made.device.rfind("QX3350", 0) == 0 ? "CLKOUT" : "CLKA";
        const auto& output = FirstShownOutput(json["outputs"], pin);
        ASSERT_FALSE(output["frequency"].is_null()) << output.dump();
        EXPECT_EQ(mShared::FormatFrequencyFixed(output["frequency"].get<double>()),
                  mShared::FormatFrequencyFixed(Val(shown)))
            << shown;
        EXPECT_FALSE(json["loops"].empty());

        // The entry file of the read-back makes the same vector.
        const CliResult rewritten = RunCli({"jed", again, "-o", vectorAgain}, kFixedDate);
        ASSERT_EQ(rewritten.exitCode, 0) << rewritten.err;
        EXPECT_EQ(FuseRows(ReadFile(vectorAgain)), FuseRows(ReadFile(vector)));
    }
}

TEST(CliDecode, AQX5140ChipReadsBackWithTheFrequenciesItWasMadeFor) {
    test::TempDir folder;
    // The QX5140 window offers no vector; a chip programmed from its entry file holds the
    // fuses of the image in the QX7311 layout, the counters of its CPU blocks that are off (P 0,
    // Q 0, which their fields cannot hold) as zeros. The golden entry file was made at 20 MHz
    // for 50, 25 and 12.5 MHz, all three on UPLL.
    Image lean(test::DataPath("entry/QX5140_OE_lean.ent"));
    clsEntryFile7311::Identity identity;
    const std::string checksum =
        std::to_string(clsEntryFile7311::CalculateChecksum(lean.entry, lean.errors));
    identity.Checksum = checksum;
    identity.Device = "QX5140";
    identity.Date = DateTime{2026, 11, 21};
    identity.Version = {3, 71, 10};
    const std::string chip = folder / "QX5140_OE.jed";
    const std::string fuses = clsEntryFile7311::EPROMVectorText(
        lean.entry, "QX5140", "Pendulon(tm) 3.71", "Build #: 3.71.010", identity, false);
    ASSERT_EQ(WriteTextFileAtomically(chip, fuses), "");

    const std::string again = folder / "again.ent";
    const CliResult decoded =
        RunCli({"decode", chip, "--json", "--ref", "20", "--save-ent", again}, kFixedDate);
    ASSERT_EQ(decoded.exitCode, 0) << decoded.err;
    const auto json = Json(decoded);
    EXPECT_EQ(json["device"], "QX5140");
    EXPECT_EQ(json["devices"], nlohmann::json::array({"QX5140"}));
    EXPECT_EQ(json["checksum_ok"], true);
    EXPECT_EQ(json["family_checksum"]["stored"], checksum);
    EXPECT_EQ(json["written"], "Pendulon 3.71.010, Nov/21/2026");
    ASSERT_EQ(json["outputs"].size(), 3u);
    // The fuses hold the codes of UPLL, UPLL/2 and UPLL/4, in the loop's own clock; the window
    // shows the dividers of the loop's target.
    const double expected[3] = {50, 25, 12.5};
    const char* sources[3] = {"UPLL/2", "UPLL/4", "UPLL/8"};
    for (size_t k = 0; k < 3; ++k) {
        EXPECT_EQ(json["outputs"][k]["source"], sources[k]);
        EXPECT_DOUBLE_EQ(json["outputs"][k]["frequency"].get<double>(), expected[k]);
    }
    EXPECT_TRUE(json["loops"][2]["vco"].is_null());  // SPLL unused
    EXPECT_DOUBLE_EQ(json["loops"][3]["vco"].get<double>(), 100);
    // The fields are the entry file's, the off CPU blocks' P 0 and Q 0 included.
    for (int n = 0; n < 69; ++n)
        EXPECT_EQ(json["fields"][n]["value"], lean.entry.i(n)) << "field " << n;

    // The entry file holds the decoded fields; its fuses are the chip's byte for byte.
    Image written(again);
    for (int n = 0; n < 69; ++n) EXPECT_EQ(written.entry.i(n), lean.entry.i(n)) << "field " << n;
    EXPECT_EQ(written.entry.mintBValue, 1);
    EXPECT_EQ(written.entry.mintMValue, 3002);
    const std::string vector = clsEntryFile7311::EPROMVectorText(
        written.entry, "QX5140", "Pendulon(tm) 3.71", "Build #: 3.71.010", identity, false);
    EXPECT_EQ(FuseRows(vector), FuseRows(fuses));
}

TEST(CliDecode, PrintsTheReadBackDocumentWithoutJson) {
    const CliResult result = RunCli({"decode", test::DataPath("entry/QX4860_8.jed")});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.out.rfind("Fuse Map Read-Back\n", 0), 0u) << result.out;
    EXPECT_EQ(result.out.find('\r'), std::string::npos);
    EXPECT_NE(result.out.find("  Device:           QX4860   (the fuses fit: QX4860, QX4860F, "
                              "QX4860I)\n"),
              std::string::npos);
    EXPECT_NE(result.out.find("  PLL 01    42     17"), std::string::npos) << result.out;
}

// ---- Refusals
// ------------------------------------------------------------------------------------

struct Refusal {
    std::string name;
    std::string text;  // the file's content; empty: no file at all
    std::vector<std::string> options;
    std::string cause;  // what standard error says behind the file's name
};

TEST(CliDecode, BadInputIsRefusedWithFileAndCauseExitOneAndNothingWritten) {
    test::TempDir folder;
    const std::string golden = ReadFile(test::DataPath("entry/QX3350_SC.jed"));
    std::string wrongC = golden;
    wrongC.replace(wrongC.find("C01DE*"), 6, "C01DF*");
    std::string flipped = golden;
    const size_t row = flipped.find("L0000\r\n") + 7;
    flipped[row + 3] = flipped[row + 3] == '0' ? '1' : '0';
    std::string transmission = golden;
    transmission.replace(transmission.find("\x03"
                                           "0000"),
                         5,
                         "\x03"
                         "12AB");
    const std::vector<Refusal> refusals = {
        {"entry.jed",
         ReadFile(test::DataPath("entry/QX3350_SC_lean.ent")),
         {},
         "it is not a JEDEC fuse map"},
        {"missing.jed", "", {}, "the file cannot be read"},
        {"cut.jed", golden.substr(0, golden.size() / 2), {}, "the file is cut"},
        {"wrongc.jed", wrongC, {}, "its fuse checksum C01DF does not match the fuses"},
        {"flipped.jed", flipped, {}, "does not match the fuses"},
        {"transmission.jed", transmission, {}, "its transmission checksum 12AB does not match"},
        {"device.jed",
         golden,
         {"--device", "QX7311"},
         "the fuse map does not fit the device 'QX7311' (it fits QX3350, QX3350I)"},
    };
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.name);
        const std::string path = folder / refusal.name;
        if (!refusal.text.empty()) {
            ASSERT_EQ(WriteTextFileAtomically(path, refusal.text), "");
        }
        // An entry file that stood at the --save-ent path stays as it was.
        const std::string target = folder / (refusal.name + ".ent");
        ASSERT_EQ(WriteTextFileAtomically(target, "what stood here"), "");
        std::vector<std::string> args = {"decode", path, "--json", "--save-ent", target};
        args.insert(args.end(), refusal.options.begin(), refusal.options.end());
        const CliResult result = RunCli(args);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err.rfind("pendulon-cli: decode: " + path + ": ", 0), 0u) << result.err;
        EXPECT_NE(result.err.find(refusal.cause), std::string::npos) << result.err;
        EXPECT_EQ(ReadFile(target), "what stood here");
    }
}

TEST(CliDecode, AMalformedCommandIsAUsageError) {
    const std::string golden = test::DataPath("entry/QX3350_SC.jed");
    for (const std::vector<std::string>& args :
         std::vector<std::vector<std::string>>{{"decode"},
                                               {"decode", golden, "--ref"},
                                               {"decode", golden, "--ref", "0"},
                                               {"decode", golden, "--ref", "14.3 MHz"},
                                               {"decode", golden, "--frequency", "14"}}) {
        const CliResult result = RunCli(args);
        EXPECT_EQ(result.exitCode, 2) << result.err;
        EXPECT_NE(result.err.find("usage: pendulon-cli decode FILE.jed"), std::string::npos)
            << result.err;
    }
    const CliResult help = RunCli({"--help"});
    EXPECT_NE(
        help.out.find("decode FILE.jed [--ref MHZ] [--device NAME] [--json] [--save-ent PATH]"),
        std::string::npos);
}

}  // namespace
}  // namespace pendulon
