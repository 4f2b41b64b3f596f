#pragma once
#include <memory>
#include <string>

#include "configurators/frmQX6105A.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"

namespace pendulon::testing {

// A running program with a new QX6105A family document made as File, New makes it.
struct QX6105ADocument {
    explicit QX6105ADocument(const std::string& device = "QX6105A") {
        app = std::make_unique<Application>(platform);
        frmDevice& select = app->DeviceForm();
        select.CreateNew(true);
        select.OptionFor(device)->SetValue(true);
        select.cmdOK_Click();
    }
    frmQX6105A& Form() { return dynamic_cast<frmQX6105A&>(*app->Document()); }

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

    HeadlessPlatform platform;
    std::unique_ptr<Application> app;
};

}  // namespace pendulon::testing
