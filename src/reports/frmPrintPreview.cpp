#include "reports/frmPrintPreview.hpp"

#include <algorithm>
#include <filesystem>

#include "app/AppServices.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/PlatformServices.hpp"
#include "platform/TextFile.hpp"
#include "reports/ApplicationPreviewHost.hpp"

namespace pendulon {

namespace {

constexpr const char* kApp = "Pendulon";
constexpr const char* kSection = "Print";
constexpr const char* kClassicFonts[] = {"Courier New", "Courier", "Terminal", "Fixedsys"};
constexpr int kSmallestSize = 5;
constexpr int kLargestSize = 12;
constexpr double kFallbackSize = 9;
constexpr long kPrinterError = 482;
constexpr long kFileAccessError = 75;

// Every line ended by CR LF, whatever ends it had.
std::string WithCrLf(const std::string& text) {
    std::string out;
    out.reserve(text.size() + text.size() / 16);
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r') {
            out += "\r\n";
            if (i + 1 < text.size() && text[i + 1] == '\n')
                ++i;
        } else if (c == '\n') {
            out += "\r\n";
        } else {
            out += c;
        }
    }
    return out;
}

}  // namespace

frmPrintPreview::frmPrintPreview(PlatformServices& services, ErrorReport& errors,
                                 std::unique_ptr<PrintPreviewHost> host)
    : frmPrintPreview("frmPrintPreview", services, errors, std::move(host)) {}

frmPrintPreview::frmPrintPreview(const std::string& name, PlatformServices& services,
                                 ErrorReport& errors, std::unique_ptr<PrintPreviewHost> host)
    : Window(name), services_(services), errors_(errors), host_(std::move(host)) {
    SetCaption("Print Preview");
    txtPrintout.SetMultiLine(true);
    txtPrintout.SetFont(kDefaultFont, kFallbackSize);
    lblPrintFont.SetCaption("Font:");
    lblFontSize.SetCaption("Size:");
    cmdPrint.SetCaption("&Print");
    cmdSave.SetCaption("&Save");
    cmdClose.SetCaption("&Close");

    Register("txtPrintout", txtPrintout);
    Register("lblPrintFont", lblPrintFont);
    Register("cboPrintFont", cboPrintFont);
    Register("lblFontSize", lblFontSize);
    Register("cboPrintSize", cboPrintSize);
    Register("cmdPrint", cmdPrint);
    Register("cmdSave", cmdSave);
    Register("cmdClose", cmdClose);

    cboPrintFont.OnClick = [this] { cboPrintFont_Click(); };
    cboPrintSize.OnClick = [this] { cboPrintSize_Click(); };
    cmdPrint.OnClick = [this] { cmdPrint_Click(); };
    cmdSave.OnClick = [this] { cmdSave_Click(); };
    cmdClose.OnClick = [this] { cmdClose_Click(); };

    BuildMenus();
}

frmPrintPreview::frmPrintPreview(AppServices& app)
    : frmPrintPreview(app.Services(), app.Errors(), std::make_unique<ApplicationPreviewHost>(app)) {
}

frmPrintPreview::~frmPrintPreview() {
    Form_Unload();
}

frmPrintPreview& frmPrintPreview::ShowText(AppServices& app, const std::string& text) {
    auto preview = std::make_unique<frmPrintPreview>(app);
    frmPrintPreview& form = *preview;
    form.Form_Load();
    form.txtPrintout.SetText(text);
    app.SetPreview(std::move(preview), [&form] { form.cmdSave_Click(); });
    form.SetVisible(true);
    return form;
}

