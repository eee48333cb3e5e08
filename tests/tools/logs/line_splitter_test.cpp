// SPDX-License-Identifier: MIT
#include "tools/logs/line_splitter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using qmrkctl::LineSplitter;
using Lines = std::vector<std::string>;

Lines fed(LineSplitter& _splitter, const std::string& _bytes) {
  Lines lines;
  _splitter.feed(_bytes, [&lines](const std::string& _line) { lines.push_back(_line); });
  return lines;
}

TEST(LineSplitter, JoinsThePiecesOfALine) {
  LineSplitter splitter;
  EXPECT_EQ(fed(splitter, "one\ntw"), Lines{"one"});
  EXPECT_TRUE(splitter.hasFragment());
  EXPECT_EQ(fed(splitter, "o\n\nthree"), (Lines{"two", ""}));
  EXPECT_EQ(splitter.takeLine(), "three");
  EXPECT_FALSE(splitter.hasFragment());
}

TEST(LineSplitter, AcceptsCrLfAsALineEnd) {
  LineSplitter splitter;
  EXPECT_EQ(fed(splitter, "one\r\ntwo\r"), Lines{"one"});
  EXPECT_EQ(fed(splitter, "\na\rb\n"), (Lines{"two", "a\rb"}));
}

TEST(LineSplitter, CutsATooLongLine) {
  LineSplitter splitter;
  const std::string half(LineSplitter::longestLine / 2, 'x');
  EXPECT_TRUE(fed(splitter, half).empty());
  EXPECT_TRUE(fed(splitter, half).empty());
  EXPECT_TRUE(fed(splitter, half).empty());
  EXPECT_EQ(fed(splitter, "yy\nz\n"),
            (Lines{half + half + " ... [" + std::to_string(half.size() + 2) + " more bytes]", "z"}));
}

}  // namespace
