#include "prefs/Files.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <unistd.h>

namespace tavvel {

namespace {

bool fail(std::string* error, const std::string& what) {
    if (error)
        *error = what + ": " + std::strerror(errno);
    return false;
}

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

// The rename is only durable once the folder's entry is on disk too.
void syncFolder(const std::filesystem::path& folder) {
    int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

} // namespace

std::optional<std::string> readWholeFile(const std::filesystem::path& path, std::size_t maxBytes) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return std::nullopt;
    std::string bytes;
    // Sized once: grown by doubling, a statement's text would hold up to twice its size.
    std::error_code error;
    if (auto size = std::filesystem::file_size(path, error); !error && size <= maxBytes)
        bytes.reserve(static_cast<std::size_t>(size));
    char buffer[65536];
    while (in.read(buffer, sizeof buffer) || in.gcount() > 0) {
        bytes.append(buffer, static_cast<std::size_t>(in.gcount()));
        if (bytes.size() > maxBytes)
            return std::nullopt;
    }
    if (in.bad())
        return std::nullopt;
    return bytes;
}

bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes,
                         std::string* error) {
    std::string temp = path.string() + ".tmp-XXXXXX";
    int fd = ::mkstemp(temp.data());
    if (fd < 0)
        return fail(error, "cannot create a temporary file beside " + path.string());
    bool ok = writeAll(fd, bytes) && ::fsync(fd) == 0;
    ok = (::close(fd) == 0) && ok;
    if (!ok || ::rename(temp.c_str(), path.c_str()) != 0) {
        int saved = errno;
        ::unlink(temp.c_str());
        errno = saved;
        return fail(error, "cannot write " + path.string());
    }
    syncFolder(path.parent_path());
    return true;
}

} // namespace tavvel
