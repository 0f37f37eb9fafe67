#pragma once
// Property-list values: the one data model for everything the program persists.
// Records are dictionaries keyed by text and lists are arrays, so every key, known or
// not, survives a read and a write.

#include <compare>
#include <cstddef>
#include <cstdint>
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
// The byte order of std::less on strings, compared in line: keys are short and most differ
// in their first bytes, so a call to memcmp for each step down the tree cost more than the
// comparison. Transparent, so records are searched with a string_view key without building
// a string.
struct KeyOrder {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const noexcept {
        const std::size_t common = a.size() < b.size() ? a.size() : b.size();
        for (std::size_t i = 0; i < common; ++i)
            if (a[i] != b[i])
                return static_cast<unsigned char>(a[i]) < static_cast<unsigned char>(b[i]);
        return a.size() < b.size();
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
