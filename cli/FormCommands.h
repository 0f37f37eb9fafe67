#pragma once
// Typed commands answering a form in the terminal: one line each, a verb and its arguments,
// read from the same stream as every other answer, so that a session works the same from a
// keyboard, a pipe or a file. The presenters build the list of commands the form offers in
// its present state; each command only forwards to the form model.

#include <functional>
#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

// What a command did to the form.
struct CommandReply {
    bool finished = false; // the form is answered: stop reading
    std::string problem;   // not empty: the command could not apply, and why

    static CommandReply shown() { return {}; }
    static CommandReply done() { return {true, {}}; }
    static CommandReply refused(std::string why) { return {false, std::move(why)}; }
};

struct FormCommand {
    std::string name;      // the verb typed
    std::string arguments; // what follows it, for the command list ("TEXT", "on|off")
    std::string help;
    std::function<CommandReply(const std::string& rest)> run;
};

using CommandList = std::vector<FormCommand>;

// Reads commands until one finishes the form. `commands` is asked again before every line,
// as what the form offers changes with its state; `show` prints the form after an edit.
// False at end of input, which the caller treats as the form's Cancel.
bool readCommands(std::istream& in, std::ostream& out, std::string_view prompt,
                  const std::function<CommandList()>& commands, const std::function<void()>& show);

void printCommands(std::ostream& out, const CommandList& commands);

// The words of a line: separated by blanks, a double-quoted word may hold blanks ("" is an
// empty word).
std::vector<std::string> commandWords(std::string_view text);

// "on" or "off" as a switch; nothing for anything else.
std::optional<bool> onOff(std::string_view word);

// A 1-based row number typed for a table of `rows` rows, as a 0-based index.
std::optional<std::size_t> rowNumber(std::string_view word, std::size_t rows);

} // namespace tavvel
