#pragma once
#include <map>
#include <string>
#include <vector>

#include "entryfile/EntryFileHost.hpp"
#include "platform/CheckBox.hpp"
#include "platform/CommandButton.hpp"
#include "platform/ControlArray.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"

namespace pendulon::test {

// The program around the entry-file class: fixed title texts and header, a detail switch,
// and records of the status and hint lines.
class FakeHost : public EntryFileHost {
public:
    explicit FakeHost(ErrorReport& errors) : errors_(errors) {}
    ErrorReport& Errors() override { return errors_; }
    std::string Title() override { return "Pendulon(tm) 3.71"; }
    std::string Build() override { return "Build #: 3.71.010"; }
    std::string EntryFileHeader() override;
    std::string Revision() override { return revision; }
    std::string SummaryFilename() override { return summaryFilename; }
    bool SaveEntryFileDescription() override { return details; }
    std::string RecentFileCaption() override { return recentCaption; }
    void DisplayStatus(const std::string& text) override { status.push_back(text); }
    void ShowHelp(const std::string& text) override { hints.push_back(text); }

    std::string revision = "01";
    std::string summaryFilename;
    std::string recentCaption;
    bool details = true;
    std::vector<std::string> status;
    std::vector<std::string> hints;

private:
    ErrorReport& errors_;
};

// A divider list as the device windows fill it: "/1" to "/8", then "Off" at index 8.
void FillDividerList(ListField& list);
// A reference list holding one entry, selected.
void SetReferenceText(ListField& list, const std::string& text);
// A PLL data list holding one entry, selected.
void SetPLLData(ListField& list, const std::string& text);

// The fields of a configurator that the entry file reads, registered by name.
class FakeFormBase : public Window, public EntryForm {
public:
    FakeFormBase(std::string name, std::string device, int plls);
    std::string Device() const override { return device; }
    bool PreScale(int index) const override;
    void SetPreScale(int index, bool value) override { prescale[index] = value; }
    void cmdApplyLimits_Click() override { ++applyLimitsClicks; }
    void StoreVCOPAndQ(ListField& list, double reference, double p, double q) override;
    Window& Fields() override { return *this; }

    std::string device;
    std::map<int, bool> prescale;
    int applyLimitsClicks = 0;
    std::vector<std::string> storedPQ;

    OptionButton opt5V, opt3V;
    ListField cboFRef;
    ControlArray<TextField> txtPLL;
    ControlArray<ListField> cboPLLData;
    CheckBox chkSmoothSlew;
    CommandButton cmdApplyLimits;
};

class Fake4860Form : public FakeFormBase {
public:
    explicit Fake4860Form(std::string device = "QX4860");
    OptionButton opt14Pin, opt8Pin;
    ListField cboClkADiv, cboRefClkDiv;
    CheckBox chkOEClockA, chkOEReference, chkPowerDown, chkPLLStop, chkPLLAndOscillatorStop;
};

class Fake6105AForm : public FakeFormBase {
public:
    explicit Fake6105AForm(std::string device = "QX6105A");
    OptionButton optFS, optOE;
    ControlArray<ListField> cboClkDiv{3};
};

}  // namespace pendulon::test
