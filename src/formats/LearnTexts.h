#pragma once
// What the dialogue that learns an input format says, word for word; the keys of its question
// tables are in LearnKeys.h.

#include <string>
#include <string_view>

namespace tavvel::text {

inline constexpr std::string_view learnDateTitle = "Create Input Format: %@";
// The statement type's title, then the format's name.
inline constexpr std::string_view learnTitle = "Create %@ Input Format: %@";

inline constexpr std::string_view badDateTitle = "Bad Date";
inline constexpr std::string_view dateAtTextStart =
    "The text you selected starts at the beginning of the input text.  Please try again to "
    "select a date that starts a transaction, but not the start of the input text.  You can hit "
    "CANCEL to start over.";
inline constexpr std::string_view noDateSelected =
    "You have not selected a date.  Please try again to select a date that starts a "
    "transaction.  If you cannot find a date by scrolling, then perhaps the input text does not "
    "contain transactions.  You can hit CANCEL to start over.";
inline constexpr std::string_view notJustADate =
    "The text you selected does not appear to contain just a date.  Don't select any blanks "
    "around the date.  Please try again to select a date that starts a transaction.  If you "
    "cannot find a date by scrolling, then perhaps the input text does not contain "
    "transactions.  You can hit CANCEL to start over.";
inline constexpr std::string_view notEnoughTransactionsTitle = "Not Enough Transactions";
inline constexpr std::string_view notEnoughTransactions =
    "The input text does not appear to contain at least 2 transactions.  Try again with at "
    "least 2 transactions.";

inline constexpr std::string_view noColumnSelectedTitle = "No Column Selected";
inline constexpr std::string_view columnAlreadyUsedTitle = "Column Already Used";
inline constexpr std::string_view columnAlreadyUsed =
    "The column you selected is already used for \"%@\".  If that is wrong, you need to press "
    "CANCEL and start over.  Or, you can select a different column and proceed.";
inline constexpr std::string_view noTextSelectedTitle = "No Text Selected";

// A column whose cells hold a text that a field-match answer picked out.
inline constexpr std::string_view fieldMatchMark = "\u2B07\uFE0E";
inline constexpr std::string_view twoTitles = "%@ & %@";
inline constexpr std::string_view fieldMatchEntry = "%@: ";
inline constexpr std::string_view fieldMatchSeparator = "  |  ";

} // namespace tavvel::text
