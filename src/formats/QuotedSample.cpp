#include "formats/QuotedSample.h"

#include <cstddef>

namespace tavvel {

namespace {

bool isLineEnd(char c) {
    return c == '\n' || c == '\r';
}

// Reads records of quoted fields; the first deviation ends the reading with false.
class QuotedRecords {
public:
    bool read(std::string_view text, bool opened);
    std::optional<char> separator;

private:
    bool field(bool opened, bool recordStart);
    bool afterField(std::size_t& fields);

    std::string_view text_;
    std::size_t i_ = 0;
};

// Past the closing quote of a field whose opening quote is behind i_; a doubled quote inside
// stands for one, and line ends inside belong to the field.
bool closeQuote(std::string_view text, std::size_t& i) {
    for (;;) {
        const std::size_t quote = text.find('"', i);
        if (quote == std::string_view::npos)
            return false;
        i = quote + 1;
        if (i >= text.size() || text[i] != '"')
            return true;
        ++i;
    }
}

bool QuotedRecords::field(bool opened, bool recordStart) {
    if (opened)
        return closeQuote(text_, i_);
    if (i_ < text_.size() && text_[i_] == '"')
        return closeQuote(text_, ++i_);
    // Only a field between separators may be left empty.
    return !recordStart &&
           (i_ == text_.size() || isLineEnd(text_[i_]) || text_[i_] == ',' || text_[i_] == ';');
}

// After a field: a separator (true, the record goes on), or the record's end.
bool QuotedRecords::afterField(std::size_t& fields) {
    ++fields;
    if (i_ == text_.size() || isLineEnd(text_[i_]))
        return false;
    const char c = text_[i_];
    if ((c != ',' && c != ';') || (separator && *separator != c)) {
        fields = 0; // a deviation: no record of two fields
        return false;
    }
    separator = c;
    ++i_;
    return true;
}

bool QuotedRecords::read(std::string_view text, bool opened) {
    text_ = text;
    i_ = 0;
    while (i_ < text_.size()) {
        std::size_t fields = 0;
        bool more = true;
        while (more) {
            if (!field(opened && i_ == 0, fields == 0))
                return false;
            more = afterField(fields);
        }
        if (fields < 2)
            return false;
        while (i_ < text_.size() && isLineEnd(text_[i_]))
            ++i_;
    }
    return true;
}

} // namespace

std::optional<char> quotedFieldSeparator(const std::vector<std::string_view>& transactions,
                                         bool dateAfterQuote) {
    QuotedRecords records;
    for (std::string_view transaction : transactions) {
        const bool opened = dateAfterQuote && !transaction.empty() && transaction.front() != '"';
        if (!records.read(transaction, opened))
            return std::nullopt;
    }
    return records.separator;
}

} // namespace tavvel
