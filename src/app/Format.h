#pragma once
// The program's messages carry one "%@" that a caller fills with a word such as the input's
// source ("File \"statement.qif\"", "The clipboard").

#include <string>
#include <string_view>

namespace tavvel {

// The format with its first "%@" replaced by the argument (the format as it is when it has no
// "%@").
std::string formatMessage(std::string_view format, std::string_view argument);

} // namespace tavvel
