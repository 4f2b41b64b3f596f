#include "planner/clsPlannerRun.hpp"

#include "app/AppServices.hpp"
#include "app/Configurator.hpp"
#include "planner/PlannerHost.hpp"
#include "platform/UserInput.hpp"

namespace pendulon {

namespace {

bool IsErrorReport(const HeadlessPlatform::Message& message) {
    return (message.Style & msgbox::Exclamation) == msgbox::Critical;
}

}  // namespace

clsPlannerRun::clsPlannerRun(const PlannerHost& host, std::string device)
    : host_(host), device_(std::move(device)) {
    app_ = host_.StartRun(platform_);
}

clsPlannerRun::~clsPlannerRun() = default;

Configurator* clsPlannerRun::NewDocument(std::string& error) {
    // The planner's own documents go without asking: nothing in them is the user's.
    if (Configurator* before = app_->Document())
        before->mUnloadRequired = true;
    return host_.NewDocument(*app_, device_, error);
}

Configurator* clsPlannerRun::Document() const {
    return app_->Document();
}

size_t clsPlannerRun::ErrorReports() const {
    size_t count = 0;
    for (const auto& message : platform_.Messages())
        if (IsErrorReport(message))
            ++count;
    return count;
}

std::string clsPlannerRun::LastErrorReport() const {
    const auto& messages = platform_.Messages();
    for (auto it = messages.rbegin(); it != messages.rend(); ++it)
        if (IsErrorReport(*it))
            return it->Text;
    return {};
}

bool clsPlannerRun::Apply(Configurator& document, const std::vector<PlanAction>& actions,
                          std::string& error) {
    for (const PlanAction& action : actions) {
        Field* field = document.Fields().Find(action.strField);
        if (field == nullptr) {
            error = "unknown field '" + action.strField + "'";
            return false;
        }
        const bool done = action.blnClick
                              ? ClickAsUser(document, *field, action.strField, error)
                              : SetAsUser(document, *field, action.strText, action.strField, error);
        if (!done)
            return false;
    }
    return true;
}

}  // namespace pendulon
