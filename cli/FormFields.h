#pragma once
// The pieces every typed form is made of: a labelled line with its note, and the commands
// that set a text, a switch, or a text with a use switch.

#include "FormCommands.h"

#include <functional>
#include <ostream>
#include <string>
#include <string_view>

namespace tavvel {

// "  Label: value"; a label that ends in its own colon keeps it.
void field(std::ostream& out, std::string_view label, std::string_view value);
// An indented note line; nothing for an empty note.
void note(std::ostream& out, std::string_view text);
// A text with a use switch: off, or the text in quotes.
std::string used(bool on, const std::string& text);
std::string_view onOffText(bool on);

FormCommand textField(std::string name, std::string arguments, std::string help,
                      std::function<void(const std::string&)> set);
FormCommand toggle(std::string name, std::string help, std::function<void(bool)> set);
// The text typed switches the use on, nothing switches it off.
FormCommand usedText(std::string name, std::string help, std::function<void(bool)> use,
                     std::function<void(std::string)> set);

} // namespace tavvel
