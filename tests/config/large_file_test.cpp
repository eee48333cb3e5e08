// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "config/cfg_data_manager.h"
#include "platform/fault.h"
#include "tests/config/scarce_memory.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/support/processor_time.h"

namespace {

constexpr int entries = 1'000'000;

// A million entries of one kind, as "KEY000042=value000042", or "Class.000042;".
std::string manyEntries(const std::string& _begin, const std::string& _middle, const std::string& _end) {
  std::string text;
  for (int entry = 0; entry < entries; ++entry) {
    const std::string number = std::to_string(entries + entry);
    text.append(_begin).append(number);
    if (!_middle.empty()) text.append(_middle).append(number);
    text.append(_end);
  }
  return text;
}

class LargeFile : public ::testing::Test {
 protected:
  testsupport::ConfigSandbox sandbox_;
  CfgDataManager* store_ = CfgDataManager::getInstance(false);
};

TEST_F(LargeFile, CostsALookupOneReadAndThreeTimesItsSizeAtMost) {
  const std::string text = manyEntries("KEY", "=value", "  \n");
  sandbox_.writeCfg("CA12", text);
  const std::string path = sandbox_.cfgPath("CA12");
  const testsupport::FaultPlan reads(platform::Call::openForReading, 1000, platform::errorAccessDenied);
  const auto before = testsupport::processorTime();
  const testsupport::MemoryPeak memory;
  std::string value;
  EXPECT_TRUE(store_->getCfgValue(path, "KEY1999999", value));
  EXPECT_EQ(value, "value1999999");
  EXPECT_FALSE(store_->getCfgValue(path, "missing", value));
  EXPECT_EQ(reads.calls(), 2);
  EXPECT_LT(memory.bytes(), 3 * text.size());
  RecordProperty("microseconds", static_cast<int>((testsupport::processorTime() - before).count()));
}

TEST_F(LargeFile, OfTabsCostsThreeTimesItsSizeAtMost) {
  constexpr std::size_t size = 10'000'000;
  sandbox_.writeCfg("CA12", "OTHER=" + std::string(size, '\t') + "\nKEY=value" + std::string(size, '\t') + "\n");
  const testsupport::MemoryPeak memory;
  std::string value;
  EXPECT_TRUE(store_->getCfgValue(sandbox_.cfgPath("CA12"), "KEY", value));
  EXPECT_EQ(value, "value");
  EXPECT_LT(memory.bytes(), 3 * 2 * size);
}

TEST_F(LargeFile, CostsAClassListOneReadAndThreeTimesItsSizeAtMost) {
  const std::string text = manyEntries("Class.", "", ";\r\n");
  sandbox_.writeInit("CA12", text);
  const testsupport::FaultPlan reads(platform::Call::openForReading, 1000, platform::errorAccessDenied);
  const auto before = testsupport::processorTime();
  const testsupport::MemoryPeak memory;
  std::string classes;
  EXPECT_TRUE(store_->getEnabledLogClasses("CA12", classes));
  EXPECT_EQ(reads.calls(), 1);
  EXPECT_LT(memory.bytes(), 3 * text.size());
  EXPECT_EQ(classes.size(), text.size() - entries);
  RecordProperty("microseconds", static_cast<int>((testsupport::processorTime() - before).count()));
}

}  // namespace
