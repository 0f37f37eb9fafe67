#pragma once
// The run form as a form model: what the user confirms before a run (input type or input
// format, account, transaction range, output date and number, output format, appending), its
// prefill from the last run's settings, and the rules for what is shown and when the process
// button is enabled. Front ends show the state and forward events.

#include "prefs/Value.h"

#include <optional>
#include <string>
#include <vector>

namespace tavvel {

class Context;
class OutputFormats;

class RunForm {
public:
    RunForm(Context& ctx, OutputFormats& outputFormats)
        : ctx_(ctx), outputFormats_(outputFormats) {}

    // What classification tells the form about the input.
    struct Input {
        bool text = false;                  // free text, read through an input format
        std::string accountType;            // "Bank", "Credit Card", ... shown beside the account
        int accountKind = 4;                // which accounts the account box offers (0-4)
        std::optional<std::string> account; // named by the input
        bool ofx = false;                   // an OFX or QFX statement
        // The accounts of a file that holds several: the run converts the one chosen.
        std::vector<std::string> accounts = {};
    };

    // What a stopped run fixed, shown read-only while it is resumed.
    struct Fixed {
        std::string account;
        std::string outputFormat;
        std::string outputDate, outputNumber;
        bool sameDate = false, sameNumber = false;
    };

    // fillInTransactionPartOfDialog — prefill from the stored run settings.
    void fillInTransactionPart();
    // fillInAccountAndOutputPartOfDialog
    void fillInAccountAndOutputPart();
    void setInput(const Input& input, int runKind);
    // The continuation layout: fixed account and output-format labels instead of their boxes,
    // output date, number and their switches read-only, the QIF-type choice hidden.
    void showContinuation(const Fixed& fixed);

    // Events.
    void chooseRange(int tag); // radioButtonDateRange: / radioButtonNotDateRange:
    void setDateFrom(std::string text);
    void setDateTo(std::string text);
    void checkDateRange(); // checkDateRange:
    void setAccountText(std::string text);
    void chooseOutputFormat(std::string name);
    void setInputFormatName(std::string name); // inputFormatSet follows
    void setOutputDate(std::string text) { outputDate = std::move(text); }
    void setOutputNumber(std::string text) { outputNumber = std::move(text); }
    void setSameDate(bool on) { sameDate = on; }
    void setSameNumber(bool on) { sameNumber = on; }
    void setAppendSwitch(bool on);
    void chooseAppendItem(int index) { appendPopUpIndex = index; }
    void chooseQifType(int index) { qifType = index; }
    void chooseQfxType(int index) { qfxType = index; }

    // The input-format box's list: the stored formats' names in store order.
    std::vector<std::string> inputFormatChoices() const;

    // checkEverythingFilledIn:
    bool processEnabled() const;

    // State shown by the front end.
    bool resuming = false; // the continuation layout; the fields it fixes are read-only
    std::string accountType;
    int accountKind = 4;
    bool accountBoxVisible = false;
    std::string accountText;
    std::vector<std::string> accountChoices;
    bool allowAnyAccountName = false;
    std::string accountHint;
    // The accounts of an input that holds several; the account box offers them alone, and the
    // process button waits until one is chosen.
    std::vector<std::string> inputAccounts;
    bool choosesInputAccount() const { return inputAccounts.size() > 1; }

    int whichTransactions = 0;
    std::string dateFrom, dateTo;
    bool rangeFieldsEnabled = false;
    bool dateRangeOK = true;
    bool invalidRangeWarningVisible = false;

    std::string outputDate, outputNumber;
    bool sameDate = false, sameNumber = false;

    std::string outputFormat = "QIF";
    std::vector<std::string> outputFormatChoices;

    bool textInput = false;
    bool ofxInput = false;
    // The input type pop-ups: QIF types for QIF input, QFX types for OFX and QFX input.
    bool qifTypeShown() const { return !textInput && !ofxInput; }
    bool qfxTypeShown() const { return !textInput && ofxInput; }
    std::string inputFormatName;
    bool learnEnabled = false;
    int qifType = 0, qfxType = 0;

    bool doAppend = false;
    bool appendSwitchVisible = false, appendSwitchOn = false;
    bool appendPopUpVisible = false;
    std::vector<std::string> appendPopUpItems;
    int appendPopUpIndex = 0;
    bool outputFileFieldVisible = false;
    std::string outputFileText;
    std::string previousOutputFile;

private:
    std::string formatted(const Value* date) const;
    void fillQifOutputPart(bool appendOption, std::size_t accounts);
    void fillDelimitedOutputPart(const Dictionary& format);
    void offerAccounts(bool anyName);
    void offerInputAccounts();
    bool inputFormatExists() const;

    Context& ctx_;
    OutputFormats& outputFormats_;
    std::optional<std::string> inputAccount_;
};

} // namespace tavvel
