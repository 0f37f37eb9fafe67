#include "prefs/DerivedObjects.h"

namespace tavvel {

void DerivedObjects::changed(std::string_view key) {
    if (auto it = changes_.find(key); it != changes_.end())
        ++it->second;
    else
        changes_.emplace(std::string(key), 1);
}

std::any& DerivedObjects::objectFor(std::string_view key) {
    if (auto it = objects_.find(key); it != objects_.end())
        return it->second;
    return objects_.emplace(std::string(key), std::any()).first->second;
}

} // namespace tavvel
