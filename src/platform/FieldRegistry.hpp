#pragma once
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/ControlArray.hpp"
#include "platform/Field.hpp"

namespace pendulon {

// Every field of a window by name, in the window's control order. "txtPLL(1)" names element 1
// of the array txtPLL.
class FieldRegistry {
public:
    void Add(const std::string& name, Field& field);
    template <class T>
    void AddArray(const std::string& name, ControlArray<T>& array) {
        for (int i = 0; i < array.Count(); ++i)
            Add(name + "(" + std::to_string(i) + ")", array[i]);
    }

    Field* Find(const std::string& name) const;
    template <class T>
    T* FindAs(const std::string& name) const {
        return dynamic_cast<T*>(Find(name));
    }
    bool Contains(const std::string& name) const { return Find(name) != nullptr; }

    // In control order.
    const std::vector<Field*>& Fields() const { return order_; }
    size_t Size() const { return order_.size(); }

private:
    std::vector<Field*> order_;
    std::unordered_map<std::string, Field*> byName_;
};

}  // namespace pendulon
