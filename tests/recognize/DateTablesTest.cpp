#include "prefs/Configuration.h"
#include "recognize/ScanPattern.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>
#include <string>

namespace tavvel {
namespace {

// A sample date for a format: its first number becomes 15, the second 2024, the third 7.
std::string sampleFor(std::string_view format) {
    static const char* numbers[] = {"15", "2024", "7", "9"};
    std::string out;
    std::size_t used = 0;
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format.substr(i, 3) == "%ld") {
            out += numbers[std::min<std::size_t>(used++, 3)];
            i += 2;
        } else if (format.substr(i, 3) == "%ln") {
            i += 2;
        } else {
            out += format[i];
        }
    }
    return out;
}

// Each format must end in "%ln", read exactly its share of numbers, and take the whole of a
// date written in its own shape.
void expectReadsItsOwnShape(std::string_view format, int numbers) {
    SCOPED_TRACE(std::string(format));
    EXPECT_TRUE(format.ends_with("%ln"));
    std::string sample = sampleFor(format);
    ScanResult r = scan(sample, format);
    EXPECT_EQ(r.count, numbers);
    EXPECT_EQ(r.consumed, static_cast<std::int64_t>(sample.size()));
}

void expectWordMonthTable(std::string_view key, int numbers) {
    const Array& table = test::shippedConfiguration().array(key);
    ASSERT_FALSE(table.empty()) << key;
    for (const Value& entry : table) {
        ASSERT_TRUE(entry.isDictionary());
        const Value* month = find(entry.dictionary(), "month");
        ASSERT_TRUE(month && month->isInteger());
        EXPECT_GE(month->toInteger(), 1);
        EXPECT_LE(month->toInteger(), 12);
        expectReadsItsOwnShape(textOf(entry.dictionary(), "format"), numbers);
    }
}

TEST(DateTables, EveryEntryHasTheShapeItsTableRequires) {
    expectWordMonthTable(config::TvLongDateFormats, 2);
    expectWordMonthTable(config::TvLongDateNoYearFormats, 1);
    const Configuration& config = test::shippedConfiguration();
    for (const std::string& f : config.strings(config::TvShortDateFormats))
        expectReadsItsOwnShape(f, 3);
    for (const std::string& f : config.strings(config::TvAfterLongMonth))
        expectReadsItsOwnShape(f, 2);
    std::vector<std::string> months = config.strings(config::TvLongMonths);
    ASSERT_EQ(months.size() % 12, 0u);
    ASSERT_FALSE(months.empty());
    EXPECT_EQ(months[0], "January");
    EXPECT_EQ(months[11], "December");
}

// A word-month format that ends in a month word must come after any longer word it begins,
// or "31 January" would be found as the shorter "31 Jan".
TEST(DateTables, LongerMonthWordsComeFirst) {
    for (std::string_view key : {config::TvLongDateFormats, config::TvLongDateNoYearFormats}) {
        const Array& table = test::shippedConfiguration().array(key);
        auto shape = [&](std::size_t i) {
            std::string f = textOf(table[i].dictionary(), "format");
            return f.substr(0, f.size() - 3); // without its "%ln"
        };
        for (std::size_t i = 0; i < table.size(); ++i) {
            std::string earlier = shape(i);
            for (std::size_t j = i + 1; j < table.size(); ++j) {
                std::string later = shape(j);
                EXPECT_FALSE(later.size() > earlier.size() && later.starts_with(earlier))
                    << earlier << " before " << later;
            }
        }
    }
}

} // namespace
} // namespace tavvel
