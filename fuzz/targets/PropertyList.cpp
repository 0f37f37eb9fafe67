// Property-list decoding (XML and binary) of any bytes: what decodes must survive the round
// trip every saved file makes, written out and read back to the same text.
#include "prefs/PropertyList.h"

#include "../FuzzSupport.h"
#include "../Targets.h"

namespace tavvel::fuzz {

int propertyList(const std::uint8_t* data, std::size_t size) {
    auto bytes = capped(data, size);
    if (!bytes)
        return 0;
    std::string error;
    std::optional<Value> value = decodePropertyList(*bytes, &error);
    if (!value)
        return 0;
    // Compared as text, since a real that is not a number never equals itself.
    std::string written = encodePropertyList(*value);
    std::optional<Value> reread = decodePropertyList(written, &error);
    check(reread.has_value(), "a written property list does not read back", error);
    check(encodePropertyList(*reread) == written, "a property list changed in a round trip",
          written.substr(0, 400));
    return 0;
}

} // namespace tavvel::fuzz
