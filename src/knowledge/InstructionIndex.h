#pragma once
// An index beside the instruction list, so that finding the instruction for a text costs the
// same with a thousand instructions as with a hundred thousand. Match texts are folded to one
// letter case and hashed; a lookup probes the text's own prefixes (or, matching contains, its
// substrings) of the lengths that occur among the match texts, and takes positions in list
// order from there, so list order and tie rules stay those of walkForInstruction on any list,
// sorted or not. The owner keeps it in step with every change of the list.

#include "knowledge/FoldedTextTable.h"
#include "knowledge/InstructionMatch.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tavvel {

class InstructionIndex {
public:
    void build(const Array& list);
    // The list changed at one position; `entry` is the entry inserted, erased or replaced.
    void inserted(std::size_t position, const Value& entry);
    void erased(std::size_t position, const Value& entry);
    void replaced(std::size_t position, const Value& old, const Value& now);

    // Keys whose lookups the index answers; others are walked.
    static bool covers(std::string_view key);

    // Same answer as walkForInstruction(list, text, key, rules) for a covered key, given the
    // list the index was kept in step with.
    std::optional<std::size_t> find(const Array& list, std::string_view text, std::string_view key,
                                    MatchRules rules) const;
    // The first entry whose match text equals the text ignoring case.
    std::optional<std::size_t> firstWithMatchText(const Array& list,
                                                  std::string_view matchText) const;

private:
    using Table = FoldedTextTable;

    struct Hit {
        std::size_t position;
        std::size_t length; // in characters
    };

    // One lookup: what every probe of it needs.
    struct Lookup {
        const Array& list;
        const Table& table;
        std::string_view text;
        std::string_view key;
        MatchRules rules;
        // The first position holding the folded text (whose rolling hash is given) where the
        // entry applies to the text.
        std::optional<std::size_t> probe(std::string_view folded, std::uint64_t hash) const;
        // Whether the hit beats the best so far under the rules.
        bool better(const Hit& hit, const std::optional<Hit>& best) const;
    };

    // Calls visit(table, folded text) for each table that indexes the entry.
    template <class Visit> void forEachKey(const Value& entry, Visit visit);
    void add(std::size_t position, const Value& entry);
    void remove(std::size_t position, const Value& entry);
    const Table& tableFor(std::string_view key) const;
    static std::optional<std::size_t> findStartsWith(const Lookup& lookup);
    static std::optional<std::size_t> findContained(const Lookup& lookup);
    // The best hit among the match texts that start at this byte of the folded text.
    static void findFrom(const Lookup& lookup, std::string_view folded, std::size_t start,
                         std::optional<Hit>& best);

    Table descriptions_;
    Table categories_;
    Table matchTexts_;
};

} // namespace tavvel
