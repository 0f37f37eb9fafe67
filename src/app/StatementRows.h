#pragma once
// The statement's records as the main window's table rows, read before the run so the user
// sees every transaction (and every record the reader could not make sense of) first. The
// reading may take a while on a large statement, so it reports progress and stops when asked.

#include "app/StatementTable.h"

#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace tavvel {

class Context;

// What the rows are read from: the input's text as classified, and how the run reads it.
struct StatementSource {
    bool ofx = false;
    bool qif = false; // neither: a text or investment statement, which gives no rows yet
    std::string text; // OFX
    std::vector<std::string> lines; // QIF, without the header lines classification took
    std::size_t skippedLines = 0;
    std::string name; // as messages name the input: File "bank.qif"
    std::optional<std::string> ofxAccount;
};

class Controller;

// The one place the table learns what the run will read.
StatementSource statementSourceOf(const Controller& controller);

struct RowReading {
    std::stop_token stop;
    // Rows made so far and how many there will be; called from the reading thread.
    std::function<void(std::size_t done, std::size_t total)> progress;
};

// Nothing when stopped. A text statement gives no rows yet.
std::optional<std::vector<StatementRow>>
readStatementRows(Context& ctx, const StatementSource& source, const RowReading& reading);

} // namespace tavvel
