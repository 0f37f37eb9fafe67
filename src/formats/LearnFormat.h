#pragma once
// The dialogue that learns an input format from the statement the user wants to convert, in
// three forms: the user marks a date that starts a transaction and names the statement type;
// chooses how a transaction is cut into fields while a preview shows the result; and answers
// a walk of questions, read from the configuration's question tables, by selecting columns or
// texts in the table of the sample's fields. Each step pushes a snapshot so Back can return.
//
// Ends: formatOK stores the record with addFormat: and hands it back; Cancel ends without
// storing anything. A question marked `Done` or `Stop` ends the walk with formatOK when it is
// answered with OK: the walk is complete there, and only Cancel throws the answers away.

#include "formats/Extract.h"
#include "formats/LearnForms.h"
#include "prefs/Value.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class Context;
class Dialogs;

// The layout that stage 1 preselects for the transactions the date cut out: 5 (CSV) or 7
// (semicolons) when they are records of double-quoted fields separated by commas or semicolons
// (`dateAfterQuote`: the dates open quoted fields, whose quotes the cut left out); else 2 (a
// count of fields) when every transaction has the same number of non-empty pieces between tabs
// and line ends but not the same number of pieces, else 1 (columns), or 0 (initial blanks) when
// a tab is followed by a blank. `maxFieldCount` gets the largest number of pieces.
int guessLayout(const std::vector<std::string_view>& transactions, std::int64_t& maxFieldCount,
                bool dateAfterQuote = false);

class LearnFormat {
public:
    enum class Stage { date, layout, questions, stored, cancelled };

    LearnFormat(Context& ctx, Dialogs& dialogs, Extract& extract);

    // learnFromString:fromCString:withName: — runs the forms through the front end until the
    // format is stored (returned) or the user cancels (nothing).
    std::optional<Dictionary> learnFromString(std::string_view text, std::string_view cString,
                                              std::string name);

    // The steps behind the buttons, for a front end that runs the forms itself.
    void start(std::string_view text, std::string_view cString, std::string name);
    void ok1();
    void ok2();
    void ok3();
    void yes();
    void no();
    void back();
    void cancel();

    // The run form's security check (checkSecurities), asked before learning an investment
    // format; when it fails the dialogue is cancelled.
    std::function<bool()> checkSecurities;

    Stage stage() const { return stage_; }
    const Dictionary& format() const { return format_; }
    const std::string& formatName() const { return formatName_; }
    LearnDateForm& dateForm() { return dateForm_; }
    LearnLayoutForm& layoutForm() { return layoutForm_; }
    LearnQuestionForm& questionForm() { return questionForm_; }
    const Dictionary& currentQuestion() const { return currentQuestion_; }
    std::size_t backStackSize() const { return backStack_.size(); }
    std::size_t questionsStackDepth() const { return questionsStack_.size(); }
    std::int64_t maxFieldCount() const { return maxFieldCount_; }

private:
    // currentQuestionsInfo: the list being walked and the position in it.
    struct Position {
        Array questions;
        std::size_t index = 0;
    };
    struct QuestionSnapshot {
        std::vector<std::string> columnTitles;
        Dictionary currentQuestion;
        Position position;
        std::vector<Position> questionsStack;
        std::string fieldMatchSummary;
    };
    struct Snapshot {
        Dictionary format;
        Stage form = Stage::date;
        std::string title;
        std::optional<QuestionSnapshot> question;
    };

    void dispatch(LearnAction action);
    void refuse(std::string_view title, std::string_view text);
    bool acceptDateSelection(Dictionary& format);
    void measureDate(Dictionary& format, const TextSelection& selection, char delimiter);
    PreviewTable preview(const LayoutChoice& layout);

    void displayPrompt();
    void nextQuestion();
    // Advances in the current list; a list used up returns to the list that branched (the
    // questions stack), just after the question that branched.
    bool getNextQuestion();
    void questionsStackPush();
    void branch(std::string_view list, bool mayInvert);
    void answered();
    bool answerColumn();
    bool answerFieldMatch();
    bool holdsAny(std::initializer_list<std::string_view> keys) const;

    void backPushAll();
    void backPushFormatOnlyForWindow(Stage form);
    void formatOK();
    void formatBad();

    Context& ctx_;
    Dialogs& dialogs_;
    Extract& extract_;
    Stage stage_ = Stage::date;
    Dictionary format_;
    std::string formatName_;
    std::int64_t maxFieldCount_ = 0;
    LearnDateForm dateForm_;
    LearnLayoutForm layoutForm_;
    LearnQuestionForm questionForm_;
    Dictionary currentQuestion_;
    Position currentQuestionsInfo_;
    std::vector<Position> questionsStack_;
    bool doneAfterPrompt_ = false;
    bool saveAssumedSecurity_ = false;
    std::vector<Snapshot> backStack_;
};

} // namespace tavvel
