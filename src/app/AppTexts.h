#pragma once
// What the conversion run says, word for word.

#include <string_view>

namespace tavvel::text {

// Start-up.

inline constexpr std::string_view firstRunTitle = "Tavvel First Run";
inline constexpr std::string_view firstRunIntroduction =
    "Tavvel processed files, producing output files.  If you launch it with a file (e.g. by "
    "dragging a file to its icon), it will try to process that file.\r\rIf you launch it "
    "without a file it will scan the clipboard for a date.  If it contins a date, it will try "
    "to process the data in the clipboard.\r\rOtherwise use the file menu to selct a file.";
inline constexpr std::string_view firstRunPredecessorFound =
    "\r\rPreferences for the legacy application Pelladon were found, so they have been copied "
    "over into the Tavvel Preferences.";

inline constexpr std::string_view primaryUsageTitle = "Tavvel Primary Usage?";
inline constexpr std::string_view primaryUsageText =
    "Will your primary use of Tavvel be to convert data from one format to another without "
    "modification, or add categories to transactions?\r\rYour answer will be used only to "
    "default the preferences, which can be changed later to customize Tavvel in many different "
    "ways.";
inline constexpr std::string_view justConvert = "Just Convert";
inline constexpr std::string_view addCategories = "Add Categories";

inline constexpr std::string_view updatesTitle = "Checking For Updates";
inline constexpr std::string_view updatesText =
    "Would you like to automatically check for program updates?  You can change this "
    "preference in the future via the Preferences.";
inline constexpr std::string_view yes = "YES";
inline constexpr std::string_view no = "NO";

// QIF list import.

inline constexpr std::string_view listImportTitle = "QIF List Import";
inline constexpr std::string_view listImportPrices =
    "%@ contains a list of securities prices which cannot be imported.  This might be because "
    "of a bug in Quicken 2006 which, in some releases, swapped the \"Securities\" and \"Security "
    "Prices\" checkboxes in the Export dialog.  So, if you are running Quicken 2006, try "
    "exporting the Security Prices and see if Tavvel accepts this file as Securities.";
inline constexpr std::string_view listImportAccounts =
    "%@ contains a list of ACCOUNTS.  Do you want Tavvel to replace the accounts it uses with "
    "this list?";
inline constexpr std::string_view listImportCategories =
    "%@ contains a list of CATEGORIES.  Do you want Tavvel to replace the categories it uses "
    "with this list?";
inline constexpr std::string_view listImportSecurities =
    "%@ contains a list of SECURITIES.  Do you want Tavvel to replace the securities it uses "
    "with this list?";
inline constexpr std::string_view listImportCorrupted =
    "%@ appears to be an unsupported or corrupted QIF export; it cannot be imported.";

} // namespace tavvel::text
