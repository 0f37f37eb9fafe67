#include "TerminalDialogs.h"

#include "ui/DisplayText.h"

#include <string>

namespace tavvel {

std::string terminalText(const std::string& text) {
    std::string out = displayText(text);
    for (char& c : out)
        if (c == '\r')
            c = '\n';
    return out;
}

void TerminalDialogs::printMessage(const std::string& title, const std::string& text) {
    out_ << "\n== " << terminalText(title) << " ==\n" << terminalText(text) << "\n";
}

void TerminalDialogs::alert(const std::string& title, const std::string& text) {
    printMessage(title, text);
    out_.flush();
}

std::size_t TerminalDialogs::ask(const std::string& title, const std::string& text,
                                 const std::vector<std::string>& buttons) {
    printMessage(title, text);
    for (std::size_t i = 0; i < buttons.size(); ++i)
        out_ << "  " << (i + 1) << ") " << terminalText(buttons[i]) << "\n";
    if (batch_ || buttons.size() < 2) {
        if (!buttons.empty())
            out_ << "-> " << terminalText(buttons.front()) << "\n";
        return 0;
    }
    while (true) {
        out_ << "Choose 1-" << buttons.size() << " [1]: " << std::flush;
        std::string line;
        // End of input answers with the default, as pressing Return would.
        if (!std::getline(in_, line) || line.empty())
            return 0;
        try {
            std::size_t pick = std::stoul(line);
            if (pick >= 1 && pick <= buttons.size())
                return pick - 1;
        } catch (const std::exception&) {
        }
        out_ << "Please type a number from 1 to " << buttons.size() << ".\n";
    }
}

} // namespace tavvel

namespace tavvel {

// A path typed at the prompt; Return takes the fallback, end of input cancels.
std::optional<std::string> TerminalDialogs::readPath(const std::string& prompt,
                                                     const std::string& fallback) {
    if (batch_)
        return fallback.empty() ? std::nullopt : std::optional<std::string>(fallback);
    out_ << prompt;
    if (!fallback.empty())
        out_ << " [" << terminalText(fallback) << "]";
    out_ << ": " << std::flush;
    std::string line;
    if (!std::getline(in_, line))
        return std::nullopt;
    if (line.empty())
        return fallback.empty() ? std::nullopt : std::optional<std::string>(fallback);
    return line;
}

std::optional<std::string> TerminalDialogs::chooseFileToOpen(const FileChoice& choice) {
    return readPath(choice.prompt.empty() ? "Open file" : choice.prompt, "");
}

std::optional<std::string> TerminalDialogs::chooseFileToSave(const FileChoice& choice) {
    if (outputPath_)
        return outputPath_;
    return readPath("Save as", choice.suggestedName);
}

std::optional<std::string> TerminalDialogs::chooseFileToAppendTo(const FileChoice& choice) {
    if (outputPath_)
        return outputPath_;
    return readPath(choice.prompt.empty() ? "Append To" : choice.prompt, "");
}

} // namespace tavvel
