#pragma once
// Output meant for standard output: the run writes its file into a private temporary folder
// as it would anywhere else, whole and atomically, and the bytes are copied out afterwards,
// so a refused or failed run prints nothing.

#include <filesystem>
#include <ostream>

namespace tavvel {

class StandardOutputFile {
public:
    StandardOutputFile();
    ~StandardOutputFile();
    StandardOutputFile(const StandardOutputFile&) = delete;
    StandardOutputFile& operator=(const StandardOutputFile&) = delete;

    // Where the run writes; named so that the closing message reads naturally.
    const std::filesystem::path& path() const { return path_; }
    // Copies the written file's bytes to `out`; true when there was no file (nothing was
    // output) or every byte went out.
    bool copyTo(std::ostream& out) const;

private:
    std::filesystem::path folder_;
    std::filesystem::path path_;
};

} // namespace tavvel
