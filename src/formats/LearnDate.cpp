// Stage 1 of learning an input format: the date the user marked becomes the format's date keys
// (the characters around it, its delimiter, its distance from the line start), the sample is
// cut into transactions with them, and a layout is preselected for stage 2.

#include "context/Context.h"
#include "dialogs/MessageFormat.h"
#include "formats/ExtractKeys.h"
#include "formats/LearnFormat.h"
#include "formats/LearnTexts.h"
#include "formats/QuotedSample.h"
#include "recognize/FindDate.h"
#include "recognize/InputFormatKeys.h"

#include <algorithm>
#include <limits>

namespace tavvel {

namespace {

// The layout choices of a sample of quoted fields: comma-separated and semicolon-separated.
constexpr int kCsvChoice = 5;
constexpr int kSsvChoice = 7;

struct Recognised {
    std::size_t at = 0;
    std::int64_t length = 0;
    char delimiter = '/';
};

// A dash date may be the numbers of a date whose month is a word; the word-month reading wins
// when it starts at the same place and covers more.
std::optional<Recognised> recogniseDate(std::string_view selection, const Configuration& config) {
    std::int64_t length = 0;
    if (auto at = findDateSlash(selection, length))
        return Recognised{*at, length, '/'};
    if (auto at = findDateDash(selection, length)) {
        std::int64_t wordLength = 0;
        auto word = findDateLong(selection, wordLength, config);
        if (word && *word == *at && wordLength > length)
            return Recognised{*word, wordLength, ','};
        return Recognised{*at, length, '-'};
    }
    if (auto at = findDateDot(selection, length))
        return Recognised{*at, length, '.'};
    if (auto at = findDateLong(selection, length, config))
        return Recognised{*at, length, ','};
    if (auto at = findDateEightDigits(selection, length))
        return Recognised{*at, length, fmtkey::eightDigitDate};
    return std::nullopt;
}

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

// The selection must be the date alone: a reading run looks for the characters around it.
bool justADate(std::string_view selection, const std::optional<Recognised>& date) {
    if (!date || date->length <= 0 || date->at != 0 || isBlank(selection.front()))
        return false;
    const auto end = static_cast<std::size_t>(date->length);
    return end >= selection.size() || !isBlank(selection[end]);
}

void putText(Dictionary& format, std::string_view key, std::string value) {
    format.insert_or_assign(std::string(key), Value(std::move(value)));
}

} // namespace

int guessLayout(const std::vector<std::string_view>& transactions, std::int64_t& maxFieldCount,
                bool dateAfterQuote) {
    std::size_t fewest = std::numeric_limits<std::size_t>::max(), most = 0;
    std::optional<std::size_t> nonEmptyPieces;
    bool sameNonEmpty = true, tabBeforeBlank = false;
    for (std::string_view line : transactions) {
        std::size_t pieces = 1, nonEmpty = 0, pieceLength = 0;
        for (std::size_t i = 0; i < line.size(); ++i) {
            const char c = line[i];
            if (c != '\t' && c != '\n' && c != '\r') {
                ++pieceLength;
                continue;
            }
            tabBeforeBlank |= c == '\t' && i + 1 < line.size() && line[i + 1] == ' ';
            nonEmpty += pieceLength > 0;
            pieceLength = 0;
            ++pieces;
        }
        nonEmpty += pieceLength > 0;
        fewest = std::min(fewest, pieces);
        most = std::max(most, pieces);
        if (nonEmptyPieces && *nonEmptyPieces != nonEmpty)
            sameNonEmpty = false;
        nonEmptyPieces = nonEmpty;
    }
    maxFieldCount = static_cast<std::int64_t>(most);
    if (const std::optional<char> separator = quotedFieldSeparator(transactions, dateAfterQuote))
        return *separator == ',' ? kCsvChoice : kSsvChoice;
    if (nonEmptyPieces && sameNonEmpty && *nonEmptyPieces >= 1 && fewest != most)
        return 2;
    return tabBeforeBlank ? 0 : 1;
}

void LearnFormat::ok1() {
    if (stage_ != Stage::date)
        return;
    const std::optional<TextSelection> selection = dateForm_.dateSelection;
    if (selection && selection->start == 0)
        return refuse(text::badDateTitle, text::dateAtTextStart);
    if (!selection || selection->length == 0)
        return refuse(text::badDateTitle, text::noDateSelected);
    const LearnDateForm::StatementType& type = dateForm_.type();
    if (type.title == fmtkey::Investment && checkSecurities && !checkSecurities())
        return formatBad();

    Dictionary format{{std::string(fmtkey::Name), Value(formatName_)},
                      {std::string(fmtkey::FormatType), Value(type.title)},
                      {std::string(fmtkey::Match), Value(dateForm_.selectedMatch())}};
    if (dateForm_.firstLineStartsWithTransactionDate)
        format.emplace(fmtkey::firstLineStartsWithTransactionDate, Value(true));
    const std::string_view date = dateForm_.selectedDate();
    const std::optional<Recognised> recognised = recogniseDate(date, ctx_.config);
    if (!justADate(date, recognised))
        return refuse(text::badDateTitle, text::notJustADate);

    layoutForm_.layout.oneTransactionPerLine = false;
    measureDate(format, *selection, recognised->delimiter);
    extract_.splitTextIntoLines(textAsRead(extract_.inputCsave, format), format);
    // The text asks for two transactions, yet one is enough to learn from.
    if (extract_.transactionsAsLines.empty())
        return refuse(text::notEnoughTransactionsTitle, text::notEnoughTransactions);

    layoutForm_.layout.choice = guessLayout(extract_.transactionsAsLines, maxFieldCount_,
                                            textOf(format, fmtkey::DateStart) == "\"");
    format_ = std::move(format);
    layoutForm_.refresh();
    layoutForm_.title = formatMessage(text::learnTitle, {type.title, formatName_});
    stage_ = Stage::layout;
    backPushFormatOnlyForWindow(Stage::layout);
}

void LearnFormat::measureDate(Dictionary& format, const TextSelection& selection, char delimiter) {
    const std::string_view view = dateForm_.dateView;
    const std::size_t end = selection.start + selection.length;
    const std::size_t lineEnd = view.find_last_of("\n\r", selection.start - 1);
    const std::size_t lineStart = lineEnd == std::string_view::npos ? 0 : lineEnd + 1;
    extract_.distanceFromNewline = static_cast<std::int64_t>(selection.start - lineStart) + 1;
    putText(format, fmtkey::DateStart, std::string(1, view[selection.start - 1]));
    putText(format, fmtkey::DateEnd, end < view.size() ? std::string(1, view[end]) : "");
    putText(format, fmtkey::DateDelimiter, std::string(1, delimiter));
    if (dateForm_.dayBeforeMonth)
        format.insert_or_assign(std::string(fmtkey::DayBeforeMonth), Value(true));
}

} // namespace tavvel
