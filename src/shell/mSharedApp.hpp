#pragma once
#include <optional>
#include <string>
#include <vector>

namespace pendulon {

class Application;
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
std::string SummaryInfo(Application& app);
// The banner of an entry file followed by SummaryInfo.
std::string EntryFileHeader(Application& app);
// The same with the identity lines of a file the summary window does not describe.
std::string EntryFileHeader(Application& app, const std::string& comments,
                            const std::string& customer, const std::string& fae);
void SetSummaryFormCaption(Application& app, const std::string& device);
// A string value of a key; std::nullopt when the key cannot be opened.
std::optional<std::string> GetAppRegValue(Application& app, long rootKey, const std::string& subKey,
                                          long keyDataType, const std::string& valueName);
std::string GetCurrentDate(Application& app);
void PrintSetup(Application& app);
// Centres object inside parent, kept on the screen; no parent puts it at (0, 0).
void CenterObjectInsideForm(Application& app, Field& object, const Window* parent);
void ShowWindow(Application& app, PictureBox& picture, bool show);
void DrawPictureWindow(Application& app, PictureBox& picture, const std::string& title);
// A left-button press in a picture area's title lets the user drag it.
void FormMoveAPI(Application& app, Field& area, int button);
void InitializeDebugPictureBox(Application& app, PictureBox& picture);
void InitializePowerPictureBox(Application& app, PictureBox& picture);
// Shows an entry file: in the system's text editor when "UseNotepad" is set, else as text in
// the print preview.
void ShowEntFile(Application& app, const std::string& strPath);
// The system's text editor and its arguments before the file: $VISUAL when set, else
// xdg-open.
std::vector<std::string> TextEditorCommand();

}  // namespace mShared
}  // namespace pendulon
