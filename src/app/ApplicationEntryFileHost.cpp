#include "app/ApplicationEntryFileHost.hpp"

#include "app/AppServices.hpp"
#include "app/MainFace.hpp"
#include "app/SummaryFace.hpp"
#include "app/mSharedApp.hpp"

namespace pendulon {

ErrorReport& ApplicationEntryFileHost::Errors() {
    return app_.Errors();
}
std::string ApplicationEntryFileHost::Title() {
    return app_.gstrTitle;
}
std::string ApplicationEntryFileHost::Build() {
    return app_.gstrBuild;
}
std::string ApplicationEntryFileHost::EntryFileHeader() {
    return mShared::EntryFileHeader(app_);
}
std::string ApplicationEntryFileHost::Revision() {
    return app_.Summary().txtRevision.Text();
}
std::string ApplicationEntryFileHost::SummaryFilename() {
    return app_.Summary().txtFilename.Text();
}
bool ApplicationEntryFileHost::SaveEntryFileDescription() {
    return app_.Main().mblnSaveEntryFileDescription;
}
std::string ApplicationEntryFileHost::RecentFileCaption() {
    return app_.Main().mnuFilePathArray[1].Caption();
}
void ApplicationEntryFileHost::DisplayStatus(const std::string& text) {
    app_.Main().DisplayStatus(text);
}
void ApplicationEntryFileHost::ShowHelp(const std::string& text) {
    app_.Main().ShowHelp(text);
}
std::string ApplicationEntryFileHost::UpdatedChecksum() {
    app_.Main().UpdateChecksum(false);
    return app_.Summary().lblChecksum.Caption();
}
DateTime ApplicationEntryFileHost::Today() {
    return app_.Services().Now();
}
EntryFileHost::Version ApplicationEntryFileHost::ProgramVersion() {
    return {AppServices::kVersionMajor, AppServices::kVersionMinor, AppServices::kVersionRevision};
}

}  // namespace pendulon
