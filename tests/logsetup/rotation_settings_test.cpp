// SPDX-License-Identifier: MIT
#include "logsetup/rotation_settings.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/config_sandbox.h"
#include "tests/trace/traced_console.h"

namespace {

using Quillmark_logging::oneLessThan;
using Quillmark_logging::readRotationSettings;
using Quillmark_logging::RotationSettings;

// Only what the function itself prints, not what its look-ups print.
std::string ownLines(const std::string& _trace) {
  std::string lines;
  for (std::size_t begin = 0, end = 0; (end = _trace.find("\r\n", begin)) != std::string::npos; begin = end + 2) {
    const std::string line = _trace.substr(begin, end + 2 - begin);
    if (line.find("createApplicationSpecificLogFile()") != std::string::npos) lines += line;
  }
  return lines;
}

class RotationSettingsTest : public testing::Test {
 protected:
  // Reads the settings from a configuration of the given text.
  RotationSettings read(const std::string& _cfg) {
    sandbox_.writeCfg("CA12", _cfg);
    const testsupport::TracedConsole console;
    RotationSettings settings = readRotationSettings("CA12");
    trace_ = ownLines(console.text());
    return settings;
  }

  const std::string usingDefaults_ =
      "-!- Quillmark_logging::createApplicationSpecificLogFile() Using default values\r\n";
  std::string trace_;

 private:
  testsupport::ConfigSandbox sandbox_;
};

TEST_F(RotationSettingsTest, ComeFromBothKeys) {
  const auto settings = read("SPEC_LOG_FILE_LIMIT=500\nSPEC_NR_OF_LOG_FILES=3\n");
  EXPECT_EQ(settings.fileLimit, "500");
  EXPECT_EQ(settings.nrOfFiles, "3");
  EXPECT_EQ(trace_, "--- Quillmark_logging::createApplicationSpecificLogFile() fileLimit=500, nrOfFiles=3\r\n");
}

TEST_F(RotationSettingsTest, KeepTextsThatAreNoNumbers) {
  const auto settings = read("SPEC_LOG_FILE_LIMIT=abc\nSPEC_NR_OF_LOG_FILES=many\n");
  EXPECT_EQ(settings.fileLimit, "abc");
  EXPECT_EQ(settings.nrOfFiles, "many");
  EXPECT_EQ(trace_, "--- Quillmark_logging::createApplicationSpecificLogFile() fileLimit=abc, nrOfFiles=many\r\n");
}

TEST_F(RotationSettingsTest, UseTheDefaultsWithoutBothKeys) {
  const auto settings = read("LOG_STATE=TRUE\n");
  EXPECT_EQ(settings.fileLimit, "1024000");
  EXPECT_EQ(settings.nrOfFiles, "5");
  EXPECT_EQ(trace_, usingDefaults_);
}

TEST_F(RotationSettingsTest, LeaveTheNumberOfFilesUnreadWithoutALimit) {
  const auto settings = read("SPEC_NR_OF_LOG_FILES=3\n");
  EXPECT_EQ(settings.fileLimit, "1024000");
  EXPECT_EQ(settings.nrOfFiles, "5");
  EXPECT_EQ(trace_, usingDefaults_);
}

TEST_F(RotationSettingsTest, KeepTheLimitWithoutANumberOfFilesDespiteTheTrace) {
  const auto settings = read("SPEC_LOG_FILE_LIMIT=xyz\n");
  EXPECT_EQ(settings.fileLimit, "xyz");
  EXPECT_EQ(settings.nrOfFiles, "5");
  EXPECT_EQ(trace_, usingDefaults_);
}

TEST(OneLessThan, SubtractsOneFromTheNumberAtTheBeginning) {
  EXPECT_EQ(oneLessThan("1024000"), 1023999);
  EXPECT_EQ(oneLessThan("1"), 0);
  EXPECT_EQ(oneLessThan("  +12 files"), 11);
  EXPECT_EQ(oneLessThan("-3"), -4);
}

TEST(OneLessThan, GivesMinusOneForATextWithoutANumber) {
  for (const char* text : {"0", "", "abc", "- 5", "#7"}) {
    EXPECT_EQ(oneLessThan(text), -1) << text;
  }
}

TEST(OneLessThan, StaysWithinTheRangeOfTheType) {
  using Limits = std::numeric_limits<std::int32_t>;
  EXPECT_EQ(oneLessThan("99999999999999999999999"), Limits::max() - 1);
  EXPECT_EQ(oneLessThan("2147483648"), Limits::max() - 1);
  EXPECT_EQ(oneLessThan("-2147483648"), Limits::max());
  EXPECT_EQ(oneLessThan("-99999999999999999999999"), Limits::max());
}

}  // namespace
