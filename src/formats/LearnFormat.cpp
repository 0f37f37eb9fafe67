// The learning dialogue's course: the start, the loop that shows the current form and runs its
// button, the Back button's snapshots and the two ends.

#include "formats/LearnFormat.h"

#include "context/Context.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "formats/ExtractKeys.h"
#include "formats/LearnTexts.h"
#include "knowledge/Formats.h"
#include "recognize/FindDate.h"

#include <algorithm>

namespace tavvel {

namespace {

// The earliest numeric date: word-month dates are left to the user to find.
std::optional<std::size_t> earliestDate(std::string_view text) {
    std::optional<std::size_t> earliest;
    std::int64_t length = 0;
    for (auto finder : {findDateSlash, findDateDash, findDateDot, findDateEightDigits}) {
        std::optional<std::size_t> at = finder(text, length);
        if (at && (!earliest || *at < *earliest))
            earliest = at;
    }
    return earliest;
}

std::size_t lineStartBefore(std::string_view text, std::size_t position) {
    if (position == 0)
        return 0;
    const std::size_t end = text.find_last_of("\n\r", position - 1);
    return end == std::string_view::npos ? 0 : end + 1;
}

} // namespace

LearnFormat::LearnFormat(Context& ctx, Dialogs& dialogs, Extract& extract)
    : ctx_(ctx), dialogs_(dialogs), extract_(extract) {
    layoutForm_.rebuild = [this](const LayoutChoice& layout) { return preview(layout); };
}

std::optional<Dictionary> LearnFormat::learnFromString(std::string_view text,
                                                       std::string_view cString, std::string name) {
    start(text, cString, std::move(name));
    while (true) {
        switch (stage_) {
        case Stage::date:
            dispatch(dialogs_.learnDate(dateForm_));
            break;
        case Stage::layout:
            dispatch(dialogs_.learnLayout(layoutForm_));
            break;
        case Stage::questions:
            dispatch(dialogs_.learnQuestion(questionForm_));
            break;
        case Stage::stored:
            return format_;
        case Stage::cancelled:
            return std::nullopt;
        }
    }
}

void LearnFormat::dispatch(LearnAction action) {
    switch (action) {
    case LearnAction::ok:
        if (stage_ == Stage::date)
            ok1();
        else if (stage_ == Stage::layout)
            ok2();
        else
            ok3();
        return;
    case LearnAction::yes:
        yes();
        return;
    case LearnAction::no:
        no();
        return;
    case LearnAction::back:
        back();
        return;
    case LearnAction::cancel:
        cancel();
        return;
    }
}

void LearnFormat::start(std::string_view text, std::string_view cString, std::string name) {
    questionForm_.expectsColumn = false;
    backStack_.clear();
    formatName_ = std::move(name);
    extract_.inputCsave.assign(cString);
    ctx_.blanks.multipleBlanks = -1;
    questionForm_.fieldMatchSummary.clear();

    const std::optional<std::size_t> earliest = earliestDate(text);
    dateForm_ = LearnDateForm{};
    dateForm_.dateView.assign(text.substr(earliest ? lineStartBefore(text, *earliest) : 0));
    dateForm_.matchView.assign(text);
    dateForm_.title = formatMessage(text::learnDateTitle, formatName_);
    format_.clear();
    stage_ = Stage::date;
    backPushFormatOnlyForWindow(Stage::date);
}

void LearnFormat::refuse(std::string_view title, std::string_view text) {
    dialogs_.alert(std::string(title), std::string(text));
}

void LearnFormat::cancel() {
    formatBad();
}

void LearnFormat::formatOK() {
    Formats(ctx_.prefs).addFormat(format_);
    stage_ = Stage::stored;
}

void LearnFormat::formatBad() {
    stage_ = Stage::cancelled;
}

void LearnFormat::backPushFormatOnlyForWindow(Stage form) {
    const std::string& title = form == Stage::date     ? dateForm_.title
                               : form == Stage::layout ? layoutForm_.title
                                                       : questionForm_.title;
    backStack_.push_back({format_, form, title, std::nullopt});
}

void LearnFormat::backPushAll() {
    backPushFormatOnlyForWindow(Stage::questions);
    backStack_.back().question =
        QuestionSnapshot{questionForm_.columnTitles, currentQuestion_, currentQuestionsInfo_,
                         questionsStack_, questionForm_.fieldMatchSummary};
}

// The layout form shows the layout the user chose there, so returning to it applies that
// choice again to the format as it stood when the form was first shown.
void LearnFormat::back() {
    if (backStack_.size() < 2 || stage_ == Stage::stored || stage_ == Stage::cancelled)
        return;
    backStack_.pop_back();
    const Snapshot& snapshot = backStack_.back();
    format_ = snapshot.format;
    stage_ = snapshot.form;
    if (stage_ == Stage::date) {
        dateForm_.title = snapshot.title;
        return;
    }
    if (stage_ == Stage::layout) {
        layoutForm_.title = snapshot.title;
        layoutForm_.refresh();
        return;
    }
    questionForm_.title = snapshot.title;
    if (!snapshot.question)
        return;
    const QuestionSnapshot& question = *snapshot.question;
    for (std::size_t c = question.columnTitles.size(); c-- > 0;)
        if (c < questionForm_.columnTitles.size())
            questionForm_.columnTitles[c] = question.columnTitles[c];
    currentQuestion_ = question.currentQuestion;
    currentQuestionsInfo_ = question.position;
    questionsStack_ = question.questionsStack;
    questionForm_.fieldMatchSummary = question.fieldMatchSummary;
    doneAfterPrompt_ = false;
    displayPrompt();
}

PreviewTable LearnFormat::preview(const LayoutChoice& layout) {
    extract_.parseFields(layout, format_);
    PreviewTable table;
    table.columns = static_cast<std::size_t>(std::max<std::int64_t>(extract_.previewColumns, 0));
    table.rows.reserve(extract_.transactionsAsFields.size());
    for (const Dictionary& fields : extract_.transactionsAsFields) {
        std::vector<std::string>& row = table.rows.emplace_back(table.columns);
        for (std::size_t c = 0; c < table.columns; ++c)
            row[c] = textOf(fields, std::to_string(c));
    }
    return table;
}

} // namespace tavvel
