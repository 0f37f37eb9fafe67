#pragma once
// Type-ahead completion of the knowledge base's choosers: for a typed prefix, the entry with
// the shortest text that begins with it, ignoring case; the earlier entry on equal lengths.

#include "recognize/CaseFold.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

// What a chooser shows after a keystroke: the entry's text, of which the first typedLength
// bytes stand for what was typed and the rest is shown selected.
struct Completion {
    std::string text;
    std::size_t typedLength = 0;
    bool operator==(const Completion&) const = default;
};

using Completer = std::function<std::optional<Completion>(std::string_view typed)>;

// The entry with the shortest text (in characters) that `accept` takes; the earlier on equal
// lengths. textAt(i) gives the text of entry i as a std::string_view.
template <class TextAt, class Accept>
std::optional<std::size_t> shortestWhere(std::size_t count, TextAt textAt, Accept accept) {
    std::optional<std::size_t> best;
    std::size_t bestLength = 0;
    for (std::size_t i = 0; i < count; ++i) {
        std::string_view entry = textAt(i);
        if (!accept(entry))
            continue;
        std::size_t length = characterCount(entry);
        if (!best || length < bestLength) {
            best = i;
            bestLength = length;
        }
    }
    return best;
}

// With skipEmpty, entries with empty text are never offered (not even for an empty prefix).
template <class TextAt>
std::optional<std::size_t> shortestPrefixMatch(std::size_t count, TextAt textAt,
                                               std::string_view typed, bool skipEmpty = false) {
    return shortestWhere(count, textAt, [&](std::string_view entry) {
        return !(skipEmpty && entry.empty()) && startsWithIgnoringCase(entry, typed);
    });
}

// The completion of typed to entry, which must begin with it.
Completion completionTo(std::string_view entry, std::string_view typed);

// The completion to the shortest entry that begins with typed (see shortestPrefixMatch).
template <class TextAt>
std::optional<Completion> shortestCompletion(std::size_t count, TextAt textAt,
                                             std::string_view typed, bool skipEmpty = false) {
    auto at = shortestPrefixMatch(count, textAt, typed, skipEmpty);
    if (!at)
        return std::nullopt;
    return completionTo(textAt(*at), typed);
}

// A typed ":" at the end moves to the next level: the shortest entry (the earlier of equal
// length) that begins with the text before the ":" and has a ":" after it. The entry up to
// and including that ":" counts as typed.
template <class TextAt>
std::optional<Completion> colonCompletion(std::size_t count, TextAt textAt,
                                          std::string_view typed) {
    if (typed.empty() || typed.back() != ':')
        return std::nullopt;
    std::string_view stem = typed.substr(0, typed.size() - 1);
    auto colonAfterStem = [&](std::string_view entry) {
        auto stemLength = prefixIgnoringCase(entry, stem);
        return stemLength ? entry.find(':', *stemLength) : std::string_view::npos;
    };
    auto at = shortestWhere(count, textAt, [&](std::string_view entry) {
        return colonAfterStem(entry) != std::string_view::npos;
    });
    if (!at)
        return std::nullopt;
    std::string_view entry = textAt(*at);
    return Completion{std::string(entry), colonAfterStem(entry) + 1};
}

// The completion of a chooser whose entries may have levels separated by ":" (descriptions,
// categories): the ":" rule when typed ends in ":", the shortest prefix match otherwise.
template <class TextAt>
std::optional<Completion> levelledCompletion(std::size_t count, TextAt textAt,
                                             std::string_view typed) {
    if (!typed.empty() && typed.back() == ':')
        return colonCompletion(count, textAt, typed);
    return shortestCompletion(count, textAt, typed);
}

} // namespace tavvel
