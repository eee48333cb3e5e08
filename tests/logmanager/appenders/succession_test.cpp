// SPDX-License-Identifier: MIT
// A ts_appender in place of another one, as a second set-up connects it.
#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <thread>

#include "boost/logging/logging.hpp"
#include "tests/logmanager/appenders/parked_writer.h"
#include "tests/logmanager/appenders/wrapped_appender.h"
#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

using boost::logging::ts_appender;
using boost::logging::write_to_file;

std::uint64_t lostOf(const std::string& _path) {
  std::uint64_t lost = 0;
  boost::logging::list_files([&](const boost::logging::file_state& _file) {
    if (_file.path == _path) lost = _file.lost;
  });
  return lost;
}

TEST(TsSuccession, DeliversAfterWhatThePredecessorStillHolds) {
  testsupport::Wrapped file;
  testsupport::Parking parking;
  const boost::logging::appender write = file.appender();
  std::optional<ts_appender> former(
      std::in_place,
      [&parking, write](const std::string& _log, const std::string& _text) {
        parking.park();
        write(_log, _text);
      },
      0);
  (*former)("App", "1");
  parking.waitUntilParked();
  (*former)("App", "2");
  former.reset();
  const ts_appender later(write, 0);
  later("App", "3");
  // The first call has given the later one's thread its 100 ms.
  EXPECT_TRUE(file.calls().empty());
  parking.open();
  EXPECT_EQ(file.waitForText(3), "123");
}

TEST(TsSuccession, ReportsWhatThePredecessorLost) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("app.log");
  {
    const testsupport::FaultPlan plan(platform::Call::append, 1, platform::errorDiskFull);
    const ts_appender former(write_to_file(path, false), 0);
    former("App", "1\n");
    while (lostOf(path) == 0)
      std::this_thread::yield();
  }
  const ts_appender later(write_to_file(path, false), 0);
  later("App", "3\n");
  const auto text = [&path] { return testsupport::replaced(testsupport::readFile(path), "\r\n", "\n"); };
  while (text().find("3\n") == std::string::npos)
    std::this_thread::yield();
  EXPECT_EQ(text(), "1 message was lost: this file could not be written, error 112\n3\n");
}

}  // namespace
