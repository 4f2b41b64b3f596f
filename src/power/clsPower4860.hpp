#pragma once
#include "platform/ErrorReport.hpp"

namespace pendulon {

// Supply current of a QX4860 or QX6105A family chip, typical and worst case (mA), from the
// reference, the core (VCO) and the three output frequencies (MHz).
class clsPower4860 {
  public:
    explicit clsPower4860(ErrorReport& errors);

    double mdblReferenceFrequency = 0;
    double mdblFCore = 0;
    double mdblFClock1 = 0;
    double mdblFClock2 = 0;
    double mdblFClock3 = 0;

    // 3.3 or 5.0; anything else is refused and the supplies stay.
    void SetVDD(double value);
    // 1 typical, 0 worst case; any other case has no supply and gives 0.
    double CalculateICC(int intWhichCase) const;

  private:
    ErrorReport& errors_;
    double mdblVDDWorst = 5.5;
    double mdblVDDTypical = 5.0;
};

}  // namespace pendulon
