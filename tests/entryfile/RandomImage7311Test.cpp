// Random configurations of all six QX7311 family devices against an independent computation
// (tests/data/check_7311_random.py): entry file text, family checksum and fuse rows.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <random>

#include "Cases7311.hpp"
#include "EntryTestSupport.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "shell/frmSummary.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using test::Fake7311Form;
using test::Fields7311;
using test::SetOnlyEntry;

std::string Fixed(double value, const char* pattern) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, pattern, value);
    return buffer;
}

class RandomImage7311 : public ::testing::Test, public test::AppFixture {
  protected:
    std::mt19937 rng{7311};
    std::string dir = test::MakeTempDir();
    ~RandomImage7311() override { std::filesystem::remove_all(dir); }

    int Int(int low, int high) { return std::uniform_int_distribution<int>(low, high)(rng); }
    bool Coin(int percent = 50) { return Int(1, 100) <= percent; }
    // A frequency as a user types it: up to five decimals.
    std::string Frequency(int low, int high) {
        const int decimals = Int(0, 5);
        const double scale = std::pow(10.0, decimals);
        const double value =
            Int(static_cast<int>(low * scale), static_cast<int>(high * scale)) / scale;
        return Fixed(value, ("%." + std::to_string(decimals) + "f").c_str());
    }
    // A data list entry: the VCO of P and Q at the reference, or the minima of a loop that is off.
    std::string Data(double reference, bool off, int maxP, int maxQ) {
        if (off)
            return "0.000000 P:5 Q:2";
        const int p = Int(5, maxP);
        const int q = Int(2, maxQ);
        return Fixed(2 * reference * p / q, "%.6f") + " P:" + std::to_string(p) +
               " Q:" + std::to_string(q);
    }
    std::string Desired() {
        switch (Int(0, 2)) {
            case 0:
                return " Off";
            case 1:
                return " CPLL/4";
            default:
                return std::string(" ").append(Frequency(0, 120));
        }
    }
};

