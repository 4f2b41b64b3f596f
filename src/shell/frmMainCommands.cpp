#include "shell/frmMain.hpp"

#include <filesystem>

#include "app/Configurator.hpp"
#include "app/mSharedApp.hpp"
#include "core/mShared.hpp"
#include "platform/ListField.hpp"
#include "platform/TextField.hpp"
#include "reports/frmPrintPreview.hpp"
#include "reports/mAsciiPrintoutDocument.hpp"
#include "shell/Application.hpp"
#include "shell/frmAbout.hpp"
#include "shell/frmAboutKITE.hpp"
#include "shell/frmOptions.hpp"
#include "shell/frmSummary.hpp"
#include "shell/mSharedShell.hpp"

namespace pendulon {

// The menu commands that are no part of the document lifecycle: print setup, the tools, the
// edit, view and window commands, and help.

void frmMain::mnuPrintSetup_Click() {
    mShared::PrintSetup(app_);
}

// ---- Tools and help that open windows ------------------------------------------------------

void frmMain::mnuToolsOptions_Click() {
    frmOptions options(app_);
    options.Form_Load();
    app_.Services().ShowModal(options);
}

void frmMain::mnuToolsFrequencyPlanner_Click() {
    if (ShowFrequencyPlanner)
        ShowFrequencyPlanner();
}

void frmMain::mnuDecisionTree_Click() {
    if (app_.ShowDecisionTree)
        app_.ShowDecisionTree();
}

void frmMain::mnuAbout_Click() {
    frmAbout about(app_);
    about.Form_Load();
    app_.Services().ShowModal(about);
}

void frmMain::mnuAboutKITE_Click() {
    frmAboutKITE about;
    app_.Services().ShowModal(about);
}

// ---- Tool commands ---------------------------------------------------------------------------

int frmMain::CountExceededPLLs() const {
    const Configurator* child = app_.Document();
    if (child == nullptr)
        return 0;
    const std::string device = child->Device();
    const FieldRegistry& fields = child->Fields();
    int count = 0;
    auto countRed = [&](const std::string& name) {
        const Field* field = fields.Find(name);
        if (field != nullptr && field->Kind() == FieldKind::Text &&
            field->ForeColor() == colors::Red)
            ++count;
    };
    if (device == "QX4860F") {
        for (int i = 0; i <= 15; ++i) countRed("txtPLL(" + std::to_string(i) + ")");
    } else if (device == "QX6105AF") {
        for (int i = 0; fields.Find("txtPLL(" + std::to_string(i) + ")") != nullptr; ++i)
            countRed("txtPLL(" + std::to_string(i) + ")");
    } else if (device == "QX7311F" || device == "QX7312F") {
        countRed("txtSPLL");
        countRed("txtUPLL");
        for (int i = 0; i <= 7; ++i) countRed("txtCPLL(" + std::to_string(i) + ")");
    }
    return count;
}

bool frmMain::ContinueDespiteExceededPLLs() {
    if (CountExceededPLLs() <= 0)
        return true;
    const int answer = app_.Services().MsgBox(
        "There are one or more PLLs which exceed default limits,\r\n\r\n"
        "Do you wish to continue anyway?",
        msgbox::YesNo, app_.gstrTitle);
    return answer != msgbox::No;
}

std::string frmMain::TemporaryEntryFileName() {
    // In the user's temporary folder: the program's own folder is not the user's to write in
    // once the program is installed.
    PlatformServices& services = app_.Services();
    const std::string folder = services.TempDirectory();
    std::string name = services.TempFileName(folder, kPendulon);
    if (name.empty())
        name = (std::filesystem::path(folder) / "~entfile.tmp").string();
    return name;
}

namespace {
bool FileExists(const std::string& path) {
    std::error_code ec;
    return !path.empty() && std::filesystem::is_regular_file(path, ec);
}

void DeleteFileIfThere(const std::string& path) {
    std::error_code ec;
    std::filesystem::remove(path, ec);
}
}  // namespace

void frmMain::mnuViewEntryFileNew_Click() {
    Configurator* child = app_.Document();
    if (child == nullptr)
        return;
    if (!ContinueDespiteExceededPLLs())
        return;
    const std::string name = TemporaryEntryFileName();
    // A file that could not be written has been reported; there is nothing to show.
    if (child->MakeEntryFile(name))
        mShared::ShowEntFile(app_, name);
    // An editor started for the file may not have read it yet; it is deleted all the same.
    if (FileExists(name))
        DeleteFileIfThere(name);
}

void frmMain::mnuViewEntryFileSaved_Click() {
    Configurator* child = app_.Document();
    if (child == nullptr)
        return;
    std::string path = child->txtFilePath.Text();
    if (path.empty() && !app_.Summary().txtFilename.Text().empty())
        path = RecentPath(1);
    if (!path.empty())
        mShared::ShowEntFile(app_, path);
}

bool frmMain::CreateEPROM(bool blnNew) {
    Configurator* child = app_.Document();
    if (child == nullptr)
        return false;
    if (!ContinueDespiteExceededPLLs())
        return false;
    std::string temporary;
    if (blnNew) {
        temporary = TemporaryEntryFileName();
        child->MakeEntryFile(temporary);
    }
    const std::string oldPath = child->txtFilePath.Text();
    dlgEPROM.CancelError = true;
    dlgEPROM.Flags = CommonDialog::HideReadOnly | CommonDialog::OverwritePrompt |
                     CommonDialog::PathMustExist | CommonDialog::LongNames | CommonDialog::Explorer;
    if (dlgEPROM.DialogTitle.empty())
        dlgEPROM.DialogTitle = "Create EPROM Vector";
    if (dlgEPROM.Filter.empty())
        dlgEPROM.Filter = "EPROM Vectors (*.jed)|*.jed|All Files (*.*)|*.*";
    std::string name;
    if (app_.Services().ShowSave(dlgEPROM))
        name = dlgEPROM.FileName;
    bool written = false;
    if (!name.empty()) {
        child->txtFilePath.SetText(name);
        InitializeMenu(false);
        if (!oldPath.empty())
            UpdateFileMenu(oldPath);
        mdblSavedState = mShared::ComputeState(*child);
        // A fresh entry image is the window's own; otherwise the saved file is read again.
        written = child->MakeEPROMVector(name, blnNew);
        InitializeMenu(false);
    }
    if (blnNew) {
        DeleteFileIfThere(temporary);
        ShowHelp("Deleted " + temporary);
    }
    child->txtFilePath.SetText(oldPath);
    return written;
}

void frmMain::mnuToolsCreateEPROMNew_Click() {
    CreateEPROMVector(true);
}

void frmMain::mnuToolsCreateEPROMSaved_Click() {
    CreateEPROMVector(false);
}

bool frmMain::CreateEPROMVector(bool blnNew) {
    dlgEPROM.DefaultExt = "jed";
    if (!blnNew && app_.Summary().txtFilename.Text().empty()) {
        app_.Errors().Raise(10602, "frmMain.mnuToolsCreateEPROMSaved",
                            "Entry file does not exist!\r\n"
                            "Choose Create EPROM Vector From New Entry File.");
        return false;
    }
    return CreateEPROM(blnNew);
}

void frmMain::mnuToolsLaunchKITE_Click() {
    if (!FileExists(app_.gstrDesignTool)) {
        app_.Errors().Raise(10601, "frmMain.mnuToolsLaunchKITE",
                            "File not found: " + app_.gstrDesignTool);
        return;
    }
    app_.Services().StartProgram(app_.gstrDesignTool, {});
}

namespace {
// The focused text or list field of the active child, if it is one of those.
Field* EditTarget(Application& app) {
    Window* child = app.ActiveChild();
    if (child == nullptr)
        return nullptr;
    Field* field = child->ActiveControl();
    if (field == nullptr)
        return nullptr;
    if (field->Kind() != FieldKind::Text && field->Kind() != FieldKind::List)
        return nullptr;
    return field;
}

std::string SelectedText(const Field& field) {
    if (field.Kind() == FieldKind::Text)
        return static_cast<const TextField&>(field).SelText();
    return static_cast<const ListField&>(field).SelText();
}

void ReplaceSelection(Field& field, const std::string& text) {
    if (field.Kind() == FieldKind::Text)
        static_cast<TextField&>(field).SetSelText(text);
    else
        static_cast<ListField&>(field).SetSelText(text);
}
}  // namespace

void frmMain::mnuEditCopy_Click() {
    if (Field* field = EditTarget(app_))
        app_.Services().SetClipboardText(SelectedText(*field));
}

void frmMain::mnuEditCut_Click() {
    if (Field* field = EditTarget(app_)) {
        app_.Services().SetClipboardText(SelectedText(*field));
        ReplaceSelection(*field, "");
    }
}

void frmMain::mnuEditPaste_Click() {
    if (Field* field = EditTarget(app_))
        ReplaceSelection(*field, app_.Services().ClipboardText());
}

void frmMain::mnuEditSelectAll_Click() {
    Field* field = EditTarget(app_);
    if (field == nullptr)
        return;
    if (field->Kind() == FieldKind::Text) {
        auto& text = static_cast<TextField&>(*field);
        text.SetSelStart(0);
        text.SetSelLength(static_cast<int>(text.Text().size()));
    } else {
        auto& list = static_cast<ListField&>(*field);
        list.SetSelStart(0);
        list.SetSelLength(static_cast<int>(list.Text().size()));
    }
}

void frmMain::mnuViewPower_Click() {
    Configurator* child = app_.Document();
    if (child == nullptr)
        return;
    mnuViewPower.SetChecked(!mnuViewPower.Checked());
    mShared::ShowWindow(app_, child->picPower, mnuViewPower.Checked());
}

void frmMain::mnuViewDebugWindow_Click() {
    Configurator* child = app_.Document();
    if (child == nullptr || !mnuViewDebugWindow.Enabled())
        return;
    mnuViewDebugWindow.SetChecked(!mnuViewDebugWindow.Checked());
    mShared::ShowWindow(app_, child->picDebugWindow, mnuViewDebugWindow.Checked());
}

void frmMain::mnuTile_Click() {
    if (Arrange)
        Arrange(1);
}

void frmMain::mnuCascade_Click() {
    if (Arrange)
        Arrange(0);
}

std::string frmMain::HelpFilePath() const {
    namespace fs = std::filesystem;
    const fs::path dir = app_.Services().AppDirectory();
    // Beside the program; in the source tree's docs folder when run from a build folder; in
    // the installed tree's data or documentation folder when the program is <prefix>/bin.
    for (const fs::path& candidate :
         {dir / "manual.md", dir / "docs" / "manual.md", dir / ".." / "docs" / "manual.md",
          dir / ".." / "share" / "pendulon" / "manual.md",
          dir / ".." / "share" / "doc" / "pendulon" / "manual.md"}) {
        std::error_code ec;
        if (fs::is_regular_file(candidate, ec))
            return candidate.lexically_normal().string();
    }
    return (dir / "manual.md").string();
}

void frmMain::mnuPopupHelp_Click() {
    DisplayStatus("Opening Help...");
    dlgCommon.HelpFile = HelpFilePath();
    dlgCommon.HelpCommand = 15;
    app_.Services().ShowHelp(dlgCommon);
    DisplayStatus("");
}

void frmMain::mnuPrint_Click() {
    Configurator* child = app_.Document();
    if (child == nullptr)
        return;
    DisplayStatus("Generating ASCII document...");
    UpdateChecksum(false);
    const std::string text = mAsciiPrintout::GetASCIIDocument(*child);
    frmPrintPreview::ShowText(app_, text);
    DisplayStatus("");
}

}  // namespace pendulon
