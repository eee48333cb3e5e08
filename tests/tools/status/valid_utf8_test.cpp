// SPDX-License-Identifier: MIT
#include "tools/status/valid_utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

using qmrkctl::validUtf8;

const std::string mark = "\xEF\xBF\xBD";

TEST(ValidUtf8, KeepsSequencesOfEveryLength) {
  const std::string text =
      std::string("a\0", 2) + "\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
  EXPECT_EQ(text, validUtf8(text));
}

TEST(ValidUtf8, ReplacesEveryByteOfAnInvalidSequence) {
  EXPECT_EQ(mark + mark, validUtf8("\xC0\x80"));
  EXPECT_EQ(mark + mark + mark, validUtf8("\xE0\x9F\x80"));
  EXPECT_EQ(mark + mark + mark, validUtf8("\xED\xA0\x80"));
  EXPECT_EQ(mark + mark + mark + mark, validUtf8("\xF4\x90\x80\x80"));
  EXPECT_EQ(mark + mark + mark + mark, validUtf8("\xF0\x8F\x80\x80"));
  EXPECT_EQ(mark + "a", validUtf8("\xE4"
                                  "a"));
  EXPECT_EQ(mark + mark, validUtf8("\xF0\x90"));
  EXPECT_EQ(mark, validUtf8("\x80"));
}

// The bytes of every code point, by the definition of the encoding.
std::string encoded(char32_t _point) {
  if (_point < 0x80) return {static_cast<char>(_point)};
  if (_point < 0x800) return {static_cast<char>(0xC0 | _point >> 6), static_cast<char>(0x80 | (_point & 0x3F))};
  if (_point < 0x10000) {
    return {static_cast<char>(0xE0 | _point >> 12), static_cast<char>(0x80 | (_point >> 6 & 0x3F)),
            static_cast<char>(0x80 | (_point & 0x3F))};
  }
  return {static_cast<char>(0xF0 | _point >> 18), static_cast<char>(0x80 | (_point >> 12 & 0x3F)),
          static_cast<char>(0x80 | (_point >> 6 & 0x3F)), static_cast<char>(0x80 | (_point & 0x3F))};
}

TEST(ValidUtf8, KeepsExactlyTheCodePointsOfUnicode) {
  for (char32_t point = 0; point < 0x120000; ++point) {
    const std::string text = encoded(point);
    const bool isSurrogate = point >= 0xD800 && point < 0xE000;
    ASSERT_EQ(!isSurrogate && point < 0x110000, validUtf8(text) == text) << static_cast<std::uint32_t>(point);
  }
}

}  // namespace
