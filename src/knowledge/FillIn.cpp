#include "knowledge/FillIn.h"

namespace tavvel {

std::string fillIn(std::string_view format, std::initializer_list<std::string_view> arguments) {
    std::string out;
    out.reserve(format.size() + 32);
    auto next = arguments.begin();
    for (std::size_t i = 0; i < format.size(); ++i) {
        bool placeholder = format[i] == '%' && i + 1 < format.size() &&
                           (format[i + 1] == '@' || format[i + 1] == 'd');
        if (placeholder && next != arguments.end()) {
            out += *next++;
            ++i;
            continue;
        }
        out.push_back(format[i]);
    }
    return out;
}

} // namespace tavvel
