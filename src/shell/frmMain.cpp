#include "shell/frmMain.hpp"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "app/Configurator.hpp"
#include "app/mSharedApp.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/mFileAccessor.hpp"
#include "platform/ListField.hpp"
#include "platform/TextField.hpp"
#include "power/frmPower.hpp"
#include "reports/frmPrintPreview.hpp"
#include "reports/mAsciiPrintoutDocument.hpp"
#include "shell/Application.hpp"
#include "shell/ConfiguratorFactory.hpp"
#include "shell/frmAbout.hpp"
#include "shell/frmAboutKITE.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmOptions.hpp"
#include "shell/frmReadBack.hpp"
#include "shell/frmSplash.hpp"
#include "shell/frmSummary.hpp"
#include "shell/mSharedShell.hpp"

namespace pendulon {

namespace {
constexpr const char* kPendulon = "Pendulon";

void SetupMenu(MenuItem& item, const char* caption, const char* shortcut = "") {
    item.SetCaption(caption);
    if (*shortcut != '\0')
        item.SetShortcut(shortcut);
}
}  // namespace

frmMain::frmMain(Application& app) : MainFace("frmMain"), app_(app) {
    SetupMenu(mnuFile, "&File");
    SetupMenu(mnuNew, "&New", "Ctrl+N");
    SetupMenu(mnuOpen, "&Open...", "Ctrl+O");
    SetupMenu(mnuSave, "&Save", "Ctrl+S");
    SetupMenu(mnuSaveAs, "Save &As...");
    SetupMenu(mnuClose, "&Close", "Ctrl+W");
    SetupMenu(mnuConfiguration, "Configuration &Info...");
    SetupMenu(mnuPrint, "&Print...", "Ctrl+P");
    SetupMenu(mnuPrintSetup, "P&rint Setup...");
    SetupMenu(mnuExit, "E&xit", "Ctrl+Q");
    mnuFilePathArray[0].SetCaption("-");
    for (auto& item : mnuFilePathArray) item->SetVisible(false);
    SetupMenu(mnuEdit, "&Edit");
    SetupMenu(mnuEditCut, "Cu&t", "Ctrl+X");
    SetupMenu(mnuEditCopy, "&Copy", "Ctrl+C");
    SetupMenu(mnuEditPaste, "&Paste", "Ctrl+V");
    SetupMenu(mnuEditSelectAll, "Select &All", "Ctrl+A");
    SetupMenu(mnuView, "&View");
    SetupMenu(mnuViewPower, "&Power Calculation");
    SetupMenu(mnuViewDebugWindow, "&Debug Window");
    SetupMenu(mnuViewEntryFile, "&Entry File");
    SetupMenu(mnuViewEntryFileNew, "&Create New");
    SetupMenu(mnuViewEntryFileSaved, "&Read From Disk");
    SetupMenu(mnuTools, "&Tools");
    SetupMenu(mnuToolsCreateEPROM, "Create EPROM Vector");
    SetupMenu(mnuToolsCreateEPROMNew, "From &New Entry File");
    SetupMenu(mnuToolsCreateEPROMSaved, "&From Saved Entry File");
    SetupMenu(mnuToolsOptions, "&Options...");
    SetupMenu(mnuToolsLaunchKITE, "Launch &KITE");
    SetupMenu(mnuWindow, "&Window");
    SetupMenu(mnuTile, "&Tile");
    SetupMenu(mnuCascade, "&Cascade");
    SetupMenu(mnuHelp, "&Help");
    SetupMenu(mnuPopupHelp, "Contents", "F1");
    SetupMenu(mnuDecisionTree, "Clock Selection Wizard");
    SetupMenu(mnuAbout, "About Pendulon...");
    SetupMenu(mnuAboutKITE, "About KITE...");

    // The debug window exists only for users whose settings name it; the design tool only
    // when it was found.
    mnuViewDebugWindow.SetEnabled(false);
    mnuViewDebugWindow.SetVisible(false);
    mnuToolsLaunchKITE.SetEnabled(false);

    // Menu tree, with a line between the groups of each menu.
    for (MenuItem& line : mnuGroupLines) line.SetCaption("-");
    MenuItem* line = mnuGroupLines.data();
    for (MenuItem* item : {&mnuNew, &mnuOpen, &mnuSave, &mnuSaveAs, line, &mnuClose, line + 1,
                           &mnuConfiguration, line + 2, &mnuPrint, &mnuPrintSetup})
        mnuFile.AddItem(*item);
    // The recent files bring their own line.
    for (auto& item : mnuFilePathArray) mnuFile.AddItem(*item);
    mnuFile.AddItem(line[3]);
    mnuFile.AddItem(mnuExit);
    for (MenuItem* item : {&mnuEditCut, &mnuEditCopy, &mnuEditPaste, line + 4, &mnuEditSelectAll})
        mnuEdit.AddItem(*item);
    mnuViewEntryFile.AddItem(mnuViewEntryFileNew);
    mnuViewEntryFile.AddItem(mnuViewEntryFileSaved);
    for (MenuItem* item : {&mnuViewPower, &mnuViewDebugWindow, line + 5, &mnuViewEntryFile})
        mnuView.AddItem(*item);
    mnuToolsCreateEPROM.AddItem(mnuToolsCreateEPROMNew);
    mnuToolsCreateEPROM.AddItem(mnuToolsCreateEPROMSaved);
    for (MenuItem* item :
         {&mnuToolsCreateEPROM, line + 6, &mnuToolsOptions, line + 7, &mnuToolsLaunchKITE})
        mnuTools.AddItem(*item);
    mnuWindow.AddItem(mnuTile);
    mnuWindow.AddItem(mnuCascade);
    for (MenuItem* item :
         {&mnuPopupHelp, line + 8, &mnuDecisionTree, line + 9, &mnuAbout, &mnuAboutKITE})
        mnuHelp.AddItem(*item);

    Register("mnuFile", mnuFile);
    Register("mnuNew", mnuNew);
    Register("mnuOpen", mnuOpen);
    Register("mnuSave", mnuSave);
    Register("mnuSaveAs", mnuSaveAs);
    Register("mnuClose", mnuClose);
    Register("mnuConfiguration", mnuConfiguration);
    Register("mnuPrint", mnuPrint);
    Register("mnuPrintSetup", mnuPrintSetup);
    Register("mnuExit", mnuExit);
    RegisterArray("mnuFilePathArray", mnuFilePathArray);
    Register("mnuEdit", mnuEdit);
    Register("mnuEditCut", mnuEditCut);
    Register("mnuEditCopy", mnuEditCopy);
    Register("mnuEditPaste", mnuEditPaste);
    Register("mnuEditSelectAll", mnuEditSelectAll);
    Register("mnuView", mnuView);
    Register("mnuViewPower", mnuViewPower);
    Register("mnuViewDebugWindow", mnuViewDebugWindow);
    Register("mnuViewEntryFile", mnuViewEntryFile);
    Register("mnuViewEntryFileNew", mnuViewEntryFileNew);
    Register("mnuViewEntryFileSaved", mnuViewEntryFileSaved);
    Register("mnuTools", mnuTools);
    Register("mnuToolsCreateEPROM", mnuToolsCreateEPROM);
    Register("mnuToolsCreateEPROMNew", mnuToolsCreateEPROMNew);
    Register("mnuToolsCreateEPROMSaved", mnuToolsCreateEPROMSaved);
    Register("mnuToolsOptions", mnuToolsOptions);
    Register("mnuToolsLaunchKITE", mnuToolsLaunchKITE);
    Register("mnuWindow", mnuWindow);
    Register("mnuTile", mnuTile);
    Register("mnuCascade", mnuCascade);
    Register("mnuHelp", mnuHelp);
    Register("mnuPopupHelp", mnuPopupHelp);
    Register("mnuDecisionTree", mnuDecisionTree);
    Register("mnuAbout", mnuAbout);
    Register("mnuAboutKITE", mnuAboutKITE);
    Register("picStatus", picStatus);
    Register("lblHelpInfo", lblHelpInfo);
    Register("lblStatus", lblStatus);

    mnuNew.OnClick = [this] { mnuNew_Click(); };
    mnuOpen.OnClick = [this] { mnuOpen_Click(); };
    mnuSave.OnClick = [this] { mnuSave_Click(); };
    mnuSaveAs.OnClick = [this] { mnuSaveAs_Click(); };
    mnuClose.OnClick = [this] { mnuClose_Click(); };
    mnuConfiguration.OnClick = [this] { mnuConfiguration_Click(); };
    mnuPrintSetup.OnClick = [this] { mnuPrintSetup_Click(); };
    mnuExit.OnClick = [this] { mnuExit_Click(); };
    for (int i = 1; i < mnuFilePathArray.Count(); ++i)
        mnuFilePathArray[i].OnClick = [this, i] { mnuFilePathArray_Click(i); };
    mnuPrint.OnClick = [this] { mnuPrint_Click(); };
    mnuEditCut.OnClick = [this] { mnuEditCut_Click(); };
    mnuEditCopy.OnClick = [this] { mnuEditCopy_Click(); };
    mnuEditPaste.OnClick = [this] { mnuEditPaste_Click(); };
    mnuEditSelectAll.OnClick = [this] { mnuEditSelectAll_Click(); };
    mnuViewPower.OnClick = [this] { mnuViewPower_Click(); };
    mnuViewDebugWindow.OnClick = [this] { mnuViewDebugWindow_Click(); };
    mnuViewEntryFileNew.OnClick = [this] { mnuViewEntryFileNew_Click(); };
    mnuViewEntryFileSaved.OnClick = [this] { mnuViewEntryFileSaved_Click(); };
    mnuToolsCreateEPROMNew.OnClick = [this] { mnuToolsCreateEPROMNew_Click(); };
    mnuToolsCreateEPROMSaved.OnClick = [this] { mnuToolsCreateEPROMSaved_Click(); };
    mnuToolsOptions.OnClick = [this] { mnuToolsOptions_Click(); };
    mnuToolsLaunchKITE.OnClick = [this] { mnuToolsLaunchKITE_Click(); };
    mnuTile.OnClick = [this] { mnuTile_Click(); };
    mnuCascade.OnClick = [this] { mnuCascade_Click(); };
    mnuPopupHelp.OnClick = [this] { mnuPopupHelp_Click(); };
    mnuDecisionTree.OnClick = [this] { mnuDecisionTree_Click(); };
    mnuAbout.OnClick = [this] { mnuAbout_Click(); };
    mnuAboutKITE.OnClick = [this] { mnuAboutKITE_Click(); };
}

bool frmMain::ChildIsActive() const {
    return app_.ChildIsActive();
}

// ---- Start-up -------------------------------------------------------------------------------

void frmMain::MDIForm_Load(const std::string& commandLine) {
    std::string command = Trim(commandLine);
    if (EqualsNoCase(command, "/ClearRegistry")) {
        // The boxes carry the program's title, so the globals come first.
        InitializeGlobalVariables();
        ClearRegistry();
        app_.End();
        return;
    }
    DisplayStatus("Loading...");
    InitializeGlobalVariables();
    GetApplicationSettings();
    const double tppY = app_.gintTwipsPerPixelY;
    picStatus.SetHeight(24 * tppY);
    lblHelpInfo.SetHeight((24 - 4) * tppY);
    lblStatus.SetHeight((24 - 4) * tppY);
    MDIForm_Resize();
    InitializeMenu(false);
    mblnSaveEntryFileDescription = mnuViewDebugWindow.Enabled();
    UpdateChecksum(false);
    SetVisible(true);
    app_.Summary().Form_Load();
    app_.DeviceForm().Form_Load();
    app_.Power().Clear();
    if (!command.empty()) {
        // A path the shell handed over in quotes is the same path.
        if (command.size() >= 2 && command.front() == '"' && command.back() == '"')
            command = command.substr(1, command.size() - 2);
        GetFile(command);
    } else {
        frmSplash splash(app_);
        splash.Form_Load();
        app_.Services().ShowModal(splash);
    }
    DisplayStatus("");
}

void frmMain::InitializeGlobalVariables() {
    app_.gstrSTX = std::string(1, '\x02');
    app_.gstrETX = std::string(1, '\x03');
    app_.gstrSpace = " ";
    const std::string version = FormatNumber(Application::kVersionMajor, "0") + "." +
                                FormatNumber(Application::kVersionMinor, "00");
    app_.gstrBuild = "Build #: " + FormatNumber(Application::kVersionMajor, "0") + "." +
                     FormatNumber(Application::kVersionMinor, "00") + "." +
                     FormatNumber(Application::kVersionRevision, "000");
    app_.gstrTitleTM = std::string(kPendulon) + "\u2122 " + version;
    app_.gstrTitle = std::string(kPendulon) + "(tm) " + version;
    SetCaption(app_.gstrTitle);
    app_.gintTwipsPerPixelX = app_.Services().TwipsPerPixelX();
    app_.gintTwipsPerPixelY = app_.Services().TwipsPerPixelY();
}

// ---- Status, hints, checksum ----------------------------------------------------------------

void frmMain::DisplayStatus(const std::string& strStatusMessage) {
    if (!strStatusMessage.empty()) {
        app_.Services().SetMousePointer(kPointerHourglass);
        lblStatus.SetCaption(strStatusMessage);
    } else {
        app_.Services().SetMousePointer(kPointerDefault);
        lblStatus.SetCaption("");
    }
}

void frmMain::ShowHelp(const std::string& strText) {
    const std::string text = Trim(strText);
    if (text.empty()) {
        lblHelpInfo.SetCaption("");
        lblHelpInfo.SetBackColor(colors::ButtonFace);
    } else {
        lblHelpInfo.SetCaption(" " + text);
        lblHelpInfo.SetBackColor(colors::Yellow);
    }
}

void frmMain::FileChange() {
    mblnFileChanged = true;
}

void frmMain::UpdateChecksum(bool blnForceUpdate) {
    Label& caption = app_.Summary().lblChecksum;
    Configurator* child = app_.Document();
    if (child == nullptr) {
        caption.SetCaption("n/a");
    } else if (blnForceUpdate) {
        caption.SetCaption(child->Checksum());
    } else if (caption.Caption().empty() || mblnFileChanged) {
        caption.SetCaption(child->Checksum());
    } else if (mShared::ComputeState(*child) == mdblSavedState) {
        caption.SetCaption(mstrSavedChecksum);
    } else {
        caption.SetCaption(child->Checksum());
    }
}

// ---- Menus ----------------------------------------------------------------------------------

void frmMain::InitializeMenu(bool blnActiveFormUnloading) {
    Configurator* child = app_.Document();
    if (ChildIsActive() && !blnActiveFormUnloading) {
        mnuView.SetVisible(true);
        mnuEdit.SetVisible(true);
        mnuSave.SetEnabled(true);
        mnuSaveAs.SetEnabled(true);
        mnuClose.SetEnabled(true);
        mnuPrint.SetEnabled(true);
        mnuViewEntryFileNew.SetEnabled(true);
        const bool named = !app_.Summary().txtFilename.Text().empty();
        mnuViewEntryFileSaved.SetEnabled(named);
        mnuToolsCreateEPROMSaved.SetEnabled(named);
        const bool pending = child != nullptr && child->cmdCalculate.BackColor() == colors::Yellow;
        mnuViewEntryFileNew.SetEnabled(!pending);
        mnuToolsCreateEPROMNew.SetEnabled(!pending);
        const std::string device = child != nullptr ? child->Device() : std::string();
        mnuToolsCreateEPROM.SetEnabled((IsDeviceInTable(device) && device != "QX5140") ||
                                       device == "QX3350F");
    } else {
        mnuView.SetVisible(false);
        mnuEdit.SetVisible(false);
        mnuSave.SetEnabled(false);
        mnuSaveAs.SetEnabled(false);
        mnuClose.SetEnabled(false);
        mnuPrint.SetEnabled(false);
        mnuViewEntryFileNew.SetEnabled(false);
        mnuViewEntryFileSaved.SetEnabled(false);
        mnuToolsCreateEPROM.SetEnabled(false);
    }
}

std::string frmMain::RecentPath(int index) const {
    const std::string& caption = mnuFilePathArray[index].Caption();
    const size_t blank = InStr(caption, " ");
    if (blank == 0)
        return Trim(caption);
    return Trim(Mid(caption, blank + 1));
}

void frmMain::UpdateFileMenu(const std::string& strFile) {
    mnuFilePathArray[0].SetVisible(true);
    int noted = 0;
    bool exists = false;
    const int count = mintRecentFileCount;
    for (int i = 1; i <= count; ++i) {
        if (RecentPath(i) == strFile) {
            noted = i;
            --mintRecentFileCount;
            exists = true;
        }
    }
    if (mintRecentFileCount < 5) {
        ++mintRecentFileCount;
        if (!exists)
            mnuFilePathArray[mintRecentFileCount].SetVisible(true);
    }
    for (int i = mintRecentFileCount - 1; i >= 1; --i) {
        if (!exists || i < noted) {
            std::string caption(1, '&');
            caption += std::to_string(i + 1);
            caption += ' ';
            caption += RecentPath(i);
            mnuFilePathArray[i + 1].SetCaption(caption);
        }
    }
    mnuFilePathArray[1].SetCaption("&1 " + strFile);
}

void frmMain::mnuFilePathArray_Click(int Index) {
    GetFile(RecentPath(Index));
}

// ---- Documents ------------------------------------------------------------------------------

void frmMain::mnuNew_Click() {
    app_.DeviceForm().CreateNew(true);
    app_.Services().ShowModal(app_.DeviceForm());
}

void frmMain::LoadForm() {
    PlatformServices& services = app_.Services();
    const int pointer = services.MousePointer();
    services.SetMousePointer(kPointerHourglass);
    DisplayStatus("Loading new form...");
    const std::string device = app_.DeviceForm().mstrCurrentDevice;
    std::unique_ptr<Configurator> created;
    if (IsDeviceInTable(device))
        created = CreateConfigurator(app_, device);
    if (!created) {
        app_.Errors().Raise(10603, "frmMain.LoadForm", "An invalid device selection was made.");
    }
    if (app_.ChildIsActive()) {
        if (app_.Preview() != nullptr)
            app_.UnloadPreview();
        app_.UnloadDocument(kUnloadFormCode);
    }
    if (app_.ChildIsActive()) {
        created.reset();
    } else if (created) {
        created->Form_Load();
        Configurator& child = *created;
        app_.SetDocument(std::move(created));
        child.txtFilePath.SetText("");
        child.lblDevice.SetCaption(device);
        child.SetVisible(true);
        mdblSavedState = mShared::ComputeState(child);
        app_.Summary().Reset();
        mblnFileChanged = true;
        mstrSavedChecksum = app_.Summary().lblChecksum.Caption();
        mShared::SetSummaryFormCaption(app_, device);
        InitializeMenu(false);
        child.SetFocusTo(&child.cboFRef);
    }
    DisplayStatus("");
    services.SetMousePointer(pointer);
}

void frmMain::mnuOpen_Click() {
    GetFile("");
}

void frmMain::GetFile(const std::string& strFileToRetrieve) {
    std::string path = strFileToRetrieve;
    if (path.empty())
        path = mFileAccessor::OpenFile(app_);
    dlgCommon.Flags = CommonDialog::EntryFileFlags;
    if (path.empty())
        return;
    // A fuse map opens its read-back, in front of the document, which stays as it is.
    if (frmReadBack::IsFuseMapFile(path)) {
        frmReadBack::Show(app_, path);
        return;
    }
    if (app_.ChildIsActive()) {
        if (app_.Preview() != nullptr)
            app_.UnloadPreview();
        app_.UnloadDocument(kUnloadFormCode);
        if (app_.ChildIsActive())
            return;
    }
    DisplayStatus("Reading file...");
    clsEntryFile file(app_.Errors());
    if (!mFileAccessor::ReadFile(path, file)) {
        DisplayStatus("");
        return;
    }
    std::string name = mFileAccessor::GetFileName(path);
    const size_t bracket = InStr(name, "(");
    if (bracket > 0)
        name = pendulon::Left(name, bracket - 1);
    app_.Summary().txtFilename.SetText(Trim(name));
    DisplayStatus("");
    if (!mFileAccessor::FillConfigurationSummary(app_, file)) {
        DisplayStatus("");
        return;
    }
    const bool filled = mFileAccessor::FillForm(app_, file, path);
    Configurator* child = app_.Document();
    if (filled && child != nullptr) {
        DisplayStatus("Computing Checksum...");
        UpdateFileMenu(path);
        InitializeMenu(false);
        mnuViewEntryFileSaved.SetEnabled(true);
        app_.Power().SetParentForm(child);
        mstrSavedChecksum = app_.Summary().lblChecksum.Caption();
        mdblSavedState = mShared::ComputeState(*child);
        mblnFileChanged = false;
        DisplayStatus("");
    } else {
        if (child != nullptr) {
            child->mUnloadRequired = true;
            app_.UnloadDocument(kUnloadFormCode);
        }
        app_.Services().MsgBox(
            "NOTE: One or more critical errors have occurred loading the ENT file.\r\n\r\n"
            "The form cannot be loaded when such errors occur.",
            msgbox::Information, app_.gstrTitle);
    }
}

bool frmMain::RefuseUncalculatedSave() {
    if (!app_.gblnNeedsCalculate)
        return false;
    // The answer is compared with Yes, which this box cannot give: nothing is ever saved here.
    app_.Services().MsgBox(
        "Warning! You have not calculated your configurations.\r\n"
        "Please finish your configurations before saving.",
        msgbox::OKCancel | msgbox::Exclamation, app_.gstrTitle);
    return true;
}

void frmMain::mnuSave_Click() {
    SaveDocument();
}

bool frmMain::SaveDocument() {
    if (RefuseUncalculatedSave())
        return false;
    if (!ChildIsActive())
        return false;
    DisplayStatus("Saving file...");
    bool saved = false;
    if (app_.Preview() != nullptr) {
        app_.SavePreview();
        saved = true;
    } else if (Configurator* child = app_.Document()) {
        if (child->txtFilePath.Text().empty()) {
            saved = SaveDocumentAs();
        } else if (child->Save()) {
            // A write that failed has been reported; the document stays unsaved.
            saved = true;
            mdblSavedState = mShared::ComputeState(*child);
            mstrSavedChecksum = app_.Summary().lblChecksum.Caption();
        }
    }
    DisplayStatus("");
    return saved;
}

void frmMain::mnuSaveAs_Click() {
    SaveDocumentAs();
}

bool frmMain::SaveDocumentAs() {
    if (RefuseUncalculatedSave())
        return false;
    if (!ChildIsActive())
        return false;
    Configurator* child = app_.Document();
    if (child == nullptr)
        return false;
    const std::string oldPath = child->txtFilePath.Text();
    const std::string path = mFileAccessor::DisplaySaveAsPrompt(app_);
    bool saved = false;
    if (!path.empty()) {
        // The new name, the caption, the recent entry and the saved state follow only a write
        // that succeeded: after a failed one (reported with the path and the reason) the
        // document is as it was, unsaved and under its old name, and Close still asks.
        child->txtFilePath.SetText(path);
        saved = child->Save();
        if (saved) {
            app_.Summary().txtFilename.SetText(mFileAccessor::GetFileName(path));
            child->SetCaption(mFileAccessor::GetFileName(path));
            InitializeMenu(false);
            mnuViewEntryFileSaved.SetEnabled(true);
            if (!oldPath.empty())
                UpdateFileMenu(oldPath);
            mdblSavedState = mShared::ComputeState(*child);
            mstrSavedChecksum = app_.Summary().lblChecksum.Caption();
        } else {
            child->txtFilePath.SetText(oldPath);
        }
    }
    app_.Summary().lblChecksum.SetCaption(mstrSavedChecksum);
    return saved;
}

bool frmMain::CancelChildUnload() {
    Configurator* child = app_.Document();
    if (child == nullptr)
        return false;
    std::string name = child->Caption();
    const size_t bracket = InStr(name, "(");
    if (bracket > 0)
        name = pendulon::Left(name, bracket - 1);
    name = Trim(name);
    bool cancel = false;
    mdblCurrentState = mShared::ComputeState(*child);
    if (mdblCurrentState != mdblSavedState) {
        const int answer =
            app_.Services().MsgBox("Save changes to " + name + "?",
                                   msgbox::YesNoCancel | msgbox::Question, app_.gstrTitle);
        if (answer == msgbox::Yes) {
            // A save that was refused or failed keeps the document open: its work is not lost.
            const bool saved = SaveDocument();
            cancel = !app_.Summary().mblnOK || !saved;
        } else if (answer == msgbox::No) {
            cancel = false;
        } else {
            cancel = true;
        }
    }
    if (!child->txtFilePath.Text().empty())
        UpdateFileMenu(child->txtFilePath.Text());
    PlatformServices& services = app_.Services();
    services.SaveSetting(kPendulon, "Setting", "PowerWindowTop",
                         GeneralNumber(child->picPower.Top()));
    services.SaveSetting(kPendulon, "Setting", "PowerWindowLeft",
                         GeneralNumber(child->picPower.Left()));
    if (mnuViewDebugWindow.Enabled()) {
        services.SaveSetting(kPendulon, "Setting", "DebugWindowTop",
                             GeneralNumber(child->picDebugWindow.Top()));
        services.SaveSetting(kPendulon, "Setting", "DebugWindowLeft",
                             GeneralNumber(child->picDebugWindow.Left()));
    }
    app_.Power().Clear();
    app_.Power().SetParentForm(nullptr);
    ShowHelp("");
    return cancel;
}

void frmMain::mnuClose_Click() {
    if (app_.Preview() != nullptr) {
        app_.UnloadPreview();
        return;
    }
    app_.UnloadDocument(kUnloadFormControlMenu);
}

void frmMain::mnuConfiguration_Click() {
    ShowConfigurationForm();
}

void frmMain::ShowConfigurationForm() {
    frmSummary& summary = app_.Summary();
    summary.txtDate.SetText(mShared::GetCurrentDate(app_));
    if (!mnuViewDebugWindow.Enabled())
        summary.txtRevision.SetText("xxx");
    UpdateChecksum(false);
    app_.Services().ShowModal(summary);
}

void frmMain::mnuPrintSetup_Click() {
    mShared::PrintSetup(app_);
}

void frmMain::mnuExit_Click() {
    MDIForm_QueryUnload(kUnloadFormControlMenu);
}

bool frmMain::MDIForm_QueryUnload(int) {
    if (app_.Preview() != nullptr)
        app_.UnloadPreview();
    if (app_.Document() != nullptr) {
        if (CancelChildUnload())
            return true;
        // The question was answered; the document goes without asking again.
        app_.Document()->mUnloadRequired = true;
        app_.UnloadDocument(kUnloadFormCode);
    }
    app_.Summary().SetVisible(false);
    app_.DeviceForm().SetVisible(false);
    app_.Power().SetVisible(false);
    SaveApplicationSettings();
    app_.End();
    return false;
}

// ---- Window ---------------------------------------------------------------------------------

void frmMain::MDIForm_Resize() {
    const double tppX = app_.gintTwipsPerPixelX;
    picStatus.SetWidth(Width());
    lblHelpInfo.SetLeft(0);
    lblHelpInfo.SetWidth(0.75 * picStatus.Width());
    lblStatus.SetLeft(lblHelpInfo.Width() + 2 * tppX);
    lblStatus.SetWidth(picStatus.Width() - lblStatus.Left() - 10 * tppX);
}

void frmMain::MDIForm_MouseUp(int button, int shift, double, double) {
    if (button == 2 && shift == 0 && PopupMenu)
        PopupMenu(mnuFile);
}

// ---- Tools and help that open windows ------------------------------------------------------

void frmMain::mnuToolsOptions_Click() {
    frmOptions options(app_);
    options.Form_Load();
    app_.Services().ShowModal(options);
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

// ---- Settings --------------------------------------------------------------------------------

namespace {
constexpr int kDefaultHeight = 7200;
constexpr int kDefaultWidth = 9600;
// The largest part of the screen's work area a first start takes.
constexpr double kLargestShare = 0.9;

bool IsTrueText(const std::string& text) {
    return text == "1" || EqualsNoCase(text, "True");
}
}  // namespace

frmMain::Placement frmMain::FirstRunPlacement() {
    const PlatformServices::Area room = app_.Services().ScreenWorkArea();
    double width = kDefaultWidth;
    double height = kDefaultHeight;
    if (MeasureDocuments) {
        const auto [needWidth, needHeight] = MeasureDocuments();
        width = std::max(width, needWidth);
        height = std::max(height, needHeight);
    }
    // Whole pixels, so that the size read back is the size shown.
    const double tppX = std::max(1, app_.Services().TwipsPerPixelX());
    const double tppY = std::max(1, app_.Services().TwipsPerPixelY());
    width = std::floor(std::min(width, kLargestShare * room.Width) / tppX) * tppX;
    height = std::floor(std::min(height, kLargestShare * room.Height) / tppY) * tppY;
    Placement place;
    place.Width = width;
    place.Height = height;
    place.Left = std::floor((room.Left + (room.Width - width) / 2) / tppX) * tppX;
    place.Top = std::floor((room.Top + (room.Height - height) / 2) / tppY) * tppY;
    return place;
}

void frmMain::GetApplicationSettings() {
    PlatformServices& services = app_.Services();
    const double screenWidth = services.ScreenWidth();
    const double screenHeight = services.ScreenHeight();
    // First run: the application's own section does not exist yet.
    const bool firstRun = !mShared::GetAppRegValue(app_, mShared::kHKeyCurrentUser,
                                                   mShared::kAppSettingsKey, 1, "");
    const Placement first = firstRun ? FirstRunPlacement() : Placement{};
    const double defaultWidth = firstRun ? first.Width : kDefaultWidth;
    const double defaultHeight = firstRun ? first.Height : kDefaultHeight;
    const double centredLeft = firstRun ? first.Left : (screenWidth - kDefaultWidth) / 2;
    const double centredTop = firstRun ? first.Top : (screenHeight - kDefaultHeight) / 2;
    if (firstRun) {
        services.SaveSetting(kPendulon, "Option", "SaveOnExit", "1");
        services.SaveSetting(kPendulon, "Option", "UseNotepad", "0");
        services.SaveSetting(kPendulon, "Setting", "DebugWindowLeft", "0");
        services.SaveSetting(kPendulon, "Setting", "DebugWindowTop", "0");
        services.SaveSetting(kPendulon, "Setting", "DeviceShowPinout", "1");
        services.SaveSetting(kPendulon, "Setting", "PowerWindowLeft", "0");
        services.SaveSetting(kPendulon, "Setting", "PowerWindowTop", "0");
        services.SaveSetting(kPendulon, "Setting", "ShowPowerWindow", "True");
        services.SaveSetting(kPendulon, "Startup", "Height", GeneralNumber(defaultHeight));
        services.SaveSetting(kPendulon, "Startup", "Width", GeneralNumber(defaultWidth));
        services.SaveSetting(kPendulon, "Startup", "Left", GeneralNumber(centredLeft));
        services.SaveSetting(kPendulon, "Startup", "Top", GeneralNumber(centredTop));
        services.SaveSetting(kPendulon, "Startup", "WindowState", "0");
    }

    // The design tool: its open command, without the command's arguments.
    if (auto tool = mShared::GetAppRegValue(app_, mShared::kHKeyLocalMachine,
                                            mShared::kDesignToolKey, 1, "")) {
        std::string command = *tool;
        if (!command.empty()) {
            const size_t blank = InStr(command, " ");
            if (blank > 0)
                command = pendulon::Left(command, blank - 1);
            app_.gstrDesignTool = command;
            mnuToolsLaunchKITE.SetEnabled(true);
        }
    }

    const double height =
        Val(services.GetSetting(kPendulon, "Startup", "Height", GeneralNumber(defaultHeight)));
    const double width =
        Val(services.GetSetting(kPendulon, "Startup", "Width", GeneralNumber(defaultWidth)));
    double top = Val(services.GetSetting(kPendulon, "Startup", "Top", GeneralNumber(centredTop)));
    double left =
        Val(services.GetSetting(kPendulon, "Startup", "Left", GeneralNumber(centredLeft)));
    const double state = Val(services.GetSetting(kPendulon, "Startup", "WindowState", "0"));
    if (left + width > screenWidth || top + height > screenHeight) {
        left = 0;
        top = 0;
    }
    Move(left, top, width, height);
    SetWindowState(static_cast<int>(RoundHalfEven(state)));

    for (int i = 5; i >= 1; --i) {
        const std::string path = services.GetSetting(kPendulon, "FilePath", std::to_string(i), "");
        if (!path.empty())
            UpdateFileMenu(path);
    }

    const std::string showPower = services.GetSetting(kPendulon, "Setting", "ShowPowerWindow", "");
    if (!showPower.empty())
        mnuViewPower.SetChecked(IsTrueText(showPower));

    const std::string showDebug = services.GetSetting(kPendulon, "Setting", "ShowDebugWindow", "");
    if (!showDebug.empty()) {
        mnuViewDebugWindow.SetEnabled(true);
        mnuViewDebugWindow.SetVisible(true);
        mnuViewDebugWindow.SetChecked(IsTrueText(showDebug));
    }
}

void frmMain::SaveApplicationSettings() {
    PlatformServices& services = app_.Services();
    double saveOnExit = 1;
    const std::string text = services.GetSetting(kPendulon, "Option", "SaveOnExit", "");
    if (text.empty()) {
        services.SaveSetting(kPendulon, "Option", "SaveOnExit", "1");
    } else {
        saveOnExit = Val(text);
    }
    if (saveOnExit != 1)
        return;
    services.SaveSetting(kPendulon, "Startup", "WindowState", std::to_string(WindowState()));
    if (WindowState() == 0) {
        services.SaveSetting(kPendulon, "Startup", "Top", GeneralNumber(Top()));
        services.SaveSetting(kPendulon, "Startup", "Left", GeneralNumber(Left()));
        services.SaveSetting(kPendulon, "Startup", "Width", GeneralNumber(Width()));
        services.SaveSetting(kPendulon, "Startup", "Height", GeneralNumber(Height()));
    }
    for (int i = 1; i <= mintRecentFileCount; ++i)
        services.SaveSetting(kPendulon, "FilePath", std::to_string(i), RecentPath(i));
    services.SaveSetting(kPendulon, "Setting", "ShowPowerWindow",
                         mnuViewPower.Checked() ? "True" : "False");
    if (mnuViewDebugWindow.Enabled()) {
        services.SaveSetting(kPendulon, "Setting", "ShowDebugWindow",
                             mnuViewDebugWindow.Checked() ? "True" : "False");
    }
}

void frmMain::ClearRegistry() {
    PlatformServices& services = app_.Services();
    const int answer =
        services.MsgBox("Continue removing registry settings associated with Pendulon?",
                        msgbox::OKCancel | msgbox::Question, app_.gstrTitle);
    if (answer != msgbox::OK)
        return;
    if (!services.GetSetting(kPendulon, "Option", "SaveOnExit", "").empty()) {
        services.DeleteSetting(kPendulon);
        services.MsgBox("Registry settings have been removed.", msgbox::Information,
                        app_.gstrTitle);
    }
}

}  // namespace pendulon
