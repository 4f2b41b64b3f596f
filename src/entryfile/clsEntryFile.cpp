#include "entryfile/clsEntryFile.hpp"

#include "platform/ErrorReport.hpp"

namespace pendulon {

std::int16_t clsEntryFile::d(int index) const {
    if (index < 0 || index > kDUpper) {
        errors_->Raise(errors::SubscriptOutOfRange, "clsEntryFile.d [Property Get]");
        return 0;
    }
    return d_[static_cast<size_t>(index)];
}

void clsEntryFile::set_d(int index, std::int16_t value) {
    if (index < 0 || index > kDUpper) {
        errors_->Raise(errors::SubscriptOutOfRange, "clsEntryFile.d [Property Let]");
        return;
    }
    d_[static_cast<size_t>(index)] = value;
}

double clsEntryFile::f(int index) const {
    if (index < 0 || index > kFUpper) {
        errors_->Raise(errors::SubscriptOutOfRange, "clsEntryFile.f [Property Get]");
        return 0;
    }
    return f_[static_cast<size_t>(index)];
}

void clsEntryFile::set_f(int index, double value) {
    if (index < 0 || index > kFUpper) {
        errors_->Raise(errors::SubscriptOutOfRange, "clsEntryFile.f [Property Let]");
        return;
    }
    f_[static_cast<size_t>(index)] = value;
}

std::int16_t clsEntryFile::i(int index) const {
    if (index < 0 || index > kIUpper) {
        errors_->Raise(errors::SubscriptOutOfRange, "clsEntryFile.i [Property Get]");
        return 0;
    }
    return i_[static_cast<size_t>(index)];
}

void clsEntryFile::set_i(int index, std::int16_t value) {
    if (index < 0 || index > kIUpper) {
        errors_->Raise(errors::SubscriptOutOfRange, "clsEntryFile.i [Property Let]");
        return;
    }
    i_[static_cast<size_t>(index)] = value;
}

}  // namespace pendulon
