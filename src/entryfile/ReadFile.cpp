#include "entryfile/ReadFile.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "platform/DateTime.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/TextFile.hpp"

namespace pendulon::mFileAccessor {

namespace {

const char* const kSource = "(mFileAccessor) ReadFile";
constexpr long kFileAccessError = 75;

// Splits a text at CR LF, LF or CR. A line end at the very end does not open another line. The
// next CR and the next LF are looked up with memchr, each character at most once per kind.
std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    const char* const begin = text.data();
    const size_t size = text.size();
    const auto next = [begin, size](char c, size_t from) {
        const void* at = from < size ? std::memchr(begin + from, c, size - from) : nullptr;
        return at != nullptr ? static_cast<size_t>(static_cast<const char*>(at) - begin) : size;
    };
    size_t cr = next('\r', 0);
    size_t lf = next('\n', 0);
    size_t start = 0;
    while (start < size) {
        if (cr < start)
            cr = next('\r', start);
        if (lf < start)
            lf = next('\n', start);
        const size_t end = std::min(cr, lf);
        if (end == size) {
            lines.push_back(text.substr(start));
            break;
        }
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
        if (text[end] == '\r' && start < size && text[start] == '\n')
            ++start;
    }
    return lines;
}

// The reports of one reading. The first few of each kind are shown as they come; the rest are
// counted and told in one message when the reading ends, so that a file with a hundred bad
// values does not ask for a hundred clicks. The reading goes on behind each of them all the same.
class Reports {
  public:
    explicit Reports(ErrorReport& errors) : errors_(errors) {}

    // A report of a kind: its number, where it comes from, and what more of it are called.
    void Raise(long number, const std::string& source, const std::string& description,
               const char* more) {
        Kind& kind = kinds_[number];
        kind.More = more;
        if (kind.Shown < kShown) {
            ++kind.Shown;
            errors_.Raise(number, source, description);
        } else {
            ++kind.Held;
        }
    }
    void Overflow() {
        Raise(errors::Overflow, kSource, errors::Description(errors::Overflow),
              "values that do not fit");
    }
    // One message for each kind of which more came than were shown.
    void Finish() {
        for (const auto& [number, kind] : kinds_)
            if (kind.Held > 0)
                errors_.Raise(number, kSource,
                              "... and " + std::to_string(kind.Held) + " more " + kind.More + ".");
    }

  private:
    static constexpr int kShown = 3;
    struct Kind {
        int Shown = 0;
        int Held = 0;
        std::string More;
    };
    ErrorReport& errors_;
    std::map<long, Kind> kinds_;
};

// A value in Integer range, or an overflow through the report (nullopt: keep the old value).
std::optional<std::int16_t> IntegerValue(double value, Reports& reports) {
    const auto result = ToInteger(value);
    if (!result)
        reports.Overflow();
    return result;
}

// The counter of a group is an Integer as well: past its range it stays where it is.
void Advance(std::int16_t& counter, Reports& reports) {
    if (counter == INT16_MAX) {
        reports.Overflow();
        return;
    }
    ++counter;
}

// Whether the counter of a group still names an element of its array; past its end the value is
// reported as the array's write accessor reports it, and left out.
bool InRange(std::int16_t counter, int upper, const char* property, Reports& reports) {
    if (counter >= 0 && counter <= upper)
        return true;
    reports.Raise(errors::SubscriptOutOfRange,
                  std::string("clsEntryFile.") + property + " [Property Let]",
                  errors::Description(errors::SubscriptOutOfRange),
                  "values beyond the last of their kind");
    return false;
}

// The text without its leading and trailing blanks, as Trim gives it, without a copy.
std::string_view TrimBlanks(std::string_view text) {
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The number of a line that starts with its three-character tag: the text behind the tag up to
// the first ";" (GetSubstring of the tag and ";"), without its blanks, read from the line itself.
double TaggedNumber(std::string_view line) {
    std::string_view text = line.substr(3);
    text = text.substr(0, text.find(';'));
    return Val(TrimBlanks(text));
}

std::string FileDateText(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0)
        return {};
    return FormatGeneralDate(DateTime::FromUnixSeconds(static_cast<std::int64_t>(info.st_mtime)));
}

}  // namespace

