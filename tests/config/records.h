// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace testsupport {

/// The records of an error-information file without their stamps, whose form is checked.
inline std::vector<std::string> recordsIn(const std::string& _path) {
  static const std::regex stamp(R"(\d{4}/\d\d/\d\d \d\d:\d\d:\d\d )");
  constexpr std::size_t stampLength = 20;
  const std::string lineEnd = nativeLineEnds("\n");
  std::vector<std::string> records;
  const std::string text = readFile(_path);
  std::size_t begin = 0;
  for (std::size_t end = text.find(lineEnd); end != std::string::npos; end = text.find(lineEnd, begin)) {
    const std::string line = text.substr(begin, end - begin);
    EXPECT_TRUE(std::regex_match(line.substr(0, stampLength), stamp)) << line;
    records.push_back(line.size() < stampLength ? line : line.substr(stampLength));
    begin = end + lineEnd.size();
  }
  EXPECT_EQ(begin, text.size()) << "the last record has no line end";
  return records;
}

}  // namespace testsupport
