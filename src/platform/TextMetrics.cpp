#include "platform/TextMetrics.hpp"

#include <algorithm>
#include <cmath>

namespace pendulon {

double HeadlessTextMetrics::TextWidth(const FontSpec& font, std::string_view text) const {
    // Widest line of the text.
    size_t widest = 0, current = 0;
    for (char c : text) {
        if (c == '\n') {
            widest = std::max(widest, current);
            current = 0;
        } else if (c != '\r') {
            ++current;
        }
    }
    widest = std::max(widest, current);
    return std::round(static_cast<double>(widest) * font.Size * 11.0);
}

double HeadlessTextMetrics::TextHeight(const FontSpec& font, std::string_view text) const {
    const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
    return std::round(static_cast<double>(lines) * font.Size * 24.0);
}

namespace {
const TextMetrics* screenMetrics = nullptr;
thread_local const TextMetrics* threadMetrics = nullptr;
}  // namespace

const TextMetrics& ScreenTextMetrics() {
    if (threadMetrics != nullptr)
        return *threadMetrics;
    return screenMetrics != nullptr ? *screenMetrics : HeadlessTextMetrics::Instance();
}

ThreadTextMetrics::ThreadTextMetrics(const TextMetrics& metrics) : previous_(threadMetrics) {
    threadMetrics = &metrics;
}

ThreadTextMetrics::~ThreadTextMetrics() {
    threadMetrics = previous_;
}

void SetScreenTextMetrics(const TextMetrics* metrics) {
    screenMetrics = metrics;
}

const HeadlessTextMetrics& HeadlessTextMetrics::Instance() {
    static const HeadlessTextMetrics metrics;
    return metrics;
}

}  // namespace pendulon
