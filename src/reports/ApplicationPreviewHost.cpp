#include "reports/ApplicationPreviewHost.hpp"

#include "app/AppServices.hpp"
#include "app/Configurator.hpp"
#include "app/MainFace.hpp"
#include "app/SummaryFace.hpp"
#include "platform/MenuItem.hpp"

namespace pendulon {

std::string ApplicationPreviewHost::Title() {
    return app_.gstrTitle;
}

std::string ApplicationPreviewHost::ChecksumCaption() {
    return app_.Summary().lblChecksum.Caption();
}

void ApplicationPreviewHost::DisplayStatus(const std::string& text) {
    app_.Main().DisplayStatus(text);
}

void ApplicationPreviewHost::ShowHelp(const std::string& text) {
    app_.Main().ShowHelp(text);
}

void ApplicationPreviewHost::RunMainCommand(const std::string& menuName) {
    // The main window's menu entries are reached by name, as a click on them would.
    if (auto* item = app_.Main().Fields().FindAs<MenuItem>(menuName))
        item->RaiseClick();
}

void ApplicationPreviewHost::ClosePreview() {
    app_.UnloadPreview();
}

std::string ApplicationPreviewHost::DocumentName() {
    const Configurator* document = app_.Document();
    if (document == nullptr)
        return {};
    if (!document->txtFilePath.Text().empty())
        return document->txtFilePath.Text();
    return document->Caption();
}

}  // namespace pendulon
