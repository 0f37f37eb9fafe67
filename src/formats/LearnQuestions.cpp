// Stage 3 of learning an input format: the walk of a question table. A question is answered
// with a column (its index becomes an item key), a text inside a cell (stored as a value), or
// Yes and No, which walk nested lists; the lists that branched wait on a stack.

#include "context/Context.h"
#include "dialogs/MessageFormat.h"
#include "formats/ExtractKeys.h"
#include "formats/LearnFormat.h"
#include "formats/LearnKeys.h"
#include "formats/LearnTexts.h"
#include "prefs/Configuration.h"

#include <cctype>

namespace tavvel {

namespace {

namespace q = questionkey;

bool startsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

// "DebitIndicator: " reads as "Debit Indicator: " under the table.
std::string spacedKey(std::string entry) {
    for (std::size_t i = entry.size(); i-- > 1;) {
        if (std::isupper(static_cast<unsigned char>(entry[i]))) {
            entry.insert(i, " ");
            break;
        }
    }
    return entry;
}

} // namespace

void LearnFormat::ok2() {
    if (stage_ != Stage::layout)
        return;
    const bool bank = dateForm_.type().tag != 0;
    const Array& table =
        ctx_.config.array(bank ? config::TvExtractBankCreditCard : config::TvExtractInvestment);
    currentQuestionsInfo_ = Position{table, 0};
    questionsStack_.clear();
    questionForm_.table = layoutForm_.preview;
    questionForm_.columnTitles.assign(questionForm_.table.columns, std::string());
    doneAfterPrompt_ = false;
    saveAssumedSecurity_ = false;
    questionForm_.okEnabled = true;
    questionForm_.securityVisible = false;
    questionForm_.securityText.clear();
    questionForm_.fieldMatchSummary.clear();
    questionForm_.title = formatMessage(text::learnTitle, {dateForm_.type().title, formatName_});
    stage_ = Stage::questions;
    // Nothing to ask: the layout and the date are the whole format.
    if (table.empty())
        return formatOK();
    currentQuestion_ = table.front().dictionary();
    displayPrompt();
    backPushAll();
}

void LearnFormat::displayPrompt() {
    // The date's place is known from stage 1.
    if (textOf(currentQuestion_, q::Field) == fmtkey::Date)
        return nextQuestion();
    questionForm_.clearSelection();
    questionForm_.prompt = textOf(currentQuestion_, q::Prompt);
    questionForm_.expectsColumn = has(currentQuestion_, q::Field);
    questionForm_.answersYesNo = has(currentQuestion_, q::Yes) || has(currentQuestion_, q::No);
}

void LearnFormat::nextQuestion() {
    if (doneAfterPrompt_)
        return formatOK();
    if (saveAssumedSecurity_) {
        format_.insert_or_assign(std::string(fmtkey::AssumedSecurity),
                                 Value(questionForm_.securityText));
        saveAssumedSecurity_ = false;
        questionForm_.securityVisible = false;
        questionForm_.okEnabled = true;
    }
    // Run out of questions without an end marker: the last question stays on the form.
    if (!getNextQuestion())
        return;
    if (has(currentQuestion_, q::CheckSharesOrPrice)) {
        if (holdsAny(
                {"Shares", "SharesBefore", "SharesAfter", "Price", "PriceBefore", "PriceAfter"}))
            return nextQuestion();
        doneAfterPrompt_ = true;
    } else if (has(currentQuestion_, q::CheckSecurity)) {
        if (holdsAny({"Security", "SecurityBefore", "SecurityAfter", "Symbol", "SymbolBefore",
                      "SymbolAfter"}))
            return nextQuestion();
        questionForm_.securityVisible = true;
        questionForm_.okEnabled = !questionForm_.securityText.empty();
        saveAssumedSecurity_ = true;
    }
    displayPrompt();
}

bool LearnFormat::holdsAny(std::initializer_list<std::string_view> keys) const {
    for (std::string_view key : keys)
        if (has(format_, key))
            return true;
    return false;
}

// The position moves only when a question is found.
bool LearnFormat::getNextQuestion() {
    Position position = currentQuestionsInfo_;
    std::vector<Position> stack = questionsStack_;
    for (++position.index; position.index >= position.questions.size(); ++position.index) {
        if (stack.empty())
            return false;
        position = std::move(stack.back());
        stack.pop_back();
    }
    currentQuestionsInfo_ = std::move(position);
    questionsStack_ = std::move(stack);
    currentQuestion_ = currentQuestionsInfo_.questions[currentQuestionsInfo_.index].dictionary();
    return true;
}

void LearnFormat::questionsStackPush() {
    questionsStack_.push_back(currentQuestionsInfo_);
}

void LearnFormat::yes() {
    if (stage_ == Stage::questions)
        branch(q::Yes, true);
}

void LearnFormat::no() {
    if (stage_ == Stage::questions)
        branch(q::No, false);
}

void LearnFormat::branch(std::string_view list, bool mayInvert) {
    const Value* nested = find(currentQuestion_, list);
    if (!nested || nested->array().empty())
        return answered();
    questionsStackPush();
    currentQuestionsInfo_ = Position{nested->array(), 0};
    currentQuestion_ = currentQuestionsInfo_.questions.front().dictionary();
    if (mayInvert && has(currentQuestion_, q::InvertAmount)) {
        format_.insert_or_assign(std::string(fmtkey::InvertAmount), Value(true));
        nextQuestion();
    } else {
        displayPrompt();
    }
    if (stage_ == Stage::questions)
        backPushAll();
}

void LearnFormat::ok3() {
    if (stage_ != Stage::questions || !questionForm_.okEnabled)
        return;
    if (has(currentQuestion_, q::Field)) {
        if (!answerColumn())
            return;
    } else if (has(currentQuestion_, q::FieldMatch)) {
        if (!answerFieldMatch())
            return;
    } else if (has(currentQuestion_, q::Stop) || has(currentQuestion_, q::Done)) {
        return formatOK();
    }
    answered();
}

void LearnFormat::answered() {
    nextQuestion();
    if (stage_ == Stage::questions)
        backPushAll();
}

bool LearnFormat::answerColumn() {
    const std::optional<std::size_t> column = questionForm_.selectedColumn;
    if (!column || *column >= questionForm_.columnTitles.size()) {
        if (const Value* error = find(currentQuestion_, q::Error)) {
            refuse(text::noColumnSelectedTitle, error->text());
            return false;
        }
        return true;
    }
    std::string& title = questionForm_.columnTitles[*column];
    if (!title.empty() && title != text::fieldMatchMark) {
        refuse(text::columnAlreadyUsedTitle, formatMessage(text::columnAlreadyUsed, title));
        return false;
    }
    const std::string field = textOf(currentQuestion_, q::Field);
    format_.insert_or_assign(field, Value(static_cast<std::int64_t>(*column)));
    title = title.empty() ? field : formatMessage(text::twoTitles, {text::fieldMatchMark, field});
    return true;
}

// A question without an Error text may be passed without a selection.
bool LearnFormat::answerFieldMatch() {
    const std::optional<LearnQuestionForm::CellText> selected = questionForm_.selectedText;
    if (!selected || selected->column >= questionForm_.columnTitles.size()) {
        if (const Value* error = find(currentQuestion_, q::Error)) {
            refuse(text::noTextSelectedTitle, error->text());
            return false;
        }
        return true;
    }
    const std::string key = textOf(currentQuestion_, q::FieldMatch);
    const std::string entry = spacedKey(formatMessage(text::fieldMatchEntry, key)) + selected->text;
    std::string& summary = questionForm_.fieldMatchSummary;
    summary += (summary.empty() ? "" : std::string(text::fieldMatchSeparator)) + entry;
    format_.insert_or_assign(key, Value(selected->text));
    std::string& title = questionForm_.columnTitles[selected->column];
    if (title.empty())
        title = text::fieldMatchMark;
    else if (!startsWith(title, text::fieldMatchMark))
        title = formatMessage(text::twoTitles, {text::fieldMatchMark, title});
    return true;
}

} // namespace tavvel
