#include "shell/mSharedShell.hpp"

#include <cstdlib>
#include <optional>
#include <sstream>

#include "app/AppServices.hpp"
#include "core/Numbers.hpp"
#include "platform/TextFile.hpp"
#include "reports/frmPrintPreview.hpp"

namespace pendulon::mShared {

namespace {
constexpr const char* kApp = "Pendulon";
constexpr const char* kCrLf = "\r\n";
}  // namespace

std::vector<std::string> TextEditorCommand() {
    std::vector<std::string> command;
    if (const char* visual = std::getenv("VISUAL"); visual != nullptr) {
        // The editor's own arguments stand behind its name, as in "emacs -nw".
        std::istringstream words(visual);
        for (std::string word; words >> word;) command.push_back(word);
    }
    if (command.empty())
        command.push_back("xdg-open");
    return command;
}

void ShowEntFile(AppServices& app, const std::string& strPath) {
    PlatformServices& services = app.Services();
    if (Val(services.GetSetting(kApp, "Option", "UseNotepad", "0")) != 0) {
        std::vector<std::string> command = TextEditorCommand();
        const std::string program = command.front();
        command.erase(command.begin());
        command.push_back(strPath);
        services.StartProgram(program, command);
        return;
    }
    const std::optional<std::string> content = ReadTextFile(strPath);
    if (!content) {
        app.Errors().Raise(errors::FileNotFound, "mShared.ShowEntFile");
        return;
    }
    // Line by line, whatever the line ends, each line followed by CR LF.
    std::string text;
    const std::string& raw = *content;
    size_t start = 0;
    while (start < raw.size()) {
        size_t end = raw.find_first_of("\r\n", start);
        if (end == std::string::npos) {
            text += raw.substr(start) + kCrLf;
            break;
        }
        text += raw.substr(start, end - start) + kCrLf;
        if (raw[end] == '\r' && end + 1 < raw.size() && raw[end + 1] == '\n')
            ++end;
        start = end + 1;
    }
    frmPrintPreview::ShowText(app, text);
}

}  // namespace pendulon::mShared
