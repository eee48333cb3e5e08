// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>

#include "config/cfg_data_manager.h"
#include "platform/text_file.h"
#include "tests/config/records.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/support/golden.h"
#include "tests/support/system_path.h"
#include "tests/trace/traced_console.h"

namespace {

using platform::Call;
using testsupport::AsUnprivilegedUser;
using testsupport::FaultPlan;
using testsupport::makeFolders;
using testsupport::matchesGolden;
using testsupport::readFile;
using testsupport::recordsIn;
using testsupport::TracedConsole;
using Records = std::vector<std::string>;

class ClassStore : public testing::Test {
 protected:
  std::string infoFile() const { return sandbox_.logFolder() + "\\qmrk.info"; }

  void makeInfoFileForEveryone() const {
    makeFolders(sandbox_.logFolder());
    testsupport::writeFile(infoFile(), "");
    std::filesystem::permissions(testsupport::systemPath(infoFile()), std::filesystem::perms::all);
  }

  bool hasRecords() const { return testsupport::exists(infoFile()); }

  testing::AssertionResult getTraceMatches(const std::string& _ca, const std::string& _golden) {
    const TracedConsole console;
    std::string classes;
    CfgDataManager::getInstance(true)->getEnabledLogClasses(_ca, classes);
    return matchesGolden(sandbox_.masked(console.text()), _golden);
  }

  testing::AssertionResult setTraceMatches(const std::string& _ca, const std::string& _classes,
                                           const std::string& _golden) {
    const TracedConsole console;
    CfgDataManager::getInstance(true)->setEnabledLogClasses(_ca, _classes);
    return matchesGolden(sandbox_.masked(console.text()), _golden);
  }

