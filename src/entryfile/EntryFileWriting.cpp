#include "entryfile/EntryFileWriting.hpp"

#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "app/EntryFileHost.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/TextFile.hpp"

namespace pendulon {

namespace {
constexpr long kFileAccessError = 75;
}  // namespace

std::unique_ptr<clsEntryFile> ReadSavedEntryFile(EntryFileHost& host) {
    std::string saved;
    if (!host.SummaryFilename().empty())
        saved = Trim(mShared::GetSubstring(host.RecentFileCaption(), " ", ""));
    auto image = std::make_unique<clsEntryFile>(host.Errors());
    mFileAccessor::ReadFile(saved, *image);
    return image;
}

void WriteForUser(EntryFileHost& host, const std::string& path, const std::string& text,
                  const std::string& source, bool clearStatusOnFailure) {
    const std::string failure = WriteTextFileAtomically(path, text);
    if (!failure.empty()) {
        host.Errors().Raise(kFileAccessError, source, "Path/File access error: " + failure);
        if (clearStatusOnFailure)
            host.DisplayStatus("");
        return;
    }
    host.ShowHelp("Wrote to " + path);
    host.DisplayStatus("");
}

}  // namespace pendulon
