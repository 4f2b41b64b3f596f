#include "entryfile/ReadFile.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
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

// A value in Integer range, or an overflow through the report (nullopt: keep the old value).
std::optional<std::int16_t> IntegerValue(double value, ErrorReport& errors) {
    const auto result = ToInteger(value);
    if (!result)
        errors.Raise(errors::Overflow, kSource);
    return result;
}

// The counter of a group is an Integer as well: past its range it stays where it is.
void Advance(std::int16_t& counter, ErrorReport& errors) {
    if (counter == INT16_MAX) {
        errors.Raise(errors::Overflow, kSource);
        return;
    }
    ++counter;
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
    std::error_code error;
    if (path.empty() || !std::filesystem::is_regular_file(path, error)) {
        errors.Raise(10051, kSource, "The path and/or file name cannot be found.");
        return false;
    }
    const std::optional<std::string> content = ReadTextFile(path);
    if (!content) {
        errors.Raise(10051, kSource, "The path and/or file name cannot be found.");
        return false;
    }
    return ParseFile(*content, path, FileDateText(path), file);
}

bool ParseFile(std::string_view text, const std::string& path, const std::string& fileDate,
               clsEntryFile& file) {
    ErrorReport& errors = file.Errors();
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
            if (auto v = IntegerValue(Val(Trim(Mid(line, 4, 3))), errors))
                file.mintBValue = *v;
        } else if (tag == "# r") {
            file.mstrRValue = Trim(Mid(line, 4, 3));
        } else if (tag == "# d") {
            if (auto v = IntegerValue(TaggedNumber(line), errors))
                file.set_d(countD, *v);
            Advance(countD, errors);
        } else if (tag == "# f") {
            file.set_f(countF, TaggedNumber(line));
            Advance(countF, errors);
        } else if (tag == "# i") {
            if (auto v = IntegerValue(TaggedNumber(line), errors))
                file.set_i(countI, *v);
            Advance(countI, errors);
        } else if (tag == "# m") {
            if (auto v = IntegerValue(TaggedNumber(line), errors))
                file.mintMValue = *v;
        } else if (tag == "# p") {
            if (auto v = IntegerValue(TaggedNumber(line), errors))
                file.mintPValue = *v;
        } else if (tag == "###") {
            // A comment line of older files.
        } else if (n + 1 < lines.size()) {
            std::string message = "The line '";
            message += line;
            message += "' cannot be recognized.";
            errors.Raise(10053, kSource, message);
        }
    }

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
