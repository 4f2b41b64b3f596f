#include "shell/frmMain.hpp"

#include <algorithm>
#include <cmath>

#include "app/mSharedApp.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "shell/Application.hpp"

namespace pendulon {

// The recent files of the File menu and the settings the program keeps.

// ---- Recent files -----------------------------------------------------------------------------

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
