#include "prefs/PropertyList.h"

#include "prefs/BinaryPropertyList.h"
#include "prefs/Files.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <plist/plist.h>

namespace tavvel {

namespace {

// Seconds between 1970-01-01 and 2001-01-01, the epoch of property-list dates.
constexpr double kPlistEpoch = 978307200.0;
// Deeper nesting than any record of ours means a hostile file; stop before the stack does.
constexpr int kMaxDepth = 256;
// libplist takes 32-bit lengths.
constexpr std::size_t kMaxBytes = std::size_t{1} << 30;

struct PlistFree {
    void operator()(void* node) const { plist_free(static_cast<plist_t>(node)); }
};
using Node = std::unique_ptr<void, PlistFree>;

std::optional<Value> fromNode(plist_t node, int depth);

std::optional<Value> fromArray(plist_t node, int depth) {
    Array items;
    uint32_t size = plist_array_get_size(node);
    items.reserve(size);
    for (uint32_t i = 0; i < size; ++i) {
        auto item = fromNode(plist_array_get_item(node, i), depth + 1);
        if (!item)
            return std::nullopt;
        items.push_back(std::move(*item));
    }
    return Value(std::move(items));
}

std::optional<Value> fromDictionary(plist_t node, int depth) {
    Dictionary entries;
    plist_dict_iter it = nullptr;
    plist_dict_new_iter(node, &it);
    std::optional<Value> result;
    while (true) {
        char* key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, it, &key, &item);
        if (!item) {
            std::free(key);
            result = Value(std::move(entries));
            break;
        }
        auto value = fromNode(item, depth + 1);
        if (!value || !key) {
            std::free(key);
            break;
        }
        entries.insert_or_assign(std::string(key), std::move(*value));
        std::free(key);
    }
    std::free(it);
    return result;
}

std::optional<Value> fromScalar(plist_t node) {
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        uint8_t b = 0;
        plist_get_bool_val(node, &b);
        return Value(b != 0);
    }
    case PLIST_UINT: {
        uint64_t u = 0;
        plist_get_uint_val(node, &u);
        return Value(static_cast<std::int64_t>(u));
    }
    case PLIST_REAL: {
        double d = 0;
        plist_get_real_val(node, &d);
        return Value(d);
    }
    case PLIST_STRING: {
        // Read by pointer and length: the copying call asserts on a string holding a NUL
        // byte, and a hostile file must be refused, not stop the program.
        uint64_t length = 0;
        const char* text = plist_get_string_ptr(node, &length);
        if (!text || std::string_view(text, length).find('\0') != std::string_view::npos)
            return std::nullopt;
        return Value(std::string(text, length));
    }
    case PLIST_DATE: {
        int32_t sec = 0, usec = 0;
        plist_get_date_val(node, &sec, &usec);
        return Value(Date{kPlistEpoch + sec + usec / 1e6});
    }
    case PLIST_DATA: {
        char* bytes = nullptr;
        uint64_t length = 0;
        plist_get_data_val(node, &bytes, &length);
        Value v(Data{std::string(bytes ? bytes : "", bytes ? length : 0)});
        std::free(bytes);
        return v;
    }
    default:
        return std::nullopt;
    }
}

std::optional<Value> fromNode(plist_t node, int depth) {
    if (!node || depth > kMaxDepth)
        return std::nullopt;
    switch (plist_get_node_type(node)) {
    case PLIST_ARRAY:
        return fromArray(node, depth);
    case PLIST_DICT:
        return fromDictionary(node, depth);
    default:
        return fromScalar(node);
    }
}

// Property-list dates hold whole seconds since 2001 in 32 bits (1933 to 2069); dates outside
// are pinned to the ends rather than wrapped.
plist_t newDate(Date date) {
    double s = std::round(date.seconds - kPlistEpoch);
    s = std::clamp(s, static_cast<double>(std::numeric_limits<int32_t>::min()),
                   static_cast<double>(std::numeric_limits<int32_t>::max()));
    return plist_new_date(static_cast<int32_t>(s), 0);
}

plist_t toNode(const Value& value) {
    switch (value.type()) {
    case Value::Type::string:
        return plist_new_string(value.text().c_str());
    case Value::Type::integer:
        return plist_new_uint(static_cast<uint64_t>(*value.get<std::int64_t>()));
    case Value::Type::real:
        return plist_new_real(*value.get<double>());
    case Value::Type::boolean:
        return plist_new_bool(*value.get<bool>() ? 1 : 0);
    case Value::Type::date:
        return newDate(*value.get<Date>());
    case Value::Type::data: {
        const std::string& bytes = value.get<Data>()->bytes;
        return plist_new_data(bytes.data(), bytes.size());
    }
    case Value::Type::array: {
        plist_t node = plist_new_array();
        for (const Value& item : value.array())
            plist_array_append_item(node, toNode(item));
        return node;
    }
    case Value::Type::dictionary: {
        plist_t node = plist_new_dict();
        for (const auto& [key, item] : value.dictionary())
            plist_dict_set_item(node, key.c_str(), toNode(item));
        return node;
    }
    }
    return plist_new_string("");
}

bool looksLikeXml(std::string_view bytes) {
    std::size_t i = bytes.find_first_not_of(" \t\r\n");
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF")
        i = bytes.find_first_not_of(" \t\r\n", 3);
    return i != std::string_view::npos && bytes[i] == '<';
}

} // namespace

std::optional<Value> decodePropertyList(std::string_view bytes, std::string* error) {
    auto failWith = [&](const char* why) -> std::optional<Value> {
        if (error)
            *error = why;
        return std::nullopt;
    };
    if (bytes.size() > kMaxBytes)
        return failWith("the file is too large");
    plist_t raw = nullptr;
    auto length = static_cast<uint32_t>(bytes.size());
    if (plist_is_binary(bytes.data(), length)) {
        // libplist would stop the program on a key holding a NUL byte: refuse those first.
        if (binaryPropertyListHoldsNulInString(bytes))
            return failWith("the file is not a property list");
        plist_from_bin(bytes.data(), length, &raw);
    } else if (looksLikeXml(bytes))
        plist_from_xml(bytes.data(), length, &raw);
    Node node(raw);
    if (!node)
        return failWith("the file is not a property list");
    auto value = fromNode(raw, 0);
    if (!value)
        return failWith("the property list holds values of an unknown kind or nests too deeply");
    return value;
}

std::string encodePropertyList(const Value& value) {
    Node node(toNode(value));
    char* xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(node.get(), &xml, &length);
    std::string text(xml ? xml : "", xml ? length : 0);
    plist_to_xml_free(xml);
    return text;
}

PlistRead readPropertyListFile(const std::filesystem::path& path, Value::Type expectedRoot) {
    std::error_code ec;
    if (!std::filesystem::exists(path, ec))
        return {PlistReadStatus::Missing, {}};
    auto bytes = readWholeFile(path, kMaxBytes);
    if (!bytes)
        return {PlistReadStatus::Unreadable, {}};
    auto value = decodePropertyList(*bytes);
    if (!value)
        return {PlistReadStatus::NotAPropertyList, {}};
    if (value->type() != expectedRoot)
        return {PlistReadStatus::WrongRoot, {}};
    return {PlistReadStatus::Ok, std::move(*value)};
}

bool writePropertyListFile(const std::filesystem::path& path, const Value& value,
                           std::string* error) {
    return writeFileAtomically(path, encodePropertyList(value), error);
}

} // namespace tavvel
