// SPDX-License-Identifier: MIT
#include "config/cfg_path_rules.h"

#include <gtest/gtest.h>

namespace {

using namespace Quillmark_logging;

TEST(CfgPathRules, PutTheFilesIntoTheFoldersOfTheirKind) {
  EXPECT_EQ(cfgFilePath(CfgFileKind::cfg, "/b", "CA12"),
            "/b\\Orvane Shared\\qmrk\\logging\\cfg\\qmrk_logging_CA12.cfg");
  EXPECT_EQ(cfgFilePath(CfgFileKind::init, "/b", "CA12"), "/b\\Orvane\\qmrk\\logging\\qmrk_logging_CA12.init");
  EXPECT_EQ(genericCfgPath("/b"), "/b\\Orvane Shared\\qmrk\\logging\\cfg\\qmrk_logging_GE.cfg");
}

TEST(CfgPathRules, RedirectAGenericPathAndKeepTheLetterCase) {
  EXPECT_EQ(redirectedPath(CfgFileKind::cfg, "/b\\qmrk_logging_GE.cfg", "ca7"), "/b\\qmrk_logging_ca7.cfg");
  EXPECT_EQ(redirectedPath(CfgFileKind::init, "/b\\qmrk_logging_GE.init", "CA7"), "/b\\qmrk_logging_CA7.init");
}

TEST(CfgPathRules, ReplaceEveryPlaceThatLooksLikeTheMarker) {
  EXPECT_EQ(redirectedPath(CfgFileKind::cfg, "/a_GE.b\\qmrk_logging_GE.cfg", "X"), "/a_X.b\\qmrk_logging_X.cfg");
  EXPECT_EQ(redirectedPath(CfgFileKind::init, "/a.cfg\\qmrk_logging_GE.init", "X"), "/a.init\\qmrk_logging_X.init");
}

}  // namespace
