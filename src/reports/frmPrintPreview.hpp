#pragma once
#include <memory>
#include <string>

#include "platform/CommandButton.hpp"
#include "platform/CommonDialog.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "platform/MenuItem.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"
#include "reports/PrintPreviewHost.hpp"

namespace pendulon {

class AppServices;
class ErrorReport;
class PlatformServices;

// Shows a text (the ASCII configuration document, or an entry file) in a fixed-pitch font,
// prints it or saves it as a text file.
class frmPrintPreview : public Window {
  public:
    frmPrintPreview(PlatformServices& services, ErrorReport& errors,
                    std::unique_ptr<PrintPreviewHost> host);
    // The preview of the running program.
    explicit frmPrintPreview(AppServices& app);
    ~frmPrintPreview() override;

    // Loads a preview, puts the text in it and makes it the program's preview window, in front
    // of the document. Returns the window, which the application owns.
    static frmPrintPreview& ShowText(AppServices& app, const std::string& text);
    // The classic screen faces that come in a few sizes of their own.
    static bool IsBitmapFace(const std::string& font);
    // The name Save offers for a document: its own name with ".txt" (in its entry file's
    // folder when it has one); "*.txt" without a document.
    static std::string TextFileName(const std::string& document);

    // Fills the font and size lists and selects the stored ones.
    void Form_Load();
    // Stores the chosen font and size, once; a loaded window that is destroyed without it (the
    // program closes it some other way) stores them then.
    void Form_Unload();

    void cboPrintFont_Click();
    void cboPrintSize_Click();
    void cmdPrint_Click();
    void cmdSave_Click();
    void cmdClose_Click();

    // The fonts offered: the classic fixed-pitch ones the system has, then the system's other
    // fixed-pitch fonts by name, or its general fixed font when there is none at all.
    std::vector<std::string> OfferedFonts() const;

    TextField txtPrintout;
    Label lblPrintFont;
    ListField cboPrintFont;
    Label lblFontSize;
    ListField cboPrintSize;
    CommandButton cmdPrint;
    CommandButton cmdSave;
    CommandButton cmdClose;

    MenuItem mnuFile;
    MenuItem mnuFilePrint;
    MenuItem mnuFilePrintSetup;
    MenuItem mnuFileClose;
    MenuItem mnuFileExit;
    MenuItem mnuEdit;
    MenuItem mnuEditCut;
    MenuItem mnuEditCopy;
    MenuItem mnuEditPaste;
    MenuItem mnuEditSelectAll;
    MenuItem mnuTools;
    MenuItem mnuToolsOptions;
    MenuItem mnuWindow;
    MenuItem mnuWindowCascade;
    MenuItem mnuWindowTile;
    MenuItem mnuHelp;
    MenuItem mnuHelpContents;
    MenuItem mnuHelpAbout;

    // The dialog of the Save command, kept between uses.
    CommonDialog dlgSave;

    static constexpr const char* kDefaultFont = "Courier New";
    static constexpr int kDefaultSizeIndex = 4;  // 9 points

  protected:
    // A window that previews its own text under its own name.
    frmPrintPreview(const std::string& name, PlatformServices& services, ErrorReport& errors,
                    std::unique_ptr<PrintPreviewHost> host);
    // Whether the text shown belongs to changes not yet saved, which printing asks about.
    virtual bool DocumentUnsaved() const;
    PlatformServices& Services() { return services_; }
    PrintPreviewHost& Host() { return *host_; }

  private:
    void BuildMenus();
    void Forward(MenuItem& item, const char* mainCommand);
    double ChosenSize() const;

    PlatformServices& services_;
    ErrorReport& errors_;
    std::unique_ptr<PrintPreviewHost> host_;
    bool loaded_ = false;
};

}  // namespace pendulon
