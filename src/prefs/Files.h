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
// the mode the umask leaves.
bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes,
                         std::string* error = nullptr);

// Copies a file the same way: the copy is whole or absent, with the original's permissions.
bool copyFileAtomically(const std::filesystem::path& from, const std::filesystem::path& to,
                        std::string* error = nullptr);

} // namespace tavvel
