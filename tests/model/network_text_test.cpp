// Fixed-width text fields: cut on store, trimmed on read.
#include <gtest/gtest.h>

#include "model/network.h"

using namespace karvane;

TEST(NetworkText, FitAndTrim) {
    EXPECT_EQ(FitText(std::string(50, 'a'), NameWidth).size(), 40u);
    EXPECT_EQ(FitText("short", CommentWidth), "short");
    EXPECT_EQ(TrimText("  a b \t"), "a b");
    EXPECT_EQ(TrimText("   "), "");
}
