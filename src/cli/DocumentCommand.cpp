#include "cli/DocumentCommand.hpp"

#include <filesystem>
#include <iostream>

#include "cli/Commands.hpp"
#include "cli/DocumentSession.hpp"
#include "cli/ToolActions.hpp"
#include "app/Configurator.hpp"
#include "platform/CheckBox.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/ScrollBar.hpp"
#include "platform/TextField.hpp"
#include "power/frmPower.hpp"
#include "configurators/frmQX5140.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"

namespace pendulon::cli {

namespace {
// The folder of this program, where an installed program's files stand; empty when unknown.
std::string ProgramFolder() {
    std::error_code ec;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::string() : self.parent_path().string();
}
}  // namespace

DocumentSession::DocumentSession(std::ostream& out, std::ostream& err) : out_(out), err_(err) {
    platform_.OnMessage = [this](const HeadlessPlatform::Message& message) {
        err_ << "[" << message.Title << "] " << message.Text << " -> "
             << msgbox::AnswerName(message.Answer) << "\n";
    };
    // The program's folder is its own, as for the desktop program: a user may not write there.
    if (const std::string folder = ProgramFolder(); !folder.empty())
        platform_.SetAppDirectory(folder);
    app_ = std::make_unique<Application>(platform_);
    app_->Main().MDIForm_Load("");
}

DocumentSession::~DocumentSession() = default;

bool DocumentSession::NewDocument(const std::string& device, std::string& error) {
    frmDevice& form = app_->DeviceForm();
    auto* option = form.Fields().FindAs<OptionButton>("opt" + device);
    if (option == nullptr) {
        error = "unknown device '" + device + "'";
        return false;
    }
    // File, New: frmDevice opens for a new document, the user picks the device and presses OK.
    form.CreateNew(true);
    option->SetValue(true);
    form.cmdOK_Click();
    if (app_->Document() == nullptr) {
        error = "the " + device + " document did not load";
        return false;
    }
    return true;
}

Field* DocumentSession::Resolve(const std::string& name, Window*& window, std::string& error) {
    std::string fieldName = name;
    window = modal_ != nullptr ? modal_ : app_->Document();
    const auto dot = name.find('.');
    if (dot != std::string::npos) {
        const std::string windowName = name.substr(0, dot);
        fieldName = name.substr(dot + 1);
        if (windowName == "frmSummary") {
            window = &app_->Summary();
        } else if (windowName == "frmDevice") {
            window = &app_->DeviceForm();
        } else if (windowName == "frmMain") {
            window = &app_->Main();
        } else if (modal_ != nullptr && windowName == modal_->Name()) {
            window = modal_;
        } else if (app_->Document() != nullptr && windowName == app_->Document()->Name()) {
            window = app_->Document();
        } else {
            error = "unknown window '" + windowName + "'";
            return nullptr;
        }
    }
    if (window == nullptr) {
        error = "no document is open";
        return nullptr;
    }
    // A modal window blocks every other window while it is up.
    if (modal_ != nullptr && window != modal_) {
        error = "'" + name + "' cannot be reached while " + modal_->Name() + " is up";
        return nullptr;
    }
    Field* field = window->Fields().Find(fieldName);
    if (field == nullptr) {
        error = "unknown field '" + name + "'";
        return nullptr;
    }
    if (window == modal_ && reachable_ && !reachable_(*field, error))
        return nullptr;
    return field;
}

bool DocumentSession::Set(const std::string& name, const std::string& text, std::string& error) {
    Window* window = nullptr;
    Field* field = Resolve(name, window, error);
    if (field == nullptr)
        return false;
    if (!field->Enabled() || !field->Visible()) {
        error = "field '" + name + "' cannot take the focus";
        return false;
    }
    switch (field->Kind()) {
        case FieldKind::Text: {
            window->SetFocusTo(field);
            static_cast<TextField*>(field)->SetText(text);
            break;
        }
        case FieldKind::List: {
            auto* list = static_cast<ListField*>(field);
            int found = -1;
            for (int i = 0; i < list->ListCount(); ++i) {
                if (list->List(i) == text) {
                    found = i;
                    break;
                }
            }
            if (found < 0 && !list->AllowsFreeText()) {
                error = "list '" + name + "' has no entry '" + text + "'";
                return false;
            }
            window->SetFocusTo(field);
            if (found >= 0) {
                list->SetListIndex(found);
            } else {
                list->SetText(text);
            }
            break;
        }
        case FieldKind::Check: {
            if (text != "0" && text != "1" && text != "2") {
                error = "check '" + name + "' takes 0, 1 or 2, not '" + text + "'";
                return false;
            }
            window->SetFocusTo(field);
            static_cast<CheckBox*>(field)->SetValue(text[0] - '0');
            break;
        }
        case FieldKind::Option: {
            if (text != "1") {
                error = "option '" + name + "' takes 1, not '" + text + "'";
                return false;
            }
            window->SetFocusTo(field);
            static_cast<OptionButton*>(field)->SetValue(true);
            break;
        }
        default:
            error = "field '" + name + "' takes no input";
            return false;
    }
    // Leaving the field runs its checks.
    window->SetFocusTo(nullptr);
    return true;
}

bool DocumentSession::Click(const std::string& name, std::string& error) {
    Window* window = nullptr;
    Field* field = Resolve(name, window, error);
    if (field == nullptr)
        return false;
    if (!field->Enabled() || !field->Visible()) {
        error = "field '" + name + "' cannot be clicked";
        return false;
    }
    switch (field->Kind()) {
        case FieldKind::Button:
            window->SetFocusTo(field);
            field->RaiseClick();
            break;
        case FieldKind::MenuItem:
            // A menu takes no focus from the field that has it.
            field->RaiseClick();
            break;
        case FieldKind::Check: {
            window->SetFocusTo(field);
            // A click ticks a clear box and clears a ticked or greyed one.
            auto* check = static_cast<CheckBox*>(field);
            check->SetValue(check->Value() == 0 ? 1 : 0);
            break;
        }
        case FieldKind::Option: {
            window->SetFocusTo(field);
            auto* option = static_cast<OptionButton*>(field);
            if (option->Value()) {
                option->RaiseClick();
            } else {
                option->SetValue(true);
            }
            break;
        }
        case FieldKind::List: {
            auto* list = static_cast<ListField*>(field);
            if (list->ListIndex() < 0) {
                error = "list '" + name + "' has no entry selected";
                return false;
            }
            window->SetFocusTo(field);
            field->RaiseClick();
            break;
        }
        default:
            error = "field '" + name + "' cannot be clicked";
            return false;
    }
    return true;
}

size_t DocumentSession::MessageCount() const {
    size_t count = 0;
    for (const auto& message : platform_.Messages()) {
        const int icon = message.Style & msgbox::Exclamation;
        if (icon == msgbox::Critical || icon == msgbox::Exclamation)
            ++count;
    }
    return count;
}

bool DocumentSession::StopsHere(const std::string& what) {
    if (!strict_ || MessageCount() == 0)
        return false;
    err_ << "pendulon-cli: --strict: the run stops after " << what
         << ": an error report or warning was shown\n";
    return true;
}

int DocumentSession::Finish(bool failed) {
    if (failed)
        return status::Failed;
    const size_t messages = MessageCount();
    if (messages == 0)
        return status::Done;
    err_ << "pendulon-cli: done, with " << messages
         << (messages == 1 ? " error report or warning" : " error reports or warnings")
         << " (above)\n";
    return status::DoneWithMessages;
}

int DocumentSession::RunAction(const std::vector<std::string>& args, size_t& i) {
    const std::string& action = args[i++];
    std::string error;
    if (action == "--json") {
        // Texts that are not UTF-8 (a file name from an older system) are written with the
        // replacement character.
        out_ << State().dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
        return 0;
    }
    if (action != "--set" && action != "--click" && action != "--answer") {
        err_ << "pendulon-cli: unknown action '" << action << "'\n";
        return status::Usage;
    }
    if (i >= args.size()) {
        err_ << "pendulon-cli: " << action << " needs an argument\n";
        return status::Usage;
    }
    const std::string& argument = args[i++];
    if (action == "--answer") {
        const int answer = msgbox::AnswerFromName(argument);
        if (answer == 0) {
            err_ << "pendulon-cli: unknown answer '" << argument
                 << "' (ok, cancel, yes, no, abort, retry, ignore)\n";
            return status::Usage;
        }
        platform_.QueueAnswer(answer);
        return 0;
    }
    bool done = false;
    if (action == "--set") {
        const auto equals = argument.find('=');
        if (equals == std::string::npos || equals == 0) {
            err_ << "pendulon-cli: --set takes NAME=TEXT, not '" << argument << "'\n";
            return status::Usage;
        }
        done = Set(argument.substr(0, equals), argument.substr(equals + 1), error);
    } else {
        done = Click(argument, error);
    }
    if (!done) {
        err_ << "pendulon-cli: " << error << "\n";
        return status::Usage;
    }
    return 0;
}

void DocumentSession::SetModal(Window* window,
                               std::function<bool(const Field&, std::string&)> reachable,
                               std::function<void(nlohmann::json&)> describe) {
    modal_ = window;
    reachable_ = window != nullptr ? std::move(reachable) : nullptr;
    describe_ = window != nullptr ? std::move(describe) : nullptr;
}

nlohmann::json DocumentSession::FieldState(const Field& field) {
    nlohmann::json state = nlohmann::json::object();
    switch (field.Kind()) {
        case FieldKind::Text:
            state["text"] = static_cast<const TextField&>(field).Text();
            break;
        case FieldKind::List: {
            const auto& list = static_cast<const ListField&>(field);
            state["text"] = list.Text();
            state["listIndex"] = list.ListIndex();
            state["list"] = list.Items();
            break;
        }
        case FieldKind::Check:
            state["caption"] = field.Caption();
            state["value"] = static_cast<const CheckBox&>(field).Value();
            break;
        case FieldKind::Option:
            state["caption"] = field.Caption();
            state["value"] = static_cast<const OptionButton&>(field).Value();
            break;
        case FieldKind::ScrollBar:
            state["value"] = static_cast<const ScrollBar&>(field).Value();
            break;
        case FieldKind::Label:
        case FieldKind::Button:
        case FieldKind::Frame:
        case FieldKind::MenuItem:
            state["caption"] = field.Caption();
            break;
        case FieldKind::Picture:
            break;
    }
    state["foreColor"] = field.ForeColor();
    state["backColor"] = field.BackColor();
    state["enabled"] = field.Enabled();
    state["visible"] = field.Visible();
    state["tag"] = field.Tag();
    return state;
}

nlohmann::json DocumentSession::MessagesState() const {
    nlohmann::json messages = nlohmann::json::array();
    for (const auto& message : platform_.Messages()) {
        messages.push_back({{"title", message.Title},
                            {"text", message.Text},
                            {"style", message.Style},
                            {"answer", msgbox::AnswerName(message.Answer)}});
    }
    return messages;
}

nlohmann::json DocumentSession::State() const {
    nlohmann::json state = nlohmann::json::object();
    if (modal_ != nullptr) {
        state["window"] = modal_->Name();
        nlohmann::json fields = nlohmann::json::object();
        for (const Field* field : modal_->Fields().Fields())
            fields[field->Name()] = FieldState(*field);
        state["fields"] = fields;
        if (describe_)
            describe_(state);
        state["messages"] = MessagesState();
        return state;
    }
    const Configurator* document = app_->Document();
    state["device"] = document != nullptr ? document->lblDevice.Caption() : "";
    nlohmann::json fields = nlohmann::json::object();
    if (document != nullptr) {
        for (const Field* field : document->Fields().Fields()) {
            fields[field->Name()] = FieldState(*field);
        }
    }
    state["fields"] = fields;
    // The QX5140's cases: one array of four source texts per case, and the case on show.
    if (const auto* qx5140 = dynamic_cast<const frmQX5140*>(document)) {
        nlohmann::json sources = nlohmann::json::array();
        for (const auto& row : qx5140->mstrSources()) sources.push_back(row);
        state["sources"] = sources;
        state["case"] = qx5140->mintCalculateCounter;
    }
    // The power table as its text lines, as the power panel shows it.
    const frmPower& power = app_->Power();
    nlohmann::json lines = nlohmann::json::array();
    for (const std::string& line : power.lstPower.Items()) lines.push_back(line);
    state["power"] = {
        {"head", power.HeadingLine()}, {"lines", lines}, {"footnote", power.lblFootnote.Caption()}};
    state["messages"] = MessagesState();
    return state;
}

const char* const kNewUsage =
    "new DEVICE [ACTION]...\n"
    "      ACTION:\n"
    "        --set NAME=TEXT   as a user: focus the field, enter TEXT, then leave the field\n"
    "        --click NAME      a user's click on a button, check, option or list entry\n"
    "        --answer ANSWER   queue the answer (ok, cancel, yes, no) for the next message box\n"
    "        --json            print the state of the document as JSON\n"
    "      NAME is a field name such as txtPLL(1), optionally prefixed by a window:\n"
    "      frmSummary.txtCustomer, frmDevice.chkShowPinout";
const char* const kNewSummary = "create a new document for DEVICE and run the actions on it";

int RunNew(const std::vector<std::string>& arguments) {
    std::vector<std::string> args = arguments;
    const bool strict = TakeStrict(args);
    if (args.empty() || args[0].rfind("--", 0) == 0) {
        std::cerr << "pendulon-cli: new needs a device, such as QX6105A\n";
        return status::Usage;
    }
    DocumentSession session(std::cout, std::cerr);
    session.SetStrict(strict);
    std::string error;
    if (!session.NewDocument(args[0], error)) {
        std::cerr << "pendulon-cli: " << error << "\n";
        return status::Usage;
    }
    if (session.StopsHere("opening the new " + args[0]))
        return status::Failed;
    return RunDocumentActions(session, args, 1);
}

}  // namespace pendulon::cli
