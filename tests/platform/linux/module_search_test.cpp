// SPDX-License-Identifier: MIT
#include "platform/linux/module_search.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/module_version.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/support/module_folder.h"
#include "tests/support/stamped_module.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::FixedVersion;
using platform::foldersOfList;
using platform::readModuleVersion;
using testsupport::TemporaryFolder;
using testsupport::writeStampedModule;

using Folders = std::vector<std::string>;

// The first number of a module's version, 0 when none is found.
std::uint32_t found(const char* _module) {
  FixedVersion version;
  return readModuleVersion(_module, version) ? version.fileMostSignificant : 0;
}

class ModuleSearch : public testing::Test {
 protected:
  ~ModuleSearch() override { testsupport::setEnvironment("LD_LIBRARY_PATH", ""); }
  TemporaryFolder first_;
  TemporaryFolder second_;
};

TEST(FoldersOfList, SplitAtAnyOfTheCharacters) {
  EXPECT_EQ(foldersOfList("/a:/b;/c", ":;"), (Folders{"/a", "/b", "/c"}));
  EXPECT_EQ(foldersOfList("/a:/b;/c", ":"), (Folders{"/a", "/b;/c"}));
}

TEST(FoldersOfList, ReadAnEmptyEntryAsTheCurrentFolder) {
  EXPECT_EQ(foldersOfList(":/a::", ":"), (Folders{".", "/a", ".", "."}));
  EXPECT_EQ(foldersOfList("", ":"), Folders{"."});
}

TEST(FoldersOfList, IncludeNothingOfAMissingList) { EXPECT_EQ(foldersOfList(nullptr, ":"), Folders{}); }

TEST_F(ModuleSearch, FindsTheRunningTestAsItsOwnFile) {
  EXPECT_EQ(platform::ownFile(), std::filesystem::read_symlink("/proc/self/exe"));
}

TEST_F(ModuleSearch, BeginsWithTheFoldersOfTheProgramAndOfTheLibrary) {
  const auto here = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  const Folders folders = platform::moduleFolders();
  ASSERT_GE(folders.size(), 2U);
  EXPECT_EQ(folders[0], here);
  EXPECT_EQ(folders[1], here);
}

TEST_F(ModuleSearch, SearchesTheFoldersOfTheLoaderBeforeThoseOfTheShell) {
  writeStampedModule(first_.path(), "LogTest.exe", {1, 0, 0, 0});
  writeStampedModule(second_.path(), "LogTest.exe", {2, 0, 0, 0});
  const testsupport::ModuleFolder shell(first_.path());
  EXPECT_EQ(found("LogTest.exe"), 1U);
  testsupport::setEnvironment("LD_LIBRARY_PATH", "/nowhere:" + second_.path());
  EXPECT_EQ(found("LogTest.exe"), 2U);
}

TEST_F(ModuleSearch, KnowsTheLibraryFoldersOfTheSystem) {
  const Folders folders = platform::moduleFolders();
  EXPECT_NE(std::find(folders.begin(), folders.end(), "/usr/lib"), folders.end());
}

TEST_F(ModuleSearch, SkipsWhatIsNoRegularFile) {
  testsupport::makeFolders(first_.file("LogTest"));
  ASSERT_EQ(::mkfifo((second_.path() + "/LogTest").c_str(), 0666), 0);
  const TemporaryFolder third;
  writeStampedModule(third.path(), "LogTest.exe", {3, 0, 0, 0});
  const testsupport::ModuleFolder shell(first_.path() + ":" + second_.path() + ":" + third.path());
  EXPECT_EQ(found("LogTest.exe"), 3U);
}

TEST_F(ModuleSearch, EndsAtTheFirstFileOfTheNameEvenWithoutAVersion) {
  testsupport::writeUnstampedModule(first_.path(), "LogTest.exe");
  writeStampedModule(second_.path(), "LogTest.exe", {2, 0, 0, 0});
  const testsupport::ModuleFolder shell(first_.path() + ":" + second_.path());
  EXPECT_EQ(found("LogTest.exe"), 0U);
}

TEST_F(ModuleSearch, FindsOtherModulesByTheirOwnNames) {
  writeStampedModule(first_.path(), "LogTest.exe", {1, 0, 0, 0});
  std::filesystem::rename(first_.path() + "/LogTest", first_.path() + "/other.module");
  const testsupport::ModuleFolder shell(first_.path());
  EXPECT_EQ(found("other.module"), 1U);
  EXPECT_EQ(found("LogTest.exe"), 0U);
  EXPECT_EQ(found(""), 0U);
}

TEST_F(ModuleSearch, LeavesTheVersionUntouchedWhenAReadFails) {
  writeStampedModule(first_.path(), "LogTest.exe", {1, 0, 0, 0});
  const testsupport::ModuleFolder shell(first_.path());
  const testsupport::FaultPlan plan(platform::Call::moduleVersion, 1, platform::errorAccessDenied);
  FixedVersion version{7, 7, 7, 7};
  EXPECT_FALSE(readModuleVersion("LogTest.exe", version));
  EXPECT_EQ(version.fileMostSignificant, 7U);
}

}  // namespace
