#include "entryfile/EntryFileWriting.hpp"

#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "app/EntryFileHost.hpp"
#include "entryfile/FuseLayouts.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/TextFile.hpp"

namespace pendulon {

namespace {
constexpr long kFileAccessError = 75;
}  // namespace

std::unique_ptr<clsEntryFile> ReadSavedEntryFile(EntryFileHost& host, bool& errors) {
    const int before = host.Errors().Count();
    std::string saved;
    if (!host.SummaryFilename().empty())
        saved = Trim(mShared::GetSubstring(host.RecentFileCaption(), " ", ""));
    auto image = std::make_unique<clsEntryFile>(host.Errors());
    mFileAccessor::ReadFile(saved, *image);
    errors = host.Errors().Count() != before;
    return image;
}

bool WriteForUser(EntryFileHost& host, const std::string& path, const std::string& text,
                  const std::string& source, bool clearStatusOnFailure) {
    const std::string failure = WriteTextFileAtomically(path, text);
    if (!failure.empty()) {
        host.Errors().Raise(kFileAccessError, source,
                            "Path/File access error: '" + path + "' was not written: " + failure +
                                ".");
        if (clearStatusOnFailure)
            host.DisplayStatus("");
        return false;
    }
    host.ShowHelp("Wrote to " + path);
    host.DisplayStatus("");
    return true;
}

bool VectorMayBeWritten(EntryFileHost& host, const std::string& path, bool fromForm,
                        bool imageErrors, const std::vector<FuseMisfit>& misfits,
                        const std::string& source) {
    const std::string nothing = "No EPROM vector was written to '" + path + "': ";
    if (imageErrors) {
        host.Errors().Raise(vectorerrors::ImageHasErrors, source,
                            nothing +
                                (fromForm ? "the configuration's entry image was made with errors."
                                          : "the saved entry file was read with errors."));
    } else if (!misfits.empty()) {
        host.Errors().Raise(vectorerrors::ValueDoesNotFit, source,
                            nothing + "a value does not fit its fuses.\r\n" +
                                DescribeMisfits(misfits));
    } else {
        return true;
    }
    host.DisplayStatus("");
    return false;
}

}  // namespace pendulon
