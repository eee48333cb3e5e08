// SPDX-License-Identifier: MIT
#include "config/cfg_parser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/config/cfg_oracle.h"

using Quillmark_logging::CfgPair;
using Quillmark_logging::CfgPairPlace;
using Quillmark_logging::expandTabs;
using Quillmark_logging::forEachCfgPair;
using Quillmark_logging::scanCfgText;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// "key|value" of each pair, the value as it is before blanks are cut off.
std::vector<std::string> pairsOf(const std::string& _text) {
  std::vector<std::string> pairs;
  for (const CfgPair& pair : scanCfgText(_text)) {
    pairs.push_back(pair.key + "|" + pair.value);
  }
  return pairs;
}

// "key@value@end" of each pair: its positions.
std::vector<std::string> placesOf(const std::string& _text) {
  std::vector<std::string> places;
  forEachCfgPair(_text, [&places](std::string_view, std::string_view, const CfgPairPlace& _place) {
    places.push_back(std::to_string(_place.key) + "@" + std::to_string(_place.value) + "@" +
                     std::to_string(_place.end));
  });
  return places;
}

TEST(CfgParser, TellsWhereAPairStands) {
  EXPECT_THAT(placesOf("A=1\n\nKEY:value\n"), ElementsAre("0@2@3", "5@9@14"));
  EXPECT_THAT(placesOf("# c\nA=1 # n\n// d\nB\t=2\n"), ElementsAre("4@6@11", "17@20@21"));
}

TEST(CfgParser, TellsWhereAPairOfSeveralLinesBegins) {
  EXPECT_THAT(placesOf("junk\nKEY=1\n"), ElementsAre("0@9@10"));
  EXPECT_THAT(placesOf("A=\nB=2\nC=3\n"), ElementsAre("0@2@6", "7@9@10"));
}

TEST(CfgParser, AnEqualsSignOrAColonSeparates) {
  EXPECT_THAT(pairsOf("KEY=value\n"), ElementsAre("KEY|value"));
  EXPECT_THAT(pairsOf("KEY:value\n"), ElementsAre("KEY|value"));
}

TEST(CfgParser, KeepsBlanksAroundTheSeparator) { EXPECT_THAT(pairsOf("KEY = value\n"), ElementsAre("KEY | value")); }

TEST(CfgParser, ExpandsATabToEightBlanks) {
  EXPECT_THAT(pairsOf("K\tY=a\tb\t\n"), ElementsAre("K        Y|a        b        "));
}

TEST(CfgParser, SplitsAtTheFirstSeparatorOnly) {
  EXPECT_THAT(pairsOf("KEY=a=b\nURL=x:y\nA:b=c\n"), ElementsAre("KEY|a=b", "URL|x:y", "A|b=c"));
}

TEST(CfgParser, AHashStartsACommentAnywhere) {
  EXPECT_THAT(pairsOf("# comment\nKEY=value # note\nK=a#b\nX#=1\n=2\n"), ElementsAre("KEY|value ", "K|a", "X|2"));
}

TEST(CfgParser, TwoSlashesStartACommentAfterABlankOrALineEnd) {
  EXPECT_THAT(pairsOf("A=1\n// comment\nKEY=value // note\nT=v\t// note\n"),
              ElementsAre("A|1", "KEY|value ", "T|v        "));
}

TEST(CfgParser, TwoSlashesElsewhereBelongToTheText) {
  EXPECT_THAT(pairsOf("P=x://y\nQ=a//b\nR=/ /c\n"), ElementsAre("P|x://y", "Q|a//b", "R|/ /c"));
}

TEST(CfgParser, TwoSlashesStartNoCommentOnTheFirstLine) {
  EXPECT_THAT(pairsOf("//K=1\n"), ElementsAre("//K|1"));
  // So long that it has memory of its own, before which the address sanitizer sees a read.
  const std::string key = "//" + std::string(1000, 'K');
  EXPECT_THAT(pairsOf(key + "=1\n"), ElementsAre(key + "|1"));
}

TEST(CfgParser, AHashStartsACommentOnTheFirstLine) { EXPECT_THAT(pairsOf("#K=1\nA=2\n"), ElementsAre("A|2")); }

TEST(CfgParser, DropsALastLineWithoutALineFeed) {
  EXPECT_THAT(pairsOf("A=1\nB=2"), ElementsAre("A|1"));
  EXPECT_THAT(pairsOf("A=1\nB"), ElementsAre("A|1"));
}

TEST(CfgParser, ACommentAtTheEndEndsTheScan) {
  EXPECT_THAT(pairsOf("A=1\nB=2 # note"), ElementsAre("A|1"));
  EXPECT_THAT(pairsOf("A=1\n//"), ElementsAre("A|1"));
  EXPECT_THAT(pairsOf("#"), IsEmpty());
}

TEST(CfgParser, AnEmptyValueSwallowsTheNextLine) { EXPECT_THAT(pairsOf("A=\nB=2\n"), ElementsAre("A|\nB=2")); }

TEST(CfgParser, AnEmptyKeySwallowsTheRest) { EXPECT_THAT(pairsOf("=1\nB=2\n"), IsEmpty()); }

TEST(CfgParser, AcceptsAValueOfBlanks) { EXPECT_THAT(pairsOf("A=  \nB=2\n"), ElementsAre("A|  ", "B|2")); }

TEST(CfgParser, ALineWithoutASeparatorJoinsTheNextKey) {
  EXPECT_THAT(pairsOf("junk\nKEY=1\n"), ElementsAre("junkKEY|1"));
}

TEST(CfgParser, GivesEveryPairOfARepeatedKeyInOrder) {
  EXPECT_THAT(pairsOf("K=1\nL=2\nK=3\n"), ElementsAre("K|1", "L|2", "K|3"));
}

TEST(CfgParser, FindsNothingInATextOfComments) {
  EXPECT_THAT(pairsOf("# a\n// b\n  # c\n"), IsEmpty());
  EXPECT_THAT(pairsOf(""), IsEmpty());
}

TEST(CfgParser, AgreesWithTheNaiveReadingOfEveryShortText) {
  const std::string alphabet = "k=:#/\n\t ";
  constexpr std::size_t longest = 6;
  std::size_t texts = 0;
  std::vector<std::size_t> digits;
  while (digits.size() <= longest) {
    std::string text;
    for (const std::size_t digit : digits)
      text += alphabet[digit];
    ASSERT_EQ(pairsOf(text), testsupport::naivePairsOf(text)) << testing::PrintToString(text);
    expandTabs(text);
    ASSERT_EQ(pairsOf(text), testsupport::naivePairsOf(text)) << testing::PrintToString(text);
    ++texts;
    std::size_t at = 0;
    while (at < digits.size() && ++digits[at] == alphabet.size())
      digits[at++] = 0;
    if (at == digits.size()) digits.push_back(0);
  }
  EXPECT_EQ(texts, 1U + 8 + 64 + 512 + 4096 + 32768 + 262144);
}

}  // namespace
