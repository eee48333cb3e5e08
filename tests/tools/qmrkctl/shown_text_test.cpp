// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/shown_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using qmrkctl::shown;
using qmrkctl::utf8Length;

TEST(ShownText, KeepsWhatATerminalCanShow) {
  EXPECT_EQ(shown("plain \\ text"), "plain \\ text");
  EXPECT_EQ(shown("größe €\xF0\x9F\x98\x80"), "größe €\xF0\x9F\x98\x80");
  EXPECT_EQ(shown(""), "");
}

TEST(ShownText, EscapesWhatControlsATerminal) {
  EXPECT_EQ(shown("a\nb\r\tc"), "a\\nb\\r\\tc");
  EXPECT_EQ(shown("\x1b[2J\x7f"), "\\x1b[2J\\x7f");
  EXPECT_EQ(shown(std::string("\0", 1)), "\\x00");
  EXPECT_EQ(shown("\xC2\x9B"), "\\xc2\\x9b") << "CSI in one character";
  EXPECT_EQ(shown("\xE2\x80\xAE"), "\\xe2\\x80\\xae") << "right-to-left override";
  EXPECT_EQ(shown("\xEF\xBB\xBF"), "\\xef\\xbb\\xbf") << "byte-order mark";
}

TEST(ShownText, EscapesInvalidUtf8) {
  EXPECT_EQ(shown("\xFF"), "\\xff");
  EXPECT_EQ(shown("a\xC3"), "a\\xc3") << "cut short";
  EXPECT_EQ(shown("\xC0\xAF"), "\\xc0\\xaf") << "longer than needed";
  EXPECT_EQ(shown("\xED\xA0\x80"), "\\xed\\xa0\\x80") << "half of a pair of UTF-16";
  EXPECT_EQ(shown("\xF4\x90\x80\x80"), "\\xf4\\x90\\x80\\x80") << "beyond the last character";
}

TEST(ShownText, MeasuresTheFirstCharacter) {
  EXPECT_EQ(utf8Length(""), 0U);
  EXPECT_EQ(utf8Length("ab"), 1U);
  EXPECT_EQ(utf8Length("€x"), 3U);
  EXPECT_EQ(utf8Length("\x80"), 0U);
}

}  // namespace
