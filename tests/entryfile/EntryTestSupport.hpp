#pragma once
#include <string>
#include <vector>

#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"

namespace pendulon::test {

// A headless platform with an error report, as every entry-file test needs.
struct ReportFixture {
    HeadlessPlatform platform;
    ErrorReport errors{platform, [] { return std::string("Pendulon(tm) 3.71"); }};

    // The error numbers of the recorded message boxes, in order.
    std::vector<long> Numbers() const;
    // The description line of message n.
    std::string Description(size_t n) const;
    std::string Source(size_t n) const;
};

// Writes bytes to a file and returns its path.
std::string WriteBytes(const std::string& dir, const std::string& name, const std::string& bytes);

}  // namespace pendulon::test
