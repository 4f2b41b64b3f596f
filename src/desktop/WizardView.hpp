#pragma once

namespace pendulon {

class Application;
class ViewRegistry;

// Registers the view of the clock selection wizard: a modal dialog that shows one page at a
// time, with the page's Previous, Next (or Finish) and Cancel at the bottom.
void RegisterWizardView(ViewRegistry& views, Application& app);

}  // namespace pendulon
