// SPDX-License-Identifier: MIT
#include "logmanager/names/sorted_globs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "logmanager/names/glob.h"

namespace {

using boost::logging::detail::globBeginning;
using boost::logging::detail::globEnding;
using boost::logging::detail::globMatches;
using boost::logging::detail::GlobSort;
using boost::logging::detail::SortedGlobs;

std::string randomText(std::mt19937& _random, const std::string& _characters, std::size_t _longest) {
  std::string text;
  for (auto size = _random() % (_longest + 1); size > 0; --size)
    text += _characters[_random() % _characters.size()];
  return text;
}

std::vector<std::string> randomGlobs(std::mt19937& _random, std::size_t _count) {
  std::vector<std::string> globs;
  for (std::size_t i = 0; i < _count; ++i)
    globs.push_back(randomText(_random, "a\xFF.*", 3) + "*" + randomText(_random, "a\xFF.*", 3));
  return globs;
}

TEST(GlobSort, OrdersByBeginningThenByEndingFromItsEnd) {
  std::mt19937 random(1);
  for (const std::size_t count : {0, 1, 2, 10, 5000}) {
    const std::vector<std::string> globs = randomGlobs(random, count);
    std::vector<SortedGlobs::Place> places(count);
    for (std::size_t i = 0; i < count; ++i)
      places[i] = static_cast<SortedGlobs::Place>(i);
    const auto globAt = [&globs](SortedGlobs::Place _place) -> std::string_view { return globs[_place]; };
    GlobSort(globAt).sort(places);
    const auto key = [&](SortedGlobs::Place _place) {
      const std::string ending(globEnding(globs[_place]));
      return std::tuple(std::string(globBeginning(globs[_place])), std::vector<char>(ending.rbegin(), ending.rend()),
                        globs[_place], ~_place);
    };
    EXPECT_TRUE(std::ranges::is_sorted(places, std::less(), key)) << count;
    const std::set<SortedGlobs::Place> all(places.begin(), places.end());
    EXPECT_EQ(all.size(), count);
  }
}

// Each glob begins with the one before, so that all parts but one are small at each byte. The sort of the large part
// does not lie on the stack upon that of the part before.
TEST(GlobSort, TakesGlobsThatBeginWithEachOther) {
  constexpr SortedGlobs::Place count = 2000;
  std::string text(count, 'a');
  for (const bool isEnding : {false, true}) {
    (isEnding ? text.front() : text.back()) = '*';
    std::uintptr_t lowest = std::numeric_limits<std::uintptr_t>::max();
    std::uintptr_t highest = 0;
    const auto globAt = [&](SortedGlobs::Place _place) -> std::string_view {
      const volatile char onTheStack = 0;
      const auto place = reinterpret_cast<std::uintptr_t>(&onTheStack);
      lowest = std::min(lowest, place);
      highest = std::max(highest, place);
      return isEnding ? std::string_view(text).substr(0, _place + 1)
                      : std::string_view(text).substr(count - _place - 1);
    };
    std::vector<SortedGlobs::Place> places;
    for (SortedGlobs::Place i = 0; i < count; ++i)
      places.push_back(i * 7 % count);
    GlobSort(globAt).sort(places);
    EXPECT_TRUE(std::ranges::is_sorted(places));
    EXPECT_LT(highest - lowest, 150'000U);
    text.assign(count, 'a');
  }
}

// A million classes of one module take no longer for its long name.
TEST(GlobSort, ReadsWhatAllGlobsHaveInCommonNotByteByByte) {
  constexpr SortedGlobs::Place count = 1000;
  const std::string common(1000, 'a');
  for (const bool isEnding : {false, true}) {
    std::vector<std::string> globs;
    std::vector<SortedGlobs::Place> places;
    for (SortedGlobs::Place i = 0; i < count; ++i) {
      const std::string number = std::to_string(count + i * 7 % count);
      globs.push_back(isEnding ? "*" + number + common : common + number + "*");
      places.push_back(i);
    }
    int reads = 0;
    const auto globAt = [&](SortedGlobs::Place _place) -> std::string_view {
      ++reads;
      return globs[_place];
    };
    GlobSort(globAt).sort(places);
    EXPECT_LT(reads, 100 * static_cast<int>(count));
    const auto key = [&](SortedGlobs::Place _place) {
      return isEnding ? std::string(globs[_place].rbegin(), globs[_place].rend()) : globs[_place];
    };
    EXPECT_TRUE(std::ranges::is_sorted(places, std::less(), key));
  }
}

TEST(SortedGlobs, FindTheGlobsThatMatchAText) {
  std::mt19937 random(2);
  for (int round = 0; round < 50; ++round) {
    const std::vector<std::string> globs = randomGlobs(random, 1 + random() % 300);
    const auto globAt = [&globs](SortedGlobs::Place _place) -> std::string_view { return globs[_place]; };
    SortedGlobs sorted;
    // The one at the greatest place counts.
    std::map<std::string, SortedGlobs::Place> model;
    for (SortedGlobs::Place place = 0; place < globs.size(); ++place) {
      sorted.add(place);
      model[globs[place]] = place;
    }
    sorted.sort(globAt);
    EXPECT_EQ(sorted.places().size(), model.size());
    for (int i = 0; i < 100; ++i) {
      const std::string text = randomText(random, "a\xFF.", 6);
      std::multiset<SortedGlobs::Place> found;
      sorted.forEachMatching(text, globAt, [&found](SortedGlobs::Place _place) { found.insert(_place); });
      std::multiset<SortedGlobs::Place> expected;
      for (const auto& [glob, place] : model) {
        if (globMatches(glob, text)) expected.insert(place);
      }
      ASSERT_EQ(found, expected) << text;
    }
  }
}

TEST(SortedGlobs, FindNothingWhereThereIsNone) {
  SortedGlobs sorted;
  const auto globAt = [](SortedGlobs::Place) { return std::string_view(); };
  sorted.sort(globAt);
  sorted.forEachMatching("text", globAt, [](SortedGlobs::Place) { FAIL(); });
}

}  // namespace
