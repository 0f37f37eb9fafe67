#pragma once
// Private to the input-format engine: what a reading run takes from its input format once,
// rather than for every transaction of a statement.

#include "formats/ExtractFieldCut.h"
#include "prefs/Value.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tavvel {
class Context;
}

namespace tavvel::extract {

// Reading date fields and writing them in the run's long output date format. A statement
// repeats its dates, so each date met is turned into an instant and written once.
class DateReader {
public:
    DateReader(const Dictionary& format, Context& ctx);

    // The day the field names, or nothing when it is not a date of this format.
    std::optional<Date> read(std::string_view field);
    const std::string& written(Date date);

private:
    std::optional<Date> readAnew(std::string_view field);

    Dictionary keys_; // the format's date keys alone, quick to look up
    Context& ctx_;
    // Fields are read once each: the same few hundred date texts come back line after line.
    std::unordered_map<std::string, std::optional<Date>, TextHash, SameText> fields_;
    std::map<std::array<std::int64_t, 3>, Date> days_;
    std::map<double, std::string> written_;
    std::optional<std::string> prefix_; // the date prefix pattern_ was made from
    std::string pattern_;
};

struct RunFormat {
    RunFormat(const Dictionary& format, Context& ctx);

    FieldCutter cutter;
    DateReader dates;
    std::int64_t dateIndex = 0;
    bool ofxLike = false;
};

} // namespace tavvel::extract
