#pragma once
#include <string>
#include <vector>

namespace pendulon::cli {

class DocumentSession;

// The document actions of the main window's commands: Save As, the detailed-descriptions
// option, the ASCII document and the EPROM vector. Every other action goes to the session.
extern const char* const kToolActionsUsage;

// Whether an action is one of these (they need an open document).
bool IsToolAction(const std::string& action);

// Runs args from index first on, in order. Returns 0 when all ran, 1 when a command did not
// produce its file, 2 for a malformed action.
int RunDocumentActions(DocumentSession& session, const std::vector<std::string>& args,
                       size_t first);

// File, Open of an entry file: the summary window answered OK and every note box with its
// default button. False, with the reason in error, when no document was loaded.
bool OpenDocument(DocumentSession& session, const std::string& path, std::string& error);

// pendulon-cli open FILE [ACTION]...
extern const char* const kOpenUsage;
extern const char* const kOpenSummary;
int RunOpen(const std::vector<std::string>& args);

// pendulon-cli jed FILE.ent -o OUT.jed
extern const char* const kJedUsage;
extern const char* const kJedSummary;
int RunJed(const std::vector<std::string>& args);

}  // namespace pendulon::cli
