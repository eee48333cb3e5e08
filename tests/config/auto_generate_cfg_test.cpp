// SPDX-License-Identifier: MIT
#include "config/auto_generate_cfg.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "config/cfg_data_manager.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/captured_console.h"
#include "tests/support/fault_plan.h"
#include "tests/support/golden.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::Call;
using testsupport::AsUnprivilegedUser;
using testsupport::CapturedConsole;
using testsupport::exists;
using testsupport::FaultPlan;
using testsupport::makeFolders;
using testsupport::matchesGolden;
using testsupport::namesIn;
using testsupport::readFile;
using testsupport::replaced;
using testsupport::writeFile;

class AutoGenerate : public testing::Test {
 protected:
  void addFile(const std::string& _name) { writeFile(folder_.file(_name), ""); }

  // The error descriptions of the path library name the folder in the system's form.
  std::string masked(const std::string& _trace) const { return replaced(_trace, folder_.path(), "<FOLDER>"); }

  testing::AssertionResult traceMatches(const std::string& _golden) const {
    return matchesGolden(masked(console_.text()), _golden);
  }

  const std::vector<std::string> names_{"qmrk_logging_CA07.cfg", "qmrk_logging_GE.cfg"};
  testsupport::TemporaryFolder folder_;
  std::string generated_ = folder_.file("qmrk_logging_GE.cfg");
  CapturedConsole console_;
  AutoGenerateCfg generator_{true};
};

TEST_F(AutoGenerate, RedirectsToTheFirstCaInNameOrder) {
  addFile("qmrk_logging_CA12.cfg");
  addFile("qmrk_logging_CA07.cfg");
  addFile("qmrk_logging_GE.cfg");
  EXPECT_TRUE(generator_.setCfgPath(folder_.path()));
  EXPECT_TRUE(generator_.generateGenericCfgFile());
  EXPECT_TRUE(traceMatches("config_generated.txt"));
  EXPECT_EQ(readFile(generated_),
            testsupport::nativeLineEnds("# CA Settings [file auto generated at 12:41:20 Jan 12 2007]\nCA_NR=GE\n"
                                        "REDIRECT_CA_NR=CA07\n"));
}

TEST_F(AutoGenerate, WritesAFileThatTheStoreReads) {
  addFile("qmrk_logging_CA07.cfg");
  generator_.setCfgPath(folder_.path());
  EXPECT_TRUE(generator_.generateGenericCfgFile());
  CfgDataManager* const store = CfgDataManager::getInstance(false);
  std::string value;
  EXPECT_TRUE(store->getCfgValue(generated_, "CA_NR", value));
  EXPECT_EQ(value, "GE");
  EXPECT_TRUE(store->getCfgValue(generated_, "REDIRECT_CA_NR", value));
  EXPECT_EQ(value, "CA07");
}

TEST_F(AutoGenerate, KeepsTheNamesOfItsFirstListing) {
  addFile("qmrk_logging_CA12.cfg");
  EXPECT_TRUE(generator_.traverseDirectory(folder_.path(), "CA12"));
  addFile("qmrk_logging_CA07.cfg");
  EXPECT_TRUE(generator_.setCfgPath(folder_.path()));
  EXPECT_TRUE(generator_.generateGenericCfgFile());
  EXPECT_NE(readFile(generated_).find("REDIRECT_CA_NR=CA12"), std::string::npos);
}

TEST_F(AutoGenerate, WritesNothingWhenThereIsOnlyAGenericFile) {
  writeFile(generated_, "CA_NR=GE\n");
  generator_.setCfgPath(folder_.path());
  EXPECT_FALSE(generator_.generateGenericCfgFile());
  EXPECT_EQ(readFile(generated_), "CA_NR=GE\n");
  EXPECT_TRUE(traceMatches("config_generate_no_ca.txt"));
}

TEST_F(AutoGenerate, SkipsAFolderWithTheNameOfACfgFile) {
  makeFolders(folder_.file("qmrk_logging_CA99.cfg"));
  generator_.setCfgPath(folder_.path());
  EXPECT_FALSE(generator_.getCA());
  EXPECT_FALSE(generator_.generateGenericCfgFile());
  EXPECT_FALSE(exists(generated_));
}

TEST_F(AutoGenerate, FindsNoCaInAnEmptyFolder) {
  generator_.setCfgPath(folder_.path());
  EXPECT_FALSE(generator_.getCA());
}

