// The OFX reader over any text: every record it keeps is either an error record carrying both
// error keys or a transaction dated inside the range asked for.
#include "../FuzzSupport.h"
#include "../Targets.h"
#include "bank/BankingCreditCardQIF.h"
#include "formats/TransactionKeys.h"

namespace tavvel::fuzz {

int ofxReader(const std::uint8_t* data, std::size_t size) {
    auto text = capped(data, size);
    if (!text)
        return 0;
    Context ctx = freshContext();
    BankingCreditCardQIF reader(ctx);
    Date from = day(2020, 1, 1), to = day(2024, 12, 31);
    reader.fromOFX(*text, from, to);
    check(reader.currentTransactionIndex() == 0,
          "the walk does not start at the first record read");
    for (const TransactionRecord& read : reader.records()) {
        Dictionary record = read.toDictionary();
        if (find(record, txkey::errorMessage) || find(record, txkey::errorText)) {
            checkErrorRecord(record);
            continue;
        }
        checkDateInRange(ctx, record, from, to);
        check(find(record, txkey::amount) != nullptr, "a transaction without an amount");
        auto once = reader.normalizeQIFAmountIn(record);
        check(once == reader.normalizeQIFAmountIn(record), "an amount normalised twice changed");
    }
    return 0;
}

} // namespace tavvel::fuzz
