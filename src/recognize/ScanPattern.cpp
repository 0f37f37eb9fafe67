#include "recognize/ScanPattern.h"

#include "recognize/ByteClass.h"

#include <algorithm>
#include <limits>

namespace tavvel {

namespace {

// Short runs cost less to measure again than to remember.
constexpr std::size_t kMemoThreshold = 16;
// More significant digits than this cannot fit a signed 64-bit number.
constexpr std::size_t kMaxDigits = 19;
constexpr std::size_t kUnlimited = std::numeric_limits<std::size_t>::max();

bool isOfKind(char c, RunMemo::Kind kind) {
    switch (kind) {
    case RunMemo::space:
        return isSpaceByte(c);
    case RunMemo::digit:
        return isDigitByte(c);
    default:
        return c == '0';
    }
}

std::size_t measure(std::string_view text, std::size_t pos, RunMemo::Kind kind) {
    while (pos < text.size() && isOfKind(text[pos], kind))
        ++pos;
    return pos;
}

std::size_t runEnd(std::string_view text, std::size_t pos, RunMemo::Kind kind, RunMemo* memo) {
    return memo ? memo->runEnd(text, pos, kind) : measure(text, pos, kind);
}

// strtol's saturation: an overflow reads as the largest number of the sign.
std::int64_t digitsValue(std::string_view text, std::size_t from, std::size_t to, bool negative,
                         RunMemo* memo) {
    std::size_t first = std::min(runEnd(text, from, RunMemo::zero, memo), to);
    if (to - first > kMaxDigits)
        return negative ? std::numeric_limits<std::int64_t>::min()
                        : std::numeric_limits<std::int64_t>::max();
    std::uint64_t magnitude = 0;
    for (std::size_t i = first; i < to; ++i)
        magnitude = magnitude * 10 + static_cast<std::uint64_t>(text[i] - '0');
    constexpr auto kMax = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (!negative)
        return static_cast<std::int64_t>(std::min(magnitude, kMax));
    if (magnitude > kMax)
        return std::numeric_limits<std::int64_t>::min();
    return -static_cast<std::int64_t>(magnitude);
}

enum class Outcome { ok, matchFailure, inputFailure };

struct NumberRead {
    Outcome outcome = Outcome::ok;
    std::size_t end = 0;
    std::int64_t value = 0;
};

NumberRead readNumber(std::string_view text, std::size_t pos, std::size_t width, RunMemo* memo,
                      bool needValue = true) {
    std::size_t p = runEnd(text, pos, RunMemo::space, memo);
    if (p >= text.size())
        return {Outcome::inputFailure};
    bool negative = text[p] == '-';
    if (negative || text[p] == '+') {
        ++p;
        --width;
    }
    std::size_t to = runEnd(text, p, RunMemo::digit, memo);
    if (width < to - p)
        to = p + width;
    if (to == p)
        return {Outcome::matchFailure};
    return {Outcome::ok, to, needValue ? digitsValue(text, p, to, negative, memo) : 0};
}

enum class Directive { number, count, percent, unsupported };

struct ParsedDirective {
    Directive kind = Directive::unsupported;
    bool suppressed = false;
    std::size_t width = kUnlimited;
};

// Reads the directive whose "%" stands at i; leaves i just past it.
ParsedDirective parseDirective(std::string_view pattern, std::size_t& i) {
    ParsedDirective d;
    ++i;
    if (byteAt(pattern, i) == '%') {
        ++i;
        d.kind = Directive::percent;
        return d;
    }
    if (byteAt(pattern, i) == '*') {
        d.suppressed = true;
        ++i;
    }
    std::size_t width = 0;
    while (isDigitByte(byteAt(pattern, i)) && width < kUnlimited / 20)
        width = width * 10 + static_cast<std::size_t>(pattern[i++] - '0');
    if (width > 0)
        d.width = width;
    if (byteAt(pattern, i) == 'l')
        ++i;
    char conversion = byteAt(pattern, i);
    if (conversion == 'd' || conversion == 'n') {
        ++i;
        d.kind = conversion == 'd' ? Directive::number : Directive::count;
    }
    return d;
}

class Scanner {
public:
    Scanner(std::string_view text, std::size_t start, RunMemo* memo)
        : text_(text), start_(start), pos_(start), memo_(memo) {}

    ScanResult run(std::string_view pattern);

private:
    Outcome literal(char c);
    Outcome directive(const ParsedDirective& d);

    std::string_view text_;
    std::size_t start_;
    std::size_t pos_;
    RunMemo* memo_;
    ScanResult result_;
};

ScanResult Scanner::run(std::string_view pattern) {
    std::size_t i = 0;
    Outcome outcome = Outcome::ok;
    while (i < pattern.size() && outcome == Outcome::ok) {
        char f = pattern[i];
        if (isSpaceByte(f)) {
            while (i < pattern.size() && isSpaceByte(pattern[i]))
                ++i;
            pos_ = runEnd(text_, pos_, RunMemo::space, memo_);
        } else if (f != '%') {
            outcome = literal(f);
            ++i;
        } else {
            outcome = directive(parseDirective(pattern, i));
        }
    }
    if (outcome == Outcome::inputFailure && result_.count == 0)
        result_.count = -1;
    return result_;
}

Outcome Scanner::literal(char c) {
    if (pos_ >= text_.size())
        return Outcome::inputFailure;
    if (text_[pos_] != c)
        return Outcome::matchFailure;
    ++pos_;
    return Outcome::ok;
}

Outcome Scanner::directive(const ParsedDirective& d) {
    switch (d.kind) {
    case Directive::count:
        result_.consumed = static_cast<std::int64_t>(pos_ - start_);
        return Outcome::ok;
    case Directive::percent:
        pos_ = runEnd(text_, pos_, RunMemo::space, memo_);
        return literal('%');
    case Directive::unsupported:
        return Outcome::matchFailure;
    case Directive::number:
        break;
    }
    NumberRead number = readNumber(text_, pos_, d.width, memo_);
    if (number.outcome != Outcome::ok)
        return number.outcome;
    pos_ = number.end;
    if (!d.suppressed) {
        if (result_.count < ScanResult::kMaxNumbers)
            result_.numbers[static_cast<std::size_t>(result_.count)] = number.value;
        ++result_.count;
    }
    return Outcome::ok;
}

} // namespace

std::size_t RunMemo::runEnd(std::string_view text, std::size_t pos, Kind kind) {
    const std::size_t limit = std::min(text.size(), pos + kMemoThreshold);
    std::size_t end = pos;
    while (end < limit && isOfKind(text[end], kind))
        ++end;
    if (end < limit || end == text.size())
        return end;
    for (const Run& run : runs_[kind])
        if (run.from <= pos && pos < run.to)
            return run.to;
    end = measure(text, end, kind);
    runs_[kind][next_[kind]] = Run{pos, end};
    next_[kind] = (next_[kind] + 1) % kSlots;
    return end;
}

ScanResult scan(std::string_view text, std::size_t start, std::string_view pattern, RunMemo* memo) {
    return Scanner(text, start, memo).run(pattern);
}

std::optional<std::size_t> numberEnd(std::string_view text, std::size_t pos, RunMemo* memo) {
    NumberRead number = readNumber(text, pos, kUnlimited, memo, false);
    if (number.outcome != Outcome::ok)
        return std::nullopt;
    return number.end;
}

} // namespace tavvel
