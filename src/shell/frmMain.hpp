#pragma once
#include <array>
#include <functional>
#include <string>
#include <utility>

#include "app/MainFace.hpp"
#include "core/mShared.hpp"
#include "platform/CommonDialog.hpp"
#include "platform/Label.hpp"
#include "platform/MenuItem.hpp"
#include "platform/PictureBox.hpp"

namespace pendulon {

class Application;

// The main window: owner of the running program, of the one open document and of the menus.
// Its code stands in four files by concern: frmMain.cpp the window itself (menus, start-up,
// status and hints), frmMainDocuments.cpp the document lifecycle, frmMainSettings.cpp the
// recent files and the settings, frmMainCommands.cpp the other menu commands.
class frmMain : public MainFace {
  public:
    explicit frmMain(Application& app);

    // Menus, in their order (the recent files, mnuViewPower and mnuViewDebugWindow, which the
    // documents use, are MainFace's).
    MenuItem mnuFile;
    MenuItem mnuNew;
    MenuItem mnuOpen;
    MenuItem mnuSave;
    MenuItem mnuSaveAs;
    MenuItem mnuClose;
    MenuItem mnuConfiguration;
    MenuItem mnuPrint;
    MenuItem mnuPrintSetup;
    MenuItem mnuExit;
    MenuItem mnuEdit;
    MenuItem mnuEditCut;
    MenuItem mnuEditCopy;
    MenuItem mnuEditPaste;
    MenuItem mnuEditSelectAll;
    MenuItem mnuView;
    MenuItem mnuViewEntryFile;
    MenuItem mnuViewEntryFileNew;
    MenuItem mnuViewEntryFileSaved;
    MenuItem mnuTools;
    MenuItem mnuToolsCreateEPROM;
    MenuItem mnuToolsCreateEPROMNew;
    MenuItem mnuToolsCreateEPROMSaved;
    MenuItem mnuToolsOptions;
    MenuItem mnuToolsLaunchKITE;
    MenuItem mnuToolsFrequencyPlanner;
    MenuItem mnuWindow;
    MenuItem mnuTile;
    MenuItem mnuCascade;
    MenuItem mnuHelp;
    MenuItem mnuPopupHelp;
    MenuItem mnuDecisionTree;
    MenuItem mnuAbout;
    MenuItem mnuAboutKITE;
    // The lines between the groups of the menus; they are no fields of the window.
    std::array<MenuItem, 10> mnuGroupLines;

    // Status strip: the hint on the left three quarters, the status on the rest.
    PictureBox picStatus;
    Label lblHelpInfo;
    Label lblStatus;

    // dlgCommon, which the entry files use too, is MainFace's.
    CommonDialog dlgEPROM;

    mShared::FormState mdblSavedState;
    mShared::FormState mdblCurrentState;
    std::string mstrSavedChecksum;
    bool mblnFileChanged = false;

    // Public operations.
    void ShowConfigurationForm() override;
    void ShowHelp(const std::string& strText) override;
    void GetFile(const std::string& strFileToRetrieve);
    void InitializeMenu(bool blnActiveFormUnloading) override;
    void LoadForm();
    bool CancelChildUnload() override;
    void UpdateChecksum(bool blnForceUpdate) override;
    void DisplayStatus(const std::string& strStatusMessage) override;
    void InitializeGlobalVariables();
    void FileChange() override;
    void GetApplicationSettings();
    void SaveApplicationSettings();
    void UpdateFileMenu(const std::string& strFile);
    bool ChildIsActive() const;
    // Writes an EPROM vector from a fresh entry file of the document (true) or from the saved
    // one (false), to a path the user chooses. True when a vector was written.
    bool CreateEPROM(bool blnNew);
    // Tools, Create EPROM Vector, From New Entry File (true) or From Saved Entry File (false);
    // true when a vector was written.
    bool CreateEPROMVector(bool blnNew);
    // File, Save and File, Save As; true when the document was written.
    bool SaveDocument();
    bool SaveDocumentAs();
    // The document's PLL frequency fields shown in red (out of their default limits).
    int CountExceededPLLs() const;

    // Start-up with the program's command line.
    void MDIForm_Load(const std::string& commandLine);
    // Exit and the window's close button; returns true when the program goes on.
    bool MDIForm_QueryUnload(int unloadMode);
    void MDIForm_Resize();
    void MDIForm_MouseUp(int button, int shift, double x, double y);
    // The settings clean-up of the "/ClearRegistry" switch.
    void ClearRegistry();

    // Menu commands.
    void mnuNew_Click();
    void mnuOpen_Click();
    void mnuSave_Click();
    void mnuSaveAs_Click();
    void mnuClose_Click();
    void mnuConfiguration_Click();
    void mnuPrintSetup_Click();
    void mnuExit_Click();
    void mnuFilePathArray_Click(int Index);
    void mnuPrint_Click();
    void mnuEditCut_Click();
    void mnuEditCopy_Click();
    void mnuEditPaste_Click();
    void mnuEditSelectAll_Click();
    void mnuViewPower_Click();
    void mnuViewDebugWindow_Click();
    void mnuViewEntryFileNew_Click();
    void mnuViewEntryFileSaved_Click();
    void mnuToolsCreateEPROMNew_Click();
    void mnuToolsCreateEPROMSaved_Click();
    void mnuToolsOptions_Click();
    void mnuToolsLaunchKITE_Click();
    void mnuToolsFrequencyPlanner_Click();
    void mnuTile_Click();
    void mnuCascade_Click();
    void mnuPopupHelp_Click();
    void mnuDecisionTree_Click();
    void mnuAbout_Click();
    void mnuAboutKITE_Click();

    std::string RecentPath(int index) const override;

    // The view carries out a popup request for a menu.
    std::function<void(MenuItem&)> PopupMenu;
    // The view arranges the children: 1 tiles them, 0 cascades them.
    std::function<void(int)> Arrange;
    // The view shows the frequency planner's window beside the documents.
    std::function<void()> ShowFrequencyPlanner;
    // The view measures the main window that shows the largest document window whole: width
    // and height in twips. A first start opens at that size, as far as the screen allows.
    std::function<std::pair<double, double>()> MeasureDocuments;
    // The main window's size and place of a first start, in twips: large enough for the
    // largest document (at least the classic 9600 by 7200), at most nine tenths of the
    // screen's work area, and centred in it.
    struct Placement {
        double Left = 0, Top = 0, Width = 0, Height = 0;
    };
    Placement FirstRunPlacement();

    // The path of the program's manual, which Help, Contents shows.
    std::string HelpFilePath() const;

  private:
    // The program's name, as its titles and its settings carry it.
    static constexpr const char* kPendulon = "Pendulon";

    // Warns that an uncalculated configuration cannot be saved; true when it did.
    bool RefuseUncalculatedSave();
    // Asks whether to go on when PLLs exceed their default limits; false ends the command.
    bool ContinueDespiteExceededPLLs();
    // A new temporary entry file's name in the user's temporary folder.
    std::string TemporaryEntryFileName();

    Application& app_;
};

}  // namespace pendulon
