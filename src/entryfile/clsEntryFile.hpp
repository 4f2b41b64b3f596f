#pragma once
#include <array>
#include <cstdint>
#include <string>

namespace pendulon {

class ErrorReport;

// The neutral image of an entry file between the reader and a configurator: text fields, a few
// single values, and the three indexed groups d, f and i in the order of their lines.
class clsEntryFile {
public:
    explicit clsEntryFile(ErrorReport& errors) : errors_(&errors) {}

    std::string mstrModificationDate;
    std::string mstrConfiguration;
    std::string mstrComments;
    std::string mstrCustomer;
    std::string mstrVersion;
    std::string mstrPackage;
    std::string mstrFAE;
    std::string mstrPartDescription;
    std::string mstrRValue;
    std::int16_t mintBValue = 0;
    std::int16_t mintMValue = 0;
    std::int16_t mintPValue = 0;
    std::int16_t mintDCount = 0;
    std::int16_t mintFCount = 0;
    std::int16_t mintICount = 0;

    static constexpr int kDUpper = 1;
    static constexpr int kFUpper = 32;
    static constexpr int kIUpper = 256;

    // Indexed values. An index outside the range is a subscript error through the error
    // report: a read then gives 0 and a write stores nothing.
    std::int16_t d(int index) const;
    void set_d(int index, std::int16_t value);
    double f(int index) const;
    void set_f(int index, double value);
    std::int16_t i(int index) const;
    void set_i(int index, std::int16_t value);

    ErrorReport& Errors() const { return *errors_; }

private:
    ErrorReport* errors_;
    std::array<std::int16_t, kDUpper + 1> d_{};
    std::array<double, kFUpper + 1> f_{};
    std::array<std::int16_t, kIUpper + 1> i_{};
};

}  // namespace pendulon
