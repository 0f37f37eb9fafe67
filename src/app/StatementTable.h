#pragma once
// The statement as the main window's table shows it before the run: every record the reader
// made (error records too), the rows the run form's range lets through, and the count and sum
// of what the run will write. The run form filters it live, so nothing here reads the file
// again: the input type's swap and sign reversal are applied as the rows are shown.

#include "app/RunSettings.h"
#include "prefs/Value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavvel {

class Context;
class RunForm;

struct StatementRow {
    std::optional<Date> date; // nothing for an error record, which names no readable date
    std::string dateText, amount, number, description, memo;
    // What the instructions give when matched on the description, and on the memo (which is
    // what they see when the input type swaps the two).
    std::string category, categoryOfMemo;
    std::string errorMessage; // an error record's message; empty for a transaction
    bool isError() const { return !errorMessage.empty(); }
};

// What of the run form filters and shapes the table.
struct TableFilter {
    std::optional<DateRange> range;      // nothing: an unreadable range hides no row
    std::optional<std::string> sameDate; // the date every written transaction gets
    bool swapDescriptionAndMemo = false;
    bool reverseSigns = false;
    char decimalPoint = '.'; // ',' when amounts are written the European way
    bool operator==(const TableFilter& other) const;
};

TableFilter tableFilterFor(const RunForm& form, const Context& ctx);

// The total of amount texts, exact. The separator that is not the decimal point groups
// digits and is passed over. An amount it cannot read makes the total unknown, never wrong.
class ExactSum {
public:
    explicit ExactSum(char decimalPoint = '.') : point_(decimalPoint) {}
    void add(std::string_view amount);
    bool known() const { return known_; }
    // Nothing when an amount could not be read or the total does not fit.
    std::optional<std::string> text(bool negated = false) const;

private:
    bool scaleTo(int places);
    std::int64_t units_ = 0;
    int places_ = 0;
    bool known_ = true;
    char point_;
};

class StatementTable {
public:
    void setRows(std::vector<StatementRow> rows);
    void setFilter(const TableFilter& filter);
    const TableFilter& filter() const { return filter_; }

    std::size_t allRows() const { return rows_.size(); }
    std::size_t size() const { return shown_.size(); }
    const StatementRow& row(std::size_t shown) const { return rows_[shown_[shown]]; }
    // A shown row's cells as the run will write them.
    std::string date(std::size_t shown) const;
    std::string amount(std::size_t shown) const;
    std::string description(std::size_t shown) const;
    std::string memo(std::size_t shown) const;
    std::string category(std::size_t shown) const;

    // The transactions the run will write (error records are not), and their total.
    std::size_t writtenCount() const { return written_; }
    std::optional<std::string> writtenSum() const { return sum_.text(filter_.reverseSigns); }
    // The line under the table: how many transactions will be written, their total, and how
    // many records cannot be read.
    std::string summary() const;

private:
    bool passes(const StatementRow& row) const;
    void refilter();

    std::vector<StatementRow> rows_;
    std::vector<std::uint32_t> shown_;
    TableFilter filter_;
    std::size_t written_ = 0;
    std::size_t errors_ = 0;
    ExactSum sum_;
};

} // namespace tavvel
