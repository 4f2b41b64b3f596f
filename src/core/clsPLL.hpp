#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/ErrorReport.hpp"
#include "platform/ListField.hpp"

namespace pendulon {

// One phase-locked loop as a search problem: VCO = 2 x reference x P / Q. FindPAndQ walks Q and
// keeps three solutions: the closest of either sign (slot 0), the closest below the target
// (slot 1) and the closest above it (slot 2). A PPM of 5000000 marks an empty slot.
class clsPLL {
  public:
    explicit clsPLL(ErrorReport& errors);

    double mdblReferenceFrequency = 0;
    double mdblMaxQ = 0;
    double mdblMinQ = 2;
    double mdblMaxP = 0;
    double mdblMinP = 5;
    double mdblVCOMax = 9000000000.0;
    double mdblVCOMin = 0;
    double mdblTargetVCO = 0;

    std::int32_t BestPPM() const;
    // The solution kept in slot 0, 1 or 2 by the last search.
    struct Solution {
        double P = 0;
        double Q = 0;
        std::int32_t PPM = 0;
    };
    Solution Slot(std::size_t slot) const;
    void DisplayActual(ListField& cboIncoming, ListField& cboDestination, std::int16_t intDivisor);
    void DisplayActualPPM(ListField& cboIncoming, ListField& cboDestination, double dblDesired,
                          std::int32_t lngDivisor);
    // CPLL, when given and True, admits only ratios P/Q above 1.3 and is cleared on return.
    void FindPAndQ(bool blnFindLargestVCO = false, double dblReferenceFrequency = 0,
                   bool* CPLL = nullptr);
    void FindPAndQ(bool blnFindLargestVCO, double dblReferenceFrequency, bool& CPLL) {
        FindPAndQ(blnFindLargestVCO, dblReferenceFrequency, &CPLL);
    }
    std::string GetActualFrequencyPPM(double dblFrequency, std::int32_t lngPPM);
    double GetP(std::string_view strS);
    std::string GetPLLDataString(std::int16_t intWhichCase);
    double GetPPM(std::string_view strIncomingString);
    double GetQ(std::string_view strS);
    double GetVCO(std::string_view strS);
    // May replace the caller's P and Q by the minima.
    std::string GetVCOPAndQ(double& dblP, double& dblQ);
    double PValue() const;
    void ResetP();
    void StoreActualPPM(ListField& cboIncoming, std::int16_t intDivisor);
    void StorePLLData(ListField& cboDestination);
    void StoreVCOPAndQ(ListField& cboDestination, double dblP, double dblQ);

  private:
    // Checked arithmetic: reports the error with the operation's source and returns false,
    // leaving the target as it was.
    bool Divide(double numerator, double denominator, double& result, const char* source);
    bool ToLongChecked(double value, std::int32_t& result, const char* source);
    bool Multiply(double a, double b, double& result, const char* source);

    ErrorReport& errors_;
    std::array<double, 3> madblP{};
    std::array<double, 3> madblQ{};
    std::array<std::int32_t, 3> malngPPM{};
    // Cleared by every search; nothing reads it.
    std::array<double, 3> madblVCO{};
};

}  // namespace pendulon
