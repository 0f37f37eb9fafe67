#include "prefs/Files.h"

#include <atomic>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <fstream>
#include <limits>
#include <random>
#include <signal.h>
#include <sys/stat.h>
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

// A new file beside the target, created as open() creates files, so that the umask decides
// its mode (mkstemp would make every new file private). The name is unique to this call.
int createTemporaryBeside(const std::filesystem::path& path, std::string& temp) {
    static std::atomic<unsigned> counter{0};
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        temp = path.string() + ".tmp-" + std::to_string(::getpid()) + "-" +
               std::to_string(counter++) + "-" + std::to_string(random() % 1000000);
        int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST)
            return fd;
    }
    return -1;
}

bool isDigits(std::string_view text, std::size_t most) {
    return !text.empty() && text.size() <= most &&
           text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Whether a process with this id is still running; a temporary it made is its own to rename
// or remove.
bool isRunning(std::string_view pid) {
    long long id = std::stoll(std::string(pid));
    if (id <= 0 || id > std::numeric_limits<pid_t>::max())
        return false;
    return ::kill(static_cast<pid_t>(id), 0) == 0 || errno != ESRCH;
}

// Whether a name beside the target is one of the temporaries createTemporaryBeside makes for
// it, "<target>.tmp-<pid>-<count>-<random>", left by a process that is gone.
bool isAbandonedTemporary(std::string_view name, std::string_view target) {
    if (!name.starts_with(target) || !name.substr(target.size()).starts_with(".tmp-"))
        return false;
    std::string_view rest = name.substr(target.size() + 5);
    std::size_t first = rest.find('-');
    if (first == std::string_view::npos)
        return false;
    std::size_t second = rest.find('-', first + 1);
    if (second == std::string_view::npos)
        return false;
    std::string_view pid = rest.substr(0, first);
    return isDigits(pid, 10) && isDigits(rest.substr(first + 1, second - first - 1), 10) &&
           isDigits(rest.substr(second + 1), 6) && !isRunning(pid);
}

// A write killed between creating its temporary and renaming it leaves the temporary behind;
// the next write to the same target removes those, and nothing else.
void removeAbandonedTemporaries(const std::filesystem::path& path) {
    std::error_code ec;
    std::filesystem::path folder = path.parent_path().empty() ? "." : path.parent_path();
    std::string target = path.filename().string();
    int saved = errno;
    for (std::filesystem::directory_iterator it(folder, ec), end; !ec && it != end;
         it.increment(ec)) {
        std::error_code kind;
        if (isAbandonedTemporary(it->path().filename().string(), target) &&
            it->is_regular_file(kind))
            ::unlink(it->path().c_str());
    }
    errno = saved;
}

// The file a path names once symbolic links are followed, so that a link is written through and
// stays a link; nothing for a chain of links that does not end.
std::optional<std::filesystem::path> followLinks(std::filesystem::path path) {
    for (int hops = 0; hops < 40; ++hops) {
        std::error_code ec;
        if (!std::filesystem::is_symlink(path, ec))
            return path;
        std::filesystem::path target = std::filesystem::read_symlink(path, ec);
        if (ec)
            return std::nullopt;
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    errno = ELOOP;
    return std::nullopt;
}

bool writeWithMode(const std::filesystem::path& path, std::string_view bytes,
                   std::optional<mode_t> mode, std::string* error) {
    removeAbandonedTemporaries(path);
    std::string temp;
    int fd = createTemporaryBeside(path, temp);
    if (fd < 0)
        return fail(error, "cannot create a temporary file beside " + path.string());
    bool ok = (!mode || ::fchmod(fd, *mode) == 0) && writeAll(fd, bytes) && ::fsync(fd) == 0;
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

} // namespace

std::optional<std::string> readWholeFile(const std::filesystem::path& path, std::size_t maxBytes) {
    // A folder opens for reading here and then reads as nothing: call it unreadable instead.
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec))
        return std::nullopt;
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return std::nullopt;
    std::string bytes;
    // Room for the whole file at once: growing by doubling would copy a big file several times
    // and hold twice its size at the peak. A file known to be too big is not read at all.
    if (auto size = std::filesystem::file_size(path, ec); !ec) {
        if (size > maxBytes)
            return std::nullopt;
        bytes.reserve(static_cast<std::size_t>(size));
    }
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

bool namesSomethingOtherThanAFile(const std::filesystem::path& path) {
    struct stat existing {};
    return ::stat(path.c_str(), &existing) == 0 && !S_ISREG(existing.st_mode);
}

bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes,
                         std::string* error) {
    auto target = followLinks(path);
    if (!target)
        return fail(error, "cannot follow the links of " + path.string());
    struct stat existing {};
    if (::stat(target->c_str(), &existing) != 0)
        return writeWithMode(*target, bytes, std::nullopt, error);
    // A rename would put a plain file where a folder, a device or a pipe was.
    if (!S_ISREG(existing.st_mode)) {
        errno = S_ISDIR(existing.st_mode) ? EISDIR : EINVAL;
        return fail(error, "cannot write " + path.string() + ", which is not a regular file");
    }
    // A file replaced keeps its permissions: a private file stays private.
    return writeWithMode(*target, bytes, existing.st_mode & 07777, error);
}

bool copyFileAtomically(const std::filesystem::path& from, const std::filesystem::path& to,
                        std::string* error) {
    struct stat source {};
    auto bytes = readWholeFile(from);
    if (!bytes || ::stat(from.c_str(), &source) != 0)
        return fail(error, "cannot read " + from.string());
    return writeWithMode(to, *bytes, source.st_mode & 07777, error);
}

std::filesystem::path asideName(const std::filesystem::path& file, double nowSeconds) {
    std::time_t t = static_cast<std::time_t>(std::floor(nowSeconds));
    std::tm tm{};
    gmtime_r(&t, &tm);
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y%m%dT%H%M%SZ", &tm);
    std::filesystem::path aside = file;
    aside += std::string(".corrupt-") + stamp;
    std::error_code ec;
    for (int n = 2; std::filesystem::exists(aside, ec); ++n) {
        aside = file;
        aside += std::string(".corrupt-") + stamp + "-" + std::to_string(n);
    }
    return aside;
}

} // namespace tavvel
