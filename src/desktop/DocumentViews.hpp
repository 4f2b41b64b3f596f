#pragma once

namespace pendulon {

class Application;
class MainWindow;
class ViewRegistry;

// Registers the views of the documents (the device windows) and of the print preview.
void RegisterDocumentViews(ViewRegistry& views, Application& app);
// The main window's part of the tool commands: arranging the children, and moving a floating
// panel with the mouse.
void ConnectDesktopCommands(Application& app, MainWindow& window);

}  // namespace pendulon
