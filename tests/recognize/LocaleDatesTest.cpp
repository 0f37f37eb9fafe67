#include "recognize/LocaleDates.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

TEST(LocaleDates, DayFirstWhereTheLocaleWritesItSo) {
    EXPECT_TRUE(writesDayFirst("en_GB.UTF-8"));
    EXPECT_TRUE(writesDayFirst("de_DE@euro"));
    EXPECT_FALSE(writesDayFirst("en_US.UTF-8"));
    EXPECT_FALSE(writesDayFirst("ja_JP")); // year first, then month
    EXPECT_FALSE(writesDayFirst("C"));
    EXPECT_FALSE(writesDayFirst("POSIX"));
    EXPECT_FALSE(writesDayFirst(""));
}

} // namespace
} // namespace tavvel
