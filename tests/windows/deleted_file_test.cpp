// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdio>

#include "boost/logging/logging.hpp"
#include "logmanager/threads/thread_state.h"
#include "tests/support/running_system.h"
#include "tests/support/temporary_folder.h"

namespace {

// A name may stay taken until the last handle of its file is closed, which is the appender's own.
TEST(DeletedFile, ReappearsThoughTheAppenderHasItOpen) {
  if (testsupport::cannotRunUnderWine("a file that was deleted while it is open can still be opened by its name, and "
                                      "nothing tells of the deletion")) {
    return;
  }
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("app.log");
  const boost::logging::write_to_file appender(path, false);
  {
    const boost::logging::detail::MessageScope scope(boost::logging::detail::threadState(), 1000000);
    appender("App", "1\n");
  }
  ASSERT_EQ(std::remove(path.c_str()), 0);
  {
    const boost::logging::detail::MessageScope scope(boost::logging::detail::threadState(), 1000999);
    appender("App", "2\n");
  }
  EXPECT_EQ(testsupport::readFile(path), "2\r\n");
}

}  // namespace
