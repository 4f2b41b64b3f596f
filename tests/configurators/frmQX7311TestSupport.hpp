#pragma once
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "configurators/frmQX7311.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

namespace pendulon::testing {

// A running program with a new QX7311 family document made as File, New makes it.
struct QX7311Document {
    explicit QX7311Document(const std::string& device = "QX7311") {
        app = std::make_unique<Application>(platform);
        app->Main().MDIForm_Load("");
        frmDevice& select = app->DeviceForm();
        select.CreateNew(true);
        select.OptionFor(device)->SetValue(true);
        select.cmdOK_Click();
        if (app->Document() == nullptr)
            throw std::runtime_error("no document for " + device);
    }
    frmQX7311& Form() { return dynamic_cast<frmQX7311&>(*app->Document()); }

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
    static std::vector<std::string> Items(const ListField& list) {
        std::vector<std::string> items;
        for (int i = 0; i < list.ListCount(); ++i) items.push_back(list.List(i));
        return items;
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
