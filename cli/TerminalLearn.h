#pragma once
// The forms of the dialogue that learns an input format, in a terminal: each form is printed
// and answered with short commands, one a line, until a button is pressed. End of input is
// Cancel, so a script that stops short stores nothing.

#include "formats/LearnForms.h"

#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace tavvel {

class TerminalLearn {
public:
    TerminalLearn(std::istream& in, std::ostream& out) : in_(in), out_(out) {}

    LearnAction date(LearnDateForm& form);
    LearnAction layout(LearnLayoutForm& form);
    LearnAction question(LearnQuestionForm& form);
    std::optional<std::string> name();

private:
    // One typed command: its first word and the rest of the line.
    struct Command {
        std::string word;
        std::string rest;
    };
    std::optional<Command> read(const std::string& commands);
    // The buttons every form shares; nothing when the word names none of them.
    std::optional<LearnAction> button(const Command& command, bool backAllowed) const;
    void printDate(const LearnDateForm& form);
    void printLayout(const LearnLayoutForm& form);
    void printQuestion(const LearnQuestionForm& form);
    bool dateCommand(LearnDateForm& form, const Command& command);
    bool layoutCommand(LearnLayoutForm& form, const Command& command);
    bool questionCommand(LearnQuestionForm& form, const Command& command);

    std::istream& in_;
    std::ostream& out_;
};

// The preview table with 1-based row and column numbers, and a title over each column when
// `titles` gives one.
void printPreview(std::ostream& out, const PreviewTable& table,
                  const std::vector<std::string>& titles);

// "yes"/"on" or "no"/"off"; nothing for anything else.
std::optional<bool> switchWord(const std::string& word);
// A 1-based number typed as the first word of the text, made 0-based; the text after it is
// left in `rest`.
std::optional<std::size_t> numberWord(const std::string& text, std::string* rest = nullptr);

} // namespace tavvel
