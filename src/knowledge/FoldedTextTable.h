#pragma once
// Folded match texts and the list positions that hold them, for the instruction index. A
// lookup probes many candidate texts of which nearly all are absent, and finds at most a few:
// - a small bit filter, which stays in the processor's cache where a table of a large list
//   does not, rules out most absent texts without touching the table;
// - the table is keyed by the text's hash alone, and a position keeps its first entry inline,
//   so a hit costs few memory accesses; the caller confirms a hit against the list itself,
//   which also settles the rare texts that share a hash.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavvel {

// The hash of a text, computed a byte at a time so that a lookup hashes every prefix of a
// text in one pass.
class RollingHash {
public:
    void add(char byte) {
        value_ ^= static_cast<unsigned char>(byte);
        value_ *= 0x100000001b3ULL;
    }
    std::uint64_t value() const { return value_; }

private:
    std::uint64_t value_ = 0xcbf29ce484222325ULL;
};

std::uint64_t rollingHashOf(std::string_view text);

// List positions in ascending order, the first held inline.
class PositionList {
public:
    explicit PositionList(std::size_t position) : first_(position) {}
    void insert(std::size_t position);
    bool contains(std::size_t position) const;
    // Removes the position; false when the list has become empty.
    bool erase(std::size_t position);
    void shift(std::size_t from, bool up);

    // The first position that `take` accepts.
    template <class Take> std::optional<std::size_t> firstWhere(Take take) const {
        if (take(first_))
            return first_;
        for (std::size_t position : more_)
            if (take(position))
                return position;
        return std::nullopt;
    }

private:
    std::size_t first_;
    std::vector<std::size_t> more_;
};

class FoldedTextTable {
public:
    void add(std::string_view folded, std::size_t position);
    void remove(std::string_view folded, std::size_t position);
    // Moves every position from `from` on one up or one down.
    void shift(std::size_t from, bool up);
    void clear();

    // False when no text with this hash is held (a quick answer); true may be wrong.
    bool mayHold(std::uint64_t hash) const;
    // The positions of the texts with this hash, or null.
    const PositionList* positionsOf(std::uint64_t hash) const;
    bool hasLength(std::size_t length) const {
        return length < lengths_.size() && lengths_[length] > 0;
    }
    // The byte length of the longest text held (0 when none).
    std::size_t longest() const { return lengths_.empty() ? 0 : lengths_.size() - 1; }

private:
    void remember(std::uint64_t hash);
    void rebuildFilter();
    std::size_t wordOf(std::uint64_t bits) const;
    static std::uint64_t bitsOf(std::uint64_t bits);

    std::unordered_map<std::uint64_t, PositionList> positions_;
    // How many positions hold a text of each byte length.
    std::vector<std::size_t> lengths_;
    // Two bits per text in one word; removals leave their bits, which costs a wasted probe
    // at most.
    std::vector<std::uint64_t> filter_;
};

} // namespace tavvel
