// Every committed fuzz corpus file (seeds and fixed reproducers) run through its target, as
// libFuzzer would: a failed check or a sanitizer report stops the test, whose output names the
// file last started.
#include "Targets.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace tavvel::fuzz {
namespace {

std::vector<std::filesystem::path> corpusOf(std::string_view target) {
    std::filesystem::path folder =
        std::filesystem::path(TAVVEL_SOURCE_DIR) / "fuzz" / "corpus" / target;
    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_directory(folder))
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            if (entry.is_regular_file())
                files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class FuzzReplay : public testing::TestWithParam<Target> {};

TEST_P(FuzzReplay, EveryCorpusFileRunsCleanly) {
    const Target& target = GetParam();
    std::vector<std::filesystem::path> files = corpusOf(target.name);
    ASSERT_FALSE(files.empty()) << "no corpus for " << target.name;
    for (const auto& file : files) {
        std::cerr << "replaying " << file.filename().string() << std::endl;
        std::string bytes = bytesOf(file);
        EXPECT_EQ(0,
                  target.entry(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()))
            << file;
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, FuzzReplay, testing::ValuesIn(kTargets),
                         [](const testing::TestParamInfo<Target>& param) {
                             return std::string(param.param.name);
                         });

} // namespace
} // namespace tavvel::fuzz
