#pragma once
#include "platform/ErrorReport.hpp"
#include "platform/ListField.hpp"
#include "platform/TextField.hpp"

namespace pendulon {

// The allowed reference range and the standard list of crystals.
class clsReference {
  public:
    explicit clsReference(ErrorReport& errors);

    // Write the numbers in general number form into the two fields.
    void GetCurrentLimits(TextField& txtMinimum, TextField& txtMaximum);
    // Writes the defaults, "1" and "30", without touching the stored limits.
    void GetDefaultLimits(TextField& txtMinimum, TextField& txtMaximum);
    // Fills the standard crystals and selects "14.31818 MHz".
    void InitializeReferenceComboBox(ListField& cboReference);
    double Maximum() const { return mdblMaximum; }
    void SetMaximum(double value) { mdblMaximum = value; }
    double Minimum() const { return mdblMinimum; }
    void SetMinimum(double value) { mdblMinimum = value; }
    void SetDefaultLimits();
    void SetNewLimits(double dblMinimum, double dblMaximum);

    static constexpr double kDefaultMinimum = 1;
    static constexpr double kDefaultMaximum = 30;

  private:
    ErrorReport& errors_;
    double mdblMinimum = kDefaultMinimum;
    double mdblMaximum = kDefaultMaximum;
};

}  // namespace pendulon
