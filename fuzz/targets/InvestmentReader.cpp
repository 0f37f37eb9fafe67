// The investment OFX reader and walk over any text: every record is an error record with its
// message and text, or a transaction dated inside the range with readable magnitudes; the walk
// under --batch never waits, and writes one QIF record per transaction it counts.
#include "../FuzzSupport.h"
#include "../Targets.h"
#include "formats/OutputFormats.h"
#include "invest/InvestmentQIF.h"
#include "recognize/CalendarDate.h"

#include <cmath>

namespace tavvel::fuzz {

namespace {

void checkRecord(const InvestmentRecord& record) {
    if (!record.errorMessage.empty())
        return;
    for (double value : {record.amount, record.price, record.shares})
        check(std::isfinite(value) && value >= 0, "a number that is no magnitude", record.date);
    check(!record.date.empty() && !record.type.empty(), "a transaction without date or type");
}

} // namespace

int investmentReader(const std::uint8_t* data, std::size_t size) {
    auto text = capped(data, size);
    if (!text)
        return 0;
    Context ctx = freshContext();
    BatchDialogs dialogs = silentDialogs();
    OutputFormats writer(ctx, dialogs);
    InvestmentQIF engine(ctx, dialogs, writer);
    engine.fromOFX(*text, {day(2020, 1, 1), day(2024, 12, 31), "M/d/yyyy", std::nullopt});
    for (const InvestmentRecord& record : engine.qif)
        checkRecord(record);
    Dictionary format = configuration().dictionary(config::TvOFXFormat);
    std::string output;
    InvestmentWalkResult walked = engine.processInstructionsAndAppendToString(output, format, {});
    std::size_t ends = 0;
    for (std::size_t at = output.find("^\n"); at != std::string::npos;
         at = output.find("^\n", at + 2))
        ++ends;
    check(ends == walked.appended, "records written and counted differ");
    check(walked.appended + walked.unknownTypeCount + walked.unwritable <= engine.qif.size(),
          "more transactions accounted for than read");
    return 0;
}

} // namespace tavvel::fuzz
