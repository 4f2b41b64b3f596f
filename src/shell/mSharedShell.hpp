#pragma once
#include <string>
#include <vector>

namespace pendulon {

class AppServices;

// The shared routines that open a window of their own: an entry file shown as text.
namespace mShared {

// Shows an entry file: in the system's text editor when "UseNotepad" is set, else as text in
// the print preview.
void ShowEntFile(AppServices& app, const std::string& strPath);
// The system's text editor and its arguments before the file: $VISUAL when set, else
// xdg-open.
std::vector<std::string> TextEditorCommand();

}  // namespace mShared
}  // namespace pendulon
