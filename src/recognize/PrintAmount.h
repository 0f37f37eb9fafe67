#pragma once
// Writing an amount with a fixed number of decimals, exactly as printf's "%.*f" would.

#include <string>

namespace tavvel {

// Replaces `into` with the amount; precision 0 to 10. A statement prints one amount a
// transaction, so this avoids the general-purpose conversion whenever it can be exact.
void printFixed(std::string& into, double value, int precision);

} // namespace tavvel
