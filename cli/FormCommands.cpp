#include "FormCommands.h"

#include <algorithm>
#include <charconv>
#include <iomanip>

namespace tavvel {

namespace {

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    // A script written on another system may end its lines in CR LF.
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

const FormCommand* commandNamed(const CommandList& commands, std::string_view name) {
    auto it = std::find_if(commands.begin(), commands.end(),
                           [&](const FormCommand& c) { return c.name == name; });
    return it == commands.end() ? nullptr : &*it;
}

// The reply to one line: nothing for an empty line, which asks for nothing.
std::optional<CommandReply> runLine(std::string_view line, const CommandList& commands,
                                    std::ostream& out) {
    line = trimmed(line);
    if (line.empty())
        return std::nullopt;
    std::size_t blank = line.find_first_of(" \t");
    std::string_view name = line.substr(0, blank);
    std::string rest(blank == std::string_view::npos ? std::string_view{}
                                                     : trimmed(line.substr(blank)));
    if (name == "help") {
        printCommands(out, commands);
        return std::nullopt;
    }
    const FormCommand* command = commandNamed(commands, name);
    if (!command) {
        out << "Unknown command \"" << name << "\".\n";
        printCommands(out, commands);
        return std::nullopt;
    }
    CommandReply reply = command->run(rest);
    if (!reply.problem.empty())
        out << reply.problem << "\nUsage: " << command->name << " " << command->arguments << "\n";
    return reply;
}

} // namespace

void printCommands(std::ostream& out, const CommandList& commands) {
    out << "Commands:\n";
    for (const FormCommand& c : commands) {
        std::string usage = c.arguments.empty() ? c.name : c.name + " " + c.arguments;
        out << "  " << std::left << std::setw(34) << usage << " " << c.help << "\n";
    }
    out << "  " << std::left << std::setw(34) << "help"
        << " this list\n";
}

bool readCommands(std::istream& in, std::ostream& out, std::string_view prompt,
                  const std::function<CommandList()>& commands, const std::function<void()>& show) {
    std::string line;
    while (true) {
        out << prompt << "> " << std::flush;
        if (!std::getline(in, line)) {
            out << "\n";
            return false;
        }
        std::optional<CommandReply> reply = runLine(line, commands(), out);
        if (!reply || !reply->problem.empty())
            continue;
        if (reply->finished)
            return true;
        show();
    }
}

std::vector<std::string> commandWords(std::string_view text) {
    std::vector<std::string> words;
    std::size_t at = 0;
    while (at < text.size()) {
        if (text[at] == ' ' || text[at] == '\t') {
            ++at;
            continue;
        }
        if (text[at] == '"') {
            std::size_t close = text.find('"', at + 1);
            std::size_t end = close == std::string_view::npos ? text.size() : close;
            words.emplace_back(text.substr(at + 1, end - at - 1));
            at = end + 1;
            continue;
        }
        std::size_t end = std::min(text.find_first_of(" \t", at), text.size());
        words.emplace_back(text.substr(at, end - at));
        at = end;
    }
    return words;
}

std::optional<bool> onOff(std::string_view word) {
    if (word == "on")
        return true;
    if (word == "off")
        return false;
    return std::nullopt;
}

std::optional<std::size_t> rowNumber(std::string_view word, std::size_t rows) {
    std::size_t number = 0;
    auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size() || number < 1 || number > rows)
        return std::nullopt;
    return number - 1;
}

} // namespace tavvel
