#include "desktop/ViewRegistry.hpp"

#include "desktop/GenericView.hpp"
#include "platform/Window.hpp"

namespace pendulon {

void ViewRegistry::Register(const std::string& windowName, Factory factory,
                            CloseRequest onCloseRequest) {
    entries_[windowName] = Entry{std::move(factory), std::move(onCloseRequest)};
}

bool ViewRegistry::Contains(const std::string& windowName) const {
    return entries_.count(windowName) != 0;
}

QWidget* ViewRegistry::Create(Window& window, QWidget* parent) const {
    auto it = entries_.find(window.Name());
    if (it != entries_.end() && it->second.factory)
        return it->second.factory(window, parent);
    return new GenericView(window, parent);
}

void ViewRegistry::RequestClose(Window& window) const {
    auto it = entries_.find(window.Name());
    if (it != entries_.end() && it->second.closeRequest) {
        it->second.closeRequest(window);
        return;
    }
    window.SetVisible(false);
}

}  // namespace pendulon
