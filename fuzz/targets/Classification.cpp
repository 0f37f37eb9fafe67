// A whole input as the program receives it: classified as OFX, QIF or free text, refused with
// a message or made ready for the run form; a ready run then goes to the end unattended,
// writing its output into a scratch folder. A refusal always says something, and a run that
// says it wrote its output left a file. Intake's decoding comes first, as for a file, and what
// it makes is UTF-8; the check for bytes that are no statement does not, so that junk still
// reaches classification.
#include "../FuzzSupport.h"
#include "../Targets.h"
#include "app/Controller.h"
#include "app/InputText.h"
#include "knowledge/Categories.h"
#include "recognize/TextEncoding.h"

namespace tavvel::fuzz {

int classification(const std::uint8_t* data, std::size_t size) {
    auto text = capped(data, size);
    if (!text)
        return 0;
    Scratch scratch;
    Context ctx = freshContext(scratch.path());
    // Without a category list every run stops at its first check, before any reader.
    Categories(ctx.prefs).createEmpty();
    BatchDialogs dialogs = silentDialogs((scratch.path() / "output.qif").string());
    Controller controller(ctx, dialogs);
    std::string bytes(*text);
    normaliseInputText(bytes);
    if (decodeEightBitText(bytes))
        check(isValidUtf8(bytes), "intake made text that is not UTF-8");
    Intake intake = controller.processText(std::move(bytes), "fuzz input");
    if (intake == Intake::refused) {
        check(!dialogs.messages().empty(), "an input refused without a message");
        check(!controller.processing(), "a refused input left a run under way");
        return 0;
    }
    if (intake != Intake::formReady)
        return 0;
    RunEnd end = controller.processTheTransactions();
    if (end == RunEnd::written)
        check(std::filesystem::exists(controller.outputFile()), "a written run left no file");
    return 0;
}

} // namespace tavvel::fuzz
