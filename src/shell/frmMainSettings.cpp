// Settings of the main window: reading them at start, writing them at exit, and the clean-up.
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"
#include "shell/mSharedApp.hpp"

namespace pendulon {

namespace {
constexpr const char* kApp = "Pendulon";
constexpr int kDefaultHeight = 7200;
constexpr int kDefaultWidth = 9600;

bool IsTrueText(const std::string& text) {
    return text == "1" || EqualsNoCase(text, "True");
}
}  // namespace

void frmMain::GetApplicationSettings() {
    PlatformServices& services = app_.Services();
    const double screenWidth = services.ScreenWidth();
    const double screenHeight = services.ScreenHeight();
    const double centredLeft = (screenWidth - kDefaultWidth) / 2;
    const double centredTop = (screenHeight - kDefaultHeight) / 2;

    // First run: the application's own section does not exist yet.
    if (!mShared::GetAppRegValue(app_, mShared::kHKeyCurrentUser, mShared::kAppSettingsKey, 1,
                                 "")) {
        services.SaveSetting(kApp, "Option", "SaveOnExit", "1");
        services.SaveSetting(kApp, "Option", "UseNotepad", "0");
        services.SaveSetting(kApp, "Setting", "DebugWindowLeft", "0");
        services.SaveSetting(kApp, "Setting", "DebugWindowTop", "0");
        services.SaveSetting(kApp, "Setting", "DeviceShowPinout", "1");
        services.SaveSetting(kApp, "Setting", "PowerWindowLeft", "0");
        services.SaveSetting(kApp, "Setting", "PowerWindowTop", "0");
        services.SaveSetting(kApp, "Setting", "ShowPowerWindow", "True");
        services.SaveSetting(kApp, "Startup", "Height", GeneralNumber(kDefaultHeight));
        services.SaveSetting(kApp, "Startup", "Width", GeneralNumber(kDefaultWidth));
        services.SaveSetting(kApp, "Startup", "Left", GeneralNumber(centredLeft));
        services.SaveSetting(kApp, "Startup", "Top", GeneralNumber(centredTop));
        services.SaveSetting(kApp, "Startup", "WindowState", "0");
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
        Val(services.GetSetting(kApp, "Startup", "Height", GeneralNumber(kDefaultHeight)));
    const double width =
        Val(services.GetSetting(kApp, "Startup", "Width", GeneralNumber(kDefaultWidth)));
    double top = Val(services.GetSetting(kApp, "Startup", "Top", GeneralNumber(centredTop)));
    double left = Val(services.GetSetting(kApp, "Startup", "Left", GeneralNumber(centredLeft)));
    const double state = Val(services.GetSetting(kApp, "Startup", "WindowState", "0"));
    if (left + width > screenWidth || top + height > screenHeight) {
        left = 0;
        top = 0;
    }
    Move(left, top, width, height);
    SetWindowState(static_cast<int>(RoundHalfEven(state)));

    for (int i = 5; i >= 1; --i) {
        const std::string path = services.GetSetting(kApp, "FilePath", std::to_string(i), "");
        if (!path.empty())
            UpdateFileMenu(path);
    }

    const std::string showPower = services.GetSetting(kApp, "Setting", "ShowPowerWindow", "");
    if (!showPower.empty())
        mnuViewPower.SetChecked(IsTrueText(showPower));

    const std::string showDebug = services.GetSetting(kApp, "Setting", "ShowDebugWindow", "");
    if (!showDebug.empty()) {
        mnuViewDebugWindow.SetEnabled(true);
        mnuViewDebugWindow.SetVisible(true);
        mnuViewDebugWindow.SetChecked(IsTrueText(showDebug));
    }
}

void frmMain::SaveApplicationSettings() {
    PlatformServices& services = app_.Services();
    double saveOnExit = 1;
    const std::string text = services.GetSetting(kApp, "Option", "SaveOnExit", "");
    if (text.empty()) {
        services.SaveSetting(kApp, "Option", "SaveOnExit", "1");
    } else {
        saveOnExit = Val(text);
    }
    if (saveOnExit != 1)
        return;
    services.SaveSetting(kApp, "Startup", "WindowState", std::to_string(WindowState()));
    if (WindowState() == 0) {
        services.SaveSetting(kApp, "Startup", "Top", GeneralNumber(Top()));
        services.SaveSetting(kApp, "Startup", "Left", GeneralNumber(Left()));
        services.SaveSetting(kApp, "Startup", "Width", GeneralNumber(Width()));
        services.SaveSetting(kApp, "Startup", "Height", GeneralNumber(Height()));
    }
    for (int i = 1; i <= mintRecentFileCount; ++i)
        services.SaveSetting(kApp, "FilePath", std::to_string(i), RecentPath(i));
    services.SaveSetting(kApp, "Setting", "ShowPowerWindow",
                         mnuViewPower.Checked() ? "True" : "False");
    if (mnuViewDebugWindow.Enabled()) {
        services.SaveSetting(kApp, "Setting", "ShowDebugWindow",
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
    if (!services.GetSetting(kApp, "Option", "SaveOnExit", "").empty()) {
        services.DeleteSetting(kApp);
        services.MsgBox("Registry settings have been removed.", msgbox::Information,
                        app_.gstrTitle);
    }
}

}  // namespace pendulon
