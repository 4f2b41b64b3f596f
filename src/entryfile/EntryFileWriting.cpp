#include "entryfile/EntryFileWriting.hpp"

#include "core/Numbers.hpp"
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

namespace entrylines {

namespace {
const std::string kCrLf = "\r\n";
}  // namespace

std::string Plain(char kind, const std::string& value) {
    std::string line = "# ";
    line += kind;
    line += ' ';
    return line + value + kCrLf;
}

std::string Part(const std::string& description) {
    return Plain('s', mShared::PadOutputString(description, 15));
}

std::string Field(char kind, const std::string& value, long long number,
                  const std::string& comment) {
    return Plain(kind, mShared::PadOutputString(value, 10) + ";" + IntegerText(number) + comment);
}

std::string Frequency(const clsEntryFile& e, int n, const std::string& comment) {
    return Field('f', mShared::FormatFrequencyFixed(e.f(n), 1), n, comment);
}

std::string Integer(const clsEntryFile& e, int n, const std::string& comment) {
    return Field('i', IntegerText(e.i(n)), n, comment);
}

}  // namespace entrylines

bool WriteEntryFileText(EntryFileHost& host, const std::string& path, const std::string& device,
                        const std::function<std::string()>& text, const std::string& source) {
    host.DisplayStatus("Writing " + device + " entry file...");
    return WriteForUser(host, path, text(), source, true);
}

}  // namespace pendulon
