#pragma once
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

#include "platform/HeadlessPlatform.hpp"

namespace pendulon {
class Application;
class Field;
class Window;
}  // namespace pendulon

namespace pendulon::cli {

// One headless run of the program with one document: the real start-up on a headless platform,
// then the user's actions on the document's fields, in order. Message boxes are echoed to the
// error stream as they are shown and kept for the state dump.
class DocumentSession {
  public:
    DocumentSession(std::ostream& out, std::ostream& err);
    ~DocumentSession();

    Application& App() { return *app_; }
    HeadlessPlatform& Platform() { return platform_; }

    // File, New with the device chosen in frmDevice. False, with the reason in error, for a
    // device that frmDevice does not offer or a document that did not load.
    bool NewDocument(const std::string& device, std::string& error);

    // Runs the one action at args[i] and moves i past it and its argument. Returns 0 when it
    // ran, status::Usage for a malformed action or an unknown field.
    int RunAction(const std::vector<std::string>& args, size_t& i);

    // With strict, the first error report or warning stops the run.
    void SetStrict(bool strict) { strict_ = strict; }
    // The error reports and warnings shown so far (information notes and questions are not
    // counted: they tell, they do not warn).
    size_t MessageCount() const;
    // With --strict and a message shown: tells that the run stops after `what` and gives true.
    bool StopsHere(const std::string& what);
    // The exit status of a run that went through: status::Failed when an action failed,
    // status::DoneWithMessages when messages were shown, else status::Done; the last two are
    // told on the error stream when there were messages.
    int Finish(bool failed);

    // A modal window in front of the document: while it is set, names without a window prefix
    // are its fields, only the fields for which reachable says yes can be set or clicked, and
    // --json prints the window with what describe adds. Null gives the document back.
    void SetModal(Window* window, std::function<bool(const Field&, std::string&)> reachable = {},
                  std::function<void(nlohmann::json&)> describe = {});

    // The state of the document: device, its fields by name, and the message boxes shown; or,
    // while a modal window is set, that window's.
    nlohmann::json State() const;
    static nlohmann::json FieldState(const Field& field);
    // The message boxes shown so far.
    nlohmann::json MessagesState() const;

  private:
    // "frmSummary.txtCustomer" or a name of the document's own fields.
    Field* Resolve(const std::string& name, Window*& window, std::string& error);
    bool Set(const std::string& name, const std::string& text, std::string& error);
    bool Click(const std::string& name, std::string& error);

    std::ostream& out_;
    std::ostream& err_;
    HeadlessPlatform platform_;
    std::unique_ptr<Application> app_;
    Window* modal_ = nullptr;
    bool strict_ = false;
    std::function<bool(const Field&, std::string&)> reachable_;
    std::function<void(nlohmann::json&)> describe_;
};

}  // namespace pendulon::cli
