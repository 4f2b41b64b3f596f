#pragma once
#include <cstdint>
#include <span>

namespace pendulon {

// Finds one VCO frequency that two or three outputs reach through dividers of one loop: the
// dividers d1, d2, d3 for which d1 x F1, d2 x F2 (and d3 x F3) lie closest together, the VCO
// being the largest product. A loop shared by outputs of the QX5140 runs at that frequency.
class clsQX5140 {
  public:
    // The dividers found for the first, second and third frequency; 0 when none.
    std::int16_t mdblMux1 = 0;
    std::int16_t mdblMux2 = 0;
    std::int16_t mdblMux3 = 0;

    // The common VCO frequency found, 0 when none.
    double VCO() const { return mdblVCO; }

    // A dblF30 of 0 means two outputs. The last entry of aintDivisors is never tried. The
    // search allocates nothing and stops at the first solution with an error of 0.
    void FindCommonVCO(double dblF10, double dblF20, double dblF30,
                       std::span<const std::int16_t> aintDivisors, double dblMaximumVCO,
                       double dblMinimumVCO, std::int32_t lngMaximumPPM);

    // Rounds of the last search that reached the limit test, for measurement.
    std::int32_t Rounds() const { return mlngRounds; }

    static double GetMaximumFrequency(double dblFirst, double dblSecond, double dblThird);

  private:
    double mdblVCO = 0;
    // The error of the best solution in PPM: one pair's error, or the sum of the three pairs'.
    std::int32_t mlngBestError = 5000000;
    std::int32_t mlngRounds = 0;
};

}  // namespace pendulon
