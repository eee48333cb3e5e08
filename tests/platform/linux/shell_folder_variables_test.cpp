// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "platform/shell_folder.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::ShellFolder;
using platform::shellFolder;

// Gives each test an environment without the variables, and restores them.
class ShellFolderVariables : public ::testing::Test {
 protected:
  ShellFolderVariables() {
    for (auto& [name, value] : former_) {
      const char* const text = std::getenv(name.c_str());
      value = text == nullptr ? "" : text;
      ::unsetenv(name.c_str());
    }
  }
  ~ShellFolderVariables() override {
    for (const auto& [name, value] : former_) {
      if (value.empty()) {
        ::unsetenv(name.c_str());
      } else {
        set(name, value);
      }
    }
  }

  static void set(const std::string& _name, const std::string& _value) { ::setenv(_name.c_str(), _value.c_str(), 1); }

  static std::string folder(ShellFolder _folder) {
    std::string path;
    EXPECT_TRUE(shellFolder(_folder, path));
    return path;
  }
  static std::string appData() { return folder(ShellFolder::userAppData); }

 private:
  std::map<std::string, std::string> former_{{"QMRK_APPDATA", ""},
                                             {"QMRK_COMMON_PROGRAM_FILES", ""},
                                             {"QMRK_COMMON_APPDATA", ""},
                                             {"XDG_DATA_HOME", ""},
                                             {"HOME", ""}};
};

TEST_F(ShellFolderVariables, MayBeAbsentForTheMachineWideFolders) {
  EXPECT_EQ(folder(ShellFolder::commonProgramFiles), "/etc/xdg");
  EXPECT_EQ(folder(ShellFolder::commonAppData), "/var/lib");
}

TEST_F(ShellFolderVariables, ReplaceTheDefaultByAnAbsoluteOverride) {
  set("QMRK_COMMON_PROGRAM_FILES", "/srv/program files");
  set("QMRK_COMMON_APPDATA", "/srv/\xC3\xA6");
  set("QMRK_APPDATA", "/srv/user");
  EXPECT_EQ(folder(ShellFolder::commonProgramFiles), "/srv/program files");
  EXPECT_EQ(folder(ShellFolder::commonAppData), "/srv/\xC3\xA6");
  EXPECT_EQ(appData(), "/srv/user");
}

TEST_F(ShellFolderVariables, CountOnlyIfTheyAreAbsolute) {
  set("HOME", "/home/u");
  for (const char* const value : {"", "relative", "./relative", "~/x", "\\srv", "C:\\srv"}) {
    set("QMRK_COMMON_PROGRAM_FILES", value);
    set("QMRK_COMMON_APPDATA", value);
    set("QMRK_APPDATA", value);
    EXPECT_EQ(folder(ShellFolder::commonProgramFiles), "/etc/xdg") << value;
    EXPECT_EQ(folder(ShellFolder::commonAppData), "/var/lib") << value;
    EXPECT_EQ(appData(), "/home/u/.local/share") << value;
  }
}

TEST_F(ShellFolderVariables, NameTheUserDataByOverrideThenXdgThenHome) {
  set("HOME", "/home/u");
  EXPECT_EQ(appData(), "/home/u/.local/share");
  set("XDG_DATA_HOME", "/data/u");
  EXPECT_EQ(appData(), "/data/u");
  set("QMRK_APPDATA", "/override");
  EXPECT_EQ(appData(), "/override");
}

TEST_F(ShellFolderVariables, IncludeXdgOnlyIfItIsAbsolute) {
  set("HOME", "/home/u");
  for (const char* const value : {"", "relative"}) {
    set("XDG_DATA_HOME", value);
    EXPECT_EQ(appData(), "/home/u/.local/share");
  }
}

TEST_F(ShellFolderVariables, YieldToThePasswordEntryWithoutAHome) {
  const passwd* const entry = ::getpwuid(::geteuid());
  ASSERT_NE(entry, nullptr);
  const std::string expected = std::string(entry->pw_dir) + "/.local/share";
  EXPECT_EQ(appData(), expected);
  for (const char* const value : {"", "relative"}) {
    set("HOME", value);
    EXPECT_EQ(appData(), expected);
  }
}

TEST_F(ShellFolderVariables, NameNoUserDataForAUserWithoutAPasswordEntry) {
  const uid_t former = ::geteuid();
  ASSERT_EQ(::seteuid(4000000001U), 0) << "needs to run as root";
  std::string path = "untouched";
  EXPECT_FALSE(shellFolder(ShellFolder::userAppData, path));
  EXPECT_EQ(path, "untouched");
  ASSERT_EQ(::seteuid(former), 0);
}

TEST_F(ShellFolderVariables, LoseAFinalSeparator) {
  set("QMRK_COMMON_APPDATA", "/srv/data//");
  EXPECT_EQ(folder(ShellFolder::commonAppData), "/srv/data");
  set("QMRK_COMMON_APPDATA", "/");
  EXPECT_EQ(folder(ShellFolder::commonAppData), "");
  set("HOME", "/");
  EXPECT_EQ(appData(), "/.local/share");
}

TEST_F(ShellFolderVariables, CountAsTheyAreAtEachCall) {
  set("QMRK_APPDATA", "/one");
  EXPECT_EQ(appData(), "/one");
  set("QMRK_APPDATA", "/two");
  EXPECT_EQ(appData(), "/two");
}

std::string outputOf(const std::string& _command) {
  std::FILE* const pipe = ::popen(_command.c_str(), "r");
  std::string output;
  for (int c = 0; pipe != nullptr && (c = std::fgetc(pipe)) != EOF;) {
    output += static_cast<char>(c);
  }
  EXPECT_EQ(::pclose(pipe), 0);
  return output;
}

TEST_F(ShellFolderVariables, CountInAProgramOfTheSameUser) {
  set("QMRK_COMMON_APPDATA", "/override");
  EXPECT_EQ(outputOf(SHELL_FOLDER_PROBE), "plain /override");
}

TEST_F(ShellFolderVariables, DoNotCountInAProgramWithTheRightsOfAnotherUser) {
  const testsupport::TemporaryFolder folder;
  const std::string program = folder.path() + "/probe";
  std::filesystem::copy_file(SHELL_FOLDER_PROBE, program);
  ASSERT_EQ(::chown(program.c_str(), 65534, 65534), 0) << "needs to run as root";
  ASSERT_EQ(::chmod(program.c_str(), 04755), 0);
  set("QMRK_COMMON_APPDATA", "/override");
  EXPECT_EQ(outputOf(program), "secure /var/lib");
}

}  // namespace
