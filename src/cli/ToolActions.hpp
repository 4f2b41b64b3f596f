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

// Takes every "--strict" out of the arguments; true when there was one.
bool TakeStrict(std::vector<std::string>& args);

// Runs args from index first on, in order, each file action telling on the error stream what it
// wrote. A failed action does not stop the run, a malformed one does (status::Usage), and with
// --strict the first error report or warning does (status::Failed). Otherwise the status of
// DocumentSession::Finish.
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
