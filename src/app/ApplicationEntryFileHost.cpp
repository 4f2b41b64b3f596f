#include "app/ApplicationEntryFileHost.hpp"

#include "shell/Application.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "app/mSharedApp.hpp"

namespace pendulon {

ErrorReport& ShellEntryFileHost::Errors() {
    return app_.Errors();
}
std::string ShellEntryFileHost::Title() {
    return app_.gstrTitle;
}
std::string ShellEntryFileHost::Build() {
    return app_.gstrBuild;
}
std::string ShellEntryFileHost::EntryFileHeader() {
    return mShared::EntryFileHeader(app_);
}
std::string ShellEntryFileHost::Revision() {
    return app_.Summary().txtRevision.Text();
}
std::string ShellEntryFileHost::SummaryFilename() {
    return app_.Summary().txtFilename.Text();
}
bool ShellEntryFileHost::SaveEntryFileDescription() {
    return app_.Main().mblnSaveEntryFileDescription;
}
std::string ShellEntryFileHost::RecentFileCaption() {
    return app_.Main().mnuFilePathArray[1].Caption();
}
void ShellEntryFileHost::DisplayStatus(const std::string& text) {
    app_.Main().DisplayStatus(text);
}
void ShellEntryFileHost::ShowHelp(const std::string& text) {
    app_.Main().ShowHelp(text);
}
std::string ShellEntryFileHost::UpdatedChecksum() {
    app_.Main().UpdateChecksum(false);
    return app_.Summary().lblChecksum.Caption();
}
DateTime ShellEntryFileHost::Today() {
    return app_.Services().Now();
}
EntryFileHost::Version ShellEntryFileHost::ProgramVersion() {
    return {Application::kVersionMajor, Application::kVersionMinor, Application::kVersionRevision};
}

}  // namespace pendulon
