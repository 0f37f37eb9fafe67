#include "prefs/Value.h"

#include <cstdlib>
#include <sstream>

namespace tavvel {

namespace {

const std::string kEmptyText;
const Array kEmptyArray;
const Dictionary kEmptyDictionary;

// strtod in the "C" locale reads the leading number of the text and ignores the rest, which is
// how a stored number-as-text has always been read.
double leadingNumber(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

std::string pad(int indent) {
    return std::string(static_cast<std::size_t>(indent) * 2, ' ');
}

} // namespace

double Value::toDouble() const {
    if (auto* i = get<std::int64_t>())
        return static_cast<double>(*i);
    if (auto* d = get<double>())
        return *d;
    if (auto* b = get<bool>())
        return *b ? 1.0 : 0.0;
    if (auto* s = get<std::string>())
        return leadingNumber(*s);
    return 0;
}

std::int64_t Value::toInteger() const {
    if (auto* i = get<std::int64_t>())
        return *i;
    if (auto* s = get<std::string>())
        return std::strtoll(s->c_str(), nullptr, 10);
    double d = toDouble();
    if (d != d || d >= 9.2e18 || d <= -9.2e18)
        return 0;
    return static_cast<std::int64_t>(d);
}

bool Value::toBool() const {
    if (auto* b = get<bool>())
        return *b;
    if (auto* s = get<std::string>()) {
        // Text reads as a boolean by its first letter (Y, y, T, t) or by a non-zero number.
        if (!s->empty() &&
            (s->front() == 'Y' || s->front() == 'y' || s->front() == 'T' || s->front() == 't'))
            return true;
        return leadingNumber(*s) != 0;
    }
    return toDouble() != 0;
}

const std::string& Value::text() const {
    auto* s = get<std::string>();
    return s ? *s : kEmptyText;
}

const Array& Value::array() const {
    auto* a = get<Array>();
    return a ? *a : kEmptyArray;
}

const Dictionary& Value::dictionary() const {
    auto* d = get<Dictionary>();
    return d ? *d : kEmptyDictionary;
}

std::string Value::describe(int indent) const {
    std::ostringstream out;
    switch (type()) {
    case Type::string:
        out << '"' << text() << '"';
        break;
    case Type::integer:
        out << *get<std::int64_t>();
        break;
    case Type::real:
        out << *get<double>();
        break;
    case Type::boolean:
        out << (*get<bool>() ? "true" : "false");
        break;
    case Type::date:
        out << "<date " << static_cast<std::int64_t>(get<Date>()->seconds) << ">";
        break;
    case Type::data:
        out << "<" << get<Data>()->bytes.size() << " bytes>";
        break;
    case Type::array:
        out << "(\n";
        for (const Value& item : array())
            out << pad(indent + 1) << item.describe(indent + 1) << ",\n";
        out << pad(indent) << ")";
        break;
    case Type::dictionary:
        out << "{\n";
        for (const auto& [key, item] : dictionary())
            out << pad(indent + 1) << key << " = " << item.describe(indent + 1) << ";\n";
        out << pad(indent) << "}";
        break;
    }
    return out.str();
}

std::ostream& operator<<(std::ostream& out, const Value& value) {
    return out << value.describe();
}

const Value* find(const Dictionary& record, std::string_view key) {
    auto it = record.find(key);
    return it == record.end() ? nullptr : &it->second;
}

Value* find(Dictionary& record, std::string_view key) {
    auto it = record.find(key);
    return it == record.end() ? nullptr : &it->second;
}

std::string textOf(const Dictionary& record, std::string_view key, std::string_view fallback) {
    const Value* v = find(record, key);
    if (!v || !v->isString())
        return std::string(fallback);
    return v->text();
}

std::string_view textViewOf(const Dictionary& record, std::string_view key) {
    const Value* v = find(record, key);
    return v && v->isString() ? std::string_view(v->text()) : std::string_view();
}

bool has(const Dictionary& record, std::string_view key) {
    return record.contains(key);
}

bool flagOf(const Dictionary& record, std::string_view key) {
    return textViewOf(record, key) == "Y";
}

void setFlag(Dictionary& record, std::string_view key, bool on) {
    if (on)
        record.insert_or_assign(std::string(key), Value("Y"));
    else if (auto it = record.find(key); it != record.end())
        record.erase(it);
}

} // namespace tavvel
