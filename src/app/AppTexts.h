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

// Intake and classification.
inline constexpr std::string_view clipboardEmptyTitle = "Clipboard Empty";
inline constexpr std::string_view clipboardEmpty =
    "The clipboard does not appear to contain any text and cannot be processed.";
inline constexpr std::string_view invalidInputTitle = "Invalid Input";
inline constexpr std::string_view ofxNotBankOrCard =
    "%@ appears to contain QFX/OFX but does not represent Bank or Credit Card transactions; it "
    "cannot be processed.";
inline constexpr std::string_view noTransactionsTitle = "No Transactions";
inline constexpr std::string_view noQifTransactions = "%@ contains no QIF transactions to process.";
inline constexpr std::string_view multipleAccounts =
    "%@ contains transactions for multiple accounts; it cannot be processed.  Tavvel handles only "
    "one account at a time.";
inline constexpr std::string_view noTransactionsInAccount =
    "%@ contains no transactions; it cannot be processed.";
// Our own: the accounts of an OFX file are named, so the run can choose one of them.
inline constexpr std::string_view ofxAccountsFound =
    "\r\rThe accounts in it are %@.  Choose one of them as the account of the run to convert "
    "its transactions alone.";
// Our own: an export holding registers of several kinds converts the first, and says what the
// others held rather than passing over them in silence.
inline constexpr std::string_view qifSectionsSkippedTitle = "Transactions Skipped";
inline constexpr std::string_view qifSectionsSkipped =
    "%@ holds transactions in more than one section.  Only those of the first are converted; "
    "those of the others (another kind of account, or investment transactions) were skipped: "
    "%ld in all.";
inline constexpr std::string_view investmentQif =
    "%@ contains INVESTMENT QIF, which is not supported by Tavvel. It cannot be processed.";
inline constexpr std::string_view textWithoutDate =
    "The input is not in QIF format, and does not appear to contain a date.  It cannot be "
    "processed.";
// Our own: a folder or a file we may not open is not a statement without transactions, and
// bytes that are no text (mostly control bytes, or 8-bit bytes no encoding explains) are not
// a statement at all.
inline constexpr std::string_view unreadableInputTitle = "Cannot Read File";
inline constexpr std::string_view unreadableInput =
    "%@ cannot be read.  Check that it is a file and that you may open it.";
inline constexpr std::string_view notAStatement =
    "%@ does not appear to be a statement: its bytes are not text, so it cannot be processed.  "
    "Tavvel reads bank statements saved as OFX, QFX, QIF or text.";
inline constexpr std::string_view sourceFile = "File \"%@\"";
inline constexpr std::string_view sourceContinuation = "Continuation file \"%@\"";
inline constexpr std::string_view sourceClipboard = "The clipboard";
inline constexpr std::string_view clipboard = "Clipboard";

// Processing.
inline constexpr std::string_view noCategoriesTitle = "No Categories";
inline constexpr std::string_view noCategories =
    "Warning: If you are using financial software that supports categories and you use "
    "categories, you should export your Categories into a QIF file, and then open the resulting "
    "file with Tavvel before proceeding. Alternatively you can use the Edit->Categories function "
    "to enter categories yourself. You will receive this warning only once.";
inline constexpr std::string_view needSecuritiesTitle = "Need Security Names";
inline constexpr std::string_view needSecurities =
    "In order to process investment transactions, Tavvel needs to know the names and optionally "
    "symbols that your financial software uses.\r\rIf your financial software supports it "
    "(Quicken 2007 does), you can export your Securities info into a QIF file, and then open the "
    "resulting file with Tavvel before proceeding.\r\rOtherwise, you can enter each security when "
    "prompted, or use Edit->Securities to enter the information yourself.";
inline constexpr std::string_view invalidFormatTitle = "Invalid Format";
inline constexpr std::string_view invalidFormat =
    "The text cannot be interpreted using the selected format.";
inline constexpr std::string_view invalidOfxTitle = "Invalid OFX";
inline constexpr std::string_view invalidOfx = "This investment OFX cannot be understood.";
inline constexpr std::string_view corruptedQif =
    "%@ appears to contain corrupted QIF on line %ld; it cannot be processed.";
inline constexpr std::string_view finishedTitle = "Finished Processing Transactions";
inline constexpr std::string_view noTransactionsOutput = "No transactions output.";
inline constexpr std::string_view appendTo = "Append To";
// Our own: a closing message must never claim a file that was not written.
inline constexpr std::string_view outputNotWrittenTitle = "Output File Not Written";
inline constexpr std::string_view outputNotWritten =
    "%@ could not be written, so nothing was saved.  Check that its folder exists and that you "
    "may write to it, then process the transactions again.";
// Our own: a folder, a device or a pipe is never replaced by the output.
inline constexpr std::string_view outputNotAFile =
    "\"%@\" is a folder, a device or a pipe, not a file, so the output cannot be written to it.  "
    "Choose another output file, then process the transactions again.";

// Continuation files.
inline constexpr std::string_view continuationNotCreatedTitle = "Continuation File Not Created";
inline constexpr std::string_view continuationCancelled =
    "No transactions were placed in the output file.\r\rThe continuation file was not created.";
inline constexpr std::string_view continuationCreatedTitle = "Continuation File Created";
inline constexpr std::string_view continuationCreated =
    "No transactions were placed in the output file.\r\rA continuation file with both your "
    "processed and unprocessed transactions was created.  You can open it later with Tavvel to "
    "finish processing your transactions and place all of them in the output file you choose "
    "when you continue.";
inline constexpr std::string_view continuationFailed =
    "No transactions were placed in the output file.\r\rThe continuation file could not be "
    "created because of an unknown error.";
// Our own: a continuation file that cannot be resumed must say so before anything starts, so
// the run it holds is not mistaken for a statement.
inline constexpr std::string_view continuationInvalidTitle = "Invalid Continuation File";
inline constexpr std::string_view continuationUndecodable =
    "%@ cannot be read as a continuation file; it cannot be processed.  Open the .tvcn file "
    "that Tavvel saved when you chose to finish later.";
inline constexpr std::string_view continuationDamaged =
    "%@ is damaged: it does not hold the run that was stopped, so it cannot be resumed.";
inline constexpr std::string_view continuationFormatGone =
    "%@ was stopped with an output format that no longer exists, so it cannot be resumed.  "
    "Create the output format again under its old name, then open the file again.";

} // namespace tavvel::text
