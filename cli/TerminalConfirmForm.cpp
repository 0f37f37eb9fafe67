#include "TerminalConfirmForm.h"

#include "FormCommands.h"
#include "TerminalDialogs.h"
#include "TerminalSplits.h"

#include <charconv>

namespace tavvel {

namespace {

void field(std::ostream& out, std::string_view label, const std::string& value) {
    out << "  " << label << ": " << terminalText(value) << "\n";
}

void warning(std::ostream& out, const std::string& note) {
    if (!note.empty())
        out << "      " << note << "\n";
}

// The stepper's value: "+1", "-3", "1".
std::optional<int> days(const std::string& text) {
    std::string_view digits = text;
    if (digits.starts_with('+'))
        digits.remove_prefix(1);
    int value = 0;
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (digits.empty() || error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return value;
}

FormCommand finishing(std::string name, std::string help, ConfirmAction what,
                      ConfirmAction& answer) {
    return {std::move(name), "", std::move(help), [what, &answer](const std::string&) {
                answer = what;
                return CommandReply::done();
            }};
}

FormCommand textCommand(std::string name, std::string help,
                        std::function<CommandReply(const std::string&)> run) {
    return {std::move(name), "TEXT", std::move(help), std::move(run)};
}

void addActions(CommandList& list, const ConfirmForm& form, ConfirmAction& answer) {
    list.push_back(finishing("ok", "output the transaction as shown", ConfirmAction::ok, answer));
    list.push_back(finishing("skip", "leave this transaction out", ConfirmAction::skip, answer));
    list.push_back(finishing("skip-rest", "leave out this and every remaining transaction",
                             ConfirmAction::skipRemaining, answer));
    if (form.backShown() && form.backEnabled())
        list.push_back(
            finishing("back", "go back to the previous transaction", ConfirmAction::back, answer));
    list.push_back(finishing("cancel", "stop, or keep the work to finish later",
                             ConfirmAction::cancel, answer));
    list.push_back(finishing("swap", "swap the description and the memo",
                             ConfirmAction::swapDescriptionAndMemo, answer));
    if (form.addInstructionOffered()) {
        list.push_back(finishing("add-instruction", "create an instruction for this description",
                                 ConfirmAction::addInstruction, answer));
        list.push_back(finishing("add-amount-instruction", "add an instruction for this amount",
                                 ConfirmAction::addAmountInstruction, answer));
    }
}

void addDateCommand(CommandList& list, ConfirmForm& form) {
    if (!form.stepperShown())
        return;
    list.push_back({"date", "+N|-N", "step the date by days", [&form](const std::string& rest) {
                        auto step = days(rest);
                        if (!step)
                            return CommandReply::refused("Step the date by a number of days.");
                        form.stepDate(*step);
                        return CommandReply::shown();
                    }});
}

void addTextCommands(CommandList& list, ConfirmForm& form, ConfirmAction& answer) {
    list.push_back(textCommand("desc", "change the description", [&](const std::string& rest) {
        if (!form.setDescription(rest))
            return CommandReply::shown();
        // The walk matches instructions against the new description and shows the form again.
        answer = ConfirmAction::descriptionChanged;
        return CommandReply::done();
    }));
    if (form.memoShown())
        list.push_back(textCommand("memo", "change the memo", [&form](const std::string& rest) {
            form.setMemo(rest);
            return CommandReply::shown();
        }));
    if (!form.splits())
        list.push_back(
            textCommand("category", "change the category", [&form](const std::string& rest) {
                form.setCategory(rest);
                return CommandReply::shown();
            }));
}

void addSplitCommands(CommandList& list, ConfirmForm& form) {
    if (form.splitsButtonShown())
        list.push_back(
            {"splits", "on|off", form.splitsButtonTitle(), [&form](const std::string& rest) {
                 auto on = onOff(rest);
                 if (!on)
                     return CommandReply::refused("Type on or off.");
                 if (*on != form.splits().has_value())
                     form.addRemoveSplits();
                 return CommandReply::shown();
             }});
    if (!form.splits())
        return;
    SplitEditing editing{"split", [&form] { return form.splits() ? form.splits()->size() : 0; },
                         [&form] { form.addSplitRow(); },
                         [&form](std::size_t row, SplitColumn column, std::string text) {
                             form.setSplit(row, keyOf(column), std::move(text));
                         },
                         [&form](std::size_t row) { form.deleteSplitRow(row); }};
    list.push_back(splitCommand(std::move(editing), "edit the splits"));
}

CommandList confirmCommands(ConfirmForm& form, ConfirmAction& answer) {
    CommandList list;
    addActions(list, form, answer);
    addDateCommand(list, form);
    addTextCommands(list, form, answer);
    addSplitCommands(list, form);
    return list;
}

} // namespace

void printConfirmForm(const ConfirmForm& form, std::ostream& out, bool heading) {
    if (heading)
        out << "\n== " << form.title() << " ==\n" << terminalText(form.prompt()) << "\n";
    field(out, "Date", form.dateText());
    if (form.amount())
        field(out, "Amount", *form.amount());
    if (form.number())
        field(out, "Number", *form.number());
    field(out, "Description", form.description());
    if (form.memoShown())
        field(out, "Memo", form.memo());
    if (!form.splits()) {
        field(out, "Category", form.category());
        warning(out, form.categoryWarning(form.category()));
    } else {
        out << "  Splits:\n";
        SplitTable table(*form.splits());
        printSplits(out, table, [&](std::size_t row) {
            return form.categoryWarning(table.cellText(row, SplitColumn::category));
        });
    }
}

ConfirmAction answerConfirmForm(ConfirmForm& form, std::istream& in, std::ostream& out) {
    ConfirmAction answer = ConfirmAction::cancel;
    printConfirmForm(form, out);
    out << "Type a command (help lists them).\n";
    bool answered = readCommands(
        in, out, "confirm", [&] { return confirmCommands(form, answer); },
        [&] { printConfirmForm(form, out, false); });
    return answered ? answer : ConfirmAction::cancel;
}

} // namespace tavvel
