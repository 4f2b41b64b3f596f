#pragma once
#include <string>

namespace pendulon {

class AppServices;
class clsEntryFile;

// Choosing entry files, reading them, and routing a read file to the summary and to the
// window of its device.
namespace mFileAccessor {

// The open dialog for an entry file; the chosen path, or empty text on cancel.
std::string OpenFile(AppServices& app);
// The folder an entry file dialog starts in: that of the document's file, else of the newest
// recent file; empty when there is neither.
std::string StartFolder(AppServices& app);
// The filter of a dialog that saves an entry file.
const char* EntryFileFilter();
// The summary window, then the save dialog; the chosen path, or empty text on any cancel.
// frmSummary.mblnOK is True only when a path was chosen.
std::string DisplaySaveAsPrompt(AppServices& app);
// Reads an entry file into the image; true when the file was accepted.
bool ReadFile(const std::string& path, clsEntryFile& file);
// Fills the summary from the file and shows it; the summary's mblnOK afterwards.
bool FillConfigurationSummary(AppServices& app, clsEntryFile& entry);
// Creates the window of the file's device and fills it; false for an unknown device.
bool FillForm(AppServices& app, clsEntryFile& entry, const std::string& path);
// The part of a path behind its last folder separator.
std::string GetFileName(const std::string& path);
// The path, or empty text when the file was opened read-only.
std::string GetFilePath(AppServices& app, const std::string& path);

// The device whose name occurs first in a part description, or the description itself.
std::string SummaryDevice(const std::string& partDescription);

}  // namespace mFileAccessor
}  // namespace pendulon
