#include "platform/ErrorReport.hpp"

#include "platform/PlatformServices.hpp"

namespace pendulon {

const char* errors::Description(long number) {
    switch (number) {
        case InvalidProcedureCall: return "Invalid procedure call or argument";
        case Overflow: return "Overflow";
        case SubscriptOutOfRange: return "Subscript out of range";
        case DivisionByZero: return "Division by zero";
        case TypeMismatch: return "Type mismatch";
        case FileNotFound: return "File not found";
        case PathNotFound: return "Path not found";
        default: return "Application-defined or object-defined error";
    }
}

ErrorReport::ErrorReport(PlatformServices& services, std::function<std::string()> title)
    : services_(services), title_(std::move(title)) {}

std::string ErrorReport::Text(long number, const std::string& source,
                              const std::string& description) {
    return "The error number is: " + std::to_string(number) +
           "\nThe source for the error is: " + source +
           "\nThe description for the error is: " + description;
}

void ErrorReport::Raise(long number, const std::string& source, const std::string& description) {
    lastNumber_ = number;
    ++count_;
    services_.MsgBox(Text(number, source, description), msgbox::Critical | msgbox::OKOnly,
                     title_ ? title_() : std::string());
}

void ErrorReport::Raise(long number, const std::string& source) {
    Raise(number, source, errors::Description(number));
}

}  // namespace pendulon
