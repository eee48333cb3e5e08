// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace testsupport {

/// The text with a "d" in place of every digit.
inline std::string formOf(std::string _text) {
  for (char& c : _text) {
    if (c >= '0' && c <= '9') c = 'd';
  }
  return _text;
}

/// The records of an error-information file without their stamps, whose form is checked.
inline std::vector<std::string> recordsIn(const std::string& _path) {
  const std::string stampForm = "dddd/dd/dd dd:dd:dd ";
  const std::string lineEnd = nativeLineEnds("\n");
  std::vector<std::string> records;
  const std::string text = readFile(_path);
  std::size_t begin = 0;
  for (std::size_t end = text.find(lineEnd); end != std::string::npos; end = text.find(lineEnd, begin)) {
    const std::string line = text.substr(begin, end - begin);
    EXPECT_EQ(formOf(line.substr(0, stampForm.size())), stampForm);
    records.push_back(line.substr(std::min(line.size(), stampForm.size())));
    begin = end + lineEnd.size();
  }
  EXPECT_EQ(begin, text.size()) << "the last record has no line end";
  return records;
}

}  // namespace testsupport
