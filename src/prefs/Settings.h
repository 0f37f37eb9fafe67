#pragma once
// Every setting's name, and the option list: the key `Preferences` holds the names of the
// options that are on.

#include "prefs/TvPrefs.h"

#include <optional>
#include <string_view>

namespace tavvel {

namespace option {
inline constexpr std::string_view append = "append";
inline constexpr std::string_view showAllAccountNames = "showAllAccountNames";
inline constexpr std::string_view markBankTransactionsAsCleared = "markBankTransactionsAsCleared";
inline constexpr std::string_view markBankTransactionsAsUncleared =
    "markBankTransactionsAsUncleared";
inline constexpr std::string_view markCreditCardTransactionsAsCleared =
    "markCreditCardTransactionsAsCleared";
inline constexpr std::string_view markCreditCardTransactionsAsUncleared =
    "markCreditCardTransactionsAsUncleared";
inline constexpr std::string_view markInvestmentTransactionsAsCleared =
    "markInvestmentTransactionsAsCleared";
inline constexpr std::string_view markInvestmentTransactionsAsUncleared =
    "markInvestmentTransactionsAsUncleared";
inline constexpr std::string_view markUnknownTransactionsAsCleared =
    "markUnknownTransactionsAsCleared";
inline constexpr std::string_view markUnknownTransactionsAsUncleared =
    "markUnknownTransactionsAsUncleared";
inline constexpr std::string_view runAutomatically = "runAutomatically";
inline constexpr std::string_view confirmAllTransactions = "confirmAllTransactions";
inline constexpr std::string_view textConfirmAllTransactions = "textConfirmAllTransactions";
inline constexpr std::string_view treatMemoAsDescription = "treatMemoAsDescription";
inline constexpr std::string_view leaveBlankDescriptionsBlank = "leaveBlankDescriptionsBlank";
inline constexpr std::string_view matchDescriptionThenMemo = "matchDescriptionThenMemo";
inline constexpr std::string_view matchMemoThenDescription = "matchMemoThenDescription";
inline constexpr std::string_view longestInstructionMatch = "longestInstructionMatch";
inline constexpr std::string_view useCategoriesIfPresent = "useCategoriesIfPresent";
inline constexpr std::string_view baseCategoriesOnCategories = "baseCategoriesOnCategories";
inline constexpr std::string_view dontAddCategories = "dontAddCategories";
inline constexpr std::string_view updateCategoryWhenDescriptionChanged =
    "updateCategoryWhenDescriptionChanged";
inline constexpr std::string_view matchDescriptionWithContains = "matchDescriptionWithContains";
inline constexpr std::string_view quicken2003 = "quicken2003";
inline constexpr std::string_view formatFirstMatch = "formatFirstMatch";
inline constexpr std::string_view useOFXTRNTYPE = "useOFXTRNTYPE";
inline constexpr std::string_view initialCaps = "initialCaps";
inline constexpr std::string_view europeanDates = "europeanDates";
inline constexpr std::string_view outputEuropeanDates = "outputEuropeanDates";
inline constexpr std::string_view outputEuropeanAmounts = "outputEuropeanAmounts";
inline constexpr std::string_view outputDashDates = "outputDashDates";
inline constexpr std::string_view justStop = "justStop";
inline constexpr std::string_view justFinishLater = "justFinishLater";
inline constexpr std::string_view removeLongNumber = "removeLongNumber";
inline constexpr std::string_view converted2_2 = "converted2.2";
inline constexpr std::string_view accountsInCategories = "accountsInCategories";
inline constexpr std::string_view dontConfirmCancel = "dontConfirmCancel";
// Transactions converted before are written again without a question.
inline constexpr std::string_view keepDuplicates = "keepDuplicates";
} // namespace option

// Top-level keys of the preference store.
namespace prefkey {
inline constexpr std::string_view Preferences = "Preferences";
inline constexpr std::string_view amountsPrecision = "amountsPrecision";
inline constexpr std::string_view pricesPrecision = "pricesPrecision";
inline constexpr std::string_view sharesPrecision = "sharesPrecision";
inline constexpr std::string_view bccAmountsPrecision = "bccAmountsPrecision";
inline constexpr std::string_view OutputDateFormat = "OutputDateFormat";
inline constexpr std::string_view OutputDateFormatShortYear = "OutputDateFormatShortYear";
inline constexpr std::string_view DescriptionOutput = "DescriptionOutput";
inline constexpr std::string_view MemoOutput = "MemoOutput";
inline constexpr std::string_view CheckForUpdates = "CheckForUpdates";
inline constexpr std::string_view SUEnableAutomaticChecks = "SUEnableAutomaticChecks";
inline constexpr std::string_view LastRootDirectory = "LastRootDirectory";
inline constexpr std::string_view ControlSettings = "ControlSettings";
inline constexpr std::string_view OFXFormat = "OFXFormat";
inline constexpr std::string_view outputEuropeanDates = "outputEuropeanDates";
// Legacy keys removed at start-up.
inline constexpr std::string_view qifCancelDontAsk = "qifCancelDontAsk";
inline constexpr std::string_view invCancelDontAsk = "invCancelDontAsk";
// Learned lists.
inline constexpr std::string_view Instructions = "Instructions";
inline constexpr std::string_view Descriptions = "Descriptions";
inline constexpr std::string_view Categories = "Categories";
inline constexpr std::string_view Accounts = "Accounts";
inline constexpr std::string_view Securities = "Securities";
inline constexpr std::string_view Formats = "Formats";
inline constexpr std::string_view OutputFormats = "OutputFormats";
} // namespace prefkey

// Keys of the run settings record (`ControlSettings`).
namespace runkey {
inline constexpr std::string_view inputQIFType = "inputQIFType";
inline constexpr std::string_view dateFrom = "dateFrom";
inline constexpr std::string_view dateTo = "dateTo";
inline constexpr std::string_view outputDate = "outputDate";
inline constexpr std::string_view dateFromString = "dateFromString";
inline constexpr std::string_view dateToString = "dateToString";
inline constexpr std::string_view outputDateString = "outputDateString";
inline constexpr std::string_view outputFilePath = "outputFilePath";
inline constexpr std::string_view whichTransactions = "whichTransactions";
inline constexpr std::string_view outputNumberString = "outputNumberString";
inline constexpr std::string_view outputFormat = "outputFormat";
} // namespace runkey

// find: — the option's position in the option list; nothing when it is absent or when there
// is no option list at all.
std::optional<std::size_t> findOption(const TvPrefs& prefs, std::string_view name);
// In line: a walk asks several times for every transaction.
inline bool optionOn(const TvPrefs& prefs, std::string_view name) {
    return prefs.listHolds(prefkey::Preferences, name);
}
// add: — puts the name into the option list when it is not there yet and stores the list
// (without saving to disk).
void addOption(TvPrefs& prefs, std::string_view name);

// The option list as names (non-text entries are passed over).
Array optionList(const TvPrefs& prefs);

} // namespace tavvel
