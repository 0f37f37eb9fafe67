// The investment run of an OFX or QFX statement: read through the stored OFX investment
// format, walked by the investment engine, and ended like any run, with a word on what was
// left out.

#include "app/Controller.h"
#include "context/Context.h"
#include "invest/InvestmentQIF.h"
#include "invest/OfxInvestmentFormat.h"

namespace tavvel {

RunEnd Controller::processInvestmentOFX(Date from, Date to) {
    Dictionary format = ofxInvestmentFormat(ctx_.prefs, ctx_.config);
    InvestmentQIF engine(ctx_, dialogs_, writer_);
    engine.fromOFX(fileAsString_, {from, to, ctx_.output.longDatePattern(),
                                   form_.choosesInputAccount() ? account_ : std::nullopt});
    InvestmentWalkResult walked = engine.processInstructionsAndAppendToString(
        outputFileAsString_, format, {runOutputDate_, runOutputNumber_, markAsCleared_});
    closingNote_ = closingNote(walked);
    return processInstructionsDidEnd(WalkResult{walked.appended, std::nullopt});
}

} // namespace tavvel
