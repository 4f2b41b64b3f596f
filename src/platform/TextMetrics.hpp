#pragma once
#include <string>
#include <string_view>

namespace pendulon {

struct FontSpec {
    std::string Name = "MS Sans Serif";
    double Size = 8.25;  // points
    bool Bold = false;
};

// Measures text in twips. The desktop answers with the real font; the headless platform with
// a fixed-pitch approximation, so that headless layouts are deterministic.
class TextMetrics {
  public:
    virtual ~TextMetrics() = default;
    virtual double TextWidth(const FontSpec& font, std::string_view text) const = 0;
    virtual double TextHeight(const FontSpec& font, std::string_view text) const = 0;
};

// Every character is 0.55 em wide (11/20 of the point size in twips times 20); a line is
// 1.2 em high.
class HeadlessTextMetrics : public TextMetrics {
  public:
    double TextWidth(const FontSpec& font, std::string_view text) const override;
    double TextHeight(const FontSpec& font, std::string_view text) const override;
    static const HeadlessTextMetrics& Instance();
};

// The measurer of every picture that has not been given one of its own. It is the headless
// one until a front end with real fonts installs its own, so that a drawing made before its
// view exists is measured in the fonts it will be painted with.
const TextMetrics& ScreenTextMetrics();
// Installs the front end's measurer; nullptr goes back to the headless one. The measurer must
// outlive its installation.
void SetScreenTextMetrics(const TextMetrics* metrics);

// While it lives, the pictures of the thread that made it are measured with the given measurer
// in place of the screen's: a thread that works in windows nobody sees (the frequency planner's)
// measures as the headless platform does, and never calls the front end's fonts off its own
// thread. It must go on the thread that made it, in the reverse order of making.
class ThreadTextMetrics {
  public:
    explicit ThreadTextMetrics(const TextMetrics& metrics);
    ~ThreadTextMetrics();
    ThreadTextMetrics(const ThreadTextMetrics&) = delete;
    ThreadTextMetrics& operator=(const ThreadTextMetrics&) = delete;

  private:
    const TextMetrics* previous_;
};

}  // namespace pendulon
