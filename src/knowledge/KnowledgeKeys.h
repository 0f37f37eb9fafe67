#pragma once
// Every record key of the knowledge base, named once. Records stay dictionaries so that keys
// written by other versions survive; these are the keys this program reads and writes.

#include <string_view>

namespace tavvel {

// Instruction records (`Instructions`).
namespace ikey {
inline constexpr std::string_view descriptionMatch = "descriptionMatch";
inline constexpr std::string_view categoryMatch = "categoryMatch";
inline constexpr std::string_view newDescription = "newDescription";
inline constexpr std::string_view newMemo = "newMemo";
inline constexpr std::string_view category = "category";
inline constexpr std::string_view categoryConfirm = "categoryConfirm";
inline constexpr std::string_view number = "number";
inline constexpr std::string_view splits = "splits";
inline constexpr std::string_view amounts = "amounts";
} // namespace ikey

// Amount instruction records, the entries of an instruction's `amounts`.
namespace akey {
inline constexpr std::string_view amount = "amount";
inline constexpr std::string_view amountDescription = "amountDescription";
inline constexpr std::string_view amountCategory = "amountCategory";
inline constexpr std::string_view amountMemo = "amountMemo";
inline constexpr std::string_view amountConfirm = "amountConfirm";
inline constexpr std::string_view splits = "splits";
} // namespace akey

// Account records (`Accounts`) and the account editor's extra columns.
namespace acctkey {
inline constexpr std::string_view Name = "Name";
inline constexpr std::string_view Type = "Type";
inline constexpr std::string_view TypeNumber = "TypeNumber";
inline constexpr std::string_view OriginalTypeNumber = "OriginalTypeNumber";
} // namespace acctkey

// Security records (`Securities`) and the security mappings of an input format.
namespace seckey {
inline constexpr std::string_view Name = "Name";
inline constexpr std::string_view Symbol = "Symbol";
inline constexpr std::string_view formatName = "formatName";
inline constexpr std::string_view quickenName = "quickenName";
} // namespace seckey

// The investment type mappings of an input format.
namespace typemapkey {
inline constexpr std::string_view formatType = "formatType";
inline constexpr std::string_view quickenType = "quickenType";
inline constexpr std::string_view assumedSecurity = "assumedSecurity";
} // namespace typemapkey

// Input format records (`Formats`), beside the keys that the scanners read
// (recognize/InputFormatKeys.h). `TypeMappings` and `SecurityMappings` are also the
// preference keys of the global tables that a new format receives when it has none.
namespace fmtkey {
inline constexpr std::string_view Name = "Name";
inline constexpr std::string_view Match = "Match";
inline constexpr std::string_view TypeMappings = "TypeMappings";
inline constexpr std::string_view SecurityMappings = "SecurityMappings";
inline constexpr std::string_view dontWarn = "dontWarn";
} // namespace fmtkey

} // namespace tavvel
