#include "recognize/WordMonthTable.h"

#include "recognize/ByteClass.h"

#include <algorithm>

namespace tavvel {

namespace {

constexpr std::size_t kBytes = 256;

std::size_t skipPatternSpace(std::string_view pattern, std::size_t i) {
    while (i < pattern.size() && isSpaceByte(pattern[i]))
        ++i;
    return i;
}

// The literal text that starts at i: up to white space or a directive.
std::string_view literalAt(std::string_view pattern, std::size_t i) {
    std::size_t end = i;
    while (end < pattern.size() && pattern[end] != '%' && !isSpaceByte(pattern[end]))
        ++end;
    return pattern.substr(i, end - i);
}

// Length of a plain "%ld" (or "%d") at i: the only leading directive the index understands.
std::size_t plainNumberAt(std::string_view pattern, std::size_t i) {
    if (pattern.substr(i, 3) == "%ld")
        return 3;
    return pattern.substr(i, 2) == "%d" ? 2 : 0;
}

} // namespace

std::vector<WordMonthFormat> readWordMonthFormats(const Configuration& config,
                                                  std::string_view key) {
    std::vector<WordMonthFormat> formats;
    for (const Value& entry : config.array(key)) {
        if (!entry.isDictionary())
            continue;
        const Value* format = find(entry.dictionary(), "format");
        const Value* month = find(entry.dictionary(), "month");
        formats.push_back({format ? std::string_view(format->text()) : std::string_view(),
                           month ? month->toInteger() : 0});
    }
    return formats;
}

WordMonthTable::WordMonthTable(const Configuration& config, std::string_view key)
    : formats_(readWordMonthFormats(config, key)) {
    literals_.reserve(formats_.size());
    buckets_.reserve(formats_.size());
    for (std::size_t i = 0; i < formats_.size(); ++i)
        add(i, classify(formats_[i].format));
    if (bucketFor(always, '\0'))
        literalStart_.fill(true);
}

void WordMonthTable::add(std::size_t index, const Anchor& anchor) {
    const std::string_view literal = anchor.literal;
    literals_.push_back(literal);
    const auto first = static_cast<unsigned char>(literal.empty() ? '\0' : literal.front());
    std::uint16_t& slot = bucketSlots_[anchor.row * kBytes + first];
    if (slot == 0) {
        buckets_.emplace_back();
        slot = static_cast<std::uint16_t>(buckets_.size());
    }
    Bucket& bucket = buckets_[slot - 1u];
    if (literal.size() < 2)
        bucket.shortLiteral = true;
    else
        bucket.second.set(static_cast<unsigned char>(literal[1]));
    bucket.formats.push_back(index);
}

WordMonthTable::Anchor WordMonthTable::classify(std::string_view f) {
    std::size_t i = skipPatternSpace(f, 0);
    if (i < f.size() && f[i] != '%') {
        literalStart_[static_cast<unsigned char>(f[i])] = true;
        return {i == 0 ? startsWith : startsAfterSpace, literalAt(f, i)};
    }
    std::size_t number = plainNumberAt(f, i);
    if (number == 0)
        return {always, {}};
    for (char c : std::string_view("0123456789+-"))
        numberStart_[static_cast<unsigned char>(c)] = true;
    i += number;
    std::size_t next = skipPatternSpace(f, i);
    if (next >= f.size() || f[next] == '%')
        return {afterAnyNumber, {}};
    return {next == i ? afterNumber : afterNumberAndSpace, literalAt(f, next)};
}

const WordMonthTable::Bucket* WordMonthTable::bucketFor(Row row, char byte) const {
    const std::uint16_t slot = bucketSlots_[row * kBytes + static_cast<unsigned char>(byte)];
    return slot == 0 ? nullptr : &buckets_[slot - 1u];
}

// Adds the formats of one row whose literal stands where that row's anchor lies; 1 when it
// added any.
int WordMonthTable::collect(Row row, char byte, std::string_view text, const AnchorPositions& at,
                            std::vector<std::size_t>& out) const {
    const Bucket* bucket = bucketFor(row, byte);
    if (!bucket)
        return 0;
    const std::size_t from = row < kLiteralRows ? std::min(at[row], text.size()) : 0;
    const auto second = static_cast<unsigned char>(byteAt(text, from + 1));
    if (!bucket->shortLiteral && !bucket->second.test(second))
        return 0;
    const std::string_view rest = text.substr(from);
    const std::size_t before = out.size();
    // Formats of one literal stand together in the tables; each literal is compared once.
    std::optional<std::string_view> last;
    bool matched = false;
    for (std::size_t index : bucket->formats) {
        const std::string_view literal = literals_[index];
        if (literal != last)
            matched = rest.starts_with(literal);
        last = literal;
        if (matched)
            out.push_back(index);
    }
    return out.size() > before ? 1 : 0;
}

// At a position holding white space only formats that skip it can match: a leading number,
// or white space at the start of the format.
const std::vector<std::size_t>& WordMonthTable::candidates(std::string_view text, std::size_t pos,
                                                           WordMonthScratch& scratch,
                                                           bool numberTried) const {
    std::vector<std::size_t>& out = scratch.candidates;
    out.clear();
    if (!mayStartAt(byteAt(text, pos), numberTried))
        return out;
    AnchorPositions at{pos, spaceEnd(text, pos, &scratch.memo), 0, 0};
    const char first = byteAt(text, at[startsAfterSpace]);
    int sources = collect(always, '\0', text, at, out);
    if (at[startsAfterSpace] == pos)
        sources += collect(startsWith, first, text, at, out);
    sources += collect(startsAfterSpace, first, text, at, out);
    if ((isDigitByte(first) || first == '+' || first == '-') && !numberTried) {
        if (auto end = numberEnd(text, pos, &scratch.memo)) {
            at[afterNumber] = *end;
            at[afterNumberAndSpace] = spaceEnd(text, *end, &scratch.memo);
            sources += collect(afterAnyNumber, '\0', text, at, out);
            sources += collect(afterNumber, byteAt(text, *end), text, at, out);
            sources +=
                collect(afterNumberAndSpace, byteAt(text, at[afterNumberAndSpace]), text, at, out);
        }
    }
    if (sources > 1)
        std::sort(out.begin(), out.end());
    return out;
}

} // namespace tavvel
