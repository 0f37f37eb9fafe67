#include "recognize/ScanPattern.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace tavvel {
namespace {

// The C library's reading of the same pattern, for comparison. Every pattern used here ends
// in "%ln" after its numbers, so the count lands in the argument after the last number.
ScanResult cLibraryScan(const std::string& text, const char* pattern, int numbersInPattern) {
    constexpr long kUnset = -7777;
    long v[5] = {kUnset, kUnset, kUnset, kUnset, kUnset};
    ScanResult r;
    r.count = std::sscanf(text.c_str(), pattern, &v[0], &v[1], &v[2], &v[3], &v[4]);
    for (int i = 0; i < std::max(r.count, 0); ++i)
        r.numbers[static_cast<std::size_t>(i)] = v[i];
    if (v[numbersInPattern] != kUnset)
        r.consumed = v[numbersInPattern];
    return r;
}

std::string randomText(std::mt19937& rng, std::size_t maxLength) {
    static const std::string alphabet = "0123456789  \t\n-+/.,'Jan x";
    std::uniform_int_distribution<std::size_t> length(0, maxLength);
    std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
    std::string text;
    for (std::size_t n = length(rng); n > 0; --n)
        text += alphabet[pick(rng)];
    return text;
}

TEST(ScanPattern, ReadsAsTheCLibraryDoes) {
    const std::vector<std::pair<const char*, int>> patterns = {
        {"%ld/%ld/%ld%ln", 3},  {"%ld/%ld%ln", 2},     {"%2ld/%2ld%ln", 2},   {" %ld/%ld%ln", 2},
        {"Jan %ld, %ld%ln", 2}, {"%ld-Jan-%ld%ln", 2}, {"%ld Jan %ld%ln", 2}, {"%ld/%ld'%ld%ln", 3},
        {" %ld, %ld %ln", 2},   {"%*ld/%ld%ln", 1}};
    std::mt19937 rng(20240601);
    for (int round = 0; round < 4000; ++round) {
        std::string text = randomText(rng, 14);
        for (auto [pattern, numbers] : patterns) {
            ScanResult ours = scan(text, pattern);
            ScanResult theirs = cLibraryScan(text, pattern, numbers);
            ASSERT_EQ(ours.count, theirs.count) << pattern << " on \"" << text << '"';
            ASSERT_EQ(ours.consumed, theirs.consumed) << pattern << " on \"" << text << '"';
            for (int i = 0; i < std::max(ours.count, 0); ++i)
                ASSERT_EQ(ours.numbers[static_cast<std::size_t>(i)],
                          theirs.numbers[static_cast<std::size_t>(i)]);
        }
    }
}

TEST(ScanPattern, SaturatesOverflowLikeStrtol) {
    for (std::string text :
         {"99999999999999999999/1", "-99999999999999999999/1", "0000000000000000000000000000012/1",
          "9223372036854775808/1", "-9223372036854775808/1"}) {
        ScanResult ours = scan(text, "%ld/%ld%ln");
        ScanResult theirs = cLibraryScan(text, "%ld/%ld%ln", 2);
        EXPECT_EQ(ours.numbers[0], theirs.numbers[0]) << text;
        EXPECT_EQ(ours.consumed, theirs.consumed) << text;
    }
}

TEST(ScanPattern, StopsAtUnsupportedDirectivesAndCountsFromTheStart) {
    EXPECT_EQ(scan("12 ab", "%ld %s").count, 1);
    ScanResult r = scan("xx 3/4 yy", 3, "%ld/%ld%ln");
    EXPECT_EQ(r.count, 2);
    EXPECT_EQ(r.consumed, 3);
    EXPECT_EQ(scan("", "%ld").count, -1);
    EXPECT_EQ(scan("50%", "%ld%%%ln").consumed, 3);
}

// Scans sharing a memo must read exactly what scans without one read, from any order of
// starting positions.
TEST(ScanPattern, MemoNeverChangesAResult) {
    std::string text = "  " + std::string(40, '0') + "17 Jan " + std::string(30, ' ') +
                       std::string(25, '9') + "-Jan-" + std::string(20, '4') + " \t 3/4";
    RunMemo forward;
    RunMemo backward;
    for (const char* pattern : {"%ld Jan %ld%ln", "%ld-Jan-%ld%ln", "%ld/%ld%ln"}) {
        for (std::size_t pos = 0; pos <= text.size(); ++pos) {
            std::size_t back = text.size() - pos;
            ScanResult plain = scan(text, pos, pattern);
            ScanResult memoForward = scan(text, pos, pattern, &forward);
            ScanResult memoBack = scan(text, back, pattern, &backward);
            ScanResult plainBack = scan(text, back, pattern);
            ASSERT_EQ(plain.count, memoForward.count) << pos;
            ASSERT_EQ(plain.consumed, memoForward.consumed) << pos;
            ASSERT_EQ(plain.numbers, memoForward.numbers) << pos;
            ASSERT_EQ(plainBack.consumed, memoBack.consumed) << back;
            ASSERT_EQ(plainBack.numbers, memoBack.numbers) << back;
        }
    }
}

} // namespace
} // namespace tavvel
