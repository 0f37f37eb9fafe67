#pragma once
// A scanf-style matcher for the patterns dates and amounts are read with: "%ld" (optionally
// with a width, as in "%2ld", or suppressed, as in "%*ld"), "%ln", "%%", literal bytes, and
// white space, which matches any run of white space in the text, none included. Numbers follow
// the C library's rules (leading white space skipped, one sign, saturation on overflow), but
// the matcher stops where the pattern stops: glibc's sscanf measures the whole remaining string
// on every call, which makes a scan over a large statement quadratic.

#include "recognize/ByteClass.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tavvel {

// Remembers long runs of white space, digits and zeros already measured in one text, so that
// scans started at many neighbouring positions of that text read each run once. One memo
// serves one text.
class RunMemo {
public:
    enum Kind : unsigned { space, digit, zero, kindCount };

    // The end of the run of `kind` bytes that starts at pos (pos when the byte there is not one).
    std::size_t runEnd(std::string_view text, std::size_t pos, Kind kind);

private:
    struct Run {
        std::size_t from = 1;
        std::size_t to = 0;
    };
    static constexpr std::size_t kSlots = 8;
    std::array<std::array<Run, kSlots>, kindCount> runs_{};
    std::array<std::size_t, kindCount> next_{};
};

struct ScanResult {
    static constexpr int kMaxNumbers = 8;
    // Numbers converted; -1 when the text ended before the first one (sscanf's EOF).
    int count = 0;
    // The first kMaxNumbers numbers, in pattern order.
    std::array<std::int64_t, kMaxNumbers> numbers{};
    // The "%ln" count of bytes consumed, when the scan got that far.
    std::optional<std::int64_t> consumed;
};

// Matches the pattern against the text from `start`. An unsupported directive ends the scan as
// a matching failure would.
ScanResult scan(std::string_view text, std::size_t start, std::string_view pattern,
                RunMemo* memo = nullptr);
inline ScanResult scan(std::string_view text, std::string_view pattern) {
    return scan(text, 0, pattern, nullptr);
}

// Where a "%ld" started at pos would stop, or nothing when it would read no digit.
std::optional<std::size_t> numberEnd(std::string_view text, std::size_t pos, RunMemo* memo);
// The first position at or after pos that does not hold white space.
inline std::size_t spaceEnd(std::string_view text, std::size_t pos, RunMemo* memo) {
    if (pos >= text.size() || !isSpaceByte(text[pos]))
        return pos;
    if (memo)
        return memo->runEnd(text, pos, RunMemo::space);
    while (pos < text.size() && isSpaceByte(text[pos]))
        ++pos;
    return pos;
}

} // namespace tavvel
