// An input format file holding any bytes: either a format record that names itself, or a
// reason for the user, never both and never neither.
#include "../FuzzSupport.h"
#include "../Targets.h"
#include "knowledge/FormatFiles.h"

namespace tavvel::fuzz {

int formatFile(const std::uint8_t* data, std::size_t size) {
    auto bytes = capped(data, size);
    if (!bytes)
        return 0;
    Scratch scratch;
    FormatFileRead read = readFormatFile(scratch.write("format.tvfm", *bytes));
    check(read.record.has_value() != !read.problem.empty(),
          "a format file read both or neither a record and a reason");
    if (read.record) {
        const Value* name = find(*read.record, "Name");
        check(name && name->isString(), "a format record without a name");
    }
    return 0;
}

} // namespace tavvel::fuzz
