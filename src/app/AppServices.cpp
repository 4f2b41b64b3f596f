#include "app/AppServices.hpp"

#include <stdexcept>

#include "app/ApplicationEntryFileHost.hpp"
#include "app/Configurator.hpp"

namespace pendulon {

AppServices::AppServices(PlatformServices& services)
    : services_(services),
      errors_(services, [this] { return gstrTitle; }),
      entryHost_(std::make_unique<ApplicationEntryFileHost>(*this)) {}

AppServices::~AppServices() {
    CloseChildren();
}

EntryFileHost& AppServices::EntryHost() {
    return *entryHost_;
}

void AppServices::CloseChildren() {
    preview_.reset();
    document_.reset();
}

Window* AppServices::ActiveChild() const {
    if (preview_)
        return preview_.get();
    return document_.get();
}

void AppServices::SetDocument(std::unique_ptr<Configurator> document) {
    if (document_)
        throw std::logic_error("a document is already open");
    document_ = std::move(document);
    if (document_ && OnChildLoaded)
        OnChildLoaded(*document_);
}

bool AppServices::UnloadDocument(int unloadMode) {
    if (!document_)
        return true;
    if (document_->Form_QueryUnload(unloadMode))
        return false;
    if (!document_)
        return true;  // unloaded meanwhile by the close question's own path
    if (OnChildUnloading)
        OnChildUnloading(*document_);
    document_->Form_Unload();
    DocumentUnloaded(*document_);
    document_.reset();
    return true;
}

void AppServices::SetPreview(std::unique_ptr<Window> preview, std::function<void()> save) {
    UnloadPreview();
    preview_ = std::move(preview);
    previewSave_ = std::move(save);
    if (preview_ && OnChildLoaded)
        OnChildLoaded(*preview_);
}

void AppServices::SavePreview() {
    if (preview_ && previewSave_)
        previewSave_();
}

bool AppServices::UnloadPreview() {
    if (!preview_)
        return true;
    if (OnChildUnloading)
        OnChildUnloading(*preview_);
    preview_.reset();
    previewSave_ = nullptr;
    return true;
}

void AppServices::End() {
    ended_ = true;
    if (OnEnd)
        OnEnd();
}

}  // namespace pendulon