void frmPrintPreview::BuildMenus() {
    struct Entry {
        MenuItem* Item;
        const char* Name;
        const char* Caption;
        const char* Shortcut;
    };
    const Entry entries[] = {
        {&mnuFile, "mnuFile", "&File", ""},
        {&mnuFilePrint, "mnuFilePrint", "&Print...", "Ctrl+P"},
        {&mnuFilePrintSetup, "mnuFilePrintSetup", "Print Set&up...", ""},
        {&mnuFileClose, "mnuFileClose", "&Close", ""},
        {&mnuFileExit, "mnuFileExit", "E&xit", ""},
        {&mnuEdit, "mnuEdit", "&Edit", ""},
        {&mnuEditCut, "mnuEditCut", "Cu&t", "Ctrl+X"},
        {&mnuEditCopy, "mnuEditCopy", "&Copy", "Ctrl+C"},
        {&mnuEditPaste, "mnuEditPaste", "&Paste", "Ctrl+V"},
        {&mnuEditSelectAll, "mnuEditSelectAll", "Select &All", "Ctrl+A"},
        {&mnuTools, "mnuTools", "&Tools", ""},
        {&mnuToolsOptions, "mnuToolsOptions", "&Options...", ""},
        {&mnuWindow, "mnuWindow", "&Window", ""},
        {&mnuWindowCascade, "mnuWindowCascade", "&Cascade", ""},
        {&mnuWindowTile, "mnuWindowTile", "&Tile", ""},
        {&mnuHelp, "mnuHelp", "&Help", ""},
        {&mnuHelpContents, "mnuHelpContents", "&Contents", "F1"},
        {&mnuHelpAbout, "mnuHelpAbout", "&About Pendulon...", ""},
    };
    for (const Entry& entry : entries) {
        entry.Item->SetCaption(entry.Caption);
        entry.Item->SetShortcut(entry.Shortcut);
        Register(entry.Name, *entry.Item);
    }
    mnuFile.AddItem(mnuFilePrint);
    mnuFile.AddItem(mnuFilePrintSetup);
    mnuFile.AddItem(mnuFileClose);
    mnuFile.AddItem(mnuFileExit);
    mnuEdit.AddItem(mnuEditCut);
    mnuEdit.AddItem(mnuEditCopy);
    mnuEdit.AddItem(mnuEditPaste);
    mnuEdit.AddItem(mnuEditSelectAll);
    mnuTools.AddItem(mnuToolsOptions);
    mnuWindow.AddItem(mnuWindowCascade);
    mnuWindow.AddItem(mnuWindowTile);
    mnuHelp.AddItem(mnuHelpContents);
    mnuHelp.AddItem(mnuHelpAbout);

    // The file commands are this window's buttons; the rest are the main window's commands.
    mnuFilePrint.OnClick = [this] { cmdPrint_Click(); };
    mnuFileClose.OnClick = [this] { cmdClose_Click(); };
    Forward(mnuFilePrintSetup, "mnuPrintSetup");
    Forward(mnuFileExit, "mnuExit");
    Forward(mnuEditCut, "mnuEditCut");
    Forward(mnuEditCopy, "mnuEditCopy");
    Forward(mnuEditPaste, "mnuEditPaste");
    Forward(mnuEditSelectAll, "mnuEditSelectAll");
    Forward(mnuToolsOptions, "mnuToolsOptions");
    Forward(mnuWindowCascade, "mnuCascade");
    Forward(mnuWindowTile, "mnuTile");
    Forward(mnuHelpContents, "mnuPopupHelp");
    Forward(mnuHelpAbout, "mnuAbout");
}

void frmPrintPreview::Forward(MenuItem& item, const char* mainCommand) {
    const std::string command = mainCommand;
    item.OnClick = [this, command] { host_->RunMainCommand(command); };
}

std::vector<std::string> frmPrintPreview::OfferedFonts() const {
    std::vector<std::string> fonts;
    for (const char* font : kClassicFonts)
        if (services_.FontExists(font))
            fonts.push_back(font);

    // The system's other fixed-pitch fonts follow, by name, so the list is the same every time.
    std::vector<std::string> others = services_.FixedPitchFonts();
    std::sort(others.begin(), others.end(), [](const std::string& a, const std::string& b) {
        const std::string la = LCase(a), lb = LCase(b);
        return la != lb ? la < lb : a < b;
    });
    for (const std::string& font : others) {
        if (Trim(font).empty())
            continue;
        const bool known = std::any_of(fonts.begin(), fonts.end(),
                                       [&](const std::string& f) { return EqualsNoCase(f, font); });
        if (!known)
            fonts.push_back(font);
    }
    if (fonts.empty())
        fonts.push_back(services_.SystemFixedFont());
    return fonts;
}

