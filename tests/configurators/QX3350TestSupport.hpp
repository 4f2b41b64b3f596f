#pragma once
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "configurators/frmQX3350.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

namespace pendulon::testing {

// A running program with a new QX3350 document made as File, New makes it.
struct QX3350Document {
    explicit QX3350Document(const std::string& device = "QX3350") {
        app = std::make_unique<Application>(platform);
        frmDevice& select = app->DeviceForm();
        select.CreateNew(true);
        select.OptionFor(device)->SetValue(true);
        select.cmdOK_Click();
    }
    frmQX3350& Form() { return dynamic_cast<frmQX3350&>(*app->Document()); }

    // A user types text into a field and leaves it.
    void Type(TextField& field, const std::string& text) {
        Form().SetFocusTo(&field);
        field.SetText(text);
        Form().SetFocusTo(nullptr);
    }
    void TypeReference(const std::string& text) {
        Form().SetFocusTo(&Form().cboFRef);
        Form().cboFRef.SetText(text);
        Form().SetFocusTo(nullptr);
    }
    // A user picks the entry with this text.
    static void Pick(ListField& list, const std::string& text) {
        for (int i = 0; i < list.ListCount(); ++i) {
            if (list.List(i) == text) {
                list.SetListIndex(i);
                return;
            }
        }
        throw std::runtime_error("no entry " + text);
    }
    std::string HintLine() const { return app->Main().lblHelpInfo.Caption(); }
    // The text of every message box shown so far, one after another.
    std::string MessageTexts() const {
        std::string all;
        for (const auto& message : platform.Messages()) all += message.Text + "\n";
        return all;
    }

    HeadlessPlatform platform;
    std::unique_ptr<Application> app;
};

// Window settings of the golden cases of the QX3350 entry file, vector and document;
// tests/data/make_3350_goldens.py and make_3350_documents.py work out what they must give.
struct Case3350 {
    std::string device;
    bool volt5;
    bool soic;
    bool crystal;
    std::string reference;
    std::string pll;  // empty: left as it is
    std::string divisor;
    bool ttl;
    bool oe;
    bool sync;
    std::vector<std::string> data;
    std::vector<std::string> actual;
    int index;
    std::string revision;
};

inline const std::map<std::string, Case3350>& Cases3350() {
    static const std::map<std::string, Case3350> cases = {
        {"QX3350_SC",
         {"QX3350",
          true,
          true,
          true,
          "14.31818",
          "120",
          "PLL/2",
          true,
          false,
          false,
          {"119.999985 P:88 Q:21"},
          {"59.99999  PPM:0"},
          0,
          "01"}},
        {"QX3350_TZ",
         {"QX3350",
          false,
          false,
          false,
          "25",
          "160",
          "PLL/8",
          false,
          true,
          true,
          {"160.000000 P:768 Q:240"},
          {"20.00000  PPM:0"},
          0,
          "B2"}},
        {"QX3350I_SC",
         {"QX3350I",
          true,
          true,
          true,
          "20",
          "",
          "Ref/4",
          true,
          false,
          false,
          {"0.000000 P:24 Q:20"},
          {"5.00000  PPM:0"},
          0,
          "01"}},
        {"QX3350I_TZ",
         {"QX3350I",
          false,
          false,
          false,
          "50",
          "170",
          "PLL/128",
          false,
          true,
          false,
          {"170.000000 P:1530 Q:900"},
          {"1.32813  PPM:0"},
          0,
          "7"}},
        {"QX3350_P2750",
         {"QX3350",
          true,
          true,
          true,
          "30",
          "250",
          "PLL",
          true,
          true,
          true,
          {"250.010000 P:2751 Q:660", "249.998000 P:2750 Q:660"},
          {"250.01000  PPM:40", "249.99800  PPM:-8"},
          1,
          "01"}},
    };
    return cases;
}

inline void FillList(ListField& list, const std::vector<std::string>& entries, int index) {
    list.Clear();
    for (const auto& entry : entries) list.AddItem(entry);
    list.SetListIndex(index);
}

// A user types text into a field of the window and leaves it.
inline void TypeInto(frmQX3350& form, Field& field, const std::string& text) {
    form.SetFocusTo(&field);
    if (auto* list = dynamic_cast<ListField*>(&field))
        list->SetText(text);
    else
        static_cast<TextField&>(field).SetText(text);
    form.SetFocusTo(nullptr);
}

// Sets the window up for a case as a user would: options, reference, frequency and divisor,
// Calculate; then the data lists take the case's solutions, as a user picks one.
inline void ConfigureCase(frmQX3350& form, const Case3350& c) {
    (c.volt5 ? form.opt5V : form.opt3V).SetValue(true);
    (c.crystal ? form.optCrystal : form.optExternal).SetValue(true);
    TypeInto(form, form.cboFRef, c.reference);
    if (c.volt5)
        (c.ttl ? form.optTTL : form.optCMOS).SetValue(true);
    (c.oe ? form.optOutputEnable : form.optPowerDown).SetValue(true);
    form.chkSynchronous.SetValue(c.sync ? 1 : 0);
    (c.soic ? form.optSOIC : form.optTSSOP).SetValue(true);
    if (!c.pll.empty())
        TypeInto(form, form.txtPLL, c.pll);
    QX3350Document::Pick(form.cboClockDivisors, c.divisor);
    form.cmdCalculate_Click();
    FillList(form.cboPLLData, c.data, c.index);
    FillList(form.cboActual, c.actual, c.index);
}

}  // namespace pendulon::testing
