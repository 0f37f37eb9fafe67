#include "TerminalInstructionForm.h"

#include "FormCommands.h"
#include "FormFields.h"
#include "TerminalDialogs.h"
#include "TerminalSplits.h"
#include "history/HistoryTexts.h"

namespace tavvel {

namespace {

using Splits = NewInstructionForm::Splits;
using Form = NewInstructionForm;

void printTransaction(const Form& form, std::ostream& out) {
    field(out, "Date", form.date());
    field(out, "Description", form.description());
    if (form.number())
        field(out, "Number", *form.number());
    if (auto memo = form.memo())
        field(out, "Memo", *memo);
    if (form.amount())
        field(out, "Amount", *form.amount());
}

void printSplitTable(const Form& form, Splits which, std::ostream& out) {
    printSplits(out, form.splits(which), [&](std::size_t row) {
        return std::string(form.splitCategoryWarning(which, row));
    });
}

void printInstruction(const Form& form, std::ostream& out) {
    out << " Instruction:\n";
    if (form.descriptionMatchShown()) {
        field(out, form.matchLabel(), form.matchText());
        note(out, form.matchHelp());
        note(out, form.matchWarning());
    } else {
        field(out, "For the category", form.newInstructionForCategory().value_or(""));
    }
    field(out, "New description", used(form.useDescription(), form.newDescription()));
    field(out, "New memo", used(form.useMemoOn(), form.newMemo()));
    if (form.categoryShown()) {
        field(out, "Category",
              form.categorySuggested() ? form.category() + " " + std::string(text::suggestionMark)
                                       : form.category());
        note(out, form.categoryWarning());
    } else {
        out << "  Splits:\n";
        printSplitTable(form, Splits::instruction, out);
    }
    field(out, "Confirm", onOffText(form.confirmOn()));
    field(out, "Take the number from the description", onOffText(form.extractNumberOn()));
}

void printAmountPart(const Form& form, std::ostream& out) {
    if (!form.amountPartShown())
        return;
    out << " For this amount (" << terminalText(form.amount().value_or(""))
        << "): " << onOffText(form.amountSwitchOn()) << "\n";
    if (!form.amountSwitchOn())
        return;
    field(out, "Description", form.amountDescription());
    field(out, "Memo", used(form.amountUseMemo(), form.amountMemo()));
    field(out, "Category", form.amountCategory());
    note(out, form.amountCategoryWarning());
    field(out, "Confirm", onOffText(form.amountConfirmOn()));
    if (!form.splits(Splits::amount).empty()) {
        out << "  Splits:\n";
        printSplitTable(form, Splits::amount, out);
    }
}

FormCommand finishing(std::string name, std::string help, NewInstructionAction what,
                      NewInstructionAction& answer) {
    return {std::move(name), "", std::move(help), [what, &answer](const std::string&) {
                answer = what;
                return CommandReply::done();
            }};
}

FormCommand splitsOf(Form& form, Splits which, std::string name, std::string help) {
    SplitEditing editing{std::move(name),
                         [&form, which] { return form.splits(which).numberOfRows(); },
                         [&form, which] { form.addSplit(which); },
                         [&form, which](std::size_t row, SplitColumn column, std::string text) {
                             form.setSplitCell(which, row, column, std::move(text));
                         },
                         [&form, which](std::size_t row) {
                             form.selectSplit(which, row);
                             form.deleteSelectedSplit(which);
                         }};
    return splitCommand(std::move(editing), std::move(help));
}

void addActions(CommandList& list, Form& form, NewInstructionAction& answer) {
    list.push_back({"save", "", "store the instruction and go on", [&](const std::string&) {
                        if (!form.okEnabled())
                            return CommandReply::refused(
                                "The form cannot be saved as it stands; see the warnings.");
                        answer = NewInstructionAction::save;
                        return CommandReply::done();
                    }});
    list.push_back(
        finishing("cancel", std::string(form.cancelTip()), NewInstructionAction::cancel, answer));
    list.push_back(finishing("as-read", "output this transaction as read and learn nothing",
                             NewInstructionAction::useAsRead, answer));
}

void addMatchCommand(CommandList& list, Form& form) {
    if (!form.descriptionMatchShown())
        return;
    list.push_back({"match", "TEXT", "the text descriptions are matched with",
                    [&form](const std::string& rest) {
                        if (!form.editMatchText(rest))
                            return CommandReply::refused("The match text stays \"" +
                                                         form.matchText() + "\" " +
                                                         std::string(form.matchHelp()));
                        return CommandReply::shown();
                    }});
}

void addInstructionCommands(CommandList& list, Form& form) {
    addMatchCommand(list, form);
    list.push_back(usedText(
        "desc", "the new description (nothing: keep the transaction's)",
        [&form](bool on) { form.setUseDescription(on); },
        [&form](std::string t) { form.setNewDescription(std::move(t)); }));
    list.push_back(usedText(
        "memo", "the new memo (nothing: keep the transaction's)",
        [&form](bool on) { form.setUseMemo(on); },
        [&form](std::string t) { form.setNewMemo(std::move(t)); }));
    if (form.categoryShown())
        list.push_back(textField("category", "TEXT", "the category",
                                 [&form](const std::string& t) { form.setCategory(t); }));
    list.push_back(toggle("confirm", "confirm every matching transaction",
                          [&form](bool on) { form.setConfirm(on); }));
    list.push_back(toggle("number", "take the check number from the description",
                          [&form](bool on) { form.setExtractNumber(on); }));
    list.push_back(
        toggle("splits", std::string(form.instructionSplitsButtonTitle()), [&form](bool on) {
            if (on == form.categoryShown())
                form.instructionAddRemoveSplits();
        }));
    if (!form.categoryShown())
        list.push_back(splitsOf(form, Splits::instruction, "split", "edit the splits"));
}

void addAmountCommands(CommandList& list, Form& form) {
    if (!form.amountPartShown())
        return;
    if (form.amountSwitchEnabled())
        list.push_back(toggle("amount", "an instruction for this amount as well",
                              [&form](bool on) { form.setAmountSwitch(on); }));
    if (!form.amountSwitchOn())
        return;
    list.push_back(textField("amount-desc", "TEXT", "the description for this amount",
                             [&form](const std::string& t) { form.setAmountDescription(t); }));
    list.push_back(usedText(
        "amount-memo", "the memo for this amount (nothing: none)",
        [&form](bool on) { form.setAmountUseMemo(on); },
        [&form](std::string t) { form.setAmountMemo(std::move(t)); }));
    list.push_back(textField("amount-category", "TEXT", "the category for this amount",
                             [&form](const std::string& t) { form.setAmountCategory(t); }));
    list.push_back(toggle("amount-confirm", "confirm transactions of this amount",
                          [&form](bool on) { form.setAmountConfirm(on); }));
    list.push_back(splitsOf(form, Splits::amount, "amount-split", "edit the amount's splits"));
}

CommandList instructionCommands(Form& form, NewInstructionAction& answer) {
    CommandList list;
    addActions(list, form, answer);
    addInstructionCommands(list, form);
    addAmountCommands(list, form);
    return list;
}

} // namespace

void printNewInstructionForm(const NewInstructionForm& form, std::ostream& out, bool heading) {
    if (heading) {
        out << "\n== " << form.title() << " ==\n";
        if (form.prompt())
            out << terminalText(*form.prompt()) << "\n";
    }
    printTransaction(form, out);
    printInstruction(form, out);
    printAmountPart(form, out);
}

NewInstructionAction answerNewInstructionForm(NewInstructionForm& form, std::istream& in,
                                              std::ostream& out) {
    NewInstructionAction answer = NewInstructionAction::cancel;
    printNewInstructionForm(form, out);
    out << "Type a command (help lists them).\n";
    bool answered = readCommands(
        in, out, "instruction", [&] { return instructionCommands(form, answer); },
        [&] { printNewInstructionForm(form, out, false); });
    return answered ? answer : NewInstructionAction::cancel;
}

} // namespace tavvel
