// SPDX-License-Identifier: MIT
#include "logmanager/names/name_numbers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <random>
#include <string>

namespace {

using boost::logging::detail::NameNumbers;
using boost::logging::detail::NamePattern;

TEST(NameNumbers, KnowNoNameAtFirst) {
  const NameNumbers numbers;
  EXPECT_EQ(numbers.find("App"), 0U);
  EXPECT_EQ(numbers.find(""), 0U);
  EXPECT_EQ(numbers.size(), 0U);
}

TEST(NameNumbers, KeepTheNumberOfANameThatIsEnteredAgain) {
  NameNumbers numbers;
  const NamePattern name("App");
  numbers.enter(name);
  EXPECT_EQ(numbers.find("App"), 0U);
  numbers.set(name, UINT64_MAX);
  numbers.enter(name);
  EXPECT_EQ(numbers.find("App"), UINT64_MAX);
  EXPECT_EQ(numbers.size(), 1U);
}

TEST(NameNumbers, TakeNamesOfEveryLength) {
  NameNumbers numbers;
  for (const std::size_t size : {0, 1, 127, 128, 16383, 16384, 65535, 65536, 200000, 3}) {
    const std::string name(size, 'a');
    numbers.enter(NamePattern(name));
    numbers.set(NamePattern(name), size + 1);
  }
  for (const std::size_t size : {0, 1, 127, 128, 16383, 16384, 65535, 65536, 200000, 3})
    EXPECT_EQ(numbers.find(std::string(size, 'a')), size + 1);
  EXPECT_EQ(numbers.find("aa"), 0U);
}

TEST(NameNumbers, TakeNamesInTheSameOrderAgainAndInAnyOther) {
  constexpr int count = 20000;
  const auto nameOf = [](int _number) { return "App.Class" + std::to_string(_number); };
  NameNumbers numbers;
  // Once through all of them, then again with some between that are new, then backwards.
  for (int i = 0; i < count; ++i)
    numbers.enter(NamePattern(nameOf(i)));
  for (int i = 0; i < count; ++i) {
    if (i % 7 == 0) numbers.enter(NamePattern(nameOf(count + i)));
    numbers.set(NamePattern(nameOf(i)), static_cast<std::uint64_t>(i) + 1);
  }
  for (int i = 0; i < count; ++i)
    ASSERT_EQ(numbers.find(nameOf(i)), static_cast<std::uint64_t>(i) + 1) << i;
  for (int i = count - 1; i >= 0; --i)
    numbers.set(NamePattern(nameOf(i)), static_cast<std::uint64_t>(i) + 2);
  for (int i = 0; i < count; ++i)
    ASSERT_EQ(numbers.find(nameOf(i)), static_cast<std::uint64_t>(i) + 2) << i;
  EXPECT_EQ(numbers.size(), count + (count + 6) / 7);
}

/// Names of which many are prefixes of each other or differ in one byte.
std::string randomName(std::mt19937& _random) {
  std::string name;
  for (auto size = _random() % 7; size > 0; --size)
    name += "abc."[_random() % 4];
  return name;
}

TEST(NameNumbers, AgreeWithAnOrdinaryMap) {
  std::mt19937 random(1);
  NameNumbers numbers;
  std::map<std::string, std::uint64_t> model;
  for (std::uint64_t step = 1; step < 30000; ++step) {
    const std::string name = randomName(random);
    numbers.enter(NamePattern(name));
    numbers.set(NamePattern(name), step);
    model[name] = step;
    if (step % 5000 == 0) {
      numbers.eraseBelow(step - 1000);
      std::erase_if(model, [step](const auto& _entry) { return _entry.second < step - 1000; });
    }
    if (step % 100 != 0) continue;
    ASSERT_EQ(numbers.size(), model.size());
    for (int i = 0; i < 100; ++i) {
      const std::string other = randomName(random);
      const auto place = model.find(other);
      ASSERT_EQ(numbers.find(other), place == model.end() ? 0 : place->second) << other;
    }
  }
}

}  // namespace
