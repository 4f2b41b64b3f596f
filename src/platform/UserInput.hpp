#pragma once
#include <string>

namespace pendulon {

class Field;
class Window;

// What a user does to a field of a window, the same whoever drives it: the command line, or the
// frequency planner setting up the document it promised. A field that cannot take the focus
// (disabled or hidden) takes no input, as on the screen. name is the field as the caller calls
// it in the error text; the result is false, with the reason in error, when nothing was done.

// Focuses the field, enters text (a list takes the entry of that text, or the text itself where
// it allows free text; a check takes 0, 1 or 2; an option takes 1), then leaves the field, so
// that its checks run.
bool SetAsUser(Window& window, Field& field, const std::string& text, const std::string& name,
               std::string& error);

// A click on a button, a check (a clear box is ticked, a ticked or greyed one cleared), an
// option, a menu entry (which takes no focus) or the selected entry of a list.
bool ClickAsUser(Window& window, Field& field, const std::string& name, std::string& error);

}  // namespace pendulon
