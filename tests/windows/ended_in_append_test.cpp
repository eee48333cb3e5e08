// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "tests/logmanager/appenders/parked_writer.h"
#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

// Only the system knows that the text has reached the file; the thread has not come to note anything.
TEST(EndedInAppend, DoesNotRepeatTextThatHasJustReachedTheFile) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("ended.log");
  const boost::logging::write_to_file file(path, false);
  testsupport::ParkedWriter writer(file);
  const testsupport::CallHook hook(platform::Call::appended, 1, [&writer] { writer.park(); });
  writer.start("parked\n", "later\n");
  writer.finish();
  EXPECT_EQ(testsupport::readFile(path), "parked\r\nlater\r\n");
}

}  // namespace
