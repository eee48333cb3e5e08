// SPDX-License-Identifier: MIT
#include "config/generic_cfg_text.h"

#include <gtest/gtest.h>

using Quillmark_logging::caOfFileName;
using Quillmark_logging::genericCfgText;
using Quillmark_logging::isCaCfgFileName;

namespace {

TEST(GenericCfgText, AlwaysHasTheSameStampAndRedirectsToTheCa) {
  EXPECT_EQ(genericCfgText("CA07"),
            "# CA Settings [file auto generated at 12:41:20 Jan 12 2007]\nCA_NR=GE\nREDIRECT_CA_NR=CA07\n");
}

TEST(GenericCfgText, RecognisesACaFileByThePartsOfItsName) {
  EXPECT_TRUE(isCaCfgFileName("qmrk_logging_CA12.cfg"));
  EXPECT_TRUE(isCaCfgFileName("old.qmrk_logging_CA12.cfg.bak"));
  EXPECT_FALSE(isCaCfgFileName("qmrk_logging_GE.cfg"));
  EXPECT_FALSE(isCaCfgFileName("qmrk_logging_ca12.cfg"));
  EXPECT_FALSE(isCaCfgFileName("qmrk_logging_CA12.init"));
}

TEST(GenericCfgText, TakesTheCaFromTheFirstCOrAUpToTheFirstDot) {
  EXPECT_EQ(caOfFileName("qmrk_logging_CA12.cfg"), "CA12");
  EXPECT_EQ(caOfFileName("qmrk_logging_CA.cfg"), "CA");
  EXPECT_EQ(caOfFileName("Cold_qmrk_logging_CA1.cfg"), "Cold_qmrk_logging_CA1");
}

TEST(GenericCfgText, TakesNoCaFromANameWithoutThoseEnds) {
  EXPECT_EQ(caOfFileName(""), "");
  EXPECT_EQ(caOfFileName("qmrk_logging_12.cfg"), "");
  EXPECT_EQ(caOfFileName("qmrk_logging_CA12"), "");
  EXPECT_EQ(caOfFileName("old.qmrk_logging_CA12.cfg"), "");
}

}  // namespace
