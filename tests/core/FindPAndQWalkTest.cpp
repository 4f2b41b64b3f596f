// The search against a plain walk written out step by step, every check in place: on many random
// counter ranges, references and targets both keep the same three solutions, bit for bit, and
// report the same errors in the same order.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "CoreTestSupport.hpp"
#include "core/Numbers.hpp"
#include "core/clsPLL.hpp"
#include "core/mShared.hpp"

namespace pendulon {
namespace {

struct Inputs {
    double reference = 0, minP = 0, maxP = 0, minQ = 0, maxQ = 0, vcoMin = 0, vcoMax = 0,
           target = 0;
    bool largest = false;
    bool cpll = false;
};

struct Outcome {
    std::array<double, 3> p{};
    std::array<double, 3> q{};
    std::array<std::int32_t, 3> ppm{};
    std::vector<std::string> messages;
};

std::vector<std::string> MessageTexts(const HeadlessPlatform& platform) {
    std::vector<std::string> texts;
    for (const auto& message : platform.Messages()) texts.push_back(message.Text);
    return texts;
}

// The walk as plainly as it can be written: every division, product and conversion checked
// where it happens, a failed one reported and its target left as it was.
Outcome ReferenceWalk(const Inputs& in) {
    test::ReportFixture f;
    const char* source = "clsPLL.FindPAndQ";
    auto divide = [&](double n, double d, double& result) {
        if (d == 0) {
            f.errors.Raise(n == 0 || std::isnan(n) ? errors::Overflow : errors::DivisionByZero,
                           source);
            return false;
        }
        const double value = n / d;
        if (!std::isfinite(value)) {
            f.errors.Raise(errors::Overflow, source);
            return false;
        }
        result = value;
        return true;
    };
    auto multiply = [&](double a, double b, double& result) {
        const double value = a * b;
        if (!std::isfinite(value)) {
            f.errors.Raise(errors::Overflow, source);
            return false;
        }
        result = value;
        return true;
    };
    auto toLong = [&](double value, std::int32_t& result) {
        const auto converted = ToLong(value);
        if (!converted) {
            f.errors.Raise(errors::Overflow, source);
            return false;
        }
        result = *converted;
        return true;
    };

    Outcome out;
    for (int i = 0; i < 3; ++i) {
        out.ppm[i] = mShared::kNoSolutionPPM;
        out.p[i] = in.minP;
        out.q[i] = in.minQ;
    }
    if (in.target * 1.01 < in.vcoMin || in.target * 0.99 > in.vcoMax) {
        out.messages = MessageTexts(f.platform);
        return out;
    }
    double ratio = 0;
    divide(in.target / 2.0, in.reference, ratio);
    std::int32_t low = 0, high = 0;
    toLong(in.minQ + 1, low);
    toLong(in.maxQ, high);
    std::int32_t p0 = 0;
    double perQ = 0, product = 0, actual = 0, vco = 0;
    auto visit = [&](long long q) {
        const double dq = static_cast<double>(q);
        divide(in.reference, dq, perQ);
        if (multiply(ratio, dq, product))
            toLong(product, p0);
        for (long long p = static_cast<long long>(p0) - 1; p <= p0 + 1LL; ++p) {
            const double dp = static_cast<double>(p);
            if (dp < in.minP || dp > in.maxP)
                continue;
            divide(dp, dq, actual);
            const std::int32_t ppm = mShared::CalculatePPM(actual, ratio);
            multiply(2.0 * in.reference, actual, vco);
            if (vco < in.vcoMin || vco > in.vcoMax)
                continue;
            if (in.cpll && !(actual > 1.3))
                continue;
            if (std::abs(ppm) < std::abs(out.ppm[0])) {
                out.ppm[0] = ppm;
                out.p[0] = dp;
                out.q[0] = dq;
            }
            if (std::abs(ppm) < std::abs(out.ppm[1]) && ppm < 0) {
                out.ppm[1] = ppm;
                out.p[1] = dp;
                out.q[1] = dq;
            }
            if (ppm < out.ppm[2] && ppm > 0) {
                out.ppm[2] = ppm;
                out.p[2] = dp;
                out.q[2] = dq;
            }
        }
    };
    if (in.largest) {
        for (long long q = high; q >= low; --q) visit(q);
    } else {
        for (long long q = low; q <= high; ++q) visit(q);
    }
    out.messages = MessageTexts(f.platform);
    return out;
}

Outcome Search(const Inputs& in) {
    test::ReportFixture f;
    clsPLL pll(f.errors);
    pll.mdblReferenceFrequency = in.reference;
    pll.mdblMinP = in.minP;
    pll.mdblMaxP = in.maxP;
    pll.mdblMinQ = in.minQ;
    pll.mdblMaxQ = in.maxQ;
    pll.mdblVCOMin = in.vcoMin;
    pll.mdblVCOMax = in.vcoMax;
    pll.mdblTargetVCO = in.target;
    bool cpll = in.cpll;
    pll.FindPAndQ(in.largest, 0, cpll);
    Outcome out;
    for (std::size_t i = 0; i < 3; ++i) {
        const clsPLL::Solution slot = pll.Slot(i);
        out.p[i] = slot.P;
        out.q[i] = slot.Q;
        out.ppm[i] = slot.PPM;
    }
    out.messages = MessageTexts(f.platform);
    return out;
}

// Compares the bits, so that -0.0 and 0.0 or two NaNs are told apart or matched exactly.
bool SameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

void ExpectSame(const Inputs& in, const Outcome& expected, const Outcome& actual) {
    const std::string what = "reference " + std::to_string(in.reference) + " P " +
                             std::to_string(in.minP) + ".." + std::to_string(in.maxP) + " Q " +
                             std::to_string(in.minQ) + ".." + std::to_string(in.maxQ) + " target " +
                             std::to_string(in.target) + (in.largest ? " largest" : "") +
                             (in.cpll ? " cpll" : "");
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_TRUE(SameBits(actual.p[i], expected.p[i])) << what << " slot " << i;
        EXPECT_TRUE(SameBits(actual.q[i], expected.q[i])) << what << " slot " << i;
        EXPECT_EQ(actual.ppm[i], expected.ppm[i]) << what << " slot " << i;
    }
    EXPECT_EQ(actual.messages, expected.messages) << what;
}

TEST(FindPAndQWalk, RealisticRangesMatchThePlainWalkBitForBit) {
    std::mt19937_64 random(20021);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    int solved = 0;
    for (int n = 0; n < 1500; ++n) {
        Inputs in;
        in.reference = 1.0 + 199.0 * unit(random);
        in.minP = std::floor(1 + 30 * unit(random));
        in.maxP = in.minP + std::floor(4000 * unit(random));
        in.minQ = std::floor(1 + 5 * unit(random));
        in.maxQ = in.minQ + std::floor(1024 * unit(random));
        in.vcoMin = 10 + 200 * unit(random);
        in.vcoMax = in.vcoMin + 800 * unit(random);
        in.target = in.vcoMin * 0.98 + (in.vcoMax - in.vcoMin) * 1.04 * unit(random);
        in.largest = unit(random) < 0.5;
        in.cpll = unit(random) < 0.2;
        const Outcome expected = ReferenceWalk(in);
        EXPECT_TRUE(expected.messages.empty());
        if (expected.ppm[0] != mShared::kNoSolutionPPM)
            ++solved;
        ExpectSame(in, expected, Search(in));
    }
    // The inputs must really exercise the search, not only miss it.
    EXPECT_GT(solved, 1000);
}

TEST(FindPAndQWalk, RangesWhereChecksFireMatchThePlainWalk) {
    std::mt19937_64 random(4860);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const std::vector<double> references = {0.0,     -3.5,     1e-300,       1e300,
                                            1.7e308, 14.31818, std::nan(""), 4e9};
    const std::vector<double> targets = {0.0, 133.333333, -50.0, 1e308, 3e9, 9e15};
    int withErrors = 0;
    for (int n = 0; n < 600; ++n) {
        Inputs in;
        in.reference = references[random() % references.size()];
        in.target = targets[random() % targets.size()];
        in.minP = std::floor(-40 + 80 * unit(random));
        in.maxP = in.minP + std::floor(3e9 * unit(random) * unit(random));
        // Q ranges through zero and below it, and Q counters past the Long range.
        in.minQ = std::floor(-20 + 25 * unit(random));
        in.maxQ = unit(random) < 0.1 ? 3e9 : in.minQ + std::floor(300 * unit(random));
        in.vcoMin = unit(random) < 0.5 ? -1e308 : 0;
        in.vcoMax = unit(random) < 0.5 ? 1e308 : 9e9;
        in.largest = unit(random) < 0.5;
        in.cpll = unit(random) < 0.2;
        const Outcome expected = ReferenceWalk(in);
        if (!expected.messages.empty())
            ++withErrors;
        ExpectSame(in, expected, Search(in));
    }
    EXPECT_GT(withErrors, 100);
}

}  // namespace
}  // namespace pendulon
