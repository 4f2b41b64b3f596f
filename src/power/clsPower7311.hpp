#pragma once
#include "platform/ErrorReport.hpp"

namespace pendulon {

// Supply current of a QX7311 family chip or a QX5140, typical and worst case, from the supply,
// the load and the running frequencies (MHz). Currents are in milliamperes.
class clsPower7311 {
  public:
    explicit clsPower7311(ErrorReport& errors);

    double mdblCPU = 0;
    double mdblClockA = 0;
    double mdblClockB = 0;
    double mdblClockC = 0;
    double mdblClockD = 0;
    double mdblClockF = 0;
    double mdblXBuff = 0;
    double mdblCPLL = 0;
    double mdblSPLL = 0;
    double mdblUPLL = 0;

    // 1 typical, 0 worst case.
    double GetIDD(double dblWhichCase);
    // 3.3 or 5.0; anything else is refused and the constants stay.
    void SetVDD(double value);

  private:
    ErrorReport& errors_;
    double mdblVDDWorst = 5.5;
    double mdblVDDTypical = 5.0;
    double mdblIdle = 2.6;
    double mdblPLLSlope = 0.011;
    double mdblLoadSlope = 0.0017;
};

}  // namespace pendulon
