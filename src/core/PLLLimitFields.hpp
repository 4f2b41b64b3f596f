#pragma once
#include <string>
#include <vector>

#include "core/LimitForm.hpp"
#include "core/Numbers.hpp"
#include "core/clsReference.hpp"
#include "core/mShared.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/Label.hpp"
#include "platform/TextField.hpp"

namespace pendulon::PLLLimitFields {

constexpr long kControlElementMissing = 340;

// A text field of the form by name; a missing one is reported and gives nullptr.
inline TextField* Text(LimitForm& form, const std::string& name, ErrorReport& errors,
                       const std::string& source) {
    TextField* field = form.Fields().FindAs<TextField>(name);
    if (field == nullptr)
        errors.Raise(kControlElementMissing, source,
                     "Control array element '" + name + "' doesn't exist");
    return field;
}

// The device name shown by the form.
inline std::string DeviceName(LimitForm& form) {
    const Field* label = form.Fields().Find("lblDevice");
    return label != nullptr ? label->Caption() : std::string();
}

// "(i)", the index part of a field's name.
inline std::string IndexText(size_t i) {
    std::string index(1, '(');
    index += std::to_string(i);
    index += ')';
    return index;
}

// Fills the user-limits fields from the reference and die: the defaults when the form's flag of
// the die's voltage is set, else the present limits. VCO elements (i mod 3 = 0) are shown as
// short frequencies, P and Q as plain numbers.
template <class Die>
void GetCurrent(LimitForm& frmInput, clsReference& objReference, Die& objDie, ErrorReport& errors,
                const std::string& source) {
    const bool useDefaults =
        objDie.mdblVoltage == 3.3 ? frmInput.mblnUseDefaults3V : frmInput.mblnUseDefaults5V;
    std::vector<double> adblMinimum(Die::kElements, 0.0);
    std::vector<double> adblMaximum(Die::kElements, 0.0);
    TextField* txtFRefMin = Text(frmInput, "txtFRefMin", errors, source);
    TextField* txtFRefMax = Text(frmInput, "txtFRefMax", errors, source);
    if (useDefaults) {
        if (txtFRefMin != nullptr && txtFRefMax != nullptr)
            objReference.GetDefaultLimits(*txtFRefMin, *txtFRefMax);
        objDie.GetDefaultLimits(adblMinimum, adblMaximum);
    } else {
        if (txtFRefMin != nullptr && txtFRefMax != nullptr)
            objReference.GetCurrentLimits(*txtFRefMin, *txtFRefMax);
        objDie.GetCurrentLimits(adblMinimum, adblMaximum);
    }
    for (size_t i = 0; i < adblMinimum.size(); ++i) {
        const std::string index = IndexText(i);
        TextField* txtMin = Text(frmInput, "txtPLLMin" + index, errors, source);
        TextField* txtMax = Text(frmInput, "txtPLLMax" + index, errors, source);
        const bool frequency = i % 3 == 0;
        if (txtMin != nullptr)
            txtMin->SetText(frequency ? mShared::FormatFrequencyShort(adblMinimum[i])
                                      : GeneralNumber(adblMinimum[i]));
        if (txtMax != nullptr)
            txtMax->SetText(frequency ? mShared::FormatFrequencyShort(adblMaximum[i])
                                      : GeneralNumber(adblMaximum[i]));
    }
}

// The way back: the fields, read by the leading-number rule, become the reference's and the
// die's limits at the die's present voltage.
template <class Die>
void SetNew(LimitForm& frmInput, clsReference& objReference, Die& objDie, ErrorReport& errors,
            const std::string& source) {
    TextField* txtFRefMin = Text(frmInput, "txtFRefMin", errors, source);
    TextField* txtFRefMax = Text(frmInput, "txtFRefMax", errors, source);
    const double minimum = txtFRefMin != nullptr ? Val(txtFRefMin->Text()) : objReference.Minimum();
    const double maximum = txtFRefMax != nullptr ? Val(txtFRefMax->Text()) : objReference.Maximum();
    objReference.SetNewLimits(minimum, maximum);
    // Elements whose field is missing keep the die's present value.
    std::vector<double> adblMinimum(Die::kElements, 0.0);
    std::vector<double> adblMaximum(Die::kElements, 0.0);
    objDie.GetCurrentLimits(adblMinimum, adblMaximum);
    for (size_t i = 0; i < adblMinimum.size(); ++i) {
        const std::string index = IndexText(i);
        if (TextField* txtMin = Text(frmInput, "txtPLLMin" + index, errors, source))
            adblMinimum[i] = Val(txtMin->Text());
        if (TextField* txtMax = Text(frmInput, "txtPLLMax" + index, errors, source))
            adblMaximum[i] = Val(txtMax->Text());
    }
    objDie.SetNewLimits(adblMinimum, adblMaximum);
}

}  // namespace pendulon::PLLLimitFields

namespace pendulon {

// The limit exchange a device's rules offer: the user-limit fields of a window to and from the
// reference and the die (Die). name is the rules class's name, the source of its error reports.
template <class Die>
class PLLLimitRules {
  public:
    PLLLimitRules(ErrorReport& errors, const char* name) : errors_(errors), name_(name) {}

    void GetCurrentPLLLimits(LimitForm& frmInput, clsReference& objReference, Die& objDie) {
        PLLLimitFields::GetCurrent(frmInput, objReference, objDie, errors_,
                                   name_ + ".GetCurrentPLLLimits");
    }
    void SetNewPLLLimits(LimitForm& frmInput, clsReference& objReference, Die& objDie) {
        PLLLimitFields::SetNew(frmInput, objReference, objDie, errors_,
                               name_ + ".SetNewPLLLimits");
    }

  protected:
    ErrorReport& errors_;

  private:
    std::string name_;
};

}  // namespace pendulon
