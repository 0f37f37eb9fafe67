#pragma once
// A table of scan formats for dates whose month is a word (TvLongDateFormats or
// TvLongDateNoYearFormats), read from the configuration, with an index by the text each
// format must meet first. Trying every format at every position of a statement is what makes a
// long-date search slow; the index leaves, at most positions, nothing to try.

#include "prefs/Configuration.h"
#include "recognize/ScanPattern.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tavvel {

struct WordMonthFormat {
    std::string_view format;
    std::int64_t month = 0;
};

// The table's entries in order, as views into the configuration. Entries that are not
// dictionaries are left out; a missing format reads as an empty one, which matches nothing.
std::vector<WordMonthFormat> readWordMonthFormats(const Configuration& config,
                                                  std::string_view key);

// Working space for one search through one text, reused from position to position.
struct WordMonthScratch {
    RunMemo memo;
    std::vector<std::size_t> candidates;
};

class WordMonthTable {
public:
    // Views into the configuration: the table lives no longer than the configuration's entries.
    WordMonthTable(const Configuration& config, std::string_view key);

    const std::vector<WordMonthFormat>& formats() const { return formats_; }
    bool empty() const { return formats_.empty(); }

    // Whether any format may match at a position holding c; numberTried as for candidates.
    // Most positions of a statement fail this, and the search passes them by at once.
    bool mayStartAt(char c, bool numberTried) const {
        const auto byte = static_cast<unsigned char>(c);
        return isSpaceByte(c) || literalStart_[byte] || (!numberTried && numberStart_[byte]);
    }

    // The indexes of the formats that could match at pos, in table order (kept in the
    // scratch). A format left out is certain not to match there; one listed may still fail.
    // With numberTried, the formats that start with a number are left out: the caller tried
    // them one digit earlier in the same number, where they read the same count of numbers.
    const std::vector<std::size_t>& candidates(std::string_view text, std::size_t pos,
                                               WordMonthScratch& scratch,
                                               bool numberTried = false) const;

private:
    // Where a format's first literal text must stand: at the position itself, or (after white
    // space in the format) past any white space there; or after a leading number, right after
    // it or past white space. Formats the index cannot judge are tried everywhere.
    enum Row : std::size_t {
        startsWith,
        startsAfterSpace,
        afterNumber,
        afterNumberAndSpace,
        afterAnyNumber,
        always,
        rowCount
    };
    static constexpr std::size_t kLiteralRows = afterAnyNumber;

    struct Anchor {
        Row row = always;
        std::string_view literal; // for the rows up to kLiteralRows
    };
    // Where each literal row's anchor lies in the text, for one position.
    using AnchorPositions = std::array<std::size_t, kLiteralRows>;

    // The formats of one row whose literals start with one byte, in table order, and the bytes
    // their literals go on with: most text fails at the second byte.
    struct Bucket {
        std::vector<std::size_t> formats;
        std::bitset<256> second;
        bool shortLiteral = false; // some literal has no second byte
    };

    Anchor classify(std::string_view format);
    void add(std::size_t index, const Anchor& anchor);
    const Bucket* bucketFor(Row row, char byte) const;
    int collect(Row row, char byte, std::string_view text, const AnchorPositions& at,
                std::vector<std::size_t>& out) const;

    std::vector<WordMonthFormat> formats_;
    std::vector<std::string_view> literals_; // each format's anchor literal
    // Buckets of each literal row by the first byte of their literal; the one bucket of each
    // other row under byte 0. A slot holds the bucket's index plus one, 0 for none.
    std::vector<Bucket> buckets_;
    std::array<std::uint16_t, rowCount * 256> bucketSlots_{};
    // The bytes at which a format may start with its literal text (every byte when the index
    // cannot judge some format), and those that may start a number.
    std::array<bool, 256> literalStart_{};
    std::array<bool, 256> numberStart_{};
};

// Both word-month tables, read once for a run of searches (through one statement, say) so that
// a search per transaction does not read the configuration every time. The configuration must
// outlive them.
struct WordMonthDates {
    explicit WordMonthDates(const Configuration& config)
        : withYear(config, config::TvLongDateFormats),
          withoutYear(config, config::TvLongDateNoYearFormats) {}

    WordMonthTable withYear;
    WordMonthTable withoutYear;
};

} // namespace tavvel
