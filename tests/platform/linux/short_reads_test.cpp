// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <numeric>
#include <string>

#include "platform/text_file.h"

// A file of the kernel gives no more than a page with each read, as some network file systems do.

namespace {

TEST(ShortReads, YieldPiecesThatTakeLittleMoreThanTheirText) {
  platform::TextPieces pieces;
  ASSERT_TRUE(platform::TextReader("/proc/self/smaps").readAll(pieces));
  ASSERT_GT(pieces.size(), 4U);
  // The last one may get more.
  pieces.pop_back();
  const std::size_t room =
      std::accumulate(pieces.begin(), pieces.end(), std::size_t{0},
                      [](std::size_t _sum, const std::string& _piece) { return _sum + _piece.capacity(); });
  EXPECT_LT(room, 2 * platform::joined(pieces).size());
}

}  // namespace
