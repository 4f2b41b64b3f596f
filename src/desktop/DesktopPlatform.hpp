#pragma once
#include "desktop/QtPlatform.hpp"

namespace pendulon {

// The platform of the desktop program: QtPlatform with the fonts and printing of the print
// preview, and the manual shown formatted.
class DesktopPlatform : public QtPlatform {
  public:
    using QtPlatform::QtPlatform;

    std::vector<std::string> FixedPitchFonts() override;
    std::string SystemFixedFont() override;
    // Asks for the printer with the print dialog, then prints. A cancelled dialog prints
    // nothing and is no printer error.
    bool PrintText(const std::string& fontName, double size, const std::string& text) override;
    void ShowHelp(CommonDialog& dialog) override;

    // Set by tests: PrintText skips the dialog and prints on the printer as set up.
    bool printWithoutDialog = false;
};

}  // namespace pendulon
