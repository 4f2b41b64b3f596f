#pragma once
#include <string>

#include "platform/DateTime.hpp"

namespace pendulon {

class ErrorReport;
class Window;
class ListField;

// What the entry-file classes ask of the running program: the error report, the program's
// title texts, the common header block, the summary fields, the detail setting of the main
// window, its status and hint lines and the first recent-file entry.
class EntryFileHost {
  public:
    virtual ~EntryFileHost() = default;
    virtual ErrorReport& Errors() = 0;
    virtual std::string Title() = 0;            // the application title
    virtual std::string Build() = 0;            // "Build #: " and the version
    virtual std::string EntryFileHeader() = 0;  // the common block, ending in CR LF
    virtual std::string Revision() = 0;         // txtRevision of the summary
    virtual std::string SummaryFilename() = 0;  // txtFilename of the summary
    virtual bool SaveEntryFileDescription() = 0;
    virtual std::string RecentFileCaption() = 0;  // caption of the first recent-file entry
    virtual void DisplayStatus(const std::string& text) = 0;
    virtual void ShowHelp(const std::string& text) = 0;
    // The summary's checksum caption after the main window brought it up to date.
    virtual std::string UpdatedChecksum() = 0;
    // Today's date, from the platform's clock.
    virtual DateTime Today() = 0;
    // The program's version: major, minor and build number.
    struct Version {
        int Major = 0;
        int Minor = 0;
        int Build = 0;
    };
    virtual Version ProgramVersion() = 0;
};

// The members of a configurator the entry-file classes use beyond its named fields.
class EntryForm {
  public:
    virtual ~EntryForm() = default;
    virtual std::string Device() const = 0;
    virtual bool PreScale(int index) const = 0;
    virtual void SetPreScale(int index, bool value) = 0;
    virtual void cmdApplyLimits_Click() = 0;
    virtual Window& Fields() = 0;
};

}  // namespace pendulon
