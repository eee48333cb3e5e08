// SPDX-License-Identifier: MIT
#include "trace/folder_creation.h"

#include <gtest/gtest.h>

#include "tests/support/as_unprivileged_user.h"
#include "tests/support/fault_plan.h"
#include "tests/support/golden.h"
#include "tests/support/temporary_folder.h"
#include "tests/trace/traced_console.h"

namespace {

using platform::Call;
using Quillmark_logging::checkIfFileDirectoryExists;
using Quillmark_logging::createDirectory;
using testsupport::AsUnprivilegedUser;
using testsupport::exists;
using testsupport::FaultPlan;
using testsupport::makeFolders;
using testsupport::matchesGolden;
using testsupport::replaced;
using testsupport::TemporaryFolder;
using testsupport::TracedConsole;
using testsupport::writeFile;

class FolderCreation : public testing::Test {
 protected:
  // The trace with the base folder masked, and without the lines about the folders above it, which depend on the
  // machine.
  std::string trace() const {
    std::string text = replaced(console_.text(), base_.path(), "<BASE>");
    const std::string walked = "_fileWithPath=<BASE>";
    const std::size_t first = text.find("==> Quillmark_logging::checkIfFileDirectoryExists() " + walked);
    const std::size_t entryEnd = text.find("\r\n") + 2;
    if (text.starts_with("==> Quillmark_logging::createDirectory()") && first != std::string::npos) {
      text.erase(entryEnd, first - entryEnd);
    }
    return text;
  }

  // How often a folder was created.
  int created() const {
    int count = 0;
    const std::string text = console_.text();
    for (std::size_t at = text.find("succesfully created"); at != std::string::npos; at = text.find("succ", at + 1)) {
      ++count;
    }
    return count;
  }

