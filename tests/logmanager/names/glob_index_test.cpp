// SPDX-License-Identifier: MIT
#include "logmanager/names/glob_index.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace {

using boost::logging::detail::GlobIndex;

TEST(GlobIndex, FindsNoGlobThatItDoesNotHave) {
  GlobIndex<int> index;
  EXPECT_EQ(index.find("a*b"), nullptr);
  index.at("a*b") = 1;
  // Another beginning, another ending, and both alike.
  for (const std::string glob : {"c*b", "a*c", "a**b"}) {
    EXPECT_EQ(index.find(glob), nullptr) << glob;
    index.erase(glob);
  }
  EXPECT_EQ(*index.find("a*b"), 1);
  EXPECT_EQ(index.size(), 1U);
}

// Few texts, so that many share their ends.
TEST(GlobIndex, HoldsWhatAnOrdinaryMapHolds) {
  std::mt19937 random(1);
  const auto anyGlob = [&random] {
    std::string glob;
    for (auto size = random() % 5; size > 0; --size)
      glob += "ab*"[random() % 3];
    return glob;
  };
  GlobIndex<int> index;
  std::map<std::string, int> model;
  for (int step = 1; step < 20000; ++step) {
    const std::string glob = anyGlob();
    if (random() % 3 == 0) {
      index.erase(glob);
      model.erase(glob);
    } else {
      index.at(glob) = step;
      model[glob] = step;
    }
    if (step % 500 == 0) {
      index.eraseIf([step](int _value) { return _value < step - 50; });
      std::erase_if(model, [step](const auto& _entry) { return _entry.second < step - 50; });
    }
    const std::string other = anyGlob();
    const int* const found = index.find(other);
    const auto place = model.find(other);
    ASSERT_EQ(found == nullptr ? 0 : *found, place == model.end() ? 0 : place->second) << other;
    ASSERT_EQ(index.size(), model.size());
  }
}

}  // namespace
