// SPDX-License-Identifier: MIT
#include "logmanager/names/name_hash.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace {

using boost::logging::detail::hashOfName;

TEST(NameHash, DiffersForEachEndOfAName) {
  const std::string text = "Quill.Mark.Reader.Network.error";
  std::set<std::size_t> hashes;
  for (std::size_t size = 0; size <= text.size(); ++size)
    hashes.insert(hashOfName(text.substr(0, size)));
  EXPECT_EQ(hashes.size(), text.size() + 1);
}

TEST(NameHash, DiffersForEachCharacterOfAName) {
  for (const std::size_t size : {1, 7, 8, 9, 16, 17}) {
    std::set<std::size_t> hashes;
    for (std::size_t i = 0; i < size; ++i) {
      std::string name(size, 'a');
      name[i] = 'b';
      hashes.insert(hashOfName(name));
    }
    EXPECT_EQ(hashes.size(), size);
  }
}

// Tables of a power of two slots take the lowest bits.
TEST(NameHash, SpreadsSimilarNamesOverTheLowestBits) {
  constexpr std::size_t slots = 4096;
  for (const std::string ending : {"", ".error", ".information"}) {
    std::vector<int> counts(slots);
    for (std::size_t i = 0; i < 8 * slots; ++i)
      ++counts[hashOfName("App.Class" + std::to_string(i) + ending) % slots];
    int empty = 0;
    for (const int count : counts) {
      empty += count == 0 ? 1 : 0;
      // Eight on an average: thirty in one slot do not happen by chance.
      EXPECT_LT(count, 30);
    }
    // By chance one slot in three thousand stays empty.
    EXPECT_LT(empty, 20);
  }
}

}  // namespace
