// SPDX-License-Identifier: MIT
// The versions in the binaries of this build, found by a program that uses the shared library.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/stamped_module.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

class BuiltVersions : public testing::Test {
 protected:
  ~BuiltVersions() override { testsupport::setEnvironment("LD_LIBRARY_PATH", ""); }

  static std::string folderOf(const std::string& _file) { return fs::path(_file).parent_path().string(); }

  // What the program prints when it finds its libraries, and whatever else, in these folders.
  static std::string probe(const std::string& _folders) {
    testsupport::setEnvironment("LD_LIBRARY_PATH", _folders);
    const testsupport::ChildResult result = testsupport::runProgram(VERSION_PROBE, {});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    return result.output;
  }

  // The two libraries as a package for running programs holds them: without the name for linking.
  void installLibraries() const {
    for (const fs::path library : {QMRK_LOG_LIBRARY, LOG_MANAGER_LIBRARY}) {
      fs::copy_file(library, fs::path(folder_.path()) / library.filename());
    }
  }

  testsupport::TemporaryFolder folder_;
};

TEST_F(BuiltVersions, MatchTheProject) {
  EXPECT_EQ(probe(folderOf(QMRK_LOG_LIBRARY) + ":" + folderOf(LOG_MANAGER_LIBRARY) + ":" + folderOf(LOG_TEST)),
            QMRK_VERSION " " QMRK_VERSION);
}

TEST_F(BuiltVersions, ComeFromTheLoadedLibraryWhenTheSearchPathHasNone) {
  installLibraries();
  EXPECT_EQ(probe(folder_.path()), QMRK_VERSION " N/A");
}

TEST_F(BuiltVersions, ComeFromTheSearchPathBeforeTheLoadedLibrary) {
  installLibraries();
  const testsupport::TemporaryFolder other;
  testsupport::writeStampedModule(other.path(), "qmrk_log.dll", {9U << 16 | 8, 7U << 16 | 6, 0, 0});
  EXPECT_EQ(probe(folder_.path() + ":" + other.path()), "9.8.7.6 N/A");
}

TEST_F(BuiltVersions, StandInASectionOfTheirOwn) {
  for (const char* binary : {QMRK_LOG_LIBRARY, LOG_MANAGER_LIBRARY, LOG_TEST, QMRKCTL}) {
    EXPECT_NE(testsupport::readFile(binary).find(std::string("\0.note.qmrk.version\0", 20)), std::string::npos)
        << binary;
  }
}

}  // namespace
