#include "app/Format.h"

namespace tavvel {

std::string formatMessage(std::string_view format, std::string_view argument) {
    std::string out(format);
    std::size_t at = out.find("%@");
    if (at != std::string::npos)
        out.replace(at, 2, argument);
    return out;
}

} // namespace tavvel
