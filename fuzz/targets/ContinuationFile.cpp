// A continuation file holding any bytes, read as a finish-later record: either a dictionary
// or a status saying why not, never a half-read value. Opened as the program opens it, the
// file is refused with a message, or resumed and taken to the end unattended; a resumed walk
// never starts outside its transactions.
#include "../FuzzSupport.h"
#include "../Targets.h"
#include "app/Controller.h"
#include "knowledge/Categories.h"
#include "prefs/PropertyList.h"

namespace tavvel::fuzz {

namespace {

void openAndResume(const std::filesystem::path& file, const std::filesystem::path& folder) {
    Context ctx = freshContext(folder);
    Categories(ctx.prefs).createEmpty();
    BatchDialogs dialogs = silentDialogs((folder / "output.qif").string());
    Controller controller(ctx, dialogs);
    Intake intake = controller.actuallyProcessFile(file.string());
    if (intake == Intake::refused) {
        check(!dialogs.messages().empty(), "a continuation refused without a message");
        check(!controller.resumesRun(), "a refused continuation is still held");
        return;
    }
    check(controller.resumesRun(), "a .tvcn file opened as something else");
    if (intake == Intake::formReady)
        controller.processTheTransactions();
}

} // namespace

int continuationFile(const std::uint8_t* data, std::size_t size) {
    auto bytes = capped(data, size);
    if (!bytes)
        return 0;
    Scratch scratch;
    std::filesystem::path file = scratch.write("statement.tvcn", *bytes);
    PlistRead read = readPropertyListFile(file);
    if (read.ok())
        check(read.value.isDictionary(), "a continuation record that is not a dictionary");
    else
        check(read.value.dictionary().empty() && read.value.array().empty(),
              "a refused continuation file left a value behind");
    check(read.status != PlistReadStatus::Missing, "a file that exists read as missing");
    openAndResume(file, scratch.path());
    return 0;
}

} // namespace tavvel::fuzz
