#include "TerminalInstructionEditor.h"

#include "CliOptions.h"
#include "FormFields.h"
#include "TerminalDialogs.h"
#include "TerminalSplits.h"
#include "context/Context.h"
#include "forms/InstructionEditor.h"
#include "forms/InstructionEditorTexts.h"
#include "forms/InstructionList.h"

namespace tavvel {

namespace {

// A terminal page: a longer list is narrowed with a search rather than scrolled.
constexpr std::size_t kRowsShown = 20;

void printList(const InstructionList& list, std::ostream& out) {
    out << "Instructions: " << list.numberOfRows() << " shown, sorted by "
        << (list.sortedBy() == InstructionList::SortBy::match ? "match" : "category");
    if (!list.searchText().empty())
        out << ", holding \"" << terminalText(list.searchText()) << "\"";
    out << "\n";
    for (std::size_t row = 0; row < std::min(list.numberOfRows(), kRowsShown); ++row) {
        out << "  " << row + 1 << "  " << terminalText(list.matchText(row)) << " ("
            << list.matchKind(row) << ") -> " << terminalText(list.categoryText(row));
        if (std::size_t amounts = list.numberOfAmounts(row))
            out << "  [" << amounts << " amount" << (amounts == 1 ? "" : "s") << "]";
        out << "\n";
    }
    if (list.numberOfRows() > kRowsShown)
        out << "  ... " << list.numberOfRows() - kRowsShown << " more; search to narrow the list\n";
}

void printAmount(InstructionEditor& editor, std::ostream& out) {
    auto amounts = editor.amounts();
    if (!amounts.empty()) {
        std::string all;
        for (const std::string& amount : amounts)
            all += (all.empty() ? "" : ", ") + amount;
        field(out, "Amounts", all);
    }
    if (!editor.amountShown())
        return;
    const auto& a = editor.amountFields();
    out << " For the amount " << terminalText(*editor.amountShown()) << ":\n";
    field(out, "Description", a.description);
    field(out, "Memo", used(a.useMemo, a.memo));
    field(out, "Category", a.category);
    note(out, editor.amountCategoryNote());
    field(out, "Confirm", onOffText(a.confirm));
    if (!editor.amountSplits().empty()) {
        out << "  Splits:\n";
        printSplits(out, editor.amountSplits(), [](std::size_t) { return std::string(); });
    }
}

void printEditor(InstructionEditor& editor, std::ostream& out) {
    field(out, editor.matchLabel(), editor.match());
    note(out, editor.matchHelp());
    note(out, editor.warning());
    field(out, "New description", used(editor.usesDescription(), editor.newDescription()));
    field(out, "New memo", used(editor.usesMemo(), editor.newMemo()));
    if (editor.splits().empty()) {
        field(out, "Category", editor.category());
        note(out, editor.categoryNote());
    } else {
        out << "  Splits:\n";
        printSplits(out, editor.splits(), [](std::size_t) { return std::string(); });
    }
    field(out, "Confirm", onOffText(editor.confirms()));
    field(out, "Take the number from the description", onOffText(editor.takesNumber()));
    printAmount(editor, out);
}

FormCommand splitsOf(SplitTable& table, std::string name, std::string help) {
    SplitEditing editing{std::move(name), [&table] { return table.numberOfRows(); },
                         [&table] { table.addBlankRow(); },
                         [&table](std::size_t row, SplitColumn column, std::string text) {
                             table.setCell(row, column, std::move(text));
                         },
                         [&table](std::size_t row) {
                             table.select(row);
                             table.deleteSelectedRow();
                         }};
    return splitCommand(std::move(editing), std::move(help));
}

void addFieldCommands(CommandList& list, InstructionEditor& e) {
    list.push_back(textField("match", "TEXT", "the text the instruction matches",
                             [&e](const std::string& t) { e.setMatch(t); }));
    list.push_back(usedText(
        "desc", "the new description (nothing: keep the transaction's)",
        [&e](bool on) { e.setUseDescription(on); },
        [&e](std::string t) { e.setNewDescription(std::move(t)); }));
    list.push_back(usedText(
        "memo", "the new memo (nothing: keep the transaction's)",
        [&e](bool on) { e.setUseMemo(on); }, [&e](std::string t) { e.setNewMemo(std::move(t)); }));
    list.push_back(toggle("confirm", "confirm every matching transaction",
                          [&e](bool on) { e.setConfirm(on); }));
    list.push_back(toggle("number", "take the check number from the description",
                          [&e](bool on) { e.setTakeNumber(on); }));
    list.push_back(toggle("splits", e.splitsButtonTitle(), [&e](bool on) {
        if (on == e.splits().empty())
            e.addRemoveSplits();
    }));
    if (e.splits().empty())
        list.push_back(textField("category", "TEXT", "the category",
                                 [&e](const std::string& t) { e.setCategory(t); }));
    else
        list.push_back(splitsOf(e.splits(), "split", "edit the splits"));
}

// The amount variant's fields, each set through the whole set of them.
template <class Set>
FormCommand amountField(InstructionEditor& e, std::string name, std::string help, Set set) {
    return textField(std::move(name), "TEXT", std::move(help), [&e, set](const std::string& t) {
        auto fields = e.amountFields();
        set(fields, t);
        e.setAmountFields(std::move(fields));
    });
}

void addAmountCommands(CommandList& list, InstructionEditor& e) {
    list.push_back(textField("amount", "[AMOUNT]",
                             "show the treatment of this amount (nothing: hide)",
                             [&e](const std::string& t) {
                                 if (t.empty())
                                     e.hideAmount();
                                 else
                                     e.showAmount(t);
                             }));
    if (!e.amountShown())
        return;
    using F = InstructionEditor::AmountFields;
    list.push_back(amountField(e, "amount-desc", "the description for this amount",
                               [](F& f, const std::string& t) { f.description = t; }));
    list.push_back(amountField(e, "amount-category", "the category for this amount",
                               [](F& f, const std::string& t) { f.category = t; }));
    list.push_back(
        amountField(e, "amount-memo", "the memo for this amount (nothing: none)",
                    [](F& f, const std::string& t) { f.useMemo = !t.empty(), f.memo = t; }));
    list.push_back(toggle("amount-confirm", "confirm transactions of this amount", [&e](bool on) {
        auto fields = e.amountFields();
        fields.confirm = on;
        e.setAmountFields(std::move(fields));
    }));
    list.push_back(splitsOf(e.amountSplits(), "amount-split", "edit the amount's splits"));
    list.push_back(
        {"amount-delete", "", "delete the treatment of this amount", [&e](const std::string&) {
             e.deleteAmount();
             return CommandReply::shown();
         }});
}

void addActions(CommandList& list, InstructionEditor& e, Dialogs& dialogs) {
    list.push_back({"save", "", "store the instruction", [&e, &dialogs](const std::string&) {
                        if (!e.canSave())
                            return CommandReply::refused(std::string(text::instructionIncomplete));
                        return e.save(dialogs) ? CommandReply::done() : CommandReply::shown();
                    }});
    list.push_back(
        {"cancel", "", "change nothing", [](const std::string&) { return CommandReply::done(); }});
    list.push_back({"delete", "", "delete this instruction", [&e, &dialogs](const std::string&) {
                        return e.deleteInstruction(dialogs) ? CommandReply::done()
                                                            : CommandReply::shown();
                    }});
}

void editOne(TvPrefs& prefs, Dictionary instruction, Dialogs& dialogs, std::istream& in,
             std::ostream& out) {
    InstructionEditor editor(prefs, std::move(instruction));
    out << "\n== " << text::editInstructionTitle << " ==\n";
    printEditor(editor, out);
    readCommands(
        in, out, "instruction",
        [&] {
            CommandList list;
            addActions(list, editor, dialogs);
            addFieldCommands(list, editor);
            addAmountCommands(list, editor);
            return list;
        },
        [&] { printEditor(editor, out); });
}

CommandReply withRow(InstructionList& list, const std::string& rest,
                     const std::function<void(std::size_t)>& act) {
    auto row = rowNumber(rest, list.numberOfRows());
    if (!row)
        return CommandReply::refused("There is no instruction " + rest + " in the list.");
    act(*row);
    list.refresh();
    return CommandReply::shown();
}

CommandList listCommands(InstructionList& list, TvPrefs& prefs, Dialogs& dialogs, std::istream& in,
                         std::ostream& out) {
    CommandList commands;
    commands.push_back({"edit", "N", "edit the instruction in row N", [&](const std::string& rest) {
                            return withRow(list, rest, [&](std::size_t row) {
                                editOne(prefs, list.instructionAt(row), dialogs, in, out);
                            });
                        }});
    commands.push_back(
        {"delete", "N", "delete the instruction in row N", [&](const std::string& rest) {
             return withRow(list, rest, [&](std::size_t row) {
                 InstructionEditor(prefs, list.instructionAt(row)).deleteInstruction(dialogs);
             });
         }});
    commands.push_back(textField("search", "[TEXT]", "show the instructions holding the text",
                                 [&list](const std::string& t) { list.search(t); }));
    commands.push_back(
        {"sort", "match|category", "sort the list", [&list](const std::string& rest) {
             if (rest != "match" && rest != "category")
                 return CommandReply::refused("Sort by match or by category.");
             list.sortBy(rest == "match" ? InstructionList::SortBy::match
                                         : InstructionList::SortBy::category);
             return CommandReply::shown();
         }});
    commands.push_back(
        {"done", "", "close the list", [](const std::string&) { return CommandReply::done(); }});
    return commands;
}

} // namespace

int editInstructions(Context& ctx, TerminalDialogs& dialogs, std::istream& in, std::ostream& out) {
    InstructionList list(ctx.prefs);
    printList(list, out);
    out << "Type a command (help lists them).\n";
    readCommands(
        in, out, "instructions", [&] { return listCommands(list, ctx.prefs, dialogs, in, out); },
        [&] { printList(list, out); });
    return kExitOK;
}

} // namespace tavvel
