// A QIF file as classification reads it: the list importer takes the list sections at the
// front, then the QIF reader reads the transactions after them. The lists land in a store in
// memory; every record kept is dated inside the range.
#include "../FuzzSupport.h"
#include "../Targets.h"
#include "app/ImportQuickenExport.h"
#include "bank/BankingCreditCardQIF.h"
#include "recognize/FindLines.h"

namespace tavvel::fuzz {

int qifReader(const std::uint8_t* data, std::size_t size) {
    auto text = capped(data, size);
    if (!text)
        return 0;
    Context ctx = freshContext();
    BatchDialogs dialogs = silentDialogs();
    std::vector<std::string> lines = findLines(*text);
    std::vector<std::string_view> views(lines.begin(), lines.end());
    std::size_t start = 0;
    int result = ImportQuickenExport(ctx.prefs, dialogs).process(views, start, "fuzz input");
    check(result >= ImportQuickenExport::kMalformed && result < 16, "an unknown import result");
    if (result == ImportQuickenExport::kMalformed)
        check(dialogs.messages().empty(), "a malformed list asked something before refusing");
    check(start <= lines.size(), "the transactions start after the last line");
    if (result > 0)
        lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(start));
    BankingCreditCardQIF reader(ctx);
    Date from = day(2020, 1, 1), to = day(2024, 12, 31);
    std::size_t badLine = reader.fromQIFLines(lines, from, to);
    check(badLine <= lines.size(), "an unreadable date on a line that does not exist");
    for (const TransactionRecord& read : reader.records()) {
        Dictionary record = read.toDictionary();
        checkDateInRange(ctx, record, from, to);
        auto once = reader.normalizeQIFAmountIn(record);
        check(once == reader.normalizeQIFAmountIn(record), "an amount normalised twice changed");
    }
    return 0;
}

} // namespace tavvel::fuzz
