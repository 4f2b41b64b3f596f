#pragma once
#include <map>
#include <string>

#include "EntryTestSupport.hpp"
#include "app/Configurator.hpp"
#include "platform/CheckBox.hpp"
#include "platform/CommandButton.hpp"
#include "platform/ControlArray.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/TextField.hpp"
#include "shell/Application.hpp"

namespace pendulon::test {

// A headless application with fixed title texts, date and summary fields, so that the header
// block of an entry file is known.
struct AppFixture : ReportFixture {
    AppFixture();
    Application app{platform};
};

// A divider list as the device windows fill it: "/1" to "/8", then "Off" at index 8.
void FillDividerList(ListField& list);
// A list holding one entry, selected.
void SetOnlyEntry(ListField& list, const std::string& text);

// A configurator with just the fields the entry file reads, registered by name.
class FakeFormBase : public Configurator {
  public:
    FakeFormBase(Application& app, std::string name, std::string device, int plls);

    std::string Device() const override { return device; }
    void SetDevice(const std::string& value) override { device = value; }
    std::string Checksum() override { return {}; }
    bool FillForm(clsEntryFile&, const std::string&) override { return true; }
    bool Save() override { return false; }
    bool MakeEntryFile(const std::string&) override { return false; }
    bool MakeEPROMVector(const std::string&, bool) override { return false; }
    std::string PinName(int) const override { return {}; }
    void CalculatePower() override {}
    void DisplayAllActuals() override {}
    bool PreScale(int index) const override;
    void SetPreScale(int index, bool value) override { prescale[index] = value; }
    void cmdApplyLimits_Click() override { ++applyLimitsClicks; }
    void cmdCalculate_Click() override {}
    void Form_Load() override {}

    std::string device;
    std::map<int, bool> prescale;
    int applyLimitsClicks = 0;

    OptionButton opt5V, opt3V;
    ControlArray<TextField> txtPLL;
    ControlArray<ListField> cboPLLData;
    CheckBox chkSmoothSlew;
    CommandButton cmdApplyLimits;
};

class Fake4860Form : public FakeFormBase {
  public:
    Fake4860Form(Application& app, std::string device = "QX4860");
    OptionButton opt14Pin, opt8Pin;
    ListField cboClkADiv, cboRefClkDiv;
    CheckBox chkOEClockA, chkOEReference, chkPowerDown, chkPLLStop, chkPLLAndOscillatorStop;
};

class Fake6105AForm : public FakeFormBase {
  public:
    Fake6105AForm(Application& app, std::string device = "QX6105A");
    OptionButton optFS, optOE;
    ControlArray<ListField> cboClkDiv{3};
};

}  // namespace pendulon::test
