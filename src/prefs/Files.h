#pragma once
// Whole-file reading and crash-safe whole-file writing.

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

// The file's bytes, or nothing when it cannot be opened or read, is a folder, or is larger
// than maxBytes.
std::optional<std::string> readWholeFile(const std::filesystem::path& path,
                                         std::size_t maxBytes = std::size_t{1} << 30);

// Writes the bytes to a temporary file in the same folder, flushes it to disk and renames it
// over the target, so the target is always either the old file or the new one, never a
// truncated mix. On failure the target is untouched, the temporary file is gone, and the
// reason is put in *error when given. A file replaced keeps its permissions; a new file gets
// the mode the umask leaves. A symbolic link is written through: its target is replaced, the
// link stays. A path naming a folder, a device or a pipe is refused and left alone.
bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes,
                         std::string* error = nullptr);

// Whether the path, links followed, names something that is there and is no regular file: a
// folder, a device, a pipe or a socket, which a whole-file write must never replace.
bool namesSomethingOtherThanAFile(const std::filesystem::path& path);

// Copies a file the same way: the copy is whole or absent, with the original's permissions.
bool copyFileAtomically(const std::filesystem::path& from, const std::filesystem::path& to,
                        std::string* error = nullptr);

// The name beside `file` that a damaged file is kept under: <file>.corrupt-<UTC time stamp>,
// with "-2", "-3"... when that is taken. `nowSeconds` counts from 1970-01-01 00:00 UTC.
std::filesystem::path asideName(const std::filesystem::path& file, double nowSeconds);

} // namespace tavvel
