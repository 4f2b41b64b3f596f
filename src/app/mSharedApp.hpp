#pragma once
#include <optional>
#include <string>

namespace pendulon {

class AppServices;
class Field;
class PictureBox;
class Window;

// The shared routines that need the running application: the summary's identity block, the
// entry-file banner, the outside settings keys, printer set-up and the movable picture areas.
namespace mShared {

// Roots of the settings store.
inline constexpr long kHKeyCurrentUser = static_cast<long>(0x80000001L);
inline constexpr long kHKeyLocalMachine = static_cast<long>(0x80000002L);
// The application's own section, under the current user.
inline constexpr const char* kAppSettingsKey = "Software\\VB and VBA Program Settings\\Pendulon";
// The open command of the design tool, under the machine root.
inline constexpr const char* kDesignToolKey =
    "Software\\Classes\\MeadowProject\\shell\\open\\command\\";
// Data type of a string value.
inline constexpr long kRegSz = 1;

// The four identity lines of the summary window, each ended by CR LF.
std::string SummaryInfo(AppServices& app);
// The banner of an entry file followed by SummaryInfo.
std::string EntryFileHeader(AppServices& app);
// The same with the identity lines of a file the summary window does not describe.
std::string EntryFileHeader(AppServices& app, const std::string& comments,
                            const std::string& customer, const std::string& fae);
void SetSummaryFormCaption(AppServices& app, const std::string& device);
// A string value of a key; std::nullopt when the key cannot be opened.
std::optional<std::string> GetAppRegValue(AppServices& app, long rootKey, const std::string& subKey,
                                          long keyDataType, const std::string& valueName);
std::string GetCurrentDate(AppServices& app);
void PrintSetup(AppServices& app);
// Centres object inside parent, kept on the screen; no parent puts it at (0, 0).
void CenterObjectInsideForm(AppServices& app, Field& object, const Window* parent);
void ShowWindow(AppServices& app, PictureBox& picture, bool show);
void DrawPictureWindow(AppServices& app, PictureBox& picture, const std::string& title);
// A left-button press in a picture area's title lets the user drag it.
void FormMoveAPI(AppServices& app, Field& area, int button);
void InitializeDebugPictureBox(AppServices& app, PictureBox& picture);
void InitializePowerPictureBox(AppServices& app, PictureBox& picture);

}  // namespace mShared
}  // namespace pendulon
