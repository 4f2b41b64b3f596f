#pragma once
#include <memory>
#include <stdexcept>
#include <string>

#include "configurators/frmQX4860.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

namespace pendulon::testing {

// A running program with a new QX4860 family document made as File, New makes it.
struct QX4860Document {
    explicit QX4860Document(const std::string& device = "QX4860", bool wizard8Pin = false) {
        app = std::make_unique<Application>(platform);
        app->Main().MDIForm_Load("");
        app->gblnWizard8Pin = wizard8Pin;
        frmDevice& select = app->DeviceForm();
        select.CreateNew(true);
        select.OptionFor(device)->SetValue(true);
        select.cmdOK_Click();
        if (app->Document() == nullptr)
            throw std::runtime_error("no document for " + device);
    }
    frmQX4860& Form() { return dynamic_cast<frmQX4860&>(*app->Document()); }

    // A user types text into a field and leaves it.
    void Type(TextField& field, const std::string& text) {
        Form().SetFocusTo(&field);
        field.SetText(text);
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
    // Clock A from the PLL through the divider, the reference clock from the PLL, and a
    // 20 MHz reference: the arithmetic of the hand-worked cases stays simple.
    void UsePLL(const std::string& clockA = "PLL/2", const std::string& reference = "PLL") {
        Pick(Form().cboFRef, "20.00000 MHz");
        Pick(Form().cboClkADiv, clockA);
        Pick(Form().cboRefClkDiv, reference);
    }
    void Calculate() { Form().cmdCalculate.RaiseClick(); }
    // Texts of all message boxes shown so far, one after the other.
    std::string Messages() const {
        std::string all;
        for (const auto& message : platform.Messages()) all += message.Text + "\n";
        return all;
    }

    HeadlessPlatform platform;
    std::unique_ptr<Application> app;
};

}  // namespace pendulon::testing