  TemporaryFolder base_;
  TracedConsole console_;
};

TEST_F(FolderCreation, ReportsAMissingPath) {
  EXPECT_FALSE(checkIfFileDirectoryExists(base_.file("nothing")));
  EXPECT_EQ(trace(),
            "==> Quillmark_logging::checkIfFileDirectoryExists() _fileWithPath=<BASE>\\nothing\r\n"
            "-!- Quillmark_logging::checkIfFileDirectoryExists() File or directory <BASE>\\nothing doesn't exist.\r\n"
            "<== Quillmark_logging::checkIfFileDirectoryExists() retValue=false\r\n");
}

TEST_F(FolderCreation, CallsAFileADirectory) {
  writeFile(base_.file("f"), "x");
  EXPECT_TRUE(checkIfFileDirectoryExists(base_.file("f")));
  EXPECT_EQ(trace(),
            "==> Quillmark_logging::checkIfFileDirectoryExists() _fileWithPath=<BASE>\\f\r\n"
            "--- Quillmark_logging::checkIfFileDirectoryExists() <BASE>\\f is a directory.\r\n"
            "--- Quillmark_logging::checkIfFileDirectoryExists() The file/directory <BASE>\\f has read/write "
            "permisssion.\r\n"
            "<== Quillmark_logging::checkIfFileDirectoryExists() retValue=true\r\n");
}

TEST_F(FolderCreation, FindsAReadOnlyFile) {
  writeFile(base_.file("f"), "x");
  testsupport::denyWriting(base_.file("f"));
  const AsUnprivilegedUser user;
  EXPECT_TRUE(checkIfFileDirectoryExists(base_.file("f")));
  EXPECT_EQ(trace(),
            "==> Quillmark_logging::checkIfFileDirectoryExists() _fileWithPath=<BASE>\\f\r\n"
            "--- Quillmark_logging::checkIfFileDirectoryExists() <BASE>\\f is a directory.\r\n"
            "-!- Quillmark_logging::checkIfFileDirectoryExists() The file/directory <BASE>\\f do NOT have read/write "
            "permisssion.\r\n"
            "<== Quillmark_logging::checkIfFileDirectoryExists() retValue=true\r\n");
}

TEST_F(FolderCreation, CallsAPathWithoutAStatusAFile) {
  makeFolders(base_.file("d"));
  const FaultPlan failure(Call::statusQuery, 1, platform::errorAccessDenied);
  EXPECT_TRUE(checkIfFileDirectoryExists(base_.file("d")));
  EXPECT_NE(trace().find("<BASE>\\d is a file.\r\n"), std::string::npos);
}

TEST_F(FolderCreation, CreatesEveryMissingFolderInOrder) {
  EXPECT_TRUE(createDirectory(base_.file("a\\b\\c")));
  EXPECT_TRUE(exists(base_.file("a\\b\\c")));
  EXPECT_TRUE(matchesGolden(trace(), "create_directory_missing.txt"));
}

TEST_F(FolderCreation, LeavesAnExistingFolderAlone) {
  makeFolders(base_.file("a\\b"));
  writeFile(base_.file("a\\b\\f"), "x");
  EXPECT_TRUE(createDirectory(base_.file("a\\b")));
  EXPECT_EQ(created(), 0);
  EXPECT_EQ(testsupport::namesIn(base_.file("a\\b")), std::vector<std::string>{"f"});
}

TEST_F(FolderCreation, KeepsAFinalSeparatorInTheLastStep) {
  EXPECT_TRUE(createDirectory(base_.file("a\\b\\")));
  EXPECT_TRUE(exists(base_.file("a\\b")));
  EXPECT_TRUE(matchesGolden(trace(), "create_directory_final_separator.txt"));
}

TEST_F(FolderCreation, AcceptsSlashesLikeBackslashes) {
  EXPECT_TRUE(createDirectory(base_.path() + "/logs/app"));
  EXPECT_TRUE(exists(base_.file("logs\\app")));
  EXPECT_NE(trace().find("Directory <BASE>/logs/ succesfully created.\r\n"), std::string::npos);
  EXPECT_NE(trace().find("Directory <BASE>/logs/app succesfully created.\r\n"), std::string::npos);
}

TEST_F(FolderCreation, SkipsDoubledSeparators) {
  EXPECT_TRUE(createDirectory(base_.path() + "\\\\a\\/b"));
  EXPECT_TRUE(exists(base_.file("a\\b")));
  EXPECT_EQ(created(), 2);
}

TEST_F(FolderCreation, TakesNoStepForDoubledSlashes) {
  EXPECT_TRUE(createDirectory(base_.path() + "//a"));
  EXPECT_TRUE(exists(base_.file("a")));
  EXPECT_EQ(trace().find("_fileWithPath=<BASE>//\r\n"), std::string::npos);
}

TEST_F(FolderCreation, TakesNoStepForADrive) {
  EXPECT_FALSE(createDirectory("?:\\nothing\\here"));
  EXPECT_EQ(console_.text().find("_fileWithPath=?:\\\r\n"), std::string::npos);
  EXPECT_NE(console_.text().find("_fileWithPath=?:\\nothing\\\r\n"), std::string::npos);
  EXPECT_FALSE(exists("?:"));
}

TEST_F(FolderCreation, FailsForAnEmptyPath) {
  EXPECT_FALSE(createDirectory(""));
  EXPECT_EQ(trace(),
            "==> Quillmark_logging::createDirectory() _dir=\r\n"
            "<== Quillmark_logging::createDirectory() retValue=false.\r\n");
}

TEST_F(FolderCreation, FailsWithTheErrorOfTheSystem) {
  makeFolders(base_.file("closed"));
  testsupport::denyWriting(base_.file("closed"));
  {
    const AsUnprivilegedUser user;
    EXPECT_FALSE(createDirectory(base_.file("closed\\a\\b")));
  }
  EXPECT_TRUE(matchesGolden(trace(), "create_directory_denied.txt"));
}

TEST_F(FolderCreation, AcceptsAFolderThatAnotherProcessCreatesMeanwhile) {
  makeFolders(base_.file("a"));
  const FaultPlan notSeen(Call::accessTest, 1, platform::errorPathNotFound, 100);
  EXPECT_TRUE(createDirectory(base_.file("a")));
  EXPECT_NE(trace().find("-!- Quillmark_logging::createDirectory() ERROR: GetLastError() returned 183. Requested "
                         "directory already exists.\r\n"),
            std::string::npos);
}

TEST_F(FolderCreation, ReturnsTheResultOfTheLastStep) {
  makeFolders(base_.file("a\\b"));
  // The first step of the walk is not found and cannot be created; the others exist.
  const FaultPlan notSeen(Call::accessTest, 1, platform::errorPathNotFound);
  const FaultPlan notCreated(Call::createDirectory, 1, platform::errorAccessDenied);
  EXPECT_TRUE(createDirectory(base_.file("a\\b")));
  EXPECT_EQ(notCreated.calls(), 1);
  EXPECT_NE(console_.text().find("-!- Quillmark_logging::createDirectory() ERROR: GetLastError() returned 5. Failed to "
                                 "create requested directory.\r\n"),
            std::string::npos);
}

TEST_F(FolderCreation, DoesNothingForTheNameCheckOfThePathLibrary) {
  Quillmark_logging::setBoostFileSystemNameCheck();
  Quillmark_logging::setBoostFileSystemNameCheck();
  EXPECT_EQ(console_.text(), "");
}

}  // namespace
