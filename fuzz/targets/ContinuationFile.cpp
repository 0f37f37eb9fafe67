// A continuation file holding any bytes, read as a finish-later record: either a dictionary
// or a status saying why not, never a half-read value.
#include "../FuzzSupport.h"
#include "../Targets.h"
#include "prefs/PropertyList.h"

namespace tavvel::fuzz {

int continuationFile(const std::uint8_t* data, std::size_t size) {
    auto bytes = capped(data, size);
    if (!bytes)
        return 0;
    Scratch scratch;
    PlistRead read = readPropertyListFile(scratch.write("statement.tvcn", *bytes));
    if (read.ok())
        check(read.value.isDictionary(), "a continuation record that is not a dictionary");
    else
        check(read.value.dictionary().empty() && read.value.array().empty(),
              "a refused continuation file left a value behind");
    check(read.status != PlistReadStatus::Missing, "a file that exists read as missing");
    return 0;
}

} // namespace tavvel::fuzz
