// SPDX-License-Identifier: MIT
#include "logmanager/names/glob.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "tests/logmanager/names/name_pattern_oracle.h"

namespace {

using boost::logging::detail::globMatches;
using boost::logging::detail::globsMeet;
using testsupport::allTexts;
using testsupport::naiveMatch;

/// The texts up to 6 characters that a glob of up to 3 matches, c standing for every character that is in none.
std::set<std::string> matchedTexts(const std::string& _glob, const std::vector<std::string>& _texts) {
  std::set<std::string> matched;
  for (const std::string& text : _texts) {
    if (naiveMatch(_glob, text)) matched.insert(text);
  }
  return matched;
}

TEST(Glob, MatchesAndMeetsAnotherAsTheirTextsDo) {
  const std::vector<std::string> texts = allTexts("ac.", 6);
  const std::vector<std::string> globs = allTexts("a.*", 3);
  std::vector<std::set<std::string>> matched;
  for (const std::string& glob : globs)
    matched.push_back(matchedTexts(glob, texts));
  for (std::size_t i = 0; i < globs.size(); ++i) {
    for (std::size_t j = 0; j < globs.size(); ++j) {
      const bool covers = std::includes(matched[i].begin(), matched[i].end(), matched[j].begin(), matched[j].end());
      std::vector<std::string> common;
      std::set_intersection(matched[i].begin(), matched[i].end(), matched[j].begin(), matched[j].end(),
                            std::back_inserter(common));
      ASSERT_EQ(globMatches(globs[i], globs[j]), covers) << '"' << globs[i] << "\" and \"" << globs[j] << '"';
      ASSERT_EQ(globsMeet(globs[i], globs[j]), !common.empty()) << '"' << globs[i] << "\" and \"" << globs[j] << '"';
    }
  }
}

/// What the rules of callables rest on: several globs match all that another one does only if one of them does.
TEST(Glob, LosesToTwoOthersOnlyIfOneOfThemCoversIt) {
  const std::vector<std::string> texts = allTexts("ac.", 6);
  const std::vector<std::string> globs = allTexts("a.*", 3);
  for (const std::string& glob : globs) {
    const std::set<std::string> matched = matchedTexts(glob, texts);
    for (const std::string& one : globs) {
      for (const std::string& other : globs) {
        const bool isCovered = std::ranges::all_of(
            matched, [&](const std::string& _text) { return globMatches(one, _text) || globMatches(other, _text); });
        ASSERT_EQ(isCovered, globMatches(one, glob) || globMatches(other, glob)) << one << ' ' << other << ' ' << glob;
      }
    }
  }
}

}  // namespace
