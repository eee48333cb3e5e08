// SPDX-License-Identifier: MIT
#include "logsetup/class_list.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>
#include <vector>

namespace {

using Entries = std::vector<std::pair<std::string, int>>;

Entries entriesOf(const std::string& _classList) {
  Entries entries;
  Quillmark_logging::forEachClass(
      _classList, [&entries](const std::string& _entry, int _count) { entries.emplace_back(_entry, _count); });
  return entries;
}

// The same by the words of the format: character by character.
Entries entriesByCharacter(const std::string& _classList) {
  Entries entries;
  std::string entry;
  int count = 0;
  for (const char c : _classList) {
    if (c != ';') {
      entry += c;
    } else {
      entries.emplace_back(entry, ++count);
      entry.clear();
    }
  }
  return entries;
}

TEST(ClassList, CountsItsEntriesFromOne) { EXPECT_EQ(entriesOf("A;B;C;"), (Entries{{"A", 1}, {"B", 2}, {"C", 3}})); }

TEST(ClassList, DropsWhatFollowsTheLastSemicolon) {
  EXPECT_EQ(entriesOf("A;B"), (Entries{{"A", 1}}));
  EXPECT_EQ(entriesOf("A"), Entries{});
  EXPECT_EQ(entriesOf(""), Entries{});
}

TEST(ClassList, HasAnEmptyEntryBetweenTwoSemicolons) { EXPECT_EQ(entriesOf(";;"), (Entries{{"", 1}, {"", 2}})); }

TEST(ClassList, KeepsBlanksLineEndsAndLetterCase) {
  EXPECT_EQ(entriesOf(" A ;\r\nb;"), (Entries{{" A ", 1}, {"\r\nb", 2}}));
}

TEST(ClassList, HasNoLimitOnTheNumberOfEntries) {
  std::string list;
  for (int i = 0; i < 100000; ++i)
    list += "x;";
  EXPECT_EQ(entriesOf(list).back(), (Entries::value_type{"x", 100000}));
}

TEST(ClassList, CallsBackBeforeItSearchesTheNextEntry) {
  int calls = 0;
  EXPECT_THROW(Quillmark_logging::forEachClass("A;B;",
                                               [&calls](const std::string&, int) {
                                                 ++calls;
                                                 throw std::runtime_error("stop");
                                               }),
               std::runtime_error);
  EXPECT_EQ(calls, 1);
}

/// The entries of a list whose pieces have this many characters each.
Entries entriesOfPieces(const std::string& _classList, std::size_t _size) {
  platform::TextPieces pieces;
  for (std::size_t begin = 0; begin < _classList.size(); begin += _size)
    pieces.push_back(_classList.substr(begin, _size));
  Entries entries;
  Quillmark_logging::forEachClass(
      std::move(pieces), [&entries](const std::string& _entry, int _count) { entries.emplace_back(_entry, _count); });
  return entries;
}

// Every list of up to 8 characters.
TEST(ClassList, AgreesWithASplitByCharacter) {
  std::vector<std::string> lists = {""};
  for (std::size_t i = 0; lists[i].size() < 8; ++i) {
    for (const char c : {'a', ' ', ';'})
      lists.push_back(lists[i] + c);
  }
  for (const auto& list : lists) {
    const Entries expected = entriesByCharacter(list);
    ASSERT_EQ(entriesOf(list), expected) << list;
    for (std::size_t size = 1; size < 5; ++size)
      ASSERT_EQ(entriesOfPieces(list, size), expected) << list << " in pieces of " << size;
  }
}

}  // namespace