TEST_F(AutoGenerate, WritesNothingBeforeAFolderIsSet) {
  EXPECT_FALSE(generator_.generateGenericCfgFile());
  EXPECT_EQ(console_.text(),
            "==>  AutoGenerateCfg::generateGenericCfgFile()\r\n"
            "<!=  AutoGenerateCfg::generateGenericCfgFile() Failed to generate configuration file "
            "\"qmrk_logging_GE.cfg\", path is not set/valid.\r\n");
}

TEST_F(AutoGenerate, KeepsAMissingFolderAndFailsInIt) {
  EXPECT_FALSE(generator_.setCfgPath(folder_.file("missing")));
  EXPECT_FALSE(generator_.generateGenericCfgFile());
  EXPECT_TRUE(traceMatches("config_generate_missing_folder.txt"));
}

TEST_F(AutoGenerate, KeepsAReadOnlyFolderAndFailsInIt) {
  addFile("qmrk_logging_CA07.cfg");
  testsupport::denyWriting(folder_.path());
  {
    const AsUnprivilegedUser user;
    EXPECT_FALSE(generator_.setCfgPath(folder_.path()));
    EXPECT_FALSE(generator_.generateGenericCfgFile());
  }
  EXPECT_FALSE(exists(generated_));
  EXPECT_TRUE(traceMatches("config_generate_denied.txt"));
}

TEST_F(AutoGenerate, FailsWhenItCannotOpenTheFile) {
  addFile("qmrk_logging_CA07.cfg");
  makeFolders(generated_);
  generator_.setCfgPath(folder_.path());
  EXPECT_FALSE(generator_.generateGenericCfgFile());
  EXPECT_NE(masked(console_.text())
                .find("<!=  AutoGenerateCfg::generateGenericCfgFile() ERROR: Failed to open file "
                      "\"<FOLDER>\\qmrk_logging_GE.cfg\"\r\n"),
            std::string::npos);
}

TEST_F(AutoGenerate, FailsOnAFullDiskAndLeavesNoFile) {
  addFile("qmrk_logging_CA07.cfg");
  generator_.setCfgPath(folder_.path());
  const FaultPlan failure(Call::write, 1, platform::errorDiskFull);
  EXPECT_FALSE(generator_.generateGenericCfgFile());
  EXPECT_TRUE(masked(console_.text())
                  .ends_with("<!=  AutoGenerateCfg::generateGenericCfgFile() ERROR: Failed to open file "
                             "\"<FOLDER>\\qmrk_logging_GE.cfg\"\r\n"));
  EXPECT_FALSE(exists(generated_));
}

TEST_F(AutoGenerate, GivesTheFileItsNameWhenTheFileIsComplete) {
  addFile("qmrk_logging_CA07.cfg");
  generator_.setCfgPath(folder_.path());
  bool isThere = true;
  const testsupport::CallHook hook(Call::write, 1, [&] { isThere = exists(generated_); });
  EXPECT_TRUE(generator_.generateGenericCfgFile());
  EXPECT_FALSE(isThere);
  EXPECT_EQ(namesIn(folder_.path()), names_);
}

TEST_F(AutoGenerate, SucceedsInThreadsThatGenerateTheFileTogether) {
  addFile("qmrk_logging_CA07.cfg");
  generator_.setCfgPath(folder_.path());
  // The other thread begins and ends while this one has begun its file.
  std::string text;
  const testsupport::CallHook hook(Call::write, 1, [&] {
    std::thread([&] {
      AutoGenerateCfg other(false);
      EXPECT_TRUE(other.setCfgPath(folder_.path()));
      EXPECT_TRUE(other.generateGenericCfgFile());
      text = readFile(generated_);
    }).join();
  });
  EXPECT_TRUE(generator_.generateGenericCfgFile());
  EXPECT_NE(text.find("REDIRECT_CA_NR=CA07"), std::string::npos);
  EXPECT_EQ(readFile(generated_), text);
  EXPECT_EQ(namesIn(folder_.path()), names_);
}

