// SPDX-License-Identifier: MIT
#include "logsetup/is_number.h"

#include <gtest/gtest.h>

#include "tests/trace/traced_console.h"

namespace {

using Quillmark_logging::isNumber;

TEST(IsNumber, AcceptsEveryText) {
  EXPECT_TRUE(isNumber("1024000"));
  EXPECT_TRUE(isNumber(""));
  EXPECT_TRUE(isNumber("abc"));
  EXPECT_TRUE(isNumber("-1 .\t#"));
  for (int character = 0; character < 256; ++character) {
    EXPECT_TRUE(isNumber(std::string(1, static_cast<char>(character)))) << character;
  }
}

TEST(IsNumber, TracesEveryCharacter) {
  const testsupport::TracedConsole console;
  isNumber("7x");
  EXPECT_EQ(console.text(),
            "==> Quillmark_logging::isNumber() _s=7x\r\n"
            "==> Quillmark_logging::isNumber() _s[i]=7 )\r\n"
            "==> Quillmark_logging::isNumber() _s[i]=x )\r\n"
            "<== Quillmark_logging::isNumber() return=TRUE\r\n");
}

}  // namespace
