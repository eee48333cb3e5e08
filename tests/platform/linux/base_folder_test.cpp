// SPDX-License-Identifier: MIT
#include "platform/linux/base_folder.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using platform::baseFolder;
using platform::ShellFolder;

// The folder in an environment and with a home; "none" when there is none.
std::string folder(ShellFolder _folder, const std::map<std::string, std::string>& _environment,
                   const std::string& _home = "") {
  std::string path = "none";
  const auto variable = [&](const char* _name) {
    const auto found = _environment.find(_name);
    return found == _environment.end() ? nullptr : found->second.c_str();
  };
  const auto home = [&](std::string& _found) {
    _found = _home;
    return !_home.empty();
  };
  baseFolder(_folder, {variable, home}, path);
  return path;
}

TEST(BaseFolder, ComesFromTheFirstSourceForTheUser) {
  const ShellFolder user = ShellFolder::userAppData;
  EXPECT_EQ(folder(user, {{"QMRK_APPDATA", "/a/"}, {"XDG_DATA_HOME", "/x"}, {"HOME", "/h"}}, "/p"), "/a");
  EXPECT_EQ(folder(user, {{"XDG_DATA_HOME", "/x"}, {"HOME", "/h"}}, "/p"), "/x");
  EXPECT_EQ(folder(user, {{"HOME", "/h"}}, "/p"), "/h/.local/share");
  EXPECT_EQ(folder(user, {}, "/p/"), "/p/.local/share");
  EXPECT_EQ(folder(user, {}), "none");
}

TEST(BaseFolder, IgnoresARelativePath) {
  EXPECT_EQ(folder(ShellFolder::userAppData, {{"QMRK_APPDATA", "a"}, {"XDG_DATA_HOME", ""}, {"HOME", "h"}}, "p"),
            "none");
  EXPECT_EQ(folder(ShellFolder::commonAppData, {{"QMRK_COMMON_APPDATA", "here"}}), "/var/lib");
}

TEST(BaseFolder, ComesFromTheOverrideOrTheDefaultForTheMachine) {
  EXPECT_EQ(folder(ShellFolder::commonProgramFiles, {}), "/etc/xdg");
  EXPECT_EQ(folder(ShellFolder::commonProgramFiles, {{"QMRK_COMMON_PROGRAM_FILES", "/c"}}), "/c");
}

}  // namespace
