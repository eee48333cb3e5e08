// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/pattern_set.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace qmrkctl;

// All texts of up to that many of the characters.
std::vector<std::string> texts(std::string_view _characters, std::size_t _longest) {
  std::vector<std::string> all = {""};
  for (std::size_t i = 0; i < all.size() && all[i].size() < _longest; ++i) {
    for (const char each : _characters)
      all.push_back(all[i] + each);
  }
  return all;
}

TEST(PatternSet, SelectsWhatOneOfItsPatternsSelects) {
  const std::vector<std::string> names = texts("a.", 5);
  for (const std::string& pattern : texts("a.*", 4)) {
    const PatternSet set({{"other", 0, false}, {pattern, 0, false}});
    for (const std::string& name : names)
      EXPECT_EQ(set.selects(name), selects(pattern, name)) << "\"" << pattern << "\" \"" << name << "\"";
  }
}

TEST(PatternSet, SelectsNothingWhenItIsEmpty) {
  EXPECT_FALSE(PatternSet().selects(""));
  EXPECT_FALSE(PatternSet().selects("a.b"));
}

}  // namespace
