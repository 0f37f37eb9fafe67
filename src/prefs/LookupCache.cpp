#include "prefs/LookupCache.h"

#include <algorithm>

namespace tavvel {

const Value* LookupCache::find(const Dictionary& store, std::string_view key) const {
    if (auto it = found_.find(key); it != found_.end())
        return it->second;
    const Value* value = tavvel::find(store, key);
    found_.emplace(std::string(key), value);
    return value;
}

bool LookupCache::listHolds(const Dictionary& store, std::string_view listKey,
                            std::string_view text) const {
    if (!list_ || !sameBytes(listKey_, listKey)) {
        list_.emplace();
        listKey_ = listKey;
        if (const Value* list = find(store, listKey))
            for (const Value& item : list->array())
                if (item.isString())
                    list_->push_back(item.text());
    }
    // Length first: most names differ in it, and then no bytes are compared.
    return std::any_of(list_->begin(), list_->end(),
                       [text](const std::string& item) { return sameBytes(item, text); });
}

void LookupCache::clear() {
    found_.clear();
    list_.reset();
}

} // namespace tavvel
