#pragma once
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/PlatformServices.hpp"

namespace pendulon {

// The platform without a display: message boxes are recorded and answered from a queue (else
// by their default button), dialogs are answered from a queue (a missing answer is a cancel),
// and settings live in memory. The clock is the system's, in local time, unless a test fixes it
// with SetNow or SOURCE_DATE_EPOCH fixes it for a repeatable build. The program's folder is the
// system's temporary folder until it is set (the command-line program sets its own); the
// temporary folder is TMPDIR or /tmp until it is set.
class HeadlessPlatform : public PlatformServices {
public:
    struct Message {
        std::string Title;
        std::string Text;
        int Style = 0;
        int Answer = 0;
    };
    struct StartedProgram {
        std::string Program;
        std::vector<std::string> Args;
    };

    HeadlessPlatform();

    // Scripting.
    void QueueAnswer(int answer) { answers_.push_back(answer); }
    // A path for the next open or save dialog; std::nullopt is a cancel.
    void QueueFileAnswer(std::optional<std::string> path) { fileAnswers_.push_back(std::move(path)); }
    void QueuePrinterAnswer(bool ok) { printerAnswers_.push_back(ok); }
    // What the user does in the next modal window of that name; without one the window is
    // closed as it came.
    void QueueModal(const std::string& windowName, std::function<void(Window&)> action);
    // Forgets the dialog answers and the actions of a window that no dialog or window took.
    void DropFileAnswers() { fileAnswers_.clear(); }
    void DropModal(const std::string& windowName) { modalActions_.erase(windowName); }
    void SetNow(DateTime now) { now_ = now; }
    void SetSystemKey(const std::string& keyPath, std::optional<std::string> value);
    void SetAppDirectory(std::string dir) { appDirectory_ = std::move(dir); }
    void SetTempDirectory(std::string dir) { tempDirectory_ = std::move(dir); }
    void SetFonts(std::vector<std::string> fonts) { fonts_ = std::move(fonts); }
    // Fixed-pitch fonts beyond the classic ones, the system's fixed font, and the fonts the
    // printer has (by default the same as the screen's).
    void SetFixedPitchFonts(std::vector<std::string> fonts) { fixedFonts_ = std::move(fonts); }
    void SetSystemFixedFont(std::string font) { systemFixedFont_ = std::move(font); }
    void SetPrinterFonts(std::vector<std::string> fonts) { printerFonts_ = std::move(fonts); }
    void SetPrinterFails(bool fails) { printerFails_ = fails; }
    // Called for every message box as it is shown.
    std::function<void(const Message&)> OnMessage;

    // Records.
    const std::vector<Message>& Messages() const { return messages_; }
    void ClearMessages() { messages_.clear(); }
    const std::vector<CommonDialog>& DialogsShown() const { return dialogs_; }
    const std::vector<std::string>& ModalsShown() const { return modals_; }
    const std::vector<StartedProgram>& Started() const { return started_; }
    const std::vector<std::string>& HelpShown() const { return help_; }
    int Beeps() const { return beeps_; }
    struct PrintJob {
        std::string FontName;  // empty: the printer's default
        double Size = 0;
        std::string Text;
    };
    const std::vector<PrintJob>& Printed() const { return printed_; }
    size_t PendingAnswers() const { return answers_.size(); }
    // Settings store as it stands: app -> section -> key -> value.
    std::map<std::string, std::map<std::string, std::map<std::string, std::string>>>& Store() {
        return store_;
    }

    // PlatformServices
    int MsgBox(const std::string& prompt, int style, const std::string& title) override;
    bool ShowOpen(CommonDialog& dialog) override;
    bool ShowSave(CommonDialog& dialog) override;
    bool ShowPrinter(CommonDialog& dialog) override;
    void ShowHelp(CommonDialog& dialog) override;
    void ShowModal(Window& window) override;
    std::string GetSetting(const std::string& app, const std::string& section,
                           const std::string& key, const std::string& defaultValue) override;
    void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                     const std::string& value) override;
    void DeleteSetting(const std::string& app) override;
    bool SettingsExist(const std::string& app) override;
    std::optional<std::string> ReadSystemKey(const std::string& keyPath) override;
    DateTime Now() override;
    std::string AppDirectory() override { return appDirectory_; }
    std::string TempDirectory() override { return tempDirectory_; }
    std::string TempFileName(const std::string& folder, const std::string& prefix) override;
    bool StartProgram(const std::string& program, const std::vector<std::string>& args) override;
    std::string ClipboardText() override { return clipboard_; }
    void SetClipboardText(const std::string& text) override { clipboard_ = text; }
    void Beep() override { ++beeps_; }
    int MousePointer() override { return pointer_; }
    void SetMousePointer(int pointer) override { pointer_ = pointer; }
    double ScreenWidth() override { return 1024 * 15; }
    double ScreenHeight() override { return 768 * 15; }
    int TwipsPerPixelX() override { return 15; }
    int TwipsPerPixelY() override { return 15; }
    const TextMetrics& Metrics() override { return HeadlessTextMetrics::Instance(); }
    bool FontExists(const std::string& name) override;
    std::vector<std::string> FixedPitchFonts() override { return fixedFonts_; }
    std::string SystemFixedFont() override { return systemFixedFont_; }
    bool PrinterHasFont(const std::string& name) override;
    bool PrintText(const std::string& fontName, double size, const std::string& text) override;

private:
    bool NextFileAnswer(CommonDialog& dialog);

    std::deque<int> answers_;
    std::deque<std::optional<std::string>> fileAnswers_;
    std::deque<bool> printerAnswers_;
    std::map<std::string, std::deque<std::function<void(Window&)>>> modalActions_;
    std::vector<Message> messages_;
    std::vector<CommonDialog> dialogs_;
    std::vector<std::string> modals_;
    std::vector<StartedProgram> started_;
    std::vector<std::string> help_;
    std::map<std::string, std::map<std::string, std::map<std::string, std::string>>> store_;
    std::map<std::string, std::optional<std::string>> systemKeys_;
    std::vector<std::string> fonts_;
    std::vector<std::string> fixedFonts_;
    std::string systemFixedFont_ = "Monospace";
    std::optional<std::vector<std::string>> printerFonts_;
    bool printerFails_ = false;
    std::vector<PrintJob> printed_;
    std::optional<DateTime> now_;
    std::string appDirectory_;
    std::string tempDirectory_;
    std::string clipboard_;
    int beeps_ = 0;
    int pointer_ = 0;
    int tempCounter_ = 0;
};

// SOURCE_DATE_EPOCH when set and valid, else the given time.
DateTime SourceDateOr(DateTime fallback);
// The system clock's date and time of day, in local time.
DateTime SystemNow();

}  // namespace pendulon
