#include "EntryTestSupport.hpp"

#include <fstream>

namespace pendulon::test {

namespace {
std::string LineBehind(const std::string& text, const std::string& prefix) {
    const size_t at = text.find(prefix);
    if (at == std::string::npos)
        return {};
    const size_t from = at + prefix.size();
    const size_t end = text.find('\n', from);
    return text.substr(from, end == std::string::npos ? std::string::npos : end - from);
}
}  // namespace

std::vector<long> ReportFixture::Numbers() const {
    std::vector<long> numbers;
    for (const auto& m : platform.Messages())
        numbers.push_back(std::stol(LineBehind(m.Text, "The error number is: ")));
    return numbers;
}

std::string ReportFixture::Description(size_t n) const {
    return LineBehind(platform.Messages().at(n).Text, "The description for the error is: ");
}

std::string ReportFixture::Source(size_t n) const {
    return LineBehind(platform.Messages().at(n).Text, "The source for the error is: ");
}

std::string WriteBytes(const std::string& dir, const std::string& name, const std::string& bytes) {
    const std::string path = dir + "/" + name;
    std::ofstream out(path, std::ios::binary);
    out << bytes;
    return path;
}

}  // namespace pendulon::test
