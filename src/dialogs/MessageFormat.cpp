#include "dialogs/MessageFormat.h"

#include <cassert>

namespace tavvel {

namespace {

// The length of the placeholder starting at `at`, or 0 when there is none.
std::size_t placeholderAt(std::string_view format, std::size_t at) {
    std::string_view rest = format.substr(at);
    if (rest.starts_with("%@") || rest.starts_with("%d"))
        return 2;
    return rest.starts_with("%ld") ? 3 : 0;
}

} // namespace

std::size_t placeholderCount(std::string_view format) {
    std::size_t count = 0;
    for (std::size_t at = format.find('%'); at != std::string_view::npos;
         at = format.find('%', at + 1))
        count += placeholderAt(format, at) > 0;
    return count;
}

std::string formatMessage(std::string_view format,
                          std::initializer_list<std::string_view> arguments) {
    assert(placeholderCount(format) == arguments.size() &&
           "a message filled with more or fewer arguments than it has placeholders");
    std::string out;
    out.reserve(format.size() + 32);
    auto next = arguments.begin();
    for (std::size_t i = 0; i < format.size(); ++i) {
        std::size_t length = placeholderAt(format, i);
        if (length == 0 || next == arguments.end()) {
            out.push_back(format[i]);
            continue;
        }
        out += *next++;
        i += length - 1;
    }
    return out;
}

} // namespace tavvel