TEST_F(AutoGenerate, RefusesToTraverseAFileOrAMissingPath) {
  addFile("f");
  EXPECT_FALSE(generator_.traverseDirectory(folder_.file("f"), ""));
  EXPECT_FALSE(generator_.traverseDirectory(folder_.file("missing"), "x"));
  EXPECT_EQ(masked(console_.text()),
            "==> AutoGenerateCfg::traverseDirectory() _directory=\"<FOLDER>\\f\", _filter=\"\"\r\n"
            "<!= AutoGenerateCfg::traverseDirectory() ERROR: \"<FOLDER>\\f\" in not a directory.\r\n"
            "==> AutoGenerateCfg::traverseDirectory() _directory=\"<FOLDER>\\missing\", _filter=\"x\"\r\n"
            "<!= AutoGenerateCfg::traverseDirectory() ERROR: \"<FOLDER>\\missing\" not found.\r\n");
}

TEST_F(AutoGenerate, TracesTheErrorOfAFolderThatItCannotList) {
  makeFolders(folder_.file("closed"));
  testsupport::denyAccess(folder_.file("closed"));
  {
    const AsUnprivilegedUser user;
    EXPECT_FALSE(generator_.traverseDirectory(folder_.file("closed"), ""));
  }
  const std::string trace = masked(console_.text());
  const std::string line =
      "<!= AutoGenerateCfg::traverseDirectory() ERROR: Exception caught traversing \"<FOLDER>\\closed\". Description: "
      "\"boost::filesystem::directory_iterator::construct: ";
  EXPECT_NE(trace.find(line), std::string::npos) << trace;
  EXPECT_TRUE(trace.ends_with("\".\r\n")) << trace;
}

TEST_F(AutoGenerate, ListsFilesAndFoldersAndCountsThem) {
  addFile("b.cfg");
  addFile("a.txt");
  makeFolders(folder_.file("sub"));
  addFile("sub\\not_listed");
  EXPECT_TRUE(generator_.showDirContent(folder_.path(), ""));
  EXPECT_TRUE(traceMatches("config_listing.txt"));
}

TEST_F(AutoGenerate, ListsOnlyNamesThatContainTheFilter) {
  addFile("b.cfg");
  addFile("a.txt");
  EXPECT_TRUE(generator_.showDirContent(folder_.path(), ".cfg"));
  EXPECT_TRUE(masked(console_.text())
                  .ends_with("<FOLDER>\r\nb.cfg\r\n\r\nSummary:\r\n\t1 File(s)\r\n\t0 Dir(s)\r\n"
                             "<== AutoGenerateCfg::showDirContent()\r\n"));
}

TEST_F(AutoGenerate, ShowsInTheNextListingWhatAFilterHid) {
  addFile("b.cfg");
  addFile("a.txt");
  EXPECT_TRUE(generator_.showDirContent(folder_.path(), ".cfg"));
  EXPECT_TRUE(generator_.showDirContent(folder_.path(), ""));
  EXPECT_TRUE(masked(console_.text())
                  .ends_with("<FOLDER>\r\na.txt\r\nb.cfg\r\n\r\nSummary:\r\n\t2 File(s)\r\n\t0 Dir(s)\r\n"
                             "<== AutoGenerateCfg::showDirContent()\r\n"));
}

TEST_F(AutoGenerate, ListsTheFirstFolderWhateverFolderIsNamedLater) {
  addFile("a.txt");
  EXPECT_TRUE(generator_.traverseDirectory(folder_.path(), "a"));
  addFile("b.txt");
  EXPECT_TRUE(generator_.showDirContent("other", ""));
  EXPECT_TRUE(masked(console_.text())
                  .ends_with("other\r\na.txt\r\n\r\nSummary:\r\n\t1 File(s)\r\n\t0 Dir(s)\r\n"
                             "<== AutoGenerateCfg::showDirContent()\r\n"));
}

TEST_F(AutoGenerate, NamesTheConfigurationFolderWhenAListingFails) {
  generator_.setCfgPath("set");
  EXPECT_FALSE(generator_.showDirContent(folder_.file("missing"), ""));
  EXPECT_TRUE(traceMatches("config_listing_failed.txt"));
}

TEST_F(AutoGenerate, PrintsNothingWithoutTheSwitch) {
  addFile("qmrk_logging_CA07.cfg");
  AutoGenerateCfg silent(false);
  EXPECT_TRUE(silent.setCfgPath(folder_.path()));
  EXPECT_TRUE(silent.generateGenericCfgFile());
  EXPECT_TRUE(silent.showDirContent(folder_.path(), ""));
  EXPECT_EQ(console_.text(), "");
}

}  // namespace
