#include "FormFields.h"

#include "TerminalDialogs.h"

namespace tavvel {

void field(std::ostream& out, std::string_view label, std::string_view value) {
    out << "  " << label << (label.ends_with(':') ? " " : ": ") << terminalText(std::string(value))
        << "\n";
}

void note(std::ostream& out, std::string_view text) {
    if (!text.empty())
        out << "      " << text << "\n";
}

std::string used(bool on, const std::string& text) {
    return on ? "\"" + text + "\"" : std::string("off");
}

std::string_view onOffText(bool on) {
    return on ? "on" : "off";
}

FormCommand textField(std::string name, std::string arguments, std::string help,
                      std::function<void(const std::string&)> set) {
    return {std::move(name), std::move(arguments), std::move(help),
            [set = std::move(set)](const std::string& rest) {
                set(rest);
                return CommandReply::shown();
            }};
}

FormCommand toggle(std::string name, std::string help, std::function<void(bool)> set) {
    return {std::move(name), "on|off", std::move(help),
            [set = std::move(set)](const std::string& rest) {
                auto on = onOff(rest);
                if (!on)
                    return CommandReply::refused("Type on or off.");
                set(*on);
                return CommandReply::shown();
            }};
}

FormCommand usedText(std::string name, std::string help, std::function<void(bool)> use,
                     std::function<void(std::string)> set) {
    return textField(std::move(name), "[TEXT]", std::move(help),
                     [use = std::move(use), set = std::move(set)](const std::string& rest) {
                         use(!rest.empty());
                         set(rest);
                     });
}

} // namespace tavvel
