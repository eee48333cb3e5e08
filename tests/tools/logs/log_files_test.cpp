// SPDX-License-Identifier: MIT
#include "tools/logs/log_files.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace {

using qmrkctl::backupNumber;
using testsupport::TemporaryFolder;
using testsupport::writeFile;
using Names = std::vector<std::string>;

TEST(LogFiles, HaveNumbersInTheirNames) {
  EXPECT_EQ(backupNumber("x_log.txt.3", "x_log.txt"), 3U);
  EXPECT_EQ(backupNumber("x_log.txt.120", "x_log.txt"), 120U);
  for (const char* const name : {"x_log.txt", "x_log.txt.", "x_log.txt.0", "x_log.txt.01", "x_log.txt.1a", "x_log.txt1",
                                 "y_log.txt.1", "x_log.txt.-1", "x_log.txt.99999999999999999999"})
    EXPECT_EQ(backupNumber(name, "x_log.txt"), 0U) << name;
}

TEST(LogFiles, ComeOldestFirst) {
  const TemporaryFolder folder;
  for (const char* const name :
       {"x_log.txt", "x_log.txt.1", "x_log.txt.2", "x_log.txt.10", "x_log.txt.old", "xx_log.txt.1", "y_log.txt"})
    writeFile(folder.file(name), "");
  EXPECT_EQ(qmrkctl::filesOfLog(folder.file("x_log.txt")),
            (Names{folder.file("x_log.txt.10"), folder.file("x_log.txt.2"), folder.file("x_log.txt.1"),
                   folder.file("x_log.txt")}));
}

TEST(LogFiles, MayLackTheLogItself) {
  const TemporaryFolder folder;
  EXPECT_EQ(qmrkctl::filesOfLog(folder.file("x_log.txt")), Names{});
  EXPECT_EQ(qmrkctl::filesOfLog(folder.file("missing\\x_log.txt")), Names{});
  writeFile(folder.file("x_log.txt.1"), "");
  EXPECT_EQ(qmrkctl::filesOfLog(folder.file("x_log.txt")), Names{folder.file("x_log.txt.1")});
}

TEST(LogFiles, IncludeThoseOfApplicationsByTheirNames) {
  const TemporaryFolder folder;
  for (const char* const name :
       {"b_log.txt", "b_log.txt.1", "a_log.txt.2", "c.txt", "d_log.txt.old", "e_log.txt_log.txt"})
    writeFile(folder.file(name), "");
  EXPECT_EQ(qmrkctl::applicationLogsIn(folder.path()), (Names{"a", "b", "e_log.txt"}));
  EXPECT_EQ(qmrkctl::applicationLogsIn(folder.file("missing")), Names{});
}

}  // namespace
