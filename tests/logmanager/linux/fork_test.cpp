// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "boost/logging/logging.hpp"
#include "tests/support/linux/forked_child.h"
#include "tests/support/temporary_folder.h"

// A child that is forked while other threads run may not start threads under the thread sanitizer, unless told so.
//
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): the name is the sanitizer's
extern "C" __attribute__((visibility("default"))) const char* __tsan_default_options() { return "die_after_fork=0"; }

namespace {

namespace bl = boost::logging;
using testsupport::inForkedChild;

TEST(Fork, ParentAndChildEachDeliverTheirOwnMessagesOnce) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("fork.log");
  std::optional<bl::ts_appender> appender(std::in_place, bl::write_to_file(path, false), 200);
  (*appender)("", "start\n");
  (*appender)("", "held by the parent\n");
  EXPECT_EQ(inForkedChild([&appender] {
              (*appender)("", "of the child\n");
              appender.reset();
              // The text of the child is delivered by its own thread, which the end of the process waits for.
              std::exit(0);
              return 0;
            }),
            0);
  (*appender)("", "of the parent\n");
  appender.reset();
  std::string text;
  do {
    text = testsupport::readFile(path);
  } while (text.find("of the parent\n") == std::string::npos);
  text = testsupport::replaced(text, "start\n", "1");
  text = testsupport::replaced(text, "held by the parent\n", "2");
  text = testsupport::replaced(text, "of the child\n", "c");
  text = testsupport::replaced(text, "of the parent\n", "3");
  EXPECT_EQ(testsupport::replaced(text, "c", ""), "123");
  EXPECT_EQ(text.size(), 4U);
}

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
