#include "dialogs/MessageFormat.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

TEST(MessageFormat, FillsEachPlaceholderInTurnAndNeverTheArguments) {
    EXPECT_EQ(formatMessage("File \"%@\"", "a.qif"), "File \"a.qif\"");
    EXPECT_EQ(formatMessage("%@ (will use %@)", {"1/2/24", "%@"}), "1/2/24 (will use %@)");
    EXPECT_EQ(formatMessage("%@ on line %ld; stop.", {"File \"x\"", "12"}),
              "File \"x\" on line 12; stop.");
    EXPECT_EQ(formatMessage("%@ copy %d", {"Bank", "2"}), "Bank copy 2");
    EXPECT_EQ(formatMessage("100% sure", {}), "100% sure");
}

TEST(MessageFormat, CountsPlaceholders) {
    EXPECT_EQ(placeholderCount("no placeholder, 5%"), 0u);
    EXPECT_EQ(placeholderCount("%@ & %@ at %ld, %d%"), 4u);
}

#ifndef NDEBUG
TEST(MessageFormatDeathTest, RefusesArgumentsThatDoNotMatch) {
    EXPECT_DEATH(formatMessage("%@ and %@", "one"), "more or fewer arguments");
    EXPECT_DEATH(formatMessage("none", "one"), "more or fewer arguments");
}
#endif

} // namespace
} // namespace tavvel
