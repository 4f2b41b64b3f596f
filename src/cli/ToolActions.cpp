#include "cli/ToolActions.hpp"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "cli/Commands.hpp"
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

bool TakeStrict(std::vector<std::string>& args) {
    const auto end = std::remove(args.begin(), args.end(), std::string("--strict"));
    const bool found = end != args.end();
    args.erase(end, args.end());
    return found;
}

namespace {

void QueueSummaryOK(HeadlessPlatform& platform) {
    platform.QueueModal("frmSummary",
                        [](Window& w) { dynamic_cast<frmSummary&>(w).cmdOK_Click(); });
}

// An answer queued for a dialog that a refused command never showed must not answer the next
// command's dialog.
void DropUnusedAnswers(HeadlessPlatform& platform) {
    platform.DropFileAnswers();
    platform.DropModal("frmSummary");
}

// What a file action did, told on the error stream: the path it wrote, or that it wrote nothing.
int Told(const char* action, const std::string& path, bool written, const std::string& why = {}) {
    if (written) {
        std::cerr << "pendulon-cli: " << action << ": wrote " << path << "\n";
        return status::Done;
    }
    std::cerr << "pendulon-cli: " << action << ": nothing was written to " << path;
    if (!why.empty())
        std::cerr << ": " << why;
    std::cerr << "\n";
    return status::Failed;
}

int SaveAs(DocumentSession& session, const std::string& path) {
    Application& app = session.App();
    if (app.Document() == nullptr) {
        std::cerr << "pendulon-cli: --save: no document is open\n";
        return status::Failed;
    }
    QueueSummaryOK(session.Platform());
    session.Platform().QueueFileAnswer(path);
    const bool saved = app.Main().SaveDocumentAs();
    DropUnusedAnswers(session.Platform());
    return Told("--save", path, saved);
}

int Print(DocumentSession& session, const std::string& path) {
    Application& app = session.App();
    if (app.Document() == nullptr) {
        std::cerr << "pendulon-cli: --print: no document is open\n";
        return status::Failed;
    }
    app.Main().mnuPrint_Click();
    auto* preview = dynamic_cast<frmPrintPreview*>(app.Preview());
    if (preview == nullptr)
        return Told("--print", path, false, "no document was made");
    std::string text = preview->txtPrintout.Text();
    app.UnloadPreview();
    // A text file: every line ends in CR LF, the last one too.
    if (!text.empty() && text.substr(text.size() - std::min<size_t>(2, text.size())) != "\r\n")
        text += "\r\n";
    const std::string failure = WriteTextFileAtomically(path, text);
    return Told("--print", path, failure.empty(), failure);
}

// Tools, Create EPROM Vector with the save dialog answered with path.
int CreateVector(DocumentSession& session, const std::string& path, bool fromNew) {
    Application& app = session.App();
    frmMain& main = app.Main();
    const char* what = fromNew ? "--jed" : "jed";
    if (app.Document() == nullptr) {
        std::cerr << "pendulon-cli: " << what << ": no document is open\n";
        return status::Failed;
    }
    main.InitializeMenu(false);
    MenuItem& command = fromNew ? main.mnuToolsCreateEPROMNew : main.mnuToolsCreateEPROMSaved;
    if (!main.mnuToolsCreateEPROM.Enabled())
        return Told(what, path, false, "the " + app.Document()->Device() + " has no EPROM vector");
    if (fromNew && !command.Enabled())
        return Told(what, path, false,
                    "the configuration is not calculated (click cmdCalculate first)");
    session.Platform().QueueFileAnswer(path);
    const bool written = main.CreateEPROMVector(fromNew);
    DropUnusedAnswers(session.Platform());
    return Told(what, path, written);
}

}  // namespace

// One text for the usage of open and of new.
#define PENDULON_TOOL_ACTIONS                                                                 \
    "        --save PATH       File, Save As to PATH (summary window answered OK)\n"          \
    "        --options-details on|off\n"                                                      \
    "                          entry files include the detailed descriptions, for this run\n" \
    "        --print PATH      write the ASCII configuration document to PATH\n"              \
    "        --jed PATH        Tools, Create EPROM Vector, From New Entry File, to PATH\n"    \
    "        --strict          stop the run at the first error report or warning (status 1)\n"

const char* const kToolActionsUsage = PENDULON_TOOL_ACTIONS;

int RunDocumentActions(DocumentSession& session, const std::vector<std::string>& args,
                       size_t first) {
    bool failed = false;
    size_t i = first;
    while (i < args.size()) {
        const std::string& action = args[i];
        int code = status::Done;
        if (!IsToolAction(action)) {
            code = session.RunAction(args, i);
        } else if (i + 1 >= args.size()) {
            std::cerr << "pendulon-cli: " << action << " needs an argument\n";
            return status::Usage;
        } else {
            const std::string& argument = args[i + 1];
            i += 2;
            if (action == "--options-details") {
                if (argument != "on" && argument != "off") {
                    std::cerr << "pendulon-cli: --options-details takes on or off, not '"
                              << argument << "'\n";
                    return status::Usage;
                }
                session.App().Main().mblnSaveEntryFileDescription = argument == "on";
            } else if (action == "--save") {
                code = SaveAs(session, argument);
            } else if (action == "--print") {
                code = Print(session, argument);
            } else {
                code = CreateVector(session, argument, true);
            }
        }
        // A malformed command line stops at once; a failed action does not stop the others,
        // as a user at the window goes on after a message.
        if (code == status::Usage)
            return code;
        failed = failed || code == status::Failed;
        if (session.StopsHere(action))
            return status::Failed;
    }
    return session.Finish(failed);
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

namespace {
// Opens path in the session of a command; false when the command cannot go on, with the reason
// reported.
bool OpenForCommand(DocumentSession& session, bool strict, const std::string& path) {
    session.SetStrict(strict);
    return OpenOrReport(session, path) && !session.StopsHere("opening " + path);
}
}  // namespace

int RunOpen(const std::vector<std::string>& arguments) {
    std::vector<std::string> args = arguments;
    const bool strict = TakeStrict(args);
    if (args.empty() || args[0].rfind("--", 0) == 0) {
        std::cerr << "pendulon-cli: open needs an entry file\n";
        return status::Usage;
    }
    DocumentSession session(std::cout, std::cerr);
    if (!OpenForCommand(session, strict, args[0]))
        return status::Failed;
    return RunDocumentActions(session, args, 1);
}

const char* const kJedUsage = "jed FILE.ent -o OUT.jed [--strict]";
const char* const kJedSummary =
    "open FILE.ent and write its EPROM vector, from the saved entry file, to OUT.jed";

int RunJed(const std::vector<std::string>& arguments) {
    std::vector<std::string> args = arguments;
    const bool strict = TakeStrict(args);
    if (args.size() != 3 || args[0].rfind("-", 0) == 0 || args[1] != "-o") {
        std::cerr << "pendulon-cli: usage: pendulon-cli " << kJedUsage << "\n";
        return status::Usage;
    }
    DocumentSession session(std::cout, std::cerr);
    if (!OpenForCommand(session, strict, args[0]))
        return status::Failed;
    const bool failed = CreateVector(session, args[2], false) != status::Done;
    return session.Finish(failed);
}

}  // namespace pendulon::cli
