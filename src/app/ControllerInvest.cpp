// The investment run of an OFX or QFX statement: read through the stored OFX investment
// format, walked by the investment engine, and ended like any run, with a word on what was
// left out.

#include "app/AppTexts.h"
#include "app/Controller.h"
#include "context/Context.h"
#include "formats/Extract.h"
#include "invest/InvestmentContinuation.h"
#include "invest/InvestmentQIF.h"
#include "invest/OfxInvestmentFormat.h"
#include "knowledge/Formats.h"

#include <algorithm>

namespace tavvel {

RunEnd Controller::processInvestmentOFX(Date from, Date to) {
    Dictionary format = ofxInvestmentFormat(ctx_.prefs, ctx_.config);
    InvestmentQIF engine(ctx_, dialogs_, writer_);
    engine.fromOFX(fileAsString_, {from, to, ctx_.output.longDatePattern(),
                                   form_.choosesInputAccount() ? account_ : std::nullopt});
    // Transactions of which not one can be read: the statement is not understood at all.
    if (!engine.qif.empty() &&
        std::all_of(engine.qif.begin(), engine.qif.end(),
                    [](const InvestmentRecord& record) { return !record.errorMessage.empty(); })) {
        statusAlert(text::invalidOfxTitle, text::invalidOfx, source_);
        return RunEnd::stopped;
    }
    InvestmentWalkResult walked = engine.processInstructionsAndAppendToString(
        outputFileAsString_, format, {runOutputDate_, runOutputNumber_, markAsCleared_});
    closingNote_ = closingNote(walked);
    return processInstructionsDidEnd(WalkResult{walked.appended, std::move(walked.continuation)});
}

// Investment text read through its input format, which learns the type and security
// mappings of the walk.
RunEnd Controller::processInvestmentText(Date from, Date to) {
    std::optional<Dictionary> format = Formats(ctx_.prefs).formatForName(form_.inputFormatName);
    if (!format) {
        doneWithFile();
        return RunEnd::stopped;
    }
    InvestmentQIF engine(ctx_, dialogs_, writer_);
    if (!engine.fromFormattedText(textAsRead(fileAsString_, *format), *format, from, to)) {
        statusAlert(text::invalidFormatTitle, text::invalidFormat, source_);
        return RunEnd::stopped;
    }
    InvestmentWalkResult walked = engine.processInstructionsAndAppendToString(
        outputFileAsString_, *format, {runOutputDate_, runOutputNumber_, markAsCleared_});
    closingNote_ = closingNote(walked);
    return processInstructionsDidEnd(WalkResult{walked.appended, std::move(walked.continuation)});
}

// The stopped walk goes on with the format it learned into, which the store may have lost.
RunEnd Controller::resumeInvestment() {
    const Value* kept = find(*continuationData_, icontkey::format);
    Dictionary format = kept && kept->isDictionary() ? kept->dictionary()
                                                     : ofxInvestmentFormat(ctx_.prefs, ctx_.config);
    InvestmentQIF engine(ctx_, dialogs_, writer_);
    InvestmentWalkResult walked =
        engine.continueWith(*continuationData_, outputFileAsString_, format,
                            {runOutputDate_, runOutputNumber_, markAsCleared_});
    closingNote_ = closingNote(walked);
    return processInstructionsDidEnd(WalkResult{walked.appended, std::move(walked.continuation)});
}

} // namespace tavvel
