#include "shell/frmMain.hpp"

#include "app/Configurator.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "power/frmPower.hpp"
#include "shell/Application.hpp"
#include "shell/ConfiguratorFactory.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmSplash.hpp"
#include "shell/frmSummary.hpp"

namespace pendulon {

namespace {
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
    SetupMenu(mnuToolsFrequencyPlanner, "&Frequency Planner...");
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
    for (MenuItem* item : {&mnuToolsCreateEPROM, line + 6, &mnuToolsFrequencyPlanner,
                           &mnuToolsOptions, line + 7, &mnuToolsLaunchKITE})
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
    Register("mnuToolsFrequencyPlanner", mnuToolsFrequencyPlanner);

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
    mnuToolsFrequencyPlanner.OnClick = [this] { mnuToolsFrequencyPlanner_Click(); };
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
    app_.gstrSpace = std::string(1, ' ');
    const std::string version = FormatNumber(Application::kVersionMajor, "0") + "." +
                                FormatNumber(Application::kVersionMinor, "00");
    std::string build = "Build #: ";
    build += version;
    build += '.';
    build += FormatNumber(Application::kVersionRevision, "000");
    app_.gstrBuild = build;
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

}  // namespace pendulon
