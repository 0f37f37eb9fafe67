#pragma once
// The fuzz targets: each takes one input, builds fresh state for it, runs one reader or decoder
// over it and checks what the reader promises. libFuzzer calls them through FuzzMain.cpp; the
// replay test calls every one on its committed corpus.

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tavvel::fuzz {

using Entry = int (*)(const std::uint8_t* data, std::size_t size);

int ofxReader(const std::uint8_t* data, std::size_t size);
int qifReader(const std::uint8_t* data, std::size_t size);
int classification(const std::uint8_t* data, std::size_t size);
int scanners(const std::uint8_t* data, std::size_t size);
int propertyList(const std::uint8_t* data, std::size_t size);
int preferenceFile(const std::uint8_t* data, std::size_t size);
int continuationFile(const std::uint8_t* data, std::size_t size);
int formatFile(const std::uint8_t* data, std::size_t size);
int textEngine(const std::uint8_t* data, std::size_t size);
int investmentReader(const std::uint8_t* data, std::size_t size);

struct Target {
    std::string_view name; // also the folder of its corpus: fuzz/corpus/<name>
    Entry entry;
};

inline constexpr Target kTargets[] = {
    {"ofx_reader", ofxReader},
    {"qif_reader", qifReader},
    {"classification", classification},
    {"scanners", scanners},
    {"property_list", propertyList},
    {"preference_file", preferenceFile},
    {"continuation_file", continuationFile},
    {"format_file", formatFile},
    {"text_engine", textEngine},
    {"investment_reader", investmentReader},
};

} // namespace tavvel::fuzz
