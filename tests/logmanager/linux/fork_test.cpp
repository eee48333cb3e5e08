// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "boost/logging/logging.hpp"
#include "tests/support/linux/forked_child.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace bl = boost::logging;
using testsupport::inForkedChild;

TEST(Fork, AChildMayLogThroughTheManager) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("fork.log");
  bl::flush_log_cache();
  bl::default_log_manager& manager = bl::get_default_log_manager();
  bl::add_appender(manager, "F1", bl::write_to_file(path, false), "A", 100);
  bl::logger("F1").write("parent\n");
  EXPECT_EQ(inForkedChild([&manager] {
              bl::logger("F1").write("child\n");
              bl::enable_logs(manager, "F1", 4294967295U);
              return bl::logger("F1").is_enabled() ? 1 : 0;
            }),
            0);
  bl::logger("F1").write("parent\n");
  EXPECT_EQ(testsupport::readFile(path), "parent\nchild\nparent\n");
}

}  // namespace
