// SPDX-License-Identifier: MIT
#include "config/text_replacement.h"

#include <gtest/gtest.h>

using Quillmark_logging::replaceAll;

namespace {

TEST(TextReplacement, ReplacesEveryOccurrence) {
  EXPECT_EQ(replaceAll("a_GE.b_GE.", "_GE.", "_CA12."), "a_CA12.b_CA12.");
  EXPECT_EQ(replaceAll("nothing", "_GE.", "x"), "nothing");
  EXPECT_EQ(replaceAll("", "x", "y"), "");
}

TEST(TextReplacement, DoesNotSearchWhatItInserted) { EXPECT_EQ(replaceAll("aa", "a", "aa"), "aaaa"); }

TEST(TextReplacement, ReplacesFromTheLeftWithoutOverlap) { EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba"); }

}  // namespace
