#include "core/clsPLL.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <type_traits>

#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"

namespace pendulon {

namespace {
constexpr std::int32_t kNoSolution = mShared::kNoSolutionPPM;
constexpr const char* kFindPAndQ = "clsPLL.FindPAndQ";
constexpr const char* kGetVCOPAndQ = "clsPLL.GetVCOPAndQ";
constexpr const char* kStoreActualPPM = "clsPLL.StoreActualPPM";
constexpr const char* kDisplayActual = "clsPLL.DisplayActual";
constexpr const char* kDisplayActualPPM = "clsPLL.DisplayActualPPM";
constexpr long kInvalidPropertyValue = 380;

std::int32_t AbsLong(std::int32_t value) {
    return value < 0 ? -value : value;
}
}  // namespace

clsPLL::clsPLL(ErrorReport& errors) : errors_(errors) {}

bool clsPLL::Divide(double numerator, double denominator, double& result, const char* source) {
    if (denominator == 0) {
        // 0 / 0 is an overflow, anything else over 0 a division by zero.
        errors_.Raise(
            numerator == 0 || std::isnan(numerator) ? errors::Overflow : errors::DivisionByZero,
            source);
        return false;
    }
    const double value = numerator / denominator;
    if (!std::isfinite(value)) {
        errors_.Raise(errors::Overflow, source);
        return false;
    }
    result = value;
    return true;
}

bool clsPLL::Multiply(double a, double b, double& result, const char* source) {
    const double value = a * b;
    if (!std::isfinite(value)) {
        errors_.Raise(errors::Overflow, source);
        return false;
    }
    result = value;
    return true;
}

bool clsPLL::ToLongChecked(double value, std::int32_t& result, const char* source) {
    const auto converted = ToLong(value);
    if (!converted) {
        errors_.Raise(errors::Overflow, source);
        return false;
    }
    result = *converted;
    return true;
}

std::int32_t clsPLL::BestPPM() const {
    return malngPPM[0];
}

clsPLL::Solution clsPLL::Slot(std::size_t slot) const {
    return {madblP.at(slot), madblQ.at(slot), malngPPM.at(slot)};
}

double clsPLL::PValue() const {
    return madblP[0];
}

void clsPLL::ResetP() {
    madblP[0] = 5;
}

void clsPLL::FindPAndQ(bool blnFindLargestVCO, double dblReferenceFrequency, bool* CPLL) {
    for (int i = 0; i < 3; ++i) {
        malngPPM[i] = kNoSolution;
        madblVCO[i] = 0;
        madblP[i] = mdblMinP;
        madblQ[i] = mdblMinQ;
    }
    const bool ratioFilter = CPLL != nullptr && *CPLL;

    // A target up to one per cent outside the VCO range is still searched.
    const bool feasible = !(mdblTargetVCO * 1.01 < mdblVCOMin || mdblTargetVCO * 0.99 > mdblVCOMax);
    if (feasible) {
        double dblRatio = 0;
        double half = mdblTargetVCO / 2.0;
        Divide(half, mdblReferenceFrequency, dblRatio, kFindPAndQ);

        // The smallest Q itself is never tried.
        std::int32_t lngLow = 0;
        std::int32_t lngHigh = 0;
        ToLongChecked(mdblMinQ + 1, lngLow, kFindPAndQ);
        ToLongChecked(mdblMaxQ, lngHigh, kFindPAndQ);

        const long long first = blnFindLargestVCO ? lngHigh : lngLow;
        const long long last = blnFindLargestVCO ? lngLow : lngHigh;
        const long long step = blnFindLargestVCO ? -1 : 1;
        const double twiceReference = 2.0 * mdblReferenceFrequency;

        // When every Q of the walk is 1 or more, no check inside the walk can fire: the
        // reference over Q stays finite, the ratio times the largest Q stays finite and rounds
        // into the Long range (so does it for every smaller Q), P / Q is at most |P| <= 2^31,
        // and twice the reference times that stays finite. Such a walk runs without the checks;
        // it does the same operations in the same order, so every result is the same.
        const long long lowestQ = std::min(first, last);
        const long long highestQ = std::max(first, last);
        const bool unchecked =
            lowestQ >= 1 && std::isfinite(mdblReferenceFrequency) &&
            std::fabs(dblRatio * static_cast<double>(highestQ)) <= 2147483647.0 &&
            std::isfinite(twiceReference * 2147483648.0);

        std::int32_t lngP0 = 0;
        double dblPerQ = 0;
        double dblProduct = 0;
        double dblActual = 0;
        double dblVCO = 0;
        const auto walk = [&](auto checked) {
            constexpr bool kChecked = decltype(checked)::value;
            for (long long q = first; step > 0 ? q <= last : q >= last; q += step) {
                const double dblQ = static_cast<double>(q);
                if constexpr (kChecked) {
                    // The guard on the comparison frequency can never remove a Q:
                    // (Not A And Not B) And A is always False. The division still happens, for
                    // the errors it may report.
                    Divide(mdblReferenceFrequency, dblQ, dblPerQ, kFindPAndQ);
                    const bool a = dblReferenceFrequency != 0;
                    const bool b = dblPerQ < dblReferenceFrequency;
                    if ((!a && !b) && a)
                        continue;

                    if (Multiply(dblRatio, dblQ, dblProduct, kFindPAndQ))
                        ToLongChecked(dblProduct, lngP0, kFindPAndQ);
                } else {
                    lngP0 = static_cast<std::int32_t>(RoundHalfEven(dblRatio * dblQ));
                }

                for (long long p = static_cast<long long>(lngP0) - 1; p <= lngP0 + 1LL; ++p) {
                    const double dblP = static_cast<double>(p);
                    if (dblP < mdblMinP || dblP > mdblMaxP)
                        continue;
                    if constexpr (kChecked) {
                        Divide(dblP, dblQ, dblActual, kFindPAndQ);
                    } else {
                        dblActual = dblP / dblQ;
                    }
                    const std::int32_t lngPPM = mShared::CalculatePPM(dblActual, dblRatio);
                    if constexpr (kChecked) {
                        Multiply(twiceReference, dblActual, dblVCO, kFindPAndQ);
                    } else {
                        dblVCO = twiceReference * dblActual;
                    }
                    if (dblVCO < mdblVCOMin || dblVCO > mdblVCOMax)
                        continue;
                    if (ratioFilter && !(dblActual > 1.3))
                        continue;
                    const std::int32_t absPPM = AbsLong(lngPPM);
                    if (absPPM < AbsLong(malngPPM[0])) {
                        malngPPM[0] = lngPPM;
                        madblP[0] = dblP;
                        madblQ[0] = dblQ;
                    }
                    if (absPPM < AbsLong(malngPPM[1]) && lngPPM < 0) {
                        malngPPM[1] = lngPPM;
                        madblP[1] = dblP;
                        madblQ[1] = dblQ;
                    }
                    if (lngPPM < malngPPM[2] && lngPPM > 0) {
                        malngPPM[2] = lngPPM;
                        madblP[2] = dblP;
                        madblQ[2] = dblQ;
                    }
                }
            }
        };
        if (unchecked)
            walk(std::false_type{});
        else
            walk(std::true_type{});
    }
    // Cleared on every way out, the infeasible one included.
    if (CPLL != nullptr && *CPLL)
        *CPLL = false;
}

std::string clsPLL::GetVCOPAndQ(double& dblP, double& dblQ) {
    double dblVCO = 0;
    if (dblP < mdblMinP || dblQ < mdblMinQ) {
        dblP = mdblMinP;
        dblQ = mdblMinQ;
        dblVCO = 0;
    } else if (dblP == mdblMinP && dblQ == mdblMinQ) {
        // The minima mark an empty slot.
        dblVCO = 0;
    } else {
        double product = 0;
        if (Multiply(2.0 * mdblReferenceFrequency, dblP, product, kGetVCOPAndQ))
            Divide(product, dblQ, dblVCO, kGetVCOPAndQ);
    }
    return FormatNumber(dblVCO, "0.000000 ") + "P:" + GeneralNumber(dblP) +
           " Q:" + GeneralNumber(dblQ);
}

std::string clsPLL::GetPLLDataString(std::int16_t intWhichCase) {
    if (intWhichCase < 0 || intWhichCase > 2) {
        errors_.Raise(errors::SubscriptOutOfRange, "clsPLL.GetPLLDataString");
        return {};
    }
    const auto i = static_cast<size_t>(intWhichCase);
    // Slots 1 and 2 are dropped when their PPM equals slot 0's, whatever their P and Q.
    if (i != 0 && (malngPPM[i] == malngPPM[0] || malngPPM[i] == kNoSolution))
        return {};
    double dblP = madblP[i];
    double dblQ = madblQ[i];
    return GetVCOPAndQ(dblP, dblQ);
}

void clsPLL::StorePLLData(ListField& cboDestination) {
    cboDestination.Clear();
    for (std::int16_t i = 0; i <= 2; ++i) {
        std::string text = GetPLLDataString(i);
        if (!text.empty())
            cboDestination.AddItem(std::move(text));
    }
    if (cboDestination.ListCount() == 0)
        cboDestination.AddItem("Off");
    cboDestination.SetListIndex(0);
}

void clsPLL::StoreVCOPAndQ(ListField& cboDestination, double dblP, double dblQ) {
    std::string text = GetVCOPAndQ(dblP, dblQ);
    cboDestination.Clear();
    cboDestination.AddItem(std::move(text));
    cboDestination.SetListIndex(0);
}

std::string clsPLL::GetActualFrequencyPPM(double dblFrequency, std::int32_t lngPPM) {
    return mShared::FormatFrequencyFixed(dblFrequency, -2) + "  PPM:" + IntegerText(lngPPM);
}

void clsPLL::StoreActualPPM(ListField& cboIncoming, std::int16_t intDivisor) {
    cboIncoming.Clear();
    double dblFrequency = 0;
    for (size_t i = 0; i < 3; ++i) {
        // Only P is compared here, unlike GetPLLDataString.
        if (i != 0 && madblP[i] == madblP[0])
            continue;
        if (!(madblP[i] > mdblMinP))
            continue;
        double product = 0;
        double perQ = 0;
        if (Multiply(2.0 * mdblReferenceFrequency, madblP[i], product, kStoreActualPPM) &&
            Divide(product, madblQ[i], perQ, kStoreActualPPM))
            Divide(perQ, static_cast<double>(intDivisor), dblFrequency, kStoreActualPPM);
        cboIncoming.AddItem(GetActualFrequencyPPM(dblFrequency, malngPPM[i]));
    }
    if (cboIncoming.ListCount() == 0)
        cboIncoming.AddItem("Off");
    cboIncoming.SetListIndex(0);
}

void clsPLL::DisplayActual(ListField& cboIncoming, ListField& cboDestination,
                           std::int16_t intDivisor) {
    cboDestination.Clear();
    for (int i = 0; i < cboIncoming.ListCount(); ++i) {
        double value = 0;
        // A failed division drops the entry: the whole statement is skipped.
        if (Divide(Val(cboIncoming.List(i)), static_cast<double>(intDivisor), value,
                   kDisplayActual))
            cboDestination.AddItem(mShared::FormatFrequencyFixed(value, mShared::kNoPadding));
    }
    if (cboDestination.ListCount() == 0)
        cboDestination.AddItem("Off");
    if (!cboDestination.SetListIndex(cboIncoming.ListIndex()))
        errors_.Raise(kInvalidPropertyValue, kDisplayActual, "Invalid property value");
}

void clsPLL::DisplayActualPPM(ListField& cboIncoming, ListField& cboDestination, double dblDesired,
                              std::int32_t lngDivisor) {
    std::int32_t lngBestPPM = 5000001;
    std::string strBest;
    cboDestination.Clear();
    double dblActual = 0;
    for (int i = 0; i < cboIncoming.ListCount(); ++i) {
        const double value = Val(cboIncoming.List(i));
        if (!(value > 0))
            continue;
        Divide(value, static_cast<double>(lngDivisor), dblActual, kDisplayActualPPM);
        const std::int32_t lngPPM = mShared::CalculatePPM(dblActual, dblDesired);
        std::string text = GetActualFrequencyPPM(dblActual, lngPPM);
        cboDestination.AddItem(text);
        if (AbsLong(lngPPM) < AbsLong(lngBestPPM)) {
            lngBestPPM = lngPPM;
            strBest = std::move(text);
        }
    }
    if (cboDestination.ListCount() > 0) {
        for (int i = 0; i < cboDestination.ListCount(); ++i) {
            if (cboDestination.List(i) == strBest) {
                cboDestination.SetListIndex(i);
                break;
            }
        }
    } else {
        cboDestination.AddItem("Off");
        cboDestination.SetListIndex(0);
    }
}

double clsPLL::GetP(std::string_view strS) {
    return Val(Trim(mShared::GetSubstring(strS, "P:", "Q:")));
}

double clsPLL::GetQ(std::string_view strS) {
    return Val(Trim(mShared::GetSubstring(strS, "Q:", "")));
}

double clsPLL::GetPPM(std::string_view strIncomingString) {
    return Val(Trim(mShared::GetSubstring(strIncomingString, "PPM:", "")));
}

double clsPLL::GetVCO(std::string_view strS) {
    return Val(strS);
}

}  // namespace pendulon
