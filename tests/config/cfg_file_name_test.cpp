// SPDX-License-Identifier: MIT
#include "config/cfg_file_name.h"

#include <gtest/gtest.h>

#include <stdexcept>

using Quillmark_logging::cfgFileName;

namespace {

TEST(CfgFileName, ReplacesThreeCharactersFromTheFirstXWithTheCa) {
  EXPECT_EQ(cfgFileName("qmrk_logging_XXX.cfg", "CA12"), "qmrk_logging_CA12.cfg");
  EXPECT_EQ(cfgFileName("qmrk_logging_XXX.cfg", ""), "qmrk_logging_.cfg");
  EXPECT_EQ(cfgFileName("aXbcX", "CA"), "aCAX");
  EXPECT_EQ(cfgFileName("aX", "CA"), "aCA");
}

TEST(CfgFileName, NeedsAnXInThePattern) {
  EXPECT_THROW(cfgFileName("qmrk_logging.cfg", "CA12"), std::out_of_range);
  EXPECT_THROW(cfgFileName("", "CA12"), std::out_of_range);
}

}  // namespace
