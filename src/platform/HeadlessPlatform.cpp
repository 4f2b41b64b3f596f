#include "platform/HeadlessPlatform.hpp"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>

#include "platform/Window.hpp"

namespace pendulon {

int msgbox::DefaultAnswer(int style) {
    const int buttons = style & 7;
    const int which = (style & DefaultButton3) ? 2 : (style & DefaultButton2) ? 1 : 0;
    static const int kAnswers[6][3] = {{OK, OK, OK},          {OK, Cancel, Cancel},
                                       {Abort, Retry, Ignore}, {Yes, No, Cancel},
                                       {Yes, No, No},          {Retry, Cancel, Cancel}};
    if (buttons > 5) return OK;
    return kAnswers[buttons][which];
}

const char* msgbox::AnswerName(int answer) {
    switch (answer) {
        case OK: return "ok";
        case Cancel: return "cancel";
        case Abort: return "abort";
        case Retry: return "retry";
        case Ignore: return "ignore";
        case Yes: return "yes";
        case No: return "no";
        default: return "none";
    }
}

int msgbox::AnswerFromName(const std::string& name) {
    std::string lower = name;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    for (int answer = OK; answer <= No; ++answer)
        if (lower == AnswerName(answer)) return answer;
    return 0;
}

DateTime SourceDateOr(DateTime fallback) {
    const char* epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (epoch == nullptr || *epoch == '\0') return fallback;
    char* end = nullptr;
    const long long seconds = std::strtoll(epoch, &end, 10);
    if (end == nullptr || *end != '\0') return fallback;
    return DateTime::FromUnixSeconds(seconds);
}

DateTime SystemNow() {
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&seconds, &local);
    DateTime now;
    now.Year = local.tm_year + 1900;
    now.Month = local.tm_mon + 1;
    now.Day = local.tm_mday;
    now.Hour = local.tm_hour;
    now.Minute = local.tm_min;
    now.Second = local.tm_sec;
    return now;
}

HeadlessPlatform::HeadlessPlatform() {
    std::error_code ec;
    appDirectory_ = std::filesystem::temp_directory_path(ec).string();
    if (ec)
        appDirectory_ = "/tmp";
    tempDirectory_ = appDirectory_;
    fonts_ = {"Courier New", "Courier"};
}

DateTime HeadlessPlatform::Now() {
    // A date fixed by a test stands; else a packager's SOURCE_DATE_EPOCH, else today.
    if (now_)
        return *now_;
    return SourceDateOr(SystemNow());
}

int HeadlessPlatform::MsgBox(const std::string& prompt, int style, const std::string& title) {
    int answer = msgbox::DefaultAnswer(style);
    if (!answers_.empty()) {
        answer = answers_.front();
        answers_.pop_front();
    }
    Message message{title, prompt, style, answer};
    messages_.push_back(message);
    if (OnMessage) OnMessage(message);
    return answer;
}

bool HeadlessPlatform::NextFileAnswer(CommonDialog& dialog) {
    dialogs_.push_back(dialog);
    if (fileAnswers_.empty()) return false;
    auto answer = fileAnswers_.front();
    fileAnswers_.pop_front();
    if (!answer) return false;
    dialog.FileName = *answer;
    return true;
}

bool HeadlessPlatform::ShowOpen(CommonDialog& dialog) { return NextFileAnswer(dialog); }
bool HeadlessPlatform::ShowSave(CommonDialog& dialog) { return NextFileAnswer(dialog); }

bool HeadlessPlatform::ShowPrinter(CommonDialog& dialog) {
    dialogs_.push_back(dialog);
    if (printerAnswers_.empty()) return false;
    const bool ok = printerAnswers_.front();
    printerAnswers_.pop_front();
    return ok;
}

void HeadlessPlatform::ShowHelp(CommonDialog& dialog) { help_.push_back(dialog.HelpFile); }

void HeadlessPlatform::QueueModal(const std::string& windowName,
                                  std::function<void(Window&)> action) {
    modalActions_[windowName].push_back(std::move(action));
}

void HeadlessPlatform::ShowModal(Window& window) {
    modals_.push_back(window.Name());
    window.SetVisible(true);
    auto it = modalActions_.find(window.Name());
    if (it != modalActions_.end() && !it->second.empty()) {
        auto action = std::move(it->second.front());
        it->second.pop_front();
        action(window);
    }
    window.SetVisible(false);
}

std::string HeadlessPlatform::GetSetting(const std::string& app, const std::string& section,
                                         const std::string& key, const std::string& defaultValue) {
    auto a = store_.find(app);
    if (a == store_.end()) return defaultValue;
    auto s = a->second.find(section);
    if (s == a->second.end()) return defaultValue;
    auto k = s->second.find(key);
    return k == s->second.end() ? defaultValue : k->second;
}

void HeadlessPlatform::SaveSetting(const std::string& app, const std::string& section,
                                   const std::string& key, const std::string& value) {
    store_[app][section][key] = value;
}

void HeadlessPlatform::DeleteSetting(const std::string& app) { store_.erase(app); }

bool HeadlessPlatform::SettingsExist(const std::string& app) { return store_.count(app) != 0; }

void HeadlessPlatform::SetSystemKey(const std::string& keyPath, std::optional<std::string> value) {
    systemKeys_[keyPath] = std::move(value);
}

std::optional<std::string> HeadlessPlatform::ReadSystemKey(const std::string& keyPath) {
    auto it = systemKeys_.find(keyPath);
    if (it == systemKeys_.end()) return std::nullopt;
    return it->second;
}

std::string HeadlessPlatform::TempFileName(const std::string& folder, const std::string& prefix) {
    namespace fs = std::filesystem;
    for (int attempt = 0; attempt < 1000; ++attempt) {
        fs::path candidate = fs::path(folder) / (prefix + std::to_string(++tempCounter_) + ".tmp");
        std::error_code ec;
        if (fs::exists(candidate, ec)) continue;
        std::ofstream create(candidate);
        if (!create) return {};
        return candidate.string();
    }
    return {};
}

bool HeadlessPlatform::StartProgram(const std::string& program,
                                    const std::vector<std::string>& args) {
    started_.push_back({program, args});
    return true;
}

bool HeadlessPlatform::FontExists(const std::string& name) {
    return std::find(fonts_.begin(), fonts_.end(), name) != fonts_.end();
}

bool HeadlessPlatform::PrinterHasFont(const std::string& name) {
    if (!printerFonts_) return FontExists(name);
    return std::find(printerFonts_->begin(), printerFonts_->end(), name) != printerFonts_->end();
}

bool HeadlessPlatform::PrintText(const std::string& fontName, double size,
                                 const std::string& text) {
    if (printerFails_) return false;
    if (!fontName.empty() && !PrinterHasFont(fontName)) return false;
    printed_.push_back({fontName, size, text});
    return true;
}

}  // namespace pendulon
