#pragma once
// The forms in a terminal: each is printed and answered with a short typed reply. Under
// --batch nothing is read and every question takes its first (affirmative) button.

#include "ui/Dialogs.h"

#include <istream>
#include <ostream>

namespace tavvel {

class TerminalDialogs : public Dialogs {
public:
    TerminalDialogs(std::istream& in, std::ostream& out, bool batch)
        : in_(in), out_(out), batch_(batch) {}

    void alert(const std::string& title, const std::string& text) override;
    std::size_t ask(const std::string& title, const std::string& text,
                    const std::vector<std::string>& buttons) override;

private:
    void printMessage(const std::string& title, const std::string& text);

    std::istream& in_;
    std::ostream& out_;
    bool batch_;
};

// Text for the terminal: decoded for display, and "\r" (the program's line break) as "\n".
std::string terminalText(const std::string& text);

} // namespace tavvel
