#include "StandardOutputFile.h"

#include "CliTexts.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace tavvel {

namespace {

// TMPDIR as the user set it, or /tmp; checked here so that the message can say what to fix.
std::filesystem::path temporaryFolder() {
    std::error_code ec;
    std::filesystem::path folder = std::filesystem::temp_directory_path(ec);
    if (ec)
        throw std::runtime_error(std::string(clitext::temporaryFolderMissing));
    return folder;
}

} // namespace

StandardOutputFile::StandardOutputFile() {
    std::string pattern = (temporaryFolder() / "tavvel-cli-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error(
            formatMessage(clitext::temporaryFolderNotWritable,
                          std::filesystem::path(pattern).parent_path().string()));
    folder_ = pattern;
    path_ = folder_ / "standard output";
}

StandardOutputFile::~StandardOutputFile() {
    std::error_code ec;
    std::filesystem::remove_all(folder_, ec);
}

bool StandardOutputFile::copyTo(std::ostream& out) const {
    std::ifstream in(path_, std::ios::binary);
    if (!in)
        return true;
    if (in.peek() != std::ifstream::traits_type::eof())
        out << in.rdbuf();
    out.flush();
    return static_cast<bool>(out);
}

} // namespace tavvel
