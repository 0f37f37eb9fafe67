#pragma once
// What intake makes of a file's bytes before classification looks at them: whatever encoding
// the file was saved in, the text becomes UTF-8, the one form the program keeps text in; and
// bytes that are no statement at all are told apart.

#include <string>

namespace tavvel {

// Rewrites UTF-16 as UTF-8: with a byte-order mark (either byte order), or without one when
// NUL bytes stand where Western text in UTF-16 has them. A leading UTF-8 byte-order mark is
// dropped; other bytes are left as they are.
void normaliseInputText(std::string& bytes);

// True when the bytes hold so many control characters that they cannot be a statement: random
// bytes, a program, a picture, a file of NUL bytes. Tab, line ends, form feed and the DOS end
// of file mark are text.
bool looksBinary(const std::string& bytes);

// Bytes that are not UTF-8 are read as Windows-1252 (and so Latin-1), the encoding of 8-bit
// Western statements, and rewritten as UTF-8. False, leaving them as they are, when so many
// of them are 8-bit that no such encoding explains them.
bool decodeEightBitText(std::string& bytes);

// The whole intake of a file's bytes: rewritten as UTF-8, or false when they do not appear to
// be a statement (mostly control bytes, or not decodable as text).
bool takeInStatementText(std::string& bytes);

} // namespace tavvel
