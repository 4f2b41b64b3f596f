#pragma once

namespace pendulon {

class Application;
class ViewRegistry;

// Registers the views of the documents (the device windows) and of the print preview.
void RegisterDocumentViews(ViewRegistry& views, Application& app);
// The desktop's part of the tool commands that the main window does not hold itself: moving a
// floating panel with the mouse.
void ConnectDesktopCommands(Application& app);

}  // namespace pendulon
