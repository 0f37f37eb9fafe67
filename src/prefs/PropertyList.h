#pragma once
// Property-list files: XML written; XML and binary read.

#include "prefs/Value.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

// The value encoded in the bytes (XML or binary form), or nothing when they are not a
// property list. A reason goes to *error when given.
std::optional<Value> decodePropertyList(std::string_view bytes, std::string* error = nullptr);

// The XML form of the value.
std::string encodePropertyList(const Value& value);

enum class PlistReadStatus { Ok, Missing, Unreadable, NotAPropertyList, WrongRoot };

struct PlistRead {
    PlistReadStatus status = PlistReadStatus::Missing;
    Value value;
    bool ok() const { return status == PlistReadStatus::Ok; }
};

// Reads a property-list file whose root must be of the expected type (a dictionary unless said
// otherwise). Anything else is a status the caller reports; nothing is half-read.
PlistRead readPropertyListFile(const std::filesystem::path& path,
                               Value::Type expectedRoot = Value::Type::dictionary);

// Writes the XML form atomically (see writeFileAtomically).
bool writePropertyListFile(const std::filesystem::path& path, const Value& value,
                           std::string* error = nullptr);

} // namespace tavvel
