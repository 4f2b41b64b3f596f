#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "configurators/frmQX7311TestSupport.hpp"
#include "core/Numbers.hpp"
#include "core/mShared.hpp"
#include "power/frmPower.hpp"

namespace pendulon {
namespace {

using testing::QX7311Document;

struct Solution {
    double vco;
    int p;
    int q;
};
Solution Parse(const std::string& text) {
    return {std::stod(text), std::stoi(text.substr(text.find("P:") + 2)),
            std::stoi(text.substr(text.find("Q:") + 2))};
}

// The divider of a source text, worked out here from the text alone.
int Divider(const std::string& source) {
    const auto slash = source.find('/');
    return slash == std::string::npos ? 1 : std::stoi(source.substr(slash + 1));
}

// Five decimals, the half rounded away from zero on the value's decimal form.
std::string Fixed(double value) {
    char scaled[64];
    std::snprintf(scaled, sizeof scaled, "%.15g", value * 100000);
    const long long units = std::llround(std::stod(scaled));
    char text[64];
    std::snprintf(text, sizeof text, "%lld.%05lld", units / 100000, units % 100000);
    return text;
}

// The CPLL's largest Q for row i: rows far apart narrow it (constants of a 14.31818 MHz
// reference, scaled to the reference in use).
int CPLLQBound(const std::vector<double>& vco, size_t i, double reference) {
    const double base = reference / 14.31818;
    double spread = 0;
    for (const double other : vco)
        if (other > 0)
            spread = std::max(spread, std::fabs(other - vco[i]));
    if (60 * base > spread)
        return 65;
    long q = std::lround(3927 * base / spread);
    if (q < 65 && vco[i] >= 40 * base && vco[i] <= 68 * base)
        q = 65;
    return static_cast<int>(std::min(q, 65L));
}

// Random configurations of all six devices, each checked against arithmetic done here: every
// solution is a true solution of VCO = 2 x reference x P / Q inside the counter bounds, the
// desired value of every output follows its source and divider, the outputs on SPLL and UPLL
// show their loop's solutions divided, and the power rows follow the current model.
TEST(frmQX7311Random, ConfigurationsOfAllSixDevicesAgreeWithAnIndependentComputation) {
    std::mt19937 random(7311);
    const std::vector<std::string> devices = {"QX7311", "QX7311F", "QX7311I",
                                              "QX7312", "QX7312F", "QX7312I"};
    const std::vector<std::string> references = {"11.05920 MHz", "14.31818 MHz", "20.00000 MHz",
                                                 "25.00000 MHz"};
    for (const std::string& device : devices) {
        QX7311Document doc(device);
        frmQX7311& form = doc.Form();
        for (int round = 0; round < 12; ++round) {
            const bool low = random() % 2 == 0;
            if (low) {
                form.opt3V.SetValue(true);
            } else {
                form.opt5V.SetValue(true);
            }
            const double maximum = form.CPLLMaximum();
            auto frequency = [&] {
                std::uniform_real_distribution<double> pick(8, maximum);
                return mShared::FormatFrequencyShort(std::round(pick(random) * 1000) / 1000);
            };
            QX7311Document::Pick(form.cboFRef, references[random() % references.size()]);
            for (int i = 0; i < 8; ++i)
                doc.Type(form.txtCPLL[i], random() % 5 == 0 ? "Off" : frequency());
            doc.Type(form.txtSPLL, random() % 4 == 0 ? "Off" : frequency());
            doc.Type(form.txtUPLL, random() % 4 == 0 ? "Off" : frequency());
            // The CPU always on the CPLL: the power rows then depend on this Calculate alone.
            form.cboCPU.SetListIndex(static_cast<int>(random() % 3));
            for (int k = 0; k < 4; ++k)
                form.cboClk[k].SetListIndex(
                    static_cast<int>(random() % form.cboClk[k].ListCount()));
            if (form.pic7311Only.Visible())
                form.cboClkF.SetListIndex(static_cast<int>(random() % 4));
            doc.Calculate();
            ASSERT_EQ(doc.app->Errors().Count(), 0) << doc.Messages();

            const double reference = Val(form.cboFRef.Text());
            const int qBound = static_cast<int>(std::lround(reference / 0.15));
            // Every loop solution.
            auto checkLoop = [&](ListField& data, double target, int maxP, int maxQ, bool cpll) {
                for (int k = 0; k < data.ListCount(); ++k) {
                    const Solution s = Parse(data.List(k));
                    if (s.vco == 0)
                        continue;
                    EXPECT_NEAR(s.vco, 2 * reference * s.p / s.q, 5e-7) << data.List(k);
                    EXPECT_GE(s.p, 5);
                    EXPECT_LE(s.p, maxP);
                    EXPECT_GE(s.q, 2);
                    EXPECT_LE(s.q, maxQ);
                    if (cpll) {
                        EXPECT_GT(static_cast<double>(s.p) / s.q, 1.3);
                    }
                    if (device != "QX7311F" && device != "QX7312F") {
                        EXPECT_GE(s.vco, 2 * 8 - 1e-9);
                        EXPECT_LE(s.vco, 2 * maximum + 1e-9);
                    }
                    // Within a percent of the target: a far solution would be a wrong search. The
                    // CPLL's narrowed Q may cost it more.
                    if (!cpll) {
                        EXPECT_LT(std::fabs(s.vco / (2 * target) - 1), 0.01) << data.List(k);
                    }
                }
            };
            if (form.txtSPLL.Text() != "Off")
                checkLoop(form.cboSPLLData, Val(form.txtSPLL.Text()), 258, std::min(65, qBound),
                          false);
            if (form.txtUPLL.Text() != "Off")
                checkLoop(form.cboUPLLData, Val(form.txtUPLL.Text()), 1026, std::min(129, qBound),
                          false);
            std::vector<double> rows(8);
            for (int i = 0; i < 8; ++i)
                rows[static_cast<size_t>(i)] = 2 * Val(form.txtCPLL[i].Text());
            for (int i = 0; i < 8; ++i)
                if (form.txtCPLL[i].Text() != "Off")
                    checkLoop(form.cboCPLLData[i], Val(form.txtCPLL[i].Text()), 258,
                              CPLLQBound(rows, static_cast<size_t>(i), reference), true);

            // Desired and actual value of every clock.
            for (int k = 0; k < 4; ++k) {
                const std::string source = form.cboClk[k].Text();
                const int divider = Divider(source);
                const std::string desired = form.lblDesiredClk[k].Caption();
                const std::string actual = form.cboActualClk[k].Text();
                switch (source[0]) {
                    case 'O':
                        EXPECT_EQ(desired, " Off");
                        EXPECT_EQ(actual, "Off");
                        break;
                    case 'C':
                        EXPECT_EQ(desired, " " + source);
                        EXPECT_EQ(actual, source);
                        break;
                    case 'R':
                        EXPECT_EQ(desired, std::string(" ").append(Fixed(reference / divider)))
                            << source;
                        EXPECT_EQ(actual, Fixed(reference / divider)) << source;
                        break;
                    default: {
                        TextField& loop = source[0] == 'S' ? form.txtSPLL : form.txtUPLL;
                        ListField& shown = source[0] == 'S' ? form.cboSPLL : form.cboUPLL;
                        EXPECT_EQ(desired,
                                  std::string(" ").append(Fixed(Val(loop.Text()) / divider)))
                            << source;
                        if (loop.Text() == "Off") {
                            EXPECT_EQ(actual, "Off");
                        } else {
                            ASSERT_EQ(form.cboActualClk[k].ListCount(), shown.ListCount());
                            for (int e = 0; e < shown.ListCount(); ++e)
                                EXPECT_EQ(form.cboActualClk[k].List(e),
                                          Fixed(Val(shown.List(e)) / divider))
                                    << source;
                        }
                    }
                }
            }

            // Power rows, worked out from the model's constants.
            const double v = low ? 3.3 : 5.0, worstV = low ? 4.0 : 5.5;
            const double idle = low ? 1.8 : 2.6, pllSlope = low ? 0.0002 : 0.011;
            const double load = low ? 0.00112 : 0.0017;
            const double spll = Parse(form.cboSPLLData.Text()).vco / 2;
            const double upll = Parse(form.cboUPLLData.Text()).vco / 2;
            const double xbuff = Val(form.cboActualXBuff.Text());
            for (int r = 0; r < 8; ++r) {
                const double cpll = Parse(form.cboCPLLData[r].Text()).vco / 2;
                double outputs = cpll / Divider(form.cboCPU.Text()) + xbuff;
                for (int k = 0; k < 4; ++k) {
                    const std::string source = form.cboClk[k].Text();
                    outputs += source[0] == 'C' ? cpll / Divider(source)
                                                : Val(form.cboActualClk[k].Text());
                }
                outputs += Val(form.cboActualClkF.Text());
                const double pll = pllSlope * (cpll + spll + upll);
                const double typical = std::max(1.0, (idle + pll + 18 * load * outputs) * v);
                const double worst = std::max(1.0, (idle + pll + 30 * load * outputs) * worstV);
                EXPECT_NEAR(Val(doc.app->Power().Cell(r, 1)), typical, 1e-9) << device << r;
                EXPECT_NEAR(Val(doc.app->Power().Cell(r, 2)), worst, 1e-9) << device << r;
            }
        }
    }
}

}  // namespace
}  // namespace pendulon
