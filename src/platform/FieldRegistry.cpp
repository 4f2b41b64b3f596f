#include "platform/FieldRegistry.hpp"

#include <stdexcept>

namespace pendulon {

void FieldRegistry::Add(const std::string& name, Field& field) {
    if (byName_.count(name) != 0) throw std::logic_error("field registered twice: " + name);
    field.SetName(name);
    byName_.emplace(name, &field);
    order_.push_back(&field);
}

Field* FieldRegistry::Find(const std::string& name) const {
    auto it = byName_.find(name);
    return it == byName_.end() ? nullptr : it->second;
}

}  // namespace pendulon
