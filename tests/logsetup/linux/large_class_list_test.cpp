// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "quillmark_logging.h"
#include "tests/logsetup/log_setup.h"
#include "tests/support/processor_time.h"

namespace {

constexpr int entries = 1'000'000;

/// The memory of this process that the status file of the system tells by that name, in bytes.
std::size_t memory(const std::string& _name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    std::size_t kilobytes = 0;
    if (word == _name && status >> kilobytes) return kilobytes * 1024;
  }
  ADD_FAILURE() << "no " << _name;
  return 0;
}

void forgetPeak() {
  std::ofstream references("/proc/self/clear_refs");
  references << '5' << std::flush;
  ASSERT_TRUE(references);
}

class LargeClassList : public testsupport::LogSetup {
 protected:
  void writeList() {
    std::string text;
    for (int i = 0; i < entries; ++i)
      text.append("Class.").append(std::to_string(entries + i)).append(";\r\n");
    sandbox_.writeInit("CA12", text);
    size_ = text.size();
  }

  std::size_t size_ = 0;
};

TEST_F(LargeClassList, TakesNoMoreThanThreeTimesItsSize) {
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n");
  writeList();
  forgetPeak();
  const std::size_t before = memory("VmRSS:");
  const auto begin = testsupport::processorTime();
  ASSERT_TRUE(Quillmark_logging::updateLogLevels("CA12"));
  RecordProperty("microseconds", static_cast<int>((testsupport::processorTime() - begin).count()));
  const std::size_t peak = memory("VmHWM:") - before;
  RecordProperty("kilobytes", static_cast<int>(peak / 1024));
  EXPECT_LT(peak, 3 * size_);
  EXPECT_TRUE(isOn("Class.1999999.info"));
  EXPECT_FALSE(isOn("Class.2000000"));
}

// The rules of the former list are there as well.
TEST_F(LargeClassList, TakesNoMoreThanFourTimesItsSizeWhenRepeated) {
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n");
  writeList();
  forgetPeak();
  const std::size_t before = memory("VmRSS:");
  for (int round = 0; round < 3; ++round)
    ASSERT_TRUE(Quillmark_logging::updateLogLevels("CA12"));
  EXPECT_LT(memory("VmHWM:") - before, 4 * size_);
}

}  // namespace
