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

    // Runs the actions in args from index first on. Returns the exit code: 0 when all ran, 2
    // for a malformed action or an unknown field.
    int RunActions(const std::vector<std::string>& args, size_t first);
    // Runs the one action at args[i] and moves i past it and its argument. Same codes.
    int RunAction(const std::vector<std::string>& args, size_t& i);

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
    std::function<bool(const Field&, std::string&)> reachable_;
    std::function<void(nlohmann::json&)> describe_;
};

}  // namespace pendulon::cli
