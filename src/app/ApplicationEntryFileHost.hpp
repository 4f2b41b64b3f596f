#pragma once
#include <string>

#include "app/EntryFileHost.hpp"

namespace pendulon {

class AppServices;

// What the entry-file classes ask of the running program, answered by the application's
// windows: the title texts, the header block, the summary fields and the main window.
class ApplicationEntryFileHost : public EntryFileHost {
  public:
    explicit ApplicationEntryFileHost(AppServices& app) : app_(app) {}

    ErrorReport& Errors() override;
    std::string Title() override;
    std::string Build() override;
    std::string EntryFileHeader() override;
    std::string Revision() override;
    std::string SummaryFilename() override;
    bool SaveEntryFileDescription() override;
    std::string RecentFileCaption() override;
    void DisplayStatus(const std::string& text) override;
    void ShowHelp(const std::string& text) override;
    std::string UpdatedChecksum() override;
    DateTime Today() override;
    Version ProgramVersion() override;

  private:
    AppServices& app_;
};

}  // namespace pendulon
