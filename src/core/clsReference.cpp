#include "core/clsReference.hpp"

#include "core/Numbers.hpp"

namespace pendulon {

clsReference::clsReference(ErrorReport& errors) : errors_(errors) {}

void clsReference::GetCurrentLimits(TextField& txtMinimum, TextField& txtMaximum) {
    txtMinimum.SetText(GeneralNumber(mdblMinimum));
    txtMaximum.SetText(GeneralNumber(mdblMaximum));
}

void clsReference::GetDefaultLimits(TextField& txtMinimum, TextField& txtMaximum) {
    txtMinimum.SetText(GeneralNumber(kDefaultMinimum));
    txtMaximum.SetText(GeneralNumber(kDefaultMaximum));
}

void clsReference::InitializeReferenceComboBox(ListField& cboReference) {
    // The order is the product's own; 18.432 before 16.9344 is kept.
    static constexpr const char* kCrystals[] = {
        "11.05920 MHz", "12.00000 MHz", "12.28800 MHz", "14.31818 MHz", "14.74560 MHz",
        "16.00000 MHz", "18.43200 MHz", "16.93440 MHz", "17.73448 MHz", "19.66080 MHz",
        "20.00000 MHz", "22.11840 MHz", "24.57600 MHz", "25.00000 MHz"};
    cboReference.Clear();
    for (const char* crystal : kCrystals) cboReference.AddItem(crystal);
    if (!cboReference.SetListIndex(3))
        errors_.Raise(380, "clsReference.InitializeReferenceComboBox", "Invalid property value");
}

void clsReference::SetDefaultLimits() {
    mdblMinimum = kDefaultMinimum;
    mdblMaximum = kDefaultMaximum;
}

void clsReference::SetNewLimits(double dblMinimum, double dblMaximum) {
    mdblMinimum = dblMinimum;
    mdblMaximum = dblMaximum;
}

}  // namespace pendulon
