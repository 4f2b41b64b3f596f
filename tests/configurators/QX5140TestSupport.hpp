#pragma once
#include <memory>
#include <stdexcept>
#include <string>

#include "core/cls7311Die.hpp"
#include "core/clsPLL.hpp"
#include "core/clsQX7311.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "configurators/clsCaseSearch.hpp"
#include "configurators/frmQX5140.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

namespace pendulon::testing {

// The case search on its own loops, die and device rules, set up as the QX5140 window sets
// them: loop frequencies 8 to 100 MHz at 5 V (VCO 16 to 200) and 8 to 80 MHz at 3.3 V.
struct SearchRig {
    explicit SearchRig(double reference = 20.0, double voltage = 5.0)
        : errors(platform, [] { return std::string("Pendulon(tm) 3.71"); }),
          spll(errors),
          upll(errors),
          cpll(errors),
          die(errors),
          device(errors),
          search(errors, spll, upll, cpll, die, device) {
        die.mdblDefaultPLLMinimum3V = 8;
        die.mdblDefaultPLLMaximum3V = 80;
        die.mdblDefaultPLLMinimum5V = 8;
        die.mdblDefaultPLLMaximum5V = 100;
        die.SetDefaultLimits();
        die.mdblVoltage = voltage;
        Prepare(reference);
    }
    // Loops from the die, then reference and maximum Q, as Calculate does before a search.
    void Prepare(double reference) {
        search.InitializeAllPLLClasses(minimumOutput, maximumOutput);
        search.SetPLLValues(reference);
        inputs.dblReference = reference;
        search.mInputs = inputs;
    }
    // A fresh search with the inputs.
    bool Search() { return search.FindClockSources(true, inputs); }
    bool Step() { return search.FindClockSources(false, inputs); }
    void Desired(double a0, double a1, double b, double c) { inputs.adblDesired = {a0, a1, b, c}; }

    HeadlessPlatform platform;
    ErrorReport errors;
    clsPLL spll;
    clsPLL upll;
    clsPLL cpll;
    cls7311Die die;
    clsQX7311 device;
    clsCaseSearch search;
    clsCaseSearch::Inputs inputs;
    double minimumOutput = 0;
    double maximumOutput = 0;
};

using Rows = std::vector<clsCaseSearch::Row>;

// A running program with a new QX5140 document made as File, New makes it.
struct QX5140Document {
    QX5140Document() {
        app = std::make_unique<Application>(platform);
        app->Main().MDIForm_Load("");
        frmDevice& select = app->DeviceForm();
        select.CreateNew(true);
        select.OptionFor("QX5140")->SetValue(true);
        select.cmdOK_Click();
        if (app->Document() == nullptr)
            throw std::runtime_error("no QX5140 document");
    }
    frmQX5140& Form() { return dynamic_cast<frmQX5140&>(*app->Document()); }

    // A user types text into a field and leaves it.
    void Type(TextField& field, const std::string& text) {
        Form().SetFocusTo(&field);
        field.SetText(text);
        Form().SetFocusTo(nullptr);
    }
    static void Pick(ListField& list, const std::string& text) {
        for (int i = 0; i < list.ListCount(); ++i) {
            if (list.List(i) == text) {
                list.SetListIndex(i);
                return;
            }
        }
        throw std::runtime_error("no entry " + text);
    }
    void Calculate() { Form().cmdCalculate.RaiseClick(); }
    std::string Messages() const {
        std::string all;
        for (const auto& message : platform.Messages()) all += message.Text + "\n";
        return all;
    }

    HeadlessPlatform platform;
    std::unique_ptr<Application> app;
};

}  // namespace pendulon::testing
