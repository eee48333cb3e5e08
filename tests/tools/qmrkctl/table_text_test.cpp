// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/table_text.h"

#include <gtest/gtest.h>

namespace {

using qmrkctl::tableLines;
using Lines = std::vector<std::string>;

TEST(TableText, AlignsColumnsByCharacters) {
  EXPECT_EQ(tableLines({{"A", "BB", "C"}, {"ä", "b", "c"}, {"long", ""}}),
            (Lines{"A     BB  C", "ä     b   c", "long"}));
  EXPECT_EQ(tableLines({}), Lines());
}

}  // namespace
