#include "TerminalOutputFormat.h"

#include "CliOptions.h"
#include "CliTexts.h"
#include "FormFields.h"
#include "TerminalDialogs.h"
#include "context/Context.h"
#include "formats/OutputFormatForm.h"
#include "formats/OutputFormatStore.h"
#include "formats/OutputFormatTexts.h"

#include <sstream>

namespace tavvel {

namespace {

using Form = OutputFormatForm;

std::string joined(const std::vector<std::string_view>& titles) {
    std::string all;
    for (std::string_view title : titles)
        all += (all.empty() ? "" : "|") + std::string(title);
    return all;
}

void printForm(const Form& form, Context& ctx, Dialogs& dialogs, std::ostream& out) {
    field(out, "Name", form.name());
    field(out, "Type", form.type());
    field(out, "Separator", form.separator());
    field(out, "Amount", form.amountStyle());
    field(out, "Every split", onOffText(form.everySplit()));
    field(out, "Reformat dates", used(form.reformatDate(), form.reformatDateFormat()));
    out << "  Columns:\n";
    for (std::size_t i = 0; i < form.columns().size(); ++i)
        out << "    " << i + 1 << " [" << (form.columns()[i].present ? 'x' : ' ') << "] "
            << form.columns()[i].name << "\n";
    out << "  Preview:\n";
    std::istringstream preview(terminalText(form.preview(ctx, dialogs)));
    for (std::string line; std::getline(preview, line);)
        out << "    " << line << "\n";
}

FormCommand choice(std::string name, const std::vector<std::string_view>& titles,
                   std::function<bool(std::string_view)> set) {
    std::string arguments = joined(titles);
    return {std::move(name), arguments, "choose one",
            [arguments, set = std::move(set)](const std::string& rest) {
                // "Credit Card" may be typed with or without its quotes.
                auto words = commandWords(rest);
                if (!set(words.size() == 1 ? words[0] : rest))
                    return CommandReply::refused("Choose one of " + arguments + ".");
                return CommandReply::shown();
            }};
}

// The columns named, in the order named and switched on, ahead of all others, switched off.
CommandReply arrangeColumns(Form& form, const std::string& rest) {
    auto names = commandWords(rest);
    for (const std::string& name : names)
        if (!form.columnIndex(name))
            return CommandReply::refused("There is no column \"" + name + "\".");
    if (names.empty())
        return CommandReply::refused("Name the columns to write, in order.");
    for (std::size_t i = 0; i < form.columns().size(); ++i)
        form.setPresent(i, false);
    for (std::size_t i = 0; i < names.size(); ++i) {
        form.moveColumn(*form.columnIndex(names[i]), i);
        form.setPresent(i, true);
    }
    return CommandReply::shown();
}

CommandReply switchColumns(Form& form, const std::string& rest, bool present) {
    auto names = commandWords(rest);
    for (const std::string& name : names)
        if (!form.columnIndex(name))
            return CommandReply::refused("There is no column \"" + name + "\".");
    for (const std::string& name : names)
        form.setPresent(*form.columnIndex(name), present);
    return CommandReply::shown();
}

CommandReply moveColumn(Form& form, const std::string& rest) {
    auto words = commandWords(rest);
    auto from = words.size() == 2 ? form.columnIndex(words[0]) : std::nullopt;
    auto to = words.size() == 2 ? rowNumber(words[1], form.columns().size()) : std::nullopt;
    if (!from || !to)
        return CommandReply::refused("Name a column and the place to put it.");
    form.moveColumn(*from, *to);
    return CommandReply::shown();
}

void addLayoutCommands(CommandList& list, Form& form) {
    list.push_back(textField("name", "TEXT", "the format's name",
                             [&form](const std::string& t) { form.setName(t); }));
    list.push_back(choice("type", Form::typeTitles(),
                          [&form](std::string_view t) { return form.setType(t); }));
    list.push_back(choice("separator", Form::separatorTitles(),
                          [&form](std::string_view t) { return form.setSeparator(t); }));
    list.push_back(choice("amount", Form::amountTitles(),
                          [&form](std::string_view t) { return form.setAmountStyle(t); }));
    list.push_back(toggle("splits", "write every split (amount, category, memo) in Splits",
                          [&form](bool on) { form.setEverySplit(on); }));
    list.push_back(usedText(
        "dates", "rewrite dates with this pattern (%d %m %y %Y %b %B; nothing: as read)",
        [&form](bool on) { form.setReformatDate(on); },
        [&form](std::string t) {
            if (!t.empty())
                form.setReformatDateFormat(std::move(t));
        }));
    list.push_back({"columns", "NAME...", "write these columns in this order, and no others",
                    [&form](const std::string& rest) { return arrangeColumns(form, rest); }});
    list.push_back({"show", "NAME...", "write these columns too",
                    [&form](const std::string& rest) { return switchColumns(form, rest, true); }});
    list.push_back({"hide", "NAME...", "leave these columns out",
                    [&form](const std::string& rest) { return switchColumns(form, rest, false); }});
    list.push_back({"move", "NAME N", "put the column at place N",
                    [&form](const std::string& rest) { return moveColumn(form, rest); }});
}

enum class Outcome { saved, deleted, cancelled };

void addActions(CommandList& list, Form& form, Dialogs& dialogs, Outcome& outcome) {
    list.push_back({"save", "", form.confirmButtonTitle(), [&](const std::string&) {
                        if (!form.confirm())
                            return CommandReply::refused(form.problem());
                        outcome = Outcome::saved;
                        return CommandReply::done();
                    }});
    list.push_back({"cancel", "", "change nothing", [&](const std::string&) {
                        outcome = Outcome::cancelled;
                        return CommandReply::done();
                    }});
    if (form.isNew())
        return;
    list.push_back({"delete", "", "delete this output format", [&](const std::string&) {
                        std::string name = form.storedName();
                        std::size_t answer = dialogs.ask(
                            std::string(text::deleteOutputFormatTitle),
                            formatMessage(text::deleteOutputFormatText, name),
                            {std::string(text::deleteButton), std::string(text::cancelButton)});
                        if (answer != 0)
                            return CommandReply::shown();
                        removeOutputFormat(form.prefs(), name);
                        outcome = Outcome::deleted;
                        return CommandReply::done();
                    }});
}

CommandList formCommands(Form& form, Dialogs& dialogs, Outcome& outcome) {
    CommandList list;
    addActions(list, form, dialogs, outcome);
    addLayoutCommands(list, form);
    return list;
}

} // namespace

int editOutputFormat(Context& ctx, TerminalDialogs& dialogs, std::string_view name,
                     std::istream& in, std::ostream& out) {
    std::optional<Form> form = Form::open(ctx.prefs, name);
    if (!form) {
        out << text::outputFormatBuiltIn << "\n";
        return kExitRefused;
    }
    out << "\n== " << form->title() << " ==\n";
    printForm(*form, ctx, dialogs, out);
    out << "Type a command (help lists them).\n";
    Outcome outcome = Outcome::cancelled;
    readCommands(
        in, out, "output format", [&] { return formCommands(*form, dialogs, outcome); },
        [&] { printForm(*form, ctx, dialogs, out); });
    if (outcome == Outcome::saved)
        out << formatMessage(text::outputFormatSaved, form->name()) << "\n";
    if (outcome == Outcome::deleted)
        out << formatMessage(text::outputFormatDeleted, form->storedName()) << "\n";
    return kExitOK;
}

} // namespace tavvel