TEST_F(RandomImage7311, EntryFileChecksumAndFusesAgreeWithTheIndependentComputation) {
    if (std::system("python3 --version > /dev/null 2>&1") != 0)
        GTEST_SKIP() << "python3 is not installed";
    const char* const devices[] = {"QX7311", "QX7311F", "QX7311I", "QX7312", "QX7312F", "QX7312I"};
    const char* const references[] = {"10", "14.31818", "20", "24.99", "25", "27", "33.3"};
    const char* const revisions[] = {"", "01", "B7"};
    const std::string header = "HEAD\r\nER\r\n";
    constexpr int kCases = 300;

    nlohmann::json settings = nlohmann::json::array();
    struct Made {
        std::string Entry;
        int Checksum;
        std::vector<std::string> Rows;
    };
    std::vector<Made> made;
    for (int c = 0; c < kCases; ++c) {
        Fake7311Form f(app, devices[c % 6]);
        nlohmann::json s;
        s["device"] = f.device;
        const bool volt5 = Coin();
        (volt5 ? f.opt5V : f.opt3V).SetValue(true);
        s["volt5"] = volt5;
        const std::string ref = references[Int(0, 6)];
        f.cboFRef.SetText(ref);
        s["ref"] = ref;
        const double reference = std::stod(ref);
        const std::string revision = revisions[Int(0, 2)];
        app.Summary().txtRevision.SetText(revision);
        s["revision"] = revision;

        for (int n = 0; n < 8; ++n) {
            const bool off = Coin(25);
            f.txtCPLL[n].SetText(off ? "Off" : Frequency(8, 100));
            SetOnlyEntry(f.cboCPLLData[n], Data(reference, off, 258, 65));
            s["cpll"].push_back(f.txtCPLL[n].Text());
            s["cpllData"].push_back(f.cboCPLLData[n].Text());
        }
        const bool spllOff = Coin(25);
        f.txtSPLL.SetText(spllOff ? "Off" : Frequency(8, 100));
        SetOnlyEntry(f.cboSPLLData, Data(reference, spllOff, 258, 65));
        const bool upllOff = Coin(25);
        f.txtUPLL.SetText(upllOff ? "Off" : Frequency(8, 100));
        SetOnlyEntry(f.cboUPLLData, Data(reference, upllOff, 1026, 129));
        s["spll"] = f.txtSPLL.Text();
        s["spllData"] = f.cboSPLLData.Text();
        s["upll"] = f.txtUPLL.Text();
        s["upllData"] = f.cboUPLLData.Text();

        f.cboCPU.SetListIndex(Int(0, 3));
        s["cpu"] = f.cboCPU.Text();
        s["cpuIndex"] = f.cboCPU.ListIndex();
        for (int k = 0; k < 4; ++k) {
            f.cboClk[k].SetListIndex(Int(0, f.cboClk[k].ListCount() - 1));
            s["clk"].push_back(f.cboClk[k].Text());
            f.lblDesiredClk[k].SetCaption(Desired());
            s["desiredClk"].push_back(f.lblDesiredClk[k].Caption());
        }
        f.cboClkF.SetListIndex(Int(0, 3));
        s["clkF"] = f.cboClkF.Text();
        s["clkFIndex"] = f.cboClkF.ListIndex();
        f.lblDesiredClkF.SetCaption(Desired());
        s["desiredClkF"] = f.lblDesiredClkF.Caption();
        f.cboXBuff.SetListIndex(Int(0, 1));
        s["xbuff"] = f.cboXBuff.Text();

        auto box = [&](CheckBox& check, const char* key) {
            check.SetValue(Coin() ? 1 : 0);
            s[key] = check.Value();
        };
        box(f.chkSuspend, "suspend");
        s["suspend"] = f.chkSuspend.Value() == 1;
        box(f.chkShutdown, "shutdown");
        s["shutdown"] = f.chkShutdown.Value() == 1;
        box(f.chkOffCPLL, "offCPLL");
        box(f.chkSuspendCPLL, "susCPLL");
        box(f.chkSuspendSPLL, "susSPLL");
        box(f.chkSuspendUPLL, "susUPLL");
        box(f.chkSusXbuff, "susXbuff");
        box(f.chkSusClkF, "susClkF");
        box(f.chkSusCPU, "susCPU");
        for (int k = 0; k < 4; ++k) {
            f.chkSusClk[k].SetValue(Coin() ? 1 : 0);
            s["susClk"].push_back(f.chkSusClk[k].Value());
        }
        const bool details = Coin();
        const bool outOfRange = Coin(20);
        s["details"] = details;
        s["outOfRange"] = outOfRange;
        s["header"] = header;
        settings.push_back(s);

        f.mclsEntryFile.MakeEntryFile();
        const clsEntryFile& image = f.mclsEntryFile.Entry();
        Made m;
        m.Entry = clsEntryFile7311::EntryFileText(image, f.device, header, details, outOfRange);
        m.Checksum = clsEntryFile7311::CalculateChecksum(image, errors);
        for (int r = 0; r <= 8; ++r) m.Rows.push_back(clsEntryFile7311::FuseRow(image, r, {}));
        made.push_back(m);
    }
    ASSERT_TRUE(platform.Messages().empty());

    const std::string in = dir + "/settings.json";
    const std::string out = dir + "/results.json";
    std::ofstream(in) << settings.dump();
    const std::string command =
        "python3 '" + test::DataPath("check_7311_random.py") + "' '" + in + "' '" + out + "'";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
    const nlohmann::json results = nlohmann::json::parse(test::ReadFile(out));
    ASSERT_EQ(results.size(), static_cast<size_t>(kCases));
    for (int c = 0; c < kCases; ++c) {
        const auto& r = results[static_cast<size_t>(c)];
        EXPECT_EQ(made[c].Entry, r["entry"].get<std::string>()) << "case " << c;
        EXPECT_EQ(made[c].Checksum, r["checksum"].get<int>()) << "case " << c;
        for (int row = 0; row <= 8; ++row)
            EXPECT_EQ(made[c].Rows[row], r["rows"][static_cast<size_t>(row)].get<std::string>())
                << "case " << c << " row " << row;
    }
}

}  // namespace
}  // namespace pendulon
