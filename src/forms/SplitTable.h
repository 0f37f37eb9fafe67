#pragma once
// A table of split records (`category`, `memo`, `amount`) as the forms show them: the
// confirmation form's splits, and the instruction and amount-instruction splits of the
// new-instruction form. Rows keep any other key they carry (`amountAlreadyConverted` above
// all, which tells the output writer not to normalise an amount twice).

#include "prefs/Value.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class TvPrefs;

enum class SplitColumn { category, memo, amount };
// The split record's key of a column.
std::string_view keyOf(SplitColumn column);

// The reader's normalizeQIFAmountIn: for one split record.
using AmountNormaliser = std::function<void(Dictionary&)>;

// How a balanced amount is printed and made ready for output.
struct SplitBalancing {
    int precision = 2; // bccAmountsPrecision
    AmountNormaliser normalise;
};

// The store's bccAmountsPrecision, 2 when it has none.
int splitAmountPrecision(const TvPrefs& prefs);

class SplitTable {
public:
    SplitTable() = default;
    explicit SplitTable(const Array& splits);

    std::size_t numberOfRows() const { return rows_.size(); }
    bool empty() const { return rows_.empty(); }
    const std::vector<Dictionary>& rows() const { return rows_; }
    // The rows as a split list for a record.
    Array splits() const;
    std::string cellText(std::size_t row, SplitColumn column) const;

    void appendRow(Dictionary split);
    // addSplit: — a row with an empty category, memo and amount.
    void addBlankRow();
    // A row outside the table is ignored.
    void setCell(std::size_t row, SplitColumn column, std::string text);
    void clear();

    // A row outside the table selects nothing.
    void select(std::optional<std::size_t> row);
    const std::optional<std::size_t>& selectedRow() const { return selected_; }
    bool deleteEnabled() const { return selected_.has_value(); }
    // deleteSelectedSplit: — the selection goes with the row.
    void deleteSelectedRow();

    // adjustSplitAmountsCanCreate: — makes the splits add up to the amount; true when a
    // split changed or was added.
    bool adjustSplitAmountsCanCreate(std::string_view amount, bool canCreate,
                                     const SplitBalancing& how);

private:
    std::vector<Dictionary> rows_;
    std::optional<std::size_t> selected_;
};

} // namespace tavvel
