#pragma once
// What intake makes of a file's bytes before classification looks at them: text in UTF-16
// with a byte-order mark becomes UTF-8, a UTF-8 byte-order mark goes, and bytes that are no
// text at all are told apart from a statement.

#include <string>

namespace tavvel {

// Rewrites UTF-16 text that starts with a byte-order mark (either byte order) as UTF-8 and
// drops a leading UTF-8 byte-order mark; other bytes are left as they are.
void normaliseInputText(std::string& bytes);

// True when the bytes hold so many control characters that they cannot be a statement: random
// bytes, a program, a picture, a file of NUL bytes. Tab, line ends, form feed and the DOS end
// of file mark are text.
bool looksBinary(const std::string& bytes);

} // namespace tavvel
