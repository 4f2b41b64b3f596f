#pragma once
#include <memory>
#include <stdexcept>
#include <string>

#include "app/Configurator.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"

namespace pendulon::test {

// A running program on the headless platform, started with a command line (none by default),
// and the menu commands a user gives it.
struct ProgramSession {
    explicit ProgramSession(const std::string& commandLine = "") {
        app = std::make_unique<Application>(platform);
        app->Main().MDIForm_Load(commandLine);
    }
    frmMain& Main() { return app->Main(); }
    Configurator* Doc() { return app->Document(); }

    // File, New with the device window answered OK for this device.
    void New(const std::string& device) {
        platform.QueueModal("frmDevice", [device](Window& w) {
            auto& form = dynamic_cast<frmDevice&>(w);
            form.OptionFor(device)->SetValue(true);
            form.cmdOK_Click();
        });
        Main().mnuNew.RaiseClick();
        if (Doc() == nullptr)
            throw std::runtime_error("no document for " + device);
    }
    void QueueSummaryOK() {
        platform.QueueModal("frmSummary",
                            [](Window& w) { dynamic_cast<frmSummary&>(w).cmdOK_Click(); });
    }
    // File, Save As: the summary answered OK, the save dialog with the path.
    void SaveAs(const std::string& path) {
        QueueSummaryOK();
        platform.QueueFileAnswer(path);
        Main().mnuSaveAs.RaiseClick();
    }
    // File, Open of an entry file: the open dialog answered with the path, the summary with OK.
    void Open(const std::string& path) {
        QueueSummaryOK();
        OpenAnswered(path);
    }
    // File, Open with only the open dialog answered (a fuse map shows no summary).
    void OpenAnswered(const std::string& path) {
        platform.QueueFileAnswer(path);
        Main().mnuOpen.RaiseClick();
    }
    int CountMessages(const std::string& text) const {
        int count = 0;
        for (const auto& message : platform.Messages())
            if (message.Text == text)
                ++count;
        return count;
    }
    // Every message box's text, for a failure's report.
    std::string Messages() const {
        std::string all;
        for (const auto& message : platform.Messages()) all += message.Text + "\n---\n";
        return all;
    }

    HeadlessPlatform platform;
    std::unique_ptr<Application> app;
};

}  // namespace pendulon::test
