#include "prefs/LookupCache.h"

namespace tavvel {

const Value* LookupCache::find(const Dictionary& store, std::string_view key) const {
    if (auto it = found_.find(key); it != found_.end())
        return it->second;
    const Value* value = tavvel::find(store, key);
    found_.emplace(std::string(key), value);
    return value;
}

void LookupCache::keepList(const Dictionary& store, std::string_view listKey) const {
    list_.emplace();
    listKey_ = listKey;
    if (const Value* list = find(store, listKey))
        for (const Value& item : list->array())
            if (item.isString())
                list_->push_back(item.text());
}

void LookupCache::clear() {
    found_.clear();
    list_.reset();
}

} // namespace tavvel