void frmPrintPreview::Form_Load() {
    loaded_ = true;
    cboPrintFont.Clear();
    for (const std::string& font : OfferedFonts()) cboPrintFont.AddItem(font);
    cboPrintSize.Clear();
    for (int size = kSmallestSize; size <= kLargestSize; ++size)
        cboPrintSize.AddItem(FormatText(IntegerText(size), "@@@"));

    const std::string font = services_.GetSetting(kApp, kSection, "FontName", kDefaultFont);
    if (!mShared::SetListIndex(cboPrintFont, font, true) && cboPrintFont.ListCount() > 0)
        cboPrintFont.SetListIndex(0);
    const std::string size = services_.GetSetting(kApp, kSection, "FontSize", "");
    if (!mShared::SetListIndex(cboPrintSize, size, false))
        cboPrintSize.SetListIndex(kDefaultSizeIndex);
}

void frmPrintPreview::Form_Unload() {
    if (!loaded_)
        return;
    loaded_ = false;
    services_.SaveSetting(kApp, kSection, "FontName", cboPrintFont.Text());
    services_.SaveSetting(kApp, kSection, "FontSize", Trim(cboPrintSize.Text()));
}

double frmPrintPreview::ChosenSize() const {
    const double size = Val(cboPrintSize.Text());
    return size > 0 ? size : kFallbackSize;
}

void frmPrintPreview::cboPrintFont_Click() {
    const std::string font = cboPrintFont.Text();
    txtPrintout.SetFont(font, ChosenSize());
    // A scalable face takes every size; the classic screen faces keep their own.
    cboPrintSize.SetEnabled(!IsBitmapFace(font));
}

bool frmPrintPreview::IsBitmapFace(const std::string& font) {
    return font == "Courier" || font == "Terminal" || font == "Fixedsys";
}

std::string frmPrintPreview::TextFileName(const std::string& document) {
    if (document.empty())
        return "*.txt";
    std::filesystem::path name(document);
    name.replace_extension(".txt");
    return name.string();
}

void frmPrintPreview::cboPrintSize_Click() {
    txtPrintout.SetFont(txtPrintout.FontName(), ChosenSize());
}

bool frmPrintPreview::DocumentUnsaved() const {
    return Val(host_->ChecksumCaption()) <= 0;
}

void frmPrintPreview::cmdPrint_Click() {
    const int style = msgbox::YesNo | msgbox::Question;
    if (DocumentUnsaved()) {
        const std::string prompt = std::string("Note: File changes have not been saved. ") +
                                   "\r\n\r\n" + "Would you like to continue printing?";
        if (services_.MsgBox(prompt, style, host_->Title()) == msgbox::No)
            return;
    }

    std::string font = cboPrintFont.Text();
    if (!services_.PrinterHasFont(font)) {
        const std::string prompt = "Print Error: The font \"" + font + "\" is not available." +
                                   "\r\n" + "Would you like to continue printing " +
                                   "using printer's default font?";
        if (services_.MsgBox(prompt, style, host_->Title()) == msgbox::No) {
            host_->DisplayStatus("");
            return;
        }
        font.clear();  // the printer's default
    }

    host_->DisplayStatus("Printing...");
    if (!services_.PrintText(font, ChosenSize(), txtPrintout.Text())) {
        errors_.Raise(kPrinterError, "(" + Name() + ") cmdPrint_Click", "Printer error");
        host_->DisplayStatus("");
        return;
    }
    host_->DisplayStatus("");
    host_->ShowHelp("Document sent to printer.");
}

void frmPrintPreview::cmdSave_Click() {
    dlgSave.Filter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*";
    dlgSave.DefaultExt = "txt";
    // The document's own name with ".txt", in the folder of its entry file.
    dlgSave.FileName = TextFileName(host_->DocumentName());
    dlgSave.CancelError = true;
    dlgSave.Flags =
        CommonDialog::OverwritePrompt | CommonDialog::HideReadOnly | CommonDialog::PathMustExist;
    if (!services_.ShowSave(dlgSave))
        return;  // cancelled: nothing to do
    const std::string path = dlgSave.FileName;

    // One output statement: the text and the end of its last line.
    const std::string problem =
        WriteTextFileAtomically(path, WithCrLf(txtPrintout.Text()) + "\r\n");
    if (!problem.empty()) {
        errors_.Raise(kFileAccessError, "(" + Name() + ") cmdSave_Click",
                      "Path/File access error: " + path + " (" + problem + ")");
        return;
    }
    host_->ShowHelp("Document saved to \"" + path + "\"");
}

void frmPrintPreview::cmdClose_Click() {
    Form_Unload();
    host_->ClosePreview();  // may destroy this window: nothing may follow
}

}  // namespace pendulon
