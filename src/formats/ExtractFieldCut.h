#pragma once
// Private to the input-format engine: cutting one field out of a transaction's working copy,
// shared by the reading run and the learning dialogue's preview.

#include "prefs/Value.h"
#include "recognize/BlankCounts.h"
#include "recognize/FindField.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tavvel::extract {

enum class CutStatus {
    ok,
    unclosedQuote,   // a quoted "SV" field that no double quote closes
    endsBeforeStart, // the field's end lies before its start
};

// One field: its text is [start, end) of the working copy, without the blanks, separator and
// quotes that surround it.
struct Cut {
    CutStatus status = CutStatus::ok;
    std::size_t start = 0;
    std::size_t end = 0;
    std::size_t next = 0; // where the next field begins; the copy's size when none does
    bool quoted = false;  // doubled double quotes inside stand for one
};

class FieldCutter {
public:
    FieldCutter(const Dictionary& format, BlankCounts& blanks);

    // The field at pos. Line ends inside it become blanks in the copy, and a "CSV" copy may
    // lose a blank after its quoted last field.
    Cut cut(std::string& text, std::size_t pos) const { return cut(text, pos, true); }
    // The same for a caller that knows whether the text holds line ends at all.
    Cut cut(std::string& text, std::size_t pos, bool mayHoldLineEnds) const;

    // The part of a transaction that is cut into fields: in a comma or semicolon layout the
    // line ends after the last field end the record rather than belong to that field.
    std::string_view withoutRecordEnd(std::string_view transaction) const;

    // "OFX": a date of eight characters and the rest, without cutting.
    bool ofxLike() const { return ofxLike_; }
    // The layout's name, for the message about a bad quoted field.
    const std::string& layout() const { return fieldLayout_.name; }

private:
    void separatedBounds(const std::string& text, Cut& c) const;

    FieldLayout fieldLayout_;
    BlankCounts& blanks_;
    bool separated_ = false;
    char separator_ = '\0'; // dropped from the end of the last field
    bool ofxLike_ = false;
};

// The field's text, a doubled double quote of a quoted field read as one.
std::string fieldText(std::string_view text, const Cut& cut);

} // namespace tavvel::extract
