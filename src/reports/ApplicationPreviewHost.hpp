#pragma once
#include "reports/PrintPreviewHost.hpp"

namespace pendulon {

class AppServices;

// The print preview inside the running program: status and hint lines and commands of the
// main window, the checksum of the summary window, and the application's preview slot.
class ApplicationPreviewHost : public PrintPreviewHost {
  public:
    explicit ApplicationPreviewHost(AppServices& app) : app_(app) {}

    std::string Title() override;
    std::string ChecksumCaption() override;
    void DisplayStatus(const std::string& text) override;
    void ShowHelp(const std::string& text) override;
    void RunMainCommand(const std::string& menuName) override;
    void ClosePreview() override;
    std::string DocumentName() override;

  private:
    AppServices& app_;
};

}  // namespace pendulon
