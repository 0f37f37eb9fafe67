#pragma once
// Where the transactions of a QIF export stand when it holds lists as well. Exports put the
// lists (categories, classes, an account list, securities) before, between or after the
// registers, and an account list opened by "!Option:AutoSwitch" is not always closed, so the
// transactions are found by their own section headers rather than by where the lists end.
// One run converts one register: the first that holds transactions, read with its account
// block; the others are either another account (the file is refused as for several accounts)
// or sections that cannot be read with it, whose transactions are counted so the user is told.

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tavvel {

struct QifTransactionPart {
    // The lines to read, [begin, end): the account block, when the register has one, then the
    // register. Both are the number of lines when the file holds no transactions.
    std::size_t begin = 0, end = 0;
    // Transactions of registers outside the part that belong to no named account (an
    // investment register beside a bank one, or a second register after a list).
    std::size_t skipped = 0;
    // Another register with transactions has an account block of its own.
    bool severalAccounts = false;
};

// Nothing for a file without list sections: it is read as it always was.
std::optional<QifTransactionPart> qifTransactionPart(const std::vector<std::string_view>& lines);

} // namespace tavvel
