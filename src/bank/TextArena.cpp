#include "bank/TextArena.h"

#include <algorithm>
#include <cstring>

namespace tavvel {

std::string_view TextArena::keep(std::string_view text) {
    if (text.empty())
        return std::string_view("", 0);
    if (capacity_ - used_ < text.size()) {
        capacity_ = std::max(kBlockSize, text.size());
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(capacity_));
        used_ = 0;
    }
    char* at = blocks_.back().get() + used_;
    std::memcpy(at, text.data(), text.size());
    used_ += text.size();
    return {at, text.size()};
}

} // namespace tavvel
