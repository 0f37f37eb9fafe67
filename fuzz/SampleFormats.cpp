#include "SampleFormats.h"

#include <cstdint>

namespace tavvel::fuzz {

namespace {

Value position(int index) {
    return Value(std::int64_t{index});
}

Dictionary bankFormat(const char* name, const char* fields, const char* delimiter,
                      const char* dateEnd) {
    return Dictionary{{"Name", Value(name)},      {"FormatType", Value("Bank")},
                      {"Fields", Value(fields)},  {"DateDelimiter", Value(delimiter)},
                      {"DateStart", Value("\n")}, {"DateEnd", Value(dateEnd)},
                      {"Date", position(0)},      {"Description", position(1)},
                      {"Credit", position(2)}};
}

Dictionary oneLine(Dictionary format) {
    format.insert_or_assign("OneTransactionPerLine", Value(true));
    return format;
}

std::vector<Dictionary> build() {
    std::vector<Dictionary> formats;
    formats.push_back(oneLine(bankFormat("CSV", "CSV", "/", ",")));
    Dictionary ssv = oneLine(bankFormat("SSV", "SSV", ".", ";"));
    ssv.insert_or_assign("DayBeforeMonth", Value(true));
    ssv.insert_or_assign("Debit/Credit", position(2));
    ssv.insert_or_assign("Indicator", position(3));
    ssv.insert_or_assign("DebitIndicator", Value("S"));
    formats.push_back(ssv);
    Dictionary tabs = oneLine(bankFormat("Tabs", "TABS_ONLY", "/", "\t"));
    tabs.insert_or_assign("Debit", position(3));
    tabs.insert_or_assign("InvertAmount", Value(true));
    formats.push_back(tabs);
    Dictionary words = bankFormat("Word months", "COUNT", ",", "\n");
    words.insert_or_assign("Memo", position(2));
    words.insert_or_assign("Credit", position(3));
    formats.push_back(words);
    formats.push_back(bankFormat("Blanks", "MULTIPLE_BLANKS", "-", " "));
    Dictionary columns = bankFormat("Columns", "COLUMNS", "/", " ");
    columns.insert_or_assign("DistanceFromNewline", position(3));
    formats.push_back(columns);
    formats.push_back(bankFormat("Initial blanks", "INITIAL_BLANKS", ".", " "));
    Dictionary ofx = bankFormat("OFX-like", "OFX", "/", "<");
    ofx.insert_or_assign("OFX", Value(true));
    ofx.insert_or_assign("DateAfter", Value("<DTPOSTED>"));
    formats.push_back(ofx);
    return formats;
}

} // namespace

const std::vector<Dictionary>& sampleFormats() {
    static const std::vector<Dictionary> formats = build();
    return formats;
}

std::optional<FormattedInput> formattedInput(std::string_view input) {
    if (input.empty())
        return std::nullopt;
    const auto& formats = sampleFormats();
    return FormattedInput{&formats[static_cast<unsigned char>(input.front()) % formats.size()],
                          input.substr(1)};
}

} // namespace tavvel::fuzz
