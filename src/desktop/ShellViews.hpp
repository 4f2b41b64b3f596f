#pragma once

namespace pendulon {

class Application;
class ViewRegistry;

// Registers the views of the shell's windows: options, device selection, summary, the two
// About boxes and the splash.
void RegisterShellViews(ViewRegistry& views, Application& app);

}  // namespace pendulon
