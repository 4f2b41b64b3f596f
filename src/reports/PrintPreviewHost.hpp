#pragma once
#include <string>

namespace pendulon {

// What the print preview asks of the program around it: the main window's status and hint
// lines and commands, the summary's checksum, and its own closing. The running application
// provides one; tests provide their own.
class PrintPreviewHost {
  public:
    virtual ~PrintPreviewHost() = default;
    // Caption of message boxes.
    virtual std::string Title() = 0;
    // Caption of the checksum label of the configuration summary ("n/a" until a file was saved).
    virtual std::string ChecksumCaption() = 0;
    virtual void DisplayStatus(const std::string& text) = 0;
    virtual void ShowHelp(const std::string& text) = 0;
    // Runs the main window's menu command of that name, such as "mnuPrintSetup".
    virtual void RunMainCommand(const std::string& menuName) = 0;
    // Unloads the preview window.
    virtual void ClosePreview() = 0;
    // The document's entry file (its full path), or its name while it has none; empty when
    // there is no document.
    virtual std::string DocumentName() { return {}; }
};

}  // namespace pendulon
