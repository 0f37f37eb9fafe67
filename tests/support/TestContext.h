#pragma once
// Fresh state for one test: a context with the shipped configuration dictionary, a fixed
// clock, and places inside a temporary folder that is removed afterwards.

#include "context/Context.h"

#include <filesystem>
#include <memory>

namespace tavvel::test {

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

// The shipped resources/Info.plist, read once.
const Configuration& shippedConfiguration();

// Places inside the folder: prefs in <folder>/config/Tavvel, home <folder>/home.
Places placesIn(const std::filesystem::path& folder);

// The shared corpus of real statements: $TAVVEL_CORPUS_DIR when set, otherwise the folder
// beside the source tree. It may be absent; tests over it skip then.
std::filesystem::path corpusFolder();

// A fixed instant: local noon of the given day.
Clock fixedClock(int year, int month, int day);

// A context on a fresh temporary folder, its clock fixed at 2024-06-01 noon.
struct TestContext {
    TempFolder folder;
    Context ctx;
    TestContext();
};

} // namespace tavvel::test
