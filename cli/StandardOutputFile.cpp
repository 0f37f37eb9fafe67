#include "StandardOutputFile.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace tavvel {

StandardOutputFile::StandardOutputFile() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tavvel-cli-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error("cannot create a temporary folder for standard output");
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
