#pragma once
#include <QString>
#include <memory>

#include "desktop/QtTextMetrics.hpp"
#include "desktop/ViewRegistry.hpp"
#include "platform/PlatformServices.hpp"

class QPrinter;
class QWidget;

namespace pendulon {

// The platform services on Qt: message boxes, file and printer dialogs, QSettings, the clock,
// programs, clipboard, pointer and screen.
class QtPlatform : public PlatformServices {
  public:
    // Settings are kept under the organisation "Pendulon"; per-user in the user's scope, the
    // outside keys in the system-wide scope.
    explicit QtPlatform(ViewRegistry& views);
    ~QtPlatform() override;

    ViewRegistry& Views() { return views_; }
    // The window that dialogs are shown over.
    void SetDialogParent(QWidget* parent) { dialogParent_ = parent; }
    // Gives the keyboard back to the dialogs' parent once a modal window has closed.
    void ReturnFocus();
    QPrinter& Printer();

    // "Entry Files (*.ent)|*.ent|All Files (*.*)|*.*" as Qt name filters.
    static QStringList NameFilters(const std::string& filter);
    // The buttons and icon of a message box style; public for the tests.
    static int AnswerOfButton(int standardButton);

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
    std::string AppDirectory() override;
    std::string TempDirectory() override;
    std::string TempFileName(const std::string& folder, const std::string& prefix) override;
    bool StartProgram(const std::string& program, const std::vector<std::string>& args) override;
    std::string ClipboardText() override;
    void SetClipboardText(const std::string& text) override;
    void Beep() override;
    int MousePointer() override { return pointer_; }
    void SetMousePointer(int pointer) override;
    double ScreenWidth() override;
    double ScreenHeight() override;
    Area ScreenWorkArea() override;
    int TwipsPerPixelX() override;
    int TwipsPerPixelY() override;
    const TextMetrics& Metrics() override;
    bool FontExists(const std::string& name) override;

    // The settings key of an outside key path: "Software\Classes\X\" becomes
    // "Software/Classes/X".
    static QString SystemKeyName(const std::string& keyPath);

  private:
    bool ShowFileDialog(CommonDialog& dialog, bool save);

    ViewRegistry& views_;
    QWidget* dialogParent_ = nullptr;
    std::unique_ptr<QPrinter> printer_;
    std::unique_ptr<QtTextMetrics> metrics_;
    int pointer_ = kPointerDefault;
    // The folder of the file last chosen in a file dialog.
    QString lastFolder_;
};

}  // namespace pendulon