bool ReadFile(const std::string& path, clsEntryFile& file) {
    ErrorReport& errors = file.Errors();
    // A path that names nothing keeps the program's own message; a file that is there and
    // cannot be read (a folder, no permission, gone since) gets the path and the system's reason.
    std::error_code error;
    if (path.empty() ||
        std::filesystem::status(path, error).type() == std::filesystem::file_type::not_found) {
        errors.Raise(10051, kSource, "The path and/or file name cannot be found.");
        return false;
    }
    std::string failure;
    const std::optional<std::string> content = ReadTextFile(path, failure);
    if (!content) {
        errors.Raise(kFileAccessError, kSource,
                     "Path/File access error: '" + path + "' cannot be read: " + failure + ".");
        return false;
    }
    return ParseFile(*content, path, FileDateText(path), file);
}

bool ParseFile(std::string_view text, const std::string& path, const std::string& fileDate,
               clsEntryFile& file) {
    ErrorReport& errors = file.Errors();
    Reports reports(errors);
    std::int16_t countD = 0;
    std::int16_t countF = 0;
    std::int16_t countI = 0;
    const std::vector<std::string_view> lines = SplitLines(text);
    for (size_t n = 0; n < lines.size(); ++n) {
        const std::string_view line = TrimBlanks(lines[n]);
        if (line.empty() || line[0] != '#') {
            const auto value = [&line] { return Trim(mShared::GetSubstring(line, ":", "")); };
            if (StartsWithNoCase(line, "Modification Date:")) {
                file.mstrModificationDate = value();
            } else if (StartsWithNoCase(line, "Customer:")) {
                file.mstrCustomer = value();
            } else if (StartsWithNoCase(line, "Comments:")) {
                file.mstrComments = value();
            } else if (StartsWithNoCase(line, "FAE:")) {
                file.mstrFAE = value();
            } else if (StartsWithNoCase(line, "Package:")) {
                file.mstrPackage = value();
            }
            continue;
        }
        const std::string_view tag = line.substr(0, 3);
        if (tag == "# s") {
            file.mstrPartDescription = Trim(mShared::GetSubstring(line, "# s", ";"));
            file.mstrVersion = Trim(mShared::GetSubstring(file.mstrPartDescription, "-", ";"));
            std::string value = Trim(mShared::GetSubstring(line, "name", ""));
            if (value.empty())
                value = Trim(mShared::GetSubstring(line, "configuration for", ""));
            if (value.empty())
                value = Trim(mShared::GetSubstring(line, "configuration", ""));
            if (!value.empty())
                file.mstrConfiguration = value;
        } else if (tag == "# b") {
            if (auto v = IntegerValue(Val(Trim(Mid(line, 4, 3))), reports))
                file.mintBValue = *v;
        } else if (tag == "# r") {
            file.mstrRValue = Trim(Mid(line, 4, 3));
        } else if (tag == "# d") {
            if (auto v = IntegerValue(TaggedNumber(line), reports))
                if (InRange(countD, clsEntryFile::kDUpper, "d", reports))
                    file.set_d(countD, *v);
            Advance(countD, reports);
        } else if (tag == "# f") {
            if (InRange(countF, clsEntryFile::kFUpper, "f", reports))
                file.set_f(countF, TaggedNumber(line));
            Advance(countF, reports);
        } else if (tag == "# i") {
            if (auto v = IntegerValue(TaggedNumber(line), reports))
                if (InRange(countI, clsEntryFile::kIUpper, "i", reports))
                    file.set_i(countI, *v);
            Advance(countI, reports);
        } else if (tag == "# m") {
            if (auto v = IntegerValue(TaggedNumber(line), reports))
                file.mintMValue = *v;
        } else if (tag == "# p") {
            if (auto v = IntegerValue(TaggedNumber(line), reports))
                file.mintPValue = *v;
        } else if (tag == "###") {
            // A comment line of older files.
        } else if (n + 1 < lines.size()) {
            std::string message = "The line '";
            message += line;
            message += "' cannot be recognized.";
            reports.Raise(10053, kSource, message, "lines that cannot be recognized");
        }
    }
    reports.Finish();

    if (file.mstrCustomer.empty())
        file.mstrCustomer = file.mstrConfiguration;
    if (file.mstrModificationDate.empty())
        file.mstrModificationDate = fileDate;

    if (countI != 0 && countF != 0) {
        file.mintDCount = countD;
        file.mintFCount = countF;
        file.mintICount = countI;
        return true;
    }
    errors.Raise(10052, kSource, "The file '" + path + "' is not a correctly formatted ENT file.");
    return false;
}

}  // namespace pendulon::mFileAccessor
