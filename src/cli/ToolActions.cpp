#include "cli/ToolActions.hpp"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "cli/DocumentSession.hpp"
#include "app/Configurator.hpp"
#include "platform/TextFile.hpp"
#include "reports/frmPrintPreview.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"

namespace pendulon::cli {

bool IsToolAction(const std::string& action) {
    return action == "--save" || action == "--options-details" || action == "--print" ||
           action == "--jed";
}

namespace {

// Critical boxes are the program's error reports.
size_t CountErrorReports(const HeadlessPlatform& platform) {
    size_t count = 0;
    for (const auto& message : platform.Messages())
        if ((message.Style & msgbox::Critical) == msgbox::Critical &&
            (message.Style & msgbox::Exclamation) != msgbox::Exclamation)
            ++count;
    return count;
}

void QueueSummaryOK(HeadlessPlatform& platform) {
    platform.QueueModal("frmSummary",
                        [](Window& w) { dynamic_cast<frmSummary&>(w).cmdOK_Click(); });
}

int SaveAs(DocumentSession& session, const std::string& path) {
    Application& app = session.App();
    if (app.Document() == nullptr) {
        std::cerr << "pendulon-cli: --save: no document is open\n";
        return 1;
    }
    const size_t errors = CountErrorReports(session.Platform());
    QueueSummaryOK(session.Platform());
    session.Platform().QueueFileAnswer(path);
    app.Main().mnuSaveAs_Click();
    if (!app.Summary().mblnOK || app.Document()->txtFilePath.Text() != path ||
        CountErrorReports(session.Platform()) != errors) {
        std::cerr << "pendulon-cli: --save: the document was not saved to " << path << "\n";
        return 1;
    }
    return 0;
}

int Print(DocumentSession& session, const std::string& path) {
    Application& app = session.App();
    if (app.Document() == nullptr) {
        std::cerr << "pendulon-cli: --print: no document is open\n";
        return 1;
    }
    app.Main().mnuPrint_Click();
    auto* preview = dynamic_cast<frmPrintPreview*>(app.Preview());
    if (preview == nullptr) {
        std::cerr << "pendulon-cli: --print: no document was made\n";
        return 1;
    }
    std::string text = preview->txtPrintout.Text();
    app.UnloadPreview();
    // A text file: every line ends in CR LF, the last one too.
    if (!text.empty() && text.substr(text.size() - std::min<size_t>(2, text.size())) != "\r\n")
        text += "\r\n";
    const std::string failure = WriteTextFileAtomically(path, text);
    if (!failure.empty()) {
        std::cerr << "pendulon-cli: --print: " << failure << "\n";
        return 1;
    }
    return 0;
}

// Tools, Create EPROM Vector with the save dialog answered with path.
int CreateVector(DocumentSession& session, const std::string& path, bool fromNew) {
    Application& app = session.App();
    frmMain& main = app.Main();
    const char* what = fromNew ? "--jed" : "jed";
    if (app.Document() == nullptr) {
        std::cerr << "pendulon-cli: " << what << ": no document is open\n";
        return 1;
    }
    main.InitializeMenu(false);
    MenuItem& command = fromNew ? main.mnuToolsCreateEPROMNew : main.mnuToolsCreateEPROMSaved;
    if (!main.mnuToolsCreateEPROM.Enabled()) {
        std::cerr << "pendulon-cli: " << what << ": the " << app.Document()->Device()
                  << " has no EPROM vector\n";
        return 1;
    }
    if (fromNew && !command.Enabled()) {
        std::cerr << "pendulon-cli: " << what
                  << ": the configuration is not calculated (click cmdCalculate first)\n";
        return 1;
    }
    const size_t dialogs = session.Platform().DialogsShown().size();
    const size_t errors = CountErrorReports(session.Platform());
    session.Platform().QueueFileAnswer(path);
    if (fromNew)
        main.mnuToolsCreateEPROMNew_Click();
    else
        main.mnuToolsCreateEPROMSaved_Click();
    std::error_code ec;
    if (session.Platform().DialogsShown().size() == dialogs ||
        CountErrorReports(session.Platform()) != errors ||
        !std::filesystem::is_regular_file(path, ec)) {
        std::cerr << "pendulon-cli: " << what << ": no EPROM vector was written to " << path
                  << "\n";
        return 1;
    }
    return 0;
}

}  // namespace

// One text for the usage of open and of new.
#define PENDULON_TOOL_ACTIONS                                                                 \
    "        --save PATH       File, Save As to PATH (summary window answered OK)\n"          \
    "        --options-details on|off\n"                                                      \
    "                          entry files include the detailed descriptions, for this run\n" \
    "        --print PATH      write the ASCII configuration document to PATH\n"              \
    "        --jed PATH        Tools, Create EPROM Vector, From New Entry File, to PATH\n"

const char* const kToolActionsUsage = PENDULON_TOOL_ACTIONS;

int RunDocumentActions(DocumentSession& session, const std::vector<std::string>& args,
                       size_t first) {
    size_t i = first;
    while (i < args.size()) {
        const std::string& action = args[i];
        if (!IsToolAction(action)) {
            // A run of the session's own actions, up to the next of ours.
            size_t end = i + 1;
            while (end < args.size() && !IsToolAction(args[end])) ++end;
            const std::vector<std::string> slice(args.begin() + static_cast<long>(i),
                                                 args.begin() + static_cast<long>(end));
            if (const int code = session.RunActions(slice, 0); code != 0)
                return code;
            i = end;
            continue;
        }
        if (i + 1 >= args.size()) {
            std::cerr << "pendulon-cli: " << action << " needs an argument\n";
            return 2;
        }
        const std::string& argument = args[i + 1];
        i += 2;
        int code = 0;
        if (action == "--options-details") {
            if (argument != "on" && argument != "off") {
                std::cerr << "pendulon-cli: --options-details takes on or off, not '" << argument
                          << "'\n";
                return 2;
            }
            session.App().Main().mblnSaveEntryFileDescription = argument == "on";
        } else if (action == "--save") {
            code = SaveAs(session, argument);
        } else if (action == "--print") {
            code = Print(session, argument);
        } else {
            code = CreateVector(session, argument, true);
        }
        if (code != 0)
            return code;
    }
    return 0;
}

bool OpenDocument(DocumentSession& session, const std::string& path, std::string& error) {
    QueueSummaryOK(session.Platform());
    session.App().Main().GetFile(path);
    if (session.App().Document() == nullptr) {
        error = "'" + path + "' could not be opened";
        return false;
    }
    return true;
}

const char* const kOpenUsage =
    "open FILE [ACTION]...\n"
    "      open the entry file FILE as File, Open does, then run the actions on it;\n"
    "      ACTION is one of those of new (--set, --click, --answer, --json), "
    "or:\n" PENDULON_TOOL_ACTIONS "      the save and vector dialogs are answered with PATH";
const char* const kOpenSummary = "open an entry file and run the actions on it";

// Opens the file as File, Open does; a refusal is told on standard error.
bool OpenOrReport(DocumentSession& session, const std::string& path) {
    std::string error;
    if (OpenDocument(session, path, error))
        return true;
    std::cerr << "pendulon-cli: " << error << "\n";
    return false;
}

int RunOpen(const std::vector<std::string>& args) {
    if (args.empty() || args[0].rfind("--", 0) == 0) {
        std::cerr << "pendulon-cli: open needs an entry file\n";
        return 2;
    }
    DocumentSession session(std::cout, std::cerr);
    if (!OpenOrReport(session, args[0]))
        return 1;
    return RunDocumentActions(session, args, 1);
}

const char* const kJedUsage = "jed FILE.ent -o OUT.jed";
const char* const kJedSummary =
    "open FILE.ent and write its EPROM vector, from the saved entry file, to OUT.jed";

int RunJed(const std::vector<std::string>& args) {
    if (args.size() != 3 || args[0].rfind("-", 0) == 0 || args[1] != "-o") {
        std::cerr << "pendulon-cli: usage: pendulon-cli " << kJedUsage << "\n";
        return 2;
    }
    DocumentSession session(std::cout, std::cerr);
    if (!OpenOrReport(session, args[0]))
        return 1;
    return CreateVector(session, args[2], false);
}

}  // namespace pendulon::cli
