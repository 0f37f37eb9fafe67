#pragma once
// Texts that records point into when the statement holds them only for a moment (fields cut
// from a line of free text): appended to blocks that never move, so a view stays valid for as
// long as the arena lives, and a statement of many thousands of transactions costs a few
// allocations instead of one a text.

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace tavvel {

class TextArena {
public:
    std::string_view keep(std::string_view text);
    void clear() { blocks_.clear(), used_ = capacity_ = 0; }

private:
    static constexpr std::size_t kBlockSize = 64 * 1024;
    std::vector<std::unique_ptr<char[]>> blocks_;
    std::size_t used_ = 0;
    std::size_t capacity_ = 0;
};

} // namespace tavvel
