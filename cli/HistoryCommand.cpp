#include "HistoryCommand.h"

#include "CliTexts.h"
#include "TerminalDialogs.h"
#include "context/Context.h"
#include "dialogs/MessageFormat.h"
#include "history/ConversionHistory.h"
#include "recognize/CalendarDate.h"

namespace tavvel {

namespace {

void listHistory(ConversionHistory& history, const std::string& account, const Context& ctx,
                 std::ostream& out) {
    auto entries = history.database().list(account);
    if (entries.empty()) {
        out << terminalText(formatMessage(clitext::historyEmpty, account)) << "\n";
        return;
    }
    out << terminalText(formatMessage(clitext::historyHeading, account)) << "\n";
    for (const ListedEntry& l : entries) {
        const TransactionKey& k = l.entry.key;
        Date on{static_cast<double>(l.convertedAt)};
        out << terminalText(k.date + "\t" + k.amount + "\t" + k.number + "\t" + k.description +
                            "\t" + l.entry.category + "\t" +
                            formatDate(on, ctx.output.longDatePattern()))
            << "\n";
    }
}

} // namespace

std::optional<int> historyCommand(const CliOptions& options, Context& ctx, std::ostream& out,
                                  std::ostream& err) {
    if (!options.history && !options.forgetHistory)
        return std::nullopt;
    ConversionHistory history;
    history.open(ctx.places.dataFolder, ctx.clock.now());
    if (auto notice = history.takeNotice())
        err << terminalText(*notice) << "\n";
    if (!history.available()) {
        errorLine(err, clitext::historyNotOpened);
        return kExitRefused;
    }
    if (options.history)
        listHistory(history, *options.history, ctx, out);
    if (!options.forgetHistory)
        return kExitOK;
    std::int64_t n = history.database().forget(*options.forgetHistory);
    if (n < 0) {
        errorLine(err, clitext::historyNotOpened);
        return kExitRefused;
    }
    out << terminalText(
               formatMessage(clitext::historyForgotten,
                             {std::to_string(n), n == 1 ? "" : "s", *options.forgetHistory}))
        << "\n";
    return kExitOK;
}

} // namespace tavvel
