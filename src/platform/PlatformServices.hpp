#pragma once
#include <optional>
#include <string>
#include <vector>

#include "platform/CommonDialog.hpp"
#include "platform/DateTime.hpp"
#include "platform/TextMetrics.hpp"

namespace pendulon {

class Window;

// Message box styles and answers, with the classic values.
namespace msgbox {
inline constexpr int OKOnly = 0;
inline constexpr int OKCancel = 1;
inline constexpr int AbortRetryIgnore = 2;
inline constexpr int YesNoCancel = 3;
inline constexpr int YesNo = 4;
inline constexpr int RetryCancel = 5;
inline constexpr int Critical = 16;
inline constexpr int Question = 32;
inline constexpr int Exclamation = 48;
inline constexpr int Information = 64;
inline constexpr int DefaultButton2 = 256;
inline constexpr int DefaultButton3 = 512;

inline constexpr int OK = 1;
inline constexpr int Cancel = 2;
inline constexpr int Abort = 3;
inline constexpr int Retry = 4;
inline constexpr int Ignore = 5;
inline constexpr int Yes = 6;
inline constexpr int No = 7;

// The answer of the default button of a style.
int DefaultAnswer(int style);
// "ok", "cancel", "yes", ... for an answer; the reverse gives 0 for an unknown word.
const char* AnswerName(int answer);
int AnswerFromName(const std::string& name);
}  // namespace msgbox

// Mouse pointers the product sets.
inline constexpr int kPointerDefault = 0;
inline constexpr int kPointerHourglass = 11;

// What the product asks of the platform it runs on. One headless implementation serves tests
// and the command line; the desktop has one on Qt.
class PlatformServices {
public:
    virtual ~PlatformServices() = default;

    // Message boxes. Returns the answer (msgbox::OK, msgbox::Yes, ...).
    virtual int MsgBox(const std::string& prompt, int style, const std::string& title) = 0;

    // Common dialogs. True when the user chose; false on cancel.
    virtual bool ShowOpen(CommonDialog& dialog) = 0;
    virtual bool ShowSave(CommonDialog& dialog) = 0;
    virtual bool ShowPrinter(CommonDialog& dialog) = 0;
    virtual void ShowHelp(CommonDialog& dialog) = 0;

    // Shows a window of the product modally; returns when it is hidden again.
    virtual void ShowModal(Window& window) = 0;

    // Per-user settings by application, section and key.
    virtual std::string GetSetting(const std::string& app, const std::string& section,
                                   const std::string& key, const std::string& defaultValue) = 0;
    virtual void SaveSetting(const std::string& app, const std::string& section,
                             const std::string& key, const std::string& value) = 0;
    virtual void DeleteSetting(const std::string& app) = 0;
    virtual bool SettingsExist(const std::string& app) = 0;
    // A value of a key outside the application's own settings, from the system-wide scope.
    virtual std::optional<std::string> ReadSystemKey(const std::string& keyPath) = 0;

    // Clock: the date and time of day where the user is.
    virtual DateTime Now() = 0;

    // Files and programs.
    virtual std::string AppDirectory() = 0;
    // The user's folder for temporary files; the program's own folder is not the user's to
    // write in.
    virtual std::string TempDirectory() = 0;
    // A new, empty file's name in the folder, beginning with the prefix; empty on failure.
    virtual std::string TempFileName(const std::string& folder, const std::string& prefix) = 0;
    virtual bool StartProgram(const std::string& program, const std::vector<std::string>& args) = 0;

    // Clipboard, beep, pointer.
    virtual std::string ClipboardText() = 0;
    virtual void SetClipboardText(const std::string& text) = 0;
    virtual void Beep() = 0;
    virtual int MousePointer() = 0;
    virtual void SetMousePointer(int pointer) = 0;

    // Screen.
    virtual double ScreenWidth() = 0;   // twips
    virtual double ScreenHeight() = 0;  // twips
    // The part of the screen a window may take (the screen less the desktop's panels), in
    // twips: left, top, width, height. By default the whole screen.
    struct Area {
        double Left = 0, Top = 0, Width = 0, Height = 0;
    };
    virtual Area ScreenWorkArea() { return Area{0, 0, ScreenWidth(), ScreenHeight()}; }
    virtual int TwipsPerPixelX() = 0;
    virtual int TwipsPerPixelY() = 0;
    virtual const TextMetrics& Metrics() = 0;
    // Names of the fixed-pitch fonts the system has.
    virtual bool FontExists(const std::string& name) = 0;

    // Fonts and printer for the print preview. They have defaults so that a platform without
    // a printer still builds: no extra fonts, and nothing can be printed.
    // Every fixed-pitch font family the system has, in any order.
    virtual std::vector<std::string> FixedPitchFonts() { return {}; }
    // The system's general fixed-pitch font, for when no other one is found.
    virtual std::string SystemFixedFont() { return "Courier New"; }
    // Whether the printer can print in that font.
    virtual bool PrinterHasFont(const std::string& name) { return FontExists(name); }
    // Prints the text as one document in the font (empty: the printer's default) and size in
    // points, and ends the page. False when nothing was printed.
    virtual bool PrintText(const std::string& fontName, double size, const std::string& text) {
        (void)fontName;
        (void)size;
        (void)text;
        return false;
    }
};

}  // namespace pendulon
