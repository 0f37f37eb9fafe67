#pragma once
// The program's messages and generated names carry placeholders that callers fill in order of
// appearance: "%@" for a text (such as the input's source, "File \"statement.qif\""), "%ld"
// or "%d" for a number, written by the caller.

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tavvel {

// How many placeholders the format holds.
std::size_t placeholderCount(std::string_view format);

// The format with each placeholder replaced by the next argument; the arguments themselves
// are not searched. A format whose placeholders do not match its arguments in number is a
// fault of the caller: a debug build stops on it, a release build fills what it can and
// leaves the rest as written.
std::string formatMessage(std::string_view format,
                          std::initializer_list<std::string_view> arguments);

inline std::string formatMessage(std::string_view format, std::string_view argument) {
    return formatMessage(format, {argument});
}

} // namespace tavvel
