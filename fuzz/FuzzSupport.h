#pragma once
// What every fuzz target shares: the input capped and viewed as text, a fresh context per
// input, a front end that never waits for anyone, and checks that stop the run loudly so that
// both libFuzzer and the replay test see the failure.

#include "context/Context.h"
#include "dialogs/BatchDialogs.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel::fuzz {

// Larger inputs only slow the search down: every reader is linear in the size, and the
// whole-program tests cover the big files.
inline constexpr std::size_t kMaxInput = 64 * 1024;

// The input as text, or nothing when it is over the cap.
std::optional<std::string_view> capped(const std::uint8_t* data, std::size_t size);

[[noreturn]] void fail(std::string_view what, std::string_view detail = {});
inline void check(bool ok, std::string_view what, std::string_view detail = {}) {
    if (!ok)
        fail(what, detail);
}

// The shipped configuration dictionary, read once per process.
const Configuration& configuration();

// The local midnight of the day.
Date day(int year, int month, int day);

// A context whose clock stands at 2024-06-01 noon and whose places are in `folder` (which is
// not created: most targets never touch the disk).
Context freshContext(const std::filesystem::path& folder = "/nonexistent/tavvel-fuzz");

// A temporary folder, removed with everything in it when the object goes.
class Scratch {
public:
    Scratch();
    ~Scratch();
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    const std::filesystem::path& path() const { return path_; }
    // Writes the bytes to a file of that name in the folder; its path.
    std::filesystem::path write(std::string_view name, std::string_view bytes) const;

private:
    std::filesystem::path path_;
};

// The batch front end, which fails the run when a question offers no button to take.
BatchDialogs silentDialogs(std::optional<std::string> outputPath = std::nullopt);

// The record's date (written in the run's long output date pattern) lies inside the range;
// both ends inclusive.
void checkDateInRange(const Context& ctx, const Dictionary& record, Date from, Date to);
// An error record carries both its message and the offending text.
void checkErrorRecord(const Dictionary& record);

} // namespace tavvel::fuzz
