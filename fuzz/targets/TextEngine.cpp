// The input-format engine over any text, through one of the sample formats (picked by the
// first byte): every transaction handed out is an error of three fields or carries a date
// inside the range; it hands out each transaction at most once, so a run always ends. The
// learning dialogue's preview is then built from the same text with each layout choice.
#include "../FuzzSupport.h"
#include "../SampleFormats.h"
#include "../Targets.h"
#include "formats/Extract.h"
#include "recognize/CalendarDate.h"

namespace tavvel::fuzz {

namespace {

void checkHandedOut(const Context& ctx, const std::vector<std::string>& fields, Date from,
                    Date to) {
    if (!fields.empty() && fields.front() == "ERROR") {
        check(fields.size() == 3 && !fields[1].empty(), "an error that is not three fields");
        return;
    }
    check(!fields.empty(), "a transaction without fields");
    // The sample formats keep their dates in the first field.
    auto date = parseDateWithPattern(fields.front(), ctx.output.longDatePattern());
    check(date.has_value(), "a handed-out date that does not read back", fields.front());
    check(*date >= from && *date <= to, "a transaction dated outside the range", fields.front());
}

void readAll(std::string_view text, const Dictionary& format) {
    Context ctx = freshContext();
    Extract engine(ctx);
    if (!engine.parseTransactionsForCString(text, format))
        return;
    Date from = day(2020, 1, 1), to = day(2024, 12, 31);
    std::size_t handedOut = 0;
    while (const auto* fields = engine.nextTransactionUsingFormat(format, from, to)) {
        check(++handedOut <= engine.transactionsAsLines.size(),
              "more transactions handed out than the text was cut into");
        checkHandedOut(ctx, *fields, from, to);
    }
}

void preview(std::string_view text, Dictionary format) {
    Context ctx = freshContext();
    Extract engine(ctx);
    engine.splitTextIntoLines(text, format);
    engine.inputCsave = std::string(text);
    for (int choice = 0; choice < 8; ++choice) {
        engine.parseFields(LayoutChoice{choice, choice % 2 == 0, choice % 3 == 0}, format);
        check(engine.previewColumns >= 0, "a preview with a negative number of columns");
    }
}

} // namespace

int textEngine(const std::uint8_t* data, std::size_t size) {
    auto input = capped(data, size);
    auto formatted = input ? formattedInput(*input) : std::nullopt;
    if (!formatted)
        return 0;
    readAll(formatted->text, *formatted->format);
    preview(formatted->text, *formatted->format);
    return 0;
}

} // namespace tavvel::fuzz
