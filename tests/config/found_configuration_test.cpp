// SPDX-License-Identifier: MIT
#include "config/found_configuration.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using Quillmark_logging::caOfPath;
using Quillmark_logging::FoundConfiguration;

TEST(FoundConfiguration, NotesTheLatestOfWhatIsFound) {
  const FoundConfiguration found;
  FoundConfiguration::noteCheckedPath("first");
  FoundConfiguration::noteCheckedPath("second");
  FoundConfiguration::noteInitPath("init");
  EXPECT_EQ(found.checkedPath(), "second");
  EXPECT_EQ(found.initPath(), "init");
  EXPECT_FALSE(found.isGenerated());
  FoundConfiguration::noteGenerated();
  EXPECT_TRUE(found.isGenerated());
}

TEST(FoundConfiguration, LetsTheOutermostObjectHaveTheNotes) {
  const FoundConfiguration outer;
  {
    const FoundConfiguration inner;
    FoundConfiguration::noteInitPath("a");
    EXPECT_EQ(inner.initPath(), "");
  }
  EXPECT_EQ(outer.initPath(), "a");
}

TEST(FoundConfiguration, HearsNothingOfOtherThreads) {
  const FoundConfiguration found;
  std::thread([] { FoundConfiguration::noteInitPath("a"); }).join();
  EXPECT_EQ(found.initPath(), "");
}

TEST(FoundConfiguration, MayBeAbsentForThoseWhoNoteIt) {
  FoundConfiguration::noteCheckedPath("a");
  FoundConfiguration::noteGenerated();
  EXPECT_FALSE(FoundConfiguration().isGenerated());
}

TEST(CaOfPath, StandsBetweenThePrefixAndTheEnding) {
  EXPECT_EQ(caOfPath("C:\\folder.d\\qmrk_logging_CA12.cfg"), "CA12");
  EXPECT_EQ(caOfPath("qmrk_logging_GE.init"), "GE");
  EXPECT_EQ(caOfPath("\\qmrk_logging_A.B.cfg"), "A.B");
  EXPECT_EQ(caOfPath("\\qmrk_logging_.cfg"), "");
}

TEST(CaOfPath, StaysEmptyForAnyOtherName) {
  for (const char* path : {"", "\\", "a.cfg", "qmrk_logging_CA12", "qmrk_logging.cfg", "a.b\\qmrk_logging_CA12"}) {
    EXPECT_EQ(caOfPath(path), "") << path;
  }
}

}  // namespace
