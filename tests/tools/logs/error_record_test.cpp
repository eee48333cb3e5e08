// SPDX-License-Identifier: MIT
#include "tools/logs/error_record.h"

#include <gtest/gtest.h>

#include <string>

#include "config/class_store_error_record.h"
#include "config/qmrk_info_file.h"
#include "config/setup_error_record.h"

namespace {

using qmrkctl::ErrorRecord;
using qmrkctl::parseErrorRecord;
using qmrkctl::RecordKind;
using Quillmark_logging::errorInfoText;
using Quillmark_logging::errorRecordText;

constexpr char redirection[] = " Redirecting to configuration file appointed by qmrk_logging_GE.cfg instead.";

// The record that the library writes, taken apart.
ErrorRecord parsed(const std::string& _text) {
  const auto record = parseErrorRecord(Quillmark_logging::recordStamp({2007, 1, 5, 9, 3, 7, 0}) + _text);
  EXPECT_TRUE(record);
  return record.value_or(ErrorRecord());
}

TEST(ErrorRecord, NamesCaAndCallerOfAMissingConfiguration) {
  const auto record = parsed(errorInfoText(Quillmark_logging::invalidConfiguration, "CA7", "LogTest", redirection));
  EXPECT_EQ(record.kind, RecordKind::missingConfiguration);
  EXPECT_EQ(record.ca, "CA7");
  EXPECT_EQ(record.caller, "LogTest");
  EXPECT_EQ(record.file, "");
  EXPECT_EQ(qmrkctl::civilText(record.time), "2007-01-05 09:03:07");
}

TEST(ErrorRecord, NamesAMissingGenericConfiguration) {
  const auto record = parsed(errorInfoText(Quillmark_logging::invalidConfiguration, "GE", "", redirection));
  EXPECT_EQ(record.kind, RecordKind::missingConfiguration);
  EXPECT_EQ(record.ca, "GE");
  EXPECT_EQ(record.caller, "<Internal>");
  EXPECT_EQ(parsed(errorInfoText(Quillmark_logging::invalidConfiguration, "GE", "", "")).ca, "GE");
}

TEST(ErrorRecord, NamesAnUnreadableFile) {
  const auto record = parsed(errorInfoText(Quillmark_logging::faultyPermissions, "CA7", "LogTest",
                                           "/etc/xdg\\a\\qmrk_logging_CA7.cfg does not have read permission."));
  EXPECT_EQ(record.kind, RecordKind::unreadableConfiguration);
  EXPECT_EQ(record.file, "/etc/xdg\\a\\qmrk_logging_CA7.cfg");
  EXPECT_EQ(record.caller, "LogTest");
}

TEST(ErrorRecord, HasAKindForAnyOtherProblemOfASetUp) {
  const auto record = parsed(errorInfoText(Quillmark_logging::unspecifiedError, "CA7", "LogTest",
                                           "Failed to get configuration file path for CA7"));
  EXPECT_EQ(record.kind, RecordKind::noConfiguration);
  EXPECT_EQ(record.ca, "CA7");
}

TEST(ErrorRecord, NamesFileAndCaOfTheClassStore) {
  const auto missing = parsed(errorRecordText("CA12", "Failed to open file /var/lib\\x\\qmrk_logging_CA12.init", ""));
  EXPECT_EQ(missing.kind, RecordKind::unreadableClassList);
  EXPECT_EQ(missing.file, "/var/lib\\x\\qmrk_logging_CA12.init");
  EXPECT_EQ(missing.ca, "CA12");
  EXPECT_EQ(missing.caller, "");
  const auto denied = parsed(errorRecordText("CA12", "The file /x.init doesn't have READ permission.", ""));
  EXPECT_EQ(denied.kind, RecordKind::unreadableClassList);
  EXPECT_EQ(denied.file, "/x.init");
  const auto noPath = parsed(errorRecordText("CA12", "Failed to get path to the enabled log class/es file.", ""));
  EXPECT_EQ(noPath.kind, RecordKind::noClassListPath);
  const auto unwritable =
      parsed(errorRecordText("CA12", "Failed to open file /x.init.The doesn't have WRITE permission.", ""));
  EXPECT_EQ(unwritable.kind, RecordKind::unwritableClassList);
  EXPECT_EQ(unwritable.file, "/x.init");
}

TEST(ErrorRecord, MayLackTheFileInATextThatNamesOne) {
  const auto record = parseErrorRecord("2007/01/05 09:03:07 The file doesn't have READ permission. [2] ");
  ASSERT_TRUE(record);
  EXPECT_EQ(record->kind, RecordKind::unknown);
  EXPECT_EQ(record->text, "The file doesn't have READ permission. [2] ");
  EXPECT_EQ(parsed("2007/01/05 09:03:07 The file  doesn't have READ permission. [2] ").file, "");
}

TEST(ErrorRecord, SeparatesStrangeNames) {
  const auto record =
      parsed(errorInfoText(Quillmark_logging::invalidConfiguration, "CA.7 [x]", "a] [Called by b", redirection));
  EXPECT_EQ(record.kind, RecordKind::missingConfiguration);
  EXPECT_EQ(record.caller, "b") << "as far as it can be told";
  EXPECT_EQ(parsed(errorRecordText("a [b] ", "Failed to open file /x", "")).kind, RecordKind::unreadableClassList);
}

TEST(ErrorRecord, KeepsAnUnknownTextAsItIs) {
  for (const char* const text : {"something", "", " [CA1] ", " [Called by X]", "Faulty", "Failed to open file /x"}) {
    const auto record = parsed(text);
    EXPECT_EQ(record.kind, RecordKind::unknown) << text;
    EXPECT_EQ(record.text, text);
    EXPECT_EQ(record.ca + record.caller + record.file, "");
  }
}

TEST(ErrorRecord, NeedsAStamp) {
  for (const char* const text : {"", "text", "2007/01/05 09:03:07", "2007/13/05 09:03:07 x", "2007-01-05 09:03:07 x"})
    EXPECT_FALSE(parseErrorRecord(text)) << text;
}

TEST(ErrorRecord, ExplainsEachKind) {
  for (int kind = 0; kind <= static_cast<int>(RecordKind::unknown); ++kind) {
    ErrorRecord record;
    record.kind = static_cast<RecordKind>(kind);
    EXPECT_NE(explanationOf(record), "");
    EXPECT_NE(recordKindName(record.kind), "");
  }
}

}  // namespace
