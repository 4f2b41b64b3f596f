#pragma once
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace pendulon {

// An array of fields of one kind, indexed from 0 like the product's control arrays. Elements
// keep their address for the life of the array.
template <class T>
class ControlArray {
public:
    explicit ControlArray(int count = 0) { Resize(count); }

    void Resize(int count) {
        while (static_cast<int>(items_.size()) < count) items_.push_back(std::make_unique<T>());
        // Elements are never taken away: views may still point at them.
    }
    T& operator[](int index) { return *items_.at(static_cast<size_t>(index)); }
    const T& operator[](int index) const { return *items_.at(static_cast<size_t>(index)); }
    int LBound() const { return 0; }
    int UBound() const { return static_cast<int>(items_.size()) - 1; }
    int Count() const { return static_cast<int>(items_.size()); }

    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }

private:
    std::vector<std::unique_ptr<T>> items_;
};

}  // namespace pendulon
