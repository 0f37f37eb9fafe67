#pragma once
// What a file panel needs to know: the extensions it allows ("" stands for files without an
// extension), the folder it starts in, the name it suggests and its prompt.

#include <string>
#include <vector>

namespace tavvel {

struct FileChoice {
    std::vector<std::string> extensions;
    std::string startFolder;
    std::string suggestedName;
    std::string prompt;
};

} // namespace tavvel
