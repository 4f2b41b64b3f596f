#pragma once
#include "entryfile/EntryFileHost.hpp"

namespace pendulon {

class Application;

// The running application as the entry-file classes see it.
class ApplicationEntryFileHost : public EntryFileHost {
  public:
    explicit ApplicationEntryFileHost(Application& app) : app_(app) {}
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

  private:
    Application& app_;
};

}  // namespace pendulon