  testsupport::ConfigSandbox sandbox_;
  CfgDataManager* store_ = CfgDataManager::getInstance(false);
  std::string classes_;
};

TEST_F(ClassStore, ReadsTheWholeFile) {
  sandbox_.writeInit("CA12", "A;\n B;\n\n");
  EXPECT_TRUE(store_->getEnabledLogClasses("ca12", classes_));
  EXPECT_EQ(classes_, "A;\n B;\n\n");
}

TEST_F(ClassStore, ReadsCrLfAsLf) {
  sandbox_.writeInit("CA12", "A;\r\nB;\rC");
  EXPECT_TRUE(store_->getEnabledLogClasses("CA12", classes_));
  EXPECT_EQ(classes_, "A;\nB;\rC");
}

TEST_F(ClassStore, AppendsToTheTextOfTheCaller) {
  sandbox_.writeInit("CA12", "B;");
  classes_ = "A;";
  EXPECT_TRUE(store_->getEnabledLogClasses("CA12", classes_));
  EXPECT_EQ(classes_, "A;B;");
}

TEST_F(ClassStore, ReadsAnEmptyFileAsAnEmptyList) {
  sandbox_.writeInit("CA12", "");
  EXPECT_TRUE(store_->getEnabledLogClasses("CA12", classes_));
  EXPECT_EQ(classes_, "");
}

TEST_F(ClassStore, ReadsTheCfgFileOfTheGenericCaWithoutARedirection) {
  sandbox_.writeCfg("GE", "CA_NR=GE\n");
  sandbox_.writeInit("GE", "A;");
  EXPECT_TRUE(store_->getEnabledLogClasses("ge", classes_));
  EXPECT_EQ(classes_, "CA_NR=GE\n");
}

TEST_F(ClassStore, RecordsAMissingFile) {
  makeFolders(sandbox_.logFolder());
  EXPECT_FALSE(store_->getEnabledLogClasses("ca12", classes_));
  EXPECT_EQ(classes_, "");
  EXPECT_EQ(recordsIn(infoFile()), Records{"Failed to open file " + sandbox_.initPath("CA12") + " [ca12] "});
}

TEST_F(ClassStore, RecordsNothingWithoutALogFolder) {
  EXPECT_FALSE(store_->getEnabledLogClasses("CA12", classes_));
  EXPECT_FALSE(testsupport::exists(sandbox_.logFolder()));
}

TEST_F(ClassStore, FailsOnAFolderInPlaceOfTheFile) {
  makeFolders(sandbox_.initPath("CA12"));
  EXPECT_FALSE(store_->getEnabledLogClasses("CA12", classes_));
}

TEST_F(ClassStore, RecordsAFileThatIsTooLarge) {
  makeFolders(sandbox_.logFolder());
  sandbox_.writeInit("CA12", "A;");
  std::filesystem::resize_file(testsupport::systemPath(sandbox_.initPath("CA12")), platform::largestTextFile + 1);
  EXPECT_FALSE(store_->getEnabledLogClasses("CA12", classes_));
  EXPECT_EQ(classes_, "");
  EXPECT_EQ(recordsIn(infoFile()), Records{"Failed to open file " + sandbox_.initPath("CA12") + " [CA12] "});
}

TEST_F(ClassStore, RecordsAFileThatCannotBeReadToItsEnd) {
  makeFolders(sandbox_.logFolder());
  sandbox_.writeInit("CA12", "A;" + std::string(200'000, 'b'));
  const FaultPlan failure(Call::read, 2, platform::errorAccessDenied);
  classes_ = "untouched";
  const TracedConsole console;
  EXPECT_FALSE(CfgDataManager::getInstance(true)->getEnabledLogClasses("CA12", classes_));
  EXPECT_EQ(classes_, "untouched");
  EXPECT_NE(console.text().find("<!= CfgDataManager::getEnabledLogClasses() ERROR: Failed to open file " +
                                sandbox_.initPath("CA12") + "\r\n"),
            std::string::npos);
  EXPECT_EQ(recordsIn(infoFile()), Records{"Failed to open file " + sandbox_.initPath("CA12") + " [CA12] "});
}

TEST_F(ClassStore, RecordsAnUnreadableFile) {
  makeInfoFileForEveryone();
  sandbox_.writeInit("CA12", "A;");
  testsupport::denyAccess(sandbox_.initPath("CA12"));
  {
    const AsUnprivilegedUser user;
    EXPECT_FALSE(store_->getEnabledLogClasses("CA12", classes_));
  }
  EXPECT_EQ(recordsIn(infoFile()), Records{"Failed to open file " + sandbox_.initPath("CA12") + " [CA12] "});
}

TEST_F(ClassStore, RecordsThatAnOpenFileIsDenied) {
  makeFolders(sandbox_.logFolder());
  sandbox_.writeInit("CA12", "A;");
  const FaultPlan failure(Call::accessTest, 1, platform::errorAccessDenied);
  EXPECT_FALSE(store_->getEnabledLogClasses("CA12", classes_));
  EXPECT_EQ(classes_, "");
  EXPECT_EQ(recordsIn(infoFile()),
            Records{"The file " + sandbox_.initPath("CA12") + " doesn't have READ permission. [CA12] "});
}

TEST_F(ClassStore, RecordsAnUnknownFolder) {
  makeFolders(sandbox_.logFolder());
  const FaultPlan failure(Call::shellFolder, 1, platform::errorPathNotFound);
  EXPECT_FALSE(store_->getEnabledLogClasses("CA12", classes_));
  EXPECT_EQ(recordsIn(infoFile()), Records{"Failed to get path to the enabled log class/es file. [CA12] "});
}

TEST_F(ClassStore, RecordsNothingForAnEmptyCa) {
  makeFolders(sandbox_.logFolder());
  EXPECT_FALSE(store_->getEnabledLogClasses("", classes_));
  EXPECT_FALSE(hasRecords());
}

// ---- Setting ----

TEST_F(ClassStore, ReplacesTheFileByTheTextAsItIs) {
  sandbox_.writeInit("CA12", "old content;");
  EXPECT_TRUE(store_->setEnabledLogClasses("ca12", "A;B;"));
  EXPECT_EQ(readFile(sandbox_.initPath("CA12")), "A;B;");
}

TEST_F(ClassStore, WritesNativeLineEnds) {
  EXPECT_TRUE(store_->setEnabledLogClasses("CA12", "A;\nB;\n"));
  EXPECT_EQ(readFile(sandbox_.initPath("CA12")), testsupport::nativeLineEnds("A;\nB;\n"));
}

TEST_F(ClassStore, RefusesAnEmptyListAndLeavesTheFileUnchanged) {
  makeFolders(sandbox_.logFolder());
  sandbox_.writeInit("CA12", "A;");
  EXPECT_FALSE(store_->setEnabledLogClasses("CA12", ""));
  EXPECT_EQ(readFile(sandbox_.initPath("CA12")), "A;");
  EXPECT_FALSE(hasRecords());
}

TEST_F(ClassStore, RecordsNothingWhenItHasNoPathToWriteTo) {
  makeFolders(sandbox_.logFolder());
  const FaultPlan failure(Call::shellFolder, 1, platform::errorPathNotFound);
  EXPECT_FALSE(store_->setEnabledLogClasses("CA12", "A;"));
  EXPECT_FALSE(hasRecords());
}

TEST_F(ClassStore, RecordsThatTheFileIsReadOnly) {
  makeInfoFileForEveryone();
  sandbox_.writeInit("CA12", "A;");
  testsupport::denyWriting(sandbox_.initPath("CA12"));
  {
    const AsUnprivilegedUser user;
    EXPECT_FALSE(store_->setEnabledLogClasses("CA12", "B;"));
  }
  EXPECT_EQ(readFile(sandbox_.initPath("CA12")), "A;");
  EXPECT_EQ(recordsIn(infoFile()), Records{"Failed to open file " + sandbox_.initPath("CA12") +
                                           ".The doesn't have WRITE permission. [CA12] "});
}

TEST_F(ClassStore, LeavesAShorterRecordWhenItCannotOpenAWritableFile) {
  makeFolders(sandbox_.logFolder());
  makeFolders(sandbox_.initPath("CA12"));
  EXPECT_FALSE(store_->setEnabledLogClasses("CA12", "B;"));
  EXPECT_EQ(recordsIn(infoFile()), Records{"Failed to open file " + sandbox_.initPath("CA12") + " [CA12] "});
}

TEST_F(ClassStore, RecordsThatTheDiskIsFull) {
  makeFolders(sandbox_.logFolder());
  const FaultPlan failure(Call::write, 1, platform::errorDiskFull);
  EXPECT_FALSE(store_->setEnabledLogClasses("CA12", "A;"));
  EXPECT_EQ(recordsIn(infoFile()), Records{"Failed to open file " + sandbox_.initPath("CA12") + " [CA12] "});
}

// ---- Traces ----

TEST_F(ClassStore, TracesAList) {
  sandbox_.writeInit("CA12", "A;\r\nB;");
  EXPECT_TRUE(getTraceMatches("CA12", "config_classes_get.txt"));
}

TEST_F(ClassStore, TracesAListThatIsReadInPieces) {
  std::string list;
  while (list.size() < 150'000)
    list += "Class." + std::to_string(list.size()) + ";";
  sandbox_.writeInit("CA12", list);
  const TracedConsole console;
  EXPECT_TRUE(CfgDataManager::getInstance(true)->getEnabledLogClasses("CA12", classes_));
  EXPECT_EQ(classes_, list);
  EXPECT_TRUE(
      console.text().ends_with("<== CfgDataManager::getEnabledLogClasses() Enabled log classes: \"" + list + "\"\r\n"));
}

TEST_F(ClassStore, TracesAnEmptyList) {
  sandbox_.writeInit("CA12", "");
  EXPECT_TRUE(getTraceMatches("CA12", "config_classes_get_empty.txt"));
}

TEST_F(ClassStore, TracesAMissingFile) { EXPECT_TRUE(getTraceMatches("CA12", "config_classes_get_missing_file.txt")); }

TEST_F(ClassStore, TracesADeniedFileWithoutALineOfItsOwn) {
  sandbox_.writeInit("CA12", "A;");
  const FaultPlan failure(Call::accessTest, 1, platform::errorAccessDenied);
  EXPECT_TRUE(getTraceMatches("CA12", "config_classes_get_denied_file.txt"));
}

TEST_F(ClassStore, TracesAMissingPath) { EXPECT_TRUE(getTraceMatches("", "config_classes_get_no_path.txt")); }

TEST_F(ClassStore, TracesANewList) { EXPECT_TRUE(setTraceMatches("CA12", "A;B;", "config_classes_set.txt")); }

TEST_F(ClassStore, TracesARefusedList) { EXPECT_TRUE(setTraceMatches("CA12", "", "config_classes_set_empty.txt")); }

TEST_F(ClassStore, TracesAFullDiskLikeAFileThatItCannotOpen) {
  const FaultPlan failure(Call::write, 1, platform::errorDiskFull);
  EXPECT_TRUE(setTraceMatches("CA12", "A;", "config_classes_set_failed.txt"));
}

TEST_F(ClassStore, TracesAFileThatItCannotOpen) {
  makeFolders(sandbox_.initPath("CA12"));
  EXPECT_TRUE(setTraceMatches("CA12", "A;", "config_classes_set_failed.txt"));
}

}  // namespace
