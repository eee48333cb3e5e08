// SPDX-License-Identifier: MIT
// A ts_appender in place of another one, as a second set-up connects it.
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "boost/logging/logging.hpp"
#include "tests/logmanager/appenders/parked_writer.h"
#include "tests/logmanager/appenders/wrapped_appender.h"

namespace {

using boost::logging::ts_appender;

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

}  // namespace
