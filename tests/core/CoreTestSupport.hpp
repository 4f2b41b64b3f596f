#pragma once
#include <string>

#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"

namespace pendulon::test {

// A headless platform with the error report the models are built with.
struct ReportFixture {
    HeadlessPlatform platform;
    ErrorReport errors{platform, [] { return std::string("Pendulon(tm) 3.71"); }};

    // Source line of the n-th message box.
    std::string Source(size_t n) const {
        const std::string& text = platform.Messages().at(n).Text;
        const std::string marker = "The source for the error is: ";
        const size_t from = text.find(marker) + marker.size();
        return text.substr(from, text.find('\n', from) - from);
    }
};

}  // namespace pendulon::test
