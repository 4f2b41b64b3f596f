#include "cli/WizardCommand.hpp"

#include <iostream>

#include "cli/Commands.hpp"
#include "cli/DocumentSession.hpp"
#include "cli/ToolActions.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"
#include "wizard/frmDecisionTree.hpp"

namespace pendulon::cli {

const char* const kWizardUsage =
    "wizard [ACTION]...\n"
    "      show the clock selection wizard as Help, Clock Selection Wizard does; the actions\n"
    "      of new (--set, --click, --answer, --json) go to the wizard's fields while it is up:\n"
    "        --click opt1(0)   answer on page 0 (only the page in front can be used,\n"
    "                          and no other window while the wizard is up)\n"
    "        --click cmdNext(0), --click cmdPrevious(3), --click cmdCancel(7)\n"
    "        --answer ANSWER   queued for the close question or a note of the new document\n"
    "        --json            the wizard: {\"window\", \"path\", \"fields\", \"messages\"}\n"
    "      once the wizard has opened a document, the remaining actions, --save, --print,\n"
    "      --jed and --options-details included, apply to that document as with new;\n"
    "      a wizard that closes on an error report ends the command with status 1;\n"
    "        --strict          stop at the first error report or warning (status 1)";
const char* const kWizardSummary =
    "answer the clock selection wizard's questions and work on the document it opens";

namespace {
// The program's error reports among the message boxes shown so far.
size_t CountErrorReports(const HeadlessPlatform& platform) {
    size_t count = 0;
    for (const auto& message : platform.Messages())
        if ((message.Style & msgbox::Exclamation) == msgbox::Critical)
            ++count;
    return count;
}
}  // namespace

int RunWizard(const std::vector<std::string>& arguments) {
    std::vector<std::string> args = arguments;
    DocumentSession session(std::cout, std::cerr);
    session.SetStrict(TakeStrict(args));
    const size_t errorsBefore = CountErrorReports(session.Platform());
    size_t next = 0;
    int code = 0;
    session.Platform().QueueModal("frmDecisionTree", [&](Window& window) {
        auto& wizard = dynamic_cast<frmDecisionTree&>(window);
        // A user works on the page in front; the pages behind it cannot be reached.
        auto reachable = [&wizard](const Field& field, std::string& error) {
            const int page = wizard.PageOf(field);
            if (page < 0 || page == wizard.FrontPage())
                return true;
            error = "field '" + field.Name() + "' is on page " + std::to_string(page) +
                    ", which is not in front (page " + std::to_string(wizard.FrontPage()) + " is)";
            return false;
        };
        auto describe = [&wizard](nlohmann::json& state) { state["path"] = wizard.mcolFrames; };
        session.SetModal(&wizard, reachable, describe);
        while (code == 0 && next < args.size() && wizard.Loaded()) {
            if (IsToolAction(args[next])) {
                std::cerr << "pendulon-cli: " << args[next]
                          << ": the wizard is still up, no document is open\n";
                code = status::Failed;
                break;
            }
            const std::string action = args[next];
            code = session.RunAction(args, next);
            if (code == status::Done && session.StopsHere(action))
                code = status::Failed;
        }
        session.SetModal(nullptr);
    });
    session.App().Main().mnuDecisionTree.RaiseClick();
    if (code != 0)
        return code;
    if (CountErrorReports(session.Platform()) != errorsBefore) {
        std::cerr << "pendulon-cli: the wizard closed on an error report\n";
        return status::Failed;
    }
    if (next >= args.size())
        return session.Finish(false);
    return RunDocumentActions(session, args, next);
}

}  // namespace pendulon::cli
