// SPDX-License-Identifier: MIT
#include "logmanager/appenders/batch_writer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>

#include "tests/logmanager/appenders/parked_writer.h"
#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

using boost::logging::write_to_file;
using testsupport::ParkedWriter;

TEST(BatchWriter, DeliversOnceWhatAThreadWasAboutToAppendWhenItWasEnded) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("ended.log");
  const write_to_file file(path, false);
  ParkedWriter writer(file);
  const testsupport::CallHook hook(platform::Call::append, 1, [&writer] { writer.park(); });
  writer.start("parked\n", "later\n");
  writer.finish();
  EXPECT_EQ(testsupport::replaced(testsupport::readFile(path), "\r\n", "\n"), "parked\nlater\n");
}

TEST(BatchWriter, DoesNotEnterAForeignAppenderAgainInWhichItsThreadWasEnded) {
  std::atomic<int> calls{0};
  ParkedWriter* parked = nullptr;
  ParkedWriter writer([&calls, &parked](const std::string&, const std::string&) {
    ++calls;
    parked->park();
  });
  parked = &writer;
  writer.start("parked\n", "later\n");
  writer.finish();
  EXPECT_EQ(calls.load(), 1);
}

}  // namespace
