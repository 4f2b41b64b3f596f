#include "shell/Application.hpp"

#include "app/Configurator.hpp"
#include "power/frmPower.hpp"
#include "app/ApplicationEntryFileHost.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "wizard/frmDecisionTree.hpp"

namespace pendulon {

Application::Application(PlatformServices& services)
    : services_(services), errors_(services, [this] { return gstrTitle; }) {
    main_ = std::make_unique<frmMain>(*this);
    device_ = std::make_unique<frmDevice>(*this);
    summary_ = std::make_unique<frmSummary>(*this);
    power_ = std::make_unique<frmPower>(*this);
    power_->Clear();
    power_->SetParentForm(nullptr);
    entryHost_ = std::make_unique<ShellEntryFileHost>(*this);
    ShowDecisionTree = [this] { frmDecisionTree::Show(*this); };
}

EntryFileHost& Application::EntryHost() {
    return *entryHost_;
}

Application::~Application() {
    // Children go before the lasting windows they refer to.
    preview_.reset();
    document_.reset();
}

Window* Application::ActiveChild() const {
    if (preview_)
        return preview_.get();
    return document_.get();
}

void Application::SetDocument(std::unique_ptr<Configurator> document) {
    if (document_)
        throw std::logic_error("a document is already open");
    document_ = std::move(document);
    if (document_ && OnChildLoaded)
        OnChildLoaded(*document_);
}

bool Application::UnloadDocument(int unloadMode) {
    if (!document_)
        return true;
    if (document_->Form_QueryUnload(unloadMode))
        return false;
    if (!document_)
        return true;  // unloaded meanwhile by the close question's own path
    if (OnChildUnloading)
        OnChildUnloading(*document_);
    document_->Form_Unload();
    if (power_->ParentForm() == document_.get())
        power_->SetParentForm(nullptr);
    document_.reset();
    return true;
}

void Application::SetPreview(std::unique_ptr<Window> preview, std::function<void()> save) {
    UnloadPreview();
    preview_ = std::move(preview);
    previewSave_ = std::move(save);
    if (preview_ && OnChildLoaded)
        OnChildLoaded(*preview_);
}

void Application::SavePreview() {
    if (preview_ && previewSave_)
        previewSave_();
}

bool Application::UnloadPreview() {
    if (!preview_)
        return true;
    if (OnChildUnloading)
        OnChildUnloading(*preview_);
    preview_.reset();
    previewSave_ = nullptr;
    return true;
}

void Application::End() {
    ended_ = true;
    if (OnEnd)
        OnEnd();
}

}  // namespace pendulon
