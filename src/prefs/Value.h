#pragma once
// Property-list values: the one data model for everything the program persists.
// Records are dictionaries keyed by text and lists are arrays, so every key, known or
// not, survives a read and a write.

#include <bit>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iosfwd>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tavvel {

// An instant, in seconds since 1970-01-01 00:00 UTC. A calendar date is the instant of its
// local midnight.
struct Date {
    double seconds = 0;
    auto operator<=>(const Date&) const = default;
};

// Opaque bytes (a plist <data> element): kept so that foreign entries round-trip.
struct Data {
    std::string bytes;
    auto operator<=>(const Data&) const = default;
};

class Value;
using Array = std::vector<Value>;
// Byte order as std::string's compare gives it (negative, zero or positive), worked out in
// line: keys are short, so a call to memcmp costs more than the comparison itself. Bytes go
// eight or four at a time, read most significant first so that words order as their bytes
// do; the last word overlaps bytes already found equal rather than falling back to single
// bytes. Equal keys, which every successful lookup meets twice, are then two or three words.
inline int compareBytes(std::string_view a, std::string_view b) noexcept {
    const std::size_t common = a.size() < b.size() ? a.size() : b.size();
    auto word64 = [](const char* at) {
        std::uint64_t word;
        std::memcpy(&word, at, sizeof word);
        if constexpr (std::endian::native == std::endian::little)
            word = __builtin_bswap64(word);
        return word;
    };
    auto word32 = [](const char* at) {
        std::uint32_t word;
        std::memcpy(&word, at, sizeof word);
        if constexpr (std::endian::native == std::endian::little)
            word = __builtin_bswap32(word);
        return word;
    };
    auto order = [](auto x, auto y) { return x < y ? -1 : 1; };
    if (common >= 8) {
        for (std::size_t i = 0; i + 8 < common; i += 8)
            if (auto x = word64(a.data() + i), y = word64(b.data() + i); x != y)
                return order(x, y);
        if (auto x = word64(a.data() + common - 8), y = word64(b.data() + common - 8); x != y)
            return order(x, y);
    } else if (common >= 4) {
        if (auto x = word32(a.data()), y = word32(b.data()); x != y)
            return order(x, y);
        if (auto x = word32(a.data() + common - 4), y = word32(b.data() + common - 4); x != y)
            return order(x, y);
    } else {
        for (std::size_t i = 0; i < common; ++i)
            if (a[i] != b[i])
                return order(static_cast<unsigned char>(a[i]), static_cast<unsigned char>(b[i]));
    }
    return a.size() == b.size() ? 0 : order(a.size(), b.size());
}

inline bool sameBytes(std::string_view a, std::string_view b) noexcept {
    return a.size() == b.size() && compareBytes(a, b) == 0;
}

// For texts kept in hashed containers and looked up with a string_view: every byte counts,
// eight at a time, with none of the general-purpose hash's calls. The texts are settings'
// names and a statement's own fields, never chosen to collide.
struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const noexcept {
        constexpr std::uint64_t mix = 0x9E3779B97F4A7C15u;
        std::uint64_t hash = text.size() * mix;
        auto add = [&hash](std::uint64_t word) { hash = (hash ^ word) * mix; };
        std::size_t at = 0;
        for (; at + 8 <= text.size(); at += 8) {
            std::uint64_t word;
            std::memcpy(&word, text.data() + at, sizeof word);
            add(word);
        }
        std::uint64_t rest = 0;
        if (at < text.size())
            std::memcpy(&rest, text.data() + at, text.size() - at);
        add(rest);
        return static_cast<std::size_t>(hash ^ (hash >> 29));
    }
};

struct SameText {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const noexcept {
        return sameBytes(a, b);
    }
};

// The byte order of std::less on strings, without its call to memcmp. Transparent, so
// records are searched with a string_view key without building a string.
struct KeyOrder {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const noexcept {
        return compareBytes(a, b) < 0;
    }
};
using Dictionary = std::map<std::string, Value, KeyOrder>;

class Value {
public:
    enum class Type { string, integer, real, boolean, date, data, array, dictionary };

    Value() : v_(std::string()) {}
    Value(std::string s) : v_(std::move(s)) {}
    Value(std::string_view s) : v_(std::string(s)) {}
    Value(const char* s) : v_(std::string(s)) {}
    Value(int i) : v_(std::int64_t{i}) {}
    Value(std::int64_t i) : v_(i) {}
    Value(double d) : v_(d) {}
    Value(bool b) : v_(b) {}
    Value(Date d) : v_(d) {}
    Value(Data d) : v_(std::move(d)) {}
    Value(Array a) : v_(std::move(a)) {}
    Value(Dictionary d) : v_(std::move(d)) {}

    Type type() const { return static_cast<Type>(v_.index()); }
    bool isString() const { return type() == Type::string; }
    bool isInteger() const { return type() == Type::integer; }
    bool isReal() const { return type() == Type::real; }
    bool isBoolean() const { return type() == Type::boolean; }
    bool isDate() const { return type() == Type::date; }
    bool isArray() const { return type() == Type::array; }
    bool isDictionary() const { return type() == Type::dictionary; }
    bool isNumber() const { return isInteger() || isReal() || isBoolean(); }

    // Typed access: a pointer to the held value, or null when the value is of another type.
    template <class T> const T* get() const { return std::get_if<T>(&v_); }
    template <class T> T* get() { return std::get_if<T>(&v_); }

    // Lenient conversions in the manner of a number read from text: a string converts by its
    // leading number, a boolean is 0 or 1, anything else is 0.
    double toDouble() const;
    std::int64_t toInteger() const;
    bool toBool() const;

    // The text of a string value; empty for any other type.
    const std::string& text() const;
    // The elements of an array value; empty for any other type.
    const Array& array() const;
    // The entries of a dictionary value; empty for any other type.
    const Dictionary& dictionary() const;

    bool operator==(const Value& other) const { return v_ == other.v_; }

    // A readable rendering for diagnostics (not a file format).
    std::string describe(int indent = 0) const;

private:
    std::variant<std::string, std::int64_t, double, bool, Date, Data, Array, Dictionary> v_;
};

// Diagnostics, and readable test failures.
std::ostream& operator<<(std::ostream& out, const Value& value);

// Record helpers: records are dictionaries, and most lookups want "the text under this key".
const Value* find(const Dictionary& record, std::string_view key);
Value* find(Dictionary& record, std::string_view key);
// The text under the key, or the fallback when the key is absent or not text.
std::string textOf(const Dictionary& record, std::string_view key, std::string_view fallback = {});
// The same without a copy: valid while the record's entry is.
std::string_view textViewOf(const Dictionary& record, std::string_view key);
bool has(const Dictionary& record, std::string_view key);
// Knowledge-base flags are the text "Y" when set and absent otherwise.
bool flagOf(const Dictionary& record, std::string_view key);
void setFlag(Dictionary& record, std::string_view key, bool on);

} // namespace tavvel
