#pragma once
#include <functional>
#include <string>

namespace pendulon {

class PlatformServices;

// Numbers of the runtime errors the product can meet.
namespace errors {
inline constexpr long InvalidProcedureCall = 5;
inline constexpr long Overflow = 6;
inline constexpr long SubscriptOutOfRange = 9;
inline constexpr long DivisionByZero = 11;
inline constexpr long TypeMismatch = 13;
inline constexpr long FileNotFound = 53;
inline constexpr long PathNotFound = 76;
const char* Description(long number);
}  // namespace errors

// The one way the product reports an error: a critical message box with the three lines
// "The error number is: ", "The source for the error is: ", "The description for the error
// is: ", an OK button and the application title as caption. The caller then goes on with its
// next statement.
class ErrorReport {
public:
    ErrorReport(PlatformServices& services, std::function<std::string()> title);

    void Raise(long number, const std::string& source, const std::string& description);
    // A runtime error with its standard description.
    void Raise(long number, const std::string& source);

    static std::string Text(long number, const std::string& source,
                            const std::string& description);

    long LastNumber() const { return lastNumber_; }
    int Count() const { return count_; }

private:
    PlatformServices& services_;
    std::function<std::string()> title_;
    long lastNumber_ = 0;
    int count_ = 0;
};

}  // namespace pendulon
