#pragma once
#include <memory>
#include <stdexcept>
#include <string>

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

}  // namespace pendulon::testing
