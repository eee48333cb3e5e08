// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/prctl.h>

#include <algorithm>
#include <fstream>
#include <ostream>
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

/// A list of a million classes: of each, what stands before and behind its number.
struct Form {
  const char* name;
  const char* beginning;
  const char* ending;
  /// What follows the name of a class in that of a log that the class selects.
  const char* rest;
};

std::ostream& operator<<(std::ostream& _stream, const Form& _form) { return _stream << _form.name; }

class ListInMemory : public testsupport::LogSetup {
 protected:
  void writeText(const std::string& _ca, const std::string& _text) {
    sandbox_.writeCfg(_ca, "LOG_STATE=TRUE\n");
    sandbox_.writeInit(_ca, _text);
    size_ = _text.size();
  }

  void update(const std::string& _ca) {
    const auto begin = testsupport::processorTime();
    ASSERT_TRUE(Quillmark_logging::updateLogLevels(_ca));
    microseconds_ = std::max(microseconds_, static_cast<int>((testsupport::processorTime() - begin).count()));
  }

  // What was freed before does not count as taken, nor what the system adds to a block to make it a large page.
  void beginToMeasure() {
    ASSERT_EQ(::prctl(PR_SET_THP_DISABLE, 1, 0, 0, 0), 0);
    ::malloc_trim(0);
    forgetPeak();
    before_ = memory("VmRSS:");
  }

  /// The most memory that was taken at once, as a multiple of the size of a list.
  double peakInSizes() {
    const double ratio = static_cast<double>(memory("VmHWM:") - before_) / static_cast<double>(size_);
    RecordProperty("ratio", std::to_string(ratio));
    RecordProperty("microseconds", microseconds_);
    return ratio;
  }

 private:
  std::size_t size_ = 0;
  std::size_t before_ = 0;
  int microseconds_ = 0;
};

class LargeClassList : public ListInMemory, public testing::WithParamInterface<Form> {
 protected:
  /// Of classes whose numbers begin with this one.
  void writeList(const std::string& _ca, int _first) {
    std::string text;
    for (int i = 0; i < entries; ++i)
      text.append(GetParam().beginning).append(std::to_string(_first + i)).append(GetParam().ending).append(";\r\n");
    writeText(_ca, text);
  }

  std::string logOf(int _class) const { return GetParam().beginning + std::to_string(_class) + GetParam().rest; }
};

TEST_P(LargeClassList, TakesNoMoreThanThreeTimesItsSize) {
  writeList("CA12", entries);
  beginToMeasure();
  update("CA12");
  EXPECT_LT(peakInSizes(), 3);
  EXPECT_TRUE(isOn(logOf(1999999)));
  EXPECT_FALSE(isOn(logOf(2000000)));
}

// The rules of the former list are there as well until the others replace them.
TEST_P(LargeClassList, TakesNoMoreThanThreeTimesItsSizeWhenRepeated) {
  writeList("CA12", entries);
  beginToMeasure();
  for (int round = 0; round < 3; ++round)
    update("CA12");
  EXPECT_LT(peakInSizes(), 3);
  EXPECT_TRUE(isOn(logOf(1999999)));
}

TEST_P(LargeClassList, TakesNoMoreThanThreeTimesItsSizeInPlaceOfOneWithOtherNames) {
  writeList("CA12", entries);
  writeList("CA13", 2 * entries);
  beginToMeasure();
  update("CA12");
  update("CA13");
  EXPECT_LT(peakInSizes(), 3);
  EXPECT_FALSE(isOn(logOf(1999999)));
  EXPECT_TRUE(isOn(logOf(2999999)));
}

INSTANTIATE_TEST_SUITE_P(Forms, LargeClassList,
                         testing::Values(Form{"OfNames", "Class.", "", ".info"},
                                         Form{"WithAStarBehind", "Class.", "*", ".info"},
                                         Form{"WithAStarInFront", "*.Class", "", ""}),
                         [](const auto& _info) { return std::string(_info.param.name); });

/// A list of one entry over and over.
class MonotonousClassList : public ListInMemory, public testing::WithParamInterface<const char*> {};

TEST_P(MonotonousClassList, TakesNoMoreThanThreeTimesItsSize) {
  std::string text;
  for (int i = 0; i < 4 * entries; ++i)
    text.append(GetParam()).append(";");
  writeText("CA12", text);
  beginToMeasure();
  update("CA12");
  EXPECT_LT(peakInSizes(), 3);
  EXPECT_TRUE(isOn(GetParam()));
  EXPECT_FALSE(isOn("Other"));
}

INSTANTIATE_TEST_SUITE_P(Entries, MonotonousClassList, testing::Values("", "ab", "a*"),
                         [](const auto& _info) { return "Number" + std::to_string(_info.index); });

}  // namespace
