// SPDX-License-Identifier: MIT
#include "tests/stress/linux/oracle.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "tests/support/linux/forked_child.h"

namespace {

using stress::Oracle;
using stress::Tally;

class OracleTest : public testing::Test {
 protected:
  std::string lines(std::uint32_t _writer, int _count) {
    std::string text;
    for (int i = 0; i < _count; ++i) {
      text += "[Log] 10:00 " + oracle_.next(_writer, 10) + "\n";
      oracle_.acknowledge(_writer);
    }
    return text;
  }

  std::string tally(const std::string& _text) const {
    std::ostringstream stream;
    stream << oracle_.check(_text);
    return stream.str();
  }

  Oracle oracle_{2};
};

TEST_F(OracleTest, AcceptsACompleteLog) {
  const std::string text = lines(0, 3) + lines(1, 2);
  EXPECT_EQ(tally(text),
            "5 written, 5 found, 0 lost after acknowledgement, 0 torn, 0 duplicated, 0 glued, 0 out of order");
}

TEST_F(OracleTest, SeesALostLine) {
  const std::string text = lines(0, 2);
  EXPECT_EQ(oracle_.check(text.substr(text.find('\n') + 1)).lost, 1);
}

TEST_F(OracleTest, ForgivesTheLossOfAnUnfinishedStatement) {
  const std::string text = lines(0, 2);
  oracle_.next(0, 5);
  const Tally tally = oracle_.check(text);
  EXPECT_EQ(tally.written, 3);
  EXPECT_EQ(tally.lost, 0);
}

TEST_F(OracleTest, SeesALineTornAnywhere) {
  const std::string text = lines(0, 1);
  const std::size_t begin = text.find('@');
  for (std::size_t size = begin + 1; size < text.size() - 1; ++size) {
    const Tally tally = oracle_.check(text.substr(0, size));
    ASSERT_EQ(tally.torn, 1) << size;
    ASSERT_EQ(tally.lost, 1) << size;
  }
}

TEST_F(OracleTest, SeesAChangedCharacter) {
  std::string text = lines(0, 1);
  text[text.size() - 20] = text[text.size() - 20] == 'x' ? 'y' : 'x';
  EXPECT_EQ(oracle_.check(text).torn, 1);
}

TEST_F(OracleTest, SeesADuplicateLine) {
  const std::string text = lines(0, 1);
  const Tally tally = oracle_.check(text + text);
  EXPECT_EQ(tally.found, 1);
  EXPECT_EQ(tally.duplicated, 1);
}

TEST_F(OracleTest, SeesLinesGluedTogether) {
  std::string text = lines(0, 2);
  text.erase(text.find('\n'), 1);
  const Tally tally = oracle_.check(text);
  EXPECT_EQ(tally.found, 2);
  EXPECT_EQ(tally.glued, 1);
}

TEST_F(OracleTest, SeesALineGluedToAFragment) {
  std::string text = lines(0, 1);
  const std::string other = lines(1, 1);
  const Tally tally = oracle_.check(text.substr(0, text.size() - 5) + other);
  EXPECT_EQ(tally.found, 1);
  EXPECT_EQ(tally.torn, 1);
  EXPECT_EQ(tally.glued, 1);
}

TEST_F(OracleTest, SeesLinesOutOfOrder) {
  const std::string first = lines(0, 1);
  EXPECT_EQ(oracle_.check(lines(0, 1) + first).disordered, 1);
}

TEST_F(OracleTest, RefusesALineThatNobodyWrote) {
  EXPECT_THROW(oracle_.check(stress::textOf({0, 0}, 3)), std::out_of_range);
}

TEST_F(OracleTest, KnowsWhatAChildNoted) {
  EXPECT_EQ(testsupport::inForkedChild([this] {
              lines(1, 4);
              return 0;
            }),
            0);
  EXPECT_EQ(oracle_.acknowledged(1), 4);
  EXPECT_EQ(oracle_.acknowledged(), 4);
}

}  // namespace
